#pragma once
// Copia de las líneas de una plantilla a las de un comprobante o una propuesta.
#include <functional>
#include <span>

class ConjuntoDatos;
class QString;
class Valor;

struct ParCampos {
    const char *hacia, *desde;
};
/// Agrega a `destino` una línea por cada una de `origen`, en su orden, con esos campos y lo que
/// `complete` le ponga. Corre las reglas de línea.
void copie_lineas(ConjuntoDatos& origen, ConjuntoDatos& destino, std::span<const ParCampos> pares,
                  const std::function<void()>& complete);

/// Las de un comprobante, numeradas desde 1 bajo `id`. Con `concepto` no vacío todas lo toman; si
/// no, cada una el de la plantilla.
void copie_lineas_plantilla(ConjuntoDatos& origen, ConjuntoDatos& destino, const Valor& id,
                            const QString& concepto);
