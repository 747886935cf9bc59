#pragma once
// Franja a la izquierda de una rejilla: señala la fila actual, la que se edita y las marcadas.
#include <QHeaderView>

class Rejilla;

class IndicadorFilas : public QHeaderView {
    Q_OBJECT
public:
    explicit IndicadorFilas(Rejilla& rejilla);
    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* pintor, const QRect& seccion, int fila) const override;
    void mousePressEvent(QMouseEvent* evento) override;

private:
    Rejilla& rejilla_;
};
