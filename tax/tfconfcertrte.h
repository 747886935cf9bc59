#pragma once
// Qué cuenta da la base de cada cuenta de retención, para los certificados.
#include "tax/rejilla_configuracion.h"

class Tfconfcertrte : public RejillaConfiguracion {
    Q_OBJECT
public:
    Tfconfcertrte();

private:
    void CCambiositBeforePost();
    bool CFCR_CUENTAChange(const QString& cuenta);
};
