#include "toolkit/controles/teclas_numericas.h"

#include "datos/recordset/campo.h"
#include "libro/importes.h"

#include <QKeyEvent>

bool es_decimal_de_teclado(const QKeyEvent& evento) {
    const QString texto = evento.text();
    return evento.modifiers().testFlag(Qt::KeypadModifier) &&
           (texto == QLatin1String(",") || texto == QLatin1String("."));
}

void atienda_tecla_numerica(QKeyEvent& evento, const std::function<void(QKeyEvent*)>& siguiente) {
    if (es_decimal_de_teclado(evento)) {
        QKeyEvent punto(evento.type(), Qt::Key_Period, Qt::NoModifier, QStringLiteral("."));
        siguiente(&punto);
        evento.accept();
        return;
    }
    siguiente(&evento);
}

QString texto_de_edicion(const Valor& valor) {
    return valor.nulo() ? QString() : valor.texto();
}

Valor contenido_numerico(const QString& texto, const Campo& campo, const QString& rotulo) {
    const QString limpio = texto.trimmed();
    if (limpio.isEmpty())
        return {};
    if (campo.clase != ClaseCampo::Decimal)
        return limpio;
    const ImporteLeido leido =
        campo.Tasa || campo.Size > 2 ? lea_porcentaje(limpio) : lea_importe(limpio);
    const QString rechazo = rechazo_de_importe(leido, limpio, rotulo);
    if (!rechazo.isEmpty())
        throw ErrorDatos(rechazo);
    return leido.valor;
}
