#include "vouchers/tfmovimien.h"

#include "datos/firebird/reloj.h"
#include "libro/numeracion.h"
#include "vouchers/copia_plantilla.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QScopedValueRollback>

namespace {

QString periodo_de_la_sesion() {
    return fdmcnt().compone_fecha("1").left(kLargoPeriodo);
}

bool es_otro_periodo(const QString& periodo) {
    return periodo.size() == kLargoPeriodo && periodo != periodo_de_la_sesion();
}

QString nombre_de(const QString& periodo) {
    return Tfdm::nombres_periodo().value(periodo.mid(4).toInt() - 1) + " de " + periodo.left(4);
}

} // namespace

Tfmovimien::Tfmovimien()
    : PantallaComprobante("Tfmovimien", "Comprobantes contables"),
      PPrefijos(this, "PPrefijos", &fdm().QPrefijos, poAllowCommandText),
      PProyectos(this, "PProyectos", &fdm().TProyectos),
      PPlantilla(this, "PPlantilla", &fdmcnt().TPlantilla),
      CPrefijos(this, "CPrefijos", &PPrefijos), CProyectos(this, "CProyectos", &PProyectos),
      CCentros(this, "CCentros"), CPlantilla(this, "CPlantilla", &PPlantilla),
      CPlantilladet(this, "CPlantilladet"), Cplantilladn(this, "Cplantilladn") {
    defina_conjuntos();
    LPref = new ListaDato(&CMovimiento, "PRCO_PREF");
    LPref->setObjectName("LPref");
    LPref->lista_de(&CPrefijos, "PRCO_PREF", "PRCO_PREF");
    LPref->setSizeAdjustPolicy(QComboBox::AdjustToContents); // sin el sitio de un dibujo
    construya(LPref);
    LTipo->OnEnter = [this] { LTipoEnter(); };
    LPref->OnExit = [this] { LPrefExit(); };
    EDia->installEventFilter(this);
    declare_teclas_comunes();
    declare_botones();
    orden_de_entrega<PidePlantilla, PideTercero, PideNuevoTercero, PideCuenta, PideCentro,
                     PideConcepto, PideArticulo, PideActivo>();
}

void Tfmovimien::defina_conjuntos() {
    campos_prefijos(CPrefijos);
    CPrefijos.FieldByName("PRCO_PREF").banderas(pfInUpdate | pfInWhere | pfInKey);
    CPrefijos.CommandText = sql_prefijos_activos({});
    CCentros.anide_en(&CProyectos, &fdm().TCentros);
    campos_proyectos(CProyectos);
    campos_centros(CCentros);
    CCentros.Filter("SUCU_ID = 0");
    CPlantilladet.anide_en(&CPlantilla, &fdmcnt().TPlantilladetalle);
    Cplantilladn.anide_en(&CPlantilla, &fdmcnt().TPlantilladn);

    ConjuntoDatos& c = CMovimiento;
    c.AfterInsert = [this] { CMovimientoAfterInsert(); };
    c.BeforePost = [this] { CMovimientoBeforePost(); };
    c.FieldByName("TICO_COD").OnChange = [this](Campo& x) { CMovimientoTICO_CODChange(x); };
    c.FieldByName("PRCO_PREF").OnChange = [this](Campo& x) { CMovimientoPRCO_PREFChange(x); };
    c.FieldByName("ENCO_NUMERO").OnChange = [this](Campo& x) { CMovimientoENCO_NUMEROChange(x); };
}

void Tfmovimien::declare_botones() {
    auto* barra = findChild<BarraBotones*>("barra");
    SBPlantilla = barra->boton("SBPlantilla", "Plantilla", "folder-open", Qt::Key_F11,
                               [this] { busque_plantilla(); });
    SpeedButton1 = barra->boton("SpeedButton1", "Buscar", "edit-find", {}, [this] {
        pantallas().abrir("Tfbuscomproba", AbreBusquedaComprobantes{LTipo->valor().texto()});
    });
    speedButton4 = barra->boton("speedButton4", "Mes anterior", "go-previous",
                                QKeySequence(Qt::ALT | Qt::Key_Left), [this] {
                                    fdmcnt().mes_menos();
                                    muestre_periodo();
                                });
    SpeedButton5 = barra->boton("SpeedButton5", "Mes siguiente", "go-next",
                                QKeySequence(Qt::ALT | Qt::Key_Right), [this] {
                                    fdmcnt().mes_mas();
                                    muestre_periodo();
                                });
    tecla(Qt::Key_F8, "Tfauxiliar",
          [this] { abra_auxiliar(Libro::Decreto2649, CDetalle.FieldByName("CUEN_COD").texto()); });
    tecla_de_busqueda(Qt::Key_F9, "Tfcuentas",
                      [this] { busque_cuenta(lineas_a_la_vista().libro); });
}

// ---------------------------------------------------------------- creación

void Tfmovimien::FormCreate() {
    if (!fdm().exija_acceso(30)) { // antes que nada: la recuperación puede borrar
        pida_cierre_al_crear();
        return;
    }
    tipo_anterior.clear();
    en_grilla = false;
    fdm().ConfigurarProviders(this);
    {
        const QSignalBlocker callada(PageControl1); // escoger la página inicial no graba nada
        lea_configuracion(Orden::Digitar);
    }
    CTipodoc.Open();
    CPrefijos.Open();
    CTidocartera.Open();
    CTidocartera.Filtered(true);
    CCategoria.Open();
    llene_categorias(lineas_2649->rejilla);
    CMovimiento.FetchParams();
    CMovimiento.Params["ID"] = "0";
    CMovimiento.Open();
    provisional_ = !CMovimiento.IsEmpty();
    if (!provisional_)
        CMovimiento.Append();
    tamano_del_area(60, 40);
}

void Tfmovimien::ofrezca_lo_pendiente() {
    // Ya con la ventana a la vista, para que las preguntas se entiendan.
    borrador_ = new BorradorVivo(
        conjuntos(), fdm().Quorvex.parametros().base + '/' + fdm().usuario,
        [this] { return EDia->text() + ' ' + visto_; }, this);
    borrador_->hay = [this] { return hay_por_perder(); };
    borrador_->periodo = periodo_de_la_sesion;
    if (provisional_)
        recupere_provisional();
    // Aunque lo anterior no se haya podido retomar, lo que se digite ahora queda a salvo.
    if (CMovimiento.State() == Estado::Insercion)
        proteja([this] { ofrezca_borrador(); });
    borrador_->siga();
}

void Tfmovimien::recupere_provisional() {
    CMovimiento.Cancel(); // llegar a su tipo pudo ponerlo en edición
    switch (
        pregunte_botones("Se encontró un comprobante previo que no está correctamente registrado. "
                         "Desea Eliminarlo o Recuperarlo?",
                         {"Eliminarlo", "Recuperarlo"}, Segunda)) {
    case Primera:
        // Las líneas NIIF bajo el id 0 se quedan donde están.
        borre_comprobante(fdm().Quorvex, modo_borrado(objectName()), {}, fdm().usuario);
        CMovimiento.Refresh();
        CMovimiento.Append();
        break;
    case Segunda: {
        // El día, el prefijo y los contadores siguen al comprobante que se rescata.
        const auto rescatado = [this](const char* c) { return CMovimiento.FieldByName(c).texto(); };
        pase_al_periodo(rescatado("ENCO_FECHA").left(kLargoPeriodo));
        EDia->setText(rescatado("ENCO_FECHA").right(2));
        siga_al_prefijo();
        siga_los_items();
        CMovimiento.Edit();
        break;
    }
    default:
        break;
    }
}

void Tfmovimien::ofrezca_borrador() {
    const auto borrador = borrador_->tome_huerfano();
    if (!borrador)
        return;
    const Comprobante& c = borrador->comprobante;
    const qsizetype lineas = c.lineas_2649.size() + c.lineas_niif.size();
    QStringList cual;
    if (!c.tipo.isEmpty())
        cual << (c.tipo + ' ' + c.prefijo).trimmed();
    if (!c.concepto.isEmpty())
        cual << QStringLiteral("«%1»").arg(c.concepto);
    cual << cuantas_lineas(lineas);
    QString que = QStringLiteral("%1 quedó un comprobante sin grabar: %2. ")
                      .arg(hace_cuanto(borrador->momento, reloj().ahora()).replace(0, 1, "H"),
                           cual.join(QStringLiteral(", ")));
    if (const QString periodo = periodo_de(*borrador); es_otro_periodo(periodo))
        que += "Es de " + nombre_de(periodo) + " y se sigue en ese período. ";
    const bool retoma = lo_cambio_otro(*borrador)
                            ? pregunte_con_no(que + "Después de eso otro usuario lo cambió, y "
                                                    "lo suyo se perdería. Desea retomarlo?")
                            : pregunte(que + "Desea retomarlo?");
    if (retoma)
        recupere(*borrador);
    borrador_->resuelva_huerfano(); // ya está en la pantalla: no se ofrece otra vez
    if (retoma)
        vaya_a_la_ultima_linea();
}

void Tfmovimien::vaya_a_la_ultima_linea() {
    LineasLibro& l = lineas_a_la_vista();
    if (l.detalle.IsEmpty())
        return;
    l.detalle.Last();
    l.rejilla->SelectedIndex(0);
    devuelva_a(l.rejilla); // después de que la pregunta devuelva el teclado
}

bool Tfmovimien::lo_cambio_otro(const Borrador& borrador) {
    const QString visto = borrador.dia.section(' ', 1);
    const auto ahora = lea_comprobante(fdm().Quorvex, borrador.comprobante.id);
    return !visto.isEmpty() && ahora && huella(*ahora) != visto;
}

QString Tfmovimien::periodo_de(const Borrador& borrador) {
    const Comprobante& c = borrador.comprobante;
    if (c.id != 0)
        if (const auto guardado = lea_comprobante(fdm().Quorvex, c.id))
            return guardado->fecha.left(kLargoPeriodo);
    return borrador.periodo.isEmpty() ? c.fecha.left(kLargoPeriodo) : borrador.periodo;
}

void Tfmovimien::pase_al_periodo(const QString& periodo) {
    if (!es_otro_periodo(periodo))
        return;
    fdmcnt().ano_actual = periodo.left(4);
    fdmcnt().periodo_actual = periodo.mid(4).toInt() - 1;
    muestre_periodo();
    mes_ = fdmcnt().periodo_actual;
    emit fdmcnt().balance_por_recalcular();
    fdm().mostrar_advertencia("El período de trabajo pasó a " + nombre_de(periodo) +
                              ", el del comprobante.");
}

void Tfmovimien::recuerde_lo_visto() {
    const auto ahora =
        lea_comprobante(fdm().Quorvex, CMovimiento.FieldByName("ENCO_CONSEC").entero());
    visto_ = ahora ? huella(*ahora) : QString();
}

void Tfmovimien::recupere(const Borrador& borrador) {
    Comprobante c = borrador.comprobante;
    pase_al_periodo(periodo_de(borrador));
    if (c.id != 0) {
        // Un cambio de página ya lo había grabado: sigue siendo ese, si todavía está.
        CMovimiento.Cancel();
        CMovimiento.Params["ID"] = QString::number(c.id);
        CMovimiento.Reabra();
        if (CMovimiento.IsEmpty()) {
            c.id = 0;
            CMovimiento.Params["ID"] = "0";
            CMovimiento.Reabra();
            CMovimiento.Append();
        } else {
            recuerde_lo_visto();
        }
    }
    {
        const QScopedValueRollback<bool> sin_mostrar(encabezado_posteado_, false);
        EDia->setText(borrador.dia.section(' ', 0, 0));
        ubique_prefijo(c.tipo, c.prefijo);
        // El que tenía pudo tomarlo otro mientras tanto.
        if (c.id == 0 && CPrefijos.FieldByName("PRCO_PREF").texto() == c.prefijo &&
            CPrefijos.FieldByName("PRCO_AUTO").texto() == "S")
            c.numero = siguiente_numero();
        vuelque(c, conjuntos());
    }
    encabezado_posteado_ = true;
    siga_los_items();
    for (LineasLibro* l : {lineas_2649, lineas_niif})
        l->actualice_sumas();
}

void Tfmovimien::FormActivate() {
    muestre_periodo();
    mes_ = fdmcnt().periodo_actual;
    lineas_2649->vacie_diferencias();
    if (ajustes.mostrar_saldo)
        for (ConjuntoDatos* c : {&CTipodoc, &CPrefijos, &CProyectos})
            if (c->Active())
                c->Refresh();
    if (!borrador_)
        ofrezca_lo_pendiente();
}

void Tfmovimien::muestre_periodo() {
    EAno->setText(fdmcnt().ano_actual);
    EMes->setText(fdmcnt().nombre_periodo());
}

QString Tfmovimien::ano_saldos() const {
    return EAno->text();
}

// ---------------------------------------------------------------- encabezado

void Tfmovimien::CMovimientoAfterInsert() {
    encabezado_posteado_ = false;
    visto_.clear();
    const auto ponga = [this](const char* campo, const Valor& v) {
        CMovimiento.FieldByName(campo) = v;
    };
    ponga("ENCO_CONSEC", 0);
    ponga("ENCO_TIPOREF", 0);
    ponga("ENCO_IDREF", 0);
    ponga("ENCO_USUARIO", fdm().usuario);
    ponga("ENCO_DESCONTABLE", "S");
    ponga("ENCO_REPNIIF", "N");
    muestre_mandante();
    EDia->setText(fdmcnt().dia_actual);
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        // Lo de la última línea y las sumas del anterior no son del nuevo.
        l->contador.empiece();
        l->vacie_pie();
        l->Sumadeb->vacie();
        l->SumCred->vacie();
        l->vacie_diferencias();
    }
    EArticod->clear(); // los de una línea del comprobante anterior
    Edit2->clear();
    grabacion.olvide();
}

void Tfmovimien::CMovimientoTICO_CODChange(Campo& campo) {
    CPrefijos.Open(sql_prefijos_activos(campo.texto()));
    CMovimiento.FieldByName("ENCO_NUMERO").limpie();
    if (campo.vacio()) { // una compañía sin tipos: se dice al grabar, y la ventana abre entera
        CMovimiento.FieldByName("PRCO_PREF").limpie();
        return;
    }
    if (CPrefijos.IsEmpty())
        throw ErrorDatos(QStringLiteral("Debe registrar antes los prefijos."));
    LPref->setEnabled(true);
    CMovimiento.FieldByName("PRCO_PREF") = CPrefijos.FieldByName("PRCO_PREF").texto();
    if (CPrefijos.RecordCount() == 1)
        LPref->setEnabled(false);
}

void Tfmovimien::ubique_prefijo(const QString& tipo, const QString& prefijo) {
    CPrefijos.Open(sql_prefijos_activos(tipo));
    LPref->setEnabled(CPrefijos.RecordCount() != 1);
    if (CPrefijos.Locate("PRCO_PREF", {prefijo}))
        aplique_numeracion();
}

void Tfmovimien::siga_al_prefijo() {
    ubique_prefijo(CMovimiento.FieldByName("TICO_COD").texto(),
                   CMovimiento.FieldByName("PRCO_PREF").texto());
}

void Tfmovimien::aplique_numeracion() {
    const bool automatico = CPrefijos.FieldByName("PRCO_AUTO").texto() == "S";
    ENumero->ReadOnly(automatico);
    // Lo que no se digita no estorba al pasar de campo en campo.
    ENumero->setFocusPolicy(automatico ? Qt::ClickFocus : Qt::StrongFocus);
}

void Tfmovimien::CMovimientoPRCO_PREFChange(Campo& campo) {
    if (!CPrefijos.Locate("PRCO_PREF", {campo.texto()}))
        return;
    CMovimiento.FieldByName("ENCO_NUMERO") = siguiente_numero();
    aplique_numeracion();
}

QString Tfmovimien::siguiente_numero() {
    const QString numero = CPrefijos.FieldByName("PREF_NUMERO").texto();
    const auto agotado = revise_contador(CPrefijos.FieldByName("TICO_COD").texto(),
                                         CPrefijos.FieldByName("PRCO_PREF").texto(), numero);
    if (agotado)
        muestre_mensaje(agotado->texto);
    return agotado ? QString() : numero;
}

void Tfmovimien::asegure_numeracion() {
    // Un corte mientras se preparaba el comprobante pudo dejarlo sin prefijo ni número.
    Campo& tipo = CMovimiento.FieldByName("TICO_COD");
    if (!tipo.vacio() && CMovimiento.FieldByName("PRCO_PREF").vacio()) {
        CMovimiento.Edit();
        tipo = tipo.texto();
    }
}

void Tfmovimien::LPrefExit() {
    aplique_numeracion();
    if (CMovimiento.editando() && CMovimiento.FieldByName("ENCO_NUMERO").vacio())
        CMovimiento.FieldByName("ENCO_NUMERO") = siguiente_numero();
}

void Tfmovimien::CMovimientoENCO_NUMEROChange(Campo& campo) {
    const QString numero = campo.texto();
    if (numero.isEmpty())
        return;
    if (numero.size() < 6) {
        campo = Tfdm::complete_numero(numero);
        return;
    }
    // El automático nadie lo digitó: si otro lo toma, avanza cuantas veces haga falta.
    const bool automatico = CPrefijos.FieldByName("PRCO_AUTO").texto() == "S";
    const QString sugerido = automatico ? numero : CPrefijos.FieldByName("PREF_NUMERO").texto();
    const NumeroValidado numero_validado =
        fdmcnt().valide_NumComConta(CMovimiento.FieldByName("TICO_COD").texto(),
                                    CMovimiento.FieldByName("PRCO_PREF").texto(), sugerido, campo);
    if (!numero_validado.vale) {
        campo.limpie();
    } else if (!numero_validado.encontrado.isEmpty()) {
        abra_comprobante(numero_validado.encontrado);
        campo = sugerido;
    }
}

void Tfmovimien::CMovimientoBeforePost() {
    CMovimiento.FieldByName("ENCO_FECHA") = fecha_digitada();
    memorias.tercero_anterior = CMovimiento.FieldByName("TERC_NIT").texto();
}

QString Tfmovimien::fecha_digitada() {
    if (EDia->text().isEmpty()) {
        muestre_mensaje("Debe indicar el día del comprobante.");
        EDia->setFocus();
        throw EdicionAbortada();
    }
    ajuste_dia();
    return fdmcnt().compone_fecha(EDia->text());
}

void Tfmovimien::ajuste_dia() {
    const QString tope = fdmcnt().dias_periodo();
    if (EDia->text().toInt() <= tope.toInt())
        return;
    EDia->setText(tope);
    QApplication::beep();
    advierta(fdmcnt().nombre_periodo() + " de " + fdmcnt().ano_actual + " tiene " + tope +
             " días: el comprobante queda con el día " + tope + '.');
}

void Tfmovimien::ponga_fecha() {
    CMovimiento.Edit();
    CMovimiento.FieldByName("ENCO_FECHA") = fecha_digitada();
}

void Tfmovimien::EDiaExit() {
    if (EDia->text().isEmpty())
        return;
    if (EDia->text().toInt() > fdmcnt().dias_periodo().toInt())
        ajuste_dia();
    else if (CMovimiento.Active() && !CMovimiento.IsEmpty())
        ponga_fecha();
}

bool Tfmovimien::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == EDia && evento->type() == QEvent::FocusOut)
        proteja([this] { EDiaExit(); });
    return PantallaComprobante::eventFilter(objeto, evento);
}

// ---------------------------------------------------------------- grabar

void Tfmovimien::SBGrabarClick() {
    const JuntaAvisos junta(*this);
    termine_lineas();
    if (sin_lineas() && CMovimiento.FieldByName("ENCO_CONCEPTO").vacio() &&
        !pregunte_con_no("El comprobante no tiene líneas ni concepto. Desea grabarlo así?"))
        return;
    asegure_numeracion();
    ponga_fecha();
    const ResultadoGrabacion r = grabe(Grabador::Digitar);
    if (r.clase == ResultadoGrabacion::Rehusado) {
        if (r.rechazos.first().motivo == Motivo::Bloqueo)
            EDia->setFocus();
        return;
    }
    recuerde_para_el_siguiente();
    if (r.clase == ResultadoGrabacion::Grabado) {
        borrador_->descarte();
        deshacer.olvide();
    }
    if (r.clase == ResultadoGrabacion::Fallo) {
        CMovimiento.Edit();
    } else {
        // La llave que dejó un cambio de página traería otra vez ese comprobante, y sus líneas
        // pasarían por las memorias del que sigue.
        CMovimiento.Params["ID"] = "0";
        CMovimiento.Refresh();
        imprima_comprobante(QString::number(r.id));
        siga_con_otro();
        DBEdit1->setFocus();
    }
}

void Tfmovimien::siga_con_otro() {
    lineas_2649->vacie_diferencias();
    CMovimiento.Append();
    quite_filtro();
    CMovimiento.FieldByName("TICO_COD") = tipo_anterior;
}

bool Tfmovimien::prepare_paso(LineasLibro& deja) {
    if (grabando)
        return false;
    deja.termine_linea();
    if (deja.sin_lineas())
        return false;
    asegure_numeracion();
    ponga_fecha();
    return true;
}

void Tfmovimien::termine_paso(bool, bool grabado) {
    if (!grabado)
        return;
    {
        const QScopedValueRollback<bool> sin_mostrar(encabezado_posteado_, false);
        grabacion.relea();
        CMovimiento.Edit();
    }
    encabezado_posteado_ = true;
    recuerde_lo_visto();
    siga_los_items(); // las réplicas ya ocupan los suyos
}

void Tfmovimien::pegue_filas(LineasLibro& lineas, const QVector<QStringList>& filas) {
    lineas.pegue(filas);
}

// ---------------------------------------------------------------- plantilla

void Tfmovimien::busque_plantilla() {
    escoja_plantilla(*this, [this](const QString& plantilla) {
        deshacer.con("la plantilla", [&] { traiga_plantilla(plantilla); });
    });
}

bool Tfmovimien::sirve_su_prefijo() {
    const QString tipo = CPlantilla.FieldByName("TICO_COD").texto(),
                  prefijo = CPlantilla.FieldByName("PRCO_PREF").texto();
    CBorrar.Open(sql_prefijos_activos(tipo));
    if (prefijo.isEmpty() ? !CBorrar.IsEmpty() : CBorrar.Locate("PRCO_PREF", {prefijo}))
        return true;
    CPlantilla.Close();
    muestre_mensaje("El prefijo " + prefijo + " del tipo " + tipo +
                    " no existe o no está activo: la plantilla no se puede usar.");
    return false;
}

void Tfmovimien::traiga_plantilla(const QString& plantilla) {
    if (!lineas_2649->sin_lineas() &&
        !pregunte_con_no("Al traer la plantilla perderá los movimientos digitados en "
                         "el comprobante, Continuar?"))
        return;
    if (!ubique_plantilla(CPlantilla, plantilla) || !sirve_su_prefijo())
        return;
    const QString concepto = CMovimiento.FieldByName("ENCO_CONCEPTO").texto();
    CDetalle.borre_todas();
    Cdetniif.borre_todas();
    quite_filtro();
    CMovimiento.Edit();
    const auto copie = [this](const char* hacia, const char* desde) {
        CMovimiento.FieldByName(hacia) = CPlantilla.FieldByName(desde).valor();
    };
    copie("TICO_COD", "TICO_COD");
    copie("PRCO_PREF", "PRCO_PREF");
    if (concepto.isEmpty())
        copie("ENCO_CONCEPTO", "PLAN_CONCEPTO");
    copie("ENCO_REFER", "PLAN_REFER");
    if (CPrefijos.Locate("TICO_COD;PRCO_PREF", {CMovimiento.FieldByName("TICO_COD").valor(),
                                                CMovimiento.FieldByName("PRCO_PREF").valor()}))
        CMovimiento.FieldByName("ENCO_NUMERO") = siguiente_numero();
    ponga_fecha();
    CMovimiento.Post();
    const Valor id = CMovimiento.FieldByName("ENCO_CONSEC").valor();
    copie_lineas_plantilla(CPlantilladet, CDetalle, id, concepto);
    copie_lineas_plantilla(Cplantilladn, Cdetniif, id, concepto);
    // La última línea se grabó sin pasar a otra: las sumas aún no la cuentan.
    lineas_2649->actualice_sumas();
    lineas_niif->actualice_sumas();
    CPlantilla.Close();
}

// ---------------------------------------------------------------- salir

bool Tfmovimien::FormClose() {
    if (!PantallaComprobante::FormClose())
        return false;
    if (borrador_) // sin el derecho de entrar no llegó a haberlo
        borrador_->descarte();
    return true;
}

bool Tfmovimien::hay_por_perder() const {
    return !sin_lineas() ||
           se_digito(CMovimiento, {"ENCO_CONCEPTO", "ENCO_REFER", "TERC_NIT", "ENCO_NOMTERC",
                                   "ENCO_MONTO", "ENCO_OBS", "ENCO_MANDANTE"});
}
