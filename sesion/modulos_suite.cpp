#include "sesion/modulos_suite.h"

#include "sesion/tfdm.h"

namespace {

struct Tramo {
    int desde, hasta;
    AreaSuite area;
};
const Tramo kTramos[] = {
    {10, 20, AreaSuite::Inventario}, {21, 25, AreaSuite::Compras},
    {27, 29, AreaSuite::Inventario}, {31, 40, AreaSuite::Facturacion},
    {41, 49, AreaSuite::Cartera},    {51, 59, AreaSuite::CuentasPorPagar},
    {61, 69, AreaSuite::Caja},       {71, 79, AreaSuite::Bancos},
    {91, 99, AreaSuite::Nomina},     {132, 139, AreaSuite::Compras},
    {301, 301, AreaSuite::Clientes},
};

QHash<AreaSuite, ModuloSuite*>& vivos() {
    static QHash<AreaSuite, ModuloSuite*> todos;
    return todos;
}

} // namespace

AreaSuite area_del_documento(int tipo) {
    for (const Tramo& t : kTramos)
        if (tipo >= t.desde && tipo <= t.hasta)
            return t.area;
    return AreaSuite::Facturacion;
}

ModuloSuite::ModuloSuite(const char* nombre, AreaSuite area) : area(area) {
    setObjectName(QLatin1String(nombre));
    vivos()[area] = this;
    fdm().ConfigurarProviders(this);
}

ModuloSuite::~ModuloSuite() {
    vivos().remove(area);
}

ModuloSuite& ModuloSuite::vivo(AreaSuite area) {
    if (ModuloSuite* m = vivos().value(area))
        return *m;
    throw ErrorDatos(QStringLiteral("El módulo dueño del documento no está disponible."));
}

// ---------------------------------------------------------------- interfaces

InterfazAbierta ModuloSuite::escoja_entre(const QVector<InterfazContable>& interfaces,
                                          bool preguntar, const EscogeInterfaz& escoja,
                                          const QString& sin_ninguna) {
    if (interfaces.isEmpty())
        return {0, sin_ninguna};
    if (!preguntar)
        return {};
    if (interfaces.size() == 1)
        return {interfaces.first().id};
    return {escoja(interfaces).value_or(0)};
}

InterfazAbierta ModuloSuite::abre_interfaz(int tido_cod, const QString& pref_pre, bool preguntar,
                                           const EscogeInterfaz& escoja) {
    return escoja_entre(interfaces_contables(area, tido_cod, pref_pre), preguntar, escoja,
                        QStringLiteral("No se han definido interfaces para el documento. No podrá "
                                       "grabar hasta no definirla."));
}

InterfazAbierta Tfdmcmp::abre_interfaz(int tido_cod, const QString& pref_pre, bool preguntar,
                                       const EscogeInterfaz& escoja) {
    bool desistio = false;
    InterfazAbierta a = ModuloSuite::abre_interfaz(
        tido_cod, pref_pre, preguntar, [&](const QVector<InterfazContable>& interfaces) {
            const auto escogida = escoja(interfaces);
            desistio = !escogida;
            return escogida;
        });
    if (preguntar && !desistio && a.id == 0 && a.mensaje.isEmpty())
        a.mensaje =
            QStringLiteral("La interfaz contable para este documento es incorrecta (ID=0).");
    return a;
}

InterfazAbierta Tfdmbnc::abre_interfaz(int tido_cod, int cuba_cod, bool preguntar,
                                       const QString& pref_pre, const EscogeInterfaz& escoja) {
    constexpr int kChequeDevuelto = 77;
    const bool sin_cuenta =
        tido_cod == kChequeDevuelto && !fdm().valor<Llave::ConsecutivosPorCuenta>();
    return escoja_entre(interfaces_contables(area, tido_cod, pref_pre,
                                             sin_cuenta ? std::nullopt : std::optional(cuba_cod)),
                        preguntar, escoja,
                        "No se han definido interfaces para el documento" +
                            fdm().nombre_tipo(tido_cod) + ". No podrá grabar hasta no definirla.");
}

// ---------------------------------------------------------------- operaciones con algo propio

Contabilizado Tfdmfact::contabilice_factura(int id_documento, int id_interfaz, const QDate& fecha) {
    Sentencia& q = fdm().QBorrar;
    q.Open(QStringLiteral("select auto_contado from autorizaciones a, facturas f where "
                          "f.pref_pre = a.pref_pre and fact_id = %1")
               .arg(id_documento));
    const bool contado = q.Fields(0).texto() == QLatin1String("S");
    q.Close();
    if (contado && !fdm().valor<Llave::ContabilizarEnLinea>()) {
        fdm().confirmar_contabilizacion = false;
        return {};
    }
    return contabilice({"contabil_factura", "contabil_factura_niif", 31, 31}, id_documento,
                       id_interfaz, fecha);
}

Contabilizado Tfdmcja::contabilice_recicaja(int id_documento, const QString& pref_pre,
                                            const QDate& fecha) {
    Sentencia& q = fdm().QBorrar;
    q.Open("select min(incj_id) from interfaz_caja where tido_cod = 61 and pref_pre = " +
           QuotedStr(pref_pre));
    const int interfaz = int(q.Fields(0).entero());
    q.Close();
    if (interfaz == 0) {
        fdm().confirmar_contabilizacion = false;
        return {.mensajes = {QStringLiteral(
                    "Interfaz de recibo no encontrada. No se contabilizará el recibo.")}};
    }
    return contabilice({"contabil_recicaja", "contabil_recicaja_niif", 41, 31}, id_documento,
                       interfaz, fecha);
}
