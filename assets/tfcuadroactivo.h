#pragma once
// Cuadro de depreciación de un activo: mes a mes lo hecho y lo que falta, en cada libro, con la
// curva de su valor.
#include "datos/recordset/conjunto.h"
#include "libro/libro.h"
#include "toolkit/pantalla.h"

class Grafica;
class QTabWidget;
class Rejilla;

class Tfcuadroactivo : public Pantalla {
    Q_OBJECT
public:
    Tfcuadroactivo();
    void FormCreate() override;
    bool FormClose() override;

    ConjuntoDatos &CCuadro, &CCuadroniif;
    Rejilla *DBGridEh1, *DBGridEh2;
    Grafica* Curva;

private:
    ConjuntoDatos& cuadro(const char* nombre);
    Rejilla* rejilla(const char* nombre, ConjuntoDatos& conjunto);
    void dibuje();
    Rejilla* a_la_vista() const;

    QTabWidget* PageControl1;
    QString activo_;
    Moneda original_;
};
