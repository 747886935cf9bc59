#pragma once
// "Interfaz contable": pregunta con cuál de varias interfaces se contabiliza un documento.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class Rejilla;

class Tfpreginterfaz : public Pantalla {
    Q_OBJECT
public:
    Tfpreginterfaz();
    void FormCreate() override;

    ConjuntoDatos CInterfaces{this, "CInterfaces"}; ///< ID y NOMBRE, en memoria
    Rejilla* DBGridEh1;

private:
    void BitBtn1Click(); ///< acepta
};
