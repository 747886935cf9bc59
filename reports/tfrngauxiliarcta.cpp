#include "reports/tfrngauxiliarcta.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {
const DatosRango kDatosRngauxiliarcta{
    "Tfrngauxiliarcta",
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

Tfrngauxiliarcta::Tfrngauxiliarcta() : FormaRango(kDatosRngauxiliarcta) {
    defina_auxiliar(CAuxiliar);
    CAuxiliar.decimal("SALDO").etiqueta("Saldo").formato("#,###.00");
    CAuxiliar.texto("CATEGORIA", 4).etiqueta("Categoría");
    CAuxiliar.decimal("INICIAL").etiqueta("Inicial").formato("#,###.00");
    CAuxiliar.calculado("SaldoF", ClaseCampo::Decimal, 2)
        .etiqueta("Saldo final")
        .formato("#,###.00");
    Campo& solo_centro = CAuxiliar.texto("SOLO_CENTRO", 1);
    solo_centro.DisplayLabel = "Fila solo del centro";
    solo_centro.Visible = false;

    Formulario f(this);
    arme_pares(f);
    TxCateg = caja("TxCateg", 4);
    CkSinMov = casilla("CkSinMov", "Incluir cuentas sin movimiento");
    CkCateg = casilla("CkCateg", "Agrupar por categoría");
    Chcentro = casilla("Chcentro", "Agrupar por centros");
    casilla_niif();
    f.fila("Incluir sólamente:", TxCateg);
    arme_casillas(f, {CkSinMov, ckniif, CkCateg, Chcentro});
    arme_titulo(f);
    arme_botones(f);
    ponga_fechas();
}

QString Tfrngauxiliarcta::sql() {
    QString texto = QStringLiteral("select * from ") +
                    (niif() ? "auxiliar_desde_hasta_niif(" : "auxiliar_desde_hasta(") +
                    argumentos({"EDesde", "EHasta", "EFecIni", "EFecFin", "ProyIni", "ProyFin",
                                "CentIni", "CentFin"}) +
                    (marcada(CkSinMov) ? ", 'S')" : ", 'N')");
    if (!valor("TxCateg").isEmpty())
        texto += " where CATEGORIA = " + entre_comillas("TxCateg");
    if (marcada(CkCateg))
        return texto + " order by CUENTA,CATEGORIA,FECHA,PREFIJO,NUMERO";
    if (marcada(Chcentro))
        return texto + " order by PROYECTO,CENTRO,CUENTA,FECHA,PREFIJO,NUMERO";
    return texto + " order by CUENTA,FECHA,PREFIJO,NUMERO";
}

bool Tfrngauxiliarcta::por_centros() const {
    return marcada(Chcentro) && !marcada(CkCateg);
}

void Tfrngauxiliarcta::antes_de_abrir() {
    saldo_.comience();
    // La cuenta sin movimiento viene una vez por centro: sin agruparlos basta una.
    CAuxiliar.Filter(por_centros() ? QString() : QStringLiteral("SOLO_CENTRO = 'N'"));
    CAuxiliar.Filtered(!por_centros());
}

QString Tfrngauxiliarcta::rango_legible() {
    const QString rango = FormaRango::rango_legible(), categoria = valor("TxCateg");
    return categoria.isEmpty() ? rango : rango + " · sólo la categoría " + categoria;
}

QString Tfrngauxiliarcta::titulo() {
    return tramo("Cuentas:", "EDesde", "EHasta") + tramo("Fechas:", "EFecIni", "EFecFin");
}

QString Tfrngauxiliarcta::reporte() {
    if (marcada(CkCateg))
        return "Categorias";
    return fdm().valor<Llave::AuxiliarConCentros>() ? "Cuentas" : "Cuentassc";
}

void Tfrngauxiliarcta::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    // El saldo corrido es de la cuenta; dentro de un centro interesa el del centro. De una sola
    // categoría no hay saldo que partir ni que cerrar: solo su movimiento.
    QString saldo = por_centros() ? "centro" : "cuenta";
    if (!valor("TxCateg").isEmpty())
        saldo.clear();
    motor.fijar_parametro("Saldo", saldo);
    if (por_centros() || marcada(CkCateg)) // por categoría ya agrupa por cuenta
        return;
    for (const char* banda : {"grupo", "total"})
        motor.fijar_grupo(pagina, banda, "CUENTA");
    motor.fijar_grupo(pagina, "centro", {});
}
