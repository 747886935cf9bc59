#pragma once
// Botón del formulario principal: icono y texto a la izquierda, alineados con los de la columna.
#include <QPushButton>

class BotonComando : public QPushButton {
    Q_OBJECT
public:
    using QPushButton::QPushButton;
    /// Sin el texto, que sigue en el tooltip y en el nombre accesible, para ventanas estrechas.
    void solo_icono(bool si);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    bool solo_icono_ = false;
};
