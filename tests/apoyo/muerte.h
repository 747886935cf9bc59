#pragma once
// Un proceso que muere de verdad (kill -9) en el instante que se pida: la misma prueba, corrida
// aparte con una variable de entorno que le dice qué hacer.
//
// El que muere llama a `diga_listo()` cuando va a empezar; `corra_y_mate()` cuenta desde ahí.
#include "apoyo/cronometro.h"

#include <QCoreApplication>
#include <QProcess>
#include <cstdio>

inline void diga_listo() {
    std::fputs("listo\n", stdout);
    std::fflush(stdout);
}

/// Corre este mismo programa con ese entorno y lo mata a los `microsegundos` de estar listo.
/// Negativo: lo deja terminar. Devuelve lo que alcanzó a correr, o -1 si no llegó a estar listo.
inline qint64 corra_y_mate(const QMap<QString, QString>& entorno, qint64 microsegundos) {
    QProcess hijo;
    QProcessEnvironment suyo = QProcessEnvironment::systemEnvironment();
    for (auto i = entorno.begin(); i != entorno.end(); ++i)
        suyo.insert(i.key(), i.value());
    hijo.setProcessEnvironment(suyo);
    hijo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    hijo.start(QCoreApplication::applicationFilePath(), QStringList());
    QByteArray dicho;
    while (!dicho.contains("listo\n") && hijo.waitForReadyRead(-1))
        dicho += hijo.readAllStandardOutput();
    if (!dicho.contains("listo\n"))
        return -1;
    const Cronometro reloj;
    if (microsegundos < 0) {
        hijo.waitForFinished(-1);
    } else {
        while (reloj.microsegundos() < microsegundos) {
        }
        hijo.kill();
        hijo.waitForFinished(-1);
    }
    return reloj.microsegundos();
}
