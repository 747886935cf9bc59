#include "vouchers/pantalla_lineas.h"

#include "vouchers/pch.h"
#include "vouchers/piezas.h"

PantallaLineas::PantallaLineas(const QString& clase, const QString& titulo,
                               const QString& detalle_niif)
    : Pantalla(clase, titulo), PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      PTipodoc(this, "PTipodoc", &fdm().TTipocomp),
      PCategoria(this, "PCategoria", &fdmcnt().TConceptoconta), CBorrar(this, "CBorrar", &PBorrar),
      CDetalle(this, "CDetalle"), Cdetniif(this, detalle_niif),
      CTipodoc(this, "CTipodoc", &PTipodoc), CCategoria(this, "CCategoria", &PCategoria) {
    // Con llave, al releerse por otro tipo nuevo sigue en el escogido, y con él sus prefijos.
    campos_tipos_comprobante(CTipodoc);
    CTipodoc.FieldByName("TICO_COD").banderas(pfInUpdate | pfInWhere | pfInKey);
    campos_categorias(CCategoria, 6);
}

PantallaLineas::~PantallaLineas() = default;

LineasLibro& PantallaLineas::lineas_a_la_vista() const {
    return PageControl1->currentIndex() == 1 ? *lineas_niif : *lineas_2649;
}

bool PantallaLineas::se_digito(const ConjuntoDatos& encabezado, const QStringList& campos) const {
    const ControlDato* caja = control_dato(focusWidget());
    if (caja && caja->modificado() && campos.contains(caja->nombre_campo()))
        return true;
    return encabezado.Active() &&
           std::any_of(campos.begin(), campos.end(), [&](const QString& campo) {
               return !encabezado.FieldByName(campo).vacio();
           });
}

void PantallaLineas::abra_pagina_inicial() {
    const bool decreto = fdm().valor<Llave::LibroInicial>() == "2649";
    PageControl1->setCurrentIndex(decreto ? 0 : 1);
}

// ---------------------------------------------------------------- páginas y rejillas

void PantallaLineas::muestre_pagina(Libro libro) {
    const QSignalBlocker callada(PageControl1); // ir a corregir no graba nada
    PageControl1->setCurrentIndex(es_niif(libro) ? 1 : 0);
    lineas_a_la_vista().rejilla->setFocus();
}

void PantallaLineas::termine_lineas() {
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        try {
            l->termine_linea();
        } catch (const EdicionAbortada&) {
            muestre_pagina(l->libro);
            throw;
        }
    }
}

void PantallaLineas::construya_paginas() {
    PageControl1 = new QTabWidget;
    PageControl1->setObjectName("PageControl1");
    PageControl1->tabBar()->setFocusPolicy(Qt::NoFocus); // de página a página con Ctrl+Av/Re Pág
    PageControl1->setFocusPolicy(Qt::NoFocus);
    PageControl1->addTab(lineas_2649->construya_pagina(), "Dec. 2649");
    PageControl1->addTab(lineas_niif->construya_pagina(), "NIIF");
    connect(PageControl1, &QTabWidget::currentChanged, this,
            [this](int pagina) { proteja([this, pagina] { pagina_cambiada(pagina); }); });
}

void PantallaLineas::ate_rejillas(const QVector<Rejilla::Orden>& menu, const QString& archivo) {
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->ate_eventos();
        Rejilla* r = l->rejilla;
        const Libro libro = l->libro;
        r->OnEnter = [this, ayude = r->OnEnter] {
            en_grilla = true;
            ayude();
        };
        r->OnExit = [this] { en_grilla = false; };
        r->OnDblClick = [this, libro](int columna) { DBGridDblClick(libro, columna); };
        l->arme_menu(menu, archivo, windowTitle());
        r->al_ordenar(Rejilla::Pegar, [this, r] { pegue(*r); });
    }
    // Solo la rejilla 2649 se queda con Esc para cancelar su fila; en la otra sale de la pantalla.
    lineas_niif->rejilla->reclama_escape = false;
}

void PantallaLineas::declare_teclas_comunes(QWidget* anterior) {
    auto* barra = findChild<BarraBotones*>("barra");
    SBGrabar = barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                            [this] { SBGrabarClick(); });
    barra->principal(SBGrabar);
    SBCancel = barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape,
                            [this] { SBCancelClick(); });
    // Del encabezado se pasa a la rejilla de la página a la vista, y de ella a los botones.
    QWidget::setTabOrder(anterior, lineas_2649->rejilla);
    QWidget::setTabOrder(lineas_2649->rejilla, lineas_niif->rejilla);
    QWidget::setTabOrder(lineas_niif->rejilla, SBGrabar);
    tecla(Qt::Key_F5, "sugiera_db_cr", [this] { lineas_a_la_vista().sugiera_db_cr(); });
    const auto pagina = [this](int clave, int indice) {
        tecla(clave, Qt::ControlModifier, "PageControl1",
              [this, indice] { PageControl1->setCurrentIndex(indice); });
    };
    tecla(Qt::Key_E, Qt::ControlModifier, "Pasar del encabezado a las líneas o volver",
          [this] { pase_de_parte(); });
    pagina(Qt::Key_PageDown, 1);
    pagina(Qt::Key_PageUp, 0);
    tecla_de_busqueda(Qt::Key_F6, "Tfterceros", [this] { busque_tercero(); });
    tecla_de_busqueda(Qt::Key_F7, "Tfcentros", [this] { busque_centro(); });
}

void PantallaLineas::tecla_de_busqueda(int clave, const char* pantalla,
                                       std::function<void()> accion) {
    tecla(clave, Qt::NoModifier, pantalla, std::move(accion), false);
}

void PantallaLineas::pase_de_parte() {
    Rejilla* r = lineas_a_la_vista().rejilla;
    QWidget* foco = QApplication::focusWidget();
    if (!r->enfocada()) {
        // De un botón o un panel no se vuelve: se vuelve al encabezado.
        const bool de_encabezado =
            foco && !qobject_cast<QPushButton*>(foco) && !PageControl1->isAncestorOf(foco) &&
            std::none_of(paneles_.begin(), paneles_.end(),
                         [foco](QWidget* p) { return p->isAncestorOf(foco); });
        de_donde_ = de_encabezado ? foco : nullptr;
        r->setFocus();
        return;
    }
    QWidget* destino =
        de_donde_ && de_donde_->isEnabled() ? de_donde_.data() : encabezado_al_volver();
    destino->setFocus(Qt::ShortcutFocusReason);
}

void PantallaLineas::DBGridDblClick(Libro libro, int columna) {
    switch (columna) {
    case LineasLibro::kCuenta:
        busque_cuenta(libro);
        break;
    case LineasLibro::kTercero:
        busque_tercero();
        break;
    case LineasLibro::kProyecto:
    case LineasLibro::kCentro:
        busque_centro();
        break;
    default:
        break;
    }
}

void PantallaLineas::LTipoEnter() {
    ConjuntoDatos& e = encabezado();
    if (!e.Active() || !e.FieldByName("TICO_COD").vacio())
        return;
    e.Edit();
    CTipodoc.First();
    e.FieldByName("TICO_COD") =
        tipo_anterior.isEmpty() ? CTipodoc.FieldByName("TICO_COD").texto() : tipo_anterior;
}

ConjuntoDatos& PantallaLineas::atributos(const LineasLibro& lineas, const char* columnas) {
    CBorrar.Open(QStringLiteral("select %1 from %2 where cuen_cod = ")
                     .arg(QLatin1String(columnas), QLatin1String(lineas.tabla_atributos())) +
                 QuotedStr(lineas.detalle.FieldByName("CUEN_COD").texto()));
    return CBorrar;
}

// ---------------------------------------------------------------- paneles

void PantallaLineas::construya_panel_articulo(const char* nombre_descripcion) {
    GroupBox2 = new PanelFlotante("GroupBox2", {}, this);
    destine_panel(false);
    EArticod = nombrado(new QLineEdit, "EArticod");
    EArticod->setReadOnly(true);
    EArticod->installEventFilter(this);
    descripcion_articulo = caja_de_lectura(nombre_descripcion, 40);
    auto* buscar = nombrado(new QPushButton("…"), "SpeedButton6");
    buscar->setAccessibleName("Buscar artículo o activo");
    auto* continuar2 = nombrado(new QPushButton("Continuar"), "SpeedButton3");
    Formulario f2(GroupBox2);
    f2.fila({{"Código", Formulario::junto({EArticod, buscar})},
             {"Descripción", descripcion_articulo},
             {"", continuar2}});
    connect(buscar, &QPushButton::clicked, this,
            [this] { proteja([this] { SpeedButton6Click(); }); });
    connect(continuar2, &QPushButton::clicked, this,
            [this] { proteja([this] { SpeedButton3Click(); }); });
    agregue_panel(GroupBox2);
}

void PantallaLineas::destine_panel(bool a_activo) {
    panel_de_activo_ = a_activo;
    GroupBox2->setTitle(a_activo ? "Activo fijo" : "Artículo del inventario ");
}

void PantallaLineas::agregue_panel(PanelFlotante* panel, QWidget* destino) {
    panel->flote_sobre(PageControl1);
    panel->vuelve = [this, destino](bool tenia_foco) -> QWidget* {
        // La rejilla de la página tapada también recibiría el foco, y lo que se digite.
        if (destino && destino->isVisible())
            return destino;
        return destino || tenia_foco ? lineas_a_la_vista().rejilla : nullptr;
    };
    paneles_.append(panel);
}

void PantallaLineas::resizeEvent(QResizeEvent* evento) {
    Pantalla::resizeEvent(evento);
    for (PanelFlotante* p : paneles_)
        p->ubique();
}

void PantallaLineas::articulo_cambiado(Libro libro) {
    const LineasLibro& l = libro == Libro::Niif ? *lineas_niif : *lineas_2649;
    const bool inventario = atributos(l, "CUEN_TIPO").Fields(0).texto() == "I";
    const QString articulo = l.detalle.FieldByName("ARTI_COD").texto();
    descripcion_articulo->setText(inventario ? fdmArt().desc_articulo(articulo)
                                             : fdmcnt().desc_activo(articulo));
}

void PantallaLineas::EArticodDblClick() {
    busque_articulo(atributos(lineas_a_la_vista(), "CUEN_TIPO").Fields(0).texto() != "I");
}

void PantallaLineas::SpeedButton6Click() {
    busque_articulo(panel_de_activo_);
}

void PantallaLineas::SpeedButton3Click() {
    LineasLibro& l = lineas_a_la_vista();
    l.prepare_recepcion();
    l.detalle.FieldByName("ARTI_COD") = EArticod->text();
    GroupBox2->oculte();
}

bool PantallaLineas::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == EArticod && evento->type() == QEvent::MouseButtonDblClick) {
        proteja([this] { EArticodDblClick(); });
        return true;
    }
    return Pantalla::eventFilter(objeto, evento);
}

// ---------------------------------------------------------------- selecciones

// El destino se escoge al pedir: al volver el foco puede estar en otra parte.

LineasLibro* PantallaLineas::linea_que_pide() const {
    return en_grilla ? &lineas_a_la_vista() : nullptr;
}

void PantallaLineas::busque_cuenta(Libro plan) {
    LineasLibro* l = linea_que_pide();
    escoja_cuenta(
        *this, plan, {},
        [l](const QString& cuenta) {
            if (l)
                l->reciba("CUEN_COD", cuenta);
        },
        l ? l->actual("CUEN_COD") : QString());
}

void PantallaLineas::busque_tercero() {
    LineasLibro* l = linea_que_pide();
    escoja_tercero(
        *this, {},
        [l](const QString& nit) {
            if (l)
                l->reciba("TERC_NIT", nit);
        },
        l ? l->actual("TERC_NIT") : QString());
}

void PantallaLineas::busque_centro() {
    LineasLibro* l = linea_que_pide();
    escoja_centro(
        *this,
        [l](const CentroEscogido& centro) {
            if (l)
                l->reciba(centro);
        },
        l ? CentroEscogido{l->actual("PROY_COD"), l->actual("CENT_COD")} : CentroEscogido());
}

void PantallaLineas::busque_concepto() {
    LineasLibro* l = linea_que_pide();
    escoja_concepto(
        *this,
        [l](const QString& concepto) {
            if (!l)
                return;
            l->exija_abiertas();
            l->detalle.FieldByName("CONC_COD") = concepto; // sin abrir la línea
        },
        l ? l->actual("CONC_COD") : QString());
}

void PantallaLineas::busque_articulo(bool activo) {
    const auto reciba = [this, l = &lineas_a_la_vista()](const QString& codigo) {
        if (!GroupBox2->isVisible())
            return;
        EArticod->setText(codigo);
        l->reciba("ARTI_COD", codigo);
    };
    if (activo)
        escoja_activo(*this, reciba, EArticod->text());
    else
        escoja_articulo(*this, reciba, EArticod->text());
}
