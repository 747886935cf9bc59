#pragma once
// El azar de una prueba: repetible, con su semilla siempre a la vista. QUORVEX_SEMILLA la cambia,
// para buscar con otras.
#include <QRandomGenerator>
#include <QtGlobal>

inline QRandomGenerator azar_de_prueba(quint32 semilla) {
    if (const int otra = qEnvironmentVariableIntValue("QUORVEX_SEMILLA"))
        semilla = quint32(otra);
    qInfo("semilla %u", semilla);
    return QRandomGenerator(semilla);
}
