#pragma once
// Reglas de digitación de números que comparten los controles y las celdas.
#include "datos/firebird/valor.h"

#include <functional>

class QKeyEvent;

/// Deja pasar a `siguiente` lo que sirve en un número: cifras, signo, coma, punto y las teclas de
/// edición. La tecla decimal del teclado numérico, sea coma o punto, entra como punto. Lo demás
/// suena y se descarta.
void atienda_tecla_numerica(QKeyEvent& evento, const std::function<void(QKeyEvent*)>& siguiente);

/// La tecla decimal del teclado numérico.
bool es_decimal_de_teclado(const QKeyEvent& evento);

/// Número sin miles ni ceros de más, como se digita; vacío si es nulo.
QString texto_de_edicion(const Valor& valor);
/// Lo digitado, sin blancos alrededor; vacío es nulo.
Valor contenido_numerico(const QString& texto);
