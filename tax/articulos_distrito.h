#pragma once
// Los artículos de la información distrital: copiarlos de un año a otro y lo que conviene corregir
// de sus filas antes de grabar el archivo.
#include "datos/firebird/conexion.h"
#include "tax/medio_xml.h"

/// Copia los artículos de un año, con sus cuentas, a otro; los que este ya tenga no se tocan.
/// Devuelve cuántos copió.
int copie_articulos(Conexion& base, const QString& desde, const QString& hasta);

/// El año con artículos más cercano hacia atrás, o el primero que los tenga; vacío si ninguno.
QString ano_con_articulos(Conexion& base, const QString& ano);

/// Cuántas filas están sin identificación, sin dirección o sin municipio (si el artículo los lleva)
/// o en negativo: "2 sin identificación y 1 con valor negativo"; vacío si ninguna.
QString por_corregir_articulo(int articulo, FilasMedio& filas);
