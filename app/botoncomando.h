#pragma once
// Botón del formulario principal: icono y texto a la izquierda, alineados con los de la columna.
#include <QPushButton>

class BotonComando : public QPushButton {
    Q_OBJECT
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent* evento) override;
};
