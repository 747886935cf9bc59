#include "apoyo/servidor_prueba.h"

#include "apoyo/base_prueba.h"
#include "datos/firebird/motor.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <arpa/inet.h>
#include <csignal>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int kEsperaArranque = 120000; // milisegundos

/// Puerto que el sistema acaba de dar por libre.
int puerto_libre() {
    const int s = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in direccion{};
    direccion.sin_family = AF_INET;
    direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof direccion;
    ::bind(s, reinterpret_cast<sockaddr*>(&direccion), largo);
    ::getsockname(s, reinterpret_cast<sockaddr*>(&direccion), &largo);
    ::close(s);
    return ntohs(direccion.sin_port);
}

void escriba(const QString& ruta, const QByteArray& texto) {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly) || f.write(texto) != texto.size())
        throw ErrorDatos(QString("No se pudo escribir %1.").arg(ruta));
}

} // namespace

QString ServidorDePrueba::programa() {
    for (const QString& ruta :
         QStringList{qEnvironmentVariable("QUORVEX_FIREBIRD"), "/usr/sbin/firebird",
                     QStandardPaths::findExecutable("firebird")})
        if (!ruta.isEmpty() && QFile::exists(ruta))
            return ruta;
    return {};
}

ServidorDePrueba::ServidorDePrueba() : puerto_(puerto_libre()) {
    if (programa().isEmpty())
        throw ErrorDatos("Falta el paquete firebird3.0-server.");
    prepare_raiz();
    cree_seguridad();
    const Ubicacion origen(plantilla_de_bases()), destino(carpeta_.path());
    destino.prepare_carpeta(destino.base_compania("001"));
    QFile::copy(origen.base_general(), destino.base_general());
    QFile::copy(origen.base_compania("001"), destino.base_compania("001"));
    proceso_.setProcessEnvironment(entorno());
    proceso_.setProgram(programa());
    proceso_.setStandardOutputFile(carpeta_.filePath("salida.log"));
    proceso_.setProcessChannelMode(QProcess::MergedChannels);
    // Si la prueba se cae, el servidor no queda huérfano.
    proceso_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    inicie();
}

ServidorDePrueba::~ServidorDePrueba() {
    detenga();
}

void ServidorDePrueba::prepare_raiz() {
    const QString raiz = carpeta_.path() + '/';
    const QString instalado = motor_instalado() + '/';
    QDir().mkpath(raiz + "intl");
    QDir().mkpath(raiz + "bloqueos");
    QFile::link(instalado + "plugins", raiz + "plugins");
    QFile::link(instalado + "firebird.msg", raiz + "firebird.msg");
    QFile::copy(instalado + "intl/libfbintl.so", raiz + "intl/libfbintl.so");
    QFile::copy(instalado + "intl/fbintl.conf", raiz + "intl/fbintl.conf");
    QFile::copy("/etc/firebird/3.0/plugins.conf", raiz + "plugins.conf");
    escriba(raiz + "databases.conf", "");
    escriba(raiz + "firebird.conf", QString("ServerMode = Super\n"
                                            "RemoteBindAddress = 127.0.0.1\n"
                                            "RemoteServicePort = %1\n"
                                            "SecurityDatabase = %2seguridad.fdb\n"
                                            "DatabaseAccess = Full\n"
                                            "AuthServer = Srp\n"
                                            "UserManager = Srp\n")
                                        .arg(puerto_)
                                        .arg(raiz)
                                        .toLocal8Bit());
}

QProcessEnvironment ServidorDePrueba::entorno() const {
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert("FIREBIRD", carpeta_.path());
    e.insert("FIREBIRD_LOCK", carpeta_.filePath("bloqueos"));
    e.remove("FIREBIRD_TMP");
    return e;
}

void ServidorDePrueba::cree_seguridad() {
    QString guion = QString("create database '%1';\n").arg(carpeta_.filePath("seguridad.fdb"));
    for (const char* usuario : {"SYSDBA", "ADMIN", "AUXILIAR"})
        guion += QString("create user \"%1\" password '%2';\ncommit;\n")
                     .arg(QLatin1String(usuario), QLatin1String(kClave));
    QProcess isql;
    isql.setProcessEnvironment(entorno());
    isql.start("isql-fb", {"-q", "-b", "-user", "SYSDBA"});
    isql.write(guion.toLatin1());
    isql.closeWriteChannel();
    if (!isql.waitForFinished(-1) || isql.exitCode() != 0)
        throw ErrorDatos(QString("No se pudo crear la base de seguridad: %1")
                             .arg(QString::fromLocal8Bit(isql.readAllStandardError())));
}

void ServidorDePrueba::inicie() {
    proceso_.start();
    QElapsedTimer reloj;
    reloj.start();
    QString falla;
    while (reloj.elapsed() < kEsperaArranque) {
        try {
            Conexion c;
            c.conectar(parametros_general());
            return;
        } catch (const ErrorDatos& e) {
            falla = e.texto();
        }
        QThread::msleep(50);
    }
    throw ErrorDatos(QString("El servidor de pruebas no atendió: %1").arg(falla));
}

void ServidorDePrueba::detenga() {
    if (proceso_.state() == QProcess::NotRunning)
        return;
    proceso_.terminate();
    if (!proceso_.waitForFinished(10000)) { // con una red muda no termina por las buenas
        proceso_.kill();
        proceso_.waitForFinished(-1);
    }
}

void ServidorDePrueba::mate() {
    proceso_.kill();
    proceso_.waitForFinished(-1);
}

Ubicacion ServidorDePrueba::ubicacion() const {
    return Ubicacion(QString("127.0.0.1/%1:%2").arg(puerto_).arg(carpeta_.path()));
}

ParametrosConexion ServidorDePrueba::parametros(const QString& usuario) const {
    return {ubicacion().base_compania("001"), usuario, QLatin1String(kClave)};
}

ParametrosConexion ServidorDePrueba::parametros_general(const QString& usuario) const {
    return {ubicacion().base_general(), usuario, QLatin1String(kClave)};
}
