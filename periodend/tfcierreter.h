#pragma once
// "Cierre de terceros": pasa a un solo tercero lo que los demás tienen en una cuenta.
#include "periodend/forma_con_cuenta.h"

class Tfcierreter : public FormaConCuenta {
    Q_OBJECT
public:
    Tfcierreter();

protected:
    void complete(Formulario& f) override;
    Libro libro() const override;
};
