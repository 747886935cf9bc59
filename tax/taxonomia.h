#pragma once
// Filas de una sección de una taxonomía a una fecha, y su archivo.
#include "datos/recordset/conjunto.h"
#include "tax/medio_xml.h"

/// La que se abre para editar.
struct AbreTaxonomia {
    int taxonomia = 0;
    QString nombre = {};
};
/// Un renglón, de sus cuentas o de sus notas.
struct AbreRenglonTaxonomia {
    int taxonomia = 0, seccion = 0, renglon = 0;
    QString nombre = {};
};

/// Campos de IMPR_TAXONOMIA; `Saldo`, `Saldo1`, `SaldoA` y `Saldo1A` son los importes escritos,
/// vacíos en los títulos.
void defina_resultado(ConjuntoDatos& c);
/// "SELECT * FROM IMPR_TAXONOMIA(1,210000,'20171231')".
QString sql_taxonomia(int taxonomia, int seccion, const QString& fecha);

/// Escribe el valor de cada renglón. Lanza ErrorExportacion.
void exporte_taxonomia(ConjuntoDatos& filas, const QString& ano, const QString& ruta);
