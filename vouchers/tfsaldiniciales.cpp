#include "vouchers/tfsaldiniciales.h"

#include "catalogues/grabe_y_anuncie.h"
#include "datos/firebird/concuerde.h"
#include "sesion/borrador_filas.h"
#include "sesion/instalacion.h"
#include "sesion/variables_informe.h"
#include "toolkit/informes/motor.h"
#include "vouchers/lineas_saldos.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

Tfsaldiniciales::Tfsaldiniciales()
    : Pantalla("Tfsaldiniciales", "Saldos Iniciales"),
      PSaldos(this, "PSaldos", &fdmcnt().TSaldiniciales),
      PProyectos(this, "PProyectos", &fdm().TProyectos),
      PArticulo(this, "PArticulo", &fdmArt().QArticulos, poAllowCommandText),
      PTidocartera(this, "PTidocartera", &fdm().TTipodoc),
      PMaxitem(this, "PMaxitem", &fdm().QBorrar, poAllowCommandText),
      PBalance(this, "PBalance", &fdmcnt().QConsultas, poAllowCommandText),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CSaldos(this, "CSaldos", &PSaldos), CProyectos(this, "CProyectos", &PProyectos),
      CCentros(this, "CCentros"), CArticulo(this, "CArticulo", &PArticulo),
      CTidocartera(this, "CTidocartera", &PTidocartera), CMaxitem(this, "CMaxitem", &PMaxitem),
      CBalance(this, "CBalance", &PBalance), CBorrar(this, "CBorrar", &PBorrar) {
    defina_conjuntos();
    lineas = new LineasSaldos(CSaldos, CBorrar, this);
    construya();
    declare_teclas();
}

Tfsaldiniciales::~Tfsaldiniciales() = default;

void Tfsaldiniciales::defina_conjuntos() {
    CCentros.anide_en(&CProyectos, &fdm().TCentros);
    campos_proyectos(CProyectos);
    campos_centros(CCentros);
    campos_articulos(CArticulo);
    CArticulo.CommandText = "select arti_cod, arti_des from articulo order by arti_des, arti_cod";
    PanelDocumento::defina_tipos(CTidocartera);
    CMaxitem.CommandText = "select max(SAIN_ITEM) item from saldos_iniciales";
    CBalance.CommandText = "select * from balance_inicial order by cuenta, nit, proy, centro";

    ConjuntoDatos& c = CSaldos;
    c.entero("SAIN_ITEM").requerido();
    c.texto("CUEN_COD", 20).requerido().etiqueta("Cuenta");
    c.texto("TERC_NIT", 20).etiqueta("Tercero");
    c.texto("PROY_COD", 4).etiqueta("Proyecto");
    c.texto("CENT_COD", 4).etiqueta("Centro");
    c.decimal("SAIN_DEBITO").formato("#,###.00").etiqueta("Débito");
    c.decimal("SAIN_CREDITO").formato("#,###.00").etiqueta("Crédito");
    c.texto("ARTI_COD", 15).etiqueta("Artículo");
    c.texto("DOCO_NUMERO", 8).etiqueta("Documento");
    c.entero("SAIN_TIPODOC");
    c.texto("DOCO_VENCE", 8);
    c.busqueda("ProyNom", 60, "PROY_COD", &CProyectos, "PROY_COD", "PROY_NOM");
    c.busqueda("CentNom", 60, "PROY_COD;CENT_COD", &CCentros, "PROY_COD;CENT_COD", "CENT_NOM");
    c.busqueda("ArtiDes", 60, "ARTI_COD", &CArticulo, "ARTI_COD", "ARTI_DES");
    PSaldos.BeforeUpdateRecord = [this](ConjuntoDatos& conjunto, Fila& fila, ClaseCambio clase) {
        Valor& numero = (*fila.valores)[conjunto.FieldByName("SAIN_ITEM").indice()];
        if (clase == ClaseCambio::Insercion && corrimiento_ > 0)
            numero = numero.entero() + corrimiento_;
    };
}

// ---------------------------------------------------------------- disposición

void Tfsaldiniciales::construya() {
    const auto caja = [](const char* nombre, int ancho) {
        QLineEdit* e = LineasCuenta::caja_de_nombre(nombre);
        e->setEnabled(false);
        e->setFixedWidth(e->fontMetrics().horizontalAdvance(QLatin1Char('0')) * ancho);
        return e;
    };
    EAno = caja("EAno", 7);
    EMes = caja("EMes", 14);
    QWidget* pagina = lineas->construya_pagina();
    DBGridEh2 = new Rejilla(this, &CBalance);
    DBGridEh2->setObjectName("DBGridEh2");
    DBGridEh2->hide();
    auto* barra = new BarraBotones(this);
    barra->setObjectName("barra");
    Formulario f(this);
    f.fila("Año", Formulario::junto({EAno, rotulo("Mes", EMes), EMes}));
    f.ancha(pagina, 1);
    f.botones(barra);

    GroupBox1 = new PanelDocumento(this, CSaldos, CTidocartera, {"DOCO_NUMERO", "SAIN_TIPODOC"});
    GroupBox1->vuelve = [this](bool) { return lineas->rejilla; };
    GroupBox2 = new PanelFlotante("GroupBox2", "Artículo del inventario ", this);
    GroupBox2->vuelve = [this](bool tenia_foco) { return tenia_foco ? lineas->rejilla : nullptr; };
    EArticod = new ListaDato(&CSaldos, "ARTI_COD");
    EArticod->setObjectName("EArticod");
    EArticod->lista_de(&CArticulo, "ARTI_COD", "ARTI_DES");
    auto* codigo = new EditorDato(&CSaldos, "ARTI_COD");
    codigo->setObjectName("ECodigo");
    codigo->ReadOnly(true);
    codigo->setFocusPolicy(Qt::NoFocus);
    auto* continuar = new QPushButton("Continuar");
    continuar->setObjectName("SpeedButton3");
    connect(continuar, &QPushButton::clicked, GroupBox2, &PanelFlotante::oculte);
    Formulario(GroupBox2).fila({{"Artículo", EArticod}, {"Código", codigo}, {"", continuar}});
    for (PanelFlotante* p : {static_cast<PanelFlotante*>(GroupBox1), GroupBox2})
        p->flote_sobre(lineas->rejilla);

    lineas->ate_eventos();
    lineas->al_dejar_la_cuenta = [this](const QString& clase) { panel_de_clase(clase); };
    lineas->arme_menu(LineasCuenta::ordenes_de_comprobante(), "SaldoIni", windowTitle());
    lineas->rejilla->al_ordenar(Rejilla::Pegar, [this] {
        lineas->exija_abiertas();
        lineas->pegue();
    });
    lineas->rejilla->OnDblClick = [this](int columna) { DBGridEh1DblClick(columna); };
    enter_como_tab();
}

void Tfsaldiniciales::resizeEvent(QResizeEvent* evento) {
    Pantalla::resizeEvent(evento);
    GroupBox1->ubique();
    GroupBox2->ubique();
}

void Tfsaldiniciales::declare_teclas() {
    auto* barra = findChild<BarraBotones*>("barra");
    SBGrabar = barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                            [this] { SBGrabarClick(); });
    barra->principal(SBGrabar);
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape,
                 [this] { SBCancelClick(); });
    barra->boton("SpeedButton1", "F8:Imprimir", "document-print", Qt::Key_F8,
                 [this] { SpeedButton1Click(); });
    tecla(Qt::Key_F5, "sugiera_db_cr", [this] { lineas->sugiera_db_cr(); });
    // Ir a buscar no escribe la celda a medias: lo escogido la reemplaza.
    const auto busque = [this](int clave, const char* pantalla, std::function<void()> accion) {
        tecla(clave, Qt::NoModifier, pantalla, std::move(accion), false);
    };
    busque(Qt::Key_F6, "Tfterceros", [this] { lineas->escoja_tercero(); });
    busque(Qt::Key_F7, "Tfcentros", [this] { lineas->escoja_centro(); });
    busque(Qt::Key_F9, "Tfcuentas", [this] { lineas->escoja_cuenta(); });
}

// ---------------------------------------------------------------- creación

void Tfsaldiniciales::FormCreate() {
    fdm().ConfigurarProviders(this);
    // Las sumas son de toda la tabla: no puede llegar por paquetes.
    CSaldos.PacketRecords = -1;
    muestre_periodo();
    CProyectos.Open();
    CArticulo.Open();
    CTidocartera.Open();
    CTidocartera.Filtered(true);
    CMaxitem.Open();
    item_al_abrir_ = CMaxitem.FieldByName("ITEM").entero();
    lineas->contador.empiece(int(item_al_abrir_));
    tamano(860, 560);
    if (!fdm().exija_acceso(80))
        pida_cierre_al_crear();
}

void Tfsaldiniciales::muestre_periodo() {
    EAno->setText(fdm().texto_de(Llave::AnoInicio));
    const int mes = fdm().valor<Llave::MesInicio>();
    EMes->setText(Tfdm::nombres_periodo().value(mes - 1));
}

void Tfsaldiniciales::FormActivate() {
    if (CSaldos.Active())
        return;
    CSaldos.Open();
    lineas->rejilla->setFocus();
    if (const QString negativa = negativa_de_saldos_iniciales(fdm().Quorvex, lineas->libro);
        !negativa.isEmpty()) {
        solo_muestre(negativa);
        return;
    }
    borrador_ = new BorradorFilas(
        "saldos", {&CSaldos}, [this] { return hay_por_perder(); }, this);
    if (borrador_->ofrezca([](const BorradorFilas::Huerfano& h) {
            const qsizetype n = h.cambios.first().size();
            return concuerde(
                n, "quedó %1 línea de saldos iniciales sin grabar. Desea retomarla?",
                "quedaron %1 líneas de saldos iniciales sin grabar. Desea retomarlas?");
        })) {
        lineas->siga_los_items("SAIN_ITEM");
        lineas->muestre_linea();
    }
    borrador_->siga();
}

void Tfsaldiniciales::solo_muestre(const QString& negativa) {
    // Lo que haya quedado en un borrador espera a que se pueda grabar.
    solo_lectura_ = true;
    lineas->rejilla->ReadOnly = true;
    SBGrabar->setEnabled(false);
    setWindowTitle(windowTitle() + " (solo lectura)");
    muestre_mensaje(negativa + ". Los saldos iniciales se pueden ver e imprimir, pero no cambiar.");
}

// ---------------------------------------------------------------- líneas

void Tfsaldiniciales::panel_de_clase(const QString& clase) {
    if (solo_lectura_)
        return;
    if (clase == "I")
        GroupBox2->muestre(EArticod);
    else
        GroupBox2->hide();
    if (clase == "C")
        GroupBox1->muestre(GroupBox1->Etidocart);
    else
        GroupBox1->hide();
}

void Tfsaldiniciales::DBGridEh1DblClick(int columna) {
    switch (columna) {
    case LineasCuenta::kCuenta:
        lineas->escoja_cuenta();
        break;
    case LineasCuenta::kTercero:
        lineas->escoja_tercero();
        break;
    case LineasCuenta::kProyecto:
    case LineasCuenta::kCentro:
        lineas->escoja_centro();
        break;
    default:
        lineas->sugiera_db_cr();
    }
}

// ---------------------------------------------------------------- grabar y salir

void Tfsaldiniciales::SBGrabarClick() {
    lineas->termine_linea();
    if (!lineas->cuadrados() && !fdm().valor<Llave::PermitirDescuadrados>()) {
        muestre_mensaje(datos(Libro::Decreto2649).descuadrado);
        CSaldos.Edit();
        return;
    }
    corrimiento_ = separe_numeros();
    lineas->contador.empiece(lineas->contador.ultimo() + corrimiento_);
    // Lo que se puede grabar se graba; lo demás queda en la pantalla.
    if (grabe_y_anuncie(CSaldos, "Grabado: " + windowTitle(), -1) == 0)
        close();
}

int Tfsaldiniciales::separe_numeros() {
    // Otro equipo pudo tomar desde que se abrió la pantalla los números de las líneas nuevas.
    CMaxitem.Refresh();
    return int(qMax<qint64>(0, CMaxitem.FieldByName("ITEM").entero() - item_al_abrir_));
}

void Tfsaldiniciales::SpeedButton1Click() {
    MotorInformes motor(this);
    motor.nombre_archivo = "SaldoIni";
    motor.ProjectFile = ruta_informe("saldos.rav");
    motor.abrir_proyecto(motor.ProjectFile);
    fije_variables(motor, "Saldos iniciales");
    motor.fijar_parametro("Rango", "Al comenzar " + EMes->text().toLower() + " de " + EAno->text());
    motor.fijar_parametro("Libro", "2649");
    // De una vez: lo impreso cuadra aunque otro grabe mientras se escogen las opciones.
    CBalance.Instantanea = true;
    CBalance.Open();
    if (!CBalance.IsEmpty()) {
        CBalance.FetchAll();
        motor.conecte("RBalance", CBalance);
        motor.al_componer = [this] { CBalance.Close(); };
        motor.seleccionar_reporte("Balanceinicial");
        motor.ejecutar();
    }
    motor.cerrar();
    CBalance.Close();
    cierre(); // lo que no se ha grabado se pierde
}

bool Tfsaldiniciales::hay_por_perder() const {
    return CSaldos.Active() && (CSaldos.ChangeCount() > 0 || CSaldos.Modified());
}

void Tfsaldiniciales::SBCancelClick() {
    if (!solo_lectura_ && !salida_confirmada())
        return;
    CSaldos.CancelUpdates();
    cierre();
}

void Tfsaldiniciales::cierre() {
    cierre_confirmado_ = true;
    close();
}

bool Tfsaldiniciales::FormClose() {
    if (!cierre_confirmado_ && hay_por_perder() && !salida_confirmada())
        return false;
    CSaldos.Cancel();
    if (borrador_)
        borrador_->descarte();
    for (ConjuntoDatos* c :
         {&CSaldos, &CBalance, &CMaxitem, &CTidocartera, &CArticulo, &CProyectos})
        c->Close();
    emit fdmcnt().balance_por_recalcular();
    return true;
}
