#pragma once
// Los cambios sin grabar de un conjunto y sus anidados, escritos para guardarlos fuera de la base y
// volver a hacerlos sobre lo que la base tenga entonces.
#include "datos/recordset/conjunto.h"

#include <QJsonArray>

/// Una entrada por fila nueva, cambiada o borrada, con lo que la que se edita lleva escrito; la que
/// se inserta va si alguien la tocó o ya tiene detalles. Vacío: no hay qué grabar.
///
/// {"antes": {campo: texto}, "valores": {...}, "detalles": [[...]]}: sin "antes" la fila es nueva,
/// sin "valores" ni "detalles" se borró, con "nace" aún se insertaba. Los blobs van en base 64.
QJsonArray escriba_cambios(const ConjuntoDatos& conjunto);

/// Los hace en memoria, sin los eventos de la pantalla. La nueva que ya quedó grabada se salta, la
/// que encuentra ocupado su número toma el siguiente, y la cambiada que otro borró vuelve a nacer.
/// El conjunto que está en inserción llena su fila y sigue en ella, como la que se insertaba y a la
/// que le falte un dato obligatorio. Devuelve cuántas filas ya no están como estaban al cambiarlas.
int rehaga_cambios(ConjuntoDatos& conjunto, const QJsonArray& cambios);
