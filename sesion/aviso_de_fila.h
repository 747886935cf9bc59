#pragma once
// Advertencia sobre la fila que se digita: se retira cuando la fila se corrige, se graba o se deja.
#include <QString>

class ConjuntoDatos;

void advierta_de_fila(ConjuntoDatos& conjunto, const QString& texto);
