#pragma once
// Los tres conjuntos de datos de un comprobante abierto: el encabezado y las líneas de cada libro.
#include "datos/recordset/conjunto.h"
#include "libro/comprobante.h"

struct ConjuntosComprobante {
    ConjuntoDatos &encabezado, &lineas_2649, &lineas_niif;

    ConjuntoDatos& lineas(Libro libro) const { return es_niif(libro) ? lineas_niif : lineas_2649; }
};

/// Definen los campos, antes de abrir.
void defina_encabezado(ConjuntoDatos& encabezado);
void defina_lineas(ConjuntoDatos& lineas, Libro libro);

/// El comprobante como está en memoria, con todas sus líneas: también las que un filtro oculta. La
/// línea que se está insertando aún no cuenta.
Comprobante lea_comprobante(const ConjuntosComprobante& conjuntos);
/// Una fila de las líneas del libro.
LineaComprobante lea_linea(const ConjuntoDatos& lineas, Libro libro, const Fila& fila);

/// Deja los conjuntos como el comprobante, línea por línea según su CODE_ITEM, sin correr los
/// eventos de la pantalla. Solo cambia lo que difiere.
void vuelque(const Comprobante& comprobante, const ConjuntosComprobante& conjuntos);

/// Escribe un campo de la fila actual y la deja en edición, sin correr los eventos de la pantalla.
void ponga_callado(ConjuntoDatos& conjunto, const QString& campo, const Valor& valor);
