#include "reports/tfrngbalanceanual.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngbalanceanual{"Tfrngbalanceanual",
                                       "Comparativo anual",
                                       {382, 255},
                                       "balances.rav",
                                       "RBalanceanual",
                                       "CBalance",
                                       "RepBalanAnu",
                                       123,
                                       {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta}}};
}

Tfrngbalanceanual::Tfrngbalanceanual() : FormaEstado(kDatosRngbalanceanual) {
    CAuxiliar.texto("CODIGO", 41).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    importe("INICIAL", "Saldo inicial");
    for (const auto& [nombre, rotulo] : meses_del_ano())
        importe("MV" + nombre, rotulo);
    importe("FINAL", "Saldo final");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    CAuxiliar.texto("NIT", 20).etiqueta("NIT");
    CAuxiliar.texto("NOMTERC", 60).etiqueta("Tercero o centro");
    CAuxiliar.texto("PROY", 4).etiqueta("Proyecto");
    CAuxiliar.texto("CENTRO", 4).etiqueta("Centro");

    Formulario f(this);
    f.fila("Año:", cree_ano("EAno"));
    arme_pares(f);
    f.fila("Nivel:", cree_nivel(5));
    cktercero = casilla("cktercero", "Incluir terceros");
    ckcentro = casilla("ckcentro", "Incluir centros");
    casilla_niif();
    arme_casillas(f, {cktercero, ckcentro, ckniif});
    arme_titulo(f);
    arme_botones(f);
}

QString Tfrngbalanceanual::sql() {
    const QString comunes = argumentos({"EAno", "EDesde", "EHasta"}, ",") + ',';
    const QString hasta = " where nivel <= " + nivel();
    if (marcada(ckcentro))
        return "select * from balance_anual_centros(" + comunes + bandera(false) + ',' +
               bandera(niif()) + ')' + hasta;
    return "select * from " + procedimiento("balance_anual") + '(' + comunes +
           bandera(marcada(cktercero)) + ",'N')" + hasta;
}

QString Tfrngbalanceanual::titulo() {
    return "Año:" + valor("EAno") + tramo(" - Cuentas:", "EDesde", "EHasta") +
           " Nivel:" + valor("Nivel");
}

QString Tfrngbalanceanual::reporte() {
    return marcada(ckcentro)    ? "Balanceanualcen"
           : marcada(cktercero) ? "Balanceanualter"
                                : "Balanceanual";
}

QString Tfrngbalanceanual::titulo_niif() {
    return marcada(ckcentro)    ? "Balance Comparativo Anual con centros NIIF"
           : marcada(cktercero) ? "Balance Comparativo Anual con terceros NIIF"
                                : "Balance Comparativo Anual NIIF";
}
