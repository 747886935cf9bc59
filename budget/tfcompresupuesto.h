#pragma once
// "Presupuesto vs Movimiento": lo presupuestado contra lo que pasó, del mes y acumulado, con la
// gráfica de la cuenta señalada.
#include "datos/recordset/conjunto.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/pantalla.h"

class Grafica;
class QLineEdit;
class QTimer;
class Rejilla;

class Tfcompresupuesto : public Pantalla {
    Q_OBJECT
public:
    Tfcompresupuesto();
    void FormCreate() override;
    bool FormClose() override;

    Sentencia QComparacion;
    Proveedor PComparacion;
    ConjuntoDatos CComparacion;
    Rejilla* DBGridEh1;
    Grafica* Barras;

private:
    void defina_campos();
    void construya();
    QWidget* construya_periodo();
    QString compone_query() const;
    void consulte();
    void mueva(int paso);
    void dibuje();
    void imprima();
    void exporte();
    /// "Excede" o "Falta" cuando lo acumulado va en contra de la compañía; si no, vacío.
    QString aviso(int fila) const;

    CursorPeriodo periodo_;
    QString consultadas_; ///< las cuentas a la vista: "1 - 8"
    QLineEdit *EDesde, *EHasta, *EMes, *EAno;
    QTimer* quieta_; ///< la gráfica espera a que el cursor se detenga
};
