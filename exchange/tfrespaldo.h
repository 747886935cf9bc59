#pragma once
// "Respaldo de la compañía": una copia en línea, probada restaurándola aparte. De administradores.
#include "sesion/respaldos.h"
#include "toolkit/pantalla.h"

class QLabel;
class QLineEdit;
class QSpinBox;

class Tfrespaldo : public Pantalla {
    Q_OBJECT
public:
    Tfrespaldo();

    QLineEdit *Carpeta, *Usuario, *Clave;
    QSpinBox* Copias;
    QLabel *LUltimo, *Aviso;

    void FormCreate() override;

private:
    void ExaminarClick();
    void SpeedButton1Click();
    ParametrosConexion base() const;
};
