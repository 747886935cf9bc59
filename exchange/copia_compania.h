#pragma once
// Copia de catálogos entre dos compañías de una instalación: dos bases, cada una por su conexión.
#include "exchange/mantenimiento.h"

#include <QSet>

/// Base de otra compañía, en el mismo sitio y con el mismo usuario que la de la sesión.
ParametrosConexion base_de_compania(const ParametrosConexion& de_la_sesion, const QString& propia,
                                    const QString& otra);
/// Lanza ErrorDatos si la base es de otra versión del esquema.
void exija_version(Conexion& base);

struct ResultadoCopia {
    qint64 copiados = 0;
    qint64 omitidos = 0; ///< de un nivel más profundo, o que ya estaban
    QStringList fallas;  ///< código y razón de los que no entraron
};
/// Recibe cuántos van y cuántos son.
using AvanceCopia = std::function<void(int van, int total)>;

bool hay_cuentas(Conexion& base, Libro libro, const RangoCodigos& rango);
/// Las cuentas del rango que se copiarían hasta ese nivel, que se compara como texto.
QSet<QString> cuentas_por_llegar(Conexion& origen, Conexion& destino, Libro libro,
                                 const RangoCodigos& rango, const QString& nivel);
/// Borra las cuentas del rango, las más profundas primero: todas o ninguna. La que está en uso y va
/// a llegar otra vez se queda, con su cuenta de ajuste y su contrapartida, y la copia actualiza lo
/// demás.
void borre_rango(Conexion& base, Libro libro, const RangoCodigos& rango,
                 const QSet<QString>& llegan);
/// Copia las cuentas hasta el nivel dado, encima de las que estén. Cada una queda confirmada.
ResultadoCopia copie_cuentas(Conexion& origen, Conexion& destino, Libro libro,
                             const RangoCodigos& rango, const QString& nivel,
                             const AvanceCopia& avance = {});
/// Copia los terceros que en el destino no estén; los que están no cambian. Cada uno queda
/// confirmado.
ResultadoCopia copie_terceros(Conexion& origen, Conexion& destino, const RangoCodigos& rango,
                              const AvanceCopia& avance = {});
