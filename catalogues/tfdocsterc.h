#pragma once
// Documentos digitalizados de un tercero. El señalado se ve en el visor de PDF del sistema.
#include "datos/recordset/conjunto.h"
#include "sesion/visor_documento.h"
#include "toolkit/pantalla.h"

class Rejilla;

class Tfdocsterc : public Pantalla {
    Q_OBJECT
public:
    Tfdocsterc();
    void FormCreate() override;
    bool FormClose() override;

private:
    void CDocsAfterScroll();
    void PngSpeedButton1Click();
    void PngSpeedButton3Click();

    Proveedor *PDocs, *PBorrar;
    ConjuntoDatos *CDocs, *CBorrar;
    Rejilla* DBGridEh1;
    VisorDocumento visor_;
    QString nit_;
};
