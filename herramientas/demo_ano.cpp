// Lo de todos los días: ventas, compras, gastos, recaudos y pagos.
#include "herramientas/demo_ano.h"

#include "herramientas/demo_calendario.h"

using namespace cuenta_demo;

namespace {

constexpr int kFactura = 31, kFacturaCompra = 21;
// 27 UVT de 2017, compras (artículo 401 del Estatuto Tributario)
constexpr int kBaseRetencion2017 = 860000;
constexpr int kReteivaTarifa = 15000; // milésimas de punto
constexpr int kCajaMaxima = 6000000, kFondoBanco = 40000000;
constexpr int kRecientes = 25;         // facturas más viejas entre las que se elige qué se paga
constexpr int kVentasAno = 1480000000; // medidas en el año normal
constexpr int kExistenciaSobrada = 60000000, kBancoSobrado = 220000000;
constexpr qint64 kMayorCompra = 400;  // por ciento de la normal
constexpr int kMinimasMilesimas = 40; // con menos volumen, una sola venta decidiría el año

QString plazo(int ano, int mes, int dia, int dias) {
    return QDate(ano, mes, qMin(dia, QDate(ano, mes, 1).daysInMonth()))
        .addDays(dias)
        .toString(QStringLiteral("yyyyMMdd"));
}

} // namespace

AnoDemo::AnoDemo(Conexion& compania, CatalogosDemo catalogos, quint64 semilla, int ano)
    : conexion_(compania), demo_(std::move(catalogos)), libro_(compania), azar_(semilla),
      ano_(ano) {}

QString AnoDemo::fecha(int mes, int dia) const {
    return QStringLiteral("%1%2%3")
        .arg(ano_)
        .arg(mes, 2, 10, QLatin1Char('0'))
        .arg(dia, 2, 10, QLatin1Char('0'));
}

AsientoDemo AnoDemo::asiento(const QString& tipo, const QString& concepto) const {
    AsientoDemo a;
    a.tipo = tipo;
    a.concepto = concepto;
    a.fecha = fecha(mes_, dia_);
    return a;
}

RenglonDemo AnoDemo::de(const QString& nit) const {
    RenglonDemo r;
    r.nit = nit;
    return r;
}

RenglonDemo AnoDemo::en(const CentroDemo& centro, const QString& nit) const {
    RenglonDemo r = de(nit);
    r.proyecto = centro.proyecto;
    r.centro = centro.centro;
    return r;
}

qint64 AnoDemo::veces(qint64 por_cien, qint64 milesimas) {
    constexpr qint64 escala = 100 * 1000;
    const qint64 total = por_cien * milesimas;
    return total / escala + (azar_.entre(1, escala) <= total % escala ? 1 : 0);
}

void AnoDemo::SaldosDemo::ponga(const QString& cuenta, Moneda debito, const RenglonDemo& datos) {
    filas.push_back(datos);
    filas.back().cuenta = cuenta;
    (debito.negativa() ? filas.back().credito : filas.back().debito) = debito.absoluta();
}

void AnoDemo::abra() {
    SaldosDemo saldos;
    caja_ = 3500000;
    banco_ = 165000000;
    saldos.ponga(kCaja, caja_);
    saldos.ponga(kCorriente, banco_, de(demo_.banco_corriente));
    saldos.ponga(kAhorros, 48000000, de(demo_.banco_ahorros));
    abra_clientes(saldos);
    for (const ArticuloDemo& a : demo_.articulos) {
        existencias_ << Moneda(a.costo * int(azar_.entre(12000000, 30000000) / a.costo));
        RenglonDemo r;
        r.articulo = a.codigo;
        saldos.ponga(kMercancias, existencias_.back(), r);
    }
    abra_activos(saldos);
    abra_proveedores(saldos);
    abra_impuestos(saldos);
    abra_laborales(saldos);
    saldos.ponga(QStringLiteral("210510"), -Moneda(90000000), de(demo_.banco_corriente));
    saldos.ponga(QStringLiteral("310505"), -Moneda(400000000), de(demo_.socio));
    saldos.ponga(QStringLiteral("330505"), -Moneda(18500000));
    grabe_saldos(saldos.filas, false);
    // El libro NIIF midió los activos con otra vida útil; la diferencia va a lo acumulado.
    for (RenglonDemo& r : saldos.filas)
        for (const DepreciacionDemo& d : kDepreciaciones)
            if (r.cuenta == QLatin1String(d.acumulada))
                r.credito = d.inicial(true);
    grabe_saldos(saldos.filas, true);
}

void AnoDemo::abra_clientes(SaldosDemo& saldos) {
    for (int i = 0; i < 12; ++i) {
        const TerceroDemo& t = demo_.clientes[i];
        Cartera c{QString::number(9001 + i).rightJustified(6, '0'), t.nit,    t.nombre,
                  Moneda(int(azar_.entre(2, 24)) * 500000),         kFactura, kClientes};
        RenglonDemo r = de(t.nit);
        r.documento = c.numero;
        r.tipo_documento = kFactura;
        r.vence = plazo(ano_, 1, 5, i * 4);
        saldos.ponga(kClientes, c.valor, r);
        por_cobrar_.push_back(c);
    }
}

void AnoDemo::abra_activos(SaldosDemo& saldos) {
    int grupo = 0;
    for (const DepreciacionDemo& d : kDepreciaciones) {
        RenglonDemo r;
        r.articulo = QLatin1String(d.activo);
        saldos.ponga(QLatin1String(d.cuenta), d.costo, r);
        saldos.ponga(QLatin1String(d.acumulada), -Moneda(d.inicial(false)));
        conexion_.ejecute(
            QStringLiteral("insert into activos_fijos (acfj_cod, acfj_desc, acfj_fecing,"
                           " acfj_mesdep, acfj_depniif, acfj_dep, acfj_activo, acfj_unidades,"
                           " acfj_vrorig, acfj_ctaconta, acfj_ctadepc, acgr_id)"
                           " values (?,?,?,?,?,'S','S','N',?,?,?,?)"),
            {Valor(r.articulo), Valor(r.articulo), Valor(QDate(ano_ - 2, 3, 1)), Valor(d.vida),
             Valor(d.vida_niif), Valor(d.costo), Valor(d.cuenta), Valor(d.acumulada),
             Valor(++grupo)});
    }
}

void AnoDemo::abra_proveedores(SaldosDemo& saldos) {
    for (int i = 0; i < 8; ++i) {
        const TerceroDemo& t = demo_.proveedores[i];
        Cartera c{QString::number(3301 + i).rightJustified(6, '0'), t.nit,          t.nombre,
                  Moneda(int(azar_.entre(4, 22)) * 700000),         kFacturaCompra, kProveedores};
        RenglonDemo r = de(t.nit);
        r.documento = c.numero;
        r.tipo_documento = kFacturaCompra;
        r.vence = plazo(ano_, 1, 8, i * 5);
        saldos.ponga(kProveedores, -c.valor, r);
        por_pagar_.push_back(c);
    }
}

void AnoDemo::abra_impuestos(SaldosDemo& saldos) {
    // Con el IVA al 16 %, que era la tarifa del último bimestre.
    bimestres_[0] = {40300000, 30900000, 920000, {}, 2710000, 890000};
    const Bimestre& b = bimestres_[0];
    saldos.ponga(kReteiva, b.reteiva, de(demo_.dian));
    saldos.ponga(kReteica, b.reteica, de(demo_.hacienda));
    saldos.ponga(kIvaGenerado, -b.iva_generado, de(demo_.dian));
    saldos.ponga(kIvaDescontable, b.iva_descontable, de(demo_.dian));
    saldos.ponga(kRentaPorPagar, -Moneda(kRentaAnterior), de(demo_.dian));
    saldos.ponga(kIcaPorPagar, -b.ica, de(demo_.hacienda));
    const std::pair<const char*, int> retenido[] = {
        {"236515", 198000},           {"236525", 284000}, {"236530", 168000},
        {kRetencionCompras, 2140000}, {"236550", 172500}, {"236705", 184000},
        {kRetencionIca, 1870000}};
    for (const auto& [cuenta, valor] : retenido) {
        const QString codigo = QLatin1String(cuenta);
        retenido_[0][codigo] = valor;
        saldos.ponga(codigo, -Moneda(valor),
                     de(codigo == QLatin1String(kRetencionIca) ? demo_.hacienda : demo_.dian));
    }
}

void AnoDemo::abra_laborales(SaldosDemo& saldos) {
    for (const EmpleadoDemo& e : demo_.empleados) {
        saldos.ponga(kCesantias, -cesantias_anteriores(e), de(e.nit));
        saldos.ponga(kInteresesCesantias, -parte(cesantias_anteriores(e), 12000), de(e.nit));
    }
}

void AnoDemo::grabe_saldos(QVector<RenglonDemo> filas, bool niif) {
    Moneda diferencia;
    for (const RenglonDemo& r : filas)
        diferencia += r.debito - r.credito;
    RenglonDemo resultado;
    resultado.cuenta = QStringLiteral("370505");
    (diferencia.negativa() ? resultado.debito : resultado.credito) = diferencia.absoluta();
    filas.push_back(resultado);
    Transaccion t(conexion_, Transaccion::Modo::Escritura);
    Preparada inserte(
        conexion_, t,
        QStringLiteral("insert into saldos_iniciales%1 (sain_item, cuen_cod, terc_nit,"
                       " arti_cod, sain_debito, sain_credito, doco_numero, sain_tipodoc,"
                       " doco_vence) values (?,?,?,?,?,?,?,?,?)")
            .arg(QLatin1String(niif ? "_niif" : "")));
    int item = 0;
    for (const RenglonDemo& r : filas)
        inserte.ejecute(t, {Valor(++item), Valor(r.cuenta), Valor(r.nit), Valor(r.articulo),
                            Valor(r.debito), Valor(r.credito), Valor(r.documento),
                            r.tipo_documento ? Valor(r.tipo_documento) : Valor(), Valor(r.vence)});
    t.confirme();
}

void AnoDemo::mes(int mes, qint64 milesimas) {
    mes_ = mes;
    milesimas = qMax<qint64>(milesimas, kMinimasMilesimas);
    tamano_ = qMax<qint64>(100, 100 * 1000 / milesimas);
    const int dias = QDate(ano_, mes, 1).daysInMonth();
    for (dia_ = 1; dia_ <= dias; ++dia_) {
        if (es_habil(QDate(ano_, mes, dia_))) {
            dia(milesimas);
            fechas_del_mes();
        }
        if (dia_ == dias)
            fin_de_mes();
    }
}

bool AnoDemo::toca(int dia) const {
    return desde_habil(QDate(ano_, mes_, dia)) == QDate(ano_, mes_, dia_);
}

void AnoDemo::fechas_del_mes() {
    const bool declara = mes_ % 2 == 1;
    if (toca(2))
        for (const GastoDemo& g : demo_.gastos)
            if (g.minimo == g.maximo)
                gaste(g);
    if (toca(5))
        pague_credito();
    if (toca(10))
        pague_aportes();
    if (toca(12) && (mes_ == 4 || mes_ == 6))
        pague_renta();
    if (toca(14) && mes_ == 2)
        pague_cesantias();
    if (toca(15))
        pague_nomina(1);
    if (toca(16))
        pague_retenciones();
    if (toca(18) && declara)
        pague_iva();
    if (toca(19) && declara) {
        pague_ica();
        pague_reteica();
    }
    if (toca(20) && mes_ % 6 == 0)
        pague_prima();
    if (toca(22))
        pague_al_exterior();
    if (toca(23) && mes_ == 8)
        reciba_indemnizacion();
    if (toca(24) && mes_ == 11)
        reciba_sin_saber_de_quien();
    if (toca(27) && mes_ == 1)
        pague_intereses_cesantias();
}

void AnoDemo::fin_de_mes() {
    pague_nomina(2);
    deprecie();
    cobre_banco();
    // El del último bimestre va con los ajustes, cuando ya están todas sus ventas.
    if (mes_ % 2 == 0 && mes_ < 12)
        cause_ica();
}

void AnoDemo::dia(qint64 milesimas) {
    if (milesimas < 1000) {
        // Con pocas ventas el azar decidiría la utilidad: van al paso de las del año normal.
        const int corridos = QDate(ano_, mes_, dia_).dayOfYear();
        while (ventas_ < parte(Moneda(kVentasAno), corridos * 100000 / 365))
            venda();
    } else {
        for (qint64 i = veces(250, milesimas); i > 0; --i)
            venda();
    }
    for (qint64 i = veces(5, milesimas); i > 0; --i)
        devuelva();
    for (qint64 i = veces(30, milesimas); i > 0; --i)
        if (const int k = int(azar_.entre(0, demo_.articulos.size() - 1));
            existencias_[k] < Moneda(kExistenciaSobrada))
            compre(k);
    for (qint64 i = veces(60, milesimas); i > 0; --i)
        if (const GastoDemo& g = azar_.elija(demo_.gastos); g.minimo < g.maximo)
            gaste(g);
    for (qint64 i = veces(172, milesimas); i > 0; --i)
        recaude();
    for (qint64 i = veces(82, milesimas); i > 0; --i)
        pague();
    for (int i = 0; i < 3 && milesimas < 1000 && banco_ > Moneda(kBancoSobrado); ++i)
        pague();
    if (caja_ > Moneda(kCajaMaxima))
        consigne();
}

void AnoDemo::complete(qint64 renglones) {
    mes_ = 12;
    dia_ = 30;
    while (libro_.renglones() < renglones)
        venda();
}

QVector<AnoDemo::Vendido> AnoDemo::escoja_vendidos() {
    QVector<Vendido> items;
    for (qint64 i = azar_.entre(1, 4); i > 0; --i) {
        const int k = int(azar_.entre(0, demo_.articulos.size() - 1));
        const ArticuloDemo& a = demo_.articulos[k];
        const int unidades =
            int(qMax<qint64>(1, azar_.entre(1, qMax(1, 900000 / a.costo)) * tamano_ / 100));
        const int precio = a.costo * int(azar_.entre(160, 186)) / 100 / 100 * 100;
        // Se repone antes de vender: la bodega nunca queda en rojo.
        while (existencias_[k] < Moneda(a.costo * unidades))
            compre(k);
        items.push_back({k, Moneda(a.costo * unidades), Moneda(precio * unidades)});
        existencias_[k] -= items.back().costo;
    }
    return items;
}

void AnoDemo::venda() {
    const TerceroDemo& cliente = azar_.elija(demo_.clientes);
    const CentroDemo& centro = azar_.elija(demo_.centros_venta);
    const bool contado = azar_.sale(cliente.juridica ? 15 : 70);
    const QVector<Vendido> items = escoja_vendidos();
    Moneda base;
    for (const Vendido& i : items)
        base += i.precio;
    AsientoDemo a = asiento(QStringLiteral("FV"), QStringLiteral("Venta de mercancía"));
    a.prefijo = contado ? QStringLiteral("0001") : QStringLiteral("0002");
    a.nit = cliente.nit;
    a.nombre = cliente.nombre;
    const Moneda iva = parte(base, kIva);
    Moneda total = base + iva;
    RenglonDemo retenido = de(cliente.nit);
    retenido.base = base;
    if (!contado && cliente.retenedor && base >= Moneda(kBaseRetencion2017)) {
        const Moneda fuente = parte(base, kReteCompras), ica = parte(base, kIca);
        retenido.porcentaje = Moneda::de_escalado(kReteCompras, 3);
        a.debite(kRetefuente, fuente, retenido);
        retenido.porcentaje = Moneda::de_escalado(kIca, 3);
        a.debite(kReteica, ica, retenido);
        bimestre().reteica += ica;
        total -= fuente + ica;
        if (cliente.contribuyente) {
            const Moneda retenida = parte(iva, kReteivaTarifa);
            retenido.base = iva;
            retenido.porcentaje = 15;
            a.debite(kReteiva, retenida, retenido);
            bimestre().reteiva += retenida;
            total -= retenida;
        }
    }
    if (contado) {
        a.debite(kCaja, total);
        caja_ += total;
    } else {
        const QString numero = libro_.proximo(a.tipo, a.prefijo);
        RenglonDemo r = de(cliente.nit);
        r.documento = numero;
        r.tipo_documento = kFactura;
        r.vence = plazo(ano_, mes_, dia_, 30);
        a.debite(kClientes, total, r);
        por_cobrar_.push_back({numero, cliente.nit, cliente.nombre, total, kFactura, kClientes});
    }
    for (const Vendido& i : items) {
        const ArticuloDemo& art = demo_.articulos[i.articulo];
        a.acredite(art.ingreso, i.precio, en(centro));
        a.debite(art.costo_ventas, i.costo, en(centro));
        RenglonDemo bodega;
        bodega.articulo = art.codigo;
        a.acredite(kMercancias, i.costo, bodega);
        costos_ += i.costo;
    }
    a.acredite(kIvaGenerado, iva, de(cliente.nit));
    ventas_ += base;
    bimestre().ventas += base;
    bimestre().iva_generado += iva;
    libro_.asiente(a);
}

void AnoDemo::devuelva() {
    const TerceroDemo& cliente = azar_.elija(demo_.clientes);
    const int k = int(azar_.entre(0, demo_.articulos.size() - 1));
    const ArticuloDemo& art = demo_.articulos[k];
    const CentroDemo& centro = azar_.elija(demo_.centros_venta);
    const Moneda costo(art.costo), precio = Moneda(art.costo * 3 / 2), iva = parte(precio, kIva);
    if (caja_ < precio + iva)
        return;
    AsientoDemo a = asiento(QStringLiteral("DV"), QStringLiteral("Devolución por garantía"));
    a.nit = cliente.nit;
    a.nombre = cliente.nombre;
    a.debite(QStringLiteral("417505"), precio, en(centro));
    a.debite(kIvaGenerado, iva, de(cliente.nit));
    a.acredite(kCaja, precio + iva);
    RenglonDemo bodega;
    bodega.articulo = art.codigo;
    a.debite(kMercancias, costo, bodega);
    a.acredite(art.costo_ventas, costo, en(centro));
    caja_ -= precio + iva;
    existencias_[k] += costo;
    bimestre().iva_generado -= iva;
    bimestre().ventas -= precio;
    ventas_ -= precio;
    costos_ -= costo;
    libro_.asiente(a);
}

Moneda AnoDemo::retenga(AsientoDemo& a, const QString& cuenta, Moneda base, int milesimas,
                        const QString& nit) {
    RenglonDemo r = de(nit);
    r.base = -base; // al crédito la base es negativa, como la graban las pantallas
    r.porcentaje = Moneda::de_escalado(milesimas, 3);
    const Moneda valor = parte(base, milesimas);
    a.acredite(cuenta, valor, r);
    retenido_[size_t(mes_)][cuenta] += valor;
    return valor;
}

void AnoDemo::compre(int articulo) {
    const TerceroDemo& proveedor = azar_.elija(demo_.proveedores);
    AsientoDemo a = asiento(QStringLiteral("FC"), QStringLiteral("Compra de mercancía"));
    a.nit = proveedor.nit;
    a.nombre = proveedor.nombre;
    Moneda base;
    int k = articulo;
    for (qint64 i = azar_.entre(1, 3); i > 0; --i) {
        const ArticuloDemo& art = demo_.articulos[k];
        const Moneda valor(art.costo * int(azar_.entre(2500000, 6500000) *
                                           qMin(tamano_, kMayorCompra) / 100 / art.costo));
        RenglonDemo bodega;
        bodega.articulo = art.codigo;
        bodega.nit = proveedor.nit;
        a.debite(kMercancias, valor, bodega);
        existencias_[k] += valor;
        base += valor;
        k = int(azar_.entre(0, demo_.articulos.size() - 1));
    }
    const Moneda iva = parte(base, kIva);
    a.debite(kIvaDescontable, iva, de(proveedor.nit));
    bimestre().iva_descontable += iva;
    Moneda total = base + iva;
    total -= retenga(a, kRetencionCompras, base, kReteCompras, proveedor.nit);
    total -= retenga(a, kRetencionIca, base, kIca, proveedor.nit);
    RenglonDemo r = de(proveedor.nit);
    r.documento = QString::number(++consecutivo_proveedor_).rightJustified(6, '0');
    r.tipo_documento = kFacturaCompra;
    r.vence = plazo(ano_, mes_, dia_, 45);
    a.acredite(kProveedores, total, r);
    por_pagar_.push_back(
        {r.documento, proveedor.nit, proveedor.nombre, total, kFacturaCompra, kProveedores});
    libro_.asiente(a);
}

void AnoDemo::gaste(const GastoDemo& g) {
    const Moneda base(int(azar_.entre(g.minimo, g.maximo)) / 100 * 100);
    AsientoDemo a = asiento(QStringLiteral("GA"), g.concepto);
    a.nit = g.nit;
    a.debite(g.cuenta, base, en(azar_.elija(demo_.centros_gasto), g.nit));
    Moneda total = base;
    if (g.iva > 0) {
        const Moneda iva = parte(base, g.iva * 1000);
        a.debite(kIvaDescontable, iva, de(g.nit));
        bimestre().iva_descontable += iva;
        total += iva;
    }
    if (!g.retencion.isEmpty() && base >= Moneda(g.base_minima))
        total -= retenga(a, g.retencion, base, g.tarifa, g.nit);
    RenglonDemo r = de(g.nit);
    r.documento = QString::number(++consecutivo_proveedor_).rightJustified(6, '0');
    r.tipo_documento = kFacturaCompra;
    a.acredite(g.por_pagar, total, r);
    por_pagar_.push_back({r.documento, g.nit, g.concepto, total, kFacturaCompra, g.por_pagar});
    gastos_ += base;
    libro_.asiente(a);
}

void AnoDemo::recaude() {
    if (por_cobrar_.empty())
        return;
    const auto cual =
        por_cobrar_.begin() + azar_.entre(0, qMin<qint64>(kRecientes, por_cobrar_.size()) - 1);
    const Cartera c = *cual;
    por_cobrar_.erase(cual);
    AsientoDemo a = asiento(QStringLiteral("RC"), QStringLiteral("Abono factura ") + c.numero);
    a.nit = c.nit;
    a.nombre = c.nombre;
    al_banco(a, c.valor);
    RenglonDemo r = de(c.nit);
    r.aplica = c.numero;
    r.tipo_documento = c.tipo;
    a.acredite(c.cuenta, c.valor, r);
    libro_.asiente(a);
}

void AnoDemo::pague() {
    if (por_pagar_.empty())
        return;
    const auto cual =
        por_pagar_.begin() + azar_.entre(0, qMin<qint64>(kRecientes, por_pagar_.size()) - 1);
    const Cartera c = *cual;
    if (banco_ < c.valor + Moneda(kFondoBanco))
        return;
    por_pagar_.erase(cual);
    AsientoDemo a = asiento(QStringLiteral("CE"), QStringLiteral("Pago factura ") + c.numero);
    a.nit = c.nit;
    a.nombre = c.nombre;
    RenglonDemo r = de(c.nit);
    r.aplica = c.numero;
    r.tipo_documento = c.tipo;
    a.debite(c.cuenta, c.valor, r);
    del_banco(a, c.valor);
    libro_.asiente(a);
}

void AnoDemo::consigne() {
    const Moneda valor = (caja_ - Moneda(1000000)).redondeada(-3);
    AsientoDemo a = asiento(QStringLiteral("CB"), QStringLiteral("Consignación de ventas"));
    a.nit = demo_.banco_corriente;
    al_banco(a, valor);
    a.acredite(kCaja, valor);
    caja_ -= valor;
    libro_.asiente(a);
}

void AnoDemo::al_banco(AsientoDemo& a, Moneda valor) {
    a.debite(kCorriente, valor, de(demo_.banco_corriente));
    banco_ += valor;
}

void AnoDemo::del_banco(AsientoDemo& a, Moneda valor) {
    while (banco_ < valor && !por_cobrar_.empty())
        recaude();
    a.acredite(kCorriente, valor, de(demo_.banco_corriente));
    banco_ -= valor;
}
