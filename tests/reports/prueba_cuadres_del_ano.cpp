// Los estados de un año, los comparativos, los de centros y los libros oficiales contra las sumas
// hechas por fuera, renglón a renglón, en los dos libros y en períodos y rangos al azar.
#include "libro_de_estados.h"

namespace {

const QStringList kMeses{"ene", "feb", "mar", "abr", "may", "jun", "jul",
                         "ago", "sep", "oct", "nov", "dic", "cie"};
const Filtro kTodo = [](const Renglon&) { return true; };

QString columnas(const QString& prefijo) {
    return prefijo + kMeses.join(", " + prefijo);
}

/// Inicial y los trece movimientos del año de cada código, con su detalle después de una barra.
using Anual = QMap<QString, QVector<Moneda>>;

int columna_del_ano(const Renglon& r, int ano) {
    const int suyo = r.fecha.left(4).toInt(), mes = r.fecha.mid(4, 2).toInt();
    return suyo < ano ? 0 : suyo > ano ? -1 : qMin(mes, 13);
}

} // namespace

class PruebaCuadresDelAno : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void el_anual_con_terceros_y_con_centros();
    void el_resultado_del_ano_en_todas_sus_cuentas();
    void los_comparativos_de_periodos_y_de_centros();
    void cada_centro_con_sus_cuentas();
    void cada_grupo_del_patrimonio();
    void cada_renglon_del_efectivo();
    void cada_renglon_de_la_situacion();
    void cada_renglon_de_los_libros_oficiales();

private:
    Conexion& base() { return base_->base(); }
    QStringList filas(const QString& sql) {
        return filas_de(base(), sql).split('\n', Qt::SkipEmptyParts);
    }
    /// Sin las filas que no dicen nada: un código con todo en cero.
    static QStringList ordenadas(QStringList lista) {
        static const QRegularExpression ceros("^[^|]*(\\|0)+$");
        lista.removeIf([](const QString& fila) { return ceros.match(fila).hasMatch(); });
        lista.sort();
        return lista;
    }
    /// Cuál de los códigos de la tabla es el comienzo más largo de una cuenta.
    auto mas_largo(const QString& tabla, const QString& columna, const QString& donde) {
        QStringList cuentas;
        for (const QString& f : filas("select " + columna + " from " + tabla + donde))
            cuentas << f.trimmed();
        return [cuentas](const QString& cuenta) {
            QString mejor;
            for (const QString& c : cuentas)
                if (cuenta.startsWith(c) && c.size() > mejor.size())
                    mejor = c;
            return mejor;
        };
    }
    Anual anual(int libro, int ano, const Filtro& filtro, const Separa& separa,
                bool detalles_en_cero = false);
    static QStringList como_filas(const Anual& anual, bool saldos);
    template <class Cual> void en_cada_ano(Cual cual) {
        for (int libro : {0, 1})
            for (int ano = kPrimerAnoLibro; ano < kPrimerAnoLibro + kAnosLibro; ++ano)
                cual(libro, ano);
    }
    /// Lo que el año mueve en las cuentas que cumplen, débitos menos créditos.
    Moneda del_ano(int libro, int ano, const Filtro& filtro) {
        Moneda neto;
        for (const Renglon& r : lineas_[libro])
            if (r.fecha.left(4) == QString::number(ano) && filtro(r))
                neto += r.neto();
        return neto;
    }

    QVector<Renglon> lineas_[2];
    std::optional<BaseDePrueba> base_;
};

void PruebaCuadresDelAno::initTestCase() {
    base_.emplace();
    arme_libro_de_estados(base(), 81);
    for (const char* tabla : {"cuentas", "cuentas_niif"})
        base().ejecute(QString("update %1 set cuen_tipo = 'I' where cuen_cod = '143505'")
                           .arg(QLatin1String(tabla)));
    base().ejecute("update or insert into articulo (arti_cod, arti_des) values ('A1', 'Uno')");
    base().ejecute("update or insert into articulo (arti_cod, arti_des) values ('A2', 'Dos')");
    for (const char* tabla : {"comprobante_detalle", "comprobante_detalle_niif"})
        base().ejecute(QString("update %1 set arti_cod = 'A' || (1 + mod(enco_consec, 2)) where "
                               "cuen_cod = '143505' and mod(enco_consec, 3) > 0")
                           .arg(QLatin1String(tabla)));
    for (int libro : {0, 1})
        lineas_[libro] = renglones(base(), libro, true);
}

/// `detalles_en_cero`: también cuentan como otros los que el año trae en cero y no mueve.
Anual PruebaCuadresDelAno::anual(int libro, int ano, const Filtro& filtro, const Separa& separa,
                                 bool detalles_en_cero) {
    Anual filas;
    const auto sume = [&](const QString& llave, int columna, Moneda valor) {
        auto& fila = filas[llave];
        fila.resize(14);
        fila[columna] += valor;
    };
    for (const Renglon& r : lineas_[libro]) {
        const int columna = columna_del_ano(r, ano);
        if (columna < 0 || !filtro(r))
            continue;
        for (int digitos : {1, 2, 4, 6, 8, 10, 12, 14, 16, 18})
            if (digitos <= r.cuenta.size())
                sume(r.cuenta.left(digitos), columna, r.neto());
        if (separa)
            sume(r.cuenta + '/' + o_sin(separa(r)), columna, r.neto());
    }
    if (!detalles_en_cero)
        filas.removeIf([](const auto& fila) {
            return std::ranges::all_of(fila.value(), [](const Moneda& m) { return m.es_cero(); });
        });
    quite_solas(filas);
    return filas;
}

QStringList PruebaCuadresDelAno::como_filas(const Anual& anual, bool saldos) {
    QStringList lista;
    for (const auto& [llave, valores] : anual.asKeyValueRange()) {
        QStringList fila{llave};
        Moneda corre;
        for (const Moneda& m : valores) {
            corre += m;
            fila << (saldos ? corre : m).texto();
        }
        lista << (fila << corre.texto()).join('|');
    }
    return ordenadas(lista);
}

void PruebaCuadresDelAno::el_anual_con_terceros_y_con_centros() {
    const Filtro deudores = [](const Renglon& r) { return r.cuenta >= "11" && r.cuenta < "14"; };
    en_cada_ano([&](int libro, int ano) {
        for (const bool saldos : {false, true}) {
            const QString anual_de =
                QString("select iif(nit is null, codigo, substring(codigo from 1 for "
                        "position('.', codigo) - 1) || '/' || nit), inicial, %1, final from "
                        "balance_anual%2('%3', '%4', '%5', '%6', '%7')")
                    .arg(columnas("mv"), sufijo(libro))
                    .arg(ano);
            const Separa nit = [](const Renglon& r) { return r.nit; };
            const QString flag = saldos ? "S" : "N";
            QCOMPARE(ordenadas(filas(anual_de.arg("0", "ZZ", "S", flag))),
                     como_filas(anual(libro, ano, kTodo, nit), saldos));
            QCOMPARE(ordenadas(filas(anual_de.arg("11", "13", "S", flag))),
                     como_filas(anual(libro, ano, deudores, nit), saldos));
            // Sin terceros se lee de los saldos por cuenta.
            QCOMPARE(ordenadas(filas(anual_de.arg("0", "ZZ", "N", flag))),
                     como_filas(anual(libro, ano, kTodo, {}), saldos));
        }
        const Separa centro = [](const Renglon& r) {
            return r.centro.isEmpty() ? QString() : r.proyecto + '-' + r.centro;
        };
        QCOMPARE(
            ordenadas(filas(QString("select iif(centro is null, codigo, substring(codigo from "
                                    "1 for position('.', codigo) - 1) || '/' || iif(centro = "
                                    "'-', '', proy || '-') || centro), inicial, %1, final from "
                                    "balance_anual_centros('%2', '0', 'ZZ', 'N', '%3')")
                                .arg(columnas("mv"))
                                .arg(ano)
                                .arg(libro ? "S" : "N"))),
            como_filas(anual(libro, ano, kTodo, centro, true), false));
    });
}

void PruebaCuadresDelAno::el_resultado_del_ano_en_todas_sus_cuentas() {
    en_cada_ano([&](int libro, int ano) {
        QStringList esperadas;
        const auto fila = [&](const QString& codigo, int signo, const QVector<Moneda>& meses) {
            QStringList movimientos, acumulados;
            Moneda corre;
            for (int m = 1; m <= 13; ++m) {
                const Moneda valor = signo < 0 ? -meses[m] : meses[m];
                corre += valor;
                movimientos << valor.texto();
                acumulados << corre.texto();
            }
            esperadas << (QStringList{codigo} + movimientos + acumulados).join('|');
        };
        QVector<Moneda> utilidad(14);
        const Anual cuentas = anual(
            libro, ano, [](const Renglon& r) { return r.cuenta >= "4" && r.cuenta < "8"; }, {});
        for (const auto& [codigo, meses] : cuentas.asKeyValueRange()) {
            fila(codigo, codigo.startsWith('4') ? -1 : 1, meses);
            for (int m = 0; m < 14 && codigo.size() == 1; ++m)
                utilidad[m] += meses[m];
        }
        fila("Z", -1, utilidad);
        QCOMPARE(ordenadas(filas(QString("select codigo, %1, %2 from resultado_anual('%3', '%4')")
                                     .arg(columnas("mv"), columnas("sa"))
                                     .arg(ano)
                                     .arg(libro ? "S" : "N"))),
                 ordenadas(esperadas));
    });
}

void PruebaCuadresDelAno::los_comparativos_de_periodos_y_de_centros() {
    QRandomGenerator azar = azar_de_prueba(82);
    const QString cifras = "inicial1, debitos1, creditos1, final1, inicial2, debitos2, creditos2, "
                           "final2";
    const auto junte = [](const QMap<QString, Cifras>& uno, const QMap<QString, Cifras>& otro) {
        QStringList lista;
        QMap<QString, Cifras> todos = uno;
        todos.insert(otro);
        quite_solas(todos);
        for (const QString& codigo : todos.keys())
            lista << codigo + '|' + uno.value(codigo).texto() + '|' + otro.value(codigo).texto();
        return ordenadas(lista);
    };
    for (int vez = 0; vez < 16; ++vez) {
        const int libro = vez % 2;
        const int ano1 = kPrimerAnoLibro + azar.bounded(kAnosLibro), mes1 = 1 + azar.bounded(14),
                  ano2 = kPrimerAnoLibro + azar.bounded(kAnosLibro), mes2 = 1 + azar.bounded(14);
        const auto& lineas = lineas_[libro];
        const Separa nit = [](const Renglon& r) { return r.nit; };
        const bool terceros = vez % 4 < 2;
        QCOMPARE(
            ordenadas(filas(QString("select iif(nit is null, cuenta, substring(cuenta from 1 for "
                                    "position('.', cuenta) - 1) || '/' || nit), %1 from "
                                    "balance_comparativo%2('%3', %4, '%5', %6, '%7')")
                                .arg(cifras, sufijo(libro))
                                .arg(ano1)
                                .arg(mes1)
                                .arg(ano2)
                                .arg(mes2)
                                .arg(terceros ? "S" : "N"))),
            junte(por_codigo(saldos(lineas, kTodo, ano1, mes1, mes1, nit), terceros),
                  por_codigo(saldos(lineas, kTodo, ano2, mes2, mes2, nit), terceros)));
        const auto del_centro = [&](const QString& proyecto, const QString& centro) {
            return por_codigo(
                saldos(
                    lineas,
                    [&](const Renglon& r) { return r.proyecto == proyecto && r.centro == centro; },
                    ano1, mes1, mes1),
                false);
        };
        QCOMPARE(ordenadas(filas(QString("select cuenta, %1 from compara_centros%2('%3', %4, "
                                         "'0001', '0002', '0002', '0001') where inicial1 <> 0 or "
                                         "debitos1 <> 0 or creditos1 <> 0 or inicial2 <> 0 or "
                                         "debitos2 <> 0 or creditos2 <> 0")
                                     .arg(cifras, sufijo(libro))
                                     .arg(ano1)
                                     .arg(mes1))),
                 junte(del_centro("0001", "0002"), del_centro("0002", "0001")));
    }
}

void PruebaCuadresDelAno::cada_centro_con_sus_cuentas() {
    QRandomGenerator azar = azar_de_prueba(83);
    for (int vez = 0; vez < 12; ++vez) {
        const int libro = vez % 2, ano = kPrimerAnoLibro + azar.bounded(kAnosLibro),
                  mes = 1 + azar.bounded(14);
        QStringList esperadas;
        for (const QString& llave : kCentros) {
            const auto del_centro = [&](const Renglon& r) {
                return r.proyecto == llave.section('|', 0, 0) &&
                       r.centro == llave.section('|', 1) && r.cuenta >= "4" && r.cuenta < "7";
            };
            for (const auto& [codigo, c] :
                 por_codigo(saldos(lineas_[libro], del_centro, ano, mes, mes), false)
                     .asKeyValueRange())
                esperadas << llave.section('|', 0, 0) + '|' + llave.section('|', 1) + '|' + codigo +
                                 '|' + c.texto() + '|' + (c.debitos - c.creditos).texto();
        }
        QCOMPARE(ordenadas(filas(QString("select proy, centro, cuenta, inicial, debitos, creditos, "
                                         "final, movimien from balance_con_centros_mes%1('%2', %3, "
                                         "'S', '4', '6', '', 'zz', '', 'zz') where inicial <> 0 or "
                                         "debitos <> 0 or creditos <> 0")
                                     .arg(libro ? "_n" : "")
                                     .arg(ano)
                                     .arg(mes))),
                 ordenadas(esperadas));
    }
}

void PruebaCuadresDelAno::cada_grupo_del_patrimonio() {
    for (int ano = kPrimerAnoLibro; ano < kPrimerAnoLibro + kAnosLibro; ++ano) {
        QMap<QString, Cifras> grupos;
        for (const auto& [llave, c] : saldos(lineas_[0], kTodo, ano, 1, 14).asKeyValueRange())
            if (llave.first.startsWith('3'))
                grupos[llave.first.left(2)].sume(c);
        Moneda sin_cerrar;
        for (const Renglon& r : lineas_[0])
            if (r.cuenta >= "4" && r.cuenta < "8" && r.fecha.left(4).toInt() <= ano)
                sin_cerrar -= r.neto();
        const Cifras capital = grupos["31"], resultado = grupos["36"];
        const auto fila = [](Moneda de_31, Moneda de_36, Moneda queda_31, Moneda queda_36) {
            return QStringList{de_31.texto(),           de_36.texto(),
                               queda_31.texto(),        queda_36.texto(),
                               (de_31 + de_36).texto(), (queda_31 + queda_36).texto()}
                .join('|');
        };
        const Moneda i1 = -capital.inicial, i6 = -resultado.inicial;
        const Moneda a1 = i1 + capital.creditos, a6 = i6 + resultado.creditos;
        const Moneda d1 = a1 - capital.debitos, d6 = a6 - resultado.debitos;
        QCOMPARE(
            filas(QString("select cta31, cta36, sal31, sal36, totalmov, totalsal from "
                          "cambios_patrimonio('%1')")
                      .arg(ano)),
            QStringList({fila(i1, i6, i1, i6), fila(capital.creditos, resultado.creditos, a1, a6),
                         fila(-capital.debitos, -resultado.debitos, d1, d6),
                         fila({}, sin_cerrar, d1, d6 + sin_cerrar),
                         fila({}, {}, d1, d6 + sin_cerrar)}));
        QCOMPARE(grupos.size(), 2); // los demás grupos van en cero
    }
}

void PruebaCuadresDelAno::cada_renglon_del_efectivo() {
    // Un renglón más largo saca su cuenta del más corto, y uno de efectivo no explica nada.
    base().ejecute("insert into flujo_efectivo values (901, '1305', 2, 'N', 'N')");
    base().ejecute("insert into flujo_efectivo values (902, '1', 2, 'N', 'N')");
    // La de dos renglones sale separada en sus débitos y sus créditos; el repetido no suma nada, y
    // el de una sección que no existe no le quita nada a nadie.
    for (const char* otro : {"903, '15', 2, 'S', 'N'", "904, '15', 3, 'N', 'N'",
                             "905, '1592', 9, 'N', 'N'", "906, '22', 1, 'S', 'S'"})
        base().ejecute(QString("insert into flujo_efectivo values (%1)").arg(otro));
    en_cada_ano([&](int libro, int ano) {
        const QString niif = libro ? "S" : "N",
                      donde = " where flef_niif = '" + niif + "' and flef_seccion between 1 and 3";
        const auto de = mas_largo("flujo_efectivo", "flef_cuenta", donde);
        const QStringList configurados = filas("select flef_cuenta, flef_db from flujo_efectivo" +
                                               donde + " order by flef_seccion, flef_id"),
                          dichos = filas(QString("select final from estado_flujo_efectivo('%1', "
                                                 "'%2') where seccion < 4")
                                             .arg(ano)
                                             .arg(niif));
        QCOMPARE(dichos.size(), configurados.size());
        for (int i = 0; i < dichos.size(); ++i) {
            const QString cuenta = configurados[i].section('|', 0, 0),
                          otra_cara =
                              cuenta + (configurados[i].section('|', 1) == "S" ? "|N" : "|S");
            const bool repetido = configurados.indexOf(configurados[i]) < i,
                       separada = configurados.contains(otra_cara),
                       debitos = !separada || otra_cara.endsWith('N'),
                       creditos = !separada || otra_cara.endsWith('S');
            Moneda final;
            for (const Renglon& r : lineas_[libro])
                if (!repetido && r.fecha.left(4) == QString::number(ano) &&
                    !r.cuenta.startsWith("11") && de(r.cuenta) == cuenta)
                    final += (creditos ? r.credito : Moneda()) - (debitos ? r.debito : Moneda());
            QVERIFY2(dichos[i] == final.texto(), qPrintable(configurados[i] + ": " + dichos[i]));
        }
        QCOMPARE(filas(QString("select total3 - total4 from estado_flujo_efectivo('%1', '%2')")
                           .arg(ano)
                           .arg(niif))
                     .last(),
                 "0");
    });
    base().ejecute("delete from flujo_efectivo where flef_id > 900");
}

void PruebaCuadresDelAno::cada_renglon_de_la_situacion() {
    base().ejecute("insert into cambios_situacion_ctas values (901, '1592', 2, 'S')");
    for (int ano = kPrimerAnoLibro; ano < kPrimerAnoLibro + kAnosLibro; ++ano) {
        const auto de_situacion = mas_largo("cambios_situacion_ctas", "casi_cuenta", {});
        Moneda provistos, aplicados;
        for (const QString& f : filas(QString("select seccion, cuenta, final, total4, total5 from "
                                              "cambios_situacion('%1')")
                                          .arg(ano))) {
            const int seccion = f.section('|', 0, 0).toInt();
            const QString cuenta = f.section('|', 1, 1).section(' ', 0, 0);
            const Moneda valor = Moneda::intente(f.section('|', 2, 2)).value();
            const Moneda neto = del_ano(0, ano, [&](const Renglon& r) {
                return de_situacion(r.cuenta) == (seccion == 3 ? QString() : cuenta);
            });
            QCOMPARE(valor, seccion == 1 ? -neto : neto);
            (seccion == 1 ? provistos : aplicados) += seccion < 3 ? valor : Moneda();
            if (seccion == 3)
                QCOMPARE(f.section('|', 3), QString("%1|%1").arg((provistos - aplicados).texto()));
        }
    }
    base().ejecute("delete from cambios_situacion_ctas where casi_id > 900");
}

void PruebaCuadresDelAno::cada_renglon_de_los_libros_oficiales() {
    QRandomGenerator azar = azar_de_prueba(84);
    const auto lado = [](Moneda m) {
        return (m.negativa() ? Moneda() : m).texto() + '|' + (m.negativa() ? -m : Moneda()).texto();
    };
    for (int vez = 0; vez < 12; ++vez) {
        const int libro = vez % 2, ano = kPrimerAnoLibro + azar.bounded(kAnosLibro),
                  mes = 1 + azar.bounded(14);
        const QString periodo = QString("'%1', %2").arg(ano).arg(mes), niif = libro ? "S" : "N";
        QStringList mayor;
        QMap<QString, Moneda> finales;
        for (const auto& [codigo, c] :
             por_codigo(saldos(lineas_[libro], kTodo, ano, mes, mes), false).asKeyValueRange()) {
            mayor << codigo + '|' + lado(c.inicial) + '|' + c.debitos.texto() + '|' +
                         c.creditos.texto() + '|' + lado(c.final());
            if (codigo < "4")
                finales[codigo] += codigo < "2" ? c.final() : -c.final();
            else if (codigo.size() == 1 && codigo < "8") // el resultado sin cerrar
                for (const char* patrimonio : {"3", "39"})
                    finales[patrimonio] -= c.final();
        }
        QStringList inventario;
        for (const auto& [codigo, saldo] : finales.asKeyValueRange())
            inventario << codigo + '|' + saldo.texto();
        QCOMPARE(ordenadas(filas("select codigo, inidb, inicr, debitos, creditos, findb, fincr "
                                 "from mayor_y_balance(" +
                                 periodo + ", '" + niif + "', 'N')")),
                 ordenadas(mayor));
        QCOMPARE(ordenadas(filas("select codigo, saldo from inventario_y_balance(" + periodo +
                                 ", '" + niif + "') where articulo is null and saldo <> 0")),
                 ordenadas(inventario));
        // Los artículos y lo que la cuenta tiene sin ellos suman la cuenta.
        QStringList articulos = filas(
            QString("select arti_cod, sum(code_debito - code_credito) from comprobante_detalle%1 d "
                    "join comprobante_encabezado e on e.enco_consec = d.enco_consec where arti_cod "
                    "is not null and enco_fecha <= '%2%3' group by 1 having sum(code_debito - "
                    "code_credito) <> 0")
                .arg(sufijo(libro))
                .arg(mes_de(ano, mes), "99"));
        Moneda sin_articulo = finales["143505"];
        for (const QString& f : articulos)
            sin_articulo -= Moneda::intente(f.section('|', 1)).value();
        if (!articulos.isEmpty())
            articulos << "-|" + sin_articulo.texto();
        QCOMPARE(ordenadas(filas("select articulo, saldo from inventario_y_balance(" + periodo +
                                 ", '" + niif + "') where articulo is not null")),
                 ordenadas(articulos));
        const bool por_dia = vez % 4 < 2;
        QMap<QString, std::pair<Moneda, Moneda>> diario;
        for (const Renglon& r : lineas_[libro])
            if (r.fecha.left(6) == mes_de(ano, mes)) {
                auto& [debitos, creditos] =
                    diario[r.cuenta.left(4) + '|' + r.tipo + '|' + (por_dia ? r.fecha : QString())];
                debitos += r.debito;
                creditos += r.credito;
            }
        QStringList esperado;
        for (const auto& [llave, sumas] : diario.asKeyValueRange())
            esperado << llave + '|' + sumas.first.texto() + '|' + sumas.second.texto();
        QCOMPARE(ordenadas(filas("select cuenta, tipocomp, fecha, debitos, creditos from "
                                 "libro_diario(" +
                                 periodo + ", 3, '" + niif + (por_dia ? "', 'S')" : "', 'N')"))),
                 ordenadas(esperado));
    }
}

QTEST_APPLESS_MAIN(PruebaCuadresDelAno)
#include "prueba_cuadres_del_ano.moc"
