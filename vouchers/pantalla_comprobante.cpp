#include "vouchers/pantalla_comprobante.h"

#include "datos/firebird/concuerde.h"
#include "libro/revision.h"
#include "sesion/ayuda_al_teclear.h"
#include "sesion/tercero_nuevo.h"
#include "toolkit/aire.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/rejilla/paso_atras.h"
#include "vouchers/panel_documento.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QScopedValueRollback>

PantallaComprobante::PantallaComprobante(const QString& clase, const QString& titulo)
    : PantallaLineas(clase, titulo, "Cdetniif"),
      PMovimiento(this, "PMovimiento", &fdmcnt().TComprobantes,
                  poCascadeDeletes | poCascadeUpdates),
      PTidocartera(this, "PTidocartera", &fdm().TTipodoc),
      CMovimiento(this, "CMovimiento", &PMovimiento),
      CTidocartera(this, "CTidocartera", &PTidocartera), grabacion(conjuntos()),
      deshacer(conjuntos()) {
    defina_encabezado(CMovimiento);
    CMovimiento.FieldByName("TERC_NIT").OnChange = [this](Campo& x) {
        encabezado_TERC_NITChange(x);
    };
    CMovimiento.FieldByName("ENCO_MANDANTE").OnChange = [this](Campo& x) {
        ENCO_MANDANTEChange(x);
    };
    for (const char* con_pregunta : {"TERC_NIT", "ENCO_MANDANTE"})
        pregunta_.atienda(CMovimiento.FieldByName(con_pregunta));
    CMovimiento.AfterPost = [this] { encabezado_posteado_ = true; };
    CDetalle.anide_en(&CMovimiento, &fdmcnt().TComprDetalle);
    Cdetniif.anide_en(&CMovimiento, &fdmcnt().TCompniif);
    LineasLibro::defina_campos(CDetalle, Libro::Decreto2649);
    LineasLibro::defina_campos(Cdetniif, Libro::Niif);
    PanelDocumento::defina_tipos(CTidocartera);
    lineas_2649 =
        new LineasLibro(Libro::Decreto2649, *this, CDetalle, CBorrar, memorias, ajustes, this);
    lineas_niif = new LineasLibro(Libro::Niif, *this, Cdetniif, CBorrar, memorias, ajustes, this);
    // La plantilla escogida sin que nadie la pida es para el primer comprobante que se active.
    acepte<PidePlantilla>([this](const QString& plantilla) {
        deshacer.con("la plantilla", [&] { traiga_plantilla(plantilla); });
        return true;
    });
}

PantallaComprobante::~PantallaComprobante() = default;

void PantallaComprobante::lea_configuracion(Orden orden) {
    const auto centros = [this] {
        ajustes.filtra_centros = fdm().valor<Llave::CentrosPorAgencia>();
    };
    if (orden == Orden::Digitar)
        centros();
    ajustes.digito_redondeo = fdm().valor<Llave::RedondeoComprobantes>();
    ajustes.mostrar_saldo = fdm().valor<Llave::MostrarSaldos>();
    ajustes.permite_descuadre = fdm().valor<Llave::PermitirDescuadrados>();
    ajustes.inhabilita_porcentaje = fdm().valor<Llave::InhabilitarPorcentaje>();
    if (orden == Orden::Editar)
        centros();
    pregunta_mandante = fdm().valor<Llave::PreguntarMandante>();
    for (QWidget* w : {static_cast<QWidget*>(LabMand), static_cast<QWidget*>(Mand),
                       static_cast<QWidget*>(NomMand)})
        w->setVisible(pregunta_mandante);
    abra_pagina_inicial();
}

void PantallaComprobante::llene_categorias(Rejilla* rejilla) {
    QStringList codigos;
    for (CCategoria.First(); !CCategoria.Eof(); CCategoria.Next())
        codigos << CCategoria.FieldByName("CONC_COD").texto();
    rejilla->lista(LineasLibro::kCategoria, codigos);
}

// ---------------------------------------------------------------- disposición

void PantallaComprobante::construya(QWidget* control_prefijo) {
    construya_controles();
    construya_paginas();
    disponga(control_prefijo);
    ate_rejillas(LineasCuenta::ordenes_de_comprobante(), nombre_exportacion());
    for (LineasLibro* l : {lineas_2649, lineas_niif})
        l->rejilla->OnDeshacer = [this] { deshaga_lo_ultimo(); };
    ultimo_ = DBCheckBox2;
    construya_panel_documento();
    construya_panel_articulo("Edit2");
    Edit2 = descripcion_articulo;
    enter_como_tab();
}

void PantallaComprobante::construya_controles() {
    LTipo = nombrado(new ListaDato(&CMovimiento, "TICO_COD"), "LTipo");
    LTipo->lista_de(&CTipodoc, "TICO_COD", "TICO_NOM");
    ENumero = nombrado(new EditorDato(&CMovimiento, "ENCO_NUMERO"), "ENumero");
    EAno = caja_de_lectura("EAno", 4);
    EMes = caja_de_lectura("EMes", 10);
    for (QLineEdit* e : {EAno, EMes})
        e->setEnabled(false);
    int mes = 0; // con el más largo basta: lo demás es del tipo
    for (const QString& nombre : Tfdm::nombres_periodo())
        mes = qMax(mes, EMes->fontMetrics().horizontalAdvance(nombre));
    EMes->setFixedWidth(mes + paso(1.5));
    EDia = nombrado(new QLineEdit, "EDia");
    EDia->setValidator(new QIntValidator(1, 31, EDia));
    EDia->setMaxLength(2);
    EDia->setFixedWidth(EDia->fontMetrics().horizontalAdvance("0000"));
    ERef = nombrado(new EditorDato(&CMovimiento, "ENCO_REFER"), "ERef");
    DBEdit1 = nombrado(new EditorDato(&CMovimiento, "ENCO_CONCEPTO"), "DBEdit1");
    DBEdit2 = nombrado(caja_de_tercero(CMovimiento, "TERC_NIT"), "DBEdit2");
    DBEdit2->ancho(13);
    DBEdit3 = nombrado(new EditorDato(&CMovimiento, "ENCO_NOMTERC"), "DBEdit3");
    DBEdit6 = nombrado(new EditorDato(&CMovimiento, "ENCO_MONTO"), "DBEdit6");
    Mand = nombrado(caja_de_tercero(CMovimiento, "ENCO_MANDANTE"), "Mand");
    // Por aquí se pasa en cada comprobante: los catálogos se miran al llegar a las líneas.
    DBEdit2->OnEnter = Mand->OnEnter = nullptr;
    NomMand = caja_de_lectura("NomMand", 30);
    DBCheckBox1 =
        nombrado(new CasillaDato("Descontable", &CMovimiento, "ENCO_DESCONTABLE"), "DBCheckBox1");
    DBCheckBox2 = nombrado(
        new CasillaDato("Generar comprobante NIIF", &CMovimiento, "ENCO_REPNIIF"), "DBCheckBox2");
    DBMemo1 = nombrado(new MemoDato(&CMovimiento, "ENCO_OBS"), "DBMemo1");
    DBMemo1->lineas(1);
    DBEdit3->setAccessibleName("Nombre del tercero");
    ckFiltro = nombrado(new QCheckBox("Filtro"), "ckFiltro");
    DBEdit2->OnDblClick = [this] { busque_tercero_del_encabezado({}); };
    Mand->OnDblClick = [this] { busque_mandante({}); };
    connect(ckFiltro, &QCheckBox::toggled, this, [this] { proteja([this] { ckFiltroClick(); }); });
}

void PantallaComprobante::disponga(QWidget* control_prefijo) {
    Formulario f(this);
    // Cede unas letras antes de que las casillas sigan en otro renglón.
    DBEdit6->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    DBEdit6->setMinimumWidth(ancho_caracteres(DBEdit6->fontMetrics(), 12));
    // Con sitio se ven trece enteros, con sus comas y decimales.
    DBEdit6->setMaximumWidth(ancho_caracteres(DBEdit6->fontMetrics(), 20));
    DBMemo1->setMinimumWidth(ancho_caracteres(DBMemo1->fontMetrics(), 5));
    // Lo que se ahorra alrededor son líneas del asiento.
    layout()->setContentsMargins(paso(1.5), aire(), paso(1.5), aire());
    layout()->setSpacing(aire());
    LTipo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    LTipo->setMinimumWidth(ancho_caracteres(LTipo->fontMetrics(), 12));
    LTipo->setMaximumWidth(ancho_caracteres(LTipo->fontMetrics(), 30));
    for (QWidget* texto : std::initializer_list<QWidget*>{DBEdit1, DBEdit3, DBMemo1})
        texto->setMaximumWidth(ancho_caracteres(texto->fontMetrics(), kLetrasNombre));
    f.fila("Tipo",
           en_flujo({LTipo, con_rotulo("Prefijo", control_prefijo), con_rotulo("Número", ENumero),
                     Formulario::junto({rotulo("Fecha", EDia), EDia, EMes, EAno})},
                    paso()));
    f.fila("Concepto", en_flujo({DBEdit1, con_rotulo("Referencia", ERef),
                                 Formulario::junto({rotulo("Tercero", DBEdit2), DBEdit2, DBEdit3})},
                                paso()));
    f.fila("Monto", en_flujo({DBEdit6, con_rotulo("Observaciones", DBMemo1), DBCheckBox1, ckFiltro,
                              DBCheckBox2},
                             paso(0.75)));
    f.fila({{"Mandante", Formulario::junto({Mand, NomMand})}});
    LabMand = f.etiqueta(Mand->parentWidget());
    if (!LabMand)
        LabMand = new QLabel("Mandante", this);
    LabMand->setObjectName("LabMand");
    f.ancha(PageControl1, 1);
    auto* barra = new BarraBotones(this);
    barra->setObjectName("barra");
    f.botones(barra);
}

void PantallaComprobante::construya_panel_documento() {
    // El panel edita siempre la línea 2649.
    auto* documento =
        new PanelDocumento(this, CDetalle, CTidocartera,
                           {"CNDE_DOCNUMERO", "CODE_TIPONUE", "CNDE_DOCAPLICA", "CODE_TIPOAPL"});
    GroupBox1 = documento;
    Etidocart = documento->Etidocart;
    DateTimePicker1 = documento->DateTimePicker1;
    agregue_panel(GroupBox1, lineas_2649->rejilla);
}

// ---------------------------------------------------------------- pegar y deshacer

QWidget* PantallaComprobante::encabezado_al_volver() const {
    return DBEdit1;
}

void PantallaComprobante::pegue(Rejilla& rejilla) {
    LineasLibro& l = &rejilla == lineas_niif->rejilla ? *lineas_niif : *lineas_2649;
    if (const auto filas = l.anuncie_pegado(pegar_abre_columnas()))
        deshacer.con("lo pegado", [&] { pegue_filas(l, *filas); });
}

void PantallaComprobante::deshaga_lo_ultimo() {
    if (!deshacer.hay()) {
        fdm().mostrar_advertencia("No hay nada pegado ni traído que se pueda deshacer.");
        return;
    }
    if (deshacer.hubo_mas_cambios() && !confirme_deshacer(deshacer.que()))
        return;
    quite_filtro();
    const QScopedValueRollback<bool> sin_mostrar(encabezado_posteado_, false);
    deshacer.deshaga();
    siga_al_prefijo();
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->vacie_pie();
        l->vacie_diferencias();
        l->actualice_sumas();
    }
    fdm().mostrar_advertencia("Se deshizo " + deshacer.que() + '.');
}

void PantallaComprobante::ckFiltroClick() {
    lineas_2649->rejilla->filtro_visible(ckFiltro->isChecked());
}

// ---------------------------------------------------------------- encabezado

void PantallaComprobante::encabezado_TERC_NITChange(Campo& campo) {
    if (const auto texto = pregunta_.tome(campo)) {
        busque_tercero_del_encabezado(*texto);
        return;
    }
    const QString nit = campo.texto();
    if (nit.isEmpty() || pregunta_.reponiendo())
        return;
    const QString nombre = fdmter().nom_tercero(nit);
    CMovimiento.FieldByName("ENCO_NOMTERC") = nombre;
    if (!nombre.isEmpty()) {
        memorias.tercero_anterior = nit; // desde ya es el de las líneas que pidan uno
        return;
    }
    const auto reciba = [this](const QString& creado) { reciba_en_encabezado("TERC_NIT", creado); };
    if (!pregunte("Tercero no encontrado. Desea crearlo?") ||
        !cree_tercero_digitado(*this, nit, reciba)) {
        campo.limpie();
        devuelva_a(DBEdit2);
    }
}

void PantallaComprobante::devuelva_a(QWidget* caja) {
    // El paso a la que sigue ya va en curso: se vuelve cuando termine.
    QMetaObject::invokeMethod(
        caja, [caja] { caja->setFocus(); }, Qt::QueuedConnection);
}

void PantallaComprobante::ENCO_MANDANTEChange(Campo& campo) {
    if (const auto texto = pregunta_.tome(campo)) {
        busque_mandante(*texto);
        return;
    }
    if (pregunta_.reponiendo())
        return;
    muestre_mandante();
    if (!campo.texto().isEmpty() && NomMand->text().isEmpty()) {
        campo.limpie();
        muestre_mensaje("El NIT indicado no esta registrado.");
        devuelva_a(Mand);
    }
}

void PantallaComprobante::muestre_mandante() {
    const QString nit = CMovimiento.FieldByName("ENCO_MANDANTE").texto();
    NomMand->setText(nit.isEmpty() ? QString() : fdmter().nom_tercero(nit));
}

// ---------------------------------------------------------------- grabar

void PantallaComprobante::pagina_cambiada(int pagina) {
    const bool entra = pagina == 1;
    const JuntaAvisos junta(*this);
    // El foco va primero: si lo rehusado nombra una línea o el día, desde aquí va a donde se
    // corrige.
    lineas_a_la_vista().rejilla->setFocus();
    if (!prepare_paso(entra ? *lineas_2649 : *lineas_niif))
        return;
    const ResultadoGrabacion r = grabe(quien_pasa(entra));
    if (r.clase == ResultadoGrabacion::Rehusado)
        return;
    if (entra)
        recuerde_para_el_siguiente();
    termine_paso(entra, r.clase == ResultadoGrabacion::Grabado);
}

void PantallaComprobante::recuerde_para_el_siguiente() {
    fdmcnt().dia_actual = EDia->text();
    tipo_anterior = CMovimiento.FieldByName("TICO_COD").texto();
}

void PantallaComprobante::siga_los_items() {
    for (LineasLibro* l : {lineas_2649, lineas_niif})
        l->siga_los_items("CODE_ITEM");
}

ResultadoGrabacion PantallaComprobante::grabe(Grabador quien, const QString& si_queda) {
    const ModoGrabacion& modo = modo_de(quien);
    AjustesLibro a = fdmcnt().ajustes_libro();
    a.permite_descuadre = ajustes.permite_descuadre;
    ResultadoGrabacion r;
    r.rechazos = grabacion.revise(modo, a);
    r.rechazos.removeIf([this](const Rechazo& x) { return se_tolera(x); });
    if (!r.rechazos.isEmpty()) {
        diga(r.rechazos, modo);
        return r;
    }
    const QScopedValueRollback<bool> guarda(grabando, true);
    r = grabacion.grabe(modo);
    if (r.clase == ResultadoGrabacion::Grabado)
        anuncie(fdm().barra(), QStringList{"Grabado", CMovimiento.FieldByName("TICO_COD").texto(),
                                           CMovimiento.FieldByName("PRCO_PREF").texto(), r.numero}
                                   .join(' '));
    const JuntaAvisos junta(*this);
    if (r.clase == ResultadoGrabacion::Grabado)
        proteja([&] { // ya está grabado, aunque esto falle
            const QString cierre = cierre_ya_hecho(fdm().Quorvex, r.id);
            // No a cada cambio de página.
            if (cierre.isEmpty() || std::exchange(cierre_dicho_, {r.id, cierre}) ==
                                        std::pair<qint64, QString>{r.id, cierre})
                return;
            advierta("Haga de nuevo el cierre " + cierre + " si esto cambió sus resultados.");
        });
    if (r.cambio_de_numero())
        advierta("El número " + r.numero_pedido + " lo tomó otro comprobante: este quedó con el " +
                 r.numero + '.');
    if (r.clase == ResultadoGrabacion::Grabado && !si_queda.isEmpty())
        advierta(si_queda);
    return r;
}

void PantallaComprobante::advierta(const QString& texto) {
    if (junta_avisos_)
        avisos_ << texto;
    else
        fdm().mostrar_advertencia(texto);
}

void PantallaComprobante::diga_avisos() {
    const QStringList todos = std::exchange(avisos_, {});
    if (todos.isEmpty())
        return;
    HistoriaAvisos* historia = HistoriaAvisos::de(fdm().barra());
    for (qsizetype i = todos.size() - 1; i > 0 && historia; --i)
        historia->anote("Advertencia: " + todos[i]);
    const int demas = int(todos.size()) - 1;
    fdm().mostrar_advertencia(todos.first() +
                              (demas > 0 ? concuerde(demas, " Y otro aviso: Ctrl+Mayús+H.",
                                                     " Y otros %1 avisos: Ctrl+Mayús+H.")
                                         : QString()));
}

void PantallaComprobante::diga(const Rechazos& rechazos, const ModoGrabacion& modo) {
    // Una nómina sin plan NIIF las nombra todas: de una vez, y no un aviso por cuenta.
    constexpr int kTantas = 10;
    QStringList sin_equivalente;
    for (const Rechazo& r : rechazos)
        if (r.motivo == Motivo::SinEquivalente)
            sin_equivalente << r.texto;
    if (const auto demas = sin_equivalente.size() - kTantas; demas > 0)
        sin_equivalente = sin_equivalente.first(kTantas)
                          << concuerde(int(demas), "Y otra más.", "Y otras %1 más.");
    for (const Rechazo& r : rechazos) {
        if (r.motivo != Motivo::SinEquivalente)
            muestre_mensaje(r.texto);
        else if (!sin_equivalente.isEmpty())
            muestre_mensaje(std::exchange(sin_equivalente, {}).join('\n'));
        if (r.motivo == Motivo::Descuadre && modo.vuelve_a_edicion &&
            !lineas_de(*r.libro).IsEmpty())
            lineas_de(*r.libro).Edit();
    }
    const auto primera = std::find_if(rechazos.begin(), rechazos.end(),
                                      [](const Rechazo& r) { return r.de_linea(); });
    if (primera == rechazos.end())
        return;
    muestre_pagina(*primera->libro);
    quite_filtro();
    lineas_a_la_vista().vaya_a(primera->item, "CODE_ITEM", primera->campo);
}

// ---------------------------------------------------------------- paneles

void PantallaComprobante::panel_de_clase(Libro libro, const QString& clase) {
    // Al pasar de página la celda se deja cuando su rejilla ya no está a la vista.
    if (lineas_a_la_vista().libro != libro) {
        GroupBox1->hide();
        GroupBox2->hide();
        return;
    }
    ConjuntoDatos& d = lineas_de(libro);
    if (clase == "I" || clase == "A") {
        // La clase "I" no devuelve el título: tras un activo el panel se queda con el suyo.
        if (clase == "A")
            destine_panel(true);
        GroupBox2->muestre(EArticod);
        // El artículo de otra línea no es el de esta.
        const QString articulo = d.FieldByName("ARTI_COD").texto();
        EArticod->setText(articulo);
        Edit2->clear();
        if (!articulo.isEmpty()) {
            if (clase == "I")
                Edit2->setText(fdmArt().desc_articulo(articulo));
            Edit2->setText(fdmcnt().desc_activo(articulo));
        }
    } else {
        GroupBox2->hide();
    }
    // Es de la línea 2649, también desde la otra página: cerrada, no hay qué digitarle.
    if (clase == "C" && !lineas_2649->rejilla->ReadOnly)
        GroupBox1->muestre(Etidocart);
    else
        GroupBox1->hide();
}

void PantallaComprobante::DBGridDblClick(Libro libro, int columna) {
    if (columna == LineasLibro::kCategoria)
        busque_concepto();
    else if (columna == LineasLibro::kDebito || columna == LineasLibro::kCredito)
        lineas_a_la_vista().sugiera_db_cr();
    else
        PantallaLineas::DBGridDblClick(libro, columna);
}

// ---------------------------------------------------------------- selecciones

void PantallaComprobante::busque_tercero() {
    if (en_grilla)
        PantallaLineas::busque_tercero();
    else
        busque_tercero_del_encabezado({});
}

void PantallaComprobante::busque_tercero_del_encabezado(const QString& texto) {
    escoja_para_encabezado("TERC_NIT", texto);
}

void PantallaComprobante::busque_mandante(const QString& texto) {
    escoja_para_encabezado("ENCO_MANDANTE", texto);
}

void PantallaComprobante::escoja_para_encabezado(const char* campo, const QString& texto) {
    if (DBEdit1->ReadOnly()) {
        muestre_mensaje("El encabezado no se puede cambiar: la fecha del comprobante está "
                        "bloqueada o lo hizo otro módulo.");
        return;
    }
    const QString actual = texto.isEmpty() ? CMovimiento.FieldByName(campo).texto() : QString();
    escoja_tercero(
        *this, texto, [this, campo](const QString& nit) { reciba_en_encabezado(campo, nit); },
        actual);
}

void PantallaComprobante::reciba_en_encabezado(const char* campo, const QString& valor) {
    CMovimiento.Edit();
    CMovimiento.FieldByName(campo) = valor;
}

// ---------------------------------------------------------------- salida

void PantallaComprobante::SBCancelClick() {
    if (hay_por_perder() && !salida_confirmada())
        return;
    CMovimiento.CancelUpdates();
    cierre();
}

void PantallaComprobante::cierre() {
    cierre_confirmado_ = true;
    close();
}

bool PantallaComprobante::FormClose() {
    if (!cierre_confirmado_ && hay_por_perder() && !salida_confirmada())
        return false;
    for (ConjuntoDatos* c : {&CDetalle, &Cdetniif, &CMovimiento})
        c->Cancel();
    CMovimiento.Close();
    emit fdmcnt().balance_por_recalcular();
    return true;
}

// ---------------------------------------------------------------- plantillas y filtro

bool PantallaComprobante::ubique_plantilla(ConjuntoDatos& plantillas, const QString& id) {
    plantillas.Close();
    plantillas.Open();
    if (plantillas.Locate("plan_id", {id.toInt()}))
        return true;
    plantillas.Close();
    muestre_mensaje("La plantilla " + id + " ya no existe: otro usuario la borró.");
    return false;
}

void PantallaComprobante::quite_filtro() {
    ckFiltro->setChecked(false);
    for (LineasLibro* l : {lineas_2649, lineas_niif})
        l->rejilla->limpie_filtros();
}
