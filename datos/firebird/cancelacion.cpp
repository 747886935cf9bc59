#include "datos/firebird/cancelacion.h"

#include "datos/firebird/interno.h"

using namespace Firebird;

Cancelador::Cancelador(Conexion& conexion) : enlace_(conexion.interno().enlace) {
    if (enlace_)
        static_cast<IAttachment*>(enlace_)->addRef();
}

Cancelador::~Cancelador() {
    if (enlace_)
        static_cast<IAttachment*>(enlace_)->release();
}

void Cancelador::cancele() noexcept {
    if (!enlace_)
        return;
    try {
        fbc::Estado estado; // sin nada que cancelar dice que no pudo, y no importa
        static_cast<IAttachment*>(enlace_)->cancelOperation(&estado, fb_cancel_raise);
    } catch (...) {
    }
}
