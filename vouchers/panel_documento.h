#pragma once
// "Documento cartera": el documento que abre una línea de clase C y, en un comprobante, el que
// paga.
#include "datos/recordset/conjunto.h"
#include "vouchers/panel_flotante.h"

class FechaDato;
class ListaDato;

class PanelDocumento : public PanelFlotante {
    Q_OBJECT
public:
    /// Dónde guarda la tabla cada dato; sin `aplica` el panel no pregunta a qué se aplica.
    struct Campos {
        const char *numero, *tipo;
        const char *aplica = nullptr, *tipo_aplica = nullptr;
    };
    PanelDocumento(QWidget* pantalla, ConjuntoDatos& lineas, ConjuntoDatos& tipos,
                   const Campos& campos);
    /// Tipos de documento de cartera, para `tipos`.
    static void defina_tipos(ConjuntoDatos& tipos);

    ListaDato* Etidocart;
    FechaDato* DateTimePicker1;

private:
    void proponga_vencimiento();
    void DateTimePicker1Change();
    ConjuntoDatos& lineas_;
};
