#include "sesion/peticiones.h"

#include "toolkit/pantalla.h"

// ---------------------------------------------------------------- listas

// Con algo que buscar, la lista va a lo buscado y no a lo que había.
void escoja_cuenta(Pantalla& este, Libro libro, const QString& texto, Recibo<PideCuenta> reciba,
                   const QString& actual) {
    este.pida(datos(libro).pantalla_cuentas,
              PideCuenta{.texto_busqueda = texto,
                         .cuenta_localizar = texto.isEmpty() ? actual : QString()},
              std::move(reciba));
}

QString escoja_cuenta_modal(const QString& cuenta_localizar, Libro libro) {
    return pantallas()
        .pida_modal(datos(libro).pantalla_cuentas,
                    PideCuenta{.cuenta_localizar = cuenta_localizar, .modo_selector = true})
        .value_or(QString());
}

void escoja_tercero(Pantalla& este, const QString& texto, Recibo<PideTercero> reciba,
                    const QString& actual) {
    este.pida("Tfterceros", PideTercero{texto, texto.isEmpty() ? actual : QString()},
              std::move(reciba));
}

void cree_tercero(Pantalla& este, const QString& nit, Recibo<PideNuevoTercero> reciba) {
    este.pida("Tfnvotercero", PideNuevoTercero{nit}, std::move(reciba));
}

void escoja_centro(Pantalla& este, Recibo<PideCentro> reciba, const CentroEscogido& actual) {
    este.pida("Tfcentros", PideCentro{.localizar = actual}, std::move(reciba));
}

void escoja_concepto(Pantalla& este, Recibo<PideConcepto> reciba, const QString& actual) {
    este.pida("Tfconceptos", PideConcepto{actual}, std::move(reciba));
}

void escoja_articulo(Pantalla& este, Recibo<PideArticulo> reciba, const QString& actual) {
    este.pida("Tfarticulos", PideArticulo{actual}, std::move(reciba));
}

void escoja_activo(Pantalla& este, Recibo<PideActivo> reciba, const QString& actual) {
    este.pida("Tfactivos", PideActivo{actual}, std::move(reciba));
}

void escoja_plantilla(Pantalla& este, Recibo<PidePlantilla> reciba) {
    este.pida("Tfbuscplantilla", PidePlantilla{}, std::move(reciba));
}

void escoja_norma(Pantalla& este, Recibo<PideNorma> reciba) {
    este.pida("Tfnormas", PideNorma{}, std::move(reciba));
}

// ---------------------------------------------------------------- contabilización

bool revise_contabilizacion(int tipo_ref, int id_ref) {
    return pantallas().abrir_modal("Tfcontabiliza", AbreContabilizacion{tipo_ref, id_ref}) == mrOk;
}

std::optional<int> escoja_interfaz(const QVector<InterfazContable>& interfaces) {
    return pantallas().pida_modal("Tfpreginterfaz", PideInterfaz{interfaces});
}

// ---------------------------------------------------------------- fichas y consultas

void cree_cuenta(Libro libro, const QString& cuenta) {
    pantallas().abrir(datos(libro).pantalla_nueva_cuenta, AbreCuenta{cuenta});
}

void modifique_cuenta(Libro libro, const QString& cuenta) {
    pantallas().abrir(datos(libro).pantalla_modificar_cuenta, AbreCuenta{cuenta});
}

void imprima_comprobante(const QString& id) {
    pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{id});
}

void abra_comprobante(const QString& id) {
    pantallas().abrir("Tfedtmovimien", AbreComprobante{id});
}

void abra_auxiliar(Libro libro, const QString& cuenta) {
    if (cuenta.isEmpty()) {
        muestre_mensaje("Escoja antes la cuenta: el auxiliar es el de una sola.");
        return;
    }
    pantallas().abrir(datos(libro).pantalla_auxiliar, AbreAuxiliar{.cuenta_auxiliar = cuenta});
}
