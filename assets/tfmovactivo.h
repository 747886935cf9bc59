#pragma once
// "Movimiento por activo": los comprobantes que lo nombran y los de sus procesos.
#include "catalogues/lista_proceso.h"

class QLineEdit;

class Tfmovactivo : public ListaProceso {
    Q_OBJECT
public:
    Tfmovactivo();
    void FormCreate() override;

protected:
    void arme_botones() override;
    QString consulta() const override;
    void SBModificarClick() override;
    void SBBorrarClick() override;

private:
    QString activo() const;
};
