#pragma once
// Agrega un documento PDF a un tercero. Se abre en modal desde la lista de documentos.
#include "catalogues/tfdocsterc.h"

class Tfnvodocterc : public NuevoDocumento {
    Q_OBJECT
public:
    Tfnvodocterc() : NuevoDocumento(documentos_de_tercero()) {}

protected:
    QString maestro() const override;
};
