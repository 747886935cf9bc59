#pragma once
// Información exógena como texto separado por comas: el resultado de uno de los listados.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class QComboBox;
class QLineEdit;
class Rejilla;

class Tfmediosmag : public Pantalla {
    Q_OBJECT
public:
    Tfmediosmag();

    ConjuntoDatos *CListados, *CMedmagdata;
    QComboBox* LFormato;
    QLineEdit *FecIni, *FecFin, *Ubicacion;
    Rejilla* DBGridEh1;

    void FormCreate() override;
    bool FormClose() override;
    /// Falso si una fecha no lo es; ya se dijo.
    bool abre_query();

private:
    void arme();
    bool exija_nombre();
    void SpeedButton3Click();
    void SpeedButton2Click();
};
