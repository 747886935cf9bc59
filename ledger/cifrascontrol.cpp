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
}

void CifrasControl::filas_reiniciadas() {
    // Un filtro sin filas no cambia las cifras: son las del libro y no las de la vista.
    if (conjunto() && conjunto()->Active() && conjunto()->RecordCount() > 0)
        muestre();
}

QSize CifrasControl::sizeHint() const {
    return {paso(60), qMax(cajas_.first()->sizeHint().height(), navegador_->sizeHint().height())};
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
    navegador_->setGeometry(0, (height() - botones.height()) / 2, botones.width(),
                            botones.height());
    const int inicio = botones.width() + paso();
    rotulo_->setGeometry(inicio, 0, rotulo_->sizeHint().width(), height());

    const QHeaderView& titulos = *rejilla_->horizontalHeader();
    const int margen = rejilla_->viewport()->mapTo(rejilla_, QPoint()).x() + rejilla_->x() - x();
    const int libre = rotulo_->geometry().right() + paso();
    QVector<QRect> lugares;
    for (const QString& columna : columnas_) {
        const int c = rejilla_->columna_de(columna);
        lugares.append(
            {margen + titulos.sectionViewportPosition(c), 0, titulos.sectionSize(c), height()});
    }
    // Si la columna quedó bajo el rótulo, o fuera de la vista, se reparten el espacio.
    if (lugares.first().left() < libre || lugares.last().right() > width() + paso()) {
        const int ancho = qMax(1, (width() - libre) / int(cajas_.size()));
        for (int i = 0; i < lugares.size(); ++i)
            lugares[i] = {libre + i * ancho, 0, ancho, height()};
    }
    for (int i = 0; i < cajas_.size(); ++i)
        cajas_[i]->setGeometry(lugares[i].adjusted(1, 0, -1, 0));
}
