#pragma once
// Panel que una línea abre sobre su rejilla cuando la cuenta pide más datos.
//
// Esc lo cierra y deshace lo que se le digitó, sin cerrar la pantalla. Salir de él lo oculta; una
// lista desplegada o un diálogo no es salir.
#include "toolkit/pantalla.h"

#include <QGroupBox>
#include <functional>

class PanelFlotante : public QGroupBox, public ReclamaTeclas {
    Q_OBJECT
public:
    /// Flota sobre `base`, dentro de `pantalla`, a un tercio de su alto: la línea en edición queda
    /// a la vista.
    PanelFlotante(const QString& nombre, const QString& titulo, QWidget* pantalla);
    void flote_sobre(QWidget* base) { base_ = base; }

    void muestre(QWidget* foco);
    void oculte();
    /// "Continuar": lo oculta si no falta nada; si falta, lo dice y sigue en él.
    void deje();
    /// De vuelta a su sitio cuando la pantalla cambia de tamaño.
    void ubique();

    bool reclama(const QKeyEvent& evento) override;
    bool termine() override { return !diga_lo_que_falta(); }

    struct Falta {
        QWidget* caja = nullptr; ///< nula si se puede dejar
        QString texto;
    };
    std::function<Falta()> falta;   ///< antes de dejarlo; Esc no lo pregunta
    std::function<void()> OnEnter;  ///< el foco entró al panel
    std::function<void()> recuerde; ///< va a mostrarse, sin lo que propone al entrar
    std::function<void()> deshaga;  ///< se cerró con Esc
    std::function<QWidget*(bool tenia_foco)> vuelve; ///< a quién pasa el foco al ocultarse; o nulo

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void foco_cambiado(const QWidget* antes, const QWidget* ahora);
    bool diga_lo_que_falta();
    void reclame(const QString& texto);
    QWidget* pantalla_;
    QWidget* base_ = nullptr;
};
