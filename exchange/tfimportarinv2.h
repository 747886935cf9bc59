#pragma once
// "Importación de datos contables 2/3": qué archivo y cómo separa sus columnas.
#include "exchange/asistente_importacion.h"
#include "toolkit/pantalla.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLineEdit;

class Tfimportarinv2 : public Pantalla {
    Q_OBJECT
public:
    Tfimportarinv2();

    QLineEdit* Ubicacion;
    QButtonGroup* Tipo; ///< 0 ancho fijo, 1 delimitado
    QComboBox *Separa, *Delimita;
    QCheckBox* ckniif;

    void FormCreate() override;

private:
    void ExplorarClick();
    void TipoChange();
    void SpeedButton1Click();
    AsistenteImportacion asistente_;
};
