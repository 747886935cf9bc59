#include "toolkit/formulario.h"

#include "toolkit/aire.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/disposicion_pares.h"
#include "toolkit/estilo.h"

#include <QAbstractSpinBox>
#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QWidget>

namespace {

/// El control que de verdad recibe el foco dentro de un conjunto de controles.
QWidget* receptor(QWidget* control) {
    QWidget* w = control;
    while (w->focusProxy())
        w = w->focusProxy();
    return w;
}

/// Lo que recibe el foco con Tab dentro de un control, en el orden en que se ve.
void recolecte(QWidget* control, QVector<QWidget*>& lista);

void recolecte(QLayout* arreglo, QVector<QWidget*>& lista) {
    for (int i = 0; i < arreglo->count(); ++i) {
        if (QWidget* w = arreglo->itemAt(i)->widget())
            recolecte(w, lista);
        else if (QLayout* interior = arreglo->itemAt(i)->layout())
            recolecte(interior, lista);
    }
}

void recolecte(QWidget* control, QVector<QWidget*>& lista) {
    if ((control->focusPolicy() & Qt::TabFocus) && !control->focusProxy()) {
        lista << control;
        return;
    }
    if (control->layout()) {
        recolecte(control->layout(), lista);
        return;
    }
    // Los hijos de una división no están en el orden en que se ven: sus partes sí.
    if (auto* division = qobject_cast<QSplitter*>(control)) {
        for (int i = 0; i < division->count(); ++i)
            recolecte(division->widget(i), lista);
        return;
    }
    // La lista que despliega un control es otra ventana.
    for (QObject* hijo : control->children())
        if (hijo->isWidgetType() && !static_cast<QWidget*>(hijo)->isWindow())
            recolecte(static_cast<QWidget*>(hijo), lista);
}

QString sin_marcas(QString texto) {
    texto.remove(QLatin1Char('&'));
    if (texto.endsWith(QLatin1Char(':')))
        texto.chop(1);
    return texto;
}

/// Las cajas de solo leer que acompañan a una rotulada: el nombre tras su código, el año tras el
/// mes. Quien no ve la pantalla las oye con el rótulo de la que completan.
class NombreQueSigue {
public:
    explicit NombreQueSigue(const QString& rotulo) : rotulo_(rotulo) {}
    void recorra(QWidget* w) {
        const auto* rotulo = qobject_cast<QLabel*>(w);
        if (rotulo && rotulo->buddy()) {
            rotulo_ = sin_marcas(rotulo->text());
            dicho_ = false;
        } else if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
                   qobject_cast<QAbstractSpinBox*>(w)) {
            nombre(*w);
        } else if (w->layout()) {
            recorra(w->layout());
        }
    }

private:
    void recorra(QLayout* arreglo) {
        for (int i = 0; i < arreglo->count(); ++i) {
            if (QWidget* w = arreglo->itemAt(i)->widget())
                recorra(w);
            else if (QLayout* interior = arreglo->itemAt(i)->layout())
                recorra(interior);
        }
    }
    void nombre(QWidget& caja) {
        if (!caja.accessibleName().isEmpty()) {
            rotulo_ = caja.accessibleName();
        } else if (!rotulo_.isEmpty() && !(caja.focusPolicy() & Qt::TabFocus)) {
            const QString cual = caja.objectName();
            const char* que = !dicho_                                  ? ""
                              : cual.startsWith(QLatin1String("Nom"))  ? ": nombre"
                              : cual.startsWith(QLatin1String("EMes")) ? ": mes"
                              : cual.startsWith(QLatin1String("EAno")) ? ": año"
                                                                       : "";
            caja.setAccessibleName(rotulo_ + QString::fromUtf8(que));
        }
        dicho_ = true;
    }
    QString rotulo_;
    bool dicho_ = false; ///< ya lo lleva una caja
};

constexpr const char* kRotulo = "rotulo"; ///< el del conjunto de controles de una casilla

/// Una cifra corta, una fecha o un botón se quedan con su ancho.
bool es_de_su_ancho(const QWidget* control) {
    return qobject_cast<const QAbstractSpinBox*>(control) ||
           qobject_cast<const QPushButton*>(control);
}

bool crece_a_lo_ancho(const QWidget* control) {
    return (control->sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag) &&
           control->maximumWidth() == QWIDGETSIZE_MAX && !es_de_su_ancho(control);
}

bool crece_a_lo_alto(const QWidget* control) {
    return control->sizePolicy().verticalPolicy() & QSizePolicy::ExpandFlag;
}

} // namespace

Formulario::Formulario(QWidget* dueno) : dueno_(dueno) {
    auto* raiz = new QVBoxLayout(dueno);
    raiz->setContentsMargins(paso(1.5), aire(1.5), paso(1.5), aire(1.5));
    raiz->setSpacing(aire(1.5));
    raiz_ = raiz;
}

Formulario::~Formulario() {
    encadene();
}

void Formulario::encadene() {
    QVector<QWidget*> orden;
    for (QWidget* control : puestos_)
        if (control) {
            recolecte(control, orden);
            NombreQueSigue(control->property(kRotulo).toString()).recorra(control);
        }
    puestos_.clear();
    for (int i = 1; i < orden.size(); ++i)
        QWidget::setTabOrder(orden[i - 1], orden[i]);
}

QGridLayout* Formulario::rejilla() {
    if (rejilla_)
        return rejilla_;
    rejilla_ = new DisposicionPares;
    rejilla_->setHorizontalSpacing(paso());
    rejilla_->setVerticalSpacing(aire());
    if (grupo_) {
        rejilla_->setContentsMargins(paso(), aire(), paso(), aire());
        grupo_->setLayout(rejilla_);
    } else {
        raiz_->addLayout(rejilla_);
        sueltas_.append(rejilla_);
        rejilla_->setColumnMinimumWidth(0, ancho_rotulos_);
    }
    return rejilla_;
}

Formulario& Formulario::fila(const QString& texto, QWidget* control) {
    return fila({{texto, control}});
}

Formulario& Formulario::fila(std::initializer_list<Par> pares) {
    QGridLayout* r = rejilla();
    const int renglon = r->rowCount();
    int columna = 0;
    for (const Par& par : pares) {
        puestos_ << par.control;
        const bool ultimo = &par == pares.end() - 1;
        const bool alto = crece_a_lo_alto(par.control);
        auto* flujo = dynamic_cast<DisposicionFlujo*>(par.control->layout());
        // Mientras la cuadrícula quepa, en un renglón. La que va sola en su fila no le ensancha la
        // columna a las demás.
        if (flujo && pares.size() > 1)
            r->setColumnMinimumWidth(columna + 1, flujo->sizeHint().width());
        if (!par.etiqueta.isEmpty()) {
            QLabel* rotulo = ponga_rotulo(par.control, par.etiqueta);
            if (columna == 0 && !grupo_)
                alinee_rotulos(rotulo->sizeHint().width());
            // El de una fila que puede seguir en otro renglón queda junto al primero.
            if (flujo)
                rotulo->setMinimumHeight(flujo->sizeHint().height());
            r->addWidget(rotulo, renglon, columna,
                         (alto || flujo ? Qt::AlignTop : Qt::AlignVCenter) | Qt::AlignRight);
        }
        // La casilla de la rejilla crece; el control de ancho fijo se queda a la izquierda de ella.
        auto* celda = new QHBoxLayout;
        celda->setSpacing(0);
        celda->addWidget(par.control, es_de_su_ancho(par.control) ? 0 : 1);
        celda->addStretch(0);
        // Una fila corta usa lo que le sobra a la derecha.
        r->addLayout(celda, renglon, columna + 1, 1, ultimo ? -1 : 1);
        if (alto) {
            r->setRowStretch(renglon, 1);
            elastico_ = grupo_elastico_ = true;
        }
        columna += 2;
    }
    if (columna > 0)
        r->setColumnStretch(columna - 1, 1);
    // Dos nombres en la misma fila se la reparten.
    columna = 1;
    for (const Par& par : pares) {
        if (crece_a_lo_ancho(par.control) && crece_a_lo_ancho((pares.end() - 1)->control))
            r->setColumnStretch(columna, 1);
        columna += 2;
    }
    return *this;
}

void Formulario::alinee_rotulos(int ancho) {
    // Las filas de antes y de después de un grupo comparten la columna de los rótulos.
    ancho_rotulos_ = qMax(ancho_rotulos_, ancho);
    for (QGridLayout* r : sueltas_)
        r->setColumnMinimumWidth(0, ancho_rotulos_);
}

void Formulario::remate() {
    // Las filas de un grupo quedan juntas arriba si el de al lado es más alto.
    if (grupo_ && rejilla_ && !grupo_elastico_)
        rejilla_->setRowStretch(rejilla_->rowCount(), 1);
    rejilla_ = nullptr;
    grupo_elastico_ = false;
}

QLabel* Formulario::ponga_rotulo(QWidget* control, const QString& texto) {
    QString con_puntos = texto;
    if (!con_puntos.endsWith(QLatin1Char(':')))
        con_puntos += QLatin1Char(':');
    auto* rotulo = new QLabel(con_puntos, grupo_ ? static_cast<QWidget*>(grupo_) : dueno_);
    rotulo->setTextFormat(Qt::AutoText);
    rotulo->setBuddy(receptor(control));
    rotulos_.append({control, rotulo});
    nombre_accesible(control, texto);
    return rotulo;
}

void Formulario::nombre_accesible(QWidget* control, const QString& texto) {
    const QString limpio = sin_marcas(texto);
    control->setProperty(kRotulo, limpio);
    QWidget* w = receptor(control);
    if (w->accessibleName().isEmpty() || w->property("rotulado").toBool()) {
        w->setAccessibleName(limpio);
        w->setProperty("rotulado", true);
    }
}

Formulario& Formulario::ancha(QWidget* control, int estira) {
    puestos_ << control;
    elastico_ = elastico_ || estira > 0;
    const Qt::Alignment lado = es_de_su_ancho(control) ? Qt::AlignLeft : Qt::Alignment();
    if (grupo_) {
        QGridLayout* r = rejilla();
        const int renglon = r->rowCount();
        r->addWidget(control, renglon, 0, 1, -1, lado);
        r->setRowStretch(renglon, estira);
        grupo_elastico_ = grupo_elastico_ || estira > 0;
        if (estira > 0)
            raiz_->setStretch(raiz_->count() - 1, qMax(1, estira));
    } else {
        rejilla_ = nullptr; // las filas que sigan van debajo
        raiz_->addWidget(control, estira, lado);
    }
    return *this;
}

Formulario& Formulario::grupo(const QString& titulo) {
    remate();
    grupo_ = new QGroupBox(titulo, dueno_);
    if (al_lado_ && banda_) {
        banda_->addWidget(grupo_, 1);
    } else {
        banda_ = new DisposicionBanda;
        banda_->setSpacing(aire(1.5));
        banda_->addWidget(grupo_, 1);
        raiz_->addLayout(banda_);
    }
    al_lado_ = false;
    return *this;
}

Formulario& Formulario::fin_grupo() {
    remate();
    grupo_ = nullptr;
    banda_ = nullptr;
    return *this;
}

Formulario& Formulario::al_lado() {
    al_lado_ = true;
    return *this;
}

Formulario& Formulario::estire() {
    fin_grupo();
    raiz_->addStretch(1);
    elastico_ = true;
    return *this;
}

Formulario& Formulario::botones(QWidget* barra) {
    fin_grupo();
    if (!elastico_)
        raiz_->addStretch(1); // las filas quedan juntas arriba
    raiz_->addWidget(barra);
    puestos_ << barra;
    encadene();
    return *this;
}

QLabel* Formulario::etiqueta(const QWidget* control) const {
    for (const Rotulo& r : rotulos_)
        if (r.control == control)
            return r.etiqueta;
    return nullptr;
}

void Formulario::muestre(QWidget* control, bool visible) const {
    control->setVisible(visible);
    if (QLabel* rotulo = etiqueta(control))
        rotulo->setVisible(visible);
}

void Formulario::rotule(QWidget* control, const QString& texto) const {
    if (QLabel* rotulo = etiqueta(control))
        rotulo->setText(texto.endsWith(QLatin1Char(':')) ? texto : texto + QLatin1Char(':'));
    nombre_accesible(control, texto);
}

QWidget* Formulario::junto(std::initializer_list<QWidget*> controles) {
    auto* conjunto = new QWidget;
    auto* fila = new QHBoxLayout(conjunto);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(paso(0.5));
    bool elastico = false, con_tope = false;
    for (QWidget* control : controles) {
        // Una caja de ancho fijo no crece: el sitio que pidiera quedaría en blanco a su lado.
        const bool crece =
            control->maximumWidth() > qMax(control->minimumWidth(), control->sizeHint().width()) &&
            (control->sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag) != 0;
        fila->addWidget(control, crece ? 1 : 0);
        elastico = elastico || crece;
        con_tope = con_tope || (crece && control->maximumWidth() < QWIDGETSIZE_MAX);
        if (!conjunto->focusProxy() && control->focusPolicy() != Qt::NoFocus)
            conjunto->setFocusProxy(control);
    }
    if (!elastico || con_tope) // juntos, aunque su columna sea más ancha
        fila->addStretch();
    conjunto->setSizePolicy(elastico ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                            QSizePolicy::Fixed);
    return conjunto;
}
