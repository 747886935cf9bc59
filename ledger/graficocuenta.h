#pragma once
// Gráfico de una cuenta en los trece períodos de un año: barras de sus movimientos o línea de sus
// saldos. Lee un conjunto con MES (texto) y VALOR (pesos enteros).
#include "datos/recordset/conjunto.h"

#include <QWidget>

class QBarCategoryAxis;
class QChart;
class QValueAxis;

class GraficoCuenta : public QWidget {
    Q_OBJECT
public:
    explicit GraficoCuenta(QWidget* padre = nullptr);

    enum Forma { Barras, Linea };
    void muestre(ConjuntoDatos& CGrafcta, const QString& titulo, Forma forma);
    QChart* grafico() const { return grafico_; }

private:
    QChart* grafico_;
    QBarCategoryAxis* eje_meses_;
    QValueAxis* eje_valores_;
};
