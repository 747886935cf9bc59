#include "sesion/registro_documentos.h"

#include "datos/firebird/valor.h"

#include <QSet>

namespace {

const TipoDocumentoSuite kPorNumero[] = {
    // tipo, id, tabla, número, prefijo
    {10, "caco_id", "cambio_costo", "caco_numero", "pref_pre"},
    {11, "entr_id", "entradas", "entr_numero", "pref_pre"},
    {12, "sali_id", "salidas", "sali_numero", "pref_pre"},
    {13, "tran_id", "trasferencias", "tran_numero", "pref_pre"},
    {14, "ajus_id", "ajustes", "ajus_numero", "pref_pre"},
    {15, "ensa_id", "ensambles", "ensa_numero", "pref_pre"},
    {16, "dese_id", "desensambles", "dese_numero", "pref_pre"},
    {17, "rese_id", "reservas", "rese_numero", "pref_pre"},
    {18, "orin_id", "ordenes_inventario", "orin_numero", "pref_pre"},
    {19, "pror_id", "produccion_orden", "pror_numero", "pref_pre"},
    {20, "pror_id", "produccion_entrada_enc", "prde_numero", "prde_pref"},
    {21, "faco_id", "facturas_compra", "faco_numero", "pref_pre"},
    {22, "repr_id", "remision_proveedor", "repr_numero", "pref_pre"},
    {23, "ordc_id", "ordenes_compra", "ordc_numero", "pref_pre"},
    {24, "dvco_id", "devoluciones_compras", "dvco_numero", "pref_pre"},
    {25, "copr_id", "cotizacion_proveedor", "copr_numero", "pref_pre"},
    {27, "plpr_id", "plan_produccion", "plpr_numero", "plpr_pref"},
    {28, "prsa_id", "produccion_salida_enc", "prsa_numero", "prsa_pref"},
    {29, "prdd_id", "produccion_devolucion", "prdd_numero", "prdd_pref"},
    {31, "fact_id", "facturas", "fact_numero", "pref_pre"},
    {32, "revt_id", "remisiones_venta", "revt_numero", "pref_pre"},
    {33, "devt_id", "devoluciones_ventas", "devt_numero", "pref_pre"},
    {34, "pedi_id", "pedidos", "pedi_numero", "pref_pre"},
    {35, "coti_id", "cotizaciones", "coti_numero", "pref_pre"},
    {40, "pend_id", "pendiente_ventas", "pend_numero", "pref_pre"},
    {41, "ndcl_id", "notas_debito_clientes", "ndcl_numero", "pref_pre"},
    {42, "nccl_id", "notas_credito_clientes", "nccl_numero", "pref_pre"},
    {43, "apcl_id", "aplicacion_cliente", "apcl_numero", "pref_pre"},
    {44, "pacl_id", "pagos_clientes", "pacl_numero", "pref_pre"},
    {45, "ancl_id", "anticipos_cliente", "ancl_numero", "pref_pre"},
    {46, "cain_id", "causa_interes", "cain_numero", "pref_pre"},
    {47, "deca_id", "deterioro_cartera_enc", "deca_numero", "pref_pre"},
    {48, "cred_id", "credito_educativo", "cred_nro", ""},
    {51, "ndpr_id", "notas_debito_proveedor", "ndpr_numero", "pref_pre"},
    {52, "ncpr_id", "notas_credito_proveedor", "ncpr_numero", "pref_pre"},
    {53, "appr_id", "aplicacion_provedor", "appr_numero", "pref_pre"},
    {54, "papr_id", "pagos_proveedor", "papr_numero", "pref_pre"},
    {55, "anpr_id", "anticipos_proveedor", "anpr_numero", "pref_pre"},
    {61, "reca_id", "RECIBOS_CAJA", "reca_numero", "pref_pre"},
    {62, "egre_id", "egresos", "egre_numero", "pref_pre"},
    {63, "cado_id", "cambio_documentos", "cado_numero", "pref_pre"},
    {64, "cotj_id", "consigna_tarjetas", "cotj_numero", "pref_pre"},
    {65, "rcpr_id", "recibo_provisional", "rcpr_numero", "pref_pre"},
    {66, "trcj_id", "traslados_caja", "trcj_numero", "pref_pre"},
    {67, "arqc_id", "arqueo_caja", "arqc_numero", "pref_pre"},
    {85, "cgrm_id", "carga_remesa", "cgrm_numero", "cgrm_pref"},
    {87, "cgrm_id", "carga_remesa", "cgrm_numero", "cgrm_pref"},
    {86, "tiqp_id", "tiquete_pasajero", "tiqp_numero", "tiqp_pref"},
    {88, "plpa_id", "planilla_pasajeros", "plpa_numero", "plpa_pref"},
    {89, "manc_id", "manifiesto_carga", "manc_numero", "manc_pref"},
    {132, "fapo_id", "factura_proforma", "fapo_numero", "pref_pre"},
    {137, "fapo_id", "factura_proforma", "fapo_numero", "pref_pre"},
    {133, "impo_id", "importacion", "impo_numero", "impo_pref"},
    {138, "gain_id", "gastos_importacion", "gain_numero", "gain_pref"},
    {139, "slim_id", "solicitud_importacion", "slim_numero", "pref_pre"},
    {181, "cncl_id", "contratos_colegios", "cncl_numero", ""},
    {182, "liqr_id", "liquidacion_ruta_colegio", "liqr_numero", ""},
    {301, "crev_id", "crm_eventos", "even_numero", "even_pref"},
};

// Aquí la columna del prefijo puede ser también un texto fijo.
const TipoDocumentoSuite kPorId[] = {
    {11, "entr_id", "entradas", "entr_numero", "pref_pre"},
    {12, "sali_id", "salidas", "sali_numero", "pref_pre"},
    {13, "tran_id", "trasferencias", "tran_numero", "pref_pre"},
    {14, "ajus_id", "ajustes", "ajus_numero", "pref_pre"},
    {15, "ensa_id", "ensambles", "ensa_numero", "pref_pre"},
    {16, "dese_id", "desensambles", "dese_numero", "pref_pre"},
    {21, "faco_id", "facturas_compra", "faco_numero", "pref_pre"},
    {22, "repr_id", "remision_proveedor", "repr_numero", "pref_pre"},
    {23, "ordc_id", "ordenes_compra", "ordc_numero", "pref_pre"},
    {24, "dvco_id", "devoluciones_compras", "dvco_numero", "pref_pre"},
    {25, "copr_id", "cotizacion_proveedor", "copr_numero", "pref_pre"},
    {31, "fact_id", "facturas", "fact_numero", "pref_pre"},
    {32, "revt_id", "remisiones_venta", "revt_numero", "pref_pre"},
    {33, "devt_id", "devoluciones_ventas", "devt_numero", "pref_pre"},
    {34, "pedi_id", "pedidos", "pedi_numero", "pref_pre"},
    {35, "coti_id", "cotizaciones", "coti_numero", "pref_pre"},
    {40, "pend_id", "pendiente_ventas", "pend_numero", "pref_pre"},
    {41, "ndcl_id", "notas_debito_clientes", "ndcl_numero", "pref_pre"},
    {42, "nccl_id", "notas_credito_clientes", "nccl_numero", "pref_pre"},
    {43, "apcl_id", "aplicacion_cliente", "apcl_numero", "pref_pre"},
    {45, "ancl_id", "anticipos_cliente", "ancl_numero", "pref_pre"},
    {47, "deca_id", "deterioro_cartera_enc", "deca_numero", "pref_pre"},
    {48, "cred_id", "credito_educativo", "cred_nro", "'0000'"},
    {51, "ndpr_id", "notas_debito_proveedor", "ndpr_numero", "pref_pre"},
    {52, "ncpr_id", "notas_credito_proveedor", "ncpr_numero", "pref_pre"},
    {53, "appr_id", "aplicacion_provedor", "appr_numero", "pref_pre"},
    {55, "anpr_id", "anticipos_proveedor", "anpr_numero", "pref_pre"},
    {61, "reca_id", "recibos_caja", "reca_numero", "pref_pre"},
    {62, "egre_id", "egresos", "egre_numero", "pref_pre"},
    {64, "cotj_id", "consigna_tarjetas", "cotj_numero", "pref_pre"},
    {65, "rcpr_id", "recibo_provisional", "rcpr_numero", "pref_pre"},
    {66, "trcj_id", "traslados_caja", "trcj_numero", "pref_pre"},
    {71, "cons_id", "consigna", "cons_numero", "prba_pref"},
    {74, "ndbc_id", "notas_debito", "ndbc_numero", "prba_pref"},
    {75, "ncbc_id", "notas_credito", "ncbc_numero", "prba_pref"},
    {76, "tras_id", "traslados", "tras_numero", "prba_pref"},
    {77, "dvch_id", "devolucion_cheques", "dvch_numdoc", "prba_pref"},
    {85, "cgrm_id", "carga_remesa", "cgrm_numero", "cgrm_pref"},
    {87, "cgrm_id", "carga_remesa", "cgrm_numero", "cgrm_pref"},
    {86, "tiqp_id", "tiquete_pasajero", "tiqp_numero", "tiqp_pref"},
    {88, "plpa_id", "planilla_pasajeros", "plpa_numero", "plpa_pref"},
    {89, "manc_id", "manifiesto_carga", "manc_numero", "manc_pref"},
    {92, "nomi_id", "nomina", "nomi_periodo", "nomi_ano"},
    {99, "liqd_id", "liquidacion", "terc_nit", "' '"},
    {132, "fapo_id", "factura_proforma", "fapo_numero", "pref_pre"},
    {137, "fapo_id", "factura_proforma", "fapo_numero", "pref_pre"},
    {133, "impo_id", "importacion", "impo_numero", "impo_pref"},
    {139, "slim_id", "solicitud_importacion", "slim_numero", "pref_pre"},
    {181, "cncl_id", "contratos_colegios", "cncl_numero", "'0000'"},
    {182, "liqr_id", "liquidacion_ruta_colegio", "liqr_numero", "'0000'"},
    {301, "even_id", "crm_eventos", "even_numero", "even_pref"},
};

template <size_t N>
const TipoDocumentoSuite* busque(const TipoDocumentoSuite (&tabla)[N], int tipo) {
    for (const auto& t : tabla)
        if (t.tipo == tipo)
            return &t;
    return nullptr;
}

/// Las remesas y los cumplidos comparten tabla y se separan por el tipo.
QString condicion_de_tipo(int tipo) {
    return tipo == 85 || tipo == 87 ? QStringLiteral(" tido_cod = %1 and").arg(tipo) : QString();
}

QString sql_por_id(const TipoDocumentoSuite& d, qint64 id) {
    return QStringLiteral("select %1, %2 from %3 where%4 %5 = %6")
        .arg(d.prefijo, d.numero, d.tabla, condicion_de_tipo(d.tipo), d.id)
        .arg(id);
}

} // namespace

QString sql_existe_numero(int tipo, const QString& prefijo, const QString& numero) {
    const TipoDocumentoSuite* d = busque(kPorNumero, tipo);
    if (!d)
        return {};
    QString sql = QStringLiteral("select %1 from %2 where").arg(d->id, d->tabla);
    if (*d->prefijo)
        sql += condicion_de_tipo(tipo) +
               QStringLiteral(" %1 = %2 and").arg(d->prefijo, QuotedStr(prefijo));
    return sql + QStringLiteral(" %1 = %2").arg(d->numero, QuotedStr(numero));
}

QString sql_numero_documento(int tipo, qint64 id) {
    if (tipo == 30)
        return QStringLiteral(
                   "select pref_pre, fact_numero from facturas f, entrega_documentos e where "
                   "tido_cod = 31 and endo_iddoc = fact_id and endo_iddoc = %1")
            .arg(id);
    const TipoDocumentoSuite* d = busque(kPorId, tipo);
    return d ? sql_por_id(*d, id) : QString();
}

QString sql_num_documento(int tipo, qint64 id) {
    static const QSet<int> tipos{21, 22, 23, 24,  25,  31,  32,  33,  34,  35, 40, 41,
                                 42, 45, 47, 48,  51,  52,  55,  61,  62,  77, 85, 86,
                                 87, 88, 89, 132, 133, 137, 139, 181, 182, 301};
    if (tipo == 37 || tipo == 38)
        return sql_por_id({tipo, "rute_id", "rutero", "rute_numero", "pref_pre"}, id);
    if (!tipos.contains(tipo))
        return {};
    TipoDocumentoSuite d = *busque(kPorId, tipo);
    switch (tipo) {
    case 47:
        d.tabla = "deterioro_cartera";
        break;
    case 48:
        d.numero = "cred_ro";
        break;
    case 181:
        d.numero = "clcn_numero";
        break;
    case 77:
        d.prefijo = "prba_pre";
        break;
    }
    return sql_por_id(d, id);
}
