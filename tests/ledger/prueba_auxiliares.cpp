// Auxiliares y saldos por clave: lo que cada miembro de las dos familias muestra, abre y borra.
#include "apoyo/monitor.h"
#include "ledger/registro.h"
#include "ledger/tfauxiliar.h"
#include "ledger/tfsaldoterc.h"
#include "libro_de_prueba.h"

namespace {

const QStringList kTitulosAuxiliar{"Tipo",   "Prefijo", "Número",     "Fecha", "Concepto",
                                   "NIT",    "Mcpio",   "Referencia", "Base",  "Porc.",
                                   "Débito", "Crédito", "Pry.",       "Centro"};
QStringList titulos_sin(const QStringList& quitados) {
    QStringList titulos = kTitulosAuxiliar;
    for (const QString& t : quitados)
        titulos.removeOne(t);
    return titulos;
}
const QStringList kDeTercero = titulos_sin({"NIT", "Mcpio"}).replaceInStrings("Referencia", "Ref.");
const QStringList kDeCentro = titulos_sin({"Pry.", "Centro"});
const QStringList kDeArticulo = titulos_sin({"Mcpio"});

/// Lo que muestra cada auxiliar del libro de prueba en marzo; las listas, separadas por blancos.
const struct CasoAuxiliar {
    const char *clase, *cuenta, *nombre, *clave;
    const QStringList& titulos;
    const char *archivo, *ids, *debitos, *creditos, *inicial;
    int ancho, alto; ///< cero: los que resulten
} kAuxiliares[] = {
    {"Tfauxiliar", "110505", "Caja general", "", kTitulosAuxiliar, "Auxiliar", "903 902 906",
     "0 1190000.25 11.11", "432000.12 0 0", "5,000,000.00", 680, 350},
    {"Tfauxiliarniif", "110505", "Caja NIIF", "", kTitulosAuxiliar, "AuxiliarNIIF", "903 902 906",
     "0 1190000.75 22.22", "560000.6 0 0", "4,000,000.00", 680, 350},
    {"Tfauxiliarterc", "510506", "Sueldos", "Peña Gómez María", kDeTercero, "AuxTerc", "903 903",
     "400000 2000.02", "0 0", "", 0, 0},
    {"Tfauxiliartercniif", "510506", "Sueldos", "Peña Gómez María", kDeTercero, "AuxTerc", "903",
     "500000", "0", "", 0, 0},
    {"Tfauxiliarcentro", "510506", "Sueldos", "Contabilidad", kDeCentro, "AuxCentroCosto",
     "903 903", "30000.1 2000.02", "0 0", "", 638, 297},
    // Lee el libro 2649 aunque sea la pantalla del otro.
    {"Tfauxiliarcentroniif", "510506", "Sueldos", "Contabilidad", kDeCentro, "AuxCentroCosto",
     "903 903", "30000.1 2000.02", "0 0", "", 638, 297},
    {"Tfauxiliarart", "143505", "Mercancías", "Martillo", kDeArticulo, "AuxArtic", "907 907",
     "100.1 0", "0 40.04", "", 0, 0},
};

const QStringList kPorCentro{"Centro", "Subc.", "S. Inicial", "Débitos", "Créditos", "S. Final"};
const QStringList kPorNit{"NIT", "Nombre", "S. Inicial", "Débitos", "Créditos", "S. Final"};
const QStringList kPorArticulo{"Artículo", "Descripción", "S. Inicial",
                               "Débitos",  "Céditos",     "S. Final"};

/// Lo que muestra cada lista de saldos del libro de prueba en marzo.
const struct CasoSaldo {
    const char *clase, *titulo, *cuenta, *nombre;
    const QStringList& titulos;
    const char *archivo, *llaves, *finales, *abre;
    const char* ids; ///< del auxiliar de la segunda fila, o de la única
    int ancho, alto;
} kSaldos[] = {
    {"Tfsaldoterc", "Saldos por tercero", "510506", "Sueldos", kPorNit, "SaldoTerc",
     "52345678 900123456", "402000.02 30000.1", "Tfauxiliarterc", "903", 616, 350},
    {"Tfsaldotercniif", "Saldos por tercero NIIF", "510506", "Sueldos", kPorNit, "SaldoTercNIIF",
     "52345678 900123456", "500000 60000.6", "Tfauxiliartercniif", "903", 616, 350},
    {"Tfsaldotercent", "Saldos centro por tercero", "510506", "Sueldos", kPorNit, "SaldoTerc",
     "52345678 900123456", "2000.02 30000.1", "Tfauxiliarterc", "903", 616, 350},
    {"Tfsaldotercentniif", "Saldos centro por tercero NIIF", "510506", "Sueldos NIIF", kPorNit,
     "SaldoTercNiif", "900123456", "60000.6", "Tfauxiliartercniif", "903", 616, 350},
    {"Tfsaldocentro", "Saldos por centro", "510506", "Sueldos", kPorCentro, "SaldoCentro",
     "0001/0001 0001/0002", "400000 32000.12", "Tfauxiliarcentro", "903 903", 616, 236},
    {"Tfsaldocentroniif", "Saldos por centro NIIF", "510506", "Sueldos NIIF", kPorCentro,
     "SaldoCentroNiif", "0001/0001 0001/0002", "500000 60000.6", "Tfauxiliarcentroniif", "903 903",
     616, 236},
    {"Tfsaldoartc", "Saldos por artículo", "143505", "Mercancías", kPorArticulo, "SaldoArti",
     "MART01", "60.06", "Tfauxiliarart", "907 907", 676, 273},
};

} // namespace

class PruebaAuxiliares : public QObject {
    Q_OBJECT

    QStringList abiertas_;

    /// Con las mismas claves para todos los que las lleven.
    static AbreAuxiliar pedido(const char* cuenta) {
        return {.cuenta_auxiliar = cuenta,
                .tercero_auxiliar = "52345678",
                .proyecto_auxiliar = "0001",
                .centro_auxiliar = "0002",
                .articulo_auxiliar = "MART01"};
    }
    template <class T>
    static T* abra(SesionGui& s, const char* clase, const char* cuenta, int mes) {
        s.cnt.periodo_actual = mes - 1;
        return s.abra<T>(clase, pedido(cuenta));
    }
    static QString columna(const ConjuntoDatos& c, const char* campo) {
        return valores_de(c, campo).join(' ');
    }
    static QString guardado(SesionGui& s) {
        return s.dato("select user_anocnt || ' ' || user_percnt from usuario where user_cod = " +
                      QuotedStr(s.dm.usuario));
    }
    /// Cuántas filas tiene el comprobante en cada una de sus tablas.
    static QString lineas(SesionGui& s, int id) {
        QStringList cuantas;
        for (const char* tabla : {"encabezado", "detalle", "detalle_niif"})
            cuantas << s.dato(QString("select count(*) from comprobante_%1 where enco_consec = %2")
                                  .arg(tabla)
                                  .arg(id));
        return cuantas.join(' ');
    }

private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_consulta();
        for (const char* nombre : {"Tfmovimien", "Tfedtmovimien"})
            registre_testigo(nombre, [this, nombre](const Pantalla& p) {
                abiertas_ << nombre + (' ' + p.peticion<AbreComprobante>().comprobante_encontrado);
            });
    }
    void init() { abiertas_.clear(); }

    void cada_auxiliar_trae_las_lineas_de_su_clave_en_su_libro() {
        SesionConLibro s;
        s.base.ejecute(
            {"update cuentas_niif set cuen_nom = 'Caja NIIF' where cuen_cod = '110505'",
             "update cuentas_niif set cuen_nom = 'Sueldos NIIF' where cuen_cod = '510506'"});
        for (const CasoAuxiliar& caso : kAuxiliares) {
            auto* p = abra<Tfauxiliar>(s, caso.clase, caso.cuenta, 3);
            QVERIFY(p);
            QCOMPARE(p->NomCuenta->text(), caso.nombre);
            QCOMPARE(p->NomClave ? p->NomClave->text() : QString(), caso.clave);
            QCOMPARE(titulos_de(*p->DBGridEh1), caso.titulos);
            QCOMPARE(p->DBGridEh1->nombre_archivo, caso.archivo);
            QCOMPARE(columna(p->CAuxiliar, "ID"), caso.ids);
            QCOMPARE(columna(p->CAuxiliar, "DEBITO"), caso.debitos);
            QCOMPARE(columna(p->CAuxiliar, "CREDITO"), caso.creditos);
            QCOMPARE(p->CAuxiliar.FieldByName("PORC").presentado(), "2.5");
            QCOMPARE(p->Saldoi ? p->Saldoi->text() : QString(), caso.inicial);
            const QString clase = caso.clase;
            const bool de_centro = clase.contains("centro");
            const QString clave = clase.contains("terc") ? " and d.terc_nit = '52345678'"
                                  : de_centro ? " and d.proy_cod = '0001' and d.cent_cod = '0002'"
                                  : clase.contains("art") ? " and d.arti_cod = 'MART01'"
                                                          : "";
            const QString libro = clase.endsWith("niif") && !de_centro ? "_niif" : "";
            const SumaLineas suma =
                sume_lineas(s, "comprobante_detalle" + libro, 3,
                            "d.cuen_cod = '" + p->ECuenta->text() + '\'' + clave);
            QCOMPARE(p->Saldof->valor().texto(), suma.saldo().texto());
            QCOMPARE(p->periodo->texto_mes(), "Marzo");
            // Lo que se imprime dice de qué es: el libro leído, el período, la cuenta y la clave.
            QStringList partes{p->windowTitle(), libro.isEmpty() ? "Libro 2649" : "Libro NIIF",
                               "Marzo de 2017", p->ECuenta->text() + ' ' + p->NomCuenta->text()};
            if (p->EClave)
                partes << p->EClave->text() + ' ' + p->NomClave->text();
            QCOMPARE(p->DBGridEh1->titulo_impreso, partes.join(" · "));
            if (caso.ancho)
                QCOMPARE(p->height(), caso.alto);
            // Con su tamaño, o más ancha si a las cifras de su rejilla no les alcanza.
            const int sobra = p->DBGridEh1->horizontalScrollBar()->maximum();
            QVERIFY(p->width() >= caso.ancho && sobra == 0);
            // Al centro de lo que queda del área.
            const auto* v = s.escritorio.area()->activeSubWindow();
            const QSize libre =
                s.escritorio.area()->viewport()->size() - QSize(125, 120) - v->size();
            QCOMPARE(v->pos(), QPoint(libre.width() / 2, libre.height() / 2));
            oprima(Qt::Key_Escape);
            QVERIFY(!s.escritorio.abierta(caso.clase));
        }
    }

    void el_saldo_de_la_cabeza_es_el_inicial_de_cada_periodo_tambien_en_ajustes() {
        SesionConLibro s;
        auto* local = abra<Tfauxiliar>(s, "Tfauxiliar", "110505", 1);
        auto* niif = abra<Tfauxiliar>(s, "Tfauxiliarniif", "110505", 1);
        for (int mes : {1, 2, 4, 12, 13}) {
            s.cnt.periodo_actual = mes - 1;
            for (const auto& [p, detalle] : {qMakePair(local, "comprobante_detalle"),
                                             qMakePair(niif, "comprobante_detalle_niif")}) {
                p->calcule_auxiliar("FECHA");
                const SumaLineas suma = sume_lineas(s, detalle, mes, "d.cuen_cod = '110505'");
                QCOMPARE(p->Saldoi->valor().texto(), suma.inicial.texto());
                QCOMPARE(p->Saldof->valor().texto(), suma.saldo().texto());
                Moneda debitos, creditos;
                for (int i = 0; i < p->CAuxiliar.RecordCount(); ++i) {
                    debitos +=
                        p->CAuxiliar.valor_en(i, p->CAuxiliar.FieldByName("DEBITO")).moneda();
                    creditos +=
                        p->CAuxiliar.valor_en(i, p->CAuxiliar.FieldByName("CREDITO")).moneda();
                }
                QCOMPARE(debitos.texto(), suma.debitos.texto());
                QCOMPARE(creditos.texto(), suma.creditos.texto());
            }
        }
        QCOMPARE(columna(local->CAuxiliar, "FECHA"), "20171301");
        QCOMPARE(local->periodo->texto_mes(), "Ajustes");
    }

    void el_titulo_ordena_y_la_cuenta_sin_comillas_solo_admite_cifras() {
        SesionConLibro s;
        auto* p = abra<Tfauxiliar>(s, "Tfauxiliar", "110505", 3);
        const int debito = p->DBGridEh1->columna_de("DEBITO");
        QTest::mouseClick(p->DBGridEh1->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          {p->DBGridEh1->horizontalHeader()->sectionViewportPosition(
                               p->DBGridEh1->columna_de("NUMERO")) +
                               8,
                           8});
        QCOMPARE(columna(p->CAuxiliar, "NUMERO"), "000001 000002 000002");
        p->DBGridEh1->OnTitleClick(*p->DBGridEh1->columna(debito).campo);
        QCOMPARE(columna(p->CAuxiliar, "ID"), "903 906 902");
        p->close();

        QVERIFY(s.abra<Tfauxiliar>("Tfauxiliarterc", AbreAuxiliar{"11A5"}));
        {
            Interlocutor i;
            i.espere_comienzo("Se presento el siguiente error: ");
            s.abra<Tfauxiliar>("Tfauxiliar", AbreAuxiliar{"11A5"});
        }
        // Los demás llevan la clave entre comillas, con las suyas dobladas.
        auto* tercero = s.abra<Tfauxiliar>("Tfauxiliarterc", AbreAuxiliar{"510506", "5'2"});
        QVERIFY(tercero && tercero->CAuxiliar.Active() && tercero->CAuxiliar.IsEmpty());
    }

    void abre_el_comprobante_con_f4_enter_o_doble_clic_y_uno_nuevo_con_f5() {
        SesionConLibro s;
        auto* p = abra<Tfauxiliar>(s, "Tfauxiliar", "110505", 3);
        QVERIFY(p->CAuxiliar.Locate("ID", {902}));
        auto vuelva = [&] {
            s.escritorio.activa()->close();
            return abiertas_.takeFirst();
        };
        oprima(Qt::Key_F4);
        QCOMPARE(vuelva(), "Tfedtmovimien 902");
        // Al volver consulta de nuevo y sigue en su renglón.
        QCOMPARE(p->CAuxiliar.FieldByName("ID").texto(), "902");
        oprima(Qt::Key_Return);
        QCOMPARE(vuelva(), "Tfedtmovimien 902");
        doble_clic(*p->DBGridEh1);
        QCOMPARE(vuelva(), "Tfedtmovimien 902");
        oprima(Qt::Key_F5);
        QCOMPARE(vuelva(), "Tfmovimien ");

        // En la fila de filtros Enter filtra.
        componente<QCheckBox>(p, "ckfiltro").click();
        QVERIFY(p->DBGridEh1->filtro_visible());
        p->CAuxiliar.First();
        p->DBGridEh1->SelectedIndex(p->DBGridEh1->columna_de("DEBITO"));
        oprima(Qt::Key_Up);
        QVERIFY(p->DBGridEh1->en_fila_de_filtro());
        digite("11.11", Qt::Key_Return);
        QVERIFY(abiertas_.isEmpty());
        QCOMPARE(columna(p->CAuxiliar, "ID"), "906");
        componente<QCheckBox>(p, "ckfiltro").click();
        QCOMPARE(p->CAuxiliar.RecordCount(), 3);

        // Sin renglones no hay comprobante que abrir ni que borrar.
        s.cnt.periodo_actual = 1;
        p->calcule_auxiliar("FECHA");
        p->DBGridEh1->setFocus();
        for (int tecla : {Qt::Key_F4, Qt::Key_Return, Qt::Key_F3})
            oprima(tecla);
        QVERIFY(abiertas_.isEmpty());
    }

    void las_flechas_van_al_reves_en_los_auxiliares_y_solo_ellas_guardan() {
        SesionConLibro s;
        s.cnt.guarde_periodo();
        for (const DatosAuxiliar& miembro : auxiliares()) {
            auto* p = abra<Tfauxiliar>(s, miembro.clase, "510506", 3);
            s.cnt.guarde_periodo();
            QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
            const bool tiene = !QString(miembro.clase).contains("centro") &&
                               !QString(miembro.clase).endsWith("art");
            oprima(Qt::Key_Left, Qt::AltModifier);
            QCOMPARE(p->periodo->texto_mes(), QString(tiene ? "Abril" : "Marzo"));
            QCOMPARE(guardado(s), QString(tiene ? "2017 3" : "2017 2"));
            QCOMPARE(aviso.count(), int(tiene));
            oprima(Qt::Key_Right, Qt::AltModifier);
            QCOMPARE(guardado(s), "2017 2");
            componente<QToolButton>(p, "SpeedButton5").click();
            QCOMPARE(guardado(s), "2017 3");
            componente<QToolButton>(p, "SpeedButton4").click();
            QCOMPARE(guardado(s), "2017 2");
            QVERIFY(aviso.count() > 0);
            p->close();
        }
        auto* p = abra<Tfauxiliar>(s, "Tfauxiliar", "110505", 3);
        QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
        componente<QComboBox>(p, "EMes").setFocus();
        oprima_seguidas({Qt::Key_Up, Qt::Key_Up});
        QCOMPARE(s.cnt.periodo_actual, 0);
        QCOMPARE(columna(p->CAuxiliar, "ID"), "901");
        QVERIFY(aviso.count() > 0);
        auto& ano = componente<QSpinBox>(p, "EAno");
        QCOMPARE(ano.minimum(), 2000);
        QCOMPARE(ano.maximum(), 2099);
        ano.setFocus();
        ano.selectAll();
        digite("2018", Qt::Key_Return);
        QVERIFY(abiertas_.isEmpty());
        QCOMPARE(s.cnt.ano_actual, "2018");
        QVERIFY(p->CAuxiliar.IsEmpty());
        QCOMPARE(guardado(s), "2017 2");
    }

    void cada_miembro_borra_lo_suyo_tras_preguntar() {
        for (const DatosAuxiliar& miembro : auxiliares()) {
            SesionConLibro s;
            const QString clase = miembro.clase;
            const char* cuenta = clase.endsWith("art") ? "143505" : "510506";
            const int id = clase.endsWith("art") ? 907 : 903;
            const QString numero = clase.endsWith("art") ? "000005" : "000002";
            auto* p = abra<Tfauxiliar>(s, miembro.clase, cuenta, 3);
            const QString cabeza = clase == "Tfauxiliarniif"
                                       ? "Recuerde que al borrar esta eiminando el movimiento NIIF "
                                         "y el movimiento en la contabilidad según decreto 2694. "
                                       : "";
            const QString pregunta =
                cabeza + "Desea borrar definitivamente el comprobante CG 0001 " + numero + '?';
            const QString antes = lineas(s, id);
            dice(Qt::Key_F3, pregunta, "No");
            QCOMPARE(lineas(s, id), antes);
            QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
            dice(Qt::Key_F3, pregunta, "Sí");
            // Solo los de tercero y el NIIF se llevan las líneas del otro libro.
            const bool ambos = clase.contains("terc") || clase == "Tfauxiliarniif";
            const QString quedan = ambos ? QString("0") : antes.section(' ', 2);
            QVERIFY(antes.section(' ', 2).toInt() > 0);
            QCOMPARE(lineas(s, id), "0 0 " + quedan);
            QVERIFY(p->CAuxiliar.IsEmpty());
            QVERIFY(aviso.count() > 0);
        }
    }

    void no_borra_lo_de_otro_modulo_ni_sin_derecho() {
        {
            SesionConLibro s;
            auto* p = abra<Tfauxiliar>(s, "Tfauxiliar", "110505", 3);
            QVERIFY(p->CAuxiliar.Locate("ID", {906}));
            dice(Qt::Key_F3, "Debe utilizar la opcion Factura de venta para borrar el comprobante");
            QCOMPARE(lineas(s, 906), "1 2 2");
        }
        SesionConLibro s("AUXILIAR");
        QVERIFY(abra<Tfauxiliar>(s, "Tfauxiliar", "110505", 3));
        dice(Qt::Key_F3, kAccesoNegado);
        QVERIFY(!s.escritorio.abierta("Tfauxiliar"));
        QCOMPARE(lineas(s, 903), "1 4 3");
        s.otorgue(32);
        abra<Tfauxiliar>(s, "Tfauxiliar", "110505", 3);
        dice(Qt::Key_F3, "Desea borrar definitivamente el comprobante CG 0001 000002?", "");
        QCOMPARE(lineas(s, 903), "1 4 3");
    }

    void cada_saldo_reparte_la_cuenta_por_su_clave_y_abre_su_auxiliar() {
        SesionConLibro s;
        s.base.ejecute(
            {"update cuentas_niif set cuen_nom = 'Sueldos NIIF' where cuen_cod = '510506'"});
        for (const CasoSaldo& caso : kSaldos) {
            QString fotos; // de un solo instante, aunque otros graben
            s.dm.Quorvex.observador = [&](const QString&) {
                fotos += fotos_abiertas(s.base.base());
            };
            auto* p = abra<Tfsaldoterc>(s, caso.clase, caso.cuenta, 3);
            s.dm.Quorvex.observador = nullptr;
            QVERIFY(p && !fotos.isEmpty());
            QCOMPARE(p->windowTitle(), caso.titulo);
            QCOMPARE(p->NomCuenta->text(), caso.nombre);
            QCOMPARE(titulos_de(*p->DBGridEh1), caso.titulos);
            QCOMPARE(p->DBGridEh1->nombre_archivo, caso.archivo);
            QCOMPARE(p->size(), QSize(caso.ancho, caso.alto));
            QStringList llaves = valores_de(p->CSaldos, p->CSaldos.Fields(0).FieldName);
            if (&caso.titulos == &kPorCentro)
                for (int i = 0; i < llaves.size(); ++i)
                    llaves[i] += '/' + p->CSaldos.valor_en(i, p->CSaldos.Fields(1)).texto();
            QCOMPARE(llaves.join(' '), caso.llaves);
            QCOMPARE(columna(p->CSaldos, "FINAL"), caso.finales);
            for (int tecla : {int(Qt::Key_F8), int(Qt::Key_Return)}) {
                p->CSaldos.Last();
                oprima(tecla);
                auto* auxiliar = qobject_cast<Tfauxiliar*>(s.escritorio.activa());
                QVERIFY(auxiliar);
                QCOMPARE(auxiliar->objectName(), caso.abre);
                QCOMPARE(columna(auxiliar->CAuxiliar, "ID"), caso.ids);
                auxiliar->close();
                QCOMPARE(p->CSaldos.RecNo(), p->CSaldos.RecordCount() - 1);
            }
            doble_clic(*p->DBGridEh1);
            QCOMPARE(s.escritorio.activa()->objectName(), caso.abre);
            s.escritorio.activa()->close();
            QCOMPARE(componente<QPushButton>(p, "SBSalir").text(), "Esc:Cancelar");
            oprima(Qt::Key_Escape);
            QVERIFY(!s.escritorio.abierta(caso.clase));
        }
    }

    void el_centro_no_baja_con_el_tercero_y_lo_que_no_se_movio_no_sale() {
        SesionConLibro s;
        // El de la empleada en el centro 0002 muestra también lo del 0001.
        abra<Tfsaldoterc>(s, "Tfsaldotercent", "510506", 3);
        oprima(Qt::Key_F8);
        auto* auxiliar = qobject_cast<Tfauxiliar*>(s.escritorio.activa());
        QCOMPARE(columna(auxiliar->CAuxiliar, "CENTRO"), "0001 0002");
        s.escritorio.cierre_todas();

        // Un tercero cuyo saldo se anuló y sin movimiento en el mes no se muestra.
        agregue_comprobante(
            s, 993, "CG", "000903", "20170331",
            {{"510506", "0", "30000.10", "900123456", "0001", "0002"}, {"110505", "30000.1", "0"}},
            {});
        auto* p = abra<Tfsaldoterc>(s, "Tfsaldoterc", "510506", 3);
        QCOMPARE(columna(p->CSaldos, "FINAL"), "402000.02 0");
        oprima(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(p->periodo->texto_mes(), "Abril");
        QCOMPARE(columna(p->CSaldos, "CODIGO"), "52345678");
        // La cuenta de caja no lleva terceros: una fila sin NIT, y su auxiliar.
        auto* caja = abra<Tfsaldoterc>(s, "Tfsaldoterc", "110505", 3);
        QCOMPARE(columna(caja->CSaldos, "CODIGO"), "");
        oprima(Qt::Key_F8);
        QCOMPARE(qobject_cast<Tfauxiliar*>(s.escritorio.activa())->CAuxiliar.RecordCount(), 4);
    }

    void los_pasos_del_periodo_conservan_la_llave_y_el_titulo_ordena() {
        SesionConLibro s;
        for (const DatosSaldo& miembro : saldos_por_clave()) {
            const bool articulo = miembro.por == Clave::Articulo;
            auto* p = abra<Tfsaldoterc>(s, miembro.clase, articulo ? "143505" : "510506", 3);
            s.cnt.guarde_periodo();
            QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
            p->CSaldos.Last();
            const QString llave = p->CSaldos.Fields(0).texto() + p->CSaldos.Fields(1).texto();
            const bool tiene = QString(miembro.clase).contains("terc");
            // Sin espejo: la derecha adelanta.
            oprima(Qt::Key_Right, Qt::AltModifier);
            QCOMPARE(guardado(s), QString(tiene ? "2017 3" : "2017 2"));
            QCOMPARE(aviso.count(), int(tiene));
            oprima(Qt::Key_Left, Qt::AltModifier);
            QCOMPARE(guardado(s), "2017 2");
            componente<QToolButton>(p, "SpeedButton3").click();
            QCOMPARE(p->periodo->texto_mes(), "Abril");
            QCOMPARE(p->CSaldos.Fields(0).texto() + p->CSaldos.Fields(1).texto(), llave);
            componente<QToolButton>(p, "SpeedButton2").click();
            QCOMPARE(guardado(s), "2017 2");
            if (p->CSaldos.RecordCount() > 1) {
                const Campo& final = p->CSaldos.FieldByName("FINAL");
                p->DBGridEh1->OnTitleClick(p->CSaldos.FieldByName("FINAL"));
                QVERIFY(p->CSaldos.valor_en(0, final).moneda() <=
                        p->CSaldos.valor_en(1, final).moneda());
            }
            componente<QComboBox>(p, "EMes").setFocus();
            oprima(Qt::Key_Down);
            QCOMPARE(s.cnt.periodo_actual, 3);
            QCOMPARE(guardado(s), "2017 2");
            p->close();
        }
    }

    void el_saldo_de_terceros_de_un_centro_se_abre_con_el_boton_y_no_con_f5() {
        SesionConLibro s;
        for (const auto& [clase, abre, final] :
             {std::tuple("Tfsaldocentro", "Tfsaldotercent", "30000.1"),
              std::tuple("Tfsaldocentroniif", "Tfsaldotercentniif", "60000.6")}) {
            auto* p = abra<Tfsaldoterc>(s, clase, "510506", 3);
            p->CSaldos.Last();
            auto& boton = componente<QPushButton>(p, "AdvGlowButton1");
            QCOMPARE(boton.text(), "F5:Saldo terceros");
            oprima(Qt::Key_F5);
            QCOMPARE(s.escritorio.activa(), static_cast<Pantalla*>(p));
            boton.click();
            auto* terceros = qobject_cast<Tfsaldoterc*>(s.escritorio.activa());
            QCOMPARE(terceros->objectName(), abre);
            QCOMPARE(terceros->EClave->text(), "0001 0002");
            QCOMPARE(columna(terceros->CSaldos, "FINAL").section(' ', -1), final);
            s.escritorio.cierre_todas();
        }
    }

    void los_articulos_solo_se_consultan_en_una_cuenta_de_inventario() {
        SesionGui s;
        Interlocutor i;
        for (const char* cuenta : {"110505", "999999"}) {
            i.espere("La cuenta especificada no es de inventario.");
            QVERIFY(!abra<Tfsaldoterc>(s, "Tfsaldoartc", cuenta, 3));
        }
        QVERIFY(s.escritorio.abiertas().isEmpty());
        // Sin movimientos, la rejilla queda vacía y sin mensaje.
        auto* p = abra<Tfsaldoterc>(s, "Tfsaldocentro", "510506", 3);
        QVERIFY(p && p->CSaldos.IsEmpty());
        oprima(Qt::Key_F8);
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        QVERIFY(i.vistos().size() == 2);
    }
};

QTEST_MAIN(PruebaAuxiliares)
#include "prueba_auxiliares.moc"
