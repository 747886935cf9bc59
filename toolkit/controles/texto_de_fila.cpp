#include "toolkit/controles/texto_de_fila.h"

TextoDeFila::TextoDeFila(ConjuntoDatos& conjunto, const QString& campo, const QString& nombre,
                         const QString& dice, int renglones) {
    setObjectName(nombre);
    setAccessibleName(dice);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    lineas(renglones);
    ReadOnly(true);
    ate(&conjunto, campo);
}

void TextoDeFila::muestre() {
    MemoDato::muestre();
    setVisible(campo() && !conjunto()->IsEmpty());
}
