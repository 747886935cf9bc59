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

/// Tipo, prefijo y número del cierre anual ya hecho que debió tomar las cuentas de resultados de un
/// comprobante grabado, en alguno de los libros; vacío si ninguno. Con él, el año siguiente abriría
/// con saldo en ellas.
QString cierre_que_no_lo_toma(Conexion& conexion, qint64 consecutivo);
