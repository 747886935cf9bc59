#pragma once

#include "datos/firebird/reloj.h"

#include <QDate>
#include <QFont>
#include <QString>

class QPagedPaintDevice;
class TablaExportable;

struct OpcionesImpresion {
    QString compania;
    QString encabezado; ///< Vacío: el título de la tabla.
    QString cifras;     ///< Renglón tras el encabezado: lo que la pantalla dice y no es una fila.
    QString encabezado_derecho = QStringLiteral("%[Today]");
    QDate hoy = reloj().hoy();
    QFont fuente; ///< Solo la familia: el cuerpo lo decide el ancho de la hoja.
};

/// Imprime la tabla entera ajustada al ancho de la hoja que traiga el dispositivo (impresora o
/// PDF), con los títulos repetidos y "Página n de m". Los números nunca se recortan; los textos que
/// no caben terminan en puntos suspensivos. En los textos de la página "%[Today]" es la fecha
/// aaaa/mm/dd. Devuelve el total de páginas; lanza ErrorExportacion si el dispositivo no abre.
int imprima_tabla(TablaExportable& tabla, QPagedPaintDevice& dispositivo,
                  const OpcionesImpresion& opciones = {});
