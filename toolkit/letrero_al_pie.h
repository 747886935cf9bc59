#pragma once
// Lo que se dice bajo una rejilla mientras hay qué decir: callado no le quita alto.
#include <QLabel>

inline void diga_al_pie(QLabel* letrero, const QString& texto) {
    letrero->setText(texto);
    letrero->setHidden(texto.isEmpty());
}
