#pragma once

class ArchivoSalida;
class TablaExportable;

/// Un escritor por formato. Todos recorren la tabla sin retenerla y lanzan ErrorExportacion.
namespace exportacion {

/// Columnas alineadas con espacios, en UTF-8: título, encabezados, filas y sumas.
void escriba_txt(TablaExportable& tabla, ArchivoSalida& salida);

/// RFC 4180 con comas, en UTF-8 con marca de orden para que la hoja de cálculo lea las tildes.
/// Importes sin separador de miles; sin la fila de sumas, que se contaría como un dato más.
void escriba_csv(TablaExportable& tabla, ArchivoSalida& salida);

/// Página HTML5 completa, con los títulos que se repiten al imprimirla.
void escriba_htm(TablaExportable& tabla, ArchivoSalida& salida);

/// Tabla RTF en hoja carta, vertical u horizontal según el ancho, con títulos repetidos.
void escriba_rtf(TablaExportable& tabla, ArchivoSalida& salida);

/// El texto como va en un RTF: sus signos y lo que no es ASCII, escapados.
QByteArray escape_rtf(const QString& texto);

/// Libro binario BIFF8: títulos fijos, importes y fechas como números, códigos como texto, y otra
/// hoja cada 65.536 filas. Un número de más de 15 cifras va como texto para no perder ninguna.
void escriba_xls(TablaExportable& tabla, ArchivoSalida& salida);

} // namespace exportacion
