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
    /// Borrar un proyecto se lleva sus centros: no si el filtro de agencia esconde alguno.
    void revise_centros_ocultos();
    void SBGrabarClick();
    void SBSelecClick();

    Proveedor* PSubemp;
    ConjuntoDatos* CSubemp;
};
