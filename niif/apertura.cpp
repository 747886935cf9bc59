#include "niif/apertura.h"

QVector<LineaApertura> lineas_de_traslado(const SaldoPorTraer& s) {
    const Moneda valor = s.saldo.absoluta();
    LineaApertura sale{s.cuenta, {}, s.saldo, {}, {}, {}},
        entra{{}, s.equivalente, {}, {}, {}, s.saldo};
    if (s.saldo > Moneda()) {
        sale.reclasificacion_credito = valor;
        entra.reclasificacion_debito = valor;
    } else {
        sale.reclasificacion_debito = valor;
        entra.reclasificacion_credito = valor;
    }
    return {sale, entra};
}

Moneda saldo_de_linea(Moneda inicial, Moneda debito, Moneda credito, Moneda reclasificacion_debito,
                      Moneda reclasificacion_credito) {
    return inicial + debito - credito + reclasificacion_debito - reclasificacion_credito;
}
