#include "posting/pendientes.h"

#include "libro/propuesta.h"
#include "sesion/modulos_suite.h"
#include "sesion/tfdm.h"

namespace {

using Plana = Contabilizado (*)(int id_documento, int id_interfaz, const QDate& fecha);

template <class Modulo, Contabilizado (Modulo::*operacion)(int, int, const QDate&)>
Contabilizado por(int id_documento, int id_interfaz, const QDate& fecha) {
    return (modulo_suite<Modulo>().*operacion)(id_documento, id_interfaz, fecha);
}

Contabilizado por_nomina(int id_documento, int, const QDate&) {
    return modulo_suite<Tfdmnomina>().contabilice_nomina(id_documento);
}

struct Despacho {
    int tido;
    AreaSuite area;
    Plana plana;
    const char* gemelo; ///< nulo: el libro NIIF sale de la misma corrida
};

using enum AreaSuite;
const Despacho kDespachos[] = {
    {11, Inventario, por<TfdmInv, &TfdmInv::contabilice_entrada>, "contabil_entrada_niif"},
    {12, Inventario, por<TfdmInv, &TfdmInv::contabilice_salida>, "contabil_salida_niif"},
    {13, Inventario, por<TfdmInv, &TfdmInv::contabilice_traslado>, "contabil_trasmerc_niif"},
    {14, Inventario, por<TfdmInv, &TfdmInv::contabilice_ajuste>, "contabil_ajuste_niif"},
    {15, Inventario, por<TfdmInv, &TfdmInv::contabilice_ensamble>, "contabil_ensamble_niif"},
    {16, Inventario, por<TfdmInv, &TfdmInv::contabilice_desensamble>, "contabil_desensamble_niif"},
    {21, Compras, por<Tfdmcmp, &Tfdmcmp::contabilice_facturac>, "contabil_factcomp_niif"},
    {22, Compras, por<Tfdmcmp, &Tfdmcmp::contabilice_remiprov>, "contabil_remiprov_niif"},
    {24, Compras, por<Tfdmcmp, &Tfdmcmp::contabilice_devolucionc>, "contabil_devolcomp_niif"},
    {31, Facturacion, por<Tfdmfact, &Tfdmfact::contabilice_factura>, "contabil_factura_niif"},
    {32, Facturacion, por<Tfdmfact, &Tfdmfact::contabilice_remiclie>, "contabil_remiclie_niif"},
    {33, Facturacion, por<Tfdmfact, &Tfdmfact::contabilice_devolucion>, "contabil_devolcli_niif"},
    {41, Cartera, por<Tfdmcar, &Tfdmcar::contabilice_notadb>, "contabil_notadbcl_niif"},
    {42, Cartera, por<Tfdmcar, &Tfdmcar::contabilice_notacr>, "contabil_notacrcl_niif"},
    {43, Cartera, por<Tfdmcar, &Tfdmcar::contabilice_aplica>, "contabil_aplicacl_niif"},
    {51, CuentasPorPagar, por<Tfdmcxp, &Tfdmcxp::contabilice_notadb>, "contabil_notadbpr_niif"},
    {52, CuentasPorPagar, por<Tfdmcxp, &Tfdmcxp::contabilice_notacr>, "contabil_notacrpr_niif"},
    {53, CuentasPorPagar, por<Tfdmcxp, &Tfdmcxp::contabilice_aplicapr>, "contabil_aplicapr_niif"},
    {61, Caja, por<Tfdmcja, &Tfdmcja::contabilice_recibo>, "contabil_recicaja_niif"},
    {62, Caja, por<Tfdmcja, &Tfdmcja::contabilice_egreso>, "contabil_egreso_niif"},
    {64, Caja, por<Tfdmcja, &Tfdmcja::contabilice_consignatj>, "contabil_consignatar_niif"},
    {66, Caja, por<Tfdmcja, &Tfdmcja::contabilice_trascaja>, "contabil_traslacaja_niif"},
    {71, Bancos, por<Tfdmbnc, &Tfdmbnc::contabilice_consigna>, "contabil_consigna_niif"},
    {74, Bancos, por<Tfdmbnc, &Tfdmbnc::contabilice_notadebito>, "contabil_notadbbc_niif"},
    {75, Bancos, por<Tfdmbnc, &Tfdmbnc::contabilice_notacredito>, "contabil_notacrbc_niif"},
    // El traslado entre cuentas pasa por el gemelo de la caja.
    {76, Bancos, por<Tfdmbnc, &Tfdmbnc::contabilice_traslacuenta>, "contabil_traslacaja_niif"},
    {77, Bancos, por<Tfdmbnc, &Tfdmbnc::contabilice_devolcheq>, "contabil_devolcheq_niif"},
    {92, Nomina, por_nomina, nullptr},
};

const Despacho* despacho_de(int tido) {
    const auto* d = std::find_if(std::begin(kDespachos), std::end(kDespachos),
                                 [tido](const Despacho& x) { return x.tido == tido; });
    return d == std::end(kDespachos) ? nullptr : d;
}

/// La interfaz que le toca; nula, con lo que haya que decir en `p`, si ninguna.
std::optional<int> interfaz_de(const DocumentoPendiente& d, const Despacho& despacho,
                               const EscogeInterfaz& escoja, PropuestaPendiente& p) {
    const auto interfaces =
        interfaces_contables(despacho.area, d.tido, d.prefijo,
                             despacho.area == Bancos ? std::optional(d.ctabco) : std::nullopt);
    if (interfaces.isEmpty()) {
        p.mensajes << QStringLiteral("No se han definido interfaces para el documento.");
        return {};
    }
    if (interfaces.size() == 1)
        return interfaces.first().id;
    const auto escogida = escoja(interfaces);
    if (!escogida)
        p.motivo = QStringLiteral("No se escogió con cuál de sus interfaces contabilizarlo.");
    return escogida;
}

void tome(PropuestaPendiente& p, const Contabilizado& c) {
    p.cntb_id = c.cntb_id;
    p.mensajes << c.mensajes;
    if (c.cntb_id == 0 && c.mensajes.isEmpty())
        p.motivo = QStringLiteral("Según la configuración, no se contabiliza desde aquí.");
}

PropuestaPendiente proponga_niif(const DocumentoPendiente& d, const Despacho& despacho,
                                 const EscogeInterfaz& escoja) {
    PropuestaPendiente p;
    Sentencia& q = fdm().QBorrar;
    q.Open(QStringLiteral("SELECT MAX(CNTB_ID), MAX(CNTB_FECHA) FROM CONTABILIZACION WHERE "
                          "CNTB_TIPOREF = '%1' AND CNTB_IDREF = %2")
               .arg(QString::number(d.tido), QString::number(d.id)));
    const int cntb_id = int(q.Fields(0).entero());
    const int ano = q.Fields(1).texto().left(4).toInt();
    q.Close();
    if (cntb_id == 0) {
        p.motivo = QStringLiteral("Debe contabilizarse primero en el libro 2649.");
        return p;
    }
    if (ano < fdm().valor<Llave::AnoInicioNiif>()) {
        p.motivo = QStringLiteral("Es anterior al año de inicio NIIF.");
        return p;
    }
    p.cntb_id = cntb_id;
    // Sin interfaz la propuesta que ya existe se revisa de todos modos.
    if (const auto interfaz = interfaz_de(d, despacho, escoja, p)) {
        constexpr int kErroresNiif = 1000; ///< sobre el código del documento
        tome(p,
             contabilice_gemelo(despacho.gemelo, d.tido + kErroresNiif, d.id, *interfaz, cntb_id));
    }
    return p;
}

} // namespace

bool se_despacha(int tido) {
    return despacho_de(tido) != nullptr;
}

PropuestaPendiente proponga(const DocumentoPendiente& d, bool niif, const EscogeInterfaz& escoja) {
    const Despacho* despacho = despacho_de(d.tido);
    if (!despacho)
        return {};
    if (niif && despacho->gemelo)
        return proponga_niif(d, *despacho, escoja);
    // La lista pudo quedar atrás: rehacer lo de otro botaría lo que él corrigió. Se mira también
    // con la propuesta hecha: desde ahí, quien contabilice el documento la invalida.
    const auto es_de_otro = [&] {
        return !niif && comprobante_del_documento(fdm().Quorvex, {d.tido, d.id}) != 0;
    };
    const PropuestaPendiente ajena{
        .mensajes = {QStringLiteral("Otro usuario ya contabilizó el documento. Actualice la "
                                    "lista.")}};
    PropuestaPendiente p;
    if (es_de_otro())
        return ajena;
    if (const auto interfaz = interfaz_de(d, *despacho, escoja, p))
        tome(p, despacho->plana(d.id, *interfaz, d.fecha));
    return p.cntb_id != 0 && es_de_otro() ? ajena : p;
}
