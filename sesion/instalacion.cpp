#include "sesion/instalacion.h"

#include "toolkit/dialogos.h"

#include <QDir>
#include <QFile>
#include <QSettings>

QString ajuste_instalacion(const QString& nombre) {
    QString valor;
    for (const QString& archivo : {QDir::homePath() + QStringLiteral("/.config/quorvex2018.conf"),
                                   QStringLiteral("/etc/quorvex2018.conf")})
        if (valor.isEmpty() && QFile::exists(archivo))
            valor = QSettings(archivo, QSettings::IniFormat).value(nombre).toString();
    return valor;
}

QString diraplicacion_callada() {
    const QString carpeta = qEnvironmentVariable("QUORVEX_DIRECTORIO");
    return carpeta.isEmpty() ? ajuste_instalacion(QStringLiteral("Directorio")) : carpeta;
}

QString diraplicacion() {
    const QString carpeta = diraplicacion_callada();
    if (carpeta.isEmpty())
        muestre_error(QStringLiteral("No se encontró la Clave "
                                     "HKEY_LOCAL_MACHINE\\Software\\NQT\\Quorvex2018\\Directorio"));
    return carpeta;
}

QString ubicaciondb(const QString& parametro) {
    if (!parametro.isEmpty())
        return parametro;
    QFile archivo(diraplicacion() + QStringLiteral("/conexion.cfg"));
    if (!archivo.open(QIODevice::ReadOnly)) {
        muestre_error(
            QStringLiteral("No se encontró el archivo de conexión con la base de datos."));
        return {};
    }
    QByteArray contenido = archivo.readAll();
    contenido.chop(2);
    return QString::fromLocal8Bit(contenido);
}

QString ruta_base(const QString& ubicacion, const QString& compania) {
    const QString datos = ubicacion + QStringLiteral("/datos/");
    return compania.isEmpty() ? datos + QStringLiteral("general.fdb")
                              : datos + compania + QStringLiteral("/quorvex.fdb");
}

QString impresora_de(const QString& formato) {
    const QString ruta = diraplicacion() + QStringLiteral("/impresoras.cfg");
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly | QIODevice::Text)) {
        muestre_error(QStringLiteral("Error abriendo el archivo") + ruta);
        return {};
    }
    const QString clave = formato + ',';
    while (!archivo.atEnd()) {
        const QString linea = QString::fromLocal8Bit(archivo.readLine()).remove('\n').remove('\r');
        if (const qsizetype donde = linea.indexOf(clave); donde >= 0)
            return linea.mid(donde + clave.size());
    }
    return {};
}

QString ruta_informe(const QString& archivo) {
    return diraplicacion_callada() + QStringLiteral("/contabilidad/Reportes/") + archivo;
}
