#pragma once
// Panel que una línea abre sobre su rejilla cuando la cuenta pide más datos.
//
// Salir de él lo oculta; una lista desplegada o un diálogo no es salir.
#include <QGroupBox>
#include <functional>

class PanelFlotante : public QGroupBox {
    Q_OBJECT
public:
    /// Flota sobre `base`, dentro de `pantalla`, a un tercio de su alto: la línea en edición queda
    /// a la vista.
    PanelFlotante(const QString& nombre, const QString& titulo, QWidget* pantalla);
    void flote_sobre(QWidget* base) { base_ = base; }

    void muestre(QWidget* foco);
    void oculte();
    /// De vuelta a su sitio cuando la pantalla cambia de tamaño.
    void ubique();

    std::function<void()> OnEnter;                   ///< el foco entró al panel
    std::function<QWidget*(bool tenia_foco)> vuelve; ///< a quién pasa el foco al ocultarse; o nulo

private:
    void foco_cambiado(const QWidget* antes, const QWidget* ahora);
    QWidget* pantalla_;
    QWidget* base_ = nullptr;
};
