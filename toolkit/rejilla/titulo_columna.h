#pragma once
// El título de una columna en el ancho que le toque: entero, en dos renglones o abreviado, pero
// siempre con letras que lo distingan.
#include <QFontMetrics>
#include <QString>

/// En un renglón si cabe; si no, en los dos más parejos que den sus palabras, y las que aun así no
/// caben, abreviadas ("Ref.", "Ajust."). Los renglones van separados por '\n'.
QString titulo_en(const QString& titulo, const QFontMetrics& medidas, int ancho);

/// Un mes como se abrevia; cualquier otro título, como está.
QString mes_corto(const QString& titulo);

/// Píxeles con que se lee entero en dos renglones.
int ancho_en_dos_renglones(const QString& titulo, const QFontMetrics& medidas);

/// Píxeles con que se lee abreviado; con menos ya no dice de qué es la columna. `apretado`: lo que
/// basta a la que no dice nada.
int ancho_abreviado(const QString& titulo, const QFontMetrics& medidas, bool apretado = false);
