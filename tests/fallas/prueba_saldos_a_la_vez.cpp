// Cinco graban en los dos libros mientras otros leen el balance, verifican, compactan y recalculan:
// nadie ve un libro descuadrado y nada queda mal. QUORVEX_COMPROBANTES dice cuántos graba cada uno
// (cinco mil lecturas del balance piden unos 600).
#include "apoyo/azar_de_prueba.h"
#include "apoyo/comprobantes.h"
#include "apoyo/servidor_prueba.h"
#include "herramientas/verificacion.h"

#include <QMutex>
#include <QtTest>
#include <atomic>
#include <functional>
#include <thread>

namespace {

constexpr int kGraban = 5;

/// Una falla de cualquiera de los hilos, para el final.
class Fallas {
public:
    void anote(const QString& falla) {
        const QMutexLocker candado(&candado_);
        if (todas_.size() < 5)
            todas_ << falla;
    }
    QString texto() {
        const QMutexLocker candado(&candado_);
        return todas_.join('\n');
    }

private:
    QMutex candado_;
    QStringList todas_;
};

ComprobanteEnTablas cuadrado(QRandomGenerator& azar, int id) {
    static const QStringList cuentas{"110505", "111005", "143505", "240805", "310505", "360505"};
    const auto cuenta = [&] { return cuentas[azar.bounded(int(cuentas.size()))]; };
    ComprobanteEnTablas c{id, QString::number(id),
                          QString("2017%1%2")
                              .arg(1 + azar.bounded(12), 2, 10, QChar('0'))
                              .arg(1 + azar.bounded(28), 2, 10, QChar('0'))};
    for (auto* lineas : {&c.lineas, &c.lineas_niif}) {
        const Moneda valor = Moneda::de_unidades(100 * qint64(1 + azar.bounded(9000000)));
        *lineas = {{1, cuenta(), valor, 0}, {2, cuenta(), 0, valor}, {3, cuenta(), valor, valor}};
    }
    return c;
}

} // namespace

class PruebaSaldosALaVez : public QObject {
    Q_OBJECT
private slots:
    void nadie_ve_un_libro_descuadrado_y_nada_queda_mal();

private:
    /// Un hilo con su conexión, que repite `trabajo` mientras los demás graban.
    std::thread mientras(std::function<void(Conexion&)> trabajo, const QString& quien) {
        return std::thread([this, trabajo, quien] {
            try {
                Conexion c;
                c.conectar(servidor_->parametros());
                while (grabando_ > 0)
                    trabajo(c);
            } catch (const ErrorDatos& e) {
                fallas_.anote(quien + ": " + e.texto());
            }
        });
    }

    std::unique_ptr<ServidorDePrueba> servidor_;
    std::atomic<int> grabando_ = kGraban;
    Fallas fallas_;
};

void PruebaSaldosALaVez::nadie_ve_un_libro_descuadrado_y_nada_queda_mal() {
    const int cada_uno = qEnvironmentVariable("QUORVEX_COMPROBANTES", "40").toInt();
    qInfo("%d comprobantes cada uno", cada_uno);
    QRandomGenerator semillas = azar_de_prueba(2018);
    servidor_ = std::make_unique<ServidorDePrueba>();
    std::vector<std::thread> hilos;
    for (int quien = 0; quien < kGraban; ++quien)
        hilos.emplace_back([&, quien, azar = QRandomGenerator(semillas.generate())]() mutable {
            try {
                Conexion c;
                c.conectar(servidor_->parametros());
                for (int i = 1; i <= cada_uno; ++i) {
                    const int id = 1 + quien * cada_uno + i;
                    grabe(c, cuadrado(azar, id));
                    if (i % 5 == 0)
                        c.ejecute("execute procedure borre_comprobante(?, 'ADMIN')", {Valor(id)});
                    if (i % 7 == 0)
                        c.ejecute("update comprobante_encabezado set enco_fecha = '20171315'"
                                  " where enco_consec = ?",
                                  {Valor(id - 1)});
                }
            } catch (const ErrorDatos& e) {
                fallas_.anote("graba: " + e.texto());
            }
            --grabando_;
        });
    std::atomic<int> lecturas = 0, verificaciones = 0, recalculos = 0;
    const char* const suma = "select sum(debitos) - sum(creditos) + sum(final) from %1('2017', 13,"
                             " 'S', 1)";
    for (const QString& balance : {QString(suma).arg("consulta_balance_mes"),
                                   QString(suma).arg("consulta_balance_mes_niif")})
        hilos.push_back(mientras(
            [&, balance](Conexion& c) {
                Transaccion foto(c, Transaccion::Modo::Instantanea);
                Cursor fila(c.prepare(balance, foto), foto, {});
                if (fila.siguiente() && !fila.valor(0).moneda().es_cero())
                    fallas_.anote("balance descuadrado en " + fila.valor(0).texto());
                ++lecturas;
            },
            "balance"));
    hilos.push_back(mientras(
        [&](Conexion& c) {
            for (const QString& hallazgo : verifique_compania(c))
                fallas_.anote("verificación: " + hallazgo);
            ++verificaciones;
        },
        "verificación"));
    hilos.push_back(mientras(
        [](Conexion& c) { c.ejecute("execute procedure compacte_saldos(50)"); }, "compactación"));
    hilos.push_back(mientras(
        [&](Conexion& c) {
            for (const QString& corregido : recalcule_saldos(c))
                fallas_.anote("recálculo: " + corregido);
            ++recalculos;
        },
        "recálculo"));
    for (std::thread& h : hilos)
        h.join();
    qInfo("%d balances, %d verificaciones, %d recálculos", lecturas.load(), verificaciones.load(),
          recalculos.load());
    QCOMPARE(fallas_.texto(), QString());
    QVERIFY(lecturas > 20 && verificaciones > 0 && recalculos > 0);
    Conexion c;
    c.conectar(servidor_->parametros());
    QCOMPARE(verifique_compania(c), QStringList());
    QCOMPARE(c.consulte("select count(*) from comprobante_encabezado").entero(),
             kGraban * (cada_uno - cada_uno / 5));
}

QTEST_GUILESS_MAIN(PruebaSaldosALaVez)
#include "prueba_saldos_a_la_vez.moc"
