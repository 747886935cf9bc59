// Salidas de renglones: texto, HTML y RTF.
#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/escritores.h"
#include "toolkit/informes/salidas.h"

#include <QtMath>
#include <cmath>

namespace informes {

// ---------------------------------------------------------------- texto

namespace {

/// Columnas de texto por milímetro: con ellas caben las cifras de la letra pequeña de las
/// plantillas.
constexpr double kColumnasPorMilimetro = 0.72;

QString renglon_de_texto(const Renglon& renglon, double ancho) {
    const int columnas = int(std::lround(ancho * kColumnasPorMilimetro));
    if (renglon.raya)
        return QString(columnas, QLatin1Char('-'));
    QString linea;
    for (const Trozo& t : renglon.trozos) {
        const QString texto = QString(t.texto).replace(QLatin1Char('\n'), QLatin1Char(' '));
        const double ancla = t.lado == Lado::Derecha  ? t.x + t.ancho
                             : t.lado == Lado::Centro ? t.x + t.ancho / 2
                                                      : t.x;
        qsizetype columna = std::lround(ancla * kColumnasPorMilimetro);
        if (t.lado == Lado::Derecha)
            columna -= texto.size();
        else if (t.lado == Lado::Centro)
            columna -= texto.size() / 2;
        // Nada se escribe encima de lo anterior: si no cabe en su sitio, corre.
        const qsizetype libre = linea.isEmpty() ? 0 : linea.size() + 1;
        linea = linea.leftJustified(qMax(columna, libre));
        linea += texto;
    }
    return linea;
}

} // namespace

void escriba_texto(const Hojas& hojas, ArchivoSalida& salida, Rango rango) {
    for (int p = rango.desde; p <= rango.hasta; ++p) {
        if (p > rango.desde)
            salida.escriba(QStringLiteral("\f"));
        for (const Renglon& r : renglones_de(hojas, p))
            salida.escriba(renglon_de_texto(r, hojas.papel(p).ancho) + QLatin1Char('\n'));
    }
}

// ---------------------------------------------------------------- HTML

namespace {

/// Celdas de un renglón: dónde empieza cada una. Los renglones con las mismas celdas van en la
/// misma tabla, de modo que las columnas siguen alineadas sin la hoja.
struct Celdas {
    QVector<int> bordes; ///< en décimas de milímetro, del margen izquierdo al derecho
    bool operator==(const Celdas&) const = default;
};

int decimas(double mm) {
    return int(std::lround(mm * 10));
}

Celdas celdas_de(const Renglon& renglon, double ancho) {
    Celdas c;
    int anterior = 0;
    for (const Trozo& t : renglon.trozos) {
        const int desde = qMax(anterior, decimas(t.x));
        const int hasta = qMax(desde + 1, decimas(t.x + t.ancho));
        c.bordes << desde << hasta;
        anterior = hasta;
    }
    c.bordes << decimas(ancho);
    return c;
}

/// Estilo de un texto, en la propia celda: los procesadores de texto no leen el de las clases.
QString estilo_html(const Estilo& e, double achique) {
    return QStringLiteral("font-family:'%1',sans-serif;font-size:%2pt;color:%3%4%5")
        .arg(e.letra.isEmpty() ? QStringLiteral("Liberation Sans") : e.letra)
        .arg(e.cuerpo * achique, 0, 'g', 4)
        .arg(e.color, e.negrita ? QStringLiteral(";font-weight:bold") : QString(),
             e.cursiva ? QStringLiteral(";font-style:italic") : QString());
}

} // namespace

void escriba_html(const Hojas& hojas, ArchivoSalida& salida, Rango rango, const QString& titulo) {
    salida.escriba(
        QStringLiteral("<!DOCTYPE html>\n<html lang=\"es\"><head><meta charset=\"utf-8\">"
                       "<title>%1</title>\n<style>\n.hoja{margin:8mm auto;page-break-after:always}"
                       "\n.hoja:last-child{page-break-after:auto}\n"
                       "table{border-collapse:collapse;table-layout:fixed}\n"
                       "td{padding:0;vertical-align:top;white-space:nowrap}\n"
                       "hr{border:0;border-top:1px solid #000;margin:1px 0}\n</style></head>"
                       "<body>\n")
            .arg(titulo.toHtmlEscaped()));
    for (int p = rango.desde; p <= rango.hasta; ++p) {
        const double ancho = hojas.papel(p).ancho;
        salida.escriba(QStringLiteral("<div class=\"hoja\" style=\"width:%1mm\">\n").arg(ancho));
        Celdas abiertas;
        const auto cierre = [&] {
            if (!abiertas.bordes.isEmpty())
                salida.escriba(QStringLiteral("</table>\n"));
            abiertas.bordes.clear();
        };
        for (const Renglon& r : renglones_de(hojas, p)) {
            if (r.raya) {
                cierre();
                salida.escriba(QStringLiteral("<hr>\n"));
                continue;
            }
            const Celdas celdas = celdas_de(r, ancho);
            if (!(celdas == abiertas)) {
                cierre();
                abiertas = celdas;
                salida.escriba(QStringLiteral("<table width=\"100%\" cellspacing=\"0\" "
                                              "cellpadding=\"0\">\n"));
            }
            QString fila = QStringLiteral("<tr>");
            int anterior = 0;
            const auto por_ciento = [&](int borde) {
                const double parte = (borde - anterior) * 10 / ancho;
                anterior = borde;
                return QString::number(parte, 'f', 2);
            };
            static const char* const lados[] = {"left", "center", "right"};
            for (qsizetype i = 0; i < r.trozos.size(); ++i) {
                const Trozo& t = r.trozos[i];
                fila +=
                    QStringLiteral("<td width=\"%1%\"></td>").arg(por_ciento(celdas.bordes[2 * i]));
                fila += QStringLiteral("<td width=\"%1%\" align=\"%2\"><span style=\"%3\">%4"
                                       "</span></td>")
                            .arg(por_ciento(celdas.bordes[2 * i + 1]),
                                 QLatin1String(lados[int(t.lado)]),
                                 estilo_html(hojas.estilo_de(t.estilo), t.achique),
                                 t.texto.toHtmlEscaped().replace(QLatin1Char('\n'),
                                                                 QLatin1String("<br>")));
            }
            salida.escriba(fila + QStringLiteral("<td width=\"%1%\"></td></tr>\n")
                                      .arg(por_ciento(celdas.bordes.last())));
        }
        cierre();
        salida.escriba(QStringLiteral("</div>\n"));
    }
    salida.escriba(QStringLiteral("</body></html>\n"));
}

// ---------------------------------------------------------------- RTF

namespace {

int twips(double mm) {
    return int(std::lround(mm * 1440 / 25.4));
}

} // namespace

void escriba_rtf(const Hojas& hojas, ArchivoSalida& salida, Rango rango) {
    const Papel hoja = hojas.papel(rango.desde);
    salida.escriba(QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss "
                                  "Liberation Sans;}}\n\\paperw%1\\paperh%2%3\\margl%4\\margr%4"
                                  "\\margt%5\\margb%6\n")
                       .arg(twips(hoja.ancho))
                       .arg(twips(hoja.alto))
                       .arg(hoja.horizontal ? QStringLiteral("\\landscape") : QString())
                       .arg(twips(hoja.margen_x))
                       .arg(twips(hoja.margen_y))
                       .arg(twips(hoja.margen_y / 2)));
    for (int p = rango.desde; p <= rango.hasta; ++p) {
        const double margen = hojas.papel(p).margen_x;
        if (p > rango.desde)
            salida.escriba(QStringLiteral("\\page\n"));
        bool raya = false;
        for (const Renglon& r : renglones_de(hojas, p)) {
            if (r.raya) {
                raya = true; // es el borde superior del renglón que sigue
                continue;
            }
            // Cada texto va a su tabulador, con la alineación de su columna.
            QString parrafo = QStringLiteral("\\pard");
            if (raya)
                parrafo += QStringLiteral("\\brdrt\\brdrs\\brdrw5");
            raya = false;
            for (const Trozo& t : r.trozos) {
                const double ancla = t.lado == Lado::Derecha  ? t.x + t.ancho
                                     : t.lado == Lado::Centro ? t.x + t.ancho / 2
                                                              : t.x;
                parrafo += QStringLiteral("%1\\tx%2")
                               .arg(t.lado == Lado::Derecha  ? QStringLiteral("\\tqr")
                                    : t.lado == Lado::Centro ? QStringLiteral("\\tqc")
                                                             : QString())
                               .arg(qMax(1, twips(ancla - margen)));
            }
            for (const Trozo& t : r.trozos) {
                const Estilo& e = hojas.estilo_de(t.estilo);
                parrafo += QStringLiteral("\\tab{\\fs%1%2%3 ")
                               .arg(qFloor(e.cuerpo * t.achique *
                                           2)) // hacia abajo: más grande, corre al que le sigue
                               .arg(e.negrita ? QStringLiteral("\\b") : QString(),
                                    e.cursiva ? QStringLiteral("\\i") : QString()) +
                           QString::fromLatin1(exportacion::escape_rtf(t.texto)) + QLatin1Char('}');
            }
            salida.escriba(parrafo + QStringLiteral("\\par\n"));
        }
        if (raya) // sin renglón que la lleve
            salida.escriba(QStringLiteral("\\pard\\brdrt\\brdrs\\brdrw5\\fs2\\par\n"));
    }
    salida.escriba(QStringLiteral("}\n"));
}

} // namespace informes
