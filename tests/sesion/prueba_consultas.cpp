#include "apoyo_gui/sesion_gui.h"

class PruebaConsultas : public QObject {
    Q_OBJECT
private slots:
    void las_tarifas_y_cupos_son_los_del_papel_del_tercero() {
        SesionGui s;
        s.base.ejecute(
            {"update proveedores set prov_retefte = 2.5, prov_rteiva = 15, prov_rteica = 0.966, "
             "prov_rtcree = 0.4, prov_rtftebase = 'S', prov_rticabase = 'N' where terc_nit = "
             "'800456789'",
             "update clientes set clie_rtefte = 3.5, clie_rtftebase = 'S', clie_dtomax = 12.5, "
             "clie_cupo = 5000000.25, cobr_cod = 'C7' where terc_nit = '900123456'",
             "update terceros set terc_conductor = 'S' where terc_nit in ('52345678', "
             "'19876543')"});
        Tfdmter::Retenciones r;
        QVERIFY(s.ter.valide_proveedor_ret("800456789", r));
        QCOMPARE(r.fuente.texto() + '/' + r.iva.texto() + '/' + r.ica.texto() + '/' +
                     r.cree.texto(),
                 "2.5/15/0.966/0.4");
        QVERIFY(s.ter.base_rtfte("800456789") && !s.ter.base_rtica("800456789"));
        QVERIFY(s.ter.valide_retenCartera("900123456", r));
        QCOMPARE(r.fuente.texto(), "3.5");
        QVERIFY(s.ter.base_rtfte_cli("900123456"));
        QCOMPARE(s.ter.descuento_max("900123456").texto(), "12.5");
        QCOMPARE(s.ter.cupo_credito("900123456").texto(), "5000000.25");
        QCOMPARE(s.ter.cobrador_cliente("900123456"), "C7");
        QVERIFY(s.ter.valide_conductor("52345678"));
        QVERIFY(!s.ter.valide_conductor("19876543")); // inactivo
        // con el papel equivocado no hay tarifa que dar
        QVERIFY(!s.ter.valide_proveedor_ret("900123456", r));
        QVERIFY(r.fuente.es_cero() && !s.ter.base_rtfte("900123456"));
        QVERIFY(s.ter.cupo_credito("800456789").es_cero());
    }

    void los_papeles_cruzados_precios_y_cartera_del_tercero() {
        SesionGui s;
        s.base.ejecute({"update clientes set clie_estado = 'I' where terc_nit = '860002964'",
                        "update clientes set clie_estado = 'A', clie_rtefte = 3.5 where terc_nit = "
                        "'900123456'",
                        "update or insert into empleados (terc_nit, empl_cod, empl_estado) values ("
                        "'52345678', 'V1', 'S') matching (terc_nit)",
                        "insert into movimiento_articulo (moar_id, arti_cod, tido_cod, moar_iddoc, "
                        "moar_fecha, moar_cantidad, moar_costo) values (1, 'MART01', 21, 5, "
                        "'20170301', 10, 950.5)",
                        "insert into movimiento_articulo (moar_id, arti_cod, tido_cod, moar_iddoc, "
                        "moar_fecha, moar_cantidad, moar_costo) values (2, 'MART01', 21, 6, "
                        "'20170401', 10, 990)",
                        "insert into movimiento_articulo (moar_id, arti_cod, tido_cod, moar_iddoc, "
                        "moar_fecha, moar_cantidad, moar_costo) values (3, 'MART01', 31, 7, "
                        "'20170501', -3, 1200)"});
        const auto comprobante = [&](int id, const char* numero, const char* nit, int tipo,
                                     int documento) {
            s.base.ejecute(
                {QString("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                         "enco_numero, enco_fecha, terc_nit, enco_tiporef, enco_idref) values (%1, "
                         "'CG', '0001', '%2', '20170401', '%3', %4, %5)")
                     .arg(id)
                     .arg(numero, nit)
                     .arg(tipo)
                     .arg(documento)});
        };
        comprobante(31, "000031", "800456789", 21, 5);
        comprobante(32, "000032", "860002964", 21, 6); // la más reciente es de otro proveedor
        QCOMPARE(s.ter.precio_proveedor("800456789", "MART01").texto(), "950.5");
        QVERIFY(s.ter.precio_proveedor("900123456", "MART01").es_cero());

        // Dos facturas vencidas, una abonada en parte y otra pagada; una tercera aún no vence.
        comprobante(33, "000033", "900123456", 0, 0);
        const auto linea = [&](int item, const char* nuevo, const char* aplica, const char* vence,
                               int debito, int credito) {
            s.base.ejecute(
                {QString("insert into comprobante_detalle (enco_consec, code_item, cuen_cod, "
                         "terc_nit, cnde_docnumero, cnde_docaplica, doco_vence, code_debito, "
                         "code_credito) values (33, %1, '130505', '900123456', %2, %3, %4, %5, %6)")
                     .arg(item)
                     .arg(nuevo, aplica, vence)
                     .arg(debito)
                     .arg(credito)});
        };
        linea(1, "'F1'", "null", "'20170201'", 1000, 0);
        linea(2, "null", "'F1'", "null", 0, 400);
        linea(3, "'F2'", "null", "'20170201'", 500, 0);
        linea(4, "null", "'F2'", "null", 0, 500);
        linea(5, "'F3'", "null", "'20170901'", 700, 0);
        // La F2 de los saldos iniciales es de otra cuenta: no la paga el abono de la primera.
        s.base.ejecute({"update cuentas set cuen_tipo = 'C' where cuen_cod = '135515'",
                        "insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, doco_numero, "
                        "doco_vence, sain_debito) values (1, '135515', '900123456', 'F2', "
                        "'20170201', 50)"});
        QCOMPARE(s.ter.cartera_vencida_cliente("900123456", "20170401").texto(), "650");
        QCOMPARE(s.ter.cartera_vencida_cliente("900123456", "20171001").texto(), "1350");

        QVERIFY(s.ter.valide_solocliente("900123456"));
        QVERIFY(!s.ter.valide_solocliente("860002964")); // también es proveedor
        QVERIFY(s.ter.valide_clientCartera("900123456"));
        QVERIFY(!s.ter.valide_clientCartera("860002964"));
        Tfdmter::Retenciones r;
        QVERIFY(s.ter.valide_retenciones("900123456", r));
        QCOMPARE(r.fuente.texto(), "3.5");
        QVERIFY(!s.ter.valide_retenciones("52345678", r));
        QCOMPARE(s.ter.nombre_vendedor("V1"), "Peña Gómez María");
        QCOMPARE(s.ter.nombre_vendedor("52345678"), s.ter.nombre_vendedor("V1"));
        QVERIFY(s.ter.nombre_vendedor("900123456").isEmpty());
    }

    void la_cuenta_con_movimiento_se_valida_igual_en_los_dos_libros() {
        SesionGui s;
        static QStringList abiertas;
        for (const char* pantalla : {"Tfnvacuenta", "Tfnvacuentaniif"})
            registre_testigo(pantalla, [pantalla](const Pantalla& p) {
                abiertas << pantalla + (':' + p.peticion<AbreCuenta>().cuenta_seleccion);
            });
        for (const QString& tabla : {QString("cuentas"), QString("cuentas_niif")})
            s.base.ejecute(
                {"insert into " + tabla +
                 " (cuen_cod, cuen_nom, cuen_tercero, cuen_centro, cuen_retencion, cuen_tipo, "
                 "cuen_activa) values ('11050505', 'Caja Sur', 'N', 'N', 'N', 'N', 'S')"});
        // una de un solo libro, para que nadie mire el plan del otro
        s.base.ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '519530'",
                        "delete from cuentas_niif where cuen_cod = '519530'"});
        const struct {
            const char *cuenta, *mensaje, *respuesta;
            bool vale;
        } casos[] = {
            {"111005", "", "", true},
            {"11050505", "", "", true},
            {"110510", "", "", true}, // la inactiva la rehúsa nom_cuenta
            {"119999", "La cuenta% especificada no existe. Desea Crearla?", "No", false},
            {"119999", "La cuenta% especificada no existe. Desea Crearla?", "", false},
            {"119999", "La cuenta% especificada no existe. Desea Crearla?", "Sí", true},
            {"11100", "El código de cuenta% está incompleto o demasiado largo.", "Aceptar", false},
            {"111005011", "El código de cuenta% está incompleto o demasiado largo.", "Aceptar",
             false},
            {"", "El código de cuenta% está incompleto o demasiado largo.", "Aceptar", false},
            {"      ", "El código de cuenta% está incompleto o demasiado largo.", "Aceptar", false},
            {"1110", "La cuenta% es de nivel inferior al mínimo afectable.", "Aceptar", false},
            {"1", "La cuenta% es de nivel inferior al mínimo afectable.", "Aceptar", false},
            {"110505", "La cuenta% indicada tiene auxiliares definidos.", "Aceptar", false},
        };
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            abiertas.clear();
            for (const auto& c : casos) {
                Interlocutor i;
                if (*c.mensaje)
                    i.espere(QString(c.mensaje).replace('%', es_niif(libro) ? " NIIF" : ""),
                             c.respuesta);
                const bool vale = es_niif(libro) ? s.cnt.valide_cuenta_niif(c.cuenta)
                                                 : s.cnt.valide_cuenta(c.cuenta);
                QVERIFY2(i.conforme(), qPrintable(c.cuenta + (": " + i.queja())));
                QVERIFY2(vale == c.vale, c.cuenta);
            }
            QCOMPARE(abiertas,
                     QStringList(es_niif(libro) ? "Tfnvacuentaniif:119999" : "Tfnvacuenta:119999"));
        }
        QVERIFY(s.cnt.valide_cuenta("519530"));
        Interlocutor i;
        i.espere("La cuenta NIIF especificada no existe. Desea Crearla?", "No");
        QVERIFY(!s.cnt.valide_cuenta_niif("519530"));
    }

    void el_nombre_de_una_cuenta_inactiva_no_se_da() {
        SesionGui s;
        s.base.ejecute({"update cuentas_niif set cuen_nom = 'Efectivo' where cuen_cod = '110505'",
                        "update cuentas_niif set cuen_activa = 'S' where cuen_cod = '110510'",
                        "update cuentas_niif set cuen_activa = 'N' where cuen_cod = '111005'",
                        "update cuentas set cuen_activa = null where cuen_cod = '413505'"});
        const struct {
            const char *cuenta, *nombre, *niif;
        } casos[] = {
            {"110505", "Caja general", "Efectivo"},
            {"1105", "Caja", "Caja"},
            {"999999", "", ""}, // no existe: callada
            {"11'05", "", ""},
            {"413505", "Ventas", "Ventas"}, // sin marca no es inactiva
        };
        Interlocutor i;
        for (const auto& c : casos) {
            QCOMPARE(s.cnt.nom_cuenta(c.cuenta), QString(c.nombre));
            QCOMPARE(s.cnt.nom_cuenta_niif(c.cuenta), QString(c.niif));
        }
        QCOMPARE(s.cnt.nom_cuenta("111005"), "Moneda nacional");
        QCOMPARE(s.cnt.nom_cuenta_niif("110510"), "Cajas menores");
        i.espere("La cuenta 110510 está inactiva.");
        QCOMPARE(s.cnt.nom_cuenta("110510"), QString());
        i.espere("La cuenta NIIF 111005 está inactiva.");
        QCOMPARE(s.cnt.nom_cuenta_niif("111005"), QString());
    }

    void la_cuenta_superior_sale_de_la_estructura_exista_o_no() {
        SesionGui s;
        const struct {
            const char *cuenta, *padre;
        } casos[] = {
            {"11050505", "110505"}, {"110505", "1105"}, {"1105", "11"}, {"11", "1"}, {"1", ""},
            {"999999", "9999"}};
        for (const auto& c : casos) {
            QCOMPARE(s.cnt.padre(c.cuenta), QString(c.padre));
            s.dm.SPCtaPadre.ParamByName("CUENTA") = c.cuenta;
            s.dm.SPCtaPadre.ExecProc();
            QCOMPARE(s.dm.SPCtaPadre.ParamByName("PADRE").texto(), QString(c.padre));
        }
    }

    void proyectos_y_centros_avisan_lo_que_no_encuentran() {
        SesionGui s;
        const struct {
            const char *proyecto, *centro, *nombre, *subnombre;
            bool vale;
        } casos[] = {
            {"0001", "0002", "Administración", "Contabilidad", true},
            {"0002", "0002", "Ventas", "Bodega", true},
            {"0002", "0009", "Ventas", "", false},
            {"0009", "0001", "", "", false},
            {"0'01", "0'01", "", "", false},
        };
        for (const auto& c : casos) {
            Interlocutor i;
            if (!*c.nombre)
                i.espere("Proyecto no encontrado.");
            if (!*c.subnombre)
                i.espere("Centro de costos no encontrado.");
            if (!c.vale)
                i.espere("Proyecto-Centro no encontrado.");
            QCOMPARE(s.cnt.nom_centro(c.proyecto), QString(c.nombre));
            QCOMPARE(s.cnt.nom_subcentro(c.proyecto, c.centro), QString(c.subnombre));
            QCOMPARE(s.cnt.valide_centro(c.proyecto, c.centro), c.vale);
        }
    }

    void un_tercero_inactivo_existe_pero_no_vale() {
        SesionGui s;
        s.base.ejecute({"insert into empleados (terc_nit) values ('52345678')"});
        const struct {
            const char* nit;
            bool existe;
            const char *nombre, *cliente, *proveedor, *empleado;
        } casos[] = {
            {"900123456", true, "Ferretería El Tornillo S.A.S.", "Ferretería El Tornillo S.A.S.",
             "", ""},
            {"860002964", true, "Banco de Bogotá", "Banco de Bogotá", "Banco de Bogotá", ""},
            {"52345678", true, "Peña Gómez María", "", "", "Peña Gómez María"},
            {"19876543", true, "", "", "", ""},
            {"1", false, "", "", "", ""},
            {"9'1", false, "", "", "", ""},
        };
        for (const auto& c : casos) {
            Interlocutor i;
            QCOMPARE(s.ter.existe_nit(c.nit), c.existe);
            QCOMPARE(s.ter.nom_tercero(c.nit), QString(c.nombre));
            QCOMPARE(s.ter.nombre_cliente(c.nit), QString(c.cliente));
            QCOMPARE(s.ter.valide_cliente(c.nit), *c.cliente != 0);
            QCOMPARE(s.ter.nombre_proveedor(c.nit), QString(c.proveedor));
            QCOMPARE(s.ter.valide_proveedor(c.nit), *c.proveedor != 0);
            QCOMPARE(s.ter.nombre_empleado(c.nit), QString(c.empleado));
            if (!*c.nombre)
                i.espere("Tercero Inactivo o no encontrado.");
            QCOMPARE(s.ter.valide_tercero(c.nit), *c.nombre != 0);
            QVERIFY2(i.conforme(), qPrintable(c.nit + (": " + i.queja())));
        }
    }

    void el_digito_de_verificacion_es_el_de_la_dian() {
        // NIT publicados de entidades del Estado y casos de residuo 0 y 1
        const struct {
            const char* nit;
            int dv;
        } casos[] = {
            {"860002964", 4}, {"800197268", 4},    {"899999090", 2}, {"899999061", 9},
            {"899999230", 7}, {"860034313", 7},    {"0", 0},         {"4", 1},
            {"11", 1},        {"000860002964", 4},
        };
        for (const auto& c : casos)
            QVERIFY2(Tfdmter::dv(c.nit) == c.dv,
                     qPrintable(c.nit + QString(" da %1").arg(Tfdmter::dv(c.nit))));
        for (const char* malo : {"86000296A", "860 002", "860.002", "-1", "1234567890123456"})
            QVERIFY_THROWS_EXCEPTION(ErrorDatos, Tfdmter::dv(malo));
    }

    void los_articulos_se_leen_por_bodega_y_por_libro() {
        SesionGui s;
        {
            Interlocutor i;
            QVERIFY(s.art.valide_articulo("MART01"));
            i.espere("Código no encontrado");
            QVERIFY(!s.art.valide_articulo("NO'HAY"));
        }
        QCOMPARE(s.art.desc_articulo("MART01"), "Martillo");
        QCOMPARE(s.art.desc_articulo("NOHAY"), QString());
        QCOMPARE(s.cnt.desc_activo("ESC01"), "Escritorio");
        QCOMPARE(s.cnt.desc_activo("MART01"), QString());
        QVERIFY(!s.art.tiene_movimiento("MART01"));
        QCOMPARE(s.art.ultimo_costo("MART01", "01"), Moneda());
        QCOMPARE(s.art.costo_promedio("MART01", "01"), Moneda());
        const struct {
            int id;
            const char *bodega, *fecha, *cantidad, *costo, *niif;
        } movimientos[] = {{1, "01", "20170101", "10", "100", "110"},
                           {2, "01", "20170201", "30", "200", "220.5"},
                           {3, "01", "20170301", "-20", "175", "192.875"},
                           {4, "02", "20170401", "3", "999", "888"}};
        for (const auto& m : movimientos)
            s.base.base().ejecute(
                "insert into movimiento_articulo (moar_id, arti_cod, bode_cod, moar_fecha, "
                "moar_cantidad, moar_costo, moar_costoniif) values (" +
                QString::number(m.id) + ", 'MART01', " + QuotedStr(m.bodega) + ", " +
                QuotedStr(m.fecha) + ", " + m.cantidad + ", " + m.costo + ", " + m.niif + ')');
        QVERIFY(s.art.tiene_movimiento("MART01"));
        QVERIFY(!s.art.tiene_movimiento("OTRO"));
        const struct {
            const char *bodega, *ultimo, *ultimo_niif, *promedio, *promedio_niif;
        } casos[] = {{"01", "200", "220.5", "175", "192.875"},
                     {"02", "999", "888", "999", "888"},
                     {"03", "0", "0", "0", "0"}};
        for (const auto& c : casos) {
            const auto m = [](const char* t) { return Moneda::de_texto(t); };
            QCOMPARE(s.art.ultimo_costo("MART01", c.bodega), m(c.ultimo));
            QCOMPARE(s.art.ultimo_costo_niif("MART01", c.bodega), m(c.ultimo_niif));
            QCOMPARE(s.art.costo_promedio("MART01", c.bodega), m(c.promedio));
            QCOMPARE(s.art.costo_promedio_niif("MART01", c.bodega), m(c.promedio_niif));
        }
    }
};

QTEST_MAIN(PruebaConsultas)
#include "prueba_consultas.moc"
