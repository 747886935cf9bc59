#pragma once
// Agrega un documento PDF a un tercero. Se abre en modal desde la lista de documentos.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class EditorDato;
class QLineEdit;

class Tfnvodocterc : public Pantalla {
    Q_OBJECT
public:
    Tfnvodocterc();
    void FormCreate() override;
    bool FormClose() override;

private:
    void SBExaminarClick();
    void SBGrabarClick();

    Proveedor *PDocs, *PBorrar;
    ConjuntoDatos *CDocs, *CBorrar;
    EditorDato* ENombre;
    QLineEdit* EArchivo;
};
