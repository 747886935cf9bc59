#pragma once
// "Mover Formato": corre o cambia de tamaño los elementos de un formato de impresión.
#include "toolkit/pantalla.h"

class QButtonGroup;
class QLineEdit;

class TFmoverforma : public Pantalla {
    Q_OBJECT
public:
    TFmoverforma();

    QLineEdit *Pos, *Desde, *Hasta;
    QButtonGroup* acciones; ///< el id de cada botón es la letra de su acción

    void FormCreate() override;

private:
    void accion_cambiada();
    void SpeedButton1Click();
};
