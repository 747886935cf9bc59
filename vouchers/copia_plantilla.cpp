#include "vouchers/copia_plantilla.h"

#include "datos/recordset/conjunto.h"

void copie_lineas_plantilla(ConjuntoDatos& origen, ConjuntoDatos& destino, const Valor& id,
                            const QString& concepto) {
    static const char* const pares[][2] = {{"CUEN_COD", "CUEN_COD"},
                                           {"TERC_NIT", "TERC_NIT"},
                                           {"PROY_COD", "PROY_COD"},
                                           {"CENT_COD", "CENT_COD"},
                                           {"CODE_CONCEPTO", "PLDE_CONCEPTO"},
                                           {"CODE_REFER", "PLDE_REFER"},
                                           {"CODE_DEBITO", "PLDE_DEBITOS"},
                                           {"CODE_CREDITO", "PLDE_CREDITOS"},
                                           {"CODE_BASE", "PLDE_BASE"},
                                           {"CODE_PORC", "PLDE_PORC"},
                                           {"ARTI_COD", "ARTI_COD"}};
    int item = 0;
    for (origen.First(); !origen.Eof(); origen.Next()) {
        destino.Append();
        destino.FieldByName("ENCO_CONSEC") = id;
        destino.FieldByName("CODE_ITEM") = ++item;
        for (const auto& [hacia, desde] : pares) {
            const bool es_concepto = QLatin1String(hacia) == QLatin1String("CODE_CONCEPTO");
            destino.FieldByName(hacia) = es_concepto && !concepto.isEmpty()
                                             ? Valor(concepto)
                                             : origen.FieldByName(desde).valor();
        }
        destino.Post();
    }
}
