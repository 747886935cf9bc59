#include "vouchers/planilla.h"

#include <algorithm>

bool Planilla::con_base() const {
    return std::any_of(cuentas.begin(), cuentas.end(),
                       [](const CuentaPlanilla& c) { return c.con_base; });
}

Comprobante comprobante_de_fila(const Planilla& planilla, const FilaPlanilla& fila) {
    constexpr int kLargoConcepto = 60;
    Comprobante c;
    c.tipo = planilla.tipo;
    c.prefijo = planilla.prefijo;
    c.numero = fila.numero;
    c.fecha = fila.fecha;
    // Si no cabe, se recorta el concepto y no el número.
    c.concepto =
        planilla.concepto.left(kLargoConcepto - 1 - fila.numero.size()) + ' ' + fila.numero;
    c.nit = planilla.pide_tercero ? fila.nit : planilla.nit;
    Moneda diferencia;
    for (qsizetype i = 0; i < planilla.cuentas.size(); ++i) {
        const CuentaPlanilla& cuenta = planilla.cuentas[i];
        const Moneda importe = fila.importes[i];
        if (importe.es_cero() && !cuenta.cuadra)
            continue;
        LineaComprobante l;
        l.item = c.lineas_2649.size();
        l.cuenta = cuenta.cuenta;
        l.concepto = fila.concepto.isEmpty() ? c.concepto : fila.concepto;
        if (cuenta.con_base) {
            l.base = fila.base;
            l.porcentaje = cuenta.porcentaje;
        }
        (cuenta.debito ? l.debito : l.credito) = importe;
        diferencia += l.debito - l.credito;
        if (cuenta.cuadra && importe.es_cero()) {
            if (diferencia > Moneda())
                l.credito = diferencia;
            else
                l.debito = Moneda() - diferencia;
            diferencia = Moneda();
        }
        l.nit = c.nit;
        l.descontable = c.descontable;
        l.proyecto = planilla.pide_centro ? fila.proyecto : planilla.proyecto;
        l.centro = planilla.pide_centro ? fila.centro : planilla.centro;
        c.lineas_2649.append(l);
    }
    return c;
}

std::optional<Planilla> lea_planilla(Conexion& conexion, qint64 id) {
    const auto si = [](const Valor& v) { return v.texto() == QLatin1String("S"); };
    const auto cabeza = conexion.abra("select pldi_nombre, pldi_tipocomp, pldi_pref, pldi_conc, "
                                      "pldi_nit, pldi_proy, pldi_centro, pldi_mes, pldi_tercero, "
                                      "pldi_centros, pldi_concite from planilla_digitacion where "
                                      "pldi_id = ?",
                                      {id});
    if (!cabeza->siguiente())
        return std::nullopt;
    const auto texto = [&](int i) { return cabeza->valor(i).texto(); };
    Planilla p{.id = id,
               .nombre = texto(0),
               .tipo = texto(1),
               .prefijo = texto(2),
               .concepto = texto(3),
               .nit = texto(4),
               .proyecto = texto(5),
               .centro = texto(6),
               .pide_fecha = si(cabeza->valor(7)),
               .pide_tercero = si(cabeza->valor(8)),
               .pide_centro = si(cabeza->valor(9)),
               .pide_concepto = si(cabeza->valor(10)),
               .cuentas = {}};
    const auto cuentas = conexion.abra(
        "select p.pldc_cuenta, p.pldc_titulo, p.pldc_base, p.pldc_db, p.pldc_cuadrar, c.cuen_porc "
        "from planilla_digitacion_cuentas p left join cuentas c on c.cuen_cod = p.pldc_cuenta "
        "where p.pldi_id = ? order by p.pldc_item",
        {id});
    while (cuentas->siguiente())
        p.cuentas.append({cuentas->valor(0).texto(), cuentas->valor(1).texto(),
                          si(cuentas->valor(2)), si(cuentas->valor(3)), si(cuentas->valor(4)),
                          cuentas->valor(5).moneda()});
    return p;
}

QString negativa_de_titulo(const QString& titulo, const QStringList& otros) {
    using namespace columnas_planilla;
    static const QStringList kPropias{kDia,    kFecha,     kNumero,   kTercero,
                                      kCentro, kSubcentro, kConcepto, kBase};
    if (kPropias.contains(titulo.trimmed(), Qt::CaseInsensitive) ||
        titulo.compare(QLatin1String(kBase), Qt::CaseInsensitive) == 0)
        return QStringLiteral(
                   "El nombre \"%1\" es de una columna propia de la planilla. Dé otro al "
                   "dato.")
            .arg(titulo);
    if (otros.contains(titulo, Qt::CaseInsensitive))
        return QStringLiteral("Dos datos de la planilla se llaman \"%1\". Cada uno debe tener su "
                              "propio nombre.")
            .arg(titulo);
    return {};
}
