#pragma once
// Piezas pequeñas con que se arman las pantallas de comprobantes.
#include "datos/firebird/concuerde.h"
#include "toolkit/dialogos.h"
#include "toolkit/nombrado.h"

#include <QLabel>
#include <QLineEdit>

inline QString cuantas_lineas(qsizetype lineas) {
    return lineas == 0 ? QStringLiteral("sin líneas") : concuerde(lineas, "%1 línea", "%1 líneas");
}

/// La pregunta de quien deja un comprobante, o los saldos iniciales, con algo sin grabar.
inline bool salida_confirmada() {
    return pregunte_con_no(
        "Desea salir del comprobante y perder los movimientos que no ha grabado?");
}

constexpr int kLetrasNombre = 80; ///< ninguno pide más, aunque la ventana sea ancha

/// Caja que solo muestra; a ella no se llega con Tab. La de un nombre toma el ancho que haya.
inline QLineEdit* caja_de_lectura(const QString& nombre, int caracteres) {
    auto* e = new QLineEdit;
    e->setObjectName(nombre);
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    constexpr int kCodigo = 20;
    const int letra = e->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    if (caracteres > kCodigo) {
        e->setMinimumWidth(letra * kCodigo);
        e->setMaximumWidth(letra * kLetrasNombre);
    } else {
        e->setFixedWidth(letra * (caracteres + 2));
    }
    return e;
}

/// Rótulo de un control que va en medio de otro renglón.
inline QLabel* rotulo(const QString& texto, QWidget* control) {
    auto* l = new QLabel(texto + ':');
    l->setBuddy(control);
    control->setAccessibleName(texto);
    return l;
}
