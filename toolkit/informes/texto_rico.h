#pragma once
// Texto con formato (negrita, listas, tablas, alineación) repartido en renglones de un informe.
//
// Recibe HTML, o texto sencillo con sus saltos. Solo se usa lo que es texto: las imágenes y todo lo
// que habría que traer de otra parte se dejan por fuera.
#include "toolkit/informes/hojas.h"

namespace informes {

struct TextoRico {
    QVector<Trazo> trazos; ///< desde la esquina de arriba del texto, en milímetros
    double alto = 0;
    /// Tramos de arriba abajo que no se reparten entre dos hojas: una fila de tabla, un título con
    /// el comienzo de su texto, los dos primeros y los dos últimos renglones de un párrafo.
    QVector<std::pair<double, double>> indivisibles;
};

/// `base`: letra de lo que no dice la suya. Los estilos quedan en `hojas`.
TextoRico reparta_rico(const QString& texto, double ancho, const Estilo& base, Hojas& hojas);

} // namespace informes
