#pragma once
// Tercero nuevo. Queda abierta para otro, salvo que la hayan llamado para un NIT.
#include "catalogues/forma_tercero.h"

class Tfnvotercero : public FormaTercero {
    Q_OBJECT
public:
    Tfnvotercero();
    void FormCreate() override;

protected:
    void SBGrabarClick() override;

private:
    void CTercerosAfterInsert();
    void CTercerosTERC_NITChange();

    bool solo_cifras_ = false; ///< el NIT no admite letras y lleva dígito de verificación
    bool un_solo_nit_ = false;
};
