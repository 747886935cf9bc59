#pragma once
// Caja de texto atada a un campo de texto, número o fecha corta.
#include "toolkit/controles/controldato.h"

#include <QLineEdit>

/// Los números se alinean a la derecha, aceptan "1,234.50" y el decimal del teclado numérico. Los
/// textos no pasan del tamaño del campo y respetan su EditMask.
class EditorDato : public QLineEdit, public ControlDato {
    Q_OBJECT
public:
    explicit EditorDato(QWidget* padre = nullptr);
    EditorDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre = nullptr);

    QWidget* widget() override { return this; }
    /// Ancho en caracteres; 0 lo toma del campo.
    void ancho(int caracteres);
    std::function<void()> OnDblClick;
    /// Tras cada tecla del usuario, con el texto aún sin guardar.
    std::function<void()> OnChange;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void muestre() override;
    Valor contenido() const override;
    void aplique_permiso() override;
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;

private:
    void aplique_mascara(const Campo& campo);
    bool numerico() const;

    int ancho_ = 0;
    QString mascara_;
};

/// Máscara "999;0; " de la definición de un campo llevada a la de Qt ("000; ").
QString mascara_de_entrada(const QString& mascara);
/// Traduce la tecla decimal del teclado numérico a punto; sin texto si la tecla no es esa.
QString decimal_de_teclado(const QKeyEvent& evento);
