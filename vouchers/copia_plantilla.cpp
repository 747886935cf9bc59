#include "vouchers/copia_plantilla.h"

#include "datos/recordset/conjunto.h"

void copie_lineas(ConjuntoDatos& origen, ConjuntoDatos& destino, std::span<const ParCampos> pares,
                  const std::function<void()>& complete) {
    for (origen.First(); !origen.Eof(); origen.Next()) {
        destino.Append();
        for (const auto& [hacia, desde] : pares)
            destino.FieldByName(hacia) = origen.FieldByName(desde).valor();
        complete();
        destino.Post();
    }
}

void copie_lineas_plantilla(ConjuntoDatos& origen, ConjuntoDatos& destino, const Valor& id,
                            const QString& concepto) {
    static constexpr ParCampos kPares[] = {{"CUEN_COD", "CUEN_COD"},
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
    copie_lineas(origen, destino, kPares, [&] {
        destino.FieldByName("ENCO_CONSEC") = id;
        destino.FieldByName("CODE_ITEM") = ++item;
        if (!concepto.isEmpty())
            destino.FieldByName("CODE_CONCEPTO") = concepto;
    });
}
