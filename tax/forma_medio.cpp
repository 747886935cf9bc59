#include "tax/forma_medio.h"

#include "datos/firebird/concuerde.h"
#include "libro/fechas.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "tax/calculo_cancelable.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/fecha_contable.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/formulario.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/pida_archivo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QResizeEvent>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

namespace {

constexpr int kLetrasDeRazon = 20; ///< de una razón social, las que siempre se leen

/// Un texto que se ve entero si hay alto o si tiene el foco; si no, cede hasta dos renglones y se
/// desplaza.
class TextoQueCede : public QScrollArea {
public:
    TextoQueCede(const QString& texto, const QString& nombre) {
        auto* letrero = new QLabel(texto);
        letrero->setWordWrap(true);
        setWidget(letrero);
        setWidgetResizable(true);
        setFrameShape(NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setAccessibleName(nombre);
        setFocusPolicy(Qt::NoFocus);
        connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int fin) {
            setFocusPolicy(fin > 0 || hasFocus() ? Qt::StrongFocus : Qt::NoFocus);
        });
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    }
    QSize sizeHint() const override {
        return {paso(60), widget()->heightForWidth(viewport()->width())};
    }
    QSize minimumSizeHint() const override {
        const int dos = 2 * fontMetrics().lineSpacing();
        return {paso(20),
                hasFocus() ? qBound(dos, sizeHint().height(), window()->height() / 2) : dos};
    }

protected:
    void focusInEvent(QFocusEvent* evento) override {
        QScrollArea::focusInEvent(evento);
        updateGeometry();
    }
    void focusOutEvent(QFocusEvent* evento) override {
        QScrollArea::focusOutEvent(evento);
        updateGeometry();
    }
    void resizeEvent(QResizeEvent* evento) override {
        QScrollArea::resizeEvent(evento);
        if (evento->size().width() != evento->oldSize().width())
            updateGeometry();
        // Se corta entre renglones.
        const int renglon = fontMetrics().lineSpacing();
        const bool cabe = widget()->heightForWidth(viewport()->width()) <= height();
        setViewportMargins(0, 0, 0, cabe ? 0 : height() % renglon);
        verticalScrollBar()->setSingleStep(renglon);
    }
};

QFrame* cree_advertencia(QWidget* padre) {
    auto* panel = new QFrame(padre);
    panel->setObjectName("PanelAdvertencia");
    panel->setFrameShape(QFrame::StyledPanel);
    auto* fila = new QHBoxLayout(panel);
    fila->setContentsMargins(paso(), paso(0.5), paso(), paso(0.5));
    // El título va con lo que sigue: en un renglón suyo, con letra grande lo último no se vería.
    const QString texto =
        "<p style='margin:0'><b>A D V E R T E N C I A !</b> " +
        QStringList{"Lo que Quorvex calcula aquí es una ayuda: sale de los comprobantes y de las "
                    "cuentas que se hayan configurado en cada concepto.",
                    "Revise cada fila antes de enviarla, y compárela con la norma del año: los "
                    "conceptos, las cuantías y los plazos cambian.",
                    "De la información que se presenta responde quien la presenta."}
            .join("</p><p style='margin:0'>") +
        "</p>";
    fila->addWidget(new TextoQueCede(texto, "Advertencia"), 1);
    auto* aceptar = new QPushButton("Aceptar", panel);
    aceptar->setObjectName("Button1");
    fila->addWidget(aceptar, 0, Qt::AlignVCenter);
    panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    QObject::connect(aceptar, &QPushButton::clicked, panel, &QWidget::hide);
    panel->hide();
    return panel;
}

} // namespace

FormaMedio::FormaMedio(const DatosFormaMedio& datos)
    : Pantalla(datos.clase, datos.titulo), datos_(datos), carpeta_(QDir::homePath()) {
    QMedmagdata = new Sentencia(this, "QMedmagdata", fdm().Quorvex);
    PMedmagdata = new Proveedor(this, "PMedmagdata", QMedmagdata, poAllowCommandText);
    CMedmagdata = new ConjuntoDatos(this, "CMedmagdata", PMedmagdata);
    CMedmagdata->CampoConsecutivo = datos.columna; // dos usuarios pueden agregar a la vez
    EAno = caja("EAno", 4);
    FecIni = caja("FecIni", 8);
    FecFin = caja("FecFin", 8);
    for (QLineEdit* f : {FecIni, FecFin}) {
        f->setToolTip("aaaammdd o aaaa/mm/dd; el mes 13 son los ajustes del año");
        admita_barras(f);
    }
    Ubicacion = caja("Ubicacion", 400);
    DBGridEh1 = new Rejilla(this, CMedmagdata);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Filas por reportar");
    // Con la advertencia a la vista, tres filas con sus títulos, sus sumas y la barra de abajo.
    DBGridEh1->setMinimumHeight(6 * DBGridEh1->verticalHeader()->defaultSectionSize());
    DBGridEh1->setProperty(AnchosRejilla::kLetrasDeNombre, kLetrasDeRazon);
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->orden_local = true;
    DBGridEh1->texto_vacio = "No hay filas del formato en el año. Insert agrega la primera.";
    DBGridEh1->setProperty("sin_consultar",
                           "No hay filas: F2 consulta o calcula las del formato y el año.");
    DBGridEh1->nombre_archivo = "Medios";
    DBGridEh1->filtro_archivo =
        "Archivo texto (*.txt)|*.TXT|Valores separados por comas (*.csv)|*.CSV|Libro de Microsoft "
        "Excel (*.xls)|*.XLS";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                               Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    PanelAdvertencia = cree_advertencia(this);
    // El nombre que sigue se compone sin carpeta: queda en la última que se escogió o digitó.
    connect(Ubicacion, &QLineEdit::editingFinished, this, [this] {
        if (QDir::isAbsolutePath(Ubicacion->text()))
            carpeta_ = QFileInfo(Ubicacion->text()).path();
    });
    connect(EAno, &QLineEdit::editingFinished, this, [this] { ejecute([this] { EAnoExit(); }); });
    enter_como_tab();
    tamano(1100, 600);
}

QLineEdit* FormaMedio::caja(const QString& nombre, int caracteres) {
    auto* c = new QLineEdit(this);
    c->setObjectName(nombre);
    c->setMaxLength(caracteres);
    constexpr int kCodigo = 20; // un año o una fecha no piden más que su ancho
    c->setMinimumWidth(ancho_caracteres(c->fontMetrics(), qMin(caracteres, kCodigo) + 2));
    if (caracteres <= kCodigo)
        c->setMaximumWidth(c->minimumWidth());
    return c;
}

QWidget* FormaMedio::hasta_el_tope(QWidget* renglon) {
    constexpr int kMayor = 104; // de ahí no pasa, por ancha que sea la ventana
    renglon->setMaximumWidth(ancho_caracteres(renglon->fontMetrics(), kMayor));
    return renglon;
}

QWidget* FormaMedio::cree_ubicacion() {
    auto* otra = new QToolButton(this);
    otra->setObjectName("SpeedButton1");
    otra->setText("...");
    otra->setAccessibleName("Escoger el archivo");
    otra->setToolTip("Escoger el archivo");
    connect(otra, &QToolButton::clicked, this,
            [this] { ejecute([this] { SpeedButton1Click(); }); });
    return hasta_el_tope(Formulario::junto({Ubicacion, otra}));
}

void FormaMedio::arme_pie(Formulario& f, const QString& rotulo_archivo,
                          const std::function<void(BarraBotones&)>& otros) {
    f.ancha(PanelAdvertencia, 0).ancha(DBGridEh1);
    auto* barra = new BarraBotones(this);
    barra->boton("SBGrabar", "F8:Configura", "preferences-system", Qt::Key_F8, [this] {
        siga_el_ano();
        SBGrabarClick();
    });
    barra->principal(barra->boton("SpeedButton5", "F2:Ejecutar", "system-run", Qt::Key_F2, [this] {
        siga_el_ano();
        SpeedButton5Click();
    }));
    barra->boton("SpeedButton3", rotulo_archivo, "document-save", Qt::Key_F5, [this] {
        siga_el_ano();
        SpeedButton3Click();
    });
    barra->boton("SpeedButton2", "F6:Grabar XLS", "x-office-spreadsheet", Qt::Key_F6, [this] {
        siga_el_ano();
        SpeedButton2Click();
    });
    if (otros)
        otros(*barra);
    barra->separe();
    barra->boton("SpeedButton4", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.botones(barra);
}

void FormaMedio::FormCreate() {
    fdm().ConfigurarProviders(this);
    CMedmagdata->PacketRecords = -1; // los totales del archivo son de todas las filas
    EAno->setText(fdmcnt().ano_actual);
    EAnoExit();
    EAno->setFocus();
    EAno->selectAll();
}

void FormaMedio::EAnoExit() {
    if (ano() != ano_a_la_vista_ && !suelte_filas())
        EAno->setText(ano_a_la_vista_);
    ano_a_la_vista_ = ano();
    FecIni->setText(ano() + "0101");
    FecFin->setText(ano() + "1231");
}

void FormaMedio::siga_el_ano() {
    if (ano() != ano_a_la_vista_)
        EAnoExit();
}

QString FormaMedio::ano() const {
    return EAno->text().trimmed();
}

QString FormaMedio::ruta() const {
    return QDir(carpeta_).absoluteFilePath(Ubicacion->text().trimmed());
}

// ---------------------------------------------------------------- consulta y cálculo

void FormaMedio::SpeedButton5Click() {
    if (!revise_fechas() || !grabe_cambios())
        return;
    if (!hay_formato()) {
        ofrezca_formatos();
        return;
    }
    PanelAdvertencia->show();
    abre_query();
    // En una ventana baja lo que se pidió quedaría debajo de ella.
    constexpr int kFilas = 3;
    const int alto = kFilas * DBGridEh1->verticalHeader()->defaultSectionSize();
    if (CMedmagdata->Active() && !CMedmagdata->IsEmpty() &&
        DBGridEh1->visibleRegion().boundingRect().height() < alto)
        DBGridEh1->setFocus();
}

bool FormaMedio::revise_fechas() {
    for (QLineEdit* f : {FecIni, FecFin})
        // Las filas se guardan con el año de las fechas: con otro, no se volverían a ver. El cierre
        // no se reporta.
        if (revise_fecha(f->text()) || f->text().mid(4, 2) == "14" || f->text().left(4) != ano()) {
            fdm().mostrar_advertencia(
                QStringLiteral("La fecha \"%1\" debe ser del año %2, como aaaammdd.")
                    .arg(f->text(), ano()));
            f->setFocus();
            return false;
        }
    return true;
}

bool FormaMedio::hay_guardadas() {
    return !fdm()
                .Quorvex.consulte("select first 1 1 from " + datos_.tabla + " where " + condicion())
                .nulo();
}

bool FormaMedio::confirme_recalculo() {
    const QString del_ano = codigo() + "  para el año fiscal " + ano();
    if (pregunte_botones("Ya hay información del formato " + del_ano +
                             ".\nDesea consultar esa información (REINTENTAR) o Borrarla y dejar "
                             "que Quorvex la recalcule el archivo (ABORTAR)?",
                         {"Reintentar", "Abortar"}) != Segunda)
        return false;
    return pregunte_con_no(
        "Si Recalcula el archivo perdera toda la información que haya entrado manualmente. Está "
        "seguro de borrar toda la información del formato " +
        del_ano + "?");
}

void FormaMedio::abre_query() {
    const bool hay = hay_guardadas();
    if ((!hay || confirme_recalculo()) && !calcule(hay))
        return;
    CMedmagdata->Open("SELECT * FROM " + datos_.tabla + " where " + condicion() + " order by " +
                      datos_.columna);
    CMedmagdata->FetchAll();
    item_ = int(fdm()
                    .Quorvex
                    .consulte("select max(" + datos_.columna + ") from " + datos_.tabla +
                              " where " + condicion())
                    .entero());
}

bool FormaMedio::calcule(bool hay) {
    fdm().mostrar_mensaje();
    const auto al_salir = qScopeGuard([] { fdm().quitar_mensaje(); });
    prepare_calculo();
    const QString tome = candado(), llene = calculo();
    const QString de_estas = " from " + datos_.tabla + " where " + condicion();
    // Borrar y calcular van juntos: si el cálculo falla, lo guardado sigue ahí. De dos que lo
    // calculan a la vez, el segundo espera y muestra lo del primero.
    const bool hecho = calcule_cancelable(
        this, "Calculando el formato " + codigo() + " de " + ano() + "...", [=](Transaccion& t) {
            Conexion& base = t.conexion();
            Cursor(base.prepare(tome, t), t, {}).siguiente();
            if (!hay && Cursor(base.prepare("select first 1 1" + de_estas, t), t, {}).siguiente())
                return;
            if (hay)
                base.prepare("delete" + de_estas, t)->ejecute(t, {});
            base.prepare(llene, t)->ejecute(t, {});
        });
    fdm().quitar_mensaje(); // antes del aviso, que va en el mismo sitio
    const QString aviso =
        hecho ? por_configurar() : "Cálculo cancelado: lo que estaba guardado sigue igual.";
    if (!aviso.isEmpty())
        fdm().mostrar_advertencia(aviso);
    return hecho;
}

int FormaMedio::siguiente_item() {
    return ++item_;
}

// ---------------------------------------------------------------- lo digitado

bool FormaMedio::grabe_cambios() {
    if (!CMedmagdata->Active())
        return true;
    CMedmagdata->CheckBrowseMode();
    if (CMedmagdata->ChangeCount() > 0)
        CMedmagdata->ApplyUpdates(0);
    return CMedmagdata->ChangeCount() == 0;
}

bool FormaMedio::relea() {
    if (!grabe_cambios())
        return false;
    if (!CMedmagdata->Active())
        return true;
    const Valor item = CMedmagdata->FieldByName(datos_.columna).valor();
    CMedmagdata->Reabra();
    CMedmagdata->FetchAll();
    if (!item.nulo())
        CMedmagdata->Locate(datos_.columna, {item});
    return true;
}

bool FormaMedio::suelte_filas() {
    if (!CMedmagdata->Active())
        return true;
    if (!grabe_cambios())
        return false;
    CMedmagdata->Close();
    return true;
}

bool FormaMedio::FormClose() {
    bool grabadas = false;
    ejecute([&] { // antes entra lo de la celda que se digitaba
        if (!CMedmagdata->Modified())
            CMedmagdata->Cancel(); // la que se insertó y quedó en blanco
        const bool hay = CMedmagdata->Modified() || CMedmagdata->ChangeCount() > 0;
        grabadas = grabe_cambios();
        if (hay && grabadas)
            anuncie(fdm().barra(), "Grabado: " + windowTitle());
    });
    if (!grabadas &&
        !pregunte_con_no("Hay filas que no se pudieron grabar. Desea salir y perderlas?"))
        return false;
    CMedmagdata->Cancel();
    CMedmagdata->Close();
    return true;
}

// ---------------------------------------------------------------- archivo

void FormaMedio::SpeedButton2Click() {
    if (!CMedmagdata->Active() || !grabe_cambios())
        return;
    DBGridEh1->seleccione_todo();
    DBGridEh1->guarde_seleccion();
}

void FormaMedio::SpeedButton1Click() {
    const auto escogido = pida_archivo(this, {.nombre = "escoja_archivo",
                                              .titulo = "Nombre del archivo",
                                              .sugerido = ruta(),
                                              .filtro = filtro_para_qt(datos_.filtro)});
    if (!escogido)
        return;
    Ubicacion->setText(escogido->ruta);
    carpeta_ = QFileInfo(escogido->ruta).path();
}

void diga_lo_grabado(bool cancelado, const QString& ruta, qint64 filas) {
    const QString no_quedo = "Grabación cancelada: el archivo no quedó.";
    if (cancelado) {
        fdm().mostrar_advertencia(no_quedo);
        return;
    }
    retire_advertencia(fdm().barra(), no_quedo); // la de un intento anterior ya no es cierta
    anuncie(fdm().barra(),
            "Se grabó " + ruta + ", con " + concuerde(filas, "%1 fila", "%1 filas") + '.');
}
