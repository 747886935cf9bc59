#pragma once
// Celdas de una tabla de cifras que, cortadas, dicen su texto entero.
#include "toolkit/consejo.h"

#include <QAbstractItemView>
#include <QStyledItemDelegate>

class DelegadoConConsejo : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    bool helpEvent(QHelpEvent* evento, QAbstractItemView* vista, const QStyleOptionViewItem& opcion,
                   const QModelIndex& indice) override {
        if (evento->type() != QEvent::ToolTip || !indice.isValid())
            return QStyledItemDelegate::helpEvent(evento, vista, opcion, indice);
        const QString texto = indice.data().toString();
        const QFont letra = qvariant_cast<QFont>(indice.data(Qt::FontRole)).resolve(vista->font());
        const int ancho = QFontMetrics(letra).horizontalAdvance(texto) + 2 * margen(*vista);
        const bool cabe = ancho <= a_la_vista(opcion.rect, indice.column()).width();
        muestre_consejo(evento, cabe ? QString() : texto.trimmed(), vista);
        return true;
    }
    /// Blanco con que Qt pinta el texto de una celda, a cada lado.
    static int margen(const QWidget& vista) {
        return vista.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &vista) + 1;
    }

protected:
    /// Lo que se ve de esa celda.
    virtual QRect a_la_vista(const QRect& celda, int) const { return celda; }
};
