#pragma once
// Agrega un documento PDF a un activo fijo. Se abre en modal desde la lista de documentos.
#include "assets/tfdocsact.h"

class Tfnvodocact : public NuevoDocumento {
    Q_OBJECT
public:
    Tfnvodocact() : NuevoDocumento(documentos_de_activo()) {}

protected:
    QString maestro() const override;
};
