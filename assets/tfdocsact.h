#pragma once
// Documentos digitalizados de un activo fijo.
#include "catalogues/documentos.h"

const DatosDocumentos& documentos_de_activo();

class Tfdocsact : public PantallaDocumentos {
    Q_OBJECT
public:
    Tfdocsact() : PantallaDocumentos(documentos_de_activo()) {}

protected:
    QString maestro() const override;
    bool abra_nuevo(const QString& activo) override;
    QString nombre_archivo() const override;
};
