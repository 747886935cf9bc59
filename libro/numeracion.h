#pragma once
// Números de comprobante: seis cifras como texto, por tipo y prefijo.
#include "datos/firebird/conexion.h"
#include "libro/rechazo.h"

/// Cuántas cifras tiene un número de comprobante.
constexpr int kCifrasNumero = 6;

/// Rellena con ceros a la izquierda hasta `n` cifras; uno tan largo o más se queda como está.
QString complete_numero(const QString& numero, int n = kCifrasNumero);

struct PrefijoContable {
    QString siguiente;       ///< el número que tomará el próximo comprobante
    bool automatico = false; ///< el número sale del contador y no se digita
    bool activo = false;
};
/// Fila del prefijo en PREFIJOS_CONTA; nada si no existe.
std::optional<PrefijoContable> prefijo_contable(Conexion& conexion, const QString& tipo,
                                                const QString& prefijo);
/// El contador que no cabe en seis cifras: al prefijo se le acabaron los números.
std::optional<Rechazo> revise_contador(const QString& tipo, const QString& prefijo,
                                       const QString& siguiente);

/// Id del comprobante con ese número, ya completo; vacío si está libre o el número es vacío.
QString id_del_numero(Conexion& conexion, const QString& tipo, const QString& prefijo,
                      const QString& numero);

/// El comprobante que ya tiene ese número, con la oferta de consultarlo; nada si está libre.
std::optional<Rechazo> revise_numero(Conexion& conexion, const QString& tipo,
                                     const QString& prefijo, const QString& numero);

/// Adelanta el contador desde `numero`, que está tomado, hasta uno libre, y lo devuelve. Cada paso
/// queda confirmado. El contador nunca retrocede. Lanza ErrorDatos si se acaban las cifras.
QString adelante_contador(Conexion& conexion, const QString& tipo, const QString& prefijo,
                          const QString& numero);
