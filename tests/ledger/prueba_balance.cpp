// Balance de prueba: cifras, nivel, período, posición y entrada a las demás consultas.
#include "ledger/registro.h"
#include "ledger/tfauxiliar.h"
#include "ledger/tfbalanceprueba.h"
#include "libro_de_prueba.h"

namespace {
struct PaginaDePrueba {
    ConjuntoDatos Tfbalanceprueba::*conjunto;
    const char* detalle;
    const char* cuentas;
    QStringList cajas;
};
const PaginaDePrueba kPaginas[] = {
    {&Tfbalanceprueba::CBalance, "comprobante_detalle", "cuentas", {"SIni", "Sdb", "Scr", "Sfin"}},
    {&Tfbalanceprueba::CBalniif,
     "comprobante_detalle_niif",
     "cuentas_niif",
     {"SNIni", "SNdb", "SNcr", "SNfin"}},
};
} // namespace

class PruebaBalance : public QObject {
    Q_OBJECT

    QStringList abiertas_;

    static Tfbalanceprueba* abra(SesionGui& s, int mes = 3) {
        s.cnt.periodo_actual = mes - 1;
        return s.abra<Tfbalanceprueba>("Tfbalanceprueba");
    }
    static QString codigo(const ConjuntoDatos& c) { return c.FieldByName("CODIGO").texto(); }
    /// En qué cuenta está cada página.
    static QString actuales(const Tfbalanceprueba& b) {
        return codigo(b.CBalance) + ' ' + codigo(b.CBalniif);
    }
    static QStringList codigos(const ConjuntoDatos& c) { return valores_de(c, "CODIGO"); }
    static int nivel_mayor(const ConjuntoDatos& c) {
        int mayor = 0;
        for (int i = 0; i < c.RecordCount(); ++i)
            mayor = qMax(mayor, int(c.valor_en(i, c.FieldByName("NIVEL")).entero()));
        return mayor;
    }
    static QString guardado(SesionGui& s) {
        return s.dato(
            "select user_anocnt || ' ' || user_percnt from usuario where user_cod = 'ADMIN'");
    }
    static void ubique(Tfbalanceprueba& b, const char* local, const char* niif) {
        QVERIFY(b.CBalance.Locate("CODIGO", {local}));
        QVERIFY(b.CBalniif.Locate("CODIGO", {niif}));
    }
    static void pagina(Tfbalanceprueba& b, int indice) {
        b.PageControl1->setCurrentIndex(indice);
        componente<Rejilla>(&b, indice == 0 ? "DBGridEh1" : "DBGridEh2").setFocus();
    }
    static void escoja_mes(Tfbalanceprueba& b, int indice) {
        auto& caja = componente<QComboBox>(&b, "EMes");
        caja.setFocus();
        oprima(indice > caja.currentIndex() ? Qt::Key_Down : Qt::Key_Up);
        QCOMPARE(caja.currentIndex(), indice);
    }

    /// Las demás consultas solo se dejan ver en la prueba que las pide.
    void vigile() {
        for (const char* nombre : {"Tfauxiliar", "Tfauxiliarniif", "Tfsaldoterc", "Tfsaldotercniif",
                                   "Tfsaldocentro", "Tfsaldocentroniif", "Tfsaldoartc"})
            registre_testigo(nombre, [this, nombre](const Pantalla& p) {
                abiertas_ << nombre + (' ' + p.peticion<AbreAuxiliar>().cuenta_auxiliar);
            });
    }

private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_consulta();
    }
    void init() { abiertas_.clear(); }
    void abre_en_la_pagina_configurada_arriba_a_la_izquierda_y_una_sola_vez() {
        SesionGui s;
        for (const auto& [valor, indice] : {qMakePair("2649", 0), qMakePair("NIIF", 1)}) {
            s.configure(kLibroInicial, valor);
            auto* b = abra(s);
            QVERIFY(b);
            QCOMPARE(b->PageControl1->currentIndex(), indice);
            QCOMPARE(abra(s), b);
            QCOMPARE(componente<Rejilla>(b, indice ? "DBGridEh2" : "DBGridEh1").titulo_impreso,
                     QString("Balance de prueba · Libro %1 · Marzo de 2017").arg(valor));
            QVERIFY(componente<Rejilla>(b, indice ? "DBGridEh2" : "DBGridEh1")
                        .property("cifras_impresas")
                        .toString()
                        .startsWith("Cifras de control: "));
            const auto* ventana = s.escritorio.area()->activeSubWindow();
            const QSize area = s.escritorio.area()->viewport()->size();
            QCOMPARE(ventana->pos(), QPoint(0, 0));
            QCOMPARE(ventana->size(), area - QSize(140, 130));
            // Sin ratón se llega al otro libro y se vuelve.
            oprima(indice == 0 ? Qt::Key_PageDown : Qt::Key_PageUp, Qt::ControlModifier);
            QCOMPARE(b->PageControl1->currentIndex(), 1 - indice);
            oprima(Qt::Key_Escape);
            QVERIFY(!s.escritorio.abierta("Tfbalanceprueba"));
        }
    }

    void cada_cuenta_y_cada_cifra_de_control_iguala_la_suma_de_las_lineas() {
        SesionConLibro s;
        auto* b = abra(s, 1);
        for (const int mes : {1, 3, 4, 13}) {
            s.cnt.periodo_actual = mes - 1;
            b->actualice_balance();
            for (const PaginaDePrueba& p : kPaginas) {
                const ConjuntoDatos& c = b->*p.conjunto;
                QVERIFY(c.RecordCount() > 4);
                QStringList ordenados = codigos(c);
                std::sort(ordenados.begin(), ordenados.end());
                QCOMPARE(codigos(c), ordenados);
                for (int i = 0; i < c.RecordCount(); ++i) {
                    const auto valor = [&](const char* n) {
                        return c.valor_en(i, c.FieldByName(n)).moneda();
                    };
                    const SumaLineas suma =
                        sume_lineas(s, p.detalle, mes,
                                    "d.cuen_cod starting with " +
                                        QuotedStr(c.valor_en(i, c.FieldByName("CODIGO")).texto()));
                    QCOMPARE(valor("INICIAL").texto(), suma.inicial.texto());
                    QCOMPARE(valor("DEBITOS").texto(), suma.debitos.texto());
                    QCOMPARE(valor("CREDITOS").texto(), suma.creditos.texto());
                    QCOMPARE(valor("FINAL").texto(), suma.saldo().texto());
                }
                const SumaLineas todo = sume_lineas(s, p.detalle, mes, "1 = 1");
                const Moneda cifras[] = {todo.inicial, todo.debitos, todo.creditos, todo.saldo()};
                for (int i = 0; i < 4; ++i) {
                    auto& caja = componente<EditorNumero>(b, qPrintable(p.cajas[i]));
                    QCOMPARE(caja.text(), cifras[i].formateada());
                    QVERIFY(caja.isReadOnly());
                }
            }
        }
        // Ajustes: las cifras de débitos de los dos libros, a mano.
        QCOMPARE(componente<EditorNumero>(b, "Sdb").text(), "7,000.07");
        QCOMPARE(componente<EditorNumero>(b, "SNdb").text(), "8,000.08");
    }

    void el_navegador_relee_su_pagina_con_sus_cifras() {
        SesionConLibro s;
        auto* b = abra(s);
        agregue_comprobante(s, 990, "CG", "000900", "20170301", {{"111005", "5.5", "0"}}, {});
        auto* hoja = b->PageControl1->widget(0);
        hoja->findChild<NavegadorDatos*>()->boton(nbRefresh)->click();
        const SumaLineas todo = sume_lineas(s, "comprobante_detalle", 3, "1 = 1");
        QCOMPARE(componente<EditorNumero>(b, "Sdb").text(), todo.debitos.formateada());
        QVERIFY(codigos(b->CBalance).contains("111005"));
        hoja->findChild<NavegadorDatos*>()->boton(nbLast)->click();
        QCOMPARE(codigo(b->CBalance), codigos(b->CBalance).last());
    }

    void el_detalle_baja_hasta_uno_y_sube_hasta_cinco_con_el_teclado_numerico() {
        SesionConLibro s;
        auto* b = abra(s);
        QCOMPARE(b->nivel(), s.dato("select max(estr_nivel) from estructura").toInt());
        pagina(*b, 0);
        oprima(Qt::Key_Minus);
        QCOMPARE(b->nivel(), 5);
        for (int esperado = 4; esperado >= 1; --esperado) {
            oprima(Qt::Key_Minus, Qt::KeypadModifier);
            QCOMPARE(b->nivel(), esperado);
            QVERIFY(nivel_mayor(b->CBalance) <= esperado);
            QVERIFY(nivel_mayor(b->CBalniif) <= esperado);
        }
        QCOMPARE(codigos(b->CBalance), QStringList({"1", "2", "3", "4", "5"}));
        // En el límite no vuelve a consultar.
        agregue_comprobante(s, 991, "CG", "000901", "20170301", {{"613505", "1", "0"}}, {});
        oprima(Qt::Key_Minus, Qt::KeypadModifier);
        QCOMPARE(b->nivel(), 1);
        QVERIFY(!codigos(b->CBalance).contains("6"));
        oprima(Qt::Key_Plus, Qt::KeypadModifier);
        QVERIFY(codigos(b->CBalance).contains("61"));
        for (int i = 0; i < 6; ++i)
            oprima(Qt::Key_Plus, Qt::KeypadModifier);
        QCOMPARE(b->nivel(), 5);
    }

    void con_seis_niveles_empieza_en_seis_y_sin_estructura_en_cinco() {
        SesionGui s;
        {
            // La estructura de una compañía con cuentas está protegida.
            Conexion dueno;
            dueno.conectar(s.base.parametros("SYSDBA"));
            dueno.ejecute("alter trigger estructura_biud inactive");
        }
        s.base.ejecute({"insert into estructura (estr_nivel, estr_digitos) values (6, 12)"});
        auto* b = abra(s);
        QCOMPARE(b->nivel(), 6);
        componente<QPushButton>(b, "BitBtn3").click();
        QCOMPARE(b->nivel(), 6);
        componente<QPushButton>(b, "BitBtn2").click();
        componente<QPushButton>(b, "BitBtn3").click();
        QCOMPARE(b->nivel(), 5);
        b->close();
        s.base.ejecute({"delete from estructura"});
        QCOMPARE(abra(s)->nivel(), 5);
    }

    void las_flechas_y_las_cajas_mueven_el_periodo_y_lo_guardan() {
        SesionConLibro s;
        auto* b = abra(s, 12);
        pagina(*b, 0);
        auto& caja = componente<QComboBox>(b, "EMes");
        auto* periodo = b->periodo;
        const struct {
            int tecla;
            const char* nombre;
            const char* guardado;
        } pasos[] = {{Qt::Key_Right, "Ajustes", "2017 12"},
                     {Qt::Key_Right, "Enero", "2018 0"},
                     {Qt::Key_Left, "Ajustes", "2017 12"},
                     {Qt::Key_Left, "Diciembre", "2017 11"}};
        for (const auto& paso : pasos) {
            oprima(paso.tecla, Qt::AltModifier);
            QCOMPARE(periodo->texto_mes(), paso.nombre);
            QCOMPARE(guardado(s), paso.guardado);
            if (qstrcmp(paso.nombre, "Ajustes") == 0)
                QCOMPARE(componente<EditorNumero>(b, "Sdb").text(), "7,000.07");
        }
        QCOMPARE(caja.count(), 12);
        escoja_mes(*b, 10);
        QCOMPARE(guardado(s), "2017 10");
        auto& ano = componente<QSpinBox>(b, "EAno");
        QCOMPARE(ano.minimum(), 1990);
        QCOMPARE(ano.maximum(), 2099);
        ano.setFocus();
        ano.selectAll();
        digite("2019");
        QCOMPARE(guardado(s), "2017 10");
        oprima(Qt::Key_Return);
        QCOMPARE(guardado(s), "2019 10");
        QCOMPARE(s.cnt.ano_actual, "2019");
        // F2 también toma el año a medio digitar.
        ano.selectAll();
        digite("2017", Qt::Key_F2);
        QCOMPARE(guardado(s), "2017 10");
        // El comienzo del libro no se pasa.
        s.cnt.periodo_actual = 0;
        oprima(Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(s.cnt.periodo_actual, 0);
        QCOMPARE(periodo->texto_mes(), "Enero");
    }

    void el_boton_guarda_la_fila_y_la_tecla_f2_no() {
        SesionConLibro s;
        auto* b = abra(s);
        pagina(*b, 0);
        ubique(*b, "240805", "413505");
        componente<QPushButton>(b, "BitBtn5").click();
        QCOMPARE(actuales(*b), "240805 413505");
        oprima(Qt::Key_F2);
        QCOMPARE(actuales(*b), "1 1");

        ubique(*b, "240805", "413505");
        oprima(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(s.cnt.periodo_actual, 3);
        QCOMPARE(actuales(*b), "240805 413505");
        // El mes escogido lleva las dos páginas al código de la primera.
        ubique(*b, "310505", "413505");
        QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
        escoja_mes(*b, 4);
        QCOMPARE(actuales(*b), "310505 310505");
        s.cnt.mes_menos(); // como en los comprobantes
        QCOMPARE(aviso.count(), 2);
    }

    void al_volver_relee_solo_si_se_lo_pidieron() {
        SesionConLibro s;
        auto* b = abra(s);
        pagina(*b, 0);
        registre_testigo("TfOtra");
        QVERIFY(b->CBalance.Locate("CODIGO", {"240805"}));
        agregue_comprobante(s, 992, "CG", "000902", "20170301", {{"111005", "9", "0"}}, {});
        pantallas().abrir("TfOtra")->close();
        QVERIFY(!codigos(b->CBalance).contains("111005"));
        QCOMPARE(codigo(b->CBalance), "240805");
        auto* otra = pantallas().abrir("TfOtra");
        emit s.cnt.balance_por_recalcular();
        otra->close();
        QVERIFY(codigos(b->CBalance).contains("111005"));

        // Con una consulta abierta que movió el período vuelve a su cuenta, una sola vez.
        QVERIFY(b->CBalance.Locate("CODIGO", {"110505"}));
        oprima(Qt::Key_F8);
        auto* auxiliar = s.escritorio.abierta("Tfauxiliar");
        QVERIFY(auxiliar);
        oprima(Qt::Key_Left, Qt::AltModifier);
        auxiliar->close();
        QCOMPARE(b->periodo->texto_mes(), "Abril");
        QCOMPARE(codigo(b->CBalance), "110505");
        emit s.cnt.balance_por_recalcular();
        pantallas().abrir("TfOtra")->close();
        QCOMPARE(codigo(b->CBalance), "1");
    }

    void cada_tecla_abre_su_consulta_en_el_libro_de_la_pagina() {
        SesionConLibro s;
        auto* b = abra(s);
        vigile();
        ubique(*b, "110505", "413505");
        const struct {
            int pagina;
            int tecla;
            const char* abre;
        } casos[] = {
            {0, Qt::Key_F8, "Tfauxiliar 110505"},    {1, Qt::Key_F8, "Tfauxiliarniif 413505"},
            {0, Qt::Key_F5, "Tfsaldoterc 110505"},   {1, Qt::Key_F5, "Tfsaldotercniif 413505"},
            {0, Qt::Key_F7, "Tfsaldocentro 110505"}, {1, Qt::Key_F7, "Tfsaldocentroniif 413505"},
            {0, Qt::Key_F6, "Tfsaldoartc 110505"},   {1, Qt::Key_F6, "Tfsaldoartc 110505"},
        };
        for (const auto& caso : casos) {
            pagina(*b, caso.pagina);
            oprima(caso.tecla);
            QCOMPARE(abiertas_, QStringList(caso.abre));
            s.escritorio.activa()->close();
            abiertas_.clear();
        }
        // Doble clic en la fila.
        for (int indice : {0, 1}) {
            pagina(*b, indice);
            auto& rejilla = componente<Rejilla>(b, indice == 0 ? "DBGridEh1" : "DBGridEh2");
            doble_clic(rejilla);
            QCOMPARE(abiertas_.takeFirst(),
                     QString(indice == 0 ? "Tfauxiliar 110505" : "Tfauxiliarniif 413505"));
            s.escritorio.activa()->close();
        }
        // Una cuenta mayor no lleva movimiento: nada se abre, sin diálogo; la barra dice por qué.
        AvisosBarra barra;
        s.dm.barra(&barra);
        ubique(*b, "1105", "41");
        for (const auto& [indice, razon] :
             {qMakePair(0, "La cuenta es de nivel inferior al mínimo afectable."),
              qMakePair(1, "La cuenta NIIF es de nivel inferior al mínimo afectable.")})
            for (int clave : {Qt::Key_F8, Qt::Key_F5, Qt::Key_F7}) {
                pagina(*b, indice);
                barra.texto({});
                oprima(clave);
                QCOMPARE(barra.text(), QString(razon));
            }
        barra.texto({});
        oprima(Qt::Key_F6);
        QCOMPARE(barra.text(), "La cuenta es de nivel inferior al mínimo afectable.");
        b->close();
        agote_eventos();
        QCOMPARE(barra.text(), QString());
        s.dm.barra(nullptr);
        QVERIFY(abiertas_.isEmpty());
        registre_pantallas_consulta();
    }

    void muestra_clases_y_grupos_con_su_letra_y_filtra_la_primera_pagina() {
        SesionConLibro s;
        auto* b = abra(s);
        pagina(*b, 0);
        auto& local = componente<Rejilla>(b, "DBGridEh1");
        auto& niif = componente<Rejilla>(b, "DBGridEh2");
        for (Rejilla* r : {&local, &niif}) {
            const auto letra = [&](const char* cuenta) {
                return r->aspecto_de(int(codigos(*r->conjunto()).indexOf(cuenta))).letra;
            };
            const qreal base = r->font().pointSizeF();
            QVERIFY(letra("1").bold() && letra("11").bold());
            QVERIFY(!letra("1105").bold() && !letra("110505").bold());
            QVERIFY(letra("1").pointSizeF() > base);
            QCOMPARE(letra("11").pointSizeF(), base);
            QVERIFY(letra("110505").pointSizeF() < base);
            QCOMPARE(r->nombre_archivo, "BalanPrueba");
        }
        QCOMPARE(titulos_de(local), QStringList({"Cód. Cuenta", "Nombre cuenta", "S. Inicial",
                                                 "Débitos", "Créditos", "S. Final"}));
        QCOMPARE(titulos_de(niif),
                 QStringList({"Cuenta", "Nombre", "Inicial", "Débitos", "Créditos", "Final"}));
        componente<QCheckBox>(b, "ckfiltro").click();
        QVERIFY(local.filtro_visible());
        QVERIFY(!niif.filtro_visible());
        // Los nombres se leen enteros abajo, cada página los suyos.
        for (const auto& [conjunto, caja] :
             {std::pair{&b->CBalance, "NomCuenta"}, {&b->CBalniif, "NomNiif"}}) {
            QVERIFY(conjunto->Locate("CODIGO", {QString("110505")}));
            QCOMPARE(componente<QLineEdit>(b, caja).text(),
                     conjunto->FieldByName("NOMBRE").texto());
            QVERIFY(!componente<QLineEdit>(b, caja).text().isEmpty());
        }
        // En la fila de filtros el menos del teclado numérico se escribe y no baja el detalle.
        local.setFocus();
        b->CBalance.First();
        oprima(Qt::Key_Up);
        QVERIFY(local.en_fila_de_filtro());
        QTest::sendKeyEvent(QTest::Click, con_foco(), Qt::Key_Minus, '-', Qt::KeypadModifier);
        QCOMPARE(b->nivel(), 5);
        componente<QCheckBox>(b, "ckfiltro").click();
        QVERIFY(!local.filtro_visible());
    }
};

QTEST_MAIN(PruebaBalance)
#include "prueba_balance.moc"
