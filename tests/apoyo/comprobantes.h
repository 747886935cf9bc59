#pragma once
// Comprobantes escritos directamente en las tablas, como los manda el resolvedor: primero el
// encabezado, luego las líneas 2649 y al final las NIIF, fila por fila.
#include "datos/firebird/conexion.h"

#include <QVector>

struct Linea {
    int item;
    QString cuenta;
    Moneda debito, credito;
    QString nit = {}, proyecto = {}, centro = {}, articulo = {};
};

struct ComprobanteEnTablas {
    int id;
    QString numero; ///< como se guarda: "000001"
    QString fecha;  ///< "aaaammdd"
    QVector<Linea> lineas = {}, lineas_niif = {};
    QString replica = QStringLiteral("N");
    QString tipo = QStringLiteral("CG"), prefijo = QStringLiteral("0001");
};

void inserte_encabezado(Transaccion& t, const ComprobanteEnTablas& comprobante);
/// `sufijo` del libro: vacío o "_NIIF".
void inserte_lineas(Transaccion& t, int id, const QVector<Linea>& lineas,
                    const QString& sufijo = {});
/// Graba el comprobante en una sola transacción.
void grabe(Conexion& conexion, const ComprobanteEnTablas& comprobante);
/// El CG cuyo número es su id.
void grabe(Conexion& conexion, int id, const QString& fecha, const QVector<Linea>& lineas,
           const QVector<Linea>& lineas_niif = {});

/// Claves de los dos libros cuyo saldo no es el de sus líneas, como texto; vacío si todo cuadra.
QString saldos_distintos(Conexion& conexion);
/// Todas las filas de una consulta: columnas separadas por '|', filas por salto de línea.
QString filas_de(Conexion& conexion, const QString& sql);
