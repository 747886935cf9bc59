#pragma once
// Lo que en la rejilla no cabe, entero bajo ella: el texto de la fila señalada, para leerlo también
// con el teclado. Sin filas no ocupa sitio.
#include "toolkit/controles/memodato.h"

class TextoDeFila : public MemoDato {
    Q_OBJECT
public:
    /// `dice`: nombre accesible, el del título de su columna.
    TextoDeFila(ConjuntoDatos& conjunto, const QString& campo, const QString& nombre,
                const QString& dice, int renglones);

protected:
    void muestre() override;
};
