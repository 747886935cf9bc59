#include "libro/diferencia.h"

QString diferencia_en_palabras(Moneda debitos, Moneda creditos) {
    const Moneda diferencia = debitos - creditos;
    if (diferencia.es_cero())
        return QStringLiteral("Cuadrado");
    return (diferencia.negativa() ? QStringLiteral("Falta débito ")
                                  : QStringLiteral("Falta crédito ")) +
           diferencia.absoluta().formateada();
}
