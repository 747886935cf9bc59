#pragma once
// Detalle privado de las pantallas: las ventanas que las contienen.
//
// Toda pantalla va dentro de un marco con barras de desplazamiento: con letra grande o en un
// monitor pequeño sigue alcanzándose completa con el teclado.
#include "toolkit/pantalla.h"

#include <QDialog>
#include <QScrollArea>

class MarcoPantalla : public QScrollArea {
public:
    explicit MarcoPantalla(Pantalla* pantalla);
    Pantalla* pantalla() const { return pantalla_; }
    /// Devuelve la pantalla a quien la creó.
    void suelte();
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* evento) override;
    /// Tab recorre la pantalla como se lee y da la vuelta sin salir de ella.
    bool focusNextPrevChild(bool siguiente) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    /// Los botones se quedan en el borde de abajo aunque la pantalla sea más alta que su ventana.
    void fije_botones();
    /// Corre la ventanilla hasta que se vea, y no detrás de los botones.
    void muestre(QWidget* control);

    QPointer<Pantalla> pantalla_;
    QPointer<QWidget> botones_;
    QPointer<QWidget> telon_; ///< detrás de los botones, cuando tapan lo que se desplaza
    bool fijando_ = false;
};

class DialogoPantalla : public QDialog {
public:
    DialogoPantalla(Pantalla* pantalla, QWidget* padre);
    MarcoPantalla* marco() const { return marco_; }

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    QPointer<Pantalla> pantalla_;
    MarcoPantalla* marco_;
};
