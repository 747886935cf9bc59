#include "toolkit/listabusqueda.h"

#include "datos/recordset/condicion.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/lista_teclas.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {
constexpr int kLargoTexto = 255; ///< el de la columna más larga que se busca
}

QString sql_busqueda(const CriterioBusqueda& c) {
    QString sql = c.base;
    if (!c.texto.isEmpty())
        sql += c.conector +
               (c.desorden ? condicion_contiene(c.columna, c.texto)
                           : condicion_desde(c.columna, c.texto)) +
               QLatin1Char(' ');
    if (!c.columna_activo.isEmpty() && !c.inactivos) {
        // Lo digitado también puede decir "where": se mira si hubo texto, no el texto.
        sql += (c.texto.isEmpty() ? QStringLiteral(" where ") : QStringLiteral("and ")) +
               c.columna_activo + QStringLiteral(" = 'S' ");
    }
    return sql + QStringLiteral("order by ") + c.columna;
}

FilaBusqueda::FilaBusqueda(const QVector<Eleccion>& columnas, const QString& rotulo_inactivos,
                           QWidget* padre)
    : QWidget(padre), columnas_(columnas) {
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(paso());

    RBuscar = new QGroupBox(QStringLiteral("Buscar por"), this);
    RBuscar->setObjectName(QStringLiteral("RBuscar"));
    auto* radios = new QHBoxLayout(RBuscar);
    radios->setContentsMargins(paso(), paso(0.5), paso(), paso(0.5));
    grupo_ = new QButtonGroup(this);
    for (int i = 0; i < columnas_.size(); ++i) {
        auto* radio = new QRadioButton(columnas_[i].rotulo, RBuscar);
        radio->setChecked(i == 0);
        grupo_->addButton(radio, i);
        radios->addWidget(radio);
    }
    fila->addWidget(RBuscar);

    auto* centro = new QVBoxLayout;
    centro->setSpacing(paso(0.5));
    auto* arriba = new QHBoxLayout;
    auto* rotulo = new QLabel(QStringLiteral("&Texto:"), this);
    EBuscar = new QLineEdit(this);
    EBuscar->setObjectName(QStringLiteral("EBuscar"));
    EBuscar->setAccessibleName(QStringLiteral("Texto por buscar"));
    EBuscar->setMaxLength(kLargoTexto);
    EBuscar->setMinimumWidth(ancho_caracteres(fontMetrics(), 24));
    EBuscar->installEventFilter(this);
    explique_tecla(*EBuscar, "Enter tras escribir el texto", "Buscar");
    rotulo->setBuddy(EBuscar);
    sbBuscar = new QPushButton(icono(QStringLiteral("edit-find")), QStringLiteral("&Buscar"), this);
    sbBuscar->setObjectName(QStringLiteral("sbBuscar"));
    sbBuscar->setAutoDefault(false);
    arriba->addWidget(rotulo);
    arriba->addWidget(EBuscar, 1);
    arriba->addWidget(sbBuscar);
    centro->addLayout(arriba);
    auto* casillas = new QWidget(this);
    auto* abajo = new DisposicionFlujo(casillas, paso(2));
    const auto casilla = [&](const char* nombre, const QString& texto) {
        auto* c = new QCheckBox(texto, this);
        c->setObjectName(QLatin1String(nombre));
        abajo->addWidget(c);
        return c;
    };
    CkDesorden = casilla("CkDesorden", QStringLiteral("Buscar en cualquier posición"));
    if (!rotulo_inactivos.isEmpty())
        ckinact = casilla("ckinact", rotulo_inactivos);
    ckfiltro = casilla("ckfiltro", QStringLiteral("Habilitar filtros"));
    centro->addWidget(casillas);
    fila->addLayout(centro, 1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum); // más renglones si no cabe

    espera_ = new QTimer(this);
    espera_->setSingleShot(true);
    connect(espera_, &QTimer::timeout, this, [this] { busque(); });
    connect(EBuscar, &QLineEdit::textEdited, this, [this] { pendiente_ = true; });
    connect(sbBuscar, &QPushButton::clicked, this, [this] { busque(); });
    if (ckinact)
        connect(ckinact, &QCheckBox::toggled, this, [this] { busque(); });
    connect(ckfiltro, &QCheckBox::toggled, this, [this](bool si) {
        if (ckfiltroClick)
            proteja([&] { ckfiltroClick(si); });
    });
}

int FilaBusqueda::ItemIndex() const {
    return grupo_->checkedId();
}

void FilaBusqueda::ItemIndex(int indice) {
    if (QAbstractButton* radio = grupo_->button(indice))
        radio->setChecked(true);
}

void FilaBusqueda::siga(QAbstractItemView* filas) {
    filas_ = filas;
    filas->installEventFilter(this);
    filas->viewport()->installEventFilter(this);
}

void FilaBusqueda::siga_a_las_filas(const QEvent& evento) {
    if (evento.type() == QEvent::MouseButtonPress || evento.type() == QEvent::MouseButtonDblClick) {
        espera_->stop();
        return;
    }
    if (evento.type() != QEvent::KeyPress)
        return;
    switch (static_cast<const QKeyEvent&>(evento).key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        pongase_al_dia();
        break;
    default:
        break;
    }
}

QString FilaBusqueda::columna() const {
    return columnas_.value(ItemIndex()).columna;
}

void FilaBusqueda::busque_texto(const QString& texto) {
    const bool codigo = !texto.isEmpty() && texto[0].isDigit();
    if (!texto.isEmpty() && columnas_.value(ItemIndex()).de_codigo != codigo)
        for (int i = 0; i < columnas_.size(); ++i)
            if (columnas_[i].de_codigo == codigo) {
                ItemIndex(i);
                break;
            }
    EBuscar->setText(texto);
    if (demora > 0)
        espera_->start(demora);
    else
        busque();
}

void FilaBusqueda::pongase_al_dia() {
    if (espera_->isActive())
        busque();
}

CriterioBusqueda FilaBusqueda::criterio(CriterioBusqueda plantilla) const {
    plantilla.columna = columna();
    plantilla.texto = EBuscar->text();
    plantilla.desorden = CkDesorden->isChecked();
    plantilla.inactivos = ckinact && ckinact->isChecked();
    return plantilla;
}

void FilaBusqueda::busque() {
    pendiente_ = false;
    espera_->stop();
    if (sbBuscarClick)
        proteja(sbBuscarClick);
}

bool FilaBusqueda::reclama(const QKeyEvent& evento) {
    const bool enter = evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter;
    return enter && evento.modifiers() != Qt::ShiftModifier && pendiente_ && EBuscar->hasFocus();
}

bool FilaBusqueda::eventFilter(QObject* objeto, QEvent* evento) {
    if (filas_ && objeto != EBuscar)
        siga_a_las_filas(*evento);
    if (objeto == EBuscar && evento->type() == QEvent::KeyPress &&
        reclama(*static_cast<QKeyEvent*>(evento))) {
        busque();
        return true;
    }
    if (objeto == EBuscar && evento->type() == QEvent::KeyPress && al_bajar) {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        if (tecla.key() == Qt::Key_Down && !(tecla.modifiers() & ~Qt::KeypadModifier)) {
            if (pendiente_)
                busque();
            al_bajar();
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}
