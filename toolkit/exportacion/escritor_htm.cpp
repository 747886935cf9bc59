#include "toolkit/exportacion/escritores.h"

#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/tabla_exportable.h"

namespace exportacion {

namespace {

QString escape_html(const QString& texto) {
    QString resultado = texto.toHtmlEscaped();
    resultado.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return resultado;
}

// El HTML no admite caracteres de control, ni siquiera como entidad.
QString contenido(const QString& texto) {
    QStringList lineas = escape_html(texto).split(QLatin1Char('\n'));
    for (QString& linea : lineas)
        linea = en_una_linea(linea);
    return lineas.join(QStringLiteral("<br/>"));
}

const char* clase(Qt::AlignmentFlag lado) {
    switch (lado) {
    case Qt::AlignRight:
        return " class=\"d\"";
    case Qt::AlignHCenter:
        return " class=\"c\"";
    default:
        return "";
    }
}

constexpr char kEstilo[] =
    "body{font-family:Arial,Helvetica,sans-serif;font-size:10pt;margin:1.5em;color:#222}\n"
    "table{border-collapse:collapse;font-variant-numeric:tabular-nums}\n"
    "caption{text-align:left;font-size:13pt;font-weight:bold;padding-bottom:.5em}\n"
    "th,td{padding:.2em .6em;text-align:left;vertical-align:top;white-space:nowrap}\n"
    "th{background:#e8edf3;border-bottom:1px solid #667}\n"
    "tbody tr:nth-child(even){background:#f6f8fa}\n"
    "tfoot td{border-top:1px solid #667;font-weight:bold}\n"
    ".d{text-align:right}\n"
    ".c{text-align:center}\n";

} // namespace

void escriba_htm(TablaExportable& tabla, ArchivoSalida& salida) {
    const std::vector<ColumnaExportable> columnas = columnas_de(tabla);
    const int total = static_cast<int>(columnas.size());
    const QString titulo = en_una_linea(escape_html(tabla.titulo()));

    const auto escriba_fila = [&](QLatin1String etiqueta, auto&& texto_de) {
        QString fila = QStringLiteral("<tr>");
        for (int i = 0; i < total; ++i)
            fila += QLatin1Char('<') + etiqueta + QLatin1String(clase(columnas[i].lado())) +
                    QLatin1Char('>') + contenido(texto_de(i)) + QStringLiteral("</") + etiqueta +
                    QLatin1Char('>');
        salida.escriba(fila + QStringLiteral("</tr>\n"));
    };

    salida.escriba(QStringLiteral("<!DOCTYPE html>\n<html lang=\"es\">\n<head>\n"
                                  "<meta charset=\"utf-8\"/>\n<title>%1</title>\n<style>\n")
                       .arg(titulo.isEmpty() ? QStringLiteral("Datos") : titulo));
    salida.escriba(QByteArray(kEstilo));
    salida.escriba(QByteArray("</style>\n</head>\n<body>\n<table>\n"));
    if (!titulo.isEmpty())
        salida.escriba(QStringLiteral("<caption>%1</caption>\n").arg(titulo));
    salida.escriba(QByteArray("<thead>\n"));
    escriba_fila(QLatin1String("th"), [&](int i) { return columnas[i].titulo; });
    salida.escriba(QByteArray("</thead>\n<tbody>\n"));
    tabla.inicie();
    while (tabla.siguiente())
        escriba_fila(QLatin1String("td"), [&](int i) { return tabla.texto(i); });
    salida.escriba(QByteArray("</tbody>\n"));
    if (tabla.tiene_pie()) {
        salida.escriba(QByteArray("<tfoot>\n"));
        escriba_fila(QLatin1String("td"), [&](int i) { return tabla.texto_pie(i); });
        salida.escriba(QByteArray("</tfoot>\n"));
    }
    salida.escriba(QByteArray("</table>\n</body>\n</html>\n"));
}

} // namespace exportacion
