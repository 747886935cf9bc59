#pragma once
// Las dos secciones que pide la superintendencia: la situación financiera y los resultados.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class QSpinBox;
class Rejilla;

class Tfsupersociedades : public Pantalla {
    Q_OBJECT
public:
    Tfsupersociedades();

    ConjuntoDatos *CImprtax, *CImptaxr;
    QSpinBox* EAno;
    Rejilla *DBGridEh1, *DBGridEh2;

    void FormCreate() override;
    bool FormClose() override;

private:
    void SpeedButton5Click();
    Rejilla* cree_rejilla(const QString& nombre, ConjuntoDatos* conjunto, const QString& titulo,
                          QWidget* division);
};
