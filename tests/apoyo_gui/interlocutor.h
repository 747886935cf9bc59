#pragma once
// Contesta los diálogos modales de una prueba, en el orden en que se esperan.
//
//     Interlocutor i;
//     i.espere("Desea borrar definitivamente la cuenta 1105 ?", "Sí");
//     QTest::keyClick(&pantalla, Qt::Key_F3);
//     QVERIFY2(i.conforme(), qPrintable(i.queja()));
//
// Un diálogo que nadie esperaba se cierra con Esc y queda en `queja()`. `vistos()` son los textos
// de todos los diálogos, en orden. `espere_modal` atiende una pantalla modal o, con el nombre
// "dialogo", un mensaje del que hay que mirar más que el texto: recibe la ventana y debe cerrarla.
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <functional>

class Interlocutor : public QObject {
public:
    Interlocutor() {
        reloj_.setInterval(5);
        // Encolado: un reloj no vuelve a sonar dentro de su propio aviso, y atender una ventana
        // puede abrir otra.
        connect(
            &reloj_, &QTimer::timeout, this, [this] { mire(); }, Qt::QueuedConnection);
        reloj_.start();
    }
    ~Interlocutor() override {
        if (!revisado_ && !conforme())
            QTest::qFail(qPrintable(queja()), __FILE__, __LINE__);
    }

    /// Espera un mensaje con ese texto exacto y oprime el botón de ese rótulo ("Aceptar", "Sí").
    /// Una respuesta vacía lo cierra con Esc.
    void espere(const QString& texto, const QString& respuesta = QStringLiteral("Aceptar")) {
        cola_.append({texto, respuesta, {}});
        revisado_ = false;
    }
    /// Espera una ventana modal cuyo nombre, o el de una pantalla suya, es `nombre`.
    void espere_modal(const QString& nombre, std::function<void(QWidget*)> atienda) {
        cola_.append({nombre, {}, std::move(atienda)});
        revisado_ = false;
    }
    const QStringList& vistos() const { return vistos_; }
    bool conforme() {
        revisado_ = true;
        return quejas_.isEmpty() && cola_.isEmpty();
    }
    QString queja() const {
        QStringList todas = quejas_;
        for (const auto& e : cola_)
            todas << QStringLiteral("no apareció: %1").arg(e.texto);
        return todas.join(QStringLiteral("; "));
    }
    void olvide() {
        cola_.clear();
        quejas_.clear();
        vistos_.clear();
    }

private:
    struct Esperado {
        QString texto, respuesta;
        std::function<void(QWidget*)> atienda;
    };

    void mire() {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == atendido_ || !modal->isVisible())
            return;
        // Un aviso de avance se quita solo: cerrarlo cancelaría el trabajo.
        if (modal->objectName().startsWith(QLatin1String("avance")))
            return;
        QPointer<QWidget> guarda = atendido_;
        atendido_ = modal;
        auto* mensaje = qobject_cast<QMessageBox*>(modal);
        if (mensaje && (cola_.isEmpty() || cola_.first().texto != mensaje->objectName()))
            conteste(*mensaje);
        else
            atienda(*modal);
        atendido_ = guarda;
    }
    void conteste(QMessageBox& mensaje) {
        vistos_ << mensaje.text();
        if (cola_.isEmpty() || cola_.first().atienda || cola_.first().texto != mensaje.text()) {
            quejas_ << QStringLiteral("mensaje inesperado: %1").arg(mensaje.text());
            QTest::keyClick(&mensaje, Qt::Key_Escape);
            if (mensaje.isVisible())
                mensaje.done(QMessageBox::Cancel);
            return;
        }
        const Esperado e = cola_.takeFirst();
        if (e.respuesta.isEmpty()) {
            QTest::keyClick(&mensaje, Qt::Key_Escape);
            return;
        }
        for (QAbstractButton* b : mensaje.buttons()) {
            if (b->text().remove(QLatin1Char('&')) == e.respuesta) {
                QTest::keyClick(b, Qt::Key_Space);
                return;
            }
        }
        quejas_ << QStringLiteral("«%1» no tiene el botón «%2»").arg(e.texto, e.respuesta);
        mensaje.done(QMessageBox::Cancel);
    }
    void atienda(QWidget& modal) {
        const bool esperado = !cola_.isEmpty() && cola_.first().atienda &&
                              (modal.objectName() == cola_.first().texto ||
                               modal.findChild<QWidget*>(cola_.first().texto) != nullptr);
        if (!esperado) {
            quejas_ << QStringLiteral("ventana inesperada: %1 %2")
                           .arg(modal.objectName(), modal.windowTitle());
            modal.close();
            return;
        }
        const Esperado e = cola_.takeFirst();
        vistos_ << e.texto;
        e.atienda(&modal);
    }

    QTimer reloj_;
    QList<Esperado> cola_;
    QStringList quejas_, vistos_;
    QPointer<QWidget> atendido_;
    bool revisado_ = true;
};
