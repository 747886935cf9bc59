#pragma once
// Importes en letras, como los llevan los comprobantes impresos.
#include "datos/firebird/moneda.h"

/// Texto del importe: grupos de miles de millones a unidades, "DE " tras los millones, la moneda,
/// los centavos con su fracción y el final. Vacío para cero o menos. Las formas ("UN MIL", dos
/// blancos antes del final sin centavos) son las del formato impreso y no se corrigen.
QString importe_en_letras(Moneda valor, const QString& moneda, const QString& fraccion,
                          const QString& final);
