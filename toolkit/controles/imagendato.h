#pragma once
// Imagen guardada en un campo binario.
#include "toolkit/controles/controldato.h"

#include <QLabel>

class ImagenDato : public QLabel, public ControlDato {
    Q_OBJECT
public:
    explicit ImagenDato(QWidget* padre = nullptr);
    ImagenDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre = nullptr);

    QWidget* widget() override { return this; }
    /// Pone el archivo en el campo. Lanza ErrorDatos si no es una imagen que se pueda leer.
    void cargue_archivo(const QString& ruta);
    void limpie();
    /// Clic, Espacio o Enter: quien lo pone hace del control un botón que recibe el foco.
    void al_pulsar(std::function<void()> accion);

protected:
    void muestre() override;
    Valor contenido() const override;
    void aplique_permiso() override {}
    void resizeEvent(QResizeEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void cambie(const QByteArray& octetos);
    void acomode();
    QByteArray octetos_;
    QPixmap original_;
    std::function<void()> accion_;
};
