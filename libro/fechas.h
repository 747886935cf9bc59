#pragma once
// Fechas del libro: texto "aaaammdd" con mes 01 a 12, 13 los ajustes y 14 el cierre.
#include "libro/rechazo.h"

/// Lo que la compañía decide de todo comprobante. La sesión lo lee de su configuración.
struct AjustesLibro {
    bool permite_descuadre = false;
    int digito_redondeo = 0; ///< potencia de diez a que se redondea lo retenido; -2 son centavos
    /// Bloqueos, "aaaammdd"; vacíos no bloquean. Una fecha igual al bloqueo está bloqueada.
    QString bloqueo_2649, bloqueo_niif, bloqueo_administrativo;

    const QString& bloqueo(Libro libro) const {
        return es_niif(libro) ? bloqueo_niif : bloqueo_2649;
    }
};

inline constexpr int kLargoPeriodo = 6; ///< de "aaaamm"
inline constexpr int kMesAjustes = 13;

/// Último día del mes 1 a 14. Febrero tiene 29 en los años múltiplos de cuatro, sin más prueba.
int dias_del_mes(int ano, int mes);

struct FechaCompuesta {
    QString fecha;          ///< "aaaammdd"
    bool corregida = false; ///< el día pasaba del último del mes y quedó en él
};
FechaCompuesta componga_fecha(int ano, int mes, int dia);

/// La fecha tiene la forma debida y existe.
std::optional<Rechazo> revise_fecha(const QString& fecha);
/// La fecha no cae en lo bloqueado de todos los módulos.
std::optional<Rechazo> revise_bloqueo_administrativo(const QString& fecha,
                                                     const AjustesLibro& ajustes);
/// La fecha no cae en lo bloqueado del libro, que tiene su propia llave.
std::optional<Rechazo> revise_bloqueo(const QString& fecha, Libro libro,
                                      const AjustesLibro& ajustes);
