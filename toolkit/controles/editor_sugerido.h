#pragma once
// Caja atada a un campo que ofrece, mientras se teclea, los valores que puede tomar.
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/lista_sugerencias.h"
#include "toolkit/pantalla.h"

class EditorSugerido : public EditorDato, public ReclamaTeclas {
    Q_OBJECT
public:
    EditorSugerido(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre = nullptr);
    ~EditorSugerido() override;

    /// Qué ofrecer para lo tecleado.
    std::function<QVector<Sugerencia>(const QString& tecleado)> Sugiere;
    /// Tras tomar una, con su código ya en la caja.
    std::function<void(const Sugerencia&)> OnEscoger;
    bool al_entrar = false; ///< ofrece al recibir el foco, sin esperar a que se teclee

    ListaSugerencias& lista() const { return *lista_; }
    bool reclama(const QKeyEvent& evento) override;

protected:
    bool event(QEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;

private:
    void ofrezca();
    QPointer<ListaSugerencias> lista_; ///< al mostrarse pasa a ser hija de la ventana
};
