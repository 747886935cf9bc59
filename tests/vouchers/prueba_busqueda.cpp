// Búsqueda de comprobantes y comprobantes de un tercero: filtros, teclas y borrado.
#include "vouchers/digitador.h"
#include "vouchers/tfbuscomproba.h"
#include "vouchers/tfcomproterc.h"

namespace {

struct Encabezado {
    int id;
    const char *tipo, *prefijo, *numero, *fecha, *concepto, *refer;
};
const Encabezado kEncabezados[] = {
    {1, "CG", "0001", "000010", "20170115", "Arriendo de enero", "A-1"},
    {2, "CG", "0001", "000011", "20170215", "Arriendo de febrero", "A-2"},
    {3, "CG", "0001", "000012", "20171331", "Cierre del año", "CIERRE"},
    {4, "CG", "0001", "000009", "20161231", "Arriendo del año pasado", "A-0"},
    {5, "RC", "0001", "000001", "20170120", "Abono de cliente", "R-1"},
    {6, "RC", "0002", "000020", "20170310", "Arriendo recibido", "A-7"},
    {7, "RC", "0002", "000021", "20170311", "Abono de cliente", ""},
};

void ponga_encabezados(SesionGui& s) {
    for (const Encabezado& e : kEncabezados)
        s.base.base().ejecute("insert into comprobante_encabezado (enco_consec, tico_cod, "
                              "prco_pref, enco_numero, enco_fecha, enco_concepto, enco_refer, "
                              "enco_usuario) values (?, ?, ?, ?, ?, ?, ?, 'ADMIN')",
                              {Valor(e.id), Valor(e.tipo), Valor(e.prefijo), Valor(e.numero),
                               Valor(e.fecha), Valor(e.concepto), Valor(e.refer)});
}

/// Un comprobante y una plantilla con ese concepto, y su final de referencia.
void siembre(SesionGui& s, int id, const QString& concepto) {
    Conexion& b = s.base.base();
    b.ejecute("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
              "enco_fecha, enco_concepto, enco_refer, enco_usuario) values (?, 'CG', '0001', ?, "
              "'20170115', ?, ?, 'ADMIN')",
              {Valor(id), Valor(QString::number(id).rightJustified(6, '0')), Valor(concepto),
               Valor(concepto.right(8))});
    b.ejecute("insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit, "
              "code_concepto, code_refer, code_debito, code_credito) values (?, 1, '130505', "
              "'900123456', ?, ?, 1, 0)",
              {Valor(id), Valor(concepto), Valor(concepto.right(8))});
    b.ejecute("insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto, "
              "plan_refer) values (?, 'CG', '0001', ?, ?)",
              {Valor(id), Valor(concepto), Valor(concepto.right(8))});
}

/// Movimiento de dos terceros en los encabezados.
void ponga_movimiento(SesionGui& s) {
    const auto linea = [&](int id, int item, const char* nit, int monto,
                           const char* tabla = "comprobante_detalle") {
        s.base.base().ejecute(QString("insert into %1 (enco_consec, code_item, cuen_cod, terc_nit, "
                                      "code_concepto, code_debito, code_credito, code_descontable) "
                                      "values (?, ?, '130505', ?, ?, ?, ?, 'S')")
                                  .arg(tabla),
                              {Valor(id), Valor(item), Valor(nit), Valor(id == 7 ? "Ajuste" : ""),
                               Valor(monto > 0 ? monto : 0), Valor(monto < 0 ? -monto : 0)});
    };
    linea(1, 1, "900123456", 500);
    linea(1, 2, "800456789", 7);
    linea(5, 1, "900123456", -200);
    linea(5, 2, "900123456", -50);
    linea(7, 1, "900123456", 30);
    linea(7, 1, "900123456", 30, "comprobante_detalle_niif");
}

ConjuntoDatos& resultado(Pantalla* p) {
    return componente<ConjuntoDatos>(p, "CComproba");
}
QString columna(Pantalla* p, const char* campo) {
    return valores_de(resultado(p), campo).join(',');
}
QLineEdit& caja(Pantalla* p, const char* nombre) {
    return componente<QLineEdit>(p, nombre);
}
void escoja(Pantalla* p, const QString& nombre) {
    auto& lista = componente<ListaDato>(p, "LTipo");
    lista.setFocus();
    oprima(Qt::Key_Home);
    for (int i = 0; i < lista.count() && lista.texto_a_la_vista() != nombre; ++i)
        oprima(Qt::Key_Down);
    QCOMPARE(lista.texto_a_la_vista(), nombre);
}
void ubique(Pantalla* p, const char* llave, int id, const char* rejilla = "DBGridEh1") {
    QVERIFY(resultado(p).Locate(llave, {id}));
    enfoque(p, rejilla);
}
void busque(Pantalla* p) {
    pulse(p, "BitBtn1");
}

Pantalla* busque_generales() {
    Pantalla* p = pantallas().abrir("Tfbuscomproba");
    escoja(p, "Comprobante general");
    busque(p);
    return p;
}

} // namespace

class PruebaBusqueda : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_comprobantes(); }

    void abre_con_el_ano_de_la_sesion_y_todos_los_tipos_por_nombre() {
        SesionGui s;
        ponga_encabezados(s);
        auto* p = s.abra<Tfbuscomproba>("Tfbuscomproba");
        QVERIFY(p);
        auto& lista = componente<ListaDato>(p, "LTipo");
        QVERIFY(lista.hasFocus());
        QCOMPARE(lista.valor().texto(), "__");
        QStringList nombres;
        for (int i = 0; i < lista.count(); ++i)
            nombres << lista.itemText(i);
        QCOMPARE(nombres, QStringList({"Comprobante general", "Nota de contabilidad",
                                       "Recibo de caja", "Todos"}));
        QCOMPARE(caja(p, "FecIni").text() + caja(p, "FecFin").text(), "2017010120171331");
        QVERIFY(!resultado(p).Active()); // no busca hasta que se le pide
        // Con un tipo escogido entran las dos fechas, la trece incluida, y manda la más reciente.
        escoja(p, "Comprobante general");
        oprima(Qt::Key_Return); // sobre la lista, también busca
        QVERIFY(resultado(p).Active());
        busque(p);
        QCOMPARE(columna(p, "ENCO_CONSEC"), "3,2,1");
        componente<QCheckBox>(p, "ckfiltro").click();
        QVERIFY(p->DBGridEh1->filtro_visible());
    }

    void con_un_tipo_escogido_sirve_cualquier_combinacion_de_filtros() {
        SesionGui s;
        ponga_encabezados(s);
        Pantalla* p = pantallas().abrir("Tfbuscomproba");
        const struct {
            const char *caja, *texto;
            std::function<bool(const Encabezado&)> cumple;
        } filtros[] = {
            {"TPref", "0002", [](const Encabezado& e) { return !qstrcmp(e.prefijo, "0002"); }},
            {"TNum", "00001", [](const Encabezado& e) { return qstrcmp(e.numero, "00001") >= 0; }},
            {"FecIni", "20170116",
             [](const Encabezado& e) { return qstrcmp(e.fecha, "20170116") >= 0; }},
            {"FecFin", "20170310",
             [](const Encabezado& e) { return qstrcmp(e.fecha, "20170310") <= 0; }},
            {"TConc", "rriendo",
             [](const Encabezado& e) { return QByteArray(e.concepto).contains("rriendo"); }},
            {"TRef", "A-", [](const Encabezado& e) { return QByteArray(e.refer).contains("A-"); }},
        };
        int con_filas = 0;
        for (const auto& [tipo, nombre] :
             {std::pair{"CG", "Comprobante general"}, {"RC", "Recibo de caja"}}) {
            escoja(p, nombre);
            for (int mascara = 0; mascara < 64; ++mascara) {
                QStringList esperados;
                for (const Encabezado& e : kEncabezados) {
                    bool entra = !qstrcmp(e.tipo, tipo);
                    for (int i = 0; i < 6; ++i)
                        entra = entra && (!(mascara >> i & 1) || filtros[i].cumple(e));
                    if (entra)
                        esperados << QString::number(e.id);
                }
                for (int i = 0; i < 6; ++i)
                    llene(p, filtros[i].caja, mascara >> i & 1 ? filtros[i].texto : "");
                busque(p);
                QVERIFY(resultado(p).Active());
                QStringList salieron = columna(p, "ENCO_CONSEC").split(',', Qt::SkipEmptyParts);
                salieron.sort();
                QCOMPARE(salieron, esperados);
                con_filas += esperados.isEmpty() ? 0 : 1;
            }
        }
        QVERIFY(con_filas > 40);
    }

    void con_todos_los_tipos_solo_cabe_un_filtro() {
        SesionGui s;
        Digitador d(s);
        ponga_encabezados(s);
        Pantalla* p = pantallas().abrir("Tfbuscomproba");
        // Con más de uno la búsqueda se rehúsa diciendo qué vaciar, y el resultado queda cerrado.
        const auto rehuse = [&](const QString& mensaje) {
            const auto anotado = [&] { return QFileInfo(s.base.ruta() + "/ERRORES.TXT").size(); };
            const qint64 antes = anotado();
            dice([&] { busque(p); }, mensaje);
            QVERIFY(!resultado(p).Active());
            QVERIFY(anotado() > antes); // la rehusó la base, por su "where" repetido
        };
        rehuse("Con todos los tipos la búsqueda admite un solo dato y hay varios: Fecha desde y "
               "Fecha hasta. Escoja un tipo o vacíe Fecha desde o Fecha hasta.");
        llene(p, "TRef", "A");
        rehuse("Con todos los tipos la búsqueda admite un solo dato y hay varios: Fecha desde, "
               "Fecha hasta y Referencia. Escoja un tipo o deje lleno solo uno de ellos.");
        llene(p, "TRef", "");
        llene(p, "FecIni", "x");
        dice([&] { busque(p); }, "La fecha \"x\" debe tener la forma aaaammdd.");
        llene(p, "FecIni", "");
        llene(p, "FecFin", "20161231");
        busque(p);
        QCOMPARE(columna(p, "ENCO_CONSEC"), "4");
        llene(p, "FecFin", "");
        busque(p);
        QCOMPARE(columna(p, "ENCO_CONSEC"), "3,2,1,4,7,6,5");
        // el número filtra desde él, como texto: "9" es mayor que todos
        llene(p, "TNum", "000012");
        oprima(Qt::Key_Return); // con texto sin buscar, Enter busca
        QCOMPARE(columna(p, "ENCO_CONSEC"), "3,7,6");
        llene(p, "TNum", "9");
        oprima(Qt::Key_Return);
        QCOMPARE(columna(p, "ENCO_CONSEC"), QString());
        QVERIFY(componente<Rejilla>(p, "DBGridEh1").texto_vacio.contains("000009"));
        llene(p, "TNum", "");
        llene(p, "TConc", "Abono");
        busque(p);
        QCOMPARE(columna(p, "ENCO_CONSEC"), "7,5");
    }

    void lo_digitado_se_busca_a_si_mismo_y_no_es_mas_que_un_texto() {
        SesionGui s("AUXILIAR");
        const struct {
            const char *digitado, *concepto;
        } casos[] = {{"d'angelo", "Venta a D'Ángelo"},
                     {"50%", "Rebaja del 50%"},
                     {"a_b", "Clave A_B"},
                     {"c\\d", "Ruta c\\d"},
                     {"mercancia", "MERCANCÍA en tránsito"},
                     {"señal", "Señal de radio"}};
        int id = 100;
        for (const char* senuelo :
             {"Venta a DXAngelo", "Rebaja del 50", "Clave AXB", "Ruta cXd", "Senal de radio"})
            siembre(s, id++, senuelo);
        for (const auto& caso : casos)
            siembre(s, id++, caso.concepto);
        const QString consecutivo = "select gen_id(sec_comprobante, 0) from rdb$database";
        const QString antes = s.dato(consecutivo);
        for (const auto& [pantalla, conjunto, campo, boton] :
             {std::tuple{"Tfbuscomproba", "CComproba", "ENCO_CONCEPTO", "BitBtn1"},
              {"Tfcomproterc", "CComproba", "CONCEPTO", "BitBtn1"},
              {"Tfbuscplantilla", "CPlantilla", "PLAN_CONCEPTO", "SpeedButton5"}}) {
            s.otorgue(41);
            Pantalla* p = pantallas().abrir(pantalla, AbreComprobantesTercero{"900123456", ""});
            QVERIFY(p);
            escoja(p, "Comprobante general");
            auto& c = componente<ConjuntoDatos>(p, conjunto);
            const auto busque_en = [&](const char* caja, const QString& texto) {
                for (const char* otra : {"TConc", "TRef", "TPref"})
                    llene(p, otra, otra == QLatin1String(caja) ? texto : "");
                componente<QPushButton>(p, boton).click();
            };
            for (const auto& caso : casos) {
                busque_en("TConc", caso.digitado);
                QCOMPARE(c.RecordCount(), 1);
                QCOMPARE(c.FieldByName(campo).texto(), caso.concepto);
            }
            busque_en("TRef", "50%");
            QCOMPARE(c.RecordCount(), 1);
            for (const char* ataque : {"z' or gen_id(sec_comprobante, 10000000000) > 0 or '%' = '",
                                       "z%' or gen_id(sec_comprobante, 10000000000) > 0 --"}) {
                busque_en("TConc", ataque);
                QCOMPARE(c.RecordCount(), 0);
            }
            for (const char* corto : {"'", "%", "_", "\\"}) {
                busque_en("TPref", corto);
                QCOMPARE(c.RecordCount(), 0);
            }
            QCOMPARE(s.dato(consecutivo), antes);
            p->close();
        }
    }

    void el_comprobante_en_digitacion_pasa_su_tipo() {
        SesionGui s;
        Digitador d(s);
        ponga_encabezados(s);
        Tfmovimien* m = d.abra();
        d.encabezado("RC", "05", "x");
        oprima_en(m->SpeedButton1, Qt::Key_Space);
        Pantalla* p = s.escritorio.abierta("Tfbuscomproba");
        QVERIFY(p);
        QCOMPARE(componente<ListaDato>(p, "LTipo").valor().texto(), "RC");
        busque(p);
        QCOMPARE(columna(p, "ENCO_CONSEC"), "7,6,5");
        oprima(Qt::Key_Escape);
        QVERIFY(!s.escritorio.abierta("Tfbuscomproba"));
        p = pantallas().abrir("Tfbuscomproba");
        QCOMPARE(componente<ListaDato>(p, "LTipo").valor().texto(), "__");
    }

    void f4_y_el_doble_clic_editan_y_al_volver_la_lista_se_relee() {
        SesionGui s;
        Digitador d(s);
        ponga_encabezados(s);
        auto* p = s.abra<Tfbuscomproba>("Tfbuscomproba");
        oprima(Qt::Key_F4); // sin filas no hace nada
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        escoja(p, "Recibo de caja");
        busque(p);
        ubique(p, "ENCO_CONSEC", 6);
        oprima(Qt::Key_F4);
        auto* e = qobject_cast<Tfedtmovimien*>(s.escritorio.abierta("Tfedtmovimien"));
        QVERIFY(e);
        QCOMPARE(e->CMovimiento.FieldByName("ENCO_CONSEC").texto(), "6");
        s.base.ejecute(
            {"update comprobante_encabezado set enco_concepto = 'Otro' where enco_consec = 6"});
        e->close();
        QCOMPARE(resultado(p).FieldByName("ENCO_CONCEPTO").texto(), "Otro");
        QVERIFY(componente<ListaDato>(p, "LTipo").hasFocus());
        p->DBGridEh1->OnDblClick(0);
        QVERIFY(s.escritorio.abierta("Tfedtmovimien"));
        s.escritorio.activa()->close();
        caja(p, "TRef").setFocus();
        oprima(Qt::Key_F12, Qt::ShiftModifier);
        QVERIFY(componente<ListaDato>(p, "LTipo").hasFocus());
        oprima(Qt::Key_Escape);
        QVERIFY(s.escritorio.abiertas().isEmpty());
    }

    void f3_imprime_y_despues_borra_y_f2_no_hace_nada() {
        SesionGui s;
        Digitador d(s);
        ponga_encabezados(s);
        const QStringList cuadrado{"110505:100:0", "310505:0:100"};
        ponga_comprobante(s, 2, "", "", cuadrado);
        ponga_comprobante(s, 2, "", "", cuadrado, "comprobante_detalle_niif");
        QStringList impresos;
        registre_testigo("Tfimprcomproba", [&](const Pantalla& p) {
            impresos << p.peticion<AbreComprobante>().comprobante_encontrado;
        });
        Pantalla* p = busque_generales();
        ubique(p, "ENCO_CONSEC", 2);
        QCOMPARE(componente<QPushButton>(p, "SpeedButton1").text(), "F2:Imprimir");
        oprima(Qt::Key_F2);
        QVERIFY(impresos.isEmpty());
        const auto cierre = [](QWidget* modal) { modal->close(); };
        {
            Interlocutor i; // solo imprime
            i.espere_modal("Tfimprcomproba", cierre);
            componente<QPushButton>(p, "SpeedButton1").click();
        }
        for (const QString& hasta : {"20171231", ""}) { // lo cerrado, igual que en quien lo edita
            d.configure("GENERAL", "FECHA DE BLOQUEO", hasta);
            d.configure("GENERAL", "FECHA DE BLOQUEO NIIF", hasta);
            if (!hasta.isEmpty())
                dice([&] { componente<QPushButton>(p, "SpeedButton3").click(); },
                     "La contabilidad esta bloqueada a: 2017/12/31. No se puede borrar el "
                     "comprobante CG 0001 000011");
        }
        const QString pregunta = "Desea borrar definitivamente el comprobante CG 0001 000011?";
        for (const char* respuesta : {"No", "Sí"}) {
            Interlocutor i;
            i.espere_modal("Tfimprcomproba", cierre);
            i.espere(pregunta, respuesta);
            ubique(p, "ENCO_CONSEC", 2);
            oprima(Qt::Key_F3);
            QCOMPARE(i.vistos(), QStringList({"Tfimprcomproba", pregunta}));
        }
        QCOMPARE(d.barra.text(), "Borrado CG 0001 000011");
        QCOMPARE(impresos, QStringList({"2", "2", "2"}));
        QCOMPARE(columna(p, "ENCO_CONSEC"), "3,1"); // la búsqueda corrió otra vez
        for (const char* tabla : {"encabezado", "detalle", "detalle_niif"})
            QCOMPARE(s.dato(QString("select count(*) from comprobante_%1 where enco_consec = 2")
                                .arg(tabla)),
                     "0");
        QCOMPARE(saldos_distintos(s.base.base()), QString());
        registre_pantallas_comprobantes();
    }

    void el_comprobante_de_otro_modulo_no_se_borra_y_sin_derecho_la_lista_se_cierra() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        ponga_comprobante(s, 9, "000050", "20170301", {}, "comprobante_detalle", 31, 4);
        registre_testigo("Tfimprcomproba");
        const auto borre = [&](Pantalla* p) {
            ubique(p, "ENCO_CONSEC", 9);
            componente<QPushButton>(p, "SpeedButton3").click();
        };
        Pantalla* p = busque_generales();
        dice([&] { borre(p); }, kAccesoNegado);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        s.otorgue(32);
        p = busque_generales();
        Interlocutor i;
        dice([&] { borre(p); },
             "Debe utilizar la opcion " +
                 s.dato("select tido_nomlargo from tipo_documento where tido_cod = 31") +
                 " para borrar el comprobante");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "1");
        p->close();
        s.niegue(31);
        i.espere(kAccesoNegado);
        QVERIFY(!pantallas().abrir("Tfbuscomproba"));
    }

    void el_movimiento_de_un_tercero_se_filtra_se_edita_y_se_borra_sin_pedir_el_derecho() {
        SesionGui s("AUXILIAR"); // sin el derecho de borrar
        Digitador d(s);
        ponga_encabezados(s);
        ponga_movimiento(s);
        auto* p = s.abra<Tfcomproterc>(
            "Tfcomproterc", AbreComprobantesTercero{"900123456", "Ferretería El Tornillo S.A.S."});
        QVERIFY(p);
        QCOMPARE(p->ENIT->text() + p->ENom->text(), "900123456Ferretería El Tornillo S.A.S.");
        QCOMPARE(columna(p, "ID"), "1,7,5,5");
        QCOMPARE(columna(p, "MONTO"), "500,30,-200,-50");
        QCOMPARE(p->DBGridEh2->suma(7), Moneda(280));
        QCOMPARE(p->DBGridEh2->nombre_archivo, "CompTercero");
        QStringList titulos;
        for (int i = 0; i < p->DBGridEh2->cuenta_columnas(); ++i)
            titulos << p->DBGridEh2->columna(i).FieldName;
        QCOMPARE(titulos.join(','), "TIPO,PREFIJO,NUMERO,FECHA,CUENTA,CONCEPTO,REF,MONTO");
        busque(p); // sin filtros también desde el botón
        QCOMPARE(columna(p, "ID"), "1,7,5,5");
        // aquí todos los filtros se suman, con tipo o sin él
        llene(p, "TConc", "Abono");
        llene(p, "TFecha", "20170101");
        llene(p, "TRef", "R");
        busque(p);
        QCOMPARE(columna(p, "ID"), "5,5");
        llene(p, "TConc", "");
        llene(p, "TRef", "");
        escoja(p, "Recibo de caja");
        llene(p, "TPref", "0002");
        llene(p, "TNum", "000002");
        busque(p);
        QCOMPARE(columna(p, "ID"), "7");
        oprima(Qt::Key_F12, Qt::ShiftModifier);
        QVERIFY(caja(p, "TPref").hasFocus());

        ubique(p, "ID", 7, "DBGridEh2");
        oprima(Qt::Key_F4);
        QVERIFY(s.escritorio.abierta("Tfedtmovimien"));
        s.escritorio.activa()->close();

        // se borra sin pedir el derecho
        p->close();
        p = s.abra<Tfcomproterc>("Tfcomproterc", AbreComprobantesTercero{"900123456", {}});
        ubique(p, "ID", 7, "DBGridEh2");
        dice(Qt::Key_F3, "Desea borrar definitivamente el comprobante RC 0002 000021?", "Sí");
        QCOMPARE(columna(p, "ID"), "1,5,5");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado where enco_consec = 7"), "0");
        // las líneas NIIF se quedan
        QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif where enco_consec = 7"),
                 "1");
        // otro tercero en la misma pantalla
        s.base.ejecute({"update comprobante_encabezado set enco_tiporef = 31, enco_idref = 1 where "
                        "enco_consec = 1"});
        p->close();
        p = s.abra<Tfcomproterc>("Tfcomproterc", AbreComprobantesTercero{"800456789", {}});
        QCOMPARE(columna(p, "MONTO"), "7");
        ubique(p, "ID", 1, "DBGridEh2");
        dice(Qt::Key_F3,
             "Debe utilizar la opcion " +
                 s.dato("select tido_nomlargo from tipo_documento where tido_cod = 31") +
                 " para borrar el comprobante");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado where enco_consec = 1"), "1");
    }

    void el_movimiento_de_un_tercero_se_imprime_y_se_copia_desde_cualquier_pagina() {
        const RelojDetenido hoy({2017, 5, 15});
        SesionGui s("AUXILIAR");
        Digitador d(s);
        d.configure("GENERAL", "PERMITIR COMPROBANTES DESCUADRADOS", "SI");
        ponga_encabezados(s);
        ponga_movimiento(s);
        auto* p = s.abra<Tfcomproterc>("Tfcomproterc", AbreComprobantesTercero{"900123456", {}});
        for (Rejilla* r : {p->DBGridEh2, p->DBGridEh1, p->DBGridEh3}) {
            QVERIFY(r->titulo_impreso.contains(" · 900123456 "));
            QStringList ordenes;
            for (const QAction* a : r->findChild<QMenu*>("menu_rejilla")->actions())
                ordenes << a->text();
            ordenes.removeAll(QString());
            QCOMPARE(ordenes.join('|').remove('&'),
                     "Copiar|Selecccionar todo|Imprimir|Guardar selección|Duplicar "
                     "comprobante\tCtrl+D|Reversar comprobante\tCtrl+I");
        }
        ubique(p, "ID", 7, "DBGridEh2");
        Interlocutor i;
        i.espere_modal("vista_preliminar", [](QWidget* w) { w->close(); });
        p->DBGridEh2->ejecute_orden(Rejilla::Imprimir);
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        QVERIFY(p->DBGridEh1->hasFocus());
        i.espere("Se grabará un comprobante nuevo con la fecha de hoy, 2017/05/15, que reversa en "
                 "los dos libros RC 0002 000021. Desea continuar?",
                 "No");
        oprima(Qt::Key_I, Qt::ControlModifier);
        i.espere("Se grabará un comprobante nuevo con la fecha de hoy, 2017/05/15, que repite en "
                 "los dos libros RC 0002 000021. Desea continuar?",
                 "Sí");
        for (size_t n = 0; n < std::size(kEncabezados); ++n) // sus ids ya no están libres
            s.base.ejecute({"execute procedure cambie_id_comproba"});
        oprima(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(s.dato("select enco_fecha || ' ' || enco_concepto from comprobante_encabezado "
                        "where enco_consec = (select max(enco_consec) from "
                        "comprobante_encabezado)"),
                 "20170515 Abono de cliente");
        s.escritorio.activa()->close();
        QCOMPARE(resultado(p).FieldByName("ID").texto(), "7"); // la lista sigue en él
    }

    void entre_cien_mil_comprobantes_el_primer_paquete_llega_de_una_vez() {
        SesionGui s;
        Conexion& b = s.base.base();
        b.ejecute("execute block as declare n integer = 0; begin while (n < 100000) do begin n = n "
                  "+ 1; insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                  "enco_numero, enco_fecha, enco_concepto, enco_usuario) values (:n, 'CG', '0001', "
                  "lpad(:n, 6, '0'), '2017' || lpad(mod(:n, 12) + 1, 2, '0') || lpad(mod(:n, 28) + "
                  "1, 2, '0'), 'Comprobante ' || :n, 'ADMIN'); end end");
        Pantalla* p = busque_generales();
        QCOMPARE(resultado(p).RecordCount(), s.dm.registros_paquete);
        // Cada texto que la pantalla puede componer entra por un índice.
        const char* const orden = "order by tico_cod, enco_fecha desc";
        for (const char* condicion :
             {" where tico_cod = 'CG' ",
              " where tico_cod = 'CG' and enco_fecha >= '20170101' and enco_fecha <= '20171331' ",
              " where tico_cod = 'CG' and prco_pref = '0001' and enco_numero >= '000100' ",
              "where enco_fecha >= '20171201' "}) {
            const QString plan =
                b.prepare(QString("select * from comprobante_encabezado ") + condicion + orden,
                          b.lectura())
                    ->plan();
            QVERIFY2(plan.contains("INDEX (") && !plan.contains("NATURAL"), qPrintable(plan));
        }
        const QString plan =
            b.prepare("select * from comprobante_detalle d join comprobante_encabezado e on "
                      "e.enco_consec = d.enco_consec where d.terc_nit = '1'",
                      b.lectura())
                ->plan();
        QVERIFY2(!plan.contains("NATURAL"), qPrintable(plan));
    }
};

QTEST_MAIN(PruebaBusqueda)
#include "prueba_busqueda.moc"
