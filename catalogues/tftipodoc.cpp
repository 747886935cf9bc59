#include "catalogues/tftipodoc.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/rejilla/rejilla.h"

Tftipodoc::Tftipodoc()
    : MaestroDetalle("Tftipodoc", "Registro de tipos de comprobante", "PTipodoc", fdm().TTipocomp,
                     0, "CTipodoc", "CPrefijos", fdm().TPrefconta) {
    campos_tipos_comprobante(*maestro_);
    maestro_->bandera("TICO_FORMATO").etiqueta("Formato");
    campos_prefijos(*detalle_);

    arme({"Tipos de comprobante",
          {{"TICO_COD", "Código", 7},
           {"TICO_NOM", "Nombre", 30},
           {"TICO_FORMATO", "Formato", 8, Casilla}},
          5},
         {"Prefijos",
          {{"PRCO_PREF", "Prefijo", 8},
           {"PREF_NUMERO", "Número", 9},
           {"PRCO_AUTO", "Automático", 11, Casilla},
           {"PRCO_ACTIVO", "Activo", 7, Casilla}},
          4});
    barra_->principal(barra_->boton("SpeedButton2", "F2:Modificar", "document-save",
                                    QKeySequence(Qt::Key_F2), [this] { SpeedButton2Click(); }));
    SpeedButton3 = barra_->boton("SpeedButton3", "F8:Formato", "document-properties",
                                 QKeySequence(Qt::Key_F8), [this] { SpeedButton3Click(); });
    SpeedButton3->setEnabled(false);
    barra_->separe();
    barra_->boton("SpeedButton1", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                  [this] { cancele_y_cierre(); });
    tamano(900, 500);

    maestro_->AfterInsert = [this] { maestro_->FieldByName("TICO_FORMATO") = "N"; };
    detalle_->AfterInsert = [this] {
        detalle_->FieldByName("PRCO_AUTO") = "N";
        detalle_->FieldByName("PRCO_ACTIVO") = "S";
    };
    maestro_->BeforePost = [this] {
        if (maestro_->FieldByName("TICO_COD").vacio())
            maestro_->Cancel();
    };
    detalle_->BeforePost = [this] {
        if (detalle_->FieldByName("PRCO_PREF").vacio())
            detalle_->Cancel();
    };
    detalle_->AfterScroll = [this] { CPrefijosAfterScroll(); };
    maestro_->AfterScroll = [this] { CTipodocAfterScroll(); };
    // También desde que se marca, sin tener que pasar antes por otra fila.
    maestro_->FieldByName("TICO_FORMATO").OnChange = [this](Campo&) { CTipodocAfterScroll(); };
    // La base, y no la pantalla, decide si un tipo puede irse con prefijos: la cascada solo deja
    // quitar la fila de la vista y no borra prefijos al grabar.
    maestro_->BeforeDelete = [this] { proveedor_->Options |= poCascadeDeletes; };
    maestro_->AfterDelete = [this] {
        proveedor_->Options &= ~poCascadeDeletes;
        CTipodocAfterScroll();
    };
    // Solo los prefijos que de verdad cambian llevan al usuario del cambio.
    proveedor_->BeforeUpdateRecord = [this](ConjuntoDatos& conjunto, Fila& fila,
                                            ClaseCambio clase) {
        if (&conjunto == detalle_ && clase != ClaseCambio::Borrado)
            (*fila.valores)[detalle_->FieldByName("PRCO_USUARIO").indice()] = fdm().usuario;
    };
}

void Tftipodoc::FormCreate() {
    fdm().ConfigurarProviders(this);
    maestro_->Open();
    detalle_->FieldByName("PREF_NUMERO").EditMask = "99999999;1; ";
    if (!fdm().exija_acceso(60)) {
        pida_cierre_al_crear();
        return;
    }
    DBGridEh1->setFocus();
}

void Tftipodoc::CTipodocAfterScroll() {
    SpeedButton3->setEnabled(maestro_->FieldByName("TICO_FORMATO").texto() == "S");
}

void Tftipodoc::CPrefijosAfterScroll() {
    if (maestro_->Active() && !detalle_->editando() && !detalle_->FieldByName("PRCO_PREF").vacio())
        detalle_->Edit();
}

void Tftipodoc::SpeedButton2Click() {
    proveedor_->Options &= ~poCascadeDeletes; // un borrado que no terminó la deja puesta
    if (grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle()) == 0)
        close();
}

void Tftipodoc::SpeedButton3Click() {
    const bool por_tipo = fdm().valor<Llave::FormatoPorTipo>();
    pantallas().abrir("Tfedtformato",
                      AbreFormato{por_tipo ? maestro_->FieldByName("TICO_COD").texto()
                                           : detalle_->FieldByName("PRCO_PREF").texto()});
}
