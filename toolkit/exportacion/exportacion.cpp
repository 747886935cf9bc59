#include "toolkit/exportacion/exportacion.h"

#include "toolkit/aviso_salida.h"
#include "toolkit/exportacion/escritores.h"

#include <QStringList>
#include <array>

namespace {

struct Formato {
    const char* extension;
    void (*escriba)(TablaExportable&, ArchivoSalida&);
};

// En el orden de FormatoExportacion.
constexpr std::array<Formato, 5> kEscritores = {{{"txt", exportacion::escriba_txt},
                                                 {"csv", exportacion::escriba_csv},
                                                 {"htm", exportacion::escriba_htm},
                                                 {"rtf", exportacion::escriba_rtf},
                                                 {"xls", exportacion::escriba_xls}}};

const Formato& datos_de(FormatoExportacion formato) {
    return kEscritores.at(static_cast<std::size_t>(formato));
}

} // namespace

void exporte(TablaExportable& tabla, FormatoExportacion formato, const QString& ruta) {
    ArchivoSalida salida(ruta);
    datos_de(formato).escriba(tabla, salida);
    salida.confirme();
    avise_grabado(ruta);
}

QString extension_de(FormatoExportacion formato) {
    return QLatin1String(datos_de(formato).extension);
}

FormatoExportacion formato_del_filtro(const QString& filtro) {
    for (std::size_t i = 0; i < kEscritores.size(); ++i)
        if (filtro.contains(QStringLiteral("*.%1)").arg(QLatin1String(kEscritores[i].extension)),
                            Qt::CaseInsensitive))
            return static_cast<FormatoExportacion>(i);
    return FormatoExportacion::Txt;
}

QString extension_del_filtro(const QString& filtro) {
    return extension_de(formato_del_filtro(filtro));
}

QString componga_nombre(const QString& nombre, const QString& extension) {
    if (nombre.right(3).toUpper() == extension.toUpper())
        return nombre;
    return nombre + QLatin1Char('.') + extension;
}

QString filtro_para_qt(const QString& filtro) {
    const QStringList partes = filtro.split(QLatin1Char('|'));
    QStringList filtros;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2) {
        const QString& descripcion = partes[i];
        // Qt toma los comodines del paréntesis final, y no distingue mayúsculas.
        filtros += descripcion.trimmed().endsWith(QLatin1Char(')'))
                       ? descripcion
                       : QStringLiteral("%1 (%2)").arg(
                             descripcion,
                             QString(partes[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')));
    }
    return filtros.join(QStringLiteral(";;"));
}
