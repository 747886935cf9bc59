#pragma once
// Columnas del encabezado y de las líneas de un comprobante: nombre, miembro del valor, rótulo y
// rasgos del campo, una sola vez para leer, escribir y definir los conjuntos de datos.
#include "libro/comprobante.h"

#include <variant>

class ConjuntoDatos;

enum RasgoColumna : unsigned {
    ColRequerida = 1,
    ColFija = 2,
    ColMemo = 4,
    ColCeroNulo = 8, ///< un cero va a la base como nulo
    ColTasa = 16,    ///< un porcentaje
    ColAusente = 32, ///< un entero negativo dice que no hay, y va a la base como nulo
};

template <class T> struct ColumnaDe {
    const char* nombre;
    std::variant<QString T::*, Moneda T::*, qint64 T::*> miembro;
    const char* rotulo; ///< como la nombran los mensajes
    int tamano;         ///< caracteres de un texto, decimales de un importe
    unsigned rasgos = 0;
    const char* formato = "#,###.00"; ///< de los importes

    /// El miembro como valor de la base: un texto vacío es nulo.
    Valor valor(const T& fila) const {
        if (const auto* t = std::get_if<QString T::*>(&miembro))
            return (fila.**t).isEmpty() ? Valor() : Valor(fila.**t);
        if (const auto* m = std::get_if<Moneda T::*>(&miembro))
            return (rasgos & ColCeroNulo) && (fila.**m).es_cero() ? Valor() : Valor(fila.**m);
        const qint64 n = fila.*std::get<qint64 T::*>(miembro);
        const bool nulo = (rasgos & ColCeroNulo && n == 0) || (rasgos & ColAusente && n < 0);
        return nulo ? Valor() : Valor(n);
    }
    void ponga(T& fila, const Valor& v) const {
        if (const auto* t = std::get_if<QString T::*>(&miembro))
            fila.** t = v.texto();
        else if (const auto* m = std::get_if<Moneda T::*>(&miembro))
            fila.** m = v.moneda();
        else
            fila.*std::get<qint64 T::*>(miembro) =
                rasgos & ColAusente && v.nulo() ? -1 : v.entero();
    }
};

const QVector<ColumnaDe<Comprobante>>& columnas_encabezado();
/// Sin ENCO_CONSEC, que es el id del encabezado. Solo la NIIF lleva CODE_ITEMREP.
const QVector<ColumnaDe<LineaComprobante>>& columnas_linea(Libro libro);
