// Exportación de movimientos: cada formato leído de vuelta por un lector propio de la prueba, y la
// ida y vuelta a una compañía vacía.
#include "exchange/exportacion_movimientos.h"
#include "exchange/importacion.h"

class PruebaExportacionMovimientos : public PruebaConBase {
    Q_OBJECT
private slots:
    void cleanup() { base_.reset(); }

    void fecha_mas_30();
    void siigo_con_separador_y_de_ancho_fijo_dicen_lo_mismo();
    void la_referencia_de_siigo_sale_del_documento();
    void web_gerencial_graba_dos_archivos_del_mismo_ancho();
    void isis_es_de_ancho_fijo_y_omite_las_ventas_de_contado();
    void los_filtros_escogen_tipo_prefijo_y_fechas();
    void el_csv_leido_en_una_compania_vacia_da_los_mismos_saldos();
    void una_carpeta_que_no_existe_se_dice_y_no_deja_nada();
    void lo_que_no_cabe_en_ancho_fijo_se_dice_y_no_deja_nada();
    void un_valor_negativo_conserva_su_signo();

private:
    PeticionExportacion pedido(DestinoExportacion destino, QChar separador = ',') {
        PeticionExportacion p;
        p.destino = destino;
        p.archivo = base_->ruta() + "/salida.txt";
        p.desde = "20170101";
        p.hasta = "20171331";
        p.separador = separador;
        p.hoy = QDate(2018, 2, 21);
        return p;
    }
    static QStringList renglones(const QString& ruta) {
        QFile f(ruta);
        if (!f.open(QIODevice::ReadOnly))
            return {};
        QString todo = QString::fromLatin1(f.readAll());
        if (!todo.isEmpty() && !todo.endsWith("\r\n"))
            return {"sin fin de línea"};
        return todo.split("\r\n", Qt::SkipEmptyParts);
    }
    void con_tercero() {
        base_->base().ejecute("update comprobante_detalle set terc_nit = '860002964' where "
                              "terc_nit is null");
    }
    QStringList exporte(const PeticionExportacion& p) {
        exporte_movimientos(base_->base(), p);
        return renglones(p.archivo);
    }
    void uno() {
        grabe(base_->base(), {1,
                              "000123",
                              "20170131",
                              {{1, "130505", Moneda::de_texto("1250.05"), 0, "900123456"},
                               {2, "413505", 0, Moneda::de_texto("1250.05"), {}, "0002", "0001"}}});
        base_->ejecute({"update comprobante_detalle set code_concepto = 'Venta, de \"contado\"' "
                        "where code_item = 1",
                        "insert into prefijos_exportacion (prex_tipo, prex_pref, prex_exporta, "
                        "prex_tipoexp) values ('CG', '0001', '77', 'L')",
                        "insert into cuentas_exportacion (cuen_cod, cuex_cod) values ('413505', "
                        "'4135950001')"});
    }
    /// El segundo: siete pesos de caja a bancos.
    void siete(const QString& numero, const QString& fecha, const QString& tipo,
               const QString& prefijo, const QString& centro = {}) {
        const QVector<Linea> lineas{{1, "110505", 7, 0}, {2, "111005", 0, 7, {}, centro, centro}};
        grabe(base_->base(), {2, numero, fecha, lineas, {}, "N", tipo, prefijo});
    }
    /// Corta el renglón en los anchos dados; lo que sobre va al final.
    static QStringList corte(const QString& renglon, const QVector<int>& anchos) {
        QStringList campos;
        qsizetype donde = 0;
        for (const int ancho : anchos) {
            campos << renglon.mid(donde, ancho);
            donde += ancho;
        }
        return campos << renglon.mid(donde);
    }
};

void PruebaExportacionMovimientos::fecha_mas_30() {
    for (const QString& caso :
         QStringLiteral("20141231 20150130;20150130 20150228;20150131 20150228;20150129 20150228;"
                        "20150128 20150228;20160129 20160228;20150331 20150430;20150531 20150630;"
                        "20150731 20150830;20150815 20150915;20150930 20151030;20151201 20160101;"
                        "99991231 100000130")
             .split(';'))
        QCOMPARE(::fecha_mas_30(caso.section(' ', 0, 0)), caso.section(' ', 1));
}

void PruebaExportacionMovimientos::siigo_con_separador_y_de_ancho_fijo_dicen_lo_mismo() {
    uno();
    base_->ejecute({"insert into proyectos (proy_cod, proy_nom) values ('ADMI', 'Ninguno')",
                    "insert into centros (proy_cod, cent_cod, cent_nom) values ('ADMI', 'ADMI', "
                    "'Ninguno')"});
    siete("000124", "20171301", "RC", "0002", "ADMI");
    const QStringList libres = exporte(pedido(DestinoExportacion::Siigo, ';'));
    QCOMPARE(libres,
             QStringList(
                 {"L;77;000123;00001;900123456;000;130505;20170131;;0001;;000;Venta, de  contado ;"
                  "D;1250;05;0001;000;0000;000;000000000000000;7700000000123;20170228;001;0001;00",
                  "L;77;000123;00002;;000;4135950001;20170131;0002;0001;0001;000;;C;1250;05;0001;"
                  "000;0000;000;000000000000000;;20170228;001;0001;00",
                  "RC;0002;000124;00001;;000;110505;20171301;;0001;;000;;D;7;00;0001;000;0000;000;"
                  "000000000000000;;20171401;001;0001;00",
                  "RC;0002;000124;00002;;000;111005;20171301;0001;0001;000;000;;C;7;00;0001;000;"
                  "0000;000;"
                  "000000000000000;;20171401;001;0001;00"}));
    const QStringList fijos = exporte(pedido(DestinoExportacion::Siigo, QChar()));
    QCOMPARE(fijos.size(), libres.size());
    const QVector<int> anchos{3,  9, 6,  5, 13, 3, 10, 13, 8,  4,  4, 4, 3,
                              50, 1, 13, 2, 4,  3, 4,  3,  15, 31, 8, 3, 4};
    const QStringList uno = corte(fijos[0], anchos), otro = corte(fijos[2], anchos);
    QCOMPARE(uno.join('|'),
             QString("L  |000000077|000123|00001|0000900123456|000|0000130505|0000000000000|"
                     "20170131|0000|0001|0000|000|%1|D|0000000001250|05|0001|000|0000|000|"
                     "000000000000000|%2|20170228|001|0001|00")
                 .arg(QString("Venta, de  contado ").leftJustified(50),
                      QString("7700000000123").leftJustified(31)));
    QCOMPARE(otro.mid(0, 3).join('|'), "RC |000000002|000124");
    QCOMPARE(otro.last(), "00");
}

void PruebaExportacionMovimientos::la_referencia_de_siigo_sale_del_documento() {
    base_->ejecute(
        {"insert into tipo_comprobante (tico_cod, tico_nom) values ('DEV', 'Devolución')",
         "insert into tipo_comprobante (tico_cod, tico_nom) values ('DVC', 'Devolución compra')",
         "insert into tipo_comprobante (tico_cod, tico_nom) values ('EGR', 'Egreso')",
         "insert into prefijos_conta (tico_cod, prco_pref, pref_numero) select tico_cod, '0001', "
         "'000001' from tipo_comprobante where tico_cod in ('DEV', 'DVC', 'EGR')",
         "insert into devoluciones_ventas (devt_id, devt_numero, devt_factura) values (5, '1', "
         "'FV01000987')",
         "insert into devoluciones_compras (dvco_id, dvco_numero) values (6, '1')",
         "insert into egresos_detalle (egre_id, egde_item, egde_tipodoc, egde_prefijo, "
         "egde_numero) values (7, 1, 'FCC', '0003', '000055')",
         "insert into egresos_detalle (egre_id, egde_item, egde_tipodoc, egde_prefijo, "
         "egde_numero) values (8, 1, 'OTR', '0003', '000055')",
         "insert into prefijos_exportacion (prex_tipo, prex_pref, prex_exporta) values ('FCC', "
         "'0003', 'C3')"});
    const auto con = [&](int id, const QString& tipo, int ref) {
        const QVector<Linea> lineas{{1, "220505", 1, 0, "800456789"}, {2, "111005", 0, 1}};
        grabe(base_->base(),
              {id, "00000" + QString::number(id), "20170201", lineas, {}, "N", tipo});
        base_->base().ejecute("update comprobante_encabezado set enco_idref = ? where enco_consec "
                              "= ?",
                              {ref, id});
    };
    con(1, "DEV", 5);
    con(2, "DVC", 6);
    con(3, "EGR", 7);
    con(4, "EGR", 8);
    QStringList referencias;
    for (const QString& renglon : exporte(pedido(DestinoExportacion::Siigo)))
        referencias << renglon.split(',')[21];
    QCOMPARE(referencias, QStringList({"FV0100000000987", "", "00000000002", "", "FCCC300000000055",
                                       "", "000100000000004", ""}));
    base_->ejecute({"update egresos_detalle set egde_numero = '12345678'",
                    "update prefijos_exportacion set prex_exporta = 'ABCDEFGHIJ', prex_tipoexp = "
                    "'ABCDEFGHIJ'"});
    QVERIFY_EXCEPTION_THROWN(exporte(pedido(DestinoExportacion::Siigo, QChar())), ErrorDatos);
}

void PruebaExportacionMovimientos::web_gerencial_graba_dos_archivos_del_mismo_ancho() {
    uno();
    const PeticionExportacion p = pedido(DestinoExportacion::WebGerencial);
    exporte_movimientos(base_->base(), p);
    QVERIFY(!QFile::exists(p.archivo));
    const QStringList c = renglones(base_->ruta() + "/comprobantes.txt"),
                      t = renglones(base_->ruta() + "/transacciones.txt");
    for (const QString& renglon : c + t)
        QCOMPARE(renglon.count(','), 41);
    QCOMPARE(c.size(), 5);
    QCOMPARE(c[0], "ET,001,1,20180221" + QString(38, ','));
    QCOMPARE(c[1], "EB,1,8001" + QString(39, ','));
    QVERIFY2(
        c[2].startsWith("RG,L,77,20170131,000123,CG,11001,000,000,900123456,,Prueba,010,000123,"
                        "20170131,20170131,1250.05,1250.05,0"),
        qPrintable(c[2]));
    QCOMPARE(c[3], "FB,1,8001,1" + QString(38, ','));
    QCOMPARE(c[4], "FT,001,1,1" + QString(38, ','));
    QCOMPARE(t.size(), 6);
    QVERIFY(t[0].startsWith("ET,1000,1,20180221,"));
    QVERIFY2(t[2].startsWith("RG,L,77,20170131,000123,2,130505,900123456,Venta  de  contado ,"
                             "000123,,,1250.05,0.00,,,000,D,1250.05,"),
             qPrintable(t[2]));
    QVERIFY2(t[3].startsWith("RG,L,77,20170131,000123,3,4135950001,,,000123,,,0.00,1250.05,0002,"
                             "0001,000,C,1250.05,"),
             qPrintable(t[3]));
    QVERIFY(t[4].startsWith("FB,1,8002,2,"));
    QVERIFY(t[5].startsWith("FT,1000,1,1,"));
}

void PruebaExportacionMovimientos::isis_es_de_ancho_fijo_y_omite_las_ventas_de_contado() {
    uno();
    base_->ejecute(
        {"update terceros set terc_dv = '6' where terc_nit = '900123456'",
         "insert into tipo_comprobante (tico_cod, tico_nom) values ('VNT', 'Contado')",
         "insert into prefijos_conta (tico_cod, prco_pref, pref_numero) values ('VNT', '0001', "
         "'000001')"});
    siete("000001", "20170201", "VNT", "0001");
    PeticionExportacion p = pedido(DestinoExportacion::Isis);
    // La línea sin tercero no viaja, y se cuenta.
    const ResultadoExportacion sin = exporte_movimientos(base_->base(), p);
    QCOMPARE(sin.registros, 1);
    QCOMPARE(sin.sin_tercero, 3);
    con_tercero();
    QCOMPARE(exporte(p).size(), 4);
    p.omita_contado = true;
    const QStringList r = exporte(p);
    QCOMPARE(r.size(), 2);
    const QVector<int> anchos{3, 4, 6, 8, 12, 1, 40, 18, 13, 1, 11, 8, 4, 5, 6, 8, 4, 7};
    QCOMPARE(corte(r[0], anchos).join('|'),
             "L  |77  |000123|20170131|130505      | |Venta, de  contado                 "
             "     |           1250.05|0000900123456|6|00000000000|20170131|    |CONTA|"
             "N00000|20171331|0800|CONTA00|");
    QCOMPARE(corte(r[1], anchos)[7], "          -1250.05");
    // Los dos primeros formatos no leen la casilla.
    p.destino = DestinoExportacion::Siigo;
    QCOMPARE(exporte(p).size(), 4);
}

void PruebaExportacionMovimientos::los_filtros_escogen_tipo_prefijo_y_fechas() {
    uno();
    siete("000001", "20170301", "RC", "0002");
    con_tercero();
    const auto cuantas = [&](const std::function<void(PeticionExportacion&)>& ajuste) {
        PeticionExportacion p = pedido(DestinoExportacion::Csv);
        ajuste(p);
        return exporte(p).size();
    };
    QCOMPARE(cuantas([](auto&) {}), 4);
    QCOMPARE(cuantas([](auto& p) { p.tipo = "RC"; }), 2);
    QCOMPARE(cuantas([](auto& p) { p.prefijo = "0001"; }), 2);
    QCOMPARE(cuantas([](auto& p) { p.desde = "20170201"; }), 2);
    QCOMPARE(cuantas([](auto& p) { p.hasta = "20170131"; }), 2);
    QCOMPARE(cuantas([](auto& p) { p.tipo = "X' or '1' = '1"; }), 0);
}

void PruebaExportacionMovimientos::el_csv_leido_en_una_compania_vacia_da_los_mismos_saldos() {
    QRandomGenerator azar = azar_de_prueba(122);
    const QVector<Linea> posibles{{0, "110505", 0, 0, "860002964"},
                                  {0, "130505", 0, 0, "900123456"},
                                  {0, "220505", 0, 0, "800456789"},
                                  {0, "413505", 0, 0, "900123456", "0002", "0001"},
                                  {0, "510506", 0, 0, "52345678", "0001", "0002"},
                                  {0, "310505", 0, 0, "860002964"}};
    for (int id = 1; id <= 150; ++id) {
        ComprobanteEnTablas c{id, QStringLiteral("%1").arg(id, 6, 10, QChar('0')),
                              QStringLiteral("2017%1%2")
                                  .arg(azar.bounded(1, 14), 2, 10, QChar('0'))
                                  .arg(azar.bounded(1, 28), 2, 10, QChar('0'))};
        Moneda neto;
        for (int i = 1; i <= azar.bounded(2, 9); ++i) {
            Linea l = posibles[azar.bounded(int(posibles.size()))];
            l.item = i;
            const Moneda valor = Moneda::de_escalado(azar.bounded(1, 900000000), 2);
            (azar.bounded(2) ? l.debito : l.credito) = valor;
            neto += l.debito - l.credito;
            c.lineas << l;
        }
        Linea cierre = posibles[0];
        cierre.item = int(c.lineas.size()) + 1;
        (neto.negativa() ? cierre.debito : cierre.credito) = neto.absoluta();
        c.lineas << cierre;
        grabe(base_->base(), c);
    }
    QVERIFY(exporte(pedido(DestinoExportacion::Csv, ';')).size() > 300);

    BaseDePrueba otra;
    PeticionImportacion p;
    p.clase = ClaseImportacion::Comprobantes;
    p.archivo = base_->ruta() + "/salida.txt";
    p.separador = ';';
    int columna = 0;
    for (const char* dato : {"TICO_COD", "PRCO_PREF", "ENCO_NUMERO", "ENCO_FECHA", "CUEN_COD",
                             "TERC_NIT", "PROY_COD", "CENT_COD", "ENCO_CONCEPTO", "ENCO_REFER",
                             "CODE_BASE", "CODE_PORC", "CODE_DEBITO", "CODE_CREDITO"})
        p.columnas.append({dato, ++columna});
    const auto r = importacion_de(otra.base(), p, {}, "ADMIN")->corra();
    QVERIFY2(r.rechazados.isEmpty(),
             r.rechazados.isEmpty() ? "" : qPrintable(r.rechazados[0].razon));
    const QString sql = "select cuen_cod, terc_nit, proy_cod, cent_cod, sald_ano, sald_mes, "
                        "sum(sald_debito), sum(sald_credito) from vista_saldos_detalle group by 1, "
                        "2, 3, 4, 5, 6 order by 1, 2, 3, 4, 5, 6";
    QCOMPARE(filas_de(otra.base(), sql), filas_de(base_->base(), sql));
}

void PruebaExportacionMovimientos::una_carpeta_que_no_existe_se_dice_y_no_deja_nada() {
    uno();
    PeticionExportacion p = pedido(DestinoExportacion::Csv);
    p.archivo = base_->ruta() + "/no/esta.txt";
    QVERIFY_EXCEPTION_THROWN(exporte_movimientos(base_->base(), p), ErrorDatos);
    QVERIFY(!QDir(base_->ruta() + "/no").exists());
}

void PruebaExportacionMovimientos::lo_que_no_cabe_en_ancho_fijo_se_dice_y_no_deja_nada() {
    uno();
    con_tercero();
    base_->ejecute({"update cuentas_exportacion set cuex_cod = '4135950001234' where cuen_cod = "
                    "'413505'"});
    for (PeticionExportacion p :
         {pedido(DestinoExportacion::Siigo, QChar()), pedido(DestinoExportacion::Isis)}) {
        QFile::remove(p.archivo);
        QString dicho;
        try {
            exporte_movimientos(base_->base(), p);
        } catch (const ErrorDatos& e) {
            dicho = e.texto();
        }
        QVERIFY2(dicho.startsWith("La cuenta '4135950001234' no cabe en el formato: son 13"),
                 qPrintable(dicho));
        QVERIFY(!QFile::exists(p.archivo));
    }
    // Con separador cabe.
    QCOMPARE(exporte(pedido(DestinoExportacion::Siigo, ';'))[1].split(';')[6], "4135950001234");
}

void PruebaExportacionMovimientos::un_valor_negativo_conserva_su_signo() {
    grabe(base_->base(), {1,
                          "000123",
                          "20170131",
                          {{1, "110505", Moneda::de_texto("-1250.05"), 0},
                           {2, "111005", Moneda::de_texto("1250.05"), 0},
                           {3, "111005", 0, Moneda::de_texto("-5")}}});
    con_tercero();
    const QStringList comas = exporte(pedido(DestinoExportacion::Siigo)),
                      fijo = exporte(pedido(DestinoExportacion::Siigo, QChar()));
    QCOMPARE(comas[0].split(',').mid(13, 3), QStringList({"D", "-1250", "05"}));
    QCOMPARE(comas[1].split(',').mid(13, 3), QStringList({"D", "1250", "05"}));
    QVERIFY2(fijo[0].contains("D-00000000125005"), qPrintable(fijo[0]));
    QCOMPARE(fijo[0].size(), fijo[1].size());
    QVERIFY(exporte(pedido(DestinoExportacion::Csv))[0].endsWith(",-1250.05,0.00"));
    // En ISIS el signo es también el del crédito: uno negativo sale positivo.
    const QStringList isis = exporte(pedido(DestinoExportacion::Isis));
    QCOMPARE(isis[0].mid(74, 18), "          -1250.05");
    QCOMPARE(isis[2].mid(74, 18), "              5.00");
}

QTEST_GUILESS_MAIN(PruebaExportacionMovimientos)
#include "prueba_exportacion_movimientos.moc"
