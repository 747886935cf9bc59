#include "toolkit/aviso_trabajo.h"

#include <QApplication>
#include <QProgressDialog>
#include <QTimer>

namespace {
constexpr int kServidorGrafico = 20; ///< milisegundos en que dice lo que quedó descubierto
} // namespace

void repinte_lo_descubierto() {
    QEventLoop vuelta;
    QTimer::singleShot(kServidorGrafico, &vuelta, &QEventLoop::quit);
    vuelta.exec(QEventLoop::ExcludeUserInputEvents);
}

AvisoTrabajo::AvisoTrabajo(QWidget* padre, const QString& texto)
    : dialogo_(std::make_unique<QProgressDialog>(texto, QString(), 0, 0, padre)) {
    dialogo_->setObjectName("avance_trabajo");
    dialogo_->setWindowTitle("Un momento");
    dialogo_->setWindowModality(Qt::ApplicationModal);
    dialogo_->setMinimumDuration(0);
    dialogo_->setAutoClose(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    dialogo_->show();
    diga(texto);
    repinte_lo_descubierto();
}

AvisoTrabajo::~AvisoTrabajo() {
    QApplication::restoreOverrideCursor();
}

void AvisoTrabajo::diga(const QString& texto, int hechos, int total) {
    dialogo_->setLabelText(texto);
    dialogo_->setMaximum(total);
    dialogo_->setValue(hechos);
    // Solo pinta: lo que el usuario oprima mientras tanto espera su turno.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
