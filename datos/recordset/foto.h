#pragma once
// Una sola foto de la base para consultas que deben cuadrar entre sí.
//
// Mientras otros graban, dos lecturas seguidas ven libros distintos: un balance de prueba leído así
// no cuadra. Lo que muestra totales del libro se lee todo de la misma foto.
//
//     Foto foto(fdm().Quorvex);
//     foto.abra(CBalance, sql);      // entero: al terminar no retiene nada en el servidor
//     foto.abra(CBalniif, otro);
#include "datos/recordset/conjunto.h"

class Foto {
public:
    enum Cuanto {
        Entero,     ///< trae todas las filas
        PorPaquetes ///< como se pidan; la foto dura hasta la última fila o hasta que se cierre
    };
    explicit Foto(Conexion& conexion);
    /// Abre el conjunto con ese texto, sobre la foto. Desde aquí lee siempre de una foto: si
    /// después se refresca, de una nueva.
    void abra(ConjuntoDatos& conjunto, const QString& sql, Cuanto cuanto = Entero);
    /// Primera columna de la primera fila; nulo si no hay filas.
    Valor consulte(const QString& sql, const QVector<Valor>& valores = {});

private:
    Conexion& conexion_;
    std::shared_ptr<Transaccion> transaccion_;
};
