#pragma once
// Lo que una base es, sin sus filas: para comparar la que se puso al día con la recién creada.
#include "datos/firebird/conexion.h"

#include <QMap>

/// Un renglón por objeto: nombre ("COLUMNA CUENTAS.CUEN_COD", "INDICE ...") y lo que lo define. Los
/// textos largos (cuerpos, filtros) van por su resumen. No mira qué usuario tiene cada permiso más
/// que el del papel y los de los objetos de la base.
QMap<QString, QString> retrato_esquema(Conexion& conexion);

/// Lo que falta, sobra o es distinto entre dos retratos, en orden; vacío si son iguales.
QStringList diferencias_de(const QMap<QString, QString>& hecha,
                           const QMap<QString, QString>& esperada);
