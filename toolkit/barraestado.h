#pragma once
// Barra de estado con avisos: su color es también su estado.
#include <QLabel>
#include <functional>

class QTimer;

class AvisosBarra : public QLabel {
    Q_OBJECT
public:
    enum Color { Celeste, Boton, Azul, Rojo, Amarillo };
    explicit AvisosBarra(QWidget* padre = nullptr);

    /// `decimas`: duración en décimas de segundo; 0 deja el aviso sin término.
    void mostrar_advertencia(const QString& texto, int decimas);
    /// Solo si la barra está celeste; el pitido suena siempre.
    void mostrar_alerta(const QString& texto, int decimas);
    /// Lo que salió bien: sin pitido ni color, y sin tapar un aviso que se esté mostrando.
    void mostrar_noticia(const QString& texto, int decimas);
    /// Aviso de que se piden filas al servidor; solo si la barra descansa en color de botón.
    void mostrar_mensaje();
    void quitar_mensaje();
    void Timer2Timer();
    /// Cambia el texto y no el color.
    void texto(const QString& texto);
    Color color() const { return color_; }

    std::function<void()> pitido; ///< por defecto, el del sistema
    QTimer* Timer2;

private:
    void pinte(Color color, const QString& texto);
    void avise(const QString& texto, Color color, int decimas);
    Color color_ = Celeste;
};
