#pragma once
// Elementos de una plantilla tal como están en el archivo, con su línea: lo que el lector recorre
// y lo que "repita" escribe varias veces.
#include <QMap>
#include <QString>
#include <QVector>

namespace informes {

struct NodoXml {
    QString nombre;
    QMap<QString, QString> atributos;
    QString texto; ///< el de los elementos que no tienen otros por dentro
    QVector<NodoXml> hijos;
    int linea = 0;
};

/// Lee el archivo entero. Lanza ErrorInforme con el archivo y la línea si no se puede leer.
NodoXml lea_xml(const QString& ruta);

/// Falla de una plantilla: "La plantilla de informes "x.rav", línea 5: que."
[[noreturn]] void falle_en_plantilla(const QString& ruta, int linea, const QString& que);

} // namespace informes
