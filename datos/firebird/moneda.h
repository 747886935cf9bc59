#pragma once
// Importes exactos del sistema: punto fijo de cuatro decimales sobre 64 bits.
//
// Unidades: pesos. Rango: ±922.337.203.685.477,5807. Toda operación que se sale del rango lanza
// ErrorMoneda en vez de dar la vuelta. Ningún camino del libro usa coma flotante.
#include <QString>
#include <compare>
#include <optional>
#include <stdexcept>
#include <type_traits>

class ErrorMoneda : public std::runtime_error {
public:
    explicit ErrorMoneda(const char* texto) : std::runtime_error(texto) {}
};

enum class Redondeo { MitadPar, MitadArriba };

class Moneda {
public:
    static constexpr qint64 kEscala = 10000;
    static constexpr int kDecimales = 4;

    constexpr Moneda() = default;
    /// Pesos enteros.
    Moneda(int pesos) : unidades_(qint64(pesos) * kEscala) {}
    /// Un número más ancho, o con decimales, se recortaría sin decirlo.
    template <class T, class = std::enable_if_t<std::is_floating_point_v<T> ||
                                                (std::is_integral_v<T> && sizeof(T) > sizeof(int))>>
    Moneda(T) = delete;
    static constexpr Moneda de_unidades(qint64 diezmilesimas) {
        Moneda m;
        m.unidades_ = diezmilesimas;
        return m;
    }
    /// Entero `valor` con `decimales` cifras decimales (0 a 9), como lo entrega la base de datos.
    static Moneda de_escalado(qint64 valor, int decimales);
    /// Lee "1234.5", "-1,234.50" (la coma separa miles) o "1234,5" sin punto. Vacío es cero.
    /// Lanza ErrorMoneda si el texto no es un número o trae más de cuatro decimales distintos de
    /// cero.
    static Moneda de_texto(const QString& texto);
    static std::optional<Moneda> intente(const QString& texto);

    constexpr qint64 unidades() const { return unidades_; }
    /// Valor llevado a `decimales` cifras, mitad al par; la forma que recibe la base de datos.
    qint64 escalado(int decimales) const;
    constexpr bool es_cero() const { return unidades_ == 0; }
    constexpr bool negativa() const { return unidades_ < 0; }
    Moneda absoluta() const;
    Moneda redondeada(int decimales, Redondeo modo = Redondeo::MitadPar) const;
    /// Redondea al múltiplo de 10^digito, la mitad al par: 0 unidades, 2 centenas, -2 centavos.
    /// Es la regla de los renglones con base y porcentaje: `base` × `porcentaje` ÷ 100.
    static Moneda porcentaje_redondeado(Moneda base, Moneda porcentaje, int digito);
    /// base × porcentaje ÷ 100, a dos decimales, mitad al par.
    static Moneda porcentaje(Moneda base, Moneda porcentaje);

    /// Mínimo de decimales: "1250", "1250.5". Sirve de texto de comparación y de literal SQL.
    QString texto() const;
    /// "1,250.00": dos decimales y miles, el formato "#,###.00" de las pantallas.
    QString formateada(int decimales = 2) const;

    Moneda operator-() const;
    Moneda operator+(Moneda otra) const;
    Moneda operator-(Moneda otra) const;
    Moneda& operator+=(Moneda otra) { return *this = *this + otra; }
    Moneda& operator-=(Moneda otra) { return *this = *this - otra; }
    constexpr auto operator<=>(const Moneda&) const = default;

private:
    qint64 unidades_ = 0;
};
