#pragma once
// Reparto de bandas ya compuestas en hojas: lo que no cabe pasa a la siguiente con lo que debe
// acompañarlo, y lo que es más alto que una hoja se corta entre renglones.
#include "toolkit/informes/hojas.h"

#include <functional>
#include <memory>

namespace informes {

struct Banda;

/// Fila que se anuncia otra vez en la hoja que empieza con las que cuelgan de ella.
struct Encabezadora {
    const Banda* banda;
    QVector<Valor> fila;
};

/// Una banda compuesta: sus trazos, desde su esquina de arriba.
struct BloqueHoja {
    double alto = 0;
    double base = 0;  ///< el de la plantilla, sin lo que creció: sobre él van las superpuestas
    double antes = 0; ///< en blanco encima, salvo al comienzo de la hoja
    QVector<Trazo> trazos;
    QVector<Trazo> callados; ///< lo que no repite la fila anterior; sale si empieza la hoja
    QVector<std::pair<double, double>> indivisibles; ///< tramos que no se cortan
    bool superpuesta = false;                        ///< va sobre el bloque anterior
    bool junta = false, acompanada = false, corta = false;
    int escalon = 0;         ///< hondura de su fila; 0: no tiene
    int repite = 0;          ///< niveles de grupo que se anuncian otra vez si empieza la hoja
    QVector<Racional> sumas; ///< lo acumulado antes de él, si la hoja lo escribe
    std::shared_ptr<const Encabezadora> cuelga; ///< de la fila que se anuncia si empieza la hoja

    /// Dónde se puede cortar sin pasar de `tope`; 0 si en ninguna parte. Un tramo indivisible solo
    /// se corta si no cabe entero en una `hoja`.
    double corte(double tope, double hoja) const;
    /// Deja aquí lo de arriba del corte y devuelve lo de abajo.
    BloqueHoja divida(double corte);
};

class Paginador {
public:
    /// `pase`: termina la hoja (vuelca el cuerpo con `vuelque`) y abre otra que empieza con ese
    /// bloque.
    using Pase = std::function<void(const BloqueHoja& primero)>;
    Paginador(Hojas& hojas, double margen_x, Pase pase)
        : hojas_(hojas), margen_x_(margen_x), pase_(std::move(pase)) {}

    void abra(double arriba, double fondo);
    void coloque(BloqueHoja bloque);
    /// Escribe el cuerpo de la hoja.
    void vuelque();
    /// Escribe un bloque que no es del cuerpo: un encabezado o un pie.
    void escriba(const BloqueHoja& bloque, double y);
    bool vacia() const { return cuerpo_.isEmpty(); }

private:
    struct Puesto {
        double y;
        BloqueHoja bloque;
    };
    double libre(const BloqueHoja& bloque) const;
    void ponga(BloqueHoja&& bloque);
    void superponga(BloqueHoja&& bloque);
    /// El último bloque de la hoja no se separa del que viene.
    static bool pegados(const BloqueHoja& ultimo, const BloqueHoja& siguiente);
    QVector<BloqueHoja> arrastre(const BloqueHoja& bloque);

    Hojas& hojas_;
    double margen_x_;
    Pase pase_;
    QVector<Puesto> cuerpo_;
    double inicio_ = 0, fondo_ = 0, y_ = 0;
};

} // namespace informes
