#pragma once
// Documentos digitalizados de un tercero.
#include "catalogues/documentos.h"

const DatosDocumentos& documentos_de_tercero();

class Tfdocsterc : public PantallaDocumentos {
    Q_OBJECT
public:
    Tfdocsterc() : PantallaDocumentos(documentos_de_tercero()) {}

protected:
    QString maestro() const override;
    QString modulo() const override;
    bool abra_nuevo(const QString& nit) override;
    QString nombre_archivo() const override;
};
