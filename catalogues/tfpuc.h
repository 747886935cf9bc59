#pragma once
// El plan único de cuentas publicado, como lista: de aquí se copian cuentas al plan de la compañía.
#include "datos/recordset/conjunto.h"
#include "toolkit/listabusqueda.h"
#include "toolkit/pantalla.h"

class Rejilla;

class Tfpuc : public Pantalla {
    Q_OBJECT
public:
    Tfpuc();

    void FormCreate() override;
    void FormActivate() override;
    /// Muestra el botón de escoger: quien la abre espera una cuenta. La lee de CPuc al cerrar.
    void ofrezca_seleccion();
    void sbBuscarClick();
    void SpeedButton1Click();

    Proveedor* PPuc;
    ConjuntoDatos* CPuc;

private:
    QString base_;
    FilaBusqueda* busqueda_;
    Rejilla* DBGridEh1;
    QPushButton* SBSelec;
};
