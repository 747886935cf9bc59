#pragma once
// Celdas de cuenta de las pantallas que configuran la información tributaria: "?" y un texto abre
// el plan; lo demás se revisa al escribirlo.
#include "sesion/tfdmcnt.h"
#include "toolkit/pantalla.h"

class Campo;

/// `revise` recibe la cuenta escrita y dice si sirve, con su mensaje; si no, la celda se vacía.
void atienda_cuenta(Pantalla& pantalla, Campo& campo, std::function<bool(const QString&)> revise,
                    Libro libro = Libro::Decreto2649);

/// La cuenta existe. Un grupo también sirve: se configura por el comienzo del código. La que no
/// existe se ofrece crear.
bool existe_o_se_crea(const QString& cuenta);
/// La cuenta existe; si no, lo dice con `mensaje`.
bool existe_cuenta(const QString& cuenta, const QString& mensaje, Libro libro = Libro::Decreto2649);
