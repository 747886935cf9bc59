// La red se corta en cada lugar de un guardado, un cambio de página, una edición y un borrado, con
// las pantallas de verdad. Nada tumba el programa, lo digitado sigue a la vista, en la base no
// queda medio comprobante y la tecla siguiente termina el trabajo cuando vuelve el servidor.
//
// Aquí se corta en unos cuantos lugares; con QUORVEX_CORTES=1, en todos.
#include "apoyo/intermediario.h"
#include "apoyo/servidor_prueba.h"
#include "fallas/comprobaciones.h"
#include "fallas/contador.h"
#include "sesion/peticiones.h"
#include "vouchers/tfedtmovimien.h"

#include <QTabWidget>

namespace {

/// Cuántos lugares se cortan en cada sentido.
constexpr int kLugares = 12;

} // namespace

class PruebaCortesPantallas : public QObject {
    Q_OBJECT
    std::unique_ptr<ServidorDePrueba> servidor_;
    std::unique_ptr<Intermediario> red_;
    std::unique_ptr<Contador> c_;
    Conexion directa_;

    /// Corta `accion` en distintos lugares, de los primeros octetos hasta que alcanza a terminar.
    void barra(const std::function<void()>& prepare, const std::function<void()>& accion,
               const std::function<void()>& termine) {
        for (const auto sentido : {Intermediario::HaciaServidor, Intermediario::HaciaCliente}) {
            // Una vez sin cortes, para saber cuánto viaja.
            red_->atienda();
            prepare();
            const qint64 antes = red_->pasados(sentido);
            accion();
            const qint64 largo = red_->pasados(sentido) - antes;
            termine();
            const qint64 cada =
                qEnvironmentVariableIsSet("QUORVEX_CORTES") ? 1 : qMax<qint64>(1, largo / kLugares);
            for (qint64 n = 0; n < largo; n += cada) {
                prepare();
                c_->mensajes.clear();
                red_->corte_tras(sentido, n);
                accion();
                red_->atienda();
                termine();
                if (QTest::currentTestFailed()) {
                    qWarning("cortado tras %lld de %lld octetos %s; mensajes: %s", n, largo,
                             sentido == Intermediario::HaciaServidor ? "hacia el servidor"
                                                                     : "hacia el cliente",
                             qPrintable(c_->mensajes.join(" / ")));
                    return;
                }
            }
        }
    }
    qint64 grabados() {
        return directa_.consulte("select count(*) from comprobante_encabezado").entero();
    }
    void solo_se_dijo_la_verdad() {
        for (const QString& m : c_->mensajes)
            QVERIFY2(m.contains("Se perdió la conexión con el servidor") ||
                         m.contains("ya había quedado grabado") || m.contains("quedó a medias"),
                     qPrintable(m));
    }
    /// El comprobante de la pantalla está en la base con lo que se digitó; la pantalla siguió.
    void compruebe_enteros(qint64 cuantos) {
        QCOMPARE(a_medias(directa_), QString());
        QCOMPARE(saldos_distintos(directa_), QString());
        QCOMPARE(grabados(), cuantos);
    }
    /// F2 hasta que quede; una vez basta, y otra si la primera contó que se perdió la respuesta.
    void grabe_con_servidor() {
        for (int i = 0; i < 2 && !c_->p->CDetalle.IsEmpty(); ++i)
            c_->grabe();
        QVERIFY2(c_->p->CDetalle.IsEmpty(), qPrintable(c_->mensajes.join(" / ")));
    }

private slots:
    void initTestCase() {
        servidor_ = std::make_unique<ServidorDePrueba>();
        red_ = std::make_unique<Intermediario>(servidor_->puerto());
        directa_.conectar(servidor_->parametros("SYSDBA"));
        c_ = std::make_unique<Contador>(red_->por_aqui(servidor_->ubicacion()), "ADMIN",
                                        ServidorDePrueba::kClave);
    }
    void cleanupTestCase() {
        red_->atienda();
        c_.reset();
        directa_.desconectar();
        red_.reset();
        servidor_.reset();
    }

    void un_guardado_cortado_en_cualquier_lugar() {
        qint64 van = grabados();
        int valor = 0;
        barra([&] { c_->digite_comprobante("110505", "111005", QString::number(100 + ++valor)); },
              [&] { c_->grabe(); },
              [&] {
                  QVERIFY(c_->p->CDetalle.IsEmpty() || c_->p->CDetalle.RecordCount() == 2);
                  solo_se_dijo_la_verdad();
                  grabe_con_servidor();
                  compruebe_enteros(++van);
                  QCOMPARE(directa_
                               .consulte("select count(*) from comprobante_detalle where "
                                         "code_debito = ?",
                                         {100 + valor})
                               .entero(),
                           qint64(1));
              });
    }

    void un_cambio_de_pagina_cortado_en_cualquier_lugar() {
        qint64 van = grabados();
        int valor = 0;
        const auto pagina = [&](int i) {
            c_->p->activateWindow();
            c_->p->PageControl1->setCurrentIndex(i);
        };
        barra(
            [&] {
                pagina(0);
                c_->digite_comprobante("110505", "111005", QString::number(1000 + ++valor));
            },
            [&] { pagina(1); },
            [&] {
                QCOMPARE(c_->p->CDetalle.RecordCount(), 2);
                QVERIFY(!c_->p->CMovimiento.FieldByName("ENCO_NUMERO").vacio());
                solo_se_dijo_la_verdad();
                pagina(0);
                QCOMPARE(c_->p->CDetalle.RecordCount(), 2);
                grabe_con_servidor();
                compruebe_enteros(++van);
            });
    }

    void una_edicion_cortada_en_cualquier_lugar() {
        c_->digite_comprobante("110505", "111005", "77");
        QVERIFY(c_->grabe());
        const QString id =
            directa_.consulte("select max(enco_consec) from comprobante_encabezado").texto();
        qint64 van = grabados();
        int valor = 2000;
        QPointer<Tfedtmovimien> e;
        const auto abra = [&] {
            abra_comprobante(id);
            for (Tfedtmovimien* una : c_->ventana.findChildren<Tfedtmovimien*>())
                e = una;
            QVERIFY(e);
        };
        barra(
            [&] {
                abra();
                ++valor;
                for (const char* campo : {"CODE_DEBITO", "CODE_CREDITO"}) {
                    for (ConjuntoDatos* d : {&e->CDetalle, &e->Cdetniif}) {
                        d->First();
                        if (*campo == 'C' && campo[5] == 'C')
                            d->Last();
                        d->Edit();
                        d->FieldByName(campo) = Moneda(valor);
                        d->Post();
                    }
                }
            },
            [&] { QTest::keyClick(e, Qt::Key_F2); },
            [&] {
                solo_se_dijo_la_verdad();
                if (e) {
                    QCOMPARE(e->CDetalle.RecordCount(), 2);
                    QTest::keyClick(e, Qt::Key_F2);
                }
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY2(!e, qPrintable(c_->mensajes.join(" / ")));
                compruebe_enteros(van);
                QCOMPARE(filas_de(directa_, "select code_debito from comprobante_detalle where "
                                            "enco_consec = " +
                                                id + " and code_debito > 0"),
                         QString::number(valor));
            });
    }
};

QTEST_MAIN(PruebaCortesPantallas)
#include "prueba_cortes_pantallas.moc"
