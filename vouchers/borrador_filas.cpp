#include "vouchers/borrador_filas.h"

#include "datos/firebird/reloj.h"
#include "datos/recordset/sin_eventos.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

bool se_guarda(const Campo& campo) {
    return campo.tipo == TipoCampo::Datos;
}

QJsonArray filas_de(const ConjuntoDatos& c) {
    QJsonArray filas;
    for (int f = 0; f < c.RecordCount(); ++f) {
        QJsonObject fila;
        for (int i = 0; i < c.FieldCount(); ++i)
            if (const Valor v = c.valor_en(f, c.Fields(i));
                se_guarda(c.Fields(i)) && !v.texto().isEmpty())
                fila[c.Fields(i).FieldName] = v.texto();
        if (!fila.isEmpty())
            filas.append(fila);
    }
    return filas;
}

void llene(ConjuntoDatos& c, const BorradorFilas::FilaGuardada& fila) {
    for (int i = 0; i < c.FieldCount(); ++i)
        if (se_guarda(c.Fields(i)))
            c.Fields(i) =
                fila.contains(c.Fields(i).FieldName) ? Valor(fila[c.Fields(i).FieldName]) : Valor();
}

} // namespace

BorradorFilas::BorradorFilas(const QString& llave, const QVector<ConjuntoDatos*>& conjuntos,
                             std::function<bool()> hay, QObject* dueno)
    : ArchivoBorrador(llave, conjuntos, dueno), conjuntos_(conjuntos), hay_(std::move(hay)) {}

QByteArray BorradorFilas::contenido() const {
    if (!hay_())
        return {};
    QJsonArray todas;
    for (const ConjuntoDatos* c : conjuntos_)
        todas.append(filas_de(*c));
    return QJsonDocument(QJsonObject{{"momento", reloj().ahora().toString(Qt::ISODateWithMs)},
                                     {"filas", todas}})
        .toJson(QJsonDocument::Compact);
}

std::optional<BorradorFilas::Huerfano> BorradorFilas::tome_huerfano() {
    Huerfano h;
    const bool hay = tome_el_huerfano([&](const QByteArray& texto) {
        const QJsonObject o = QJsonDocument::fromJson(texto).object();
        h = {QDateTime::fromString(o["momento"].toString(), Qt::ISODateWithMs), {}};
        for (const QJsonValue& conjunto : o["filas"].toArray()) {
            h.filas.append(QVector<FilaGuardada>());
            for (const QJsonValue& fila : conjunto.toArray()) {
                FilaGuardada valores;
                const QJsonObject campos = fila.toObject();
                for (auto c = campos.begin(); c != campos.end(); ++c)
                    valores[c.key()] = c.value().toString();
                h.filas.last() << valores;
            }
        }
        return h.momento.isValid() && h.filas.size() == conjuntos_.size();
    });
    return hay ? std::optional(h) : std::nullopt;
}

void BorradorFilas::reponga(const Huerfano& huerfano) {
    for (qsizetype i = 0; i < conjuntos_.size(); ++i) {
        const SinEventos callado(*conjuntos_[i]);
        if (conjuntos_[i]->State() == Estado::Insercion && !huerfano.filas[i].isEmpty())
            llene(*conjuntos_[i], huerfano.filas[i].first());
        else
            agregue(*conjuntos_[i], huerfano.filas[i]);
    }
}

void BorradorFilas::agregue(ConjuntoDatos& c, const QVector<FilaGuardada>& filas) {
    for (const FilaGuardada& fila : filas) {
        c.Append();
        llene(c, fila);
        bool completa = true;
        for (int i = 0; i < c.FieldCount(); ++i)
            completa = completa && !(c.Fields(i).Required && c.Fields(i).vacio());
        if (completa)
            c.Post();
        else if (&fila != &filas.last())
            c.Cancel(); // a medias solo puede quedar la última
    }
}
