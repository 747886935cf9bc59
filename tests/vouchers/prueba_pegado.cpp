// Pegar un comprobante largo: entra como si se digitara, y lo repetido se valida una vez.
#include "apoyo_gui/anuncio.h"
#include "vouchers/digitador.h"

class PruebaPegado : public QObject {
    Q_OBJECT
private slots:
    void cien_lineas_pasan_por_las_reglas_sin_preguntar_lo_mismo_cien_veces() {
        constexpr int kLineas = 100;
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.comience("CG", "05", "Nómina");
        QStringList lineas;
        for (int i = 0; i < kLineas; ++i)
            lineas << QStringList{i % 2 ? "220505" : "110505",
                                  i % 2 ? "800456789" : "",
                                  "",
                                  "",
                                  QString("Línea %1").arg(i),
                                  "",
                                  "",
                                  "",
                                  "",
                                  i % 2 ? "" : "12.5",
                                  i % 2 ? "12.5" : ""}
                          .join('\t');
        QApplication::clipboard()->setText(lineas.join('\n'));
        d.entre_a_la_rejilla();
        Interlocutor i;
        espere_anuncio(i);
        const quint64 antes = s.dm.Quorvex.sentencias_ejecutadas();
        oprima(Qt::Key_V, Qt::ControlModifier);
        const quint64 sentencias = s.dm.Quorvex.sentencias_ejecutadas() - antes;
        QCOMPARE(p->CDetalle.RecordCount(), kLineas);
        QVERIFY2(sentencias < kLineas, qPrintable(QString::number(sentencias)));
        QCOMPARE(p->CDetalle.agregado("Sumadebito").moneda().texto(), "625");
        QCOMPARE(p->lineas_2649->Sumadeb->valor().texto(), "625");
        QCOMPARE(p->lineas_2649->SumCred->valor().texto(), "625");
        for (int i = 0; i < kLineas; ++i) {
            const auto dice = [&](const char* campo) {
                return p->CDetalle.valor_en(i, p->CDetalle.FieldByName(campo)).texto();
            };
            QCOMPARE(dice("CODE_ITEM"), QString::number(i + 1));
            QCOMPARE(dice("TERC_NIT"), QString(i % 2 ? "800456789" : ""));
            QCOMPARE(dice("CODE_CONCEPTO"), QString("Línea %1").arg(i));
            QCOMPARE(dice(i % 2 ? "CODE_CREDITO" : "CODE_DEBITO"), "12.5");
        }
        oprima(Qt::Key_F2);
        // La celda pegada en blanco se guarda en cero.
        QCOMPARE(s.dato("select count(*) || ':' || sum(code_debito) || ':' || sum(code_credito) "
                        "from comprobante_detalle where code_debito = 0 or code_credito = 0"),
                 "100:625.00:625.00");
    }
};

QTEST_MAIN(PruebaPegado)
#include "prueba_pegado.moc"
