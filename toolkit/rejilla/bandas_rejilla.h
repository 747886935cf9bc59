#pragma once
// Bandas sobre los títulos de una rejilla: un nombre común para varias columnas seguidas. Va encima
// de la rejilla, sin espacio entre las dos, y la sigue cuando se desplaza o cambian los anchos.
#include <QVector>
#include <QWidget>

class Rejilla;

class BandasRejilla : public QWidget {
    Q_OBJECT
public:
    struct Banda {
        QString titulo;
        int desde, hasta; ///< columnas, las dos incluidas
    };
    BandasRejilla(Rejilla& rejilla, const QVector<Banda>& bandas, QWidget* padre = nullptr);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;

private:
    QRect lugar(const Banda& banda) const;
    QFont letra() const;
    bool cabe(const Banda& banda) const;

    Rejilla& rejilla_;
    const QVector<Banda> bandas_;
};
