#pragma once
// Contesta los diálogos modales de una prueba, en el orden en que se esperan.
//
//     Interlocutor i;
//     i.espere("Desea borrar definitivamente la cuenta 1105 ?", "Sí");
//     oprima(Qt::Key_F3);
//
// Un diálogo que nadie esperaba hace fallar la prueba en el acto, se cierra con Esc y queda en
// `queja()`; uno esperado que no aparece la hace fallar al morir el interlocutor. Atiende el último
// que se creó; sin ninguno, la guardia del proceso: ningún diálogo deja colgada una prueba, ni
// siquiera el que sale al cerrar las pantallas de una que falló. `vistos()` son los textos de los
// diálogos, en orden. Para un solo mensaje basta `dice(Qt::Key_F3, "Desea ...", "Sí")`.
#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <functional>
#include <source_location>

/// Deja correr todo lo que ya esté encolado, y lo que eso encole: para ver que algo no pasa.
inline void agote_eventos() {
    for (int vuelta = 0; vuelta < 20; ++vuelta)
        QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Quien atiende los diálogos modales de la prueba en curso.
class AtiendeDialogos {
public:
    virtual ~AtiendeDialogos() = default;
    virtual void atienda(QWidget& modal) = 0;
};

/// Vigila los diálogos durante todo el proceso y los pasa a quien los atienda.
class Guardia : public QObject {
public:
    static Guardia& unica() {
        static QPointer<Guardia> guardia = new Guardia(qApp);
        return *guardia;
    }
    /// Mientras se cierra lo que la prueba dejó abierto, la pregunta de salida se contesta "Sí".
    bool despedida = false;
    /// La prueba mira ella misma las ventanas.
    bool en_pausa = false;

    void tome(AtiendeDialogos* quien) { atienden_.append(quien); }
    void suelte(AtiendeDialogos* quien) { atienden_.removeOne(quien); }

    /// Hace fallar la prueba en curso.
    static void falle(const QString& queja) {
        if (!QTest::currentTestFunction())
            qFatal("fuera de toda prueba: %s", qPrintable(queja));
        QTest::qFail(qPrintable(queja), __FILE__, __LINE__);
    }
    static QString nombre(const QWidget& ventana) {
        const auto* mensaje = qobject_cast<const QMessageBox*>(&ventana);
        return mensaje ? QStringLiteral("mensaje inesperado: %1").arg(mensaje->text())
                       : QStringLiteral("ventana inesperada: %1 %2")
                             .arg(ventana.objectName(), ventana.windowTitle());
    }
    /// Por las buenas o por las malas: una prueba que falla no se queda esperando.
    static void cierre(QWidget& ventana) {
        const QPointer<QWidget> viva(&ventana);
        if (qobject_cast<QMessageBox*>(&ventana))
            QTest::keyClick(&ventana, Qt::Key_Escape);
        else
            ventana.close();
        if (viva && viva->isVisible()) {
            if (auto* dialogo = qobject_cast<QDialog*>(&ventana))
                dialogo->done(QDialog::Rejected);
            else
                ventana.hide();
        }
    }

private:
    explicit Guardia(QObject* dueno) : QObject(dueno) {
        reloj_.setInterval(5);
        // Encolado: un reloj no vuelve a sonar dentro de su propio aviso, y atender una ventana
        // puede abrir otra.
        connect(
            &reloj_, &QTimer::timeout, this, [this] { mire(); }, Qt::QueuedConnection);
        reloj_.start();
    }
    static QWidget* a_la_vista() {
        if (QWidget* modal = QApplication::activeModalWidget())
            return modal->isVisible() ? modal : nullptr;
        // El mensaje que se quita solo no es modal, pero detiene al que lo muestra; contestado,
        // sigue a la vista un instante.
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible() && w->objectName() == QLatin1String("mensaje_temporal") &&
                !w->property(kContestada).toBool())
                return w;
        return nullptr;
    }
    static bool salga(QWidget& ventana) {
        auto* mensaje = qobject_cast<QMessageBox*>(&ventana);
        if (!mensaje || !mensaje->text().startsWith(QLatin1String("Desea salir ")))
            return false;
        for (QAbstractButton* b : mensaje->buttons())
            if (b->text().remove('&') == QStringLiteral("Sí")) {
                b->click();
                return true;
            }
        return false;
    }
    void mire() {
        QWidget* ventana = a_la_vista();
        // Un aviso de avance se quita solo: cerrarlo cancelaría el trabajo.
        if (en_pausa || !ventana || ventana == atendida_ ||
            ventana->objectName().startsWith(QLatin1String("avance")))
            return;
        const QPointer<QWidget> guarda = atendida_;
        atendida_ = ventana;
        if (despedida && salga(*ventana)) {
            // la prueba ya terminó: lo que quedó sin grabar se deja
        } else if (!atienden_.isEmpty() && !QTest::currentTestFailed()) {
            atienden_.last()->atienda(*ventana);
        } else {
            if (atienden_.isEmpty())
                falle(nombre(*ventana));
            cierre(*ventana);
        }
        if (atendida_)
            atendida_->setProperty(kContestada, true);
        atendida_ = guarda;
    }

    static constexpr const char* kContestada = "contestada";
    QTimer reloj_;
    QPointer<QWidget> atendida_;
    QList<AtiendeDialogos*> atienden_;
};

class Interlocutor : public AtiendeDialogos {
public:
    /// `EnSilencio`: anota las quejas sin hacer fallar la prueba, que las mira ella misma.
    enum Modo { Estricto, EnSilencio };

    explicit Interlocutor(Modo modo = Estricto) : modo_(modo) { Guardia::unica().tome(this); }
    ~Interlocutor() override {
        Guardia::unica().suelte(this);
        if (modo_ == Estricto && !conforme())
            Guardia::falle(queja());
    }
    Interlocutor(const Interlocutor&) = delete;

    /// Espera un mensaje con ese texto exacto y oprime el botón de ese rótulo ("Aceptar", "Sí").
    /// Una respuesta vacía lo cierra con Esc.
    void espere(const QString& texto, const QString& respuesta = QStringLiteral("Aceptar")) {
        cola_.append({texto, respuesta, {}});
    }
    /// Lo mismo, de un texto que trae datos que la prueba no fija: debe comenzar así.
    void espere_comienzo(const QString& texto,
                         const QString& respuesta = QStringLiteral("Aceptar")) {
        cola_.append({texto, respuesta, {}, true});
    }
    /// Espera una ventana modal cuyo nombre, o el de una pantalla suya, es `nombre`; con el nombre
    /// "dialogo", un mensaje del que hay que mirar más que el texto. `atienda` debe cerrarla, o
    /// dejar esperado a quien siga con ella.
    void espere_modal(const QString& nombre, std::function<void(QWidget*)> atienda) {
        cola_.append({nombre, {}, std::move(atienda)});
    }
    /// Espera el diálogo de archivos de ese nombre y escoge la ruta.
    void espere_archivo(const QString& nombre, const QString& ruta) {
        espere_modal(nombre, [=](QWidget* w) {
            w->findChild<QLineEdit*>("fileNameEdit")->setText(ruta);
            QMetaObject::invokeMethod(w, "accept");
        });
    }
    /// Espera una pantalla modal y oprime una tecla en ella.
    void espere_tecla(const QString& pantalla, int clave) {
        espere_modal(pantalla, [=](QWidget* w) {
            QTest::keyClick(w->findChild<QWidget*>(pantalla), Qt::Key(clave));
        });
    }
    /// Espera un mensaje que diga eso en alguna parte, y lo cierra con Esc.
    void espere_mencion(const QString& parte) {
        espere_modal("dialogo", [=, this](QWidget* w) {
            const QString dicho = static_cast<QMessageBox*>(w)->text();
            if (!dicho.contains(parte))
                quejese(QStringLiteral("«%1» no dice «%2»").arg(dicho, parte));
            QTest::keyClick(w, Qt::Key_Escape);
        });
    }
    const QStringList& vistos() const { return vistos_; }
    [[nodiscard]] bool conforme() const { return quejas_.isEmpty() && cola_.isEmpty(); }
    QString queja() const {
        QStringList todas = quejas_;
        for (const auto& e : cola_)
            todas << QStringLiteral("no apareció: %1").arg(e.texto);
        return todas.join(QStringLiteral("; "));
    }

    void atienda(QWidget& ventana) override {
        auto* mensaje = qobject_cast<QMessageBox*>(&ventana);
        if (mensaje && (cola_.isEmpty() || cola_.first().texto != mensaje->objectName()))
            conteste(*mensaje);
        else
            pase(ventana);
    }

private:
    struct Esperado {
        QString texto, respuesta;
        std::function<void(QWidget*)> atienda;
        bool solo_comienzo = false;

        bool es(const QMessageBox& mensaje) const {
            return !atienda &&
                   (solo_comienzo ? mensaje.text().startsWith(texto) : mensaje.text() == texto);
        }
    };

    void quejese(const QString& queja) {
        quejas_ << queja;
        if (modo_ == Estricto)
            Guardia::falle(queja);
    }
    void conteste(QMessageBox& mensaje) {
        vistos_ << mensaje.text();
        if (cola_.isEmpty() || !cola_.first().es(mensaje)) {
            quejese(Guardia::nombre(mensaje));
            Guardia::cierre(mensaje);
            return;
        }
        const Esperado e = cola_.takeFirst();
        if (e.respuesta.isEmpty() || mensaje.buttons().isEmpty()) {
            QTest::keyClick(&mensaje, Qt::Key_Escape);
            return;
        }
        for (QAbstractButton* b : mensaje.buttons()) {
            if (b->text().remove(QLatin1Char('&')) == e.respuesta) {
                QTest::keyClick(b, Qt::Key_Space);
                return;
            }
        }
        quejese(QStringLiteral("«%1» no tiene el botón «%2»").arg(e.texto, e.respuesta));
        Guardia::cierre(mensaje);
    }
    void pase(QWidget& modal) {
        const bool esperado = !cola_.isEmpty() && cola_.first().atienda &&
                              (modal.objectName() == cola_.first().texto ||
                               modal.findChild<QWidget*>(cola_.first().texto) != nullptr);
        if (!esperado) {
            quejese(Guardia::nombre(modal));
            Guardia::cierre(modal);
            return;
        }
        const Esperado e = cola_.takeFirst();
        vistos_ << e.texto;
        e.atienda(&modal);
    }

    const Modo modo_;
    QList<Esperado> cola_;
    QStringList quejas_, vistos_;
};

/// Hace `accion`, que debe mostrar ese mensaje y ningún otro, y oprime el botón de ese rótulo.
inline void dice(const std::function<void()>& accion, const QString& texto,
                 const QString& respuesta = QStringLiteral("Aceptar"),
                 const std::source_location& donde = std::source_location::current()) {
    Interlocutor i(Interlocutor::EnSilencio);
    i.espere(texto, respuesta);
    accion();
    if (!i.conforme())
        QTest::qFail(qPrintable(i.queja()), donde.file_name(), int(donde.line()));
}
