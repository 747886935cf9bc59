#pragma once
// Archivos de la información del distrito (campos separados por ";", sin comillas) y de los
// listados (separados por ",", los textos entre comillas). En ISO-8859-1, un renglón por fila.
#include "datos/recordset/conjunto.h"
#include "tax/medio_xml.h"

/// Columnas que escribe un artículo después del año, en su orden. "CodDpto" y "NombrePais" no son
/// de la tabla: salen del municipio y del catálogo de países.
QStringList columnas_articulo(int articulo);

/// Un renglón del artículo, sin el fin de línea. Un ";" o un salto dentro de un dato se cambia por
/// "," o un blanco: el formato no tiene cómo llevarlos.
QString renglon_articulo(int articulo, const QString& ano, const FilasMedio& fila);

ResultadoMedio escriba_articulo(int articulo, const QString& ano, const QString& ruta,
                                FilasMedio& filas, const std::function<bool(qint64)>& siga = {});

/// Las filas del conjunto, columna por columna.
ResultadoMedio archivo_csv(ConjuntoDatos& conjunto, const QString& ruta,
                           const std::function<bool(qint64)>& siga = {});
