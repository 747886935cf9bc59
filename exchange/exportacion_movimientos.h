#pragma once
// Exportación de los comprobantes de un rango de fechas a los cuatro formatos de otros programas.
//
// Los anchos y el orden de cada formato están en docs/intercambio.md. Todo sale de una sola foto de
// la base, en ISO 8859-1, con fin de línea de Windows, a archivos que solo toman su nombre cuando
// están completos. En los textos, el separador, las comillas y los controles salen como espacios.
#include "datos/firebird/conexion.h"

#include <QDate>

enum class DestinoExportacion { Siigo, WebGerencial, Csv, Isis };

struct PeticionExportacion {
    DestinoExportacion destino = DestinoExportacion::Siigo;
    QString archivo;            ///< de WebGerencial, solo cuenta su carpeta
    QString desde, hasta;       ///< "aaaammdd"
    QString tipo, prefijo;      ///< vacíos: todos
    QChar separador = ',';      ///< nulo: ancho fijo, solo de Siigo
    bool omita_contado = false; ///< sin facturas de contado; lo leen Csv e Isis
    QDate hoy;                  ///< la que lleva WebGerencial en su encabezado
};

struct ResultadoExportacion {
    QStringList archivos;
    qint64 registros = 0;
    qint64 sin_tercero = 0; ///< líneas del rango que Csv e Isis no llevan
};

/// Lanza ErrorExportacion si no se pudo escribir: no queda ninguno a medias.
ResultadoExportacion exporte_movimientos(Conexion& conexion, const PeticionExportacion& peticion);

/// Un mes calendario después: en diciembre pasa a enero del otro año; del 29 al 31 de enero da el
/// 28 de febrero, y un 31 da 30. "aaaammdd" en ocho cifras.
QString fecha_mas_30(const QString& fecha);
