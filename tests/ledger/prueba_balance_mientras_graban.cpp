// El balance de prueba en pantalla mientras otros graban, compactan y recalculan: siempre cuadra, y
// sus dos libros son del mismo instante.
#include "apoyo_gui/sesion_gui.h"
#include "ledger/registro.h"
#include "ledger/tfauxiliar.h"
#include "ledger/tfbalanceprueba.h"
#include "libro/recalculo.h"

namespace {

constexpr int kEscritores = 5;

QVector<Linea> asiento(int valor) {
    return {{1, "110505", valor, 0}, {2, "111005", 0, valor}};
}

/// Los que graban, compactan y recalculan, cada uno con su conexión y en su hilo.
class Otros {
public:
    explicit Otros(const ParametrosConexion& base) : base_(base) {}
    ~Otros() { termine(); }
    void corra(std::function<void(Conexion&)> vuelta) {
        hilos_.emplace_back([this, vuelta] {
            try {
                Conexion c;
                c.conectar(base_);
                while (sigue_)
                    try {
                        vuelta(c);
                    } catch (const ErrorBase& e) {
                        if (!e.conflicto())
                            throw;
                    }
            } catch (const ErrorDatos& e) {
                const std::lock_guard cierre(candado_);
                fallas_ << e.texto();
            }
        });
    }
    QStringList termine() {
        sigue_ = false;
        for (std::thread& t : hilos_)
            t.join();
        hilos_.clear();
        return fallas_;
    }

private:
    ParametrosConexion base_;
    std::atomic<bool> sigue_ = true;
    std::mutex candado_;
    QStringList fallas_;
    std::vector<std::thread> hilos_;
};

} // namespace

class PruebaBalanceMientrasGraban : public QObject {
    Q_OBJECT
private slots:
    void siempre_cuadra_y_los_dos_libros_son_del_mismo_instante() {
        const int lecturas = qEnvironmentVariable("QUORVEX_LECTURAS", "150").toInt();
        SesionGui s;
        registre_pantallas_consulta();
        grabe(s.base.base(), 1, "20170310", asiento(10), asiento(10));
        s.cnt.periodo_actual = 2;
        auto* p = s.abra<Tfbalanceprueba>("Tfbalanceprueba");
        QVERIFY(p);
        Otros otros(s.base.parametros());
        std::atomic<int> grabados = 0;
        for (int e = 0; e < kEscritores; ++e)
            otros.corra([&, e, i = 0](Conexion& c) mutable {
                const int id = 1000 + e * 100000 + i++;
                grabe(c, id, "20170310", asiento(1 + i % 50), asiento(1 + i % 50));
                ++grabados;
            });
        otros.corra([](Conexion& c) { c.ejecute("execute procedure compacte_saldos(20)"); });
        otros.corra([](Conexion& c) {
            for (const Libro libro : {Libro::Decreto2649, Libro::Niif})
                recalcule_saldos(c, libro, "20170101", "1", "2");
        });
        int distintos = 0;
        const auto caja = [&](const char* nombre) {
            return componente<EditorNumero>(p, nombre).text();
        };
        QString anterior;
        // En un equipo ocupado los demás graban despacio: se lee hasta que hayan grabado.
        const QDeadlineTimer plazo(120'000);
        const auto faltan = [&] { return distintos <= 5 || grabados <= 20; };
        for (int i = 0; i < lecturas || (faltan() && !plazo.hasExpired()); ++i) {
            QTest::keyClick(p, Qt::Key_F2);
            for (ConjuntoDatos* libro : {&p->CBalance, &p->CBalniif}) {
                QVERIFY(libro->completo());
                QCOMPARE(libro->FieldByName("SUMDB").moneda().texto(),
                         libro->FieldByName("SUMCR").moneda().texto());
                QCOMPARE(libro->FieldByName("SUMFIN").moneda().texto(), "0");
            }
            // Cada comprobante lleva lo mismo a los dos libros.
            QCOMPARE(caja("Sdb"), caja("SNdb"));
            QCOMPARE(caja("Sdb"), caja("Scr"));
            distintos += caja("Sdb") != anterior;
            anterior = caja("Sdb");
        }
        QCOMPARE(otros.termine(), QStringList());
        QVERIFY2(!faltan(), qPrintable(QString("%1 %2").arg(distintos).arg(grabados)));
        QCOMPARE(saldos_distintos(s.base.base()), QString());
    }

    void el_auxiliar_y_su_saldo_inicial_son_del_mismo_instante() {
        SesionGui s;
        registre_pantallas_consulta();
        s.cnt.periodo_actual = 2;
        // Cada comprobante toca febrero y marzo a la vez: saldo inicial y renglones van a la par.
        Otros otros(s.base.parametros());
        grabe(s.base.base(), 1, "20170210", asiento(1));
        grabe(s.base.base(), 2, "20170310", asiento(1));
        auto* p = s.abra<Tfauxiliar>("Tfauxiliar", AbreAuxiliar{.cuenta_auxiliar = "110505"});
        QVERIFY(p);
        otros.corra([i = 0](Conexion& c) mutable {
            Transaccion t(c, Transaccion::Modo::Escritura);
            for (const char* fecha : {"20170210", "20170310"}) {
                const int id = 100 + ++i;
                const ComprobanteEnTablas uno{id, QString("%1").arg(id, 6, 10, QChar('0')), fecha};
                inserte_encabezado(t, uno);
                inserte_lineas(t, id, asiento(1));
            }
            t.confirme();
        });
        // Sesenta lecturas, y las que falten para que los otros hayan grabado algo.
        for (int i = 0; i < 60 || (i < 5000 && p->CAuxiliar.RecordCount() <= 5); ++i) {
            p->FormActivate();
            p->CAuxiliar.FetchAll();
            QCOMPARE(componente<EditorNumero>(p, "Saldoi").valor().texto(),
                     QString::number(p->CAuxiliar.RecordCount()));
        }
        QCOMPARE(otros.termine(), QStringList());
        QVERIFY(p->CAuxiliar.RecordCount() > 5);
    }
};

QTEST_MAIN(PruebaBalanceMientrasGraban)
#include "prueba_balance_mientras_graban.moc"
