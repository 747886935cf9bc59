#pragma once
// Revisión de un comprobante entero: todo lo que se le rehúsa, en orden y sin decirle nada a nadie.
#include "libro/fechas.h"
#include "libro/lineas.h"
#include "libro/modos.h"

/// Todos los rechazos: tipo, prefijo y número; fecha; bloqueo de cada libro; por libro y por línea,
/// la cuenta, lo que nombra y lo que le falta; lo que no se puede replicar; el cuadre de cada libro
/// y el comprobante vacío. Las celdas solo se revisan si el modo lo pide.
Rechazos revise(Conexion& conexion, const Comprobante& comprobante, const ModoGrabacion& modo,
                const AjustesLibro& ajustes);

/// El libro suma lo mismo a los dos lados, sin tolerancia.
std::optional<Rechazo> revise_cuadre(const Comprobante& comprobante, Libro libro);

/// Cuentas de las líneas 2649 por replicar sin una equivalente NIIF que pueda llevar movimiento.
/// Sin el check de réplica, o con el libro NIIF llevado a mano, no hay nada que replicar.
Rechazos revise_replica(Conexion& conexion, const Comprobante& comprobante);

/// Tipo, prefijo y número del primer cierre anual ya hecho al que tocan las cuentas de resultados
/// de un comprobante grabado, en alguno de los libros; vacío si ninguno. Lo que en ellas cambie
/// después del cierre queda de saldo en el año siguiente.
QString cierre_ya_hecho(Conexion& conexion, qint64 consecutivo);
