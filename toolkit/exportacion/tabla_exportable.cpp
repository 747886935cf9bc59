#include "toolkit/exportacion/tabla_exportable.h"

#include <algorithm>

namespace {

constexpr int kDecimalesImporte = 4;
constexpr quint64 kPotencias[] = {1, 10, 100, 1000, 10000};

// Sin signo, para que el menor qint64 también tenga valor absoluto.
quint64 magnitud(qint64 numero) {
    return numero < 0 ? 0 - static_cast<quint64>(numero) : static_cast<quint64>(numero);
}

QString con_decimales(quint64 unidades, int decimales, bool negativo, bool miles) {
    QString enteros = QString::number(unidades / kPotencias[decimales]);
    if (miles)
        for (qsizetype i = enteros.size() - 3; i > 0; i -= 3)
            enteros.insert(i, QLatin1Char(','));
    if (decimales > 0)
        enteros += QLatin1Char('.') + QString::number(unidades % kPotencias[decimales])
                                          .rightJustified(decimales, QLatin1Char('0'));
    return negativo && unidades != 0 ? QLatin1Char('-') + enteros : enteros;
}

bool es_control(QChar c) {
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
}

} // namespace

Qt::AlignmentFlag ColumnaExportable::lado() const {
    if (alineacion)
        return *alineacion;
    switch (tipo) {
    case TipoColumna::Entero:
    case TipoColumna::Moneda:
        return Qt::AlignRight;
    case TipoColumna::Casilla:
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

QString texto_importe(Importe importe, int decimales) {
    decimales = std::clamp(decimales, 0, kDecimalesImporte);
    const quint64 divisor = kPotencias[kDecimalesImporte - decimales];
    const quint64 redondeado = (magnitud(importe.diezmilesimas) + divisor / 2) / divisor;
    return con_decimales(redondeado, decimales, importe.diezmilesimas < 0, true);
}

QString texto_exacto(Importe importe, int decimales) {
    decimales = std::clamp(decimales, 0, kDecimalesImporte);
    const quint64 total = magnitud(importe.diezmilesimas);
    while (total % kPotencias[kDecimalesImporte - decimales] != 0)
        ++decimales;
    return con_decimales(total / kPotencias[kDecimalesImporte - decimales], decimales,
                         importe.diezmilesimas < 0, false);
}

QString texto_valor(const ValorExportable& valor, int decimales) {
    struct Textos {
        int decimales;
        QString operator()(std::monostate) const { return {}; }
        QString operator()(const QString& texto) const { return texto; }
        QString operator()(qint64 entero) const { return QString::number(entero); }
        QString operator()(Importe importe) const { return texto_importe(importe, decimales); }
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
