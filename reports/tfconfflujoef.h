#pragma once
// Cuentas del flujo de efectivo, las de un libro.
#include "reports/configuracion_estado.h"

class Tfconfflujoef : public ConfiguracionEstado {
    Q_OBJECT
public:
    Tfconfflujoef();
    void FormCreate() override;

protected:
    Libro libro() const override;
    void fila_nueva() override;

private:
    QString niif() const; ///< "S" o "N"
};
