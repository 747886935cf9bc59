#pragma once
// Un archivo por tercero de unas filas ordenadas por NIT, en una sola pasada.
#include "datos/recordset/conjunto.h"

#include <QStringList>

struct ResumenArchivos {
    int grabados = 0;
    QStringList fallas; ///< "NIT: qué pasó"
    bool cancelado = false;

    /// Lo que se le dice al usuario al terminar.
    QString texto(const QString& carpeta) const;
};

/// Nombre de archivo de un NIT: solo letras, cifras, puntos y guiones.
QString nit_para_archivo(const QString& nit);

/// Pasa las filas de cada NIT a `uno`, una tabla en memoria con los mismos campos, y llama `grabe`
/// con la ruta: `comienzo` + NIT + ".PDF". `siga` recibe el NIT que comienza y cuántos van; falso
/// lo abandona. Una falla no detiene a los demás.
ResumenArchivos archivos_por_tercero(ConjuntoDatos& filas, ConjuntoDatos& uno,
                                     const QString& comienzo,
                                     const std::function<bool(const QString&, int)>& siga,
                                     const std::function<void(const QString&)>& grabe);
