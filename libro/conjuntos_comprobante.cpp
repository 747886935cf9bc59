#include "libro/conjuntos_comprobante.h"

#include "datos/recordset/sin_eventos.h"
#include "libro/columnas_comprobante.h"

namespace {

template <class T> void defina(ConjuntoDatos& d, const ColumnaDe<T>& c) {
    const QString nombre = QLatin1String(c.nombre);
    Campo* campo = nullptr;
    if (std::holds_alternative<Moneda T::*>(c.miembro))
        campo = &d.decimal(nombre, c.tamano).formato(QLatin1String(c.formato));
    else if (std::holds_alternative<qint64 T::*>(c.miembro))
        campo = &d.entero(nombre);
    else
        campo = c.rasgos & ColMemo ? &d.memo(nombre) : &d.texto(nombre, c.tamano);
    campo->etiqueta(QString::fromUtf8(c.rotulo));
    if (c.rasgos & ColFija)
        campo->fijo();
    if (c.rasgos & ColRequerida)
        campo->requerido();
    campo->Tasa = c.rasgos & ColTasa;
}

/// Escribe en la fila en edición las columnas que difieren.
template <class T>
void escriba(ConjuntoDatos& d, const T& fila, const QVector<ColumnaDe<T>>& columnas) {
    for (const auto& c : columnas) {
        Campo& campo = d.FieldByName(QLatin1String(c.nombre));
        T actual;
        c.ponga(actual, campo.valor());
        if (c.valor(actual) != c.valor(fila))
            campo = c.valor(fila);
    }
}

void vuelque_lineas(const Comprobante& comprobante, ConjuntoDatos& d, Libro libro) {
    const auto& columnas = columnas_linea(libro);
    const auto& lineas = comprobante.lineas(libro);
    const auto deseada = [&](qint64 item) {
        return std::find_if(lineas.begin(), lineas.end(),
                            [item](const LineaComprobante& l) { return l.item == item; });
    };
    QSet<qint64> presentes;
    for (d.First(); !d.IsEmpty() && !d.Eof();) {
        const qint64 item = d.FieldByName("CODE_ITEM").entero();
        const auto linea = deseada(item);
        if (linea == lineas.end()) {
            d.Delete();
            continue;
        }
        presentes.insert(item);
        d.Edit();
        escriba(d, *linea, columnas);
        d.Post();
        d.Next();
    }
    for (const LineaComprobante& l : lineas) {
        if (presentes.contains(l.item))
            continue;
        d.Append();
        for (const auto& c : columnas)
            d.FieldByName(QLatin1String(c.nombre)) = c.valor(l);
        d.Post();
    }
}

} // namespace

void defina_encabezado(ConjuntoDatos& encabezado) {
    for (const auto& c : columnas_encabezado())
        defina(encabezado, c);
}

void defina_lineas(ConjuntoDatos& lineas, Libro libro) {
    lineas.CampoConsecutivo = "CODE_ITEM"; // dos editores pueden agregar a la vez
    lineas.entero("ENCO_CONSEC").requerido();
    for (const auto& c : columnas_linea(libro))
        defina(lineas, c);
}

LineaComprobante lea_linea(const ConjuntoDatos& lineas, Libro libro, const Fila& fila) {
    LineaComprobante l;
    for (const auto& c : columnas_linea(libro))
        c.ponga(l, lineas.valor_de(fila, lineas.FieldByName(QLatin1String(c.nombre))));
    return l;
}

Comprobante lea_comprobante(const ConjuntosComprobante& conjuntos) {
    Comprobante c;
    for (const auto& columna : columnas_encabezado())
        columna.ponga(c, conjuntos.encabezado.FieldByName(QLatin1String(columna.nombre)).valor());
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        const ConjuntoDatos& d = conjuntos.lineas(libro);
        d.recorra_todas(
            [&](const Fila& fila) { c.lineas(libro).append(lea_linea(d, libro, fila)); });
    }
    return c;
}

void vuelque(const Comprobante& comprobante, const ConjuntosComprobante& conjuntos) {
    const SinEventos encabezado(conjuntos.encabezado), de_2649(conjuntos.lineas_2649),
        de_niif(conjuntos.lineas_niif);
    // Queda sin grabarse en memoria: a un borrador le pueden faltar datos que se exigen al grabar.
    conjuntos.encabezado.Edit();
    escriba(conjuntos.encabezado, comprobante, columnas_encabezado());
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        ConjuntoDatos& d = conjuntos.lineas(libro);
        d.condicion({});
        vuelque_lineas(comprobante, d, libro);
    }
}

void ponga_callado(ConjuntoDatos& conjunto, const QString& campo, const Valor& valor) {
    const SinEventos callado(conjunto);
    conjunto.Edit();
    conjunto.FieldByName(campo) = valor;
}
