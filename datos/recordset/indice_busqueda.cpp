// Índices en memoria: el de Locate y Lookup, para que una búsqueda que se repite no recorra las
// filas, y el de la llave, para que grabar la fila n no cueste mirar las n de antes.
#include "datos/recordset/indice_busqueda.h"

#include "datos/recordset/conjunto.h"
#include "datos/recordset/en_la_fila.h"

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
        indice = {version_, llaves, 0, {}, {}};
        return kSinIndice; // la primera vez no se sabe si habrá otra
    }
    for (; indice.filas < int(orden_.size()); ++indice.filas) {
        ++IndiceBusqueda::llaves_leidas;
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

// ---------------------------------------------------------------- la llave no se repite

namespace {

/// De un campo calculado no se sabe cuándo cambia.
bool de_datos(const QVector<Campo*>& campos) {
    return std::all_of(campos.begin(), campos.end(),
                       [](const Campo* c) { return vive_en_la_fila(*c); });
}

} // namespace

bool CuentaLlaves::anote(const QVector<Valor>& valores, int cuantas_mas) {
    const auto clave = clave_de(campos, valores);
    if (clave)
        cuantas[*clave] += cuantas_mas;
    filas += cuantas_mas;
    return clave.has_value();
}

void ConjuntoDatos::valide_llave() {
    const auto llave = campos_llave();
    if (llave.isEmpty())
        return;
    QVector<Valor> mios;
    for (const Campo* c : llave)
        mios << bufer_[c->indice_];
    const auto lea = [&](const Fila& fila) {
        ++IndiceBusqueda::llaves_leidas;
        QVector<Valor> suyos;
        for (const Campo* c : llave)
            suyos << valor_guardado(fila, *c);
        return suyos;
    };
    const auto mia = de_datos(llave) && int(orden_.size()) >= kFilasQueLoValen
                         ? clave_de(llave, mios)
                         : std::nullopt;
    if (mia) {
        if (!indice_busqueda_)
            indice_busqueda_ = std::make_unique<IndiceBusqueda>();
        CuentaLlaves& cuenta = indice_busqueda_->llave;
        const int guardadas = int(orden_.size()) - (nueva_ ? 1 : 0);
        if (cuenta.version != version_ || cuenta.campos != llave || cuenta.filas != guardadas) {
            cuenta = {version_, llave, 0, {}};
            for (const Fila* fila : orden_)
                if (fila != nueva_.get() && !cuenta.anote(lea(*fila), 1))
                    cuenta.version = 0;
        }
        const Fila& actual = *orden_[size_t(pos_)];
        const bool es_suya = &actual != nueva_.get() && clave_de(llave, lea(actual)) == mia;
        if (cuenta.version != 0 && cuenta.cuantas.value(*mia) == (es_suya ? 1 : 0))
            return;
    }
    for (size_t i = 0; i < orden_.size(); ++i) {
        if (int(i) == pos_)
            continue;
        ++IndiceBusqueda::llaves_leidas;
        bool igual = true;
        for (int k = 0; igual && k < llave.size(); ++k)
            igual = valor_de(*orden_[i], *llave[k]).compare(mios[k]) == 0;
        if (igual)
            throw ErrorDatos(QStringLiteral("key violation: ya existe un registro igual."), {},
                             QStringLiteral("Ya existe un registro igual."));
    }
}
