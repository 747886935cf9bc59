#pragma once
// Pie de una rejilla: las sumas, alineadas bajo sus columnas.
#include <QWidget>

class Rejilla;

class PieRejilla : public QWidget {
    Q_OBJECT
public:
    explicit PieRejilla(Rejilla& rejilla);

    QSize sizeHint() const override;
    /// La suma de una columna como se lee; vacía en las que no suman.
    QString texto(int columna) const;

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    bool caben_todas(const QFontMetrics& medidas) const;

    Rejilla& rejilla_;
};
