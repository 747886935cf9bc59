#pragma once
// Lista de las notas a los estados financieros: crear, modificar y borrar.
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class Rejilla;

class Tfbuscnotasestado : public Pantalla {
    Q_OBJECT
public:
    Tfbuscnotasestado();
    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    Sentencia QNotasestados{this, "QNotasestados", fdm().Quorvex,
                            "select * from  notas_estados_financieros"};
    Proveedor PNotasestados{this, "PNotasestados", &QNotasestados};
    ConjuntoDatos CNotasestados{this, "CNotasestados", &PNotasestados};
    Rejilla* DBGridEh1;

private:
    QString dato(const char* campo);
    void SBModificarClick();
    void SBBorrarClick();
};
