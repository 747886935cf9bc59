#include "datos/recordset/cambios.h"

namespace cambios {

void Condicion::agregue(const Campo& c, const Valor& v) {
    if (v.nulo()) {
        partes << c.FieldName + QStringLiteral(" is null");
        return;
    }
    partes << c.FieldName + QStringLiteral(" = ?");
    valores << v;
}

QString tabla_de(const QVector<Columna>& columnas) {
    QHash<QString, int> cuenta;
    QString mejor;
    for (const Columna& c : columnas)
        if (!c.tabla.isEmpty() && ++cuenta[c.tabla] > cuenta.value(mejor))
            mejor = c.tabla;
    return mejor;
}

QString nombres_de(const QVector<Campo*>& campos) {
    QStringList nombres;
    for (const Campo* c : campos)
        nombres << c->FieldName;
    return nombres.join(',');
}

QVector<Campo*> llave_de(const ConjuntoDatos& conjunto, const QString& tabla) {
    if (const auto llave = conjunto.campos_llave(); !llave.isEmpty())
        return llave;
    QVector<Campo*> llave;
    for (const QString& columna : conjunto.conexion().llave_primaria(tabla)) {
        Campo* c = conjunto.FindField(columna);
        if (!c)
            return {};
        llave << c;
    }
    return llave;
}

Condicion condicion_de(const QVector<Campo*>& campos, const QVector<Valor>& valores) {
    Condicion k;
    for (Campo* c : campos)
        k.agregue(*c, valores[c->indice()]);
    return k;
}

bool iguales(const Valor& a, const Valor& b) {
    const auto recortado = [](const Valor& v) {
        QString t = v.texto();
        while (t.endsWith(' '))
            t.chop(1);
        return t;
    };
    const bool textos =
        std::holds_alternative<QString>(a.dato()) && std::holds_alternative<QString>(b.dato());
    if (textos)
        return recortado(a) == recortado(b);
    return a.nulo() == b.nulo() && a.compare(b) == 0;
}

QVector<Campo*> campos_de(const ConjuntoDatos& conjunto, const QString& tabla) {
    QVector<Campo*> campos;
    for (int i = 0; i < conjunto.FieldCount(); ++i) {
        Campo& c = conjunto.Fields(i);
        if (c.tipo == TipoCampo::Datos && c.columna() >= 0 &&
            conjunto.columnas()[c.columna()].tabla == tabla)
            campos << &c;
    }
    return campos;
}

bool cambio(const Fila& fila) {
    if (fila.marca != Fila::Marca::Intacta)
        return true;
    for (const auto& d : fila.detalles)
        if (!d->borradas.empty() ||
            std::any_of(d->filas.begin(), d->filas.end(), [](const auto& f) { return cambio(*f); }))
            return true;
    return false;
}

// ---------------------------------------------------------------- lo enviado

namespace {

/// Lo que la base dice de una fila enviada.
enum class Indicio { Quedo, NoQuedo, NoSeSabe };

Indicio de_una_nueva(const Fila::Envio& envio, const QVector<Campo*>& campos,
                     const Cursor& en_la_base) {
    // Un disparador pudo ajustar algún dato: se reconoce por la mayoría.
    int iguales_ = 0, distintos = 0;
    for (int i = 0; i < campos.size(); ++i)
        if (const Valor& v = envio.valores[campos[i]->indice()]; !v.nulo())
            ++(iguales(en_la_base.valor(i), v) ? iguales_ : distintos);
    return iguales_ > distintos ? Indicio::Quedo : Indicio::NoQuedo;
}

Indicio de_una_cambiada(const Fila::Envio& envio, const QVector<Campo*>& campos,
                        const Cursor& en_la_base) {
    bool como_se_envio = true, como_estaba = true, alguno = false;
    for (int i = 0; i < campos.size(); ++i) {
        const Valor &v = envio.valores[campos[i]->indice()], &a = envio.antes[campos[i]->indice()];
        if (iguales(v, a))
            continue;
        alguno = true;
        const Valor esta = en_la_base.valor(i);
        como_se_envio = como_se_envio && iguales(esta, v);
        como_estaba = como_estaba && iguales(esta, a);
    }
    return !alguno         ? Indicio::NoSeSabe
           : como_se_envio ? Indicio::Quedo
           : como_estaba   ? Indicio::NoQuedo
                           : Indicio::NoSeSabe; // otro usuario la cambió después
}

} // namespace

} // namespace cambios

using namespace cambios;

/// Averigua y resuelve lo que se envió de un conjunto sin saber si quedó; mira sus filas por
/// dentro.
class EnvioPendiente {
public:
    explicit EnvioPendiente(ConjuntoDatos& conjunto) : conjunto_(conjunto) {
        if (Detalle* d = conjunto.almacen())
            reuna(conjunto, *d);
    }
    static const Detalle* filas_de(const ConjuntoDatos& c) { return c.almacen(); }
    static const Fila* fila_actual(const ConjuntoDatos& c) {
        return c.pos_ >= 0 && c.pos_ < int(c.orden_.size()) ? c.orden_[size_t(c.pos_)] : nullptr;
    }
    static const Detalle* detalle_de(const ConjuntoDatos& anidado, const Fila& maestra) {
        const auto cual = size_t(anidado.indice_detalle_);
        return cual < maestra.detalles.size() ? maestra.detalles[cual].get() : nullptr;
    }

    bool hay() const { return !enviadas_.isEmpty(); }

    bool quedo() const {
        Transaccion t(conjunto_.conexion(), Transaccion::Modo::Lectura);
        // La transacción fue una sola: basta la primera fila que lo diga.
        for (const Enviada& e : enviadas_)
            if (const Indicio i = indicio(e, t); i != Indicio::NoSeSabe)
                return i == Indicio::Quedo;
        return false;
    }

    void dese_por_grabado() {
        for (const Enviada& e : enviadas_) {
            Fila& f = *e.fila;
            const auto envio = std::exchange(f.envio, nullptr);
            if (e.borrada && envio->clase == ClaseCambio::Borrado) {
                quite(e);
            } else if (!e.borrada && *f.valores == envio->valores) {
                f.marca = Fila::Marca::Intacta;
                f.originales.reset();
            } else {
                // El usuario siguió: lo de después es un cambio sobre lo que quedó.
                f.marca = Fila::Marca::Modificada;
                f.originales = std::make_unique<QVector<Valor>>(envio->valores);
            }
        }
        conjunto_.acepte_cambios();
    }

    void olvide() {
        for (const Enviada& e : enviadas_) {
            e.fila->envio.reset();
            if (e.borrada && e.fila->marca == Fila::Marca::Insertada)
                quite(e); // ni quedó ni se quiere
        }
    }

private:
    struct Enviada {
        ConjuntoDatos* conjunto;
        Detalle* almacen;
        Fila* fila;
        bool borrada;
    };

    void reuna(ConjuntoDatos& conjunto, Detalle& almacen) {
        for (const auto& f : almacen.borradas)
            reuna_fila(conjunto, almacen, *f, true);
        for (const auto& f : almacen.filas)
            reuna_fila(conjunto, almacen, *f, false);
    }
    void reuna_fila(ConjuntoDatos& conjunto, Detalle& almacen, Fila& f, bool borrada) {
        if (f.envio)
            enviadas_.append({&conjunto, &almacen, &f, borrada});
        for (ConjuntoDatos* d : conjunto.anidados())
            if (d->indice_detalle_ < int(f.detalles.size()))
                reuna(*d, *f.detalles[size_t(d->indice_detalle_)]);
    }
    static void quite(const Enviada& e) {
        std::erase_if(e.almacen->borradas, [&](const auto& f) { return f.get() == e.fila; });
    }

    Indicio indicio(const Enviada& e, Transaccion& t) const {
        const QString tabla = tabla_de(e.conjunto->columnas());
        const QVector<Campo*> llave = llave_de(*e.conjunto, tabla);
        if (llave.isEmpty())
            return Indicio::NoSeSabe;
        const QVector<Campo*> campos = campos_de(*e.conjunto, tabla);
        const Fila::Envio& envio = *e.fila->envio;
        const auto busque = [&](const QVector<Valor>& valores) {
            const Condicion k = condicion_de(llave, valores);
            return std::make_unique<Cursor>(
                t.conexion().prepare(QStringLiteral("select %1 from %2 where %3")
                                         .arg(nombres_de(campos), tabla, k.sql()),
                                     t),
                t, k.valores);
        };
        const auto cursor = busque(envio.valores);
        const bool esta = cursor->siguiente();
        switch (envio.clase) {
        case ClaseCambio::Borrado:
            return esta ? Indicio::NoQuedo : Indicio::Quedo;
        case ClaseCambio::Insercion:
            return esta ? de_una_nueva(envio, campos, *cursor) : Indicio::NoQuedo;
        case ClaseCambio::Modificacion:
            break;
        }
        if (esta)
            return de_una_cambiada(envio, campos, *cursor);
        // Con la llave nueva no está; si sigue con la vieja, nada quedó.
        return busque(envio.antes)->siguiente() ? Indicio::NoQuedo : Indicio::NoSeSabe;
    }

    ConjuntoDatos& conjunto_;
    QVector<Enviada> enviadas_;
};

namespace cambios {

const Detalle* filas_de(const ConjuntoDatos& conjunto) {
    return EnvioPendiente::filas_de(conjunto);
}

const Fila* fila_actual(const ConjuntoDatos& conjunto) {
    return EnvioPendiente::fila_actual(conjunto);
}

const Detalle* detalle_de(const ConjuntoDatos& anidado, const Fila& maestra) {
    return EnvioPendiente::detalle_de(anidado, maestra);
}

bool hay_envio(ConjuntoDatos& conjunto) {
    return EnvioPendiente(conjunto).hay();
}

bool aclare_envio(ConjuntoDatos& conjunto) {
    EnvioPendiente envio(conjunto);
    if (!envio.hay())
        return false;
    const bool quedo = envio.quedo();
    quedo ? envio.dese_por_grabado() : envio.olvide();
    return quedo;
}

} // namespace cambios
