#pragma once
// Menú pequeño de botones grandes (Tfmnucuentas y sus pares). Las flechas o la primera letra de una
// opción llevan a ella, Enter la abre y Esc cierra.
#include "toolkit/pantalla.h"

class QPushButton;
class QVBoxLayout;

class MenuBotones : public Pantalla {
    Q_OBJECT
public:
    MenuBotones(const QString& clase, const QString& titulo);
    QPushButton* opcion(const QString& nombre, const QString& texto, const QString& icono,
                        std::function<void()> accion);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    QVBoxLayout* columna_;
};
