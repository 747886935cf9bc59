#include "toolkit/exportacion/tabla_exportable.h"

#include <algorithm>

namespace {

bool es_control(QChar c) {
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
}

} // namespace

Qt::AlignmentFlag ColumnaExportable::lado() const {
    if (alineacion)
        return *alineacion;
    switch (tipo) {
    case TipoExportable::Entero:
    case TipoExportable::Moneda:
        return Qt::AlignRight;
    case TipoExportable::Casilla:
        return Qt::AlignHCenter;
    default:
        return Qt::AlignLeft;
    }
}

QString TablaExportable::texto(int indice) const {
    return texto_valor(valor(indice), columna(indice).decimales);
}

QString TablaExportable::texto_pie(int indice) const {
    return texto_valor(pie(indice), columna(indice).decimales);
}

QString texto_exacto(Moneda importe, int decimales) {
    qint64 resto = importe.unidades();
    int exactos = Moneda::kDecimales;
    for (; exactos > 0 && resto % 10 == 0; --exactos)
        resto /= 10;
    return importe.formateada(std::max(decimales, exactos)).remove(QLatin1Char(','));
}

QString texto_valor(const ValorExportable& valor, int decimales) {
    struct Textos {
        int decimales;
        QString operator()(std::monostate) const { return {}; }
        QString operator()(const QString& texto) const { return texto; }
        QString operator()(qint64 entero) const { return QString::number(entero); }
        QString operator()(Moneda importe) const { return importe.formateada(decimales); }
        QString operator()(const QDate& fecha) const {
            return fecha.toString(QStringLiteral("yyyy/MM/dd"));
        }
        QString operator()(bool marcada) const { return QString(QLatin1Char(marcada ? 'S' : 'N')); }
    };
    return std::visit(Textos{decimales}, valor);
}

QString en_una_linea(const QString& texto) {
    if (std::none_of(texto.begin(), texto.end(), es_control))
        return texto;
    QString linea;
    linea.reserve(texto.size());
    for (qsizetype i = 0; i < texto.size(); ++i) {
        if (texto[i] == QLatin1Char('\r') && i + 1 < texto.size() &&
            texto[i + 1] == QLatin1Char('\n'))
            continue;
        linea += es_control(texto[i]) ? QChar(QLatin1Char(' ')) : texto[i];
    }
    return linea;
}

MedidaTabla mida_tabla(TablaExportable& tabla) {
    MedidaTabla medida;
    const int columnas = tabla.columnas();
    medida.columnas.resize(columnas);
    const auto anote = [&](int indice, const QString& texto) {
        MedidaColumna& columna = medida.columnas[indice];
        if (texto.size() > columna.dato_mas_largo.size())
            columna.dato_mas_largo = en_una_linea(texto);
    };
    tabla.inicie();
    while (tabla.siguiente()) {
        ++medida.filas;
        for (int i = 0; i < columnas; ++i)
            anote(i, tabla.texto(i));
    }
    for (int i = 0; i < columnas; ++i) {
        if (tabla.tiene_pie())
            anote(i, tabla.texto_pie(i));
        MedidaColumna& columna = medida.columnas[i];
        columna.caracteres =
            std::max(columna.dato_mas_largo.size(), en_una_linea(tabla.columna(i).titulo).size());
    }
    return medida;
}

std::vector<ColumnaExportable> columnas_de(const TablaExportable& tabla) {
    std::vector<ColumnaExportable> columnas;
    for (int i = 0; i < tabla.columnas(); ++i)
        columnas.push_back(tabla.columna(i));
    return columnas;
}
