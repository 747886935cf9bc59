#include "vouchers/deshacer.h"

#include <QScopeGuard>

void Deshacer::con(const QString& que, const std::function<void()>& cambio) {
    const Comprobante antes = lea_comprobante(c_);
    // También lo que quedó a medias por una falla se puede deshacer.
    const auto anote = qScopeGuard([&] {
        try {
            Comprobante despues = lea_comprobante(c_);
            if (despues == antes)
                return; // se desistió: lo anterior todavía se puede deshacer
            antes_ = antes;
            despues_ = std::move(despues);
            que_ = que;
        } catch (...) {
            antes_.reset(); // no se sabe a qué se volvería
        }
    });
    cambio();
}

bool Deshacer::hubo_mas_cambios() const {
    return !(lea_comprobante(c_) == despues_);
}

void Deshacer::deshaga() {
    if (!antes_)
        return;
    for (Libro libro : {Libro::Decreto2649, Libro::Niif})
        c_.lineas(libro).Cancel();
    // Si en medio se grabó, el id y el número son los que ya tiene.
    const Comprobante ahora = lea_comprobante(c_);
    if (ahora.id != antes_->id) {
        antes_->id = ahora.id;
        antes_->tipo = ahora.tipo;
        antes_->prefijo = ahora.prefijo;
        antes_->numero = ahora.numero;
    }
    vuelque(*antes_, c_);
    antes_.reset();
}
