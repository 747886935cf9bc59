// Análisis: un informe definido con trescientas referencias, el balance anual según crece el libro
// y el cubo de doscientas mil celdas.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "ledger/registro.h"
#include "ledger/tfbalanceanual.h"
#include "ledger/tfcomparacentros.h"
#include "reports/informe_definible.h"
#include "tests/fallas/contador.h"
#include "toolkit/pivote/modelo_cubo.h"

#include <QRandomGenerator>

namespace {

constexpr int kReferencias = 300, kPorRenglon = 6;
constexpr const char* kCodigos[] = {"SF", "SM", "DB", "CR", "MV", "SA"};
constexpr const char* kCuentas[] = {"1",  "11", "1105", "13", "1305", "14", "1435", "15", "2",
                                    "22", "23", "24",   "25", "3",    "31", "36",   "4",  "41",
                                    "5",  "51", "52",   "53", "6",    "61", "6135"};

/// Cincuenta renglones de seis referencias cada uno.
QStringList formulas() {
    QStringList lista;
    for (int n = 0; n < kReferencias; n += kPorRenglon) {
        QStringList referencias;
        for (int i = 0; i < kPorRenglon; ++i)
            referencias << QLatin1String(kCodigos[i]) +
                               kCuentas[size_t(n + i) % std::size(kCuentas)];
        lista << referencias.join(QLatin1Char('+'));
    }
    return lista;
}

double anual(int renglones) {
    constexpr int kVeces = 15;
    SesionEnLugar s(Ubicacion(demostracion(renglones)), "ADMIN", {});
    registre_pantallas_consulta();
    auto* p = qobject_cast<Tfbalanceanual*>(pantallas().abrir("Tfbalanceanual"));
    return mida([p] { p->actualice_balance(); }, kVeces);
}

/// La pantalla del comparativo con cien subcentros en cada cuenta de resultado.
void mida_comparativo() {
    const Copia copia;
    {
        Conexion directa;
        directa.conectar({copia.lugar.base_compania("001"), "SYSDBA", {}});
        directa.ejecute(
            "insert into saldos_centro (cuen_cod, proy_cod, cent_cod, sald_ano, sald_mes, "
            "sald_debito, "
            "sald_credito) with recursive n as (select 0 i from rdb$database union all select i + "
            "1 "
            "from n where i < 99) select c.cuen_cod, 'Z' || mod(i, 10), 'Z' || i, '2017', 1, 100 + "
            "i, "
            "0 from cuentas c cross join n where c.cuen_cod >= '4' and c.cuen_cod < '8' and "
            "char_length(c.cuen_cod) = 6");
    }
    SesionEnLugar s(copia.lugar, "ADMIN", {});
    registre_pantallas_consulta();
    auto* p = qobject_cast<Tfcomparacentros*>(pantallas().abrir("Tfcomparacentros"));
    const QString sql = p->CBalcentro.CommandText;
    const auto [ms, crudo] = compare([&] { p->SpeedButton5Click(); },
                                     [&] {
                                         for (auto c = fdm().Quorvex.abra(sql); c->siguiente();) {
                                         }
                                     },
                                     3);
    informe(QStringLiteral("comparativo de centros de %1 filas, F2 en la pantalla")
                .arg(p->CBalcentro.RecordCount()),
            ms, "leerlas del cliente sin decodificar", crudo, 2);
}

} // namespace

void mida_definible() {
    SesionEnLugar s(Ubicacion(demostracion(100000)), "ADMIN", {});
    fdmcnt().periodo_actual = 11;
    const QStringList lista = formulas();
    const PeriodoFormula periodo = periodo_de_la_sesion(false);
    const auto [ms, crudo] = compare(
        [&] {
            const FormulaContable f(periodo, LectorReferencias());
            for (const QString& formula : lista)
                (void)f.evalue_cuenta({formula, {}, {}, {}, {}});
        },
        [&] {
            for (const QString& formula : lista)
                for (const Referencia& r : referencias_de(formula))
                    (void)fdm().Quorvex.consulte(lectura_de(r.texto, {}, {}, periodo).sql);
        });
    informe(QStringLiteral("cifras de un informe definido con %1 referencias").arg(kReferencias),
            ms, "las mismas consultas solas", crudo, 1.5);
}

void mida_anual() {
    const double cien_mil = anual(100000), millon = anual(1000000);
    informe("balance anual con 1.000.000 de renglones", millon, "con 100.000", cien_mil, 1.3);
}

void mida_cubo() {
    mida_comparativo();
    constexpr int kHechos = 200000, kNiveles = 3;
    constexpr double kAlInstante = 500; // ms
    Cubo cubo({{"CUENTA", "Cuenta", false, "NOMBRE"},
               {"NOMBRE", "Nombre"},
               {"PROY", "Centro"},
               {"CENTRO", "Subcentro"},
               {"NIVEL", "Nivel"},
               {"FINAL", "Final", true},
               {"MOVIMIEN", "Movimiento", true}});
    QRandomGenerator azar(2018);
    for (int h = 0; h < kHechos; ++h) {
        // Dos mil cuentas por cien subcentros: cada hecho en su cruce.
        const QString cuenta = QString::number(400000 + h / 100);
        const int centro = h % 100;
        cubo.agregue({cuenta, "Cuenta " + cuenta, QString::number(centro / 10),
                      QString::number(centro), QString::number(1 + h % kNiveles)},
                     {Moneda(azar.bounded(1000000)), Moneda(azar.bounded(1000))});
    }
    DisposicionCubo d;
    d.filas = {"CUENTA"};
    d.columnas = {"PROY", "CENTRO"};
    d.valores = {{"FINAL"}};
    ModeloCubo modelo;
    informe(QStringLiteral("cubo de %1 celdas: mover un campo").arg(kHechos),
            mida([&] { modelo.disponga(cubo, d); }), "al instante", kAlInstante, 1);
    d.columnas = {"NIVEL"};
    d.filas = {"PROY", "CENTRO", "CUENTA"};
    d.nivel_filas = 1;
    d.valores = {{"FINAL", MuestraCubo::PorFila}, {"MOVIMIEN"}};
    informe(
        QStringLiteral("cubo de %1 celdas: tres campos en las filas y porcentajes").arg(kHechos),
        mida([&] { modelo.disponga(cubo, d); }), "al instante", kAlInstante, 1);
    informe("cubo: desplegar un nivel", mida([&] {
                modelo.nivel(0);
                modelo.nivel(1);
            }),
            "al instante", kAlInstante, 0.4);
}
