#include "apoyo/tabla_esperada.h"
#include "apoyo_gui/sesion_gui.h"
#include "sesion/modulos_suite.h"

namespace {

/// Renglón de documentos.tsv.
struct Documento {
    int tipo;
    QString llave, tabla, numero, prefijo; ///< el prefijo: columna, texto fijo o nada
    bool con_columna() const { return prefijo.contains('_'); }
};

QVector<Documento> documentos(const QString& rutina) {
    QVector<Documento> lista;
    for (const QStringList& c : tabla_esperada("sesion/documentos.tsv", 6))
        if (c[0] == rutina)
            lista.append({c[1].toInt(), c[2], c[3], c[4], c[5]});
    return lista;
}

/// Los que conoce num_documento. El rutero no está en las otras rutinas.
const QVector<int> kDeNum{21, 22, 23, 24, 25, 31,  32,  33,  34,  35,  37,  38,
                          40, 41, 42, 45, 47, 48,  51,  52,  55,  61,  62,  77,
                          85, 86, 87, 88, 89, 132, 133, 137, 139, 181, 182, 301};

int id_de(int tipo) {
    return 1000 + tipo;
}
/// El identificador de la agenda no es el mismo en las dos direcciones.
int id_mostrado(int tipo) {
    return tipo == 301 ? 9301 : id_de(tipo);
}
QString prefijo_de(const Documento& d) {
    return d.con_columna() ? "P" + QString::number(d.tipo) : QString("0000");
}
QString numero_de(int tipo) {
    return Tfdm::complete_numero(QString::number(500 + tipo));
}

/// Un documento de cada tipo en su tabla, con los nombres que le da cualquiera de las rutinas.
void inserte_documentos(SesionGui& s) {
    QMap<int, QMap<QString, QString>> filas; // por tipo: columna y valor
    QMap<int, QString> tablas;
    const auto agregue = [&](const QVector<Documento>& lista, const std::function<int(int)>& id) {
        for (const Documento& d : lista) {
            if (d.tipo == 92 || d.tipo == 99) // no son número y prefijo: van aparte
                continue;
            auto& fila = filas[d.tipo];
            tablas[d.tipo] = d.tabla.toLower();
            fila[d.llave] = QString::number(id(d.tipo));
            fila[d.numero] = QuotedStr(numero_de(d.tipo));
            if (d.con_columna())
                fila[d.prefijo] = QuotedStr(prefijo_de(d));
            if (d.tabla == "carga_remesa")
                fila["tido_cod"] = QString::number(d.tipo);
        }
    };
    agregue(documentos("numero"), id_mostrado);
    agregue(documentos("existe"), id_de);
    const Documento rutero{37, "rute_id", "rutero", "rute_numero", "pref_pre"};
    agregue({rutero, {38, rutero.llave, rutero.tabla, rutero.numero, rutero.prefijo}}, id_de);
    for (auto i = filas.begin(); i != filas.end(); ++i)
        s.base.base().ejecute(QStringLiteral("insert into %1 (%2) values (%3)")
                                  .arg(tablas[i.key()], QStringList(i->keys()).join(','),
                                       QStringList(i->values()).join(',')));
}

/// Dos campos donde las rutinas escriben.
struct Encabezado {
    Encabezado() {
        c.texto("PREFIJO", 10);
        c.texto("NUMERO", 20);
        c.CreateDataSet();
        c.Append();
        ponga("antes", "antes");
    }
    void ponga(const QString& p, const QString& n) {
        prefijo() = p;
        numero() = n;
    }
    Campo& prefijo() { return c.FieldByName("PREFIJO"); }
    Campo& numero() { return c.FieldByName("NUMERO"); }
    QString visto() { return prefijo().texto() + '|' + numero().texto(); }
    QObject dueno;
    ConjuntoDatos c{&dueno, "CEncabezado"};
};

} // namespace

class PruebaNumeracion : public QObject {
    Q_OBJECT

    static QString visto(Tfdm& dm, int tipo, int id) {
        QString prefijo = "antes", numero = "antes";
        dm.num_documento(tipo, id, prefijo, numero);
        return prefijo + '|' + numero;
    }
    static void comprobante(SesionGui& s, int id, const QString& numero) {
        s.base.base().ejecute(
            "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
            "enco_fecha, enco_usuario, enco_descontable, enco_repniif) values (" +
            QString::number(id) + ", 'CG', '0001', " + QuotedStr(numero) +
            ", '20170105', 'ADMIN', 'S', 'N')");
    }

private slots:
    void un_numero_se_completa_a_la_izquierda_y_nunca_se_recorta() {
        const struct {
            const char *numero, *seis, *ocho;
        } casos[] = {{"", "000000", "00000000"},
                     {"7", "000007", "00000007"},
                     {"123456", "123456", "00123456"},
                     {"1234567", "1234567", "01234567"},
                     {"A-1", "000A-1", "00000A-1"}};
        for (const auto& c : casos) {
            QCOMPARE(Tfdm::complete_numero(c.numero), QString(c.seis));
            QCOMPARE(Tfdm::complete_numero_n(c.numero, 8), QString(c.ocho));
        }
    }

    void cada_documento_hermano_se_encuentra_por_prefijo_y_numero() {
        SesionGui s;
        inserte_documentos(s);
        const auto todos = documentos("existe");
        QCOMPARE(todos.size(), 58);
        QSet<int> conocidos;
        for (const Documento& d : todos) {
            const QByteArray tipo = QByteArray::number(d.tipo);
            const QString prefijo = prefijo_de(d), digitado = QString::number(500 + d.tipo);
            conocidos << d.tipo;
            QVERIFY2(s.dm.existe_numero(d.tipo, prefijo, ""), tipo);
            QVERIFY2(s.dm.existe_numero(d.tipo, prefijo, digitado) ==
                         QString::number(id_de(d.tipo)),
                     tipo);
            // Sin prefijo en su tabla, cualquiera vale.
            QVERIFY2(s.dm.existe_numero(d.tipo, "X'X", digitado).has_value() == !d.con_columna(),
                     tipo);
            QVERIFY2(!s.dm.existe_numero(d.tipo, prefijo, "999999"), tipo);
        }
        for (int tipo = 0; tipo < 310; ++tipo)
            if (!conocidos.contains(tipo))
                QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.dm.existe_numero(tipo, "P", "1"));
        QCOMPARE(area_del_documento(31), AreaSuite::Facturacion);
        QCOMPARE(area_del_documento(20), AreaSuite::Inventario);
        QCOMPARE(area_del_documento(77), AreaSuite::Bancos);
        QCOMPARE(area_del_documento(301), AreaSuite::Clientes);
        // las remesas comparten tabla y se separan por tipo; las proformas la comparten sin más
        QVERIFY(!s.dm.existe_numero(85, "P87", "587"));
        QVERIFY(!s.dm.existe_numero(87, "P85", "585"));
        QVERIFY(s.dm.existe_numero(132, "P137", "637"));
    }

    void cada_documento_hermano_muestra_su_prefijo_y_su_numero() {
        SesionGui s;
        inserte_documentos(s);
        s.base.ejecute(
            {"insert into nomina (nomi_id, nomi_ano, nomi_periodo) values (1092, '2017', '03')",
             "insert into liquidacion (liqd_id, terc_nit) values (1099, '52345678')",
             "insert into entrega_documentos (tido_cod, endo_iddoc) values (31, 1031)",
             "insert into facturas (fact_id, pref_pre, fact_numero) values (1099, 'P', '77')",
             "insert into entrega_documentos (tido_cod, endo_iddoc) values (32, 1099)"});
        Encabezado e;
        QMap<int, QString> esperados;
        for (const Documento& d : documentos("numero"))
            esperados[d.tipo] = prefijo_de(d) + '|' + numero_de(d.tipo);
        for (int tipo = 11; tipo < 310; ++tipo) {
            if (tipo == 30 || tipo == 92 || tipo == 99)
                continue;
            if (esperados.contains(tipo)) {
                s.dm.numero_documento(tipo, id_mostrado(tipo), e.prefijo(), e.numero());
                QCOMPARE(e.visto(), esperados[tipo]);
            } else {
                QVERIFY_THROWS_EXCEPTION(ErrorDatos,
                                         s.dm.numero_documento(tipo, 1, e.prefijo(), e.numero()));
            }
        }
        esperados[37] = "P37|000537";
        esperados[38] = "P38|000538";
        for (int tipo = 11; tipo < 310; ++tipo) {
            if (kDeNum.contains(tipo))
                QCOMPARE(visto(s.dm, tipo, id_mostrado(tipo)), esperados[tipo]);
            else
                QVERIFY_THROWS_EXCEPTION(ErrorDatos, visto(s.dm, tipo, 1));
        }
        const struct {
            int tipo, id;
            const char* texto;
        } propios[] = {
            {92, 1092, "2017|03"},
            {99, 1099, "|52345678"}, // el blanco de su prefijo se lee vacío
            {30, 1031, "P31|000531"},
            {30, 1099, "antes|antes"}, // lo entregado no fue la factura de ese número
            {85, 1087, "antes|antes"}, // y esa remesa es de terceros
            {31, 5555, "antes|antes"}, // el documento ya no existe: queda lo que había
            {0, 1031, "|"},            // comprobante digitado a mano
            {1, 1031, "|"},
            {10, 1010, "|"},
            {-1, 1, "|"},
        };
        for (const auto& p : propios) {
            e.ponga("antes", "antes");
            s.dm.numero_documento(p.tipo, p.id, e.prefijo(), e.numero());
            QCOMPARE(e.visto(), QString(p.texto));
        }
        QCOMPARE(visto(s.dm, 31, 5555), "antes|antes");
        QCOMPARE(visto(s.dm, 10, 1010), "|");
        QCOMPARE(s.dm.nombre_tipo(31), "FACTURA");
        QCOMPARE(s.dm.nombre_tipo(9999), QString());
    }

    void un_comprobante_se_busca_con_su_numero_completo() {
        SesionGui s;
        comprobante(s, 41, "000007");
        comprobante(s, 42, "A234567"); // siete caracteres: se busca como se escribió
        const struct {
            const char *tipo, *prefijo, *numero, *encontrado;
        } casos[] = {{"CG", "0001", "7", "41"},       {"CG", "0001", "000007", "41"},
                     {"CG", "0001", "A234567", "42"}, {"CG", "0001", "8", ""},
                     {"RC", "0001", "7", ""},         {"CG", "0002", "7", ""},
                     {"C'G", "0001", "7", ""}};
        for (const auto& c : casos) {
            const auto id = s.cnt.existe_ComContable(c.tipo, c.prefijo, c.numero);
            QCOMPARE(id.has_value(), *c.encontrado != 0);
            QCOMPARE(id.value_or(QString()), QString(c.encontrado));
        }
        QVERIFY(!s.cnt.existe_ComContable("CG", "0001", "")); // al contrario de existe_numero
    }

    void el_numero_repetido_se_consulta_o_se_adelanta() {
        SesionGui s;
        for (int n : {1, 2, 3, 5})
            comprobante(s, 40 + n, Tfdm::complete_numero(QString::number(n)));
        s.base.ejecute({"update prefijos_conta set pref_numero = '000001' where tico_cod = 'CG'"});
        const auto contador = [&] {
            return s.dato("select pref_numero from prefijos_conta where tico_cod = 'CG'");
        };
        const QString pregunta = "Comprobante %1 previamente registrado. Consultar?";
        const struct {
            const char *numero, *sugerido, *pregunta, *respuesta;
            bool vale;
            const char *queda, *encontrado, *contador;
        } casos[] = {
            {"", "000001", "", "", true, "", "", "000001"},
            {"000004", "000001", "", "", true, "000004", "", "000001"},
            {"000003", "000001", "000003", "No", false, "000003", "", "000001"},
            {"000003", "000001", "000003", "", false, "000003", "", "000001"}, // Esc
            {"000003", "000001", "000003", "Sí", true, "000003", "43", "000001"},
            {"000005", "000005", "", "", true, "000006", "", "000006"},
            // salta los tomados, sin devolver el contador que otro llevó más lejos
            {"000001", "000001", "", "", true, "000004", "", "000006"},
        };
        for (const auto& c : casos) {
            Encabezado e;
            e.ponga("0001", c.numero);
            Interlocutor i;
            if (*c.pregunta)
                i.espere(pregunta.arg(c.pregunta), c.respuesta);
            const auto revision = s.cnt.valide_NumComConta("CG", "0001", c.sugerido, e.numero());
            QCOMPARE(revision.vale, c.vale);
            QCOMPARE(e.numero().texto(), QString(c.queda));
            QCOMPARE(revision.encontrado, QString(c.encontrado));
            QCOMPARE(contador(), QString(c.contador));
        }
        // el contador de otro prefijo no se toca
        QCOMPARE(s.dato("select list(distinct pref_numero) from prefijos_conta where tico_cod <> "
                        "'CG'"),
                 "000001");
        comprobante(s, 60, "00000A");
        Encabezado e;
        e.ponga("0001", "00000A");
        QVERIFY_THROWS_EXCEPTION(ErrorDatos,
                                 s.cnt.valide_NumComConta("CG", "0001", "00000A", e.numero()));
    }

    void el_numero_comercial_repetido_se_adelanta_sin_mover_contadores() {
        SesionGui s;
        s.base.ejecute(
            {"insert into facturas (fact_id, pref_pre, fact_numero) values (1, 'A', '000010')",
             "insert into facturas (fact_id, pref_pre, fact_numero) values (2, 'A', '00000011')",
             "insert into pedidos (pedi_id, pref_pre, pedi_numero) values (3, 'A', '000010')",
             "insert into pedidos (pedi_id, pref_pre, pedi_numero) values (4, 'A', '000011')",
             "insert into prefijos (tido_cod, pref_pre, pref_actual) values (34, 'A', '000010')"});
        const struct {
            int tipo;
            const char *numero, *sugerido, *respuesta;
            bool vale;
            const char *queda, *encontrado;
        } casos[] = {
            {34, "", "000010", nullptr, true, "", ""},
            {34, "000099", "000010", nullptr, true, "000099", ""},
            {34, "000011", "000010", "No", false, "000011", ""},
            {34, "000011", "000010", "Sí", true, "000011", "4"},
            {34, "000010", "000010", nullptr, true, "000012", ""},
            {31, "000010", "000010", nullptr, true, "00000012", ""}, // las facturas, a ocho
        };
        for (const auto& c : casos) {
            Encabezado e;
            e.ponga("A", c.numero);
            Interlocutor i;
            if (c.respuesta)
                i.espere(QString("Documento %1 previamente registrado. Consultar?").arg(c.numero),
                         c.respuesta);
            const auto revision = s.dm.valide_numero(c.tipo, "A", c.sugerido, e.numero());
            QCOMPARE(revision.vale, c.vale);
            QCOMPARE(e.numero().texto(), QString(c.queda));
            QCOMPARE(revision.encontrado, QString(c.encontrado));
        }
        QCOMPARE(s.dato("select pref_actual from prefijos where tido_cod = 34"), "000010");
    }

    void el_prefijo_por_omision_se_crea_o_se_activa() {
        SesionGui s;
        s.base.ejecute({"delete from prefijos",
                        "insert into prefijos (tido_cod, pref_pre, pref_auto, pref_actual, "
                        "pref_ivainc, pref_activo) values (34, '0000', 'S', '000123', 'S', 'N')",
                        "insert into prefijos (tido_cod, pref_pre, pref_activo) values (34, 'B', "
                        "'N')"});
        const auto filas = [&](int tipo) {
            return s.dato("select list(pref_pre || ':' || coalesce(pref_auto, '') || ':' || "
                          "coalesce(pref_actual, '') || ':' || coalesce(pref_ivainc, '') || ':' || "
                          "pref_activo) from (select * from prefijos where tido_cod = " +
                          QString::number(tipo) + " order by pref_pre)");
        };
        for (int vez = 0; vez < 2; ++vez) {
            s.dm.registre_prefijo(31);
            QCOMPARE(filas(31), "0000:N:000001:N:S");
            s.dm.registre_prefijo(34);
            QCOMPARE(filas(34), "0000:S:000123:S:S,B:N::N:N");
        }
    }
};

QTEST_MAIN(PruebaNumeracion)
#include "prueba_numeracion.moc"
