#pragma once
// Barra de botones de una pantalla: siempre en el mismo lugar, con su tecla en el texto.
#include <QIcon>
#include <QKeySequence>
#include <QPushButton>
#include <QWidget>
#include <functional>

class Pantalla;
class DisposicionFlujo;

class BarraBotones : public QWidget {
    Q_OBJECT
public:
    /// Las teclas de los botones entran en la tabla de `pantalla`.
    explicit BarraBotones(Pantalla* pantalla);

    /// `nombre` es el del componente y queda como objectName. La tecla es la que de verdad
    /// funciona: el texto puede anunciar otra. `icono` es un nombre del tema ("document-save").
    QPushButton* boton(const QString& nombre, const QString& texto, const QString& icono,
                       const QKeySequence& tecla, std::function<void()> accion);
    /// El botón que se ve como el principal.
    void principal(QPushButton* boton);
    /// Espacio que empuja a la derecha lo que sigue.
    void separe();
    /// Otro control dentro de la barra.
    void agregue(QWidget* control);

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    /// En un área estrecha los dibujos ceden su sitio si así los botones caben en un renglón.
    void ceda_dibujos();

    Pantalla* pantalla_;
    DisposicionFlujo* fila_;
};
