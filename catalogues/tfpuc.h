#pragma once
// El plan único de cuentas publicado, como lista: de aquí se copian cuentas al plan de la compañía.
#include "datos/recordset/conjunto.h"
#include "toolkit/listabusqueda.h"
#include "toolkit/pantalla.h"

class Rejilla;

/// Una cuenta del plan publicado: sus datos por nombre de columna.
struct PidePuc {
    using Respuesta = QMap<QString, Valor>;
};

class Tfpuc : public Pantalla {
    Q_OBJECT
public:
    Tfpuc();

    void FormCreate() override;
    void FormActivate() override;
    void sbBuscarClick();
    void SpeedButton1Click();

    Proveedor* PPuc;
    ConjuntoDatos* CPuc;

private:
    /// Muestra el botón de escoger: quien la abrió espera una cuenta.
    void ofrezca_seleccion();
    void SBSelecClick();
    QString base_;
    FilaBusqueda* busqueda_;
    Rejilla* DBGridEh1;
    QPushButton* SBSelec;
};
