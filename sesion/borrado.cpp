#include "sesion/borrado.h"

#include "sesion/tfdm.h"

namespace {
constexpr int kBorrarComprobante = 32;
}

ResultadoBorrado borre_comprobante(const BorradoComprobante& c) {
    if (c.exige_derecho && !fdm().exija_acceso(kBorrarComprobante))
        return ResultadoBorrado::Negado;
    if (c.tipo_origen != 0) {
        const QString opcion =
            fdm()
                .CBorrar
                .valor_unico("select tido_nomlargo from tipo_documento where tido_cod = " +
                             QString::number(c.tipo_origen))
                .texto();
        muestre_mensaje("Debe utilizar la opcion " + opcion + " para borrar el comprobante");
        return ResultadoBorrado::Ajeno;
    }
    if (!pregunte(c.aviso + "Desea borrar definitivamente el comprobante " + c.tipo + ' ' +
                  c.prefijo + ' ' + c.numero + '?'))
        return ResultadoBorrado::Conservado;
    for (const QString& orden : c.ordenes)
        fdm().CBorrar.Execute(orden);
    return ResultadoBorrado::Borrado;
}
