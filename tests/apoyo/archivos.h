#pragma once
// Lo que una prueba deja en el disco o lee de él, y el texto con que algo se rehúsa.
#include <QFile>
#include <QString>
#include <exception>

/// Los octetos de un archivo; si no se puede abrir, detiene la prueba.
inline QByteArray contenido_de(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        qFatal("no se pudo leer %s", qPrintable(ruta));
    return f.readAll();
}
/// Escribe un archivo y da su ruta.
inline QString ponga_archivo(const QString& ruta, const QByteArray& contenido) {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly) || f.write(contenido) != contenido.size())
        qFatal("no se pudo escribir %s", qPrintable(ruta));
    return ruta;
}
/// La primera de las partes que el texto no trae, y el texto; vacío si las trae todas.
inline QString falta_en(const QString& texto, std::initializer_list<const char*> partes) {
    for (const char* parte : partes)
        if (!texto.contains(QString::fromUtf8(parte)))
            return QString::fromUtf8(parte) + QStringLiteral(" no está en ") + texto;
    return {};
}
/// El texto de la falla con que `haga` se interrumpe; "(entró)" si no se interrumpió.
template <class F> QString falla_de(F&& haga) {
    try {
        haga();
    } catch (const std::exception& e) {
        return QString::fromUtf8(e.what());
    }
    return QStringLiteral("(entró)");
}
