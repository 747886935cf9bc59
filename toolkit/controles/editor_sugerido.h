#pragma once
// Cajas que ofrecen, mientras se teclea, los valores que pueden tomar.
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/lista_sugerencias.h"
#include "toolkit/pantalla.h"

#include <QKeyEvent>

/// Una caja de una clase que ya existe, con su lista.
template <class Caja> class ConSugerencias : public Caja, public ReclamaTeclas {
public:
    ~ConSugerencias() override { delete lista_; }

    /// Qué ofrecer para lo tecleado.
    std::function<QVector<Sugerencia>(const QString& tecleado)> Sugiere;

    ListaSugerencias& lista() const { return *lista_; }
    bool reclama(const QKeyEvent& evento) override {
        return evento.key() == Qt::Key_Escape && lista_->a_la_vista();
    }

protected:
    template <class... Args>
    requires(sizeof...(Args) != 1) // con uno sería la de copiar
        explicit ConSugerencias(Args&&... args)
        : Caja(std::forward<Args>(args)...), lista_(new ListaSugerencias(this)) {
        QObject::connect(this, &QLineEdit::textEdited, this, [this] { ofrezca(); });
        lista_->OnEscoger = [this](const Sugerencia& s) {
            // Reemplaza el texto como si se hubiera tecleado.
            this->selectAll();
            this->insert(s.codigo);
            lista_->hide();
            tomada(s);
        };
    }
    /// Ya está su código en la caja.
    virtual void tomada(const Sugerencia&) {}
    void ofrezca() {
        if (Sugiere && !this->isReadOnly())
            proteja([this] { lista_->ofrezca(Sugiere(this->text())); });
    }
    bool event(QEvent* evento) override {
        if (evento->type() == QEvent::KeyPress &&
            lista_->atienda(static_cast<const QKeyEvent&>(*evento))) {
            evento->accept();
            return true;
        }
        return Caja::event(evento);
    }

private:
    QPointer<ListaSugerencias> lista_; ///< al mostrarse pasa a ser hija de la ventana
};

/// La atada a un campo.
class EditorSugerido : public ConSugerencias<EditorDato> {
    Q_OBJECT
public:
    EditorSugerido(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre = nullptr);

    /// Tras tomar una, con su código ya en la caja.
    std::function<void(const Sugerencia&)> OnEscoger;
    bool al_entrar = false; ///< ofrece al recibir el foco, sin esperar a que se teclee

protected:
    void tomada(const Sugerencia& s) override;
    void focusInEvent(QFocusEvent* evento) override;
};

/// La que no está atada a nada.
class CajaSugerida : public ConSugerencias<QLineEdit> {};
