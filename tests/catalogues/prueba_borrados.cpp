// Borrar y cambiar de código cada maestro cuando otros datos lo usan, en los dos libros: se rehúsa
// diciendo dónde, o se lo llevan quienes lo nombran. Nada queda apuntando a lo que no existe.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"

namespace {

const QString kEncabezado =
    "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
    "enco_fecha, terc_nit) values (900, 'CG', '0001', '000900', '20170115', null)";
QString linea(const QString& sufijo, const QString& columna, const QString& valor,
              const QString& cuenta = "110505") {
    return QString("insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod, %2, "
                   "code_debito, code_credito) values (900, 1, %3, %4, 100, 0)")
        .arg(sufijo, columna, QuotedStr(cuenta), QuotedStr(valor));
}
QString linea_de(const QString& sufijo, const QString& cuenta) {
    return linea(sufijo, "code_concepto", "x", cuenta);
}
const QString kPlantilla = "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, "
                           "plan_concepto) values (5, 'CG', '0001', 'Arriendo')";

/// Las listas en que F3 borra.
const struct {
    const char *pantalla, *conjunto, *llave, *tabla, *codigo, *maestro, *avisa;
} kListas[] = {
    {"Tfcuentas", "CCuentas", "CUEN_COD", "cuentas", "519530", "la cuenta %1",
     "Borrada la cuenta %1"},
    {"Tfcuentasniif", "CCuentas", "CUEN_COD", "cuentas_niif", "519530", "la cuenta NIIF %1",
     "Borrada la cuenta NIIF %1"},
    {"Tfterceros", "CTerceros", "TERC_NIT", "terceros", "800456789", "el tercero con NIT %1",
     "Borrado el tercero %1"},
    {"Tfarticulos", "CArticulos", "ARTI_COD", "articulo", "MART01", "el artículo %1",
     "Borrado el artículo %1"},
};

/// Lo que usa un maestro de esas listas y lo que se le dice a quien lo quiere borrar.
struct EnLista {
    int lista;
    QString codigo;
    QStringList uso;
    QString dice;
};

const QString kFalla = "Se presento el siguiente error: ";
QString se_usa(const QString& donde) {
    return kFalla + "No se puede borrar ni cambiar su código: se usa en " + donde + ".";
}

QVector<EnLista> cuentas_en_listas() {
    QVector<EnLista> casos;
    const QString ajeno =
        kFalla + "La cuenta 519530 es %1: no se puede borrar. Cámbiela allá primero.";
    for (int niif : {0, 1}) {
        const QString s = niif ? "_NIIF" : "", rotulo = niif ? " NIIF" : "";
        const QString cambie =
            "update cuentas" + s + " set %1 = '519530' where cuen_cod = '110505'";
        const auto caso = [&](const char* codigo, const QStringList& uso, const QString& dice) {
            casos << EnLista{niif, codigo, uso, dice};
        };
        caso("519530", {kEncabezado, linea_de(s, "519530")}, se_usa("los comprobantes" + rotulo));
        caso("519530",
             {kPlantilla, "insert into plantilla_detalle" + s +
                              " (plan_id, plde_item, cuen_cod) values (5, 1, '519530')"},
             se_usa("las plantillas" + rotulo));
        caso("519530", {cambie.arg("cuen_ctajuste")},
             ajeno.arg("la cuenta de ajuste de la 110505"));
        caso("519530", {cambie.arg("cuen_ctacorrecion")},
             ajeno.arg("la contrapartida del ajuste de la 110505"));
        caso("1105", {}, kFalla + "La cuenta 1105 tiene auxiliares definidos.");
    }
    casos << EnLista{1,
                     "519530",
                     {"update cuentas set cuen_eqniif = '519530' where cuen_cod = '519530'"},
                     ajeno.arg("la equivalente de la cuenta 519530")};
    casos << EnLista{0,
                     "519530",
                     {"update terceros set terc_ctaprov = '519530' where terc_nit = '900123456'"},
                     ajeno.arg("una de las cuentas del tercero 900123456")};
    return casos;
}

QVector<EnLista> terceros_y_articulos_en_listas() {
    QVector<EnLista> casos;
    const auto tercero = [&](const QStringList& uso, const QString& dice) {
        casos << EnLista{2, "800456789", uso, dice};
    };
    const auto articulo = [&](const QStringList& uso, const QString& dice) {
        casos << EnLista{3, "MART01", uso, dice};
    };
    tercero({kEncabezado, linea("", "terc_nit", "800456789")},
            "El tercero tiene movimientos registrados.");
    tercero({kEncabezado, linea("_NIIF", "terc_nit", "800456789")},
            se_usa("los comprobantes NIIF"));
    tercero({QString(kEncabezado).replace("null", "'800456789'")},
            kFalla + "El 800456789 es el tercero del comprobante CG 0001 000900: no se puede "
                     "borrar ni cambiar de NIT.");
    tercero({kPlantilla, "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, terc_nit) "
                         "values (5, 1, '220505', '800456789')"},
            se_usa("las plantillas"));
    for (const auto& [sufijo, rotulo] : {std::pair{"", ""}, {"_NIIF", " (libro NIIF)"}})
        articulo({kEncabezado, linea(sufijo, "arti_cod", "MART01", "143505")},
                 kFalla + "El artículo MART01 está en el comprobante CG 0001 000900" + rotulo +
                     ": no se puede borrar ni cambiar de código.");
    articulo({"insert into movimiento_articulo (moar_id, arti_cod, moar_fecha) values (1, "
              "'MART01', '20170101')"},
             se_usa("los movimientos de inventario"));
    return casos;
}

/// Un maestro de rejilla: se borra con el navegador o se le cambia la llave, y se graba con F2.
struct EnRejilla {
    QString donde; ///< pantalla, conjunto, llave y código
    QString nuevo; ///< código que toma; vacío: se borra
    QStringList uso;
    QString dice;        ///< vacío: se puede
    QString queda, vale; ///< consulta y lo que después debe dar
};

QString relacion(const QString& tabla, const QString& donde) {
    return "Está borrando o insertando un registro en la tabla " + tabla +
           " que tiene una relación con otra tabla. No se puede borrar ni cambiar su código: se "
           "usa en " +
           donde + ".";
}

QVector<EnRejilla> maestros_de_los_dos_libros() {
    QVector<EnRejilla> casos;
    const auto caso = [&](const char* donde, const char* nuevo, const QStringList& uso,
                          const QString& dice, const QString& queda, const char* vale) {
        casos << EnRejilla{donde, nuevo, uso, dice, queda, vale};
    };
    for (int niif : {0, 1}) {
        const QString s = niif ? "_NIIF" : "";
        const QStringList con_categoria{"update or insert into concepto_contable (conc_cod, "
                                        "conc_nombre) values ('OFI', 'Oficina')",
                                        kEncabezado, linea(s, "conc_cod", "OFI")};
        for (const char* nuevo : {"", "OF2"})
            caso("Tfconceptos CConcepto CONC_COD OFI", nuevo, con_categoria,
                 QString("La categoría OFI está en el comprobante CG 0001 000900%1: no se puede "
                         "borrar ni cambiar de código.")
                     .arg(niif ? " (libro NIIF)" : ""),
                 "select count(*) from concepto_contable where conc_cod = 'OFI'", "1");
        // Un centro con movimiento no se va con su proyecto; con otro código, sus líneas lo siguen.
        const QStringList con_centro{
            kEncabezado, "insert into comprobante_detalle" + s +
                             " (enco_consec, code_item, cuen_cod, proy_cod, cent_cod, code_debito, "
                             "code_credito) values (900, 1, '413505', '0002', '0001', 100, 0)"};
        caso("Tfcentros CProyectos PROY_COD 0002", "", con_centro,
             relacion("Proyectos", niif ? "los comprobantes NIIF" : "los comprobantes"),
             "select count(*) from centros where proy_cod = '0002'", "2");
        caso("Tfcentros CProyectos PROY_COD 0002", "0008", con_centro, "",
             "select proy_cod || cent_cod from comprobante_detalle" + s, "00080001");
    }
    return casos;
}

QVector<EnRejilla> tipos_lugares_y_normas() {
    QVector<EnRejilla> casos;
    const auto caso = [&](const char* donde, const char* nuevo, const QStringList& uso,
                          const QString& dice, const char* queda, const char* vale = "1") {
        casos << EnRejilla{donde, nuevo, uso, dice, queda, vale};
    };
    caso("Tftipodoc CTipodoc TICO_COD CG", "CX", {kEncabezado},
         "El tipo CG tiene comprobantes registrados: no se puede cambiar su código.",
         "select count(*) from tipo_comprobante where tico_cod = 'CG'");
    caso("Tftipodoc CPrefijos PRCO_PREF 0001", "", {kEncabezado},
         "El prefijo 0001 del tipo CG tiene comprobantes registrados: no se puede borrar ni "
         "cambiar.",
         "select count(*) from prefijos_conta where tico_cod = 'CG'");
    const QString no = ": no se puede borrar ni cambiar de código.";
    for (const char* nuevo : {"", "998"}) {
        caso("Tfciudades CCiudades CIUD_COD 05001", nuevo,
             {"update terceros set ciud_cod = '05001' where terc_nit = '900123456'"},
             "La ciudad 05001 es la del tercero 900123456" + no,
             "select count(*) from ciudades where ciud_cod = '05001'");
        caso("Tfpaises CPaises PAIS_ID 249", nuevo,
             {"update terceros set pais_id = '249' where terc_nit = '900123456'"},
             "El país 249 es el del tercero 900123456" + no,
             "select count(*) from paises where pais_id = '249'");
    }
    const QStringList con_norma{
        "insert into normas_niif (nnif_id, nnif_nombre) values (13, 'Sección 13')",
        "insert into normas_niif_detalle (nnif_id, nnid_item) values (13, '4')",
        "insert into cuentas_niif_norma (cuen_cod, nnif_id, nnid_item) values ('143505', 13, '4')"};
    caso("Tfnormas CNorma NNIF_ID 13", "", con_norma,
         relacion("Norma", "las normas de las cuentas NIIF"),
         "select count(*) from normas_niif_detalle where nnif_id = 13");
    caso("Tfnormas CNorma NNIF_ID 13", "14", con_norma, "",
         "select nnif_id || nnid_item from cuentas_niif_norma", "144");
    return casos;
}

} // namespace

class PruebaBorrados : public QObject {
    Q_OBJECT

    /// F3 en la lista: la respuesta a la pregunta y, si algo más dice, eso; y cuántos quedan.
    static void borre(SesionGui& s, int cual, const QString& codigo, const QStringList& sigue,
                      const char* quedan) {
        const auto& l = kListas[cual];
        Pantalla* p = pantallas().abrir(l.pantalla, AbreLista{.modo_mantenimiento = true});
        QVERIFY2(p, l.pantalla);
        auto& c = componente<ConjuntoDatos>(p, l.conjunto);
        QVERIFY2(c.Locate(l.llave, {codigo}), qPrintable(codigo));
        Interlocutor i;
        i.espere("Desea borrar definitivamente " + QString(l.maestro).arg(codigo) + " ?", sigue[0]);
        for (const QString& dice : sigue.mid(1))
            i.espere(dice);
        AvisosBarra barra;
        s.dm.barra(&barra);
        con_foco();
        componente<Rejilla>(p, "DBGridEh1").setFocus();
        oprima(Qt::Key_F3);
        s.dm.barra(nullptr);
        QVERIFY2(i.conforme(), qPrintable(sigue.last() + " -> " + i.queja()));
        QCOMPARE(barra.text() == QString(l.avisa).arg(codigo), *quedan == '0');
        QCOMPARE(valores_de(c, l.llave).contains(codigo), *quedan == '1');
        QCOMPARE(s.dato(QString("select count(*) from %1 where %2 = %3")
                            .arg(l.tabla, l.llave, QuotedStr(codigo))),
                 quedan);
        p->close();
    }

private slots:
    void initTestCase() {
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
    }

    void lo_que_se_usa_no_se_borra_desde_su_lista_y_se_dice_donde() {
        for (const EnLista& caso : cuentas_en_listas() + terceros_y_articulos_en_listas()) {
            SesionGui s;
            s.base.ejecute(QStringList{"update cuentas set cuen_eqniif = null"} + caso.uso);
            borre(s, caso.lista, caso.codigo, {"Sí", caso.dice}, "1");
        }
    }

    /// Una tabla nueva que nombre cuentas falla aquí hasta que se diga quién la cuida.
    void toda_columna_que_nombra_una_cuenta_la_retiene_y_la_sigue() {
        SesionGui s;
        // Lo que se rehace o se deriva, lo que su comprobante ya retiene y lo que se siembra para
        // cualquier plan y nombra por el comienzo.
        const QString salvo =
            "'(SALDOS|MEDIOSMAG|APERTURA)%|PUC|CONTABILIZACION_DET|CIERRE_TERCEROS|"
            "TAXONOMIA_CUENTAS|CONFIGURA_MEDIOSMAG|FLUJO_EFECTIVO|CAMBIOS_SITUACION_CTAS|"
            "NOTAS_ESTADOS_FINANCIEROS'";
        // De la lista de donde sale el arrastre sale la guarda.
        QCOMPARE(filas_de(s.base.base(),
                          "select trim(f.rdb$relation_name) || '.' || trim(f.rdb$field_name) from "
                          "rdb$relation_fields f join rdb$relations r on r.rdb$relation_name = "
                          "f.rdb$relation_name where f.rdb$field_source = 'D_CUENTA' and "
                          "r.rdb$view_blr is null and r.rdb$relation_type = 0 and not "
                          "trim(r.rdb$relation_name) similar to " +
                              salvo +
                              " and not exists (select 1 from rdb$dependencies d where "
                              "d.rdb$depended_on_name = f.rdb$relation_name and d.rdb$field_name = "
                              "f.rdb$field_name and d.rdb$dependent_name starting with "
                              "'ARRASTRE_CUENTA') and not exists (select 1 from "
                              "rdb$relation_constraints k join rdb$index_segments g on "
                              "g.rdb$index_name = k.rdb$index_name where k.rdb$constraint_type = "
                              "'FOREIGN KEY' and k.rdb$relation_name = f.rdb$relation_name and "
                              "g.rdb$field_name = f.rdb$field_name) order by 1"),
                 // El código de otra compañía y la columna que el plan NIIF no usa.
                 "CUENTAS_EXPORTACION.CUEX_COD\nCUENTAS_NIIF.CUEN_EQNIIF");
    }

    void lo_que_nadie_usa_se_borra_si_se_contesta_que_si() {
        for (int lista = 0; lista < int(std::size(kListas)); ++lista) {
            SesionGui s;
            s.base.ejecute({"update cuentas set cuen_eqniif = null"});
            borre(s, lista, kListas[lista].codigo, {"No"}, "1");
            borre(s, lista, kListas[lista].codigo, {"Sí"}, "0");
        }
    }

    void los_maestros_de_rejilla_se_rehusan_o_arrastran_a_quien_los_nombra() {
        for (const EnRejilla& caso : maestros_de_los_dos_libros() + tipos_lugares_y_normas()) {
            const QStringList donde = caso.donde.split(' ');
            const QByteArray cual = (caso.donde + " -> " + caso.nuevo + ": " + caso.dice).toUtf8();
            SesionGui s;
            s.base.ejecute(caso.uso);
            Pantalla* p = pantallas().abrir(donde[0]);
            QVERIFY2(p, cual);
            auto& c = componente<ConjuntoDatos>(p, qPrintable(donde[1]));
            QVERIFY2(c.Locate(donde[2], {donde[3]}), cual);
            Interlocutor i;
            if (caso.nuevo.isEmpty()) {
                i.espere("Desea borrar el registro?", "Sí");
                const bool maestro = !c.maestra();
                componente<NavegadorDatos>(p, maestro ? "DBNavigator1" : "DBNavigator2")
                    .boton(nbDelete)
                    ->click();
            } else {
                c.Edit();
                c.FieldByName(donde[2]) = caso.nuevo;
                c.Post();
            }
            if (!caso.dice.isEmpty())
                i.espere(caso.dice);
            con_foco();
            oprima(Qt::Key_F2);
            QVERIFY2(i.conforme(), qPrintable(QString::fromUtf8(cual) + " -> " + i.queja()));
            QCOMPARE(s.dato(caso.queda), caso.vale);
            // Lo que la base rehusó sigue sin grabar.
            const QScopedValueRollback<bool> sale(Guardia::unica().despedida, true);
            s.escritorio.cierre_todas();
        }
    }

    void un_articulo_con_lineas_no_cambia_de_codigo() {
        SesionGui s;
        s.base.ejecute({kEncabezado, linea("", "arti_cod", "MART01", "143505")});
        Pantalla* p = pantallas().abrir("Tfedtarticulo", AbreArticulo{"MART01"});
        auto& c = componente<ConjuntoDatos>(p, "CArticulo");
        c.Edit();
        c.FieldByName("ARTI_COD") = "OTRO";
        dice(Qt::Key_F2, "El artículo MART01 está en el comprobante CG 0001 000900: no se puede "
                         "borrar ni cambiar de código.");
        QCOMPARE(s.dato("select count(*) from articulo where arti_cod = 'MART01'"), "1");
        QCOMPARE(c.FieldByName("ARTI_COD").texto(), "OTRO"); // lo digitado no se pierde
    }
};

QTEST_MAIN(PruebaBorrados)
#include "prueba_borrados.moc"
