#include "toolkit/rejilla/encabezado_rejilla.h"

#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/filtro_columna.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/rejilla/titulo_columna.h"

namespace {
constexpr QChar kSigue(0x2026);
}

EncabezadoRejilla::EncabezadoRejilla(Rejilla& rejilla)
    : QHeaderView(Qt::Horizontal, &rejilla), rejilla_(rejilla),
      anchos_(new AnchosRejilla(rejilla, this)) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setTextElideMode(Qt::ElideRight);
    setMinimumSectionSize(escalado(12));
    connect(this, &QHeaderView::sectionResized, this, [this] { ubique_filtros(); });
}

void EncabezadoRejilla::mousePressEvent(QMouseEvent* evento) {
    oprimido_ = true;
    QHeaderView::mousePressEvent(evento);
}

void EncabezadoRejilla::mouseReleaseEvent(QMouseEvent* evento) {
    QHeaderView::mouseReleaseEvent(evento);
    oprimido_ = false;
}

void EncabezadoRejilla::mouseDoubleClickEvent(QMouseEvent* evento) {
    oprimido_ = true;
    QHeaderView::mouseDoubleClickEvent(evento);
}

void EncabezadoRejilla::initStyleOptionForIndex(QStyleOptionHeader* opcion, int columna) const {
    QHeaderView::initStyleOptionForIndex(opcion, columna);
    opcion->text = titulo_a_la_vista(columna);
}

QString EncabezadoRejilla::titulo_partido(int columna) const {
    const QString titulo = rejilla_.columna(columna).Titulo;
    return titulo_en(meses_cortos_ ? mes_corto(titulo) : titulo, fontMetrics(),
                     sectionSize(columna) - margenes());
}

QString EncabezadoRejilla::titulo_a_la_vista(int columna) const {
    const QString entero = titulo_partido(columna);
    const int desde = sectionViewportPosition(columna), hasta = desde + sectionSize(columna);
    const int visible = qMin(hasta, viewport()->width()) - qMax(desde, 0) - margenes();
    const QFontMetrics m = fontMetrics();
    if (m.size(0, entero).width() <= visible)
        return entero;
    if (visible < m.horizontalAdvance(kSigue))
        return {};
    const QString titulo = rejilla_.columna(columna).Titulo, corto = titulo_en(titulo, m, visible);
    // El alto es el de los que se ven enteros.
    const QString cabe = corto.contains('\n') && !dos_renglones_
                             ? m.elidedText(titulo, Qt::ElideRight, visible)
                             : corto;
    // De la que asoma a medias, unos puntos no dicen nada. La que no cabe en toda la rejilla es lo
    // único que hay para leer.
    const bool asoma = desde < 0 || hasta > viewport()->width();
    return asoma && 2 * visible < viewport()->width() && cabe.contains(kSigue) ? QString() : cabe;
}

bool EncabezadoRejilla::asoma_sin_titulo(int columna) const {
    const int desde = sectionViewportPosition(columna), hasta = desde + sectionSize(columna);
    return (desde < 0 || hasta > viewport()->width()) &&
           !rejilla_.columna(columna).Titulo().isEmpty() && titulo_a_la_vista(columna).isEmpty();
}

void EncabezadoRejilla::paintSection(QPainter* pintor, const QRect& lugar, int columna) const {
    if (const QRect visible = lugar & viewport()->rect(); !visible.isEmpty())
        QHeaderView::paintSection(pintor, visible, columna);
}

int EncabezadoRejilla::margenes() const {
    return 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this); // uno a cada lado
}

int EncabezadoRejilla::ancho_en_renglones(int columna) const {
    return qMax(minimumSectionSize(),
                ancho_en_dos_renglones(rejilla_.columna(columna).Titulo, fontMetrics()) +
                    margenes());
}

int EncabezadoRejilla::ancho_minimo(int columna, bool apretado) const {
    return qMax(minimumSectionSize(),
                ancho_abreviado(rejilla_.columna(columna).Titulo, fontMetrics(), apretado) +
                    margenes());
}

int EncabezadoRejilla::ancho_de_mes(int columna) const {
    const QString titulo = rejilla_.columna(columna).Titulo, corto = mes_corto(titulo);
    return corto == titulo ? 0
                           : qMax(minimumSectionSize(),
                                  ancho_en_dos_renglones(corto, fontMetrics()) + margenes());
}

bool EncabezadoRejilla::acorte_meses() {
    meses_cortos_ = false;
    for (int c = 0; c < count() && !meses_cortos_; ++c) {
        const QString titulo = rejilla_.columna(c).Titulo;
        meses_cortos_ =
            !isSectionHidden(c) && mes_corto(titulo) != titulo && titulo_partido(c) != titulo;
    }
    return meses_cortos_;
}

void EncabezadoRejilla::acomode_titulos() {
    bool dos = false;
    for (int c = 0; c < count() && !dos; ++c)
        dos = !isSectionHidden(c) && titulo_partido(c).contains('\n');
    if (std::exchange(dos_renglones_, dos) != dos)
        emit geometriesChanged();
}

QSize EncabezadoRejilla::sizeHint() const {
    QSize s = QHeaderView::sizeHint();
    if (dos_renglones_)
        s.rheight() += fontMetrics().lineSpacing();
    if (con_filtros_)
        s.rheight() += viewportMargins().bottom();
    return s;
}

int EncabezadoRejilla::alto_sencillo() const {
    return sizeHint().height() - (dos_renglones_ ? fontMetrics().lineSpacing() : 0);
}

int EncabezadoRejilla::alto_con_barra() const {
    // Con la del lado puesta: si dependiera de las filas que caben, quitar una la devolvería.
    const bool se_desplaza = anchos_->cediendo() > rejilla_.width();
    return sizeHint().height() +
           (se_desplaza ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &rejilla_) : 0);
}

void EncabezadoRejilla::updateGeometries() {
    const int alto = con_filtros_ ? fontMetrics().height() + escalado(8) : 0;
    if (viewportMargins().bottom() != alto)
        setViewportMargins(0, 0, 0, alto);
    QHeaderView::updateGeometries();
    ubique_filtros();
}

void EncabezadoRejilla::rehaga_filtros() {
    for (QLineEdit* f : filtros_)
        f->deleteLater();
    filtros_.clear();
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c) {
        auto* f = new QLineEdit(this);
        f->setObjectName(QStringLiteral("filtro%1").arg(c));
        f->setAccessibleName(
            QStringLiteral("Filtro de %1").arg(QString(rejilla_.columna(c).Titulo)));
        f->setToolTip(QStringLiteral("Texto que contiene, o =, <>, <, >, <=, >= y un valor. Enter "
                                     "aplica, Esc limpia."));
        f->setFocusPolicy(Qt::ClickFocus);
        f->installEventFilter(this);
        filtros_.push_back(f);
    }
    ubique_filtros();
}

void EncabezadoRejilla::ubique_filtros() {
    const QRect titulos = viewport()->geometry();
    const int alto = viewportMargins().bottom();
    for (int c = 0; c < int(filtros_.size()); ++c) {
        QLineEdit* f = filtros_[size_t(c)];
        const bool visible = con_filtros_ && c < count() && !isSectionHidden(c);
        if (visible)
            f->setGeometry(titulos.x() + sectionViewportPosition(c), titulos.bottom() + 1,
                           sectionSize(c), alto);
        f->setVisible(visible);
    }
}

void EncabezadoRejilla::muestre_filtros(bool visibles) {
    if (con_filtros_ == visibles)
        return;
    if (!visibles) {
        if (enfocado())
            rejilla_.setFocus();
        limpie();
    }
    con_filtros_ = visibles;
    updateGeometries();
    emit geometriesChanged();
}

bool EncabezadoRejilla::enfocado() const {
    const QWidget* foco = QApplication::focusWidget();
    return std::any_of(filtros_.begin(), filtros_.end(),
                       [foco](const QLineEdit* f) { return f == foco; });
}

void EncabezadoRejilla::enfoque(int columna) {
    if (!con_filtros_ || filtros_.empty())
        return;
    filtro(qBound(0, columna, int(filtros_.size()) - 1))->setFocus(Qt::OtherFocusReason);
}

bool EncabezadoRejilla::aplique() {
    ConjuntoDatos* c = rejilla_.conjunto();
    if (!c || !c->Active())
        return true;
    struct Condicion {
        QString campo;
        int columna;
        FiltroColumna filtro;
    };
    std::vector<Condicion> condiciones;
    for (int i = 0; i < int(filtros_.size()); ++i) {
        FiltroColumna f(filtros_[size_t(i)]->text());
        if (!f.vacio())
            condiciones.push_back({rejilla_.columna(i).FieldName, i, std::move(f)});
    }
    if (condiciones.empty() && !aplicado_)
        return true;
    const bool hay = !condiciones.empty();
    const QPointer<Rejilla> rejilla(&rejilla_);
    const bool bien = proteja([&] {
        if (!hay) {
            c->condicion(nullptr);
            return;
        }
        c->condicion([c, rejilla, condiciones] {
            for (const Condicion& x : condiciones) {
                const Campo* campo = c->FindField(x.campo);
                if (!campo || !rejilla)
                    continue;
                const Valor v = campo->valor();
                if (!x.filtro.cumple(v, rejilla->modelo().presente(v, x.columna)))
                    return false;
            }
            return true;
        });
    });
    if (bien)
        aplicado_ = hay;
    return bien;
}

void EncabezadoRejilla::limpie() {
    for (QLineEdit* f : filtros_)
        f->clear();
    aplique();
}

bool EncabezadoRejilla::tecla(int columna, QKeyEvent& evento) {
    const auto vecino = [&](int paso) {
        for (int c = columna + paso; c >= 0 && c < int(filtros_.size()); c += paso)
            if (!isSectionHidden(c))
                return c;
        return -1;
    };
    switch (evento.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        aplique();
        return true;
    case Qt::Key_Escape:
        if (filtro(columna)->text().isEmpty()) {
            rejilla_.setFocus();
        } else {
            filtro(columna)->clear();
            aplique();
        }
        return true;
    case Qt::Key_Down:
        rejilla_.setFocus();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        const bool atras =
            evento.key() == Qt::Key_Backtab || evento.modifiers() & Qt::ShiftModifier;
        if (const int c = vecino(atras ? -1 : 1); c >= 0)
            enfoque(c);
        else
            rejilla_.setFocus();
        return true;
    }
    default:
        return false;
    }
}

bool EncabezadoRejilla::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress)
        for (int c = 0; c < int(filtros_.size()); ++c)
            if (filtros_[size_t(c)] == objeto)
                return tecla(c, static_cast<QKeyEvent&>(*evento));
    // Desplazar los títulos mueve los filtros con ellos.
    return QHeaderView::eventFilter(objeto, evento);
}

AnchosRejilla& anchos_de(const Rejilla& rejilla) {
    return static_cast<EncabezadoRejilla*>(rejilla.horizontalHeader())->anchos();
}
