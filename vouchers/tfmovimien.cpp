#include "vouchers/tfmovimien.h"

#include "vouchers/copia_plantilla.h"
#include "vouchers/impresion_pendiente.h"
#include "vouchers/pch.h"

Tfmovimien::Tfmovimien()
    : PantallaComprobante("Tfmovimien", "Comprobantes contables"),
      PPrefijos(this, "PPrefijos", &fdm().QPrefijos, poAllowCommandText),
      PProyectos(this, "PProyectos", &fdm().TProyectos),
      PPlantilla(this, "PPlantilla", &fdmcnt().TPlantilla),
      CPrefijos(this, "CPrefijos", &PPrefijos), CProyectos(this, "CProyectos", &PProyectos),
      CCentros(this, "CCentros"), CPlantilla(this, "CPlantilla", &PPlantilla),
      CPlantilladet(this, "CPlantilladet"), Cplantilladn(this, "Cplantilladn") {
    campos_prefijos(CPrefijos);
    CPrefijos.CommandText =
        "SELECT * FROM PREFIJOS_CONTA WHERE TICO_COD = '' AND PRCO_ACTIVO = 'S'";
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

    LPref = new ListaDato(&CMovimiento, "PRCO_PREF");
    LPref->setObjectName("LPref");
    LPref->lista_de(&CPrefijos, "PRCO_PREF", "PRCO_PREF");
    construya(LPref);
    LTipo->OnEnter = [this] { LTipoEnter(); };
    LPref->OnExit = [this] { LPrefExit(); };
    EDia->installEventFilter(this);

    declare_teclas_comunes();
    auto* barra = findChild<BarraBotones*>("barra");
    SBPlantilla = barra->boton("SBPlantilla", "Plantilla", "folder-open", Qt::Key_F11,
                               [this] { busque_plantilla(); });
    SpeedButton1 = barra->boton("SpeedButton1", "Buscar", "edit-find", {}, [this] {
        abra_o_avise("Tfbuscomproba", AbreBusquedaComprobantes{LTipo->valor().texto()});
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
    tecla(Qt::Key_F9, "Tfcuentas", [this] { busque_cuenta(lineas_a_la_vista().libro); });
    orden_de_entrega<PidePlantilla, PideTercero, PideNuevoTercero, PideCuenta, PideCentro,
                     PideConcepto, PideArticulo, PideActivo>();
}

// ---------------------------------------------------------------- creación

void Tfmovimien::FormCreate() {
    tipo_anterior.clear();
    en_grilla = false;
    fdm().ConfigurarProviders(this);
    // El derecho, antes que nada: el comprobante provisional se podría eliminar sin él.
    if (!fdm().exija_acceso(30)) {
        pida_cierre_al_crear();
        return;
    }
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
    if (CMovimiento.IsEmpty())
        CMovimiento.Append();
    else
        recupere_provisional();
    tamano_del_area(60, 40);
}

void Tfmovimien::recupere_provisional() {
    switch (
        pregunte_botones("Se encontró un comprobante previo que no está correctamente registrado. "
                         "Desea Eliminarlo o Recuperarlo?",
                         {"Eliminarlo", "Recuperarlo"})) {
    case Primera:
        // Las líneas NIIF bajo el id 0 se quedan donde están.
        CBorrar.Execute("delete from comprobante_detalle where enco_consec = 0");
        CBorrar.Execute("delete from comprobante_encabezado where enco_consec = 0");
        CMovimiento.Refresh();
        CMovimiento.Append();
        break;
    case Segunda: {
        // El día, el prefijo y los contadores siguen al comprobante que se rescata.
        const auto rescatado = [this](const char* c) { return CMovimiento.FieldByName(c).texto(); };
        EDia->setText(rescatado("ENCO_FECHA").right(2));
        CPrefijos.Open("SELECT * FROM PREFIJOS_CONTA WHERE TICO_COD = " +
                       QuotedStr(rescatado("TICO_COD")) + " AND PRCO_ACTIVO = 'S'");
        const auto mayor = [](const ConjuntoDatos& d) {
            qint64 n = 0;
            for (int i = 0; i < d.RecordCount(); ++i)
                n = qMax(n, d.valor_en(i, d.FieldByName("CODE_ITEM")).entero());
            return int(n);
        };
        lineas_2649->item = mayor(CDetalle);
        lineas_niif->item = mayor(Cdetniif);
        CMovimiento.Edit();
        break;
    }
    default:
        break;
    }
}

void Tfmovimien::FormActivate() {
    muestre_periodo();
    mes_ = fdmcnt().periodo_actual;
    lineas_2649->vacie_diferencias();
    if (ajustes.mostrar_saldo)
        for (ConjuntoDatos* c : {&CTipodoc, &CPrefijos, &CProyectos})
            if (c->Active())
                c->Refresh();
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
    const auto ponga = [this](const char* campo, const Valor& v) {
        CMovimiento.FieldByName(campo) = v;
    };
    ponga("ENCO_CONSEC", 0);
    ponga("ENCO_TIPOREF", 0);
    ponga("ENCO_IDREF", 0);
    ponga("ENCO_USUARIO", fdm().usuario);
    ponga("ENCO_DESCONTABLE", "S");
    ponga("ENCO_REPNIIF", "N");
    EDia->setText(fdmcnt().dia_actual);
    lineas_2649->NomCuenta->clear();
    lineas_2649->NomTerc->clear();
    lineas_2649->item = lineas_niif->item = 0;
    for (EditorNumero* e :
         {lineas_2649->ESaldocta, lineas_2649->ESaldoter, lineas_2649->ESaldocent})
        e->vacie();
    // Las sumas del comprobante anterior no son las del nuevo.
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->Sumadeb->vacie();
        l->SumCred->vacie();
        l->vacie_diferencias();
    }
}

void Tfmovimien::CMovimientoTICO_CODChange(Campo& campo) {
    CPrefijos.Open("SELECT * FROM PREFIJOS_CONTA WHERE TICO_COD = " + QuotedStr(campo.texto()) +
                   " AND PRCO_ACTIVO = 'S'");
    CMovimiento.FieldByName("ENCO_NUMERO").limpie();
    if (CPrefijos.IsEmpty())
        throw ErrorDatos(QStringLiteral("Debe registrar antes los prefijos."));
    LPref->setEnabled(true);
    CMovimiento.FieldByName("PRCO_PREF") = CPrefijos.FieldByName("PRCO_PREF").texto();
    if (CPrefijos.RecordCount() == 1)
        LPref->setEnabled(false);
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
    CMovimiento.FieldByName("ENCO_NUMERO") = CPrefijos.FieldByName("PREF_NUMERO").texto();
    aplique_numeracion();
}

void Tfmovimien::LPrefExit() {
    aplique_numeracion();
    if (CMovimiento.editando() && CMovimiento.FieldByName("ENCO_NUMERO").vacio())
        CMovimiento.FieldByName("ENCO_NUMERO") = CPrefijos.FieldByName("PREF_NUMERO").texto();
}

void Tfmovimien::CMovimientoENCO_NUMEROChange(Campo& campo) {
    const QString numero = campo.texto();
    if (numero.isEmpty())
        return;
    if (numero.size() < 6) {
        campo = Tfdm::complete_numero(numero);
        return;
    }
    const QString sugerido = CPrefijos.FieldByName("PREF_NUMERO").texto();
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
    CMovimiento.FieldByName("ENCO_FECHA") =
        fdmcnt().compone_fecha(EDia->text().isEmpty() ? QStringLiteral("1") : EDia->text());
    memorias.tercero_anterior = CMovimiento.FieldByName("TERC_NIT").texto();
}

void Tfmovimien::EDiaExit() {
    const QString tope = fdmcnt().dias_periodo();
    if (EDia->text().isEmpty())
        return;
    if (EDia->text().toInt() > tope.toInt()) {
        EDia->setText(tope);
    } else if (CMovimiento.Active() && !CMovimiento.IsEmpty()) {
        CMovimiento.Edit();
        CMovimiento.FieldByName("ENCO_FECHA") = fdmcnt().compone_fecha(EDia->text());
    }
}

bool Tfmovimien::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == EDia && evento->type() == QEvent::FocusOut)
        proteja([this] { EDiaExit(); });
    return PantallaComprobante::eventFilter(objeto, evento);
}

// ---------------------------------------------------------------- grabar

void Tfmovimien::SBGrabarClick() {
    lineas_2649->termine_linea();
    lineas_niif->termine_linea();
    // Sin líneas 2649 no se prueba ninguno de los dos libros.
    if (!CDetalle.IsEmpty()) {
        bool rehusado = false;
        for (LineasLibro* l : {lineas_2649, lineas_niif})
            if (!l->cuadrado()) {
                l->detalle.Edit();
                rehusado = true;
            }
        if (rehusado)
            return;
    }
    grabando = true;
    try {
        fdmcnt().dia_actual = EDia->text();
        tipo_anterior = CMovimiento.FieldByName("TICO_COD").texto();
        const QString id = tome_id();
        if (ya_habia_quedado_grabado()) {
            grabando = false;
            return;
        }
        grabacion_dudosa_ = true;
        if (CMovimiento.ApplyUpdates(0) == 0) {
            grabacion_dudosa_ = false;
            CMovimiento.Refresh();
            imprima_comprobante(id);
            lineas_2649->vacie_diferencias();
            CMovimiento.Append();
            CMovimiento.FieldByName("TICO_COD") = tipo_anterior;
            DBEdit1->setFocus();
        } else {
            CMovimiento.Edit();
        }
    } catch (...) {
        grabando = false;
        throw;
    }
    grabando = false;
}

bool Tfmovimien::ya_habia_quedado_grabado() {
    if (!std::exchange(grabacion_dudosa_, false))
        return false;
    // Un intento que falla se deshace entero: si el id está en la base, lo que se perdió fue la
    // respuesta del servidor y no el comprobante.
    const QString id = QString::number(CMovimiento.FieldByName("ENCO_CONSEC").entero());
    CBorrar.Open("select enco_numero from comprobante_encabezado where enco_consec = " + id);
    if (CBorrar.IsEmpty())
        return false;
    muestre_mensaje("El comprobante " + CBorrar.Fields(0).texto() +
                    " ya había quedado grabado cuando se perdió la conexión. Revíselo antes de "
                    "seguir.");
    CMovimiento.CancelUpdates();
    CMovimiento.Append();
    CMovimiento.FieldByName("TICO_COD") = tipo_anterior;
    abra_comprobante(id);
    return true;
}

void Tfmovimien::TabSheet2Enter() {
    if (!grabando)
        grabe_por_cambio_de_pagina(*lineas_2649, true);
    lineas_niif->rejilla->setFocus();
}

void Tfmovimien::TabSheet2Exit() {
    if (!grabando)
        grabe_por_cambio_de_pagina(*lineas_niif, false);
    lineas_2649->rejilla->setFocus();
}

void Tfmovimien::grabe_por_cambio_de_pagina(LineasLibro& lineas, bool entrando) {
    lineas.termine_linea();
    if (lineas.detalle.IsEmpty())
        return;
    if (!lineas.cuadrado()) {
        lineas.detalle.Edit();
        return;
    }
    if (entrando) {
        fdmcnt().dia_actual = EDia->text();
        tipo_anterior = CMovimiento.FieldByName("TICO_COD").texto();
    }
    const QString id = tome_id();
    if (CMovimiento.ApplyUpdates(0) != 0)
        return;
    encabezado_posteado_ = false;
    CMovimiento.Close();
    CMovimiento.FetchParams();
    CMovimiento.Params["ID"] = id;
    CMovimiento.Open();
    CMovimiento.Edit();
    encabezado_posteado_ = true;
}

void Tfmovimien::pegue(Rejilla& rejilla) {
    (&rejilla == lineas_niif->rejilla ? lineas_niif : lineas_2649)->pegue();
}

// ---------------------------------------------------------------- plantilla

namespace {

void borre_todas(ConjuntoDatos& lineas) {
    lineas.Cancel();
    lineas.First();
    while (!lineas.IsEmpty())
        lineas.Delete();
}

} // namespace

void Tfmovimien::busque_plantilla() {
    escoja_plantilla(*this, [this](const QString& plantilla) { traiga_plantilla(plantilla); });
}

void Tfmovimien::traiga_plantilla(const QString& plantilla) {
    if (!CDetalle.IsEmpty() &&
        !pregunte("Al traer la plantilla perderá los movimientos digitados en "
                  "el comprobante, Continuar?"))
        return;
    const QString concepto = CMovimiento.FieldByName("ENCO_CONCEPTO").texto();
    borre_todas(CDetalle);
    borre_todas(Cdetniif);
    CMovimiento.Edit();
    CPlantilla.Close();
    CPlantilla.Open();
    CPlantilla.Locate("plan_id", {plantilla.toInt()});
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
        CMovimiento.FieldByName("ENCO_NUMERO") = CPrefijos.FieldByName("PREF_NUMERO").texto();
    CMovimiento.FieldByName("ENCO_FECHA") = fdmcnt().compone_fecha(EDia->text());
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

void Tfmovimien::SBCancelClick() {
    if (!CDetalle.IsEmpty() && !salida_confirmada())
        return;
    CMovimiento.CancelUpdates();
    close();
}
