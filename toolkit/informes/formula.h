#pragma once
// Fórmulas y condiciones de una plantilla.
//
// Cifras y textos ('entre comillas'), columnas, `Conexion.COLUMNA`, `@Variable`, + - * / (o × ÷),
// comparaciones (= <> < <= > >=), `y`, `o`, `no` (o `!`), y las funciones:
//     suma(e [, condición])  cuenta([condición])   de las filas del grupo de la banda
//     si(condición, a, b)    abs(e)    redondee(e, decimales)
//     largo(texto)           empieza(texto, comienzo)    termina(texto, final)
// y `#sigue`, cierta cuando un anuncio se repite en otra hoja.
// Una columna nula vale cero al sumar; dividir por cero deja la fórmula sin valor y no imprime
// nada.
#include "datos/firebird/racional.h"
#include "datos/firebird/valor.h"

#include <QVector>

namespace informes {

/// Lo que da una fórmula. Nulo cuenta como cero; SinValor (una división por cero) se contagia.
struct Cifra {
    enum Clase : quint8 { Nulo, SinValor, Numero, Texto } clase = Nulo;
    Racional numero;
    QString texto;
    static Cifra de(const Racional& numero) { return {Numero, numero, {}}; }
    static Cifra de(bool si) { return de(Racional::entero(si)); }
    static Cifra de(const Valor& valor);
    /// Trae algo: ni nulo, ni cero, ni texto vacío.
    bool cierta() const;
    /// El texto con que se compara y se mide.
    QString como_texto() const;
};

/// De dónde toma sus datos una fórmula ya atada.
class ContextoFormula {
public:
    virtual ~ContextoFormula() = default;
    virtual const Valor& columna(int fuente, int columna) const = 0;
    virtual QString variable(const QString& nombre) const = 0;
    virtual Racional acumulado(int numero) const = 0;
};

class Formula {
public:
    enum Op : quint8 {
        Numero,
        Texto,
        Columna,
        Variable,
        Suma,
        Cuenta,
        Mas,
        Menos,
        Por,
        Entre,
        Negativo,
        Igual,
        Distinto,
        Menor,
        MenorIgual,
        Mayor,
        MayorIgual,
        Y,
        O,
        No,
        Si,
        Abs,
        Redondee,
        Largo,
        Empieza,
        Termina
    };
    struct Nodo {
        Op op = Numero;
        int a = -1, b = -1, c = -1; ///< operandos, en el mismo arreglo
        Racional numero;
        QString texto;                            ///< literal, columna o variable
        QString conexion;                         ///< de una columna, si la nombra
        int fuente = -1, columna = -1, suma = -1; ///< cuando ya se ató
    };

    /// Lanza QString con lo que no se entiende.
    static Formula lea(const QString& texto);
    bool vacia() const { return nodos.isEmpty(); }
    bool tiene_sumas() const;
    /// Depende de que el anuncio se repita.
    bool mira_si_sigue() const;
    static inline const QString kSigue = QStringLiteral("#sigue"); ///< como variable
    /// La columna de una fórmula que no es más que ella; nulo si es otra cosa.
    const Nodo* columna_sola() const;
    Cifra evalue(const ContextoFormula& contexto) const;
    bool cierta(const ContextoFormula& contexto) const { return evalue(contexto).cierta(); }
    Cifra evalue(const ContextoFormula& contexto, int nodo) const;

    QVector<Nodo> nodos; ///< la raíz es el último
    QString texto;       ///< como se escribió

private:
    bool hay_suma(int nodo) const;
    Cifra aritmetica(const ContextoFormula& contexto, const Nodo& n) const;
    Cifra funcion(const ContextoFormula& contexto, const Nodo& n) const;
    static bool compare(Op op, const Cifra& a, const Cifra& b);
};

} // namespace informes
