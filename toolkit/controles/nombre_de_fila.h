#pragma once
// El nombre que en la rejilla no cabe, entero en un renglón bajo ella: el de la fila señalada. No
// recibe el foco: se lee mientras se recorren las filas.
#include "datos/recordset/conjunto.h"

#include <QLineEdit>

class NombreDeFila : public QLineEdit, public EnlaceDatos {
    Q_OBJECT
public:
    /// `campos`: los que se leen, uno tras otro; los vacíos y los iguales se callan.
    NombreDeFila(ConjuntoDatos& conjunto, const QStringList& campos, const QString& nombre);

    /// El renglón entero: "Cuenta:" y la caja con ese nombre de objeto.
    static QWidget* renglon(const QString& rotulo, ConjuntoDatos& conjunto,
                            const QStringList& campos, const QString& nombre);

    void fila_actual_cambiada() override { muestre(); }
    void campo_cambiado(Campo*) override { muestre(); }
    void filas_reiniciadas() override { muestre(); }
    void filas_borradas(int, int) override { muestre(); }

private:
    void muestre();

    QStringList campos_;
};
