#include "vouchers/impresion_pendiente.h"

#include "vouchers/pch.h"

void imprima_comprobante() {
    if (pantallas().existe("Tfimprcomproba"))
        pantallas().abrir_modal("Tfimprcomproba");
}
