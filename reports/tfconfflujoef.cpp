#include "reports/tfconfflujoef.h"

#include "sesion/peticiones.h"
#include "toolkit/rejilla/rejilla.h"

Tfconfflujoef::Tfconfflujoef()
    : ConfiguracionEstado({"Tfconfflujoef",
                           "Configuración del flujo de efectivo",
                           "FLUJO_EFECTIVO",
                           "ConfEfec",
                           "FLEF_",
                           {"1 Operación", "2 Inversión", "3 Financiación"}}) {
    conjunto_->bandera("FLEF_NIIF").etiqueta("Niif");
    arme({{"FLEF_ID", "Item", 6},
          {"FLEF_CUENTA", "Cuenta a incluir", 20},
          {"FLEF_SECCION", "Sección", 18},
          {"FLEF_DB", "Db/Cr", 9},
          {"FLEF_NIIF", "Niif", 5, SoloLectura | Casilla}},
         datos_.archivo);
    tamano(580, 520);
}

QString Tfconfflujoef::niif() const {
    return peticion<AbreInforme>().niif ? "S" : "N";
}

Libro Tfconfflujoef::libro() const {
    return peticion<AbreInforme>().niif ? Libro::Niif : Libro::Decreto2649;
}

void Tfconfflujoef::FormCreate() {
    conjunto_->Filter("FLEF_NIIF = " + QuotedStr(niif()));
    conjunto_->Filtered(true);
    ConfiguracionEstado::FormCreate();
    DBGridEh1->setToolTip("Db/Cr no cambia el signo: lo que entra de efectivo va positivo y lo que "
                          "sale, negativo. Una cuenta en dos renglones, uno Débito y otro Crédito, "
                          "sale separada en lo que se pagó y lo que se recibió.");
}

void Tfconfflujoef::fila_nueva() {
    conjunto_->FieldByName("FLEF_NIIF") = niif();
}
