#pragma once
// Aviso emergente en la esquina de una ventana: una lista de mensajes, uno a la vez.
#include <QColor>
#include <QFrame>
#include <QPointer>
#include <QVector>

class QLabel;
class QPushButton;

class VentanaAvisos : public QFrame {
    Q_OBJECT
public:
    explicit VentanaAvisos(QWidget* marco);

    void limpie();
    /// `texto` con etiquetas <b> y <br>; el color inválido deja el del aviso.
    void agregue(const QString& texto, const QColor& color);
    int cuantos() const { return int(avisos_.size()); }
    QString texto_actual() const;
    void muestre();
    /// Ctrl+Mayús+M: sin el ratón se llega al aviso, que al salir no le quita el foco a nadie.
    void tome_teclado();
    /// Oculta, devuelve el teclado a quien lo tenía y avisa con `cerrada`.
    void cierre();

signals:
    void oprimido();  ///< clic en el mensaje
    void respuesta(); ///< el usuario quiere contestarlo
    void cerrada();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool focusNextPrevChild(bool siguiente) override;

private:
    struct Aviso {
        QString texto;
        QColor color;
    };
    void presente();
    void ubique();
    void ubique_luego();
    /// Lo que la pantalla activa acomode puede quedar detrás.
    void siga_a_la_activa();
    /// Dónde están en el marco, sin los suyos.
    template <class Control> QVector<QRect> a_la_vista() const;
    QPushButton* boton(const QString& nombre, const QString& texto, const QString& imagen);

    QVector<Aviso> avisos_;
    int actual_ = 0;
    bool por_ubicar_ = false;
    QVector<QPointer<QObject>> seguidas_;
    QPointer<QWidget> antes_; ///< quien tenía el teclado
    QLabel *texto_, *cuenta_;
    QPushButton *anterior_, *siguiente_, *responder_;
};
