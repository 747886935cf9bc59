// Ida y vuelta de las peticiones entre pantallas.
#include "toolkit/peticion.h"

#include "toolkit/pantalla.h"

#include <algorithm>

void Pantalla::abra_encargo(const QString& nombre, Encargo encargo) {
    if (!es_modal()) {
        pantallas().abrir(nombre, std::move(encargo));
        return;
    }
    // Debajo de un modal una ventana hija no se puede usar.
    pantallas().abrir_modal(nombre, std::move(encargo));
    reciba_entregas();
}

namespace {
constexpr char kRespuesta[] = "respuesta"; ///< lo contestado, hasta que la pantalla cierre
}

/// La última vale, y se entrega al cerrarse: si el cierre se rehúsa, no se escogió nada.
bool Pantalla::conteste(std::any respuesta) {
    if (!encargo_.al_responder_)
        return false;
    setProperty(kRespuesta, QVariant::fromValue(std::move(respuesta)));
    return true;
}

/// Lo contestado en la pantalla, que deja de estarlo; vacío si nada.
std::any saque_respuesta(Pantalla& pantalla) {
    const QVariant respuesta = pantalla.property(kRespuesta);
    pantalla.setProperty(kRespuesta, {});
    return respuesta.isValid() ? respuesta.value<std::any>() : std::any();
}

void Pantalla::deje(std::type_index tipo, std::any respuesta) {
    if (Escritorio* e = escritorio())
        e->ofrecidas_[tipo] = std::move(respuesta);
}

void Pantalla::espere_entrega(Entrega entrega) {
    if (cerrada_)
        return;
    entregas_.push_back(std::move(entrega));
    // Sin marco de ventanas nadie avisa la activación: se recibe al volver al lazo de eventos.
    if (!ventana_hija() && !es_modal())
        QMetaObject::invokeMethod(
            this, [this] { reciba_entregas(); }, Qt::QueuedConnection);
}

void Pantalla::reciba_entregas() {
    if (Escritorio* e = escritorio())
        for (const auto& [tipo, acepta] : aceptadas_)
            if (const auto o = e->ofrecidas_.find(tipo); o != e->ofrecidas_.end())
                entregas_.push_back({tipo, [e, tipo = tipo, acepta = acepta, r = o->second] {
                                         e->ofrecidas_.erase(tipo);
                                         if (!acepta(r))
                                             e->ofrecidas_[tipo] = r;
                                     }});
    const auto puesto = [this](const Entrega& e) {
        return std::find(orden_.begin(), orden_.end(), e.tipo) - orden_.begin();
    };
    std::vector<Entrega> todas = std::exchange(entregas_, {});
    std::stable_sort(todas.begin(), todas.end(),
                     [&](const Entrega& a, const Entrega& b) { return puesto(a) < puesto(b); });
    const QPointer<Pantalla> viva(this);
    for (const Entrega& e : todas)
        if (viva && !viva->cerrada_)
            proteja(e.entregue);
}
