#include "vouchers/tfedtmovimien.h"

#include "datos/firebird/reloj.h"
#include "libro/revision.h"
#include "sesion/auditoria.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/copias_comprobante.h"
#include "sesion/registro_documentos.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/sin_grabar.h"
#include "vouchers/copia_plantilla.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QMenu>
#include <QScopedValueRollback>

namespace {

/// Lo que va a la derecha de las pestañas: el ancho que le dejen, sin quitarles el suyo.
class JuntoAPestanas : public QWidget {
public:
    QSize sizeHint() const override {
        const auto* hojas = qobject_cast<const QTabWidget*>(parentWidget());
        QSize s = QWidget::sizeHint();
        if (hojas)
            s.setWidth(qBound(0, hojas->width() - hojas->tabBar()->sizeHint().width() - paso(),
                              s.width()));
        return s;
    }
    QSize minimumSizeHint() const override { return {0, QWidget::minimumSizeHint().height()}; }
};

} // namespace

Tfedtmovimien::Tfedtmovimien()
    : PantallaComprobante("Tfedtmovimien", "Editar comprobantes contables"),
      PMaxitem(this, "PMaxitem", &fdm().QBorrar, poAllowCommandText),
      PAudit(this, "PAudit", &fdm().QAudit, poAllowCommandText),
      PTidocart(this, "PTidocart", &fdm().TTipodoc),
      PPlantilla(this, "PPlantilla", &fdmcnt().TPlantilla), CMaxitem(this, "CMaxitem", &PMaxitem),
      CAudit(this, "CAudit", &PAudit), CPrefijos(this, "CPrefijos"),
      CTidocart(this, "CTidocart", &PTidocart), CPlantilla(this, "CPlantilla", &PPlantilla),
      CPlantilladet(this, "CPlantilladet") {
    defina_conjuntos();
    EPref = new EditorDato(&CMovimiento, "PRCO_PREF");
    EPref->setObjectName("EPref");
    EPref->ReadOnly(true);
    construya(EPref);
    fije_encabezado();
    declare_menu_y_teclas();
    declare_pie();
}

void Tfedtmovimien::defina_conjuntos() {
    CMovimiento.interno("PrefRef", ClaseCampo::Texto, 4);
    CMovimiento.interno("NumRef", ClaseCampo::Texto, 8);
    CMovimiento.AfterEdit = [this] { CMovimientoAfterEdit(); };
    CMovimiento.BeforePost = [this] {
        memorias.tercero_anterior = CMovimiento.FieldByName("TERC_NIT").texto();
    };
    CMaxitem.entero("ITEM");
    CAudit.texto("AUDIT", 35);
    CPrefijos.anide_en(&CTipodoc, &fdm().TPrefconta);
    CTidocart.Filter("(tido_cart = 'S') or (tido_cxp = 'S')");
    CPlantilladet.anide_en(&CPlantilla, &fdmcnt().TPlantilladetalle);
    lineas_2649->siempre_recuerda_tercero = true;
}

void Tfedtmovimien::fije_encabezado() {
    Etidocart->lista_de(&CTidocart, "TIDO_COD", "TIDO_NOMLARGO");
    LTipo->ReadOnly(true);
    LTipo->setEnabled(false);
    ENumero->ReadOnly(true);
    EDia->setEnabled(false);
}

void Tfedtmovimien::declare_menu_y_teclas() {
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->rejilla->orden_local = true;
        QMenu* menu = l->arme_menu(LineasCuenta::ordenes_de_comprobante(), nombre_exportacion(),
                                   windowTitle());
        menu->addSeparator();
        QAction* replicar = menu->addAction("Replicar a NIIF");
        replicar->setObjectName("ReplicaraNIIF1");
        connect(replicar, &QAction::triggered, this,
                [this] { proteja([this] { ReplicaraNIIF1Click(); }); });
    }

    declare_teclas_comunes();
    const auto menu_de = [](const LineasLibro* l) {
        return l->rejilla->findChild<QMenu*>("menu_rejilla");
    };
    ofrezca_copias(*this, {menu_de(lineas_2649), menu_de(lineas_niif)},
                   [this] { return id_por_copiar(); });
    auto* barra = findChild<BarraBotones*>("barra");
    SBBorrar =
        barra->boton("SBBorrar", "F3:Borrar", "edit-delete", {}, [this] { SBBorrarClick(); });
    tecla_de_busqueda(Qt::Key_F9, "Tfcuentas", [this] { busque_cuenta(Libro::Decreto2649); });
    orden_de_entrega<PideTercero, PideNuevoTercero, PideCuenta, PideConcepto, PideCentro,
                     PideArticulo, PideActivo, PidePlantilla>();
    tecla(Qt::Key_F11, "oculta columnas", [this] { muestre_columnas(false); });
    tecla(Qt::Key_F12, "muestra columnas", [this] { muestre_columnas(true); });
}

void Tfedtmovimien::declare_pie() {
    auto* barra = findChild<BarraBotones*>("barra");
    Edit1 = new QLineEdit;
    Edit3 = new QLabel;
    LabAudit = new QLabel;
    Edit1->setObjectName("Edit1");
    Edit3->setObjectName("Edit3");
    LabAudit->setObjectName("LabAudit");
    Edit1->setReadOnly(true);
    Edit1->setFocusPolicy(Qt::NoFocus);
    Edit1->setFixedWidth(fontMetrics().averageCharWidth() * 34);
    Edit1->setAccessibleName("Origen del comprobante");
    Edit3->setAccessibleName("Último cambio NIIF");
    barra->separe();
    barra->agregue(Edit1);
    // Cada libro dice cuándo cambió; si el NIIF nunca, no ocupa sitio.
    auto* cambio = new JuntoAPestanas;
    auto* fila = new QHBoxLayout(cambio);
    fila->setContentsMargins(0, 0, 0, paso(0.25));
    fila->addWidget(LabAudit);
    fila->addWidget(Edit3);
    PageControl1->setCornerWidget(cambio);
    connect(PageControl1->tabBar(), &QTabBar::currentChanged, this, [this] { muestre_cambio(); });
}

void Tfedtmovimien::muestre_cambio() {
    const bool niif = PageControl1->tabBar()->currentIndex() == 1;
    LabAudit->setVisible(!niif);
    Edit3->setVisible(niif && cambio_niif_);
}

// ---------------------------------------------------------------- creación

void Tfedtmovimien::FormCreate() {
    tipo_anterior.clear();
    libre_2649 = libre_niif = true;
    tamano_del_area(60, 40);
    fdm().ConfigurarProviders(this);
    const QSignalBlocker callada(PageControl1); // escoger la página inicial no graba nada
    lea_configuracion(Orden::Editar);
    CTipodoc.Open();
    CTidocart.Open();
    CTidocartera.Open();
    const QString id = peticion<AbreComprobante>().comprobante_encontrado;
    lineas_2649->contador.empiece(maximo_item(Libro::Decreto2649, id));
    lineas_niif->contador.empiece(maximo_item(Libro::Niif, id));
    CCategoria.Open();
    muestre_auditoria(1, id, [this](const QString& t) { LabAudit->setText(t); });
    muestre_auditoria(1001, id, [this](const QString& t) {
        Edit3->setText(t);
        cambio_niif_ = !CAudit.FieldByName("AUDIT").vacio();
    });
    muestre_cambio();
    llene_categorias(lineas_2649->rejilla);
    llene_categorias(lineas_niif->rejilla);
    CMovimiento.FetchParams();
    CMovimiento.Params["ID"] = id;
    CMovimiento.Open();
    if (CMovimiento.IsEmpty()) {
        muestre_mensaje("No se encontró el comprobante solicitado.");
        pida_cierre_al_crear();
        return;
    }
    visto_ = lea_comprobante(conjuntos());
    CMovimiento.Edit();
    falla_origen_ = muestre_origen();
    muestre_fecha();
    muestre_mandante();
    encabezado_posteado_ = true;
    const QString cual = QStringList{CMovimiento.FieldByName("TICO_COD").texto(),
                                     CMovimiento.FieldByName("PRCO_PREF").texto(),
                                     CMovimiento.FieldByName("ENCO_NUMERO").texto()}
                             .join(' ');
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->titule("Comprobante " + cual);
        l->muestre_linea();
    }
    if (!fdm().acceso_editacomproba(fdm().usuario, "CONTABILIDAD", 30))
        SBGrabar->setEnabled(false);
    diga_lo_cerrado(cual);
    DBEdit1->setFocus(); // tipo, número y fecha ya no cambian
}

void Tfedtmovimien::diga_lo_cerrado(const QString& cual) {
    const char* por_que = !libre_2649 && !libre_niif ? "su fecha está bloqueada"
                          : lineas_2649->rejilla->ReadOnly && libre_2649 ? "lo hizo otro módulo"
                          : !libre_2649            ? "el libro 2649 está bloqueado a su fecha"
                          : !libre_niif            ? "el libro NIIF está bloqueado a su fecha"
                          : !SBGrabar->isEnabled() ? "su usuario no puede modificarlo"
                                                   : nullptr;
    if (!por_que)
        return;
    QString texto = QString::fromUtf8(por_que);
    setWindowTitle(windowTitle() + " - " + texto);
    texto += '.';
    if (solo_imprime_ && libre_niif && SBGrabar->isEnabled()) {
        const QString niif = "Lo que cambie en el libro NIIF se graba al pasar de página.";
        SBGrabar->setToolTip(niif);
        texto += ' ' + niif;
    }
    anuncie(fdm().barra(), "Comprobante " + cual + ": " + texto);
}

int Tfedtmovimien::maximo_item(Libro libro, const QString& id) {
    CMaxitem.Open(QStringLiteral("select max(code_item) item from %1 where enco_consec = ")
                      .arg(QLatin1String(datos(libro).detalle)) +
                  (id.isEmpty() ? QStringLiteral("0") : id));
    return int(CMaxitem.FieldByName("ITEM").entero());
}

void Tfedtmovimien::muestre_auditoria(int tipo, const QString& id,
                                      const std::function<void(QString)>& donde) {
    CAudit.Open(Tfdm::sql_auditoria(tipo, "audi_iddoc", id.isEmpty() ? QStringLiteral("0") : id));
    donde(modificado(CAudit.FieldByName("AUDIT").texto()));
}

QString Tfedtmovimien::numero_de_origen(qint64 tipo, qint64 origen) {
    const Campo& numero = CMovimiento.FieldByName("NumRef");
    if (numero.texto().size() < numero.Size)
        return numero.texto();
    CBorrar.Open(sql_numero_documento(int(tipo), origen)); // NumRef pudo no traerlo entero
    return CBorrar.Fields(1).texto();
}

QString Tfedtmovimien::muestre_origen() {
    QString falla_origen;
    QString texto = "Id:" + CMovimiento.FieldByName("ENCO_CONSEC").texto();
    const qint64 tipo = CMovimiento.FieldByName("ENCO_TIPOREF").entero();
    const qint64 origen = CMovimiento.FieldByName("ENCO_IDREF").entero();
    if (tipo != 0 && tipo != 58 && tipo != 59 && origen != 0) {
        try {
            fdm().numero_documento(int(tipo), origen, CMovimiento.FieldByName("PrefRef"),
                                   CMovimiento.FieldByName("NumRef"));
        } catch (const ErrorDatos& falla) { // sin el número de su origen se edita igual
            if (!fdm().Quorvex.en_linea())
                throw;
            falla_origen = QStringLiteral("No se pudo ver el documento de tipo %1 con id %2: %3")
                               .arg(tipo)
                               .arg(origen)
                               .arg(falla.para_usuario());
        }
        const QString numero = numero_de_origen(tipo, origen);
        CBorrar.Open("select tido_nomcorto from tipo_documento where tido_cod = " +
                     QString::number(tipo));
        texto += " Original:" + CBorrar.Fields(0).texto() + ' ' +
                 CMovimiento.FieldByName("PrefRef").texto() + numero;
    }
    Edit1->setText(texto);
    Edit1->setCursorPosition(0);
    Edit1->setFixedWidth(qMax(Edit1->minimumWidth(), ancho_de_lectura(*Edit1)));
    return falla_origen;
}

void Tfedtmovimien::muestre_fecha() {
    const QString fecha = CMovimiento.FieldByName("ENCO_FECHA").texto();
    anio_voucher = fecha.left(4);
    mes_voucher = fecha.mid(4, 2).toInt() - 1;
    EAno->setText(anio_voucher);
    EMes->setText(Tfdm::nombres_periodo().value(mes_voucher));
    EDia->setText(fecha.right(2));
}

void Tfedtmovimien::CMovimientoAfterEdit() {
    CMovimiento.FieldByName("ENCO_USUARIO") = fdm().usuario;
    const QString fecha = CMovimiento.FieldByName("ENCO_FECHA").texto();
    const AjustesLibro a = fdmcnt().ajustes_libro();
    if (fecha < a.bloqueo_2649) {
        lineas_2649->rejilla->ReadOnly = true;
        libre_2649 = false;
    }
    if (fecha < a.bloqueo_niif) {
        lineas_niif->rejilla->ReadOnly = true;
        libre_niif = false;
    }
    if (!libre_2649 && !libre_niif)
        solo_imprima();
    // La rejilla NIIF de un comprobante ajeno se queda como estaba.
    if (!fdm().valor<Llave::ModificarDeOtrosModulos>() &&
        CMovimiento.FieldByName("ENCO_TIPOREF").entero() != 0) {
        lineas_2649->rejilla->ReadOnly = true;
        solo_imprima();
    }
    memorias.tercero_anterior = CMovimiento.FieldByName("TERC_NIT").texto();
}

void Tfedtmovimien::FormActivate() {
    if (ajustes.mostrar_saldo && CTipodoc.Active())
        CTipodoc.Refresh();
    // Ya con la ventana a la vista, para que se sepa de cuál se habla.
    if (!falla_origen_.isEmpty())
        reporte_falla(std::exchange(falla_origen_, {}));
    if (!borrador_ && !solo_imprime_ && SBGrabar->isEnabled())
        siga_borrador();
}

// ---------------------------------------------------------------- borrador

void Tfedtmovimien::siga_borrador() {
    borrador_ = new BorradorVivo(
        conjuntos(),
        fdm().Quorvex.parametros().base + '/' + fdm().usuario + '/' +
            peticion<AbreComprobante>().comprobante_encontrado,
        [this] { return huella(visto_); }, this);
    borrador_->parta_de(visto_);
    proteja([this] { ofrezca_borrador(); });
    borrador_->siga();
}

void Tfedtmovimien::ofrezca_borrador() {
    const auto b = borrador_->tome_huerfano();
    if (!b)
        return;
    const QString ofrece = QStringLiteral("%1 quedaron cambios sin grabar en este comprobante.")
                               .arg(hace_cuanto(b->momento, reloj().ahora()).replace(0, 1, "H"));
    const bool igual = b->dia == huella(visto_);
    if (!(igual ? pregunte(ofrece + " Desea retomarlos?")
                : pregunte_con_no(ofrece + " Después de eso se grabó con otros, que se perderían. "
                                           "Desea retomarlos?"))) {
        borrador_->resuelva_huerfano();
        return;
    }
    {
        const QScopedValueRollback<bool> sin_mostrar(encabezado_posteado_, false);
        vuelque(b->comprobante, conjuntos());
        for (ConjuntoDatos* d : {&CDetalle, &Cdetniif})
            d->First();
    }
    siga_los_items();
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->actualice_sumas();
        l->muestre_linea();
    }
    borrador_->resuelva_huerfano();
}

bool Tfedtmovimien::FormClose() {
    if (!PantallaComprobante::FormClose())
        return false;
    if (borrador_)
        borrador_->descarte();
    return true;
}

// ---------------------------------------------------------------- grabar e imprimir

void Tfedtmovimien::solo_imprima() {
    solo_imprime_ = true;
    SBGrabar->setText("F2:Imprime");
    // Lo que F2 no graba tampoco se graba al pasar de página.
    for (ControlDato* c : std::initializer_list<ControlDato*>{
             ERef, DBEdit1, DBEdit2, DBEdit3, DBEdit6, Mand, DBCheckBox1, DBCheckBox2, DBMemo1})
        c->ReadOnly(true);
}

void Tfedtmovimien::SBGrabarClick() {
    if (solo_imprime_) {
        if (hay_por_perder() && !salida_confirmada())
            return;
        imprima_comprobante(CMovimiento.FieldByName("ENCO_CONSEC").texto());
        cierre();
        return;
    }
    termine_lineas();
    const bool replica_detenida =
        !libre_niif && toca_la_replica() && CMovimiento.FieldByName("ENCO_REPNIIF").texto() == "S";
    const ResultadoGrabacion r =
        grabe(Grabador::Editar, replica_detenida ? "El libro NIIF está bloqueado a la fecha del "
                                                   "comprobante: sus líneas quedaron como estaban."
                                                 : QString());
    if (r.clase == ResultadoGrabacion::Rehusado)
        return;
    tipo_anterior = CMovimiento.FieldByName("TICO_COD").texto();
    if (r.clase == ResultadoGrabacion::Fallo) {
        CMovimiento.Edit();
        return;
    }
    imprima_comprobante(QString::number(r.id));
    cierre();
}

bool Tfedtmovimien::se_tolera(const Rechazo& rechazo) const {
    // Lo que está cerrado no se puede corregir: no por eso deja de grabarse lo demás.
    if (rechazo.libro == Libro::Niif && rechazo.de_linea() && !libre_niif)
        return true;
    // Sin tocar el libro 2649, o con el NIIF cerrado, no hay réplica que hacer.
    return rechazo.motivo == Motivo::SinEquivalente &&
           (!libre_niif || !toca_la_replica() ||
            (rechazo.campo == "CUEN_COD" && !pide_equivalente(rechazo.item)));
}

bool Tfedtmovimien::pide_equivalente(int item) const {
    if (CMovimiento.FieldByName("ENCO_REPNIIF").texto() != visto_.replica)
        return true;
    const auto campo = [this](const char* c) -> const Campo& { return CDetalle.FieldByName(c); };
    const Campo &de_item = campo("CODE_ITEM"), &de_cuenta = campo("CUEN_COD"),
                &de_debito = campo("CODE_DEBITO"), &de_credito = campo("CODE_CREDITO");
    QHash<qint64, const LineaComprobante*> antes;
    for (const LineaComprobante& l : visto_.lineas_2649)
        antes[l.item] = &l;
    QString cuenta;
    QSet<QString> cambiadas;
    CDetalle.recorra_todas([&](const Fila& f) {
        const qint64 este = CDetalle.valor_de(f, de_item).entero();
        const QString suya = CDetalle.valor_de(f, de_cuenta).texto();
        if (este == item)
            cuenta = suya;
        const LineaComprobante* l = antes.value(este);
        if (!l || l->cuenta != suya || l->debito != CDetalle.valor_de(f, de_debito).moneda() ||
            l->credito != CDetalle.valor_de(f, de_credito).moneda())
            cambiadas.insert(suya);
    });
    return cambiadas.contains(cuenta);
}

bool Tfedtmovimien::toca_la_replica() const {
    bool toca = CMovimiento.FieldByName("ENCO_REPNIIF").texto() != visto_.replica;
    // En el libro que se vació a mano solo nacen las réplicas de las líneas nuevas.
    bool vacio = true;
    Cdetniif.recorra_todas([&](const Fila&) { vacio = false; });
    CDetalle.recorra_todas([&](const Fila& f) {
        toca =
            toca || (vacio ? f.marca == Fila::Marca::Insertada : f.marca != Fila::Marca::Intacta);
    });
    return toca;
}

bool Tfedtmovimien::prepare_paso(LineasLibro& deja) {
    deja.termine_linea();
    // Mirar la otra página no graba a quien no puede grabar, ni lo que nadie cambió.
    return !deja.sin_lineas() && SBGrabar->isEnabled() && (!solo_imprime_ || hay_por_perder());
}

void Tfedtmovimien::termine_paso(bool entra_niif, bool grabado) {
    if (entra_niif && grabado) {
        CMovimiento.Refresh();
        siga_los_items(); // las réplicas ya ocupan los suyos
    }
    if (grabado)
        recuerde_lo_visto();
    CMovimiento.Edit();
}

void Tfedtmovimien::recuerde_lo_visto() {
    const qint64 id = CMovimiento.FieldByName("ENCO_CONSEC").entero();
    if (const auto guardado = lea_comprobante(fdm().Quorvex, id))
        visto_ = *guardado;
    if (borrador_)
        borrador_->parta_de(lea_comprobante(conjuntos()));
}

// ---------------------------------------------------------------- órdenes

void Tfedtmovimien::pegue_filas(LineasLibro& lineas, const QVector<QStringList>& filas) {
    lineas.rejilla->pegue(filas);
}

qint64 Tfedtmovimien::id_por_copiar() {
    if (hay_por_perder() && solo_imprime_) {
        // Aquí F2 no graba: no hay cómo hacerlo primero.
        if (!pregunte_con_no("Se copia el comprobante como está grabado, sin los cambios que tiene "
                             "sin grabar. Desea continuar?"))
            return 0;
    } else if (hay_por_perder()) {
        muestre_mensaje("Grabe primero los cambios: se copia el comprobante como está grabado.");
        return 0;
    }
    return CMovimiento.FieldByName("ENCO_CONSEC").entero();
}

void Tfedtmovimien::muestre_columnas(bool visibles) {
    // La segunda no existe: la orden falla cuando ya cambió la primera.
    for (int columna : {int(LineasLibro::kDescontable), LineasLibro::kDescontable + 1})
        lineas_2649->rejilla->columna(columna).Visible = visibles;
}

void Tfedtmovimien::borre_desde_la_actual(ConjuntoDatos& lineas) {
    lineas.Cancel();
    quite_filtro(); // las ocultas también se reemplazan
    int quedan = lineas.RecordCount() - qMax(lineas.RecNo(), 0);
    while (quedan-- > 0)
        lineas.Delete();
}

void Tfedtmovimien::ReplicaraNIIF1Click() {
    if (CMovimiento.FieldByName("ENCO_REPNIIF").texto() != "S") {
        muestre_mensaje(
            "El comprobante debe tener el check de replicar a NIIF antes de usar esta opción.");
        return;
    }
    lineas_niif->exija_abiertas();
    if (!pregunte_con_no("Esta seguro de descartar la información de NIIF y reemplazarla por la "
                         "equivalencia?"))
        return;
    lineas_2649->termine_linea();
    // Media réplica no cuadra: antes de descartar nada se dice qué cuenta no tiene equivalente.
    Comprobante sin_niif = lea_comprobante(conjuntos());
    sin_niif.lineas_niif.clear();
    const Rechazos sin_equivalente = revise_replica(fdm().Quorvex, sin_niif);
    if (!sin_equivalente.isEmpty()) {
        diga(sin_equivalente, modo_de(Grabador::Editar));
        return;
    }
    borre_desde_la_actual(Cdetniif);
    replique();
    lineas_niif->actualice_sumas();
}

void Tfedtmovimien::replique() {
    static const char* const campos[] = {
        "CODE_CONCEPTO", "TERC_NIT",  "PROY_COD",    "CENT_COD",     "CODE_REFER",
        "CODE_BASE",     "CODE_PORC", "CODE_DEBITO", "CODE_CREDITO", "CODE_DESCONTABLE"};
    const QScopedValueRollback<bool> replicando(lineas_niif->replicando, true);
    for (CDetalle.First(); !CDetalle.Eof(); CDetalle.Next()) {
        Cdetniif.Append();
        const QString cuenta = CDetalle.FieldByName("CUEN_COD").texto();
        CBorrar.Open("SELECT CUEN_EQNIIF FROM CUENTAS WHERE CUEN_COD = " + QuotedStr(cuenta));
        Cdetniif.FieldByName("CUEN_COD") = CBorrar.Fields(0).texto();
        for (const char* campo : campos)
            Cdetniif.FieldByName(campo) = CDetalle.FieldByName(campo).valor();
        // Con ella la base lleva a esta línea lo que después se corrija en la del 2649.
        Cdetniif.FieldByName("CODE_ITEMREP") = CDetalle.FieldByName("CODE_ITEM").valor();
        Cdetniif.Post();
    }
}

void Tfedtmovimien::SBBorrarClick() {
    const auto t = [this](const char* c) { return CMovimiento.FieldByName(c).texto(); };
    PedidoBorrado pedido;
    pedido.id = CMovimiento.FieldByName("ENCO_CONSEC").entero();
    pedido.tipo = t("TICO_COD");
    pedido.prefijo = t("PRCO_PREF");
    pedido.numero = t("ENCO_NUMERO");
    pedido.tipo_origen = CMovimiento.FieldByName("ENCO_TIPOREF").entero();
    pedido.visto = visto_;
    const ResultadoBorrado resultado = fdmcnt().borrar_comprobante(objectName(), pedido);
    if (resultado == ResultadoBorrado::Negado || resultado == ResultadoBorrado::Borrado)
        cierre();
}

void Tfedtmovimien::traiga_plantilla(const QString& plantilla) {
    lineas_2649->exija_abiertas();
    if (!lineas_2649->sin_lineas() &&
        !pregunte_con_no("Al traer la plantilla perderá los movimientos digitados en el "
                         "comprobante, Continuar?"))
        return;
    if (!ubique_plantilla(CPlantilla, plantilla))
        return;
    if (!lineas_2649->sin_lineas())
        borre_desde_la_actual(CDetalle); // las líneas de arriba se quedan
    copie_lineas_plantilla(CPlantilladet, CDetalle, CMovimiento.FieldByName("ENCO_CONSEC").valor(),
                           CMovimiento.FieldByName("ENCO_CONCEPTO").texto());
    lineas_2649->actualice_sumas(); // con la última línea, que no se dejó
    CPlantilla.Close();
}

bool Tfedtmovimien::hay_por_perder() const {
    // El usuario de la fila lo pone la pantalla: no es un cambio que se pueda perder.
    return CMovimiento.Active() &&
           (hay_a_medio_escribir(*this) || CMovimiento.ChangeCount() > 0 || CDetalle.cambiada() ||
            Cdetniif.cambiada() || CMovimiento.cambiada({"ENCO_USUARIO"}));
}
