#pragma once
// "Importación de datos contables", primer paso: qué clase de datos trae el archivo.
#include "toolkit/pantalla.h"

class QButtonGroup;

class Tfimportarinv1 : public Pantalla {
    Q_OBJECT
public:
    Tfimportarinv1();

    QButtonGroup* Importar; ///< su posición más cuatro es IMIN_TIPO

    void FormCreate() override;

private:
    void SpeedButton1Click();
};
