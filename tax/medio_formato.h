#pragma once
// Qué escribe cada formato de medios magnéticos: su elemento y sus atributos, en su orden.
//
// Son los anexos técnicos de la información exógena; cada atributo sale de una columna de
// MEDIOS_MAGNETICOS_DATOS y solo si se cumple su condición.
#include <QString>
#include <QVector>
#include <optional>

struct AtributoMedio {
    enum Cuando {
        Siempre,
        Digito,      ///< la columna está entre "0" y "9"
        Lleno,       ///< no está vacía
        RazonSocial, ///< lo está, y no hay primer apellido ni primer nombre
        EnColombia,  ///< el país es el 169
        Fijo,        ///< `columna` es el valor
    };
    QString nombre;
    QString columna;
    Cuando cuando = Siempre;
};

/// Cuál de las sumas es el "ValorTotal": del primer valor, del segundo, de los tipos de documento
/// o de los conceptos.
enum class SumaMedio { Valor1, Valor2, Valor3, Valor4 };

struct FormatoMedio {
    int codigo = 0;   ///< 1001
    QString elemento; ///< "pagos"
    QVector<AtributoMedio> atributos;

    /// La columna aparece en algún atributo.
    bool escribe(const QString& columna) const;
};

/// Nulo si el formato no se escribe en XML. `version` como en el archivo: "08".
std::optional<FormatoMedio> formato_medio(int codigo, const QString& version);

/// La suma del primer archivo, y la de los que siguen cuando no cabe todo en uno: en ellos la
/// versión no cuenta.
SumaMedio suma_del_primero(int codigo, const QString& version);
SumaMedio suma_de_los_demas(int codigo);
