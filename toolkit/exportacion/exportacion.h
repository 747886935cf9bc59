#pragma once

#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/tabla_exportable.h"

/// En el orden del filtro: el índice 1 a 5 del diálogo menos uno.
enum class FormatoExportacion { Txt, Csv, Htm, Rtf, Xls };

/// Filtro del diálogo de guardar de las rejillas.
inline const QString kFiltroExportacion = QStringLiteral(
    "Text files (*.txt)|*.TXT|Comma separated values (*.csv)|*.CSV|HTML file (*.htm)|*.HTM|Rich "
    "Text Format (*.rtf)|*.RTF|Microsoft Excel Workbook (*.xls)|*.XLS");

/// Graba la tabla entera en `ruta`, que se reemplaza solo si todo salió bien.
/// Lanza ErrorExportacion, y deja pasar las excepciones de la tabla.
void exporte(TablaExportable& tabla, FormatoExportacion formato, const QString& ruta);

/// "txt", "csv", "htm", "rtf" o "xls".
QString extension_de(FormatoExportacion formato);
/// El formato de un filtro de los que da `filtro_para_qt`, por su extensión; sin reconocerla, Txt.
FormatoExportacion formato_del_filtro(const QString& filtro);

/// La extensión de ese formato.
QString extension_del_filtro(const QString& filtro);

/// Agrega "." y la extensión si los tres últimos caracteres del nombre no son ella, en mayúsculas
/// ambos: "datosxls" ya termina en "xls" y queda como está.
QString componga_nombre(const QString& nombre, const QString& extension);

/// De "Descripción|*.EXT|..." a "Descripción (*.ext);;...", la forma de los diálogos de Qt.
QString filtro_para_qt(const QString& filtro);
