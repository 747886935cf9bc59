#include "toolkit/pantalla.h"

#include "toolkit/aire.h"
#include "toolkit/controles/controldato.h"
#include "toolkit/disposicion_pares.h"
#include "toolkit/estilo.h"
#include "toolkit/letras_alt.h"
#include "toolkit/marcos.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/sin_grabar.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTextEdit>

void instale_despacho_teclas();               // teclas_pantalla.cpp
std::any saque_respuesta(Pantalla& pantalla); // peticion.cpp

namespace {

constexpr char kEnColumnas[] = "en_columnas"; ///< ancho en que sus filas no se parten

/// Las modales a la vista, cada una con la pantalla cuyo código espera su respuesta (o nulo).
struct Espera {
    Pantalla* quien;
    Pantalla* modal;
};
QVector<Espera> esperas_;

class EnEspera {
public:
    explicit EnEspera(Pantalla* modal) {
        Pantalla* activa = escritorio() ? escritorio()->activa() : nullptr;
        esperas_.append(Espera{esperas_.isEmpty() ? activa : esperas_.last().modal, modal});
    }
    ~EnEspera() { esperas_.removeLast(); }
};

bool espera_una_modal(const Pantalla* pantalla) {
    return std::any_of(esperas_.begin(), esperas_.end(),
                       [pantalla](const Espera& e) { return e.quien == pantalla; });
}

/// Falso si el alto que sobre queda en blanco: solo lo toma el espacio que junta las filas arriba.
bool toma_alto(QLayoutItem& item) {
    if (item.isEmpty() || item.spacerItem())
        return false;
    const QWidget* w = item.widget();
    if (w && (w->sizePolicy().verticalPolicy() & QSizePolicy::ExpandFlag))
        return true;
    QLayout* interior = w ? w->layout() : item.layout();
    const auto* columna = qobject_cast<const QVBoxLayout*>(interior);
    for (int i = 0; interior && i < interior->count(); ++i) {
        QLayoutItem& parte = *interior->itemAt(i);
        const bool estira = columna && columna->stretch(i) > 0;
        if (toma_alto(parte) || (estira && !parte.isEmpty() && !parte.spacerItem()))
            return true;
    }
    return false;
}

int alto_comodo(const Pantalla& pantalla, int ancho) {
    const QLayout& todo = *pantalla.layout();
    return todo.hasHeightForWidth() ? todo.totalHeightForWidth(ancho)
                                    : pantalla.sizeHint().height();
}

} // namespace

Pantalla::Pantalla(const QString& clase, const QString& titulo, QWidget* padre) : QWidget(padre) {
    setObjectName(clase);
    setWindowTitle(titulo);
    instale_despacho_teclas();
}

Pantalla::~Pantalla() {
    if (Escritorio* e = escritorio())
        e->quite(this);
}

bool Pantalla::cree() {
    if (!creada_) {
        creada_ = true;
        creada_bien_ = proteja([this] {
            FormCreate();
            recuerde_lo_propuesto(*this);
        });
        setProperty(kEnColumnas, ancho_en_columnas(*this));
    }
    return creada_bien_ && !cierre_pedido_;
}

QMdiSubWindow* Pantalla::ventana_hija() const {
    for (QWidget* w = parentWidget(); w; w = w->parentWidget())
        if (auto* hija = qobject_cast<QMdiSubWindow*>(w))
            return hija;
    return nullptr;
}

bool Pantalla::close() {
    if (cerrada_)
        return true;
    if (dialogo_)
        return dialogo_->close();
    if (QMdiSubWindow* hija = ventana_hija())
        return hija->close();
    return QWidget::close();
}

bool Pantalla::consienta_cierre() {
    if (cerrada_)
        return true;
    if (cerrando_)
        return false; // FormClose pidió cerrar otra vez
    if (espera_una_modal(this))
        return false; // su código sigue cuando la modal conteste: liberarla lo dejaría en el aire
    cerrando_ = true;
    bool consiente = false;
    try {
        consiente = consiente_perderlo(*this) && FormClose();
    } catch (const EdicionAbortada&) {
    } catch (...) {
        // Una falla al cerrar no puede dejar al usuario encerrado en la pantalla.
        reporte_excepcion();
        consiente = true;
    }
    cerrando_ = false;
    const std::any respuesta = saque_respuesta(*this);
    if (consiente) {
        cerrada_ = true;
        if (respuesta.has_value())
            std::exchange(encargo_.al_responder_, {})(respuesta);
        // Lo que quedó a medio escribir se descarta: perder el foco al cerrarse no debe guardarlo.
        if (ControlDato* control = control_dato(focusWidget()))
            control->restaure();
        if (Escritorio* e = escritorio(); e && !dialogo_)
            e->olvide(this);
    }
    return consiente;
}

void Pantalla::closeEvent(QCloseEvent* evento) {
    if (consienta_cierre())
        evento->accept();
    else
        evento->ignore();
}

int Pantalla::mostrar_modal() {
    resultado_modal_ = mrNone;
    if (!cree())
        return mrCancel;
    cerrada_ = false;
    reparta_letras(*this, {}); // su ventana no tiene menús
    QPointer<Pantalla> viva(this);
    const QPointer<QWidget> primero = focusWidget();
    {
        const EnEspera espera(this);
        DialogoPantalla dialogo(this, QApplication::activeWindow());
        dialogo_ = &dialogo;
        dialogo.resize(tamano_inicial());
        dialogo.show();
        if (primero)
            primero->setFocus();
        if (auto* caja = qobject_cast<QLineEdit*>(focusWidget()))
            caja->selectAll(); // lo que ya trae se reemplaza al teclear
        proteja([this] { FormActivate(); });
        if (viva && !cerrada_)
            dialogo.exec();
        if (!viva)
            return mrCancel;
        dialogo_ = nullptr;
        dialogo.marco()->suelte();
    }
    return resultado_modal_ == mrNone ? int(mrCancel) : resultado_modal_;
}

void Pantalla::resultado_modal(int resultado) {
    resultado_modal_ = resultado;
    if (resultado != mrNone && dialogo_ && !close())
        resultado_modal_ = mrNone; // FormClose lo rehusó
}

void Pantalla::tamano(int ancho, int alto) {
    tamano_ = {ancho, alto};
}

void Pantalla::tamano_del_area(int menos_ancho, int menos_alto) {
    menos_area_ = QSize(menos_ancho, menos_alto);
    del_area_ = true;
}

void Pantalla::centre_en_area(int menos_ancho, int menos_alto) {
    menos_centro_ = QSize(menos_ancho, menos_alto);
}

QPoint Pantalla::lugar_centrado(QSize ventana) const {
    const QSize menos(escalado(menos_centro_.width()), escalado(menos_centro_.height()));
    const QSize libre = area_principal() - menos - ventana;
    return {qMax(0, libre.width() / 2), qMax(0, libre.height() / 2)};
}

QSize Pantalla::tamano_inicial() const {
    const QSize area = area_principal();
    // En un monitor pequeño o con letra grande el margen se comería las filas de la rejilla.
    const bool estrecha = area_estrecha();
    if (del_area_)
        return estrecha
                   ? area
                   : (area - menos_area_).expandedTo(QSize(paso(20), paso(15))).boundedTo(area);
    QSize deseado = sizeHint();
    if (!tamano_.isEmpty())
        deseado = {escalado(tamano_.width()), escalado(tamano_.height())};
    // Si hay dónde, ninguna fila sigue en otro renglón.
    deseado.setWidth(qMax(deseado.width(), property(kEnColumnas).toInt()));
    if (layout() && !menos_centro_.isValid() && !toma_alto(*layout()))
        deseado.setHeight(
            qMin(deseado.height(), alto_comodo(*this, qMin(deseado.width(), area.width()))));
    return deseado.expandedTo(minimumSizeHint()).boundedTo(area);
}

namespace {

int alto_minimo(const QLayoutItem& item, int ancho) {
    return item.hasHeightForWidth() ? item.minimumHeightForWidth(ancho)
                                    : item.minimumSize().height();
}

/// A una columna que no cabe Qt le quita primero de lo más alto: es solo de él si aun así lo es.
bool cede(const QWidget& control, const Pantalla& pantalla, int ancho, int falta) {
    for (const QWidget* w = &control; w != &pantalla; w = w->parentWidget()) {
        const QWidget* dueno = w->parentWidget();
        const auto* columna = qobject_cast<const QVBoxLayout*>(dueno->layout());
        const int suyo = columna ? columna->indexOf(w) : -1;
        if (suyo < 0)
            continue;
        const QMargins m = columna->contentsMargins();
        const int sitio = (dueno == &pantalla ? ancho : dueno->width()) - m.left() - m.right();
        const int queda = alto_minimo(*columna->itemAt(suyo), sitio) - falta;
        for (int i = 0; i < columna->count(); ++i)
            if (i != suyo && alto_minimo(*columna->itemAt(i), sitio) > queda)
                return false;
    }
    return true;
}

/// El alto que pide. Por menos de una fila no sale una barra: la cede una rejilla o un texto.
int apretado(const Pantalla& pantalla, int ancho, int alto) {
    const QWidget* ventanilla = pantalla.parentWidget();
    const auto* marco =
        qobject_cast<QAbstractScrollArea*>(ventanilla ? ventanilla->parentWidget() : nullptr);
    const int falta = marco ? alto - marco->maximumViewportSize().height() : 0;
    if (falta <= 0 || falta > paso(4))
        return alto;
    const int renglon = pantalla.fontMetrics().height() + escalado(6);
    for (const QAbstractScrollArea* r : pantalla.findChildren<QAbstractScrollArea*>())
        // La que tiene un mínimo puesto no cede: se montaría sobre lo que sigue.
        if ((qobject_cast<const Rejilla*>(r) || qobject_cast<const QTextEdit*>(r)) &&
            r->isVisibleTo(&pantalla) && r->minimumHeight() == 0 && falta <= renglon &&
            cede(*r, pantalla, ancho, falta))
            return alto - falta;
    return alto;
}

} // namespace

int Pantalla::heightForWidth(int ancho) const {
    return apretado(*this, ancho,
                    layout() ? layout()->minimumHeightForWidth(ancho)
                             : QWidget::heightForWidth(ancho));
}

QSize Pantalla::area_principal() const {
    return area_de_ventanas();
}
