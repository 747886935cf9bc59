#include "fallas/escenarios.h"

#include "apoyo/servidor_prueba.h"
#include "fallas/comprobaciones.h"
#include "fallas/diario.h"

namespace {

QString grabador() {
    return QCoreApplication::applicationDirPath() + "/grabador";
}
void espere_renglones(QProcess& p, QByteArray& salida, int cuantos) {
    while (salida.count("\n<") < cuantos && p.waitForReadyRead(-1))
        salida += p.readAllStandardOutput();
}
/// Lo que dice la herramienta que cualquiera corre: vacío si todo cuadra.
QString verifique(const QString& lugar) {
    const auto r = administre({"verificar", "--ubicacion", lugar, "--compania", "001"});
    return r.codigo == 0 ? QString() : "verificar: " + r.salida + r.errores;
}
QStringList con_titulo(const QString& titulo, const QStringList& faltas) {
    QStringList lista;
    for (const QString& f : faltas)
        if (!f.isEmpty())
            lista << titulo + ": " + f;
    return lista;
}

} // namespace

QStringList muertes(int cuantas, const Corrida& corrida) {
    QRandomGenerator azar = azar_de_prueba(corrida.semilla);
    BaseDePrueba b;
    Diario diario;
    QStringList faltas;
    for (int i = 0; i < cuantas && faltas.isEmpty(); ++i) {
        const quint32 suya = azar.generate();
        QProcess p;
        p.start(grabador(), {b.ruta(), "ADMIN", "", "100000", QString::number(suya)});
        QByteArray salida;
        espere_renglones(p, salida, 1 + int(azar.bounded(8u)));
        // Desde ahí, en cualquier instante de las siguientes.
        QThread::usleep(azar.bounded(60000u));
        p.kill();
        p.waitForFinished(-1);
        salida += p.readAllStandardOutput();
        diario.lea(QString::fromLatin1(salida));
        Conexion c;
        c.conectar(b.parametros());
        const QByteArray dicho = p.readAllStandardError();
        faltas << con_titulo(
            QString("muerte %1 (semilla %2)").arg(i + 1).arg(suya),
            {p.exitStatus() == QProcess::CrashExit ? QString() : "terminó solo: " + dicho,
             diario.compare(c), a_medias(c), saldos_distintos(c)});
        corrida.diga(QString("muerte %1 de %2: %3 operaciones hechas")
                         .arg(i + 1)
                         .arg(cuantas)
                         .arg(diario.hechas()));
    }
    if (diario.hechas() < cuantas)
        faltas << QString("solo se hicieron %1 operaciones").arg(diario.hechas());
    return faltas << con_titulo("al final", {verifique(b.ruta())});
}

QStringList restauraciones_muertas(int cuantas, const Corrida& corrida) {
    QRandomGenerator azar = azar_de_prueba(corrida.semilla);
    BaseDePrueba b;
    QProcess llene;
    llene.start(grabador(), {b.ruta(), "ADMIN", "", "40"});
    llene.waitForFinished(-1);
    Diario diario;
    diario.lea(QString::fromLatin1(llene.readAllStandardOutput()));
    const QString respaldo = b.ruta() + "/001.fbk", base = b.ubicacion().base_compania("001");
    const QStringList lugar{"--ubicacion", b.ruta(), "--compania", "001", "--archivo", respaldo};
    auto r = administre(QStringList{"respaldar"} + lugar);
    if (r.codigo != 0)
        return {"respaldar: " + r.errores};
    QStringList faltas;
    for (int i = 0; i < cuantas && faltas.isEmpty(); ++i) {
        QProcess p;
        p.start(QCoreApplication::applicationDirPath() + "/quorvex-admin",
                QStringList{"restaurar"} + lugar);
        p.waitForStarted(-1);
        QThread::msleep(azar.bounded(1500u));
        p.kill();
        p.waitForFinished(-1);
        // Entre los archivos que hay, uno bueno y completo.
        QStringList buenas;
        for (const QString& archivo : QDir(QFileInfo(base).path()).entryList({"quorvex.fdb*"})) {
            try {
                Conexion c;
                ParametrosConexion q = b.parametros();
                q.base = QFileInfo(base).path() + '/' + archivo;
                c.conectar(q);
                if (Diario(diario).compare(c).isEmpty() && saldos_distintos(c).isEmpty())
                    buenas << archivo;
            } catch (const ErrorDatos&) {
                // a medio restaurar
            }
        }
        if (buenas.isEmpty())
            faltas << QString("restauración %1: no quedó ninguna base buena").arg(i + 1);
        corrida.diga(
            QString("restauración %1 de %2: %3").arg(i + 1).arg(cuantas).arg(buenas.join(", ")));
    }
    r = administre(QStringList{"restaurar"} + lugar);
    Conexion c;
    c.conectar(b.parametros());
    return faltas << con_titulo("al final", {r.codigo == 0 ? QString() : r.errores,
                                             diario.compare(c), verifique(b.ruta())});
}

QStringList varios_a_la_vez(int programas, int cada_uno, const Corrida& corrida) {
    ServidorDePrueba servidor;
    std::vector<std::unique_ptr<QProcess>> todos;
    for (int i = 0; i < programas; ++i) {
        todos.push_back(std::make_unique<QProcess>());
        todos.back()->start(grabador(), {servidor.ubicacion().texto(), i % 2 ? "AUXILIAR" : "ADMIN",
                                         ServidorDePrueba::kClave, QString::number(cada_uno)});
    }
    QStringList faltas;
    Diario diario;
    for (auto& p : todos) {
        p->waitForFinished(-1);
        const QString dicho = QString::fromUtf8(p->readAllStandardError()).trimmed();
        if (p->exitStatus() != QProcess::NormalExit || p->exitCode() != 0)
            faltas << "un programa no terminó: " + dicho;
        else if (!dicho.isEmpty()) // a quien no le pasa nada raro, nada se le dice
            faltas << "mensajes: " + dicho;
        diario.lea(QString::fromLatin1(p->readAllStandardOutput()));
        corrida.diga(QString("%1 grabados").arg(diario.hechas()));
    }
    Conexion c;
    c.conectar(servidor.parametros());
    const int total = programas * cada_uno;
    if (diario.hechas() != total)
        faltas << QString("se hicieron %1 de %2").arg(diario.hechas()).arg(total);
    // Sin huecos ni repetidos: del primero al último.
    const QString extremos =
        filas_de(c, "select min(enco_numero), max(enco_numero), count(distinct enco_numero) from "
                    "comprobante_encabezado");
    const QString esperados = QString("000001|%1|%2").arg(total, 6, 10, QChar('0')).arg(total);
    if (extremos != esperados)
        faltas << "números " + extremos + ", se esperaban " + esperados;
    return faltas << con_titulo("al final", {diario.compare(c), a_medias(c), saldos_distintos(c)});
}
