#include "sesion/respaldos.h"

#include "datos/firebird/reloj.h"
#include "sesion/instalacion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>

namespace {

QString archivo_de_ajustes() {
    return diraplicacion_callada() + QStringLiteral("/respaldo.cfg");
}

bool en_servidor(const QString& base) {
    return base.indexOf(':') > 1;
}

/// El motor en proceso no deja restaurar una base mientras el mismo proceso tiene abierta otra: en
/// este equipo el trabajo lo hace la herramienta de administración, que es otro proceso.
void respalde_con_la_herramienta(const ParametrosConexion& base, const QString& compania,
                                 const QString& archivo) {
    QString programa = QCoreApplication::applicationDirPath() + "/quorvex-admin";
    if (!QFileInfo(programa).isExecutable())
        programa = QStandardPaths::findExecutable("quorvex-admin");
    if (programa.isEmpty())
        throw ErrorDatos(QStringLiteral("No se encontró la herramienta quorvex-admin, que hace los "
                                        "respaldos. Instálela junto al programa."));
    QString lugar = base.base;
    lugar.chop(QStringLiteral("/datos/%1/quorvex.fdb").arg(compania).size());
    QProcess p;
    p.start(programa,
            {"respaldar", "--ubicacion", lugar, "--compania", compania, "--archivo", archivo});
    if (!p.waitForStarted())
        throw ErrorDatos(QStringLiteral("No se pudo ejecutar %1.").arg(programa));
    // Mientras tanto la ventana se sigue pintando.
    while (p.state() != QProcess::NotRunning) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        p.waitForFinished(50);
    }
    if (p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        throw ErrorDatos(QStringLiteral("El respaldo no se pudo hacer: %1")
                             .arg(QString::fromUtf8(p.readAllStandardError()).trimmed()));
}

} // namespace

AjustesRespaldo ajustes_respaldo() {
    const QSettings s(archivo_de_ajustes(), QSettings::IniFormat);
    AjustesRespaldo a;
    a.carpeta = s.value("carpeta", diraplicacion_callada() + "/respaldos").toString();
    a.copias = qMax(1, s.value("copias", a.copias).toInt());
    return a;
}

void ajustes_respaldo(const AjustesRespaldo& a) {
    QSettings s(archivo_de_ajustes(), QSettings::IniFormat);
    s.setValue("carpeta", a.carpeta);
    s.setValue("copias", a.copias);
}

QDateTime ultimo_respaldo(const QString& compania) {
    return QSettings(archivo_de_ajustes(), QSettings::IniFormat)
        .value("ultimo/" + compania)
        .toDateTime();
}

QString letrero_respaldo(const QString& compania) {
    const QDateTime cuando = ultimo_respaldo(compania);
    return cuando.isValid()
               ? "Último respaldo bueno: " + cuando.toString(QStringLiteral("yyyy/MM/dd hh:mm"))
               : QStringLiteral("No hay ningún respaldo hecho desde este equipo.");
}

qint64 respalde_compania(const ParametrosConexion& base, const QString& compania,
                         const AjustesRespaldo& ajustes, QString& archivo) {
    const QDateTime ahora = reloj().ahora();
    QDir carpeta(ajustes.carpeta);
    if (!carpeta.mkpath("."))
        throw ErrorDatos(
            QStringLiteral("No se pudo crear la carpeta %1. Indique otra.").arg(ajustes.carpeta));
    archivo = carpeta.filePath(compania + ahora.toString(QStringLiteral("_yyyyMMdd_hhmmss")) +
                               QStringLiteral(".fbk"));
    if (en_servidor(base.base))
        respalde_y_pruebe(base, archivo);
    else
        respalde_con_la_herramienta(base, compania, archivo);
    QSettings(archivo_de_ajustes(), QSettings::IniFormat).setValue("ultimo/" + compania, ahora);
    QStringList copias = carpeta.entryList({compania + "_????????_??????.fbk"}, QDir::Files,
                                           QDir::Name | QDir::Reversed);
    for (const QString& vieja : copias.mid(ajustes.copias))
        carpeta.remove(vieja);
    return QFileInfo(archivo).size();
}
