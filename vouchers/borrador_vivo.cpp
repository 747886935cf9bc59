#include "vouchers/borrador_vivo.h"

#include "datos/firebird/reloj.h"
#include "libro/columnas_comprobante.h"

#include <QCryptographicHash>

QString huella(const Comprobante& comprobante) {
    return QString::fromLatin1(QCryptographicHash::hash(escriba_borrador({{}, {}, comprobante, {}}),
                                                        QCryptographicHash::Sha256)
                                   .toHex());
}

BorradorVivo::BorradorVivo(const ConjuntosComprobante& conjuntos, const QString& llave,
                           std::function<QString()> dia, QObject* dueno)
    : ArchivoBorrador(
          llave, {&conjuntos.encabezado, &conjuntos.lineas_2649, &conjuntos.lineas_niif}, dueno),
      c_(conjuntos), dia_(std::move(dia)) {}

Comprobante BorradorVivo::en_pantalla() const {
    Comprobante c = lea_comprobante(c_);
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        const ConjuntoDatos& d = c_.lineas(libro);
        // La que se está insertando aún no es de las líneas, pero ya está escrita.
        if (d.State() != Estado::Insercion || d.FieldByName("CUEN_COD").vacio())
            continue;
        LineaComprobante l;
        for (const auto& columna : columnas_linea(libro))
            columna.ponga(l, d.FieldByName(QLatin1String(columna.nombre)).valor());
        c.lineas(libro).append(l);
    }
    return c;
}

QByteArray BorradorVivo::contenido() const {
    Comprobante c = en_pantalla();
    if (c.lineas_2649.isEmpty() && c.lineas_niif.isEmpty() && hay && !hay())
        return {};
    if (guardado_) {
        c.usuario = guardado_->usuario; // lo pone la pantalla: no es un cambio de nadie
        if (c == *guardado_)
            return {};
    }
    return escriba_borrador({reloj().ahora(), dia_(), c, periodo ? periodo() : QString()});
}

std::optional<Borrador> BorradorVivo::tome_huerfano() {
    std::optional<Borrador> borrador;
    tome_el_huerfano([&](const QByteArray& texto) {
        borrador = lea_borrador(texto);
        return borrador.has_value();
    });
    return borrador;
}
