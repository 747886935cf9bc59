#pragma once
// Condiciones SQL con un texto que alguien digitó. Es la única puerta por la que ese texto entra a
// un LIKE: el texto va entre comillas y sus comodines se buscan a sí mismos.
//
// Las dos comparan con ES_ES_CI_AI: sin mayúsculas ni tildes ("mercancia" encuentra "Mercancía"),
// con la eñe como letra aparte. Los índices por expresión de las listas llevan esa ordenación.
#include <QString>

/// La columna tiene el texto en cualquier posición. "cuen_nom collate ES_ES_CI_AI like '%caja%'
/// escape '\'".
QString condicion_contiene(const QString& columna, const QString& texto);
/// La columna va del texto en adelante, en el orden del diccionario.
QString condicion_desde(const QString& columna, const QString& texto);
