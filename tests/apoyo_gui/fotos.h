#pragma once
// Fotos de las pantallas de una prueba, para mirarlas: solo con la variable QUORVEX_FOTOS, que dice
// la carpeta.
#include <QCoreApplication>
#include <QDir>
#include <QWidget>

inline void tome_foto(QWidget* ventana, const QString& nombre) {
    const QString carpeta = qEnvironmentVariable("QUORVEX_FOTOS");
    if (carpeta.isEmpty() || !QDir().mkpath(carpeta))
        return;
    QCoreApplication::processEvents();
    ventana->grab().save(carpeta + '/' + nombre + ".png");
}
