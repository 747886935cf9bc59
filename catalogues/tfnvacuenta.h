#pragma once
// Cuenta nueva. Queda abierta para crear una cuenta tras otra.
//
// Si la AbreCuenta que la abre trae un código, la cuenta empieza con él. La del libro NIIF se llama
// Tfnvacuentaniif.
#include "catalogues/fichacuenta.h"

class Tfnvacuenta : public FichaCuenta {
    Q_OBJECT
public:
    explicit Tfnvacuenta(Libro libro = Libro::Decreto2649);

    void FormCreate() override;
    bool FormClose() override;
    void CCuentasAfterInsert();
    void CCuentasCUEN_CODChange();
    void BitBtn1Click();
    void SBGrabarClick();
    void SBCancelarClick();

protected:
    void arme_botones() override;
    Estado estado_de_trabajo() const override { return Estado::Insercion; }
};
