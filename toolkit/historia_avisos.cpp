#include "toolkit/historia_avisos.h"

#include "datos/firebird/reloj.h"
#include "toolkit/barraestado.h"
#include "toolkit/estilo.h"

#include <QDialog>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr qsizetype kAvisosGuardados = 500;
constexpr int kCadaCuantoMs = 30000;
constexpr qreal kMinutosHastaTenue = 15, kTinteMinimo = 0.45;

} // namespace

HistoriaAvisos::HistoriaAvisos(AvisosBarra* barra) : QObject(barra), barra_(barra) {
    barra->installEventFilter(this);
    barra->setCursor(Qt::PointingHandCursor);
    connect(&envejece_, &QTimer::timeout, barra, qOverload<>(&QWidget::update));
}

HistoriaAvisos* HistoriaAvisos::de(const AvisosBarra* barra) {
    return barra ? barra->findChild<HistoriaAvisos*>(QString(), Qt::FindDirectChildrenOnly)
                 : nullptr;
}

void HistoriaAvisos::anote(const QString& texto) {
    if (texto.trimmed().isEmpty())
        return;
    retirado_ = false;
    // Lo mismo dicho dos veces seguidas (el texto crudo y su advertencia) se cuenta una.
    const QDateTime ahora = reloj().ahora();
    if (!avisos_.isEmpty() && avisos_.last().texto == texto)
        avisos_.removeLast();
    avisos_ << Aviso{ahora, texto};
    ++dichos_;
    if (avisos_.size() > kAvisosGuardados)
        avisos_.removeFirst();
    envejece_.start(kCadaCuantoMs);
    barra_->update();
}

bool HistoriaAvisos::retire(qint64 cual) {
    if (cual != dichos_ || cual == 0)
        return false;
    retirado_ = true;
    barra_->update();
    return true;
}

QString HistoriaAvisos::edad(const Aviso& aviso) const {
    const qint64 minutos = aviso.cuando.secsTo(reloj().ahora()) / 60;
    if (minutos < 1)
        return {};
    return minutos < 60 ? QStringLiteral("hace %1 min").arg(minutos)
                        : QStringLiteral("hace %1 h").arg(minutos / 60);
}

qreal HistoriaAvisos::intensidad() const {
    if (avisos_.isEmpty())
        return 1;
    const qreal minutos = qreal(avisos_.last().cuando.secsTo(reloj().ahora())) / 60;
    return qBound(kTinteMinimo, 1 - (1 - kTinteMinimo) * minutos / kMinutosHastaTenue, 1.0);
}

void HistoriaAvisos::pinte() const {
    QPainter pintor(barra_);
    const QRect campo = barra_->contentsRect().adjusted(barra_->margin() + paso(0.5), 0,
                                                        -barra_->margin() - paso(0.5), 0);
    const QFontMetrics medidas = barra_->fontMetrics();
    const bool reposo = barra_->text().isEmpty();
    QString texto = barra_->text().simplified();
    QString cuando;
    if (!avisos_.isEmpty() && ((reposo && !retirado_) || barra_->text() == avisos_.last().texto)) {
        texto = avisos_.last().texto.simplified();
        cuando = edad(avisos_.last());
        pintor.setOpacity(intensidad());
    }
    pintor.setPen(barra_->palette().color(QPalette::WindowText));
    const int ancho_edad = cuando.isEmpty() ? 0 : medidas.horizontalAdvance(cuando) + paso();
    const QRect hueco = campo.adjusted(0, 0, -ancho_edad, 0);
    pintor.drawText(hueco, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                    medidas.elidedText(texto, Qt::ElideRight, hueco.width()));
    pintor.drawText(campo, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, cuando);
}

void HistoriaAvisos::muestre() {
    QDialog dialogo(barra_->window());
    dialogo.setObjectName(QStringLiteral("historia_avisos"));
    dialogo.setWindowTitle(QStringLiteral("Avisos de la sesión"));
    auto* texto = new QPlainTextEdit(&dialogo);
    texto->setObjectName(QStringLiteral("Avisos"));
    texto->setAccessibleName(QStringLiteral("Avisos de la sesión, del último al primero"));
    texto->setReadOnly(true);
    texto->setTabChangesFocus(true);
    QStringList renglones;
    for (auto a = avisos_.rbegin(); a != avisos_.rend(); ++a)
        renglones << a->cuando.toString(QStringLiteral("yyyy/MM/dd hh:mm:ss")) + "  " + a->texto;
    texto->setPlainText(renglones.isEmpty() ? QStringLiteral("Aún no hay avisos en la sesión.")
                                            : renglones.join('\n'));
    auto* salir = new QPushButton(icono(QStringLiteral("window-close")),
                                  QStringLiteral("Esc:Salir"), &dialogo);
    connect(salir, &QPushButton::clicked, &dialogo, &QDialog::accept);
    auto* columna = new QVBoxLayout(&dialogo);
    columna->addWidget(texto, 1);
    columna->addWidget(salir, 0, Qt::AlignRight);
    dialogo.resize(QSize(escalado(640), escalado(320)).boundedTo(barra_->window()->size()));
    dialogo.exec();
}

bool HistoriaAvisos::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != barra_)
        return false;
    if (evento->type() == QEvent::Paint) {
        pinte();
        return true;
    }
    if (evento->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(evento)->button() == Qt::LeftButton) {
        muestre();
        return true;
    }
    return false;
}

void anuncie(AvisosBarra* barra, const QString& texto) {
    HistoriaAvisos* historia = HistoriaAvisos::de(barra);
    if (!historia)
        return;
    // Una advertencia o un recordatorio siguen a la vista hasta que se cumpla su tiempo.
    const bool reposa =
        barra->color() == AvisosBarra::Celeste || barra->color() == AvisosBarra::Boton;
    if (reposa)
        barra->texto(texto);
    else
        historia->anote(texto);
}

void retire_aviso(AvisosBarra* barra, qint64 cual) {
    HistoriaAvisos* historia = HistoriaAvisos::de(barra);
    if (!historia || !historia->retire(cual) || barra->text() != historia->avisos().last().texto)
        return;
    if (barra->color() == AvisosBarra::Rojo)
        barra->Timer2Timer();
    else
        barra->texto({});
}

void retire_aviso(AvisosBarra* barra, const QString& texto) {
    const HistoriaAvisos* historia = HistoriaAvisos::de(barra);
    if (historia && !historia->avisos().isEmpty() && historia->avisos().last().texto == texto)
        retire_aviso(barra, historia->ultimo());
}

void retire_advertencia(AvisosBarra* barra, const QString& texto) {
    retire_aviso(barra, QStringLiteral("Advertencia: ") + texto);
}
