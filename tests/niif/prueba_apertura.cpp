// La apertura NIIF y la conciliación, con teclas: traer, rehacer, anotar, la hoja de cálculo,
// borrar, imprimir, llevar a los saldos iniciales, y de una diferencia a su comprobante.
#include "apoyo_gui/anuncio.h"
#include "apoyo_gui/huerfano.h"
#include "apoyo_gui/sesion_gui.h"
#include "datos/recordset/indice_busqueda.h"
#include "niif/paginas.h"
#include "niif/peticiones_niif.h"
#include "niif/registro.h"
#include "niif/tfbalaperturaniif.h"
#include "niif/tfconciliacta.h"
#include "niif/tfconciliapat.h"
#include "niif/tfmovbalapniif.h"
#include "sesion/borrador_filas.h"

#include "toolkit/lista_teclas.h"

namespace {
const QString kTraer =
    "Esta opción copia los saldos detallados por tercero y centro del plan COLGAP "
    "(Dec.2649) al plan NIIF. (Puede demorar varios minutos). Desea continuar?";
const QString kFaltan = "Faltan cuentas por reclasificar o ajustar. Esta seguro de Salir?";
const QString kBorrar =
    "Desea borrar definitivamente los saldos iniciales de NIIF trabajados a la fecha?";
constexpr int kMsDeOtro = 60000; ///< lo que se espera a otro proceso, aunque el equipo esté lleno

QByteArray lea(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
} // namespace

class PruebaApertura : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup() {
        i_.reset();
        s_.reset();
    }

    void traer_saldos_los_cruza_todos_y_no_se_repite();
    void la_cuenta_sin_equivalente_no_detiene_a_las_demas();
    void muchos_terceros_se_traen_y_se_graban();
    void el_detalle_no_cierra_descuadrado_y_guarda_la_nota();
    void una_linea_nueva_nace_con_el_saldo_y_suma_su_final();
    void mirar_una_cuenta_que_no_esta_no_la_agrega();
    void los_saldos_iniciales_son_los_del_ano_anterior();
    void borrar_la_hoja_pregunta_y_tambien_graba();
    void una_muerte_no_pierde_lo_digitado();
    void salir_con_cambios_pregunta();
    void la_hoja_de_calculo_va_y_vuelve();
    void esc_cierra_lo_que_la_hoja_arranco_y_una_muerte_no_la_pierde();
    void llevarla_a_los_saldos_iniciales_dice_las_cifras();
    void los_inventarios_pasan_con_su_articulo();
    void dos_usuarios_en_la_misma_cuenta_no_se_pisan();
    void sin_la_opcion_no_se_entra();
    void la_conciliacion_llega_hasta_el_comprobante();

private:
    QString filas(const QString& sql) { return filas_de(s_->base.base(), sql); }
    Tfbalaperturaniif* abra() { return s_->abra<Tfbalaperturaniif>("Tfbalaperturaniif"); }
    Tfbalaperturaniif* traiga() {
        Tfbalaperturaniif* p = abra();
        i_->espere(kTraer, "Sí");
        i_->espere("Se trajeron los saldos de 4 cuentas. Grábelos con F2.");
        oprima(Qt::Key_F7);
        return p;
    }
    void pegue_conceptos(Tfbalaperturaniif* p);
    void grabe_y_siga() { dice(Qt::Key_F2, kFaltan, "No"); }
    /// Deja la rejilla principal en la cuenta y abre su detalle.
    void detalle(Tfbalaperturaniif* p, const QString& cuenta) {
        QVERIFY(p->CAjusniif.Locate("CODIGO", {cuenta}));
        oprima_en(p->DBGridEh1, Qt::Key_F5);
        QCOMPARE(p->paginas->currentIndex(), int(Tfbalaperturaniif::Detalle));
    }
    /// Abre la hoja de la cuenta a la vista con un programa de mentira.
    void abra_hoja(Tfbalaperturaniif* p, const QByteArray& guion) {
        const QString ruta = s_->base.ruta() + "/hoja.sh";
        QFile f(ruta);
        QFile::remove(ruta);
        if (f.open(QIODevice::WriteOnly))
            f.write("#!/bin/sh\n" + guion);
        f.close();
        f.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("QUORVEX_HOJA_CALCULO", guion.isEmpty() ? "/no/esta" : ruta.toLocal8Bit());
        componente<QPushButton>(p, "AdvGlowButton7").click();
    }

    std::optional<SesionGui> s_;
    std::optional<Interlocutor> i_;
};

void PruebaApertura::init() {
    s_.emplace();
    i_.emplace();
    registre_pantallas_niif();
    s_->base.ejecute({"update configuracion set conf_valor = '2018' where conf_propiedad in ('AÑO "
                      "BALANCE DE APERTURA NIIF', 'AÑO DE INICIO NIIF')"});
    s_->dm.cargue_configuracion();
    // Caja 100; clientes 50 y 30; capital -160; y una venta, que no se trae.
    grabe(s_->base.base(), 1, "20170301",
          {{1, "110505", 100, 0},
           {2, "130505", 50, 0, "900123456"},
           {3, "130505", 30, 0, "860002964"},
           {4, "310505", 0, 160},
           {5, "413505", 0, 20, {}, "0002", "0001"}});
    grabe(s_->base.base(), 2, "20171305", {{1, "152405", 7, 0}, {2, "110505", 0, 7}});
    grabe(s_->base.base(), 3, "20180105", {{1, "110505", 999, 0}, {2, "111005", 0, 999}});
}

void PruebaApertura::traer_saldos_los_cruza_todos_y_no_se_repite() {
    Tfbalaperturaniif* p = traiga();
    QCOMPARE(s_->dato("select count(*) from apertura_niif"), "0"); // aún sin grabar
    grabe_y_siga();
    QCOMPARE(filas("select cuen_cod, apni_cuenniif, apni_saldoant from "
                   "apertura_niif order by cuen_cod"),
             "110505|110505|93\n130505|130505|80\n152405|152405|7\n310505|310505|-160");
    // Cada saldo, al revés según su signo.
    QCOMPARE(filas("select apnd_item, apnd_cuenta, apnd_ctaniif, terc_nit, apnd_saldoini, "
                   "apnd_recldb, apnd_reclcr, apnd_saldofin from apertura_niif_det where cuen_cod "
                   "in ('130505', '310505') order by cuen_cod, apnd_item"),
             "1|130505||860002964|30|0|30|0\n2||130505|860002964|0|30|0|30\n"
             "3|130505||900123456|50|0|50|0\n4||130505|900123456|0|50|0|50\n"
             "1|310505|||-160|160|0|0\n2||310505||0|0|160|-160");
    // Lo que sale es lo que entra.
    QCOMPARE(s_->dato("select sum(apnd_recldb - apnd_reclcr + apnd_debito - apnd_credito) from "
                      "apertura_niif_det"),
             "0");
    QCOMPARE(p->Difdeb->text(), QString());
    QVERIFY(p->CAjusniif.Locate("CODIGO", {"110505"}));
    QCOMPARE(p->CAjusniif.FieldByName("FINAL").texto(), "0");
    QCOMPARE(p->CAjusniif.FieldByName("NUEVO").texto(), "93");
    QCOMPARE(p->CAjusniif.FieldByName("CUENTANIIF").texto(), "110505");
    dice(Qt::Key_F7,
         "Ya hay movimientos de apertura regstrados. Debe Borrarlos antes de poder traer los "
         "saldos.");
    // F6: el libro lo dice la columna.
    p->DBGridEh1->SelectedIndex(9);
    oprima(Qt::Key_F6);
    auto* m = qobject_cast<Tfmovbalapniif*>(escritorio()->activa());
    QVERIFY(m);
    QCOMPARE(valores_de(m->CMovimiento, "APND_DEBITO"), QStringList("93"));
    oprima(Qt::Key_Escape);
    agote_eventos();
    p->DBGridEh1->SelectedIndex(2);
    oprima(Qt::Key_F6);
    m = qobject_cast<Tfmovbalapniif*>(escritorio()->activa());
    QCOMPARE(valores_de(m->CMovimiento, "APND_CREDITO"), QStringList("93"));
}

void PruebaApertura::la_cuenta_sin_equivalente_no_detiene_a_las_demas() {
    s_->base.ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '130505'"});
    Tfbalaperturaniif* p = abra();
    i_->espere(kTraer, "Sí");
    i_->espere("Se trajeron los saldos de 4 cuentas. Grábelos con F2.\nSin cuenta NIIF "
               "equivalente, falta la línea que recibe el saldo de 1: 130505.");
    oprima(Qt::Key_F7);
    grabe_y_siga();
    QCOMPARE(filas("select cuen_cod, count(*) from apertura_niif_det group by "
                   "1 order by 1"),
             "110505|2\n130505|2\n152405|2\n310505|2");
    // Lo que falta por recibir es la diferencia que se muestra.
    QCOMPARE(p->DifCred->text(), "80.00");
}

void PruebaApertura::muchos_terceros_se_traen_y_se_graban() {
    constexpr int kTerceros = 10000;
    s_->base.ejecute(
        {QStringLiteral("execute block as declare i integer = 1; begin while (i <= %1) do begin "
                        "insert into terceros (terc_nit, terc_nom) values ('7' || lpad(:i, 8, "
                        "'0'), 'Tercero ' || :i); insert into saldos_iniciales (sain_item, "
                        "cuen_cod, terc_nit, sain_debito) values (:i, '130505', '7' || lpad(:i, "
                        "8, '0'), :i); i = i + 1; end end")
             .arg(kTerceros)});
    abra();
    i_->espere(kTraer, "Sí");
    i_->espere("Se trajeron los saldos de 4 cuentas. Grábelos con F2.");
    IndiceBusqueda::llaves_leidas = 0;
    oprima(Qt::Key_F7);
    // Por cada línea, unas pocas: no las de todas las que ya están en la cuenta.
    QVERIFY(IndiceBusqueda::llaves_leidas < 3 * 2 * kTerceros);
    grabe_y_siga();
    QCOMPARE(s_->dato("select count(*) || '/' || sum(apnd_recldb) || '/' || sum(apnd_reclcr) from "
                      "apertura_niif_det where cuen_cod = '130505'"),
             QStringLiteral("%1/%2.00/%2.00")
                 .arg(2 * (kTerceros + 2))
                 .arg(kTerceros * (kTerceros + 1) / 2 + 80));
}

void PruebaApertura::el_detalle_no_cierra_descuadrado_y_guarda_la_nota() {
    Tfbalaperturaniif* p = traiga();
    grabe_y_siga();
    detalle(p, "110505");
    QVERIFY2(p->Ancestros->text().startsWith("1 "), qPrintable(p->Ancestros->text()));
    p->CAperniifdet.First();
    p->CAperniifdet.Edit();
    p->CAperniifdet.FieldByName("APND_DEBITO") = 10;
    p->CAperniifdet.Post();
    dice(Qt::Key_F2, "No puede grabar un ajuste NIIF descuadrado.");
    QCOMPARE(p->paginas->currentIndex(), int(Tfbalaperturaniif::Detalle));
    // F5 en la línea que sigue pone lo que cuadra.
    p->CAperniifdet.Cancel();
    p->CAperniifdet.Next();
    oprima_en(p->DBGridEh2, Qt::Key_F5);
    QCOMPARE(p->CAperniifdet.FieldByName("APND_CREDITO").texto(), "10");
    QCOMPARE(p->CAperniifdet.FieldByName("APND_SALDOFIN").texto(), "83");
    digite_en(p->APNI_NOTA, "Deterioro", Qt::Key_F2);
    QCOMPARE(p->paginas->currentIndex(), int(Tfbalaperturaniif::Principal));
    grabe_y_siga();
    QCOMPARE(s_->dato("select apni_nota from apertura_niif where cuen_cod = '110505'"),
             "Deterioro");
    QCOMPARE(s_->dato("select debito from balance_inicial_niif where cuenta = '110505'"), "83");
    QCOMPARE(s_->dato("select sum(apnd_debito - apnd_credito) from apertura_niif_det"), "0");
}

void PruebaApertura::una_linea_nueva_nace_con_el_saldo_y_suma_su_final() {
    Tfbalaperturaniif* p = abra();
    detalle(p, "110505"); // aún no está en la hoja
    QCOMPARE(p->CSaldos.FieldByName("APNI_CUENNIIF").texto(), "110505");
    p->CAperniifdet.Append();
    const auto campo = [&](const char* c) { return p->CAperniifdet.FieldByName(c).texto(); };
    QCOMPARE(campo("APND_ITEM"), "1");
    QCOMPARE(campo("APND_CUENTA"), "110505");
    QCOMPARE(campo("APND_SALDOINI"), "93");
    QCOMPARE(campo("APND_RECLCR"), "93");
    QCOMPARE(campo("APND_SALDOFIN"), "0");
    p->CAperniifdet.FieldByName("APND_RECLCR") = 90;
    QCOMPARE(campo("APND_SALDOFIN"), "3");
    p->CAperniifdet.FieldByName("TERC_NIT") = "52345678";
    i_->espere_comienzo("Tercero");
    p->CAperniifdet.FieldByName("TERC_NIT") = "1";
    QCOMPARE(campo("TERC_NIT"), QString());
    // El "?" abre la lista de cada celda; salir sin escoger deja lo que había.
    ListaFalsa<PideCuenta> cuentas("Tfcuentas"), niif("Tfcuentasniif");
    ListaFalsa<PideTercero> terceros("Tfterceros");
    ListaFalsa<PideCentro> centros("Tfcentros");
    ListaFalsa<PideActivo> activos("Tfactivos");
    const auto pregunte = [&](const char* celda, const QString& texto, auto& lista,
                              const auto& respuesta) {
        const QString antes = campo(celda);
        p->CAperniifdet.FieldByName(celda) = texto;
        lista.cancele();
        agote_eventos();
        QCOMPARE(campo(celda), antes);
        p->CAperniifdet.FieldByName(celda) = texto;
        lista.conteste(respuesta);
        agote_eventos();
    };
    pregunte("APND_CUENTA", "?1105", cuentas, "110505");
    QCOMPARE(cuentas.pedida().texto_busqueda, "1105");
    pregunte("APND_CTANIIF", "?", niif, "111005");
    pregunte("TERC_NIT", "?", terceros, "900123456");
    pregunte("CENT_COD", "?", centros, CentroEscogido{"0002", "0001"});
    pregunte("ACTI_COD", "?EQ", activos, "EQ1"); // no es de inventarios: un activo
    QCOMPARE(activos.pedida().activo_localizar, "EQ");
    QCOMPARE(campo("APND_CUENTA") + campo("APND_CTANIIF") + campo("TERC_NIT") + campo("PROY_COD") +
                 campo("CENT_COD") + campo("ACTI_COD"),
             "11050511100590012345600020001EQ1");
    p->CAperniifdet.FieldByName("APND_CTANIIF") = "";
    p->CAperniifdet.Post();
    // Con las teclas: la cuenta se completa, el importe se calcula y lo pegado se deshace.
    enfoque(p, "DBGridEh2", p->DBGridEh2->columna_de("APND_CTANIIF"));
    digite("1110", Qt::Key_Down, Qt::Key_Return);
    QCOMPARE(campo("APND_CTANIIF"), "111005");
    enfoque(p, "DBGridEh2", p->DBGridEh2->columna_de("APND_DEBITO"));
    digite("100*0.19", Qt::Key_Return);
    QCOMPARE(campo("APND_DEBITO"), "19");
    pegue_conceptos(p);
    oprima(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(p->CAperniifdet.RecordCount(), 1);
    QCOMPARE(campo("APND_CONCEPTO") + campo("APND_CTANIIF"), "111005");
    QCOMPARE(p->DetDebito->text(), "19.00");
    // Sin ninguna de las dos cuentas la línea no entra.
    p->CAperniifdet.Append();
    p->CAperniifdet.FieldByName("APND_CUENTA") = "";
    QVERIFY_EXCEPTION_THROWN(p->CAperniifdet.Post(), EdicionAbortada);
    QCOMPARE(p->CAperniifdet.RecordCount(), 1);
}

/// Dice qué filas no entran; la que caía sobre la línea que ya está la deja como estaba.
void PruebaApertura::pegue_conceptos(Tfbalaperturaniif* p) {
    QApplication::clipboard()->setText("Ajuste\t123\tX\nDe más\t900123456\t0002\t0099\n"
                                       "Otro\t900123456\t0002\t0001\nCuarta\t\t\t\n"
                                       "Quinta\t\t\t\tX9\n");
    enfoque(p, "DBGridEh2", p->DBGridEh2->columna_de("APND_CONCEPTO"));
    QStringList rehusadas, columnas;
    conteste_anuncio(*i_, "Pegar las demás (2)", &rehusadas, &columnas);
    oprima(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(columnas.join('|'), "Columna 1: Concepto|Columna 2: Tercero|Columna 3: Proy|"
                                 "Columna 4: Centro|Columna 5: Artíc./activo");
    QCOMPARE(rehusadas.join('|'), "1: El tercero 123 no existe o está inactivo.|"
                                  "2: El centro 0099 del proyecto 0002 no existe.|"
                                  "5: El artículo o activo X9 no existe.");
    QCOMPARE(valores_de(p->CAperniifdet, "APND_CONCEPTO"), QStringList({"", "Otro", "Cuarta"}));
}

void PruebaApertura::mirar_una_cuenta_que_no_esta_no_la_agrega() {
    Tfbalaperturaniif* p = abra();
    detalle(p, "110505");
    oprima(Qt::Key_Escape);
    QCOMPARE(p->paginas->currentIndex(), int(Tfbalaperturaniif::Principal));
    QCOMPARE(p->CSaldos.ChangeCount(), 0);
    i_->espere(kTraer, "No"); // se puede traer: la hoja sigue vacía
    oprima(Qt::Key_F7);
    oprima(Qt::Key_Escape); // y salir sin que pregunte
    agote_eventos();
    QVERIFY(!escritorio()->abierta("Tfbalaperturaniif"));
}

void PruebaApertura::los_saldos_iniciales_son_los_del_ano_anterior() {
    Conexion& c = s_->base.base();
    const int ano = int(c.consulte("select ano_inicio('2649') from rdb$database").entero());
    s_->base.ejecute({"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values "
                      "(1, '111005', 40)",
                      "insert into saldos_iniciales (sain_item, cuen_cod, sain_credito) values "
                      "(2, '310505', 40)"});
    const auto saldos = [&](int de, int mes, const char* inicio) {
        return filas_de(c, QStringLiteral("select codigo, saldo from balance_final_det('%1', %2, "
                                          "'%3')")
                               .arg(de)
                               .arg(mes)
                               .arg(QLatin1String(inicio)));
    };
    QCOMPARE(saldos(ano - 1, 13, "N"), "111005|40\n310505|-40");
    QCOMPARE(saldos(ano - 1, 12, "N"), QString());
    QCOMPARE(saldos(ano - 1, 13, "S"), QString());
    QCOMPARE(saldos(ano - 2, 13, "N"), QString());
    QCOMPARE(saldos(ano, 0, "N"), "111005|40\n310505|-40");
}

void PruebaApertura::borrar_la_hoja_pregunta_y_tambien_graba() {
    Tfbalaperturaniif* p = traiga();
    grabe_y_siga();
    dice(Qt::Key_F3, kBorrar, "No");
    QCOMPARE(s_->dato("select count(*) from apertura_niif"), "4");
    i_->espere(kBorrar, "Sí");
    i_->espere(kFaltan, "No");
    oprima(Qt::Key_F3);
    QCOMPARE(s_->dato("select count(*) from apertura_niif_det"), "0");
    QVERIFY(p->CSaldos.IsEmpty());
    i_->espere(kTraer, "No"); // y se puede volver a traer
    oprima(Qt::Key_F7);
}

void PruebaApertura::una_muerte_no_pierde_lo_digitado() {
    AvisosBarra barra;
    s_->dm.barra(&barra);
    const auto sin_barra = qScopeGuard([this] { s_->dm.barra(nullptr); });
    Tfbalaperturaniif* p = traiga();
    QCOMPARE(barra.text(), "Traídos los saldos de 4 cuentas: grábelos con F2.");
    // Muere con el detalle de una cuenta a medias: al volver están los saldos traídos y se sigue en
    // esa cuenta, hasta cuadrarla.
    detalle(p, "130505");
    p->CAperniifdet.Last();
    enfoque(p, "DBGridEh2", p->DBGridEh2->columna_de("APND_DEBITO"));
    digite("10", Qt::Key_Return);
    digite_en(p->APNI_NOTA, "Deterioro");
    p->DBGridEh2->setFocus();
    const RelojDetenido a_las_diez({2018, 5, 15}, {10, 0});
    const QDir carpeta = deje_huerfano(*p->findChild<BorradorFilas*>());
    {
        const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
        QVERIFY(p->close());
    }
    agote_eventos();
    QCOMPARE(barra.text(), ""); // ya no hay qué grabar
    QCOMPARE(borradores(carpeta), QStringList({"huerfano.borrador"}));
    QCOMPARE(s_->dato("select count(*) from apertura_niif"), "0");
    i_->espere("Hace un momento quedaron sin grabar cambios de la apertura en 4 cuentas. Desea "
               "retomarlos?",
               "Sí");
    p = abra();
    QCOMPARE(barra.text(), "Retomados los cambios de 4 cuentas: grábelos con F2.");
    QCOMPARE(p->paginas->currentIndex(), int(Tfbalaperturaniif::Detalle));
    QCOMPARE(p->CSaldos.FieldByName("CUEN_COD").texto() + p->APNI_NOTA->toPlainText() +
                 p->DetDebito->text(),
             "130505Deterioro10.00");
    p->CAperniifdet.First();
    oprima_en(p->DBGridEh2, Qt::Key_F5, Qt::Key_F2);
    grabe_y_siga();
    QVERIFY(borradores(carpeta).isEmpty());
    QCOMPARE(filas("select (select count(*) from apertura_niif), count(*), sum(apnd_debito), "
                   "sum(apnd_credito), (select list(apni_nota) from apertura_niif) from "
                   "apertura_niif_det"),
             "4|10|10|10|Deterioro");
}

void PruebaApertura::salir_con_cambios_pregunta() {
    Tfbalaperturaniif* p = traiga();
    // En el detalle, la nota a medio escribir; y F1 dice lo que hacen ahí las teclas.
    const auto que_hace_f2 = [p] {
        for (const TeclaExplicada& t : teclas_explicadas(*p))
            if (t.tecla == "F2")
                return t.que_hace;
        return QString();
    };
    QCOMPARE(que_hace_f2(), "Grabar");
    detalle(p, "110505");
    QCOMPARE(que_hace_f2(), "Continuar");
    digite_en(p->APNI_NOTA, "A medias");
    dice(Qt::Key_Escape, "Desea salir del detalle y perder los cambios que no ha aceptado?", "No");
    QCOMPARE(p->APNI_NOTA->toPlainText(), "A medias");
    dice(Qt::Key_Escape, "Desea salir del detalle y perder los cambios que no ha aceptado?", "Sí");
    QCOMPARE(p->paginas->currentIndex(), int(Tfbalaperturaniif::Principal));
    // También las líneas que ya habían entrado: la cambiada, la quitada y la nueva.
    detalle(p, "110505");
    const QStringList antes = valores_de(p->CAperniifdet, "APND_SALDOFIN");
    p->CAperniifdet.First();
    p->CAperniifdet.Edit();
    p->CAperniifdet.FieldByName("APND_DEBITO") = 10;
    p->CAperniifdet.Post();
    p->CAperniifdet.Last();
    p->CAperniifdet.Delete();
    for (int i = 0; i < 2; ++i) {
        p->CAperniifdet.Append();
        p->CAperniifdet.Post();
    }
    dice(Qt::Key_Escape, "Desea salir del detalle y perder los cambios que no ha aceptado?", "Sí");
    detalle(p, "110505");
    QCOMPARE(valores_de(p->CAperniifdet, "APND_SALDOFIN"), antes);
    oprima(Qt::Key_Escape);
    dice(Qt::Key_Escape, "Desea salir del comprobante y perder los movimientos que no ha grabado?",
         "No");
    QVERIFY(escritorio()->abierta("Tfbalaperturaniif"));
    i_->espere("Desea salir del comprobante y perder los movimientos que no ha grabado?", "Sí");
    oprima(Qt::Key_Escape);
    agote_eventos();
    QVERIFY(!escritorio()->abierta("Tfbalaperturaniif"));
    QCOMPARE(s_->dato("select count(*) from apertura_niif"), "0");
}

void PruebaApertura::la_hoja_de_calculo_va_y_vuelve() {
    Tfbalaperturaniif* p = traiga();
    grabe_y_siga();
    detalle(p, "110505");
    i_->espere_comienzo("Se presento el siguiente error: No se encontró en este equipo un programa "
                        "de hojas de cálculo.");
    abra_hoja(p, {});
    QCOMPARE(p->paginas->currentIndex(), int(Tfbalaperturaniif::Detalle));
    const QString ruta = s_->base.ruta() + "/Apniif110505.xlsx",
                  candado = s_->base.ruta() + "/.~lock.Apniif110505.xlsx#";
    const auto pagina = [p] { return Tfbalaperturaniif::Pagina(p->paginas->currentIndex()); };
    const auto aun_abierta = [&] {
        dice(Qt::Key_F2,
             "Guarde la hoja y cierre el programa de hojas de cálculo antes de continuar.");
        QCOMPARE(pagina(), Tfbalaperturaniif::Hoja);
    };
    // Nace en blanco. El programa sigue abierto o se la pasó a otra ventana, que pone un candado.
    abra_hoja(p, "head -c 2 \"$1\" > \"$1.visto\"\nwhile [ -e \"$1.visto\" ]; do sleep 0.05; done\n"
                 "printf 'PK editada' > \"$1\"\n"
                 "touch \"$(dirname \"$1\")/.~lock.$(basename \"$1\")#\"\n");
    QCOMPARE(pagina(), Tfbalaperturaniif::Hoja);
    QCOMPARE(p->hoja.ruta(), ruta);
    QTRY_COMPARE_WITH_TIMEOUT(lea(ruta + ".visto"), QByteArray("PK"), kMsDeOtro);
    aun_abierta();
    i_->espere("Desea salir del comprobante y perder los movimientos que no ha grabado?", "No");
    p->close(); // con la hoja abierta se pregunta, aunque nada más haya cambiado
    QVERIFY(p->hoja.abierta());
    QFile::remove(ruta + ".visto");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(candado), kMsDeOtro);
    aun_abierta();
    QFile::remove(candado);
    QTRY_VERIFY_WITH_TIMEOUT(!p->hoja.en_uso(), kMsDeOtro);
    oprima(Qt::Key_F2);
    QCOMPARE(pagina(), Tfbalaperturaniif::Detalle);
    QVERIFY(!QFile::exists(ruta));
    // Lo guardado es lo que se abre. Con Esc no queda nada, aunque el programa la haya cambiado.
    abra_hoja(p, "cp \"$1\" \"$1.visto\"\nprintf 'PK otra' > \"$1\"\n");
    QTRY_VERIFY_WITH_TIMEOUT(!p->hoja.en_uso(), kMsDeOtro);
    QCOMPARE(lea(ruta + ".visto"), QByteArray("PK editada"));
    oprima(Qt::Key_Escape);
    QCOMPARE(pagina(), Tfbalaperturaniif::Detalle);
    QVERIFY(!QFile::exists(ruta));
    // Un archivo que dejó de ser un libro no se recoge.
    abra_hoja(p, "printf texto > \"$1\"\n");
    QTRY_VERIFY_WITH_TIMEOUT(!p->hoja.en_uso(), kMsDeOtro);
    i_->espere_comienzo("Se presento el siguiente error: " + ruta +
                        " no quedó como un libro xlsx.");
    oprima_seguidas({Qt::Key_F2, Qt::Key_Escape, Qt::Key_F2});
    grabe_y_siga();
    QCOMPARE(s_->base.base()
                 .consulte("select apni_archivo from apertura_niif where cuen_cod = '110505'")
                 .binario(),
             QByteArray("PK editada"));
}

void PruebaApertura::esc_cierra_lo_que_la_hoja_arranco_y_una_muerte_no_la_pierde() {
    Tfbalaperturaniif* p = traiga();
    grabe_y_siga();
    detalle(p, "110505");
    const QString ruta = s_->base.ruta() + "/Apniif110505.xlsx";
    // Otra ventana no la abre mientras tanto, y Esc cierra también lo que el guion arrancó.
    abra_hoja(p, "sh -c 'echo $$ > \"$0.visto\"; exec sleep 600' \"$1\"\n:\n");
    QTRY_VERIFY_WITH_TIMEOUT(lea(ruta + ".visto").endsWith('\n'), kMsDeOtro);
    const QString hijo = "/proc/" + QString(lea(ruta + ".visto")).trimmed() + "/cmdline";
    QTRY_VERIFY_WITH_TIMEOUT(lea(hijo).startsWith("sleep"), kMsDeOtro);
    HojaTrabajo otra;
    QVERIFY_EXCEPTION_THROWN(otra.abra("110505", {}), ErrorDatos);
    QVERIFY(!otra.abierta() && QFile::exists(ruta));
    oprima(Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(lea(hijo).isEmpty(), kMsDeOtro);
    // Lo que el programa dejó al morir con ella abierta se guarda aparte y se dice.
    ponga_archivo(ruta, "PK de ayer");
    abra_hoja(p, "exit 0\n");
    const QString aparte = s_->base.ruta() + "/Apniif110505_anterior.xlsx";
    QVERIFY(componente<QLabel>(p, "LHoja").text().endsWith(aparte));
    QCOMPARE(lea(aparte), QByteArray("PK de ayer"));
    oprima(Qt::Key_Escape);
}

void PruebaApertura::llevarla_a_los_saldos_iniciales_dice_las_cifras() {
    traiga();
    dice(Qt::Key_F12, "Grabe antes la hoja con F2: los saldos iniciales salen de lo grabado.");
    grabe_y_siga();
    QCOMPARE(filas("select importe_con_miles(-0.5), importe_con_miles(999.99), "
                   "importe_con_miles(-1234567.8) from rdb$database"),
             "-0.50|999.99|-1,234,567.80");
    // Sin la utilidad del año, las clases 1 a 3 no cuadran.
    dice(Qt::Key_F12, "El balance de apertura está descuadrado: débitos 180.00, créditos 160.00.");
    s_->base.ejecute({"insert into apertura_niif (cuen_cod) values ('360505')",
                      "insert into apertura_niif_det (cuen_cod, apnd_item, apnd_ctaniif, "
                      "apnd_reclcr) values ('360505', 1, '360505', 20)",
                      "insert into saldos_iniciales_niif (sain_item, cuen_cod, sain_debito) values "
                      "(1, '110505', 1)"});
    const QString pregunta = "Se reemplazará el único saldo inicial NIIF que hay por los 6 de esta "
                             "hoja: débitos 180.00, créditos 180.00. Desea continuar?";
    dice(Qt::Key_F12, pregunta, "No");
    QCOMPARE(s_->dato("select count(*) from saldos_iniciales_niif"), "1");
    i_->espere(pregunta, "Sí");
    i_->espere("Los saldos iniciales NIIF son ahora los del balance de apertura.");
    oprima(Qt::Key_F12);
    QCOMPARE(filas("select cuen_cod, terc_nit, sain_debito, sain_credito from "
                   "saldos_iniciales_niif order by sain_item"),
             "110505||93|0\n130505|860002964|30|0\n130505|900123456|50|0\n152405||7|0\n"
             "310505||0|160\n360505||0|20");
    QCOMPARE(saldos_distintos(s_->base.base()), QString());
}

void PruebaApertura::los_inventarios_pasan_con_su_articulo() {
    s_->base.ejecute(
        {"insert into articulo (arti_cod, arti_des) values ('A1', 'Puntillas')",
         "insert into articulo (arti_cod, arti_des) values ('A2', 'Tornillos')",
         "update cuentas set cuen_tipo = 'I' where cuen_cod = '152405'",
         "update cuentas_niif set cuen_tipo = 'I' where cuen_cod = '152405'",
         "insert into saldos_iniciales (sain_item, cuen_cod, arti_cod, sain_debito) values "
         "(1, '152405', 'A1', 4)",
         "insert into saldos_iniciales (sain_item, cuen_cod, arti_cod, sain_debito) values "
         "(2, '152405', 'A2', 3)",
         "insert into saldos_iniciales (sain_item, cuen_cod, arti_cod, sain_debito) values "
         "(3, '110505', 'A2', 1)",
         "update configuracion set conf_valor = 'SI' where conf_propiedad = 'PERMITIR "
         "COMPROBANTES DESCUADRADOS'"});
    s_->dm.cargue_configuracion();
    Tfbalaperturaniif* p = traiga();
    grabe_y_siga();
    const QString entran =
        "select coalesce(acti_cod, '-') || ' ' || apnd_recldb from apertura_niif_det where "
        "apnd_ctaniif = '%1' order by apnd_item";
    QCOMPARE(filas(entran.arg("152405")), "- 7.00\nA1 4.00\nA2 3.00");
    QCOMPARE(filas(entran.arg("110505")), "- 94.00"); // no lo pide
    dice(Qt::Key_F12,
         "Faltan el tercero, el centro o el artículo de un saldo, de la cuenta 152405.");
    // En la línea de inventarios se pone un artículo que exista.
    detalle(p, "152405");
    QVERIFY(p->CAperniifdet.Locate("APND_CTANIIF", {"152405"}));
    QVERIFY(p->CAperniifdet.FieldByName("ACTI_COD").vacio());
    p->CAperniifdet.Edit();
    i_->espere("Código no encontrado");
    p->CAperniifdet.FieldByName("ACTI_COD") = "A9";
    QVERIFY(p->CAperniifdet.FieldByName("ACTI_COD").vacio());
    ListaFalsa<PideArticulo> articulos("Tfarticulos");
    p->CAperniifdet.FieldByName("ACTI_COD") = "?A";
    QVERIFY(p->CAperniifdet.FieldByName("ACTI_COD").vacio());
    QCOMPARE(articulos.pedida().articulo_localizar, "A");
    articulos.conteste("A1");
    agote_eventos();
    QCOMPARE(p->CAperniifdet.FieldByName("ACTI_COD").texto(), "A1");
    oprima(Qt::Key_F2);
    grabe_y_siga();
    // Lo que ya no existe se dice por su nombre, y no se lleva nada.
    for (const auto& [cambio, aviso] :
         {std::pair{"acti_cod = 'A7'", "El artículo A7 de la cuenta 152405 no existe."},
          {"terc_nit = '77'", "El tercero 77 de la cuenta 152405 no existe."},
          {"proy_cod = '77', cent_cod = '1'", "El centro 77-1 de la cuenta 152405 no existe."}}) {
        const QString donde = " where cuen_cod = '152405' and apnd_recldb = 4";
        s_->base.ejecute({"update apertura_niif_det set " + QString(cambio) + donde});
        dice(Qt::Key_F12, QString(aviso) + " Escoja uno registrado.");
        s_->base.ejecute({"update apertura_niif_det set acti_cod = 'A1', terc_nit = null, "
                          "proy_cod = null, cent_cod = null" +
                          donde});
    }
    i_->espere_comienzo("Se reemplazarán los 0 saldos iniciales NIIF", "Sí");
    i_->espere("Los saldos iniciales NIIF son ahora los del balance de apertura.");
    oprima(Qt::Key_F12);
    QCOMPARE(filas("select arti_cod, sain_debito from saldos_iniciales_niif "
                   "where cuen_cod = '152405' order by arti_cod"),
             "A1|11\nA2|3");
    QCOMPARE(saldos_distintos(s_->base.base()), QString());
}

void PruebaApertura::dos_usuarios_en_la_misma_cuenta_no_se_pisan() {
    Tfbalaperturaniif* p = traiga();
    grabe_y_siga();
    s_->base.base().ejecute("update apertura_niif set apni_nota = 'la del otro' where cuen_cod = "
                            "'110505'");
    detalle(p, "110505");
    digite_en(p->APNI_NOTA, "la mia", Qt::Key_F2);
    i_->espere_comienzo("");
    oprima(Qt::Key_F2);
    QCOMPARE(s_->dato("select apni_nota from apertura_niif where cuen_cod = '110505'"),
             "la del otro");
    QVERIFY(p->CSaldos.ChangeCount() > 0); // lo suyo sigue en la pantalla
}

void PruebaApertura::sin_la_opcion_no_se_entra() {
    s_->dm.administrador = false;
    s_->dm.usuario = "AUXILIAR";
    s_->niegue(80);
    i_->espere(kAccesoNegado);
    QVERIFY(!abra());
}

void PruebaApertura::la_conciliacion_llega_hasta_el_comprobante() {
    // NIIF lleva 90 de los 100 de caja y todo el capital: difiere en caja y bancos.
    grabe(s_->base.base(), 4, "20180201", {{1, "110505", 40, 0}, {2, "310505", 0, 40}},
          {{1, "110505", 35, 0}, {2, "310505", 0, 35}});
    s_->cnt.periodo_actual = 13; // el cierre: lo último que se concilia son los ajustes
    auto* p = s_->abra<Tfconciliapat>("Tfconciliapat", AbreConciliacion{"2018", false});
    oprima(Qt::Key_F6);
    QVERIFY(p->CConcilia.Locate("CUENTA", {"110505"}));
    const auto campo = [&](const char* c) { return p->CConcilia.FieldByName(c).texto(); };
    QCOMPARE(componente<QLineEdit>(p, "NomCuenta").text().section(" · ", 0, 0), campo("NOMBRE"));
    QCOMPARE(campo("SALDO") + ' ' + campo("SALDONIIF"), "1132 35");
    QCOMPARE(campo("DIFERENCIA"), "1097");
    QCOMPARE(campo("PORCENTAJE"), "96.91");
    QCOMPARE(p->DBGridEh1->titulo_impreso,
             "Conciliación Patrimonial · Ajustes de 2018 · Nivel " + p->LNivel->text().left(1));
    // Las de nivel 1 suman lo que las subcuentas.
    Moneda niveles[6];
    for (p->CConcilia.First(); !p->CConcilia.Eof(); p->CConcilia.Next())
        niveles[p->CConcilia.FieldByName("NIVEL").entero()] +=
            p->CConcilia.FieldByName("DIFERENCIA").moneda();
    QCOMPARE(niveles[1].texto(), niveles[4].texto());
    p->CConcilia.Locate("CUENTA", {"110505"});
    p->EMes->setCurrentIndex(2); // sin calcular: se abre lo que se ve
    oprima(Qt::Key_F8);
    auto* c = qobject_cast<Tfconciliacta*>(escritorio()->activa());
    QVERIFY(c);
    QCOMPARE(valores_de(c->CDetalle, "DIF"), QStringList({"93", "999", "5"}));
    const QString titulo = c->DBGridEh1->titulo_impreso;
    QVERIFY2(titulo.contains(" · 110505 ") && titulo.endsWith(" · hasta Ajustes de 2018"),
             qPrintable(titulo));
    QCOMPARE(valores_de(c->CDetalle, "CONCEPTO").value(0), "Saldo al comenzar el año");
    // Con otro mes, lo que explica la diferencia de ese mes.
    for (const auto& [mes, dif] :
         {std::pair{0, QStringList{"93"}}, {1, QStringList{"93", "999"}}}) {
        auto* hasta =
            s_->abra<Tfconciliacta>("Tfconciliacta", AbreConciliacionCuenta{"110505", "2018", mes});
        QCOMPARE(valores_de(hasta->CDetalle, "DIF"), dif);
        hasta->close();
        agote_eventos();
    }
    QString abierto;
    registre_testigo("Tfedtmovimien", [&](const Pantalla& e) {
        abierto = e.peticion<AbreComprobante>().comprobante_encontrado;
    });
    c->CDetalle.First();
    oprima(Qt::Key_F4);
    QCOMPARE(abierto, QString()); // el saldo inicial no es un comprobante
    c->CDetalle.Last();
    oprima(Qt::Key_F4);
    QCOMPARE(abierto, "4");
    escritorio()->abierta("Tfedtmovimien")->close();
    c->CDetalle.Last();
    dice(Qt::Key_F3, "Desea borrar definitivamente el comprobante CG 0001 000004?", "Sí");
    QCOMPARE(s_->dato("select count(*) from comprobante_encabezado where enco_consec = 4"), "0");
    // Un saldo de un centavo no la tumba, y al calcularla otra vez las cifras caben.
    c->close();
    agote_eventos();
    const int columna = p->DBGridEh1->columna_de("SALDONIIF");
    const int antes = p->DBGridEh1->columnWidth(columna);
    s_->base.ejecute({"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values "
                      "(1, '220505', 0.01)",
                      "insert into saldos_iniciales_niif (sain_item, cuen_cod, sain_debito) "
                      "values (1, '220505', 9999999999999.99)"});
    oprima(Qt::Key_F2);
    agote_eventos();
    QVERIFY(p->DBGridEh1->columnWidth(columna) > antes);
    QVERIFY(p->CConcilia.Locate("CUENTA", {"220505"}));
    QCOMPARE(campo("SALDO") + ' ' + campo("DIFERENCIA") + ' ' + campo("PORCENTAJE"),
             "0.01 -9999999999999.98 ");
}

QTEST_MAIN(PruebaApertura)
#include "prueba_apertura.moc"
