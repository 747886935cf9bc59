#pragma once
// Lo que las pantallas de este subsistema se piden unas a otras.
#include <QString>

/// Movimiento de una cuenta en la hoja de apertura.
struct AbreMovimientoApertura {
    QString cuenta;
    bool niif = false; ///< la cuenta es del plan NIIF
};
/// La conciliación, en el año del balance de apertura.
struct AbreConciliacion {
    QString ano;
    bool apertura = false; ///< los saldos al comenzar el año
};
/// De dónde sale la diferencia de una cuenta en un año, hasta un mes.
struct AbreConciliacionCuenta {
    QString cuenta, ano;
    int mes = 13; ///< 0 al comenzar el año; 13 los ajustes, que es todo el año
};
