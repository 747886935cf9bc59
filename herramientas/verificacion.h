#pragma once
// Comprobaciones de los libros de una compañía.
#include "datos/firebird/conexion.h"

#include <QStringList>

/// Diferencias entre los saldos y los renglones de los dos libros, y comprobantes mal cerrados
/// (descuadrados cuando no se permiten, o bajo el id provisional). Vacía si todo está bien.
QStringList verifique_compania(Conexion& compania);

/// Compacta los saldos hasta no dejar diferencias; devuelve cuántas había.
qint64 compacte_saldos(Conexion& compania);
