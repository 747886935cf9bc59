#pragma once
// Reglas de la hoja de apertura NIIF: con qué líneas pasa un saldo de un plan al otro y en qué
// queda cada una. Importes en pesos; un débito es positivo.
#include "datos/firebird/moneda.h"

#include <QString>
#include <QVector>

/// Un saldo por traer.
struct SaldoPorTraer {
    QString cuenta, nit, proyecto, centro, articulo, equivalente;
    Moneda saldo;
};

struct LineaApertura {
    QString cuenta, cuenta_niif; ///< una de las dos, la otra vacía
    Moneda saldo_inicial, reclasificacion_debito, reclasificacion_credito, saldo_final;
};

/// Las dos líneas con que un saldo pasa entero: la que sale de la cuenta 2649 y la que entra a la
/// NIIF. Un saldo cero da las dos en cero.
QVector<LineaApertura> lineas_de_traslado(const SaldoPorTraer& saldo);

Moneda saldo_de_linea(Moneda inicial, Moneda debito, Moneda credito, Moneda reclasificacion_debito,
                      Moneda reclasificacion_credito);
