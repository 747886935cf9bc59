#include "vouchers/letrero_diferencia.h"

#include "libro/diferencia.h"
#include "toolkit/estilo.h"
#include "vouchers/lineas_cuenta.h"

LetreroDiferencia::LetreroDiferencia(LineasCuenta& lineas) : lineas_(lineas) {
    setAccessibleName(QStringLiteral("Diferencia"));
    QFont letra = fuente_cifras(font());
    letra.setBold(true);
    setFont(letra);
    setMinimumWidth(ancho_caracteres(fontMetrics(), 30));
    enlace(&lineas.detalle);
}

void LetreroDiferencia::marque() {
    if (std::exchange(pendiente_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (pendiente_)
                diga();
        },
        Qt::QueuedConnection);
}

void LetreroDiferencia::estado_cambiado() {
    if (lineas_.detalle.State() == Estado::Edicion)
        lineas_.anote_guardados();
    marque();
}

QString LetreroDiferencia::dice() {
    if (pendiente_)
        diga();
    return text();
}

void LetreroDiferencia::diga() {
    pendiente_ = false;
    if (!lineas_.detalle.Active() || lineas_.sin_lineas()) {
        clear();
        return;
    }
    const Lados lados = lineas_.sumas_al_digitar();
    const QString texto = diferencia_en_palabras(lados.debito, lados.credito);
    if (texto == text())
        return;
    setText(texto);
    // También se distingue sin color: las palabras dicen el lado.
    QPalette p;
    if (lados.debito != lados.credito)
        p.setColor(QPalette::WindowText, color_negativo());
    setPalette(p);
}
