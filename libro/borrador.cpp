#include "libro/borrador.h"

#include "datos/firebird/concuerde.h"
#include "libro/columnas_comprobante.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int kVersion = 1;

// En los borradores de antes un cero decía que la línea no replica a ninguna: así se sigue
// escribiendo, y la que replica al renglón cero lo lleva con signo.
QString texto_de(qint64 n, unsigned rasgos) {
    if (!(rasgos & ColAusente) || n > 0)
        return QString::number(n);
    return n < 0 ? QStringLiteral("0") : QStringLiteral("+0");
}

qint64 entero_de(const QString& texto, unsigned rasgos, bool& bien) {
    const qint64 n = texto.toLongLong(&bien);
    return rasgos & ColAusente && texto == QLatin1String("0") ? -1 : n;
}

template <class T> QJsonObject objeto_de(const T& fila, const QVector<ColumnaDe<T>>& columnas) {
    QJsonObject o;
    for (const auto& c : columnas) {
        const QString nombre = QLatin1String(c.nombre);
        if (const auto* t = std::get_if<QString T::*>(&c.miembro))
            o[nombre] = fila.**t;
        else if (const auto* m = std::get_if<Moneda T::*>(&c.miembro))
            o[nombre] = (fila.**m).texto();
        else
            o[nombre] = texto_de(fila.*std::get<qint64 T::*>(c.miembro), c.rasgos);
    }
    return o;
}

template <class T>
bool fila_de(const QJsonObject& o, T& fila, const QVector<ColumnaDe<T>>& columnas) {
    for (const auto& c : columnas) {
        const QJsonValue v = o[QLatin1String(c.nombre)];
        if (!v.isString())
            return false;
        bool bien = true;
        if (const auto* t = std::get_if<QString T::*>(&c.miembro)) {
            fila.** t = v.toString();
        } else if (const auto* m = std::get_if<Moneda T::*>(&c.miembro)) {
            const auto importe = Moneda::intente(v.toString());
            bien = importe.has_value();
            fila.** m = importe.value_or(Moneda());
        } else {
            fila.*std::get<qint64 T::*>(c.miembro) = entero_de(v.toString(), c.rasgos, bien);
        }
        if (!bien)
            return false;
    }
    return true;
}

} // namespace

QByteArray escriba_borrador(const Borrador& b) {
    QJsonObject o{{"version", kVersion},
                  {"momento", b.momento.toString(Qt::ISODateWithMs)},
                  {"dia", b.dia},
                  {"encabezado", objeto_de(b.comprobante, columnas_encabezado())}};
    if (!b.periodo.isEmpty())
        o["periodo"] = b.periodo;
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        QJsonArray lineas;
        for (const LineaComprobante& l : b.comprobante.lineas(libro))
            lineas.append(objeto_de(l, columnas_linea(libro)));
        o[QLatin1String(datos(libro).nombre)] = lineas;
    }
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

std::optional<Borrador> lea_borrador(const QByteArray& texto) {
    const QJsonObject o = QJsonDocument::fromJson(texto).object();
    Borrador b;
    b.momento = QDateTime::fromString(o["momento"].toString(), Qt::ISODateWithMs);
    b.dia = o["dia"].toString();
    b.periodo = o["periodo"].toString();
    if (o["version"].toInt() != kVersion || !b.momento.isValid() ||
        !fila_de(o["encabezado"].toObject(), b.comprobante, columnas_encabezado()))
        return {};
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        const QJsonArray lineas = o[QLatin1String(datos(libro).nombre)].toArray();
        for (const QJsonValue& v : lineas) {
            LineaComprobante l;
            if (!fila_de(v.toObject(), l, columnas_linea(libro)))
                return {};
            b.comprobante.lineas(libro).append(l);
        }
    }
    return b;
}

QString hace_cuanto(const QDateTime& antes, const QDateTime& ahora) {
    const qint64 minutos = qMax<qint64>(0, antes.secsTo(ahora)) / 60;
    if (minutos < 1)
        return QStringLiteral("hace un momento");
    const auto diga = [](qint64 n, const char* uno, const char* varios) {
        return "hace " + concuerde(n, uno, varios);
    };
    if (minutos < 60)
        return diga(minutos, "%1 minuto", "%1 minutos");
    if (minutos < 48 * 60)
        return diga(minutos / 60, "%1 hora", "%1 horas");
    return diga(minutos / (24 * 60), "%1 día", "%1 días");
}
