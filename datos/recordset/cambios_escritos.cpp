#include "datos/recordset/cambios_escritos.h"

#include "datos/recordset/cambios.h"
#include "datos/recordset/sin_eventos.h"

#include <QJsonObject>

using namespace cambios;

namespace {

constexpr QLatin1String kAntes("antes"), kValores("valores"), kDetalles("detalles"), kNace("nace");

QJsonValue escrito(const Campo& campo, const Valor& v) {
    return v.nulo()                          ? QJsonValue()
           : campo.clase == ClaseCampo::Blob ? QString::fromLatin1(v.binario().toBase64())
                                             : v.texto();
}

Valor leido(const Campo& campo, const QJsonValue& v) {
    if (!v.isString())
        return {};
    if (campo.clase == ClaseCampo::Blob)
        return Valor(QByteArray::fromBase64(v.toString().toLatin1()));
    return campo.convierta(v.toString());
}

template <class F> void por_campo(const ConjuntoDatos& c, F haga) {
    for (int i = 0; i < c.FieldCount(); ++i)
        if (c.Fields(i).tipo == TipoCampo::Datos)
            haga(c.Fields(i));
}

// ---------------------------------------------------------------- escribir

/// Lo que la base tenía.
Valor original(const ConjuntoDatos& c, const Fila& f, const Campo& campo) {
    if (const auto& v = f.originales ? f.originales : f.valores)
        return (*v)[campo.indice()];
    return f.cruda && campo.columna() >= 0
               ? decodifique(c.conexion(), c.columnas()[campo.columna()], f.cruda)
               : Valor();
}

QJsonObject antes(const ConjuntoDatos& c, const Fila& f) {
    QJsonObject valores;
    por_campo(c, [&](const Campo& campo) {
        if (campo.clase == ClaseCampo::Blob)
            return;
        if (const Valor v = original(c, f, campo); !v.nulo())
            valores[campo.FieldName] = escrito(campo, v);
    });
    return valores;
}

QJsonArray cambios_de(const ConjuntoDatos& c, const Detalle& d);

/// Vacío si nada cambió en ella ni en sus detalles.
QJsonObject fila_cambiada(const ConjuntoDatos& c, const Fila& f, bool en_edicion) {
    const bool nueva = f.marca == Fila::Marca::Nueva || f.marca == Fila::Marca::Insertada;
    QJsonObject valores, fila;
    if (f.marca != Fila::Marca::Intacta || en_edicion)
        por_campo(c, [&](const Campo& campo) {
            const Valor v = c.valor_de(f, campo);
            if (v != (nueva ? Valor() : original(c, f, campo)))
                valores[campo.FieldName] = escrito(campo, v);
        });
    QJsonArray detalles;
    bool con_detalles = false;
    for (const ConjuntoDatos* anidado : c.anidados()) {
        const Detalle* d = detalle_de(*anidado, f);
        detalles.append(d ? cambios_de(*anidado, *d) : QJsonArray());
        con_detalles = con_detalles || !detalles.last().toArray().isEmpty();
    }
    if (!nueva && valores.isEmpty() && !con_detalles)
        return {};
    if (!nueva)
        fila[kAntes] = antes(c, f);
    fila[kValores] = valores;
    if (con_detalles)
        fila[kDetalles] = detalles;
    return fila;
}

QJsonArray cambios_de(const ConjuntoDatos& c, const Detalle& d) {
    const Fila* actual = c.editando() && filas_de(c) == &d ? fila_actual(c) : nullptr;
    QJsonArray filas;
    for (const auto& f : d.borradas)
        if (f->marca != Fila::Marca::Insertada)
            filas.append(QJsonObject{{kAntes, antes(c, *f)}});
    for (const auto& f : d.filas)
        if (const QJsonObject fila = fila_cambiada(c, *f, f.get() == actual); !fila.isEmpty())
            filas.append(fila);
    if (actual && c.State() == Estado::Insercion) {
        QJsonObject fila = fila_cambiada(c, *actual, true);
        fila[kNace] = true;
        if (c.Modified() || fila.contains(kDetalles))
            filas.append(fila);
    }
    return filas;
}

// ---------------------------------------------------------------- rehacer

/// De un conjunto; los anidados tienen el suyo.
class Rehacedor {
public:
    explicit Rehacedor(ConjuntoDatos& c)
        : c_(c), callado_(c),
          llave_(c.sentencia() ? llave_de(c, tabla_de(c.columnas())) : c.campos_llave()) {}

    int haga(const QJsonArray& filas) {
        for (const QJsonValue& f : filas) {
            const QJsonObject fila = f.toObject();
            if (!fila.contains(kAntes))
                nueva(fila);
            else if (fila.contains(kValores))
                cambiada(fila);
            else if (ubique(fila[kAntes].toObject())) {
                distintas_ += !esta_como(fila[kAntes].toObject());
                c_.Delete();
            }
        }
        return distintas_;
    }

private:
    bool ubique(const QJsonObject& fila) {
        QStringList nombres;
        QVector<Valor> valores;
        for (const Campo* k : llave_) {
            nombres << k->FieldName;
            valores << leido(*k, fila[k->FieldName]);
        }
        return !nombres.isEmpty() && c_.Locate(nombres.join(';'), valores);
    }

    bool esta_como(const QJsonObject& fila) const {
        bool igual = true;
        por_campo(c_, [&](const Campo& campo) {
            if (campo.clase != ClaseCampo::Blob)
                igual = igual && iguales(campo.valor(), leido(campo, fila[campo.FieldName]));
        });
        return igual;
    }

    void ponga(const QJsonObject& valores) {
        const Sentencia* s = c_.maestra() ? c_.sentencia() : nullptr;
        por_campo(c_, [&](Campo& campo) {
            // La llave de la maestra ya la trae: es la de ahora.
            if (valores.contains(campo.FieldName) &&
                !(s && s->MasterFields().contains(campo.FieldName)))
                campo = leido(campo, valores[campo.FieldName]);
        });
    }

    void ponga_detalles(const QJsonObject& fila) {
        const QJsonArray detalles = fila[kDetalles].toArray();
        for (int i = 0; i < c_.anidados().size() && i < detalles.size(); ++i)
            if (const QJsonArray suyos = detalles[i].toArray(); !suyos.isEmpty())
                distintas_ += Rehacedor(*c_.anidados()[i]).haga(suyos);
    }

    void nueva(const QJsonObject& fila) {
        const QJsonObject valores = fila[kValores].toObject();
        if (c_.State() == Estado::Insercion) {
            ponga(valores);
            ponga_detalles(fila);
            return;
        }
        const bool ocupada = ubique(valores);
        if (ocupada && esta_como(valores)) {
            ponga_detalles(fila);
            return; // ya había quedado grabada
        }
        c_.Append();
        ponga(valores);
        if (ocupada)
            renumere();
        ponga_detalles(fila);
        if (!fila[kNace].toBool() || completa())
            c_.Post();
    }

    void cambiada(const QJsonObject& fila) {
        const QJsonObject antes = fila[kAntes].toObject(), valores = fila[kValores].toObject();
        if (ubique(antes)) {
            distintas_ += !valores.isEmpty() && !esta_como(antes);
            c_.Edit();
        } else {
            ++distintas_;
            c_.Append();
            ponga(antes);
        }
        ponga(valores);
        c_.Post();
        ponga_detalles(fila);
    }

    void renumere() {
        Campo* numero = !c_.CampoConsecutivo.isEmpty() ? c_.FindField(c_.CampoConsecutivo)
                        : llave_.isEmpty()             ? nullptr
                                                       : llave_.last();
        if (!numero || numero->clase != ClaseCampo::Entero)
            return;
        qint64 mayor = 0;
        c_.recorra_todas(
            [&](const Fila& f) { mayor = qMax(mayor, c_.valor_de(f, *numero).entero()); });
        *numero = mayor + 1;
    }

    bool completa() const {
        bool completa = true;
        por_campo(c_, [&](const Campo& campo) {
            completa = completa && !(campo.Required && campo.vacio());
        });
        return completa;
    }

    ConjuntoDatos& c_;
    const SinEventos callado_;
    const QVector<Campo*> llave_;
    int distintas_ = 0;
};

} // namespace

QJsonArray escriba_cambios(const ConjuntoDatos& c) {
    const Detalle* d = c.Active() ? filas_de(c) : nullptr;
    return d ? cambios_de(c, *d) : QJsonArray();
}

int rehaga_cambios(ConjuntoDatos& c, const QJsonArray& cambios) {
    return Rehacedor(c).haga(cambios);
}
