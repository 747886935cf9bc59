#pragma once
// "Grupos de activos": cada grupo con su método y sus subgrupos.
#include "catalogues/maestro_detalle.h"

class Tfgruposact : public MaestroDetalle {
    Q_OBJECT
public:
    Tfgruposact();
    void FormCreate() override;

private:
    void SBSelecClick();
};

/// Grupos con sus subgrupos anidados, y los campos de cada conjunto.
Sentencia& sentencia_de_grupos();
Sentencia& sentencia_de_subgrupos();
void campos_grupos(ConjuntoDatos& grupos);
void campos_subgrupos(ConjuntoDatos& subgrupos);
