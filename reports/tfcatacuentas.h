#pragma once
// Catálogo de cuentas, de cualquiera de los dos planes.
#include "reports/forma_catalogo.h"

class Tfcatacuentas : public FormaCatalogo {
    Q_OBJECT
public:
    Tfcatacuentas();

protected:
    QString sql() override;
    void antes_de_abrir() override;
    QString reporte() override;
    void describa() override;

private:
    QVector<int> digitos_; ///< del código en cada nivel, del más corto al más largo
};
