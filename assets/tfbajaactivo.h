#pragma once
// "Baja de activo": saca de los dos libros los activos que su ficha tiene fuera de uso, que se ven
// antes de grabar.
#include "catalogues/forma_proceso.h"

class Rejilla;

class Tfbajaactivo : public FormaProceso {
    Q_OBJECT
public:
    Tfbajaactivo();
    void FormCreate() override;
    void FormActivate() override;

    Sentencia QBajas;
    Proveedor PBajas;
    ConjuntoDatos CBajas;
    Rejilla* DBGridEh1;

protected:
    void bajo_el_encabezado(Formulario& f) override;
};
