#include "sesion/peticiones.h"

#include "sesion/apertura.h"
#include "toolkit/pantalla.h"

namespace {

template <class P> void pida(Pantalla& este, const char* nombre, P peticion, Recibo<P> reciba) {
    if (hay_pantalla(nombre))
        este.pida(nombre, std::move(peticion), std::move(reciba));
}

} // namespace

// ---------------------------------------------------------------- listas

void escoja_cuenta(Pantalla& este, Libro libro, const QString& texto, Recibo<PideCuenta> reciba,
                   const QString& actual) {
    pida(este, datos(libro).pantalla_cuentas,
         PideCuenta{.texto_busqueda = texto, .cuenta_localizar = actual}, std::move(reciba));
}

QString escoja_cuenta_modal(const QString& cuenta_localizar, Libro libro) {
    return pantallas()
        .pida_modal(datos(libro).pantalla_cuentas,
                    PideCuenta{.cuenta_localizar = cuenta_localizar, .modo_selector = true})
        .value_or(QString());
}

void escoja_tercero(Pantalla& este, const QString& texto, Recibo<PideTercero> reciba,
                    const QString& actual) {
    pida(este, "Tfterceros", PideTercero{texto, actual}, std::move(reciba));
}

void cree_tercero(Pantalla& este, const QString& nit, Recibo<PideNuevoTercero> reciba) {
    pida(este, "Tfnvotercero", PideNuevoTercero{nit}, std::move(reciba));
}

void escoja_centro(Pantalla& este, Recibo<PideCentro> reciba, const CentroEscogido& actual) {
    pida(este, "Tfcentros", PideCentro{.localizar = actual}, std::move(reciba));
}

void escoja_concepto(Pantalla& este, Recibo<PideConcepto> reciba, const QString& actual) {
    pida(este, "Tfconceptos", PideConcepto{actual}, std::move(reciba));
}

void escoja_articulo(Pantalla& este, Recibo<PideArticulo> reciba, const QString& actual) {
    pida(este, "Tfarticulos", PideArticulo{actual}, std::move(reciba));
}

void escoja_activo(Pantalla& este, Recibo<PideActivo> reciba, const QString& actual) {
    pida(este, "Tfactivos", PideActivo{actual}, std::move(reciba));
}

void escoja_plantilla(Pantalla& este, Recibo<PidePlantilla> reciba) {
    pida(este, "Tfbuscplantilla", PidePlantilla{}, std::move(reciba));
}

void escoja_norma(Pantalla& este, Recibo<PideNorma> reciba) {
    pida(este, "Tfnormas", PideNorma{}, std::move(reciba));
}

// ---------------------------------------------------------------- contabilización

bool revise_contabilizacion(int tipo_ref, int id_ref) {
    return hay_pantalla("Tfcontabiliza") &&
           pantallas().abrir_modal("Tfcontabiliza", AbreContabilizacion{tipo_ref, id_ref}) == mrOk;
}

std::optional<int> escoja_interfaz(const QVector<InterfazContable>& interfaces) {
    if (!hay_pantalla("Tfpreginterfaz"))
        return {};
    return pantallas().pida_modal("Tfpreginterfaz", PideInterfaz{interfaces});
}

// ---------------------------------------------------------------- fichas y consultas

void cree_cuenta(Libro libro, const QString& cuenta) {
    abra_o_avise(datos(libro).pantalla_nueva_cuenta, AbreCuenta{cuenta});
}

void modifique_cuenta(Libro libro, const QString& cuenta) {
    abra_o_avise(datos(libro).pantalla_modificar_cuenta, AbreCuenta{cuenta});
}

void abra_comprobante(const QString& id) {
    abra_o_avise("Tfedtmovimien", AbreComprobante{id});
}

void abra_auxiliar(Libro libro, const QString& cuenta) {
    if (cuenta.isEmpty()) {
        muestre_mensaje("Escoja antes la cuenta: el auxiliar es el de una sola.");
        return;
    }
    abra_o_avise(datos(libro).pantalla_auxiliar, AbreAuxiliar{.cuenta_auxiliar = cuenta});
}
