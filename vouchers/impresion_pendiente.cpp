#include "vouchers/impresion_pendiente.h"

#include "vouchers/pch.h"

void imprima_comprobante(const QString& id) {
    if (pantallas().existe("Tfimprcomproba"))
        pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{id});
}
