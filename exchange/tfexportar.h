#pragma once
// "Exportación de movimientos": los comprobantes de un rango de fechas a archivos de otros
// programas.
#include "datos/recordset/conjunto.h"
#include "exchange/exportacion_movimientos.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

class Tfexportar : public Pantalla {
    Q_OBJECT
public:
    Tfexportar();

    Proveedor PTipo{this, "PTipo", &fdm().TTipocomp};
    ConjuntoDatos CTipo{this, "CTipo", &PTipo};

    QLineEdit *FecIni, *FecFin, *Archivo, *Pref;
    QComboBox *LTipo, *LSepara, *LDestino;
    QCheckBox* ckfcontado;

    void FormCreate() override;
    bool FormClose() override;

private:
    void construya();
    void ExaminarClick();
    void SpeedButton1Click();
    /// Lo pedido, o nada después de decir qué falta.
    std::optional<PeticionExportacion> pedido();
};
