#include "libro/libro.h"

namespace {

const DatosLibro kLibros[] = {
    {Libro::Decreto2649,
     "2649",
     "cuentas",
     "comprobante_detalle",
     "plantilla_detalle",
     "",
     "",
     "valide_cuenta_c",
     1,
     "cuenta",
     "La cuenta especificada no existe. Desea Crearla?",
     "El código de cuenta está incompleto o demasiado largo.",
     "La cuenta es de nivel inferior al mínimo afectable.",
     "La cuenta indicada tiene auxiliares definidos.",
     "Tfcuentas",
     "Tfnvacuenta",
     "Tfmodcuenta",
     "Tfauxiliar",
     "No puede grabar un comprobante descuadrado",
     "El concepto indicado no existe."},
    {Libro::Niif,
     "NIIF",
     "cuentas_niif",
     "comprobante_detalle_niif",
     "plantilla_detalle_niif",
     "_niif",
     "_n",
     "valide_cuenta_niif_c",
     1001,
     "cuenta NIIF",
     "La cuenta NIIF especificada no existe. Desea Crearla?",
     "El código de cuenta NIIF está incompleto o demasiado largo.",
     "La cuenta NIIF es de nivel inferior al mínimo afectable.",
     "La cuenta NIIF indicada tiene auxiliares definidos.",
     "Tfcuentasniif",
     "Tfnvacuentaniif",
     "Tfmodcuentaniif",
     "Tfauxiliarniif",
     "No puede grabar un comprobante NIIF descuadrado",
     "La categoria indicada no existe."},
};

} // namespace

const DatosLibro& datos(Libro libro) {
    return kLibros[libro == Libro::Niif ? 1 : 0];
}
