#pragma once
// Cuándo repetir un trabajo que chocó con otro usuario. La única regla del sistema.
//
// Un choque inmediato no aplicó nada y casi siempre se resuelve solo: se repite unas pocas veces
// con una pausa corta. Uno que ya esperó por una fila tomada no: el usuario merece saber a quién
// espera, y la pantalla no puede quedarse muda. En total se insiste dos segundos.
//
//     for (Reintento reintento;;)
//         try {
//             return trabajo();
//         } catch (const ErrorBase& falla) {
//             if (!reintento.otra_vez(falla))
//                 throw;
//         }
#include "datos/firebird/errores.h"

#include <QElapsedTimer>

class Reintento {
public:
    static constexpr int kVeces = 8;
    static constexpr int kTopeMs = 2000;

    explicit Reintento(bool insiste = true) : quedan_(insiste ? kVeces : 0) { reloj_.start(); }
    /// Hace la pausa y dice si vale la pena repetir.
    bool otra_vez(const ErrorBase& falla);

private:
    QElapsedTimer reloj_;
    int quedan_;
};
