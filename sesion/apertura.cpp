#include "sesion/apertura.h"

#include "sesion/tfdm.h"

bool hay_pantalla(const QString& nombre) {
    if (pantallas().existe(nombre))
        return true;
    fdm().mostrar_advertencia(
        QStringLiteral("La pantalla %1 todavía no está disponible.").arg(nombre));
    return false;
}

void abra_o_avise(const QString& pantalla, Encargo encargo) {
    if (hay_pantalla(pantalla))
        pantallas().abrir(pantalla, std::move(encargo));
}
