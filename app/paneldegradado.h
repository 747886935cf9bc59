#pragma once
// Panel con el degradado de dos colores de la compañía. Lo que hay que leer va en una tarjeta lisa.
#include <QColor>
#include <QWidget>

class PanelDegradado : public QWidget {
    Q_OBJECT
public:
    explicit PanelDegradado(const QString& nombre, QWidget* padre = nullptr);
    void colores(const QColor& inicial, const QColor& final);
    QColor color_inicial() const { return inicial_; }
    QColor color_final() const { return final_; }
    /// Número de color azul-verde-rojo, como se guarda en la configuración.
    static QColor color(int numero);

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    QColor inicial_, final_;
};
