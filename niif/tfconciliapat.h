#pragma once
// "Conciliación Patrimonial": los saldos de los dos libros, cuenta por cuenta, y su diferencia.
#include "datos/recordset/conjunto.h"
#include "niif/peticiones_niif.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;
class Rejilla;

class Tfconciliapat : public Pantalla {
    Q_OBJECT
public:
    Tfconciliapat();

    Sentencia QConsulta{this, "QConsulta", fdm().Quorvex};
    Proveedor PConsulta{this, "PConsulta", &QConsulta, poAllowCommandText};
    ConjuntoDatos CConcilia{this, "CConcilia", &PConsulta};

    QSpinBox* EAno;
    QComboBox* EMes; ///< 0 la apertura, 1 a 12 los meses, 13 los ajustes
    QLabel *LNivel, *Aviso;
    Rejilla* DBGridEh1;

    void FormCreate() override;
    bool FormClose() override;
    void actualice_balance();

private:
    void construya();
    void nivel(int paso);
    void SpeedButton1Click();
    void AuxiliarClick();
    int nivel_ = 1, nivel_maximo_ = 1;
    AbreConciliacionCuenta consultado_; ///< el año y el mes a la vista
};
