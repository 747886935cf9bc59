#include "datos/firebird/reloj.h"

QDateTime Reloj::ahora() const {
    return detenido_.isValid() ? detenido_ : QDateTime::currentDateTime();
}

Reloj& reloj() {
    static Reloj del_proceso;
    return del_proceso;
}
