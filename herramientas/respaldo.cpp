#include "herramientas/respaldo.h"

#include "datos/firebird/servicios.h"
#include "herramientas/administracion.h"
#include "herramientas/ubicacion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QStringList tablas_de(Conexion& conexion) {
    QStringList tablas;
    const auto c = conexion.abra(QStringLiteral(
        "select trim(rdb$relation_name) from rdb$relations where rdb$system_flag = 0"
        " and rdb$view_blr is null and coalesce(rdb$relation_type, 0) = 0 order by 1"));
    while (c->siguiente())
        tablas << c->valor(0).texto();
    return tablas;
}

/// Base aparte para probar un respaldo, que se borra al salir.
class BaseAparte {
public:
    explicit BaseAparte(const ParametrosConexion& original) : parametros_(original) {
        const Ubicacion lugar(original.base);
        parametros_.base = lugar.en_servidor()
                               ? original.base + QStringLiteral(".prueba")
                               : QDir::temp().filePath(
                                     QStringLiteral("quorvex_prueba_%1.fdb").arg(quintptr(this)));
    }
    ~BaseAparte() {
        try {
            Conexion c;
            c.conectar(parametros_);
            c.borre_base();
        } catch (const std::exception&) {
            // Si no llegó a crearse no hay qué borrar.
        }
    }
    const ParametrosConexion& parametros() const { return parametros_; }

private:
    ParametrosConexion parametros_;
};

qint64 total_filas(const QMap<QString, QString>& cuenta) {
    qint64 total = 0;
    for (auto i = cuenta.begin(); i != cuenta.end(); ++i)
        if (!i.key().contains('.'))
            total += i.value().toLongLong();
    return total;
}

bool entre(const QString& valor, const QString& antes, const QString& despues) {
    const Moneda v = Moneda::de_texto(valor), a = Moneda::de_texto(antes),
                 d = Moneda::de_texto(despues);
    return v >= qMin(a, d) && v <= qMax(a, d);
}

QMap<QString, QString> recuento_de(const ParametrosConexion& parametros) {
    Conexion c;
    c.conectar(parametros);
    return recuento(c);
}

/// Un archivo cortado a tiempo puede dar una base sin filas: no es un respaldo de este sistema.
void exija_contenido(const QMap<QString, QString>& cuenta) {
    if (cuenta.value(QStringLiteral("VERSION_ESQUEMA")).toInt() < 1)
        throw ErrorDatos(QStringLiteral("El respaldo está incompleto o no es de este sistema."));
}

void exija_sola(const ParametrosConexion& base) {
    Conexion c;
    c.conectar(base);
    if (const QStringList otras = sesiones_ajenas(c); !otras.isEmpty())
        throw ErrorDatos(QStringLiteral("La base de datos está en uso por %1. Cierre esas sesiones "
                                        "e intente de nuevo.")
                             .arg(otras.join(QStringLiteral(", "))));
}

} // namespace

QMap<QString, QString> recuento(Conexion& conexion) {
    QMap<QString, QString> cuenta;
    Transaccion foto(conexion, Transaccion::Modo::Instantanea);
    const auto mida = [&](const QString& clave, const QString& sql) {
        Cursor c(std::make_shared<Preparada>(conexion, foto, sql), foto, {});
        cuenta[clave] = c.siguiente() ? c.valor(0).texto() : QString();
    };
    for (const QString& tabla : tablas_de(conexion)) {
        mida(tabla, QStringLiteral("select count(*) from \"%1\"").arg(tabla));
        if (tabla.startsWith(QLatin1String("COMPROBANTE_DETALLE")))
            for (const char* columna : {"CODE_DEBITO", "CODE_CREDITO"})
                mida(tabla + '.' + QLatin1String(columna),
                     QStringLiteral("select coalesce(sum(%2), 0) from %1")
                         .arg(tabla, QLatin1String(columna)));
    }
    return cuenta;
}

ResultadoRespaldo respalde_y_pruebe(const ParametrosConexion& base, const QString& archivo) {
    const auto antes = recuento_de(base);
    respalde_base(base, archivo);
    const auto despues = recuento_de(base);
    const BaseAparte aparte(base);
    try {
        restaure_base(archivo, aparte.parametros(), true);
        const auto copia = recuento_de(aparte.parametros());
        exija_contenido(copia);
        if (copia.keys() != antes.keys())
            throw ErrorDatos(QStringLiteral("la copia no tiene las mismas tablas"));
        for (auto i = copia.begin(); i != copia.end(); ++i)
            if (!entre(i.value(), antes[i.key()], despues[i.key()]))
                throw ErrorDatos(QStringLiteral("%1 tiene %2 en la copia y %3 en la base")
                                     .arg(i.key(), i.value(), antes[i.key()]));
        return {int(copia.size()), total_filas(copia), QFileInfo(archivo).size()};
    } catch (const ErrorDatos& e) {
        const QString dudoso = archivo + QStringLiteral(".dudoso");
        QFile::remove(dudoso);
        QFile::rename(archivo, dudoso);
        throw ErrorDatos(
            QStringLiteral("El respaldo no pasó la prueba de restauración y quedó como "
                           "%1: %2")
                .arg(dudoso, e.para_usuario()),
            e.detalle());
    }
}

ResultadoRespaldo restaure_en_lugar(const QString& archivo, const ParametrosConexion& base) {
    if (!QFile::exists(archivo))
        throw ErrorDatos(QStringLiteral("No se encontró el archivo de respaldo %1.").arg(archivo));
    const Ubicacion lugar(base.base);
    const auto resultado = [&](const QMap<QString, QString>& cuenta) {
        return ResultadoRespaldo{int(cuenta.size()), total_filas(cuenta),
                                 QFileInfo(archivo).size()};
    };
    if (lugar.en_servidor()) {
        {
            const BaseAparte aparte(base);
            restaure_base(archivo, aparte.parametros(), true);
            exija_contenido(recuento_de(aparte.parametros()));
        }
        // Sin base previa no hay sesión que estorbe; con ella, el servidor también la protege.
        try {
            exija_sola(base);
        } catch (const ErrorBase& e) {
            if (e.clase() != ClaseFalla::NoExiste)
                throw;
        }
        restaure_base(archivo, base, true);
        return resultado(recuento_de(base));
    }
    ParametrosConexion nueva = base;
    nueva.base = base.base + QStringLiteral(".restaurada");
    QFile::remove(nueva.base);
    try {
        restaure_base(archivo, nueva, false);
        const auto cuenta = recuento_de(nueva);
        exija_contenido(cuenta);
        if (QFile::exists(base.base)) {
            exija_sola(base);
            const QString anterior = base.base + QStringLiteral(".anterior");
            QFile::remove(anterior);
            if (!QFile::rename(base.base, anterior))
                throw ErrorDatos(QStringLiteral("No se pudo apartar %1.").arg(base.base));
        }
        if (!QFile::rename(nueva.base, base.base))
            throw ErrorDatos(QStringLiteral("No se pudo dejar la base en %1.").arg(base.base));
        return resultado(cuenta);
    } catch (...) {
        QFile::remove(nueva.base);
        throw;
    }
}
