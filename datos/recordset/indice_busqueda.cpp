// Índice en memoria de Locate y Lookup: una búsqueda que se repite no recorre las filas.
#include "datos/recordset/indice_busqueda.h"

#include "datos/recordset/conjunto.h"

#include <optional>

namespace {

constexpr int kFilasQueLoValen = 32;

/// Dos valores iguales dan el mismo texto. Vacío cuando comparar los dos tipos tiene más vueltas
/// que un texto: esos se buscan mirando las filas.
std::optional<QString> clave_de(const QVector<Campo*>& campos, const QVector<Valor>& valores) {
    QString clave;
    for (int i = 0; i < campos.size(); ++i) {
        const Valor v = valores.value(i);
        const bool es_texto = std::holds_alternative<QString>(v.dato());
        const bool es_numero =
            std::holds_alternative<qint64>(v.dato()) || std::holds_alternative<Moneda>(v.dato());
        if (v.nulo())
            clave += QChar(0);
        else if (campos[i]->numerico() && es_numero)
            clave += QString::number(v.moneda().unidades());
        else if (campos[i]->clase == ClaseCampo::Texto && es_texto)
            clave.append('=').append(std::get<QString>(v.dato()));
        else
            return std::nullopt;
        clave += QChar(1);
    }
    return clave;
}

} // namespace

int ConjuntoDatos::fila_con(const QVector<Campo*>& llaves, const QVector<Valor>& valores) const {
    if (editando() || int(orden_.size()) < kFilasQueLoValen)
        return kSinIndice;
    const auto buscada = clave_de(llaves, valores);
    if (!buscada)
        return kSinIndice;
    if (!indice_busqueda_)
        indice_busqueda_ = std::make_unique<IndiceBusqueda>();
    IndiceBusqueda& indice = *indice_busqueda_;
    if (indice.version != version_ || indice.llaves != llaves) {
        indice = {version_, llaves, 0, {}};
        return kSinIndice; // la primera vez no se sabe si habrá otra
    }
    for (; indice.filas < int(orden_.size()); ++indice.filas) {
        QVector<Valor> suyos;
        for (const Campo* c : llaves)
            suyos << valor_de(*orden_[size_t(indice.filas)], *c);
        const auto clave = clave_de(llaves, suyos);
        if (!clave)
            return kSinIndice;
        if (!indice.donde.contains(*clave))
            indice.donde.insert(*clave, indice.filas);
    }
    return indice.donde.value(*buscada, kNoEsta);
}
