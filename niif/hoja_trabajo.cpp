#include "niif/hoja_trabajo.h"

#include "datos/firebird/errores.h"
#include "sesion/instalacion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <csignal>
#include <unistd.h>

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

bool es_libreoffice(const QString& programa) {
    const QString nombre = QFileInfo(programa).fileName();
    return nombre == "localc" || nombre.startsWith("libreoffice") || nombre.startsWith("soffice");
}

/// Sin consejos ni novedades al abrir, y al guardar queda en xlsx sin preguntar.
bool prepare_perfil(const QString& carpeta) {
    constexpr const char* kAjustes[][3] = {
        {"org.openoffice.Office.Common/Misc", "ShowTipOfTheDay", "false"},
        {"org.openoffice.Office.Common/Save/Document", "WarnAlienFormat", "false"},
        {"org.openoffice.Setup/Product", "ooSetupLastVersion", "99.0"}};
    QString xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                  "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\">\n";
    for (const auto& [ruta, propiedad, valor] : kAjustes)
        xml += QStringLiteral("<item oor:path=\"/%1\"><prop oor:name=\"%2\" oor:op=\"fuse\">"
                              "<value>%3</value></prop></item>\n")
                   .arg(ruta, propiedad, valor);
    xml += "</oor:items>\n";
    QFile f(carpeta + "/user/registrymodifications.xcu");
    return QDir(carpeta).mkpath("user") && f.open(QIODevice::WriteOnly) &&
           f.write(xml.toUtf8()) > 0 && f.flush();
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
    termine();
    ruta_ = carpeta() + "/Apniif" + cuenta + ".xlsx";
    try {
        escriba(libro.isEmpty() ? en_blanco() : libro);
        arranque(cual);
    } catch (const ErrorDatos&) {
        termine();
        throw;
    }
}

void HojaTrabajo::escriba(const QByteArray& libro) {
    auto reserva = std::make_unique<QLockFile>(ruta_ + ".abierta");
    reserva->setStaleLockTime(0); // una hoja puede pasar el día abierta
    if (!reserva->tryLock()) {
        const QString suya = std::exchange(ruta_, QString());
        if (reserva->error() == QLockFile::LockFailedError)
            throw ErrorDatos(
                QStringLiteral("La hoja %1 está abierta en otra ventana del programa. Ciérrela "
                               "allí antes de abrirla aquí.")
                    .arg(suya));
        throw ErrorDatos(QStringLiteral("No se pudo escribir la hoja de trabajo en %1.").arg(suya));
    }
    reserva_ = std::move(reserva);
    rescatada_.clear();
    if (QFileInfo::exists(ruta_)) { // el programa murió con ella abierta
        const QString aparte = ruta_.chopped(5) + "_anterior.xlsx";
        QFile::remove(aparte);
        if (QFile::rename(ruta_, aparte))
            rescatada_ = aparte;
    }
    QFile::remove(candado());
    QFile f(ruta_);
    if (!f.open(QIODevice::WriteOnly) || f.write(libro) != libro.size() || !f.flush())
        throw ErrorDatos(
            QStringLiteral("No se pudo escribir la hoja de trabajo en %1.").arg(ruta_));
}

void HojaTrabajo::arranque(const QString& programa) {
    QStringList argumentos{ruta_};
    if (es_libreoffice(programa)) {
        perfil_ = std::make_unique<QTemporaryDir>(QDir::tempPath() + "/quorvex-hoja-XXXXXX");
        const QByteArray carpeta = QUrl::fromLocalFile(perfil_->path()).toEncoded();
        if (prepare_perfil(perfil_->path()))
            argumentos = {QStringLiteral("-env:UserInstallation=%1").arg(QLatin1String(carpeta)),
                          "--norestore", "--nologo", "--calc", ruta_};
    }
    proceso_.setStandardOutputFile(QProcess::nullDevice());
    proceso_.setStandardErrorFile(QProcess::nullDevice());
    // Un grupo propio: los guiones que arrancan el programa no mueren con él, ni él con ellos.
    proceso_.setChildProcessModifier([] { ::setpgid(0, 0); });
    proceso_.start(programa, argumentos);
    if (!proceso_.waitForStarted(kMsArranque))
        throw ErrorDatos(
            QStringLiteral("No se pudo abrir el programa de hojas de cálculo %1.").arg(programa));
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
        const pid_t grupo = pid_t(proceso_.processId());
        ::kill(-grupo, SIGTERM);
        proceso_.waitForFinished(kMsCierre);
        ::kill(-grupo, SIGKILL); // lo que quede del grupo
        proceso_.waitForFinished(kMsCierre);
        QFile::remove(candado());
    }
    perfil_.reset();
    if (!ruta_.isEmpty())
        QFile::remove(std::exchange(ruta_, QString()));
    reserva_.reset();
}
