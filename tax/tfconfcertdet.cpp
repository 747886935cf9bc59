#include "tax/tfconfcertdet.h"

#include "tax/cuentas_configuradas.h"
#include "toolkit/rejilla/rejilla.h"

Tfconfcertdet::Tfconfcertdet()
    : RejillaConfiguracion("Tfconfcertdet", "Categorías del detalle de certificados",
                           "SELECT * FROM CUENTAS_REPORTE_CERTDET order by CRCD_CUENTA") {
    Campo& base = CCambiosit->texto("CRCD_CUENTA", 20)
                      .banderas(pfInUpdate | pfInWhere | pfInKey)
                      .etiqueta("Cuenta");
    atienda_cuenta(*this, base, [](const QString& cuenta) {
        return existe_cuenta(cuenta, "Cuenta no existe o inactiva.");
    });
    CCambiosit->texto("CRCD_NOMBRE", 60).etiqueta("Categoría");
    QVector<DefinicionColumna> columnas{{"CRCD_CUENTA", "Cuenta", 12},
                                        {"CRCD_NOMBRE", "Categoría", 34}};
    for (const auto& [campo, rotulo] : {std::pair{"CRCD_IVA", "Cta.IVA"},
                                        {"CRCD_RTFTE", "Cta.Rtfte"},
                                        {"CRCD_RTIVA", "Cta.RtIva"},
                                        {"CRCD_RTICA", "Cta.RtIca"}}) {
        atienda_cuenta(*this, CCambiosit->texto(campo, 20).etiqueta(rotulo),
                       [](const QString& cuenta) {
                           return existe_cuenta(cuenta, "No existe la Cuenta indicada.");
                       });
        columnas << DefinicionColumna{campo, rotulo, 12};
    }
    CCambiosit->BeforePost = [this] {
        if (CCambiosit->FieldByName("CRCD_NOMBRE").vacio() ||
            CCambiosit->FieldByName("CRCD_CUENTA").vacio())
            rehuse("Debe indicar el nombre de la categoría y la cuenta base asociada.");
    };
    arme(columnas, "Confcertdet");
    tamano(860, 420);
}
