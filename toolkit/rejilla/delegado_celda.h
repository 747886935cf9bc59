#pragma once
// Pinta las celdas de una rejilla: fila actual, celda actual, selección, negativos y casillas.
#include <QStyledItemDelegate>

class Rejilla;

class DelegadoCelda : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit DelegadoCelda(Rejilla& rejilla);

    void paint(QPainter* pintor, const QStyleOptionViewItem& opcion,
               const QModelIndex& indice) const override;
    QSize sizeHint(const QStyleOptionViewItem& opcion, const QModelIndex& indice) const override;
    /// El texto completo de una celda que no cabe.
    bool helpEvent(QHelpEvent* evento, QAbstractItemView* vista, const QStyleOptionViewItem& opcion,
                   const QModelIndex& indice) override;

    /// Blanco entre el texto y el borde de la celda, a cada lado.
    static int margen(const QFontMetrics& medidas);
    /// Cuadro de la casilla dentro de la celda.
    static QRect caja(const QRect& celda, const QWidget* vista);

private:
    int sangria(const QModelIndex& indice) const;
    QColor fondo(const QStyleOptionViewItem& opcion, const QModelIndex& indice) const;

    Rejilla& rejilla_;
};
