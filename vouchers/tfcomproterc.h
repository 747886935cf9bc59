#pragma once
// "Comprobantes tercero": el movimiento de un tercero, línea por línea, hasta su comprobante.
#include "vouchers/busqueda_por_tipo.h"

class QTabWidget;

class Tfcomproterc : public BusquedaPorTipo {
    Q_OBJECT
public:
    Tfcomproterc();

    void FormCreate() override;
    void FormActivate() override;

    QLineEdit *ENIT, *ENom;
    QTabWidget* paginas;
    Rejilla *DBGridEh1, *DBGridEh2, *DBGridEh3;

private:
    void arme_filtros();
    void arme_paginas();
    void arme_botones();
    void SpeedButton2Click();
    void borrar_comprobante();
};
