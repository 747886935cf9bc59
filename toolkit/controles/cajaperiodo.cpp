#include "toolkit/controles/cajaperiodo.h"

#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/estilo.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QStylePainter>

/// Lista de meses que puede mostrar un texto que no está en ella.
class CajaPeriodo::ListaMeses : public ListaTecleo {
public:
    using ListaTecleo::ListaTecleo;
    QString ajeno;

protected:
    void paintEvent(QPaintEvent* evento) override {
        if (currentIndex() >= 0 || ajeno.isEmpty()) {
            ListaTecleo::paintEvent(evento);
            return;
        }
        QStylePainter pintor(this);
        QStyleOptionComboBox opcion;
        initStyleOption(&opcion);
        opcion.currentText = ajeno;
        pintor.drawComplexControl(QStyle::CC_ComboBox, opcion);
        pintor.drawControl(QStyle::CE_ComboBoxLabel, opcion);
    }
};

CajaPeriodo::CajaPeriodo(QWidget* padre) : QWidget(padre) {
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(paso());
    meses_ = new ListaMeses(this);
    EMes = meses_;
    EMes->setObjectName(QStringLiteral("EMes"));
    EMes->setAccessibleName(QStringLiteral("Mes"));
    EMes->setMaxVisibleItems(12);
    EAno = new QSpinBox(this);
    EAno->setObjectName(QStringLiteral("EAno"));
    EAno->setAccessibleName(QStringLiteral("Año"));
    EAno->setRange(1990, 2099);
    EAno->setKeyboardTracking(false); // un año a medio digitar no es un cambio
    fila->addWidget(EMes);
    fila->addWidget(EAno);
    setFocusProxy(EMes);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    nombres({QStringLiteral("Enero"), QStringLiteral("Febrero"), QStringLiteral("Marzo"),
             QStringLiteral("Abril"), QStringLiteral("Mayo"), QStringLiteral("Junio"),
             QStringLiteral("Julio"), QStringLiteral("Agosto"), QStringLiteral("Septiembre"),
             QStringLiteral("Octubre"), QStringLiteral("Noviembre"), QStringLiteral("Diciembre")});
    connect(EMes, &QComboBox::activated, this, [this](int indice) {
        if (indice == mes_previo_)
            return;
        mes_previo_ = indice;
        meses_->ajeno.clear();
        emit mes_cambiado(indice);
    });
    connect(EAno, &QSpinBox::valueChanged, this, [this](int valor) {
        if (!por_codigo_)
            emit ano_cambiado(valor);
    });
}

int CajaPeriodo::mes() const {
    return EMes->currentIndex();
}

int CajaPeriodo::ano() const {
    return EAno->value();
}

void CajaPeriodo::mes(int indice) {
    meses_->ajeno.clear();
    EMes->setCurrentIndex(indice >= 0 && indice < EMes->count() ? indice : -1);
    mes_previo_ = EMes->currentIndex();
    EMes->update();
}

void CajaPeriodo::ano(int valor) {
    QScopedValueRollback<bool> guarda(por_codigo_, true);
    // Uno de fuera del rango se muestra, y no otro en su lugar.
    if (valor > 0)
        EAno->setRange(qMin(valor, EAno->minimum()), qMax(valor, EAno->maximum()));
    EAno->setValue(valor);
}

void CajaPeriodo::texto_mes(const QString& texto) {
    mes(EMes->findText(texto));
    if (mes() < 0)
        meses_->ajeno = texto;
    EMes->update();
}

QString CajaPeriodo::texto_mes() const {
    return mes() >= 0 ? EMes->currentText() : meses_->ajeno;
}

void CajaPeriodo::rango_ano(int minimo, int maximo) {
    QScopedValueRollback<bool> guarda(por_codigo_, true);
    EAno->setRange(minimo, maximo);
}

void CajaPeriodo::nombres(const QStringList& doce) {
    const int indice = EMes->currentIndex();
    EMes->clear();
    EMes->addItems(doce);
    mes(qMax(indice, 0));
}

bool CajaPeriodo::reclama(const QKeyEvent& evento) {
    return (evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter) && EAno->hasFocus() &&
           EAno->cleanText() != QString::number(EAno->value());
}

bool CajaPeriodo::termine() {
    EAno->interpretText();
    return true;
}
