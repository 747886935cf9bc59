// Lo de cada mes: nómina, aportes, depreciación, banco, crédito, impuestos y ajustes del año.
#include "herramientas/demo_ano.h"

using namespace cuenta_demo;

namespace {

constexpr int kAuxilioTransporte = 83140,
              kTopeAuxilio = 1475434; // pesos de 2017, dos salarios mínimos

Moneda parte(Moneda base, int diezmilesimas) {
    return Moneda::porcentaje(base, Moneda::de_escalado(diezmilesimas, 2)).redondeada(0);
}

} // namespace

void AnoDemo::pague_nomina(int quincena) {
    AsientoDemo a =
        asiento(QStringLiteral("NO"), QStringLiteral("Nómina quincena %1").arg(quincena));
    AsientoDemo pago = asiento(QStringLiteral("CE"), QStringLiteral("Pago de nómina"));
    pago.prefijo = QStringLiteral("0002");
    Moneda neto_total;
    for (const EmpleadoDemo& e : demo_.empleados) {
        const QString clase = e.ventas ? QStringLiteral("52") : QStringLiteral("51");
        const RenglonDemo donde = en({e.proyecto, e.centro}, e.nit);
        const Moneda sueldo(e.salario / 2);
        const Moneda auxilio =
            e.salario <= kTopeAuxilio ? Moneda(kAuxilioTransporte / 2) : Moneda();
        const Moneda salud = parte(sueldo, 400), pension = parte(sueldo, 400);
        const Moneda comision = e.ventas ? Moneda(int(azar_.entre(0, 300)) * 1000) : Moneda();
        a.debite(clase + QStringLiteral("0506"), sueldo, donde);
        a.debite(clase + QStringLiteral("0518"), comision, donde);
        a.debite(clase + QStringLiteral("0527"), auxilio, donde);
        a.acredite(QStringLiteral("237005"), salud, de(demo_.eps));
        a.acredite(QStringLiteral("238030"), pension, de(demo_.pensiones));
        const Moneda neto = sueldo + comision + auxilio - salud - pension;
        a.acredite(kSalarios, neto, de(e.nit));
        pago.debite(kSalarios, neto, de(e.nit));
        neto_total += neto;
        aportes_eps_ += salud;
        aportes_pension_ += pension;
        gastos_ += sueldo + comision + auxilio;
        if (quincena == 1)
            continue;
        // Con la segunda quincena van los aportes del patrono y las provisiones del mes.
        const Moneda mes(e.salario);
        const Moneda patrono_pension = parte(mes, 1200), riesgos = parte(mes, 52),
                     caja = parte(mes, 400);
        a.debite(clase + QStringLiteral("0570"), patrono_pension,
                 en({e.proyecto, e.centro}, demo_.pensiones));
        a.acredite(QStringLiteral("238030"), patrono_pension, de(demo_.pensiones));
        a.debite(clase + QStringLiteral("0568"), riesgos,
                 en({e.proyecto, e.centro}, demo_.riesgos));
        a.acredite(QStringLiteral("237006"), riesgos, de(demo_.riesgos));
        a.debite(clase + QStringLiteral("0572"), caja,
                 en({e.proyecto, e.centro}, demo_.caja_compensacion));
        a.acredite(QStringLiteral("237010"), caja, de(demo_.caja_compensacion));
        aportes_pension_ += patrono_pension;
        aportes_riesgos_ += riesgos;
        aportes_caja_ += caja;
        gastos_ += patrono_pension + riesgos + caja;
        const std::pair<const char*, const char*> provisiones[] = {
            {"0530", "261005"}, {"0533", "261010"}, {"0536", "261020"}, {"0539", "261015"}};
        const int tarifas[] = {833, 100, 833, 417};
        for (int i = 0; i < 4; ++i) {
            const Moneda valor = parte(mes, tarifas[i]);
            a.debite(clase + QLatin1String(provisiones[i].first), valor, donde);
            a.acredite(QLatin1String(provisiones[i].second), valor, de(e.nit));
            gastos_ += valor;
            if (i == 2)
                primas_[e.nit] += valor;
        }
    }
    libro_.asiente(a);
    del_banco(pago, neto_total);
    libro_.asiente(pago);
}

void AnoDemo::pague_prima() {
    AsientoDemo a = asiento(QStringLiteral("CE"), QStringLiteral("Prima de servicios"));
    a.prefijo = QStringLiteral("0002");
    Moneda total;
    for (const EmpleadoDemo& e : demo_.empleados) {
        a.debite(QStringLiteral("261020"), primas_[e.nit], de(e.nit));
        total += primas_[e.nit];
    }
    primas_.clear();
    del_banco(a, total);
    libro_.asiente(a);
}

void AnoDemo::pague_cesantias() {
    AsientoDemo a = asiento(QStringLiteral("CE"), QStringLiteral("Cesantías al fondo"));
    a.prefijo = QStringLiteral("0002");
    a.nit = demo_.pensiones;
    a.debite(QStringLiteral("261005"), kCesantiasAnteriores, de(demo_.pensiones));
    del_banco(a, kCesantiasAnteriores);
    libro_.asiente(a);
}

void AnoDemo::pague_aportes() {
    AsientoDemo a = asiento(QStringLiteral("CE"), QStringLiteral("Planilla de aportes"));
    a.prefijo = QStringLiteral("0002");
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
    const Moneda iva = parte(comision, 1900);
    a.debite(QStringLiteral("530515"), comision);
    a.debite(kIvaDescontable, iva, de(demo_.banco_corriente));
    a.debite(QStringLiteral("530595"), gravamen);
    del_banco(a, comision + iva + gravamen);
    iva_descontable_ += iva;
    gastos_ += comision + gravamen;
    libro_.asiente(a);

    AsientoDemo intereses = asiento(QStringLiteral("NB"), QStringLiteral("Intereses de ahorros"));
    intereses.nit = demo_.banco_ahorros;
    const Moneda ganado(int(azar_.entre(90, 160)) * 1000);
    intereses.debite(kAhorros, ganado, de(demo_.banco_ahorros));
    intereses.acredite(QStringLiteral("421005"), ganado);
    libro_.asiente(intereses);
}

void AnoDemo::pague_credito() {
    AsientoDemo a = asiento(QStringLiteral("NB"),
                            QStringLiteral("Cuota del crédito ") + fecha(mes_, dia_).left(6));
    a.nit = demo_.banco_corriente;
    const Moneda capital(2500000), interes = parte(Moneda(90000000 - 2500000 * (mes_ - 1)), 95);
    a.debite(QStringLiteral("210510"), capital, de(demo_.banco_corriente));
    a.debite(QStringLiteral("530520"), interes);
    del_banco(a, capital + interes);
    gastos_ += interes;
    libro_.asiente(a);
}

void AnoDemo::pague_al_exterior() {
    AsientoDemo a = asiento(QStringLiteral("NB"), QStringLiteral("Servicio de programas en línea"));
    a.nit = demo_.del_exterior;
    const Moneda base(1150000), iva = parte(base, 1900);
    a.debite(QStringLiteral("513520"), base,
             en({QStringLiteral("0001"), QStringLiteral("0003")}, demo_.del_exterior));
    // Quien no tiene domicilio en el país no cobra el IVA: se le retiene todo.
    a.debite(kIvaDescontable, iva, de(demo_.del_exterior));
    iva_descontable_ += retenga(a, QStringLiteral("236705"), iva, 10000, demo_.del_exterior);
    del_banco(a, base - retenga(a, QStringLiteral("236550"), base, 1500, demo_.del_exterior));
    gastos_ += base;
    libro_.asiente(a);
}

void AnoDemo::reciba_indemnizacion() {
    AsientoDemo a = asiento(QStringLiteral("CB"), QStringLiteral("Indemnización por inundación"));
    a.nit = demo_.aseguradora;
    const Moneda valor(2850000);
    al_banco(a, valor);
    a.acredite(QStringLiteral("425520"), valor, de(demo_.aseguradora));
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
    // Se declara lo del mes anterior; lo que se retuvo entre tanto espera al siguiente.
    const QHash<QString, Moneda> del_mes = mes_ == 1 ? retenciones_ : retenciones_anteriores_;
    AsientoDemo a = asiento(QStringLiteral("CE"), QStringLiteral("Declaración de retenciones"));
    a.prefijo = QStringLiteral("0002");
    a.nit = demo_.dian;
    Moneda total;
    QStringList cuentas = del_mes.keys();
    cuentas.sort();
    for (const QString& cuenta : cuentas) {
        const bool distrito = cuenta == QLatin1String(kRetencionIca);
        a.debite(cuenta, del_mes[cuenta], de(distrito ? demo_.hacienda : demo_.dian));
        total += del_mes[cuenta];
    }
    for (auto i = del_mes.begin(); i != del_mes.end(); ++i)
        retenciones_[i.key()] -= i.value();
    retenciones_anteriores_ = retenciones_;
    if (total.es_cero())
        return;
    del_banco(a, total);
    libro_.asiente(a);
}

void AnoDemo::pague_iva() {
    AsientoDemo a = asiento(QStringLiteral("CE"), QStringLiteral("Declaración de IVA"));
    a.prefijo = QStringLiteral("0002");
    a.nit = demo_.dian;
    const Moneda saldo = iva_generado_ - iva_descontable_ - reteiva_;
    a.debite(kIvaGenerado, iva_generado_, de(demo_.dian));
    a.acredite(kIvaDescontable, iva_descontable_, de(demo_.dian));
    a.acredite(kReteiva, reteiva_, de(demo_.dian));
    if (saldo.negativa())
        a.debite(QStringLiteral("135520"), saldo.absoluta(), de(demo_.dian));
    else
        del_banco(a, saldo);
    iva_generado_ = iva_descontable_ = reteiva_ = {};
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

    AsientoDemo ica = asiento(QStringLiteral("CG"), QStringLiteral("Industria y comercio del año"));
    const Moneda industria = parte(ventas_, 97);
    ica.debite(QStringLiteral("511505"), industria,
               en({QStringLiteral("0001"), QStringLiteral("0001")}, demo_.hacienda));
    ica.acredite(QStringLiteral("241205"), industria, de(demo_.hacienda));
    if (!industria.es_cero()) // un año de muy pocos renglones no alcanza a vender
        libro_.asiente(ica);

    const Moneda utilidad = ventas_ - costos_ - gastos_ - industria - Moneda(4200000);
    if (!utilidad.negativa() && !utilidad.es_cero()) {
        AsientoDemo renta = asiento(QStringLiteral("CG"), QStringLiteral("Provisión de renta"));
        renta.debite(QStringLiteral("540505"), parte(utilidad, 3400));
        renta.acredite(QStringLiteral("240405"), parte(utilidad, 3400), de(demo_.dian));
        libro_.asiente(renta);
    }
    libro_.confirme();
}
