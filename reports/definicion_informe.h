#pragma once
// Definición de un informe del usuario: sus tres tablas, abiertas por su código.
#include "datos/recordset/conjunto.h"

/// Informe sobre el que se actúa; 0, uno nuevo.
struct AbreFormatoEspecial {
    int formato_especial = 0;
};

struct DefinicionInforme {
    /// Los conjuntos son de `dueno`, que los configura con los suyos.
    explicit DefinicionInforme(QObject* dueno);

    Sentencia QFormato, QFormadatos, QFormalineas;
    Proveedor PFormato;
    ConjuntoDatos CFormato, CFormadatos, CFormalineas;

    /// Falso si el informe no existe.
    bool abra(int codigo);
    void cierre();
};
