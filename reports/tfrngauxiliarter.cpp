#include "reports/tfrngauxiliarter.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QCollator>

namespace {
const DatosRango kDatosRngauxiliarter{
    "Tfrngauxiliarter",
    "Auxiliar por tercero",
    {382, 344},
    "auxiliares.rav",
    "RAuxiliarterc",
    "CAuxiliar",
    "RepAuxTerc",
    116,
    {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta},
     {"TerIni", "TerFin", "Terceros", ClaseRango::Tercero},
     {"EFecIni", "EFecFin", "Fechas", ClaseRango::Fecha, "", "99991231"},
     {"ProyIni", "ProyFin", "Proyectos", ClaseRango::Proyecto, "", "zz"},
     {"CentIni", "CentFin", "Centros", ClaseRango::Centro, "", "zz"}}};
}

Tfrngauxiliarter::Tfrngauxiliarter() : FormaRango(kDatosRngauxiliarter) {
    defina_auxiliar(CAuxiliar);
    defina_columnas(CAuxiliar, {"NOMTERCERO"});
    CAuxiliar.texto("CUENTANIT", 40).etiqueta("Cuenta y NIT");
    for (const auto& [campo, rotulo] : {std::pair{"SALDO", "Saldo inicial"},
                                        {"SALDOFIN", "Saldo final"},
                                        {"SALDOCTA", "Inicial de la cuenta"}})
        CAuxiliar.decimal(campo).etiqueta(rotulo).formato("#,###.00");
    CAuxiliar.texto("DV", 1).etiqueta("DV");
    CAuxiliar.decimal("SALDOCTAF").etiqueta("Final de la cuenta").formato("#,###.00");
    CAuxiliar.calculado("SaldoF", ClaseCampo::Decimal, 2).etiqueta("Saldo").formato("#,###.00");
    CAuxiliar.entero("ITEM").Visible = false;
    CAuxiliar.calculado("Lugar", ClaseCampo::Entero, 0).Visible = false;
    CAuxiliar.OnCalcFields = [this] { CAuxiliarCalcFields(); };

    Formulario f(this);
    arme_pares(f);
    CkSinMov = casilla("CkSinMov", "Incluir cuentas sin movimiento");
    cknombre = casilla("cknombre", "Ordenar por nombre");
    Chcentro = casilla("Chcentro", "Agrupar por centros");
    casilla_niif();
    arme_casillas(f, {CkSinMov, ckniif, cknombre, Chcentro});
    arme_titulo(f);
    arme_botones(f);
    ponga_fechas();
}

QString Tfrngauxiliarter::sql() {
    const QString texto =
        QStringLiteral("select * from ") +
        (niif() ? "auxiliar_tercero_desde_hasta_n(" : "auxiliar_tercero_desde_hasta(") +
        argumentos({"EDesde", "EHasta", "TerIni", "TerFin", "EFecIni", "EFecFin", "ProyIni",
                    "ProyFin", "CentIni", "CentFin"}) +
        (marcada(CkSinMov) ? ",'S')" : ",'N')");
    if (marcada(cknombre))
        return texto + "ORDER BY PROYECTO,CENTRO,CUENTA,NOMTERCERO,FECHA,PREFIJO,NUMERO";
    if (marcada(Chcentro))
        return texto + "ORDER BY PROYECTO,CENTRO,CUENTA,NIT,FECHA,PREFIJO,NUMERO";
    return texto;
}

QString Tfrngauxiliarter::titulo() {
    return tramo("Cuentas:", "EDesde", "EHasta") + tramo(" Terceros:", "TerIni", "TerFin") +
           tramo(" Fechas:", "EFecIni", "EFecFin");
}

bool Tfrngauxiliarter::un_solo_centro() const {
    return valor("ProyIni") == valor("ProyFin") && valor("CentIni") == valor("CentFin");
}

void Tfrngauxiliarter::antes_de_abrir() {
    saldo_.comience(marcada(cknombre));
    lugar_.clear();
    CAuxiliar.IndexFieldNames({});
}

void Tfrngauxiliarter::CAuxiliarCalcFields() {
    saldo_.CAuxiliarCalcFields();
    CAuxiliar.FieldByName("Lugar") = lugar_.value(CAuxiliar.FieldByName("NOMTERCERO").texto());
}

void Tfrngauxiliarter::despues_de_abrir() {
    if (!marcada(cknombre))
        return;
    // Por nombre, la consulta separa antes los centros y mezcla a los que se llaman igual: cada
    // tercero de una cuenta se junta aquí, para que no empiece ni cierre más de una vez.
    CAuxiliar.FetchAll();
    QSet<QString> distintos;
    for (CAuxiliar.First(); !CAuxiliar.Eof(); CAuxiliar.Next())
        distintos << CAuxiliar.FieldByName("NOMTERCERO").texto();
    QStringList nombres(distintos.begin(), distintos.end());
    const QCollator alfabeto(QLocale(QLocale::Spanish, QLocale::Colombia));
    std::sort(nombres.begin(), nombres.end(), alfabeto);
    for (int i = 0; i < nombres.size(); ++i)
        lugar_.insert(nombres[i], i);
    CAuxiliar.recalcule();
    const QString de_la_cuenta = "CUENTA;Lugar;NIT;FECHA;TIPOCOMP;PREFIJO;NUMERO;ITEM";
    CAuxiliar.IndexFieldNames(marcada(Chcentro) ? "PROYECTO;CENTRO;" + de_la_cuenta : de_la_cuenta);
    saldo_.recorra();
}

void Tfrngauxiliarter::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    // El saldo de partida es del tercero en todos los centros pedidos: repartido en varios, la hoja
    // muestra solo el movimiento de cada uno.
    const bool con_saldo = !marcada(Chcentro) || un_solo_centro();
    motor.fijar_parametro("Saldo", con_saldo ? "cuenta" : "");
    if (marcada(Chcentro))
        return;
    for (const char* banda : {"grupo", "total"})
        motor.fijar_grupo(pagina, banda, "cuenta");
    for (const char* banda : {"tercero", "tottercero"})
        motor.fijar_grupo(pagina, banda, "CUENTANIT");
    // Agrupado por la cuenta repetiría su título: queda por fuera, con su total.
    motor.fijar_grupo(pagina, "centro", {});
}
