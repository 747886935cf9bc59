// Lo que se imprime de un comprobante, y los formatos propios: su copia, su borrado y su mudanza.
#include "apoyo/base_prueba.h"
#include "apoyo/comprobantes.h"

class PruebaProcedimientosImpresion : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { base_.emplace(); }

    void la_impresion_trae_el_encabezado_en_cada_linea_de_su_libro();
    void un_comprobante_sin_lineas_se_imprime_con_su_encabezado();
    void un_formato_se_copia_con_sus_elementos_y_se_los_lleva_al_borrarlo();
    void mover_un_formato_cambia_lo_que_dice_la_accion_y_nada_mas_data();
    void mover_un_formato_cambia_lo_que_dice_la_accion_y_nada_mas();

private:
    Conexion& base() { return base_->base(); }
    QString filas(const QString& sql) { return filas_de(base(), sql); }

    std::optional<BaseDePrueba> base_;
};

void PruebaProcedimientosImpresion::la_impresion_trae_el_encabezado_en_cada_linea_de_su_libro() {
    grabe(base(), {1,
                   "000001",
                   "20171301",
                   {{7, "413505", 0, 1000, "900123456", "0002", "0001"},
                    {2, "143505", Moneda::de_texto("1000.25"), 0, {}, {}, {}, "MART01"},
                    {4, "152405", 0, Moneda::de_texto("0.25"), {}, {}, {}, "ESC01"}},
                   {{1, "110505", 800, 0}},
                   "N",
                   "RC"});
    base_->ejecute(
        {"update comprobante_encabezado set enco_concepto = 'Venta', enco_refer = 'R1',"
         " terc_nit = '800456789', enco_nomterc = 'Andina de antes' where enco_consec = 1",
         "update comprobante_detalle set code_concepto = '', code_refer = 'L7', code_base = 895000,"
         " code_porc = 2.5, cnde_docnumero = '0000000012', cnde_docaplica = '000000034',"
         " doco_vence = '20180131', code_tiponue = 31, code_tipoapl = 61 where code_item = 7",
         "update comprobante_detalle set code_concepto = 'Martillos' where code_item = 2"});
    // Por línea, y con el concepto y la referencia de la línea o los del encabezado.
    QCOMPARE(filas("select item, cuenta, nomcuenta, nit, nomtercero, proyecto, centro, nomproy,"
                   " nomcent, itconcepto, itrefer, articulo, nomartic, debito, credito"
                   " from impr_comprobante(1)"),
             QString("2|143505|Mercancías|||||||Martillos|R1|MART01|Martillo|1000.25|0\n"
                     "4|152405|Muebles y enseres|||||||Venta|R1|ESC01|Escritorio|0|0.25\n"
                     "7|413505|Ventas|900123456|Ferretería El Tornillo S.A.S.|0002|0001|Ventas|"
                     "Mostrador|Venta|L7|||0|1000"));
    QCOMPARE(filas("select base, porc, numdoc, numaplica, vence, tipodoc, tipodocap"
                   " from impr_comprobante(1) where item = 7"),
             "895000|2.5|0000000012|000000034|20180131|" +
                 filas("select d.tido_nomcorto, a.tido_nomcorto from tipo_documento d,"
                       " tipo_documento a where d.tido_cod = 31 and a.tido_cod = 61"));
    const QString encabezado = "RC|0001|000001|20171301|Venta|R1|Recibo de caja|800456789|"
                               "Andina de antes|%1|S";
    const QString pida = "select distinct tipo, pref, numero, fecha, concepto, refer, nomtipo,"
                         " nitenc, nomenc, monto, fto from impr_comprobante%1(1)";
    QCOMPARE(filas(pida.arg("")), encabezado.arg("1000.25"));
    QCOMPARE(filas(pida.arg("_niif")), encabezado.arg("800"));
    QCOMPARE(filas("select item, cuenta, debito from impr_comprobante_niif(1)"),
             QString("1|110505|800"));
    // El monto digitado manda; sin nombre escrito, el del catálogo.
    base().ejecute("update comprobante_encabezado set enco_monto = 5000, enco_nomterc = ''");
    QCOMPARE(filas("select distinct monto, nomenc from impr_comprobante(1)"),
             QString("5000|Distribuidora Andina Ltda."));
    // Las columnas que leen los informes, con su nombre y en su orden.
    QStringList columnas;
    const auto cursor = base().abra("select * from impr_comprobante_niif(1)");
    for (const Columna& c : cursor->columnas())
        columnas << c.nombre;
    QCOMPARE(columnas.join(' '),
             QString("TIPO PREF NUMERO FECHA CONCEPTO REFER NOMTIPO ITEM CUENTA NOMCUENTA NIT"
                     " NOMTERCERO PROYECTO CENTRO NOMPROY NOMCENT ITCONCEPTO ITREFER ARTICULO"
                     " NOMARTIC DEBITO CREDITO BASE PORC NUMDOC NUMAPLICA VENCE TIPODOC TIPODOCAP"
                     " NITENC NOMENC MONTO FTO"));
}

void PruebaProcedimientosImpresion::un_comprobante_sin_lineas_se_imprime_con_su_encabezado() {
    grabe(base(), {2, "000002", "20170105"});
    for (const char* libro : {"", "_niif"})
        QCOMPARE(filas(QString("select tipo, numero, concepto, item, cuenta, itconcepto, debito,"
                               " credito, monto, fto from impr_comprobante%1(2)")
                           .arg(libro)),
                 QString("CG|000002|Prueba||||0|0|0|N"));
    QCOMPARE(filas("select * from impr_comprobante(99)"), QString());
}

void PruebaProcedimientosImpresion::
    un_formato_se_copia_con_sus_elementos_y_se_los_lleva_al_borrarlo() {
    base_->ejecute(
        {"insert into formatos (tido_cod, pref_pre, form_nroitems) values (1, 'RC', 12)",
         "insert into formatos (tido_cod, pref_pre) values (31, 'RC')",
         "insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato) values (1, 'RC', 1,"
         " 'NOMBRE SUBCEBTRO COSTO')",
         "insert into formato_datos (tido_cod, pref_pre, dafo_item) values (31, 'RC', 1)",
         "insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_imagen)"
         " values (1, 'RC', 1, x'424D00FF')"});
    const QString elementos =
        "select (select count(*) from formato_datos d where d.tido_cod = f.tido_cod and"
        " d.pref_pre = f.pref_pre), (select count(*) from formato_lineas l where"
        " l.tido_cod = f.tido_cod and l.pref_pre = f.pref_pre and l.foli_imagen = x'424D00FF'),"
        " tido_cod, trim(pref_pre) from formatos f order by tido_cod, pref_pre";
    base_->ejecute({"insert into formatos (tido_cod, pref_pre, form_nroitems) select tido_cod,"
                    " '0002', form_nroitems from formatos where tido_cod = 1 and pref_pre = 'RC'",
                    "insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato) select"
                    " tido_cod, '0002', dafo_item, dafo_dato from formato_datos where"
                    " tido_cod = 1 and pref_pre = 'RC'",
                    "insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_imagen) select"
                    " tido_cod, '0002', foli_item, foli_imagen from formato_lineas where"
                    " tido_cod = 1 and pref_pre = 'RC'"});
    QCOMPARE(filas(elementos), QString("1|1|1|0002\n1|1|1|RC\n1|0|31|RC"));
    // Sobre uno que ya existe no se copia.
    QVERIFY_THROWS_EXCEPTION(
        ErrorDatos, base().ejecute("insert into formatos (tido_cod, pref_pre) select tido_cod,"
                                   " '0002' from formatos where tido_cod = 1 and pref_pre = 'RC'"));
    base().ejecute("update formatos set pref_pre = '0000' where tido_cod = 1 and pref_pre = 'RC'");
    QCOMPARE(filas(elementos), QString("1|1|1|0000\n1|1|1|0002\n1|0|31|RC"));
    base().ejecute("delete from formatos where tido_cod = 1 and pref_pre = '0000'");
    QCOMPARE(filas(elementos), QString("1|1|1|0002\n1|0|31|RC"));
    QCOMPARE(filas("select count(*) from formato_datos where pref_pre = '0000'"), QString("0"));
    QCOMPARE(filas("select count(*) from formato_lineas where pref_pre = '0000'"), QString("0"));
    base().ejecute("delete from formatos");
}

void PruebaProcedimientosImpresion::
    mover_un_formato_cambia_lo_que_dice_la_accion_y_nada_mas_data() {
    QTest::addColumn<QString>("argumentos"); // posiciones, desde, hasta, acción
    QTest::addColumn<QString>("datos");      // x,y de los dos datos
    QTest::addColumn<QString>("lineas");     // x,y,ancho,alto de los dos dibujos
    QTest::addColumn<QString>("entrelinea");
    const QString datos = "100,50 1500,900", lineas = "0,0,2000,-30 300,700,41,0";
    const auto caso = [](const char* nombre, const char* argumentos, const QString& d,
                         const QString& l, const char* entrelinea = "25") {
        QTest::newRow(nombre) << argumentos << d << l << entrelinea;
    };
    caso("derecha", "10, 0, 2000, 'R'", "110,50 1510,900", "10,0,2000,-30 310,700,41,0");
    caso("derecha, los dos extremos entran", "10, 100, 300, 'R'", "110,50 1500,900",
         "0,0,2000,-30 310,700,41,0");
    caso("izquierda, y puede salirse", "120, 0, 300, 'L'", "-20,50 1500,900",
         "-120,0,2000,-30 180,700,41,0");
    caso("arriba", "40, 50, 700, 'U'", "100,10 1500,900", "0,0,2000,-30 300,660,41,0");
    caso("abajo, en minúscula", "40, 701, 2000, 'd'", "100,50 1500,940", lineas);
    caso("nada en el rango", "40, 1600, 1700, 'R'", datos, lineas);
    caso("mitad en vertical", "0, 0, 0, 'M'", "100,25 1500,450", "0,0,2000,-15 300,350,41,0", "12");
    caso("doble en vertical", "null, null, null, 'C'", "100,100 1500,1800",
         "0,0,2000,-60 300,1400,41,0", "50");
    caso("mitad en horizontal", "0, 0, 0, 'Y'", "50,50 750,900", "0,0,1000,-30 150,700,20,0");
    caso("doble en horizontal", "0, 0, 0, 'X'", "200,50 3000,900", "0,0,4000,-30 600,700,82,0");
    caso("una acción que no existe", "10, 0, 2000, 'Z'", datos, lineas);
}

void PruebaProcedimientosImpresion::mover_un_formato_cambia_lo_que_dice_la_accion_y_nada_mas() {
    base().ejecute("delete from formatos");
    for (const char* clave : {"1, 'RC'", "1, 'CG'", "31, 'RC'"}) {
        base().ejecute(QString("insert into formatos (tido_cod, pref_pre, form_entrelinea)"
                               " values (%1, 25)")
                           .arg(clave));
        for (const char* dato : {"1, 100, 50, 8", "2, 1500, 900, 0"})
            base().ejecute(QString("insert into formato_datos (tido_cod, pref_pre, dafo_item,"
                                   " dafo_posx, dafo_posy, dafo_long) values (%1, %2)")
                               .arg(clave, dato));
        for (const char* linea : {"1, 0, 0, 2000, -30", "2, 300, 700, 41, 0"})
            base().ejecute(QString("insert into formato_lineas (tido_cod, pref_pre, foli_item,"
                                   " foli_posx, foli_posy, foli_x, foli_y) values (%1, %2)")
                               .arg(clave, linea));
    }
    const auto foto = [&](const QString& donde) {
        const auto lista = [&](const char* sql) {
            return filas(sql + donde + " order by 1, 2").replace('\n', ' ');
        };
        return QStringList{
            lista("select dafo_posx || ',' || dafo_posy, dafo_item from formato_datos where "),
            lista("select foli_posx || ',' || foli_posy || ',' || foli_x || ',' || foli_y,"
                  " foli_item from formato_lineas where "),
            lista("select form_entrelinea, 0 from formatos where "),
            lista("select dafo_long, dafo_item from formato_datos where ")};
    };
    const QString ajenos = "not (tido_cod = 1 and pref_pre = 'RC')";
    const QStringList antes = foto(ajenos);
    QFETCH(QString, argumentos);
    bool rechazada = false;
    try {
        base().ejecute("execute procedure mover_formato(1, 'RC', " + argumentos + ')');
    } catch (const ErrorDatos& e) {
        rechazada = e.texto().contains("No existe esa forma de mover un formato.");
    }
    QCOMPARE(rechazada, argumentos.contains('Z'));
    const auto lea = [&](const char* columnas, const char* tabla) {
        return filas(QString("select %1 from %2 where tido_cod = 1 and pref_pre = 'RC' order by 2")
                         .arg(columnas, tabla))
            .replace(QRegularExpression("\\|\\d+"), "")
            .replace('\n', ' ');
    };
    QTEST(lea("dafo_posx || ',' || dafo_posy, dafo_item", "formato_datos"), "datos");
    QTEST(lea("foli_posx || ',' || foli_posy || ',' || foli_x || ',' || foli_y, foli_item",
              "formato_lineas"),
          "lineas");
    QTEST(lea("form_entrelinea, 0", "formatos"), "entrelinea");
    QCOMPARE(filas("select list(dafo_long) from formato_datos where pref_pre = 'CG'"),
             filas("select list(dafo_long) from formato_datos where tido_cod = 1 and"
                   " pref_pre = 'RC'"));
    QCOMPARE(foto(ajenos), antes);
}

QTEST_GUILESS_MAIN(PruebaProcedimientosImpresion)
#include "prueba_procedimientos_impresion.moc"
