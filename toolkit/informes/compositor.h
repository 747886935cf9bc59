#pragma once
// Compositor: recorre las filas una vez y reparte las bandas de un reporte en hojas.
//
// Por fila: si cambió algún grupo, los totales de adentro hacia afuera y los anuncios de afuera
// hacia adentro; luego el detalle. Lo que no cabe pasa a otra hoja, con los encabezados y los
// grupos que se repiten. Los totales leen la última fila de su grupo y los anuncios la primera.
// Después de las filas del reporte van las de sus secciones.
#include "toolkit/informes/dibujante.h"

#include <functional>

namespace informes {

class Compositor {
public:
    /// Se llama al empezar cada hoja con su número; falso abandona el informe.
    using Avance = std::function<bool(int pagina)>;

    /// Lanza ErrorInforme si la plantilla nombra una conexión o una columna que no existe.
    Compositor(const Proyecto& proyecto, const Reporte& reporte, const Variables& variables,
               const Fuentes& fuentes, Hojas& hojas);
    /// De un reporte que solo lee su conexión.
    Compositor(const Proyecto& proyecto, const Reporte& reporte, const Variables& variables,
               DatosInforme& datos, Hojas& hojas);

    /// Las hojas siguen la numeración de las que ya hay.
    bool sigue_documento = false;
    /// Falso si se abandonó.
    bool componga(const Avance& avance = {});

private:
    void recorra();
    void comience_seccion();
    void cierre_grupos(int nivel);
    void abra_grupos(int nivel);
    void detalle();
    void finales();

    void pase(const BloqueHoja& primero);
    void hoja_nueva(int grupos_hasta, const Encabezadora* cuelga = nullptr);
    /// Si la fila en curso encabeza a las que siguen, queda anotada.
    bool encabeza();
    void termine_hoja();
    void fija(const Banda& banda, bool sigue = false);
    void coloque(const Banda& banda, int repite);
    /// Las de la sección que no están por fuera y se imprimen con la fila en curso; `nivel`
    /// negativo, las de cualquiera.
    template <class F> void con_bandas(TipoBanda tipo, int nivel, F f);

    const Variables& variables_;
    Fuentes fuentes_;
    Reporte reporte_;
    Hojas& hojas_;
    DatosReporte datos_;
    Dibujante dibujante_;
    Paginador paginador_;
    Avance avance_;
    int seccion_ = 0;
    bool abandonado_ = false;
    bool hubo_grupo_ = false;
    bool sumas_en_hoja_ = false; ///< algo de la hoja lleva lo acumulado
    std::shared_ptr<const Encabezadora> encabezadora_;
    double y_ = 0;    ///< por dónde van los encabezados
    double baja_ = 0; ///< dónde se superpone una banda sin alto
    bool en_hoja_ = false, primera_hoja_ = true;
};

} // namespace informes
