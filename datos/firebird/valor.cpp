#include "datos/firebird/valor.h"

QString Valor::texto() const {
    switch (dato_.index()) {
    case 1:
        return std::get<QString>(dato_);
    case 2:
        return QString::number(std::get<qint64>(dato_));
    case 3:
        return std::get<Moneda>(dato_).texto();
    case 4:
        return std::get<QDate>(dato_).toString(QStringLiteral("yyyy/MM/dd"));
    case 5:
        return std::get<QTime>(dato_).toString(QStringLiteral("HH:mm:ss"));
    case 6:
        return std::get<QDateTime>(dato_).toString(QStringLiteral("yyyy/MM/dd HH:mm:ss"));
    case 7:
        return QString::fromLatin1(std::get<QByteArray>(dato_));
    default:
        return {};
    }
}

qint64 Valor::entero() const {
    switch (dato_.index()) {
    case 1:
        return std::get<QString>(dato_).trimmed().toLongLong();
    case 2:
        return std::get<qint64>(dato_);
    case 3:
        return std::get<Moneda>(dato_).escalado(0);
    default:
        return 0;
    }
}

Moneda Valor::moneda() const {
    switch (dato_.index()) {
    case 1:
        return Moneda::de_texto(std::get<QString>(dato_));
    case 2:
        return Moneda::de_escalado(std::get<qint64>(dato_), 0);
    case 3:
        return std::get<Moneda>(dato_);
    default:
        return {};
    }
}

QDate Valor::fecha() const {
    switch (dato_.index()) {
    case 1:
        return QDate::fromString(std::get<QString>(dato_), QStringLiteral("yyyy/MM/dd"));
    case 4:
        return std::get<QDate>(dato_);
    case 6:
        return std::get<QDateTime>(dato_).date();
    default:
        return {};
    }
}

QTime Valor::hora() const {
    switch (dato_.index()) {
    case 1:
        return QTime::fromString(std::get<QString>(dato_).left(8), QStringLiteral("HH:mm:ss"));
    case 5:
        return std::get<QTime>(dato_);
    case 6:
        return std::get<QDateTime>(dato_).time();
    default:
        return {};
    }
}

QByteArray Valor::binario() const {
    if (const auto* b = std::get_if<QByteArray>(&dato_))
        return *b;
    return texto().toLatin1();
}

int Valor::compare(const Valor& otro) const {
    const auto signo = [](auto a, auto b) { return a < b ? -1 : (b < a ? 1 : 0); };
    if (nulo() || otro.nulo())
        return signo(!nulo(), !otro.nulo());
    if (dato_.index() == 1 && otro.dato_.index() == 1)
        return std::get<QString>(dato_).compare(std::get<QString>(otro.dato_));
    const auto numero = [](const Valor& v) { return v.dato_.index() == 2 || v.dato_.index() == 3; };
    if (numero(*this) && numero(otro))
        return signo(moneda(), otro.moneda());
    if (numero(*this) && otro.dato_.index() == 1)
        if (const auto m = Moneda::intente(std::get<QString>(otro.dato_)))
            return signo(moneda(), *m);
    if (numero(otro) && dato_.index() == 1)
        if (const auto m = Moneda::intente(std::get<QString>(dato_)))
            return signo(*m, otro.moneda());
    return texto().compare(otro.texto());
}

QString QuotedStr(const QString& texto) {
    QString interior = texto;
    interior.replace('\'', QStringLiteral("''"));
    return '\'' + interior + '\'';
}

QChar caracter_fuera_de_latin1(const QString& texto) {
    for (const QChar c : texto)
        if (c.unicode() > 0xFF)
            return c;
    return {};
}
