#include "tax/tfconfcertrte.h"

#include "datos/recordset/consecutivo.h"
#include "sesion/tfdm.h"
#include "tax/cuentas_configuradas.h"
#include "toolkit/rejilla/rejilla.h"

Tfconfcertrte::Tfconfcertrte()
    : RejillaConfiguracion("Tfconfcertrte", "Configuración certificados retención",
                           "SELECT * FROM CONFIGURA_CERTRETE order by CFCR_CUENTA, CFCR_ITEM") {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    Campo& cuenta =
        CCambiosit->texto("CFCR_CUENTA", 20).banderas(kLlave).etiqueta("Cta. Retención");
    CCambiosit->entero("CFCR_ITEM").banderas(kLlave).etiqueta("Item");
    CCambiosit->CampoConsecutivo = "CFCR_ITEM"; // dos usuarios pueden configurar a la vez
    Campo& base = CCambiosit->texto("CFCR_CTABASE", 20).etiqueta("Cta. Base");
    CCambiosit->texto("CFCR_BASE", 1).etiqueta("Natur");
    atienda_cuenta(*this, cuenta, [this](const QString& c) { return CFCR_CUENTAChange(c); });
    atienda_cuenta(*this, base, [](const QString& c) {
        return existe_cuenta(c, "No existe la Cuenta indicada.");
    });
    CCambiosit->BeforePost = [this] { CCambiositBeforePost(); };
    CCambiosit->AfterInsert = [this] { CCambiosit->FieldByName("CFCR_BASE") = "N"; };
    arme({{"CFCR_CUENTA", "Cta. Retención", 16},
          {"CFCR_ITEM", "Item", 7, SoloLectura},
          {"CFCR_CTABASE", "Cta. Base", 16},
          {"CFCR_BASE", "Natur", 22}},
         "Confcertrte");
    DBGridEh1->lista("CFCR_BASE", {"Neto sin signo", "Débitos", "Créditos"}, {"N", "D", "C"});
    tamano(640, 420);
}

bool Tfconfcertrte::CFCR_CUENTAChange(const QString& cuenta) {
    if (!fdmcnt().valide_cuenta(cuenta))
        return false;
    // Dentro de la cuenta, después de lo grabado y de lo que aún no.
    const qint64 grabado =
        fdm()
            .Quorvex
            .consulte("select max(CFCR_ITEM) from CONFIGURA_CERTRETE where CFCR_CUENTA = " +
                      QuotedStr(cuenta))
            .entero();
    const auto suya = [&](const Fila& fila) {
        return CCambiosit->valor_de(fila, CCambiosit->FieldByName("CFCR_CUENTA")).texto() == cuenta;
    };
    CCambiosit->FieldByName("CFCR_ITEM") = mayor_de(*CCambiosit, "CFCR_ITEM", grabado, suya) + 1;
    return true;
}

void Tfconfcertrte::CCambiositBeforePost() {
    if (CCambiosit->FieldByName("CFCR_CUENTA").vacio() ||
        CCambiosit->FieldByName("CFCR_CTABASE").vacio())
        rehuse("Debe indicar la cuenta de retención y la cuenta base");
}
