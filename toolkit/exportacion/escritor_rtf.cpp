#include "toolkit/exportacion/escritores.h"

#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/tabla_exportable.h"

#include <algorithm>
#include <cmath>

namespace exportacion {

QByteArray escape_rtf(const QString& texto) {
    QByteArray rtf;
    rtf.reserve(texto.size());
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const ushort c = texto[i].unicode();
        if (c == '\\' || c == '{' || c == '}')
            rtf.append('\\').append(static_cast<char>(c));
        else if (c == '\n')
            rtf.append("\\line ");
        else if (c == '\t')
            rtf.append("\\tab ");
        else if (c < 0x20 || (c >= 0x7f && c < 0xa0))
            continue;
        else if (c < 0x7f)
            rtf.append(static_cast<char>(c));
        else if (c <= 0xff)
            rtf.append("\\'").append(QByteArray::number(c, 16));
        else
            rtf.append("\\u").append(QByteArray::number(static_cast<qint16>(c))).append('?');
    }
    return rtf;
}

namespace {

// Medidas en twips (1/1440 de pulgada) de la hoja carta.
constexpr int kLadoCorto = 12240;
constexpr int kLadoLargo = 15840;
constexpr int kMargen = 720;
constexpr int kAireCelda = 60;         // A cada lado de la celda.
constexpr double kAnchoCaracter = 0.6; // De la letra Arial, en partes de su cuerpo.
constexpr int kLetraMayor = 18;        // Medios puntos.
constexpr int kLetraMenor = 10;
constexpr int kTextoMasAncho = 50; // Un texto más largo ocupa varios renglones.

struct Hoja {
    bool horizontal = false;
    int cuerpo = kLetraMayor;
    std::vector<int> bordes; // Borde derecho de cada celda.
};

// La hoja más cómoda en que cabe la tabla: vertical, si no horizontal, si no letra menor; en último
// caso las columnas se estrechan en proporción.
Hoja disponga(const MedidaTabla& medida, const std::vector<ColumnaExportable>& columnas) {
    std::vector<int> caracteres;
    int suma = 0;
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        const int ancho = std::max(medida.columnas[i].caracteres, 3);
        caracteres.push_back(
            columnas[i].tipo == TipoExportable::Texto ? std::min(ancho, kTextoMasAncho) : ancho);
        suma += caracteres.back();
    }
    const int separaciones = static_cast<int>(columnas.size()) * 2 * kAireCelda;
    const auto ocupa = [&](int cuerpo) {
        return separaciones + static_cast<int>(std::ceil(suma * cuerpo * 10 * kAnchoCaracter));
    };
    Hoja hoja;
    hoja.horizontal = ocupa(kLetraMayor) > kLadoCorto - 2 * kMargen;
    const int disponible = (hoja.horizontal ? kLadoLargo : kLadoCorto) - 2 * kMargen;
    while (hoja.cuerpo > kLetraMenor && ocupa(hoja.cuerpo) > disponible)
        --hoja.cuerpo;
    const double escala = std::min(1.0, double(disponible) / ocupa(hoja.cuerpo));
    double borde = 0;
    for (int ancho : caracteres) {
        borde += escala * (2 * kAireCelda + ancho * hoja.cuerpo * 10 * kAnchoCaracter);
        hoja.bordes.push_back(static_cast<int>(borde));
    }
    return hoja;
}

QByteArray defina_fila(const Hoja& hoja, const char* propiedades, const char* borde) {
    QByteArray definicion = QByteArray("\\trowd") + propiedades + "\\trgaph" +
                            QByteArray::number(kAireCelda) + "\\trleft0\\trkeep";
    for (int x : hoja.bordes)
        definicion += borde + QByteArray("\\cellx") + QByteArray::number(x);
    return definicion + '\n';
}

const char* lado_rtf(Qt::AlignmentFlag lado) {
    switch (lado) {
    case Qt::AlignRight:
        return "\\qr ";
    case Qt::AlignHCenter:
        return "\\qc ";
    default:
        return "\\ql ";
    }
}

} // namespace

void escriba_rtf(TablaExportable& tabla, ArchivoSalida& salida) {
    const MedidaTabla medida = mida_tabla(tabla);
    const std::vector<ColumnaExportable> columnas = columnas_de(tabla);
    const Hoja hoja = disponga(medida, columnas);
    const QByteArray titulos =
        defina_fila(hoja, "\\trhdr", "\\clvertalb\\clcbpat1\\clbrdrb\\brdrs\\brdrw15");
    const QByteArray datos = defina_fila(hoja, "", "\\clbrdrb\\brdrs\\brdrw5\\brdrcf2");
    const QByteArray sumas = defina_fila(hoja, "", "\\clbrdrt\\brdrs\\brdrw15");

    const auto escriba_fila = [&](const QByteArray& definicion, bool negrita, auto&& texto_de) {
        QByteArray fila = definicion + "\\pard\\intbl" + (negrita ? "\\b" : "\\b0");
        for (std::size_t i = 0; i < columnas.size(); ++i)
            fila +=
                lado_rtf(columnas[i].lado()) + escape_rtf(texto_de(static_cast<int>(i))) + "\\cell";
        salida.escriba(fila + "\\row\n");
    };

    const int ancho = hoja.horizontal ? kLadoLargo : kLadoCorto;
    const int alto = hoja.horizontal ? kLadoCorto : kLadoLargo;
    salida.escriba(
        QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang9226\\uc1\n"
                       "{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\n"
                       "{\\colortbl;\\red232\\green237\\blue243;\\red190\\green196\\blue204;}\n"
                       "\\paperw%1\\paperh%2\\margl%3\\margr%3\\margt%3\\margb%3%4\n"
                       "{\\footer\\pard\\qr\\fs16 P\\'e1gina {\\field{\\*\\fldinst PAGE}} de "
                       "{\\field{\\*\\fldinst NUMPAGES}}\\par}\n")
            .arg(ancho)
            .arg(alto)
            .arg(kMargen)
            .arg(hoja.horizontal ? QStringLiteral("\\landscape") : QString()));
    if (!tabla.titulo().isEmpty())
        salida.escriba(QByteArray("\\pard\\b\\fs26 ") + escape_rtf(tabla.titulo()) + "\\b0\\par\n");
    salida.escriba("\\fs" + QByteArray::number(hoja.cuerpo) + '\n');

    escriba_fila(titulos, true, [&](int i) { return columnas[i].titulo; });
    tabla.inicie();
    while (tabla.siguiente())
        escriba_fila(datos, false, [&](int i) { return tabla.texto(i); });
    if (tabla.tiene_pie())
        escriba_fila(sumas, true, [&](int i) { return tabla.texto_pie(i); });
    salida.escriba(QByteArray("\\pard\\par}\n"));
}

} // namespace exportacion
