#pragma once
// Cuándo repetir un trabajo que chocó con otro usuario. La única regla del sistema.
//
// Un choque inmediato no aplicó nada y casi siempre se resuelve solo: se repite unas pocas veces
// con una pausa corta. Uno que ya esperó por una fila tomada no: el usuario merece saber a quién
// espera, y la pantalla no puede quedarse muda. En total se insiste dos segundos.
// Un proceso largo que escribe sobre una sola foto puede chocar ya al final: tiene su avance a la
// vista, y se repite sin mirar el reloj.
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
    enum class Paciencia { Ninguna, Usuario, Proceso };
    static constexpr int kVeces = 8;
    static constexpr int kVecesProceso = 20; ///< cada una espera su turno tras quien compacta
    static constexpr int kTopeMs = 2000;

    explicit Reintento(Paciencia paciencia = Paciencia::Usuario);
    /// Hace la pausa y dice si vale la pena repetir.
    bool otra_vez(const ErrorBase& falla);

private:
    QElapsedTimer reloj_;
    Paciencia paciencia_;
    int quedan_;
};
