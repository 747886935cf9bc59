// Lo de cada mes: nómina, aportes, depreciación, banco, crédito, impuestos y ajustes del año.
#include "herramientas/demo_ano.h"

using namespace cuenta_demo;

namespace {

constexpr const char* kPrimas = "261020";

} // namespace

AsientoDemo AnoDemo::egreso(const QString& concepto, const QString& nit) const {
    AsientoDemo a = asiento(QStringLiteral("CE"), concepto);
    a.prefijo = QStringLiteral("0002");
    a.nit = nit;
    return a;
}

void AnoDemo::pague_nomina(int quincena) {
    AsientoDemo a =
        asiento(QStringLiteral("NO"), QStringLiteral("Nómina quincenal %1").arg(quincena));
    AsientoDemo pago = egreso(QStringLiteral("Pago de nómina"));
    Moneda neto_total;
    for (const EmpleadoDemo& e : demo_.empleados) {
        const QString clase = e.ventas ? QStringLiteral("52") : QStringLiteral("51");
        const RenglonDemo donde = en({e.proyecto, e.centro}, e.nit);
        const Moneda sueldo(e.salario / 2);
        const Moneda comision = e.ventas ? Moneda(int(azar_.entre(0, 300)) * 1000) : Moneda();
        const Moneda salario = sueldo + comision;
        const bool con_auxilio = salario + salario <= Moneda(kTopes2017.tope_auxilio);
        const Moneda auxilio = con_auxilio ? Moneda(kTopes2017.auxilio / 2) : Moneda();
        const bool solidario = e.salario >= kTopes2017.tope_solidaridad;
        const Moneda salud = parte(salario, 4000), pension = parte(salario, 4000),
                     solidaridad = solidario ? parte(salario, 1000) : Moneda();
        a.debite(clase + QStringLiteral("0506"), sueldo, donde);
        a.debite(clase + QStringLiteral("0518"), comision, donde);
        a.debite(clase + QStringLiteral("0527"), auxilio, donde);
        a.acredite(QStringLiteral("237005"), salud, de(demo_.eps));
        a.acredite(QStringLiteral("238030"), pension + solidaridad, de(demo_.pensiones));
        const Moneda neto = salario + auxilio - salud - pension - solidaridad;
        a.acredite(kSalarios, neto, de(e.nit));
        pago.debite(kSalarios, neto, de(e.nit));
        neto_total += neto;
        aportes_eps_ += salud;
        aportes_pension_ += pension + solidaridad;
        gastos_ += salario + auxilio;
        devengado_[e.nit].salario += salario;
        devengado_[e.nit].auxilio += auxilio;
        if (quincena == 2)
            provisione(a, e);
    }
    if (quincena == 2)
        devengado_.clear();
    libro_.asiente(a);
    del_banco(pago, neto_total);
    libro_.asiente(pago);
}

void AnoDemo::provisione(AsientoDemo& a, const EmpleadoDemo& e) {
    const QString clase = e.ventas ? QStringLiteral("52") : QStringLiteral("51");
    const CentroDemo centro{e.proyecto, e.centro};
    const auto [salario, auxilio] = devengado_[e.nit];
    const struct {
        const char *gasto, *por_pagar;
        int tarifa;
        QString entidad;
        Moneda& acumulado;
    } aportes[] = {{"0570", "238030", 12000, demo_.pensiones, aportes_pension_},
                   {"0568", "237006", 522, demo_.riesgos, aportes_riesgos_},
                   {"0572", "237010", 4000, demo_.caja_compensacion, aportes_caja_}};
    for (const auto& x : aportes) {
        const Moneda valor = parte(salario, x.tarifa);
        a.debite(clase + QLatin1String(x.gasto), valor, en(centro, x.entidad));
        a.acredite(QLatin1String(x.por_pagar), valor, de(x.entidad));
        x.acumulado += valor;
        gastos_ += valor;
    }
    // Todas llevan el auxilio de transporte en su base, menos las vacaciones.
    const struct {
        const char *gasto, *por_pagar;
        int tarifa;
        bool con_auxilio;
    } provisiones[] = {{"0530", kCesantias, 8330, true},
                       {"0533", kInteresesCesantias, 1000, true},
                       {"0536", kPrimas, 8330, true},
                       {"0539", "261015", 4170, false}};
    for (const auto& x : provisiones) {
        const Moneda valor = parte(x.con_auxilio ? salario + auxilio : salario, x.tarifa);
        a.debite(clase + QLatin1String(x.gasto), valor, en(centro, e.nit));
        a.acredite(QLatin1String(x.por_pagar), valor, de(e.nit));
        gastos_ += valor;
        if (QLatin1String(x.por_pagar) == QLatin1String(kPrimas))
            primas_[e.nit] += valor;
    }
}

void AnoDemo::pague_prima() {
    AsientoDemo a = egreso(QStringLiteral("Prima de servicios"));
    Moneda total;
    for (const EmpleadoDemo& e : demo_.empleados) {
        // La del mes que corre se paga ya y se provisiona con la segunda quincena.
        const Moneda del_mes = parte(Moneda(e.salario), 8330), prima = primas_[e.nit] + del_mes;
        a.debite(kPrimas, prima, de(e.nit));
        total += prima;
        primas_[e.nit] = -del_mes;
    }
    del_banco(a, total);
    libro_.asiente(a);
}

void AnoDemo::pague_cesantias() {
    AsientoDemo a = egreso(QStringLiteral("Cesantías al fondo"), demo_.pensiones);
    Moneda total;
    for (const EmpleadoDemo& e : demo_.empleados) {
        a.debite(kCesantias, cesantias_anteriores(e), de(e.nit));
        total += cesantias_anteriores(e);
    }
    del_banco(a, total);
    libro_.asiente(a);
}

void AnoDemo::pague_intereses_cesantias() {
    AsientoDemo a = egreso(QStringLiteral("Intereses de las cesantías"));
    Moneda total;
    for (const EmpleadoDemo& e : demo_.empleados) {
        const Moneda interes = parte(cesantias_anteriores(e), 12000);
        a.debite(kInteresesCesantias, interes, de(e.nit));
        total += interes;
    }
    del_banco(a, total);
    libro_.asiente(a);
}

void AnoDemo::pague_aportes() {
    AsientoDemo a = egreso(QStringLiteral("Planilla de aportes"));
    const Moneda total = aportes_eps_ + aportes_pension_ + aportes_riesgos_ + aportes_caja_;
    if (total.es_cero())
        return;
    a.debite(QStringLiteral("237005"), aportes_eps_, de(demo_.eps));
    a.debite(QStringLiteral("238030"), aportes_pension_, de(demo_.pensiones));
    a.debite(QStringLiteral("237006"), aportes_riesgos_, de(demo_.riesgos));
    a.debite(QStringLiteral("237010"), aportes_caja_, de(demo_.caja_compensacion));
    del_banco(a, total);
    aportes_eps_ = aportes_pension_ = aportes_riesgos_ = aportes_caja_ = {};
    libro_.asiente(a);
}

void AnoDemo::deprecie() {
    AsientoDemo a = asiento(QStringLiteral("DP"), QStringLiteral("Depreciación del mes"));
    AsientoDemo niif = a;
    for (const DepreciacionDemo& d : kDepreciaciones) {
        const RenglonDemo donde = en({QLatin1String(d.proyecto), QLatin1String(d.centro)});
        a.debite(QLatin1String(d.gasto), d.local, donde);
        a.acredite(QLatin1String(d.acumulada), d.local);
        niif.debite(QLatin1String(d.gasto), d.niif, donde);
        niif.acredite(QLatin1String(d.acumulada), d.niif);
        gastos_ += Moneda(d.local);
    }
    a.niif = niif.renglones;
    libro_.asiente(a);
}

void AnoDemo::cobre_banco() {
    AsientoDemo a = asiento(QStringLiteral("NB"), QStringLiteral("Comisiones e impuesto bancario"));
    a.nit = demo_.banco_corriente;
    const Moneda comision(int(azar_.entre(60, 180)) * 1000),
        gravamen(int(azar_.entre(180, 420)) * 1000);
    const Moneda iva = parte(comision, 19000);
    a.debite(QStringLiteral("530515"), comision);
    a.debite(kIvaDescontable, iva, de(demo_.banco_corriente));
    a.debite(QStringLiteral("530595"), gravamen);
    del_banco(a, comision + iva + gravamen);
    bimestre().iva_descontable += iva;
    gastos_ += comision + gravamen;
    libro_.asiente(a);

    AsientoDemo intereses = asiento(QStringLiteral("NB"), QStringLiteral("Intereses de ahorros"));
    intereses.nit = demo_.banco_ahorros;
    const Moneda ganado(int(azar_.entre(90, 160)) * 1000), retenido = parte(ganado, 7000);
    RenglonDemo r = de(demo_.banco_ahorros);
    intereses.debite(kAhorros, ganado - retenido, r);
    r.base = ganado;
    r.porcentaje = 7;
    intereses.debite(kRetefuente, retenido, r);
    intereses.acredite(QStringLiteral("421005"), ganado);
    otros_ingresos_ += ganado;
    libro_.asiente(intereses);
}

void AnoDemo::pague_credito() {
    AsientoDemo a = asiento(QStringLiteral("NB"),
                            QStringLiteral("Cuota del crédito ") + fecha(mes_, dia_).left(6));
    a.nit = demo_.banco_corriente;
    const Moneda capital(2500000), interes = parte(Moneda(90000000 - 2500000 * (mes_ - 1)), 950);
    a.debite(QStringLiteral("210510"), capital, de(demo_.banco_corriente));
    a.debite(QStringLiteral("530520"), interes);
    del_banco(a, capital + interes);
    gastos_ += interes;
    libro_.asiente(a);
}

void AnoDemo::pague_al_exterior() {
    AsientoDemo a = asiento(QStringLiteral("NB"), QStringLiteral("Servicio de programas en línea"));
    a.nit = demo_.del_exterior;
    const Moneda base(1150000), iva = parte(base, 19000);
    a.debite(QStringLiteral("513520"), base,
             en({QStringLiteral("0001"), QStringLiteral("0003")}, demo_.del_exterior));
    // Quien no tiene domicilio en el país no cobra el IVA: se le retiene todo.
    a.debite(kIvaDescontable, iva, de(demo_.del_exterior));
    bimestre().iva_descontable +=
        retenga(a, QStringLiteral("236705"), iva, 100000, demo_.del_exterior);
    del_banco(a, base - retenga(a, QStringLiteral("236550"), base, 15000, demo_.del_exterior));
    gastos_ += base;
    libro_.asiente(a);
}

void AnoDemo::reciba_indemnizacion() {
    AsientoDemo a = asiento(QStringLiteral("CB"), QStringLiteral("Indemnización por inundación"));
    a.nit = demo_.aseguradora;
    const Moneda valor(2850000);
    al_banco(a, valor);
    a.acredite(QStringLiteral("425520"), valor, de(demo_.aseguradora));
    otros_ingresos_ += valor;
    libro_.asiente(a);
}

void AnoDemo::reciba_sin_saber_de_quien() {
    AsientoDemo a = asiento(QStringLiteral("CB"), QStringLiteral("Consignación por identificar"));
    const Moneda valor(1180000);
    al_banco(a, valor);
    a.acredite(QStringLiteral("28059505"), valor);
    libro_.asiente(a);
}

void AnoDemo::pague_retenciones() {
    // Las del mes anterior; la de ICA es del distrito y se declara aparte.
    const QHash<QString, Moneda>& del_mes = retenido_[size_t(mes_ - 1)];
    AsientoDemo a = egreso(QStringLiteral("Declaración de retenciones"), demo_.dian);
    Moneda total;
    QStringList cuentas = del_mes.keys();
    cuentas.sort();
    cuentas.removeOne(kRetencionIca);
    for (const QString& cuenta : cuentas) {
        a.debite(cuenta, del_mes[cuenta], de(demo_.dian));
        total += del_mes[cuenta];
    }
    if (total.es_cero())
        return;
    del_banco(a, total);
    libro_.asiente(a);
}

void AnoDemo::pague_reteica() {
    Moneda total = retenido_[size_t(mes_ - 1)].value(kRetencionIca);
    if (mes_ > 1)
        total += retenido_[size_t(mes_ - 2)].value(kRetencionIca);
    if (total.es_cero())
        return;
    AsientoDemo a = egreso(QStringLiteral("Declaración de ReteICA"), demo_.hacienda);
    a.debite(kRetencionIca, total, de(demo_.hacienda));
    del_banco(a, total);
    libro_.asiente(a);
}

void AnoDemo::pague_iva() {
    const Bimestre& b = por_declarar();
    AsientoDemo a = egreso(QStringLiteral("Declaración de IVA"), demo_.dian);
    const Moneda saldo = b.iva_generado - b.iva_descontable - b.reteiva - iva_a_favor_;
    a.debite(kIvaGenerado, b.iva_generado, de(demo_.dian));
    a.acredite(kIvaDescontable, b.iva_descontable, de(demo_.dian));
    a.acredite(kReteiva, b.reteiva, de(demo_.dian));
    a.acredite(QStringLiteral("135520"), iva_a_favor_, de(demo_.dian));
    iva_a_favor_ = saldo.negativa() ? -saldo : Moneda();
    a.debite(QStringLiteral("135520"), iva_a_favor_, de(demo_.dian));
    if (saldo > Moneda())
        del_banco(a, saldo);
    libro_.asiente(a);
}

void AnoDemo::cause_ica() {
    Bimestre& b = mes_ > 12 ? bimestres_.back() : bimestre();
    b.ica = parte(b.ventas, kIca);
    if (b.ica.es_cero()) // un bimestre de muy pocos renglones no alcanza a vender
        return;
    AsientoDemo a = asiento(QStringLiteral("CG"), QStringLiteral("Industria y comercio, bimestre"));
    a.debite(QStringLiteral("511505"), b.ica,
             en({QStringLiteral("0001"), QStringLiteral("0001")}, demo_.hacienda));
    a.acredite(kIcaPorPagar, b.ica, de(demo_.hacienda));
    gastos_ += b.ica;
    libro_.asiente(a);
}

void AnoDemo::pague_ica() {
    const Bimestre& b = por_declarar();
    if (b.ica.es_cero())
        return;
    AsientoDemo a = egreso(QStringLiteral("Declaración de ICA"), demo_.hacienda);
    a.debite(kIcaPorPagar, b.ica, de(demo_.hacienda));
    a.acredite(kReteica, b.reteica, de(demo_.hacienda));
    del_banco(a, b.ica - b.reteica);
    libro_.asiente(a);
}

void AnoDemo::pague_renta() {
    AsientoDemo a = egreso(QStringLiteral("Renta del año anterior, cuota"), demo_.dian);
    const Moneda cuota(kRentaAnterior / 2);
    a.debite(kRentaPorPagar, cuota, de(demo_.dian));
    del_banco(a, cuota);
    libro_.asiente(a);
}

void AnoDemo::ajuste() {
    mes_ = 13;
    dia_ = 31;
    AsientoDemo deterioro = asiento(QStringLiteral("CG"), QStringLiteral("Provisión de cartera"));
    AsientoDemo niif = deterioro;
    const RenglonDemo gerencia = en({QStringLiteral("0001"), QStringLiteral("0001")});
    deterioro.debite(QStringLiteral("519910"), 4200000, gerencia);
    deterioro.acredite(QStringLiteral("139905"), 4200000);
    niif.debite(QStringLiteral("519910"), 6850000, gerencia);
    niif.acredite(QStringLiteral("139905"), 6850000);
    deterioro.niif = niif.renglones;
    libro_.asiente(deterioro);

    cause_ica();

    const Moneda utilidad = ventas_ + otros_ingresos_ - costos_ - gastos_ - Moneda(4200000);
    if (utilidad > Moneda()) {
        AsientoDemo renta = asiento(QStringLiteral("CG"), QStringLiteral("Provisión de renta"));
        renta.debite(QStringLiteral("540505"), parte(utilidad, 34000));
        renta.acredite(kRentaPorPagar, parte(utilidad, 34000), de(demo_.dian));
        libro_.asiente(renta);
    }
    libro_.confirme();
}
