#pragma once
// Comprobantes que salen de otro ya guardado: el mismo otra vez, o el que lo anula.
#include "libro/grabacion.h"

enum class Copia {
    Duplicado, ///< las mismas líneas
    Reverso,   ///< los lados cambiados: deja los saldos como si el original no estuviera
};

/// El comprobante nuevo, sin id ni número, con esa fecha ("aaaammdd") y los dos libros. No es de
/// ningún módulo. Nombra al original en la referencia (su número) y en las observaciones; el
/// reverso, también en el concepto. Un duplicado conserva el plazo de sus documentos, cuyos números
/// son por digitar; un reverso se aplica a los que el original abrió.
Comprobante copie_comprobante(const Comprobante& original, Copia clase, const QString& fecha,
                              const QString& usuario);

/// Lo graba en una sola transacción, con el número que sigue en su prefijo. Con el original borrado
/// es un Fallo que lo dice.
ResultadoGrabacion grabe_copia(Conexion& conexion, qint64 original, Copia clase,
                               const QString& fecha, const QString& usuario,
                               const AjustesLibro& ajustes);

/// "FC 0001 000106".
QString nombre_de_comprobante(const Comprobante& comprobante);
