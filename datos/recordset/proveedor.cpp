#include "datos/recordset/proveedor.h"

#include "datos/recordset/cambios.h"

#include <QScopedValueRollback>

using cambios::cambio;
using cambios::campos_de;
using cambios::Condicion;
using cambios::condicion_de;
using cambios::nombres_de;
using cambios::tabla_de;

namespace {

constexpr int kVecesConsecutivo = 5;

/// Lo que distingue una falla de otra para quien la oye: la llave repetida no se le nombra.
QString razon_de(const ErrorDatos& falla) {
    const auto* motor = dynamic_cast<const ErrorBase*>(&falla);
    return motor && motor->clase() == ClaseFalla::LlaveRepetida ? falla.texto().section('\n', 0, 0)
                                                                : falla.texto();
}

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
        std::exception_ptr error;
        ClaseCambio clase;
    };
    Transaccion& transaccion;
    Conexion& conexion;
    int errores_maximos;
    int profundidad = 0; ///< de los puntos de retorno abiertos
    std::vector<Fila*> grabadas;
    std::vector<std::pair<Detalle*, Fila*>> borradas;
    std::vector<Devuelta> devueltas;
    std::vector<Falla> fallas;
    // dónde estaba la pasada al fallar
    ConjuntoDatos* conjunto = nullptr;
    ClaseCambio clase = ClaseCambio::Modificacion;

    void recuerde_lo_enviado() const {
        for (Fila* f : grabadas) {
            auto e = std::make_shared<Fila::Envio>();
            e->clase = f->marca == Fila::Marca::Insertada ? ClaseCambio::Insercion
                                                          : ClaseCambio::Modificacion;
            e->valores = *f->valores;
            if (f->originales)
                e->antes = *f->originales;
            f->envio = std::move(e);
        }
        for (const auto& [detalle, f] : borradas) {
            auto e = std::make_shared<Fila::Envio>();
            e->clase = ClaseCambio::Borrado;
            e->valores = f->originales ? *f->originales : *f->valores;
            f->envio = std::move(e);
        }
    }
};

Proveedor::Proveedor(QObject* dueno, const QString& nombre, Sentencia* s, unsigned opciones)
    : QObject(dueno), sentencia(s), Options(opciones) {
    setObjectName(nombre);
}

int Proveedor::aplique(ConjuntoDatos& conjunto, int errores_maximos) {
    const auto reporte = [&](const ErrorDatos& falla) {
        if (!OnUpdateError)
            std::rethrow_exception(std::current_exception());
        OnUpdateError(*this, conjunto, falla, ClaseCambio::Modificacion);
        return 1;
    };
    for (Reintento reintento;;) {
        try {
            if (cambios::hay_envio(conjunto)) {
                cambios::aclare_envio(conjunto);
                if (conjunto.ChangeCount() == 0)
                    return 0;
            }
            return intente(conjunto, errores_maximos);
        } catch (const ErrorBase& falla) {
            // Nada quedó aplicado: se puede repetir entera antes de molestar al usuario.
            if (reintento.otra_vez(falla))
                continue;
            if (falla.conflicto())
                return reporte(conjunto.conexion().conflicto_con_nombre(falla));
            return reporte(falla);
        }
    }
}

int Proveedor::intente(ConjuntoDatos& conjunto, int errores_maximos) {
    Conexion& conexion = conjunto.conexion();
    Transaccion transaccion(conexion, Transaccion::Modo::Escritura);
    Grabacion g{transaccion, conexion, errores_maximos, 0, {}, {}, {}, {}};
    bool entera = true;
    try {
        resuelva_conjunto(g, conjunto);
        transaccion.confirme();
    } catch (const ErrorBase& e) {
        if (e.dudosa()) {
            g.recuerde_lo_enviado();
            try {
                if (cambios::aclare_envio(conjunto) && g.fallas.empty())
                    return 0;
            } catch (const ErrorDatos&) {
                // Sin servidor no hay a quién preguntar: se averigua en la grabación siguiente.
            }
        }
        transaccion.deshaga();
        if (e.conflicto() && errores_maximos == 0)
            throw;
        entera = false;
        g.fallas.push_back({g.conjunto, std::current_exception(), g.clase});
    } catch (const ErrorDatos&) {
        transaccion.deshaga();
        entera = false;
        g.fallas.push_back({g.conjunto, std::current_exception(), g.clase});
    }
    if (entera)
        acepte(g, conjunto);
    // Los reportes abren diálogos: la transacción ya no retiene a nadie. La razón que se repite en
    // muchas filas se dice una vez.
    QSet<QString> dichas;
    for (const auto& f : g.fallas) {
        try {
            std::rethrow_exception(f.error);
        } catch (const ErrorDatos& e) {
            if (!OnUpdateError)
                throw;
            const QString razon = razon_de(e);
            if (dichas.contains(razon))
                continue;
            dichas.insert(razon);
            OnUpdateError(*this, f.conjunto ? *f.conjunto : conjunto, e, f.clase);
        }
    }
    return int(g.fallas.size());
}

void Proveedor::acepte(Grabacion& g, ConjuntoDatos& conjunto) {
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

void Proveedor::en_punto(Grabacion& g, const std::function<void()>& cuerpo) {
    if (g.errores_maximos == 0) {
        cuerpo();
        return;
    }
    // Con errores tolerados cada fila que cambió lleva su punto de retorno, y cada nivel el suyo:
    // uno del mismo nombre reemplazaría el de su maestra.
    const QScopedValueRollback<int> nivel(g.profundidad, g.profundidad + 1);
    const QString punto = QStringLiteral("savepoint fila%1").arg(g.profundidad);
    g.conexion.prepare(punto, g.transaccion)->ejecute(g.transaccion, {});
    const auto grabadas = g.grabadas.size(), borradas = g.borradas.size(),
               devueltas = g.devueltas.size();
    try {
        cuerpo();
    } catch (const ErrorDatos& e) {
        const auto* motor = dynamic_cast<const ErrorBase*>(&e);
        if (motor && motor->conexion_perdida())
            throw;
        const Grabacion::Falla falla{g.conjunto, std::current_exception(), g.clase};
        g.conexion.prepare("rollback to " + punto, g.transaccion)->ejecute(g.transaccion, {});
        g.grabadas.resize(grabadas);
        g.borradas.resize(borradas);
        while (g.devueltas.size() > devueltas)
            g.devueltas.pop_back();
        g.fallas.push_back(falla);
    }
}

void Proveedor::resuelva_conjunto(Grabacion& g, ConjuntoDatos& conjunto) {
    Detalle* almacen = conjunto.almacen();
    if (!almacen)
        return;
    for (const auto& f : almacen->borradas)
        en_punto(g, [&] {
            resuelva_detalles(g, conjunto, *f, true);
            borre(g, conjunto, *f);
            g.borradas.emplace_back(almacen, f.get());
        });
    for (const auto& f : almacen->filas)
        if (cambio(*f))
            en_punto(g, [&] { resuelva_fila(g, conjunto, *f); });
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

void Proveedor::lleve_llave(ConjuntoDatos& maestra, Fila& fila, ConjuntoDatos& detalle,
                            Fila& linea) {
    for (const QString& n : detalle.sentencia()->MasterFields()) {
        Campo* c = detalle.FindField(n);
        if (!c)
            continue;
        const Valor v = maestra.valor_de(fila, maestra.FieldByName(n));
        if (!linea.valores && detalle.valor_de(linea, *c) == v)
            continue;
        detalle.haga_propios(linea);
        (*linea.valores)[c->indice()] = v;
        // La base ya llevó la llave nueva a las líneas guardadas (cascada de la llave).
        if (linea.originales)
            (*linea.originales)[c->indice()] = v;
    }
}

void Proveedor::resuelva_detalles(Grabacion& g, ConjuntoDatos& maestra, Fila& fila,
                                  bool solo_borrados) {
    for (ConjuntoDatos* d : maestra.anidados()) {
        if (d->indice_detalle_ >= int(fila.detalles.size()))
            continue;
        Detalle& detalle = *fila.detalles[size_t(d->indice_detalle_)];
        // La llave de la maestra manda: las líneas van a la base bajo la definitiva.
        if (!solo_borrados) {
            for (const auto& f : detalle.filas)
                lleve_llave(maestra, fila, *d, *f);
            for (const auto& f : detalle.borradas)
                lleve_llave(maestra, fila, *d, *f);
        }
        const auto borre_una = [&](Fila& f) {
            borre(g, *d, f);
            g.borradas.emplace_back(&detalle, &f);
        };
        for (const auto& f : detalle.borradas) {
            if (solo_borrados) // se van con su maestra, o ninguna
                borre_una(*f);
            else
                en_punto(g, [&] { borre_una(*f); });
        }
        for (const auto& f : detalle.filas) {
            if (!solo_borrados) {
                if (cambio(*f))
                    en_punto(g, [&] { resuelva_fila(g, *d, *f); });
            } else if ((Options & poCascadeDeletes) && f->marca != Fila::Marca::Insertada) {
                d->haga_propios(*f);
                borre(g, *d, *f);
            }
        }
    }
}

QVector<Campo*> Proveedor::campos_devueltos(const QVector<Campo*>& campos) const {
    QVector<Campo*> devueltos;
    if (Options & poPropogateChanges)
        for (Campo* c : campos)
            if (c->clase != ClaseCampo::Blob && c->clase != ClaseCampo::Memo)
                devueltos << c;
    return devueltos;
}

QString Proveedor::comience(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila, ClaseCambio clase) {
    g.conjunto = &conjunto;
    g.clase = clase;
    if (BeforeUpdateRecord)
        BeforeUpdateRecord(conjunto, fila, clase);
    return tabla_de(conjunto.columnas_);
}

// ---------------------------------------------------------------- una fila nueva

void Proveedor::inserte(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila) {
    const QString tabla = comience(g, conjunto, fila, ClaseCambio::Insercion);
    for (int vez = 0;; ++vez) {
        try {
            inserte_una_vez(g, conjunto, fila, tabla);
            return;
        } catch (const ErrorBase& e) {
            if (e.clase() != ClaseFalla::LlaveRepetida || conjunto.CampoConsecutivo.isEmpty() ||
                vez >= kVecesConsecutivo)
                throw;
            tome_siguiente(g, conjunto, fila, tabla);
        }
    }
}

void Proveedor::inserte_una_vez(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila,
                                const QString& tabla) {
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

/// El siguiente entre las filas que comparten el resto de la llave: las de su maestra, las de su
/// cuenta, o todas si el número es la llave entera.
void Proveedor::tome_siguiente(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila,
                               const QString& tabla) {
    const Campo& numero = conjunto.FieldByName(conjunto.CampoConsecutivo);
    QVector<Campo*> resto = cambios::llave_de(conjunto, tabla);
    resto.removeIf([&](const Campo* c) { return c == &numero; });
    const Condicion hermanas = condicion_de(resto, *fila.valores);
    QString sql = QStringLiteral("select max(%1) from %2").arg(numero.FieldName, tabla);
    if (!resto.isEmpty())
        sql += QStringLiteral(" where ") + hermanas.sql();
    Cursor cursor(g.conexion.prepare(sql, g.transaccion), g.transaccion, hermanas.valores);
    qint64 mayor = cursor.siguiente() ? cursor.valor(0).entero() : 0;
    const auto es_hermana = [&](const Fila& otra) {
        return std::all_of(resto.begin(), resto.end(), [&](const Campo* c) {
            return cambios::iguales(conjunto.valor_de(otra, *c), (*fila.valores)[c->indice()]);
        });
    };
    // Tampoco el de una línea que todavía no ha viajado.
    for (const auto& otra : conjunto.almacen()->filas)
        if (otra.get() != &fila && es_hermana(*otra))
            mayor = qMax(mayor, conjunto.valor_de(*otra, numero).entero());
    (*fila.valores)[numero.indice()] = mayor + 1;
}

// ---------------------------------------------------------------- una fila que ya estaba

namespace {

/// Las columnas por las que se reconoce que la fila sigue como se leyó. Un archivo pesa: se mira
/// el que se va a reemplazar.
QVector<Campo*> comparables(const QVector<Campo*>& campos, const QVector<Columna>& columnas,
                            const QVector<Campo*>& tocados) {
    QVector<Campo*> lista;
    for (Campo* c : campos) {
        const bool llave = c->ProviderFlags & pfInKey;
        const bool exacta = columnas[c->columna()].tipo != TipoColumna::Flotante &&
                            c->clase != ClaseCampo::Hora && c->clase != ClaseCampo::FechaHora;
        const bool mirada = c->clase == ClaseCampo::Blob ? tocados.contains(c)
                                                         : (c->ProviderFlags & pfInWhere) && exacta;
        if (llave || mirada)
            lista << c;
    }
    return lista;
}

QString entre_comillas(const Campo& c, const Valor& v) {
    return v.nulo() ? QStringLiteral("vacío") : '\'' + c.presente(v) + '\'';
}

/// La base no encontró la fila como se leyó: dice qué le pasó, o calla si está igual.
void diga_que_cambio(Transaccion& t, const QString& tabla, const QVector<Campo*>& llave,
                     const QVector<Campo*>& campos, const QVector<Valor>& antes) {
    static const QString kVuelva =
        QStringLiteral(" después de que usted lo abrió. Vuelva a abrirlo y repita el cambio.");
    if (llave.isEmpty())
        throw ErrorOtroUsuario(QStringLiteral("Otro usuario cambió o borró este registro") +
                               kVuelva);
    const Condicion k = condicion_de(llave, antes);
    Cursor cursor(
        t.conexion().prepare(
            QStringLiteral("select %1 from %2 where %3").arg(nombres_de(campos), tabla, k.sql()),
            t),
        t, k.valores);
    if (!cursor.siguiente())
        throw ErrorOtroUsuario(QStringLiteral("Otro usuario borró este registro después de que "
                                              "usted lo abrió. Vuelva a consultar."));
    QStringList cambios;
    for (int i = 0; i < campos.size(); ++i) {
        const Valor ahora = cursor.valor(i), era = antes[campos[i]->indice()];
        if (cambios::iguales(ahora, era))
            continue;
        const QString nombre = campos[i]->nombre_visible();
        cambios << (campos[i]->clase == ClaseCampo::Blob
                        ? nombre + QStringLiteral(": ya no es el archivo que usted vio")
                        : QStringLiteral("%1 era %2 y ahora es %3")
                              .arg(nombre, entre_comillas(*campos[i], era),
                                   entre_comillas(*campos[i], ahora)));
    }
    if (!cambios.isEmpty())
        throw ErrorOtroUsuario(QStringLiteral("Otro usuario cambió este registro") + kVuelva +
                               '\n' + cambios.mid(0, 4).join('\n'));
}

/// Ejecuta `orden` sobre la fila como se leyó. Si solo la base la ve distinta (un texto con
/// blancos, un redondeo), la busca por su llave.
void toque_fila(Transaccion& t, const QString& orden, const QVector<Valor>& nuevos,
                const QString& tabla, const QVector<Campo*>& llave, const QVector<Campo*>& campos,
                const QVector<Valor>& antes) {
    const auto ejecute = [&](const Condicion& k) {
        QVector<Valor> valores = nuevos;
        valores += k.valores;
        return t.conexion()
                   .prepare(orden + QStringLiteral(" where ") + k.sql(), t)
                   ->ejecute(t, valores) == 1;
    };
    if (ejecute(condicion_de(campos, antes)))
        return;
    diga_que_cambio(t, tabla, llave, campos, antes);
    ejecute(condicion_de(llave, antes));
}

} // namespace

void Proveedor::modifique(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila) {
    const QString tabla = comience(g, conjunto, fila, ClaseCambio::Modificacion);
    const QVector<Campo*> campos = campos_de(conjunto, tabla);
    QStringList cambios;
    QVector<Campo*> tocados;
    QVector<Valor> valores;
    for (Campo* c : campos) {
        const Valor& v = (*fila.valores)[c->indice()];
        const bool igual = v == (*fila.originales)[c->indice()];
        if (!(c->ProviderFlags & pfInUpdate) || (igual && !(c->ProviderFlags & cambios::pfSiempre)))
            continue;
        cambios << c->FieldName + QStringLiteral(" = ?");
        tocados << c;
        valores << v;
    }
    if (cambios.isEmpty())
        return;
    toque_fila(g.transaccion,
               QStringLiteral("update %1 set %2").arg(tabla, cambios.join(QStringLiteral(", "))),
               valores, tabla, cambios::llave_de(conjunto, tabla),
               comparables(campos, conjunto.columnas_, tocados), *fila.originales);
    relea(g, conjunto, fila, tabla);
}

void Proveedor::relea(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila, const QString& tabla) {
    const QVector<Campo*> devueltos = campos_devueltos(campos_de(conjunto, tabla));
    if (devueltos.isEmpty())
        return;
    // Lo que dejaron los disparadores vuelve a la fila, en la misma transacción.
    QVector<Campo*> llave = cambios::llave_de(conjunto, tabla);
    if (llave.isEmpty())
        llave = devueltos.mid(0, 1);
    const Condicion k = condicion_de(llave, *fila.valores);
    Cursor cursor(
        g.conexion.prepare(
            QStringLiteral("select %1 from %2 where %3").arg(nombres_de(devueltos), tabla, k.sql()),
            g.transaccion),
        g.transaccion, k.valores);
    if (cursor.siguiente())
        for (int i = 0; i < devueltos.size(); ++i)
            g.devueltas.push_back({&fila, devueltos[i], cursor.valor(i)});
}

void Proveedor::borre(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila) {
    if (fila.marca == Fila::Marca::Insertada)
        return; // viajó en una grabación que no quedó
    const QString tabla = comience(g, conjunto, fila, ClaseCambio::Borrado);
    const QVector<Valor>& antes = fila.originales ? *fila.originales : *fila.valores;
    toque_fila(g.transaccion, QStringLiteral("delete from ") + tabla, {}, tabla,
               cambios::llave_de(conjunto, tabla),
               comparables(campos_de(conjunto, tabla), conjunto.columnas_, {}), antes);
}
