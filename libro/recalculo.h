#pragma once
// Recálculo de los saldos a partir de las líneas.
//
// Corre en una instantánea que escribe: lo que otros graben entretanto no entra en la cuenta ni se
// pierde, porque llega como diferencias aparte. Si choca con otra compactación o con un cambio en
// las mismas líneas, se repite entero.
#include "datos/firebird/conexion.h"
#include "libro/libro.h"

#include <functional>

/// Un saldo que no era el de sus líneas.
struct SaldoCorregido {
    QString tabla; ///< cuál de los saldos: por cuenta, tercero, centro, artículo o detalle
    QString cuenta, ano;
    int mes = 0; ///< 1 a 13; 0 el saldo inicial
    QString nit, proyecto, centro, articulo;
    Moneda debito, credito;               ///< lo que decía
    Moneda debito_lineas, credito_lineas; ///< lo que suman las líneas
};

/// Recibe cuánto va, de 0 a 100, después de cada mes y de cada tabla de saldos; falso lo detiene.
using AvanceRecalculo = std::function<bool(int ciento)>;

/// Recalcula las cuentas de `primera` a `ultima` desde el período de `desde` ("aaaammdd"). Devuelve
/// lo que corrigió; vacío si todo estaba bien. Lanza ErrorBase si no pudo, y EdicionAbortada si
/// `avance` lo detuvo: nada cambió.
QVector<SaldoCorregido> recalcule_saldos(Conexion& conexion, Libro libro, const QString& desde,
                                         const QString& primera, const QString& ultima,
                                         const AvanceRecalculo& avance = {});
