#pragma once
// Evaluador de las fórmulas de los informes que define el usuario.
//
// Lee números, nombres, paréntesis, funciones y + - * / ^. De la más débil a la más fuerte: sumas y
// restas; el signo del comienzo de una expresión, que niega todo el primer producto; productos y
// cocientes; potencias, de izquierda a derecha y con un número o un nombre por exponente. Un "-"
// pegado a una cifra, al comienzo o tras "(", es el signo de ese número.
//
//     TCalcExpress e;
//     e.formula("(sf1105+sf1110)*2");
//     e.variables({"SF1105", "SF1110"});
//     e.calcule({10, 20}); // 60
#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>
#include <stdexcept>
#include <vector>

/// Lo que impide evaluar: una división por cero, un desborde, una fórmula sin árbol.
class ErrorCalculo : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class TCalcExpress {
public:
    /// Por qué no se pudo leer la fórmula, y desde qué letra (0 la primera).
    struct Falla {
        qsizetype lugar;
        QString texto;
    };

    /// El separador de decimales es el del sistema mientras no se diga otro.
    explicit TCalcExpress(QChar decimal = {});

    /// Leen la fórmula otra vez. Falso si no se pudo, y queda sin árbol.
    bool formula(const QString& texto);
    bool variables(const QStringList& nombres);
    const std::optional<Falla>& falla() const { return falla_; }
    /// Nombres que la fórmula usa y no están entre las variables, en el orden en que aparecen.
    const QStringList& desconocidos() const { return desconocidos_; }

    /// Aritmética de 80 bits. Un nombre que no es variable vale 0. Lanza ErrorCalculo.
    long double calcule(const QVector<long double>& valores) const;

private:
    class Lector;
    enum class Clase {
        Numero,
        Nombre,
        Opuesto,
        Suma,
        Resta,
        Producto,
        Cociente,
        Potencia,
        Funcion
    };
    struct Nodo {
        Clase clase;
        long double numero = 0;
        int indice = -1; ///< de la variable o de la función
        int a = -1, b = -1;
    };
    bool lea();
    long double valor(int nodo, const QVector<long double>& valores) const;

    QChar decimal_;
    QString texto_;
    QStringList nombres_, desconocidos_;
    std::vector<Nodo> nodos_;
    int raiz_ = -1;
    std::optional<Falla> falla_;
};
