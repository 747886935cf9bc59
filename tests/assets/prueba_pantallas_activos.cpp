// Las pantallas de los activos fijos, con el teclado: ficha, grupos, depreciación, baja, deterioro
// y cuadro.
#include "apoyo_gui/sesion_gui.h"
#include "assets/activo_de_prueba.h"
#include "assets/forma_activo.h"
#include "assets/peticiones_activos.h"
#include "assets/registro.h"
#include "assets/tfbajaactivo.h"
#include "assets/tfcalculadep.h"
#include "assets/tfcuadroactivo.h"
#include "assets/tfvalactivo.h"
#include "catalogues/lista_proceso.h"
#include "toolkit/grafica.h"

/// Hace de visor de PDF del sistema.
class VisorTestigo : public QObject {
    Q_OBJECT
public:
    VisorTestigo() { QDesktopServices::setUrlHandler("file", this, "abra"); }
    ~VisorTestigo() override { QDesktopServices::unsetUrlHandler("file"); }
    QList<QByteArray> vistos;
public slots:
    void abra(const QUrl& url) {
        QFile f(url.toLocalFile());
        vistos << (f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("no está"));
    }
};

namespace {

QStringList abiertos;

struct Almacenista : SesionGui {
    explicit Almacenista(const QString& usuario = "ADMIN") : SesionGui(usuario) {
        registre_pantallas_activos();
        abiertos.clear();
        registre_testigo("Tfedtmovimien", [](const Pantalla& p) {
            abiertos << p.peticion<AbreComprobante>().comprobante_encontrado;
        });
        cnt.ano_actual = "2017";
        cnt.periodo_actual = 0;
        prepare_activos(base.base());
        base.ejecute(
            {"delete from activos_fijos",
             "insert into activos_grupos (acgr_id, acgr_nom, acgr_mesdep, acgr_dep, acgr_mesdepn, "
             "acgr_tipodep) values (1, 'Muebles', 120, 'S', 60, 1)",
             "insert into activos_grupos (acgr_id, acgr_nom, acgr_mesdep, acgr_dep, acgr_mesdepn, "
             "acgr_tipodep) values (2, 'Terrenos', 0, 'N', 0, 1)",
             "insert into activos_subgrupo values (1, 7, 'Escritorios')"});
    }
    void activo(const char* codigo, const char* costo, int meses, const char* unidades = "N") {
        registre(base.base(), {codigo, costo, meses, meses * 2, unidades});
    }
    Pantalla* abra(const char* nombre, Encargo encargo = {}) {
        return p = pantallas().abrir(nombre, std::move(encargo));
    }
    /// La que abrió la tecla.
    Pantalla* siga(int clave, Qt::KeyboardModifiers con = Qt::NoModifier) {
        oprima(clave, con);
        return p = escritorio.activa();
    }
    /// F2, y la pantalla se va.
    void grabe(const char* pantalla) {
        oprima(Qt::Key_F2);
        QVERIFY2(!escritorio.abierta(pantalla), pantalla);
    }
    QString caja(const char* nombre) { return componente<QLineEdit>(p, nombre).text(); }
    void escriba(const char* nombre, const QString& texto) { ::escriba(p, nombre, texto); }
    /// Varias cajas: "ECod=X1; EDesc=Silla".
    void escriba(const QString& cajas) {
        for (const QString& c : cajas.split("; "))
            escriba(c.section('=', 0, 0).toLatin1(), c.section('=', 1));
    }
    void lista(const char* nombre, const char* comienzo) {
        enfoque(p, nombre);
        digite(comienzo, Qt::Key_Tab);
    }
    void tipo() { lista("LTipo", "Comprobante"); }

    Interlocutor i;
    Pantalla* p = nullptr;
};

} // namespace

class PruebaPantallasActivos : public QObject {
    Q_OBJECT
    /// Lo que no reparte nada se pregunta, y lo negativo se rehúsa.
    static void corrija_el_reparto(Almacenista& s, ConjuntoDatos& centros) {
        const auto ponga = [&](const char* parte) {
            centros.Edit();
            centros.FieldByName("ACCE_PORC") = parte;
        };
        ponga("0");
        centros.Prior();
        ponga("0");
        s.i.espere("El reparto por centros de costo no tiene porcentajes: el gasto no se "
                   "repartirá. Desea grabarlo así?",
                   "No");
        oprima(Qt::Key_F2);
        ponga("-50");
        s.i.espere("El porcentaje no puede ser negativo.");
        QVERIFY_EXCEPTION_THROWN(centros.Post(), EdicionAbortada);
        centros.Cancel();
        ponga("60");
        centros.Next();
        ponga("40");
    }

private slots:
    void la_ficha_toma_del_grupo_los_meses_y_valida_sus_cuentas() {
        Almacenista s;
        ListaFalsa<PideCuenta> plan("Tfcuentas"), niif("Tfcuentasniif");
        s.abra("Tfactivos");
        s.siga(Qt::Key_F5);
        QCOMPARE(s.p->windowTitle(), "Nuevo Activo");
        s.escriba("ECod=ESC1; EDesc=Escritorio; EMeses=36");
        s.lista("LGrupo", "Muebles");
        QCOMPARE(s.caja("EMeses"), "120"); // pisa lo digitado
        enfoque(s.p, "LSubgrupo");
        digite("Escritorios");
        s.escriba("EVrOrig", "1200000");
        s.i.espere("No se encontró la cuenta contable indicada.");
        s.escriba("Activo", "99");
        QCOMPARE(s.caja("Activo"), QString());
        agote_eventos();
        QCOMPARE(con_foco()->objectName(), "Activo"); // lo que siga a ciegas no es de otra cuenta
        QTest::mouseDClick(&componente<QWidget>(s.p, "DepD"), Qt::LeftButton);
        plan.conteste("519530");
        agote_eventos();
        QCOMPARE(s.caja("DepD"), "519530");
        s.escriba("DepD", "?5"); // buscar sin escoger deja la que había
        plan.cancele();
        QCOMPARE(s.caja("DepD"), "519530");
        QVERIFY(!s.caja("NomDepD").isEmpty());
        // Enter en la última caja sigue en la otra página, y lo rehusado vuelve a la suya.
        s.i.espere("No se encontró la cuenta contable indicada.");
        enfoque(s.p, "DepC");
        digite("99", Qt::Key_Return);
        agote_eventos();
        QCOMPARE(con_foco()->objectName(), "DepC");
        enfoque(s.p, "DepC"); // la búsqueda que se abrió se queda al frente
        digite("?5", Qt::Key_Return);
        agote_eventos();
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfcuentas");
        plan.cancele();
        agote_eventos();
        enfoque(s.p, "DepC");
        oprima(Qt::Key_Return);
        QCOMPARE(con_foco()->objectName(), "EVida");
        QCOMPARE(s.caja("EVida"), "60");
        s.escriba("DetND", "?5");
        QCOMPARE(niif.pedida().texto_busqueda, "5");
        niif.conteste("530525");
        agote_eventos();
        QCOMPARE(s.caja("DetND"), "530525");
        s.grabe("Tfnvoactivo");
        QCOMPARE(s.dato("select acfj_mesdep || ':' || acfj_depniif || ':' || acgr_id || ':' || "
                        "acsg_id || ':' || acfj_dep || acfj_activo || acfj_unidades || ':' || "
                        "acfj_ctadepd from activos_fijos"),
                 "120:60:1:7:SSN:519530");
        dice(Qt::Key_F3, "Desea borrar definitivamente el activo ESC1 ?", "Sí");
        QCOMPARE(s.dato("select count(*) from activos_fijos"), "0");
    }

    void sin_grupo_conserva_sus_meses_y_sin_cuentas_se_graba() {
        Almacenista s;
        s.abra("Tfnvoactivo");
        agote_eventos(); // el grupo y el subgrupo toman el ancho de su columna
        const auto borde = [&](const char* caja) {
            auto& c = componente<QWidget>(s.p, caja);
            return c.mapTo(s.p, QPoint(c.width(), 0)).x();
        };
        QCOMPARE(borde("LSubgrupo"), borde("EDesc"));
        QVERIFY(borde("LGrupo") > borde("ECod"));
        s.escriba("ECod=X1; EDesc=Sin grupo; EMeses=36");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select acfj_mesdep from activos_fijos"), "36");
        // Con un grupo que no se deprecia, la ficha tampoco.
        s.abra("Tfnvoactivo");
        s.escriba("ECod=LOTE; EDesc=Lote");
        oprima(Qt::Key_F6);
        auto* grupos = s.escritorio.activa();
        QCOMPARE(grupos->objectName(), "Tfgruposact");
        enfoque(grupos, "DBGridEh1");
        oprima(Qt::Key_Down);
        pulse(grupos, "SBSelec");
        agote_eventos();
        QCOMPARE(s.escritorio.activa(), s.p);
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select acgr_id || acfj_dep from activos_fijos where acfj_cod = 'LOTE'"),
                 "2N");
    }

    void las_listas_se_abren_en_lo_que_habia() {
        Almacenista s;
        s.base.ejecute({"insert into activos_subgrupo values (1, 8, 'Sillas')"});
        auto* forma = static_cast<FormaActivo*>(s.abra("Tfnvoactivo"));
        const auto puesto = [](Pantalla* p, const char* conjunto, const char* campo) {
            return componente<ConjuntoDatos>(p, conjunto).FieldByName(campo).texto();
        };
        const auto abra = [&](const char* grupo, const char* subgrupo) {
            forma->CActivo.FieldByName("ACGR_ID") = grupo;
            forma->CActivo.FieldByName("ACSG_ID") = subgrupo;
            oprima(Qt::Key_F6);
            Pantalla* lista = s.escritorio.activa();
            return puesto(lista, "CGrupos", "ACGR_ID") + '-' +
                   puesto(lista, "CSubgrupos", "ACSG_ID");
        };
        QCOMPARE(abra("2", ""), "2-");
        QVERIFY(componente<Rejilla>(s.escritorio.activa(), "DBGridEh1").enfocada());
        oprima(Qt::Key_Escape);
        QCOMPARE(abra("1", "8"), "1-8");
        QVERIFY(componente<Rejilla>(s.escritorio.activa(), "DBGridEh2").enfocada());
        oprima(Qt::Key_Return);
        agote_eventos();
        QCOMPARE(puesto(forma, "CActivo", "ACGR_ID") + puesto(forma, "CActivo", "ACSG_ID"), "18");
        forma->CActivo.CancelUpdates();
        forma->close();
        for (const char* codigo : {"EQ1", "EQ2", "EQ3"})
            s.activo(codigo, "1200", 12);
        registre_testigo("Tfllamadora");
        Pantalla* llamadora = s.abra("Tfllamadora");
        QString escogido;
        escoja_activo(
            *llamadora, [&](const QString& a) { escogido = a; }, "EQ2");
        QCOMPARE(puesto(s.escritorio.activa(), "CActivos", "ACFJ_COD"), "EQ2");
        oprima(Qt::Key_Return);
        QCOMPARE(escogido, "EQ2");
    }

    void se_edita_con_su_reparto_su_valor_y_su_foto() {
        Almacenista s;
        s.activo("EQ1", "1200", 12);
        // La cuenta que se inactivó después sigue en su ficha.
        s.base.ejecute({"update cuentas set cuen_activa = 'N' where cuen_cod = '159215'"});
        s.abra("Tfactivos");
        s.siga(Qt::Key_F4);
        QCOMPARE(s.p->objectName(), "Tfedtactivo");
        QCOMPARE(s.caja("EValor"), "1,200.00");
        QCOMPARE(s.caja("DepC"), "159215");
        QVERIFY(s.caja("NomDepC").size() > 0);
        auto* forma = static_cast<FormaActivo*>(s.p);
        forma->PageControl1->setCurrentIndex(2);
        enfoque(s.p, "DBGridEh1");
        oprima(Qt::Key_Insert);
        enfoque(s.p, "DBGridEh1", 0);
        digite_celdas({"0001", "0001", "60"});
        enfoque(s.p, "DBGridEh1", 0);
        digite_celdas({"0001", "0002", "30"});
        QCOMPARE(valores_de(forma->CCentros, "NomCentro").join('|'), "Gerencia|Contabilidad|");
        forma->CCentros.Append();
        forma->CCentros.FieldByName("ACCE_PORC") = "5";
        s.i.espere("Debe indicar el proyecto del centro al que se reparte.");
        QVERIFY_EXCEPTION_THROWN(forma->CCentros.Post(), EdicionAbortada);
        forma->CCentros.Cancel();
        forma->PageControl1->setCurrentIndex(3);
        s.i.espere("El reparto por centros de costo suma 90.00 %, y no 100 %: el gasto se "
                   "repartirá en esa proporción. Desea grabarlo así?",
                   "No");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from activos_centros"), "0");
        QCOMPARE(forma->PageControl1->currentIndex(), 2);
        corrija_el_reparto(s, forma->CCentros);
        forma->PageControl1->setCurrentIndex(3);
        enfoque(s.p, "DBGridEh2");
        oprima(Qt::Key_Insert);
        enfoque(s.p, "DBGridEh2", 1);
        digite_celdas({"2017/01/31", "100"});
        QTemporaryDir carpeta;
        QImage imagen(8, 8, QImage::Format_RGB32);
        imagen.fill(Qt::darkGreen);
        imagen.save(carpeta.filePath("foto.png"));
        forma->cargue_foto(carpeta.filePath("foto.png"));
        s.grabe("Tfedtactivo");
        QCOMPARE(s.dato("select list(acce_item || acce_proy || acce_centro || acce_porc) from "
                        "activos_centros"),
                 "10001000160.0000,20001000240.0000");
        QCOMPARE(s.dato("select dede_libro || dede_clase || dede_fecha || ' ' || dede_valor from "
                        "depreciacion_detalle"),
                 "2649I20170131 100.00");
        QVERIFY(s.dato("select octet_length(acfo_foto) from activos_fotos").toInt() > 50);
        s.i.espere("No se encontró el activo NADA");
        QVERIFY(!s.abra("Tfedtactivo", AbreActivo{"NADA"}));
        s.abra("Tfactivos", PideActivo{"Equipo"}); // no es un código: lo busca
        QCOMPARE(s.caja("EBuscar"), "Equipo");
    }

    void la_depreciacion_del_mes_pide_las_unidades_de_quienes_producen() {
        Almacenista s;
        s.activo("EQ1", "1200", 12);
        s.activo("MAQ", "1000", 100, "S");
        s.activo("PARADA", "1000", 100, "S");
        auto* lista = static_cast<ListaProceso*>(s.abra("Tfbuscdep"));
        s.siga(Qt::Key_F5);
        s.tipo();
        s.escriba("EDia=31; EConcepto=Enero");
        s.lista("LLibros", "Ambas");
        oprima(Qt::Key_F2);
        auto* forma = static_cast<Tfcalculadep*>(s.p);
        QVERIFY(!componente<QWidget>(s.p, "Panel1").isVisible());
        QCOMPARE(valores_de(forma->CDepunidad, "ACFJ_COD"), QStringList({"MAQ", "PARADA"}));
        QCOMPARE(valores_de(forma->CDepunidad, "Unirest"), QStringList({"200", "200"}));
        QCOMPARE(forma->CDepunidad.FieldByName("Porlibro").texto(), "Local 100, NIIF 200");
        // Lo que nadie digitó se pregunta; el cero digitado se rehúsa.
        s.i.espere("2 activos quedan sin unidades u horas producidas, y este mes no se deprecian. "
                   "Desea continuar?",
                   "No");
        pulse(s.p, "SpeedButton3");
        QCOMPARE(s.dato("select count(*) from depreciacion"), "0");
        const QString parada = "El activo PARADA queda sin unidades u horas producidas, y este mes "
                               "no se deprecia. Desea continuar?";
        enfoque(s.p, "DBGridEh1", 4);
        digite("25", Qt::Key_Return);
        forma->CDepunidad.First();
        QCOMPARE(valores_de(forma->CDepunidad, "Unirest"), QStringList({"200", "200"}));
        enfoque(s.p, "DBGridEh1", 4);
        s.i.espere("Debe indicar el número de unidades/horas producidas.");
        digite("0", Qt::Key_Down);
        forma->CDepunidad.Cancel();
        // Si la base rehúsa, la que no se digitó sigue ahí.
        s.base.ejecute({"update activos_fijos set acfj_ctadepd = null where acfj_cod = 'EQ1'"});
        s.i.espere(parada, "Sí");
        s.i.espere("Al activo EQ1 le faltan las cuentas de depreciación.");
        pulse(s.p, "SpeedButton3");
        // Y se puede volver al encabezado: con otro día, los que producen son los de ese.
        QVERIFY(componente<QWidget>(s.p, "Panel1").isVisible());
        s.escriba("EDia", "30");
        oprima(Qt::Key_F2);
        QVERIFY(!componente<QWidget>(s.p, "Panel1").isVisible());
        QCOMPARE(valores_de(forma->CDepunidad, "DEPU_UNIDADES"), QStringList({"25", "0"}));
        QCOMPARE(valores_de(forma->CDepunidad, "ACFJ_COD"), QStringList({"MAQ", "PARADA"}));
        s.base.ejecute({"update activos_fijos set acfj_ctadepd = '519530' where acfj_cod = 'EQ1'"});
        s.i.espere(parada, "Sí");
        QSignalSpy balance(&s.cnt, &Tfdmcnt::balance_por_recalcular);
        pulse(s.p, "SpeedButton3");
        QVERIFY(!s.escritorio.abierta("Tfcalculadep"));
        QCOMPARE(balance.count(), 1);
        QCOMPARE(s.dato("select list(acfj_cod || dede_libro || ':' || dede_valor, ' ') from "
                        "(select * from depreciacion_detalle order by acfj_cod, dede_libro)"),
                 "EQ12649:100.00 EQ1NIIF:50.00 MAQ2649:250.00 MAQNIIF:125.00");
        QCOMPARE(s.dato("select list(acfj_cod || depu_unidades) from depreciacion_unidades"),
                 "MAQ25,PARADA0");
        QCOMPARE(lista->CLista.RecordCount(), 1);
        oprima(Qt::Key_F4);
        QCOMPARE(abiertos, QStringList(s.dato("select enco_consec from depreciacion")));
        s.escritorio.activa()->close();
        agote_eventos();
        s.escritorio.active(lista);
        escriba(lista, "EFecha", "2017/02/01");
        QVERIFY(lista->CLista.IsEmpty());
        escriba(lista, "EFecha", "2017/01/01");
        s.i.espere_comienzo("Desea borrar definitivamente la depreciación CG 0001", "Sí");
        oprima(Qt::Key_F3);
        QCOMPARE(balance.count(), 2);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        QCOMPARE(s.dato("select count(*) from depreciacion_unidades"), "0");
    }

    void las_unidades_que_pasan_de_las_que_restan_se_preguntan() {
        Almacenista s;
        s.activo("MAQ", "1000", 100, "S");
        s.abra("Tfcalculadep");
        s.tipo();
        s.escriba("EDia=31; EConcepto=Enero");
        oprima(Qt::Key_F2);
        enfoque(s.p, "DBGridEh1", 4);
        digite("201", Qt::Key_Return);
        s.i.espere("El activo MAQ produjo 201 unidades u horas y solo le restan 200: queda "
                   "depreciado del todo. Desea continuar?",
                   "No");
        pulse(s.p, "SpeedButton3");
        QCOMPARE(s.dato("select count(*) from depreciacion"), "0");
    }

    void con_el_papel_del_programa_se_deprecia_una_vez_y_se_da_de_baja() {
        Almacenista s("AUXILIAR");
        s.activo("EQ1", "1200", 12);
        for (int vez : {1, 2}) {
            s.abra("Tfcalculadep");
            s.tipo();
            s.escriba("EConcepto", "Enero");
            if (vez == 2)
                s.i.espere_comienzo("El mes 2017/01 ya se depreció en ese alcance (comprobante CG");
            oprima(Qt::Key_F2); // sin productores graba de una vez
            QCOMPARE(bool(s.escritorio.abierta("Tfcalculadep")), vez == 2);
        }
        QCOMPARE(s.dato("select sum(code_debito) from comprobante_detalle"), "100");
        s.base.ejecute({"update activos_fijos set acfj_activo = 'N'"});
        s.abra("Tfbajaactivo");
        s.tipo();
        s.escriba("EConcepto", "Venta");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select list(dede_clase || dede_libro, ' ') from (select * from "
                        "depreciacion_detalle order by dede_id)"),
                 "D2649 B2649 BNIIF");
        // Lo que llevan los procesos no se escribe a mano.
        for (const char* orden : {"update depreciacion_detalle set dede_valor = 0",
                                  "execute procedure asiente_depreciacion(1)"})
            QVERIFY_EXCEPTION_THROWN(s.dm.Quorvex.ejecute(orden), ErrorBase);
    }

    void la_baja_dice_antes_cuales_activos_saca() {
        Almacenista s;
        s.activo("EQ1", "1200", 12);
        s.activo("EQ2", "900", 12);
        auto* baja = static_cast<Tfbajaactivo*>(s.abra("Tfbajaactivo"));
        QVERIFY(baja->CBajas.IsEmpty());
        s.tipo();
        s.escriba("EConcepto", "Venta por chatarra");
        dice(Qt::Key_F2,
             "Baja de activos: no hay activos fuera de uso por dar de baja. No se hizo ningún "
             "comprobante.");
        s.base.ejecute({"update activos_fijos set acfj_activo = 'N' where acfj_cod = 'EQ2'"});
        s.escritorio.muestre(new Pantalla("Tfotra")); // se fue a la ficha y volvió
        s.escritorio.active(baja);
        agote_eventos();
        QCOMPARE(valores_de(baja->CBajas, "ACTIVO"), QStringList("EQ2"));
        QCOMPARE(valores_de(baja->CBajas, "VALOR"), QStringList("900"));
        s.grabe("Tfbajaactivo");
        QCOMPARE(s.dato("select list(distinct acfj_cod) from depreciacion_detalle"), "EQ2");
        QCOMPARE(s.dato("select count(*) from activos_por_bajar"), "0");
    }

    void el_deterioro_compara_el_valor_en_libros_con_lo_recuperable() {
        Almacenista s;
        s.activo("EQ1", "1200", 12);
        s.abra("Tfactivos");
        s.siga(Qt::Key_F5, Qt::ShiftModifier);
        QCOMPARE(s.p->windowTitle(), "Nuevo valor activo");
        QCOMPARE(s.caja("EValor"), "1,200.00");
        s.tipo();
        s.escriba("EConcepto=Deterioro; EVrUso=1000; ECsUso=100; EPrVenta=950; ECsVenta=50");
        QCOMPARE(s.caja("EUso") + s.caja("ERazon") + s.caja("EVrRecup"), "900.00900.00900.00");
        QCOMPARE(s.caja("EDifer"), "-300.00");
        s.escriba("ECsVenta", "0");
        QCOMPARE(s.caja("EVrRecup"), "950.00");
        s.grabe("Tfvalactivo");
        QCOMPARE(s.dato("select list(cuen_cod || ':' || code_debito || ':' || code_credito, ' ') "
                        "from comprobante_detalle_niif"),
                 "530525:250.00:0.00 159220:0.00:250.00");
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), "0");
        QCOMPARE(s.dato("select valor from activo_valor('EQ1', '20171231', 'S')"), "950");
    }

    void el_cuadro_suma_el_costo_en_los_dos_libros_y_lo_dibuja() {
        Almacenista s;
        s.activo("EQ1", "1000", 3);
        s.base.ejecute({orden_depreciacion("20170131", "C")});
        s.abra("Tfactivos");
        oprima(Qt::Key_F2);
        auto* c = static_cast<Tfcuadroactivo*>(s.escritorio.activa());
        QCOMPARE(valores_de(c->CCuadro, "CARGO"), QStringList({"333.33", "333.34", "333.33"}));
        QCOMPARE(valores_de(c->CCuadro, "HECHO"), QStringList({"S", "N", "N"}));
        QCOMPARE(valores_de(c->CCuadro, "PERIODO"), QStringList({"2017/01", "2017/02", "2017/03"}));
        QCOMPARE(valores_de(c->CCuadroniif, "VALOR").last(), "0");
        QCOMPARE(c->CCuadroniif.RecordCount(), 6);
        QCOMPARE(c->DBGridEh2->suma(2), Moneda(1000));
        QCOMPARE(c->Curva->categorias().size(), 7); // el costo y seis meses
        const auto& local = c->Curva->series()[0].valores;
        QCOMPARE(local[1], Moneda::de_texto("666.67"));
        QCOMPARE(local.last(), Moneda()); // ya estaba en cero: conserva su valor
    }

    void los_movimientos_abren_su_comprobante_y_solo_eliminan_un_nuevo_valor() {
        Almacenista s;
        s.activo("EQ1", "1200", 12);
        s.base.ejecute({orden_depreciacion("20170131", "A"), orden_valor("EQ1", "20170215", "25")});
        // Una línea del libro NIIF que lo nombra, y otra en los dos libros, que va una vez.
        s.base.ejecute(
            {"update cuentas set cuen_tipo = 'A' where cuen_cod = '152405'",
             "update cuentas_niif set cuen_tipo = 'A' where cuen_cod = '152405'",
             "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero,"
             " enco_fecha, enco_concepto, enco_usuario, enco_repniif) values (900, 'CG', '0001',"
             " '000900', '20170320', 'Compra', 'ADMIN', 'N')",
             "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, code_concepto,"
             " arti_cod, code_debito, code_credito) values (900, 1, '152405', 'Compra', 'EQ1', 5,"
             " 0)",
             "insert into comprobante_detalle_niif (enco_consec, code_item, cuen_cod,"
             " code_concepto, arti_cod, code_debito, code_credito) values (900, 1, '152405',"
             " 'Compra', 'EQ1', 5, 0)",
             "insert into comprobante_detalle_niif (enco_consec, code_item, cuen_cod,"
             " code_concepto, arti_cod, code_debito, code_credito) values (900, 2, '152405',"
             " 'Adición NIIF', 'EQ1', 7, 0)"});
        s.abra("Tfactivos");
        auto* m = static_cast<ListaProceso*>(s.siga(Qt::Key_F8));
        QCOMPARE(m->windowTitle(), "Movimiento por activo: EQ1  Equipo EQ1");
        const auto conceptos = [m] {
            QStringList c = valores_de(m->CLista, "CONCEPTO");
            c.sort(); // dos son del mismo día
            return c.join(", ");
        };
        QCOMPARE(conceptos(),
                 "Adición NIIF, Compra, Depreciación, Depreciación NIIF, Recuperación NIIF");
        oprima(Qt::Key_F4);
        QCOMPARE(abiertos, QStringList(s.dato("select enco_consec from depreciacion")));
        s.escritorio.activa()->close();
        agote_eventos();
        s.escritorio.active(m);
        s.i.espere_comienzo("Aquí se elimina solo un nuevo valor del activo.");
        oprima_seguidas({Qt::Key_F3, Qt::Key_Down, Qt::Key_Down});
        s.i.espere_comienzo("Desea borrar definitivamente el nuevo valor CG 0001 0", "Sí");
        AvisosBarra barra;
        s.dm.barra(&barra);
        oprima(Qt::Key_F3);
        s.dm.barra(nullptr);
        QVERIFY(barra.text().startsWith("Se borró el nuevo valor CG 0001 0"));
        QCOMPARE(conceptos(), "Adición NIIF, Compra, Depreciación, Depreciación NIIF");
        QCOMPARE(s.dato("select count(*) from activos_fijos_valor"), "0");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "2");
    }

    void el_nuevo_valor_lleva_su_soporte_y_el_valor_de_su_fecha() {
        Almacenista s;
        s.activo("EQ1", "1200", 12);
        s.base.ejecute({orden_depreciacion("20170131", "N")});
        s.abra("Tfvalactivo", AbreActivo{QString("EQ1")});
        QCOMPARE(s.caja("EValor"), "1,200.00"); // el primero de enero
        const auto donde = [&](const char* caja) {
            return componente<QWidget>(s.p, caja).mapTo(s.p, QPoint()).x();
        };
        QCOMPARE(donde("ECsUso"), donde("ECsVenta"));
        QCOMPARE(donde("ECsUso"), donde("EDifer"));
        s.tipo();
        s.escriba("EPrVenta", "1000");
        QCOMPARE(s.caja("EDifer"), "-200.00");
        s.escriba("EDia", "31");
        QCOMPARE(s.caja("EValor"), "1,150.00");
        QCOMPARE(s.caja("EDifer"), "-150.00");
        QTemporaryDir carpeta;
        QFile avaluo(carpeta.filePath("avaluo.pdf"));
        QVERIFY(avaluo.open(QIODevice::WriteOnly) && avaluo.write("%PDF de avance") > 0);
        avaluo.close();
        QVERIFY_EXCEPTION_THROWN(
            static_cast<Tfvalactivo*>(s.p)->cargue_documento(carpeta.filePath("falta.pdf")),
            ErrorDatos);
        s.i.espere_modal("QFileDialog", [&](QWidget* w) {
            w->findChild<QLineEdit*>("fileNameEdit")->setText(avaluo.fileName());
            QMetaObject::invokeMethod(w, "accept");
        });
        oprima(Qt::Key_F8);
        QCOMPARE(s.caja("EDocumento"), "avaluo.pdf");
        // Otro le cambió el valor mientras tanto: se lee de nuevo, y no se graba sin verlo.
        s.base.ejecute({orden_valor("EQ1", "20170115", "-50")});
        dice(Qt::Key_F2, "Otro proceso cambió el valor en libros del activo: era 1,150.00 y es "
                         "1,100.00. Revise la diferencia y grabe otra vez.");
        QCOMPARE(s.caja("EDifer"), "-100.00");
        s.grabe("Tfvalactivo");
        QCOMPARE(s.dato("select acfv_difer || ' ' || cast(acfv_documento as varchar(20)) from "
                        "activos_fijos_valor where acfv_fecha = '20170131'"),
                 "-100.00 %PDF de avance");
        QCOMPARE(s.dato("select valor from activo_valor('EQ1', '20170131', 'S')"), "1000");
    }

    void los_documentos_del_activo_se_agregan_se_ven_y_se_borran_con_su_derecho() {
        Almacenista s("AUXILIAR");
        VisorTestigo visor;
        s.activo("EQ1", "1200", 12);
        QTemporaryDir carpeta;
        QFile factura(carpeta.filePath("Factura.pdf"));
        QVERIFY(factura.open(QIODevice::WriteOnly) && factura.write("%PDF factura") > 0);
        factura.close();
        s.abra("Tfedtactivo", AbreActivo{QString("EQ1")});
        s.siga(Qt::Key_F8);
        QCOMPARE(s.p->objectName(), "Tfdocsact");
        s.i.espere_modal("Tfnvodocact", [&](QWidget* modal) {
            auto* forma = modal->findChild<Pantalla*>("Tfnvodocact");
            auto& ruta = componente<QLineEdit>(forma, "EArchivo");
            ruta.setText(factura.fileName());
            QTest::keyClick(&ruta, Qt::Key_F2);
        });
        oprima(Qt::Key_F5);
        QCOMPARE(s.dato("select acdo_item || acdo_nombre || octet_length(acdo_archivo) from "
                        "activos_documentos where acfj_cod = 'EQ1'"),
                 "1Factura12");
        QTRY_COMPARE(visor.vistos, QList<QByteArray>({"%PDF factura"}));
        const QDir pdf(s.base.ruta() + "/pdf");
        QCOMPARE(pdf.entryList(QDir::Files), QStringList("EQ1Factura.pdf"));
        s.niegue(12);
        dice(Qt::Key_F3, kAccesoNegado);
        s.otorgue(12);
        dice(Qt::Key_F3, "Desea borrar definitivamente el documento Factura?", "Sí");
        QCOMPARE(s.dato("select count(*) from activos_documentos"), "0");
        QVERIFY(pdf.entryList(QDir::Files).isEmpty());
    }

    void la_grafica_usa_pasos_redondos() {
        QCOMPARE(Grafica::paso_redondo(1000, 4), 500.0);
        QCOMPARE(Grafica::paso_redondo(400, 4), 100.0);
        QCOMPARE(Grafica::paso_redondo(0.7, 4), 0.2);
        QCOMPARE(Grafica::paso_redondo(0, 4), 1.0);
    }
};

QTEST_MAIN(PruebaPantallasActivos)
#include "prueba_pantallas_activos.moc"
