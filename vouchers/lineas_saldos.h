#pragma once
// Líneas de los saldos iniciales: las de un comprobante, sin conceptos, bases ni memorias.
#include "vouchers/lineas_cuenta.h"

#include <functional>

class QWidget;

class LineasSaldos : public LineasCuenta {
public:
    LineasSaldos(ConjuntoDatos& saldos, ConjuntoDatos& consulta, QObject* dueno);

    /// Columnas de la rejilla que siguen a las cuatro comunes.
    enum ColumnaSaldos { kDebito = kCentro + 1, kCredito };

    /// Salió de la columna de la cuenta, con la clase de esta.
    std::function<void(const QString& clase)> al_dejar_la_cuenta;

    /// Página completa: rejilla, nombres y sumas.
    QWidget* construya_pagina();
    void ate_eventos();
    /// Nombres y sumas de la línea actual, como al pasar a ella.
    void muestre_linea() { AfterScroll(); }
    /// Las dos sumas, de todas las líneas, iguales como importes.
    bool cuadrados() const;

private:
    void cuenta_cambiada();
    void tercero_cambiado();
    /// `cual` es la celda que cambió: el proyecto o el centro.
    void centro_cambiado(const Campo& cual);
    void muestre_pie() override;
    void muestre_centro(const QString& proyecto, const QString& centro);
    void ColEnter(int columna);
    void ColExit(int columna);
    void BeforePost();
    void AfterInsert();
    void AfterScroll();
    void devuelva_a(int columna);
};
