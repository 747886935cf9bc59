#include "assets/forma_activo.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"
#include "assets/tfgruposact.h"
#include "catalogues/grabe_y_anuncie.h"
#include "libro/catalogos.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/nombrado.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/sin_grabar.h"

namespace {

constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;

/// La lista toma el ancho de su columna, y un nombre largo no la corre.
void tome_su_columna(ListaDato& lista) {
    lista.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lista.setMinimumWidth(ancho_caracteres(lista.fontMetrics(), 24));
}
} // namespace

FormaActivo::FormaActivo(Modo modo)
    : Pantalla(modo == Nuevo ? "Tfnvoactivo" : "Tfedtactivo",
               modo == Nuevo ? "Nuevo Activo" : "Modificar Activo"),
      TActivo(this, "TActivo", fdm().Quorvex, "SELECT * FROM ACTIVOS_FIJOS WHERE ACFJ_COD = :COD"),
      TActcentros(this, "TActcentros", fdm().Quorvex,
                  "SELECT * FROM ACTIVOS_CENTROS WHERE ACFJ_COD = :ACFJ_COD ORDER BY ACCE_ITEM"),
      TActfoto(this, "TActfoto", fdm().Quorvex,
               "SELECT * FROM ACTIVOS_FOTOS WHERE ACFJ_COD = :ACFJ_COD"),
      TActinicial(this, "TActinicial", fdm().Quorvex,
                  "SELECT * FROM ACTIVOS_INICIAL WHERE ACFJ_COD = :ACFJ_COD ORDER BY ACIN_LIBRO"),
      PActivo(this, "PActivo", &TActivo, poCascadeDeletes | poCascadeUpdates),
      PGrupos(this, "PGrupos", &sentencia_de_grupos()),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CActivo(this, "CActivo", &PActivo), CCentros(this, "CCentros"), CFoto(this, "CFoto"),
      CInicial(this, "CInicial"), CGrupos(this, "CGrupos", &PGrupos),
      CSubgrupos(this, "CSubgrupos"), CBorrar(this, "CBorrar", &PBorrar), modo_(modo) {
    TActcentros.enlace_maestra(&TActivo, {"ACFJ_COD"});
    TActfoto.enlace_maestra(&TActivo, {"ACFJ_COD"});
    TActinicial.enlace_maestra(&TActivo, {"ACFJ_COD"});
    CCentros.anide_en(&CActivo, &TActcentros);
    CFoto.anide_en(&CActivo, &TActfoto);
    CInicial.anide_en(&CActivo, &TActinicial);
    CSubgrupos.anide_en(&CGrupos, &sentencia_de_subgrupos());
    defina_campos();
    construya();
}

void FormaActivo::defina_campos() {
    campos_grupos(CGrupos);
    campos_subgrupos(CSubgrupos);
    ConjuntoDatos& a = CActivo;
    a.texto("ACFJ_COD", 15).requerido().banderas(kLlave).etiqueta("Código");
    a.texto("ACFJ_DESC", 60).requerido().etiqueta("Descripción");
    a.fecha("ACFJ_FECING").etiqueta("Ingreso");
    a.fecha("ACFJ_FECGAR").etiqueta("Garantía");
    a.texto("ACFJ_MODELO", 60).etiqueta("Modelo");
    a.texto("ACFJ_MARCA", 60).etiqueta("Marca");
    a.entero("ACFJ_MESDEP").etiqueta("Meses");
    a.bandera("ACFJ_DEP");
    a.bandera("ACFJ_ACTIVO");
    a.memo("ACFJ_OBS").etiqueta("Observaciones");
    a.entero("ACFJ_DEPNIIF").etiqueta("Vida útil");
    a.decimal("ACFJ_RESCATE").formato("#,###.00").etiqueta("Valor Rescate");
    a.entero("ACGR_ID").etiqueta("Grupo").OnChange = [this](Campo& x) { ACGR_IDChange(x); };
    a.entero("ACSG_ID").etiqueta("Subgrupo");
    a.bandera("ACFJ_UNIDADES");
    for (const char* columna :
         {"ACFJ_CTACONTA", "ACFJ_CTADEPD", "ACFJ_CTADEPC", "ACFJ_CTANIIF", "ACFJ_CTANIIFD",
          "ACFJ_CTANIIFC", "ACFJ_CTADETERD", "ACFJ_CTADETERC"})
        a.texto(columna, 20);
    a.decimal("ACFJ_VRORIG").formato("#,###.00").etiqueta("Valor original");
    CCentros.CampoConsecutivo = "ACCE_ITEM";
    CCentros.texto("ACFJ_COD", 15).banderas(kLlave);
    CCentros.entero("ACCE_ITEM").banderas(kLlave).etiqueta("Ítem");
    CCentros.texto("ACCE_PROY", 4).etiqueta("Proyecto");
    CCentros.texto("ACCE_CENTRO", 4).etiqueta("Centro");
    CCentros.decimal("ACCE_PORC", 4).tasa().formato("#,##0.00##").etiqueta("Porcentaje");
    CCentros.calculado("NomCentro", ClaseCampo::Texto, 60);
    CCentros.OnCalcFields = [this] {
        CCentros.FieldByName("NomCentro") =
            nombre_de_centro(fdm().Quorvex, CCentros.FieldByName("ACCE_PROY").texto(),
                             CCentros.FieldByName("ACCE_CENTRO").texto());
    };
    for (const char* columna : {"ACCE_PROY", "ACCE_CENTRO"})
        CCentros.FieldByName(columna).OnChange = [this](Campo&) { centro_cambiado(); };
    CCentros.AfterInsert = [this] {
        CCentros.FieldByName("ACCE_ITEM") = contador_.siguiente();
        CCentros.FieldByName("ACFJ_COD") = CActivo.FieldByName("ACFJ_COD").texto();
    };
    CCentros.BeforePost = [this] {
        if (CCentros.FieldByName("ACCE_PORC").moneda() < Moneda()) {
            muestre_mensaje("El porcentaje no puede ser negativo.");
            throw EdicionAbortada();
        }
        if (!CCentros.FieldByName("ACCE_PROY").vacio())
            return;
        if (!CCentros.FieldByName("ACCE_CENTRO").vacio() ||
            !CCentros.FieldByName("ACCE_PORC").moneda().es_cero()) {
            muestre_mensaje("Debe indicar el proyecto del centro al que se reparte.");
            throw EdicionAbortada();
        }
        CCentros.Cancel();
    };
    CInicial.texto("ACFJ_COD", 15).banderas(kLlave);
    CInicial.texto("ACIN_LIBRO", 4).banderas(kLlave).etiqueta("Libro").defecto("2649");
    CInicial.fecha("ACIN_HASTA").requerido().etiqueta("Hasta");
    CInicial.decimal("ACIN_VALOR").requerido().formato("#,###.00").etiqueta("Depreciado");
    CInicial.entero("ACIN_UNIDADES").etiqueta("Unidades").defecto("0");
    CInicial.AfterInsert = [this] {
        CInicial.FieldByName("ACFJ_COD") = CActivo.FieldByName("ACFJ_COD").texto();
    };
    CFoto.texto("ACFJ_COD", 15).banderas(kLlave);
    CFoto.blob("ACFO_FOTO");
}

// ---------------------------------------------------------------- disposición

void FormaActivo::construya() {
    const auto editor = [this](const char* campo, const char* nombre, int ancho = 0) {
        auto* e = nombrado(new EditorDato(&CActivo, campo), nombre);
        e->ancho(ancho);
        return e;
    };
    const auto casilla = [this](const char* texto, const char* campo, const char* nombre) {
        return nombrado(new CasillaDato(texto, &CActivo, campo), nombre);
    };
    ECod = editor("ACFJ_COD", "ECod");
    ECod->ReadOnly(modo_ == Editar);
    EDesc = editor("ACFJ_DESC", "EDesc");
    constexpr int kLetras = 40; // con menos sigue en otro renglón
    EDesc->setMinimumWidth(ancho_caracteres(EDesc->fontMetrics(), kLetras));
    LGrupo = nombrado(new ListaDato(&CActivo, "ACGR_ID"), "LGrupo");
    LGrupo->lista_de(&CGrupos, "ACGR_ID", "ACGR_NOM");
    LSubgrupo = nombrado(new ListaDato(&CActivo, "ACSG_ID"), "LSubgrupo");
    LSubgrupo->lista_de(&CSubgrupos, "ACSG_ID", "ACSG_NOMBRE");
    tome_su_columna(*LGrupo), tome_su_columna(*LSubgrupo);
    auto* observaciones = nombrado(new MemoDato(&CActivo, "ACFJ_OBS"), "EObs");
    observaciones->lineas(2);
    PageControl1 = nombrado(new QTabWidget, "PageControl1");
    PageControl1->addTab(pagina_local(), "Dec. 2349");
    PageControl1->addTab(pagina_niif(), "NIIF");
    if (modo_ == Editar)
        PageControl1->addTab(pagina_centros(), "Centros de costo");
    PageControl1->addTab(pagina_inicial(), "Depreciado antes");
    PageControl1->addTab(pagina_foto(), "Foto");

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SBGrupos", "F6:Grupos", "folder", Qt::Key_F6, [this] { escoja_grupo(); });
    if (modo_ == Editar)
        barra->boton("SBDocumentos", "F8:Documentos", "application-pdf", Qt::Key_F8, [this] {
            pantallas().abrir("Tfdocsact", AbreActivo{CActivo.FieldByName("ACFJ_COD").texto()});
        });
    barra->separe();
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape, [this] { close(); });
    const auto pagina = [this](int clave, int paso) {
        tecla(clave, Qt::ControlModifier, "PageControl1", [this, paso] {
            PageControl1->setCurrentIndex(
                qBound(0, PageControl1->currentIndex() + paso, PageControl1->count() - 1));
        });
    };
    pagina(Qt::Key_PageDown, 1);
    pagina(Qt::Key_PageUp, -1);

    Formulario f(this);
    f.fila({{"&Código", ECod}, {"&Descripción", EDesc}});
    f.fila({{"&Grupo", LGrupo}, {"&Subgrupo", LSubgrupo}});
    f.fila({{"&Ingreso", nombrado(new FechaDato(&CActivo, "ACFJ_FECING"), "EFecIng")},
            {"G&arantía", nombrado(new FechaDato(&CActivo, "ACFJ_FECGAR"), "EFecGar")}});
    f.fila({{"&Modelo", editor("ACFJ_MODELO", "EModelo", 24)},
            {"Ma&rca", editor("ACFJ_MARCA", "EMarca", 24)}});
    auto* original = editor("ACFJ_VRORIG", "EVrOrig", 18);
    if (modo_ == Editar) {
        EValor = caja_que_muestra("EValor", 18);
        EValor->setAlignment(Qt::AlignRight);
        f.fila({{"&Valor original", original}, {"Valor actual", EValor}});
    } else {
        f.fila("&Valor original", original);
    }
    f.fila({{"", casilla("En &uso", "ACFJ_ACTIVO", "CKActivo")},
            {"", casilla("Se de&precia", "ACFJ_DEP", "CKDep")},
            {"", casilla("Depreciar unidades/horas producción", "ACFJ_UNIDADES", "CKUnidades")}});
    f.fila("&Observaciones", observaciones).ancha(PageControl1, 1).botones(barra);
    enter_como_tab();
    tamano(860, 560);
}

QWidget* FormaActivo::cuenta(const char* columna, const char* marca, Libro libro) {
    auto* e = nombrado(caja_de_cuenta(CActivo, columna, [libro] { return libro; }), marca);
    e->ancho(15);
    e->setToolTip("? y el comienzo de la cuenta abre el plan; doble clic también");
    auto* nombre = caja_que_muestra(qPrintable(QString("Nom") + marca), 34);
    e->OnDblClick = [this, columna, libro] { busque_cuenta(columna, libro, {}); };
    CActivo.FieldByName(columna).OnChange = [this, libro, nombre, e](Campo& c) {
        const QString digitada = c.texto();
        cuenta_cambiada(c, libro, nombre);
        // Rehusada: lo que se siga tecleando a ciegas no es de la caja que sigue.
        if (!digitada.isEmpty() && c.vacio() && !PreguntaEnCampo::es(digitada))
            QMetaObject::invokeMethod(
                e, [this, e] { vuelva_a(e); }, Qt::QueuedConnection);
    };
    pregunta_.atienda(CActivo.FieldByName(columna));
    // Una que se inactivó después sigue siendo la suya: se nombra sin validarla.
    nombres_ << [this, columna, libro, nombre] {
        nombre->setText(
            nombre_en_el_plan(fdm().Quorvex, libro, CActivo.FieldByName(columna).texto()));
        nombre->setCursorPosition(0);
    };
    return Formulario::junto({e, nombre});
}

void FormaActivo::vuelva_a(QWidget* caja) {
    for (int i = 0; i < PageControl1->count(); ++i)
        if (PageControl1->widget(i)->isAncestorOf(caja))
            PageControl1->setCurrentIndex(i);
    caja->setFocus();
}

QWidget* FormaActivo::pagina_local() {
    auto* pagina = new QWidget;
    auto* meses = nombrado(new EditorDato(&CActivo, "ACFJ_MESDEP"), "EMeses");
    meses->ancho(6);
    Formulario(pagina)
        .fila("Meses:", meses)
        .fila("Activo", cuenta("ACFJ_CTACONTA", "Activo", Libro::Decreto2649))
        .fila("Depreciación, débito", cuenta("ACFJ_CTADEPD", "DepD", Libro::Decreto2649))
        .fila("Depreciación, crédito", cuenta("ACFJ_CTADEPC", "DepC", Libro::Decreto2649))
        .estire();
    return pagina;
}

QWidget* FormaActivo::pagina_niif() {
    auto* pagina = new QWidget;
    auto* vida = nombrado(new EditorDato(&CActivo, "ACFJ_DEPNIIF"), "EVida");
    vida->ancho(6);
    auto* rescate = nombrado(new EditorDato(&CActivo, "ACFJ_RESCATE"), "ERescate");
    rescate->ancho(18);
    rescate->setToolTip("No se deprecia: en la norma local tampoco");
    Formulario(pagina)
        .fila({{"Vida útil:", vida}, {"Valor Rescate:", rescate}})
        .fila("Activo", cuenta("ACFJ_CTANIIF", "ActivoN", Libro::Niif))
        .fila("Depreciación, débito", cuenta("ACFJ_CTANIIFD", "DepND", Libro::Niif))
        .fila("Depreciación, crédito", cuenta("ACFJ_CTANIIFC", "DepNC", Libro::Niif))
        .fila("Deterioro, débito", cuenta("ACFJ_CTADETERD", "DetND", Libro::Niif))
        .fila("Deterioro, crédito", cuenta("ACFJ_CTADETERC", "DetNC", Libro::Niif))
        .estire();
    return pagina;
}

QWidget* FormaActivo::pagina_centros() {
    auto* pagina = new QWidget;
    DBGridEh1 = nombrado(new Rejilla(pagina, &CCentros), "DBGridEh1");
    DBGridEh1->setAccessibleName("Reparto por centros de costo");
    DBGridEh1->columnas({{"ACCE_PROY", "Proyecto", 10},
                         {"ACCE_CENTRO", "Centro", 10},
                         {"ACCE_PORC", "Porcentaje", 14, Suma}});
    ofrezca_centros(*DBGridEh1, "ACCE_PROY", "ACCE_CENTRO");
    static_cast<DelegadoCelda*>(DBGridEh1->itemDelegate())
        ->acompane(DBGridEh1->columna_de("ACCE_CENTRO"), [this](int fila) {
            return CCentros.valor_en(fila, CCentros.FieldByName("NomCentro")).texto();
        });
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->pie(true);
    DBGridEh1->texto_vacio = "El gasto no se reparte. Insert agrega el primer centro.";
    DBGridEh1->OnDblClick = [this](int) {
        escoja_centro(*this,
                      [this](const CentroEscogido& c) {
                          if (!CCentros.editando())
                              CCentros.IsEmpty() ? CCentros.Append() : CCentros.Edit();
                          CCentros.FieldByName("ACCE_PROY") = c.proyecto_seleccion;
                          CCentros.FieldByName("ACCE_CENTRO") = c.centro_seleccion;
                      },
                      {CCentros.FieldByName("ACCE_PROY").texto(),
                       CCentros.FieldByName("ACCE_CENTRO").texto()});
    };
    Formulario(pagina).ancha(DBGridEh1);
    return pagina;
}

QWidget* FormaActivo::pagina_inicial() {
    auto* pagina = new QWidget;
    DBGridEh2 = nombrado(new Rejilla(pagina, &CInicial), "DBGridEh2");
    DBGridEh2->setAccessibleName("Lo que el activo traía depreciado en cada libro");
    DBGridEh2->columnas({{"ACIN_LIBRO", "Libro", 16},
                         {"ACIN_HASTA", "Hasta", 12},
                         {"ACIN_VALOR", "Depreciado", 18},
                         {"ACIN_UNIDADES", "Unidades", 10}});
    DBGridEh2->lista("ACIN_LIBRO", {"Norma local", "NIIF"}, {"2649", "NIIF"});
    DBGridEh2->enter_como_tab = true;
    DBGridEh2->texto_vacio =
        "Lo que traía al llegar al programa: se deprecia de ahí en adelante. No hace comprobante, "
        "porque su acumulado ya está en los saldos iniciales. Insert lo agrega.";
    Formulario(pagina).ancha(DBGridEh2);
    return pagina;
}

QWidget* FormaActivo::pagina_foto() {
    auto* pagina = new QWidget;
    Foto = nombrado(new ImagenDato(&CFoto, "ACFO_FOTO"), "Foto");
    Foto->setAccessibleName("Foto del activo");
    auto* barra = new QWidget;
    auto* fila = new QHBoxLayout(barra);
    fila->setContentsMargins(0, 0, 0, 0);
    const auto boton = [&](const char* nombre, const char* texto, std::function<void()> accion) {
        auto* b = nombrado(new QPushButton(texto), nombre);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [accion] { proteja(accion); });
        fila->addWidget(b);
    };
    boton("SBFoto", "Escoger &foto…", [this] {
        const QString ruta = QFileDialog::getOpenFileName(this, "Foto del activo", {},
                                                          "Imágenes (*.png *.jpg *.jpeg *.bmp)");
        if (!ruta.isEmpty())
            cargue_foto(ruta);
    });
    boton("SBQuitaFoto", "&Quitar", [this] { quite_foto(); });
    fila->addStretch();
    Formulario(pagina).ancha(Foto).ancha(barra, 0);
    return pagina;
}

// ---------------------------------------------------------------- creación

void FormaActivo::FormCreate() {
    fdm().ConfigurarProviders(this);
    CGrupos.Open();
    const QString codigo = peticion<AbreActivo>().activo_seleccionado;
    CActivo.Params["COD"] = modo_ == Nuevo ? QStringLiteral("0") : codigo;
    CActivo.Open();
    if (modo_ == Nuevo) {
        CActivo.Append();
        CActivo.FieldByName("ACFJ_ACTIVO") = "S";
        CActivo.FieldByName("ACFJ_DEP") = "S";
        CActivo.FieldByName("ACFJ_UNIDADES") = "N";
        ECod->setFocus();
        return;
    }
    if (CActivo.IsEmpty()) {
        muestre_mensaje("No se encontró el activo " + codigo);
        pida_cierre_al_crear();
        return;
    }
    contador_.empiece(
        int(CBorrar
                .valor_unico("select max(acce_item) from activos_centros where acfj_cod = " +
                             QuotedStr(codigo))
                .entero()));
    if (!CActivo.FieldByName("ACGR_ID").nulo())
        CGrupos.Locate("ACGR_ID", {CActivo.FieldByName("ACGR_ID").valor()});
    LSubgrupo->relea();
    CActivo.Edit();
    for (const auto& muestre : std::as_const(nombres_))
        muestre();
    muestre_valor();
    EDesc->setFocus();
}

void FormaActivo::FormActivate() {
    // De la lista de grupos se pudo volver con otros.
    if (CGrupos.Active() && !CGrupos.editando()) {
        const Valor grupo = CActivo.FieldByName("ACGR_ID").valor();
        CGrupos.Refresh();
        if (!grupo.nulo())
            CGrupos.Locate("ACGR_ID", {grupo});
        LGrupo->relea();
        LSubgrupo->relea();
    }
}

void FormaActivo::muestre_valor() {
    const Moneda valor = CBorrar
                             .valor_unico("select VALOR from ACTIVO_VALOR(" +
                                          QuotedStr(CActivo.FieldByName("ACFJ_COD").texto()) + ',' +
                                          QuotedStr(fdmcnt().compone_fecha("1")) + ",'S')")
                             .moneda();
    EValor->setText(CActivo.FieldByName("ACFJ_VRORIG").presente(valor));
}

// ---------------------------------------------------------------- cambios

void FormaActivo::ACGR_IDChange(Campo& grupo) {
    CActivo.FieldByName("ACSG_ID").limpie();
    if (grupo.nulo() || !CGrupos.Locate("ACGR_ID", {grupo.valor()}))
        return;
    CActivo.FieldByName("ACFJ_MESDEP") = CGrupos.FieldByName("ACGR_MESDEP").valor();
    CActivo.FieldByName("ACFJ_DEP") = CGrupos.FieldByName("ACGR_DEP").valor();
    CActivo.FieldByName("ACFJ_DEPNIIF") = CGrupos.FieldByName("ACGR_MESDEPN").valor();
    LSubgrupo->relea();
}

void FormaActivo::escoja_grupo() {
    const GrupoEscogido actual{CActivo.FieldByName("ACGR_ID").texto(),
                               CActivo.FieldByName("ACSG_ID").texto()};
    pida("Tfgruposact", PideGrupoActivo{actual}, [this](const GrupoEscogido& g) {
        CActivo.FieldByName("ACGR_ID") = g.grupo.toInt();
        if (!g.subgrupo.isEmpty())
            CActivo.FieldByName("ACSG_ID") = g.subgrupo.toInt();
    });
}

void FormaActivo::busque_cuenta(const char* columna, Libro libro, const QString& texto) {
    escoja_cuenta(
        *this, libro, texto,
        [this, columna](const QString& cuenta) { CActivo.FieldByName(columna) = cuenta; },
        CActivo.FieldByName(columna).texto());
}

void FormaActivo::cuenta_cambiada(Campo& campo, Libro libro, QLineEdit* nombre) {
    const bool repuesta = pregunta_.reponiendo();
    if (const auto buscada = pregunta_.tome(campo)) {
        escoja_cuenta(
            *this, libro, *buscada, [&campo](const QString& escogida) { campo = escogida; },
            campo.texto());
        return;
    }
    const QString cuenta = campo.texto();
    nombre->setText(cuenta.isEmpty() ? QString()
                    : repuesta       ? nombre_en_el_plan(fdm().Quorvex, libro, cuenta)
                                     : fdmcnt().nom_cuenta(cuenta, libro));
    nombre->setCursorPosition(0);
    if (nombre->text().isEmpty() && !cuenta.isEmpty() && !repuesta && campo.conjunto().editando()) {
        muestre_mensaje("No se encontró la cuenta contable indicada.");
        campo.limpie();
    }
}

void FormaActivo::centro_cambiado() {
    const QString proyecto = CCentros.FieldByName("ACCE_PROY").texto(),
                  centro = CCentros.FieldByName("ACCE_CENTRO").texto();
    if (!proyecto.isEmpty() && !centro.isEmpty() && !fdmcnt().valide_centro(proyecto, centro))
        CCentros.FieldByName("ACCE_CENTRO").limpie();
}

void FormaActivo::cargue_foto(const QString& ruta) {
    if (CFoto.IsEmpty()) {
        CFoto.Append();
        CFoto.FieldByName("ACFJ_COD") = CActivo.FieldByName("ACFJ_COD").texto();
    }
    Foto->cargue_archivo(ruta);
}

void FormaActivo::quite_foto() {
    if (!CFoto.IsEmpty())
        CFoto.Delete();
}

// ---------------------------------------------------------------- grabar y salir

bool FormaActivo::acepte_reparto() {
    if (CCentros.ChangeCount() == 0)
        return true; // el que ya se aceptó
    const Campo& parte = CCentros.FieldByName("ACCE_PORC");
    Moneda suma, redondeos;
    CCentros.recorra_todas([&](const Fila& fila) {
        // La depreciación solo toma las partes mayores que cero.
        suma += qMax(CCentros.valor_de(fila, parte).moneda(), Moneda());
        redondeos += Moneda::de_texto("0.01"); // tres partes de 33.33 son el gasto entero
    });
    if (redondeos.es_cero() || (suma - Moneda(100)).absoluta() <= redondeos ||
        pregunte_con_no((suma.es_cero()
                             ? QStringLiteral("El reparto por centros de costo no tiene "
                                              "porcentajes: el gasto no se repartirá.")
                             : "El reparto por centros de costo suma " + parte.presente(suma) +
                                   " %, y no 100 %: el gasto se repartirá en esa proporción.") +
                        " Desea grabarlo así?"))
        return true;
    vuelva_a(DBGridEh1);
    return false;
}

void FormaActivo::SBGrabarClick() {
    CCentros.CheckBrowseMode();
    CInicial.CheckBrowseMode();
    CFoto.CheckBrowseMode();
    if (!acepte_reparto())
        return;
    CActivo.Post();
    if (grabe_y_anuncie(CActivo, "Grabado activo " + CActivo.FieldByName("ACFJ_COD").texto()) == 0)
        close();
    else
        CActivo.Edit();
}

bool FormaActivo::hay_por_perder() const {
    if (hay_a_medio_escribir(*this))
        return true;
    // Una ficha nueva solo tiene lo que se propone.
    const auto vacio = [this](const char* campo) { return CActivo.FieldByName(campo).vacio(); };
    if (CActivo.State() == Estado::Insercion && vacio("ACFJ_COD") && vacio("ACFJ_DESC"))
        return false;
    return CActivo.Active() && (CActivo.ChangeCount() > 0 || CActivo.Modified() ||
                                CCentros.Modified() || CInicial.Modified() || CFoto.Modified());
}

bool FormaActivo::FormClose() {
    if (hay_por_perder() &&
        !pregunte_con_no("Desea salir de la ficha y perder los cambios que no ha grabado?"))
        return false;
    CActivo.CancelUpdates();
    CActivo.Close();
    return true;
}
