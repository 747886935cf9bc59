#pragma once
// Salidas de un informe ya compuesto: PDF, impresora, HTML, RTF y texto.
//
// Los archivos se escriben con un nombre provisional y toman el suyo al terminar: una falla a mitad
// no deja nada y lanza ErrorInforme o ErrorExportacion.
#include "toolkit/informes/hojas.h"

#include <functional>

class QPrinter;
class QIODevice;
class ArchivoSalida;

namespace informes {

enum class FormatoArchivo { Texto, Rtf, Html, Pdf };
/// "txt", "rtf", "htm" o "pdf".
QString extension_de(FormatoArchivo formato);

/// Páginas que se sacan, 0-based, ambas incluidas.
struct Rango {
    int desde = 0, hasta = 0;
};
inline Rango todas(const Hojas& hojas) {
    return {0, hojas.paginas() - 1};
}

void grabe(const Hojas& hojas, FormatoArchivo formato, const QString& ruta, Rango rango,
           const QString& titulo);
/// Lo mismo, y dice a dónde fue.
void grabe_y_diga(const Hojas& hojas, FormatoArchivo formato, const QString& ruta, Rango rango,
                  const QString& titulo);
/// Imprime con las copias que traiga la impresora. Lanza ErrorInforme si no recibe el trabajo.
void imprima(const Hojas& hojas, QPrinter& impresora, Rango rango);

// --- renglones de una hoja, para las salidas que no son dibujo

struct Trozo {
    double x, ancho;
    Lado lado;
    int estilo;
    double achique; ///< a qué parte de su tamaño va la letra
    QString texto;
};
struct Renglon {
    double y = 0;
    bool raya = false; ///< una línea horizontal, sin textos
    QVector<Trozo> trozos;
};
/// Los textos de una hoja en el orden en que se leen; los que están a la misma altura, juntos.
QVector<Renglon> renglones_de(const Hojas& hojas, int pagina);

void escriba_texto(const Hojas& hojas, ArchivoSalida& salida, Rango rango);
void escriba_html(const Hojas& hojas, ArchivoSalida& salida, Rango rango, const QString& titulo);
void escriba_rtf(const Hojas& hojas, ArchivoSalida& salida, Rango rango);

} // namespace informes
