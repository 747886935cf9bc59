#pragma once
// Definición de un informe del usuario: sus tres tablas, abiertas por su código.
#include "datos/recordset/conjunto.h"

/// Informe sobre el que se actúa; 0, uno nuevo.
struct AbreFormatoEspecial {
    int formato_especial = 0;
};

/// Las impresoras de impresoras.cfg, una por línea y en su orden ("nombre,impresora"):
/// FOCO_IMPRESORA es el número de una, desde 0. Vacía la línea que no dice ninguna; sin archivo,
/// ninguna.
QStringList impresoras_de_informes();

struct DefinicionInforme {
    /// Los conjuntos son de `dueno`, que los configura con los suyos.
    explicit DefinicionInforme(QObject* dueno);

    Sentencia QFormato, QFormadatos, QFormalineas;
    Proveedor PFormato;
    ConjuntoDatos CFormato, CFormadatos, CFormalineas;

    /// Falso si el informe no existe.
    bool abra(int codigo);
    void cierre();
    /// Impresora del informe; vacía si no tiene o el archivo ya no la dice.
    QString impresora() const;
};
