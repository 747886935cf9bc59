#include "herramientas/ubicacion.h"

#include "datos/firebird/errores.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

Ubicacion::Ubicacion(const QString& texto) {
    const qsizetype corte = texto.indexOf(':');
    // Una sola letra antes de los dos puntos es una unidad de disco y no un equipo.
    if (corte > 1) {
        servidor_ = texto.left(corte);
        raiz_ = texto.mid(corte + 1);
    } else {
        raiz_ = texto.isEmpty() ? QString() : QDir(texto).absolutePath();
    }
    while (raiz_.size() > 1 && raiz_.endsWith('/'))
        raiz_.chop(1);
}

QString Ubicacion::texto() const {
    return en_servidor() ? servidor_ + ':' + raiz_ : raiz_;
}

bool Ubicacion::carpetas_alcanzables() const {
    const QString equipo = servidor_.section('/', 0, 0);
    return !en_servidor() || equipo == QLatin1String("localhost") ||
           equipo == QLatin1String("127.0.0.1");
}

QString Ubicacion::ruta_de(const QString& base) const {
    return en_servidor() ? base.mid(servidor_.size() + 1) : base;
}

void Ubicacion::prepare_carpeta(const QString& base) const {
    if (!carpetas_alcanzables())
        return;
    const QString carpeta = QFileInfo(ruta_de(base)).path();
    if (QDir(carpeta).exists())
        return;
    if (!QDir().mkpath(carpeta))
        throw ErrorDatos(QStringLiteral("No se pudo crear la carpeta %1. Verifique la ruta y los "
                                        "permisos.")
                             .arg(carpeta));
    // El servidor corre con otro usuario: la carpeta pasa al dueño de la de arriba.
    if (en_servidor())
        QFile::setPermissions(carpeta, QFileInfo(QFileInfo(carpeta).path()).permissions());
}
