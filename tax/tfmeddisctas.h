#pragma once
// Artículos de la información distrital y las cuentas de cada uno. Los de un año se copian a otro.
#include "catalogues/maestro_detalle.h"

class QSpinBox;

class Tfmeddisctas : public MaestroDetalle {
    Q_OBJECT
public:
    Tfmeddisctas();
    QSpinBox* EAnoNuevo; ///< a cuál se copian los del año señalado
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
    QWidget* cree_copia();
    void SBCopiarClick();
};
