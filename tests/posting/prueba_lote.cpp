// Un mes entero de una vez: lo que queda en los libros es lo que dicen los documentos, y dos
// personas con la misma lista no contabilizan nada dos veces.
#include "apoyo/intermediario.h"
#include "apoyo/servidor_prueba.h"
#include "datos/firebird/vigia.h"
#include "libro/propuesta.h"
#include "posting/modulos_de_prueba.h"
#include "posting/registro.h"
#include "posting/tfresumencontab.h"
#include "posting/tfsincontab.h"
#include "vouchers/registro.h"

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

/// Una persona en el servidor, con su propio programa: lee la lista y contabiliza cada documento
/// con los pasos de la pantalla.
class Persona {
public:
    Persona(const ParametrosConexion& compania, const ParametrosConexion& general) {
        dm_.Quorvex.conectar(compania);
        dm_.ConGeneral.conectar(general);
        dm_.modulo = "CONTABILIDAD";
        dm_.usuario = compania.usuario;
        dm_.cargue_configuracion();
        const auto f = dm_.Quorvex.abra("select tido, id from documentos_sin_contabilizar("
                                        "'2017/03/01', '2017/03/31', 'S', 'N')");
        while (f->siguiente())
            lista_.push_back({.tido = int(f->valor(0).entero()),
                              .id = int(f->valor(1).entero()),
                              .prefijo = "0000",
                              .fecha = QDate(2017, 3, 15)});
    }
    int pendientes() const { return int(lista_.size()); }
    /// `al_terminar` corre después de cada documento, quedara o no contabilizado.
    void contabilice(const std::function<void()>& al_terminar = [] {}) {
        for (const DocumentoPendiente& d : lista_) {
            try {
                const PropuestaPendiente p =
                    proponga(d, false,
                             [](const QVector<InterfazContable>&) { return std::optional<int>(); });
                const bool hecho =
                    p.cntb_id && asiente_sin_revisar(dm_.Quorvex, {d.tido, d.id}, p.cntb_id,
                                                     Libro::Decreto2649, false, dm_.usuario);
                ++(hecho ? hechos : rehusados);
            } catch (const ErrorOtroUsuario&) {
                ++rehusados; // la propuesta ya es de quien llegó primero
            } catch (const ErrorBase& e) {
                if (e.clase() != ClaseFalla::Rechazo)
                    throw;
                ++rehusados;
            }
            al_terminar();
        }
    }
    int hechos = 0, rehusados = 0;

private:
    Tfdm dm_;
    ModulosDePrueba modulos_;
    QVector<DocumentoPendiente> lista_;
};

/// El programa de la otra persona: avisa cuando tiene su lista, empieza cuando se lo dicen y cuenta
/// cada documento con un renglón.
int sea_la_otra(const QStringList& a) {
    const auto a_la_base = [&a](const QString& base) {
        ParametrosConexion p;
        p.base = base;
        p.usuario = a[4];
        p.clave = a[5];
        return p;
    };
    Persona otra(a_la_base(a[2]), a_la_base(a[3]));
    std::printf("%d\n", otra.pendientes());
    std::fflush(stdout);
    (void)std::getchar();
    otra.contabilice([] {
        std::printf("+\n");
        std::fflush(stdout);
    });
    std::printf("%d %d\n", otra.hechos, otra.rehusados);
    return 0;
}

/// Arranca ese programa y lo deja andando, con `documentos` en su lista.
void arranque(QProcess& otra, const ServidorDePrueba& servidor, int documentos) {
    const ParametrosConexion auxiliar = servidor.parametros("AUXILIAR");
    otra.start(QCoreApplication::applicationFilePath(),
               {"otra-persona", auxiliar.base, servidor.parametros_general("AUXILIAR").base,
                auxiliar.usuario, auxiliar.clave});
    QVERIFY2(otra.waitForReadyRead(-1), otra.readAllStandardError());
    QCOMPARE(otra.readLine().trimmed().toInt(), documentos);
}

void empiece(QProcess& otra) {
    otra.write("\n");
    QVERIFY(otra.waitForBytesWritten(-1));
}

int faltan(Conexion& c) {
    return int(c.consulte("select count(*) from documentos_sin_contabilizar('2017/03/01',"
                          " '2017/03/31', 'S', 'N')")
                   .entero());
}

/// Los libros dicen lo mismo que los documentos, y la numeración no tiene huecos.
void compare_con(const MesAlAzar& mes, Conexion& c, const char* cuantos_y_ultimo) {
    QCOMPARE(libro_guardado(c, ""), como_texto(mes.libro));
    QCOMPARE(libro_guardado(c, "_niif"), como_texto(mes.niif));
    QCOMPARE(c.consulte("select count(distinct enco_numero) || ' ' || max(enco_numero) from"
                        " comprobante_encabezado")
                 .texto(),
             cuantos_y_ultimo);
    QCOMPARE(saldos_distintos(c), QString());
}

void prepare(Conexion& c) {
    agregue_cuentas(c, "110515; 143510");
    configure(c, kPorInterfaz, "INTERFAZ");
    configure(c, "AÑO BALANCE DE APERTURA NIIF", "2016");
}

/// Un mes de documentos en el servidor, por la conexión de la dueña.
MesAlAzar un_mes(ServidorDePrueba& servidor, Conexion& duena, quint32 semilla, int documentos) {
    duena.conectar(servidor.parametros("SYSDBA"));
    prepare(duena);
    MesAlAzar mes(duena, semilla);
    for (int n = 1; n <= documentos; ++n)
        mes.registre_uno(n);
    return mes;
}

} // namespace

class PruebaLote : public QObject {
    Q_OBJECT
private slots:
    void seiscientos_documentos_suman_en_los_libros_lo_que_dicen();
    void dos_personas_con_la_misma_lista_no_contabilizan_nada_dos_veces();
    void un_programa_que_muere_a_mitad_no_deja_nada_a_medias();
    void una_red_muda_detiene_el_lote_y_lo_dice();
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
    espere_pantalla<Tfresumencontab>(i, "Tfresumencontab", [](auto& r) {
        QCOMPARE(r.ECuenta->text(), "600 contabilizados, 0 en espera, 3 con falla.");
        oprima(Qt::Key_Escape);
    });
    pulse(p, "SpeedButton3");
    QCOMPARE(p->CSincontab.RecordCount(), 3);
    compare_con(mes, s.base.base(), "600 000600");
}

void PruebaLote::dos_personas_con_la_misma_lista_no_contabilizan_nada_dos_veces() {
    constexpr int kDocumentos = 80;
    ServidorDePrueba servidor;
    Conexion duena;
    const MesAlAzar mes = un_mes(servidor, duena, 99, kDocumentos);

    QProcess otra;
    arranque(otra, servidor, kDocumentos);
    Persona una(servidor.parametros(), servidor.parametros_general());
    QCOMPARE(una.pendientes(), kDocumentos);
    empiece(otra);
    QVERIFY(otra.waitForReadyRead(-1)); // ya va por la lista
    una.contabilice();
    QVERIFY(otra.waitForFinished(-1));
    const QList<QByteArray> dicho =
        otra.readAllStandardOutput().trimmed().split('\n').last().split(' ');
    QVERIFY2(dicho.size() == 2, otra.readAllStandardError());
    qInfo("una %d, otra %s; rehusados %d y %s", una.hechos, dicho[0].constData(), una.rehusados,
          dicho[1].constData());
    // Cada documento lo contabilizó uno solo: nadie rehízo lo del otro.
    QCOMPARE(una.hechos + dicho[0].toInt() + faltan(duena), kDocumentos);
    QCOMPARE(filas_de(duena, "select enco_tiporef, enco_idref, count(*) from comprobante_encabezado"
                             " group by 1, 2 having count(*) <> 1"),
             QString());
    QVERIFY(una.hechos > 0 && dicho[0].toInt() > 0);
    // Los que los dos soltaron por tomarlos a la vez siguen en la lista; quien la repase los acaba.
    Persona repaso(servidor.parametros(), servidor.parametros_general());
    repaso.contabilice();
    QCOMPARE(faltan(duena), 0);
    compare_con(mes, duena, "80 000080");
}

void PruebaLote::un_programa_que_muere_a_mitad_no_deja_nada_a_medias() {
    constexpr int kDocumentos = 60, kMuertes = 4;
    ServidorDePrueba servidor;
    Conexion duena;
    const MesAlAzar mes = un_mes(servidor, duena, 31, kDocumentos);
    for (int muerte = 0; muerte < kMuertes; ++muerte) {
        QProcess otra;
        arranque(otra, servidor, faltan(duena));
        empiece(otra);
        for (int hechos = 0; hechos < 5 + muerte;) {
            if (!otra.canReadLine())
                QVERIFY2(otra.waitForReadyRead(-1), otra.readAllStandardError());
            hechos += otra.readLine() == "+\n";
        }
        otra.kill(); // con alguno entre manos
        QVERIFY(otra.waitForFinished(-1));
        // Lo que no quedó del todo sigue pendiente.
        QCOMPARE(filas_de(duena, "select enco_consec from comprobante_encabezado e where not exists"
                                 " (select 1 from comprobante_detalle d where d.enco_consec ="
                                 " e.enco_consec) or not exists (select 1 from"
                                 " comprobante_detalle_niif n where n.enco_consec ="
                                 " e.enco_consec)"),
                 QString());
        const int hechos =
            int(duena.consulte("select count(*) from comprobante_encabezado").entero());
        QVERIFY(hechos >= 5 * (muerte + 1) && hechos < kDocumentos);
        QCOMPARE(faltan(duena), kDocumentos - hechos);
    }
    Persona quien_sigue(servidor.parametros(), servidor.parametros_general());
    quien_sigue.contabilice();
    QCOMPARE(faltan(duena), 0);
    compare_con(mes, duena, "60 000060");
}

void PruebaLote::una_red_muda_detiene_el_lote_y_lo_dice() {
    constexpr int kDocumentos = 12, kCalla = 5;
    const LimitesDeRed antes = limites_de_red();
    limites_de_red({200, 2000, 2000});
    const auto vuelva = qScopeGuard([&] { limites_de_red(antes); });
    ServidorDePrueba servidor;
    Intermediario red(servidor.puerto());
    Conexion duena;
    const MesAlAzar mes = un_mes(servidor, duena, 7, kDocumentos);
    SesionGui s;
    s.dm.Quorvex.conectar(red.por_aqui(servidor.parametros()));
    s.dm.ConGeneral.conectar(red.por_aqui(servidor.parametros_general()));
    s.dm.cargue_configuracion();
    s.cnt.periodo_actual = 2;
    ModulosDePrueba modulos;
    registre_pantallas_comprobantes();
    registre_pantallas_contabilizacion();
    auto* p = s.abra<Tfsincontab>("Tfsincontab");
    int van = 0;
    p->CSincontab.AfterScroll = [&] {
        if (++van == kCalla)
            red.calle_tras(Intermediario::HaciaServidor, 1500);
    };
    Interlocutor i;
    const auto contabilice = [&] {
        QString resumen;
        p->DBGridEh1->seleccione_todo();
        espere_pantalla<Tfresumencontab>(i, "Tfresumencontab", [&resumen](auto& r) {
            resumen = r.ECuenta->text();
            oprima(Qt::Key_Escape);
        });
        pulse(p, "SpeedButton3");
        return resumen;
    };
    // El que iba y el siguiente no hallan el servidor; los demás no lo esperan uno por uno.
    i.espere_comienzo("Se presento el siguiente error: Se perdió la conexión");
    const QString resumen = contabilice();
    static const QRegularExpression forma(
        "^(\\d+) contabilizados, 0 en espera, 2 con falla, (\\d+) sin empezar\\.$");
    const auto cifras = forma.match(resumen);
    QVERIFY2(cifras.hasMatch(), qPrintable(resumen + i.queja()));
    const int hechos = cifras.captured(1).toInt(), sin_empezar = cifras.captured(2).toInt();
    QVERIFY(hechos > 0 && sin_empezar > 0 && hechos + 2 + sin_empezar == kDocumentos);
    QCOMPARE(p->CSincontab.RecordCount(), kDocumentos); // la lista sigue a la vista
    QFile errores(s.base.ruta() + "/ERRORES.TXT");      // los dos del lote y el de la lista
    QVERIFY(errores.open(QIODevice::ReadOnly));
    QCOMPARE(errores.readAll().count("Se perdi\xF3 la conexi\xF3n"), 3);
    // Con el servidor de vuelta se acaba, sin decir que otro hizo lo que ya estaba.
    p->CSincontab.AfterScroll = {};
    red.atienda();
    const int faltaban = faltan(duena);
    QCOMPARE(contabilice(),
             QStringLiteral("%1 contabilizados, 0 en espera, 0 con falla.").arg(faltaban));
    QVERIFY2(i.conforme(), qPrintable(i.queja()));
    QCOMPARE(faltan(duena), 0);
    compare_con(mes, duena, "12 000012");
}

int main(int argc, char** argv) {
    QApplication programa(argc, argv);
    if (programa.arguments().value(1) == "otra-persona")
        return sea_la_otra(programa.arguments());
    PruebaLote prueba;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_lote.moc"
