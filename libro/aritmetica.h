#pragma once
// Aritmética de una celda de importe: se digita "1250000*0.19" y vale su resultado.
#include "libro/importes.h"

/// Lo que da una operación digitada.
struct ResultadoOperacion {
    bool es_operacion = false;   ///< falso: no hay nada que calcular, se lee como un importe
    std::optional<Moneda> valor; ///< exacto hasta el final, redondeado una sola vez
    QString rechazo;             ///< por qué no se puede calcular; con él no hay valor
};
/// Suma, resta, multiplica y divide, con paréntesis; "%" tras un factor son sus centésimas. Cada
/// número se lee como un importe: el que tiene dos lecturas se rehúsa. El resultado queda con
/// `decimales`, la mitad al par.
ResultadoOperacion calcule_operacion(const QString& texto, int decimales);
