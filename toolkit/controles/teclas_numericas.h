#pragma once
// Reglas de digitación de números que comparten los controles y las celdas.
#include "datos/firebird/valor.h"

#include <functional>

class Campo;
class QKeyEvent;

/// Pasa la tecla a `siguiente`; la decimal del teclado numérico, sea coma o punto, entra como
/// punto. Lo que no es de un número también entra: descartarlo daría otro número, y al salir se
/// rehúsa.
void atienda_tecla_numerica(QKeyEvent& evento, const std::function<void(QKeyEvent*)>& siguiente);

/// La tecla decimal del teclado numérico.
bool es_decimal_de_teclado(const QKeyEvent& evento);

/// Número sin miles ni ceros de más, como se digita; vacío si es nulo.
QString texto_de_edicion(const Valor& valor);
/// Lo digitado o pegado en un campo numérico; vacío es nulo. Lanza ErrorDatos, con el rótulo que ve
/// el usuario, si no es un número o se puede leer de dos maneras.
Valor contenido_numerico(const QString& texto, const Campo& campo, const QString& rotulo);
