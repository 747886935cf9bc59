#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/sesion_gui.h"
#include "sesion/modulos_suite.h"

namespace {

/// Dónde vive cada documento de los módulos hermanos y cuál de las tres rutinas lo conoce:
/// E existe_numero, D numero_documento, N num_documento.
struct Documento {
    int tipo;
    const char *rutinas, *tabla, *id;
    const char* numero;
    const char* prefijo = "pref_pre"; ///< vacío: no lleva, y se muestra '0000'
};

const Documento kDocumentos[] = {
    {10, "E", "cambio_costo", "caco_id", "caco_numero"},
    {11, "ED", "entradas", "entr_id", "entr_numero"},
    {12, "ED", "salidas", "sali_id", "sali_numero"},
    {13, "ED", "trasferencias", "tran_id", "tran_numero"},
    {14, "ED", "ajustes", "ajus_id", "ajus_numero"},
    {15, "ED", "ensambles", "ensa_id", "ensa_numero"},
    {16, "ED", "desensambles", "dese_id", "dese_numero"},
    {17, "E", "reservas", "rese_id", "rese_numero"},
    {18, "E", "ordenes_inventario", "orin_id", "orin_numero"},
    {19, "E", "produccion_orden", "pror_id", "pror_numero"},
    {20, "E", "produccion_entrada_enc", "pror_id", "prde_numero", "prde_pref"},
    {21, "EDN", "facturas_compra", "faco_id", "faco_numero"},
    {22, "EDN", "remision_proveedor", "repr_id", "repr_numero"},
    {23, "EDN", "ordenes_compra", "ordc_id", "ordc_numero"},
    {24, "EDN", "devoluciones_compras", "dvco_id", "dvco_numero"},
    {25, "EDN", "cotizacion_proveedor", "copr_id", "copr_numero"},
    {27, "E", "plan_produccion", "plpr_id", "plpr_numero", "plpr_pref"},
    {28, "E", "produccion_salida_enc", "prsa_id", "prsa_numero", "prsa_pref"},
    {29, "E", "produccion_devolucion", "prdd_id", "prdd_numero", "prdd_pref"},
    {31, "EDN", "facturas", "fact_id", "fact_numero"},
    {32, "EDN", "remisiones_venta", "revt_id", "revt_numero"},
    {33, "EDN", "devoluciones_ventas", "devt_id", "devt_numero"},
    {34, "EDN", "pedidos", "pedi_id", "pedi_numero"},
    {35, "EDN", "cotizaciones", "coti_id", "coti_numero"},
    {37, "N", "rutero", "rute_id", "rute_numero"},
    {38, "N", "rutero", "rute_id", "rute_numero"},
    {40, "EDN", "pendiente_ventas", "pend_id", "pend_numero"},
    {41, "EDN", "notas_debito_clientes", "ndcl_id", "ndcl_numero"},
    {42, "EDN", "notas_credito_clientes", "nccl_id", "nccl_numero"},
    {43, "ED", "aplicacion_cliente", "apcl_id", "apcl_numero"},
    {44, "E", "pagos_clientes", "pacl_id", "pacl_numero"},
    {45, "EDN", "anticipos_cliente", "ancl_id", "ancl_numero"},
    {46, "E", "causa_interes", "cain_id", "cain_numero"},
    {47, "EDN", "deterioro_cartera_enc", "deca_id", "deca_numero"},
    {48, "EDN", "credito_educativo", "cred_id", "cred_nro", ""},
    {51, "EDN", "notas_debito_proveedor", "ndpr_id", "ndpr_numero"},
    {52, "EDN", "notas_credito_proveedor", "ncpr_id", "ncpr_numero"},
    {53, "ED", "aplicacion_provedor", "appr_id", "appr_numero"},
    {54, "E", "pagos_proveedor", "papr_id", "papr_numero"},
    {55, "EDN", "anticipos_proveedor", "anpr_id", "anpr_numero"},
    {61, "EDN", "recibos_caja", "reca_id", "reca_numero"},
    {62, "EDN", "egresos", "egre_id", "egre_numero"},
    {63, "E", "cambio_documentos", "cado_id", "cado_numero"},
    {64, "ED", "consigna_tarjetas", "cotj_id", "cotj_numero"},
    {65, "ED", "recibo_provisional", "rcpr_id", "rcpr_numero"},
    {66, "ED", "traslados_caja", "trcj_id", "trcj_numero"},
    {67, "E", "arqueo_caja", "arqc_id", "arqc_numero"},
    {71, "D", "consigna", "cons_id", "cons_numero", "prba_pref"},
    {74, "D", "notas_debito", "ndbc_id", "ndbc_numero", "prba_pref"},
    {75, "D", "notas_credito", "ncbc_id", "ncbc_numero", "prba_pref"},
    {76, "D", "traslados", "tras_id", "tras_numero", "prba_pref"},
    {77, "DN", "devolucion_cheques", "dvch_id", "dvch_numdoc", "prba_pref"},
    {85, "EDN", "carga_remesa", "cgrm_id", "cgrm_numero", "cgrm_pref"},
    {86, "EDN", "tiquete_pasajero", "tiqp_id", "tiqp_numero", "tiqp_pref"},
    {87, "EDN", "carga_remesa", "cgrm_id", "cgrm_numero", "cgrm_pref"},
    {88, "EDN", "planilla_pasajeros", "plpa_id", "plpa_numero", "plpa_pref"},
    {89, "EDN", "manifiesto_carga", "manc_id", "manc_numero", "manc_pref"},
    {132, "EDN", "factura_proforma", "fapo_id", "fapo_numero"},
    {133, "EDN", "importacion", "impo_id", "impo_numero", "impo_pref"},
    {137, "EDN", "factura_proforma", "fapo_id", "fapo_numero"},
    {138, "E", "gastos_importacion", "gain_id", "gain_numero", "gain_pref"},
    {139, "EDN", "solicitud_importacion", "slim_id", "slim_numero"},
    {181, "EDN", "contratos_colegios", "cncl_id", "cncl_numero", ""},
    {182, "EDN", "liquidacion_ruta_colegio", "liqr_id", "liqr_numero", ""},
    {301, "EDN", "crm_eventos", "crev_id", "even_numero", "even_pref"},
};

int id_de(const Documento& d) {
    return 1000 + d.tipo;
}
/// El identificador de la agenda no es el mismo en las dos direcciones.
int id_mostrado(const Documento& d) {
    return d.tipo == 301 ? 9301 : id_de(d);
}
QString prefijo_de(const Documento& d) {
    return *d.prefijo ? "P" + QString::number(d.tipo) : QString("0000");
}
QString numero_de(const Documento& d) {
    return Tfdm::complete_numero(QString::number(500 + d.tipo));
}

void inserte_documentos(SesionGui& s) {
    for (const Documento& d : kDocumentos) {
        QStringList columnas{d.id, d.numero},
            valores{QString::number(id_de(d)), QuotedStr(numero_de(d))};
        if (*d.prefijo) {
            columnas << d.prefijo;
            valores << QuotedStr(prefijo_de(d));
        }
        if (qstrcmp(d.tabla, "carga_remesa") == 0) {
            columnas << "tido_cod";
            valores << QString::number(d.tipo);
        }
        if (d.tipo == 301) {
            columnas << "even_id";
            valores << QString::number(id_mostrado(d));
        }
        s.base.base().ejecute(QStringLiteral("insert into %1 (%2) values (%3)")
                                  .arg(d.tabla, columnas.join(','), valores.join(',')));
    }
}

/// Dos campos donde las rutinas escriben.
struct Encabezado {
    Encabezado() {
        c.texto("PREFIJO", 10);
        c.texto("NUMERO", 20);
        c.CreateDataSet();
        c.Append();
        ponga("antes", "antes");
    }
    void ponga(const QString& p, const QString& n) {
        prefijo() = p;
        numero() = n;
    }
    Campo& prefijo() { return c.FieldByName("PREFIJO"); }
    Campo& numero() { return c.FieldByName("NUMERO"); }
    QString visto() { return prefijo().texto() + '|' + numero().texto(); }
    QObject dueno;
    ConjuntoDatos c{&dueno, "CEncabezado"};
};

} // namespace

class PruebaNumeracion : public QObject {
    Q_OBJECT

    static QString visto(Tfdm& dm, int tipo, int id) {
        QString prefijo = "antes", numero = "antes";
        dm.num_documento(tipo, id, prefijo, numero);
        return prefijo + '|' + numero;
    }
    static void comprobante(SesionGui& s, int id, const QString& numero) {
        s.base.base().ejecute(
            "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
            "enco_fecha, enco_usuario, enco_descontable, enco_repniif) values (" +
            QString::number(id) + ", 'CG', '0001', " + QuotedStr(numero) +
            ", '20170105', 'ADMIN', 'S', 'N')");
    }

private slots:
    void un_numero_se_completa_a_la_izquierda_y_nunca_se_recorta() {
        const struct {
            const char *numero, *seis, *ocho;
        } casos[] = {{"", "000000", "00000000"},
                     {"7", "000007", "00000007"},
                     {"123456", "123456", "00123456"},
                     {"1234567", "1234567", "01234567"},
                     {"A-1", "000A-1", "00000A-1"}};
        for (const auto& c : casos) {
            QCOMPARE(Tfdm::complete_numero(c.numero), QString(c.seis));
            QCOMPARE(Tfdm::complete_numero_n(c.numero, 8), QString(c.ocho));
        }
    }

    void cada_documento_hermano_se_encuentra_por_prefijo_y_numero() {
        SesionGui s;
        inserte_documentos(s);
        int cuantos = 0;
        for (const Documento& d : kDocumentos) {
            const QString tipo = QString::number(d.tipo);
            const QString prefijo = prefijo_de(d), digitado = QString::number(500 + d.tipo);
            QVERIFY2(s.dm.existe_numero(d.tipo, prefijo, ""), qPrintable(tipo));
            if (!QString(d.rutinas).contains('E')) {
                QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.dm.existe_numero(d.tipo, prefijo, digitado));
                continue;
            }
            ++cuantos;
            QVERIFY2(s.dm.existe_numero(d.tipo, prefijo, digitado) == QString::number(id_de(d)),
                     qPrintable(tipo));
            QVERIFY2(s.dm.existe_numero(d.tipo, "X'X", digitado).has_value() == !*d.prefijo,
                     qPrintable(tipo));
            QVERIFY2(!s.dm.existe_numero(d.tipo, prefijo, "999999"), qPrintable(tipo));
        }
        QCOMPARE(cuantos, 58);
        QCOMPARE(area_del_documento(31), AreaSuite::Facturacion);
        QCOMPARE(area_del_documento(20), AreaSuite::Inventario);
        QCOMPARE(area_del_documento(77), AreaSuite::Bancos);
        QCOMPARE(area_del_documento(301), AreaSuite::Clientes);
        // las remesas comparten tabla y se separan por tipo; las proformas la comparten sin más
        QVERIFY(!s.dm.existe_numero(85, "P87", "587"));
        QVERIFY(!s.dm.existe_numero(87, "P85", "585"));
        QVERIFY(s.dm.existe_numero(132, "P137", "637"));
        QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.dm.existe_numero(1, "0000", "1"));
    }

    void cada_documento_hermano_muestra_su_prefijo_y_su_numero() {
        SesionGui s;
        inserte_documentos(s);
        s.base.ejecute(
            {"insert into nomina (nomi_id, nomi_ano, nomi_periodo) values (1092, '2017', '03')",
             "insert into liquidacion (liqd_id, terc_nit) values (1099, '52345678')",
             "insert into entrega_documentos (tido_cod, endo_iddoc) values (31, 1031)",
             "insert into facturas (fact_id, pref_pre, fact_numero) values (1099, 'P', '77')",
             "insert into entrega_documentos (tido_cod, endo_iddoc) values (32, 1099)"});
        Encabezado e;
        for (const Documento& d : kDocumentos) {
            const QString esperado = prefijo_de(d) + '|' + numero_de(d);
            const QString rutinas = d.rutinas;
            if (d.tipo > 10 && !rutinas.contains('D'))
                QVERIFY_THROWS_EXCEPTION(ErrorDatos,
                                         s.dm.numero_documento(d.tipo, 1, e.prefijo(), e.numero()));
            if (rutinas.contains('D')) {
                s.dm.numero_documento(d.tipo, id_mostrado(d), e.prefijo(), e.numero());
                QCOMPARE(e.visto(), esperado);
            }
            if (d.tipo > 10 && !rutinas.contains('N'))
                QVERIFY_THROWS_EXCEPTION(ErrorDatos, visto(s.dm, d.tipo, 1));
            if (rutinas.contains('N'))
                QCOMPARE(visto(s.dm, d.tipo, id_mostrado(d)), esperado);
        }
        const struct {
            int tipo, id;
            const char* texto;
        } propios[] = {
            {92, 1092, "2017|03"},
            {99, 1099, "|52345678"}, // el blanco de su prefijo se lee vacío
            {30, 1031, "P31|000531"},
            {30, 1099, "antes|antes"}, // lo entregado no fue la factura de ese número
            {85, 1087, "antes|antes"}, // y esa remesa es de terceros
            {31, 5555, "antes|antes"}, // el documento ya no existe: queda lo que había
            {0, 1031, "|"},            // comprobante digitado a mano
            {1, 1031, "|"},
            {10, 1010, "|"},
            {-1, 1, "|"},
        };
        for (const auto& p : propios) {
            e.ponga("antes", "antes");
            s.dm.numero_documento(p.tipo, p.id, e.prefijo(), e.numero());
            QCOMPARE(e.visto(), QString(p.texto));
        }
        QCOMPARE(visto(s.dm, 31, 5555), QString("antes|antes"));
        QCOMPARE(visto(s.dm, 10, 1010), QString("|"));
        for (int tipo : {26, 300, 1001})
            QVERIFY_THROWS_EXCEPTION(ErrorDatos,
                                     s.dm.numero_documento(tipo, 1, e.prefijo(), e.numero()));
        QCOMPARE(s.dm.nombre_tipo(31), QString("FACTURA"));
        QCOMPARE(s.dm.nombre_tipo(9999), QString());
    }

    void un_comprobante_se_busca_con_su_numero_completo() {
        SesionGui s;
        comprobante(s, 41, "000007");
        comprobante(s, 42, "1234567");
        const struct {
            const char *tipo, *prefijo, *numero, *encontrado;
        } casos[] = {{"CG", "0001", "7", "41"},       {"CG", "0001", "000007", "41"},
                     {"CG", "0001", "1234567", "42"}, {"CG", "0001", "8", ""},
                     {"RC", "0001", "7", ""},         {"CG", "0002", "7", ""},
                     {"C'G", "0001", "7", ""}};
        for (const auto& c : casos) {
            const auto id = s.cnt.existe_ComContable(c.tipo, c.prefijo, c.numero);
            QCOMPARE(id.has_value(), *c.encontrado != 0);
            QCOMPARE(id.value_or(QString()), QString(c.encontrado));
        }
        QVERIFY(!s.cnt.existe_ComContable("CG", "0001", "")); // al contrario de existe_numero
    }

    void el_numero_repetido_se_consulta_o_se_adelanta() {
        SesionGui s;
        for (int n : {1, 2, 3, 5})
            comprobante(s, 40 + n, Tfdm::complete_numero(QString::number(n)));
        s.base.ejecute({"update prefijos_conta set pref_numero = '000001' where tico_cod = 'CG'"});
        const auto contador = [&] {
            return s.dato("select pref_numero from prefijos_conta where tico_cod = 'CG'");
        };
        const QString pregunta = "Comprobante %1 previamente registrado. Consultar?";
        const struct {
            const char *numero, *sugerido, *pregunta, *respuesta;
            bool vale;
            const char *queda, *encontrado, *contador;
        } casos[] = {
            {"", "000001", "", "", true, "", "", "000001"},
            {"000004", "000001", "", "", true, "000004", "", "000001"},
            {"000003", "000001", "000003", "No", false, "000003", "", "000001"},
            {"000003", "000001", "000003", "", false, "000003", "", "000001"}, // Esc
            {"000003", "000001", "000003", "Sí", true, "000003", "43", "000001"},
            {"000005", "000005", "", "", true, "000006", "", "000006"},
            {"000001", "000001", "", "", true, "000004", "", "000004"}, // salta los tomados
        };
        for (const auto& c : casos) {
            Encabezado e;
            e.ponga("0001", c.numero);
            Interlocutor i;
            if (*c.pregunta)
                i.espere(pregunta.arg(c.pregunta), c.respuesta);
            const auto revision = s.cnt.valide_NumComConta("CG", "0001", c.sugerido, e.numero());
            QCOMPARE(revision.vale, c.vale);
            QVERIFY2(i.conforme(), qPrintable(i.queja()));
            QCOMPARE(e.numero().texto(), QString(c.queda));
            QCOMPARE(revision.encontrado, QString(c.encontrado));
            QCOMPARE(contador(), QString(c.contador));
        }
        // el contador de otro prefijo no se toca
        QCOMPARE(s.dato("select list(distinct pref_numero) from prefijos_conta where tico_cod <> "
                        "'CG'"),
                 QString("000001"));
        comprobante(s, 60, "00000A");
        Encabezado e;
        e.ponga("0001", "00000A");
        QVERIFY_THROWS_EXCEPTION(ErrorDatos,
                                 s.cnt.valide_NumComConta("CG", "0001", "00000A", e.numero()));
    }

    void el_numero_comercial_repetido_se_adelanta_sin_mover_contadores() {
        SesionGui s;
        s.base.ejecute(
            {"insert into facturas (fact_id, pref_pre, fact_numero) values (1, 'A', '000010')",
             "insert into facturas (fact_id, pref_pre, fact_numero) values (2, 'A', '00000011')",
             "insert into pedidos (pedi_id, pref_pre, pedi_numero) values (3, 'A', '000010')",
             "insert into pedidos (pedi_id, pref_pre, pedi_numero) values (4, 'A', '000011')",
             "insert into prefijos (tido_cod, pref_pre, pref_actual) values (34, 'A', '000010')"});
        const struct {
            int tipo;
            const char *numero, *sugerido, *respuesta;
            bool vale;
            const char *queda, *encontrado;
        } casos[] = {
            {34, "", "000010", nullptr, true, "", ""},
            {34, "000099", "000010", nullptr, true, "000099", ""},
            {34, "000011", "000010", "No", false, "000011", ""},
            {34, "000011", "000010", "Sí", true, "000011", "4"},
            {34, "000010", "000010", nullptr, true, "000012", ""},
            {31, "000010", "000010", nullptr, true, "00000012", ""}, // las facturas, a ocho
        };
        for (const auto& c : casos) {
            Encabezado e;
            e.ponga("A", c.numero);
            Interlocutor i;
            if (c.respuesta)
                i.espere(QString("Documento %1 previamente registrado. Consultar?").arg(c.numero),
                         c.respuesta);
            const auto revision = s.dm.valide_numero(c.tipo, "A", c.sugerido, e.numero());
            QCOMPARE(revision.vale, c.vale);
            QVERIFY2(i.conforme(), qPrintable(i.queja()));
            QCOMPARE(e.numero().texto(), QString(c.queda));
            QCOMPARE(revision.encontrado, QString(c.encontrado));
        }
        QCOMPARE(s.dato("select pref_actual from prefijos where tido_cod = 34"), QString("000010"));
    }

    void el_prefijo_por_omision_se_crea_o_se_activa() {
        SesionGui s;
        s.base.ejecute({"delete from prefijos",
                        "insert into prefijos (tido_cod, pref_pre, pref_auto, pref_actual, "
                        "pref_ivainc, pref_activo) values (34, '0000', 'S', '000123', 'S', 'N')",
                        "insert into prefijos (tido_cod, pref_pre, pref_activo) values (34, 'B', "
                        "'N')"});
        const auto filas = [&](int tipo) {
            return s.dato("select list(pref_pre || ':' || coalesce(pref_auto, '') || ':' || "
                          "coalesce(pref_actual, '') || ':' || coalesce(pref_ivainc, '') || ':' || "
                          "pref_activo) from (select * from prefijos where tido_cod = " +
                          QString::number(tipo) + " order by pref_pre)");
        };
        for (int vez = 0; vez < 2; ++vez) {
            s.dm.registre_prefijo(31);
            QCOMPARE(filas(31), QString("0000:N:000001:N:S"));
            s.dm.registre_prefijo(34);
            QCOMPARE(filas(34), QString("0000:S:000123:S:S,B:N::N:N"));
        }
    }
};

QTEST_MAIN(PruebaNumeracion)
#include "prueba_numeracion.moc"
