#pragma once
// "Impresión masiva comprobantes": un rango de números de un tipo y prefijo, en un solo trabajo.
#include "vouchers/impresion_comprobante.h"

class EditorDato;
class ListaDato;
class QLineEdit;

class Tfimprmascomproba : public ImpresionComprobante {
    Q_OBJECT
public:
    Tfimprmascomproba();

    // --- conjuntos
    Proveedor PTipo{this, "PTipo", &fdm().TTipocomp};
    Proveedor PPrefijos{this, "PPrefijos", &fdm().QPrefijos, poAllowCommandText};
    Sentencia QImprmasiva{this, "QImprmasiva", fdm().Quorvex};
    Proveedor PImprmasiva{this, "PImprmasiva", &QImprmasiva, poAllowCommandText};
    ConjuntoDatos CProv{this, "CProv"}; ///< lo escogido: TIPO y PREF
    ConjuntoDatos CTipo{this, "CTipo", &PTipo};
    ConjuntoDatos CPrefijos{this, "CPrefijos", &PPrefijos};
    ConjuntoDatos CImprmasiva{this, "CImprmasiva", &PImprmasiva};

    // --- controles
    ListaDato *LTipo, *LPref;
    QLineEdit *Desde, *Hasta;

    void FormCreate() override;

    void CProvTIPOChange();
    void SpeedButton1Click() override;

private:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    /// Los comprobantes de esa consulta, en un solo trabajo.
    void imprima_todos(MotorInformes& motor, const QString& numeros);
};
