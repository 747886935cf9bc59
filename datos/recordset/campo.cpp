#include "datos/recordset/conjunto.h"

#include "datos/firebird/letras.h"
#include "datos/firebird/nombres.h"

Valor Campo::valor() const {
    if (tipo == TipoCampo::Busqueda)
        return conjunto_->busque(*this);
    const Fila* fila = conjunto_->fila_activa();
    if (!fila)
        return {};
    return conjunto_->valor_de(*fila, *this);
}

QString Campo::nombre_visible() const {
    if (!DisplayLabel.isEmpty())
        return DisplayLabel;
    const QString nombre = nombre_de_columna(FieldName);
    return nombre.isEmpty() ? FieldName : nombre;
}

void Campo::asigne(const Valor& valor) {
    conjunto_->asigne(*this, valor);
}

Valor Campo::rehuse(const Valor& v, const QString& que) const {
    throw ErrorDatos(
        QStringLiteral("'%1' no es %2 para el campo %3.").arg(v.texto(), que, nombre_visible()));
}

Valor Campo::convierta_texto(QString t) const {
    if (const QChar fuera = caracter_fuera_de_latin1(t); !fuera.isNull())
        throw ErrorDatos(QStringLiteral("El carácter %1 del campo %2 no se puede guardar en la "
                                        "base de datos. Reemplácelo por uno equivalente.")
                             .arg(letra_nombrada(t, t.indexOf(fuera)), nombre_visible()));
    // El renglón nuevo solo lo escribe una caja de varios, y hay textos cortos con una.
    if (clase == ClaseCampo::Texto)
        t = controles_a_blancos(t, QLatin1Char('\n'));
    if (clase == ClaseCampo::Texto && Size > 0 && t.size() > Size) {
        // Los blancos que sobran se cortan; las letras no se pierden en silencio.
        if (!QStringView(t).mid(Size).trimmed().isEmpty())
            throw ErrorDatos(
                QStringLiteral("El campo %1 admite %2 caracteres y el texto tiene %3.")
                    .arg(nombre_visible(), QString::number(Size), QString::number(t.size())));
        t.truncate(Size);
    }
    return t;
}

Valor Campo::convierta_entero(const Valor& v) const {
    if (std::holds_alternative<qint64>(v.dato()))
        return v;
    const QString t = v.texto().trimmed();
    if (t.isEmpty())
        return {};
    bool bien = false;
    const qint64 n = t.toLongLong(&bien);
    return bien ? Valor(n) : rehuse(v, QStringLiteral("un número entero"));
}

Valor Campo::convierta_decimal(const Valor& v) const {
    if (std::holds_alternative<Moneda>(v.dato()))
        return Valor(std::get<Moneda>(v.dato()).redondeada(Size));
    const QString t = v.texto().trimmed();
    if (t.isEmpty())
        return {};
    const auto m = Moneda::intente(t);
    if (!m)
        return rehuse(v, QStringLiteral("un número"));
    // numeric(15,n): quince cifras en total.
    static const qint64 kTope = 1000000000000000LL;
    const Moneda redondo = m->redondeada(Size);
    if (qAbs(redondo.escalado(Size)) >= kTope)
        return rehuse(v, QStringLiteral("un valor que quepa en 15 cifras"));
    return redondo;
}

Valor Campo::convierta(const Valor& v) const {
    if (v.nulo())
        return {};
    switch (clase) {
    case ClaseCampo::Texto:
    case ClaseCampo::Memo: {
        const QString t = v.texto(); // el texto vacío es un nulo: la base también los iguala
        return t.isEmpty() ? Valor() : convierta_texto(t);
    }
    case ClaseCampo::Entero:
        return convierta_entero(v);
    case ClaseCampo::Decimal:
        return convierta_decimal(v);
    case ClaseCampo::Fecha: {
        if (v.texto().trimmed().isEmpty())
            return {};
        const QDate d = v.fecha();
        return d.isValid() ? Valor(d) : rehuse(v, QStringLiteral("una fecha (aaaa/mm/dd)"));
    }
    case ClaseCampo::Hora: {
        if (v.texto().trimmed().isEmpty())
            return {};
        const QTime h = v.hora();
        return h.isValid() ? Valor(h) : rehuse(v, QStringLiteral("una hora (hh:mm:ss)"));
    }
    default:
        return v;
    }
}

QString Campo::presente(const Valor& v, const QString& formato_pedido) const {
    if (v.nulo())
        return {};
    const QString& formato = formato_pedido.isEmpty() ? DisplayFormat : formato_pedido;
    if (formato.isEmpty() || !numerico())
        return v.texto();
    // "#,###.00": los ceros tras el punto son fijos; los numerales, opcionales.
    const qsizetype punto = formato.indexOf('.');
    const QString fraccion = punto < 0 ? QString() : formato.mid(punto + 1);
    const int fijos = int(fraccion.count('0'));
    const int maximos = int(fraccion.count('0') + fraccion.count('#'));
    QString t = v.moneda().formateada(maximos);
    for (int i = maximos; i > fijos && t.endsWith('0'); --i)
        t.chop(1);
    if (t.endsWith('.'))
        t.chop(1);
    if (!formato.contains(','))
        t.remove(',');
    return t;
}
