#include "tax/tftaxcuentas.h"

#include "datos/recordset/consecutivo.h"
#include "libro/catalogos.h"
#include "sesion/tfdm.h"
#include "tax/cuentas_configuradas.h"
#include "toolkit/rejilla/rejilla.h"

Tftaxcuentas::Tftaxcuentas() : RejillaConfiguracion("Tftaxcuentas", "Cuentas del renglón", {}) {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = *CCambiosit;
    for (const char* llave : {"TAXO_ID", "TAXE_ID", "TAXD_ID"})
        c.entero(llave).banderas(kLlave);
    c.entero("TAXC_ITEM").banderas(kLlave).etiqueta("Item");
    c.CampoConsecutivo = "TAXC_ITEM"; // dos usuarios pueden configurar a la vez
    Campo& cuenta = c.texto("CUEN_COD", 20).requerido().etiqueta("Cuenta");
    c.entero("TAXC_TIPO").etiqueta("Mov").defecto("1");
    c.calculado("NomCuenta", ClaseCampo::Texto, 60).etiqueta("Nombre");
    c.OnCalcFields = [&c] {
        c.FieldByName("NomCuenta") =
            nombre_en_el_plan(fdm().Quorvex, Libro::Niif, c.FieldByName("CUEN_COD").texto());
    };
    atienda_cuenta(
        *this, cuenta,
        [](const QString& escrita) {
            return existe_cuenta(escrita, "No existe la Cuenta indicada.", Libro::Niif);
        },
        Libro::Niif);
    c.AfterInsert = [this] { CTaxcuentasAfterInsert(); };
    arme({{"TAXC_ITEM", "Item", 6, SoloLectura},
          {"CUEN_COD", "Cuenta", 14},
          {"NomCuenta", "Nombre", 40, SoloLectura},
          {"TAXC_TIPO", "Mov", 26}},
         "TaxCuentas");
    DBGridEh1->lista("TAXC_TIPO",
                     {"Saldo", "Movimiento del año", "Débitos del año", "Créditos del año",
                      "Saldo anterior al año", "Saldo, al crédito", "Movimiento, al crédito",
                      "Saldo anterior, al crédito"},
                     {"1", "2", "3", "4", "5", "-1", "-2", "-5"});
    tamano(760, 420);
}

void Tftaxcuentas::FormCreate() {
    renglon_ = peticion<AbreRenglonTaxonomia>();
    setWindowTitle("Cuentas de " + renglon_.nombre);
    CCambiosit->proveedor->sentencia->SQL =
        QStringLiteral("SELECT * FROM TAXONOMIA_CUENTAS where TAXO_ID = %1 and TAXE_ID = %2 and "
                       "TAXD_ID = %3 order by TAXC_ITEM")
            .arg(QString::number(renglon_.taxonomia))
            .arg(QString::number(renglon_.seccion))
            .arg(QString::number(renglon_.renglon));
    RejillaConfiguracion::FormCreate();
}

void Tftaxcuentas::CTaxcuentasAfterInsert() {
    ConjuntoDatos& c = *CCambiosit;
    c.FieldByName("TAXO_ID") = renglon_.taxonomia;
    c.FieldByName("TAXE_ID") = renglon_.seccion;
    c.FieldByName("TAXD_ID") = renglon_.renglon;
    c.FieldByName("TAXC_ITEM") = mayor_de(c, "TAXC_ITEM") + 1;
}
