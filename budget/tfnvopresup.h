#pragma once
// "Nuevo presupuesto": el de un mes, digitado, pegado o copiado de otro con un crecimiento.
#include "datos/recordset/pregunta_en_campo.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/pantalla.h"

class EditorNumero;
class QComboBox;
class QLineEdit;
class QSpinBox;
class Rejilla;

class Tfnvopresup : public Pantalla {
    Q_OBJECT
public:
    Tfnvopresup();
    void FormCreate() override;
    bool FormClose() override;

    Sentencia QPresupuesto;
    Proveedor PPresupuesto, PBorrar;
    ConjuntoDatos CPresupuesto, CBorrar;
    Rejilla* DBGridEh1;

private:
    void defina_campos();
    void construya();
    void CUEN_CODChange(Campo& cuenta);
    void rehuse(Campo& cuenta);
    void muestre_nombre();
    void busque_cuenta(const QString& texto);
    void SpeedButton2Click();
    void reemplace_con(const QMap<QString, std::array<Moneda, 2>>& copiadas);
    void SBGrabarClick();

    CursorPeriodo periodo_;
    PreguntaEnCampo pregunta_;
    QComboBox* LMes;
    QSpinBox* EAnoOrigen;
    EditorNumero* ECrecimiento;
    QLineEdit* NomCuenta;
};
