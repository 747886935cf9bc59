#include "toolkit/controles/pegado_en_linea.h"

#include "datos/firebird/letras.h"
#include "toolkit/aviso_salida.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

namespace {

class CuidaPegado : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        // Al destruirse todavía llegan eventos, y ya no es una caja.
        auto* quien = qobject_cast<QLineEdit*>(objeto);
        if (!quien)
            return false;
        QLineEdit& caja = *quien;
        if (caja.isReadOnly() || caja.echoMode() != QLineEdit::Normal)
            return false; // los blancos de una clave son suyos
        switch (evento->type()) {
        case QEvent::KeyPress:
            if (!static_cast<QKeyEvent*>(evento)->matches(QKeySequence::Paste))
                return false;
            pegue_en_linea(caja);
            return true;
        case QEvent::MouseButtonRelease:
            if (static_cast<QMouseEvent*>(evento)->button() != Qt::MiddleButton ||
                !QApplication::clipboard()->supportsSelection())
                return false;
            caja.deselect();
            pegue_en_linea(caja, QClipboard::Selection);
            return true;
        case QEvent::ContextMenu:
            return caja.contextMenuPolicy() == Qt::DefaultContextMenu &&
                   abra_menu(caja, static_cast<QContextMenuEvent*>(evento)->globalPos());
        default:
            return false;
        }
    }

private:
    static bool abra_menu(QLineEdit& caja, QPoint donde) {
        QMenu* menu = caja.createStandardContextMenu();
        for (QAction* accion : menu->actions())
            if (accion->text().startsWith(QLineEdit::tr("&Paste"))) { // Qt no le da otro nombre
                accion->disconnect(SIGNAL(triggered(bool)));
                connect(accion, &QAction::triggered, &caja, [&caja] { pegue_en_linea(caja); });
            }
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(donde);
        return true;
    }
};

} // namespace

void pegue_en_linea(QLineEdit& caja, QClipboard::Mode de) {
    const QString antes = caja.text(), escogido = caja.selectedText();
    const qsizetype quedan = antes.size() - escogido.size();
    QString texto = en_un_renglon(QApplication::clipboard()->text(de));
    if (quedan == 0 || caja.validator())
        texto = texto.trimmed();
    const qsizetype caben = caja.maxLength() - quedan;
    caja.insert(texto);
    if (caja.text() == antes && texto != escogido && caben > 0)
        avise(QStringLiteral("Lo pegado no entra aquí: '%1'.").arg(texto.left(20)));
    else if (texto.size() > caben && caja.inputMask().isEmpty())
        avise(QStringLiteral("Se tomaron %1 de %2 letras de lo pegado: no caben más.")
                  .arg(caben)
                  .arg(texto.size()));
}

void cuide_lo_pegado(QLineEdit& caja) {
    static CuidaPegado cuida;
    caja.installEventFilter(&cuida);
}
