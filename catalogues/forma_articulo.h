#pragma once
// Formulario de un artículo: lo que comparten crear uno nuevo y modificarlo. El inventario es de
// otro módulo; aquí solo se lleva la ficha que la contabilidad necesita.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class EditorDato;

class FormaArticulo : public Pantalla {
    Q_OBJECT
public:
    bool FormClose() override;

protected:
    FormaArticulo(const QString& clase, const QString& titulo);
    virtual void SBGrabarClick() = 0;

    Proveedor* PArticulo;
    ConjuntoDatos* CArticulo;
    EditorDato *ECodigo, *EDescripcion;

private:
    void defina_campos();
    void arme();
    void SBFotoClick();
    class ImagenDato* foto_;
};
