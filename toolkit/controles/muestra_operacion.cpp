#include "toolkit/controles/muestra_operacion.h"

#include "datos/recordset/campo.h"
#include "libro/aritmetica.h"

#include <QLabel>
#include <QLineEdit>

int decimales_de_operacion(const Campo& campo) {
    const bool importe = campo.clase == ClaseCampo::Decimal && !campo.Tasa && campo.Size <= 2;
    return importe ? campo.Size : -1;
}

QString texto_calculado(const QString& texto, int decimales) {
    if (decimales < 0)
        return texto;
    const ResultadoOperacion r = calcule_operacion(texto, decimales);
    if (!r.rechazo.isEmpty())
        throw ErrorDatos(r.rechazo);
    return r.valor ? r.valor->texto() : texto;
}

MuestraOperacion::MuestraOperacion(QLineEdit* caja, std::function<int()> decimales)
    : QObject(caja), caja_(caja), decimales_(std::move(decimales)) {
    caja->installEventFilter(this);
}

MuestraOperacion::~MuestraOperacion() {
    delete resultado_;
}

bool MuestraOperacion::eventFilter(QObject* objeto, QEvent* evento) {
    if (resultado_ && (evento->type() == QEvent::Hide || evento->type() == QEvent::FocusOut))
        resultado_->hide();
    return QObject::eventFilter(objeto, evento);
}

void MuestraOperacion::muestre() {
    const int decimales = decimales_();
    const ResultadoOperacion r =
        decimales < 0 ? ResultadoOperacion() : calcule_operacion(caja_->text(), decimales);
    if (!r.es_operacion) {
        if (resultado_)
            resultado_->hide();
        return;
    }
    QWidget* ventana = caja_->window();
    if (!resultado_) {
        resultado_ = new QLabel(ventana);
        resultado_->setObjectName(QStringLiteral("resultado_operacion"));
        resultado_->setAutoFillBackground(true);
        resultado_->setBackgroundRole(QPalette::ToolTipBase);
        resultado_->setForegroundRole(QPalette::ToolTipText);
        resultado_->setFrameShape(QFrame::Box);
        resultado_->setMargin(3);
    }
    if (resultado_->parentWidget() != ventana)
        resultado_->setParent(ventana);
    // A medio escribir todavía no da nada.
    const QString da = r.valor ? r.valor->formateada() : QStringLiteral("…");
    resultado_->setText(QStringList{QStringLiteral("="), da}.join(' '));
    resultado_->adjustSize();
    const QPoint esquina =
        caja_->mapTo(ventana, QPoint(caja_->width() - resultado_->width(), caja_->height()));
    resultado_->move(qMax(0, esquina.x()), esquina.y());
    resultado_->show();
    resultado_->raise();
}
