#pragma once
// Tablas de lo esperado, escritas aparte del programa: un renglón por fila, separada por
// tabuladores; "-" es vacío y "#" comienza un comentario.
#include <QFile>
#include <QStringList>

/// `ruta` dentro de tests/. Una fila con otra cuenta de columnas detiene la prueba.
inline QList<QStringList> tabla_esperada(const QString& ruta, int columnas) {
    QFile f(qEnvironmentVariable("QUORVEX_PROYECTO") + "/tests/" + ruta);
    if (!f.open(QIODevice::ReadOnly))
        qFatal("falta %s", qPrintable(ruta));
    QList<QStringList> filas;
    for (const QString& renglon : QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts)) {
        if (renglon.startsWith('#'))
            continue;
        QStringList fila = renglon.split('\t');
        if (fila.size() != columnas)
            qFatal("%s: %s", qPrintable(ruta), qPrintable(renglon));
        for (QString& celda : fila)
            if (celda == "-")
                celda.clear();
        filas << fila;
    }
    return filas;
}
