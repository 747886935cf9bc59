#pragma once
// Notas de los estados financieros, que se imprimen a continuación del estado.
#include "sesion/tfdm.h"

class MotorInformes;

class NotasEstado {
public:
    explicit NotasEstado(QObject* dueno);
    ConjuntoDatos CNotasest;
    /// Agrega al documento las notas del período y las de todo el año. Sin notas no agrega nada.
    /// `cuando`: el período como se lee bajo su título.
    void anexe(MotorInformes& motor, int ano, int periodo, const QString& cuando);

private:
    Sentencia QNotasest;
    Proveedor PNotasest;
};
