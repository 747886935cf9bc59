#include "toolkit/exportacion/escritores.h"

#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/tabla_exportable.h"

namespace exportacion {

namespace {

QString ajuste(const QString& texto, int ancho, Qt::AlignmentFlag lado) {
    switch (lado) {
    case Qt::AlignRight:
        return texto.rightJustified(ancho);
    case Qt::AlignHCenter:
        return QString((ancho - texto.size()) / 2, QLatin1Char(' '))
            .append(texto)
            .leftJustified(ancho);
    default:
        return texto.leftJustified(ancho);
    }
}

} // namespace

void escriba_txt(TablaExportable& tabla, ArchivoSalida& salida) {
    const MedidaTabla medida = mida_tabla(tabla);
    const std::vector<ColumnaExportable> columnas = columnas_de(tabla);
    const int total = static_cast<int>(columnas.size());

    const auto escriba_linea = [&](auto&& texto_de) {
        QString linea;
        for (int i = 0; i < total; ++i) {
            if (i > 0)
                linea += QStringLiteral("  ");
            linea += ajuste(en_una_linea(texto_de(i)), medida.columnas[i].caracteres,
                            columnas[i].lado());
        }
        while (linea.endsWith(QLatin1Char(' ')))
            linea.chop(1);
        salida.escriba(linea + QStringLiteral("\r\n"));
    };
    const auto escriba_raya = [&] {
        escriba_linea(
            [&](int i) { return QString(medida.columnas[i].caracteres, QLatin1Char('-')); });
    };

    salida.escriba(QByteArray("\xEF\xBB\xBF"));
    if (!tabla.titulo().isEmpty())
        salida.escriba(en_una_linea(tabla.titulo()) + QStringLiteral("\r\n\r\n"));
    escriba_linea([&](int i) { return columnas[i].titulo; });
    escriba_raya();
    tabla.inicie();
    while (tabla.siguiente())
        escriba_linea([&](int i) { return tabla.texto(i); });
    if (tabla.tiene_pie()) {
        escriba_raya();
        escriba_linea([&](int i) { return tabla.texto_pie(i); });
    }
}

} // namespace exportacion
