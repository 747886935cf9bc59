#pragma once
// Pinta las celdas de una rejilla: fila actual, celda actual, selección, negativos y casillas.
#include <QStyledItemDelegate>
#include <functional>
#include <map>

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

    /// Texto tenue tras el código de esa columna, donde quede ancho: el nombre de lo que nombra.
    void acompane(int columna, std::function<QString(int fila)> texto);
    bool acompanada(int columna) const { return acompanantes_.count(columna) > 0; }
    QString acompanante(const QModelIndex& indice) const;

    /// Un pedazo de una cifra se leería como otra: si no cabe, puntos; si ni ellos, nada.
    static QString cifra_entera(const QString& cifra, const QFontMetrics& medidas, int ancho);
    /// Blanco entre el texto y el borde de la celda, a cada lado.
    static int margen(const QFontMetrics& medidas);
    /// Cuadro de la casilla dentro de la celda.
    static QRect caja(const QRect& celda, const QWidget* vista);

private:
    void pinte_acompanante(QPainter& pintor, const QRect& hueco, const QModelIndex& indice,
                           const QColor& papel) const;
    int sangria(const QModelIndex& indice) const;
    QColor fondo(const QStyleOptionViewItem& opcion, const QModelIndex& indice) const;

    Rejilla& rejilla_;
    std::map<int, std::function<QString(int)>> acompanantes_;
};
