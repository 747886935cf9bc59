#include "reports/tfinformes.h"

Tfinformes::Tfinformes() : MenuBotones("Tfinformes", "Informes contables") {
    // Cada menú pide el acceso de sus opciones.
    static const struct {
        const char *nombre, *texto, *menu, *icono;
    } kOpciones[] = {
        {"SBCatalogos", "Catálogos", "Tfcatalogos", "x-office-address-book"},
        {"SBAuxiliares", "Auxiliares", "Tfauxiliares", "x-office-document"},
        {"SBFinancieros", "Estados financieros", "Tfmnufinancieros", "x-office-spreadsheet"},
        {"SBInfNiif", "Estados NIIF", "Tfmnuinfniif", "x-office-spreadsheet"},
        {"SBConsolidados", "Consolidados", "Tfmnuconsol", "x-office-spreadsheet"},
        {"SBAnexos", "Anexos", "Tfmnuanexos", "mail-attachment"},
        {"SBOficiales", "Libros oficiales", "Tfoficiales", "x-office-document-template"},
        {"SBFormatos", "Formatos especiales", "Tfformatoconta", "document-properties"}};
    for (const auto& o : kOpciones)
        opcion(o.nombre, o.texto, o.icono, [&o] { pantallas().abrir(o.menu); });
}
