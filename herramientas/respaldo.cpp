#include "herramientas/respaldo.h"

#include "datos/firebird/servicios.h"
#include "herramientas/administracion.h"
#include "herramientas/ubicacion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kCopias = 9; ///< nombres para la copia que se prueba en un servidor

void exija_sola(const ParametrosConexion& base) {
    Conexion c;
    c.conectar(base);
    if (const QStringList otras = sesiones_ajenas(c); !otras.isEmpty())
        throw ErrorDatos(QStringLiteral("La base de datos está en uso por %1. Cierre esas sesiones "
                                        "e intente de nuevo.")
                             .arg(otras.join(QStringLiteral(", "))));
}

/// La que este motor no abre, que es la que hay que reemplazar.
bool inservible(const ErrorBase& falla) {
    return falla.clase() == ClaseFalla::BaseDanada || falla.clase() == ClaseFalla::OtraVersion;
}

/// Esa no dice quién está en ella, y un motor de su versión puede tenerla abierta: todos retienen
/// el archivo mientras tanto. Un disco que no sabe de bloqueos no contesta, y se sigue.
void exija_suelta(const QString& ruta) {
    const int archivo = ::open(QFile::encodeName(ruta).constData(), O_RDONLY | O_CLOEXEC);
    if (archivo < 0)
        return;
    const bool tomada = ::flock(archivo, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(archivo);
    if (tomada)
        throw ErrorDatos(QStringLiteral("La base de datos está en uso por otro programa, de otra "
                                        "versión del motor. Ciérrelo e intente de nuevo."));
}

ParametrosConexion con_sufijo(const ParametrosConexion& base, const QString& sufijo) {
    ParametrosConexion otra = base;
    otra.base += sufijo;
    return otra;
}

/// El recuento de una base que abre y es de este sistema; nada si no la hay o quedó a medias. Una
/// red que falla no dice que no la haya: lanza.
std::optional<QMap<QString, QString>> contenido(const ParametrosConexion& base) {
    try {
        const auto cuenta = recuento_de(base);
        exija_contenido(cuenta);
        return cuenta;
    } catch (const ErrorBase& e) {
        if (e.conexion_perdida())
            throw;
        return {};
    } catch (const ErrorDatos&) {
        return {};
    }
}

/// Restaura en `destino`, que aún no es la base de nadie, y revisa lo que quedó.
QMap<QString, QString> restaure_y_revise(const QString& archivo, const ParametrosConexion& destino,
                                         TipoBase tipo) {
    restaure_base(archivo, destino, true);
    const auto cuenta = recuento_de(destino);
    exija_contenido(cuenta);
    if (cuenta.contains(QStringLiteral("CUENTAS")) != (tipo == TipoBase::Compania))
        throw ErrorDatos(tipo == TipoBase::General
                             ? QStringLiteral("El respaldo es de una compañía y no de la base "
                                              "general.")
                             : QStringLiteral("El respaldo es de la base general y no de una "
                                              "compañía."));
    Conexion c;
    c.conectar(destino);
    const int version = version_de_esquema(c);
    if (version > version_conocida(tipo))
        throw ErrorDatos(negativa_de_version(tipo, version));
    return cuenta;
}

void borre(const ParametrosConexion& base) noexcept {
    try {
        Conexion c;
        c.conectar(base);
        c.borre_base();
    } catch (const std::exception&) {
        // Lo que no se pudo abrir no es una base buena: estorba, pero no hace daño.
    }
}

/// Cambia un archivo de nombre y, si el otro existe, lo reemplaza sin que falte un instante.
void renombre(const QString& de, const QString& a) {
    if (std::rename(QFile::encodeName(de).constData(), QFile::encodeName(a).constData()) != 0)
        throw ErrorDatos(QStringLiteral("No se pudo cambiar de nombre %1 a %2. Verifique los "
                                        "permisos de la carpeta; los dos archivos siguen en su "
                                        "sitio.")
                             .arg(de, a));
    // Dos nombres del mismo archivo: el sistema no hace nada y quedan los dos.
    QFile::remove(de);
}

/// El mismo archivo con otro nombre; en un disco que no admite enlaces, una copia.
void duplique(const QString& de, const QString& a) {
    QFile::remove(a);
    if (::link(QFile::encodeName(de).constData(), QFile::encodeName(a).constData()) != 0 &&
        !QFile::copy(de, a))
        throw ErrorDatos(QStringLiteral("No se pudo apartar %1. Verifique el espacio y los "
                                        "permisos de la carpeta.")
                             .arg(de));
}

/// Quien trabaja en la base no es por fuerza quien la restaura: el archivo sigue siendo del mismo.
void herede_dueno(const QString& de, const QString& a) {
    struct stat datos {};
    const QByteArray nueva = QFile::encodeName(a);
    if (::stat(QFile::encodeName(de).constData(), &datos) != 0)
        return;
    if (::chown(nueva.constData(), datos.st_uid, datos.st_gid) == 0)
        ::chmod(nueva.constData(), datos.st_mode & 07777);
}

// El archivo en curso no vale hasta revisarlo; de ahí en adelante solo hay cambios de nombre, y en
// todo momento la base está en su sitio: o la de antes o la restaurada.
QMap<QString, QString> restaure_aqui(const QString& archivo, const ParametrosConexion& base,
                                     TipoBase tipo, const PasoRestauracion& paso) {
    const QString ruta = base.base, lista = ruta + QStringLiteral(".restaurada"),
                  anterior = ruta + QStringLiteral(".anterior");
    const ParametrosConexion en_curso = con_sufijo(base, QStringLiteral(".restaurando"));
    QMap<QString, QString> cuenta;
    QFile::remove(en_curso.base);
    try {
        cuenta = restaure_y_revise(archivo, en_curso, tipo);
    } catch (...) {
        QFile::remove(en_curso.base);
        throw;
    }
    paso("restaurada");
    renombre(en_curso.base, lista);
    paso("lista");
    if (QFile::exists(ruta)) {
        try {
            try {
                exija_sola(base);
            } catch (const ErrorBase& e) {
                if (!inservible(e))
                    throw;
                exija_suelta(ruta);
            }
        } catch (...) {
            QFile::remove(lista); // la base sigue en uso y no hizo falta
            throw;
        }
        herede_dueno(ruta, lista);
        duplique(ruta, anterior + QStringLiteral(".nueva"));
        paso("duplicada");
        renombre(anterior + QStringLiteral(".nueva"), anterior);
        paso("apartada");
    }
    renombre(lista, ruta);
    paso("cambiada");
    return cuenta;
}

/// Restaura y revisa en el servidor con un nombre que no sea el de otra copia que aún sirva, ni el
/// de una que alguien tenga en uso: la de un equipo que se apagó a la mitad lo está un buen rato.
ParametrosConexion restaure_aparte(const QString& archivo, const ParametrosConexion& base,
                                   TipoBase tipo, QMap<QString, QString>& cuenta) {
    for (int i = 1;; ++i) {
        const ParametrosConexion lugar = con_sufijo(
            base, i == 1 ? QStringLiteral(".restaurada") : QStringLiteral(".restaurada%1").arg(i));
        if (contenido(lugar))
            continue;
        try {
            cuenta = restaure_y_revise(archivo, lugar, tipo);
            return lugar;
        } catch (const ErrorBase& e) {
            if (e.clase() == ClaseFalla::EnUso && i < kCopias)
                continue;
            borre(lugar);
            throw;
        } catch (...) {
            borre(lugar);
            throw;
        }
    }
}

/// Deja en ".anterior" lo que la base tiene, comprobado fila por fila.
void aparte_en_servidor(const ParametrosConexion& base, const QMap<QString, QString>& cuenta) {
    const ParametrosConexion anterior = con_sufijo(base, QStringLiteral(".anterior"));
    QTemporaryDir carpeta;
    const QString copia = carpeta.filePath(QStringLiteral("anterior.fbk"));
    QString falla = QStringLiteral("La copia no quedó igual.");
    try {
        respalde_base(base, copia);
        restaure_base(copia, anterior, true);
        if (recuento_de(anterior) == cuenta)
            return;
    } catch (const ErrorDatos& e) {
        falla = e.texto();
    }
    throw ErrorDatos(QStringLiteral("No se pudo apartar la base actual en %1. La base sigue como "
                                    "estaba.\n%2")
                         .arg(anterior.base, falla));
}

// En un servidor no hay cambios de nombre: mientras la base se reescribe en su sitio hay otras dos
// completas, la restaurada y la anterior.
QMap<QString, QString> restaure_en_servidor(const QString& archivo, const ParametrosConexion& base,
                                            TipoBase tipo, const PasoRestauracion& paso) {
    QMap<QString, QString> cuenta;
    const ParametrosConexion lista = restaure_aparte(archivo, base, tipo, cuenta);
    paso("lista");
    if (const auto actual = contenido(base)) {
        try {
            exija_sola(base);
            aparte_en_servidor(base, *actual);
        } catch (...) {
            borre(lista);
            throw;
        }
        paso("apartada");
    }
    QString falla;
    try {
        restaure_base(archivo, base, true);
        if (recuento_de(base) != cuenta)
            falla = QStringLiteral("no quedó igual a la copia probada");
    } catch (const ErrorDatos& e) {
        falla = e.texto();
    }
    if (!falla.isEmpty())
        throw ErrorDatos(
            QStringLiteral("La base %1 pudo quedar a medias: repita la orden. El "
                           "respaldo restaurado y probado está en %2, y lo anterior "
                           "en %3.\n%4")
                .arg(base.base, lista.base, base.base + QStringLiteral(".anterior"), falla));
    paso("cambiada");
    borre(lista);
    for (int i = 1; i <= kCopias; ++i)
        borre(con_sufijo(base, i == 1 ? QStringLiteral(".restaurada")
                                      : QStringLiteral(".restaurada%1").arg(i)));
    paso("limpia");
    return cuenta;
}

} // namespace

ResultadoRespaldo restaure_en_lugar(const QString& archivo, const ParametrosConexion& base,
                                    TipoBase tipo, const PasoRestauracion& paso) {
    if (!QFile::exists(archivo))
        throw ErrorDatos(QStringLiteral("No se encontró el archivo de respaldo %1.").arg(archivo));
    const PasoRestauracion avise = paso ? paso : [](const char*) {};
    const auto cuenta = Ubicacion(base.base).en_servidor()
                            ? restaure_en_servidor(archivo, base, tipo, avise)
                            : restaure_aqui(archivo, base, tipo, avise);
    return {int(cuenta.size()), total_filas(cuenta), QFileInfo(archivo).size()};
}
