#pragma once
// Registro automático, nuevo (Tfnvoregiauto) o guardado (Tfmodregiauto): el comprobante que hace y
// los conceptos que lo forman.
#include "datos/recordset/conjunto.h"
#include "libro/lineas.h"
#include "toolkit/pantalla.h"

class EditorDato;
class ListaDato;
class Rejilla;

class FormaRegiauto : public Pantalla {
    Q_OBJECT
public:
    enum Modo { Nuevo, Modificar };
    explicit FormaRegiauto(Modo modo);

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    Sentencia TRegistro, TRegConceptos, QConceptos;
    Proveedor PRegistro, PTipodoc, PPrefijos, PConceptos, PBorrar;
    ConjuntoDatos CRegistro, CDetalle, CTipodoc, CPrefijos, CConceptos, CBorrar;
    Rejilla* DBGridEh1;

private:
    void defina_campos();
    void construya();
    void TICO_CODChange(Campo& tipo);
    void lea_prefijos(const QString& tipo);
    void SBConceptosClick();
    void reciba_concepto(const QString& concepto);
    void SBGrabarClick();

    const Modo modo_;
    ContadorLineas contador_;
    EditorDato *ECod, *ENombre;
};
