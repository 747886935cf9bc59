#pragma once
// Copia de las líneas de una plantilla a las de un comprobante.
class ConjuntoDatos;
class QString;
class Valor;

/// Agrega a `destino` las líneas de la plantilla en su orden, numeradas desde 1 bajo `id`. Con
/// `concepto` no vacío todas lo toman; si no, cada una el de la plantilla. Corre las reglas de
/// línea.
void copie_lineas_plantilla(ConjuntoDatos& origen, ConjuntoDatos& destino, const Valor& id,
                            const QString& concepto);
