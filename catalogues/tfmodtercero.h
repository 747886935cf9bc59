#pragma once
// Modificación de un tercero. Quitarle un papel no borra su fila de cliente o proveedor.
#include "catalogues/forma_tercero.h"

class QLabel;

class Tfmodtercero : public FormaTercero {
    Q_OBJECT
public:
    Tfmodtercero();
    void FormCreate() override;

protected:
    void SBGrabarClick() override;

private:
    Proveedor* PAudit;
    ConjuntoDatos* CAudit;
    QLabel* LabAudit;
};
