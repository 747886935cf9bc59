#include "niif/hoja_trabajo.h"

#include "datos/firebird/errores.h"
#include "sesion/instalacion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

/// La hoja en blanco va en una biblioteca estática: sin esto el enlazador la deja por fuera.
static void tome_recursos() {
    Q_INIT_RESOURCE(niif);
}

namespace {

constexpr int kMsArranque = 5000;
constexpr int kMsCierre = 2000;

QString carpeta() {
    const QString propia = diraplicacion_callada();
    return !propia.isEmpty() && QFileInfo(propia).isWritable() ? propia : QDir::tempPath();
}

QByteArray en_blanco() {
    tome_recursos();
    QFile f(":/niif/hoja_vacia.xlsx");
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorDatos(QStringLiteral("El programa no trae la hoja en blanco."));
    return f.readAll();
}

} // namespace

HojaTrabajo::HojaTrabajo(QObject* dueno) : QObject(dueno) {}

HojaTrabajo::~HojaTrabajo() {
    termine();
}

QString HojaTrabajo::candado() const {
    const QFileInfo archivo(ruta_);
    return archivo.path() + "/.~lock." + archivo.fileName() + '#';
}

bool HojaTrabajo::en_uso() const {
    return proceso_.state() != QProcess::NotRunning || (abierta() && QFileInfo::exists(candado()));
}

QString HojaTrabajo::programa() {
    const QString indicado = qEnvironmentVariable("QUORVEX_HOJA_CALCULO");
    if (!indicado.isEmpty())
        return QStandardPaths::findExecutable(indicado);
    for (const char* nombre : {"localc", "libreoffice", "soffice", "gnumeric", "calligrasheets"})
        if (const QString ruta = QStandardPaths::findExecutable(QLatin1String(nombre));
            !ruta.isEmpty())
            return ruta;
    return {};
}

void HojaTrabajo::abra(const QString& cuenta, const QByteArray& libro) {
    const QString cual = programa();
    if (cual.isEmpty())
        throw ErrorDatos(QStringLiteral(
            "No se encontró en este equipo un programa de hojas de cálculo. Instale uno, como "
            "LibreOffice Calc, o indíquelo en la variable QUORVEX_HOJA_CALCULO."));
    ruta_ = carpeta() + "/Apniif" + cuenta + ".xlsx";
    QFile f(ruta_);
    const QByteArray contenido = libro.isEmpty() ? en_blanco() : libro;
    if (!f.open(QIODevice::WriteOnly) || f.write(contenido) != contenido.size()) {
        const QString mala = std::exchange(ruta_, QString());
        throw ErrorDatos(QStringLiteral("No se pudo escribir la hoja de trabajo en %1.").arg(mala));
    }
    f.close();
    QFile::remove(candado()); // de una vez que terminó mal
    proceso_.setStandardOutputFile(QProcess::nullDevice());
    proceso_.setStandardErrorFile(QProcess::nullDevice());
    proceso_.start(cual, {ruta_});
    if (!proceso_.waitForStarted(kMsArranque)) {
        termine();
        throw ErrorDatos(
            QStringLiteral("No se pudo abrir el programa de hojas de cálculo %1.").arg(cual));
    }
}

QByteArray HojaTrabajo::recoja() {
    QFile f(ruta_);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorDatos(QStringLiteral("No se encontró la hoja de trabajo %1.").arg(ruta_));
    const QByteArray libro = f.readAll();
    if (!libro.startsWith("PK"))
        throw ErrorDatos(
            QStringLiteral("%1 no quedó como un libro xlsx. Guárdelo con ese formato.").arg(ruta_));
    return libro;
}

void HojaTrabajo::termine() {
    if (proceso_.state() != QProcess::NotRunning) {
        proceso_.terminate();
        if (!proceso_.waitForFinished(kMsCierre)) {
            proceso_.kill();
            proceso_.waitForFinished(kMsCierre);
        }
    }
    if (!ruta_.isEmpty())
        QFile::remove(std::exchange(ruta_, QString()));
}
