#include "ledger/cifrascontrol.h"

#include "toolkit/controles/editornumero.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/rejilla.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>

CifrasControl::CifrasControl(Rejilla* rejilla, const QStringList& columnas,
                             const QStringList& sumas, const QStringList& nombres, QWidget* padre)
    : QWidget(padre), rejilla_(rejilla), columnas_(columnas), sumas_(sumas),
      rotulo_(new QLabel("Cifras de control:", this)),
      navegador_(new NavegadorDatos(rejilla->conjunto(), nbRecorrido | nbRefresh, this)) {
    for (int i = 0; i < nombres.size(); ++i) {
        auto* caja = EditorNumero::de_saldo(this);
        caja->setObjectName(nombres[i]);
        caja->setAccessibleName("Cifra de control: " +
                                rejilla->columna(rejilla->columna_de(columnas[i])).Titulo());
        cajas_.append(caja);
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    enlace(rejilla->conjunto());
    connect(rejilla->horizontalHeader(), &QHeaderView::sectionResized, this, [this] { ubique(); });
    connect(rejilla->horizontalHeader(), &QHeaderView::geometriesChanged, this,
            [this] { ubique(); });
    connect(rejilla->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { ubique(); });
}

void CifrasControl::muestre() {
    const ConjuntoDatos& datos = *conjunto();
    for (int i = 0; i < cajas_.size(); ++i)
        cajas_[i]->valor(datos.valor_en(0, datos.FieldByName(sumas_[i])).moneda().redondeada(2));
    ubique(); // lo que ocupan depende de lo que dicen
}

void CifrasControl::filas_reiniciadas() {
    // Un filtro sin filas no cambia las cifras: son las del libro y no las de la vista.
    if (conjunto() && conjunto()->Active() && conjunto()->RecordCount() > 0)
        muestre();
}

int CifrasControl::alto_de_renglon() const {
    return qMax(cajas_.first()->sizeHint().height(), navegador_->sizeHint().height());
}

int CifrasControl::ancho_de(const EditorNumero* caja) const {
    return caja->fontMetrics().horizontalAdvance(caja->text()) + paso(2);
}

QSize CifrasControl::sizeHint() const {
    return {paso(60), alto_de_renglon()};
}

void CifrasControl::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    ubique();
}

void CifrasControl::showEvent(QShowEvent* evento) {
    QWidget::showEvent(evento);
    ubique();
}

void CifrasControl::ubique() {
    const QSize botones = navegador_->sizeHint();
    const int alto = alto_de_renglon();
    navegador_->setGeometry(0, (alto - botones.height()) / 2, botones.width(), botones.height());
    const int inicio = botones.width() + paso();
    rotulo_->setGeometry(inicio, 0, rotulo_->sizeHint().width(), alto);
    const int libre = rotulo_->geometry().right() + paso();

    QVector<QRect> lugares = bajo_las_columnas(alto);
    bool caben = lugares.first().left() >= libre && lugares.last().right() <= width() + paso();
    for (int i = 0; i < cajas_.size(); ++i)
        caben = caben && lugares[i].width() >= ancho_de(cajas_[i]);
    if (!caben)
        lugares = repartidas(libre, alto);
    for (int i = 0; i < cajas_.size(); ++i)
        cajas_[i]->setGeometry(lugares[i].adjusted(1, 0, -1, 0));
    if (const int todo = lugares.last().bottom() + 1; todo != minimumHeight())
        setFixedHeight(todo);
}

QVector<QRect> CifrasControl::bajo_las_columnas(int alto) const {
    const QHeaderView& titulos = *rejilla_->horizontalHeader();
    const int margen = rejilla_->viewport()->mapTo(rejilla_, QPoint()).x() + rejilla_->x() - x();
    QVector<QRect> lugares;
    for (const QString& columna : columnas_) {
        const int c = rejilla_->columna_de(columna);
        lugares.append(
            {margen + titulos.sectionViewportPosition(c), 0, titulos.sectionSize(c), alto});
    }
    return lugares;
}

QVector<QRect> CifrasControl::repartidas(int libre, int alto) const {
    int total = 0;
    for (const EditorNumero* caja : cajas_)
        total += ancho_de(caja);
    const int n = int(cajas_.size());
    // En un renglón, lo que sobra es de todas; si no caben, siguen debajo.
    const bool uno = total <= width() - libre;
    const int mas = uno ? (width() - libre - total) / n : 0;
    QVector<QRect> lugares;
    int x = uno ? libre : 0, y = uno ? 0 : alto;
    for (const EditorNumero* caja : cajas_) {
        const int ancho = ancho_de(caja) + mas;
        if (x > 0 && x + ancho > width()) {
            x = 0;
            y += alto;
        }
        lugares.append({x, y, ancho, alto});
        x += ancho;
    }
    return lugares;
}
