// La revisión de una propuesta: se guarda sola si nadie debe confirmarla, y si no, se corrige con
// las reglas de los comprobantes en el libro que dice cada renglón.
#include "apoyo_gui/anuncio.h"
#include "posting/modulos_de_prueba.h"
#include "posting/registro.h"
#include "vouchers/registro.h"
#include "vouchers/tfcontabiliza.h"

namespace {
const QDate kFecha(2017, 3, 15);
}

class PruebaContabiliza : public QObject {
    Q_OBJECT
private slots:
    void init() {
        s_.emplace();
        i_.emplace();
        m_.emplace();
        registre_pantallas_comprobantes();
        agregue_cuentas(base(), "110515; 413506 C; 236540 TR");
        configure(kPorInterfaz, "INTERFAZ");
        configure("AÑO BALANCE DE APERTURA NIIF", "2016");
        permita_cerrar("SI");
        registre(base(), 31, interfaz_de_prueba(kReglasVenta));
        id_ = registre(base(), venta_de_prueba());
    }
    void cleanup() {
        i_.reset();
        m_.reset();
        s_.reset();
    }
    void se_guarda_sola_cuando_nadie_debe_confirmarla();
    void la_descuadrada_se_queda_hasta_que_cuadre();
    void cada_linea_pide_lo_que_su_cuenta_exige();
    void las_lineas_nuevas_siguen_la_numeracion_de_su_libro();
    void la_retencion_sale_de_la_base_y_de_la_tarifa_del_2649();
    void la_comilla_repite_y_al_dejar_la_celda_se_completa();
    void el_doble_clic_pregunta_en_la_celda();
    void el_centro_debe_existir_y_ser_de_la_agencia();
    void la_plantilla_reemplaza_las_lineas_del_libro_a_la_vista();
    void cada_pagina_recibe_las_lineas_de_su_libro_en_la_plantilla();
    void solo_se_cierra_sin_grabar_si_se_permite();
    void lo_que_otro_cambio_no_se_pisa();
    void lo_que_otro_contabilizo_mientras_se_revisa_no_se_borra();
    void el_libro_niif_solo_se_muestra_si_sale_de_la_interfaz();

private:
    void configure(const char* llave, const QString& valor) {
        ::configure(base(), llave, valor);
        s_->dm.cargue_configuracion();
    }
    Conexion& base() { return s_->base.base(); }
    /// Deja la propuesta por revisar, salvo que la prueba diga después otra cosa.
    int proponga() {
        const int propuesta = m_->fact.contabilice_factura(id_, 1, kFecha).cntb_id;
        s_->dm.confirmar_contabilizacion = true;
        return propuesta;
    }
    /// Abre la revisión y corre `atienda` con ella; devuelve si quedó guardada.
    bool revise(std::function<void(Tfcontabiliza&)> atienda) {
        espere_pantalla(*i_, "Tfcontabiliza", atienda);
        return revise_contabilizacion(31, id_);
    }

    QString comprobantes() { return s_->dato("select count(*) from comprobante_encabezado"); }
    /// Una línea en blanco al final de la página a la vista.
    static void agregue_linea(Tfcontabiliza& p) {
        con_foco();
        Rejilla& r = *p.lineas_a_la_vista().rejilla;
        r.setFocus();
        oprima(Qt::Key_End, Qt::ControlModifier);
        oprima(Qt::Key_Down);
        r.SelectedIndex(0);
    }
    /// La 50: dos líneas que cuadran y una sin valor ni el tercero que su cuenta pide.
    void ponga_plantilla() {
        for (const char* orden :
             {"insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto) "
              "values"
              " (50, 'CG', '0001', 'Fija')",
              "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, plde_concepto,"
              " plde_debitos) values (50, 1, '110515', 'Propio', 119000)",
              "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, plde_creditos) values "
              "(50,"
              " 2, '110505', 119000)",
              "insert into plantilla_detalle (plan_id, plde_item, cuen_cod) values (50, 3, "
              "'130505')"})
            base().ejecute(orden);
    }
    /// De la línea en que se está.
    static QString celda(Tfcontabiliza& p, const char* campo) {
        return p.CContadetalle.FieldByName(campo).texto();
    }
    /// Sale de la revisión sin grabar.
    static void cierre(Tfcontabiliza& p) {
        p.CContabiliza.CancelUpdates();
        p.close();
    }
    void permita_cerrar(const char* valor) {
        configure("PERMITIR CERRAR LA VENTANA DE CONTABILIZACION SIN GRABAR EL COMPROBANTE", valor);
    }

    std::optional<SesionGui> s_;
    std::optional<ModulosDePrueba> m_;
    std::optional<Interlocutor> i_;
    int id_ = 0;
};

void PruebaContabiliza::se_guarda_sola_cuando_nadie_debe_confirmarla() {
    const int propuesta = proponga();
    convierta_propuesta(base(), propuesta, Libro::Decreto2649, "ADMIN");
    QCOMPARE(comprobantes(), "1");
    proponga();
    s_->dm.confirmar_contabilizacion = false;
    const auto espere = [](Tfcontabiliza& p) { QTRY_VERIFY(!p.isVisible()); };
    QVERIFY(revise(espere));       // nadie toca nada: se cierra sola
    QCOMPARE(comprobantes(), "0"); // el anterior se fue con sus dos libros
    QCOMPARE(s_->dato("select count(*) from comprobante_detalle_niif"), "0");
    QCOMPARE(s_->dato("select count(*) from contabilizacion_det"), "6");
}

void PruebaContabiliza::la_descuadrada_se_queda_hasta_que_cuadre() {
    const int propuesta = proponga();
    // El 2649 cuadra y el NIIF no: se dice en la página que toca.
    base().ejecute("update contabilizacion_det set cnde_creditos = 18000 where cnde_item = 100003");
    s_->dm.confirmar_contabilizacion = false;
    i_->espere_modal("Tfcontabiliza", [&](QWidget* w) {
        auto& p = *w->findChild<Tfcontabiliza*>("Tfcontabiliza");
        i_->espere("No puede grabar un comprobante descuadrado");
        QTRY_COMPARE(i_->vistos().size(), 2);
        QCOMPARE(p.PageControl1->currentIndex(), 1);
        agote_eventos(); // no vuelve a intentarlo sola
        agregue_linea(p);
        digite_celdas({"240805"});
        oprima(Qt::Key_F5);
        QCOMPARE(celda(p, "CNDE_CREDITOS"), "1000");
        oprima(Qt::Key_F2);
    });
    QVERIFY(revise_contabilizacion(31, id_));
    QCOMPARE(s_->dato("select sum(cnde_creditos) from contabilizacion_det where cnde_item >="
                      " 100000 and cntb_id = " +
                      QString::number(propuesta)),
             "119000");
    configure("PERMITIR COMPROBANTES DESCUADRADOS", "SI");
    base().ejecute("update contabilizacion_det set cnde_debitos = 1 where cnde_item = 1");
    QVERIFY(revise([](Tfcontabiliza& p) { QTRY_VERIFY(!p.isVisible()); }));
}

void PruebaContabiliza::cada_linea_pide_lo_que_su_cuenta_exige() {
    const int propuesta = proponga();
    QVERIFY(revise([&](Tfcontabiliza& p) {
        const auto rehusa = [&](const QStringList& celdas, const QString& mensaje,
                                int tecla = Qt::Key_F2) {
            agregue_linea(p);
            digite_celdas(celdas);
            i_->espere(mensaje);
            oprima(tecla);
            agote_eventos();
            QVERIFY(p.CContadetalle.editando());
            oprima(Qt::Key_Escape);
        };
        rehusa({"", "", "", "", "", "", "", "", "", "500"},
               "Debe indicar una cuenta para el movimiento.", Qt::Key_Up);
        rehusa({"130505", "", "", "", "", "", "", "", "", "500"},
               "Debe indicar un NIT para el movimiento.");
        rehusa({"236540", "900123456", "", "", "", "", "", "", "", "500"},
               "Debe indicar una base para el movimiento.");
        rehusa({"236540", "900123456", "", "", "", "", "", "1000"},
               "Debe indicar un porcentaje para el movimiento.");
        rehusa({"413506", "", "", "", "", "", "", "", "", "500"},
               "Debe indicar un Proyecto-Centro para el movimiento.");
        rehusa({"110515"}, "Debe indicar un valor débito o crédito para la cuenta 110515 o "
                           "eliminar el registro completo.");
        agregue_linea(p); // en blanco se quita sola
        oprima(Qt::Key_F2);
    }));
    QCOMPARE(s_->dato("select count(*) from contabilizacion_det where cntb_id = " +
                      QString::number(propuesta)),
             "6");
}

void PruebaContabiliza::las_lineas_nuevas_siguen_la_numeracion_de_su_libro() {
    proponga();
    // El 100000 se ve en la página NIIF, se valida con su plan y no cuenta para numerar.
    base().ejecute("delete from contabilizacion_det where cnde_item > 100001");
    base().ejecute("update contabilizacion_det set cnde_item = 100000 where cnde_item = 100001");
    (void)revise([&](Tfcontabiliza& p) {
        QCOMPARE(p.ultimo_item_2649(), 3);
        QCOMPARE(p.ultimo_item_niif(), 100001);
        QCOMPARE(valores_de(p.CContadetalle, "CNDE_ITEM"), QStringList({"1", "2", "3"}));
        agregue_linea(p);
        QCOMPARE(celda(p, "CNDE_ITEM"), "4");
        oprima(Qt::Key_Escape);
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(valores_de(p.CContadetalle, "CNDE_ITEM"), QStringList("100000"));
        agregue_linea(p);
        QCOMPARE(celda(p, "CNDE_ITEM"), "100002");
        oprima(Qt::Key_Escape);
        cierre(p);
    });
    base().ejecute("delete from contabilizacion_det");
    QVERIFY(revise([&](Tfcontabiliza& p) {
        QCOMPARE(p.ultimo_item_2649(), 1);
        oprima_en(p.lineas_2649->rejilla, Qt::Key_Insert);
        QCOMPARE(celda(p, "CNDE_ITEM"), "2");
        oprima(Qt::Key_Escape);
        oprima(Qt::Key_F2); // sin líneas no hay nada que cuadrar
    }));
}

void PruebaContabiliza::la_retencion_sale_de_la_base_y_de_la_tarifa_del_2649() {
    proponga();
    base().ejecute("update cuentas set cuen_basemin = 1000, cuen_porc = 2.5 where cuen_cod ="
                   " '236540'");
    base().ejecute("update cuentas_niif set cuen_basemin = 1, cuen_porc = 9 where cuen_cod ="
                   " '236540'");
    struct {
        const char *base, *porcentaje, *dice, *debito, *credito;
    } const casos[] = {
        {"1000", "", "2.5", "25", "0"},      // llega justo a la base mínima
        {"999.99", "", "", "", ""},          // un centavo menos
        {"-1000", "", "", "", ""},           // con signo, tampoco llega
        {"-4000", "2.5", "2.5", "0", "100"}, // al crédito
        {"10", "0.45", "0.45", "0.04", "0"}, // 0.0450, la mitad al par
    };
    (void)revise([&](Tfcontabiliza& p) {
        for (int pagina : {0, 1}) {
            if (pagina == 1)
                oprima(Qt::Key_PageDown, Qt::ControlModifier);
            for (const auto& c : casos) {
                agregue_linea(p);
                digite_celdas({"236540", "900123456", "", "", "", "", "", c.base, c.porcentaje});
                QCOMPARE(celda(p, "CNDE_PORC"), c.dice);
                QCOMPARE(celda(p, "CNDE_DEBITOS"), c.debito);
                QCOMPARE(celda(p, "CNDE_CREDITOS"), c.credito);
                oprima(Qt::Key_Escape);
            }
        }
        cierre(p);
    });
}

void PruebaContabiliza::la_comilla_repite_y_al_dejar_la_celda_se_completa() {
    proponga();
    base().ejecute("update contabilizacion set cntb_ref = 'REFERENCIA LARGA', cntb_concepto = 'Del "
                   "encabezado'");
    (void)revise([&](Tfcontabiliza& p) {
        agregue_linea(p);
        digite_celdas({"110515", "860002964", "", "", "Propio", "R-7", "", "", "", "10"});
        agregue_linea(p);
        digite_celdas({"110515", "\"", "", "", "\"", "\"", ""});
        QCOMPARE(celda(p, "CNDE_TERC"), "860002964");
        QCOMPARE(celda(p, "CNDE_CONC"), "Propio");
        QCOMPARE(celda(p, "CNDE_REF"), "R-7");
        QCOMPARE(p.lineas_2649->NomTerc->text(), "Banco de Bogotá");
        digite_celdas({"", "", "20"});
        // Vacíos: el NIT solo si la cuenta lo exige; el concepto y la referencia, del
        // encabezado.
        agregue_linea(p);
        digite_celdas({"110515", "", "", "", "", "", ""});
        QCOMPARE(celda(p, "CNDE_TERC"), "");
        QCOMPARE(celda(p, "CNDE_CONC"), "Del encabezado");
        QCOMPARE(celda(p, "CNDE_REF"), "REFERENC"); // la séptima columna es la categoría
        oprima(Qt::Key_Escape);
        agregue_linea(p);
        digite_celdas({"130505", ""});
        QCOMPARE(celda(p, "CNDE_TERC"), "860002964");
        oprima(Qt::Key_Escape);
        cierre(p);
    });
}

void PruebaContabiliza::el_doble_clic_pregunta_en_la_celda() {
    proponga();
    ListaFalsa<PideCuenta> cuentas("Tfcuentas"), cuentas_niif("Tfcuentasniif");
    ListaFalsa<PideTercero> terceros("Tfterceros");
    ListaFalsa<PideCentro> centros("Tfcentros");
    (void)revise([&](Tfcontabiliza& p) {
        const auto escoja = [&](const char* lista, int columna, auto conteste) {
            i_->espere_modal(lista, [conteste](QWidget*) { conteste(); });
            Rejilla& r = *p.lineas_a_la_vista().rejilla;
            r.OnDblClick(columna);
            agote_eventos();
        };
        escoja("Tfcuentas", 0, [&] { cuentas.cancele(); }); // sin escoger queda la que tenía
        QCOMPARE(celda(p, "CNDE_CUENTA"), "130505");
        escoja("Tfcuentas", 0, [&] { cuentas.conteste("110515"); });
        QCOMPARE(cuentas.pedida().texto_busqueda, "130505");
        QCOMPARE(celda(p, "CNDE_CUENTA"), "110515");
        escoja("Tfterceros", 1, [&] { terceros.conteste("800456789"); });
        QCOMPARE(celda(p, "CNDE_TERC"), "800456789");
        escoja("Tfcentros", 3, [&] { centros.conteste({"0002", "0002"}); });
        QCOMPARE(celda(p, "CNDE_PROY") + celda(p, "CNDE_CENTRO"), "00020002");
        escoja("Tfcentros", 2, [&] { centros.cancele(); });
        QCOMPARE(celda(p, "CNDE_PROY") + celda(p, "CNDE_CENTRO"), "00020002");
        // El "?" del centro espera a su proyecto.
        agregue_linea(p);
        digite_celdas({"110515", "", "", "?"});
        QCOMPARE(centros.veces(), 2);
        oprima(Qt::Key_Escape);
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        escoja("Tfcuentasniif", 0, [&] { cuentas_niif.conteste("110515"); });
        QCOMPARE(celda(p, "CNDE_CUENTA"), "110515");
        QCOMPARE(celda(p, "CNDE_ITEM"), "100001");
        QCOMPARE(centros.veces(), 2);
        cierre(p);
    });
}

void PruebaContabiliza::el_centro_debe_existir_y_ser_de_la_agencia() {
    proponga();
    configure("FILTRAR CENTROS DE COSTO POR AGENCIA", "SI");
    s_->dm.sucursal_usuario = 2;
    (void)revise([&](Tfcontabiliza& p) {
        const auto digite_centro = [&](const QString& proyecto, const QString& centro) {
            agregue_linea(p);
            digite_celdas({"110515", "", proyecto, centro});
            const QString queda = celda(p, "CNDE_PROY") + '-' + celda(p, "CNDE_CENTRO");
            oprima(Qt::Key_Escape);
            return queda;
        };
        QCOMPARE(digite_centro("0002", "0002"), "0002-0002"); // de la agencia
        QCOMPARE(digite_centro("0001", "0002"), "0001-0002"); // de todas
        for (const char* ajeno : {"0001", "0009"}) {
            i_->espere("Centro-subcentro no encontrado.");
            QCOMPARE(digite_centro("0002", ajeno), "-");
        }
        cierre(p);
    });
}

void PruebaContabiliza::la_plantilla_reemplaza_las_lineas_del_libro_a_la_vista() {
    proponga();
    ponga_plantilla();
    ListaFalsa<PidePlantilla> lista("Tfbuscplantilla");
    const QString pregunta = "Al traer la plantilla perderá los movimientos digitados en el "
                             "comprobante, Continuar?";
    QVERIFY(revise([&](Tfcontabiliza& p) {
        // Lo pegado se anuncia y, como la plantilla, se deshace una vez.
        const auto lineas = [&] {
            return (valores_de(p.CContadetalle, "CNDE_ITEM") +
                    valores_de(p.CContadetalle, "CNDE_CUENTA") +
                    valores_de(p.CContadetalle, "CNDE_DEBITOS"))
                .join('|');
        };
        const QString antes = lineas();
        p.CContadetalle.Last();
        p.lineas_2649->rejilla->setFocus();
        p.lineas_2649->rejilla->SelectedIndex(0);
        QApplication::clipboard()->setText("999999\n110515\t\t\t\t\t\t\t\t\t5\n110505\n");
        QStringList rehusadas;
        conteste_anuncio(*i_, "Pegar las demás (1)", &rehusadas);
        oprima(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rehusadas.value(1),
                 "3: Debe indicar un valor débito o crédito para la cuenta 110505.");
        QCOMPARE(valores_de(p.CContadetalle, "CNDE_CUENTA").mid(3, 1), QStringList({"110515"}));
        oprima(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(lineas(), antes);
        i_->espere_modal("Tfbuscplantilla", [&](QWidget*) { lista.conteste("50"); });
        i_->espere(pregunta, "Sí");
        oprima(Qt::Key_F9);
        QCOMPARE(p.CContadetalle.RecordCount(), 3);
        p.lineas_2649->rejilla->setFocus();
        for (int veces = 0; veces < 2; ++veces) {
            oprima(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(lineas(), antes);
        }
        for (const QString& respuesta : {"No", "Sí"}) {
            i_->espere_modal("Tfbuscplantilla", [&](QWidget*) { lista.conteste("50"); });
            i_->espere(pregunta, respuesta);
            oprima(Qt::Key_F9);
            QCOMPARE(p.CContadetalle.RecordCount(), 3);
            QCOMPARE(lineas() == antes, respuesta == "No");
        }
        QCOMPARE(valores_de(p.CContadetalle, "CNDE_ITEM"), QStringList({"8", "9", "10"}));
        QCOMPARE(valores_de(p.CContadetalle, "CNDE_CONC"),
                 QStringList({"Propio", "Prueba", "Prueba"}));
        // Lo que la plantilla trajo incompleto se pide antes de grabar, en su página.
        p.PageControl1->setCurrentIndex(1);
        dice(Qt::Key_F2, "Debe indicar un NIT para el movimiento.");
        QCOMPARE(p.PageControl1->currentIndex(), 0);
        QCOMPARE(celda(p, "CNDE_ITEM"), "10");
        p.CContadetalle.FieldByName("CNDE_TERC") = "800456789";
        dice(Qt::Key_F2, "Debe indicar un valor débito o crédito para la cuenta 130505 o eliminar "
                         "el registro completo.");
        p.CContadetalle.Cancel();
        p.CContadetalle.Delete();
        oprima(Qt::Key_F2);
    }));
    QCOMPARE(filas_de(base(), "select cnde_item, cnde_cuenta, cnde_debitos, cnde_creditos from"
                              " contabilizacion_det where cnde_item < 100000 order by 1"),
             "8|110515|119000|\n9|110505|0|119000");
    QCOMPARE(s_->dato("select count(*) from contabilizacion_det where cnde_item >= 100000"), "3");
}

void PruebaContabiliza::cada_pagina_recibe_las_lineas_de_su_libro_en_la_plantilla() {
    proponga();
    ponga_plantilla();
    ListaFalsa<PidePlantilla> lista("Tfbuscplantilla");
    (void)revise([&](Tfcontabiliza& p) {
        const auto traiga = [&] {
            i_->espere_modal("Tfbuscplantilla", [&](QWidget*) { lista.conteste("50"); });
            i_->espere("Al traer la plantilla perderá los movimientos digitados en el comprobante, "
                       "Continuar?",
                       "Sí");
            oprima(Qt::Key_F9);
            return valores_de(p.CContadetalle, "CNDE_CUENTA").join(' ');
        };
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(traiga(), "110515 110505 130505"); // no tiene del NIIF
        base().ejecute("insert into plantilla_detalle_niif (plan_id, plde_item, cuen_cod, "
                       "plde_debitos) values (50, 1, '240805', 70)");
        QCOMPARE(traiga(), "240805");
        QVERIFY(celda(p, "CNDE_ITEM").toInt() > 100000);
        oprima(Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(traiga(), "110515 110505 130505");
        cierre(p);
    });
}

void PruebaContabiliza::solo_se_cierra_sin_grabar_si_se_permite() {
    proponga();
    permita_cerrar("NO");
    QVERIFY(revise([&](Tfcontabiliza& p) {
        oprima(Qt::Key_Escape); // suelta la línea
        dice(Qt::Key_Escape, "Es necesario grabar el comprobante para poder cerrar");
        QVERIFY(p.isVisible());
        oprima(Qt::Key_F2);
    }));
    permita_cerrar("SI");
    QVERIFY(!revise([&](Tfcontabiliza& p) { p.close(); })); // sin cambios no pregunta
    const QString pregunta =
        "Desea salir del comprobante y perder los movimientos que no ha grabado?";
    QVERIFY(!revise([&](Tfcontabiliza& p) {
        agregue_linea(p);
        digite_celdas({"110515", "", "", "", "", "", "", "", "", "7"});
        p.CContadetalle.Post();
        i_->espere(pregunta, "No");
        p.close();
        QVERIFY(p.isVisible());
        i_->espere(pregunta, "Sí");
        p.close();
    }));
    QCOMPARE(s_->dato("select count(*) from contabilizacion_det"), "6");
}

void PruebaContabiliza::lo_que_otro_cambio_no_se_pisa() {
    const int propuesta = proponga();
    convierta_propuesta(base(), propuesta, Libro::Decreto2649, "ADMIN");
    permita_cerrar("NO"); // quien no puede grabar sí puede salir
    s_->dm.confirmar_contabilizacion = true;
    QVERIFY(!revise([&](Tfcontabiliza& p) {
        enfoque(&p, "DBGridEh1", 4);
        digite_celdas({"Lo mío"});
        base().ejecute("update contabilizacion_det set cnde_conc = 'Lo de otro' where cnde_item"
                       " = 1");
        i_->espere_comienzo("", "Aceptar");
        oprima(Qt::Key_F2);
        QVERIFY(p.isVisible());
        i_->espere("Desea salir del comprobante y perder los movimientos que no ha grabado?", "Sí");
        p.close();
    }));
    QCOMPARE(comprobantes(), "1"); // sin guardar no se borró nada
}

void PruebaContabiliza::lo_que_otro_contabilizo_mientras_se_revisa_no_se_borra() {
    permita_cerrar("NO"); // ni así se queda encerrado quien llega tarde
    s_->dm.confirmar_contabilizacion = true;
    const auto quien = [&] { return s_->dato("select enco_usuario from comprobante_encabezado"); };
    for (const bool la_rehizo : {true, false}) {
        int propuesta = proponga();
        s_->dm.confirmar_contabilizacion = true;
        QVERIFY(!revise([&](Tfcontabiliza&) {
            if (la_rehizo)
                propuesta = contabil(base(), "contabil_factura", {id_, 1}).section('|', 2).toInt();
            convierta_propuesta(base(), propuesta, Libro::Decreto2649, "OTRO");
            i_->espere_comienzo(la_rehizo ? "La propuesta ya no existe: otro usuario volvió a"
                                          : "El documento ya fue contabilizado por otro usuario"
                                            " en el comprobante CG 0001 ");
            oprima(Qt::Key_F2);
        }));
        QCOMPARE(quien(), "OTRO");
        // Quien lo abre ya sabiéndolo sí lo reemplaza.
        QVERIFY(revise([](Tfcontabiliza&) { oprima(Qt::Key_F2); }));
        QCOMPARE(comprobantes(), "0");
    }
    // Sin revisión es lo mismo: la propuesta que otro rehízo no borra el comprobante de él.
    const int vieja = proponga();
    const int nueva = contabil(base(), "contabil_factura", {id_, 1}).section('|', 2).toInt();
    convierta_propuesta(base(), nueva, Libro::Decreto2649, "OTRO");
    QVERIFY_THROWS_EXCEPTION(
        ErrorOtroUsuario,
        (void)asiente_sin_revisar(base(), {31, id_}, vieja, Libro::Decreto2649, false, "ADMIN"));
    QCOMPARE(quien(), "OTRO");
}

void PruebaContabiliza::el_libro_niif_solo_se_muestra_si_sale_de_la_interfaz() {
    proponga();
    configure(kPorInterfaz, "EQUIVALENCIAS");
    QVERIFY(revise([&](Tfcontabiliza& p) {
        QVERIFY(!p.PageControl1->isTabVisible(1));
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(p.PageControl1->currentIndex(), 0);
        oprima(Qt::Key_F2);
    }));
}

QTEST_MAIN(PruebaContabiliza)
#include "prueba_contabiliza.moc"
