#include "herramientas/demo_cierres.h"

#include "herramientas/demo_catalogos.h"

namespace {

struct ActivoDemo {
    const char *modelo, *marca, *subgrupo;
};
/// En el orden de kDepreciaciones, que dice lo demás de cada uno.
constexpr ActivoDemo kActivos[] = {{"Línea Andina", "Maderas del Sur", "Oficina"},
                                   {"Torre T40", "Equipos Unidos", "Servidores"},
                                   {"2015", "Carga Liviana", "Reparto"}};

void complete_activo(Conexion& c, const ActivoDemo& a, const DepreciacionDemo& d, int grupo,
                     int ano) {
    const QDate entrada = QDate(ano, 1, 10).addMonths(-d.uso);
    c.ejecute("insert into activos_subgrupo (acgr_id, acsg_id, acsg_nombre) values (?, 1, ?)",
              {Valor(grupo), Valor(a.subgrupo)});
    c.ejecute("update activos_fijos set acfj_desc = ?, acfj_fecing = ?, acfj_fecgar = ?,"
              " acfj_modelo = ?, acfj_marca = ?, acfj_mesdep = ?, acfj_depniif = ?, acsg_id = 1,"
              " acfj_rescate = 0, acfj_ctadepd = ?, acfj_ctadepc = ?, acfj_ctaniif = ?,"
              " acfj_ctaniifd = ?, acfj_ctaniifc = ?, acfj_ctadeterd = '519910',"
              " acfj_ctadeterc = '159299' where acfj_cod = ?",
              {Valor(d.nombre), Valor(entrada), Valor(entrada.addYears(3)), Valor(a.modelo),
               Valor(a.marca), Valor(d.vida), Valor(d.vida_niif), Valor(d.gasto),
               Valor(d.acumulada), Valor(d.cuenta), Valor(d.gasto), Valor(d.acumulada),
               Valor(d.activo)});
    c.ejecute("insert into activos_centros (acfj_cod, acce_item, acce_proy, acce_centro, acce_porc)"
              " values (?, 1, ?, ?, 100)",
              {Valor(d.activo), Valor(d.proyecto), Valor(d.centro)});
    const auto hecho = [&](const char* libro, const char* clase, const QString& fecha, int mes,
                           int valor, const Valor& comprobante) {
        c.ejecute("insert into depreciacion_detalle (dede_id, acfj_cod, dede_libro, dede_clase,"
                  " dede_fecha, dede_mes, dede_valor, enco_consec) values (next value for"
                  " sec_depreciacion_detalle, ?, ?, ?, ?, ?, ?, ?)",
                  {Valor(d.activo), Valor(libro), Valor(clase), Valor(fecha), Valor(mes),
                   Valor(valor), comprobante});
    };
    for (const auto& [libro, valor] :
         {std::pair("2649", d.inicial(false)), {"NIIF", d.inicial(true)}})
        c.ejecute("insert into activos_inicial (acfj_cod, acin_libro, acin_hasta, acin_valor)"
                  " values (?, ?, ?, ?)",
                  {Valor(d.activo), Valor(libro), Valor(QDate(ano - 1, 12, 31)), Valor(valor)});
    const auto meses = c.abra("select enco_consec, enco_fecha from comprobante_encabezado where"
                              " tico_cod = 'DP' order by enco_fecha");
    while (meses->siguiente()) {
        const QString fecha = meses->valor(1).texto();
        const int mes = ano * 12 + fecha.mid(4, 2).toInt();
        hecho("2649", "D", fecha, mes, d.local, meses->valor(0));
        hecho("NIIF", "D", fecha, mes, d.niif, meses->valor(0));
    }
}

struct CuentaConcepto {
    const char *cuenta, *base, *cual, *porcentaje, *monto, *debito,
        *tercero, ///< comienzo de su nombre
        *proyecto, *centro;
};
struct ConceptoDemo {
    const char *codigo, *nombre, *cierre;
    QVector<CuentaConcepto> cuentas;
};
struct RegistroDemo {
    const char *codigo, *nombre;
    ConceptoDemo concepto;
};

QVector<RegistroDemo> registros() {
    return {{"PCAR",
             "Provisión de cartera",
             {"PRCA",
              "Provisión de cartera, 1 % del saldo",
              "139905",
              {{"519910", "1305", "FIN", "1", nullptr, "S", nullptr, "0001", "0001"}}}},
            {"AMSE",
             "Amortización de seguros",
             {"AMSE",
              "Amortización de seguros pagados por anticipado",
              "170520",
              {{"513095", nullptr, "FIN", nullptr, "350000", "S", "Seguros", "0001", "0001"}}}},
            {"DIGA",
             "Distribución de gastos comunes",
             {"DIGA",
              "Servicios de la sede repartidos por centro",
              nullptr,
              {{"513530", "5135", "NET", "40", nullptr, "N", "Energía", "0001", "0001"},
               {"513530", "5135", "NET", "25", nullptr, "S", "Energía", "0001", "0002"},
               {"523530", "5135", "NET", "15", nullptr, "S", "Energía", "0002", "0001"}}}}};
}

void cree_registro(Conexion& c, const RegistroDemo& r) {
    const auto nulo = [](const char* t) { return t ? Valor(t) : Valor(); };
    const auto nit = [&c](const char* nombre) {
        return nombre ? c.consulte("select first 1 terc_nit from terceros where terc_nom starting"
                                   " with ? order by terc_nit",
                                   {Valor(QString::fromUtf8(nombre))})
                      : Valor();
    };
    const ConceptoDemo& k = r.concepto;
    c.ejecute("insert into conceptos (conc_cod, conc_nom, conc_debito, conc_ctacierre, conc_vence)"
              " values (?, ?, 'N', ?, 'N')",
              {Valor(k.codigo), Valor(k.nombre), nulo(k.cierre)});
    int item = 0;
    for (const CuentaConcepto& l : k.cuentas)
        c.ejecute("insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, cocu_cuentabase,"
                  " cocu_base, cocu_porc, cocu_monto, cocu_debito, terc_nit, proy_cod, cent_cod)"
                  " values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                  {Valor(k.codigo), Valor(++item), Valor(l.cuenta), nulo(l.base), Valor(l.cual),
                   nulo(l.porcentaje), nulo(l.monto), Valor(l.debito), nit(l.tercero),
                   nulo(l.proyecto), nulo(l.centro)});
    c.ejecute("insert into registro_automatico (reau_cod, reau_nom, tico_cod, prco_pref) values"
              " (?, ?, 'CG', '0001')",
              {Valor(r.codigo), Valor(r.nombre)});
    c.ejecute("insert into registro_conceptos (reau_cod, reco_item, conc_cod) values (?, 1, ?)",
              {Valor(r.codigo), Valor(k.codigo)});
}

} // namespace

void siembre_cierres(Conexion& compania, int ano) {
    int grupo = 0;
    for (const ActivoDemo& a : kActivos) {
        complete_activo(compania, a, kDepreciaciones[grupo], grupo + 1, ano);
        ++grupo;
    }
    compania.ejecute("update activos_grupos set acgr_tipodep = 1");
    for (const RegistroDemo& r : registros())
        cree_registro(compania, r);
    // Lo previsto es el promedio del año en cientos de miles, con algo más de ventas y algo menos
    // de gasto: así unas cuentas exceden y otras faltan.
    compania.ejecute(
        "insert into presupuesto (pres_ano, pres_periodo, cuen_cod, pres_debito, pres_credito,"
        " pres_afecta) select s.sald_ano, m.mes, s.cuen_cod,"
        " iif(s.cuen_cod >= '5', round(sum(s.sald_debito - s.sald_credito) * 0.97 / 12, -5), 0),"
        " iif(s.cuen_cod < '5', round(sum(s.sald_credito - s.sald_debito) * 1.02 / 12, -5), 0), 'S'"
        " from vista_saldos_cuenta s cross join (select row_number() over () mes from"
        " rdb$relations rows 12) m where s.sald_ano = ? and s.sald_mes <= 12 and s.cuen_cod >= '4'"
        " and s.cuen_cod < '7' group by s.sald_ano, m.mes, s.cuen_cod"
        " having abs(sum(s.sald_debito - s.sald_credito)) > 1000000",
        {Valor(QString::number(ano))});
}
