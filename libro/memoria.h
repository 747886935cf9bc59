#pragma once
// Lo que a la base se le pregunta una sola vez.
#include <QHash>
#include <QString>

/// Lo recordado de esa llave; si no hay nada, se pregunta y se recuerda.
template <class T, class F>
const T& recordado(QHash<QString, T>& memoria, const QString& llave, F pregunte) {
    const auto i = memoria.constFind(llave);
    return i != memoria.constEnd() ? *i : *memoria.insert(llave, pregunte());
}
