#include "periodend/forma_concepto.h"

#include "catalogues/grabe_y_anuncie.h"
#include "libro/catalogos.h"
#include "periodend/pch.h"
#include "periodend/peticiones_cierre.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/nombrado.h"
#include "toolkit/sin_grabar.h"

FormaConcepto::FormaConcepto(Modo modo)
    : Pantalla(modo == Nuevo ? "Tfnvoconcepto" : "Tfmodconcepto",
               modo == Nuevo ? "Nuevo concepto para registro automático"
                             : "Modificar concepto para registro automático"),
      TConceptos(this, "TConceptos", fdm().Quorvex,
                 "SELECT * FROM CONCEPTOS WHERE CONC_COD = :CONC"),
      TCuentas(this, "TConceptosctas", fdm().Quorvex,
               "SELECT * FROM CONCEPTOS_CUENTAS WHERE CONC_COD = :CONC_COD ORDER BY COCU_ITEM"),
      PConceptos(this, "PConceptos", &TConceptos, poCascadeDeletes | poCascadeUpdates),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CConceptos(this, "CConceptos", &PConceptos), CCuentas(this, "CCuentas"),
      CBorrar(this, "CBorrar", &PBorrar), modo_(modo) {
    TCuentas.enlace_maestra(&TConceptos, {"CONC_COD"});
    CCuentas.anide_en(&CConceptos, &TCuentas);
    cuide_lo_digitado(*this, {&CConceptos, &CCuentas});
    defina_campos();
    construya();
}

void FormaConcepto::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = CConceptos;
    c.texto("CONC_COD", 4).requerido().banderas(kLlave).etiqueta("Código");
    c.texto("CONC_NOM", 60).requerido().etiqueta("Nombre");
    c.bandera("CONC_DEBITO").etiqueta("Débito");
    c.texto("CONC_CTACIERRE", 20).etiqueta("Cuenta de cierre");
    c.texto("CONC_ANOINI", 4).mascara("9999;0; ").etiqueta("Año inicial");
    c.entero("CONC_MESINI").etiqueta("Mes inicial");
    c.texto("CONC_ANOFIN", 4).mascara("9999;0; ").etiqueta("Año final");
    c.entero("CONC_MESFIN").etiqueta("Mes final");
    c.bandera("CONC_VENCE").etiqueta("Tiene vigencia");
    ConjuntoDatos& d = CCuentas;
    d.CampoConsecutivo = "COCU_ITEM";
    d.texto("CONC_COD", 4).banderas(kLlave).etiqueta("Concepto");
    d.entero("COCU_ITEM").banderas(kLlave).etiqueta("Ítem");
    d.texto("CUEN_COD", 20).etiqueta("Cuenta afectar");
    d.texto("COCU_CUENTABASE", 20).etiqueta("Cuenta base");
    d.texto("TERC_NIT", 20).etiqueta("Tercero");
    d.texto("PROY_COD", 4).etiqueta("Proyecto");
    d.texto("CENT_COD", 4).etiqueta("Centro");
    d.texto("COCU_BASE", 4).etiqueta("Base");
    d.decimal("COCU_PORC").tasa().formato("#,##0.00").etiqueta("Porcentaje");
    d.decimal("COCU_MONTO").formato("#,###.00").etiqueta("Monto");
    d.bandera("COCU_DEBITO").etiqueta("Débito");
    d.AfterInsert = [this] { nueva_linea(); };
    d.BeforePost = [this] { al_dejar_la_linea(); };
    d.AfterScroll = [this] { al_llegar_a_la_linea(); };
    d.AfterDelete = d.AfterCancel = [this] { muestre_nombres(); };
}

// ---------------------------------------------------------------- disposición

void FormaConcepto::construya() {
    ECod = nombrado(new EditorDato(&CConceptos, "CONC_COD"), "ECod");
    ECod->ReadOnly(modo_ == Modificar);
    ENombre = nombrado(new EditorDato(&CConceptos, "CONC_NOM"), "ENombre");
    ECta = nombrado(caja_de_cuenta(CConceptos, "CONC_CTACIERRE", [] { return Libro::Decreto2649; }),
                    "ECta");
    ECta->ancho(15);
    ECta->setToolTip("? y el comienzo de la cuenta abre el plan; doble clic también");
    ECta->OnDblClick = [this] { busque_cuenta(CConceptos, "CONC_CTACIERRE", {}); };
    NomCierre = caja_que_muestra("NomCierre", 34);
    NomCuenta = caja_que_muestra("NomCuenta", 34);
    NomBase = caja_que_muestra("NomBase", 34);
    auto* lado = nombrado(new CasillaDato("Débito", &CConceptos, "CONC_DEBITO"), "CKDebito");
    lado->setToolTip(
        "Lado acostumbrado de la cuenta de cierre; lo decide lo que falte por cuadrar");
    construya_vigencia();

    DBGridEh1 = nombrado(new Rejilla(this, &CCuentas), "DBGridEh1");
    DBGridEh1->setAccessibleName("Cuentas del concepto");
    DBGridEh1->columnas({{"COCU_ITEM", "Ítem", 5, SoloLectura},
                         {"CUEN_COD", "Cuenta afectar", 14},
                         {"COCU_CUENTABASE", "Cuenta base", 14},
                         {"TERC_NIT", "Tercero", 13},
                         {"PROY_COD", "Proy.", 6},
                         {"CENT_COD", "Centro", 6},
                         {"COCU_BASE", "Base", 13},
                         {"COCU_PORC", "Porcentaje", 10},
                         {"COCU_MONTO", "Monto", 14},
                         {"COCU_DEBITO", "Débito", 6, Casilla}});
    DBGridEh1->lista("COCU_BASE",
                     {"Saldo Inicial", "Debitos mes", "Créditos mes", "Neto mes", "Saldo Final"},
                     {"INI", "DEB", "CRE", "NET", "FIN"});
    ofrezca_al_teclear(*DBGridEh1, Libro::Decreto2649, "CUEN_COD", "TERC_NIT");
    ofrezca_centros(*DBGridEh1, "PROY_COD", "CENT_COD");
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->texto_vacio = "El concepto no tiene cuentas. Insert agrega la primera.";
    DBGridEh1->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                               Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int columna) { DBGridDblClick(columna); };
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->separe();
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape, [this] { close(); });
    Formulario(this)
        .fila("&Código", en_flujo({ECod, con_rotulo("&Nombre", ENombre)}, paso()))
        .fila("Cuenta de c&ierre", Formulario::junto({ECta, NomCierre, lado}))
        .fila("", en_flujo({Vence, con_rotulo("Desde", Formulario::junto({MesIni, AnoIni})),
                            con_rotulo("Hasta", Formulario::junto({MesFin, AnoFin}))},
                           paso()))
        .ancha(DBGridEh1)
        .fila("Cuenta afectar:", NomCuenta)
        .fila("Cuenta base:", NomBase)
        .botones(barra);
    enter_como_tab();
    tamano(1000, 540);
    CConceptos.FieldByName("CONC_CTACIERRE").OnChange = [this](Campo& x) {
        cuenta_cambiada(x, NomCierre);
    };
    CCuentas.FieldByName("CUEN_COD").OnChange = [this](Campo& x) { cuenta_cambiada(x, NomCuenta); };
    CCuentas.FieldByName("COCU_CUENTABASE").OnChange = [this](Campo& x) {
        cuenta_cambiada(x, NomBase);
    };
    CCuentas.FieldByName("TERC_NIT").OnChange = [this](Campo& x) { tercero_cambiado(x); };
    pregunta_.atienda(CConceptos.FieldByName("CONC_CTACIERRE"));
    for (const char* columna : {"CUEN_COD", "COCU_CUENTABASE", "TERC_NIT"})
        pregunta_.atienda(CCuentas.FieldByName(columna));
    for (const char* columna : {"PROY_COD", "CENT_COD"})
        CCuentas.FieldByName(columna).OnChange = [this](Campo&) { centro_cambiado(); };
}

void FormaConcepto::construya_vigencia() {
    Vence = nombrado(new CasillaDato("Tiene &vigencia:", &CConceptos, "CONC_VENCE"), "Vence");
    Vence->OnClick = [this] { VenceClick(); };
    QStringList indices;
    for (int i = 0; i < 12; ++i)
        indices << QString::number(i);
    const auto mes = [&](const char* columna, const char* nombre, const char* rotulo) {
        auto* l = nombrado(new ListaDato(&CConceptos, columna), nombre);
        l->lista_de(Tfdm::nombres_periodo().mid(0, 12), indices);
        l->setAccessibleName(rotulo);
        return l;
    };
    const auto ano = [this](const char* columna, const char* nombre, const char* rotulo) {
        auto* e = nombrado(new EditorDato(&CConceptos, columna), nombre);
        e->ancho(5);
        e->setAccessibleName(rotulo);
        return e;
    };
    MesIni = mes("CONC_MESINI", "MesIni", "Mes inicial");
    MesFin = mes("CONC_MESFIN", "MesFin", "Mes final");
    AnoIni = ano("CONC_ANOINI", "AnoIni", "Año inicial");
    AnoFin = ano("CONC_ANOFIN", "AnoFin", "Año final");
}

// ---------------------------------------------------------------- creación

void FormaConcepto::FormCreate() {
    fdm().ConfigurarProviders(this);
    const QString codigo =
        modo_ == Nuevo ? QStringLiteral("0") : peticion<AbreConceptoAutomatico>().concepto;
    CConceptos.Params["CONC"] = codigo;
    CConceptos.Open();
    if (modo_ == Modificar) {
        if (CConceptos.IsEmpty()) {
            muestre_mensaje("No se encontró el concepto solicitado.");
            pida_cierre_al_crear();
            return;
        }
        CConceptos.Edit();
        contador_.empiece(int(CBorrar
                                  .valor_unico("select max(cocu_item) from conceptos_cuentas where "
                                               "conc_cod = " +
                                               QuotedStr(codigo))
                                  .entero()));
        muestre_nombre(CConceptos.FieldByName("CONC_CTACIERRE"), NomCierre);
        al_llegar_a_la_linea();
    } else {
        CConceptos.Append();
        CConceptos.FieldByName("CONC_VENCE") = "N";
        CConceptos.FieldByName("CONC_DEBITO") = "N";
        CConceptos.FieldByName("CONC_MESINI") = 0;
        CConceptos.FieldByName("CONC_MESFIN") = 11;
        for (const char* ano : {"CONC_ANOINI", "CONC_ANOFIN"})
            CConceptos.FieldByName(ano) = fdmcnt().ano_actual;
    }
    VenceClick();
    (modo_ == Nuevo ? static_cast<QWidget*>(ECod) : DBGridEh1)->setFocus();
}

void FormaConcepto::VenceClick() {
    const bool si = CConceptos.FieldByName("CONC_VENCE").texto() == "S";
    for (ListaDato* l : {MesIni, MesFin})
        l->habilite(si);
    for (EditorDato* e : {AnoIni, AnoFin})
        e->habilite(si);
}

// ---------------------------------------------------------------- líneas

void FormaConcepto::nueva_linea() {
    CCuentas.FieldByName("COCU_ITEM") = contador_.siguiente();
    CCuentas.FieldByName("CONC_COD") = CConceptos.FieldByName("CONC_COD").texto();
    CCuentas.FieldByName("COCU_BASE") = "FIN";
    CCuentas.FieldByName("COCU_DEBITO") = "N";
    NomCuenta->clear();
    NomBase->clear();
}

void FormaConcepto::al_dejar_la_linea() {
    if (!CCuentas.FieldByName("CUEN_COD").vacio())
        return;
    const bool nueva = CCuentas.State() == Estado::Insercion;
    CCuentas.Cancel();
    if (nueva) // la que ya estaba sigue con su ítem
        contador_.empiece(contador_.ultimo() - 1);
}

void FormaConcepto::muestre_nombres() {
    const bool hay = CCuentas.Active() && !CCuentas.IsEmpty();
    for (const auto& [campo, caja] :
         {std::pair{"CUEN_COD", NomCuenta}, {"COCU_CUENTABASE", NomBase}})
        hay ? muestre_nombre(CCuentas.FieldByName(campo), caja) : caja->clear();
}

void FormaConcepto::al_llegar_a_la_linea() {
    muestre_nombres();
    if (!CCuentas.Active() || CCuentas.IsEmpty())
        return;
    if (CConceptos.State() == Estado::Edicion && !CCuentas.FieldByName("CUEN_COD").vacio())
        CCuentas.Edit();
}

void FormaConcepto::muestre_nombre(const Campo& cuenta, QLineEdit* caja) {
    caja->setText(nombre_en_el_plan(fdm().Quorvex, Libro::Decreto2649, cuenta.texto()));
    caja->setCursorPosition(0);
}

void FormaConcepto::cuenta_cambiada(Campo& campo, QLineEdit* nombre) {
    nombre->clear();
    const QString cuenta = campo.texto();
    if (cuenta.isEmpty())
        return;
    if (const auto texto = pregunta_.tome(campo)) {
        busque_cuenta(campo.conjunto(), campo.FieldName, *texto);
    } else if (pregunta_.reponiendo()) {
        muestre_nombre(campo, nombre);
    } else if (fdmcnt().valide_cuenta(cuenta)) {
        nombre->setText(fdmcnt().nom_cuenta(cuenta));
        nombre->setCursorPosition(0);
    } else if (campo.conjunto().editando()) {
        campo.limpie();
    }
}

void FormaConcepto::tercero_cambiado(Campo& nit) {
    if (nit.vacio() || pregunta_.reponiendo())
        return;
    if (const auto texto = pregunta_.tome(nit)) {
        busque_tercero(*texto);
        return;
    }
    if (CBorrar
            .valor_unico("select terc_nom from terceros where terc_nit = " + QuotedStr(nit.texto()))
            .nulo()) {
        muestre_mensaje("Tercero no encontrado.");
        nit.limpie();
    }
}

void FormaConcepto::centro_cambiado() {
    const QString proyecto = CCuentas.FieldByName("PROY_COD").texto(),
                  centro = CCuentas.FieldByName("CENT_COD").texto();
    if (proyecto.isEmpty() || centro.isEmpty())
        return;
    CBorrar.Open("select proy_cod, cent_cod from centros where proy_cod = " + QuotedStr(proyecto) +
                 " and cent_cod = " + QuotedStr(centro));
    if (CBorrar.IsEmpty()) {
        muestre_mensaje("Centro-subcentro no encontrado.");
        CCuentas.FieldByName("CENT_COD").limpie();
    }
    CBorrar.Close();
}

// ---------------------------------------------------------------- selecciones

void FormaConcepto::reciba(ConjuntoDatos& conjunto, const QString& columna, const QString& valor) {
    if (conjunto.IsEmpty() && !conjunto.editando())
        conjunto.Append();
    else if (!conjunto.editando())
        conjunto.Edit();
    conjunto.FieldByName(columna) = valor;
}

void FormaConcepto::busque_cuenta(ConjuntoDatos& conjunto, const QString& columna,
                                  const QString& texto) {
    escoja_cuenta(
        *this, Libro::Decreto2649, texto,
        [this, &conjunto, columna](const QString& cuenta) { reciba(conjunto, columna, cuenta); },
        conjunto.FieldByName(columna).texto());
}

void FormaConcepto::busque_tercero(const QString& texto) {
    escoja_tercero(
        *this, texto, [this](const QString& nit) { reciba(CCuentas, "TERC_NIT", nit); },
        CCuentas.FieldByName("TERC_NIT").texto());
}

void FormaConcepto::DBGridDblClick(int columna) {
    switch (columna) {
    case kCuenta:
        busque_cuenta(CCuentas, "CUEN_COD", {});
        break;
    case kBase:
        busque_cuenta(CCuentas, "COCU_CUENTABASE", {});
        break;
    case kTercero:
        busque_tercero({});
        break;
    case kProyecto:
    case kCentro:
        escoja_centro(
            *this,
            [this](const CentroEscogido& c) {
                reciba(CCuentas, "PROY_COD", c.proyecto_seleccion);
                reciba(CCuentas, "CENT_COD", c.centro_seleccion);
            },
            {CCuentas.FieldByName("PROY_COD").texto(), CCuentas.FieldByName("CENT_COD").texto()});
        break;
    default:
        break;
    }
}

// ---------------------------------------------------------------- grabar y salir

bool FormaConcepto::falta_algo() {
    for (const auto& [campo, caja, falta] :
         {std::tuple{"CONC_COD", ECod, "el código"}, {"CONC_NOM", ENombre, "el nombre"}})
        if (CConceptos.FieldByName(campo).vacio()) {
            muestre_mensaje(QStringLiteral("Falta ingresar %1 del concepto.").arg(falta));
            caja->setFocus();
            return true;
        }
    return false;
}

void FormaConcepto::SBGrabarClick() {
    if (falta_algo())
        return;
    CCuentas.CheckBrowseMode();
    CConceptos.Post();
    if (CCuentas.IsEmpty() && !pregunte_con_no("El concepto no tiene cuentas: no generará ninguna "
                                               "línea. Desea grabarlo así?")) {
        CConceptos.Edit();
        DBGridEh1->setFocus();
        return;
    }
    if (grabe_y_anuncie(CConceptos,
                        "Grabado el concepto " + CConceptos.FieldByName("CONC_COD").texto()) == 0)
        close();
    else
        CConceptos.Edit();
}

bool FormaConcepto::FormClose() {
    CConceptos.CancelUpdates();
    CConceptos.Close();
    return true;
}
