#pragma once
// Un borrador como lo deja un programa que muere.
#include "sesion/archivo_borrador.h"

#include <QDir>
#include <QSysInfo>
#include <QTest>

inline QStringList borradores(const QDir& carpeta) {
    return carpeta.entryList({"*.borrador"}, QDir::Files);
}

/// Guarda lo que hay y deja una copia con el candado de nadie; la pantalla sigue con el suyo.
inline QDir deje_huerfano(ArchivoBorrador& b) {
    const QDir carpeta(b.carpeta());
    b.guarde();
    if (borradores(carpeta).size() != 1)
        return carpeta;
    QFile::copy(carpeta.filePath(borradores(carpeta).first()),
                carpeta.filePath("huerfano.borrador"));
    QFile candado(carpeta.filePath("huerfano.borrador.candado"));
    if (candado.open(QIODevice::WriteOnly))
        candado.write("999999999\nquorvex\n" + QSysInfo::machineHostName().toUtf8() + "\n\n\n");
    return carpeta;
}
