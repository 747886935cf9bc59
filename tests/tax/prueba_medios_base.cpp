// Lo que cada formato toma del libro según la naturaleza, y lo que se dice de lo que no toma.
#include "ledger/libro_al_azar.h"
#include "tax/cierre_de_prueba.h"

class PruebaMediosBase : public PruebaConBase {
    Q_OBJECT
private slots:
    void init();

    void cada_tercero_se_identifica_segun_su_clase();
    void cada_naturaleza_toma_lo_suyo();
    void los_ajustes_que_no_se_incluyen_se_dicen();
    void mover_el_cierre_a_diciembre_no_borra_lo_que_se_informa();
    void lo_que_nadie_toma_y_lo_incompleto_se_dice();

private:
    void concepto(int item, int formato, int codigo, const char* natur, const char* minimo = "0") {
        base().ejecute(QString("insert into configura_mediosmag (come_item, come_descripcion,"
                               " come_respuesta, come_formato, come_minimo, come_natur) values (%1,"
                               " 'Concepto %3', '%3', %2, %5, '%4')")
                           .arg(item)
                           .arg(formato)
                           .arg(codigo)
                           .arg(natur, minimo));
    }
    void cuentas(int item, const QStringList& columnas) {
        base().ejecute("insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta,"
                       " mmcu_ctartf, mmcu_ctaiva) values (" +
                       QString::number(++cons_) + ',' + QString::number(item) + ",'" +
                       columnas.join("','") + "')");
    }
    QStringList filas(int formato, const char* columnas) {
        return filas_de(base(),
                        QString("select %1 from medios_magneticos_datos where memg_formato ="
                                " %2 order by memg_item")
                            .arg(columnas)
                            .arg(formato))
            .split('\n', Qt::SkipEmptyParts);
    }
    int cons_ = 90000;
};

void PruebaMediosBase::init() {
    PruebaConBase::init();
    arme_libro_al_azar(base());
    base().ejecute("delete from configura_mediosmag");
}

void PruebaMediosBase::cada_tercero_se_identifica_segun_su_clase() {
    concepto(1, 10019, 5001, "D");
    cuentas(1, {"51", "", ""});
    base().ejecute("update terceros set terc_apellido1 = 'Peña', terc_apellido2 = 'Gómez',"
                   " terc_nombre1 = 'María' where terc_nit = '52345678'");
    base().ejecute("execute procedure medio_1001_v9('20180101', '20181231')");
    // La cédula trae su tipo y sus apellidos; el NIT, razón social y dígito.
    QCOMPARE(filas_de(base(), "select distinct memg_tipodoc, memg_dv, memg_apellido1,"
                              " memg_razonsocial from medios_magneticos_datos where memg_nit in"
                              " ('52345678', '900123456') order by 1"),
             filas_de(base(), "select 13, null, terc_apellido1, null from terceros where terc_nit ="
                              " '52345678' union all select 31, terc_dv, null, terc_nom from"
                              " terceros where terc_nit = '900123456'"));
}

void PruebaMediosBase::cada_naturaleza_toma_lo_suyo() {
    base().ejecute("delete from comprobante_detalle");
    const QString nit = "800456789";
    grabe(base(), 901, "20180310",
          {{1, "143505", 1000, 0, nit},
           {2, "143505", 0, 30, nit},
           {3, "143505", 7, 0},
           {4, "111005", 0, 977}});
    const std::pair<const char*, QStringList> casos[] = {
        {"D", {"|7", nit + "|970"}}, {"C", {"|-7", nit + "|-970"}}, {"B", {"|7", nit + "|1000"}},
        {"R", {nit + "|30"}},        {"T", {nit + "|970"}},         {"N", {}}};
    concepto(1, 10019, 5007, "D");
    cuentas(1, {"1435", "", ""});
    for (const auto& [natur, esperadas] : casos) {
        base().ejecute("delete from medios_magneticos_datos");
        base().ejecute("update mediosmag_cuentas set mmcu_natur = ? where mmcu_item = 1",
                       {Valor(natur)});
        base().ejecute("execute procedure medio_1001_v9('20180101', '20181231')");
        QCOMPARE(filas(10019, "memg_nit, memg_pago"), esperadas);
    }
    // La que no se reporta no es una cuenta olvidada.
    QCOMPARE(filas_de(base(), "select cuenta from cuadre_medio(10019, '2018', '20180101',"
                              " '20181231') where concepto is null"),
             QString());
}

void PruebaMediosBase::los_ajustes_que_no_se_incluyen_se_dicen() {
    base().ejecute("delete from comprobante_detalle");
    grabe(base(), 901, "20181331", {{1, "519530", 80, 0, "900123456"}, {2, "111005", 0, 80}});
    concepto(1, 10019, 5016, "D");
    cuentas(1, {"51", "", ""});
    const auto ajustes = [this](const char* hasta) {
        return filas_de(base(), QString("select cuenta, libro from cuadre_medio(10019, '2018',"
                                        " '20180101', '%1') where nombre starting 'Ajustes por"
                                        " incluir: '")
                                    .arg(hasta));
    };
    QCOMPARE(ajustes("20181231"), "519530|80");
    cierre_anual(base(), "20181331"); // el cierre no es un ajuste
    QCOMPARE(ajustes("20181231"), "519530|80");
    QCOMPARE(ajustes("20181331"), QString());
    base().ejecute("execute procedure medio_1001_v9('20180101', '20181331')");
    QCOMPARE(filas(10019, "memg_nit, memg_pago"), QStringList("900123456|80"));
}

void PruebaMediosBase::mover_el_cierre_a_diciembre_no_borra_lo_que_se_informa() {
    base().ejecute("delete from comprobante_detalle");
    grabe(base(), 901, "20180310",
          {{1, "111005", 500, 0}, {2, "413505", 0, 500, "900123456", "0002", "0001"}});
    concepto(1, 10078, 4001, "C");
    cuentas(1, {"41", "", ""});
    const auto informado = [this] {
        base().ejecute("delete from medios_magneticos_datos");
        base().ejecute("execute procedure medio_1007_v8('20180101', '20181231')");
        return filas(10078, "memg_nit, memg_pago").join('\n') + '\n' +
               filas_de(base(), "select nit, cuenta, debitos, creditos from "
                                "listado_movimiento_tercero('20180101', '20181231')");
    };
    const QString antes = informado();
    QVERIFY(antes.startsWith("900123456|500\n"));
    cierre_anual(base(), "20181331");
    QCOMPARE(informado(), antes);
    base().ejecute("update comprobante_encabezado set enco_fecha = '20181231' where enco_consec = "
                   "(select enco_consec from cierre_anual)");
    QCOMPARE(informado(), antes);
}

void PruebaMediosBase::lo_que_nadie_toma_y_lo_incompleto_se_dice() {
    concepto(1, 10019, 5001, "D");
    cuentas(1, {"5105", "", ""});
    base().ejecute(
        "update terceros set terc_dir = '', ciud_cod = null where terc_nit = '800456789'");
    base().ejecute("update terceros set terc_dir = 'Calle <1' where terc_nit = '900123456'");
    base().ejecute("delete from comprobante_detalle");
    grabe(base(), 901, "20180310",
          {{1, "510506", 1000, 0, "800456789"},
           {2, "510506", 0, 300, "900123456"},
           {3, "510506", 40, 0},
           {4, "519530", 60, 0},
           {5, "510506", 9, 0, "52345678"},
           {6, "111005", 0, 809}});
    base().ejecute("execute procedure medio_1001_v9('20180101', '20181231')");
    const QString causas = filas_de(base(), "select nit, causa from revise_medio(10019, '2018')");
    for (const char* c :
         {"|Movimiento sin tercero", "900123456|Valor negativo", "800456789|Falta la dirección",
          "800456789|Falta el municipio", "900123456|Tiene un signo \"<\"",
          "52345678|Es persona natural: faltan sus apellidos"})
        QVERIFY2(('\n' + causas).contains(c), qPrintable(causas));
    QCOMPARE(filas_de(base(), "select cuenta, libro from cuadre_medio(10019, '2018', '20180101',"
                              " '20181231') where concepto is null"),
             "519530|60");
}

QTEST_APPLESS_MAIN(PruebaMediosBase)
#include "prueba_medios_base.moc"
