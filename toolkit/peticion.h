#pragma once
// Encargos entre pantallas: argumentos y respuestas con tipo, en vez de campos globales.
//
// Lo que una pantalla pide a otra es un agregado con sus campos; si espera respuesta, dice de qué
// tipo es:
//
//     struct PideCuenta {
//         using Respuesta = QString;
//         QString texto_busqueda;
//     };
//
// Quien pide (una Pantalla) da la petición y lo que hará con la respuesta, y sigue su camino:
//
//     pida("Tfcuentas", PideCuenta{.texto_busqueda = "caja"},
//          [this](const QString& cuenta) { lineas->reciba("CUEN_COD", cuenta); });
//
// Quien atiende lee la petición en FormCreate y contesta antes de cerrarse:
//
//     busqueda->EBuscar->setText(peticion<PideCuenta>().texto_busqueda);
//     ...
//     responda<PideCuenta>(codigo());
//     close();
//
// Reglas que se cumplen solas:
// - La respuesta llega a quien la pidió, la próxima vez que se active, después de su FormActivate.
//   Con dos que piden a la vez, cada una recibe la suya.
// - Cerrar sin contestar no deja nada, ni contestar si el cierre se rehúsa; quien se cerró mientras
//   tanto no recibe nada.
// - Una pantalla abierta sin petición, o con la de otro tipo, lee los valores por omisión, y lo que
//   conteste no va a ninguna parte (véase `acepte`, para la respuesta que espera a quien la tome).
// - Quien pide desde un modal abre también en modal y recibe al cerrarse la otra.
//
// Para solo abrir, sin respuesta: pantallas().abrir("Tfedtmovimien", AbreComprobante{id}). Donde el
// resultado se necesita ahí mismo: pantallas().pida_modal("Tfpuc", PidePuc{}).
//
// El destino de la respuesta se escoge al pedir y viaja en la función, no en un campo de la
// pantalla: entre pedir y recibir el usuario pudo pasar a otra parte. Los tipos del sistema y sus
// operaciones (escoja_cuenta, abra_comprobante...) están en sesion/peticiones.h.
#include <any>
#include <concepts>
#include <functional>
#include <type_traits>
#include <typeindex>
#include <utility>

class Pantalla;

/// Una petición con su vuelta, sin el tipo: lo que el registro lleva de una pantalla a la otra.
class Encargo {
public:
    Encargo() = default;
    /// De cualquier petición, para escribir abrir("Tfx", Peticion{...}).
    template <class P>
    requires std::is_aggregate_v<P> Encargo(P peticion) : peticion_(std::move(peticion)) {}

    bool vacio() const { return !peticion_.has_value(); }
    /// La petición, o nulo si es de otro tipo.
    template <class P> const P* de() const { return std::any_cast<P>(&peticion_); }

private:
    friend class Pantalla;
    friend class RegistroPantallas;
    std::any peticion_;
    std::function<void(const std::any&)> al_responder_; ///< vacía: nadie espera respuesta
};

/// Respuesta que espera a que su pantalla se active.
struct Entrega {
    std::type_index tipo; ///< de la petición
    std::function<void()> entregue;
};
