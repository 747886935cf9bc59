#include "reports/tfrngcomparacentro.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngcomparacentro{
    "Tfrngcomparacentro",
    "Comparativo centros",
    {382, 312},
    "balances.rav",
    "RComparacentros",
    "CBalcentros",
    "RepCompCentr",
    123,
    {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta, ""},
     {"Proy1", "Proy2", "Proyectos", ClaseRango::Proyecto, "", "", UsoPar::DosValores},
     {"ECenIni", "ECenFin", "Centros", ClaseRango::Centro, "", "", UsoPar::DosValores}}};
}

Tfrngcomparacentro::Tfrngcomparacentro() : FormaEstado(kDatosRngcomparacentro) {
    CAuxiliar.texto("CUENTA", 20).etiqueta("Cuenta");
    CAuxiliar.texto("NOM_CUENTA", 60).etiqueta("Nombre de la cuenta");
    CAuxiliar.texto("NOM_CENTRO", 60).etiqueta("Centros");
    defina_saldos("1");
    defina_saldos("2");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    defina_tope("CUENTA");

    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    casilla_niif();
    arme_casillas(f, {ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfrngcomparacentro::antes_de_abrir() {
    for (const char* caja : {"ECenIni", "ECenFin"})
        if (valor(caja).isEmpty())
            rehuse(findChild<QWidget*>(caja),
                   "Debe indicar los dos proyectos y centros a comparar.");
}

QString Tfrngcomparacentro::sql() {
    return "SELECT * FROM " + procedimiento("COMPARA_CENTROS", "_NIIF") + '(' + ano_y_periodo() +
           ", " + argumentos({"Proy1", "ECenIni", "Proy2", "ECenFin"}) +
           ") WHERE CUENTA >= " + entre_comillas("EDesde") +
           " and CUENTA <= " + entre_comillas("EHasta") + " order by CUENTA";
}

QString Tfrngcomparacentro::centro(int lado) const {
    return lado == 1 ? valor("Proy1") + '-' + valor("ECenIni")
                     : valor("Proy2") + '-' + valor("ECenFin");
}

QString Tfrngcomparacentro::titulo() {
    return del_periodo() + tramo(" - Cuentas:", "EDesde", "EHasta") + " Centros:" + centro(1) +
           " vs " + centro(2);
}

QString Tfrngcomparacentro::rango_legible() {
    return tiempo_legible() + " · " + tramo_legible("Cuentas", valor("EDesde"), valor("EHasta")) +
           " · centros " + centro(1) + " y " + centro(2);
}

void Tfrngcomparacentro::ajuste_reporte(MotorInformes& motor, const QString&) {
    motor.fijar_parametro("Centro1", centro(1));
    motor.fijar_parametro("Centro2", centro(2));
}
