#pragma once
// Lo que la compañía de demostración trae para la apertura NIIF y para el intercambio de datos.
#include "datos/firebird/conexion.h"

/// El balance de apertura NIIF a medio trabajar (el activo y el patrimonio ya pasaron, con un
/// ajuste, una reclasificación, notas y una hoja de cálculo; el pasivo está por pasar), los
/// procedimientos de usuario de muestra y unas equivalencias para exportar. `ano`: el del libro.
void siembre_intercambio(Conexion& compania, int ano);

/// Archivos de muestra para importar, uno de cada clase y uno con fallas, en `carpeta`. Los dejan
/// las columnas de fábrica, con coma y sin delimitador. Lanza ErrorDatos si no se pudo escribir.
void escriba_muestras(Conexion& compania, const QString& carpeta, int ano);
