// Cinco graban en los dos libros mientras otros leen el balance, verifican, compactan y recalculan:
// nadie ve un libro descuadrado y nada queda mal. QUORVEX_COMPROBANTES dice cuántos graba cada uno
// (cinco mil lecturas del balance piden unos 600).
#include "apoyo/servidor_prueba.h"
#include "herramientas/verificacion.h"

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
    void mientras(const QString& quien, std::function<void(Conexion&)> trabajo) {
        hilos_.emplace_back([this, trabajo, quien] {
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
    /// Repite una consulta en fotos; `mire` ve su primera fila.
    void lea_en_fotos(const QString& quien, const QString& consulta, std::atomic<int>& cuenta,
                      std::function<void(Cursor&)> mire) {
        mientras(quien, [consulta, &cuenta, mire](Conexion& c) {
            Transaccion foto(c, Transaccion::Modo::Instantanea);
            Cursor fila(c.prepare(consulta, foto), foto, {});
            if (fila.siguiente())
                mire(fila);
            ++cuenta;
        });
    }
    void grabe_y_borre(int quien, int cada_uno, QRandomGenerator azar);
    void lea(const QString& libro);

    std::unique_ptr<ServidorDePrueba> servidor_;
    std::vector<std::thread> hilos_;
    std::atomic<int> grabando_ = kGraban, balances_ = 0, auxiliares_ = 0;
    Fallas fallas_;
};

void PruebaSaldosALaVez::grabe_y_borre(int quien, int cada_uno, QRandomGenerator azar) {
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
}

/// El balance cuadra, y partida más movimiento del auxiliar que se imprime es el saldo de cada
/// cuenta en el balance.
void PruebaSaldosALaVez::lea(const QString& libro) {
    const QString balance = "consulta_balance_mes%1('2017', 13, 'S', %2)";
    lea_en_fotos("balance",
                 "select sum(debitos) - sum(creditos) + sum(final) from " + balance.arg(libro, "1"),
                 balances_, [this](Cursor& fila) {
                     if (!fila.valor(0).moneda().es_cero())
                         fallas_.anote("balance descuadrado en " + fila.valor(0).texto());
                 });
    const QString auxiliar =
        "select first 1 a.cuenta from (select cuenta, max(inicial) + sum(debito) - sum(credito)"
        " as final from auxiliar_desde_hasta%1('1', '3', '20170600', '20171399', '', 'ZZ', '',"
        " 'ZZ', 'S') group by cuenta) a join " +
        balance.arg("%1", "8") + " b on b.codigo = a.cuenta where b.final <> a.final";
    lea_en_fotos("auxiliar", auxiliar.arg(libro), auxiliares_, [this](Cursor& fila) {
        fallas_.anote("auxiliar y balance distintos en " + fila.valor(0).texto());
    });
}

void PruebaSaldosALaVez::nadie_ve_un_libro_descuadrado_y_nada_queda_mal() {
    const int cada_uno = qEnvironmentVariable("QUORVEX_COMPROBANTES", "40").toInt();
    qInfo("%d comprobantes cada uno", cada_uno);
    QRandomGenerator semillas = azar_de_prueba(2018);
    servidor_ = std::make_unique<ServidorDePrueba>();
    for (int quien = 0; quien < kGraban; ++quien)
        hilos_.emplace_back(&PruebaSaldosALaVez::grabe_y_borre, this, quien, cada_uno,
                            QRandomGenerator(semillas.generate()));
    std::atomic<int> verificaciones = 0, recalculos = 0;
    lea(QString());
    lea("_niif");
    mientras("verificación", [&](Conexion& c) {
        for (const QString& hallazgo : verifique_compania(c))
            fallas_.anote("verificación: " + hallazgo);
        ++verificaciones;
    });
    mientras("compactación",
             [](Conexion& c) { c.ejecute("execute procedure compacte_saldos(50)"); });
    mientras("recálculo", [&](Conexion& c) {
        for (const QString& corregido : recalcule_saldos(c))
            fallas_.anote("recálculo: " + corregido);
        ++recalculos;
    });
    for (std::thread& h : hilos_)
        h.join();
    qInfo("%d balances, %d auxiliares, %d verificaciones, %d recálculos", balances_.load(),
          auxiliares_.load(), verificaciones.load(), recalculos.load());
    QCOMPARE(fallas_.texto(), QString());
    QVERIFY(balances_ > 20 && auxiliares_ > 0 && verificaciones > 0 && recalculos > 0);
    Conexion c;
    c.conectar(servidor_->parametros());
    QCOMPARE(verifique_compania(c), QStringList());
    QCOMPARE(c.consulte("select count(*) from comprobante_encabezado").entero(),
             kGraban * (cada_uno - cada_uno / 5));
}

QTEST_GUILESS_MAIN(PruebaSaldosALaVez)
#include "prueba_saldos_a_la_vez.moc"
