#pragma once
// Letrero en el centro de una pantalla mientras trabaja y no atiende.
#include <QLabel>

class LetreroEspera : public QLabel {
    Q_OBJECT
public:
    LetreroEspera(const char* nombre, const QString& texto, QWidget* pantalla);

    /// Lo pone a la vista y lo pinta ya: lo que sigue no deja pintar.
    void muestre();
    void diga(const QString& texto); ///< lo mismo, con otro texto
};
