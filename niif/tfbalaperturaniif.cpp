#include "niif/tfbalaperturaniif.h"

#include "catalogues/grabe_y_anuncie.h"
#include "datos/firebird/concuerde.h"
#include "niif/apertura.h"
#include "niif/paginas.h"
#include "niif/pch.h"
#include "niif/peticiones_niif.h"
#include "sesion/borrador_filas.h"
#include "sesion/instalacion.h"
#include "sesion/variables_informe.h"
#include "toolkit/aire.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/informes/motor.h"

#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScrollArea>

namespace {

constexpr int kPrimeraColumnaNiif = 8; ///< las de antes son de la cuenta 2649
constexpr int kMuestra = 8;            ///< cuentas que se nombran en un mensaje

/// De solo lectura, fuera del Tab; un texto largo se ve por su comienzo.
QLineEdit* caja(const char* nombre) {
    auto* e = new QLineEdit;
    e->setObjectName(nombre);
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    QObject::connect(e, &QLineEdit::textChanged, e, [e] { e->setCursorPosition(0); });
    return e;
}

} // namespace

Tfbalaperturaniif::Tfbalaperturaniif() : Pantalla("Tfbalaperturaniif", "Balance de Apertura NIIF") {
    defina_conjuntos();
    defina_lineas();
    paginas = new Paginas(this);
    paginas->setObjectName("paginas");
    paginas->addWidget(pagina_principal());
    paginas->addWidget(pagina_detalle());
    paginas->addWidget(pagina_hoja());
    Formulario(this).ancha(paginas, 1);
    declare_teclas(Principal);
    tamano(1120, 620);
}

void Tfbalaperturaniif::defina_conjuntos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = CSaldos;
    c.texto("CUEN_COD", 20).requerido().banderas(kLlave).etiqueta("Cuenta");
    c.decimal("APNI_SALDOANT").formato(kImporte);
    c.decimal("APNI_AJUSTEDB").formato(kImporte);
    c.decimal("APNI_AJUSTECR").formato(kImporte);
    c.decimal("APNI_SALDONIIF").formato(kImporte);
    c.texto("APNI_NOTA", 2048).etiqueta("Nota");
    c.texto("APNI_CUENNIIF", 20);
    c.blob("APNI_ARCHIVO");
    c.IndexFieldNames("CUEN_COD");
    TAperturaDet.enlace_maestra(&TApertura, {"CUEN_COD"});
    CAperniifdet.anide_en(&CSaldos, &TAperturaDet);

    ConjuntoDatos& a = CAjusniif;
    a.texto("CODIGO", 20);
    a.texto("NOMBRE", 60);
    for (const char* campo : {"SALDO", "RECLASDB", "RECLASCR", "AJUSTEDB", "AJUSTECR", "FINAL"})
        a.decimal(campo).formato(kImporte);
    a.texto("CUENTANIIF", 20);
    a.texto("NOMBRENIIF", 60);
    for (const char* campo : {"RECLASDBN", "RECLASCRN", "AJUSTEDBN", "AJUSTECRN", "NUEVO"})
        a.decimal(campo).formato(kImporte);
    a.agregado("SumFinal", "sum(FINAL)");
    for (const char* campo : {"RECLASDB", "RECLASCR", "AJUSTEDB", "AJUSTECR", "RECLASDBN",
                              "RECLASCRN", "AJUSTEDBN", "AJUSTECRN"})
        a.agregado(campo, QStringLiteral("sum(%1)").arg(QLatin1String(campo)));
    a.AfterScroll = [this] { CAjusniifAfterScroll(); };
}

// ---------------------------------------------------------------- disposición

QWidget* Tfbalaperturaniif::pagina_principal() {
    auto* pagina = new EnVentanilla;
    const auto diferencia = [](const char* nombre) {
        EditorNumero* e = EditorNumero::de_saldo();
        e->setObjectName(nombre);
        e->setMinimumWidth(e->fontMetrics().horizontalAdvance('0') * 15);
        return e;
    };
    EAno = caja("EAno");
    EAno->setMinimumWidth(ancho_caracteres(EAno->fontMetrics(), 6));
    NomCuenta = caja("NomCuenta");
    NomNiif = caja("NomNiif");
    for (QLineEdit* nombre : {NomCuenta, NomNiif})
        nombre->setMinimumWidth(ancho_caracteres(nombre->fontMetrics(), 16));
    Difdeb = diferencia("Difdeb");
    DifCred = diferencia("DifCred");
    DBGridEh1 = new Rejilla(pagina, &CAjusniif);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Cuentas de la apertura");
    DBGridEh1->columnas({{"CODIGO", "Cuenta", 11},
                         {"NOMBRE", "Nombre", 22},
                         {"SALDO", "Saldo", 16, Suma},
                         {"RECLASDB", "Reclas. DB", 15, Suma},
                         {"RECLASCR", "Reclas. CR", 15, Suma},
                         {"AJUSTEDB", "Ajuste DB", 14, Suma},
                         {"AJUSTECR", "Ajuste CR", 14, Suma},
                         {"FINAL", "Final", 15, Suma},
                         {"CUENTANIIF", "Cuenta NIIF", 11},
                         {"NOMBRENIIF", "Nombre NIIF", 22},
                         {"RECLASDBN", "Reclas. DB", 15, Suma},
                         {"RECLASCRN", "Reclas. CR", 15, Suma},
                         {"AJUSTEDBN", "Ajuste DB", 14, Suma},
                         {"AJUSTECRN", "Ajuste CR", 14, Suma},
                         {"NUEVO", "Nuevo saldo", 16, Suma}});
    DBGridEh1->setMinimumHeight(area_estrecha() ? 0 : DBGridEh1->fontMetrics().height() * 11);
    DBGridEh1->ReadOnly = true;
    DBGridEh1->pie(true);
    DBGridEh1->nombre_archivo = "SaldosIniNIIF";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->texto_vacio = "El plan no tiene cuentas de las clases 1 a 3.";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { AdvGlowButton1Click(); };
    auto* barra = new BarraBotones(this);
    barra->boton("SBGrabar", "F2:Grabar", "document-save", {}, [this] { SBGrabarClick(); });
    barra->boton("AdvGlowButton10", "F3:Borrar", "edit-delete", Qt::Key_F3,
                 [this] { AdvGlowButton10Click(); });
    barra->boton("AdvGlowButton1", "F5:Detalle", "document-properties", {},
                 [this] { AdvGlowButton1Click(); });
    barra->boton("AdvGlowButton8", "F6:Movto.", "edit-find", Qt::Key_F6,
                 [this] { AdvGlowButton8Click(); });
    barra->boton("AdvGlowButton2", "F7:Trae saldos", "document-open", Qt::Key_F7,
                 [this] { AdvGlowButton2Click(); });
    barra->boton("SpeedButton1", "F8:Imprimir", "document-print", Qt::Key_F8,
                 [this] { SpeedButton1Click(); });
    barra->boton("AdvGlowButton9", "F9:Conc.Patr.", "object-flip-horizontal", Qt::Key_F9,
                 [this] { AdvGlowButton9Click(); });
    barra->boton("SBLlevar", "F12:Llevar a saldos iniciales", "x-office-spreadsheet", Qt::Key_F12,
                 [this] { SBLlevarClick(); });
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", {}, [this] { SBCancelClick(); });
    Formulario f(pagina);
    pagina->layout()->setContentsMargins(0, 0, 0, 0); // los de la pantalla bastan
    f.fila({{"Año de inicio", EAno}, {"Dif. débito", Difdeb}, {"Dif. crédito", DifCred}});
    f.ancha(DBGridEh1, 1);
    auto* rotulo_niif = new QLabel("Cuenta NIIF:");
    rotulo_niif->setBuddy(NomNiif);
    NomNiif->setAccessibleName("Cuenta NIIF");
    f.fila("Cuenta", Formulario::junto({NomCuenta, rotulo_niif, NomNiif}));
    return con_botones(pagina, barra);
}

QWidget* Tfbalaperturaniif::con_botones(QWidget* contenido, BarraBotones* barra) {
    auto* ventanilla = new QScrollArea;
    ventanilla->setWidgetResizable(true);
    ventanilla->setFrameShape(QFrame::NoFrame);
    ventanilla->setFocusPolicy(Qt::NoFocus);
    // Toma lo que haya: no obliga a la ventana a desplazarse entera.
    ventanilla->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    ventanilla->setMinimumHeight(paso(12));
    ventanilla->setWidget(contenido);
    connect(qApp, &QApplication::focusChanged, ventanilla, [ventanilla](QWidget*, QWidget* ahora) {
        if (ahora && ventanilla->isAncestorOf(ahora))
            ventanilla->ensureWidgetVisible(ahora, 0, 0);
    });
    auto* pagina = new QWidget;
    auto* todo = new QVBoxLayout(pagina);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->setSpacing(aire(1.5));
    todo->addWidget(ventanilla, 1);
    todo->addWidget(barra);
    return pagina;
}

void Tfbalaperturaniif::declare_teclas(Pagina pagina) {
    for (const int clave : {Qt::Key_F2, Qt::Key_F5, Qt::Key_Escape})
        quite_tecla(clave);
    switch (pagina) {
    case Principal:
        tecla(Qt::Key_F2, "Grabar", [this] { SBGrabarClick(); });
        tecla(Qt::Key_F5, "Detalle", [this] { AdvGlowButton1Click(); });
        tecla(Qt::Key_Escape, "Cancelar", [this] { SBCancelClick(); });
        break;
    case Detalle:
        tecla(Qt::Key_F2, "Continuar", [this] { AdvGlowButton3Click(); });
        tecla(Qt::Key_F5, "Cuadrar la línea o abrir la hoja de trabajo",
              [this] { cuadre_o_abra_hoja(); });
        tecla(Qt::Key_Escape, "Cancelar", [this] { cierre_detalle(); });
        break;
    case Hoja:
        tecla(Qt::Key_F2, "Continuar", [this] { AdvGlowButton5Click(); });
        tecla(Qt::Key_Escape, "Cancelar", [this] { AdvGlowButton6Click(); });
        break;
    }
}

void Tfbalaperturaniif::muestre_pagina(Pagina pagina) {
    paginas->setCurrentIndex(pagina);
    declare_teclas(pagina); // la misma tecla es de la página que está arriba
    if (pagina == Principal)
        DBGridEh1->setFocus();
    else if (pagina == Detalle)
        DBGridEh2->setFocus();
}

// ---------------------------------------------------------------- vida

void Tfbalaperturaniif::FormCreate() {
    fdm().ConfigurarProviders(this);
    CSaldos.PacketRecords = CAperniifdet.PacketRecords = CAjusniif.PacketRecords = -1;
    if (!fdm().exija_acceso(80)) {
        pida_cierre_al_crear();
        return;
    }
    EAno->setText(fdm().texto_de(Llave::AnoInicioNiif));
    CSaldos.Open();
    CAjusniif.Open("SELECT * FROM AJUSTES_APERTURA_NIIF WHERE CODIGO < '4'");
    muestre_pagina(Principal);
}

void Tfbalaperturaniif::FormActivate() {
    if (borrador_ || !CSaldos.Active())
        return;
    borrador_ = new BorradorFilas(
        "apertura_niif", {&CSaldos}, [this] { return hay_por_perder(); }, this);
    QString unica, cuantas;
    if (borrador_->ofrezca([&](const BorradorFilas::Huerfano& h) {
            const QJsonArray& cuentas = h.cambios.first();
            cuantas = concuerde(cuentas.size(), "%1 cuenta", "%1 cuentas");
            if (cuentas.size() == 1)
                for (const char* parte : {"antes", "valores"})
                    if (const auto c = cuentas[0][QLatin1String(parte)]["CUEN_COD"]; c.isString())
                        unica = c.toString();
            return "quedaron sin grabar cambios de la apertura en " + cuantas +
                   ". Desea retomarlos?";
        })) {
        diga_por_grabar("Retomados los cambios de " + cuantas);
        retome_el_detalle(unica);
    }
    borrador_->siga();
}

void Tfbalaperturaniif::diga_por_grabar(const QString& que) {
    // La rejilla lee de la base: no lo muestra hasta grabarlo.
    por_grabar_ = que + ": grábelos con F2.";
    anuncie(fdm().barra(), por_grabar_);
}

void Tfbalaperturaniif::retome_el_detalle(const QString& unica) {
    // El de la única que cambió o, entre varias, el de la que quedó descuadrada: solo de allí sale
    // quien la cuadra.
    QString cuenta = unica;
    for (CSaldos.First(); cuenta.isEmpty() && !CSaldos.Eof(); CSaldos.Next())
        if (CAperniifdet.agregado_total("Sumadebito") != CAperniifdet.agregado_total("Sumacredito"))
            cuenta = CSaldos.FieldByName("CUEN_COD").texto();
    if (!cuenta.isEmpty() && CAjusniif.Locate("CODIGO", {cuenta}))
        AdvGlowButton1Click();
}

void Tfbalaperturaniif::CAjusniifAfterScroll() {
    const auto campo = [this](const char* c) { return CAjusniif.FieldByName(c).texto(); };
    NomCuenta->setText(campo("CODIGO") + ' ' + campo("NOMBRE"));
    NomNiif->setText(campo("CUENTANIIF") + ' ' + campo("NOMBRENIIF"));
    const auto suma = [this](const char* a) { return CAjusniif.agregado(a).moneda(); };
    const Moneda diferencia = suma("RECLASDB") + suma("AJUSTEDB") + suma("RECLASDBN") +
                              suma("AJUSTEDBN") - suma("RECLASCR") - suma("AJUSTECR") -
                              suma("RECLASCRN") - suma("AJUSTECRN");
    Difdeb->vacie();
    DifCred->vacie();
    if (diferencia > Moneda())
        Difdeb->valor(diferencia);
    else
        DifCred->valor(-diferencia);
}

// ---------------------------------------------------------------- traer saldos

void Tfbalaperturaniif::AdvGlowButton2Click() {
    if (!CSaldos.IsEmpty()) {
        muestre_mensaje("Ya hay movimientos de apertura regstrados. Debe Borrarlos antes de poder "
                        "traer los saldos.");
        return;
    }
    if (!pregunte("Esta opción copia los saldos detallados por tercero y centro del plan COLGAP "
                  "(Dec.2649) al plan NIIF. (Puede demorar varios minutos). Desea continuar?"))
        return;
    traiga(QString::number(Tfdm::entero(ano_apertura()) - 1));
}

void Tfbalaperturaniif::traiga(const QString& ano) {
    CBalance.Open("select * from balance_final_det(" + QuotedStr(ano) +
                  ",13,'N') WHERE CODIGO < '4'");
    CBalance.FetchAll();
    const QScopedValueRollback<bool> guarda(trayendo_, true);
    CSaldos.DisableControls();
    CAperniifdet.DisableControls();
    CSaldos.IndexFieldNames({}); // llegan en orden: no hay que ordenarlas en cada una
    const auto al_salir = qScopeGuard([this] {
        CBalance.Close();
        CSaldos.IndexFieldNames("CUEN_COD");
        CAperniifdet.EnableControls();
        CSaldos.EnableControls();
    });
    const auto texto = [this](const char* c) { return CBalance.FieldByName(c).texto(); };
    const auto saldo = [this] { return CBalance.FieldByName("SALDO").moneda(); };
    QHash<QString, Moneda> totales; // de la cuenta, con todos sus terceros y centros
    for (CBalance.First(); !CBalance.Eof(); CBalance.Next())
        totales[texto("CODIGO")] += saldo();
    int item = 0;
    QStringList sin_equivalente;
    for (CBalance.First(); !CBalance.Eof(); CBalance.Next()) {
        const QString cuenta = texto("CODIGO"), equivalente = texto("CUENTANIIF");
        if (cuenta != CSaldos.FieldByName("CUEN_COD").texto()) {
            agregue_cuenta(cuenta, equivalente, totales[cuenta]);
            item = 0;
            if (equivalente.isEmpty())
                sin_equivalente << cuenta;
        }
        agregue_saldo({cuenta, texto("NIT"), texto("PROY"), texto("CENTRO"), texto("ARTICULO"),
                       equivalente, saldo()},
                      item);
    }
    cuente_lo_traido(ano, sin_equivalente);
}

void Tfbalaperturaniif::cuente_lo_traido(const QString& ano, const QStringList& sin_equivalente) {
    if (CSaldos.IsEmpty()) {
        muestre_mensaje("No hay saldos del año " + ano + " por traer.");
        return;
    }
    const QString cuantas = concuerde(CSaldos.RecordCount(), "%1 cuenta", "%1 cuentas");
    diga_por_grabar("Traídos los saldos de " + cuantas);
    QString texto = "Se trajeron los saldos de " + cuantas + ". Grábelos con F2.";
    if (!sin_equivalente.isEmpty())
        texto += QStringLiteral("\nSin cuenta NIIF equivalente, falta la línea que recibe el saldo "
                                "de %1: %2%3")
                     .arg(sin_equivalente.size())
                     .arg(sin_equivalente.mid(0, kMuestra).join(", "),
                          sin_equivalente.size() > kMuestra ? "..." : ".");
    muestre_mensaje(texto);
}

void Tfbalaperturaniif::agregue_cuenta(const QString& cuenta, const QString& equivalente,
                                       Moneda saldo) {
    CSaldos.Append();
    CSaldos.FieldByName("CUEN_COD") = cuenta;
    CSaldos.FieldByName("APNI_CUENNIIF") = equivalente;
    CSaldos.FieldByName("APNI_SALDOANT") = saldo;
    CSaldos.FieldByName("APNI_AJUSTEDB") = Moneda();
    CSaldos.FieldByName("APNI_AJUSTECR") = Moneda();
    CSaldos.FieldByName("APNI_SALDONIIF") = saldo;
    CSaldos.Post();
}

void Tfbalaperturaniif::agregue_saldo(const SaldoPorTraer& saldo, int& item) {
    for (const LineaApertura& l : lineas_de_traslado(saldo)) {
        if (l.cuenta.isEmpty() && l.cuenta_niif.isEmpty())
            continue; // sin cuenta que lo reciba, la diferencia queda a la vista
        CAperniifdet.Append();
        const auto ponga = [this](const char* campo, const Valor& v) {
            CAperniifdet.FieldByName(campo) = v;
        };
        ponga("CUEN_COD", saldo.cuenta);
        ponga("APND_ITEM", ++item);
        ponga("APND_CUENTA", l.cuenta);
        ponga("APND_CTANIIF", l.cuenta_niif);
        ponga("TERC_NIT", saldo.nit);
        ponga("PROY_COD", saldo.proyecto);
        ponga("CENT_COD", saldo.centro);
        ponga("ACTI_COD", saldo.articulo);
        ponga("APND_DEBITO", Moneda());
        ponga("APND_CREDITO", Moneda());
        ponga("APND_RECLDB", l.reclasificacion_debito);
        ponga("APND_RECLCR", l.reclasificacion_credito);
        ponga("APND_SALDOINI", l.saldo_inicial);
        ponga("APND_SALDOFIN", l.saldo_final);
        CAperniifdet.Post();
    }
}

// ---------------------------------------------------------------- grabar, borrar y salir

void Tfbalaperturaniif::SBGrabarClick() {
    if (CSaldos.editando()) {
        if (CSaldos.FieldByName("CUEN_COD").vacio())
            CSaldos.Cancel();
        else
            CSaldos.Post();
    }
    if (grabe_y_anuncie(CSaldos, "Grabado: " + windowTitle(), -1) > 0)
        return;
    if (borrador_)
        borrador_->descarte();
    retire_aviso(fdm().barra(), por_grabar_);
    CAjusniif.Refresh();
    CAjusniifAfterScroll();
    // Con la suma que sea: la pregunta se hace después de cada grabación.
    if (!pregunte("Faltan cuentas por reclasificar o ajustar. Esta seguro de Salir?"))
        return;
    cierre_confirmado_ = true;
    close();
}

void Tfbalaperturaniif::SBCancelClick() {
    close();
}

bool Tfbalaperturaniif::hay_por_perder() const {
    return CSaldos.Active() &&
           (CSaldos.ChangeCount() > 0 || CSaldos.Modified() || CAperniifdet.Modified());
}

bool Tfbalaperturaniif::FormClose() {
    // Cerrar la hoja de trabajo también la pierde.
    if (!cierre_confirmado_ && (hay_por_perder() || hoja.abierta()) &&
        !pregunte_con_no("Desea salir del comprobante y perder los movimientos que no ha grabado?"))
        return false;
    hoja.termine();
    if (CSaldos.Active())
        CSaldos.CancelUpdates();
    retire_aviso(fdm().barra(), por_grabar_);
    if (borrador_)
        borrador_->descarte();
    for (ConjuntoDatos* c : {&CSaldos, &CAjusniif, &CBalance, &CBalinicial})
        c->Close();
    return true;
}

void Tfbalaperturaniif::AdvGlowButton10Click() {
    if (paginas->currentIndex() != Principal ||
        !pregunte_con_no(
            "Desea borrar definitivamente los saldos iniciales de NIIF trabajados a la fecha?"))
        return;
    fdm().Quorvex.en_transaccion(ModoTransaccion::Escritura, [](Transaccion& t) {
        t.conexion().prepare("delete from apertura_niif_det", t)->ejecute(t, {});
        t.conexion().prepare("delete from apertura_niif", t)->ejecute(t, {});
    });
    CSaldos.CancelUpdates();
    CSaldos.Reabra();
    SBGrabarClick();
}

// ---------------------------------------------------------------- consultas

void Tfbalaperturaniif::AdvGlowButton8Click() {
    const bool niif = DBGridEh1->SelectedIndex() >= kPrimeraColumnaNiif;
    const QString cuenta = CAjusniif.FieldByName(niif ? "CUENTANIIF" : "CODIGO").texto();
    if (!cuenta.isEmpty())
        pantallas().abrir("Tfmovbalapniif", AbreMovimientoApertura{cuenta, niif});
}

void Tfbalaperturaniif::AdvGlowButton9Click() {
    pantallas().abrir("Tfconciliapat", AbreConciliacion{ano_apertura(), true});
}

void Tfbalaperturaniif::SpeedButton1Click() {
    MotorInformes motor(this);
    motor.nombre_archivo = "SaldosIniNIIF";
    motor.ProjectFile = ruta_informe("saldos.rav");
    motor.abrir_proyecto(motor.ProjectFile);
    fije_variables(motor, "Saldos iniciales");
    motor.fijar_parametro("Rango", "Al comenzar " + EAno->text());
    motor.fijar_parametro("Libro", "NIIF");
    CBalinicial.Instantanea = true;
    CBalinicial.Open("select * from BALANCE_INICIAL_NIIF order by cuenta, nit, proy, centro");
    if (CBalinicial.IsEmpty()) {
        muestre_mensaje("La hoja de apertura no deja saldos en ninguna cuenta NIIF.");
    } else {
        CBalinicial.FetchAll();
        motor.conecte("RBalance", CBalinicial);
        motor.al_componer = [this] { CBalinicial.Close(); };
        motor.seleccionar_reporte("BalanceinicialN");
        motor.ejecutar();
    }
    motor.cerrar();
    CBalinicial.Close();
}

void Tfbalaperturaniif::SBLlevarClick() {
    if (CSaldos.ChangeCount() > 0) {
        muestre_mensaje("Grabe antes la hoja con F2: los saldos iniciales salen de lo grabado.");
        return;
    }
    const auto llame = [](const char* haga) {
        return fdm().Quorvex.ejecute_con_salida("execute procedure lleve_apertura_niif(?)", {haga});
    };
    const QVector<Valor> cifras = llame("N");
    if (const QString negativa = cifras.value(4).texto(); !negativa.isEmpty()) {
        muestre_mensaje(negativa);
        return;
    }
    const qint64 con_documento =
        fdm()
            .Quorvex.consulte("select count(*) from saldos_iniciales_niif where doco_numero <> ''")
            .entero();
    const QString sin_documentos =
        con_documento == 0
            ? QString()
            : concuerde(con_documento, "Un saldo perderá el número de su documento de cartera, ",
                        "%1 saldos perderán el número de su documento de cartera, ") +
                  QStringLiteral("que la hoja no lleva. ");
    if (!pregunte_con_no(concuerde(cifras.value(3).entero(),
                                   "Se reemplazará el único saldo inicial NIIF que hay",
                                   "Se reemplazarán los %1 saldos iniciales NIIF que hay") +
                         concuerde(cifras.value(0).entero(), " por el de esta hoja",
                                   " por los %1 de esta hoja") +
                         QStringLiteral(": débitos %1, créditos %2. %3Desea continuar?")
                             .arg(cifras.value(1).moneda().formateada(),
                                  cifras.value(2).moneda().formateada(), sin_documentos)))
        return;
    llame("S");
    emit fdmcnt().balance_por_recalcular();
    muestre_mensaje("Los saldos iniciales NIIF son ahora los del balance de apertura.");
}
