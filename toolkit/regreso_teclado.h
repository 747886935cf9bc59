#pragma once
// Cuando se cierra una ventana de la aplicación que tenía el teclado, el gestor puede dejarlo sin
// dueño (con la máquina ocupada, la que aparece y se va enseguida). Vuelve a la que queda.
#include <QPointer>
#include <QTimer>
#include <QWidget>

/// Uno por aplicación. Solo pide el teclado mientras la aplicación es la activa, o si dejó de serlo
/// justo al cerrar una ventana suya: nunca se lo quita a otro programa.
class RegresoTeclado : public QObject {
    Q_OBJECT
public:
    /// `principal`: la que queda cuando no hay otra a la vista.
    explicit RegresoTeclado(QWidget* principal);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void se_cerro(QWidget* ventana);
    void devuelva();

    QWidget* principal_;
    QPointer<QWidget> madre_; ///< la que abrió a la que se cerró
    QTimer reciente_;         ///< corre mientras lo que se pierda es por la que se cerró
};
