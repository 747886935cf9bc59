#pragma once
// Ejecuta otros programas como lo haría una persona: otro proceso, su salida y su código. Uno que
// no está instalado hace fallar la prueba.
#include <QCoreApplication>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>

struct ResultadoHerramienta {
    int codigo = -1;
    QString salida, errores;
};

inline ResultadoHerramienta corra(const QString& programa, const QStringList& argumentos) {
    QProcess p;
    p.start(programa, argumentos);
    if (!p.waitForStarted(-1))
        QTest::qFail(qPrintable("no se pudo ejecutar " + programa), __FILE__, __LINE__);
    p.waitForFinished(-1); // una que no termine la corta CTest
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
            QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

inline ResultadoHerramienta administre(const QStringList& argumentos) {
    return corra(QCoreApplication::applicationDirPath() + QStringLiteral("/quorvex-admin"),
                 argumentos);
}

/// Lo que escribe un programa que debe terminar bien.
inline QString salida_de(const QString& programa, const QStringList& argumentos) {
    const ResultadoHerramienta r = corra(programa, argumentos);
    if (r.codigo != 0)
        QTest::qFail(qPrintable(programa + ": " + r.errores), __FILE__, __LINE__);
    return r.salida;
}

/// Deja en `ruta` lo que hay comprimido en otro archivo.
inline void descomprima(const QString& comprimido, const QString& ruta) {
    QProcess p;
    p.setStandardOutputFile(ruta);
    p.start("gzip", {"-dc", comprimido});
    if (!p.waitForFinished(-1) || p.exitCode() != 0)
        qFatal("no se pudo descomprimir %s", qPrintable(comprimido));
}

/// Texto de un PDF, con las columnas en su sitio.
inline QString texto_de_pdf(const QString& ruta) {
    return salida_de(QStringLiteral("pdftotext"),
                     {QStringLiteral("-layout"), ruta, QStringLiteral("-")});
}
