#include "libro/libro.h"

namespace {

const DatosLibro kLibros[] = {
    {
        .libro = Libro::Decreto2649,
        .nombre = "2649",
        .cuentas = "cuentas",
        .detalle = "comprobante_detalle",
        .plantilla_detalle = "plantilla_detalle",
        .sufijo = "",
        .sufijo_corto = "",
        .valide_cuenta = "valide_cuenta_c",
        .tipo_auditoria = 1,
        .cuenta_de = "cuenta",
        .no_existe = "La cuenta especificada no existe. Desea Crearla?",
        .incompleta = "El código de cuenta está incompleto o demasiado largo.",
        .inferior = "La cuenta es de nivel inferior al mínimo afectable.",
        .con_auxiliares = "La cuenta indicada tiene auxiliares definidos.",
        .pantalla_cuentas = "Tfcuentas",
        .pantalla_nueva_cuenta = "Tfnvacuenta",
        .pantalla_modificar_cuenta = "Tfmodcuenta",
        .pantalla_auxiliar = "Tfauxiliar",
        .descuadrado = "No puede grabar un comprobante descuadrado",
        .categoria_inexistente = "El concepto indicado no existe.",
    },
    {
        .libro = Libro::Niif,
        .nombre = "NIIF",
        .cuentas = "cuentas_niif",
        .detalle = "comprobante_detalle_niif",
        .plantilla_detalle = "plantilla_detalle_niif",
        .sufijo = "_niif",
        .sufijo_corto = "_n",
        .valide_cuenta = "valide_cuenta_niif_c",
        .tipo_auditoria = 1001,
        .cuenta_de = "cuenta NIIF",
        .no_existe = "La cuenta NIIF especificada no existe. Desea Crearla?",
        .incompleta = "El código de cuenta NIIF está incompleto o demasiado largo.",
        .inferior = "La cuenta NIIF es de nivel inferior al mínimo afectable.",
        .con_auxiliares = "La cuenta NIIF indicada tiene auxiliares definidos.",
        .pantalla_cuentas = "Tfcuentasniif",
        .pantalla_nueva_cuenta = "Tfnvacuentaniif",
        .pantalla_modificar_cuenta = "Tfmodcuentaniif",
        .pantalla_auxiliar = "Tfauxiliarniif",
        .descuadrado = "No puede grabar un comprobante NIIF descuadrado",
        .categoria_inexistente = "La categoria indicada no existe.",
    },
};

} // namespace

const DatosLibro& datos(Libro libro) {
    return kLibros[libro == Libro::Niif ? 1 : 0];
}
