// Lo que la base hace sola a fin de período: cierre anual y depreciación. Todo se deshace al medir.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "herramientas/ubicacion.h"

#include <algorithm>
#include <ctime>

namespace {

void conecte(Conexion& c, const Ubicacion& lugar) {
    ParametrosConexion p;
    p.base = lugar.base_compania("001");
    p.usuario = "SYSDBA";
    c.conectar(p);
}

/// Corre las órdenes en una transacción que se deshace.
void ensaye(Conexion& c, const QStringList& ordenes) {
    Transaccion t(c, ModoTransaccion::Escritura);
    for (const QString& orden : ordenes)
        c.prepare(orden, t)->ejecute(t, {});
    t.deshaga();
}

/// Las mismas líneas del cierre, escritas por una sola orden en un comprobante vacío.
QStringList a_mano() {
    QStringList ordenes{"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref,"
                        " enco_numero, enco_fecha, enco_usuario) values (99999999, 'CG', '0001',"
                        " '999999', '20171331', 'ADMIN')"};
    for (const char* s : {"", "_niif"})
        ordenes << QString("insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod,"
                           " code_debito, code_credito, terc_nit, proy_cod, cent_cod, arti_cod)"
                           " select 99999999, row_number() over (), cuen_cod,"
                           " iif(neto < 0, -neto, 0), iif(neto > 0, neto, 0), nullif(terc_nit, ''),"
                           " nullif(proy_cod, ''), nullif(cent_cod, ''), nullif(arti_cod, '') from"
                           " (select cuen_cod, terc_nit, proy_cod, cent_cod, arti_cod,"
                           " sum(sald_debito - sald_credito) neto from vista_saldos_detalle%1"
                           " where cuen_cod >= '4' and cuen_cod < '8' and sald_ano <= '2017'"
                           " group by 1, 2, 3, 4, 5 having sum(sald_debito - sald_credito) <> 0)")
                       .arg(s);
    return ordenes;
}

/// Una copia con esos activos por depreciar en enero.
class PorDepreciar {
public:
    explicit PorDepreciar(int activos) {
        conecte(c_, copia_.lugar);
        Transaccion t(c_, ModoTransaccion::Escritura);
        const auto alta = c_.prepare(
            "insert into activos_fijos (acfj_cod, acfj_desc, acfj_fecing, acfj_mesdep,"
            " acfj_depniif, acfj_dep, acfj_activo, acfj_rescate, acgr_id, acfj_unidades,"
            " acfj_ctadepd, acfj_ctadepc, acfj_ctaniifd, acfj_ctaniifc, acfj_vrorig) values (?,"
            " 'Equipo', '2018-01-05', 60, 84, 'S', 'S', 0, 1, 'N', '516015', '159215', '516015',"
            " '159215', 1200000)",
            t);
        for (int i = 0; i < activos; ++i)
            alta->ejecute(t, {Valor(QString("BM%1").arg(i, 6, 10, QChar('0')))});
        c_.prepare("insert into activos_centros (acfj_cod, acce_item, acce_proy, acce_centro,"
                   " acce_porc) select acfj_cod, 1, '0001', '0001', 100 from activos_fijos where"
                   " acfj_cod starting with 'BM'",
                   t)
            ->ejecute(t, {});
        t.confirme();
    }
    void deprecie() {
        ensaye(c_, {"insert into depreciacion (depr_id, depr_fecha, tico_cod, prco_pref,"
                    " depr_conc, depr_niif) values (-1, '20180131', 'CG', '0001', 'Enero', 'A')",
                    "execute procedure asiente_depreciacion(-1)"});
    }

private:
    const Copia copia_;
    Conexion c_;
};

/// Milisegundos de procesador: en un equipo ocupado, los del reloj castigan más al trabajo largo.
double procesador(PorDepreciar& activos) {
    const std::clock_t antes = std::clock();
    activos.deprecie();
    return double(std::clock() - antes) * 1000 / CLOCKS_PER_SEC;
}

} // namespace

void mida_cierre() {
    Conexion c;
    conecte(c, Ubicacion(demostracion(1000000)));
    const QString tercero = c.consulte("select first 1 terc_nit from terceros").texto();
    const QStringList cierre{
        "insert into cierre_anual (cian_id, cian_concepto, terc_nit, tico_cod, prco_pref,"
        " cian_fecha, cian_niif) values (0, 'Cierre', " +
        QuotedStr(tercero) + ", 'CG', '0001', '20171331', 'A')"};
    const auto [propio, directo] =
        compare([&] { ensaye(c, cierre); }, [&] { ensaye(c, a_mano()); }, 5);
    informe("cierre anual de 1.000.000 de renglones, los dos libros", propio,
            "las mismas líneas por una orden SQL", directo, 2);
}

void mida_depreciacion() {
    PorDepreciar mil(1000), diez_mil(10000);
    double pocos = 1e9, muchos = 1e9;
    for (int vez = 0; vez < 3; ++vez) {
        pocos = std::min(pocos, procesador(mil));
        muchos = std::min(muchos, procesador(diez_mil));
    }
    informe("depreciación de 10.000 activos, los dos libros (procesador)", muchos, "de 1.000",
            pocos, 13);
}
