#pragma once
// Documentos de los módulos hermanos en la compañía de demostración, sin contabilizar.
//
// Tres meses desde enero del año siguiente al del libro: por lo menos uno de cada tipo que sale en
// la lista, con interfaces para todos. Algunos fallan a propósito (lo dice su concepto), los del
// prefijo 0002 piden confirmación y los del POS son de contado.
#include "herramientas/demo_catalogos.h"

struct DocumentosDemo {
    int documentos = 0;
    int defectuosos = 0; ///< los que no deben contabilizarse limpios
};

DocumentosDemo siembre_documentos(Conexion& compania, const CatalogosDemo& catalogos,
                                  quint64 semilla, int ano);
