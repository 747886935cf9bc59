#pragma once
// Lo que una regla del libro encuentra mal, como dato: la pantalla lo dice, un lote lo reúne y una
// prueba lo lee. Ninguna regla de este piso muestra nada.
#include "libro/libro.h"

#include <QVector>
#include <optional>

/// En el orden en que se revisa: el de los datos de una línea es el de sus celdas.
enum class Motivo {
    Tipo,
    Prefijo,
    Numero,
    NumeroTomado,
    NumeroAgotado, ///< el contador del prefijo pasó de 999999
    Fecha,
    Bloqueo,
    CuentaInexistente,
    CuentaIncompleta,
    CuentaSuperior,
    CuentaConAuxiliares,
    CuentaInactiva,
    CuentaNoSirve, ///< la base la rehúsa por otra razón
    Tercero,
    FaltaTercero,
    Centro,
    FaltaCentro,
    Categoria,
    Articulo,
    FaltaBase,
    FaltaPorcentaje,
    PorcentajeAlto,
    Importe,
    SinEquivalente,
    DeOtroModulo,
    CambioAjeno,
    Descuadre,
    Vacio,
};

/// Lo que puede proponerse al usuario además de corregir.
enum class Oferta {
    Ninguna,
    CrearCuenta,
    CrearTercero,
    ConsultarComprobante,
    Confirmar, ///< vale si el usuario dice que sí; un lote lo da por rehusado
};

struct Rechazo {
    Motivo motivo = Motivo::CuentaNoSirve;
    QString texto;              ///< del sistema, listo para mostrar; vacío: se rehúsa callado
    QString campo;              ///< columna de la tabla en que está el dato, o vacío
    std::optional<Libro> libro; ///< sin libro, es del encabezado
    int item = -1;              ///< CODE_ITEM de la línea; negativo si no es de una línea
    Oferta oferta = Oferta::Ninguna;
    QString pregunta; ///< con que se propone la oferta
    QString dato;     ///< código por crear, o id del comprobante por consultar

    bool de_linea() const { return item >= 0; }
    /// De una línea de ese libro.
    Rechazo& en(Libro l, int linea) {
        libro = l;
        item = linea;
        return *this;
    }
    bool operator==(const Rechazo&) const = default;
};

using Rechazos = QVector<Rechazo>;
