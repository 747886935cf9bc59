#pragma once
// Expresión sobre los campos de un conjunto: el lenguaje de Filter y de los agregados.
//
// Comparaciones (=, <>, <, >, <=, >=, LIKE con % y _), IS NULL, AND, OR, NOT, paréntesis, textos
// entre comillas simples, números, campos, + - * / y las funciones UPPER, SUBSTRING. Los nombres de
// campo no distinguen mayúsculas. Un error de sintaxis lanza ErrorDatos con la posición.
#include "datos/firebird/valor.h"

#include <memory>

class ConjuntoDatos;

class Expresion {
public:
    Expresion(ConjuntoDatos& conjunto, const QString& texto);
    ~Expresion();
    Valor evalue() const; ///< en la fila activa del conjunto
    bool verdadera() const;

    struct Nodo;

private:
    std::unique_ptr<Nodo> raiz_;
};
