#pragma once
// Libros oficiales: mayor y balances ("M"), inventario y balances ("I") y diario ("D").
//
// En papel ya impreso (IMPRIMIR ENCABEZADO EN IMPRESION DE LIBROS OFICIALES en "NO") la hoja sale
// sin encabezado, con su lugar en blanco.
#include "reports/forma_estado.h"

class Tfrngoficiales : public FormaEstado {
    Q_OBJECT
public:
    Tfrngoficiales();

    QCheckBox* Ckfechas = nullptr; ///< "Discriminar fechas", del diario

    void FormCreate() override;

protected:
    QString sql() override;
    QString titulo() override { return del_periodo(); }
    QString rango_legible() override;
    QString reporte() override;
    QString titulo_niif() override;
    void fije_encabezado(MotorInformes& motor) override;

private:
    void arme();
    void defina_mayor();
    void defina_inventario();
    void defina_diario();
    QString mayor() const;
    QString inventario() const;
    QString diario() const;
    bool por_cuenta() const;
};
