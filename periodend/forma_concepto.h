#pragma once
// Concepto de un registro automático, nuevo (Tfnvoconcepto) o guardado (Tfmodconcepto): qué cuentas
// afecta y de dónde sale el importe de cada una.
#include "datos/recordset/conjunto.h"
#include "datos/recordset/pregunta_en_campo.h"
#include "libro/lineas.h"
#include "toolkit/pantalla.h"

class CasillaDato;
class EditorDato;
class ListaDato;
class QLineEdit;
class QSpinBox;
class Rejilla;

class FormaConcepto : public Pantalla {
    Q_OBJECT
public:
    enum Modo { Nuevo, Modificar };
    explicit FormaConcepto(Modo modo);

    void FormCreate() override;
    bool FormClose() override;

    Sentencia TConceptos, TCuentas;
    Proveedor PConceptos, PBorrar;
    ConjuntoDatos CConceptos, CCuentas, CBorrar;
    Rejilla* DBGridEh1;

private:
    enum Columna { kItem, kCuenta, kBase, kTercero, kProyecto, kCentro };

    void defina_campos();
    void construya();
    void construya_vigencia();
    void nueva_linea();
    void al_dejar_la_linea();
    void al_llegar_a_la_linea();
    /// De las cuentas de la línea actual; de ninguna, nada.
    void muestre_nombres();
    void muestre_nombre(const Campo& cuenta, QLineEdit* caja);
    void cuenta_cambiada(Campo& campo, QLineEdit* nombre);
    void centro_cambiado();
    void tercero_cambiado(Campo& nit);
    void busque_cuenta(ConjuntoDatos& conjunto, const QString& columna, const QString& texto);
    void busque_tercero(const QString& texto);
    void DBGridDblClick(int columna);
    void reciba(ConjuntoDatos& conjunto, const QString& columna, const QString& valor);
    void VenceClick();
    bool falta_algo(); ///< y ya lo dijo
    void SBGrabarClick();

    const Modo modo_;
    ContadorLineas contador_;
    PreguntaEnCampo pregunta_;
    EditorDato *ECod, *ENombre, *ECta;
    QLineEdit *NomCierre, *NomCuenta, *NomBase;
    CasillaDato* Vence;
    ListaDato *MesIni, *MesFin;
    EditorDato *AnoIni, *AnoFin;
};
