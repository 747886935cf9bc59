#include "toolkit/controles/rehusado.h"

#include "toolkit/aviso_salida.h"
#include "toolkit/controles/controldato.h"
#include "toolkit/proteccion.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QVariant>

namespace {

constexpr const char *kRehusado = "rehusado", *kRazon = "rehusado_razon";

QString escrito(const QWidget& control) {
    if (const auto* caja = qobject_cast<const QLineEdit*>(&control))
        return caja->text();
    const auto* memo = qobject_cast<const QPlainTextEdit*>(&control);
    return memo ? memo->toPlainText() : QString();
}

void escoja(QWidget& control, int desde, int cuantas) {
    if (auto* caja = qobject_cast<QLineEdit*>(&control))
        return caja->setSelection(desde, cuantas);
    auto& memo = *qobject_cast<QPlainTextEdit*>(&control);
    QTextCursor cursor = memo.textCursor();
    cursor.setPosition(desde);
    cursor.setPosition(desde + cuantas, QTextCursor::KeepAnchor);
    memo.setTextCursor(cursor);
}

} // namespace

bool senale_lo_rehusado(QWidget& control) {
    if (!qobject_cast<QLineEdit*>(&control) && !qobject_cast<QPlainTextEdit*>(&control))
        return false;
    const QString texto = escrito(control);
    control.setProperty(kRehusado, texto);
    const QChar ajena = caracter_fuera_de_latin1(texto);
    if (ajena.isNull())
        escoja(control, 0, int(texto.size()));
    else
        escoja(control, int(texto.indexOf(ajena)), ajena.isHighSurrogate() ? 2 : 1);
    return true;
}

void recuerde_la_razon(QWidget& control) {
    control.setProperty(kRazon, texto_de_excepcion());
}

void olvide_la_razon(QWidget& control) {
    const QVariant razon = control.property(kRazon);
    if (!razon.isValid())
        return;
    control.setProperty(kRazon, {});
    aviso_resuelto(razon.toString());
}

bool reponga_lo_rehusado(QWidget* foco, bool solo_pregunta) {
    ControlDato* control = control_dato(foco);
    if (!control || !control->modificado())
        return false;
    QWidget& caja = *control->widget();
    const QVariant rehusado = caja.property(kRehusado);
    if (!rehusado.isValid() || rehusado.toString() != escrito(caja))
        return false;
    if (!solo_pregunta) {
        caja.setProperty(kRehusado, {});
        if (auto* memo = qobject_cast<QPlainTextEdit*>(&caja)) {
            // Lo demás que lleva escrito vale: Esc no se lo lleva.
            QTextCursor cursor = memo->textCursor();
            cursor.clearSelection();
            memo->setTextCursor(cursor);
            return true;
        }
        control->restaure();
        escoja(caja, 0, int(escrito(caja).size()));
    }
    return true;
}
