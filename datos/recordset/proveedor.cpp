#include "datos/recordset/proveedor.h"

#include "datos/recordset/conjunto.h"

#include <QElapsedTimer>
#include <QThread>
#include <random>

namespace {

constexpr int kReintentos = 4;
// Un conflicto que ya esperó no se repite: el usuario merece saber a quién espera.
constexpr int kConflictoInmediatoMs = 2000;

} // namespace

/// Una pasada por el registro de cambios, con lo que habrá que aceptar si la transacción confirma.
struct Proveedor::Grabacion {
    struct Devuelta {
        Fila* fila;
        Campo* campo;
        Valor valor;
    };
    struct Falla {
        ConjuntoDatos* conjunto;
        std::shared_ptr<ErrorDatos> error;
        ClaseCambio clase;
    };
    Transaccion& transaccion;
    Conexion& conexion;
    int errores_maximos;
    std::vector<Fila*> grabadas;
    std::vector<std::pair<Detalle*, Fila*>> borradas;
    std::vector<Devuelta> devueltas;
    std::vector<Falla> fallas;
    // dónde estaba la pasada al fallar
    ConjuntoDatos* conjunto = nullptr;
    ClaseCambio clase = ClaseCambio::Modificacion;
};

Proveedor::Proveedor(QObject* dueno, const QString& nombre, Sentencia* s, unsigned opciones)
    : QObject(dueno), sentencia(s), Options(opciones) {
    setObjectName(nombre);
}

int Proveedor::aplique(ConjuntoDatos& conjunto, int errores_maximos) {
    for (int pasada = 0;; ++pasada) {
        QElapsedTimer reloj;
        reloj.start();
        try {
            return intente(conjunto, errores_maximos);
        } catch (const ErrorBase& e) {
            // Nada quedó aplicado: se puede repetir entera antes de molestar al usuario.
            if (!e.conflicto() || pasada >= kReintentos ||
                reloj.elapsed() > kConflictoInmediatoMs) {
                if (OnUpdateError)
                    OnUpdateError(*this, conjunto, e, ClaseCambio::Modificacion);
                else
                    throw;
                return 1;
            }
            QThread::msleep(10 + std::random_device{}() % 40);
        }
    }
}

int Proveedor::intente(ConjuntoDatos& conjunto, int errores_maximos) {
    Conexion& conexion = conjunto.conexion();
    Transaccion transaccion(conexion, Transaccion::Modo::Escritura);
    Grabacion g{transaccion, conexion, errores_maximos, {}, {}, {}, {}};
    bool entera = true;
    try {
        resuelva_conjunto(g, conjunto);
    } catch (const ErrorBase& e) {
        transaccion.deshaga();
        if (e.conflicto() && errores_maximos == 0)
            throw;
        entera = false;
        g.fallas.push_back({g.conjunto, std::make_shared<ErrorBase>(e), g.clase});
    } catch (const ErrorDatos& e) {
        transaccion.deshaga();
        entera = false;
        g.fallas.push_back({g.conjunto, std::make_shared<ErrorDatos>(e), g.clase});
    }
    if (entera) {
        transaccion.confirme();
        for (const auto& d : g.devueltas)
            (*d.fila->valores)[d.campo->indice()] = d.valor;
        for (Fila* f : g.grabadas) {
            f->marca = Fila::Marca::Intacta;
            f->originales.reset();
        }
        for (const auto& [detalle, fila] : g.borradas)
            std::erase_if(detalle->borradas, [f = fila](const auto& x) { return x.get() == f; });
        conjunto.acepte_cambios();
    }
    // Los reportes abren diálogos: la transacción ya no retiene a nadie.
    for (const auto& f : g.fallas) {
        if (!OnUpdateError)
            throw ErrorDatos(f.error->texto());
        OnUpdateError(*this, f.conjunto ? *f.conjunto : conjunto, *f.error, f.clase);
    }
    return int(g.fallas.size());
}

void Proveedor::resuelva_conjunto(Grabacion& g, ConjuntoDatos& conjunto) {
    Detalle* almacen = conjunto.almacen();
    if (!almacen)
        return;
    const auto en_punto = [&](const std::function<void()>& cuerpo) {
        if (g.errores_maximos == 0) {
            cuerpo();
            return;
        }
        // Con errores tolerados cada fila lleva su punto de retorno.
        g.conexion.prepare(QStringLiteral("savepoint fila"), g.transaccion)
            ->ejecute(g.transaccion, {});
        const auto grabadas = g.grabadas.size(), borradas = g.borradas.size(),
                   devueltas = g.devueltas.size();
        try {
            cuerpo();
        } catch (const ErrorDatos& e) {
            g.conexion.prepare(QStringLiteral("rollback to savepoint fila"), g.transaccion)
                ->ejecute(g.transaccion, {});
            g.grabadas.resize(grabadas);
            g.borradas.resize(borradas);
            while (g.devueltas.size() > devueltas)
                g.devueltas.pop_back();
            g.fallas.push_back({g.conjunto, std::make_shared<ErrorDatos>(e), g.clase});
        }
    };
    for (const auto& f : almacen->borradas)
        en_punto([&] {
            resuelva_detalles(g, conjunto, *f, true);
            borre(g, conjunto, *f);
            g.borradas.emplace_back(almacen, f.get());
        });
    for (const auto& f : almacen->filas)
        en_punto([&] { resuelva_fila(g, conjunto, *f); });
}

void Proveedor::resuelva_fila(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila) {
    if (fila.marca == Fila::Marca::Insertada)
        inserte(g, conjunto, fila);
    else if (fila.marca == Fila::Marca::Modificada)
        modifique(g, conjunto, fila);
    if (fila.marca != Fila::Marca::Intacta)
        g.grabadas.push_back(&fila);
    resuelva_detalles(g, conjunto, fila, false);
}

void Proveedor::resuelva_detalles(Grabacion& g, ConjuntoDatos& maestra, Fila& fila,
                                  bool solo_borrados) {
    for (ConjuntoDatos* d : maestra.anidados()) {
        if (d->indice_detalle_ >= int(fila.detalles.size()))
            continue;
        Detalle& detalle = *fila.detalles[size_t(d->indice_detalle_)];
        // La llave de la maestra manda: las líneas van a la base bajo la definitiva.
        const auto enlace = d->sentencia()->MasterFields();
        for (const auto& f : detalle.filas) {
            for (const QString& n : enlace) {
                Campo* c = d->FindField(n);
                if (!c || solo_borrados)
                    continue;
                const Valor v = maestra.valor_de(fila, maestra.FieldByName(n));
                if (!f->valores && d->valor_de(*f, *c) == v)
                    continue;
                d->haga_propios(*f);
                (*f->valores)[c->indice()] = v;
                // La base ya llevó la llave nueva a las líneas guardadas (cascada de la llave).
                if (f->originales)
                    (*f->originales)[c->indice()] = v;
            }
        }
        for (const auto& f : detalle.borradas) {
            for (const QString& n : enlace)
                if (Campo* c = d->FindField(n); c && f->valores && !solo_borrados)
                    (*f->valores)[c->indice()] = maestra.valor_de(fila, maestra.FieldByName(n));
            borre(g, *d, *f);
            g.borradas.emplace_back(&detalle, f.get());
        }
        for (const auto& f : detalle.filas) {
            if (!solo_borrados) {
                resuelva_fila(g, *d, *f);
            } else if ((Options & poCascadeDeletes) && f->marca != Fila::Marca::Insertada) {
                d->haga_propios(*f);
                borre(g, *d, *f);
            }
        }
    }
}

namespace {

/// Tabla que se modifica: la que más columnas aporta al resultado.
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

} // namespace

QVector<Campo*> Proveedor::campos_de(const ConjuntoDatos& conjunto, const QString& tabla) {
    QVector<Campo*> campos;
    for (const auto& c : conjunto.campos_)
        if (c->tipo == TipoCampo::Datos && c->columna() >= 0 &&
            conjunto.columnas_[c->columna()].tabla == tabla)
            campos << c.get();
    return campos;
}

QVector<Campo*> Proveedor::campos_devueltos(const QVector<Campo*>& campos) const {
    QVector<Campo*> devueltos;
    if (Options & poPropogateChanges)
        for (Campo* c : campos)
            if (c->clase != ClaseCampo::Blob && c->clase != ClaseCampo::Memo)
                devueltos << c;
    return devueltos;
}

void Proveedor::inserte(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila) {
    g.conjunto = &conjunto;
    g.clase = ClaseCambio::Insercion;
    if (BeforeUpdateRecord)
        BeforeUpdateRecord(conjunto, fila, ClaseCambio::Insercion);
    const QString tabla = tabla_de(conjunto.columnas_);
    const QVector<Campo*> campos = campos_de(conjunto, tabla), devueltos = campos_devueltos(campos);
    QStringList nombres, incognitas;
    QVector<Valor> valores;
    for (Campo* c : campos) {
        const Valor& v = (*fila.valores)[c->indice()];
        if (v.nulo() || !(c->ProviderFlags & pfInUpdate))
            continue;
        nombres << c->FieldName;
        incognitas << QStringLiteral("?");
        valores << v;
    }
    QString sql = QStringLiteral("insert into %1 (%2) values (%3)")
                      .arg(tabla, nombres.join(','), incognitas.join(','));
    if (!devueltos.isEmpty())
        sql += QStringLiteral(" returning ") + nombres_de(devueltos);
    const auto salida =
        g.conexion.prepare(sql, g.transaccion)->ejecute_con_salida(g.transaccion, valores);
    for (int i = 0; i < salida.size(); ++i)
        g.devueltas.push_back({&fila, devueltos[i], salida[i]});
}

namespace {

struct Condicion {
    QStringList partes;
    QVector<Valor> valores;
    void agregue(const Campo& c, const Valor& v) {
        if (v.nulo()) {
            partes << c.FieldName + QStringLiteral(" is null");
            return;
        }
        partes << c.FieldName + QStringLiteral(" = ?");
        valores << v;
    }
};

Condicion condicion_de(const ConjuntoDatos& conjunto, const QVector<Valor>& originales,
                       const QString& tabla, const QVector<Columna>& columnas) {
    Condicion k;
    const auto llave = conjunto.campos_llave();
    if (!llave.isEmpty()) {
        for (Campo* c : llave)
            k.agregue(*c, originales[c->indice()]);
        return k;
    }
    for (int i = 0; i < conjunto.FieldCount(); ++i) {
        const Campo& c = conjunto.Fields(i);
        if (c.tipo != TipoCampo::Datos || !(c.ProviderFlags & pfInWhere) ||
            c.clase == ClaseCampo::Memo || c.clase == ClaseCampo::Blob || c.columna() < 0 ||
            columnas[c.columna()].tabla != tabla ||
            columnas[c.columna()].tipo == TipoColumna::Flotante)
            continue;
        k.agregue(c, originales[i]);
    }
    return k;
}

} // namespace

void Proveedor::modifique(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila) {
    g.conjunto = &conjunto;
    g.clase = ClaseCambio::Modificacion;
    if (BeforeUpdateRecord)
        BeforeUpdateRecord(conjunto, fila, ClaseCambio::Modificacion);
    const QString tabla = tabla_de(conjunto.columnas_);
    const QVector<Campo*> campos = campos_de(conjunto, tabla), devueltos = campos_devueltos(campos);
    QStringList cambios;
    QVector<Valor> valores;
    for (Campo* c : campos) {
        const Valor& v = (*fila.valores)[c->indice()];
        if (!(c->ProviderFlags & pfInUpdate) || v == (*fila.originales)[c->indice()])
            continue;
        cambios << c->FieldName + QStringLiteral(" = ?");
        valores << v;
    }
    if (cambios.isEmpty())
        return;
    const Condicion k = condicion_de(conjunto, *fila.originales, tabla, conjunto.columnas_);
    const QString sql =
        QStringLiteral("update %1 set %2 where %3")
            .arg(tabla, cambios.join(QStringLiteral(", ")), k.partes.join(QStringLiteral(" and ")));
    auto sentencia = g.conexion.prepare(sql, g.transaccion);
    if (sentencia->ejecute(g.transaccion, valores + k.valores) != 1)
        throw ErrorDatos(
            QStringLiteral("Otro usuario cambió o borró este registro de %1 después de "
                           "que usted lo abrió. Vuelva a abrirlo y repita el cambio.")
                .arg(tabla));
    if (devueltos.isEmpty())
        return;
    // Lo que dejaron los disparadores vuelve a la fila, en la misma transacción.
    Condicion llave;
    for (Campo* c :
         conjunto.campos_llave().isEmpty() ? devueltos.mid(0, 1) : conjunto.campos_llave())
        llave.agregue(*c, (*fila.valores)[c->indice()]);
    auto lectura = g.conexion.prepare(
        QStringLiteral("select %1 from %2 where %3")
            .arg(nombres_de(devueltos), tabla, llave.partes.join(QStringLiteral(" and "))),
        g.transaccion);
    Cursor cursor(lectura, g.transaccion, llave.valores);
    if (cursor.siguiente())
        for (int i = 0; i < devueltos.size(); ++i)
            g.devueltas.push_back({&fila, devueltos[i], cursor.valor(i)});
}

void Proveedor::borre(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila) {
    g.conjunto = &conjunto;
    g.clase = ClaseCambio::Borrado;
    if (BeforeUpdateRecord)
        BeforeUpdateRecord(conjunto, fila, ClaseCambio::Borrado);
    const QString tabla = tabla_de(conjunto.columnas_);
    const QVector<Valor>& antes = fila.originales ? *fila.originales : *fila.valores;
    const Condicion k = condicion_de(conjunto, antes, tabla, conjunto.columnas_);
    const QString sql = QStringLiteral("delete from %1 where %2")
                            .arg(tabla, k.partes.join(QStringLiteral(" and ")));
    if (g.conexion.prepare(sql, g.transaccion)->ejecute(g.transaccion, k.valores) != 1)
        throw ErrorDatos(
            QStringLiteral("Otro usuario cambió o borró este registro de %1 después de "
                           "que usted lo abrió. Vuelva a abrirlo y repita el cambio.")
                .arg(tabla));
}
