#include "vouchers/tfedtformato.h"

#include "catalogues/grabe_y_anuncie.h"
#include "toolkit/aire.h"
#include "toolkit/controles/imagendato.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/sin_grabar.h"
#include "vouchers/datos_formato.h"
#include "vouchers/lienzo_formato.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QFileDialog>
#include <QFontDatabase>
#include <QSplitter>

namespace {

constexpr int kComprobantes = 1; // TIDO_COD de los formatos de comprobante

/// Tablas de un formato con las columnas que se copian, todas menos la llave.
struct TablaFormato {
    const char *tabla, *columnas;
};
const TablaFormato kTablas[] = {
    {"FORMATOS", "FORM_IMPRE, FORM_NROITEMS, FORM_PAGINAS, FORM_ENTRELINEA, FORM_FONT, FORM_FSIZE, "
                 "FORM_PAPELAN, FORM_PAPELAL"},
    {"FORMATO_DATOS",
     "DAFO_ITEM, DAFO_DATO, DAFO_IMPRIME, DAFO_POSX, DAFO_POSY, DAFO_INI, DAFO_LONG, "
     "DAFO_FORMATO, DAFO_REPITE, DAFO_FONT, DAFO_FSIZE, DAFO_LIQUIDA, DAFO_POSYVAR"},
    {"FORMATO_LINEAS", "FOLI_ITEM, FOLI_TIPO, FOLI_X, FOLI_Y, FOLI_POSX, FOLI_POSY, FOLI_CADENA, "
                       "FOLI_FONT, FOLI_FSIZE, FOLI_LIQUIDA, FOLI_IMAGEN"},
};

QString de_la_llave(const QString& llave) {
    return QStringLiteral("tido_cod = %1 and pref_pre = ").arg(kComprobantes) + QuotedStr(llave);
}

} // namespace

Tfedtformato::Tfedtformato()
    : Pantalla("Tfedtformato", "Definición de formatos documentos"),
      PFormato(this, "PFormato", &fdm().Tformatos), PTipocomp(this, "PTipocomp", &fdm().TTipocomp),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CFormato(this, "CFormato", &PFormato), CFormadatos(this, "CFormadatos"),
      CFormalineas(this, "CFormalineas"), CTipocomp(this, "CTipocomp", &PTipocomp),
      CBorrar(this, "CBorrar", &PBorrar) {
    defina_conjuntos();
    Formulario f(this);
    construya_encabezado(f);
    auto* grillas = new QSplitter(Qt::Vertical);
    grillas->addWidget(construya_datos());
    grillas->addWidget(construya_lineas());
    lienzo = new LienzoFormato(CFormato, CFormadatos, CFormalineas);
    lienzo->setAccessibleName("Página a escala");
    auto* division = new QSplitter(Qt::Horizontal);
    division->addWidget(grillas);
    division->addWidget(lienzo);
    for (QSplitter* s : {grillas, division}) {
        s->setChildrenCollapsible(false);
        s->setStretchFactor(0, 3);
        s->setStretchFactor(1, s == grillas ? 2 : 1);
    }
    division->setSizes({7800, 2200}); // los títulos y los nombres de los datos se leen enteros
    f.ancha(division, 1);
    auto* barra = new BarraBotones(this);
    f.botones(barra);
    declare_botones(barra);
    construya_paneles();
    QWidget* orden[] = {ultimo_, DBGridEh2, ckfildat, DBGridEh1, ckfiltex, grafico_};
    for (size_t i = 1; i < std::size(orden); ++i)
        QWidget::setTabOrder(orden[i - 1], orden[i]);
    enter_como_tab();
    // Tab en la última celda agrega una fila: sin esta tecla no se saldría de una rejilla.
    tecla(Qt::Key_F12, "Cambiar de rejilla", [this] {
        if (DBGridEh2->enfocada())
            DBGridEh1->setFocus();
        else if (DBGridEh1->enfocada())
            grabar_->setFocus(Qt::TabFocusReason);
        else
            DBGridEh2->setFocus();
    });
}

Tfedtformato::~Tfedtformato() = default;

void Tfedtformato::defina_conjuntos() {
    CFormato.entero("TIDO_COD").requerido();
    CFormato.texto("PREF_PRE", 6).requerido();
    CFormato.texto("FORM_IMPRE", 60);
    CFormato.entero("FORM_NROITEMS");
    CFormato.bandera("FORM_PAGINAS");
    CFormato.entero("FORM_ENTRELINEA");
    CFormato.texto("FORM_FONT", 60);
    CFormato.entero("FORM_FSIZE");
    CFormato.decimal("FORM_PAPELAN");
    CFormato.decimal("FORM_PAPELAL");

    CFormadatos.anide_en(&CFormato, &fdm().Tformadatos);
    CFormadatos.entero("TIDO_COD");
    CFormadatos.texto("PREF_PRE", 4);
    CFormadatos.entero("DAFO_ITEM").requerido();
    CFormadatos.CampoConsecutivo = "DAFO_ITEM"; // dos editores pueden agregar a la vez
    CFormadatos.texto("DAFO_DATO", 30).etiqueta("Dato");
    CFormadatos.bandera("DAFO_IMPRIME");
    for (const char* n : {"DAFO_POSX", "DAFO_POSY", "DAFO_INI", "DAFO_LONG"})
        CFormadatos.entero(n);
    CFormadatos.texto("DAFO_FORMATO", 20);
    CFormadatos.bandera("DAFO_REPITE");
    CFormadatos.texto("DAFO_FONT", 60);
    CFormadatos.entero("DAFO_FSIZE");
    CFormadatos.bandera("DAFO_LIQUIDA");
    CFormadatos.bandera("DAFO_POSYVAR");

    CFormalineas.anide_en(&CFormato, &fdm().Tformalineas);
    cuide_lo_digitado(*this, {&CFormato, &CFormadatos, &CFormalineas});
    CFormalineas.entero("TIDO_COD");
    CFormalineas.texto("PREF_PRE", 6);
    CFormalineas.entero("FOLI_ITEM").requerido();
    CFormalineas.CampoConsecutivo = "FOLI_ITEM";
    CFormalineas.texto("FOLI_TIPO", 1).etiqueta("Tipo");
    for (const char* n : {"FOLI_X", "FOLI_Y", "FOLI_POSX", "FOLI_POSY"})
        CFormalineas.entero(n);
    CFormalineas.texto("FOLI_CADENA", 60).etiqueta("Texto");
    CFormalineas.texto("FOLI_FONT", 60);
    CFormalineas.entero("FOLI_FSIZE");
    CFormalineas.bandera("FOLI_LIQUIDA");
    CFormalineas.blob("FOLI_IMAGEN");

    campos_tipos_comprobante(CTipocomp);

    CFormato.AfterInsert = [this] {
        CFormato.FieldByName("TIDO_COD") = kComprobantes;
        CFormato.FieldByName("PREF_PRE") = llave_;
        CFormato.FieldByName("FORM_PAGINAS") = "S";
    };
    // Los elementos nacen con la llave de su formato: ese registro ya debe estar completo.
    CFormadatos.BeforeInsert = CFormalineas.BeforeInsert = [this] { CFormato.CheckBrowseMode(); };
    CFormadatos.AfterInsert = [this] {
        nazca(CFormadatos, item_datos_, "DAFO");
        CFormadatos.FieldByName("DAFO_INI") = 1;
        CFormadatos.FieldByName("DAFO_POSYVAR") = "N";
        CFormadatos.FieldByName("DAFO_REPITE") = "N";
    };
    CFormalineas.AfterInsert = [this] {
        nazca(CFormalineas, item_lineas_, "FOLI");
        CFormalineas.FieldByName("FOLI_TIPO") = "T";
    };
    CFormadatos.FieldByName("DAFO_DATO").OnChange = [this](Campo& c) { DAFO_DATOChange(c); };
    // Un dato sin nombre no imprime nada: al dejarlo desaparece.
    CFormadatos.BeforePost = [this] {
        if (CFormadatos.FieldByName("DAFO_DATO").vacio())
            CFormadatos.Cancel();
    };
}

void Tfedtformato::nazca(ConjuntoDatos& c, int& contador, const char* prefijo) {
    const auto campo = [&](const char* nombre) -> Campo& {
        return c.FieldByName(QLatin1String(prefijo) + QLatin1String(nombre));
    };
    campo("_ITEM") = ++contador;
    campo("_FONT") = CFormato.FieldByName("FORM_FONT").valor();
    campo("_FSIZE") = CFormato.FieldByName("FORM_FSIZE").valor();
    campo("_LIQUIDA") = "N";
}

// ---------------------------------------------------------------- disposición

void Tfedtformato::construya_encabezado(Formulario& f) {
    const auto editor = [this](const char* campo, int ancho) {
        auto* e = new EditorDato(&CFormato, campo);
        e->setObjectName(campo);
        e->ancho(ancho);
        return e;
    };
    auto* llave = editor("PREF_PRE", 7);
    llave->ReadOnly(true);
    llave->setFocusPolicy(Qt::NoFocus);
    LFont = new ListaDato(&CFormato, "FORM_FONT");
    LFont->setObjectName("LFont");
    // Con letra grande cede, para que las filas empiecen todas en la misma columna.
    LFont->setMinimumContentsLength(area_estrecha() ? 6 : 14);
    LFont->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* tamano_letra = editor("FORM_FSIZE", 4);
    ultimo_ = new CasillaDato("Permitir varias páginas", &CFormato, "FORM_PAGINAS");
    // En dos renglones: en una ventana baja las dos rejillas quedan a la vista.
    f.fila("Formato:",
           en_flujo({llave, con_rotulo("Tipo de letra", LFont), con_rotulo("Tamaño", tamano_letra),
                     con_rotulo("Impresora", editor("FORM_IMPRE", 30))},
                    paso()));
    f.fila("Ancho:",
           en_flujo({editor("FORM_PAPELAN", 6), con_rotulo("Alto", editor("FORM_PAPELAL", 6)),
                     con_rotulo("Número de repeticiones items", editor("FORM_NROITEMS", 4)),
                     con_rotulo("Espacio entre líneas", editor("FORM_ENTRELINEA", 4)), ultimo_},
                    paso()));
}

QWidget* Tfedtformato::construya_datos() {
    auto* caja = new QGroupBox("Datos a imprimir");
    DBGridEh2 = new Rejilla(caja, &CFormadatos);
    DBGridEh2->setObjectName("DBGridEh2");
    DBGridEh2->setAccessibleName("Datos que se imprimen");
    DBGridEh2->columnas({{"DAFO_DATO", "Dato", 22},
                         {"DAFO_IMPRIME", "Imprime", 8, Casilla},
                         {"DAFO_POSX", "Posición X", 9},
                         {"DAFO_POSY", "Posición Y", 9},
                         {"DAFO_INI", "Inicial", 6},
                         {"DAFO_LONG", "Longitud", 8},
                         {"DAFO_FORMATO", "Decimales", 9},
                         {"DAFO_REPITE", "Repite", 7, Casilla},
                         {"DAFO_FONT", "Letra", 14},
                         {"DAFO_FSIZE", "Tamaño", 7},
                         {"DAFO_LIQUIDA", "Al final", 7, Casilla},
                         {"DAFO_POSYVAR", "Y variable", 9, Casilla}});
    QStringList nombres;
    for (const DatoFormato& d : kDatosFormato)
        nombres << QLatin1String(d.nombre);
    DBGridEh2->lista("DAFO_DATO", nombres);
    DBGridEh2->texto_vacio = "Sin datos. Insert agrega el primero; Alt+Abajo muestra cuáles hay.";
    DBGridEh2->OnEnter = [this] { lienzo->resalte(&CFormadatos); };
    ckfildat = new QCheckBox("Filtrar");
    ckfildat->setObjectName("ckfildat");
    connect(ckfildat, &QCheckBox::toggled, DBGridEh2,
            [this](bool si) { DBGridEh2->filtro_visible(si); });
    DBGridEh2->enter_como_tab = true;
    Formulario f(caja);
    f.ancha(DBGridEh2, 1);
    f.fila("", ckfildat);
    return caja;
}

QWidget* Tfedtformato::construya_lineas() {
    auto* caja = new QGroupBox("Lineas y cuadros ");
    DBGridEh1 = new Rejilla(caja, &CFormalineas);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Líneas y cuadros");
    DBGridEh1->columnas({{"FOLI_TIPO", "Tipo", 9},
                         {"FOLI_CADENA", "Texto", 26},
                         {"FOLI_POSX", "Posición X", 9},
                         {"FOLI_POSY", "Posición Y", 9},
                         {"FOLI_X", "Ancho", 7},
                         {"FOLI_Y", "Alto", 7},
                         {"FOLI_FONT", "Letra", 14},
                         {"FOLI_FSIZE", "Tamaño", 7},
                         {"FOLI_LIQUIDA", "Al final", 7, Casilla}});
    DBGridEh1->lista("FOLI_TIPO", {"Texto", "Linea", "Cuadro", "Gráfico"}, {"T", "L", "C", "G"});
    DBGridEh1->texto_vacio = "Sin líneas ni cuadros. Insert agrega el primero.";
    DBGridEh1->OnDblClick = [this](int) { DBGridEh1DblClick(); };
    DBGridEh1->OnEnter = [this] { lienzo->resalte(&CFormalineas); };
    ckfiltex = new QCheckBox("Filtrar");
    ckfiltex->setObjectName("ckfiltex");
    connect(ckfiltex, &QCheckBox::toggled, DBGridEh1,
            [this](bool si) { DBGridEh1->filtro_visible(si); });
    DBGridEh1->enter_como_tab = true;
    // El doble clic, al alcance del teclado.
    grafico_ = new QPushButton("Gráfico…");
    grafico_->setObjectName("SBGrafico");
    grafico_->setAutoDefault(false);
    connect(grafico_, &QPushButton::clicked, this,
            [this] { ejecute([this] { DBGridEh1DblClick(); }); });
    Formulario f(caja);
    f.ancha(DBGridEh1, 1);
    f.fila("", Formulario::junto({ckfiltex, grafico_}));
    return caja;
}

void Tfedtformato::construya_paneles() {
    const auto boton = [this](const char* nombre, const char* texto, auto accion) {
        auto* b = new QPushButton(QString::fromUtf8(texto));
        b->setObjectName(nombre);
        connect(b, &QPushButton::clicked, this, [accion] { proteja(accion); });
        return b;
    };
    Panel2 = new PanelFlotante("Panel2", "Copiar el formato a", this);
    Pref = new QComboBox;
    Pref->setObjectName("Pref");
    Pref->setEditable(true);
    Pref->lineEdit()->setMaxLength(CFormadatos.FieldByName("PREF_PRE").Size);
    Formulario(Panel2).fila(
        {{"Prefijo", Pref},
         {"", boton("SpeedButton4", "F9:Copiar", [this] { SpeedButton4Click(); })},
         {"", boton("SpeedButton5", "Esc:Cancelar", [this] { Panel2->oculte(); })}});
    Panel2->vuelve = [this](bool tenia_foco) { return tenia_foco ? DBGridEh2 : nullptr; };

    GroupBox3 = new PanelFlotante("GroupBox3", "Gráfico", this);
    DBImage1 = new ImagenDato(&CFormalineas, "FOLI_IMAGEN");
    DBImage1->setObjectName("DBImage1");
    DBImage1->setAccessibleName("Imagen del elemento");
    DBImage1->setToolTip("Clic o Espacio para escoger el archivo de la imagen");
    DBImage1->setMinimumSize(DBImage1->fontMetrics().averageCharWidth() * 40,
                             DBImage1->fontMetrics().height() * 9);
    DBImage1->al_pulsar([this] { DBImage1Click(); });
    Formulario f(GroupBox3);
    f.ancha(DBImage1, 1);
    f.ancha(boton("SpeedButton1", "Continuar", [this] { GroupBox3->oculte(); }), 0);
    GroupBox3->vuelve = [this](bool tenia_foco) { return tenia_foco ? DBGridEh1 : nullptr; };
    Panel2->flote_sobre(DBGridEh2);
    GroupBox3->flote_sobre(DBGridEh2);
}

void Tfedtformato::declare_botones(BarraBotones* barra) {
    grabar_ = barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2, [this] {
        if (aplique())
            close();
    });
    barra->principal(grabar_);
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape,
                 [this] { SBCancelClick(); });
    // Las teclas que anuncian los demás letreros no hacen nada.
    barra->boton("SpeedButton2", "F5:Mover", "transform-move", {}, [this] { SpeedButton2Click(); });
    barra->boton("SpeedButton3", "F8:Vista previa", "document-print-preview", {},
                 [this] { SpeedButton3Click(); });
    barra->boton("AdvGlowButton1", "F9:Copiar", "edit-copy", {}, [this] { AdvGlowButton1Click(); });
    barra->boton("AdvGlowButton2", "F3:Borrar", "edit-delete", {},
                 [this] { AdvGlowButton2Click(); });
}

void Tfedtformato::resizeEvent(QResizeEvent* evento) {
    Pantalla::resizeEvent(evento);
    Panel2->ubique();
    GroupBox3->ubique();
}

// ---------------------------------------------------------------- apertura

void Tfedtformato::FormCreate() {
    llave_ = peticion<AbreFormato>().formato_actual.trimmed();
    if (llave_.isEmpty()) {
        muestre_mensaje("Escoja antes un prefijo: su formato se guarda con él.");
        pida_cierre_al_crear();
        return;
    }
    CTipocomp.Open();
    fdm().ConfigurarProviders(this);
    CFormato.Open();
    ubique(llave_);
    const QStringList letras = QFontDatabase::families();
    LFont->lista_de(letras);
    DBGridEh1->lista("FOLI_FONT", letras);
    DBGridEh2->lista("DAFO_FONT", letras);
    tamano_del_area(40, 20);
}

void Tfedtformato::ubique(const QString& llave) {
    if (CFormato.Locate("TIDO_COD;PREF_PRE", {kComprobantes, llave})) {
        CFormato.Edit();
        item_lineas_ = mayor("formato_lineas", "foli_item");
        item_datos_ = mayor("formato_datos", "dafo_item");
    } else {
        CFormato.Insert();
        item_lineas_ = item_datos_ = 0;
    }
}

int Tfedtformato::mayor(const char* tabla, const char* columna) {
    return int(CBorrar
                   .valor_unico(QStringLiteral("select max(%1) from %2 where ")
                                    .arg(QLatin1String(columna), QLatin1String(tabla)) +
                                de_la_llave(llave_))
                   .entero());
}

// ---------------------------------------------------------------- elementos

void Tfedtformato::DAFO_DATOChange(Campo& campo) {
    const QString nombre = campo.texto(), llave = nombre.toUpper();
    if (nombre != llave) {
        campo = llave;
        return;
    }
    // Cada dato es de un pase: en el otro no imprimiría nada.
    for (const DatoFormato& d : kDatosFormato)
        if (llave == QLatin1String(d.nombre))
            CFormadatos.FieldByName("DAFO_REPITE") = d.detalle ? "S" : "N";
}

void Tfedtformato::DBGridEh1DblClick() {
    CFormalineas.Edit();
    if (CFormalineas.FieldByName("FOLI_TIPO").texto() == "G")
        GroupBox3->muestre(DBImage1);
}

void Tfedtformato::DBImage1Click() {
    QFileDialog dialogo(this, "Imagen del formato", {},
                        "Imágenes (*.bmp *.png *.jpg *.jpeg *.gif);;Todos los archivos (*)");
    dialogo.setObjectName("abrir_imagen");
    dialogo.setFileMode(QFileDialog::ExistingFile);
    if (dialogo.exec() == QDialog::Accepted && !dialogo.selectedFiles().isEmpty())
        DBImage1->cargue_archivo(dialogo.selectedFiles().constFirst());
}

// ---------------------------------------------------------------- botones

bool Tfedtformato::aplique() {
    for (ConjuntoDatos* c : {&CFormadatos, &CFormalineas, &CFormato})
        c->CheckBrowseMode();
    return grabe_y_anuncie(CFormato, "Grabado formato " + llave_) == 0;
}

void Tfedtformato::SBCancelClick() {
    // Con un panel abierto Esc es el de cancelarlo.
    for (PanelFlotante* p : {Panel2, GroupBox3})
        if (p->isVisible()) {
            p->oculte();
            return;
        }
    close();
}

void Tfedtformato::SpeedButton2Click() {
    if (!aplique())
        return;
    pantallas().abrir_modal("TFmoverforma",
                            MueveFormato{int(CFormato.FieldByName("TIDO_COD").entero()), llave_});
    CFormato.Close(); // lo que se movió está en la base
    CFormato.Open();
    ubique(llave_);
}

void Tfedtformato::SpeedButton3Click() {
    if (!aplique())
        return;
    const bool por_tipo = fdm().valor<Llave::FormatoPorTipo>();
    const QString ultimo =
        CBorrar
            .valor_unico(
                QStringLiteral("select max(ENCO_CONSEC) from COMPROBANTE_ENCABEZADO where %1 = ")
                    .arg(por_tipo ? "TICO_COD" : "PRCO_PREF") +
                QuotedStr(llave_))
            .texto();
    if (!ultimo.isEmpty())
        imprima_comprobante(ultimo);
}

void Tfedtformato::AdvGlowButton1Click() {
    Pref->clear();
    for (CTipocomp.First(); !CTipocomp.Eof(); CTipocomp.Next())
        if (CTipocomp.FieldByName("TICO_COD").texto() != llave_)
            Pref->addItem(CTipocomp.FieldByName("TICO_COD").texto());
    Pref->addItem("0000");
    Pref->setCurrentIndex(-1);
    Pref->clearEditText();
    Panel2->muestre(Pref);
}

void Tfedtformato::SpeedButton4Click() {
    const QString nueva = Pref->currentText().trimmed();
    Panel2->oculte();
    if (nueva.isEmpty())
        return;
    // La primera falla con una llave que ya existe y detiene las demás.
    for (const TablaFormato& t : kTablas)
        CBorrar.Execute(QStringLiteral("INSERT INTO %1 (TIDO_COD, PREF_PRE, %2) SELECT TIDO_COD, ")
                            .arg(QLatin1String(t.tabla), QLatin1String(t.columnas)) +
                        QuotedStr(nueva) +
                        QStringLiteral(", %2 FROM %1 WHERE TIDO_COD = 1 AND PREF_PRE = ")
                            .arg(QLatin1String(t.tabla), QLatin1String(t.columnas)) +
                        QuotedStr(llave_));
}

void Tfedtformato::AdvGlowButton2Click() {
    // Los elementos se van con su formato, en la base.
    CBorrar.Execute("delete from formatos where " + de_la_llave(llave_));
    CFormato.CancelUpdates(); // lo digitado se fue con él
    close();
}

bool Tfedtformato::FormClose() {
    for (ConjuntoDatos* c : {&CFormadatos, &CFormalineas, &CFormato})
        c->Cancel();
    CFormato.Close();
    CTipocomp.Close();
    return true;
}
