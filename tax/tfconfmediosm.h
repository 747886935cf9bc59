#pragma once
// Configuración de un formato de medios magnéticos: sus conceptos y las cuentas de cada uno.
#include "catalogues/maestro_detalle.h"

class Tfconfmediosm : public MaestroDetalle {
    Q_OBJECT
public:
    Tfconfmediosm();
    void FormCreate() override;

private:
    struct Consultas {
        Sentencia *conceptos, *cuentas;
    };
    static Consultas cree_consultas();
    explicit Tfconfmediosm(Consultas consultas);
    void muestre_columnas(int formato);
    void CCambiositBeforePost();
    void CCambiositAfterInsert();
    void CmmcuentasAfterInsert();
    void CmmcuentasBeforePost();
    void SBGrabarClick();

    Sentencia* conceptos_;
    int formato_ = 0, siguiente_ = 0;
};
