#include "datos/firebird/moneda.h"

#include <limits>

namespace {

using Ancho = __int128;

qint64 estreche(Ancho valor) {
    if (valor > std::numeric_limits<qint64>::max() || valor < std::numeric_limits<qint64>::min())
        throw ErrorMoneda("El valor excede la capacidad de los importes.");
    return qint64(valor);
}

Ancho potencia10(int n) {
    Ancho p = 1;
    while (n-- > 0)
        p *= 10;
    return p;
}

Ancho divida(Ancho numerador, Ancho divisor, Redondeo modo) {
    Ancho cociente = numerador / divisor;
    Ancho resto = numerador % divisor;
    if (resto < 0)
        resto = -resto;
    const Ancho doble = resto * 2;
    const bool sube = doble > divisor ||
                      (doble == divisor && (modo == Redondeo::MitadArriba || cociente % 2 != 0));
    if (sube)
        cociente += numerador < 0 ? -1 : 1;
    return cociente;
}

} // namespace

Moneda Moneda::de_escalado(qint64 valor, int decimales) {
    if (decimales <= kDecimales)
        return de_unidades(estreche(Ancho(valor) * potencia10(kDecimales - decimales)));
    return de_unidades(
        estreche(divida(valor, potencia10(decimales - kDecimales), Redondeo::MitadPar)));
}

std::optional<Moneda> Moneda::intente(const QString& texto) {
    QString t = texto.trimmed();
    if (t.isEmpty())
        return Moneda();
    bool negativo = false;
    if (t.startsWith('-') || t.startsWith('+')) {
        negativo = t.startsWith('-');
        t = t.mid(1);
    }
    // Con punto a la vista las comas son miles; una sola coma sin punto es el decimal del teclado.
    if (t.contains('.'))
        t.remove(',');
    else if (t.count(',') == 1 && t.size() - t.indexOf(',') - 1 != 3)
        t.replace(',', '.');
    else
        t.remove(',');
    const qsizetype punto = t.indexOf('.');
    const QString enteros = punto < 0 ? t : t.left(punto);
    QString fraccion = punto < 0 ? QString() : t.mid(punto + 1);
    if (enteros.isEmpty() && fraccion.isEmpty())
        return std::nullopt;
    Ancho valor = 0;
    const auto acumule = [&valor](const QString& cifras) {
        for (const QChar c : cifras) {
            if (c < '0' || c > '9')
                return false;
            valor = valor * 10 + (c.unicode() - '0');
            if (valor > Ancho(std::numeric_limits<qint64>::max()) * 10)
                return false;
        }
        return true;
    };
    while (fraccion.size() > kDecimales && fraccion.endsWith('0'))
        fraccion.chop(1);
    if (fraccion.size() > kDecimales)
        return std::nullopt;
    fraccion = fraccion.leftJustified(kDecimales, '0');
    if (!acumule(enteros) || !acumule(fraccion))
        return std::nullopt;
    if (negativo)
        valor = -valor;
    if (valor > std::numeric_limits<qint64>::max() || valor < std::numeric_limits<qint64>::min())
        return std::nullopt;
    return de_unidades(qint64(valor));
}

Moneda Moneda::de_texto(const QString& texto) {
    if (const auto m = intente(texto))
        return *m;
    throw ErrorMoneda(
        QStringLiteral("'%1' no es un valor numérico válido.").arg(texto).toUtf8().constData());
}

qint64 Moneda::escalado(int decimales) const {
    if (decimales >= kDecimales)
        return estreche(Ancho(unidades_) * potencia10(decimales - kDecimales));
    return estreche(divida(unidades_, potencia10(kDecimales - decimales), Redondeo::MitadPar));
}

Moneda Moneda::absoluta() const {
    return unidades_ < 0 ? -*this : *this;
}

Moneda Moneda::redondeada(int decimales, Redondeo modo) const {
    if (decimales >= kDecimales)
        return *this;
    const Ancho paso = potencia10(kDecimales - decimales);
    return de_unidades(estreche(divida(unidades_, paso, modo) * paso));
}

Moneda Moneda::porcentaje_redondeado(Moneda base, Moneda porcentaje, int digito) {
    // base y porcentaje traen 4 decimales cada uno y el ÷100 añade dos: el producto vale ×10^10.
    const Ancho producto = Ancho(base.unidades_) * porcentaje.unidades_;
    const int exponente = 10 + digito;
    if (exponente <= 0)
        return de_unidades(estreche(divida(producto, potencia10(6), Redondeo::MitadPar)));
    const Ancho cociente = divida(producto, potencia10(exponente), Redondeo::MitadPar);
    const int resto = kDecimales + digito;
    return de_unidades(estreche(resto >= 0
                                    ? cociente * potencia10(resto)
                                    : divida(cociente, potencia10(-resto), Redondeo::MitadPar)));
}

Moneda Moneda::porcentaje(Moneda base, Moneda porcentaje) {
    return porcentaje_redondeado(base, porcentaje, -2);
}

QString Moneda::texto() const {
    QString cifras = formateada(kDecimales);
    cifras.remove(',');
    while (cifras.endsWith('0'))
        cifras.chop(1);
    if (cifras.endsWith('.'))
        cifras.chop(1);
    return cifras;
}

QString Moneda::formateada(int decimales) const {
    const qint64 valor = redondeada(decimales).escalado(decimales);
    const quint64 magnitud = valor < 0 ? quint64(-(valor + 1)) + 1 : quint64(valor);
    QString cifras = QString::number(magnitud).rightJustified(decimales + 1, '0');
    QString enteros = cifras.left(cifras.size() - decimales);
    for (qsizetype i = enteros.size() - 3; i > 0; i -= 3)
        enteros.insert(i, ',');
    QString salida = valor < 0 ? QStringLiteral("-") + enteros : enteros;
    if (decimales > 0)
        salida += '.' + cifras.right(decimales);
    return salida;
}

Moneda Moneda::operator-() const {
    return de_unidades(estreche(-Ancho(unidades_)));
}
Moneda Moneda::operator+(Moneda otra) const {
    return de_unidades(estreche(Ancho(unidades_) + otra.unidades_));
}
Moneda Moneda::operator-(Moneda otra) const {
    return de_unidades(estreche(Ancho(unidades_) - otra.unidades_));
}
