#pragma once
// Menú pequeño de botones grandes (Tfmnucuentas y sus pares). Esc lo cierra.
#include "toolkit/pantalla.h"

class QPushButton;
class QVBoxLayout;

class MenuBotones : public Pantalla {
    Q_OBJECT
public:
    MenuBotones(const QString& clase, const QString& titulo);
    QPushButton* opcion(const QString& nombre, const QString& texto, const QString& icono,
                        std::function<void()> accion);
    /// La que abre esa pantalla; si esta versión no la trae, se ve apagada.
    QPushButton* opcion(const QString& nombre, const QString& texto, const QString& icono,
                        const QString& pantalla, std::function<void()> accion);

private:
    QVBoxLayout* columna_;
};
