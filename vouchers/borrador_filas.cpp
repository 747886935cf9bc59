#include "vouchers/borrador_filas.h"

#include "datos/firebird/reloj.h"
#include "datos/recordset/sin_eventos.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

BorradorFilas::BorradorFilas(const QString& llave, ConjuntoDatos& hoja, QObject* dueno)
    : ArchivoBorrador(llave, {&hoja}, dueno), hoja_(hoja) {}

QByteArray BorradorFilas::contenido() const {
    QJsonArray filas;
    for (int f = 0; f < hoja_.RecordCount(); ++f) {
        QJsonObject fila;
        for (int i = 0; i < hoja_.FieldCount(); ++i)
            if (const Valor v = hoja_.valor_en(f, hoja_.Fields(i)); !v.texto().isEmpty())
                fila[hoja_.Fields(i).FieldName] = v.texto();
        if (!fila.isEmpty())
            filas.append(fila);
    }
    if (filas.isEmpty())
        return {};
    return QJsonDocument(QJsonObject{{"momento", reloj().ahora().toString(Qt::ISODateWithMs)},
                                     {"filas", filas}})
        .toJson(QJsonDocument::Compact);
}

std::optional<BorradorFilas::Huerfano> BorradorFilas::tome_huerfano() {
    Huerfano h;
    const bool hay = tome_el_huerfano([&h](const QByteArray& texto) {
        const QJsonObject o = QJsonDocument::fromJson(texto).object();
        h = {QDateTime::fromString(o["momento"].toString(), Qt::ISODateWithMs), {}};
        for (const QJsonValue& fila : o["filas"].toArray()) {
            const QJsonObject campos = fila.toObject();
            QMap<QString, QString> valores;
            for (auto c = campos.begin(); c != campos.end(); ++c)
                valores[c.key()] = c.value().toString();
            h.filas << valores;
        }
        return h.momento.isValid() && !h.filas.isEmpty();
    });
    return hay ? std::optional(h) : std::nullopt;
}

void BorradorFilas::reponga(const Huerfano& huerfano) {
    const SinEventos callado(hoja_);
    for (const auto& valores : huerfano.filas) {
        hoja_.Append();
        for (auto v = valores.begin(); v != valores.end(); ++v)
            if (Campo* campo = hoja_.FindField(v.key()))
                *campo = v.value();
        bool completa = true;
        for (int i = 0; i < hoja_.FieldCount(); ++i)
            completa = completa && !(hoja_.Fields(i).Required && hoja_.Fields(i).vacio());
        if (completa)
            hoja_.Post();
        else if (&valores != &huerfano.filas.last())
            hoja_.Cancel(); // a medias solo puede quedar la última
    }
}
