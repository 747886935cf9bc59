#pragma once
// "Formatos especiales": los informes que el usuario define, para crearlos, copiarlos e
// imprimirlos.
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class QGroupBox;
class QLineEdit;
class QSpinBox;
class Rejilla;

class Tfformatoconta : public Pantalla {
    Q_OBJECT
public:
    Tfformatoconta();

    Sentencia QFormatos{this, "QFormatos", fdm().Quorvex, "select * from formatos_contables"};
    Proveedor PFormatos{this, "PFormatos", &QFormatos};
    ConjuntoDatos CFormatos{this, "CFormatos", &PFormatos};

    Rejilla* DBGridEh1;
    QGroupBox* PanelCopia;
    QSpinBox* ECodigo;
    QLineEdit* ENombre;

    void FormCreate() override;
    void FormActivate() override;

private:
    QGroupBox* cree_panel();
    void abra(const char* pantalla);
    void SBNuevoClick();
    void SBEditClick();
    void SBBorrarClick();
    void SpeedButton1Click(); ///< F2:Imprimir
    void SpeedButton2Click(); ///< F8:Copiar, muestra el panel
    void SpeedButton3Click(); ///< F8:Copiar, copia
    void SBSalirClick();
    int codigo() const { return int(CFormatos.FieldByName("FOCO_ID").entero()); }
};
