#include "vouchers/forma_planilla.h"

#include "catalogues/grabe_y_anuncie.h"
#include "libro/catalogos.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/sin_grabar.h"
#include "vouchers/pch.h"
#include "vouchers/peticiones_planilla.h"
#include "vouchers/piezas.h"
#include "vouchers/planilla.h"

FormaPlanilla::FormaPlanilla(Modo modo)
    : Pantalla(modo == Nueva ? "Tfnvaplanillad" : "Tfmodplanillad", "Digitación rápida"),
      TPlanillad(this, "TPlanillad", fdm().Quorvex,
                 "SELECT * FROM PLANILLA_DIGITACION WHERE PLDI_ID = :ID"),
      TPlanilladctas(this, "TPlanilladctas", fdm().Quorvex,
                     "SELECT * FROM PLANILLA_DIGITACION_CUENTAS WHERE PLDI_ID = :PLDI_ID ORDER BY "
                     "PLDC_ITEM"),
      PPlanilla(this, "PPlanilla", &TPlanillad, poCascadeDeletes | poCascadeUpdates),
      PTipodoc(this, "PTipodoc", &fdm().TTipocomp),
      PPrefijos(this, "PPrefijos", &fdm().QPrefijos, poAllowCommandText),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CPlanilla(this, "CPlanilla", &PPlanilla), CCuentas(this, "CCuentas"),
      CTipodoc(this, "CTipodoc", &PTipodoc), CPrefijos(this, "CPrefijos", &PPrefijos),
      CBorrar(this, "CBorrar", &PBorrar), modo_(modo) {
    TPlanilladctas.enlace_maestra(&TPlanillad, {"PLDI_ID"});
    CCuentas.anide_en(&CPlanilla, &TPlanilladctas);
    defina_campos();
    construya();
}

void FormaPlanilla::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    campos_tipos_comprobante(CTipodoc);
    campos_prefijos(CPrefijos);
    ConjuntoDatos& c = CPlanilla;
    c.entero("PLDI_ID").banderas(kLlave);
    c.texto("PLDI_NOMBRE", 60).requerido().etiqueta("Descripción");
    for (const char* bandera : {"PLDI_MES", "PLDI_TERCERO", "PLDI_CENTROS", "PLDI_CONCITE"})
        c.bandera(QString::fromLatin1(bandera));
    c.texto("PLDI_TIPOCOMP", 3).requerido().etiqueta("Tipo");
    c.texto("PLDI_PREF", 4).requerido().etiqueta("Prefijo");
    c.texto("PLDI_CONC", 60).etiqueta("Concepto");
    c.texto("PLDI_NIT", 20).etiqueta("Tercero");
    c.texto("PLDI_PROY", 4).etiqueta("Proyecto");
    c.texto("PLDI_CENTRO", 4).etiqueta("Centro");
    c.FieldByName("PLDI_TIPOCOMP").OnChange = [this](Campo& x) { TIPOCOMPChange(x); };
    c.FieldByName("PLDI_NIT").OnChange = [this](Campo& x) { NITChange(x); };
    pregunta_.atienda(c.FieldByName("PLDI_NIT"));
    for (const char* columna : {"PLDI_PROY", "PLDI_CENTRO"})
        c.FieldByName(columna).OnChange = [this](Campo&) { CENTROChange(); };
    ConjuntoDatos& d = CCuentas;
    d.CampoConsecutivo = "PLDC_ITEM";
    d.entero("PLDI_ID").banderas(kLlave);
    d.entero("PLDC_ITEM").banderas(kLlave);
    d.texto("PLDC_CUENTA", 20).etiqueta("Cuenta");
    d.texto("PLDC_TITULO", 30).etiqueta("Nombre del dato");
    for (const char* bandera : {"PLDC_BASE", "PLDC_DB", "PLDC_CUADRAR"})
        d.bandera(QString::fromLatin1(bandera));
    d.FieldByName("PLDC_CUENTA").OnChange = [this](Campo& x) { PLDC_CUENTAChange(x); };
    pregunta_.atienda(d.FieldByName("PLDC_CUENTA"));
    d.AfterInsert = [this] { nueva_cuenta(); };
    d.BeforePost = [this] { CuentasBeforePost(); };
    d.AfterScroll = [this] { CuentasAfterScroll(); };
}

// ---------------------------------------------------------------- disposición

void FormaPlanilla::construya() {
    const auto editor = [this](const char* campo, const char* nombre) {
        return nombrado(new EditorDato(&CPlanilla, campo), nombre);
    };
    const auto casilla = [this](const char* texto, const char* campo, const char* nombre) {
        return nombrado(new CasillaDato(texto, &CPlanilla, campo), nombre);
    };
    LTipo = nombrado(new ListaDato(&CPlanilla, "PLDI_TIPOCOMP"), "LTipo");
    LTipo->lista_de(&CTipodoc, "TICO_COD", "TICO_NOM");
    LPref = nombrado(new ListaDato(&CPlanilla, "PLDI_PREF"), "LPref");
    LPref->lista_de(&CPrefijos, "PRCO_PREF", "PRCO_PREF");
    ENombre = editor("PLDI_NOMBRE", "ENombre");
    Nit = nombrado(caja_de_tercero(CPlanilla, "PLDI_NIT"), "Nit");
    Nit->ancho(15);
    Proy = nombrado(caja_de_proyecto(CPlanilla, "PLDI_PROY"), "Proy");
    Centro = nombrado(caja_de_centro(CPlanilla, "PLDI_CENTRO", "PLDI_PROY"), "Centro");
    Proy->ancho(6);
    Centro->ancho(6);
    Nit->OnDblClick = [this] { busque_tercero({}); };
    Proy->OnDblClick = [this] { busque_centro(); };
    ckTerc = casilla("Preguntar &tercero por documento", "PLDI_TERCERO", "ckTerc");
    ckCentro = casilla("Preguntar centro de c&osto por documento", "PLDI_CENTROS", "ckCentro");
    ckTerc->OnClick = ckCentro->OnClick = [this] { muestre_fijos(); };
    NomCuenta = caja_de_lectura("NomCuenta", 40);
    NomCuenta->setMaximumWidth(QWIDGETSIZE_MAX); // solo en su renglón, como los de arriba

    DBGridEh1 = nombrado(new Rejilla(this, &CCuentas), "DBGridEh1");
    DBGridEh1->setAccessibleName("Cuentas de la planilla");
    DBGridEh1->columnas({{"PLDC_CUENTA", "Cuenta", 14},
                         {"PLDC_TITULO", "Nombre del dato", 30},
                         {"PLDC_BASE", "Con base", 8, Casilla},
                         {"PLDC_DB", "Débito", 8, Casilla},
                         {"PLDC_CUADRAR", "Cuadrar", 8, Casilla}});
    ofrezca_al_teclear(*DBGridEh1, Libro::Decreto2649, "PLDC_CUENTA");
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->texto_vacio = "La planilla no tiene cuentas. Insert agrega la primera.";
    DBGridEh1->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                               Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { busque_cuenta({}); };
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SBCuentas", "F9:Cuentas", "view-list-details", Qt::Key_F9,
                 [this] { busque_cuenta({}); });
    barra->separe();
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape, [this] { close(); });
    fila_tercero_ = Nit;
    fila_centro_ = Formulario::junto({Proy, Centro});
    Proy->setAccessibleName("Proyecto");
    Centro->setAccessibleName("Centro");
    formulario_ = std::make_unique<Formulario>(this);
    formulario_->fila("&Descripción:", ENombre)
        .fila("T&ipo", en_flujo({LTipo, con_rotulo("&Prefijo", LPref)}, paso()))
        .fila("&Concepto:", editor("PLDI_CONC", "EConcepto"))
        .fila("", en_flujo({casilla("Preguntar &fecha completa", "PLDI_MES", "ckFecha"),
                            casilla("Concepto por ite&m", "PLDI_CONCITE", "ckConcepto")},
                           paso(2)))
        .fila({{"", ckTerc}, {"Tercero", fila_tercero_}})
        .fila({{"", ckCentro}, {"Centro de costo", fila_centro_}})
        .ancha(DBGridEh1)
        .fila("Cuenta", NomCuenta)
        .botones(barra);
    enter_como_tab();
    tamano(860, 560);
}

void FormaPlanilla::muestre_fijos() {
    const auto pregunta = [this](const char* campo) {
        return CPlanilla.FieldByName(campo).texto() == "S";
    };
    formulario_->muestre(fila_tercero_, !pregunta("PLDI_TERCERO"));
    formulario_->muestre(fila_centro_, !pregunta("PLDI_CENTROS"));
}

// ---------------------------------------------------------------- creación

void FormaPlanilla::FormCreate() {
    fdm().ConfigurarProviders(this);
    CTipodoc.Open();
    const QString id =
        modo_ == Nueva ? QStringLiteral("0") : peticion<AbrePlanilla>().planilla_seleccion;
    CPlanilla.Params["ID"] = id.toInt();
    CPlanilla.Open();
    if (modo_ == Nueva) {
        provisional_ = !CPlanilla.IsEmpty();
        if (!provisional_)
            nueva_planilla();
    } else if (CPlanilla.IsEmpty()) {
        muestre_mensaje("No se encontró la planilla.");
        pida_cierre_al_crear();
        return;
    } else {
        CPrefijos.Open("select * from prefijos_conta where tico_cod = " +
                       QuotedStr(CPlanilla.FieldByName("PLDI_TIPOCOMP").texto()));
        CPlanilla.Edit();
        contador_.empiece(
            int(CBorrar
                    .valor_unico("select max(pldc_item) item from planilla_digitacion_cuentas "
                                 "where pldi_id = " +
                                 QString::number(id.toInt()))
                    .entero()));
    }
    muestre_fijos();
    CuentasAfterScroll();
    ENombre->setFocus();
    if (!fdm().exija_acceso(kDigitarPlanilla))
        pida_cierre_al_crear();
}

void FormaPlanilla::FormActivate() {
    // Ya con la ventana a la vista, para que la pregunta se entienda.
    if (!std::exchange(provisional_, false))
        return;
    recupere_provisional();
    muestre_fijos();
    CuentasAfterScroll();
}

void FormaPlanilla::nueva_planilla() {
    CPlanilla.Append();
    CPlanilla.FieldByName("PLDI_ID") = 0;
    for (const char* bandera : {"PLDI_MES", "PLDI_TERCERO", "PLDI_CENTROS"})
        CPlanilla.FieldByName(bandera) = "S";
    CPlanilla.FieldByName("PLDI_CONCITE") = "N";
}

void FormaPlanilla::recupere_provisional() {
    switch (pregunte_botones("Se encontró una planilla que no está correctamente registrada. Desea "
                             "Eliminarla o Recuperarla?",
                             {"Eliminarla", "Recuperarla"}, Segunda)) {
    case Primera:
        CBorrar.Execute("delete from planilla_digitacion where pldi_id = 0");
        CPlanilla.Refresh();
        nueva_planilla();
        break;
    case Segunda:
        CPlanilla.Edit();
        break;
    default:
        break;
    }
}

// ---------------------------------------------------------------- encabezado

void FormaPlanilla::TIPOCOMPChange(Campo& tipo) {
    if (tipo.vacio()) {
        CPlanilla.FieldByName("PLDI_PREF").limpie();
        return;
    }
    CPrefijos.Open("select * from prefijos_conta where tico_cod = " + QuotedStr(tipo.texto()) +
                   " and prco_activo = 'S' order by prco_pref");
    if (CPrefijos.IsEmpty())
        throw ErrorDatos(QStringLiteral("@Debe registrar antes los prefijos."));
    LPref->habilite(CPrefijos.RecordCount() > 1);
    CPlanilla.FieldByName("PLDI_PREF") = CPrefijos.FieldByName("PRCO_PREF").texto();
}

void FormaPlanilla::NITChange(Campo& nit) {
    if (nit.vacio() || pregunta_.reponiendo())
        return;
    if (const auto texto = pregunta_.tome(nit))
        busque_tercero(*texto);
    else if (!fdmter().valide_tercero(nit.texto()))
        nit.limpie();
}

void FormaPlanilla::CENTROChange() {
    const QString proyecto = CPlanilla.FieldByName("PLDI_PROY").texto(),
                  centro = CPlanilla.FieldByName("PLDI_CENTRO").texto();
    if (proyecto.isEmpty() || centro.isEmpty())
        return;
    if (!fdmcnt().valide_centro(proyecto, centro))
        CPlanilla.FieldByName("PLDI_CENTRO").limpie();
}

void FormaPlanilla::busque_tercero(const QString& texto) {
    escoja_tercero(
        *this, texto, [this](const QString& nit) { CPlanilla.FieldByName("PLDI_NIT") = nit; },
        CPlanilla.FieldByName("PLDI_NIT").texto());
}

void FormaPlanilla::busque_centro() {
    Campo &proyecto = CPlanilla.FieldByName("PLDI_PROY"),
          &centro = CPlanilla.FieldByName("PLDI_CENTRO");
    escoja_centro(*this,
                  [&](const CentroEscogido& c) {
                      proyecto = c.proyecto_seleccion;
                      centro = c.centro_seleccion;
                  },
                  {proyecto.texto(), centro.texto()});
}

// ---------------------------------------------------------------- cuentas

void FormaPlanilla::nueva_cuenta() {
    CCuentas.FieldByName("PLDC_ITEM") = contador_.siguiente();
    CCuentas.FieldByName("PLDI_ID") = CPlanilla.FieldByName("PLDI_ID").valor();
    CCuentas.FieldByName("PLDC_BASE") = "N";
    CCuentas.FieldByName("PLDC_DB") = "S";
    CCuentas.FieldByName("PLDC_CUADRAR") = "N";
    NomCuenta->clear();
}

void FormaPlanilla::PLDC_CUENTAChange(Campo& cuenta) {
    NomCuenta->clear();
    if (cuenta.vacio())
        return;
    if (const auto texto = pregunta_.tome(cuenta))
        busque_cuenta(*texto);
    else if (pregunta_.reponiendo())
        CuentasAfterScroll();
    else if (fdmcnt().valide_cuenta(cuenta.texto()))
        NomCuenta->setText(fdmcnt().nom_cuenta(cuenta.texto()));
    else
        cuenta.limpie();
}

void FormaPlanilla::CuentasBeforePost() {
    const QString titulo = CCuentas.FieldByName("PLDC_TITULO").texto();
    if (CCuentas.FieldByName("PLDC_CUENTA").vacio() || titulo.isEmpty()) {
        muestre_mensaje("Debe indicar una cuenta y un nombre para el dato.");
        throw EdicionAbortada();
    }
    QStringList otros;
    const Campo& campo = CCuentas.FieldByName("PLDC_TITULO");
    const bool nueva = CCuentas.State() == Estado::Insercion;
    for (int i = 0; i < CCuentas.RecordCount(); ++i)
        if (i != CCuentas.RecNo() || (nueva && CCuentas.valor_en(i, campo).texto() != titulo))
            otros << CCuentas.valor_en(i, campo).texto();
    if (const QString negativa = negativa_de_titulo(titulo, otros); !negativa.isEmpty()) {
        muestre_mensaje(negativa);
        throw EdicionAbortada();
    }
}

void FormaPlanilla::CuentasAfterScroll() {
    const QString cuenta = CCuentas.Active() && !CCuentas.IsEmpty()
                               ? CCuentas.FieldByName("PLDC_CUENTA").texto()
                               : QString();
    NomCuenta->setText(nombre_en_el_plan(fdm().Quorvex, Libro::Decreto2649, cuenta));
}

void FormaPlanilla::busque_cuenta(const QString& texto) {
    escoja_cuenta(
        *this, Libro::Decreto2649, texto, [this](const QString& c) { reciba_cuenta(c); },
        CCuentas.FieldByName("PLDC_CUENTA").texto());
}

void FormaPlanilla::reciba_cuenta(const QString& cuenta) {
    if (CCuentas.IsEmpty() && !CCuentas.editando())
        CCuentas.Append();
    else if (!CCuentas.editando())
        CCuentas.Edit();
    CCuentas.FieldByName("PLDC_CUENTA") = cuenta;
    DBGridEh1->setFocus();
}

// ---------------------------------------------------------------- grabar y salir

void FormaPlanilla::SBGrabarClick() {
    // Una fila nueva sin nada escrito se deja, no se reclama.
    if (CCuentas.State() == Estado::Insercion && !CCuentas.Modified())
        CCuentas.Cancel();
    CCuentas.CheckBrowseMode();
    CPlanilla.Post();
    if (grabe_y_anuncie(CPlanilla,
                        "Grabada planilla " + CPlanilla.FieldByName("PLDI_NOMBRE").texto()) == 0)
        close();
    else
        CPlanilla.Edit();
}

bool FormaPlanilla::hay_por_perder() const {
    if (hay_a_medio_escribir(*this))
        return true;
    // Una planilla nueva solo tiene lo que se propone.
    if (CPlanilla.State() == Estado::Insercion && CPlanilla.FieldByName("PLDI_NOMBRE").vacio() &&
        CCuentas.IsEmpty())
        return false;
    return CPlanilla.Active() &&
           (CPlanilla.ChangeCount() > 0 || CPlanilla.Modified() || CCuentas.Modified());
}

bool FormaPlanilla::FormClose() {
    if (hay_por_perder() &&
        !pregunte_con_no("Desea salir de la planilla y perder los movimientos que no ha grabado?"))
        return false;
    CPlanilla.CancelUpdates();
    CPlanilla.Close();
    return true;
}
