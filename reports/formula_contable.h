#pragma once
// Cifras de los informes que define el usuario: una fórmula sobre saldos y movimientos de cuentas.
//
// Una referencia son dos letras y la cuenta: "SF1105" es el saldo final de 1105 en el período;
// codigos_de_referencia() dice cuáles hay. Quien imprime da cómo leer la base; estas reglas no
// muestran nada.
#include "datos/firebird/moneda.h"
#include "reports/tcalcexpress.h"

#include <functional>

/// Período del que se leen las cifras, con el comienzo de la contabilidad y el libro.
struct PeriodoFormula {
    int ano = 0;
    int numero = 1; ///< 1 a 13
    int ano_inicio = 0, mes_inicio = 1;
    bool niif = false;
};

/// Dato que imprime un renglón del informe.
struct DatoFormula {
    QString formula;
    QString proyecto, centro; ///< restringen las cuentas si están los dos
    QString operacion;        ///< "+", "-", "*" o "/" con el factor; otra cosa no opera
    Moneda factor;
};

/// Consulta que da el valor de una referencia, y cuál de sus columnas.
struct LecturaDato {
    QString sql;
    int columna = 0;
};

struct CodigoReferencia {
    const char *codigo, *texto;
};
/// Códigos de dos letras con lo que dan, en el orden de la ayuda.
const QVector<CodigoReferencia>& codigos_de_referencia();

/// Trozo de la fórmula que es una cuenta por leer, y dónde empieza.
struct Referencia {
    QString texto;
    qsizetype lugar = 0;
};
/// Referencias que la impresión lee. Un carácter que la lectura no espera (un espacio, una
/// minúscula) la detiene: lo que sigue no se lee y vale 0. `detenida` recibe su lugar, o -1.
QVector<Referencia> referencias_de(const QString& formula, qsizetype* detenida = nullptr);

/// Consulta de una referencia. Lanza ErrorDatos si su código no existe.
LecturaDato lectura_de(const QString& referencia, const QString& proyecto, const QString& centro,
                       const PeriodoFormula& periodo);

/// Lo que está mal en la fórmula, y desde qué letra; nulo si imprime lo que dice. Es para quien la
/// escribe: la impresión no la llama.
std::optional<TCalcExpress::Falla> revise_formula(const QString& formula);

class FormulaContable {
public:
    using Lee = std::function<Moneda(const LecturaDato&)>;

    FormulaContable(const PeriodoFormula& periodo, Lee lea)
        : periodo(periodo), lea_(std::move(lea)) {}

    PeriodoFormula periodo;
    /// Recibe los textos que la impresión muestra sin detenerse.
    std::function<void(const QString&)> avise;

    /// Con cuatro decimales. Una división por cero, un desborde o una fórmula mal escrita valen 0.
    /// Las fallas de lectura salen, y la de un factor que la saca de un importe.
    Moneda evalue_cuenta(const DatoFormula& dato) const;
    Moneda calcule_dato(const QString& referencia, const QString& proyecto,
                        const QString& centro) const;

private:
    void revise(bool leida) const;

    Lee lea_;
};
