// Estados de dos compañías sumadas: cada cuenta de la primera con la suya de la segunda, y lo que
// solo tiene la segunda, dicho en la barra.
#include "apoyo/servidor_prueba.h"
#include "apoyo_gui/fotos.h"
#include "ledger/libro_al_azar.h"
#include "reports/informe_de_prueba.h"
#include "reports/registro.h"
#include "reports/registro_definibles.h"
#include "reports/tfrngbalanceconsol.h"
#include "reports/tfrngresulconsol.h"
#include "reports/tfrngresulgeneral.h"
#include "tax/cierre_de_prueba.h"
#include "toolkit/lector_xls.h"

namespace {

/// Las que se suman de una compañía a la otra.
const QStringList kColumnas{"INICIAL", "DEBITOS",   "CREDITOS", "FINAL",   "SCLASE",
                            "SGRUPO",  "SSUBGRUPO", "SCUENTA",  "MOVIMIEN"};

/// Lo que la barra debe decir de las cuentas que solo tiene la segunda.
QString lo_omitido(const QMap<QString, QStringList>& a, const QMap<QString, QStringList>& b) {
    const qsizetype final = kColumnas.indexOf("FINAL");
    QStringList solas;
    for (const QString& codigo : b.keys())
        if (!a.contains(codigo))
            solas << codigo;
    int cuentas = 0;
    Moneda debito, credito;
    for (const QString& codigo : solas) {
        const bool mayor = std::any_of(solas.begin(), solas.end(), [&](const QString& otra) {
            return otra != codigo && otra.startsWith(codigo);
        });
        const Moneda saldo = Moneda::de_texto(b[codigo][final]);
        cuentas += !mayor;
        if (!mayor)
            (saldo.negativa() ? credito : debito) += saldo.absoluta();
    }
    return QString("%1 que solo movió la compañía 002, con saldos por %2 al débito y %3 al "
                   "crédito.")
        .arg(cuentas == 1 ? QString("una cuenta") : QString("%1 cuentas").arg(cuentas))
        .arg(debito.formateada(), credito.formateada());
}

QStringList sumadas(const QStringList& a, const QStringList& b) {
    QStringList r;
    for (qsizetype i = 0; i < a.size(); ++i)
        r << (Moneda::de_texto(a[i]) + (b.isEmpty() ? Moneda() : Moneda::de_texto(b[i]))).texto();
    return r;
}

/// La sesión es de la 001; la 002 es otra copia de la plantilla, con otro libro.
struct DosCompanias : SesionGui {
    DosCompanias() {
        registre_pantallas_definibles();
        dm.barra(&barra);
        const QString ruta = base.ubicacion().base_compania("002");
        QDir().mkpath(QFileInfo(ruta).path());
        if (!QFile::copy(QDir(plantilla_de_bases()).filePath("datos/001/quorvex.fdb"), ruta))
            qFatal("no se pudo copiar la plantilla");
        ParametrosConexion p = base.parametros();
        p.base = ruta;
        segunda.conectar(p);
        base.general().ejecute("update or insert into compania (comp_cod, com_nombre) values "
                               "('002', 'La segunda') matching (comp_cod)");
    }
    ~DosCompanias() { dm.barra(nullptr); }

    template <class T> T* pantalla(const char* nombre, const char* tipo) {
        auto* p = abra<T>(nombre, AbreInforme{tipo});
        p->CodCia1->setText("002");
        oprima_en(p->CodCia1, Qt::Key_Tab);
        return p;
    }
    /// La fila de esa cuenta en el libro exportado: sus celdas por título.
    QMap<QString, CeldaLeida> exporte(FormaRango* f, const QString& cuenta) {
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("consolidado.xls");
        Interlocutor i;
        espere_exportar(i, ruta, "Microsoft Excel Workbook (*.xls)");
        componente<QPushButton>(f, "botonExportar").click();
        const LectorXls libro(ruta);
        QMap<QString, CeldaLeida> celdas;
        for (int fila = 1; !libro.hojas.isEmpty() && fila < libro.hojas[0].filas_declaradas; ++fila)
            for (int c = 0; libro.hojas[0].valor(fila, 0) == cuenta && c < 20; ++c)
                celdas[libro.hojas[0].valor(0, c).toString()] = libro.hojas[0].celdas[{fila, c}];
        return celdas;
    }
    /// Filas de una compañía por código, con los argumentos del informe.
    QMap<QString, QStringList> filas(Conexion& c, const QString& sql) {
        QMap<QString, QStringList> por_codigo;
        const auto cursor = c.abra(sql);
        while (cursor->siguiente())
            for (int c = 1; c <= kColumnas.size(); ++c)
                por_codigo[cursor->valor(0).texto()] << cursor->valor(c).texto();
        return por_codigo;
    }

    /// Imprime la forma y compara cada fila con la suma de las dos, y la barra con lo omitido.
    template <class Filas>
    void compruebe(const char* forma, const char* tipo, Filas filas_de, const QString& donde) {
        auto* p = pantalla<FormaConsolidado>(forma, tipo);
        QMap<QString, QStringList> copia;
        Interlocutor i;
        i.espere_modal("OpcionesImpresion", [&](QWidget* w) {
            copia = filas_de(p); // las hojas ya están compuestas
            w->findChild<QPushButton*>("cancelar")->click();
        });
        oprima(Qt::Key_F2);
        const QString sql = QString("select codigo, %1 from balance_mes('%2', %3, 'N', 'N', 'N', "
                                    "'N') where %4")
                                .arg(kColumnas.join(", "), cnt.ano_actual)
                                .arg(cnt.periodo_actual + 1)
                                .arg(donde);
        const auto a = filas(dm.Quorvex, sql), b = filas(segunda, sql);
        QVERIFY(!a.isEmpty());
        QCOMPARE(copia.keys(), a.keys());
        for (const QString& codigo : a.keys())
            QCOMPARE(copia[codigo], sumadas(a[codigo], b[codigo]));
        if (const QString falta = lo_omitido(a, b); !falta.startsWith("0 "))
            QVERIFY2(barra.text().contains(falta), qPrintable(barra.text() + falta));
    }

    Conexion segunda;
    AvisosBarra barra;
};

/// Mira las filas cuando ya están sumadas.
template <class Forma> struct Visto : Forma {
    QMap<QString, QStringList> filas;
    void despues_de_abrir() override {
        Forma::despues_de_abrir();
        ConjuntoDatos& c = this->CAuxiliar;
        for (c.First(); !c.Eof(); c.Next()) {
            QStringList fila;
            for (const QString& columna : kColumnas)
                fila << c.FieldByName(columna).texto();
            filas[c.FieldByName("CODIGO").texto()] = fila;
        }
        c.First();
    }
};

QString renglon_con(const QString& texto, const QString& comienzo) {
    for (const QString& r : texto.split('\n'))
        if (r.simplified().startsWith(comienzo))
            return r.simplified();
    return {};
}

} // namespace

class PruebaConsolidados : public QObject {
    Q_OBJECT
private slots:
    void dos_companias_al_azar_suman_lo_de_las_dos_menos_lo_omitido() {
        QRandomGenerator azar = azar_de_prueba(2016);
        DosCompanias s;
        comprobantes_al_azar(s.base.base(), azar, 1, 60);
        comprobantes_al_azar(s.segunda, azar, 1, 60);
        pantallas().registre("Tfrngbalanceconsol", [] { return new Visto<Tfrngbalanceconsol>; });
        pantallas().registre("Tfrngresulconsol", [] { return new Visto<Tfrngresulconsol>; });
        // Cuentas que solo tiene la segunda: un grupo entero, y una bajo un grupo que las dos usan.
        for (const char* c : {"12", "1205", "120505"})
            s.segunda.ejecute(QString("insert into cuentas (cuen_cod, cuen_nom) values ('%1', "
                                      "'Acciones')")
                                  .arg(c));
        s.segunda.ejecute("insert into cuentas (cuen_cod, cuen_nom) values ('111095', 'Otros')");
        grabe(s.segunda, 900, "20180115",
              {{1, "120505", Moneda(700), Moneda()},
               {2, "111095", Moneda(), Moneda(200)},
               {3, "110505", Moneda(), Moneda(500)}});
        for (int vez = 0; vez < 4; ++vez) {
            s.cnt.ano_actual = "2018";
            s.cnt.periodo_actual = azar.bounded(13);
            s.compruebe(
                "Tfrngbalanceconsol", "P",
                [](auto* p) { return static_cast<Visto<Tfrngbalanceconsol>*>(p)->filas; },
                "nivel <= 5");
            s.compruebe(
                "Tfrngresulconsol", "D",
                [](auto* p) { return static_cast<Visto<Tfrngresulconsol>*>(p)->filas; },
                "codigo >= '4' and codigo < '8' and nivel <= 5");
        }
    }

    void el_general_solo_trae_balance_y_las_cuentas_sin_movimiento_salen_si_se_piden() {
        DosCompanias s;
        s.cnt.periodo_actual = 0;
        for (Conexion* c : {&s.base.base(), &s.segunda})
            grabe(*c, 1, "20170105",
                  {{1, "110505", Moneda(10), Moneda()}, {2, "310505", Moneda(), Moneda(10)}});
        auto* p = s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", "G");
        llene(p, "EDesde", "41");
        dice(Qt::Key_F2, "No hay datos que cumplan con los rangos indicados.");
        QVERIFY(!escritorio()->abierta("Tfrngbalanceconsol"));
        QString texto = informe_como_texto(
            s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", "G"), Qt::Key_F2);
        QVERIFY(!renglon_con(texto, "1105").isEmpty() && renglon_con(texto, "110505").isEmpty());
        QVERIFY(renglon_con(texto, "1305").isEmpty());
        p = s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", "P");
        componente<QCheckBox>(p, "Cksinmov").click();
        texto = informe_como_texto(p, Qt::Key_F2);
        QVERIFY(renglon_con(texto, "130505").endsWith("0.00 0.00 0.00 0.00"));
        QVERIFY(renglon_con(texto, "110505").endsWith("0.00 20.00 0.00 20.00"));
    }

    void los_resultados_de_un_ano_cerrado_lo_dicen() {
        DosCompanias s;
        registre_pantallas_informes();
        for (Conexion* c : {&s.base.base(), &s.segunda}) {
            grabe(*c, 1, "20170605",
                  {{1, "110505", Moneda(900), Moneda()},
                   {2, "413505", Moneda(), Moneda(900), "900123456", "0002", "0001"}});
            cierre_anual(*c, "20171331");
        }
        const auto corra = [&](FormaRango* f, bool del_mes = false) {
            s.barra.texto({});
            f->findChild<QSpinBox*>("Nivel")->setValue(5);
            if (del_mes)
                componente<QCheckBox>(f, "ckMes").click();
            return informe_como_texto(f, Qt::Key_F2);
        };
        const auto detallado = [&](int periodo, bool del_mes = false) {
            s.cnt.periodo_actual = periodo;
            return corra(s.abra<Tfrngresulgeneral>("Tfrngresulgeneral", AbreInforme{"D"}), del_mes);
        };
        const auto consolidado = [&](int periodo) {
            s.cnt.periodo_actual = periodo;
            return corra(s.pantalla<Tfrngresulconsol>("Tfrngresulconsol", "D"));
        };
        detallado(12);
        QVERIFY2(s.barra.text().contains("El año 2017 ya tiene cierre: "),
                 qPrintable(s.barra.text()));
        consolidado(12);
        for (const char* compania : {"001", "002"})
            QVERIFY2(s.barra.text().contains(QString("ya tiene cierre en la compañía ") + compania),
                     qPrintable(s.barra.text()));
        // Diciembre todavía no está cerrado; del mes, el resultado sale sin el cierre.
        QVERIFY(detallado(11).contains("900.00"));
        QVERIFY(consolidado(11).contains("1,800.00"));
        detallado(12, true);
        QVERIFY2(!s.barra.text().contains("ya tiene cierre"), qPrintable(s.barra.text()));
        // Con otra fecha en su comprobante, el cierre es de ese mes.
        s.base.ejecute({"update comprobante_encabezado set enco_fecha = '20171231' where "
                        "enco_consec = (select enco_consec from cierre_anual)"});
        detallado(11);
        QVERIFY2(s.barra.text().contains("ya tiene cierre"), qPrintable(s.barra.text()));
        // Con terceros o centros el resultado va sin el cierre, y la sesión queda como estaba.
        const auto detallados = [] {
            QStringList textos;
            for (const char* clase : {"Tfrngresultadotercero", "Tfrngresultadocentro"})
                textos << informe_como_texto(pantallas().abrir(clase), Qt::Key_F2);
            return textos.join('\n');
        };
        const QString cerrado = detallados();
        QVERIFY(fdm()
                    .Quorvex
                    .consulte("select rdb$get_context('USER_SESSION', 'SIN_CIERRE') from "
                              "rdb$database")
                    .nulo());
        s.base.ejecute({"delete from cierre_anual"});
        QCOMPARE(cerrado, detallados());
    }

    void lo_omitido_se_cuenta_una_vez_y_con_su_saldo() {
        DosCompanias s;
        s.cnt.periodo_actual = 0;
        for (Conexion* c : {&s.base.base(), &s.segunda})
            grabe(*c, 1, "20170105",
                  {{1, "110505", Moneda(1000), Moneda()}, {2, "310505", Moneda(), Moneda(1000)}});
        grabe(s.segunda, 2, "20170106",
              {{1, "130505", Moneda(700), Moneda(), "900123456"},
               {2, "220505", Moneda(), Moneda(200), "800456789"},
               {3, "110505", Moneda(), Moneda(500)}});
        auto* p = s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", "P");
        QCOMPARE(p->NomCia1->text(), "La segunda");
        tome_foto(&s.ventana, "consolidado");
        const QString texto = informe_como_texto(p, Qt::Key_F2);
        QVERIFY2(texto.contains("Balance de Prueba Consolidado con La segunda") &&
                     texto.contains("Enero de 2017 · ") &&
                     texto.contains(" · sin 2 cuentas que solo movió la compañía 002") &&
                     texto.contains("Libro 2649"),
                 qPrintable(texto));
        QVERIFY2(renglon_con(texto, "110505").endsWith("0.00 2,000.00 500.00 1,500.00"),
                 qPrintable(renglon_con(texto, "110505")));
        QVERIFY(!texto.contains("130505"));
        // La clase 1 de las dos, con sus 700; la clase 2, que la primera no tiene, falta.
        QVERIFY2(renglon_con(texto, "Total").contains("0.00 2,700.00 2,500.00"),
                 qPrintable(renglon_con(texto, "Total")));
        // 13, 1305 y 130505 son la misma plata, y 2205 lo mismo.
        QCOMPARE(s.barra.text(), "Advertencia: Sin consolidar: 2 cuentas que solo movió la "
                                 "compañía 002, con saldos por "
                                 "700.00 al débito y 200.00 al crédito.");
        for (Conexion* c : {&s.base.base(), &s.segunda})
            grabe(*c, 3, "20170107",
                  {{1, "110505", Moneda(10), Moneda()},
                   {2, "413505", Moneda(), Moneda(10), "900123456", "0002", "0001"}});
        // Un nombre largo sale entero en los cinco, aunque no quepa en un renglón.
        const QString largo = "COMERCIALIZADORA INTERNACIONAL DE MADERAS DEL PACÍFICO S.A.S";
        QCOMPARE(largo.size(), 60);
        s.base.general().ejecute("update compania set com_nombre = '" + largo +
                                 "' where comp_cod = '002'");
        const auto con_nombre = [&](Pantalla* estado) {
            return informe_como_texto(estado, Qt::Key_F2)
                .simplified()
                .contains("Consolidado con " + largo);
        };
        for (const char* tipo : {"G", "D", "P"})
            QVERIFY2(con_nombre(s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", tipo)), tipo);
        for (const char* tipo : {"G", "D"})
            QVERIFY2(con_nombre(s.pantalla<Tfrngresulconsol>("Tfrngresulconsol", tipo)), tipo);
    }

    void sin_cuentas_en_comun_salen_las_de_la_primera_y_el_general_cuadra() {
        DosCompanias s;
        s.cnt.periodo_actual = 0;
        grabe(s.base.base(), 1, "20170105",
              {{1, "110505", Moneda(900), Moneda()},
               {2, "413505", Moneda(), Moneda(900), "900123456", "0002", "0001"}});
        grabe(s.segunda, 1, "20170105",
              {{1, "143505", Moneda(50), Moneda()},
               {2, "220505", Moneda(), Moneda(50), "800456789"}});
        QString texto = informe_como_texto(
            s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", "P"), Qt::Key_F2);
        QVERIFY(renglon_con(texto, "110505").endsWith("0.00 900.00 0.00 900.00"));
        QVERIFY(s.barra.text().contains("2 cuentas"));
        // Con algo en común, el balance general y el resultado son de las dos.
        grabe(s.segunda, 2, "20170106",
              {{1, "110505", Moneda(100), Moneda()},
               {2, "413505", Moneda(), Moneda(100), "900123456", "0002", "0001"}});
        texto =
            informe_como_texto(s.pantalla<Tfrngresulconsol>("Tfrngresulconsol", "G"), Qt::Key_F2);
        QCOMPARE(renglon_con(texto, "Utilidad (pérdida) del ejercicio"),
                 "Utilidad (pérdida) del ejercicio 1,000.00");
        QCOMPARE(renglon_con(texto, "Utilidad (pérdida) operacional"),
                 "Utilidad (pérdida) operacional 1,000.00");
        texto = informe_como_texto(s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", "G"),
                                   Qt::Key_F2);
        // La clase 1 está en las dos; el grupo 14 y la clase 2, solo en la segunda.
        QCOMPARE(renglon_con(texto, "Total activo"), "Total activo 1,050.00");
        QVERIFY(renglon_con(texto, "Resultado del ejercicio en curso").endsWith("1,000.00"));
        QVERIFY(s.barra.text().contains("2 cuentas"));
        // El libro exportado lleva lo mismo, con su código en texto, su importe y su sangría.
        for (const char* tipo : {"P", "G"}) {
            const auto fila =
                s.exporte(s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", tipo), "1105");
            QCOMPARE(fila["Código"].formato, "@");
            QCOMPARE(fila["Saldo final"].valor, QVariant(1000.0));
            QCOMPARE(fila["Nombre"].sangria, 2);
        }
        const auto fila = s.exporte(s.pantalla<Tfrngresulconsol>("Tfrngresulconsol", "G"), "4135");
        QCOMPARE(fila["Código"].formato, "@");
        QCOMPARE(fila["Nombre"].sangria, 2);
        QCOMPARE(qAbs(fila["Saldo final"].valor.toDouble()), 1000.0);
    }

    void en_un_servidor_la_segunda_se_abre_con_las_credenciales_de_la_sesion() {
        SesionGui s;
        registre_pantallas_definibles();
        AvisosBarra barra;
        s.dm.barra(&barra);
        const auto suelte = qScopeGuard([&] { s.dm.barra(nullptr); });
        ServidorDePrueba servidor;
        const auto administra = [&](QStringList orden) {
            qputenv("QUORVEX_CLAVE", ServidorDePrueba::kClave);
            orden << "--ubicacion" << servidor.ubicacion().texto();
            const ResultadoHerramienta r = administre(orden);
            if (r.codigo)
                QTest::qFail(qPrintable(r.errores + r.salida), __FILE__, __LINE__);
        };
        administra({"crear-compania", "--codigo", "002", "--nombre", "La segunda"});
        administra({"usuario-crear", "--codigo", "ADMIN", "--nombre", "Ana", "--administrador",
                    "--clave-usuario", ServidorDePrueba::kClave});
        s.dm.Quorvex.desconectar();
        s.dm.Quorvex.conectar(servidor.parametros());
        ParametrosConexion segunda = servidor.parametros("SYSDBA");
        segunda.base = servidor.ubicacion().base_compania("002");
        Conexion dos;
        dos.conectar(segunda);
        dos.ejecute("insert into tipo_comprobante (tico_cod, tico_nom) values ('CG', 'General')");
        dos.ejecute("insert into prefijos_conta (tico_cod, prco_pref, pref_numero) values ('CG', "
                    "'0001', '1')");
        for (const char* c : {"1", "11", "1105", "110505", "3", "31", "3105", "310505"})
            dos.ejecute(QString("update or insert into cuentas (cuen_cod, cuen_nom) values ('%1', "
                                "'Cuenta') matching (cuen_cod)")
                            .arg(c));
        for (Conexion* c : {&s.dm.Quorvex, &dos})
            grabe(*c, 1, "20170105",
                  {{1, "110505", Moneda(30), Moneda()}, {2, "310505", Moneda(), Moneda(30)}});
        dos.desconectar();
        s.cnt.periodo_actual = 0;
        auto* p = s.abra<Tfrngbalanceconsol>("Tfrngbalanceconsol", AbreInforme{"P"});
        p->CodCia1->setText("002");
        const QString texto = informe_como_texto(p, Qt::Key_F2);
        QVERIFY2(renglon_con(texto, "110505").endsWith("0.00 60.00 0.00 60.00"),
                 qPrintable(renglon_con(texto, "110505")));
        QVERIFY(barra.text().isEmpty() || !barra.text().contains("Sin consolidar"));
    }

    void la_segunda_de_la_demostracion_se_crea_en_un_servidor_y_se_consolida() {
        DosCompanias s;
        ServidorDePrueba servidor;
        qputenv("QUORVEX_CLAVE", ServidorDePrueba::kClave);
        const ResultadoHerramienta r =
            administre({"crear-demo", "--codigo", "002", "--lineas", "3600", "--clave-usuario",
                        ServidorDePrueba::kClave, "--ubicacion", servidor.ubicacion().texto()});
        QVERIFY2(r.codigo == 0, qPrintable(r.errores + r.salida));
        s.dm.Quorvex.desconectar();
        s.dm.Quorvex.conectar(servidor.parametros());
        grabe(s.dm.Quorvex, 1, "20170105",
              {{1, "110505", Moneda(30), Moneda()}, {2, "310505", Moneda(), Moneda(30)}});
        ParametrosConexion segunda = servidor.parametros("SYSDBA");
        segunda.base = servidor.ubicacion().base_compania("002");
        s.segunda.desconectar();
        s.segunda.conectar(segunda);
        s.cnt.periodo_actual = 11;
        pantallas().registre("Tfrngbalanceconsol", [] { return new Visto<Tfrngbalanceconsol>; });
        s.compruebe(
            "Tfrngbalanceconsol", "P",
            [](auto* p) { return static_cast<Visto<Tfrngbalanceconsol>*>(p)->filas; },
            "nivel <= 5");
        QVERIFY2(s.barra.text().contains("Sin consolidar"), qPrintable(s.barra.text()));
    }

    void lo_que_falta_o_no_existe_se_dice_y_la_pantalla_queda_abierta() {
        DosCompanias s;
        auto* p = s.abra<Tfrngbalanceconsol>("Tfrngbalanceconsol", AbreInforme{"G"});
        QCOMPARE(p->windowTitle(), "Balance General consolidado");
        QVERIFY(!componente<QSpinBox>(p, "Nivel").isEnabled());
        const auto diga = [&](const QString& codigo, const QString& mensaje) {
            p->CodCia1->setText(codigo);
            Interlocutor i;
            i.espere_comienzo(mensaje);
            oprima(Qt::Key_F2);
            QCOMPARE(escritorio()->activa(), p);
        };
        diga("", "Debe indicar el código de la compañia a consolidar.");
        diga("../", "Compañía no encontrada.");
        diga("001", "La compañía 001 es la de esta sesión: escoja la otra.");
        diga("009", ""); // su base no está: el mensaje es el de una conexión
        llene(p, "CodCia1", "777");
        dice(Qt::Key_Tab, "Compañía no encontrada.");
        QVERIFY(p->NomCia1->text().isEmpty());
        // F2 sin salir de la caja: el nombre es el del código que se acaba de digitar.
        s.base.general().ejecute("update or insert into compania (comp_cod, com_nombre) values "
                                 "('009', 'La que no está') matching (comp_cod)");
        llene(p, "CodCia1", "002");
        oprima(Qt::Key_Tab);
        QCOMPARE(p->NomCia1->text(), "La segunda");
        diga("009", "");
        QCOMPARE(p->NomCia1->text(), "La que no está");
    }

    void una_base_danada_se_dice_en_espanol_y_no_toca_la_de_la_sesion() {
        DosCompanias s;
        s.segunda.desconectar();
        QFile base(s.base.ubicacion().base_compania("002"));
        QVERIFY(base.open(QIODevice::ReadWrite));
        QVERIFY(base.resize(5000)); // cortada a media página
        base.close();
        auto* p = s.pantalla<Tfrngbalanceconsol>("Tfrngbalanceconsol", "P");
        Interlocutor i;
        QString dijo;
        i.espere_modal("dialogo", [&](QWidget* w) {
            dijo = qobject_cast<QMessageBox*>(w)->text();
            QTest::keyClick(w, Qt::Key_Escape);
        });
        oprima(Qt::Key_F2);
        QVERIFY2(dijo.contains("base"), qPrintable(dijo));
        for (const char* ajena : {"I/O", "file", "database"})
            QVERIFY2(!dijo.contains(ajena), qPrintable(dijo));
        QCOMPARE(escritorio()->activa(), p);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
    }
};

QTEST_MAIN(PruebaConsolidados)
#include "prueba_consolidados.moc"
