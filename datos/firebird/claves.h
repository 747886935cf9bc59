#pragma once
// Forma en que el módulo principal entrega la clave de la base de datos en la línea de órdenes.
//
// Es un disfraz reversible, no un cifrado: evita que la clave se lea a simple vista en la lista de
// procesos. Solo usa letras y cifras, nunca queda vacío (tampoco el de una clave vacía) y lleva una
// suma de control para reconocer un texto dañado.
#include <QString>

/// El resultado cambia en cada llamada; aclare_clave recupera siempre la misma clave.
QString ofusque_clave(const QString& clave);
/// Lanza ErrorDatos si el texto no salió de ofusque_clave o llegó incompleto.
QString aclare_clave(const QString& ofuscada);
