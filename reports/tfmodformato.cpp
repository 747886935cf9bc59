#include "reports/tfmodformato.h"

#include "catalogues/grabe_y_anuncie.h"
#include "reports/lienzo_informe.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/imagendato.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/letrero_al_pie.h"
#include "toolkit/rejilla/editor_celda.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/sin_grabar.h"

#include <QFileDialog>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHeaderView>
#include <QSplitter>

namespace {

constexpr int kMasPaginas = 99;
const QString kDelSistema = QStringLiteral("Impresora del sistema");

} // namespace

Tfmodformato::Tfmodformato() : Tfmodformato("Tfmodformato", "Modificar informe") {}

Tfmodformato::Tfmodformato(const QString& clase, const QString& titulo) : Pantalla(clase, titulo) {
    cuide_lo_digitado(*this, {&CFormato, &CFormadatos, &CFormalineas});
    defina_nacimientos();
    Formulario f(this);
    construya_encabezado(f);
    auto* grillas = new QSplitter(Qt::Vertical);
    grillas->addWidget(construya_datos());
    grillas->addWidget(construya_lineas());
    auto* division = new QSplitter(Qt::Horizontal);
    division->addWidget(grillas);
    division->addWidget(construya_vista());
    for (QSplitter* s : {grillas, division}) {
        s->setChildrenCollapsible(false);
        s->setStretchFactor(0, 3);
        s->setStretchFactor(1, 2);
    }
    division->setSizes({7000, 3000}); // las columnas se leen sin desplazarlas
    f.ancha(division, 1);
    construya_imagen();
    f.ancha(GroupBox3, 0);
    auto* barra = new BarraBotones(this);
    f.botones(barra);
    declare_botones(barra);
    enter_como_tab();
}

Tfmodformato::~Tfmodformato() = default;

// ---------------------------------------------------------------- conjuntos

void Tfmodformato::defina_nacimientos() {
    CFormato.AfterInsert = [this] {
        CFormato.FieldByName("FOCO_PAGINAS") = 1;
        CFormato.FieldByName("FOCO_NIIF") = "N";
    };
    CFormato.BeforePost = [this] {
        const auto paginas = CFormato.FieldByName("FOCO_PAGINAS").entero();
        if (CFormato.FieldByName("FOCO_ID").vacio())
            muestre_mensaje("Digite el código del informe.");
        else if (paginas < 1 || paginas > kMasPaginas)
            muestre_mensaje(QStringLiteral("El informe tiene de 1 a %1 páginas.").arg(kMasPaginas));
        else
            return;
        throw EdicionAbortada();
    };
    // Los elementos nacen con el código de su informe: ese registro ya debe estar completo.
    CFormadatos.BeforeInsert = CFormalineas.BeforeInsert = [this] { CFormato.CheckBrowseMode(); };
    CFormadatos.AfterInsert = [this] { CFormadatosAfterInsert(); };
    CFormalineas.AfterInsert = [this] { CFormalineasAfterInsert(); };
    CFormadatos.AfterScroll = [this] { formula_de_la_fila(); };
    // Un renglón sin dato no imprime nada: al dejarlo desaparece.
    CFormadatos.BeforePost = [this] {
        if (CFormadatos.FieldByName("FOCD_CUENTAS").vacio())
            CFormadatos.Cancel();
    };
}

void Tfmodformato::CFormadatosAfterInsert() {
    CFormadatos.FieldByName("FOCD_ITEM") = ++item_datos_;
    CFormadatos.FieldByName("FOCD_INI") = 1;
    CFormadatos.FieldByName("FOCD_FONT") = "Arial";
    CFormadatos.FieldByName("FOCD_FSIZE") = 9;
    CFormadatos.FieldByName("FOCD_PAGINA") = 1;
}

void Tfmodformato::CFormalineasAfterInsert() {
    CFormalineas.FieldByName("FOCD_ITEM") = ++item_lineas_;
    CFormalineas.FieldByName("FOCD_TIPO") = "T";
    CFormalineas.FieldByName("FOCD_FONT") = "Arial";
    CFormalineas.FieldByName("FOCD_FSIZE") = 9;
    // La base le pondría esta página al grabar; así se ve desde ahora.
    CFormalineas.FieldByName("FOCD_PAGINA") = 1;
}

// ---------------------------------------------------------------- disposición

void Tfmodformato::construya_encabezado(Formulario& f) {
    const auto editor = [this](const char* campo, int ancho) {
        auto* e = new EditorDato(&CFormato, campo);
        e->setObjectName(campo);
        e->ancho(ancho);
        return e;
    };
    ECodigo = editor("FOCO_ID", 8);
    ECodigo->ReadOnly(true);
    EImpresora = new ListaTecleo;
    EImpresora->setObjectName("EImpresora");
    auto* niif = new CasillaDato("Cuentas Niif", &CFormato, "FOCO_NIIF");
    niif->setObjectName("FOCO_NIIF");
    // Los nombres toman el renglón que sus vecinos no usan.
    f.fila({{"Código:", ECodigo},
            {"Nombre:",
             en_flujo({editor("FOCO_NOMBRE", 40), con_rotulo("Impresora", EImpresora), niif},
                      paso())}});
    f.fila({{"Páginas:", editor("FOCO_PAGINAS", 8)},
            {"Título:", en_flujo({editor("FOCO_TITULO", 40),
                                  con_rotulo("Factor conversión", editor("FOCO_FACTOR", 12))},
                                 paso())}});
    f.fila({{"Líneas:", editor("FOCO_LINEAS", 8)}, {"Subtítulo:", editor("FOCO_SUBTITULO", 80)}});
}

QWidget* Tfmodformato::construya_datos() {
    auto* caja = new QGroupBox("Datos a imprimir");
    DBGridEh1 = new Rejilla(caja, &CFormadatos);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Datos a imprimir");
    DBGridEh1->columnas({{"FOCD_ITEM", "#", 5, SoloLectura},
                         {"FOCD_CUENTAS", "Dato a imprimir", 26},
                         {"FOCD_POSX", "Pos X", 7},
                         {"FOCD_POSY", "Pos Y", 7},
                         {"FOCD_LONG", "Tam/Dig", 8},
                         {"FOCD_OPER", "Oper", 6},
                         {"FOCD_FACTOR", "Factor", 10},
                         {"FOCD_PROY", "Proyecto", 9},
                         {"FOCD_CENTRO", "Centro", 8},
                         {"FOCD_INI", "Inicio", 7},
                         {"FOCD_FONT", "Font", 14},
                         {"FOCD_FSIZE", "Tamaño", 8},
                         {"FOCD_PAGINA", "Pag.", 6}});
    DBGridEh1->lista("FOCD_OPER", {"", "+", "-", "*", "/"});
    DBGridEh1->texto_vacio = "Sin datos. Insert agrega el primero: SF1105 es el saldo de 1105.";
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->OnEnter = [this] { lienzo->resalte(&CFormadatos); };
    QString ayuda = "Datos: ";
    for (const auto* tabla : {&InformeDefinible::codigos_fijos(), &codigos_de_referencia()})
        for (const CodigoReferencia& c : *tabla)
            ayuda +=
                QStringLiteral("\n%1  %2").arg(QLatin1String(c.codigo), QString::fromUtf8(c.texto));
    DBGridEh1->setToolTip(ayuda);
    // La fórmula se mira con cada letra, antes de que llegue al campo.
    connect(DBGridEh1->findChild<EditorCelda*>(), &QLineEdit::textChanged, this,
            [this](const QString& texto) {
                if (DBGridEh1->digitando() &&
                    DBGridEh1->SelectedIndex() == DBGridEh1->columna_de("FOCD_CUENTAS"))
                    diga_formula(texto);
            });
    CFormadatos.FieldByName("FOCD_CUENTAS").OnChange = [this](Campo&) { formula_de_la_fila(); };
    EstadoFormula = new QLabel;
    EstadoFormula->setObjectName("EstadoFormula");
    EstadoFormula->setTextFormat(Qt::PlainText);
    EstadoFormula->hide();
    Formulario(caja).ancha(DBGridEh1, 1).ancha(EstadoFormula, 0);
    return caja;
}

QWidget* Tfmodformato::construya_lineas() {
    auto* caja = new QGroupBox("Textos, Lineas y cuadros ");
    DBGridEh2 = new Rejilla(caja, &CFormalineas);
    DBGridEh2->setObjectName("DBGridEh2");
    DBGridEh2->setAccessibleName("Textos, líneas y cuadros");
    DBGridEh2->columnas({{"FOCD_ITEM", "#", 5, SoloLectura},
                         {"FOCD_TIPO", "Tipo", 9},
                         {"FOCD_CADENA", "Texto", 26},
                         {"FOCD_POSX", "Pos X", 7},
                         {"FOCD_POSY", "Pos Y", 7},
                         {"FOCD_X", "Tam. X", 7},
                         {"FOCD_Y", "Tam Y", 7},
                         {"FOCD_FONT", "Font", 14},
                         {"FOCD_FSIZE", "Tamaño", 8},
                         {"FOCD_PAGINA", "Pag.", 6}});
    DBGridEh2->lista("FOCD_TIPO", {"Texto", "Linea", "Cuadro", "Gráfico"}, {"T", "L", "C", "G"});
    DBGridEh2->texto_vacio = "Sin textos ni cuadros. Insert agrega el primero.";
    DBGridEh2->enter_como_tab = true;
    DBGridEh2->OnEnter = [this] { lienzo->resalte(&CFormalineas); };
    DBGridEh2->OnDblClick = [this](int) { DBGridEh2DblClick(); };
    // El doble clic, al alcance del teclado.
    auto* grafico = new QPushButton("Gráfico…");
    grafico->setObjectName("SBGrafico");
    grafico->setAutoDefault(false);
    connect(grafico, &QPushButton::clicked, this,
            [this] { ejecute([this] { DBGridEh2DblClick(); }); });
    Formulario(caja).ancha(DBGridEh2, 1).fila("", grafico);
    return caja;
}

QWidget* Tfmodformato::construya_vista() {
    auto* caja = new QGroupBox("Página");
    EPagina = new QSpinBox;
    EPagina->setObjectName("EPagina");
    EPagina->setRange(1, kMasPaginas);
    auto* relea = new QPushButton("Leer cifras");
    relea->setObjectName("SBRelea");
    relea->setAutoDefault(false);
    lienzo = new LienzoInforme(
        definicion,
        [this] { return periodo_de_la_sesion(CFormato.FieldByName("FOCO_NIIF").texto() == "S"); },
        [] { return LectorReferencias(); });
    for (Rejilla* rejilla : {DBGridEh1, DBGridEh2})
        lienzo->siga(*rejilla);
    lienzo->setAccessibleName("Página a escala");
    lienzo->al_senalar = [this](ConjuntoDatos& c) {
        (&c == &CFormadatos ? DBGridEh1 : DBGridEh2)->setFocus();
    };
    connect(EPagina, &QSpinBox::valueChanged, lienzo, [this](int p) { lienzo->pagina(p); });
    connect(relea, &QPushButton::clicked, lienzo,
            [this] { proteja([this] { lienzo->olvide(); }); });
    Formulario(caja).ancha(lienzo, 1).fila("Página:", Formulario::junto({EPagina, relea}));
    return caja;
}

void Tfmodformato::construya_imagen() {
    GroupBox3 = new QGroupBox("Gráfico");
    GroupBox3->setObjectName("GroupBox3");
    DBImage1 = new ImagenDato(&CFormalineas, "FOCD_IMAGEN");
    DBImage1->setObjectName("DBImage1");
    DBImage1->setAccessibleName("Imagen del elemento");
    DBImage1->setToolTip("Clic o Espacio para escoger el archivo de la imagen");
    DBImage1->setMinimumHeight(DBImage1->fontMetrics().height() * 7);
    DBImage1->al_pulsar([this] { DBImage1Click(); });
    auto* siga = new QPushButton("Continuar");
    siga->setObjectName("SpeedButton1");
    siga->setAutoDefault(false);
    connect(siga, &QPushButton::clicked, this, [this] { ejecute([this] { SBCancelClick(); }); });
    Formulario(GroupBox3).ancha(DBImage1, 1).fila("", siga);
    GroupBox3->hide();
}

void Tfmodformato::declare_botones(BarraBotones* barra) {
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SpeedButton3", "F8:Vista previa", "document-print-preview", Qt::Key_F8,
                 [this] { SpeedButton3Click(); });
    barra->separe();
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape,
                 [this] { SBCancelClick(); });
}

// ---------------------------------------------------------------- apertura

bool Tfmodformato::abra() {
    if (!definicion.abra(peticion<AbreFormatoEspecial>().formato_especial))
        return false;
    item_datos_ = mayor("formatocontable_detalle");
    item_lineas_ = mayor("formatocontable_textos");
    return true;
}

void Tfmodformato::FormCreate() {
    fdm().ConfigurarProviders(this);
    if (!abra()) {
        muestre_mensaje("No se encontró el informe solicitado.");
        pida_cierre_al_crear();
        return;
    }
    for (const QString& nombre : impresoras_de_informes())
        EImpresora->addItem(nombre.isEmpty() ? kDelSistema : nombre);
    EImpresora->setCurrentIndex(CFormato.FieldByName("FOCO_IMPRESORA").nulo()
                                    ? -1
                                    : int(CFormato.FieldByName("FOCO_IMPRESORA").entero()));
    EImpresora->setEnabled(EImpresora->count() > 0);
    EImpresora->setPlaceholderText(kDelSistema);
    const QStringList letras = QFontDatabase::families();
    DBGridEh1->lista("FOCD_FONT", letras);
    DBGridEh2->lista("FOCD_FONT", letras);
    tamano_del_area(20, 20);
    DBGridEh1->setFocus();
}

int Tfmodformato::mayor(const char* tabla) {
    return int(fdm()
                   .CBorrar
                   .valor_unico(QStringLiteral("select max(focd_item) from %1 where foco_id = ")
                                    .arg(QLatin1String(tabla)) +
                                QString::number(CFormato.FieldByName("FOCO_ID").entero()))
                   .entero());
}

bool Tfmodformato::FormClose() {
    definicion.cierre();
    return true;
}

// ---------------------------------------------------------------- fórmula

void Tfmodformato::formula_de_la_fila() {
    diga_formula(CFormadatos.Active() ? CFormadatos.FieldByName("FOCD_CUENTAS").texto()
                                      : QString());
}

void Tfmodformato::diga_formula(const QString& formula) {
    QString estado;
    bool mal = false;
    if (InformeDefinible::es_fijo(formula)) {
        for (const CodigoReferencia& c : InformeDefinible::codigos_fijos())
            if (formula.startsWith(QLatin1String(c.codigo)))
                estado = QStringLiteral("Imprime: ") + QString::fromUtf8(c.texto);
    } else if (const auto falla = formula.isEmpty() ? std::nullopt : revise_formula(formula)) {
        mal = true;
        estado = QStringLiteral("Letra %1: %2.  %3 ▸ %4")
                     .arg(falla->lugar + 1)
                     .arg(falla->texto, formula.left(falla->lugar), formula.mid(falla->lugar));
    } else if (!formula.isEmpty()) {
        estado = QStringLiteral("Fórmula correcta");
    }
    diga_al_pie(EstadoFormula, estado);
    EstadoFormula->setStyleSheet(mal ? QStringLiteral("color: %1").arg(color_inactivo().name())
                                     : QString());
}

// ---------------------------------------------------------------- imagen

void Tfmodformato::DBGridEh2DblClick() {
    if (CFormalineas.IsEmpty() || CFormalineas.FieldByName("FOCD_TIPO").texto() != "G")
        return;
    CFormalineas.Edit();
    GroupBox3->show();
    DBImage1->setFocus();
}

void Tfmodformato::DBImage1Click() {
    QFileDialog dialogo(this, "Imagen del informe", {},
                        "Imágenes (*.bmp *.png *.jpg *.jpeg *.gif);;Todos los archivos (*)");
    dialogo.setObjectName("abrir_imagen");
    dialogo.setFileMode(QFileDialog::ExistingFile);
    if (dialogo.exec() == QDialog::Accepted && !dialogo.selectedFiles().isEmpty())
        DBImage1->cargue_archivo(dialogo.selectedFiles().constFirst());
}

// ---------------------------------------------------------------- botones

bool Tfmodformato::aplique() {
    for (ConjuntoDatos* c : {&CFormadatos, &CFormalineas})
        c->CheckBrowseMode();
    if (EImpresora->currentIndex() >= 0 && CFormato.FieldByName("FOCO_IMPRESORA").texto() !=
                                               QString::number(EImpresora->currentIndex())) {
        CFormato.Edit();
        CFormato.FieldByName("FOCO_IMPRESORA") = EImpresora->currentIndex();
    }
    CFormato.CheckBrowseMode();
    if (grabe_y_anuncie(CFormato,
                        "Grabado formato " + CFormato.FieldByName("FOCO_NOMBRE").texto()) != 0)
        return false;
    ECodigo->ReadOnly(true); // ya tiene renglones con él
    return true;
}

void Tfmodformato::SBGrabarClick() {
    if (aplique())
        close();
}

void Tfmodformato::SpeedButton3Click() {
    if (aplique())
        pantallas().abrir("Tfimpinforme",
                          AbreFormatoEspecial{int(CFormato.FieldByName("FOCO_ID").entero())});
}

void Tfmodformato::SBCancelClick() {
    // Con el panel de la imagen abierto Esc es el de cerrarlo.
    if (GroupBox3->isVisible()) {
        GroupBox3->hide();
        DBGridEh2->setFocus();
        return;
    }
    close();
}
