#pragma once
// Letra de una cuenta en las listas: la clase y el grupo se distinguen por su tamaño.
#include <QString>

class QFont;

/// Sobre la letra de la lista, que a 100 % es de 9 puntos: la clase (un carácter) va a 10 y en
/// negrita, el grupo (dos) a 9 y en negrita, las demás a 8.
void letra_por_nivel(QFont& letra, const QString& codigo);
