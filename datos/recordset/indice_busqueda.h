#pragma once
// Índices en memoria de las filas a la vista. Ver indice_busqueda.cpp.
#include "datos/firebird/valor.h"

#include <QHash>
#include <QString>
#include <QVector>

class Campo;

/// Cuántas filas guardadas tienen cada llave. Sigue al día con cada fila que entra, cambia o sale.
struct CuentaLlaves {
    unsigned version = 0; ///< de las filas que cuenta; 0 si no vale
    QVector<Campo*> campos;
    int filas = 0; ///< las contadas: con un paquete nuevo faltan
    QHash<QString, int> cuantas;
    /// Una fila con esa llave entra (1) o sale (-1). Falso si no se puede indizar, y entonces la
    /// cuenta no sirve.
    bool anote(const QVector<Valor>& valores, int cuantas_mas);
};

/// Posición de cada llave, para buscarla.
class IndiceBusqueda {
public:
    unsigned version = 0; ///< de las filas con que se armó
    QVector<Campo*> llaves;
    int filas = 0; ///< las que ya están en el índice
    QHash<QString, int> donde;
    CuentaLlaves llave;

    /// Llaves de filas leídas por este hilo, al buscar y al grabar: lo que cuesta cada cosa.
    static inline thread_local qint64 llaves_leidas = 0;
};
