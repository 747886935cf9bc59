// Borrar y cambiar de código cada maestro cuando otros datos lo usan, en los dos libros: se rehúsa
// diciendo dónde, o se lo llevan quienes lo nombran. Nada queda apuntando a lo que no existe.
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/rejilla/rejilla.h"

#include <QPushButton>

namespace {

const QString kEncabezado =
    "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
    "enco_fecha, terc_nit) values (900, 'CG', '0001', '000900', '20170115', null)";
QString linea(const QString& sufijo, const QString& columna, const QString& valor,
              const QString& cuenta = "110505") {
    return QStringLiteral(
               "insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod, %2, "
               "code_debito, code_credito) values (900, 1, %3, %4, 100, 0)")
        .arg(sufijo, columna, QuotedStr(cuenta), QuotedStr(valor));
}
QString linea_de(const QString& sufijo, const QString& cuenta) {
    return linea(sufijo, "code_concepto", "x", cuenta);
}
const QStringList kPlantilla{
    "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto) values (5, "
    "'CG', '0001', 'Arriendo')"};

/// Un maestro en una lista con F3: lo que lo usa y lo que se le dice a quien lo quiere borrar.
struct EnLista {
    const char *pantalla, *conjunto, *llave, *codigo;
    QString pregunta, tabla;
    QStringList uso;
    QString dice;
};

const QString kFalla = "Se presento el siguiente error: ";
QString se_usa(const QString& donde) {
    return kFalla + "No se puede borrar ni cambiar su código: se usa en " + donde + ".";
}

QVector<EnLista> cuentas_en_listas() {
    QVector<EnLista> casos;
    for (const auto& [pantalla, sufijo, de, rotulo] :
         {std::tuple{"Tfcuentas", "", "cuenta", ""},
          {"Tfcuentasniif", "_NIIF", "cuenta NIIF", " NIIF"}}) {
        const QString s = sufijo, tabla = "cuentas" + s.toLower();
        const auto cuenta = [&](const char* codigo, QStringList uso, const QString& dice) {
            casos << EnLista{pantalla,
                             "CCuentas",
                             "CUEN_COD",
                             codigo,
                             QString("Desea borrar definitivamente la %1 %2 ?").arg(de, codigo),
                             tabla,
                             uso,
                             dice};
        };
        cuenta("519530", {kEncabezado, linea_de(s, "519530")},
               se_usa("los comprobantes" + QString(rotulo)));
        cuenta("519530",
               kPlantilla + QStringList{"insert into plantilla_detalle" + s +
                                        " (plan_id, plde_item, cuen_cod) values (5, 1, '519530')"},
               se_usa("las plantillas" + QString(rotulo)));
        cuenta("519530",
               {"update " + tabla + " set cuen_ctajuste = '519530' where cuen_cod = '110505'"},
               kFalla + "La cuenta 519530 es la cuenta de ajuste de la 110505: no se puede borrar. "
                        "Cámbiela allá primero.");
        cuenta("519530",
               {"update " + tabla + " set cuen_ctacorrecion = '519530' where cuen_cod = '110505'"},
               kFalla + "La cuenta 519530 es la contrapartida del ajuste de la 110505: no se puede "
                        "borrar. Cámbiela allá primero.");
        cuenta("1105", {}, kFalla + "La cuenta 1105 tiene auxiliares definidos.");
    }
    casos << EnLista{"Tfcuentasniif",
                     "CCuentas",
                     "CUEN_COD",
                     "519530",
                     "Desea borrar definitivamente la cuenta NIIF 519530 ?",
                     "cuentas_niif",
                     {"update cuentas set cuen_eqniif = '519530' where cuen_cod = '519530'"},
                     kFalla + "La cuenta 519530 es la equivalente de la cuenta 519530: no se puede "
                              "borrar. Cámbiela allá primero."};
    casos << EnLista{"Tfcuentas",
                     "CCuentas",
                     "CUEN_COD",
                     "519530",
                     "Desea borrar definitivamente la cuenta 519530 ?",
                     "cuentas",
                     {"update terceros set terc_ctaprov = '519530' where terc_nit = '900123456'"},
                     kFalla + "La cuenta 519530 es una de las cuentas del tercero 900123456: no se "
                              "puede borrar. Cámbiela allá primero."};
    return casos;
}

QVector<EnLista> terceros_y_articulos_en_listas() {
    QVector<EnLista> casos;
    const auto tercero = [&](QStringList uso, const QString& dice) {
        casos << EnLista{"Tfterceros",
                         "CTerceros",
                         "TERC_NIT",
                         "800456789",
                         "Desea borrar definitivamente el tercero con NIT 800456789 ?",
                         "terceros",
                         uso,
                         dice};
    };
    tercero({kEncabezado, linea("", "terc_nit", "800456789")},
            "El tercero tiene movimientos registrados.");
    tercero({kEncabezado, linea("_NIIF", "terc_nit", "800456789")},
            se_usa("los comprobantes NIIF"));
    tercero({QString(kEncabezado).replace("null", "'800456789'")},
            kFalla +
                "El 800456789 es el tercero del comprobante CG 0001 000900: no se puede borrar "
                "ni cambiar de NIT.");
    tercero(kPlantilla + QStringList{"insert into plantilla_detalle (plan_id, plde_item, cuen_cod, "
                                     "terc_nit) values (5, 1, '220505', '800456789')"},
            se_usa("las plantillas"));
    for (const auto& [sufijo, rotulo] : {std::pair{"", ""}, {"_NIIF", " (libro NIIF)"}})
        casos << EnLista{"Tfarticulos",
                         "CArticulos",
                         "ARTI_COD",
                         "MART01",
                         "Desea borrar definitivamente el artículo MART01 ?",
                         "articulo",
                         {kEncabezado, linea(sufijo, "arti_cod", "MART01", "143505")},
                         kFalla + "El artículo MART01 está en el comprobante CG 0001 000900" +
                             rotulo + ": no se puede borrar ni cambiar de código."};
    casos << EnLista{"Tfarticulos",
                     "CArticulos",
                     "ARTI_COD",
                     "MART01",
                     "Desea borrar definitivamente el artículo MART01 ?",
                     "articulo",
                     {"insert into movimiento_articulo (moar_id, arti_cod, moar_fecha) values (1, "
                      "'MART01', '20170101')"},
                     se_usa("los movimientos de inventario")};
    return casos;
}

/// Un maestro de rejilla: se borra con el navegador o se le cambia la llave, y se graba con F2.
struct EnRejilla {
    const char *pantalla, *conjunto, *llave, *codigo;
    bool borra; ///< si no, cambia el código por `nuevo`
    const char* nuevo;
    QStringList uso;
    QString dice;  ///< vacío: se puede
    QString queda; ///< consulta que después debe dar...
    QString vale;
};

QString relacion(const QString& tabla, const QString& donde) {
    return "Está borrando o insertando un registro en la tabla " + tabla +
           " que tiene una relación con otra tabla. No se puede borrar ni cambiar su código: "
           "se usa en " +
           donde + ".";
}

QVector<EnRejilla> categorias_y_centros_en_rejillas() {
    QVector<EnRejilla> casos;
    for (const auto& [sufijo, rotulo] : {std::pair{"", ""}, {"_NIIF", " (libro NIIF)"}}) {
        const QString s = sufijo;
        const QStringList con_categoria{
            "update or insert into concepto_contable (conc_cod, conc_nombre) values ('OFI', "
            "'Oficina')",
            kEncabezado, linea(s, "conc_cod", "OFI")};
        const QString en_uso = "La categoría OFI está en el comprobante CG 0001 000900" +
                               QString(rotulo) + ": no se puede borrar ni cambiar de código.";
        const QString sigue = "select count(*) from concepto_contable where conc_cod = 'OFI'";
        casos << EnRejilla{"Tfconceptos", "CConcepto", "CONC_COD", "OFI", true, "",
                           con_categoria, en_uso,      sigue,      "1"};
        casos << EnRejilla{"Tfconceptos", "CConcepto",   "CONC_COD", "OFI", false,
                           "OF2",         con_categoria, en_uso,     sigue, "1"};
        // Un centro con movimiento no se va con su proyecto; con otro código, sus líneas lo siguen.
        const QStringList con_centro{
            kEncabezado,
            QString(
                "insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod, proy_cod, "
                "cent_cod, code_debito, code_credito) values (900, 1, '413505', '0002', '0001', "
                "100, 0)")
                .arg(s)};
        casos << EnRejilla{
            "Tfcentros",
            "CProyectos",
            "PROY_COD",
            "0002",
            true,
            "",
            con_centro,
            relacion("Proyectos", s.isEmpty() ? "los comprobantes" : "los comprobantes NIIF"),
            "select count(*) from centros where proy_cod = '0002'",
            "2"};
        casos << EnRejilla{"Tfcentros",
                           "CProyectos",
                           "PROY_COD",
                           "0002",
                           false,
                           "0008",
                           con_centro,
                           "",
                           QString("select proy_cod || cent_cod from comprobante_detalle%1").arg(s),
                           "00080001"};
    }
    return casos;
}

QVector<EnRejilla> tipos_y_lugares_en_rejillas() {
    QVector<EnRejilla> casos;
    casos << EnRejilla{"Tftipodoc",
                       "CTipodoc",
                       "TICO_COD",
                       "CG",
                       false,
                       "CX",
                       {kEncabezado},
                       "El tipo CG tiene comprobantes registrados: no se puede cambiar su código.",
                       "select count(*) from tipo_comprobante where tico_cod = 'CG'",
                       "1"};
    casos << EnRejilla{"Tftipodoc",
                       "CPrefijos",
                       "PRCO_PREF",
                       "0001",
                       true,
                       "",
                       {kEncabezado},
                       "El prefijo 0001 del tipo CG tiene comprobantes registrados: no se puede "
                       "borrar ni cambiar.",
                       "select count(*) from prefijos_conta where tico_cod = 'CG'",
                       "1"};
    for (bool borra : {true, false}) {
        casos << EnRejilla{"Tfciudades",
                           "CCiudades",
                           "CIUD_COD",
                           "05001",
                           borra,
                           "05999",
                           {"update terceros set ciud_cod = '05001' where terc_nit = '900123456'"},
                           "La ciudad 05001 es la del tercero 900123456: no se puede borrar ni "
                           "cambiar de código.",
                           "select count(*) from ciudades where ciud_cod = '05001'",
                           "1"};
        casos << EnRejilla{"Tfpaises",
                           "CPaises",
                           "PAIS_ID",
                           "249",
                           borra,
                           "998",
                           {"update terceros set pais_id = '249' where terc_nit = '900123456'"},
                           "El país 249 es el del tercero 900123456: no se puede borrar ni cambiar "
                           "de código.",
                           "select count(*) from paises where pais_id = '249'",
                           "1"};
    }
    return casos;
}

QVector<EnRejilla> normas_en_rejillas() {
    QVector<EnRejilla> casos;
    const QStringList con_norma{
        "insert into normas_niif (nnif_id, nnif_nombre) values (13, 'Sección 13')",
        "insert into normas_niif_detalle (nnif_id, nnid_item) values (13, '4')",
        "insert into cuentas_niif_norma (cuen_cod, nnif_id, nnid_item) values ('143505', 13, '4')"};
    casos << EnRejilla{"Tfnormas",
                       "CNorma",
                       "NNIF_ID",
                       "13",
                       true,
                       "",
                       con_norma,
                       relacion("Norma", "las normas de las cuentas NIIF"),
                       "select count(*) from normas_niif_detalle where nnif_id = 13",
                       "1"};
    casos << EnRejilla{"Tfnormas", "CNorma", "NNIF_ID",
                       "13",       false,    "14",
                       con_norma,  "",       "select nnif_id || nnid_item from cuentas_niif_norma",
                       "144"};
    return casos;
}

} // namespace

class PruebaBorrados : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
    }

    void lo_que_se_usa_no_se_borra_desde_su_lista_y_se_dice_donde() {
        for (const EnLista& caso : cuentas_en_listas() + terceros_y_articulos_en_listas()) {
            const QByteArray cual = QByteArray(caso.pantalla) + ' ' + caso.codigo + ": " +
                                    caso.dice.toUtf8() + " / " + caso.uso.join("; ").toUtf8();
            SesionGui s;
            s.base.ejecute({"update cuentas set cuen_eqniif = null"});
            s.base.ejecute(caso.uso);
            Pantalla* p = pantallas().abrir(caso.pantalla, AbreLista{.modo_mantenimiento = true});
            QVERIFY2(p, cual);
            QVERIFY2(componente<ConjuntoDatos>(p, caso.conjunto).Locate(caso.llave, {caso.codigo}),
                     cual);
            Interlocutor i;
            i.espere(caso.pregunta, "Sí");
            i.espere(caso.dice);
            con_foco();
            componente<Rejilla>(p, "DBGridEh1").setFocus();
            oprima(Qt::Key_F3);
            QVERIFY2(i.conforme(), qPrintable(QString::fromUtf8(cual) + " -> " + i.queja()));
            QCOMPARE(s.dato(QString("select count(*) from %1 where %2 = %3")
                                .arg(caso.tabla, caso.llave, QuotedStr(caso.codigo))),
                     QString("1"));
        }
    }

    void lo_que_nadie_usa_se_borra() {
        for (const auto& [pantalla, conjunto, llave, codigo, tabla] :
             {std::tuple{"Tfcuentas", "CCuentas", "CUEN_COD", "519530", "cuentas"},
              {"Tfcuentasniif", "CCuentas", "CUEN_COD", "519530", "cuentas_niif"},
              {"Tfterceros", "CTerceros", "TERC_NIT", "800456789", "terceros"},
              {"Tfarticulos", "CArticulos", "ARTI_COD", "MART01", "articulo"}}) {
            SesionGui s;
            s.base.ejecute({"update cuentas set cuen_eqniif = null"});
            Pantalla* p = pantallas().abrir(pantalla, AbreLista{.modo_mantenimiento = true});
            QVERIFY(componente<ConjuntoDatos>(p, conjunto).Locate(llave, {codigo}));
            Interlocutor i;
            i.espere_comienzo("Desea borrar definitivamente", "Sí");
            oprima(Qt::Key_F3);
            QVERIFY2(i.conforme(), qPrintable(pantalla + (": " + i.queja())));
            QCOMPARE(s.dato(QString("select count(*) from %1 where %2 = %3")
                                .arg(tabla, llave, QuotedStr(codigo))),
                     QString("0"));
        }
    }

    void los_maestros_de_rejilla_se_rehusan_o_arrastran_a_quien_los_nombra() {
        for (const EnRejilla& caso : categorias_y_centros_en_rejillas() +
                                         tipos_y_lugares_en_rejillas() + normas_en_rejillas()) {
            const QByteArray cual = QByteArray(caso.pantalla) + ' ' + caso.codigo +
                                    (caso.borra ? " borra: " : " cambia: ") + caso.dice.toUtf8();
            SesionGui s;
            s.base.ejecute(caso.uso);
            Pantalla* p = pantallas().abrir(caso.pantalla);
            QVERIFY2(p, cual);
            auto& c = componente<ConjuntoDatos>(p, caso.conjunto);
            QVERIFY2(c.Locate(caso.llave, {caso.codigo}), cual);
            Interlocutor i;
            if (caso.borra) {
                i.espere("Desea borrar el registro?", "Sí");
                const bool maestro = !c.maestra();
                componente<NavegadorDatos>(p, maestro ? "DBNavigator1" : "DBNavigator2")
                    .boton(nbDelete)
                    ->click();
            } else {
                c.Edit();
                c.FieldByName(caso.llave) = caso.nuevo;
                c.Post();
            }
            if (!caso.dice.isEmpty())
                i.espere(caso.dice);
            con_foco();
            oprima(Qt::Key_F2);
            QVERIFY2(i.conforme(), qPrintable(QString::fromUtf8(cual) + " -> " + i.queja()));
            QCOMPARE(s.dato(caso.queda), caso.vale);
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
        se_dice("El artículo MART01 está en el comprobante CG 0001 000900: no se puede borrar ni "
                "cambiar de código.",
                [&] { oprima(Qt::Key_F2); });
        QCOMPARE(s.dato("select count(*) from articulo where arti_cod = 'MART01'"), QString("1"));
        QCOMPARE(c.FieldByName("ARTI_COD").texto(), QString("OTRO")); // lo digitado no se pierde
    }
};

QTEST_MAIN(PruebaBorrados)
#include "prueba_borrados.moc"
