#pragma once
// "Numeración hojas": los números de página de un libro oficial, en hojas en blanco.
#include "toolkit/pantalla.h"

class QLineEdit;

class Tfnumeracion : public Pantalla {
    Q_OBJECT
public:
    Tfnumeracion();

    QLineEdit *ECia, *Elibro, *PagIni, *PagFin;

private:
    void SpeedButton3Click();
    bool consistente() const;
    void imprima(class QPrinter& impresora) const;
};
