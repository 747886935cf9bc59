// Un proceso que muere a la mitad (corte de luz, kill -9): quedan él y su comprobante enteros, o no
// queda nada; y después se puede hacer. El motor va dentro del que muere, que es este mismo
// programa.
#include "apoyo/muerte.h"
#include "assets/activo_de_prueba.h"
#include "ledger/libro_al_azar.h"

namespace {

constexpr const char *kBase = "QUORVEX_CIERRE_DE", *kCual = "QUORVEX_PROCESO";

struct Proceso {
    const char* nombre;
    QStringList ordenes; ///< en una sola transacción
    QString hecho;       ///< cuántos hay: uno o ninguno
    QString deshacer;
};

QString tabla(const char* nombre) {
    return QString("select count(*) from %1").arg(nombre);
}

/// Los que solo dejan su comprobante se conocen por la referencia, y salen con él.
QString por_referencia(const char* que) {
    return QString(que).arg("from comprobante_encabezado where enco_refer = 'MUERTE'");
}

QVector<Proceso> procesos() {
    const QString borre = por_referencia("execute block as declare c integer; begin select"
                                         " enco_consec %1 into :c; execute procedure"
                                         " borre_comprobante(c, 'ADMIN'); end");
    return {
        {"cierre anual",
         {"insert into cierre_anual (cian_id, cian_concepto, terc_nit, tico_cod, prco_pref,"
          " cian_fecha, cian_niif) values (0, 'Cierre', '860002964', 'CG', '0001', '20181331',"
          " 'A')"},
         tabla("cierre_anual"),
         "delete from cierre_anual"},
        {"cierre de terceros",
         {"insert into cierre_terceros (cite_id, cite_concepto, tico_cod, prco_pref, terc_nit,"
          " cite_fecha, cite_niif, cuen_cod) values (0, 'Cierre', 'CG', '0001', '860002964',"
          " '20180630', 'A', '22')"},
         tabla("cierre_terceros"),
         "delete from cierre_terceros"},
        {"ajuste por inflación",
         {"insert into ajustes_inflacion (ajus_id, tico_cod, prco_pref, ajus_conc, ajus_fecha,"
          " ajus_paag) values (0, 'CG', '0001', 'PAAG', '20180331', 1.25)"},
         tabla("ajustes_inflacion"),
         "delete from ajustes_inflacion"},
        {"depreciación",
         {orden_depreciacion("20180131", "A"),
          "insert into depreciacion_unidades values (0, 1, 'A01', 7)"},
         tabla("depreciacion"),
         "delete from depreciacion"},
        {"baja",
         {orden_depreciacion("20180131", "")},
         tabla("depreciacion"),
         "delete from depreciacion"},
        {"deterioro",
         {orden_valor("A02", "20180131", "-3.33")},
         tabla("activos_fijos_valor"),
         "delete from activos_fijos_valor"},
        {"registro automático",
         {"execute block as declare r varchar(10); begin execute procedure registre_regiauto('R1',"
          " '2018', 5, 31, '', 0, 'Mayo', 'MUERTE') returning_values r; end"},
         por_referencia("select count(*) %1"),
         borre},
        {"diferencia en cambio",
         {"select rdb$set_context('USER_TRANSACTION', 'REFER_PROCESO', 'MUERTE') from rdb$database",
          "execute block as declare n varchar(10); begin for select numero from"
          " causa_diferencia_cambio('2018/12/31', 'CG', '0001', '', 3100, '1305') into :n do begin"
          " end end"},
         por_referencia("select count(*) %1"),
         borre}};
}

const Proceso& proceso(const QString& nombre) {
    static const QVector<Proceso> todos = procesos();
    return *std::find_if(todos.begin(), todos.end(),
                         [&](const Proceso& p) { return nombre == QString::fromUtf8(p.nombre); });
}

void haga(Conexion& c, const Proceso& p) {
    Transaccion t(c, Transaccion::Modo::Escritura);
    for (const QString& orden : p.ordenes) {
        if (orden.startsWith("select"))
            Cursor(c.prepare(orden, t), t, {}).siguiente();
        else
            c.prepare(orden, t)->ejecute(t, {});
    }
    t.confirme();
}

int haga_y_termine(const QString& base) {
    ParametrosConexion p = desechable(base);
    p.usuario = "ADMIN";
    Conexion c;
    c.conectar(p);
    diga_listo();
    haga(c, proceso(qEnvironmentVariable(kCual)));
    return 0;
}

/// Todo lo que un proceso escribe.
QString foto(Conexion& base) {
    QString todo;
    for (const char* s : {"", "_niif"})
        todo += filas_de(base, QString("select cuen_cod, terc_nit, proy_cod, cent_cod, sald_ano,"
                                       " sald_mes, sum(sald_debito), sum(sald_credito)"
                                       " from vista_saldos_detalle%1 group by 1, 2, 3, 4, 5, 6"
                                       " having sum(sald_debito) <> 0 or sum(sald_credito) <> 0"
                                       " order by 1, 2, 3, 4, 5, 6")
                                   .arg(s)) +
                '\n' +
                filas_de(base, QString("select enco_consec, count(*) from comprobante_detalle%1"
                                       " group by 1 order by 1")
                                   .arg(s)) +
                '\n';
    for (const char* t : {"comprobante_encabezado", "depreciacion_detalle", "depreciacion_unidades",
                          "registro_ejecucion", "asiento_linea"})
        todo += filas_de(base, tabla(t)) + '\n';
    return todo;
}

void siembre_activos(Conexion& c) {
    agregue_al_plan(c, {"3610", "361005", "42", "4210", "421020", "53", "5305", "530525", "5310",
                        "531015", "159220"});
    for (const char* plan : {"cuentas", "cuentas_niif"})
        c.ejecute(QString("update %1 set cuen_centro = 'N', cuen_tercero = 'N' where cuen_cod in"
                          " ('152405', '159215', '530525')")
                      .arg(plan));
    for (int i = 1; i <= 40; ++i) {
        const QString codigo = QString("A%1").arg(i, 2, 10, QChar('0'));
        registre(c, {codigo, QString::number(1000 * i), 60, 48, i == 1 ? "S" : "N", "0", "null",
                     "2018-01-10", i % 4 ? "S" : "N"});
        c.ejecute("insert into activos_centros values (?, 1, '0001', '0001', 100)", {codigo});
    }
}

void siembre_recetas_y_cartera(Conexion& c) {
    for (const char* orden :
         {"update cuentas set cuen_ctajuste = '143505', cuen_ctacorrecion = '421020', cuen_ajusdb ="
          " 'S' where cuen_cod = '143505'",
          "insert into conceptos (conc_cod, conc_nom, conc_ctacierre) values ('PROV', 'Provisión',"
          " '310505')",
          "insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, cocu_cuentabase,"
          " cocu_base, cocu_porc, cocu_debito) values ('PROV', 1, '111005', '1105', 'FIN', 5, 'S')",
          "insert into registro_automatico values ('R1', 'Receta', 'CG', '0001')",
          "insert into registro_conceptos values ('R1', 1, 'PROV')"})
        c.ejecute(orden);
    for (int i = 1; i <= 30; ++i)
        c.ejecute(QString("insert into comprobante_detalle (enco_consec, code_item, cuen_cod,"
                          " terc_nit, code_debito, code_credito, code_base, cnde_docnumero,"
                          " code_tiponue) values (%1, 90, '130505', '900123456', 3000, 0, 1, 'F%1',"
                          " 31)")
                      .arg(i));
}

} // namespace

class PruebaCierreMuerto : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        arme_libro_al_azar(molde_.base());
        molde_.base().consulte("select gen_id(sec_comprobante, 2000) from rdb$database");
        molde_.ejecute({"update prefijos_conta set pref_numero = '000500'"});
        siembre_activos(molde_.base());
        siembre_recetas_y_cartera(molde_.base());
        molde_.base().desconectar();
    }

    void un_proceso_que_muere_queda_entero_o_no_queda_data() {
        QTest::addColumn<QString>("nombre");
        for (const Proceso& p : procesos())
            QTest::newRow(p.nombre) << QString::fromUtf8(p.nombre);
    }

    void un_proceso_que_muere_queda_entero_o_no_queda() {
        QFETCH(QString, nombre);
        const Proceso& p = proceso(nombre);
        BaseDePrueba b;
        const QString lugar = b.parametros().base;
        QVERIFY(QFile::remove(lugar) && QFile::copy(molde_.parametros().base, lugar));
        const QString antes = foto(b.base());
        qint64 entero = 0;
        int hechos = 0, nada = 0;
        constexpr int kCortes = 12;
        for (int corte = 0; corte <= kCortes; ++corte) {
            b.base().desconectar();
            const qint64 tarda = corra_y_mate({{kBase, lugar}, {kCual, nombre}},
                                              corte == 0 ? -1 : entero * corte / kCortes);
            QVERIFY2(tarda >= 0, "el programa no arrancó");
            if (corte == 0)
                entero = tarda;
            b.base().conectar(b.parametros());
            const bool esta = b.base().consulte(p.hecho).entero() == 1;
            esta ? ++hechos : ++nada;
            QVERIFY(esta || corte > 0);
            QCOMPARE(saldos_distintos(b.base()), QString());
            if (!esta) {
                QCOMPARE(foto(b.base()), antes);
                haga(b.base(), p);
            }
            // Hecho antes o después del corte, quedó lo mismo.
            const QString hecho = foto(b.base());
            if (corte == 0)
                hecho_ = hecho;
            QCOMPARE(lo_que_importa(hecho), lo_que_importa(hecho_));
            b.base().ejecute(p.deshacer);
            QCOMPARE(foto(b.base()), antes);
        }
        QVERIFY2(hechos > 0 && nada > 0,
                 qPrintable(QString("%1 enteros y %2 sin hacer").arg(hechos).arg(nada)));
    }

private:
    /// La foto sin el id del comprobante nuevo, que cambia en cada corrida.
    static QString lo_que_importa(QString foto) {
        return foto.replace(QRegularExpression("(^|\n)[2-9]\\d{3}\\|(\\d+)(?=\n|$)"), "\\1n|\\2");
    }
    BaseDePrueba molde_; ///< cada proceso, en una copia
    QString hecho_;
};

int main(int argc, char** argv) {
    QCoreApplication aplicacion(argc, argv);
    if (const QString base = qEnvironmentVariable(kBase); !base.isEmpty())
        return haga_y_termine(base);
    PruebaCierreMuerto prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_cierre_muerto.moc"
