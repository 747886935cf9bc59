#pragma once
// Registro de Terceros: lista, mantenimiento y selección por NIT.
//
// Contesta el NIT a la PideTercero con que la abrieron. Al abrir busca el texto que esta traiga:
// por NIT si empieza por cifra, si no por nombre.
#include "catalogues/lista_catalogo.h"

class Tfterceros : public ListaCatalogo {
    Q_OBJECT
public:
    Tfterceros();
    void FormCreate() override;

protected:
    void sbBuscarClick() override;
    void SBNuevoClick() override;
    void SBModificarClick() override;
    void SBBorrarClick() override;
    void SBSelecClick() override;

private:
    void SBMovimientoClick();
};
