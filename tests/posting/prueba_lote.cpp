// Un mes entero de una vez: lo que queda en los libros es lo que dicen los documentos, y dos
// personas con la misma lista no contabilizan nada dos veces.
#include "apoyo/azar_de_prueba.h"
#include "apoyo/servidor_prueba.h"
#include "libro/propuesta.h"
#include "posting/modulos_de_prueba.h"
#include "posting/registro.h"
#include "posting/tfresumencontab.h"
#include "posting/tfsincontab.h"
#include "vouchers/registro.h"

#include <QLabel>
#include <QtTest>
#include <thread>

namespace {

/// Sumas por cuenta: débitos y créditos.
using Libro2649 = std::map<QString, std::pair<Moneda, Moneda>>;

QString como_texto(const Libro2649& libro) {
    QStringList renglones;
    for (const auto& [cuenta, suma] : libro)
        renglones << cuenta + '|' + suma.first.texto() + '|' + suma.second.texto();
    return renglones.join('\n');
}

QString libro_guardado(Conexion& c, const char* sufijo) {
    return filas_de(c, QStringLiteral("select cuen_cod, sum(code_debito), sum(code_credito) from"
                                      " comprobante_detalle%1 group by 1 order by 1")
                           .arg(QLatin1String(sufijo)));
}

/// Los documentos de un mes, y lo que un contador sumaría de ellos en cada libro.
class MesAlAzar {
public:
    MesAlAzar(Conexion& c, quint32 semilla) : c_(c), azar_(azar_de_prueba(semilla)) {
        const auto interfaz = [&](int tipo, const char* reglas, const char* niif = "") {
            InterfazPrueba i = interfaz_de_prueba(reglas, tipo);
            i.reglas_niif = niif;
            registre(c_, tipo, i);
        };
        interfaz(31, "CLIENTE 130505 D tn; VENTA 413505 C c; IVA 240805 C; COSTO 613505 D c;"
                     " COSTO 143505 C");
        interfaz(21, "COMPRA 143505 D; IVA 240810 D; PROVEEDOR 220505 C tn",
                 "COMPRA 143510 D; IVA 240810 D; PROVEEDOR 220505 C tn");
        interfaz(61, "MEDIO:EF 110505 D; MEDIO 110515 D; CLIENTE 130505 C t");
        interfaz(62, "PROVEEDOR 220505 D t; BANCO 111005 C");
    }
    void registre_uno(int n) {
        static constexpr int kTipos[] = {31, 31, 21, 61, 62};
        const int tipo = kTipos[n % 5];
        DocumentoPrueba d{tipo, {}};
        d.numero = QString::number(n).rightJustified(6, '0');
        d.fecha = QStringLiteral("2017-03-%1").arg(1 + n % 31, 2, 10, QLatin1Char('0'));
        d.nit = tipo == 31 || tipo == 61 ? "900123456" : "800456789";
        d.centro = "0002-0001";
        const Moneda valor = Moneda::de_escalado(azar_.bounded(100000, 99999999), 2);
        const Moneda iva = Moneda::porcentaje(valor, Moneda(19)).redondeada(2);
        const auto t = [](Moneda m) { return m.texto(); };
        switch (tipo) {
        case 31: {
            const Moneda costo = Moneda::porcentaje(valor, Moneda(60)).redondeada(2);
            d.lineas = "VENTA " + t(valor) + "; IVA " + t(iva) + "; CLIENTE " + t(valor + iva) +
                       "; COSTO " + t(costo);
            anote("130505", valor + iva, {});
            anote("413505", {}, valor);
            anote("240805", {}, iva);
            anote("613505", costo, {});
            anote("143505", {}, costo);
            break;
        }
        case 21:
            d.lineas = "COMPRA " + t(valor) + "; IVA " + t(iva) + "; PROVEEDOR " + t(valor + iva);
            ponga(libro, "143505", valor, {});
            ponga(niif, "143510", valor, {});
            anote("240810", iva, {});
            anote("220505", {}, valor + iva);
            break;
        case 61: {
            const QString medio = azar_.bounded(2) ? "EF" : "CH";
            d.lineas = "MEDIO:" + medio + ' ' + t(valor) + "; CLIENTE " + t(valor);
            anote(medio == "EF" ? "110505" : "110515", valor, {});
            anote("130505", {}, valor);
            break;
        }
        default:
            d.lineas = "PROVEEDOR " + t(valor) + "; BANCO:1 " + t(valor);
            anote("220505", valor, {});
            anote("111005", {}, valor);
        }
        registre(c_, d);
    }
    Libro2649 libro, niif;

private:
    static void ponga(Libro2649& l, const char* cuenta, Moneda debito, Moneda credito) {
        auto& suma = l[QLatin1String(cuenta)];
        suma.first += debito;
        suma.second += credito;
    }
    void anote(const char* cuenta, Moneda debito, Moneda credito) {
        ponga(libro, cuenta, debito, credito);
        ponga(niif, cuenta, debito, credito);
    }
    Conexion& c_;
    QRandomGenerator azar_;
};

struct Renglon {
    int tido, id;
};

/// La otra persona: su propia conexión, la misma lista y el mismo orden, sin mirar si ya está.
void contabilice_por_su_lado(const ServidorDePrueba& servidor, const QVector<Renglon>& lista,
                             std::atomic<int>& rehusados) {
    Conexion c;
    c.conectar(servidor.parametros("AUXILIAR"));
    for (const Renglon& r : lista)
        try {
            const QString procedimiento =
                c.consulte("select doct_proc from documento_contable where tido_cod = ?", {r.tido})
                    .texto();
            const int propuesta = c.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
                Cursor fila(c.prepare("select * from " + procedimiento + "(?, ?)", t), t,
                            {r.id, r.tido});
                return fila.siguiente() ? int(fila.valor(2).entero()) : 0;
            });
            asiente_sin_revisar(c, {r.tido, r.id}, propuesta, Libro::Decreto2649, false,
                                "AUXILIAR");
        } catch (const ErrorDatos&) {
            ++rehusados; // lo contabilizó quien estaba primero
        }
}

void prepare(Conexion& c) {
    agregue_cuentas(c, "110515; 143510");
    configure(c, kPorInterfaz, "INTERFAZ");
    configure(c, "AÑO BALANCE DE APERTURA NIIF", "2016");
}

} // namespace

class PruebaLote : public QObject {
    Q_OBJECT
private slots:
    void seiscientos_documentos_suman_en_los_libros_lo_que_dicen();
    void dos_personas_con_la_misma_lista_no_contabilizan_nada_dos_veces();
};

void PruebaLote::seiscientos_documentos_suman_en_los_libros_lo_que_dicen() {
    constexpr int kDocumentos = 600;
    SesionGui s;
    ModulosDePrueba modulos;
    registre_pantallas_comprobantes();
    registre_pantallas_contabilizacion();
    prepare(s.base.base());
    s.dm.cargue_configuracion();
    s.cnt.periodo_actual = 2;
    MesAlAzar mes(s.base.base(), 20170315);
    for (int n = 1; n <= kDocumentos; ++n)
        mes.registre_uno(n);
    for (int n = 1; n <= 3; ++n) { // estos no tienen interfaz
        DocumentoPrueba d = venta_de_prueba(QString::number(n * 100).rightJustified(6, '0'));
        d.prefijo = "0009";
        registre(s.base.base(), d);
    }
    auto* p = s.abra<Tfsincontab>("Tfsincontab");
    p->DBGridEh1->seleccione_todo();
    QCOMPARE(p->DBGridEh1->filas_marcadas().size(), kDocumentos + 3);
    Interlocutor i;
    for (int n = 0; n < 3; ++n)
        i.espere("No se han definido interfaces para el documento.");
    i.espere_modal("Tfresumencontab", [](QWidget* w) {
        con_foco();
        agote_eventos();
        QCOMPARE(w->findChild<QLabel*>("ECuenta")->text(),
                 "600 contabilizados, 0 en espera, 3 con falla.");
        oprima(Qt::Key_Escape);
    });
    pulse(p, "SpeedButton3");
    QCOMPARE(p->CSincontab.RecordCount(), 3);
    QCOMPARE(libro_guardado(s.base.base(), ""), como_texto(mes.libro));
    QCOMPARE(libro_guardado(s.base.base(), "_niif"), como_texto(mes.niif));
    QCOMPARE(saldos_distintos(s.base.base()), QString());
    QCOMPARE(s.dato("select count(distinct enco_numero) || ' ' || max(enco_numero) from"
                    " comprobante_encabezado"),
             "600 000600");
}

void PruebaLote::dos_personas_con_la_misma_lista_no_contabilizan_nada_dos_veces() {
    constexpr int kDocumentos = 80;
    ServidorDePrueba servidor;
    Tfdm dm;
    dm.Quorvex.conectar(servidor.parametros());
    dm.ConGeneral.conectar(servidor.parametros_general());
    dm.modulo = "CONTABILIDAD";
    dm.usuario = "ADMIN";
    ModulosDePrueba modulos;
    Conexion duena;
    duena.conectar(servidor.parametros("SYSDBA"));
    prepare(duena);
    dm.cargue_configuracion();
    MesAlAzar mes(duena, 99);
    for (int n = 1; n <= kDocumentos; ++n)
        mes.registre_uno(n);

    QVector<Renglon> lista;
    const auto f = duena.abra("select tido, id from documentos_sin_contabilizar('2017/03/01',"
                              " '2017/03/31', 'S', 'N')");
    while (f->siguiente())
        lista.push_back({int(f->valor(0).entero()), int(f->valor(1).entero())});
    QCOMPARE(lista.size(), kDocumentos);

    std::atomic<int> rehusados = 0;
    std::thread otra([&] { contabilice_por_su_lado(servidor, lista, rehusados); });
    for (const Renglon& r : lista)
        try {
            const PropuestaPendiente p = proponga(
                {.tido = r.tido, .id = r.id, .prefijo = "0000", .fecha = QDate(2017, 3, 15)}, false,
                [](const QVector<InterfazContable>&) { return std::optional<int>(); });
            if (p.cntb_id)
                asiente_sin_revisar(dm.Quorvex, {r.tido, r.id}, p.cntb_id, Libro::Decreto2649,
                                    false, "ADMIN");
        } catch (const ErrorDatos&) {
            ++rehusados;
        }
    otra.join();
    qInfo("rehusados por llegar tarde: %d", rehusados.load());
    QCOMPARE(filas_de(duena, "select enco_tiporef, enco_idref, count(*) from comprobante_encabezado"
                             " group by 1, 2 having count(*) <> 1"),
             QString());
    QCOMPARE(libro_guardado(duena, ""), como_texto(mes.libro));
    QCOMPARE(duena
                 .consulte("select count(distinct enco_numero) || ' ' || max(enco_numero) from"
                           " comprobante_encabezado")
                 .texto(),
             "80 000080");
    QCOMPARE(saldos_distintos(duena), QString());
}

QTEST_MAIN(PruebaLote)
#include "prueba_lote.moc"
