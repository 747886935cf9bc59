// El libro con mucho movimiento: balance de prueba de los dos libros y auxiliar de una cuenta.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "ledger/familia.h"
#include "ledger/registro.h"
#include "ledger/tfauxiliar.h"
#include "ledger/tfbalanceprueba.h"
#include "tests/fallas/contador.h"

namespace {

constexpr int kMes = 11; // diciembre: detrás tiene todo el año

Ubicacion lugar(int renglones) {
    return Ubicacion(demostracion(renglones));
}

double balance_en_pantalla(int renglones) {
    SesionEnLugar s(lugar(renglones), "ADMIN", {});
    registre_pantallas_consulta();
    s.cnt.periodo_actual = kMes;
    auto* p = qobject_cast<Tfbalanceprueba*>(pantallas().abrir("Tfbalanceprueba"));
    p->activateWindow();
    const auto f2 = [&] {
        QTest::keyClick(p, Qt::Key_F2);
        QCoreApplication::processEvents();
    };
    f2();
    if (p->CBalance.IsEmpty() || p->CBalniif.IsEmpty())
        throw ErrorDatos("el balance salió vacío");
    return mida(f2, 60);
}

void balance_en_la_base(Conexion& c) {
    for (const char* procedimiento : {"consulta_balance_mes", "consulta_balance_mes_niif"})
        for (auto cursor =
                 c.abra(QStringLiteral("select * from %1('2017', 12, 'S', 5)").arg(procedimiento));
             cursor->siguiente();) {
        }
}

double sume_los_renglones(Conexion& c) {
    return mida(
        [&] {
            for (const char* libro : {"comprobante_detalle", "comprobante_detalle_niif"})
                for (auto cursor = c.abra(
                         QStringLiteral("select cuen_cod, sum(iif(code_fecha < '20171200', "
                                        "code_debito - code_credito, 0)), sum(iif(code_fecha >= "
                                        "'20171200', code_debito, 0)), sum(iif(code_fecha >= "
                                        "'20171200', code_credito, 0)) from %1 where code_fecha <= "
                                        "'20171299' group by cuen_cod")
                             .arg(libro));
                     cursor->siguiente();) {
                }
        },
        2);
}

/// Auxiliar de diciembre de una cuenta.
class Auxiliar {
public:
    /// La de más renglones que no pase de `tope`. Se cuenta por el índice: ordenar el libro entero
    /// ensuciaría la memoria medida.
    Auxiliar(Conexion& c, qint64 tope)
        : sentencia_(&dueno_, "QAuxiliar", c),
          proveedor_(&dueno_, "PAuxiliar", &sentencia_, poAllowCommandText),
          conjunto_(&dueno_, "CAuxiliar", &proveedor_) {
        DatosConsulta d;
        d.ano = "2017";
        d.mes = kMes + 1;
        d.orden = "FECHA";
        qint64 mejor = 0;
        for (auto cursor =
                 c.abra("select c.cuen_cod, (select count(*) from comprobante_detalle d where "
                        "d.cuen_cod = c.cuen_cod and d.code_fecha between '20171200' and "
                        "'20171299') from cuentas c");
             cursor->siguiente();)
            if (const qint64 n = cursor->valor(1).entero(); n <= tope && n > mejor) {
                mejor = n;
                d.cuenta = cursor->valor(0).texto();
            }
        cuenta_ = d.cuenta;
        sql_ = componga_consulta(auxiliares()[0].consulta, d);
    }
    void abra() { conjunto_.Open(sql_); }
    double por_mil(double ms) const { return ms * 1000 / conjunto_.RecordCount(); }
    QString rotulo() const {
        return QStringLiteral("%1 filas, cuenta %2").arg(conjunto_.RecordCount()).arg(cuenta_);
    }

private:
    QObject dueno_;
    Sentencia sentencia_;
    Proveedor proveedor_;
    ConjuntoDatos conjunto_;
    QString cuenta_, sql_;
};

} // namespace

/// Con todas las cuentas, un plan mayor cuesta por sus filas: cada una busca su nombre, y no
/// recorre el plan.
void mida_balance_de_todo_el_plan() {
    constexpr int kCuentas = 7500;
    Copia copia;
    Conexion c;
    c.conectar({copia.lugar.base_compania("001"), "ADMIN", {}});
    const QStringList consultas{"consulta_balance_mes('2017', 12, 'N', 5)",
                                "balance_mes('2017', 12, 'S', 'S', 'S', 'N')",
                                "mayor_y_balance('2017', 12, 'N', 'S')"};
    const auto por_mil = [&](const QString& consulta) {
        qint64 filas = 0;
        const double ms =
            mida([&] { filas = c.consulte("select count(*) from " + consulta).entero(); });
        return ms * 1000 / double(filas);
    };
    QList<double> antes;
    for (const QString& consulta : consultas)
        antes << por_mil(consulta);
    agrande_plan(c, kCuentas);
    for (int i = 0; i < consultas.size(); ++i)
        informe(consultas[i].section('(', 0, 0) + ", todas las cuentas, cada mil, con 10.000",
                por_mil(consultas[i]), "con 2.500", antes[i], 1.5);
}

void mida_balance() {
    mida_balance_de_todo_el_plan();
    // Una sola sesión por proceso a la vez: se turnan las dos bases.
    double grande = 1e12, chica = 1e12;
    for (int i = 0; i < 3; ++i) {
        chica = qMin(chica, balance_en_pantalla(100000));
        grande = qMin(grande, balance_en_pantalla(1000000));
    }
    informe("balance de prueba en pantalla, 1.000.000 de renglones por libro", grande,
            "con 100.000", chica, 1.3);
    Conexion c, d;
    c.conectar({lugar(1000000).base_compania("001"), "ADMIN", {}});
    d.conectar({lugar(100000).base_compania("001"), "ADMIN", {}});
    const auto [base, base_chica] =
        compare([&] { balance_en_la_base(c); }, [&] { balance_en_la_base(d); });
    informe("el mismo, solo la base, 1.000.000", base, "con 100.000", base_chica, 1.3);
    nota(QStringLiteral("balance: memoria máxima %1 MB antes de sumar los renglones en SQL")
             .arg(memoria_maxima_mb()));
    informe_ganancia("balance en pantalla, 1.000.000", grande, "sumar los renglones en SQL",
                     sume_los_renglones(c), 30);
}

void mida_auxiliar() {
    Conexion grande, chica;
    grande.conectar({lugar(1000000).base_compania("001"), "ADMIN", {}});
    chica.conectar({lugar(100000).base_compania("001"), "ADMIN", {}});
    const auto informe_por_mil = [](Auxiliar& uno, const QString& a, Auxiliar& otro,
                                    const QString& b) {
        const auto [ms, base] = compare([&] { uno.abra(); }, [&] { otro.abra(); });
        informe(QStringLiteral("auxiliar por mil filas, %1 (%2)").arg(a, uno.rotulo()),
                uno.por_mil(ms), b + " (" + otro.rotulo() + ')', otro.por_mil(base), 1.5);
    };
    // Las mismas filas en un libro diez veces mayor cuestan lo mismo; diez veces más, diez veces.
    Auxiliar mil(grande, 1000), diez_mil(grande, 10000), mil_chico(chica, 1000);
    informe_por_mil(mil, "libro de 1.000.000", mil_chico, "libro de 100.000");
    informe_por_mil(diez_mil, "libro de 1.000.000", mil, "el mismo libro");
}
