#pragma once
// Cuentas NIIF de un renglón de una taxonomía, y qué se toma de cada una.
#include "tax/rejilla_configuracion.h"
#include "tax/taxonomia.h"

class Tftaxcuentas : public RejillaConfiguracion {
    Q_OBJECT
public:
    Tftaxcuentas();
    void FormCreate() override;

private:
    void CTaxcuentasAfterInsert();

    AbreRenglonTaxonomia renglon_;
};
