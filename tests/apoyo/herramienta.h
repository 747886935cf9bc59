#pragma once
// Ejecuta quorvex-admin como lo haría una persona: otro proceso, su salida y su código.
#include <QCoreApplication>
#include <QProcess>
#include <QString>
#include <QStringList>

struct ResultadoHerramienta {
    int codigo = -1;
    QString salida, errores;
};

inline ResultadoHerramienta administre(const QStringList& argumentos) {
    QProcess p;
    p.start(QCoreApplication::applicationDirPath() + QStringLiteral("/quorvex-admin"), argumentos);
    if (!p.waitForFinished(120000))
        p.kill();
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
            QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}
