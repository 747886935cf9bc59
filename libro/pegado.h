#pragma once
// Qué hará un pegado con cada columna y qué fila no puede entrar, antes de cambiar nada.
#include "libro/fechas.h"
#include "libro/lineas.h"

#include <QStringList>

/// Lo que se va a pegar y dónde.
struct TextoPegado {
    QVector<QStringList> filas;
    QStringList campos;     ///< CODE_DEBITO...: a qué columna va cada celda; vacío, a ninguna
    MemoriasLinea memorias; ///< con que se completa lo que falte
    int existentes = 0; ///< las primeras filas caen sobre líneas que ya están; las demás nacen
    bool exige_valor = false;  ///< una línea que nace lleva débito o crédito
    bool solo_codigos = false; ///< sin lo que un comprobante exige a cada cuenta
};

struct FilaRehusada {
    int fila = 0; ///< desde 1
    QString razon;
};

/// Las que no pueden entrar, en su orden, una razón por fila: códigos que no existen, importes que
/// no son números o tienen dos lecturas, textos que no caben y lo que la cuenta exige.
QVector<FilaRehusada> revise_pegado(Conexion& conexion, Libro libro, const TextoPegado& pegado);
