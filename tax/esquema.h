#pragma once
// Revisión de un archivo XML contra el esquema propio de su formato (tax/esquemas), con libxml2.
#include <QString>
#include <QVector>

struct FallaEsquema {
    int registro = 0; ///< desde 1; 0 es el encabezado o el archivo entero
    QString atributo; ///< o el elemento del encabezado; vacío si la falla no es de uno
    QString texto;    ///< lo que se le dice al usuario
};

/// Faltas del archivo, en su orden y cada una una vez; hasta `tope`. Lee por partes: la memoria no
/// crece con el archivo. `formato_version` es MEDM_FORMATO; de una versión sin esquema propio se
/// usa el del mismo formato. Lanza ErrorDatos si no hay con qué revisarlo o no se puede leer.
QVector<FallaEsquema> revise_xml(const QString& ruta, int formato_version, int tope = 500);
