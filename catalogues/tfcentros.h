#pragma once
// Registro de centros de costo: proyectos y, dentro de cada uno, sus centros. También es selector.
#include "catalogues/maestro_detalle.h"

class Tfcentros : public MaestroDetalle {
    Q_OBJECT
public:
    Tfcentros();
    void FormCreate() override;
    bool FormClose() override;

private:
    void liste_agencias();
    void SBGrabarClick();
    void SBSelecClick();

    Proveedor* PSubemp;
    ConjuntoDatos* CSubemp;
};
