// Auxiliares por cuenta, tercero y centro: lo impreso contra las líneas mismas.
#include "auxiliar_de_prueba.h"
#include "reports/registro.h"
#include "reports/tfrngauxiliarcta.h"

namespace {

/// Una fila por clave con movimiento en las fechas: clave, débitos, créditos y saldo final.
QStringList totales_por_fuera(SesionGui& s, int libro, const Cajas& r, const QString& columnas,
                              bool con_tercero) {
    const auto c = s.base.base().abra(
        QString(
            "select %1, sum(d), sum(c), sum(inicial + d - c) from ("
            "select cuen_cod, coalesce(d.terc_nit, '') nit, coalesce(proy_cod, '') proy, "
            "coalesce(cent_cod, '') cent, iif(enco_fecha >= %3, code_debito, 0) d, iif(enco_fecha "
            ">= %3, code_credito, 0) c, iif(enco_fecha < %3, code_debito - code_credito, 0) "
            "inicial, iif(enco_fecha >= %3, 1, 0) hay from comprobante_detalle%2 d join "
            "comprobante_encabezado e on e.enco_consec = d.enco_consec where enco_fecha <= %4 "
            "union all select cuen_cod, coalesce(terc_nit, ''), coalesce(proy_cod, ''), "
            "coalesce(cent_cod, ''), 0, 0, sain_debito - sain_credito, 0 from saldos_iniciales%2) "
            "where %5 and %6 and %7 and %8 group by %1 having sum(hay) > 0 order by %1")
            .arg(columnas, sufijo(libro), QuotedStr(r["EFecIni"]), QuotedStr(r["EFecFin"]),
                 entre_cuentas("cuen_cod", r["EDesde"], r["EHasta"]),
                 entre("proy", r["ProyIni"], r["ProyFin"]),
                 entre("cent", r["CentIni"], r["CentFin"]),
                 con_tercero ? entre("nit", r["TerIni"], r["TerFin"]) : QString("1 = 1")));
    const int claves = int(columnas.count(',')) + 1;
    QStringList filas;
    while (c->siguiente()) {
        QStringList fila;
        for (int i = 0; i < claves; ++i)
            fila << c->valor(i).texto().trimmed();
        for (int i = claves; i < claves + 3; ++i)
            fila << c->valor(i).moneda().formateada();
        filas << fila.join(' ');
    }
    return filas;
}

/// Débitos y créditos de todas las claves.
QString gran_total(const QStringList& filas) {
    Moneda debitos, creditos;
    for (const QString& f : filas) {
        const QStringList n = importes(f).split(' ');
        debitos += Moneda::de_texto(QString(n[0]).remove(','));
        creditos += Moneda::de_texto(QString(n[1]).remove(','));
    }
    return debitos.formateada() + ' ' + creditos.formateada();
}

QStringList solo_importes(const QStringList& renglones) {
    QStringList lista;
    for (const QString& r : renglones)
        lista << importes(r);
    return lista;
}

QVector<Cajas> rangos(int cuantos) {
    QRandomGenerator azar = azar_de_prueba(2018);
    const QVector<QStringList> cuentas{
        {"0", "ZZ"}, {"11", "13"}, {"1305", "1305"}, {"2", "4"}, {"5", "ZZ"}},
        nits{{"0", "ZZ"}, {"8", "9"}, {"900123456", "900123456"}, {"", "ZZ"}},
        centros{{"", "zz"}, {"", "zz"}, {"0001", "0001"}, {"0002", "zz"}};
    QVector<Cajas> lista;
    for (int i = 0; i < cuantos; ++i) {
        QString desde = fecha_al_azar(azar), hasta = fecha_al_azar(azar);
        if (hasta < desde)
            std::swap(desde, hasta);
        const QStringList c = uno_de(azar, cuentas), n = uno_de(azar, nits),
                          p = uno_de(azar, centros), s = uno_de(azar, centros);
        lista << Cajas{{"EDesde", c[0]},   {"EHasta", c[1]},  {"TerIni", n[0]},  {"TerFin", n[1]},
                       {"ProyIni", p[0]},  {"ProyFin", p[1]}, {"CentIni", s[0]}, {"CentFin", s[1]},
                       {"EFecIni", desde}, {"EFecFin", hasta}};
    }
    return lista;
}

Cajas sin_terceros(Cajas r) {
    r.remove("TerIni");
    r.remove("TerFin");
    return r;
}

/// Si el auxiliar por cuenta muestra los centros.
void con_centros(SesionGui& s, const QString& si_o_no) {
    const QString clave = "AUXILIAR POR CUENTA MOSTRANDO CENTROS DE COSTOS";
    s.base.ejecute({"delete from configuracion where conf_propiedad = " + QuotedStr(clave),
                    "insert into configuracion (conf_modulo, conf_categoria, conf_propiedad, "
                    "conf_valor) values ('CONTABILIDAD', 'COMPROBANTES', " +
                        QuotedStr(clave) + ", " + QuotedStr(si_o_no) + ")"});
    s.dm.cargue_configuracion();
}

const Cajas kTodo{{"EFecIni", "20170101"}, {"EFecFin", "20181431"}};

} // namespace

class PruebaInformesAuxiliares : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }

    void cada_total_es_la_suma_de_las_lineas();
    void agrupado_por_centros_o_categoria_tambien_cuadra();
    void el_saldo_de_la_hoja_es_el_que_se_exporta();
    void la_consulta_es_la_convenida();
    void todas_las_opciones_encuentran_sus_bandas_y_su_titulo();
    void las_hojas_repiten_el_grupo_y_no_pierden_renglones();
    void todo_auxiliar_trae_el_saldo_a_la_hoja_que_sigue();
    void por_nombre_cada_tercero_de_una_cuenta_abre_y_cierra_una_vez();
    void de_una_sola_categoria_no_se_imprimen_saldos();
    void sin_movimiento_cada_centro_trae_su_saldo();
};

void PruebaInformesAuxiliares::cada_total_es_la_suma_de_las_lineas() {
    SesionConLibro s;
    int con_datos = 0;
    for (int libro : {0, 1})
        for (const Cajas& r : rangos(6)) {
            const QStringList niif = libro ? QStringList{"ckniif"} : QStringList();
            const auto revise = [&](const QString& clase, const QStringList& totales,
                                    const QStringList& esperados, const QString& texto) {
                QCOMPARE(solo_importes(totales), solo_importes(esperados));
                QCOMPARE(importes(renglones_con(texto, "Total del informe").value(0)),
                         gran_total(esperados));
                QCOMPARE(texto.contains("NIIF"), libro == 1);
                con_datos += int(esperados.size() > 1);
            };
            const QStringList por_cuenta = totales_por_fuera(s, libro, r, "cuen_cod", false);
            if (!por_cuenta.isEmpty()) {
                const QString texto = imprima("Tfrngauxiliarcta", sin_terceros(r), niif);
                revise("Tfrngauxiliarcta", renglones_con(texto, "Total \\d{6} "), por_cuenta,
                       texto);
            }
            const QStringList por_tercero = totales_por_fuera(s, libro, r, "cuen_cod, nit", true);
            if (!por_tercero.isEmpty()) {
                const QString texto = imprima("Tfrngauxiliarter", r, niif);
                revise("Tfrngauxiliarter", renglones_con(texto, "Total (\\d{8,9} \\S|\\(sin)"),
                       por_tercero, texto);
            }
            const QStringList por_centro =
                totales_por_fuera(s, libro, r, "cuen_cod, proy, cent", false);
            if (!por_centro.isEmpty()) {
                const QString texto =
                    imprima("Tfrngauxiliarcent", sin_terceros(r), niif + QStringList{"agrupater"});
                revise("Tfrngauxiliarcent", renglones_con(texto, "Total centro"), por_centro,
                       texto);
                QVERIFY(renglones_con(texto, "Total (\\d{8,9} \\S|\\(sin)").size() >=
                        por_centro.size());
            }
        }
    QVERIFY(con_datos > 15);
}

void PruebaInformesAuxiliares::agrupado_por_centros_o_categoria_tambien_cuadra() {
    SesionConLibro s;
    Cajas r = rangos(1)[0];
    r["EDesde"] = "0";
    r["EHasta"] = "ZZ";
    r["ProyIni"] = r["CentIni"] = "";
    r["ProyFin"] = r["CentFin"] = "zz";
    r["TerIni"] = "";
    r["TerFin"] = "ZZ";
    r["EFecIni"] = "20170615"; // a mitad de mes
    r["EFecFin"] = "20180331";
    // Cada cuenta empieza y termina, dentro de un centro, en el saldo que tiene en él.
    const QStringList por_centro = totales_por_fuera(s, 0, r, "proy, cent, cuen_cod", false);
    QString texto = imprima("Tfrngauxiliarcta", sin_terceros(r), {"Chcentro"});
    QCOMPARE(solo_importes(renglones_con(texto, "Total \\d{6} ")), solo_importes(por_centro));
    // Y el saldo del último movimiento ya es el final.
    const QStringList lineas = texto.split('\n');
    QString ultimo;
    for (const QString& l : lineas) {
        if (l.contains(QRegularExpression("^\\s*" + kDiaImpreso)))
            ultimo = importes(l).section(' ', -1);
        else if (l.contains(QRegularExpression("^\\s*Total \\d{6} ")))
            QCOMPARE(importes(l).section(' ', -1), ultimo);
    }
    // Con varios centros el saldo del tercero no es de ninguno: solo va el movimiento.
    texto = imprima("Tfrngauxiliarter", r, {"Chcentro"});
    QStringList esperados;
    for (const QString& f : totales_por_fuera(s, 0, r, "proy, cent, cuen_cod, nit", true))
        esperados << importes(f).section(' ', 0, 1);
    QCOMPARE(solo_importes(renglones_con(texto, "Total (\\d{8,9} \\S|\\(sin)")), esperados);
    QVERIFY(!renglones_con(texto, "\\d{8,9}-\\d +\\S").isEmpty()); // con su dígito
    // Con uno solo, también su saldo.
    r["ProyIni"] = r["ProyFin"] = "0001";
    r["CentIni"] = r["CentFin"] = "0002";
    texto = imprima("Tfrngauxiliarter", r, {"Chcentro"});
    QCOMPARE(solo_importes(renglones_con(texto, "Total (\\d{8,9} \\S|\\(sin)")),
             solo_importes(totales_por_fuera(s, 0, r, "cuen_cod, nit", true)));
    // Sin agrupar los terceros, los renglones de cada centro van por fecha.
    QString dia;
    for (const QString& l :
         renglones_con(imprima("Tfrngauxiliarcent", kTodo), "(" + kDiaImpreso + "|Total centro)")) {
        QVERIFY2(l.startsWith("Total") || l.left(10) >= dia, qPrintable(l));
        dia = l.startsWith("Total") ? QString() : l.left(10);
    }
    // Por categoría: las de cada cuenta suman la cuenta, y se puede pedir una sola.
    texto = imprima("Tfrngauxiliarcta", sin_terceros(r), {"CkCateg"});
    QCOMPARE(solo_importes(renglones_con(texto, "Total \\d{6} ")),
             solo_importes(totales_por_fuera(s, 0, r, "cuen_cod", false)));
    QCOMPARE(gran_total(renglones_con(texto, "Total categoría")),
             importes(renglones_con(texto, "Total del informe").value(0)));
    Cajas una = sin_terceros(r);
    una["TxCateg"] = "02";
    texto = imprima("Tfrngauxiliarcta", una, {"CkCateg"});
    QVERIFY(!renglones_con(texto, "Total categoría 02").isEmpty());
    QCOMPARE(renglones_con(texto, "Total categoría").size(),
             renglones_con(texto, "Total categoría 02").size());
}

void PruebaInformesAuxiliares::el_saldo_de_la_hoja_es_el_que_se_exporta() {
    SesionConLibro s;
    s.otorgue(116);
    for (const auto& [clase, titulo, archivo] :
         {std::tuple{"Tfrngauxiliarcta", "Saldo final", "RepAuxCta"},
          {"Tfrngauxiliarter", "Saldo", "RepAuxTerc"}}) {
        QStringList de_la_hoja;
        for (const QString& r : renglones_con(imprima(clase, kTodo), kDiaImpreso))
            de_la_hoja << importes(r).section(' ', -1);
        auto* f = s.abra<FormaRango>(clase);
        llene(f, kTodo);
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("aux.csv");
        Interlocutor i;
        espere_exportar(i, ruta, "Comma separated values (*.csv)", QString(archivo));
        componente<QPushButton>(f, "botonExportar").click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QFile csv(ruta);
        QVERIFY(csv.open(QIODevice::ReadOnly));
        QStringList filas = QString::fromUtf8(csv.readAll())
                                .remove(QChar(0xFEFF))
                                .split("\r\n", Qt::SkipEmptyParts);
        const qsizetype columna = filas.takeFirst().split(',').indexOf(titulo);
        QStringList del_archivo;
        for (QString& fila : filas) {
            fila.remove(QRegularExpression("\"[^\"]*\"")); // un nombre con comas
            del_archivo << Moneda::de_texto(fila.split(',').value(columna)).formateada();
        }
        QCOMPARE(de_la_hoja, del_archivo);
        QVERIFY(de_la_hoja.size() > 200);
    }
}

void PruebaInformesAuxiliares::la_consulta_es_la_convenida() {
    SesionConLibro s;
    QString orden;
    const auto consulta = [&](const char* clase, const QStringList& casillas) {
        imprima(clase, kTodo, casillas, &orden);
        return orden;
    };
    const QString ter = "('0', 'ZZ', '0', 'ZZ', '20170101', '20181431', '', 'zz', '', 'zz'";
    QCOMPARE(consulta("Tfrngauxiliarter", {}),
             "select * from auxiliar_tercero_desde_hasta" + ter + ",'N')");
    QCOMPARE(consulta("Tfrngauxiliarter", {"CkSinMov", "ckniif", "Chcentro"}),
             "select * from auxiliar_tercero_desde_hasta_n" + ter +
                 ",'S')ORDER BY PROYECTO,CENTRO,CUENTA,NIT,FECHA,PREFIJO,NUMERO");
    for (const QStringList& casillas : {QStringList{"cknombre"}, {"cknombre", "Chcentro"}})
        QCOMPARE(consulta("Tfrngauxiliarter", casillas),
                 "select * from auxiliar_tercero_desde_hasta" + ter +
                     ",'N')ORDER BY PROYECTO,CENTRO,CUENTA,NOMTERCERO,FECHA,PREFIJO,NUMERO");
    QCOMPARE(consulta("Tfrngauxiliarcent", {"ckniif"}),
             "select * from auxiliar_centro_desde_hasta_n('0', 'ZZ', '', 'zz', '', 'zz', "
             "'20170101', '20181431')");
    const QString cta = "select * from auxiliar_desde_hasta('0', 'ZZ', '20170101', '20181431', '', "
                        "'zz', '', 'zz', ";
    QCOMPARE(consulta("Tfrngauxiliarcta", {"CkCateg", "Chcentro", "CkSinMov"}),
             cta + "'S') order by CUENTA,CATEGORIA,FECHA,PREFIJO,NUMERO");
    QCOMPARE(consulta("Tfrngauxiliarcta", {"Chcentro"}),
             cta + "'N') order by PROYECTO,CENTRO,CUENTA,FECHA,PREFIJO,NUMERO");
    // Una categoría que no existe no trae filas, con su comilla y todo.
    auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    llene(f, kTodo);
    f->ckniif->setChecked(true);
    f->TxCateg->setText("x'y");
    f->CAuxiliar.AfterOpen = [&] { orden = f->CAuxiliar.CommandText; };
    dice(Qt::Key_F2, "No hay datos que cumplan con los rangos indicados.");
    QCOMPARE(orden,
             "select * from auxiliar_desde_hasta_niif('0', 'ZZ', '20170101', '20181431', '', 'zz', "
             "'', 'zz', 'N') where CATEGORIA = 'x''y' order by CUENTA,FECHA,PREFIJO,NUMERO");
}

void PruebaInformesAuxiliares::todas_las_opciones_encuentran_sus_bandas_y_su_titulo() {
    SesionGui s;
    s.base.base().ejecute("execute procedure compacte_saldos");
    QRandomGenerator azar = azar_de_prueba(5);
    comprobantes_al_azar(s.base.base(), azar, 1, 3);
    s.base.ejecute({"update terceros set terc_nom = rpad(terc_nom, 60, ' de la región andina')",
                    "update comprobante_detalle set code_concepto = rpad('Pago', 60, ' parcial')"});
    struct Caso {
        QString clase, titulo;
        QStringList casillas;
    };
    for (const char* centros : {"SI", "NO"}) {
        con_centros(s, centros);
        for (const Caso& c :
             {Caso{"Tfrngauxiliarcta", "Auxiliar por cuenta", {"CkCateg", "Chcentro"}},
              {"Tfrngauxiliarter", "Auxiliar por tercero", {"Chcentro", "cknombre"}},
              {"Tfrngauxiliarcent", "Auxiliar por centro", {"agrupater"}}})
            for (int elegidas = 0; elegidas < 2 << c.casillas.size(); ++elegidas) {
                QStringList casillas;
                for (int i = 0; i < c.casillas.size(); ++i)
                    if (elegidas & 2 << i)
                        casillas << c.casillas[i];
                if (elegidas & 1)
                    casillas << "ckniif";
                const QString texto = imprima(c.clase, kTodo, casillas);
                QVERIFY2(texto.contains(c.titulo + (elegidas & 1 ? " NIIF\n" : "\n")),
                         qPrintable(c.clase + ' ' + casillas.join(',') + '\n' + texto));
                QCOMPARE(texto.contains("Proyecto ") && !texto.contains("Saldo inicial "),
                         c.clase == "Tfrngauxiliarter" && casillas.contains("Chcentro"));
                QCOMPARE(texto.contains("Categoría"), casillas.contains("CkCateg"));
                QVERIFY2(!texto.contains("…"), qPrintable(texto));
                if (c.clase == "Tfrngauxiliarcta")
                    QCOMPARE(texto.contains("Concepto   ") && texto.contains(" Centro "),
                             casillas.contains("CkCateg") || QString(centros) == "SI" ||
                                 casillas.contains("Chcentro"));
            }
    }
}

void PruebaInformesAuxiliares::las_hojas_repiten_el_grupo_y_no_pierden_renglones() {
    SesionGui s;
    int id = 0, total = 0;
    Moneda suma;
    const Cajas caja{{"EDesde", "110505"}, {"EFecIni", "20170101"}, {"EFecFin", "20171231"}};
    for (int renglones : {1, 30, 5000}) {
        // Comprobantes de cien líneas, una por renglón del auxiliar.
        const int nuevos = renglones - total;
        for (int hechas = 0; hechas < nuevos; hechas += 100) {
            ComprobanteEnTablas c{++id, QString("%1").arg(id, 6, 10, QChar('0')), "20170315"};
            for (int item = 1; item <= qMin(100, nuevos - hechas); ++item) {
                const Moneda valor = Moneda::de_texto(QString("%1.25").arg(item));
                c.lineas.push_back(
                    {item, "110505", item % 3 ? valor : Moneda(), item % 3 ? Moneda() : valor});
                suma += item % 3 ? valor : -valor;
            }
            grabe(s.base.base(), c);
        }
        total = renglones;
        const QString texto = imprima("Tfrngauxiliarcta", caja);
        QCOMPARE(renglones_con(texto, kDiaImpreso).size(), renglones);
        QCOMPARE(importes(renglones_con(texto, "Total 110505").value(0)).section(' ', -1),
                 suma.formateada());
        const QStringList hojas = texto.split('\f', Qt::SkipEmptyParts);
        QCOMPARE(hojas.size() > 1, renglones > 30);
        for (int h = 0; h < hojas.size(); ++h) {
            QVERIFY(hojas[h].contains(QString("Página %1 de %2").arg(h + 1).arg(hojas.size())));
            QCOMPARE(renglones_con(hojas[h], "Fecha ").size(), 1);
            QCOMPARE(renglones_con(hojas[h], "110505 .*").size(), 1);
            QCOMPARE(hojas[h].contains("(continuación)"), h > 0);
            // Una hoja recibe el saldo con que terminó la anterior.
            const auto saldo = [](const QString& renglon) {
                return importes(renglon).section(' ', -1);
            };
            QCOMPARE(saldo(renglones_con(hojas[h], "110505 .*Saldo que viene").value(0)),
                     h ? saldo(renglones_con(hojas[h - 1], kDiaImpreso).last()) : QString());
            QVERIFY(hojas[h].contains("Elaborado por:"));
        }
    }
}

void PruebaInformesAuxiliares::todo_auxiliar_trae_el_saldo_a_la_hoja_que_sigue() {
    SesionGui s;
    s.configure("NIT COMPAÑIA", "901555123-4");
    // El primer tercero cabe en la primera hoja; el segundo pasa a otras, con el saldo de los dos.
    constexpr int kPrimero = 4, kSegundo = 130;
    for (const char* libro : {"", "_niif"})
        s.base.ejecute(
            {QString(
                 "execute block as declare i integer = 0; begin %1 while (i < %2) do begin i = i + "
                 "1; "
                 "insert into comprobante_detalle%3 (enco_consec, code_item, cuen_cod, terc_nit, "
                 "proy_cod, cent_cod, conc_cod, code_debito, code_credito) values (1, :i, "
                 "'510506', "
                 "iif(:i <= %4, '52345678', '900123456'), '0001', '0001', '02', iif(mod(:i, 3) > "
                 "0, :i "
                 "+ 0.25, 0), iif(mod(:i, 3) > 0, 0, :i)); end end")
                 .arg(*libro ? ""
                             : "insert into comprobante_encabezado (enco_consec, "
                               "tico_cod, prco_pref, enco_numero, enco_fecha, "
                               "enco_usuario) values (1, 'CG', '0001', '000001', "
                               "'20170315', 'ADMIN');")
                 .arg(kPrimero + kSegundo)
                 .arg(libro)
                 .arg(kPrimero)});
    const struct {
        QString clase;
        QStringList casillas;
        QString centros = "SI";
        bool de_la_cuenta = false; ///< anuncia dos saldos: el de la cuenta y el del tercero
    } casos[] = {{"Tfrngauxiliarcta", {}},
                 {"Tfrngauxiliarcta", {}, "NO"},
                 {"Tfrngauxiliarcta", {"CkCateg"}},
                 {"Tfrngauxiliarcta", {"Chcentro"}},
                 {"Tfrngauxiliarter", {}, "SI", true},
                 {"Tfrngauxiliarcent", {}}};
    const auto ultimo = [](const QString& renglon) { return importes(renglon).section(' ', -1); };
    for (const bool niif : {false, true})
        for (const auto& c : casos) {
            con_centros(s, c.centros);
            Cajas caja = kTodo;
            caja["EDesde"] = "510506";
            const QString texto =
                imprima(c.clase, caja, c.casillas + (niif ? QStringList{"ckniif"} : QStringList()));
            const QString quien = c.clase + ' ' + c.casillas.join(',') + '\n' + texto;
            const QStringList hojas = texto.split('\f', Qt::SkipEmptyParts);
            QVERIFY2(hojas.size() > 2, qPrintable(quien));
            const QString primero = ultimo(renglones_con(hojas[0], "Total 52345678").value(0));
            QCOMPARE(primero.isEmpty(), !c.de_la_cuenta);
            const Moneda del_primero =
                c.de_la_cuenta ? Moneda::de_texto(QString(primero).remove(',')) : Moneda();
            for (int h = 0; h < hojas.size(); ++h) {
                QVERIFY2(hojas[h].contains("NIT 901555123-4") &&
                             hojas[h].contains(niif ? "Libro NIIF" : "Libro 2649"),
                         qPrintable(quien));
                if (!h || renglones_con(hojas[h], kDiaImpreso).isEmpty())
                    continue;
                const QString antes = ultimo(renglones_con(hojas[h - 1], kDiaImpreso).last());
                QStringList vienen;
                for (const QString& r : hojas[h].split('\n'))
                    if (r.contains("Saldo que viene"))
                        vienen << ultimo(r);
                QStringList esperados{antes};
                if (c.de_la_cuenta)
                    esperados.prepend(
                        (Moneda::de_texto(QString(antes).remove(',')) + del_primero).formateada());
                QVERIFY2(vienen == esperados, qPrintable(vienen.join('|') + " y no " +
                                                         esperados.join('|') + ": " + quien));
            }
        }
}

void PruebaInformesAuxiliares::por_nombre_cada_tercero_de_una_cuenta_abre_y_cierra_una_vez() {
    SesionConLibro s;
    // Dos que se llaman igual siguen siendo dos.
    s.base.ejecute({"update terceros set terc_nom = 'Homónimo Ltda.' where terc_nit in "
                    "('900123456', '52345678')"});
    const Cajas r{{"EDesde", "0"},        {"EHasta", "ZZ"},  {"TerIni", ""},
                  {"TerFin", "ZZ"},       {"ProyIni", ""},   {"ProyFin", "zz"},
                  {"CentIni", ""},        {"CentFin", "zz"}, {"EFecIni", "20170615"},
                  {"EFecFin", "20180331"}};
    const auto ordenados = [](QStringList lista) {
        lista.sort();
        return lista;
    };
    const QString tercero = "Total (\\d{8,9} \\S|\\(sin)";
    for (int libro : {0, 1}) {
        const QStringList niif = libro ? QStringList{"ckniif"} : QStringList();
        QString texto = imprima("Tfrngauxiliarter", r, niif + QStringList{"cknombre"});
        const QStringList por_tercero = totales_por_fuera(s, libro, r, "cuen_cod, nit", true);
        QCOMPARE(ordenados(solo_importes(renglones_con(texto, tercero))),
                 ordenados(solo_importes(por_tercero)));
        QCOMPARE(solo_importes(renglones_con(texto, "Total \\d{6} ")),
                 solo_importes(totales_por_fuera(s, libro, r, "cuen_cod", true)));
        // El saldo del último movimiento de cada tercero es el de su total.
        QString ultimo;
        for (const QString& l : texto.split('\n'))
            if (l.contains(QRegularExpression("^\\s*" + kDiaImpreso)))
                ultimo = importes(l).section(' ', -1);
            else if (l.contains(QRegularExpression("^\\s*" + tercero)))
                QCOMPARE(importes(l).section(' ', -1), ultimo);
        texto = imprima("Tfrngauxiliarter", r, niif + QStringList{"cknombre", "Chcentro"});
        QStringList por_centro;
        for (const QString& f : totales_por_fuera(s, libro, r, "proy, cent, cuen_cod, nit", true))
            por_centro << importes(f).section(' ', 0, 1);
        QCOMPARE(ordenados(solo_importes(renglones_con(texto, tercero))), ordenados(por_centro));
    }
}

void PruebaInformesAuxiliares::de_una_sola_categoria_no_se_imprimen_saldos() {
    SesionConLibro s;
    for (const QStringList& casillas : {QStringList(), {"CkCateg"}, {"Chcentro"}}) {
        Cajas r = kTodo;
        r["TxCateg"] = "02";
        const QString texto = imprima("Tfrngauxiliarcta", r, casillas);
        QVERIFY2(!texto.contains("Saldo"), qPrintable(texto.left(3000)));
        QVERIFY2(texto.contains("sólo la categoría 02"), qPrintable(texto.left(1000)));
        // El movimiento sí es el de la categoría.
        const auto c = s.base.base().abra("select sum(code_debito), sum(code_credito) from "
                                          "comprobante_detalle where conc_cod = '02'");
        QVERIFY(c->siguiente());
        QCOMPARE(importes(renglones_con(texto, "Total del informe").value(0)),
                 c->valor(0).moneda().formateada() + ' ' + c->valor(1).moneda().formateada());
        const QStringList totales = renglones_con(texto, "Total \\d{6}");
        QVERIFY(totales.size() > 5);
        for (const QString& t : totales)
            QCOMPARE(importes(t).split(' ').size(), 2);
    }
}

void PruebaInformesAuxiliares::sin_movimiento_cada_centro_trae_su_saldo() {
    SesionGui s;
    // Dos centros con saldo; en marzo solo se mueve uno, y la 111005 no se mueve en ninguno.
    grabe(s.base.base(), 1, "20170115",
          {{1, "510506", 300, 0, "900123456", "0001", "0001"},
           {2, "510506", 500, 0, "900123456", "0002", "0001"},
           {3, "111005", 40, 0, "", "0001", "0001"},
           {4, "310505", 0, 840}});
    grabe(s.base.base(), 2, "20170310",
          {{1, "510506", 7, 0, "900123456", "0001", "0001"}, {2, "310505", 0, 7}});
    const Cajas marzo{{"EFecIni", "20170301"}, {"EFecFin", "20170331"}};
    QString texto = imprima("Tfrngauxiliarcta", marzo, {"CkSinMov", "Chcentro"});
    const auto de_centro = [&](const QString& centro) {
        // De un centro al siguiente, con los espacios que ponga la hoja.
        static const QRegularExpression anuncio("\n *Proyecto +"), espacios(" +");
        QString aqui;
        for (QString grupo : texto.split(anuncio))
            if (grupo.replace(espacios, " ").startsWith(centro))
                aqui = grupo;
        return importes(renglones_con(aqui, "Total 510506").value(0));
    };
    QCOMPARE(de_centro("0001 Centro 0001"), "7.00 0.00 307.00");
    QCOMPARE(de_centro("0002 Centro 0001"), "0.00 0.00 500.00");
    QCOMPARE(de_centro("(ninguno)"), QString());
    QCOMPARE(importes(renglones_con(texto, "Total 111005").join(' ')), "0.00 0.00 40.00");
    // Sin agrupar, cada cuenta sale una vez con el saldo de todos sus centros.
    texto = imprima("Tfrngauxiliarcta", marzo, {"CkSinMov"});
    QCOMPARE(importes(renglones_con(texto, "Total 510506").join(' ')), "7.00 0.00 807.00");
    QCOMPARE(importes(renglones_con(texto, "Total 111005").join(' ')), "0.00 0.00 40.00");
    texto = imprima("Tfrngauxiliarcta", marzo, {"CkSinMov", "CkCateg"});
    QCOMPARE(texto.section("510506", 1, 1).count("Categoría"), 1);
}

QTEST_MAIN(PruebaInformesAuxiliares)
#include "prueba_informes_auxiliares.moc"
