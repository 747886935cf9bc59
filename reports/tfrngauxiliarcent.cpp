#include "reports/tfrngauxiliarcent.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngauxiliarcent{
    "Tfrngauxiliarcent",
    "Auxiliar por centro",
    {382, 389},
    "auxiliares.rav",
    "RAuxiliarcent",
    "CAuxiliar",
    "RepAuxCentro",
    116,
    {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta},
     {"ProyIni", "ProyFin", "Proyectos", ClaseRango::Proyecto, "", "zz"},
     {"CentIni", "CentFin", "Centros", ClaseRango::Centro, "", "zz"},
     {"EFecIni", "EFecFin", "Fechas", ClaseRango::Fecha, "", "99991231"}}};
}

Tfrngauxiliarcent::Tfrngauxiliarcent() : FormaRango(kDatosRngauxiliarcent) {
    defina_auxiliar(CAuxiliar);
    defina_columnas(CAuxiliar, {"NOMPROY", "NOMCENT"});
    CAuxiliar.texto("CTAPROY", 24).etiqueta("Cuenta y proyecto");
    CAuxiliar.texto("CTAPROYCENT", 28).etiqueta("Cuenta, proyecto y centro");
    CAuxiliar.decimal("SALDO").etiqueta("Saldo inicial").formato("#,###.00");
    defina_columnas(CAuxiliar, {"TERCERO"});
    CAuxiliar.decimal("SALDOF").etiqueta("Saldo final").formato("#,###.00");
    CAuxiliar.entero("ITEM").Visible = false;

    Formulario f(this);
    arme_pares(f);
    agrupater = casilla("agrupater", "Agrupar por tercero");
    casilla_niif();
    arme_casillas(f, {agrupater, ckniif});
    arme_titulo(f);
    arme_botones(f);
    ponga_fechas();
}

QString Tfrngauxiliarcent::sql() {
    return QStringLiteral("select * from ") +
           (niif() ? "auxiliar_centro_desde_hasta_n(" : "auxiliar_centro_desde_hasta(") +
           argumentos({"EDesde", "EHasta", "ProyIni", "ProyFin", "CentIni", "CentFin", "EFecIni",
                       "EFecFin"}) +
           ")";
}

void Tfrngauxiliarcent::antes_de_abrir() {
    CAuxiliar.IndexFieldNames({});
}

void Tfrngauxiliarcent::despues_de_abrir() {
    if (marcada(agrupater))
        return;
    // La consulta separa los terceros: sin agruparlos, el saldo del centro corre por fechas.
    CAuxiliar.FetchAll();
    CAuxiliar.IndexFieldNames("CUENTA;PROYECTO;CENTRO;FECHA;TIPOCOMP;PREFIJO;NUMERO;ITEM");
}

QString Tfrngauxiliarcent::titulo() {
    return tramo("Cuentas:", "EDesde", "EHasta") + tramo(" Proy:", "ProyIni", "ProyFin") +
           tramo(" Cent:", "CentIni", "CentFin") + tramo(" Fechas:", "EFecIni", "EFecFin");
}

void Tfrngauxiliarcent::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    motor.fijar_parametro("Saldo", "centro");
    if (marcada(agrupater))
        return;
    for (const char* banda : {"tercero", "totalter"})
        motor.fijar_grupo(pagina, banda, {});
}
