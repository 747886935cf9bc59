#include "exchange/tfestructura.h"

#include "exchange/pch.h"

Tfestructura::Tfestructura()
    : RejillaCatalogo("Tfestructura", "Estructura", fdmcnt().TEstructura, "Estructura",
                      "ESTR_NIVEL") {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    conjunto_->entero("ESTR_NIVEL").requerido().banderas(kLlave).etiqueta("Nivel");
    conjunto_->entero("ESTR_DIGITOS").requerido().etiqueta("Dígitos");
    arme({{"ESTR_NIVEL", "Nivel", 8}, {"ESTR_DIGITOS", "Dígitos del código", 18}}, "Estructura");
    proveedor_->BeforeUpdateRecord = [this](ConjuntoDatos&, Fila&, ClaseCambio) { exija_orden(); };
    tamano(350, 360);
}

void Tfestructura::exija_orden() {
    QMap<qint64, qint64> digitos;
    for (int i = 0; i < conjunto_->RecordCount(); ++i)
        digitos.insert(conjunto_->valor_en(i, conjunto_->FieldByName("ESTR_NIVEL")).entero(),
                       conjunto_->valor_en(i, conjunto_->FieldByName("ESTR_DIGITOS")).entero());
    qint64 antes = 0;
    for (const qint64 n : std::as_const(digitos)) {
        if (n <= antes || n > 20)
            throw ErrorDatos("Cada nivel de la estructura debe tener más dígitos que el anterior, "
                             "de 1 a 20.");
        antes = n;
    }
}
