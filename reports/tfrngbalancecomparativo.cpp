#include "reports/tfrngbalancecomparativo.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngbalancecomparativo{"Tfrngbalancecomparativo",
                                             "Compara dos periodos",
                                             {382, 298},
                                             "balances.rav",
                                             "RBalancecomparativo",
                                             "CBalance",
                                             "RepBalanComp",
                                             123,
                                             {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta}}};
}

Tfrngbalancecomparativo::Tfrngbalancecomparativo() : FormaEstado(kDatosRngbalancecomparativo) {
    CAuxiliar.texto("CUENTA", 41).etiqueta("Cuenta");
    CAuxiliar.texto("NOM_CUENTA", 60).etiqueta("Nombre de la cuenta");
    CAuxiliar.texto("NIT", 20).etiqueta("NIT");
    CAuxiliar.texto("NOM_TERCERO", 60).etiqueta("Nombre del tercero");
    defina_saldos("1");
    defina_saldos("2");
    CAuxiliar.bandera("TERCERO").etiqueta("Es tercero");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    CAuxiliar.texto("NOMCTATER", 60).etiqueta("Cuenta o tercero");
    defina_tope("CUENTA");

    Formulario f(this);
    const auto mes_y_ano = [this](const char* mes, const char* ano) {
        return Formulario::junto({cree_mes(mes, periodo.numero()), cree_ano(ano)});
    };
    f.fila("Primer período:", mes_y_ano("MesIni", "EAno1"));
    f.fila("Segundo período:", mes_y_ano("MesFin", "EAno2"));
    arme_pares(f);
    CkTerceros = casilla("CkTerceros", "Incluir terceros");
    casilla_niif();
    arme_casillas(f, {CkTerceros, ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfrngbalancecomparativo::FormCreate() {
    FormaEstado::FormCreate();
    findChild<QWidget*>(QStringLiteral("MesIni"))->setFocus(); // los períodos van antes
}

QString Tfrngbalancecomparativo::sql() {
    return QStringLiteral("select * from %1(%2, %3, %4, %5, ")
               .arg(procedimiento("balance_comparativo"), entre_comillas("EAno1"),
                    QString::number(mes("MesIni")), entre_comillas("EAno2"),
                    QString::number(mes("MesFin"))) +
           bandera(marcada(CkTerceros)) + ") where CUENTA >= " + entre_comillas("EDesde") +
           " and CUENTA <= " + entre_comillas("EHasta") + " order by CUENTA";
}

QString Tfrngbalancecomparativo::titulo() {
    return "Período:" + valor("MesIni") + ':' + valor("EAno1") + " vs " + valor("MesFin") + ':' +
           valor("EAno2") + tramo(" - Cuentas:", "EDesde", "EHasta");
}

void Tfrngbalancecomparativo::ajuste_reporte(MotorInformes& motor, const QString&) {
    motor.fijar_parametro("Centro1", valor("MesIni") + '/' + valor("EAno1"));
    motor.fijar_parametro("Centro2", valor("MesFin") + '/' + valor("EAno2"));
}
