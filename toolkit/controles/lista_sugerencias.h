#pragma once
// Lista que acompaña a una caja mientras se teclea: ofrece sin quitar el foco y no escoge sola.
//
// Abajo y Arriba la recorren; Enter o Tab toman lo señalado, si algo lo está; Esc la quita y deja
// lo tecleado como estaba.
#include "toolkit/indice_codigos.h"

#include <QTreeWidget>
#include <functional>

class QKeyEvent;
class QLineEdit;

class ListaSugerencias : public QTreeWidget {
    Q_OBJECT
public:
    explicit ListaSugerencias(QLineEdit* caja);

    /// Muestra esas bajo la caja, sin ninguna señalada; vacías, se quita.
    void ofrezca(const QVector<Sugerencia>& sugerencias);
    bool a_la_vista() const { return isVisible(); }
    /// Hay una señalada: Enter la tomará.
    bool senalada() const { return a_la_vista() && currentItem(); }
    /// Verdadero si la tecla era de la lista y ya quedó atendida. Enter y Tab toman lo señalado y
    /// siguen su camino.
    bool atienda(const QKeyEvent& tecla);

    /// El usuario tomó una.
    std::function<void(const Sugerencia&)> OnEscoger;

private:
    void mueva(int paso);
    void tome();
    void ubique();
    bool eventFilter(QObject* objeto, QEvent* evento) override;

    QLineEdit* caja_;
    QVector<Sugerencia> ofrecidas_;
};
