#include "sesion/borrador_filas.h"

#include "datos/firebird/concuerde.h"
#include "datos/firebird/reloj.h"
#include "datos/recordset/cambios_escritos.h"
#include "libro/borrador.h"
#include "sesion/tfdm.h"
#include "toolkit/proteccion.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString llave_de(const QString& que) {
    return fdm().Quorvex.parametros().base + '/' + fdm().usuario + '/' + que;
}

QVector<ConjuntoDatos*> con_sus_anidados(const QVector<ConjuntoDatos*>& conjuntos) {
    QVector<ConjuntoDatos*> todos = conjuntos;
    for (const ConjuntoDatos* c : conjuntos)
        todos << c->anidados();
    return todos;
}

QJsonArray como_nuevas(const QJsonArray& filas) {
    QJsonArray nuevas;
    for (const QJsonValue& fila : filas)
        nuevas.append(QJsonObject{{"valores", fila}, {"nace", true}});
    return nuevas;
}

/// Antes solo se guardaba lo que nacía: una lista de filas por conjunto, el primero la maestra de
/// los demás. Así quedan como cambios del primero.
QJsonArray de_la_version_anterior(QJsonArray conjuntos) {
    QJsonArray cambios = como_nuevas(conjuntos.takeAt(0).toArray()), detalles;
    for (const QJsonValue& suyas : conjuntos)
        detalles.append(como_nuevas(suyas.toArray()));
    if (detalles.isEmpty())
        return cambios;
    QJsonObject maestra = cambios.at(0).toObject();
    maestra["detalles"] = detalles;
    return {maestra};
}

} // namespace

BorradorFilas::BorradorFilas(const QString& que, const QVector<ConjuntoDatos*>& conjuntos,
                             std::function<bool()> hay, QObject* dueno)
    : ArchivoBorrador(llave_de(que), con_sus_anidados(conjuntos), dueno), conjuntos_(conjuntos),
      hay_(std::move(hay)) {}

QString BorradorFilas::Huerfano::valor(const QString& campo) const {
    return cambios.value(0).at(0)["valores"][campo].toString();
}

int BorradorFilas::Huerfano::detalles(const QString& con) const {
    int n = 0;
    for (const QJsonArray& filas : cambios)
        for (const QJsonValue& fila : filas)
            for (const QJsonValue& suyas : fila["detalles"].toArray())
                for (const QJsonValue& una : suyas.toArray())
                    n += !una["valores"][con].toString().isEmpty();
    return n;
}

QByteArray BorradorFilas::contenido() const {
    if (hay_ && !hay_())
        return {};
    QJsonArray todos;
    bool alguno = false;
    for (const ConjuntoDatos* c : conjuntos_) {
        todos.append(escriba_cambios(*c));
        alguno = alguno || !todos.last().toArray().isEmpty();
    }
    if (!alguno)
        return {};
    return QJsonDocument(QJsonObject{{"momento", reloj().ahora().toString(Qt::ISODateWithMs)},
                                     {"cambios", todos}})
        .toJson(QJsonDocument::Compact);
}

std::optional<BorradorFilas::Huerfano> BorradorFilas::tome_huerfano() {
    Huerfano h;
    const bool hay = tome_el_huerfano([&](const QByteArray& texto) {
        const QJsonObject o = QJsonDocument::fromJson(texto).object();
        h = {QDateTime::fromString(o["momento"].toString(), Qt::ISODateWithMs), {}};
        for (const QJsonValue& suyos : o["cambios"].toArray())
            h.cambios << suyos.toArray();
        if (o.contains("filas"))
            h.cambios = {de_la_version_anterior(o["filas"].toArray())};
        return h.momento.isValid() && h.cambios.size() == conjuntos_.size();
    });
    return hay ? std::optional(h) : std::nullopt;
}

bool BorradorFilas::ofrezca(const std::function<QString(const Huerfano&)>& frase) {
    const auto h = tome_huerfano();
    if (!h)
        return false;
    if (!pregunte(hace_cuanto(h->momento, reloj().ahora()).replace(0, 1, "H") + ' ' + frase(*h))) {
        resuelva_huerfano();
        return false;
    }
    int distintas = 0;
    // Si no se pudo, el archivo se queda para otra vez.
    if (!proteja([&] {
            for (qsizetype i = 0; i < conjuntos_.size(); ++i)
                distintas += rehaga_cambios(*conjuntos_[i], h->cambios[i]);
        }))
        return false;
    resuelva_huerfano();
    if (distintas > 0)
        muestre_mensaje(QStringLiteral("Entre tanto otro grabó cambios en %1. Quedaron como usted "
                                       "los había dejado: revíselos antes de grabar.")
                            .arg(concuerde(distintas, "una de esas filas", "%1 de esas filas")));
    return true;
}
