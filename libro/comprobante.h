#pragma once
// Un comprobante como valor: encabezado y líneas de los dos libros, sin pantalla ni conjunto de
// datos que lo sostenga. Es lo que se revisa, se graba en lote y se compara.
#include "datos/firebird/conexion.h"
#include "libro/libro.h"

#include <QVector>
#include <optional>

/// Línea de un libro. Importes en pesos; un cero y un importe ausente son lo mismo.
struct LineaComprobante {
    qint64 item = -1; ///< CODE_ITEM, desde 0; negativo mientras no tiene
    QString cuenta, concepto, referencia;
    Moneda debito, credito, base;
    Moneda porcentaje; ///< de 0 a 100
    QString nit, proyecto, centro;
    QString vence; ///< "aaaammdd" del documento que la línea nombra
    QString articulo;
    qint64 tipo_aplica = 0, tipo_abre = 0; ///< TIDO_COD
    QString categoria, documento, documento_aplica;
    QString descontable;
    qint64 item_replica = -1; ///< solo en NIIF: la línea 2649 que replica; negativo si ninguna

    bool es_replica() const { return item_replica >= 0; }
    bool operator==(const LineaComprobante&) const = default;
};

struct Comprobante {
    qint64 id = 0; ///< ENCO_CONSEC; 0 mientras es provisional
    QString tipo, prefijo, numero;
    QString fecha; ///< "aaaammdd", mes 01 a 13
    QString concepto, referencia;
    qint64 tipo_origen = 0, id_origen = 0; ///< documento de otro módulo; 0 y 0 a mano
    QString usuario, nit, nombre_tercero;
    Moneda monto;
    QString descontable = QStringLiteral("S");
    QString mandante;
    QString replica = QStringLiteral("N"); ///< "S": las líneas NIIF son réplica de las 2649
    QString observaciones;
    QVector<LineaComprobante> lineas_2649, lineas_niif;

    QVector<LineaComprobante>& lineas(Libro libro) {
        return es_niif(libro) ? lineas_niif : lineas_2649;
    }
    const QVector<LineaComprobante>& lineas(Libro libro) const {
        return es_niif(libro) ? lineas_niif : lineas_2649;
    }
    Moneda debitos(Libro libro) const;
    Moneda creditos(Libro libro) const;
    bool operator==(const Comprobante&) const = default;
};

/// Lee el comprobante de la base, con sus líneas por CODE_ITEM; nada si el id no está.
std::optional<Comprobante> lea_comprobante(Conexion& conexion, qint64 id);
