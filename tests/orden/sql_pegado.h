#pragma once
// SQL que se compone pegando textos: qué se le pega sin pasar por QuotedStr.
//
// Mira cada frase que tiene un literal SQL y sigue hasta su origen, dentro de la función, lo que se
// le suma o se le da a `arg`. Es sano un literal, una cifra, lo que sale de QuotedStr o una
// variable hecha solo de ellos; también las piezas del esquema (una tabla, un orden) que el
// programa nombra y nadie digita: sus nombres van en una lista, que se revisa al crecer. Todo lo
// demás se acusa.
#include "orden/fuente.h"

/// "renglón: operando" por cada uno.
QStringList sql_pegado(const Fuente& fuente, const QStringList& piezas);
