// Recalcular los saldos mientras otros graban: dice lo que corrigió y no deja nada mal.
// QUORVEX_RECALCULOS dice cuántas vueltas (64 es la corrida entera).
#include "apoyo/servidor_prueba.h"
#include "libro/recalculo.h"

namespace {

QVector<Linea> venta(int valor) {
    return {{1, "130505", valor, 0, "900123456"}, {2, "413505", 0, valor, "", "0001", "0001"}};
}

QString en_texto(const QVector<SaldoCorregido>& lista) {
    QStringList t;
    for (const SaldoCorregido& s : lista)
        t << QStringList{s.tabla,
                         s.cuenta,
                         s.ano,
                         QString::number(s.mes),
                         s.debito.texto(),
                         s.debito_lineas.texto(),
                         s.credito.texto(),
                         s.credito_lineas.texto()}
                 .join('|');
    t.sort();
    return t.join('\n');
}

} // namespace

class PruebaRecalculo : public QObject {
    Q_OBJECT
private slots:
    void dice_lo_que_corrigio_y_no_toca_lo_demas() {
        BaseDePrueba base;
        Conexion& c = base.base();
        grabe(c, 1, "20170210", venta(100), venta(100));
        grabe(c, 2, "20180210", venta(30), venta(30));
        c.ejecute("execute procedure compacte_saldos");
        QCOMPARE(en_texto(recalcule_saldos(c, Libro::Decreto2649, "20000101", "0", "99999999")),
                 QString());
        base.ejecute(
            {"update saldos_cuenta set sald_debito = sald_debito + 9 where cuen_cod = '130505'",
             "delete from saldos_tercero_niif where cuen_cod = '130505' and sald_ano = '2018'"});
        // Desde 2018: el saldo dañado de 2017 se queda como está.
        QCOMPARE(en_texto(recalcule_saldos(c, Libro::Decreto2649, "20180101", "13", "1399999999")),
                 "SALDOS_CUENTA|130505|2018|2|39|30|0|0");
        QCOMPARE(filas_de(c, "select ano, debito from verifique_saldos('2649')"), "2017|109");
        QCOMPARE(en_texto(recalcule_saldos(c, Libro::Decreto2649, "2000/01/01", "0", "99999999")),
                 "SALDOS_CUENTA|130505|2017|2|109|100|0|0");
        QCOMPARE(en_texto(recalcule_saldos(c, Libro::Niif, "20000101", "0", "99999999")),
                 "SALDOS_TERCERO_NIIF|130505|2018|2|0|30|0|0");
        // Sin año de inicio, los saldos iniciales no son de ninguna fecha.
        base.ejecute({"update configuracion set conf_valor = '' where conf_propiedad = 'AÑO DE "
                      "INICIO'",
                      "insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values "
                      "(1, '110505', 70)",
                      "execute procedure compacte_saldos",
                      "update saldos_cuenta set sald_debito = 7 where cuen_cod = '110505'"});
        QCOMPARE(en_texto(recalcule_saldos(c, Libro::Decreto2649, "20000101", "0", "99999999")),
                 "SALDOS_CUENTA|110505|0000|0|7|70|0|0");
        QCOMPARE(saldos_distintos(c), QString());
    }

    void dice_cuanto_va_y_detenido_no_cambia_nada() {
        BaseDePrueba base;
        Conexion& c = base.base();
        for (int mes = 1; mes <= 12; ++mes) {
            const QString numero = QString::number(mes).rightJustified(6, '0');
            grabe(c, {mes, numero, "2017" + numero.right(2) + "10", venta(100), venta(100)});
        }
        c.ejecute("execute procedure compacte_saldos");
        base.ejecute({"update saldos_cuenta set sald_debito = 9 where cuen_cod = '130505' and "
                      "sald_mes = 3"});
        const auto corra = [&](int hasta) {
            QVector<int> avance;
            try {
                recalcule_saldos(c, Libro::Decreto2649, "20000101", "0", "99999999",
                                 [&](int ciento) {
                                     avance << ciento;
                                     return ciento < hasta;
                                 });
            } catch (const EdicionAbortada&) {
                avance << -1;
            }
            return avance;
        };
        // Se puede detener en cualquier trozo, también después de haber borrado.
        const QString mal = filas_de(c, "select * from verifique_saldos('2649')");
        QVERIFY(!mal.isEmpty());
        for (const int donde : {5, 40, 80, 99}) {
            QCOMPARE(corra(donde).last(), -1);
            QCOMPARE(filas_de(c, "select * from verifique_saldos('2649')"), mal);
        }
        const QVector<int> todo = corra(101);
        QVERIFY(std::is_sorted(todo.begin(), todo.end()));
        QCOMPARE(todo.last(), 100);
        QVERIFY2(todo.size() > 6, "un trozo por cuenta, al sumar y al rehacer");
        QCOMPARE(saldos_distintos(c), QString());
    }

    void en_un_servidor_cada_trozo_se_entrega_al_terminar() {
        QVERIFY2(!ServidorDePrueba::programa().isEmpty(), "falta firebird3.0-server");
        ServidorDePrueba servidor;
        Conexion c, vigia;
        c.conectar(servidor.parametros());
        vigia.conectar(servidor.parametros("SYSDBA"));
        grabe(c, 1, "20170210", venta(100), venta(100));
        c.ejecute("execute procedure compacte_saldos");
        vigia.ejecute("update saldos_cuenta set sald_debito = sald_debito + 1");
        // Una secuencia no espera a que se confirme: dice hasta dónde va el servidor.
        for (const char* sql :
             {"create sequence prueba_avance", "grant usage on sequence prueba_avance to public",
              "create trigger prueba_avance for saldos_detalle before insert as declare va bigint; "
              "begin va = gen_id(prueba_avance, 1); end"})
            vigia.ejecute(sql);
        c.desconectar();
        c.conectar(servidor.parametros());
        const auto escritas = [&] {
            return vigia.consulte("select gen_id(prueba_avance, 0) from rdb$database").entero();
        };
        // Si las filas viajaran juntas, en la primera ya estaría todo hecho.
        QVector<qint64> van;
        recalcule_saldos(c, Libro::Decreto2649, "20000101", "0", "99999999", [&](int) {
            van << escritas();
            return true;
        });
        QVERIFY(van.size() > 3);
        QVERIFY2(van.first() < van.last(),
                 qPrintable(QString("%1 y %2").arg(van.first()).arg(van.last())));
    }

    void mientras_otros_graban_y_compactan_no_deja_nada_mal() {
        constexpr int kEscritores = 5, kGrabados = 50;
        // Cada vuelta lee todo lo que los demás llevan grabado: muchas cuestan minutos.
        bool dicho = false;
        const int dichas = qEnvironmentVariableIntValue("QUORVEX_RECALCULOS", &dicho);
        const int vueltas = dicho ? dichas : 16;
        BaseDePrueba base;
        Conexion& c = base.base();
        grabe(c, 1, "20170210", venta(100), venta(100));
        std::atomic<bool> sigue = true;
        std::atomic<int> grabados = 0;
        QStringList fallas;
        std::mutex candado;
        std::vector<std::thread> otros;
        const auto corra = [&](const std::function<void(Conexion&)>& trabajo) {
            otros.emplace_back([&, trabajo] {
                try {
                    Conexion suya;
                    suya.conectar(base.parametros());
                    trabajo(suya);
                } catch (const ErrorDatos& e) {
                    const std::lock_guard cierre(candado);
                    fallas << e.texto();
                }
            });
        };
        for (int e = 0; e < kEscritores; ++e)
            corra([&, e](Conexion& suya) {
                for (int i = 0; sigue; ++i) {
                    const int id = 1000 + e * 100000 + i;
                    grabe(suya, {id, QString("%1").arg(id % 1000000, 6, 10, QChar('0')), "20170210",
                                 venta(1 + i % 90), venta(1 + i % 90)});
                    ++grabados;
                }
            });
        corra([&](Conexion& suya) {
            while (sigue)
                try {
                    suya.ejecute("execute procedure compacte_saldos(50)");
                } catch (const ErrorBase& e) {
                    if (!e.conflicto()) // el recálculo tiene la fila: lo hará después
                        throw;
                }
        });
        int corregidos = 0;
        // Y no menos de las que hacen falta para que los demás alcancen a grabar.
        for (int i = 0; i < vueltas || (grabados <= kGrabados && i < 1000); ++i)
            for (const Libro libro : {Libro::Decreto2649, Libro::Niif})
                try {
                    corregidos +=
                        int(recalcule_saldos(c, libro, "20000101", "0", "99999999").size());
                } catch (const ErrorBase& e) {
                    if (!e.conflicto())
                        fallas << e.texto();
                }
        sigue = false;
        for (std::thread& t : otros)
            t.join();
        QCOMPARE(fallas, QStringList());
        QVERIFY2(grabados > kGrabados, qPrintable(QString::number(grabados)));
        QCOMPARE(corregidos, 0); // nada estaba mal: no se inventan correcciones
        QCOMPARE(saldos_distintos(c), QString());
    }
};

QTEST_GUILESS_MAIN(PruebaRecalculo)
#include "prueba_recalculo.moc"
