#pragma once
// Cómo se graba un comprobante. Es el único camino: lo siguen las pantallas sobre sus conjuntos de
// datos, al grabar y al pasar de libro, y los lotes con `grabe_comprobante`.
//
// El orden: la línea pendiente de cada libro entra o se cancela; se revisa todo lo que está en
// memoria, a la vista o no; el comprobante provisional toma su id, que conserva aunque falle; el
// encabezado y los dos libros van en una transacción. Si se pierde la respuesta del servidor, el
// proveedor averigua por lo que se envió, y una línea nueva cuyo número otro tomó pasa al que
// sigue.
#include "libro/conjuntos_comprobante.h"
#include "libro/fechas.h"
#include "libro/modos.h"
#include "libro/rechazo.h"

struct ResultadoGrabacion {
    enum Clase {
        Grabado,
        Rehusado, ///< nada cambió en la base
        Fallo,    ///< la base no lo recibió; los cambios siguen en memoria
    };
    Clase clase = Rehusado;
    qint64 id = 0;
    QString numero;        ///< con el que quedó
    QString numero_pedido; ///< el que llevaba: otro usuario pudo tomarlo
    Rechazos rechazos;     ///< de Rehusado
    QString falla;         ///< de Fallo, en los lotes; la pantalla la dice su proveedor

    bool cambio_de_numero() const { return clase == Grabado && numero != numero_pedido; }
};

/// Graba la línea pendiente si tiene cuenta; si no, la cancela. Una línea guardada que nadie cambió
/// se deja como estaba.
void termine_linea(ConjuntoDatos& lineas);

/// El procedimiento sobre los conjuntos de un comprobante abierto.
class GrabacionComprobante {
public:
    explicit GrabacionComprobante(const ConjuntosComprobante& conjuntos);

    /// El número es el que escribió quien graba: aunque el prefijo numere solo, no avanza.
    bool numero_fijo = false;
    /// El número se tomó del contador: si ya lo tiene otro avanza, aunque el prefijo no numere
    /// solo.
    bool numero_del_contador = false;

    Rechazos revise(const ModoGrabacion& modo, const AjustesLibro& ajustes) const;
    /// Graba lo que ya se revisó. Las fallas las dice el OnUpdateError del proveedor, salvo el
    /// número automático que otro tomó: ese avanza solo.
    ResultadoGrabacion grabe(const ModoGrabacion& modo);
    /// Toma un id si el comprobante aún lleva el provisional; devuelve el que queda.
    qint64 tome_id();
    /// Vuelve a leer el comprobante por su id, con lo que la base agregó.
    void relea();
    /// Sigue otro comprobante: lo que se mandó antes ya no importa.
    void olvide();

private:
    bool aplique(const ModoGrabacion& modo, ResultadoGrabacion& resultado);
    bool tome_otro_numero();
    bool se_borraron_lineas() const;
    void alterne_blanco();
    QString numero() const;

    ConjuntosComprobante c_;
    Conexion& conexion_;
    bool blanco_puesto_ = false; ///< el de este comprobante ya viajó o está por viajar
};

/// Graba un comprobante completo: con id 0 es nuevo y toma el suyo y, si no trae número, el del
/// contador de su prefijo, que avanza si otro lo tomó; con id reemplaza al que hay. Revisa dato por
/// dato.
ResultadoGrabacion grabe_comprobante(Conexion& conexion, const Comprobante& comprobante,
                                     const AjustesLibro& ajustes);
