#pragma once
// Posición de cada llave entre las filas a la vista. Ver indice_busqueda.cpp.
#include <QHash>
#include <QString>
#include <QVector>

class Campo;

class IndiceBusqueda {
public:
    unsigned version = 0; ///< de las filas con que se armó
    QVector<Campo*> llaves;
    int filas = 0; ///< las que ya están en el índice
    QHash<QString, int> donde;
};
