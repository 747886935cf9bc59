#pragma once
// Artículos de la información distrital y las cuentas de cada uno.
#include "catalogues/maestro_detalle.h"

class Tfmeddisctas : public MaestroDetalle {
    Q_OBJECT
public:
    Tfmeddisctas();
    void FormCreate() override;

private:
    struct Consultas {
        Sentencia *articulos, *cuentas;
    };
    static Consultas cree_consultas();
    explicit Tfmeddisctas(Consultas consultas);
    void defina_campos();
    void CMeddistBeforePost();
    void CmmcuentasAfterInsert();
    void CmmcuentasBeforePost();
    void SBGrabarClick();
};
