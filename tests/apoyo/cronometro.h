#pragma once
// Tiempo de pared, solo para matar un proceso en momentos distintos: ninguna prueba espera con él.
#include <QElapsedTimer>

class Cronometro {
public:
    Cronometro() { reloj_.start(); }
    qint64 microsegundos() const { return reloj_.nsecsElapsed() / 1000; }

private:
    QElapsedTimer reloj_;
};
