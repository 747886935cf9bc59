#pragma once
// Campos de los auxiliares y su saldo corrido.
#include "datos/recordset/conjunto.h"

/// `SaldoF`: el saldo después de cada movimiento. Empieza en el saldo inicial de la clave y se
/// calcula fila a fila, en el orden en que llegan o, si se reordenan, en el que quedan.
class SaldoCorrido {
public:
    /// `clave`: columna que, al cambiar, vuelve a empezar desde la columna `inicial`.
    SaldoCorrido(ConjuntoDatos& conjunto, const QString& clave, const QString& inicial);
    /// Antes de abrir el conjunto: el cálculo que viene es el de la apertura, sin fila. Las filas
    /// que se reordenan necesitan después `recorra`, y las columnas ID e ITEM.
    void comience(bool reordenadas = false);
    /// Calcula los saldos en el orden en que están las filas.
    void recorra();
    void CAuxiliarCalcFields();

private:
    Moneda siguiente(); ///< el de la fila actual, después del de la anterior
    QString linea() const;

    ConjuntoDatos& conjunto_;
    QString clave_, inicial_;
    bool primera_ = true, reordenadas_ = false;
    QString ultima_clave_;
    Moneda saldo_;
    QHash<QString, Moneda> de_linea_; ///< los ya calculados, de filas reordenadas
};

/// Las columnas de los auxiliares y listados que se nombren, en ese orden y con su rótulo.
void defina_columnas(ConjuntoDatos& conjunto, std::initializer_list<const char*> campos);
/// Las dieciocho columnas con que empiezan los auxiliares por cuenta, tercero y centro.
void defina_auxiliar(ConjuntoDatos& conjunto);
/// Primer y último día del período de la sesión, como aaaammdd.
QString primer_dia_del_periodo();
QString ultimo_dia_del_periodo();
