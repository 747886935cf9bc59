#pragma once
// Lo que se ofrece al teclear en una rejilla o una caja: cuentas, terceros, proyectos y centros,
// por el comienzo de su código o por palabras de su nombre. Nunca reemplaza lo escogido; se toma
// con Abajo y Enter.
#include "libro/libro.h"

#include <functional>

class ConjuntoDatos;
class EditorSugerido;
class Rejilla;

/// Campos de la rejilla que llevan cuenta del libro y tercero; vacío, ninguno. Va después de
/// declarar las columnas. Al llegar a la rejilla, y no con cada tecla, se mira si alguien cambió
/// los catálogos.
void ofrezca_al_teclear(Rejilla& rejilla, Libro libro, const QString& cuenta,
                        const QString& tercero = {});
/// Los que llevan un proyecto y su centro; el centro se ofrece entre los del proyecto de la fila.
void ofrezca_centros(Rejilla& rejilla, const QString& proyecto, const QString& centro);

/// Cajas de un campo que ofrecen lo mismo. `libro` se pregunta cada vez: puede cambiar.
EditorSugerido* caja_de_cuenta(ConjuntoDatos& conjunto, const QString& campo,
                               std::function<Libro()> libro);
EditorSugerido* caja_de_proyecto(ConjuntoDatos& conjunto, const QString& campo);
/// Los centros del proyecto que ese otro campo tenga.
EditorSugerido* caja_de_centro(ConjuntoDatos& conjunto, const QString& campo,
                               const QString& proyecto);
EditorSugerido* caja_de_tercero(ConjuntoDatos& conjunto, const QString& campo);
