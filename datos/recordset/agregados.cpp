// Sumas con nombre de un conjunto de datos. La de una tabla grande se corrige con la fila que
// cambia y no se hace de nuevo.
#include "datos/recordset/conjunto.h"

void ConjuntoDatos::agregado(const QString& nombre, const QString& expresion) {
    agregados_.insert(nombre.toUpper(), expresion);
}

namespace {

/// "Sum(CODE_DEBITO)" partido en función y columna.
struct Agregado {
    explicit Agregado(const QString& expresion) {
        const qsizetype abre = expresion.indexOf('(');
        cuenta = expresion.left(abre).trimmed().compare("COUNT", Qt::CaseInsensitive) == 0;
        columna = expresion.mid(abre + 1).chopped(1).trimmed();
    }
    Moneda sumando(const Valor& v) const { return cuenta ? Moneda(1) : v.moneda(); }
    bool cuenta;
    QString columna;
};

} // namespace

Valor ConjuntoDatos::valor_que_cuenta(const Fila& fila, const Campo& campo) const {
    // La fila en edición cuenta con lo que tenía: lo tecleado a medias no ha entrado al libro.
    if (!editando() || pos_ < 0 || orden_[size_t(pos_)] != &fila)
        return valor_de(fila, campo);
    if (fila.valores)
        return (*fila.valores)[campo.indice_];
    if (fila.cruda && campo.columna_ >= 0)
        return decodifique(sentencia()->conexion(), columnas_[campo.columna_], fila.cruda);
    return {}; // una que nace no tiene nada
}

template <class Filas>
Valor ConjuntoDatos::sume(const QString& nombre, const Filas& filas, Sumas& sumas) const {
    const QString expresion = agregados_.value(nombre.toUpper());
    if (!AggregatesActive || expresion.isEmpty() || !Active())
        return {};
    SumaViva& s = sumas[expresion];
    if (s.version != version_) {
        const Agregado agregado(expresion);
        const Campo& campo = FieldByName(agregado.columna);
        s = {version_, {}, 0};
        for (const auto& fila : filas)
            if (const Valor v = valor_que_cuenta(*fila, campo); !v.nulo()) {
                ++s.cuantos;
                s.suma += agregado.sumando(v);
            }
    }
    return s.cuantos > 0 ? Valor(s.suma) : Valor();
}

Valor ConjuntoDatos::agregado(const QString& nombre) const {
    return sume(nombre, orden_, sumas_a_la_vista_);
}

Valor ConjuntoDatos::agregado_total(const QString& nombre) const {
    const Detalle* d = almacen();
    return d ? sume(nombre, d->filas, sumas_totales_) : Valor();
}

void ConjuntoDatos::cambie_fila(const Fila& fila, const std::function<void()>& cambio) {
    struct Vigente {
        Sumas* sumas;
        QString expresion;
        SumaViva s;
    };
    QVector<Vigente> vigentes;
    const bool filtra = (filtrado_ && expresion_filtro_) || condicion_;
    const auto anote = [&](Sumas& sumas) {
        for (auto i = sumas.begin(); i != sumas.end(); ++i) {
            if (i->version != version_)
                continue;
            const Agregado a(i.key());
            SumaViva s = *i;
            if (const Valor v = valor_que_cuenta(fila, FieldByName(a.columna)); !v.nulo()) {
                --s.cuantos;
                s.suma -= a.sumando(v);
            }
            vigentes.append({&sumas, i.key(), s});
        }
    };
    anote(sumas_totales_);
    if (!filtra) // un filtro puede esconder la fila que cambia
        anote(sumas_a_la_vista_);
    cambio();
    const bool queda = pos_ >= 0 && pos_ < int(orden_.size()) && orden_[size_t(pos_)] == &fila;
    cambiaron_filas();
    for (Vigente& v : vigentes) {
        const Agregado a(v.expresion);
        if (queda)
            if (const Valor valor = valor_que_cuenta(fila, FieldByName(a.columna)); !valor.nulo()) {
                ++v.s.cuantos;
                v.s.suma += a.sumando(valor);
            }
        v.s.version = version_;
        v.sumas->insert(v.expresion, v.s);
    }
}
