#pragma once
// "Procedimientos de usuario": los procedimientos que la compañía agregó a su base, con sus
// parámetros, y lo que devuelven en una rejilla que se puede grabar.
#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class Formulario;
class QComboBox;
class QLabel;
class QLineEdit;
class Rejilla;

class Tfprocusr : public Pantalla {
    Q_OBJECT
public:
    Tfprocusr();

    static constexpr int kParametros = 5;

    Sentencia TProcesos{this, "TProcesos", fdm().Quorvex,
                        "SELECT * FROM PROCEDIMIENTOS_USUARIO ORDER BY PRUS_COD"};
    Sentencia QResultado{this, "QResultado", fdm().Quorvex};
    Proveedor PProcesos{this, "PProcesos", &TProcesos};
    Proveedor PResultado{this, "PResultado", &QResultado, poAllowCommandText};
    ConjuntoDatos CProcesos{this, "CProcesos", &PProcesos};
    ConjuntoDatos CResultado{this, "CResultado", &PResultado};

    QComboBox* LProceso;
    QLabel* rotulos[kParametros];
    QLineEdit* cajas[kParametros];
    QLabel *LNota, *Aviso;
    Rejilla* DBGridEh1;

    void FormCreate() override;
    bool FormClose() override;

private:
    void construya();
    void LProcesoChange();
    void SpeedButton5Click();
    void presente_resultado(bool entero);
    QString dato(const char* campo) const;
    bool sin_rango() const { return dato("PRUS_SP") == "CALCULE_DV"; }
    /// El texto de la consulta; vacío después de decir qué falta.
    QString sql();
};
