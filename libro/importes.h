#pragma once
// Importes de una línea: lo que se digita, lo que retiene una base y lo que cuadra un libro.
#include "datos/firebird/moneda.h"

#include <QString>
#include <optional>

/// Cómo se entiende un importe digitado o pegado.
struct ImporteLeido {
    enum Clase {
        Bueno,
        NoEsNumero,
        DosLecturas, ///< "1.250": mil doscientos cincuenta, o uno con veinticinco
        NoCabe,      ///< un número de demasiadas cifras enteras
        MuchosDecimales,
    };
    Clase clase = Bueno;
    Moneda valor;   ///< solo si es bueno
    Moneda decimal; ///< con dos lecturas, la del punto como decimal...
    Moneda miles;   ///< ...y la del punto como separador de miles
};
/// Lee el texto; vacío es cero. Dos separadores distintos se entienden por el orden ("1.234,50" y
/// "1,234.50" son lo mismo) y uno repetido separa miles. Un solo separador con tres cifras detrás
/// tiene dos lecturas, salvo que solo una sea posible ("0.250", "1234.500").
ImporteLeido lea_importe(const QString& texto);
/// Un porcentaje: un solo separador siempre es el decimal, que nadie retiene el mil por ciento.
ImporteLeido lea_porcentaje(const QString& texto);
/// El comienzo de un dato largo: entero no deja ver la causa que lo sigue en el mensaje.
QString recortado(const QString& dato);
/// Por qué no sirve lo digitado en la columna de ese rótulo; vacío si sirve.
QString rechazo_de_importe(const ImporteLeido& leido, const QString& texto, const QString& rotulo);

/// Los dos lados de una línea, en pesos.
struct Lados {
    Moneda debito, credito;
    bool operator==(const Lados&) const = default;
};

/// Lo que retiene `base`, sin signo: base × porcentaje ÷ 100 al múltiplo de 10^digito, la mitad al
/// par. Sin `digito`, a centavos.
Moneda retencion(Moneda base, Moneda porcentaje, std::optional<int> digito);
/// Los lados de una línea de retención: la base positiva va al débito, la negativa al crédito. Nada
/// si falta la base o el porcentaje no es positivo.
std::optional<Lados> lados_de_retencion(Moneda base, Moneda porcentaje, std::optional<int> digito);
/// El porcentaje que una base toma de su cuenta; nada si la línea ya tiene uno o la base no llega
/// al mínimo.
std::optional<Moneda> porcentaje_sugerido(Moneda base, Moneda porcentaje, Moneda base_minima,
                                          Moneda porcentaje_cuenta);

/// Lo que cuadra un libro con esas sumas, en la línea que aún no tiene valor.
Lados lados_que_cuadran(Moneda debitos, Moneda creditos);
