#pragma once
// "Informes especiales": imprime un informe que el usuario definió. Su código llega en la
// AbreFormatoEspecial.
#include "reports/informe_definible.h"
#include "toolkit/pantalla.h"

class QDateEdit;
class QLabel;
class QLineEdit;

class Tfimpinforme : public Pantalla {
    Q_OBJECT
public:
    Tfimpinforme();

    DefinicionInforme definicion{this};

    QLabel* LNombre;
    QLineEdit *ETit, *ESubt;
    QDateEdit* Fecha;

    void FormCreate() override;
    bool FormClose() override;
    void imprimirClick();

private:
    void RvSystem1Print(informes::Hojas& hojas);
};
