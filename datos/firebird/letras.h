#pragma once
// Letras que un texto puede traer y no se guardan o no se ven.
#include <QString>

/// Los caracteres de control vueltos blancos, menos `salvo`: un pitido o un tabulador grabados
/// parten una fila al copiarla y dañan un XML.
QString controles_a_blancos(QString texto, QChar salvo = {});
/// Lo pegado donde solo cabe un renglón: sin controles en los extremos, que una hoja de cálculo
/// pone un salto al final, y los de adentro como blancos.
QString en_un_renglon(QString texto);
/// Cómo se nombra en un mensaje la letra que empieza ahí: '€', o U+200B si no se ve.
QString letra_nombrada(const QString& texto, qsizetype donde);
