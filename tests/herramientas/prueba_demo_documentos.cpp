// Los documentos de la compañía de demostración: hay de todos, se contabilizan limpios los que no
// fallan a propósito y las facturas de ejemplo entran con ellos.
#include "herramientas/demo_de_prueba.h"
#include "herramientas/factura_electronica.h"
#include "herramientas/instalador.h"
#include "herramientas/verificacion.h"

class PruebaDemoDocumentos : public QObject {
    Q_OBJECT
private slots:
    void hay_tres_meses_de_todos_los_tipos_de_la_lista();
    void los_que_no_fallan_a_proposito_se_contabilizan_limpios();

private:
    /// Propuesta de un documento con la primera de sus interfaces; 0 si falla o no tiene.
    int proponga(const QVector<Valor>& documento);

    Demo demo_{
        {.renglones = 4000},
        {.codigo = "001", .nombre = "Comercializadora El Martillo S.A.S.", .nit = "830512777-2"}};
    Conexion& c_ = demo_.compania;
};

void PruebaDemoDocumentos::hay_tres_meses_de_todos_los_tipos_de_la_lista() {
    QCOMPARE(filas_de(c_, "select tido_cod from documento_contable d where doct_lista = 'S' and "
                          "not exists (select 1 from documento x where x.tido_cod = d.tido_cod)"),
             QString());
    QCOMPARE(filas_de(c_, "select extract(month from docu_fecha) from documento group by 1"),
             "1\n2\n3");
    QVERIFY(demo_.resultado.documentos > 550 && demo_.resultado.documentos < 650);
}

int PruebaDemoDocumentos::proponga(const QVector<Valor>& d) {
    const bool nomina = d[3].texto() == "NOMINA";
    const Valor interfaz = c_.consulte(
        "select first 1 interfaz from interfaz_contable where familia = ? and tido_cod = ? and "
        "(familia = 'NOMINA' or pref_pre = ?) and (familia <> 'BANCOS' or exists (select 1 from "
        "interfaz_bancos where inba_id = interfaz and cuba_cod = ?)) order by interfaz",
        {d[3], d[0], d[2], d[6]});
    if (interfaz.nulo())
        return 0;
    const auto corra = [&](const QString& procedimiento, const QVector<Valor>& argumentos) {
        return c_.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
            const QString marcas = QStringList(argumentos.size(), "?").join(QLatin1Char(','));
            Cursor f(c_.prepare("select * from " + procedimiento + '(' + marcas + ')', t), t,
                     argumentos);
            return f.siguiente() && f.valor(0).entero() == 0 ? int(f.valor(nomina ? 1 : 2).entero())
                                                             : 0;
        });
    };
    const int propuesta =
        corra(d[4].texto(), nomina ? QVector<Valor>{d[1]} : QVector<Valor>{d[1], interfaz});
    if (propuesta == 0 || d[5].texto().isEmpty())
        return propuesta;
    return corra(d[5].texto(), {d[1], interfaz, propuesta});
}

void PruebaDemoDocumentos::los_que_no_fallan_a_proposito_se_contabilizan_limpios() {
    const QString ejemplos = carpeta_guiones() + "/posting/ejemplos/";
    OpcionesFactura opciones;
    opciones.prefijo = "0001";
    opciones.proyecto = "0004";
    opciones.centro = "0001";
    QCOMPARE(cargue_facturas_electronicas(
                 c_, {ejemplos + "factura_venta.xml", ejemplos + "factura_compra.xml"}, opciones)
                 .size(),
             2);
    QVector<QVector<Valor>> documentos;
    const auto f = c_.abra(
        "select d.tido_cod, docu_id, pref_pre, doct_familia, doct_proc, doct_gemelo, cuba_cod from "
        "documento d join documento_contable c on c.tido_cod = d.tido_cod order by 1, 2");
    while (f->siguiente()) {
        QVector<Valor> fila;
        for (int i = 0; i < 7; ++i)
            fila << f->valor(i);
        documentos << fila;
    }
    int malos = 0;
    for (const QVector<Valor>& d : documentos) {
        const int propuesta = proponga(d);
        if (propuesta == 0)
            ++malos;
        else
            c_.ejecute("execute procedure contabiliza_pendiente(?)", {propuesta});
    }
    QCOMPARE(documentos.size(), demo_.resultado.documentos + 2);
    QCOMPARE(malos, demo_.resultado.defectuosos);
    QCOMPARE(filas_de(c_, "select sum(code_debito) - sum(code_credito) from comprobante_detalle"),
             "0");
    QCOMPARE(verifique_compania(c_), QStringList());
    // Con todo contabilizado, ni la caja ni los bancos quedan en rojo al fin de ningún mes.
    for (const char* libro : {"", "_niif"})
        QCOMPARE(filas_de(c_, QString("select * from (select cuen_cod, sald_ano, sald_mes, "
                                      "sum(sum(sald_debito - sald_credito)) over (partition by "
                                      "cuen_cod order by sald_ano, sald_mes) saldo from "
                                      "vista_saldos_cuenta%1 where cuen_cod starting '11' group "
                                      "by 1, 2, 3) where saldo < 0")
                                  .arg(QLatin1String(libro))),
                 QString());
    // Y los hay que piden una persona.
    QVERIFY(c_.consulte("select count(*) from documento where pref_pre = '0002'").entero() > 10);
}

QTEST_GUILESS_MAIN(PruebaDemoDocumentos)
#include "prueba_demo_documentos.moc"
