#pragma once
// "Documento cartera": el documento que abre una línea de clase C y, en un comprobante, el que
// paga.
#include "datos/recordset/conjunto.h"
#include "libro/documentos_abiertos.h"
#include "toolkit/indice_codigos.h"
#include "vouchers/panel_flotante.h"

class EditorSugerido;
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
    /// "Aplica a": ofrece los documentos abiertos del tercero de la línea, con lo que se debe de
    /// cada uno; el que se toma trae su tipo y su vencimiento. Nulo si el panel no lo pregunta.
    EditorSugerido* EAplica = nullptr;

private:
    Falta lo_que_falta(const Campos& campos) const;
    EditorSugerido* arme_aplica(const Campos& campos);
    QVector<Sugerencia> abiertos(const QString& tecleado) const;
    void lea_abiertos();
    void aplique(const Sugerencia& escogida, const char* tipo_aplica);
    void proponga_vencimiento();
    void DateTimePicker1Change();
    ConjuntoDatos& lineas_;
    std::vector<std::pair<QString, Valor>>
        antes_;                          ///< lo que la línea tenía al mostrarse, por campo
    QVector<DocumentoAbierto> abiertos_; ///< los del tercero, al entrar al panel
};
