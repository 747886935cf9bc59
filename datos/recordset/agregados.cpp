// Sumas con nombre de un conjunto de datos. La de una tabla grande se corrige con la fila que
// cambia y no se hace de nuevo.
#include "datos/recordset/conjunto.h"
#include "datos/recordset/en_la_fila.h"
#include "datos/recordset/indice_busqueda.h"

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

/// Lo que una fila pone en una suma: la que se edita cuenta con lo que tenía, que lo tecleado a
/// medias no ha entrado al libro.
Valor ConjuntoDatos::sumando(const Fila& fila, const Campo& campo) const {
    return vive_en_la_fila(campo) ? valor_guardado(fila, campo) : valor_de(fila, campo);
}

template <class Filas>
const ConjuntoDatos::SumaViva& ConjuntoDatos::sume(const QString& expresion, const Filas& filas,
                                                   Sumas& sumas) const {
    SumaViva& s = sumas[expresion];
    if (s.version == version_)
        return s;
    const Agregado agregado(expresion);
    const Campo& campo = FieldByName(agregado.columna);
    s = {version_, {}, 0};
    for (const auto& fila : filas)
        if (const Valor v = sumando(*fila, campo); !v.nulo()) {
            ++s.cuantos;
            s.suma += agregado.sumando(v);
        }
    return s;
}

Valor ConjuntoDatos::agregado(const QString& nombre) const {
    const QString expresion = agregados_.value(nombre.toUpper());
    if (!AggregatesActive || expresion.isEmpty() || !Active())
        return {};
    const SumaViva& s = sume(expresion, orden_, sumas_a_la_vista_);
    return s.cuantos > 0 ? Valor(s.suma) : Valor();
}

Valor ConjuntoDatos::agregado_total(const QString& nombre) const {
    const QString expresion = agregados_.value(nombre.toUpper());
    const Detalle* d = Active() ? almacen() : nullptr;
    if (!d || expresion.isEmpty())
        return {};
    const SumaViva& s = sume(expresion, d->filas, sumas_totales_);
    return s.cuantos > 0 ? Valor(s.suma) : Valor();
}

// ---------------------------------------------------------------- todas las filas

int ConjuntoDatos::filas_en_memoria() const {
    const Detalle* d = Active() ? almacen() : nullptr;
    return (d ? int(d->filas.size()) : 0) + (nueva_ ? 1 : 0);
}

void ConjuntoDatos::recorra_todas(const std::function<void(const Fila&)>& visita) const {
    if (const Detalle* d = Active() ? almacen() : nullptr)
        for (const auto& fila : d->filas)
            visita(*fila);
}

void ConjuntoDatos::borre_todas() {
    Cancel();
    Detalle* d = Active() ? almacen() : nullptr;
    if (!d || d->filas.empty())
        return;
    if (BeforeDelete)
        BeforeDelete();
    for (auto& fila : d->filas)
        if (fila->marca != Fila::Marca::Insertada || fila->envio) {
            haga_propios(*fila);
            d->borradas.push_back(std::move(fila));
        }
    orden_.clear();
    pos_ = -1;
    fin_ = true;
    cambiaron_filas();
    const std::exception_ptr falla = siga_a_la_fila();
    d->filas.clear();
    anuncie_anidados();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    if (AfterDelete)
        AfterDelete();
    if (falla)
        std::rethrow_exception(falla);
}

// ---------------------------------------------------------------- sumas al día

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
            if (const Valor v = sumando(fila, FieldByName(a.columna)); !v.nulo()) {
                --s.cuantos;
                s.suma -= a.sumando(v);
            }
            vigentes.append({&sumas, i.key(), s});
        }
    };
    CuentaLlaves* llaves = indice_busqueda_ ? &indice_busqueda_->llave : nullptr;
    if (llaves && std::exchange(llaves->version, 0) != version_)
        llaves = nullptr;
    bool llaves_al_dia = llaves != nullptr;
    const auto cuente_llave = [&](int cuantas) {
        if (!llaves || &fila == nueva_.get())
            return;
        QVector<Valor> valores;
        for (const Campo* c : llaves->campos)
            valores << valor_guardado(fila, *c);
        llaves_al_dia = llaves->anote(valores, cuantas) && llaves_al_dia;
    };
    anote(sumas_totales_);
    if (!filtra) // un filtro puede esconder la fila que cambia
        anote(sumas_a_la_vista_);
    cuente_llave(-1);
    cambio();
    const bool queda = pos_ >= 0 && pos_ < int(orden_.size()) && orden_[size_t(pos_)] == &fila;
    cambiaron_filas();
    if (queda)
        cuente_llave(1);
    if (llaves_al_dia)
        llaves->version = version_;
    for (Vigente& v : vigentes) {
        const Agregado a(v.expresion);
        if (queda)
            if (const Valor valor = sumando(fila, FieldByName(a.columna)); !valor.nulo()) {
                ++v.s.cuantos;
                v.s.suma += a.sumando(valor);
            }
        v.s.version = version_;
        v.sumas->insert(v.expresion, v.s);
    }
}
