#pragma once
// El texto que concuerda con una cantidad: "1 fila", "3 filas".
#include <QString>

/// `%1` es la cantidad; los demás quedan para quien siga.
inline QString concuerde(qint64 cuantos, const char* uno, const char* varios) {
    return QString::fromUtf8(cuantos == 1 ? uno : varios)
        .replace(QLatin1String("%1"), QString::number(cuantos));
}
