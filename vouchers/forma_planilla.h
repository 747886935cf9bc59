#pragma once
// "Digitación rápida": definición de una planilla, nueva (Tfnvaplanillad) o guardada
// (Tfmodplanillad).
#include "datos/recordset/conjunto.h"
#include "datos/recordset/pregunta_en_campo.h"
#include "libro/lineas.h"
#include "toolkit/pantalla.h"

class CasillaDato;
class EditorDato;
class Formulario;
class ListaDato;
class QLineEdit;
class Rejilla;

class FormaPlanilla : public Pantalla {
    Q_OBJECT
public:
    enum Modo { Nueva, Modificar };
    explicit FormaPlanilla(Modo modo);

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    Sentencia TPlanillad, TPlanilladctas;
    Proveedor PPlanilla, PTipodoc, PPrefijos, PBorrar;
    ConjuntoDatos CPlanilla, CCuentas, CTipodoc, CPrefijos, CBorrar;
    Rejilla* DBGridEh1;

private:
    enum Columna { kCuenta, kTitulo };

    void defina_campos();
    void construya();
    void recupere_provisional();
    void nueva_planilla();
    void muestre_fijos();
    void TIPOCOMPChange(Campo& tipo);
    void PLDC_CUENTAChange(Campo& cuenta);
    void NITChange(Campo& nit);
    void CENTROChange();
    void nueva_cuenta();
    void CuentasBeforePost();
    void CuentasAfterScroll();
    void busque_cuenta(const QString& texto);
    void busque_tercero(const QString& texto);
    void busque_centro();
    void reciba_cuenta(const QString& cuenta);
    void SBGrabarClick();
    bool hay_por_perder() const;

    const Modo modo_;
    bool provisional_ = false; ///< la base tiene una sin grabar del todo
    ContadorLineas contador_;
    PreguntaEnCampo pregunta_;
    ListaDato *LTipo, *LPref;
    EditorDato *ENombre, *Nit, *Proy, *Centro;
    CasillaDato *ckTerc, *ckCentro;
    QLineEdit* NomCuenta;
    QWidget *fila_tercero_ = nullptr, *fila_centro_ = nullptr;
    std::unique_ptr<Formulario> formulario_;
};
