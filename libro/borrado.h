#pragma once
// Cómo se borra un comprobante: una sola transacción, con las órdenes de quien lo pide en su orden.
#include "libro/comprobante.h"
#include "libro/modos.h"
#include "libro/rechazo.h"

struct PedidoBorrado {
    qint64 id = 0;
    QString tipo, prefijo, numero;
    qint64 tipo_origen = 0; ///< ENCO_TIPOREF: distinto de 0, lo borra la opción de su módulo
    /// El comprobante como lo vio quien lo abrió; si ya no es ese, se pregunta antes de borrarlo.
    std::optional<Comprobante> visto;
    QString cerrado; ///< el bloqueo de su fecha si los dos libros están cerrados; lo pone Tfdmcnt
};

/// Lo que impide borrarlo: pertenece a otro módulo, cuya opción nombra, o su fecha está cerrada.
std::optional<Rechazo> revise_borrado(Conexion& conexion, const PedidoBorrado& pedido);
/// Alguien lo cambió después de que quien borra lo vio. Se puede confirmar.
std::optional<Rechazo> revise_cambio_ajeno(Conexion& conexion, const PedidoBorrado& pedido);
/// Con qué se pregunta.
QString pregunta_borrado(const ModoBorrado& modo, const PedidoBorrado& pedido);
/// Lo que se escriba en la transacción queda a nombre de ese usuario en la auditoría.
void opere_como(Transaccion& t, const QString& usuario);
/// Las órdenes del modo, en la transacción de quien llama.
void borre_comprobante(Transaccion& t, const ModoBorrado& modo, qint64 id, const QString& usuario);
/// Borra todo o nada. Si se pierde la respuesta del servidor, mira si el comprobante sigue ahí
/// antes de darlo por no borrado. Lanza la falla de la base cuando nada quedó borrado.
void borre_comprobante(Conexion& conexion, const ModoBorrado& modo, const PedidoBorrado& pedido,
                       const QString& usuario);
