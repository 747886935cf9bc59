#pragma once
// Menús de los estados financieros: generales, detallados, comparativos y los de NIIF. Cada uno es
// una lista de entradas con la pantalla que abren, la letra de su informe y el derecho que exigen.
#include "toolkit/menubotones.h"

struct EntradaEstado {
    const char *nombre, *texto, *pantalla;
    const char* tipo = "";
    int acceso = 0;    ///< 0: el menú del que viene ya lo pidió
    bool niif = false; ///< abre el informe con el libro NIIF marcado
};

struct DatosMenuEstados {
    const char *pantalla, *titulo;
    QVector<EntradaEstado> entradas;
};

class MenuEstados : public MenuBotones {
    Q_OBJECT
public:
    explicit MenuEstados(const DatosMenuEstados& datos);
    static const QVector<DatosMenuEstados>& todos();
};
