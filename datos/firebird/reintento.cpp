#include "datos/firebird/reintento.h"

#include <QRandomGenerator>
#include <QThread>

Reintento::Reintento(Paciencia paciencia)
    : paciencia_(paciencia), quedan_(paciencia == Paciencia::Ninguna   ? 0
                                     : paciencia == Paciencia::Proceso ? kVecesProceso
                                                                       : kVeces) {
    reloj_.start();
}

bool Reintento::otra_vez(const ErrorBase& falla) {
    const bool tarde = paciencia_ != Paciencia::Proceso && reloj_.elapsed() > kTopeMs;
    if (!falla.conflicto() || quedan_-- <= 0 || tarde)
        return false;
    // Al azar, para que dos que chocaron no vuelvan a encontrarse.
    QThread::msleep(10 + QRandomGenerator::global()->bounded(40));
    return true;
}
