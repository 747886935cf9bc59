#include "catalogues/tfnvotercero.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmter.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/dialogos.h"

Tfnvotercero::Tfnvotercero() : FormaTercero("Tfnvotercero", "Nuevo tercero") {
    CTerceros->AfterInsert = [this] { CTercerosAfterInsert(); };
    campo("TERC_NIT").OnChange = [this](Campo&) { CTercerosTERC_NITChange(); };
}

void Tfnvotercero::FormCreate() {
    FormaTercero::FormCreate();
    solo_cifras_ = !fdm().valor<Llave::LetrasEnNit>();
    if (solo_cifras_)
        campo("TERC_NIT").EditMask = "999999999999999;0; ";
    CTerceros->Params["NIT"] = QString();
    CTerceros->Open();
    CTerceros->Append();
    ENit->setFocus();
    const QString pedido = peticion<PideNuevoTercero>().tercero_seleccion;
    if (pedido.isEmpty())
        return;
    un_solo_nit_ = true;
    campo("TERC_NIT") = pedido;
    // El NIT ya está y el tipo propuesto: se empieza por lo que falta. Lo que se digite a ciegas no
    // cambia el tipo; Mayús+Tab lleva a él.
    if (!campo("TERC_NIT").vacio())
        ENombre->setFocus();
}

void Tfnvotercero::CTercerosAfterInsert() {
    for (const char* bandera : {"TERC_CLIE", "TERC_PROV", "TERC_EMPL", "TERC_CONDUCTOR",
                                "TERC_SIMPLIFICA", "TERC_EXENTO"})
        campo(bandera) = "N";
    campo("TERC_TIPOID") = "J";
    campo("TERC_ESTADO") = "S";
    const QString ciudad = fdm().valor<Llave::CiudadSugerida>();
    CCiudades->Locate("CIUD_COD", {ciudad});
    campo("PAIS_ID") = "169";
    campo("CIUD_COD") = ciudad;
}

void Tfnvotercero::CTercerosTERC_NITChange() {
    Campo& nit = campo("TERC_NIT");
    if (nit.vacio())
        return;
    if (fdmter().existe_nit(nit.texto())) {
        muestre_mensaje("El Nit ya está Registrado.");
        nit.limpie(); // el dígito queda con el del NIT anterior
    } else if (solo_cifras_) {
        campo("TERC_DV") = QString::number(Tfdmter::dv(nit.texto()));
    }
}

void Tfnvotercero::SBGrabarClick() {
    if (!complete_y_valide(true))
        return;
    if (CTerceros->State() == Estado::Insercion)
        CTerceros->Post();
    if (grabe_y_anuncie(*CTerceros, "Grabado tercero " + campo("TERC_NIT").texto()) != 0)
        return;
    // El tercero ya quedó: si falla uno de sus papeles, solo falta ese papel y se puede repetir.
    agregue_papeles();
    if (un_solo_nit_) {
        responda<PideNuevoTercero>(campo("TERC_NIT").texto());
        close();
        return;
    }
    CTerceros->Append();
    ENit->setFocus();
}
