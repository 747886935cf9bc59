#include "toolkit/dialogos.h"

#include "toolkit/letras_alt.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>

namespace {

/// Esc y la cruz siempre cierran, aunque ningún botón sea el de cancelar.
class Dialogo : public QMessageBox {
public:
    Dialogo(Icon dibujo, const QString& titulo, const QString& texto)
        : QMessageBox(dibujo, titulo, QString(), NoButton, QApplication::activeWindow()) {
        setObjectName(QStringLiteral("dialogo"));
        setTextFormat(Qt::PlainText);
        setText(texto);
    }

protected:
    void keyPressEvent(QKeyEvent* evento) override {
        if (evento->key() == Qt::Key_Escape && !escapeButton()) {
            reject();
            return;
        }
        // Qt anima la letra de un botón y obra una décima después: lo que se teclee ya es de otro.
        for (QAbstractButton* boton : buttons()) {
            const QKeySequence letra = boton->shortcut();
            if (!letra.isEmpty() && letra[0].key() == evento->key() &&
                !(evento->modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)))
                return boton->click();
        }
        QMessageBox::keyPressEvent(evento);
    }
    void closeEvent(QCloseEvent* evento) override {
        if (escapeButton())
            QMessageBox::closeEvent(evento);
        else
            QDialog::closeEvent(evento);
    }
};

QString titulo_programa() {
    const QString titulo = QApplication::applicationDisplayName();
    return titulo.isEmpty() ? QStringLiteral("Contabilidad") : titulo;
}

void avise(QMessageBox::Icon dibujo, const QString& titulo, const QString& texto) {
    Dialogo d(dibujo, titulo, texto);
    QPushButton* aceptar = d.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole);
    d.setDefaultButton(aceptar);
    d.setEscapeButton(aceptar);
    d.exec();
}

/// Ve pasar Esc, esté donde esté el foco.
class VigiaEscape : public QObject {
public:
    VigiaEscape() { qApp->installEventFilter(this); }
    bool visto = false;

protected:
    bool eventFilter(QObject*, QEvent* evento) override {
        const bool tecla =
            evento->type() == QEvent::KeyPress || evento->type() == QEvent::ShortcutOverride;
        if (!tecla || static_cast<QKeyEvent*>(evento)->key() != Qt::Key_Escape)
            return false;
        visto = true;
        evento->accept();
        return true; // el mensaje se la queda: no debe cerrar además la pantalla
    }
};

constexpr int kRondas = 10;
constexpr int kEsperaMs = 500;

std::function<void(int)>& espera() {
    static std::function<void(int)> funcion = [](int ms) { QThread::msleep(ms); };
    return funcion;
}

} // namespace

void muestre_mensaje(const QString& texto) {
    avise(QMessageBox::NoIcon, titulo_programa(), texto);
}

void muestre_error(const QString& texto) {
    avise(QMessageBox::Critical, QStringLiteral("Error"), texto);
}

namespace {

bool pregunte_si_o_no(const QString& texto, bool si_escogido) {
    Dialogo d(QMessageBox::Question, QStringLiteral("Confirmación"), texto);
    QPushButton* si = d.addButton(QStringLiteral("&Sí"), QMessageBox::YesRole);
    QPushButton* no = d.addButton(QStringLiteral("&No"), QMessageBox::NoRole);
    d.setDefaultButton(si_escogido ? si : no);
    d.setEscapeButton(no);
    d.exec();
    return d.clickedButton() == si;
}

} // namespace

bool pregunte(const QString& texto) {
    return pregunte_si_o_no(texto, true);
}

bool pregunte_con_no(const QString& texto) {
    return pregunte_si_o_no(texto, false);
}

Respuesta pregunte_botones(const QString& texto, const QStringList& rotulos, Respuesta escogida) {
    Dialogo d(QMessageBox::Question, QStringLiteral("Confirmación"), texto);
    QVector<QPushButton*> botones;
    for (const QString& rotulo : rotulos)
        botones << d.addButton(rotulo, QMessageBox::ActionRole);
    ponga_letras(d);
    d.setDefaultButton(botones.value(escogida));
    d.exec();
    // Sin `indexOf` sobre nulo: cerrar el diálogo no oprime ningún botón.
    auto* oprimido = qobject_cast<QPushButton*>(d.clickedButton());
    return oprimido ? Respuesta(botones.indexOf(oprimido)) : Ninguna;
}

void mensaje_temporal(const QString& texto) {
    QApplication::beep();
    VigiaEscape vigia;
    QMessageBox d(QMessageBox::Critical, QStringLiteral("Advertencia"), QString(),
                  QMessageBox::NoButton, QApplication::activeWindow());
    d.setObjectName(QStringLiteral("mensaje_temporal"));
    d.setTextFormat(Qt::PlainText);
    d.setText(texto);
    d.setStandardButtons(QMessageBox::NoButton);
    d.setModal(false);
    d.show();
    for (int ronda = 0; ronda < kRondas; ++ronda) {
        QApplication::processEvents();
        if (vigia.visto) {
            QApplication::processEvents();
            break;
        }
        espera()(kEsperaMs);
    }
    d.hide();
}

std::function<void(int)> cambie_espera_de_mensajes(std::function<void(int)> nueva) {
    return std::exchange(espera(), std::move(nueva));
}
