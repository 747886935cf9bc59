#include "libro/comprobante.h"

#include "libro/columnas_comprobante.h"

#include <QStringList>

Moneda Comprobante::debitos(Libro libro) const {
    Moneda suma;
    for (const LineaComprobante& l : lineas(libro))
        suma += l.debito;
    return suma;
}

Moneda Comprobante::creditos(Libro libro) const {
    Moneda suma;
    for (const LineaComprobante& l : lineas(libro))
        suma += l.credito;
    return suma;
}

namespace {

template <class T> QString lista_de(const QVector<ColumnaDe<T>>& columnas) {
    QStringList nombres;
    for (const auto& c : columnas)
        nombres << QLatin1String(c.nombre);
    return nombres.join(',');
}

/// La fila actual del cursor, en el orden de las columnas pedidas.
template <class T> T fila_de(const Cursor& cursor, const QVector<ColumnaDe<T>>& columnas) {
    T fila;
    for (int i = 0; i < columnas.size(); ++i)
        columnas[i].ponga(fila, cursor.valor(i));
    return fila;
}

} // namespace

std::optional<Comprobante> lea_comprobante(Conexion& conexion, qint64 id) {
    const auto encabezado = conexion.abra("select " + lista_de(columnas_encabezado()) +
                                              " from comprobante_encabezado where enco_consec = ?",
                                          {id});
    if (!encabezado->siguiente())
        return {};
    Comprobante c = fila_de(*encabezado, columnas_encabezado());
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        const auto& columnas = columnas_linea(libro);
        const auto lineas =
            conexion.abra(QStringLiteral("select %1 from %2 where enco_consec = ? order by "
                                         "code_item")
                              .arg(lista_de(columnas), QLatin1String(datos(libro).detalle)),
                          {id});
        while (lineas->siguiente())
            c.lineas(libro).append(fila_de(*lineas, columnas));
    }
    return c;
}
