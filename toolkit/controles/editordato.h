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
    void ajuste_ancho();
    bool numerico() const;
    int caracteres() const;

    int ancho_ = 0;
    int firma_ = -1; ///< ancho con que se fijó la política de tamaño
    QString mascara_;
    class QValidator* validador_ = nullptr;
};

/// Máscara "000;0; " de la definición de un campo llevada a la de Qt ("999; ").
QString mascara_de_entrada(const QString& mascara);
/// Una máscara solo de cifras opcionales ("999;0; ") es un tope de cifras, no casillas: su
/// expresión regular, o vacío si la máscara es otra.
QString patron_opcional(const QString& mascara);
