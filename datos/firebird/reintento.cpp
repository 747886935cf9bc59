#include "datos/firebird/reintento.h"

#include <QRandomGenerator>
#include <QThread>

bool Reintento::otra_vez(const ErrorBase& falla) {
    if (!falla.conflicto() || quedan_-- <= 0 || reloj_.elapsed() > kTopeMs)
        return false;
    // Al azar, para que dos que chocaron no vuelvan a encontrarse.
    QThread::msleep(10 + QRandomGenerator::global()->bounded(40));
    return true;
}
