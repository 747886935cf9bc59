#include "vouchers/pantalla_comprobante.h"

#include "core/apertura.h"

#include "vouchers/panel_documento.h"
#include "vouchers/pch.h"

namespace {

QLineEdit* caja_de_lectura(const QString& nombre, int caracteres) {
    auto* e = new QLineEdit;
    e->setObjectName(nombre);
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    e->setFixedWidth(e->fontMetrics().horizontalAdvance(QLatin1Char('0')) * (caracteres + 2));
    return e;
}

QLabel* rotulo(const QString& texto, QWidget* control) {
    auto* l = new QLabel(texto + ':');
    l->setBuddy(control);
    control->setAccessibleName(texto);
    return l;
}

template <class T> T* nombrado(T* control, const char* nombre) {
    control->setObjectName(nombre);
    return control;
}

} // namespace

PantallaComprobante::PantallaComprobante(const QString& clase, const QString& titulo)
    : Pantalla(clase, titulo), PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      PMovimiento(this, "PMovimiento", &fdmcnt().TComprobantes,
                  poCascadeDeletes | poCascadeUpdates),
      PTipodoc(this, "PTipodoc", &fdm().TTipocomp),
      PTidocartera(this, "PTidocartera", &fdm().TTipodoc),
      PCategoria(this, "PCategoria", &fdmcnt().TConceptoconta), CBorrar(this, "CBorrar", &PBorrar),
      CMovimiento(this, "CMovimiento", &PMovimiento), CDetalle(this, "CDetalle"),
      Cdetniif(this, "Cdetniif"), CTipodoc(this, "CTipodoc", &PTipodoc),
      CTidocartera(this, "CTidocartera", &PTidocartera),
      CCategoria(this, "CCategoria", &PCategoria) {
    defina_encabezado();
    CDetalle.anide_en(&CMovimiento, &fdmcnt().TComprDetalle);
    Cdetniif.anide_en(&CMovimiento, &fdmcnt().TCompniif);
    LineasLibro::defina_campos(CDetalle, Libro::Decreto2649);
    LineasLibro::defina_campos(Cdetniif, Libro::Niif);
    CTipodoc.texto("TICO_COD", 3);
    CTipodoc.texto("TICO_NOM", 60);
    PanelDocumento::defina_tipos(CTidocartera);
    CCategoria.texto("CONC_COD", 6);
    CCategoria.texto("CONC_NOMBRE", 60);
    lineas_2649 =
        new LineasLibro(Libro::Decreto2649, *this, CDetalle, CBorrar, memorias, ajustes, this);
    lineas_niif = new LineasLibro(Libro::Niif, *this, Cdetniif, CBorrar, memorias, ajustes, this);
}

PantallaComprobante::~PantallaComprobante() = default;

void PantallaComprobante::defina_encabezado() {
    ConjuntoDatos& c = CMovimiento;
    c.entero("ENCO_CONSEC").requerido();
    c.texto("TICO_COD", 3).fijo().requerido();
    c.texto("PRCO_PREF", 4).requerido();
    c.texto("ENCO_NUMERO", 6).requerido();
    c.texto("ENCO_FECHA", 8).fijo().requerido();
    c.texto("ENCO_CONCEPTO", 60);
    c.texto("ENCO_REFER", 8);
    c.entero("ENCO_TIPOREF");
    c.entero("ENCO_IDREF");
    c.texto("ENCO_USUARIO", 10);
    c.texto("TERC_NIT", 20);
    c.texto("ENCO_NOMTERC", 60);
    c.decimal("ENCO_MONTO").formato("#,###.00");
    c.bandera("ENCO_DESCONTABLE");
    c.texto("ENCO_MANDANTE", 20);
    c.bandera("ENCO_REPNIIF");
    c.memo("ENCO_OBS");
    c.FieldByName("TERC_NIT").OnChange = [this](Campo& x) { encabezado_TERC_NITChange(x); };
    c.FieldByName("ENCO_MANDANTE").OnChange = [this](Campo& x) { ENCO_MANDANTEChange(x); };
    c.AfterPost = [this] { encabezado_posteado_ = true; };
}

void PantallaComprobante::lea_configuracion(Orden orden) {
    const auto centros = [this] {
        ajustes.filtra_centros =
            fdm().configurado_si("COMPROBANTES", "FILTRAR CENTROS DE COSTO POR AGENCIA");
    };
    if (orden == Orden::Digitar)
        centros();
    ajustes.digito_redondeo = Tfdm::entero(fdm().configuracion(
        "CONTABILIDAD", "GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES"));
    ajustes.mostrar_saldo = fdm().configurado_si(
        "COMPROBANTES", "MOSTRAR SALDO POR CUENTA Y POR TERCERO AL DIGITAR MOVIMIENTOS");
    ajustes.permite_descuadre =
        fdm().configurado_si("GENERAL", "PERMITIR COMPROBANTES DESCUADRADOS");
    ajustes.inhabilita_porcentaje =
        fdm().configurado_si("COMPROBANTES", "INHABILITAR PORCENTAJE EN CUENTAS DE RETENCION");
    if (orden == Orden::Editar)
        centros();
    pregunta_mandante =
        fdm().configurado_si("COMPROBANTES", "PREGUNTAR MANDANTE EN COMPROBANTES CONTABLES");
    for (QWidget* w : {static_cast<QWidget*>(LabMand), static_cast<QWidget*>(Mand),
                       static_cast<QWidget*>(NomMand)})
        w->setVisible(pregunta_mandante);
    const bool decreto =
        fdm().configuracion("CONTABILIDAD", "GENERAL",
                            "MOSTRAR VENTANAS 2649 O NIIF INICIALMENTE AL REGISTRAR COMPROBANTES Y "
                            "HACER CONSULTAS") == "2649";
    PageControl1->setCurrentIndex(decreto ? 0 : 1);
}

void PantallaComprobante::llene_categorias(Rejilla* rejilla) {
    QStringList codigos;
    for (CCategoria.First(); !CCategoria.Eof(); CCategoria.Next())
        codigos << CCategoria.FieldByName("CONC_COD").texto();
    rejilla->lista(5, codigos);
}

// ---------------------------------------------------------------- disposición

void PantallaComprobante::construya(QWidget* control_prefijo) {
    LTipo = nombrado(new ListaDato(&CMovimiento, "TICO_COD"), "LTipo");
    LTipo->lista_de(&CTipodoc, "TICO_COD", "TICO_NOM");
    ENumero = nombrado(new EditorDato(&CMovimiento, "ENCO_NUMERO"), "ENumero");
    EAno = caja_de_lectura("EAno", 4);
    EMes = caja_de_lectura("EMes", 10);
    for (QLineEdit* e : {EAno, EMes})
        e->setEnabled(false);
    EDia = nombrado(new QLineEdit, "EDia");
    EDia->setValidator(new QIntValidator(1, 31, EDia));
    EDia->setMaxLength(2);
    EDia->setFixedWidth(EDia->fontMetrics().horizontalAdvance("0000"));
    ERef = nombrado(new EditorDato(&CMovimiento, "ENCO_REFER"), "ERef");
    DBEdit1 = nombrado(new EditorDato(&CMovimiento, "ENCO_CONCEPTO"), "DBEdit1");
    DBEdit2 = nombrado(new EditorDato(&CMovimiento, "TERC_NIT"), "DBEdit2");
    DBEdit2->ancho(13);
    DBEdit3 = nombrado(new EditorDato(&CMovimiento, "ENCO_NOMTERC"), "DBEdit3");
    DBEdit6 = nombrado(new EditorDato(&CMovimiento, "ENCO_MONTO"), "DBEdit6");
    Mand = nombrado(new EditorDato(&CMovimiento, "ENCO_MANDANTE"), "Mand");
    NomMand = caja_de_lectura("NomMand", 30);
    DBCheckBox1 =
        nombrado(new CasillaDato("Descontable", &CMovimiento, "ENCO_DESCONTABLE"), "DBCheckBox1");
    DBCheckBox2 = nombrado(
        new CasillaDato("Generar comprobante NIIF", &CMovimiento, "ENCO_REPNIIF"), "DBCheckBox2");
    DBMemo1 = nombrado(new MemoDato(&CMovimiento, "ENCO_OBS"), "DBMemo1");
    DBMemo1->lineas(2);
    ckFiltro = nombrado(new QCheckBox("Filtro"), "ckFiltro");
    PageControl1 = nombrado(new QTabWidget, "PageControl1");
    PageControl1->tabBar()->setFocusPolicy(Qt::NoFocus); // de página a página con Ctrl+Av/Re Pág
    PageControl1->addTab(lineas_2649->construya_pagina(), "Dec. 2649");
    PageControl1->addTab(lineas_niif->construya_pagina(), "NIIF");

    DBEdit2->OnDblClick = [] { pantallas().abrir("Tfterceros"); };
    Mand->OnDblClick = [] {
        fdmter().seleccion_mandante = true;
        pantallas().abrir("Tfterceros");
    };
    connect(ckFiltro, &QCheckBox::toggled, this, [this] { proteja([this] { ckFiltroClick(); }); });
    connect(PageControl1, &QTabWidget::currentChanged, this, [this](int pagina) {
        proteja([this, pagina] { pagina == 1 ? TabSheet2Enter() : TabSheet2Exit(); });
    });

    Formulario f(this);
    f.fila({{"Tipo", LTipo},
            {"Prefijo", Formulario::junto({control_prefijo, rotulo("Número", ENumero), ENumero})},
            {"Fecha", Formulario::junto({EDia, EMes, EAno})}});
    f.fila({{"Concepto", DBEdit1},
            {"Referencia", Formulario::junto({ERef, rotulo("Monto", DBEdit6), DBEdit6})},
            {"", Formulario::junto({DBCheckBox1, ckFiltro})}});
    f.fila({{"Tercero", Formulario::junto({DBEdit2, DBEdit3})},
            {"Observaciones", DBMemo1},
            {"", DBCheckBox2}});
    f.fila({{"Mandante", Formulario::junto({Mand, NomMand})}});
    LabMand = f.etiqueta(Mand->parentWidget());
    if (!LabMand)
        LabMand = new QLabel("Mandante", this);
    LabMand->setObjectName("LabMand");
    f.ancha(PageControl1, 1);
    auto* barra = new BarraBotones(this);
    barra->setObjectName("barra");
    f.botones(barra);

    lineas_2649->ate_eventos();
    lineas_niif->ate_eventos();
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        Rejilla* r = l->rejilla;
        const Libro libro = l->libro;
        r->OnEnter = [this] { en_grilla = true; };
        r->OnExit = [this] { en_grilla = false; };
        r->OnDblClick = [this, libro](int columna) { DBGridDblClick(libro, columna); };
        l->arme_menu(nombre_exportacion(), windowTitle());
        r->al_ordenar(Rejilla::Pegar, [this, r] { pegue(*r); });
    }
    // Solo la rejilla 2649 se queda con Esc para cancelar su fila; en la otra sale de la pantalla.
    lineas_niif->rejilla->reclama_escape = false;
    construya_paneles();
    enter_como_tab();
}

void PantallaComprobante::construya_paneles() {
    // El panel edita siempre la línea 2649.
    auto* documento =
        new PanelDocumento(this, CDetalle, CTidocartera,
                           {"CNDE_DOCNUMERO", "CODE_TIPONUE", "CNDE_DOCAPLICA", "CODE_TIPOAPL"});
    GroupBox1 = documento;
    Etidocart = documento->Etidocart;
    DateTimePicker1 = documento->DateTimePicker1;

    GroupBox2 = new PanelFlotante("GroupBox2", "Artículo del inventario ", this);
    EArticod = nombrado(new QLineEdit, "EArticod");
    EArticod->setReadOnly(true);
    EArticod->installEventFilter(this);
    Edit2 = caja_de_lectura("Edit2", 40);
    auto* buscar = nombrado(new QPushButton("..."), "SpeedButton6");
    buscar->setAccessibleName("Buscar artículo o activo");
    auto* continuar2 = nombrado(new QPushButton("Continuar"), "SpeedButton3");
    Formulario f2(GroupBox2);
    f2.fila({{"Código", Formulario::junto({EArticod, buscar})},
             {"Descripción", Edit2},
             {"", continuar2}});
    connect(buscar, &QPushButton::clicked, this,
            [this] { proteja([this] { SpeedButton6Click(); }); });
    connect(continuar2, &QPushButton::clicked, this,
            [this] { proteja([this] { SpeedButton3Click(); }); });
    GroupBox1->vuelve = [this](bool) { return lineas_2649->rejilla; };
    GroupBox2->vuelve = [this](bool tenia_foco) {
        return tenia_foco ? lineas_a_la_vista().rejilla : nullptr;
    };
    for (PanelFlotante* p : {GroupBox1, GroupBox2})
        p->flote_sobre(PageControl1);
}

void PantallaComprobante::resizeEvent(QResizeEvent* evento) {
    Pantalla::resizeEvent(evento);
    for (PanelFlotante* p : {GroupBox1, GroupBox2})
        if (p)
            p->ubique();
}

void PantallaComprobante::declare_teclas_comunes() {
    auto* barra = findChild<BarraBotones*>("barra");
    SBGrabar = barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                            [this] { SBGrabarClick(); });
    barra->principal(SBGrabar);
    SBCancel = barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape,
                            [this] { SBCancelClick(); });
    // Del encabezado se pasa a la rejilla de la página a la vista, y de ella a los botones.
    PageControl1->setFocusPolicy(Qt::NoFocus);
    QWidget::setTabOrder(DBCheckBox2, lineas_2649->rejilla);
    QWidget::setTabOrder(lineas_2649->rejilla, lineas_niif->rejilla);
    QWidget::setTabOrder(lineas_niif->rejilla, SBGrabar);
    tecla(Qt::Key_F5, "sugiera_db_cr", [this] { lineas_a_la_vista().sugiera_db_cr(); });
    // Ir a buscar no escribe la celda a medias: lo escogido la reemplaza.
    const auto busque = [this](int clave, const char* pantalla) {
        tecla(
            clave, Qt::NoModifier, pantalla, [pantalla] { pantallas().abrir(pantalla); }, false);
    };
    const auto pagina = [this](int clave, int indice) {
        tecla(clave, Qt::ControlModifier, "PageControl1",
              [this, indice] { PageControl1->setCurrentIndex(indice); });
    };
    pagina(Qt::Key_PageDown, 1);
    pagina(Qt::Key_PageUp, 0);
    busque(Qt::Key_F6, "Tfterceros");
    busque(Qt::Key_F7, "Tfcentros");
}

LineasLibro& PantallaComprobante::lineas_a_la_vista() const {
    return PageControl1->currentIndex() == 1 ? *lineas_niif : *lineas_2649;
}

void PantallaComprobante::ckFiltroClick() {
    lineas_2649->rejilla->filtro_visible(ckFiltro->isChecked());
}

// ---------------------------------------------------------------- encabezado

void PantallaComprobante::encabezado_TERC_NITChange(Campo& campo) {
    const QString nit = campo.texto();
    if (nit.isEmpty())
        return;
    if (nit.startsWith('?')) {
        fdmcnt().texto_busqueda = nit.mid(1);
        pantallas().abrir("Tfterceros");
        return;
    }
    const QString nombre = fdmter().nom_tercero(nit);
    CMovimiento.FieldByName("ENCO_NOMTERC") = nombre;
    if (!nombre.isEmpty())
        return;
    if (pregunte("Tercero no encontrado. Desea crearlo?")) {
        fdmter().tercero_seleccion = nit;
        pantallas().abrir("Tfnvotercero");
    } else {
        campo.limpie();
    }
}

void PantallaComprobante::ENCO_MANDANTEChange(Campo& campo) {
    const QString nit = campo.texto();
    if (nit.isEmpty())
        return;
    if (nit.startsWith('?')) {
        fdmcnt().texto_busqueda = nit.mid(1);
        fdmter().seleccion_mandante = true;
        pantallas().abrir("Tfterceros");
        return;
    }
    const QString nombre = fdmter().nom_tercero(nit);
    NomMand->setText(nombre);
    if (nombre.isEmpty()) {
        campo.limpie();
        muestre_mensaje("El NIT indicado no esta registrado.");
    }
}

QString PantallaComprobante::tome_id() {
    const QString id = CMovimiento.FieldByName("ENCO_CONSEC").texto();
    if (id != "0")
        return id;
    Sentencia& s = fdmcnt().SIdComproba;
    s.Close();
    s.ExecProc();
    const QString nuevo = s.ParamByName("ID").texto();
    CMovimiento.Edit();
    CMovimiento.FieldByName("ENCO_CONSEC") = nuevo;
    CMovimiento.Post();
    return nuevo;
}

// ---------------------------------------------------------------- paneles

void PantallaComprobante::panel_de_clase(Libro libro, const QString& clase) {
    ConjuntoDatos& d = libro == Libro::Niif ? Cdetniif : CDetalle;
    if (clase == "I" || clase == "A") {
        // La clase "I" no devuelve el título: tras un activo el panel se queda con el suyo.
        if (clase == "A")
            GroupBox2->setTitle("Activo fijo");
        GroupBox2->muestre(EArticod);
        const QString articulo = d.FieldByName("ARTI_COD").texto();
        if (!articulo.isEmpty()) {
            if (clase == "I")
                Edit2->setText(fdmArt().desc_articulo(articulo));
            else
                EArticod->setText(articulo);
            Edit2->setText(fdmcnt().desc_activo(articulo));
        }
    } else {
        GroupBox2->hide();
    }
    if (clase == "C")
        GroupBox1->muestre(Etidocart);
    else
        GroupBox1->hide();
}

void PantallaComprobante::articulo_cambiado(Libro libro) {
    ConjuntoDatos& d = libro == Libro::Niif ? Cdetniif : CDetalle;
    CBorrar.Open(QStringLiteral("select CUEN_TIPO from %1 where cuen_cod = ")
                     .arg(QLatin1String(datos(libro).cuentas)) +
                 QuotedStr(d.FieldByName("CUEN_COD").texto()));
    const QString articulo = d.FieldByName("ARTI_COD").texto();
    Edit2->setText(CBorrar.Fields(0).texto() == "I" ? fdmArt().desc_articulo(articulo)
                                                    : fdmcnt().desc_activo(articulo));
}

void PantallaComprobante::EArticodDblClick() {
    LineasLibro& l = lineas_a_la_vista();
    CBorrar.Open(QStringLiteral("select CUEN_TIPO from %1 where cuen_cod = ")
                     .arg(QLatin1String(datos(l.libro).cuentas)) +
                 QuotedStr(l.detalle.FieldByName("CUEN_COD").texto()));
    abra_o_avise(CBorrar.Fields(0).texto() == "I" ? "Tfarticulos" : "Tfactivos");
}

void PantallaComprobante::SpeedButton6Click() {
    abra_o_avise(GroupBox2->title() == "Activo fijo" ? "Tfactivos" : "Tfarticulos");
}

void PantallaComprobante::SpeedButton3Click() {
    LineasLibro& l = lineas_a_la_vista();
    l.prepare_recepcion();
    l.detalle.FieldByName("ARTI_COD") = EArticod->text();
    GroupBox2->oculte();
}

bool PantallaComprobante::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == EArticod && evento->type() == QEvent::MouseButtonDblClick) {
        proteja([this] { EArticodDblClick(); });
        return true;
    }
    return Pantalla::eventFilter(objeto, evento);
}

void PantallaComprobante::DBGridDblClick(Libro libro, int columna) {
    switch (columna) {
    case 0:
        pantallas().abrir(datos(libro).pantalla_cuentas);
        break;
    case 1:
        pantallas().abrir("Tfterceros");
        break;
    case 2:
    case 3:
        pantallas().abrir("Tfcentros");
        break;
    case 5:
        pantallas().abrir("Tfconceptos");
        break;
    case 9:
    case 10:
        lineas_a_la_vista().sugiera_db_cr();
        break;
    default:
        break;
    }
}

// ---------------------------------------------------------------- selecciones

void PantallaComprobante::atienda_selecciones(bool sin_foco_en_grilla) {
    LineasLibro& l = lineas_a_la_vista();
    const auto tome = [](QString& buzon) { return std::exchange(buzon, QString()); };
    const bool en_linea = en_grilla || sin_foco_en_grilla;
    if (!fdmter().tercero_seleccion.isEmpty()) {
        const QString nit = tome(fdmter().tercero_seleccion);
        if (en_grilla) {
            l.reciba("TERC_NIT", nit);
        } else {
            CMovimiento.Edit();
            const bool mandante = std::exchange(fdmter().seleccion_mandante, false);
            CMovimiento.FieldByName(mandante ? "ENCO_MANDANTE" : "TERC_NIT") = nit;
        }
        fdmter().seleccion_mandante = false;
    }
    if (en_linea)
        l.reciba_cuenta_y_centro();
    if (en_linea && !fdmcnt().concepto_seleccion.isEmpty())
        l.detalle.FieldByName("CONC_COD") = tome(fdmcnt().concepto_seleccion);
    if (GroupBox2->isVisible()) {
        for (QString* buzon : {&fdmcnt().articulo_seleccion, &fdmcnt().activo_seleccionado})
            if (!buzon->isEmpty()) {
                const QString codigo = tome(*buzon);
                EArticod->setText(codigo);
                l.reciba("ARTI_COD", codigo);
            }
    }
}

// ---------------------------------------------------------------- salida

bool PantallaComprobante::salida_confirmada() {
    return pregunte("Desea salir del comprobante y perder los movimientos que no ha grabado?");
}

bool PantallaComprobante::FormClose() {
    for (ConjuntoDatos* c : {&CDetalle, &Cdetniif, &CMovimiento})
        c->Cancel();
    CMovimiento.Close();
    fdmcnt().balance_por_recalcular = true;
    return true;
}
