#pragma once
// Lo que un pegado va a hacer, antes de hacerlo: a dónde va cada columna y qué filas no entran.
#include "libro/pegado.h"

class QWidget;

struct AnuncioPegado {
    struct Columna {
        QString va_a;    ///< título de la columna, o por qué no se pega
        QString muestra; ///< lo que trae la primera fila
    };
    QVector<Columna> columnas;
    int filas = 0, reemplaza = 0; ///< las demás se agregan
    QVector<FilaRehusada> rehusadas;
};

enum class RespuestaPegado { Desiste, Pega };
/// Lo muestra y pregunta. Con filas que no entran, lo que se pega son las demás.
RespuestaPegado muestre_anuncio(QWidget* padre, const AnuncioPegado& anuncio);
