#include "reports/formula_contable.h"

#include "datos/firebird/conexion.h"
#include "datos/firebird/racional.h"

#include <QRegularExpression>
#include <cmath>

namespace {

constexpr int kReferencias = 101; // lugares para valores

enum class Familia { Saldo, Movimiento, Base, Neto };
enum class Corre { Nada, Mes, Ano };

struct DatosCodigo {
    const char* codigo;
    Familia familia;
    Corre corre;
    const char* cual; ///< último argumento
    const char* texto;
};

constexpr DatosCodigo kCodigos[] = {
    {"SF", Familia::Saldo, Corre::Nada, "N", "saldo final"},
    {"SM", Familia::Saldo, Corre::Mes, "N", "saldo del mes anterior"},
    {"SA", Familia::Saldo, Corre::Ano, "N", "saldo del año anterior"},
    {"DB", Familia::Movimiento, Corre::Nada, "S", "débitos"},
    {"DM", Familia::Movimiento, Corre::Mes, "S", "débitos del mes anterior"},
    {"DA", Familia::Movimiento, Corre::Ano, "S", "débitos del año anterior"},
    {"CR", Familia::Movimiento, Corre::Nada, "N", "créditos"},
    {"CM", Familia::Movimiento, Corre::Mes, "N", "créditos del mes anterior"},
    {"CA", Familia::Movimiento, Corre::Ano, "N", "créditos del año anterior"},
    {"BA", Familia::Base, Corre::Nada, "", "base"},
    {"PR", Familia::Base, Corre::Nada, "", "porcentaje de la base"},
    {"MV", Familia::Neto, Corre::Nada, "X", "movimiento neto"},
    {"MM", Familia::Neto, Corre::Mes, "", "movimiento neto del mes anterior"},
    {"MA", Familia::Neto, Corre::Ano, "", "movimiento neto del año anterior"},
};

/// Procedimientos de una familia en los dos libros, sin centro y con él.
struct Procedimientos {
    const char *cuenta, *cuenta_niif, *centro, *centro_niif;
};
constexpr Procedimientos kProcedimientos[] = {
    {"saldo_cuenta_mes", "saldo_cuenta_mes_niif", "saldo_centro_mes", "saldo_centro_mes_niif"},
    {"movimiento_cuenta_mes", "movimiento_cuenta_mes_niif", "movimiento_centro_mes",
     "movimiento_centro_mes_n"},
    {"base_cuenta_mes", "base_cuenta_mes_niif", "", ""},
    {"movimiento_neto_cuenta_mes", "movimiento_neto_cuenta_mes_n", "", ""},
};

const DatosCodigo* codigo_de(const QString& referencia) {
    for (const DatosCodigo& d : kCodigos)
        if (referencia.startsWith(QLatin1String(d.codigo)))
            return &d;
    return nullptr;
}

QString codigo_desconocido(const QString& referencia) {
    return QStringLiteral("\"%1\" no empieza por un código de dato conocido (SF, DB, CR...)")
        .arg(referencia);
}

struct AnoMes {
    int ano, mes;
};

/// En el primer año la contabilidad no retrocede de su comienzo. De enero se pasa al mes 0, que es
/// lo que el año traía.
AnoMes corrido(const PeriodoFormula& p, Corre corre) {
    AnoMes r{p.ano, p.numero};
    if (corre == Corre::Ano) {
        if (r.ano > p.ano_inicio)
            --r.ano;
    } else if (corre == Corre::Mes) {
        if (r.ano <= p.ano_inicio) {
            if (r.mes > p.mes_inicio - 1)
                --r.mes;
        } else if (r.mes <= 0) {
            r = {r.ano - 1, 12};
        } else {
            --r.mes;
        }
    }
    return r;
}

Moneda redondeada(long double valor) {
    const long double unidades = std::rint(valor * Moneda::kEscala);
    if (!(std::fabs(unidades) < 0x1p63L))
        throw ErrorCalculo("el resultado no cabe en un importe");
    return Moneda::de_unidades(qint64(unidades));
}

Moneda opere(Moneda valor, const QString& operacion, Moneda factor) {
    if (operacion == QLatin1String("+"))
        return valor + factor;
    if (operacion == QLatin1String("-"))
        return valor - factor;
    if (operacion == QLatin1String("*"))
        return (Racional(valor) * Racional(factor)).redondeado(Moneda::kDecimales);
    if (operacion == QLatin1String("/"))
        return factor.es_cero()
                   ? Moneda()
                   : (Racional(valor) / Racional(factor)).redondeado(Moneda::kDecimales);
    return valor;
}

} // namespace

const QVector<CodigoReferencia>& codigos_de_referencia() {
    static const QVector<CodigoReferencia> codigos = [] {
        QVector<CodigoReferencia> lista;
        for (const DatosCodigo& d : kCodigos)
            lista << CodigoReferencia{d.codigo, d.texto};
        return lista;
    }();
    return codigos;
}

// ---------------------------------------------------------------- lectura de la fórmula

QVector<Referencia> referencias_de(const QString& formula, qsizetype* detenida) {
    static const QString kComienzos = QStringLiteral("SDCMBP");
    static const QString kFinales = QStringLiteral("+-*/)");
    static const QString kSaltan = QStringLiteral("+-*/().0123456789");
    QVector<Referencia> lista;
    if (detenida)
        *detenida = -1;
    qsizetype i = 0;
    while (i < formula.size()) {
        const QChar c = formula[i];
        if (kComienzos.contains(c)) {
            qsizetype fin = i;
            while (fin < formula.size() && !kFinales.contains(formula[fin]))
                ++fin;
            lista << Referencia{formula.mid(i, fin - i), i};
            i = fin + 1;
        } else if (kSaltan.contains(c)) {
            ++i;
        } else {
            if (detenida)
                *detenida = i;
            break;
        }
    }
    return lista;
}

LecturaDato lectura_de(const QString& referencia, const QString& proyecto, const QString& centro,
                       const PeriodoFormula& periodo) {
    const DatosCodigo* codigo = codigo_de(referencia);
    if (!codigo)
        throw ErrorDatos(codigo_desconocido(referencia) + QLatin1Char('.'));
    const bool por_centro = !proyecto.isEmpty() && !centro.isEmpty();
    Familia familia = codigo->familia;
    if (familia == Familia::Neto && *codigo->cual && por_centro)
        familia = Familia::Movimiento;
    const bool acepta_centro = familia == Familia::Saldo || familia == Familia::Movimiento;
    const Procedimientos& p = kProcedimientos[int(familia)];
    const bool con_centro = por_centro && acepta_centro;
    const char* nombre = con_centro ? (periodo.niif ? p.centro_niif : p.centro)
                                    : (periodo.niif ? p.cuenta_niif : p.cuenta);
    const AnoMes cuando = corrido(periodo, codigo->corre);
    QStringList argumentos{QuotedStr(referencia.mid(2))};
    if (con_centro)
        argumentos << QuotedStr(proyecto) << QuotedStr(centro);
    argumentos << QString::number(cuando.ano) << QString::number(cuando.mes);
    if (familia == Familia::Base)
        argumentos << QuotedStr(proyecto) << QuotedStr(centro);
    else if (acepta_centro)
        argumentos << QuotedStr(QLatin1String(codigo->cual));
    return {QStringLiteral("Select * from ") + QLatin1String(nombre) + QLatin1Char('(') +
                argumentos.join(QLatin1Char(',')) + QLatin1Char(')'),
            qstrcmp(codigo->codigo, "PR") == 0 ? 1 : 0};
}

std::optional<TCalcExpress::Falla> revise_formula(const QString& formula) {
    TCalcExpress expresion;
    if (!expresion.formula(formula))
        return expresion.falla();
    qsizetype detenida = -1;
    const QVector<Referencia> referencias = referencias_de(formula, &detenida);
    if (referencias.size() > kReferencias)
        return TCalcExpress::Falla{
            referencias[kReferencias].lugar,
            QStringLiteral("la fórmula no puede llevar más de %1 cuentas").arg(kReferencias)};
    QStringList nombres;
    for (const Referencia& r : referencias) {
        if (!codigo_de(r.texto))
            return TCalcExpress::Falla{r.lugar, codigo_desconocido(r.texto.trimmed())};
        if (r.texto.size() == 2)
            return TCalcExpress::Falla{r.lugar,
                                       QStringLiteral("a %1 le falta la cuenta").arg(r.texto)};
        nombres << r.texto;
    }
    expresion.variables(nombres);
    if (expresion.desconocidos().isEmpty())
        return std::nullopt;
    static const QRegularExpression kBlanco(QStringLiteral("\\s"));
    if (const qsizetype blanco = formula.indexOf(kBlanco); blanco >= 0)
        return TCalcExpress::Falla{blanco,
                                   QStringLiteral("quite el espacio: desde él no se leen cuentas")};
    if (detenida >= 0)
        return TCalcExpress::Falla{detenida,
                                   QStringLiteral("desde \"%1\" no se leen cuentas: los códigos "
                                                  "van en mayúsculas, y las funciones al final")
                                       .arg(formula[detenida])};
    const QString nombre = expresion.desconocidos().constFirst();
    return TCalcExpress::Falla{
        formula.indexOf(nombre, 0, Qt::CaseInsensitive),
        QStringLiteral("\"%1\" no es una cuenta que se lea: valdría 0").arg(nombre.toUpper())};
}

// ---------------------------------------------------------------- cálculo

void FormulaContable::revise(bool leida) const {
    if (!leida && avise)
        avise(QStringLiteral("Error in formula."));
}

Moneda FormulaContable::calcule_dato(const QString& referencia, const QString& proyecto,
                                     const QString& centro) const {
    return lea_(lectura_de(referencia, proyecto, centro, periodo));
}

Moneda FormulaContable::evalue_cuenta(const DatoFormula& dato) const {
    TCalcExpress expresion;
    revise(expresion.formula(dato.formula));
    const QVector<Referencia> referencias = referencias_de(dato.formula);
    if (referencias.size() > kReferencias)
        throw ErrorDatos(QStringLiteral("La fórmula %1 lleva más de %2 cuentas: repártala en dos "
                                        "renglones.")
                             .arg(dato.formula, QString::number(kReferencias)));
    QStringList nombres;
    QVector<long double> valores;
    for (const Referencia& r : referencias) {
        nombres << r.texto;
        valores << static_cast<long double>(
                       calcule_dato(r.texto, dato.proyecto, dato.centro).unidades()) /
                       Moneda::kEscala;
    }
    // La fórmula se lee otra vez, ahora con sus cuentas: si está mal, se avisa otra vez.
    revise(expresion.variables(nombres));
    Moneda valor;
    try {
        valor = redondeada(expresion.calcule(valores));
    } catch (const ErrorCalculo&) {
        valor = Moneda();
    }
    try {
        return opere(valor, dato.operacion, dato.factor);
    } catch (const ErrorMoneda&) {
        throw ErrorDatos(QStringLiteral("La cifra de %1 con su factor no cabe en un importe.")
                             .arg(dato.formula));
    }
}
