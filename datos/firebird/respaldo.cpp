#include "datos/firebird/respaldo.h"

#include "datos/firebird/servicios.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

namespace {

/// "equipo/puerto:ruta"; una sola letra antes de los dos puntos es una unidad de disco.
bool es_de_servidor(const QString& base) {
    return base.indexOf(':') > 1;
}

QStringList tablas_de(Conexion& conexion) {
    QStringList tablas;
    const auto c = conexion.abra(QStringLiteral(
        "select trim(rdb$relation_name) from rdb$relations where rdb$system_flag = 0"
        " and rdb$view_blr is null and coalesce(rdb$relation_type, 0) = 0 order by 1"));
    while (c->siguiente())
        tablas << c->valor(0).texto();
    return tablas;
}

/// Base aparte con un respaldo restaurado, para probarlo; se borra al salir.
class BaseAparte {
public:
    BaseAparte(const ParametrosConexion& original, const QString& archivo) : parametros_(original) {
        const QString nombre =
            es_de_servidor(original.base)
                ? original.base + QStringLiteral(".prueba")
                : QDir::temp().filePath(
                      QStringLiteral("quorvex_prueba_%1.fdb").arg(quintptr(this)));
        // Un servidor sigue un buen rato con la prueba de un equipo que se apagó a la mitad: se
        // deja ese nombre y se toma otro.
        for (int i = 1;; ++i) {
            parametros_.base = i == 1 ? nombre : nombre + QString::number(i);
            try {
                restaure_base(archivo, parametros_, true);
                return;
            } catch (const ErrorBase& e) {
                if (e.clase() != ClaseFalla::EnUso || i == kNombres) {
                    borre();
                    throw;
                }
            } catch (...) {
                borre();
                throw;
            }
        }
    }
    ~BaseAparte() { borre(); }
    BaseAparte(const BaseAparte&) = delete;
    BaseAparte& operator=(const BaseAparte&) = delete;
    const ParametrosConexion& parametros() const { return parametros_; }

private:
    static constexpr int kNombres = 9;
    void borre() noexcept {
        try {
            Conexion c;
            c.conectar(parametros_);
            c.borre_base();
        } catch (const std::exception&) {
            // La que quedó a medias no abre; si no llegó a crearse no hay qué borrar.
            if (!es_de_servidor(parametros_.base))
                QFile::remove(parametros_.base);
        }
    }
    ParametrosConexion parametros_;
};

bool entre(const QString& valor, const QString& antes, const QString& despues) {
    const Moneda v = Moneda::de_texto(valor), a = Moneda::de_texto(antes),
                 d = Moneda::de_texto(despues);
    return v >= qMin(a, d) && v <= qMax(a, d);
}

} // namespace

qint64 total_filas(const QMap<QString, QString>& cuenta) {
    qint64 total = 0;
    for (auto i = cuenta.begin(); i != cuenta.end(); ++i)
        if (!i.key().contains('.'))
            total += i.value().toLongLong();
    return total;
}

QMap<QString, QString> recuento_de(const ParametrosConexion& parametros) {
    Conexion c;
    c.conectar(parametros);
    return recuento(c);
}

void exija_contenido(const QMap<QString, QString>& cuenta) {
    if (cuenta.value(QStringLiteral("VERSION_ESQUEMA")).toInt() < 1)
        throw ErrorDatos(QStringLiteral("El respaldo está incompleto o no es de este sistema."));
}

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

namespace {

const QByteArray kComienzo("\0\2\4", 3); ///< de todo respaldo del motor
constexpr int kIntentos = 3;             ///< respaldos que se hacen mientras otros graban

/// La copia no da las cifras de la base: otra, hecha un momento después, puede darlas.
class OtrasCifras : public ErrorDatos {
    using ErrorDatos::ErrorDatos;
};

/// El compactador pasa filas de las diferencias a los saldos cuando nadie trabaja: no crecen solo.
bool se_compacta(const QString& clave) {
    return clave.startsWith(QLatin1String("SALDOS_")) &&
           !clave.startsWith(QLatin1String("SALDOS_INICIALES"));
}

/// Respalda en `archivo` y lo prueba restaurándolo aparte.
QMap<QString, QString> respalde_y_compare(const ParametrosConexion& base, const QString& archivo) {
    const auto antes = recuento_de(base);
    respalde_base(base, archivo);
    const auto despues = recuento_de(base);
    const BaseAparte aparte(base, archivo);
    const auto copia = recuento_de(aparte.parametros());
    exija_contenido(copia);
    if (copia.keys() != antes.keys())
        throw OtrasCifras(QStringLiteral("la copia no tiene las mismas tablas"));
    for (auto i = copia.begin(); i != copia.end(); ++i)
        if (!se_compacta(i.key()) && !entre(i.value(), antes[i.key()], despues[i.key()]))
            throw OtrasCifras(QStringLiteral("%1 tiene %2 en la copia y %3 en la base")
                                  .arg(i.key(), i.value(), antes[i.key()]));
    return copia;
}

/// Como la anterior, otra vez mientras las cifras no den. Lo que no pasa queda en `dudoso`.
QMap<QString, QString> respalde_y_reintente(const ParametrosConexion& base, const QString& archivo,
                                            const QString& dudoso) {
    for (int intento = 1;; ++intento) {
        try {
            return respalde_y_compare(base, archivo);
        } catch (const ErrorDatos& e) {
            if (!QFile::exists(archivo))
                throw; // ni siquiera se pudo hacer
            if (intento < kIntentos && dynamic_cast<const OtrasCifras*>(&e))
                continue;
            QFile::remove(dudoso);
            QFile::rename(archivo, dudoso);
            throw ErrorDatos(QStringLiteral("El respaldo no pasó la prueba de restauración y quedó "
                                            "como %1: %2")
                                 .arg(dudoso, e.para_usuario()),
                             e.detalle());
        }
    }
}

/// Lo que ya hay con ese nombre solo se reemplaza si es otro respaldo: podría ser la misma base.
void exija_reemplazable(const QString& archivo) {
    QFile f(archivo);
    if (!f.exists())
        return;
    const QByteArray comienzo = f.open(QIODevice::ReadOnly) ? f.read(kComienzo.size()) : "?";
    if (!comienzo.isEmpty() && comienzo != kComienzo)
        throw ErrorDatos(QStringLiteral("El archivo %1 ya existe y no es un respaldo. Escoja otro "
                                        "nombre.")
                             .arg(archivo));
}

} // namespace

ResultadoRespaldo respalde_y_pruebe(const ParametrosConexion& base, const QString& archivo) {
    exija_reemplazable(archivo);
    // El anterior del mismo nombre sigue en su sitio hasta que el nuevo está probado.
    const QString nuevo = archivo + QStringLiteral(".sin_probar");
    QFile::remove(nuevo); // el de un programa que murió en este paso
    const auto copia = respalde_y_reintente(base, nuevo, archivo + QStringLiteral(".dudoso"));
    if (std::rename(QFile::encodeName(nuevo).constData(), QFile::encodeName(archivo).constData()) !=
        0)
        throw ErrorDatos(QStringLiteral("El respaldo se hizo y pasó la prueba, pero no se pudo "
                                        "dejar como %1: está en %2. Verifique los permisos de la "
                                        "carpeta.")
                             .arg(archivo, nuevo));
    return {int(copia.size()), total_filas(copia), QFileInfo(archivo).size()};
}
