#include "reports/tfrngauxiliarcta.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {
const DatosRango kDatos{"Tfrngauxiliarcta",
                        "Auxiliar por cuenta",
                        {382, 345},
                        "auxiliares.rav",
                        "RAuxiliarcta",
                        "CAuxiliar",
                        "RepAuxCta",
                        116,
                        {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta},
                         {"EFecIni", "EFecFin", "Fechas", ClaseRango::Fecha, "", "99991231"},
                         {"ProyIni", "ProyFin", "Proyectos", ClaseRango::Proyecto, "", "zz"},
                         {"CentIni", "CentFin", "Centros", ClaseRango::Centro, "", "zz"}}};
}

Tfrngauxiliarcta::Tfrngauxiliarcta() : FormaRango(kDatos) {
    defina_auxiliar(CAuxiliar);
    CAuxiliar.texto("NOMCUENTA", 60).etiqueta("Nombre de la cuenta");
    CAuxiliar.decimal("SALDO").etiqueta("Saldo").formato("#,###.00");
    CAuxiliar.texto("CATEGORIA", 4).etiqueta("Categoría");
    CAuxiliar.decimal("INICIAL").etiqueta("Inicial").formato("#,###.00");
    CAuxiliar.calculado("SaldoF", ClaseCampo::Decimal, 2)
        .etiqueta("Saldo final")
        .formato("#,###.00");

    Formulario f(this);
    arme_pares(f);
    TxCateg = caja("TxCateg", 4);
    CkSinMov = casilla("CkSinMov", "Incluir cuentas sin movimiento");
    CkCateg = casilla("CkCateg", "Agrupar por categoría");
    Chcentro = casilla("Chcentro", "Agrupar por centros");
    ckniif = casilla("ckniif", "Cuentas NIIF");
    f.fila("Incluir sólamente:", TxCateg);
    f.fila({{"", CkSinMov}, {"", CkCateg}});
    f.fila({{"", Chcentro}, {"", ckniif}});
    arme_titulo(f);
    arme_botones(f);
    findChild<QLineEdit*>("EFecIni")->setText(primer_dia_del_periodo());
    findChild<QLineEdit*>("EFecFin")->setText(ultimo_dia_del_periodo());
}

QString Tfrngauxiliarcta::sql() {
    QString texto = QStringLiteral("select * from ") +
                    (niif() ? "auxiliar_desde_hasta_niif(" : "auxiliar_desde_hasta(");
    for (const char* c :
         {"EDesde", "EHasta", "EFecIni", "EFecFin", "ProyIni", "ProyFin", "CentIni", "CentFin"})
        texto += entre_comillas(c) + ", ";
    texto += marcada(CkSinMov) ? "'S')" : "'N')";
    if (!TxCateg->text().isEmpty())
        texto += " where CATEGORIA = " + entre_comillas("TxCateg");
    if (marcada(CkCateg))
        return texto + " order by CUENTA,CATEGORIA,FECHA,PREFIJO,NUMERO";
    if (marcada(Chcentro))
        return texto + " order by PROYECTO,CENTRO,CUENTA,FECHA,PREFIJO,NUMERO";
    return texto + " order by CUENTA,FECHA,PREFIJO,NUMERO";
}

void Tfrngauxiliarcta::antes_de_abrir() {
    saldo_.comience();
}

QString Tfrngauxiliarcta::titulo() {
    return tramo("Cuentas:", "EDesde", "EHasta") + tramo("Fechas:", "EFecIni", "EFecFin");
}

QString Tfrngauxiliarcta::reporte() {
    if (marcada(CkCateg))
        return "Categorias";
    return fdm().configurado_si("COMPROBANTES", "AUXILIAR POR CUENTA MOSTRANDO CENTROS DE COSTOS")
               ? "Cuentas"
               : "Cuentassc";
}

void Tfrngauxiliarcta::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    if (marcada(CkCateg) || marcada(Chcentro))
        return;
    for (const char* banda : {"grupo", "total"})
        motor.fijar_grupo(pagina, banda, "CUENTA");
    motor.fijar_grupo(pagina, "centro", {});
}
