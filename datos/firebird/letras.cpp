#include "datos/firebird/letras.h"

static bool es_control(QChar c) {
    constexpr char16_t kBorrado = 0x7f;
    return c.unicode() < 0x20 || c.unicode() == kBorrado;
}

QString controles_a_blancos(QString texto, QChar salvo) {
    for (QChar& c : texto)
        if (es_control(c) && (salvo.isNull() || c != salvo))
            c = QLatin1Char(' ');
    return texto;
}

QString en_un_renglon(QString texto) {
    while (!texto.isEmpty() && es_control(texto.back()))
        texto.chop(1);
    while (!texto.isEmpty() && es_control(texto.front()))
        texto.remove(0, 1);
    return controles_a_blancos(texto);
}

QString letra_nombrada(const QString& texto, qsizetype donde) {
    // Una letra puede ocupar dos lugares del texto.
    const char32_t letra = QStringView(texto).mid(donde).toUcs4().value(0);
    if (QChar::isPrint(letra) && !QChar::isSpace(letra) && !QChar::isMark(letra))
        return '\'' + QString::fromUcs4(&letra, 1) + '\'';
    return QStringLiteral("U+") +
           QString::number(uint(letra), 16).toUpper().rightJustified(4, QLatin1Char('0'));
}
