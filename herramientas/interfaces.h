#pragma once
// Interfaces contables de los módulos hermanos en un archivo de texto.
//
// El formato está en docs/documentos.md; los conceptos de cada familia, en database/posting.
#include "datos/firebird/conexion.h"

/// Carga las interfaces de un archivo, todas o ninguna, en lugar de las que tengan el mismo número.
/// Lanza ErrorDatos con todo lo que esté mal, por renglón: también las cuentas, los comprobantes y
/// los conceptos que la compañía no tiene. Devuelve cuántas.
int cargue_interfaces(Conexion& conexion, const QString& archivo);
/// Las interfaces en la forma del archivo; con familia, solo las suyas.
QString liste_interfaces(Conexion& conexion, const QString& familia = {});
