#include "vouchers/tfcontabiliza.h"

#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "vouchers/copia_plantilla.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QScopedValueRollback>
#include <QTimer>

namespace {
constexpr int kEsperaMs = 20; ///< entre un intento y otro de guardar sola
}

Tfcontabiliza::Tfcontabiliza()
    : Pantalla("Tfcontabiliza", "Contabilización"),
      TContabiliza(this, "TContabiliza", fdm().Quorvex,
                   "SELECT * FROM CONTABILIZACION WHERE CNTB_TIPOREF = :TIPO AND CNTB_IDREF = :ID"),
      TContadetalle(this, "TContadetalle", fdm().Quorvex,
                    "SELECT * FROM CONTABILIZACION_DET WHERE CNTB_ID = :CNTB_ID"),
      PContabiliza(this, "PContabiliza", &TContabiliza, poCascadeDeletes | poCascadeUpdates),
      PPlantilla(this, "PPlantilla", &fdmcnt().TPlantilla),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CContabiliza(this, "CContabiliza", &PContabiliza), CContadetalle(this, "CContadetalle"),
      CPlantilla(this, "CPlantilla", &PPlantilla), CPlantilladet(this, "CPlantilladet"),
      CPlantilladn(this, "CPlantilladn"), CBorrar(this, "CBorrar", &PBorrar),
      reloj_(new QTimer(this)) {
    defina_conjuntos();
    const auto lineas = [this](Libro libro) {
        auto* l =
            new LineasPropuesta(libro, *this, CContadetalle, CBorrar, memorias_, ajustes_, this);
        l->al_rehusar = [this] { reloj_->stop(); };
        return l;
    };
    lineas_2649 = lineas(Libro::Decreto2649);
    lineas_niif = lineas(Libro::Niif);
    construya();
    reloj_->setInterval(kEsperaMs);
    connect(reloj_, &QTimer::timeout, this, [this] {
        if (fdm().confirmar_contabilizacion)
            reloj_->stop();
        else
            proteja([this] { BitBtn1Click(); });
    });
}

void Tfcontabiliza::defina_conjuntos() {
    TContadetalle.enlace_maestra(&TContabiliza, {"CNTB_ID"});
    ConjuntoDatos& c = CContabiliza;
    c.entero("CNTB_ID").requerido();
    c.texto("CNTB_TIPOREF", 2).requerido();
    c.entero("CNTB_IDREF").requerido();
    c.texto("CNTB_PREFREF", 4).requerido();
    c.texto("CNTB_NUMREF", 6).requerido();
    c.texto("CNTB_FECHA", 8);
    c.texto("CNTB_TIPOCOMP", 3);
    c.texto("CNTB_PREFCNT", 4);
    c.texto("CNTB_REF", 20);
    c.texto("CNTB_CONCEPTO", 60);
    c.texto("CNTB_NUMERO", 6);
    c.IndexFieldNames("CNTB_ID");
    c.AfterOpen = [this] { CContabilizaAfterOpen(); };
    CContadetalle.anide_en(&c, &TContadetalle);
    LineasPropuesta::defina_campos(CContadetalle);
    CContadetalle.IndexFieldNames("CNDE_ITEM");
    CPlantilladet.anide_en(&CPlantilla, &fdmcnt().TPlantilladetalle);
    CPlantilladn.anide_en(&CPlantilla, &fdmcnt().TPlantilladn);
}

// ---------------------------------------------------------------- disposición

void Tfcontabiliza::construya() {
    EDocumento = caja_de_lectura("EDocumento", 24);
    EComprobante = caja_de_lectura("EComprobante", 16);
    EFecha = caja_de_lectura("EFecha", 10);
    EConcepto = LineasCuenta::caja_de_nombre("EConcepto");
    PageControl1 = nombrado(new QTabWidget, "PageControl1");
    PageControl1->tabBar()->setFocusPolicy(Qt::NoFocus);
    PageControl1->setFocusPolicy(Qt::NoFocus);
    PageControl1->addTab(lineas_2649->construya_pagina(), "Dec.2649");
    PageControl1->addTab(lineas_niif->construya_pagina(), "NIIF");
    connect(PageControl1, &QTabWidget::currentChanged, this,
            [this](int pagina) { proteja([this, pagina] { pagina_cambiada(pagina); }); });

    auto* barra = nombrado(new BarraBotones(this), "barra");
    barra->principal(barra->boton("BitBtn1", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { BitBtn1Click(); }));
    barra->boton("SpeedButton5", "F5:Cuadrar", "view-refresh", Qt::Key_F5,
                 [this] { lineas_a_la_vista().sugiera_db_cr(); });
    barra->boton("SpeedButton9", "F9:Plantilla", "folder-open", Qt::Key_F9,
                 [this] { SpeedButton9Click(); });
    barra->separe();
    barra->boton("SpeedButton6", "Esc:Salir", "window-close", Qt::Key_Escape,
                 [this] { resultado_modal(mrCancel); });
    const auto pagina = [this](int clave, int indice) {
        tecla(clave, Qt::ControlModifier, "PageControl1", [this, indice] {
            if (PageControl1->isTabVisible(indice))
                PageControl1->setCurrentIndex(indice);
        });
    };
    pagina(Qt::Key_PageUp, 0);
    pagina(Qt::Key_PageDown, 1);

    Formulario f(this);
    f.fila("Documento", en_flujo({EDocumento, con_rotulo("Comprobante", EComprobante),
                                  con_rotulo("Fecha", EFecha)},
                                 paso()));
    f.fila("Concepto", EConcepto);
    f.ancha(PageControl1, 1);
    f.botones(barra);
    for (LineasPropuesta* l : {lineas_2649, lineas_niif}) {
        l->arme_menu({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Borrar, Rejilla::SeleccionarTodo,
                      Rejilla::VistaPreliminar, Rejilla::Guardar},
                     "Contabilizacion", windowTitle());
        l->rejilla->al_ordenar(Rejilla::Pegar, [l] { l->pegue_lo_copiado(); });
        l->rejilla->OnDeshacer = [l] { l->deshaga(); };
        l->rejilla->OnDblClick = [l](int columna) { l->pregunte_por(columna); };
    }
    orden_de_entrega<PideCuenta, PideCentro, PideTercero>();
    enter_como_tab();
    tamano(1000, 560);
}

LineasPropuesta& Tfcontabiliza::lineas_a_la_vista() const {
    return PageControl1->currentIndex() == 1 ? *lineas_niif : *lineas_2649;
}

// ---------------------------------------------------------------- creación

void Tfcontabiliza::FormCreate() {
    fdm().ConfigurarProviders(this);
    // Lo que otro cambió ya no se puede grabar: se deja salir, para volver a abrirlo.
    PContabiliza.OnUpdateError =
        [this, maneje = PContabiliza.OnUpdateError](Proveedor& p, ConjuntoDatos& d,
                                                    const ErrorDatos& e, ClaseCambio clase) {
            permitir_cerrar_ |= dynamic_cast<const ErrorOtroUsuario*>(&e) != nullptr;
            maneje(p, d, e, clase);
        };
    // Las sumas son de toda la propuesta: no puede llegar por paquetes.
    CContabiliza.PacketRecords = CContadetalle.PacketRecords = -1;
    const auto pedido = peticion<AbreContabilizacion>();
    origen_ = {pedido.tipo_ref, pedido.id_ref};
    permitir_cerrar_ = fdm().valor<Llave::CerrarSinGrabar>();
    ajustes_.filtra_centros = fdm().valor<Llave::CentrosPorAgencia>();
    PageControl1->setTabVisible(1, fdm().valor<Llave::GenerarNiif>() == "INTERFAZ");
    CContadetalle.Filter(lineas_2649->filtro());
    CContadetalle.Filtered(true);
    lineas_2649->ate_eventos();
    TContabiliza.ParamByName("TIPO") = QString::number(origen_.tipo);
    TContabiliza.ParamByName("ID") = origen_.id;
    CContabiliza.Open();
    if (CContabiliza.IsEmpty()) {
        muestre_mensaje("El documento ya no tiene una propuesta por revisar. Actualice la lista.");
        pida_cierre_al_crear();
        return;
    }
    visto_ = ultimo_comprobante(fdm().Quorvex, origen_);
    muestre_encabezado();
    lineas_2649->muestre_linea();
    lineas_2649->rejilla->setFocus();
}

void Tfcontabiliza::CContabilizaAfterOpen() {
    const auto mayor = [this](const char* condicion, int sin_lineas) {
        const Valor item = CBorrar.valor_unico(
            QStringLiteral("select max(cnde_item) from contabilizacion_det where cnde_item %1 and "
                           "cntb_id = %2")
                .arg(condicion, QString::number(CContabiliza.FieldByName("CNTB_ID").entero())));
        return item.nulo() ? sin_lineas : int(item.entero());
    };
    // El 100000 es del NIIF y no cuenta para numerarlo; sin líneas la primera nueva es la segunda.
    lineas_2649->contador.empiece(mayor("< 100000", 1));
    lineas_niif->contador.empiece(mayor("> 100000", kPrimerItemNiif + 1));
}

void Tfcontabiliza::muestre_encabezado() {
    const auto dice = [this](const char* campo) { return CContabiliza.FieldByName(campo).texto(); };
    EDocumento->setText(
        QStringList{fdm().nombre_tipo(origen_.tipo), dice("CNTB_PREFREF"), dice("CNTB_NUMREF")}
            .join(' '));
    EDocumento->setToolTip(EDocumento->text());
    EDocumento->home(false);
    EComprobante->setText(
        QStringList{dice("CNTB_TIPOCOMP"), dice("CNTB_PREFCNT"), dice("CNTB_NUMERO")}.join(' '));
    const QString fecha = dice("CNTB_FECHA");
    EFecha->setText(fecha.left(4) + '/' + fecha.mid(4, 2) + '/' + fecha.mid(6));
    EConcepto->setText(dice("CNTB_CONCEPTO"));
}

void Tfcontabiliza::FormActivate() {
    if (std::exchange(activada_, true) || fdm().confirmar_contabilizacion)
        return;
    reloj_->start();
}

// ---------------------------------------------------------------- páginas

void Tfcontabiliza::pagina_cambiada(int pagina) {
    const auto& deja = pagina_ == 1 ? *lineas_niif : *lineas_2649;
    try {
        deja.rejilla->escriba_pendiente();
        CContadetalle.CheckBrowseMode();
    } catch (...) {
        // La línea que se rehúsa se corrige en su página.
        const QSignalBlocker callada(PageControl1);
        PageControl1->setCurrentIndex(pagina_);
        deja.rejilla->setFocus();
        throw;
    }
    pagina_ = pagina;
    muestre_libro(lineas_a_la_vista());
}

void Tfcontabiliza::muestre_libro(LineasPropuesta& lineas) {
    // Las reglas siguen al libro de las líneas que quedan a la vista.
    lineas.ate_eventos();
    lineas.vacie_pie();
    CContadetalle.Filter(lineas.filtro());
    lineas.actualice_sumas();
    lineas.rejilla->setFocus();
}

// ---------------------------------------------------------------- plantilla

void Tfcontabiliza::SpeedButton9Click() {
    escoja_plantilla(*this, [this](const QString& plantilla) { traiga_plantilla(plantilla); });
}

void Tfcontabiliza::traiga_plantilla(const QString& plantilla) {
    if (!CContadetalle.IsEmpty() &&
        !pregunte_con_no("Al traer la plantilla perderá los movimientos digitados en "
                         "el comprobante, Continuar?"))
        return;
    CPlantilla.Reabra();
    if (!CPlantilla.Locate("plan_id", {plantilla.toInt()})) {
        CPlantilla.Close();
        muestre_mensaje("La plantilla " + plantilla + " ya no existe: otro usuario la borró.");
        return;
    }
    static constexpr ParCampos kPares[] = {
        {"CNDE_CUENTA", "CUEN_COD"},        {"CNDE_TERC", "TERC_NIT"},
        {"CNDE_PROY", "PROY_COD"},          {"CNDE_CENTRO", "CENT_COD"},
        {"CNDE_CONC", "PLDE_CONCEPTO"},     {"CNDE_DEBITOS", "PLDE_DEBITOS"},
        {"CNDE_CREDITOS", "PLDE_CREDITOS"}, {"CNDE_BASE", "PLDE_BASE"},
        {"CNDE_PORC", "PLDE_PORC"}};
    LineasPropuesta& l = lineas_a_la_vista();
    CContadetalle.Cancel();
    l.con("la plantilla", [&] {
        while (!CContadetalle.IsEmpty())
            CContadetalle.Delete();
        // Una plantilla puede no traer importes: se digitan después. En la página NIIF entran sus
        // líneas NIIF, si las tiene.
        const QScopedValueRollback<bool> guarda(l.replicando, true);
        copie_lineas(es_niif(l.libro) && !CPlantilladn.IsEmpty() ? CPlantilladn : CPlantilladet,
                     CContadetalle, kPares, [this] {
                         if (Campo& concepto = CContadetalle.FieldByName("CNDE_CONC");
                             concepto.vacio())
                             concepto = CContabiliza.FieldByName("CNTB_CONCEPTO").texto();
                     });
    });
    CPlantilla.Close();
    CContadetalle.First();
    l.muestre_linea();
}

// ---------------------------------------------------------------- grabar

void Tfcontabiliza::BitBtn1Click() {
    try {
        grabe();
    } catch (const ErrorOtroUsuario& e) {
        // No hay nada que grabar ni forma de arreglarlo aquí: se cierra aunque no se permita.
        reloj_->stop();
        perdida_ = true;
        muestre_mensaje(e.para_usuario());
        resultado_modal(mrCancel);
    } catch (...) {
        reloj_->stop();
        throw;
    }
}

void Tfcontabiliza::grabe() {
    if (CContadetalle.editando()) {
        if (CContadetalle.FieldByName("CNDE_CUENTA").vacio())
            CContadetalle.Cancel();
        else
            CContadetalle.Post();
    }
    if (!fdm().valor<Llave::PermitirDescuadrados>()) {
        if (LineasPropuesta* l = descuadrada()) {
            reloj_->stop();
            muestre_mensaje("No puede grabar un comprobante descuadrado");
            PageControl1->setCurrentIndex(es_niif(l->libro) ? 1 : 0);
            if (!CContadetalle.IsEmpty())
                CContadetalle.Edit();
            return;
        }
    }
    exija_lineas_agregadas();
    const int cntb_id = int(CContabiliza.FieldByName("CNTB_ID").entero());
    exija_propuesta_vigente(fdm().Quorvex, cntb_id, visto_);
    if (CContabiliza.ApplyUpdates(0) != 0) {
        reloj_->stop();
        vuelva_a_la_primera();
        return;
    }
    try {
        borre_comprobante_del_documento(fdm().Quorvex, origen_, cntb_id, visto_, fdm().usuario);
    } catch (...) {
        // La propuesta ya quedó grabada y el comprobante sigue: lo que falte puede estar en otra
        // parte (un bloqueo, una cuenta) y hay que poder ir allá.
        permitir_cerrar_ = true;
        throw;
    }
    vuelva_a_la_primera();
    reloj_->stop();
    resultado_modal(mrOk);
}

void Tfcontabiliza::exija_lineas_agregadas() {
    for (LineasPropuesta* l : {&lineas_a_la_vista(), lineas_2649, lineas_niif}) {
        if (!l->hay_agregadas())
            continue;
        PageControl1->setCurrentIndex(es_niif(l->libro) ? 1 : 0);
        l->exija_agregadas();
    }
}

LineasPropuesta* Tfcontabiliza::descuadrada() const {
    for (LineasPropuesta* l : {&lineas_a_la_vista(), lineas_2649, lineas_niif})
        if (PageControl1->isTabVisible(es_niif(l->libro) ? 1 : 0) && !l->cuadrada())
            return l;
    return nullptr;
}

void Tfcontabiliza::vuelva_a_la_primera() {
    PageControl1->setCurrentIndex(0);
    lineas_a_la_vista().rejilla->setFocus(); // el paso pudo rehusarse
    if (!CContadetalle.IsEmpty())
        CContadetalle.Edit();
}

// ---------------------------------------------------------------- salir

bool Tfcontabiliza::hay_por_perder() const {
    return CContabiliza.Active() && (CContabiliza.ChangeCount() > 0 ||
                                     CContadetalle.ChangeCount() > 0 || CContadetalle.Modified());
}

bool Tfcontabiliza::puede_salir() {
    if (!permitir_cerrar_) {
        muestre_mensaje("Es necesario grabar el comprobante para poder cerrar");
        return false;
    }
    return !hay_por_perder() ||
           pregunte_con_no(
               "Desea salir del comprobante y perder los movimientos que no ha grabado?");
}

bool Tfcontabiliza::FormClose() {
    reloj_->stop();
    if (resultado_modal() != mrOk) {
        if (!perdida_ && !puede_salir())
            return false;
        CContabiliza.CancelUpdates();
    }
    CContadetalle.Cancel();
    CContabiliza.Close();
    return true;
}
