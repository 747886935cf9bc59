#include "toolkit/exportacion/escritores.h"

#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/tabla_exportable.h"

#include <algorithm>

namespace exportacion {

namespace {

QString entre_comillas(const QString& texto) {
    const bool especial = std::any_of(texto.begin(), texto.end(), [](QChar c) {
        return c == QLatin1Char(',') || c == QLatin1Char('"') || c == QLatin1Char('\r') ||
               c == QLatin1Char('\n');
    });
    if (!especial)
        return texto;
    return QLatin1Char('"') + QString(texto).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

} // namespace

void escriba_csv(TablaExportable& tabla, ArchivoSalida& salida) {
    const std::vector<ColumnaExportable> columnas = columnas_de(tabla);
    const int total = static_cast<int>(columnas.size());

    const auto escriba_linea = [&](auto&& texto_de) {
        QString linea;
        for (int i = 0; i < total; ++i) {
            if (i > 0)
                linea += QLatin1Char(',');
            linea += entre_comillas(texto_de(i));
        }
        salida.escriba(linea + QStringLiteral("\r\n"));
    };

    salida.escriba(QByteArray("\xEF\xBB\xBF"));
    escriba_linea([&](int i) { return columnas[i].titulo; });
    tabla.inicie();
    while (tabla.siguiente())
        escriba_linea([&](int i) {
            const ValorExportable valor = tabla.valor(i);
            if (const auto* importe = std::get_if<Moneda>(&valor))
                return texto_exacto(*importe, columnas[i].decimales);
            return texto_valor(valor, columnas[i].decimales);
        });
}

} // namespace exportacion
