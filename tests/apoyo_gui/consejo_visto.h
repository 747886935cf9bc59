#pragma once
// El consejo que sale al dejar quieto el puntero.
#include <QApplication>
#include <QHelpEvent>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <QWidget>

/// Lo que dice ahí, en un renglón; vacío si nada.
inline QString consejo_en(QWidget* w, const QPoint& punto) {
    for (QWidget* otro : QApplication::topLevelWidgets())
        if (otro->inherits("QTipLabel"))
            delete otro; // el anterior se demora en irse
    QHelpEvent evento(QEvent::ToolTip, punto, w->mapToGlobal(punto));
    QApplication::sendEvent(w, &evento);
    return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().simplified();
}
inline QString consejo_en(QWidget* w) {
    return consejo_en(w, w->rect().center());
}
