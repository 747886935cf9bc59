#include "vouchers/impresion_pendiente.h"

#include "vouchers/pch.h"

void abra_o_avise(const QString& pantalla) {
    if (pantallas().existe(pantalla))
        pantallas().abrir(pantalla);
    else
        fdm().mostrar_advertencia("La pantalla " + pantalla + " todavía no está disponible.");
}

void imprima_comprobante() {
    if (pantallas().existe("Tfimprcomproba"))
        pantallas().abrir_modal("Tfimprcomproba");
}
