// Lo que se imprime de un comprobante: lo que lee el informe.

class PruebaProcedimientosImpresion : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { base_.emplace(); }

    void la_impresion_trae_el_encabezado_en_cada_linea_de_su_libro();
    void un_comprobante_sin_lineas_se_imprime_con_su_encabezado();

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
             "2|143505|Mercancías|||||||Martillos|R1|MART01|Martillo|1000.25|0\n"
             "4|152405|Muebles y enseres|||||||Venta|R1|ESC01|Escritorio|0|0.25\n"
             "7|413505|Ventas|900123456|Ferretería El Tornillo S.A.S.|0002|0001|Ventas|"
             "Mostrador|Venta|L7|||0|1000");
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
    QCOMPARE(filas("select item, cuenta, debito from impr_comprobante_niif(1)"), "1|110505|800");
    // El monto digitado manda; sin nombre escrito, el del catálogo.
    base().ejecute("update comprobante_encabezado set enco_monto = 5000, enco_nomterc = ''");
    QCOMPARE(filas("select distinct monto, nomenc from impr_comprobante(1)"),
             "5000|Distribuidora Andina Ltda.");
    // Las columnas que leen los informes, con su nombre y en su orden.
    QStringList columnas;
    const auto cursor = base().abra("select * from impr_comprobante_niif(1)");
    for (const Columna& c : cursor->columnas())
        columnas << c.nombre;
    QCOMPARE(columnas.join(' '),
             "TIPO PREF NUMERO FECHA CONCEPTO REFER NOMTIPO ITEM CUENTA NOMCUENTA NIT"
             " NOMTERCERO PROYECTO CENTRO NOMPROY NOMCENT ITCONCEPTO ITREFER ARTICULO"
             " NOMARTIC DEBITO CREDITO BASE PORC NUMDOC NUMAPLICA VENCE TIPODOC TIPODOCAP"
             " NITENC NOMENC MONTO FTO MONEDA");
}

void PruebaProcedimientosImpresion::un_comprobante_sin_lineas_se_imprime_con_su_encabezado() {
    grabe(base(), {2, "000002", "20170105"});
    for (const char* libro : {"", "_niif"})
        QCOMPARE(filas(QString("select tipo, numero, concepto, item, cuenta, itconcepto, debito,"
                               " credito, monto, fto from impr_comprobante%1(2)")
                           .arg(libro)),
                 "CG|000002|Prueba||||0|0|0|N");
    QCOMPARE(filas("select * from impr_comprobante(99)"), QString());
}

QTEST_GUILESS_MAIN(PruebaProcedimientosImpresion)
#include "prueba_procedimientos_impresion.moc"
