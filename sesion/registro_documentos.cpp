#include "sesion/registro_documentos.h"

#include "datos/firebird/valor.h"

namespace {

// Cuáles de las tres consultas conocen un documento.
enum Rutina : unsigned {
    kExiste = 1,  ///< existe_numero
    kMuestra = 2, ///< numero_documento
    kNum = 4,     ///< num_documento
    kTodas = kExiste | kMuestra | kNum,
};

/// En qué se aparta un documento de los demás, o una consulta suya de las otras.
struct Diferencias {
    bool por_tipo = false;        ///< comparte su tabla con otro y se separan por el tipo
    const char* id_mostrado = ""; ///< el id con que se muestra no es el que se encuentra
    const char *tabla_num = "", *numero_num = "", *prefijo_num = ""; ///< los de num_documento
};

/// Dónde está un documento y cómo se llaman sus columnas.
struct DocumentoSuite {
    int tipo;
    unsigned rutinas;
    const char *tabla, *id, *numero;
    const char* prefijo = "pref_pre"; ///< vacío: no lo lleva, y se muestra '0000'
    Diferencias diferencias = {};
};

const DocumentoSuite kDocumentos[] = {
    // tipo, rutinas, tabla, id, número, prefijo, diferencias
    {10, kExiste, "cambio_costo", "caco_id", "caco_numero"},
    {11, kExiste | kMuestra, "entradas", "entr_id", "entr_numero"},
    {12, kExiste | kMuestra, "salidas", "sali_id", "sali_numero"},
    {13, kExiste | kMuestra, "trasferencias", "tran_id", "tran_numero"},
    {14, kExiste | kMuestra, "ajustes", "ajus_id", "ajus_numero"},
    {15, kExiste | kMuestra, "ensambles", "ensa_id", "ensa_numero"},
    {16, kExiste | kMuestra, "desensambles", "dese_id", "dese_numero"},
    {17, kExiste, "reservas", "rese_id", "rese_numero"},
    {18, kExiste, "ordenes_inventario", "orin_id", "orin_numero"},
    {19, kExiste, "produccion_orden", "pror_id", "pror_numero"},
    {20, kExiste, "produccion_entrada_enc", "pror_id", "prde_numero", "prde_pref"},
    {21, kTodas, "facturas_compra", "faco_id", "faco_numero"},
    {22, kTodas, "remision_proveedor", "repr_id", "repr_numero"},
    {23, kTodas, "ordenes_compra", "ordc_id", "ordc_numero"},
    {24, kTodas, "devoluciones_compras", "dvco_id", "dvco_numero"},
    {25, kTodas, "cotizacion_proveedor", "copr_id", "copr_numero"},
    {27, kExiste, "plan_produccion", "plpr_id", "plpr_numero", "plpr_pref"},
    {28, kExiste, "produccion_salida_enc", "prsa_id", "prsa_numero", "prsa_pref"},
    {29, kExiste, "produccion_devolucion", "prdd_id", "prdd_numero", "prdd_pref"},
    {31, kTodas, "facturas", "fact_id", "fact_numero"},
    {32, kTodas, "remisiones_venta", "revt_id", "revt_numero"},
    {33, kTodas, "devoluciones_ventas", "devt_id", "devt_numero"},
    {34, kTodas, "pedidos", "pedi_id", "pedi_numero"},
    {35, kTodas, "cotizaciones", "coti_id", "coti_numero"},
    {37, kNum, "rutero", "rute_id", "rute_numero"},
    {38, kNum, "rutero", "rute_id", "rute_numero"},
    {40, kTodas, "pendiente_ventas", "pend_id", "pend_numero"},
    {41, kTodas, "notas_debito_clientes", "ndcl_id", "ndcl_numero"},
    {42, kTodas, "notas_credito_clientes", "nccl_id", "nccl_numero"},
    {43, kExiste | kMuestra, "aplicacion_cliente", "apcl_id", "apcl_numero"},
    {44, kExiste, "pagos_clientes", "pacl_id", "pacl_numero"},
    {45, kTodas, "anticipos_cliente", "ancl_id", "ancl_numero"},
    {46, kExiste, "causa_interes", "cain_id", "cain_numero"},
    {47,
     kTodas,
     "deterioro_cartera_enc",
     "deca_id",
     "deca_numero",
     "pref_pre",
     {.tabla_num = "deterioro_cartera"}},
    {48, kTodas, "credito_educativo", "cred_id", "cred_nro", "", {.numero_num = "cred_ro"}},
    {51, kTodas, "notas_debito_proveedor", "ndpr_id", "ndpr_numero"},
    {52, kTodas, "notas_credito_proveedor", "ncpr_id", "ncpr_numero"},
    {53, kExiste | kMuestra, "aplicacion_provedor", "appr_id", "appr_numero"},
    {54, kExiste, "pagos_proveedor", "papr_id", "papr_numero"},
    {55, kTodas, "anticipos_proveedor", "anpr_id", "anpr_numero"},
    {61, kTodas, "recibos_caja", "reca_id", "reca_numero"},
    {62, kTodas, "egresos", "egre_id", "egre_numero"},
    {63, kExiste, "cambio_documentos", "cado_id", "cado_numero"},
    {64, kExiste | kMuestra, "consigna_tarjetas", "cotj_id", "cotj_numero"},
    {65, kExiste | kMuestra, "recibo_provisional", "rcpr_id", "rcpr_numero"},
    {66, kExiste | kMuestra, "traslados_caja", "trcj_id", "trcj_numero"},
    {67, kExiste, "arqueo_caja", "arqc_id", "arqc_numero"},
    {71, kMuestra, "consigna", "cons_id", "cons_numero", "prba_pref"},
    {74, kMuestra, "notas_debito", "ndbc_id", "ndbc_numero", "prba_pref"},
    {75, kMuestra, "notas_credito", "ncbc_id", "ncbc_numero", "prba_pref"},
    {76, kMuestra, "traslados", "tras_id", "tras_numero", "prba_pref"},
    {77,
     kMuestra | kNum,
     "devolucion_cheques",
     "dvch_id",
     "dvch_numdoc",
     "prba_pref",
     {.prefijo_num = "prba_pre"}},
    {85, kTodas, "carga_remesa", "cgrm_id", "cgrm_numero", "cgrm_pref", {.por_tipo = true}},
    {86, kTodas, "tiquete_pasajero", "tiqp_id", "tiqp_numero", "tiqp_pref"},
    {87, kTodas, "carga_remesa", "cgrm_id", "cgrm_numero", "cgrm_pref", {.por_tipo = true}},
    {88, kTodas, "planilla_pasajeros", "plpa_id", "plpa_numero", "plpa_pref"},
    {89, kTodas, "manifiesto_carga", "manc_id", "manc_numero", "manc_pref"},
    {92, kMuestra, "nomina", "nomi_id", "nomi_periodo", "nomi_ano"},
    {99, kMuestra, "liquidacion", "liqd_id", "terc_nit", "' '"},
    {132, kTodas, "factura_proforma", "fapo_id", "fapo_numero"},
    {133, kTodas, "importacion", "impo_id", "impo_numero", "impo_pref"},
    {137, kTodas, "factura_proforma", "fapo_id", "fapo_numero"},
    {138, kExiste, "gastos_importacion", "gain_id", "gain_numero", "gain_pref"},
    {139, kTodas, "solicitud_importacion", "slim_id", "slim_numero"},
    {181,
     kTodas,
     "contratos_colegios",
     "cncl_id",
     "cncl_numero",
     "",
     {.numero_num = "clcn_numero"}},
    {182, kTodas, "liquidacion_ruta_colegio", "liqr_id", "liqr_numero", ""},
    {301, kTodas, "crm_eventos", "crev_id", "even_numero", "even_pref", {.id_mostrado = "even_id"}},
};

const DocumentoSuite* busque(int tipo, Rutina rutina) {
    for (const DocumentoSuite& d : kDocumentos)
        if (d.tipo == tipo && (d.rutinas & rutina))
            return &d;
    return nullptr;
}

const char* propio_o(const char* propio, const char* comun) {
    return *propio ? propio : comun;
}

QString condicion_de_tipo(const DocumentoSuite& d) {
    return d.diferencias.por_tipo ? QStringLiteral(" tido_cod = %1 and").arg(d.tipo) : QString();
}

QString sql_por_id(const DocumentoSuite& d, const char* tabla, const char* prefijo,
                   const char* numero, qint64 id) {
    return QStringLiteral("select %1, %2 from %3 where%4 %5 = %6")
        .arg(*prefijo ? prefijo : "'0000'", numero, tabla, condicion_de_tipo(d),
             propio_o(d.diferencias.id_mostrado, d.id))
        .arg(id);
}

} // namespace

QString sql_existe_numero(int tipo, const QString& prefijo, const QString& numero) {
    const DocumentoSuite* d = busque(tipo, kExiste);
    if (!d)
        return {};
    QString sql = QStringLiteral("select %1 from %2 where").arg(d->id, d->tabla);
    if (*d->prefijo)
        sql += condicion_de_tipo(*d) +
               QStringLiteral(" %1 = %2 and").arg(d->prefijo, QuotedStr(prefijo));
    return sql + QStringLiteral(" %1 = %2").arg(d->numero, QuotedStr(numero));
}

QString sql_numero_documento(int tipo, qint64 id) {
    if (tipo == 30)
        return QStringLiteral(
                   "select pref_pre, fact_numero from facturas f, entrega_documentos e where "
                   "tido_cod = 31 and endo_iddoc = fact_id and endo_iddoc = %1")
            .arg(id);
    const DocumentoSuite* d = busque(tipo, kMuestra);
    return d ? sql_por_id(*d, d->tabla, d->prefijo, d->numero, id) : QString();
}

QString sql_num_documento(int tipo, qint64 id) {
    const DocumentoSuite* d = busque(tipo, kNum);
    if (!d)
        return {};
    const Diferencias& otros = d->diferencias;
    return sql_por_id(*d, propio_o(otros.tabla_num, d->tabla),
                      propio_o(otros.prefijo_num, d->prefijo),
                      propio_o(otros.numero_num, d->numero), id);
}
