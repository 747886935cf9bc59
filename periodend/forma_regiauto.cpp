#include "periodend/forma_regiauto.h"

#include "catalogues/grabe_y_anuncie.h"
#include "toolkit/sin_grabar.h"

#include "periodend/pch.h"
#include "periodend/peticiones_cierre.h"

FormaRegiauto::FormaRegiauto(Modo modo)
    : Pantalla(modo == Nuevo ? "Tfnvoregiauto" : "Tfmodregiauto",
               modo == Nuevo ? "Nuevo Registro automático" : "Modificar Registro automático"),
      TRegistro(this, "TRegistro", fdm().Quorvex,
                "SELECT * FROM REGISTRO_AUTOMATICO WHERE REAU_COD = :REAU"),
      TRegConceptos(
          this, "TRegConceptos", fdm().Quorvex,
          "SELECT * FROM REGISTRO_CONCEPTOS WHERE REAU_COD = :REAU_COD ORDER BY RECO_ITEM"),
      QConceptos(this, "QConceptos", fdm().Quorvex, "SELECT CONC_COD, CONC_NOM FROM CONCEPTOS"),
      PRegistro(this, "PRegistro", &TRegistro, poCascadeDeletes | poCascadeUpdates),
      PTipodoc(this, "PTipodoc", &fdm().TTipocomp),
      PPrefijos(this, "PPrefijos", &fdm().QPrefijos, poAllowCommandText),
      PConceptos(this, "PConceptos", &QConceptos),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CRegistro(this, "CRegistro", &PRegistro), CDetalle(this, "CDetalle"),
      CTipodoc(this, "CTipodoc", &PTipodoc), CPrefijos(this, "CPrefijos", &PPrefijos),
      CConceptos(this, "CConceptos", &PConceptos), CBorrar(this, "CBorrar", &PBorrar), modo_(modo) {
    TRegConceptos.enlace_maestra(&TRegistro, {"REAU_COD"});
    CDetalle.anide_en(&CRegistro, &TRegConceptos);
    cuide_lo_digitado(*this, {&CRegistro, &CDetalle});
    defina_campos();
    construya();
}

void FormaRegiauto::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    campos_tipos_comprobante(CTipodoc);
    campos_prefijos(CPrefijos);
    CConceptos.texto("CONC_COD", 4);
    CConceptos.texto("CONC_NOM", 60);
    CRegistro.texto("REAU_COD", 4).requerido().banderas(kLlave).etiqueta("Código");
    CRegistro.texto("REAU_NOM", 60).requerido().etiqueta("Descripción");
    CRegistro.texto("TICO_COD", 3).requerido().etiqueta("Tipo");
    CRegistro.texto("PRCO_PREF", 4).requerido().etiqueta("Prefijo");
    CRegistro.FieldByName("TICO_COD").OnChange = [this](Campo& x) { TICO_CODChange(x); };
    CDetalle.CampoConsecutivo = "RECO_ITEM";
    CDetalle.texto("REAU_COD", 4).banderas(kLlave).etiqueta("Registro");
    CDetalle.entero("RECO_ITEM").banderas(kLlave).etiqueta("Ítem");
    CDetalle.texto("CONC_COD", 4).etiqueta("Concepto");
    CDetalle.busqueda("NomConc", 60, "CONC_COD", &CConceptos, "CONC_COD", "CONC_NOM");
    CDetalle.AfterInsert = [this] {
        CDetalle.FieldByName("RECO_ITEM") = contador_.siguiente();
        CDetalle.FieldByName("REAU_COD") = CRegistro.FieldByName("REAU_COD").texto();
    };
    CDetalle.BeforePost = [this] {
        if (CDetalle.FieldByName("CONC_COD").vacio())
            CDetalle.Cancel();
    };
}

void FormaRegiauto::construya() {
    ECod = new EditorDato(&CRegistro, "REAU_COD");
    ECod->setObjectName("ECod");
    ECod->ReadOnly(modo_ == Modificar);
    ECod->ancho(8); // cuatro letras anchas, enteras
    ENombre = new EditorDato(&CRegistro, "REAU_NOM");
    ENombre->setObjectName("ENombre");
    auto* tipo = new ListaDato(&CRegistro, "TICO_COD");
    tipo->setObjectName("LTipo");
    tipo->lista_de(&CTipodoc, "TICO_COD", "TICO_NOM");
    auto* prefijo = new ListaDato(&CRegistro, "PRCO_PREF");
    prefijo->setObjectName("LPref");
    prefijo->lista_de(&CPrefijos, "PRCO_PREF", "PRCO_PREF");
    DBGridEh1 = new Rejilla(this, &CDetalle);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Conceptos del registro");
    DBGridEh1->columnas(
        {{"RECO_ITEM", "Ítem", 6, SoloLectura}, {"NomConc", "Concepto", 50, SoloLectura}});
    DBGridEh1->texto_vacio = "El registro no tiene conceptos. F8 escoge el primero.";
    DBGridEh1->OnDblClick = [this](int) { SBConceptosClick(); };
    DBGridEh1->OnReturn = [this] { SBConceptosClick(); }; // nada se digita en ella: se escoge
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SBConceptos", "F8:Conceptos", "view-list-details", Qt::Key_F8,
                 [this] { SBConceptosClick(); });
    barra->separe();
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape, [this] { close(); });
    Formulario(this)
        .fila({{"&Código", ECod}, {"&Descripción", ENombre}})
        .fila({{"&Tipo", tipo}, {"&Prefijo", prefijo}})
        .ancha(DBGridEh1)
        .botones(barra);
    enter_como_tab();
    tamano(760, 440);
}

void FormaRegiauto::FormCreate() {
    fdm().ConfigurarProviders(this);
    CTipodoc.Open();
    CConceptos.Open();
    const QString codigo = peticion<AbreRegistroAutomatico>().registro;
    CRegistro.Params["REAU"] = modo_ == Nuevo ? QStringLiteral("0") : codigo;
    CRegistro.Open();
    if (modo_ == Nuevo) {
        CRegistro.Append();
        ECod->setFocus();
        return;
    }
    if (CRegistro.IsEmpty()) {
        muestre_mensaje("No se encontró el registro solicitado.");
        pida_cierre_al_crear();
        return;
    }
    contador_.empiece(
        int(CBorrar
                .valor_unico("select max(reco_item) from registro_conceptos where reau_cod = " +
                             QuotedStr(codigo))
                .entero()));
    lea_prefijos(CRegistro.FieldByName("TICO_COD").texto());
    CRegistro.Edit();
    ENombre->setFocus(); // el código ya no cambia
}

void FormaRegiauto::FormActivate() {
    // Desde la lista se pudo crear o cambiar un concepto.
    if (CConceptos.Active())
        CConceptos.Refresh();
}

void FormaRegiauto::lea_prefijos(const QString& tipo) {
    CPrefijos.Open("select * from prefijos_conta where tico_cod = " + QuotedStr(tipo) +
                   " and prco_activo = 'S' order by prco_pref");
}

void FormaRegiauto::TICO_CODChange(Campo& tipo) {
    CRegistro.FieldByName("PRCO_PREF").limpie();
    if (tipo.vacio())
        return;
    lea_prefijos(tipo.texto());
    if (CPrefijos.IsEmpty())
        throw ErrorDatos(QStringLiteral("Debe registrar antes los prefijos."));
    if (CPrefijos.RecordCount() == 1)
        CRegistro.FieldByName("PRCO_PREF") = CPrefijos.FieldByName("PRCO_PREF").texto();
}

void FormaRegiauto::SBConceptosClick() {
    const QString actual =
        CDetalle.IsEmpty() ? QString() : CDetalle.FieldByName("CONC_COD").texto();
    pida("Tfbuscconcepto", PideConceptoAutomatico{actual},
         [this](const QString& concepto) { reciba_concepto(concepto); });
}

void FormaRegiauto::reciba_concepto(const QString& concepto) {
    if (!CDetalle.IsEmpty() && !CDetalle.FieldByName("CONC_COD").vacio())
        CDetalle.Edit();
    else if (!CDetalle.editando())
        CDetalle.Append();
    CDetalle.FieldByName("CONC_COD") = concepto;
}

void FormaRegiauto::SBGrabarClick() {
    CDetalle.CheckBrowseMode();
    CRegistro.Post();
    if (grabe_y_anuncie(CRegistro, "Grabado el registro automático " +
                                       CRegistro.FieldByName("REAU_COD").texto()) == 0)
        close();
    else
        CRegistro.Edit();
}

bool FormaRegiauto::FormClose() {
    CRegistro.CancelUpdates();
    CRegistro.Close();
    return true;
}
