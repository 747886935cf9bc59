// Estados de cambios y sus configuraciones, por sus pantallas y contra las líneas del libro.
#include "auxiliar_de_prueba.h"
#include "reports/registro.h"
#include "reports/tfcambiopatr.h"
#include "reports/tfconfflujoef.h"

namespace {

Filtro comienza(const char* codigo) {
    return [codigo](const Renglon& r) { return r.cuenta.startsWith(QLatin1String(codigo)); };
}
Filtro resultado() {
    return [](const Renglon& r) { return r.cuenta >= "4" && r.cuenta < "8"; };
}

} // namespace

class PruebaCambios : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }

    void la_letra_dice_el_estado_y_su_consulta();
    void el_patrimonio_parte_de_un_saldo_y_llega_al_otro();
    void el_flujo_llega_al_efectivo_y_dice_lo_que_no_esta_configurado();
    void el_resultado_anual_acumula_los_meses();
    void la_configuracion_valida_su_cuenta_y_es_de_su_libro();

private:
    static Cifras del_ano(const QVector<Renglon>& lineas, const Filtro& filtro, int ano) {
        Cifras todo;
        for (const auto& [llave, c] : saldos(lineas, filtro, ano, 1, 14).asKeyValueRange())
            todo.sume(c);
        return todo;
    }
    static QString imprima_cambio(const char* letra, int ano, const QStringList& casillas = {},
                                  QString* orden = nullptr) {
        return imprima("Tfcambiopatr", {{"EAno", QString::number(ano)}}, casillas, orden,
                       AbreInforme{letra});
    }
};

void PruebaCambios::la_letra_dice_el_estado_y_su_consulta() {
    SesionDeEstados s(31);
    for (const auto& [letra, titulo, orden, reporte] :
         {std::tuple{"P", "Cambios en el Patrimonio", "select * from cambios_patrimonio('2018')",
                     "Estado de Cambios en el Patrimonio"},
          {"S", "Cambios en la situacion financiera", "select * from cambios_situacion('2018')",
           "Estado de Cambios en la Situación Financiera"},
          {"F", "Flujo de Efectivo", "select * from estado_flujo_efectivo('2018', 'N')",
           "Estado de Flujos de Efectivo"}}) {
        auto* f =
            qobject_cast<Tfcambiopatr*>(pantallas().abrir("Tfcambiopatr", AbreInforme{letra}));
        QCOMPARE(f->LTitulo->text(), QString::fromUtf8(titulo));
        QCOMPARE(f->ckniif->isVisible(), QLatin1String(letra) == QLatin1String("F"));
        f->close();
        QString hecha;
        const QString texto = imprima_cambio(letra, 2018, {}, &hecha);
        QCOMPARE(hecha, QString(orden));
        QVERIFY2(texto.contains(QString(reporte) + '\n'), qPrintable(texto));
        QVERIFY(texto.contains("Saldos a 31 de diciembre de 2018. Cifras expresadas en pesos "
                               "colombianos."));
        QVERIFY(texto.contains("Revisor fiscal"));
    }
    QString hecha;
    QVERIFY(imprima_cambio("F", 2017, {"ckniif"}, &hecha)
                .contains("Estado de Flujos de Efectivo NIIF"));
    QCOMPARE(hecha, "select * from estado_flujo_efectivo('2017', 'S')");
}

void PruebaCambios::el_patrimonio_parte_de_un_saldo_y_llega_al_otro() {
    SesionGui s;
    arme_libro_de_estados(s.base.base(), 32);
    const auto lineas = renglones(s.base.base(), 0, true);
    for (int ano : {2017, 2018, 2019}) {
        const Cifras capital = del_ano(lineas, comienza("31"), ano),
                     patrimonio = del_ano(lineas, comienza("3"), ano),
                     sin_cerrar = del_ano(lineas, resultado(), ano);
        const QString texto = imprima_cambio("P", ano);
        const auto renglon = [&](const QString& concepto) {
            return importes(QString(tras(texto, concepto)).replace('(', '-')).split(' ');
        };
        const auto firmado = [](Moneda m) { return m.formateada(); };
        const QString anterior = QString("Saldo a 31 de diciembre de %1").arg(ano - 1),
                      final = QString("Saldo a 31 de diciembre de %1").arg(ano);
        QCOMPARE(renglon(anterior).first(), firmado(-capital.inicial));
        QCOMPARE(renglon(anterior).last(), firmado(-patrimonio.inicial));
        QCOMPARE(renglon("Aumentos del año").first(), firmado(capital.creditos));
        QCOMPARE(renglon("Disminuciones del año").first(), firmado(-capital.debitos));
        QCOMPARE(renglon("Resultado del ejercicio en curso").last(), firmado(-sin_cerrar.final()));
        QCOMPARE(renglon(final).first(), firmado(-capital.final()));
        QCOMPARE(renglon(final).last(), firmado(-(patrimonio.final() + sin_cerrar.final())));
        QCOMPARE(renglones_con(texto, final).size(), 1);
        QVERIFY(!texto.contains("El saldo final no es"));
    }
}

void PruebaCambios::el_flujo_llega_al_efectivo_y_dice_lo_que_no_esta_configurado() {
    SesionGui s;
    arme_libro_de_estados(s.base.base(), 33);
    const QString por_fuera = "Movimientos que la configuración no incluye";
    for (int libro : {0, 1}) {
        const QStringList niif = libro ? QStringList{"ckniif"} : QStringList();
        const auto lineas = renglones(s.base.base(), libro, true);
        const Cifras efectivo = del_ano(lineas, comienza("11"), 2018);
        QString texto = imprima_cambio("F", 2018, niif);
        QCOMPARE(tras(texto, "Aumento (disminución) del efectivo"),
                 impreso(efectivo.final() - efectivo.inicial));
        QCOMPARE(tras(texto, "Efectivo al comenzar el año"), impreso(efectivo.inicial));
        QCOMPARE(tras(texto, "Efectivo al terminar el año"), impreso(efectivo.final()));
        QVERIFY(!texto.contains(por_fuera));
        // Una cuenta que se quita sale en su renglón aparte y el estado sigue cuadrando.
        s.base.ejecute({QString("delete from flujo_efectivo where flef_cuenta = '22' and "
                                "flef_niif = '%1'")
                            .arg(libro ? "S" : "N")});
        const Cifras proveedores = del_ano(lineas, comienza("22"), 2018);
        texto = imprima_cambio("F", 2018, niif);
        QCOMPARE(tras(texto, por_fuera), impreso(proveedores.creditos - proveedores.debitos));
        QCOMPARE(tras(texto, "Efectivo al terminar el año"), impreso(efectivo.final()));
    }
}

void PruebaCambios::el_resultado_anual_acumula_los_meses() {
    SesionGui s;
    arme_libro_de_estados(s.base.base(), 34);
    for (int libro : {0, 1}) {
        const auto lineas = renglones(s.base.base(), libro, true);
        QStringList meses, acumulados;
        Moneda corre;
        for (int m = 1; m <= 13; ++m) {
            Moneda neto;
            for (const auto& [llave, c] :
                 saldos(lineas, resultado(), 2018, m, m == 13 ? 14 : m).asKeyValueRange())
                neto -= c.debitos - c.creditos;
            corre += neto;
            meses << impreso(neto);
            acumulados << impreso(corre);
        }
        QString hecha;
        const QString texto = imprima("Tfrngresultadoanual", {{"EAno", "2018"}},
                                      libro ? QStringList{"ckniif"} : QStringList(), &hecha);
        QCOMPARE(hecha,
                 QString("select * from resultado_anual('2018','%1')").arg(libro ? "S" : "N"));
        QCOMPARE(texto.contains("Resultado Comparativo Anual NIIF"), libro == 1);
        QVERIFY2(texto.contains("Ajustes") && !texto.contains("Cierre"), qPrintable(texto));
        // La utilidad, en el último cuadro: dos renglones del mes y dos de lo acumulado.
        QStringList cifras;
        static const QRegularExpression cifra(R"(\(?[\d,]+\.\d\d\)?)");
        const QString cuadro = texto.section("Diciembre", -1);
        const qsizetype nombre = cuadro.indexOf("Utilidad o pérdida");
        QVERIFY2(nombre > 0, qPrintable(texto));
        const qsizetype renglon = cuadro.lastIndexOf('\n', cuadro.lastIndexOf('\n', nombre) - 1);
        for (auto i = cifra.globalMatch(cuadro.mid(renglon)); i.hasNext();)
            cifras << i.next().captured();
        meses << acumulados.last(); // "Del año"
        QCOMPARE(cifras.mid(0, 14), meses);
        QCOMPARE(cifras.mid(14, 13), acumulados);
    }
}

void PruebaCambios::la_configuracion_valida_su_cuenta_y_es_de_su_libro() {
    SesionGui s;
    arme_libro_de_estados(s.base.base(), 35);
    auto* f = qobject_cast<Tfcambiopatr*>(pantallas().abrir("Tfcambiopatr", AbreInforme{"F"}));
    f->ckniif->setChecked(true);
    pulse(f, "SpeedButton1");
    Pantalla* c = s.escritorio.abierta("Tfconfflujoef");
    QVERIFY(c);
    const auto total = [&] { return s.dato("select count(*) from flujo_efectivo").toInt(); };
    const int antes = total();
    auto& rejilla = componente<Rejilla>(c, "DBGridEh1");
    QCOMPARE(valores_de(*rejilla.conjunto(), "FLEF_NIIF").count("N"), 0);
    enfoque(c, "DBGridEh1", 1);
    oprima(Qt::Key_Insert);
    rejilla.SelectedIndex(1);
    {
        Interlocutor i; // una cuenta con auxiliares no lleva movimiento
        i.espere_comienzo("La cuenta");
        digite("13", Qt::Key_Return);
    }
    // Entre tanto otro usuario agrega el suyo.
    s.base.ejecute(
        {"insert into flujo_efectivo (flef_id, flef_cuenta) values ((select max(flef_id) "
         "+ 1 from flujo_efectivo), '99')"});
    oprima(Qt::Key_A, Qt::ControlModifier); // la celda quedó abierta con lo rehusado
    digite("130505", Qt::Key_Return, Qt::Key_F2);
    QVERIFY(!s.escritorio.abierta("Tfconfflujoef"));
    QCOMPARE(total(), antes + 2);
    QCOMPARE(s.dato("select flef_niif || flef_seccion from flujo_efectivo where flef_cuenta = "
                    "'130505'"),
             "S1");
    // Preguntar y no escoger deja la que había.
    ListaFalsa<PideCuenta> plan("Tfcuentasniif");
    pulse(f, "SpeedButton1");
    auto& filas =
        *componente<Rejilla>(s.escritorio.abierta("Tfconfflujoef"), "DBGridEh1").conjunto();
    const QString cuenta = filas.FieldByName("FLEF_CUENTA").texto();
    filas.Edit();
    filas.FieldByName("FLEF_CUENTA") = "?caja";
    QCOMPARE(plan.pedida().texto_busqueda, "caja");
    plan.cancele();
    QCOMPARE(filas.FieldByName("FLEF_CUENTA").texto(), cuenta);
    filas.Cancel();
    s.escritorio.abierta("Tfconfflujoef")->close();
    // La del otro estado, de un solo libro, y lo abandonado no se graba.
    pulse(pantallas().abrir("Tfcambiopatr", AbreInforme{"S"}), "SpeedButton1");
    QVERIFY(s.escritorio.abierta("Tfconfcambiosit"));
    const QString situacion = s.dato("select count(*) from cambios_situacion_ctas");
    enfoque(s.escritorio.abierta("Tfconfcambiosit"), "DBGridEh1", 1);
    oprima_seguidas({Qt::Key_Insert, Qt::Key_F2});
    QCOMPARE(s.dato("select count(*) from cambios_situacion_ctas"), situacion);
}

QTEST_MAIN(PruebaCambios)
#include "prueba_cambios.moc"
