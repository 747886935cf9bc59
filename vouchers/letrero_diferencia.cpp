#include "vouchers/letrero_diferencia.h"

#include "libro/diferencia.h"
#include "toolkit/controles/editornumero.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"
#include "vouchers/lineas_cuenta.h"

namespace {
constexpr int kLetrasSuma = 15; ///< las de una suma de cientos de millones
} // namespace

void ajuste_suma(EditorNumero& suma) {
    const QFontMetrics medidas = suma.fontMetrics();
    suma.setFixedWidth(qMax(ancho_caracteres(medidas, kLetrasSuma),
                            medidas.horizontalAdvance(suma.text()) + paso(1.5)));
}

LetreroDiferencia::LetreroDiferencia(LineasCuenta& lineas) : lineas_(lineas) {
    setAccessibleName(QStringLiteral("Diferencia"));
    QFont letra = fuente_cifras(font());
    letra.setBold(true);
    setFont(letra);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred); // lo que diga no mueve los demás
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
    if (lineas_.detalle.editando())
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
    const bool digitando = lineas_.detalle.State() == Estado::Insercion;
    if (!lineas_.detalle.Active() || (lineas_.sin_lineas() && !digitando)) {
        clear();
        lineas_.vacie_pie();
        lineas_.Sumadeb->vacie();
        lineas_.SumCred->vacie();
        return;
    }
    if (al_reposar)
        proteja(al_reposar);
    const Lados lados = lineas_.sumas_al_digitar();
    const bool nada = lineas_.sin_lineas() && lados.debito.es_cero() && lados.credito.es_cero();
    if (!nada) {
        lineas_.Sumadeb->valor(lados.debito);
        lineas_.SumCred->valor(lados.credito);
        for (EditorNumero* suma : {lineas_.Sumadeb, lineas_.SumCred})
            if (suma->maximumWidth() < QWIDGETSIZE_MAX) // está en una fila que se acomoda
                ajuste_suma(*suma);
    }
    const QString texto = nada ? QString() : diferencia_en_palabras(lados.debito, lados.credito);
    if (texto == text())
        return;
    setText(texto);
    // Lo que dice es lo último de su renglón: pide lo suyo y no mueve a los demás.
    setMinimumWidth(fontMetrics().horizontalAdvance(texto) + paso(0.5));
    // También se distingue sin color: las palabras dicen el lado.
    QPalette p;
    if (lados.debito != lados.credito)
        p.setColor(QPalette::WindowText, color_negativo());
    setPalette(p);
}
