#include "toolkit/informes/compositor.h"

#include <QScopedValueRollback>

namespace informes {

namespace {
constexpr int kNiveles = 9;
constexpr int kSinRomper = 99;

bool es_de_hoja(const Banda& b) {
    return b.tipo == TipoBanda::Encabezado || b.tipo == TipoBanda::Columnas ||
           b.tipo == TipoBanda::Pie;
}
} // namespace

Compositor::Compositor(const Proyecto& proyecto, const Reporte& reporte, const Variables& variables,
                       const Fuentes& fuentes, Hojas& hojas)
    : variables_(variables), fuentes_(fuentes), reporte_(reporte), hojas_(hojas),
      datos_(proyecto, reporte_, variables_, fuentes_),
      dibujante_(proyecto, reporte_.papel, variables_, datos_, hojas_),
      paginador_(hojas_, reporte_.papel.margen_x,
                 [this](const BloqueHoja& primero) { pase(primero); }) {
    for (const Banda& b : reporte_.bandas) {
        sumas_en_hoja_ |= !b.omitida && b.trae_lo_que_lleva();
        for (const Item& i : b.items)
            sumas_en_hoja_ |= es_de_hoja(b) && !b.omitida && i.formula.tiene_sumas();
    }
}

Compositor::Compositor(const Proyecto& proyecto, const Reporte& reporte, const Variables& variables,
                       DatosInforme& datos, Hojas& hojas)
    : Compositor(proyecto, reporte, variables, Fuentes{{reporte.conexion().toUpper(), &datos}},
                 hojas) {}

template <class F> void Compositor::con_bandas(TipoBanda tipo, int nivel, F f) {
    for (const Banda& b : reporte_.bandas)
        if (b.tipo == tipo && (nivel < 0 || b.nivel == nivel) && !b.omitida &&
            b.seccion == seccion_ && dibujante_.visible(b))
            f(b);
}

// ---------------------------------------------------------------- filas

bool Compositor::componga(const Avance& avance) {
    avance_ = avance;
    if (!sigue_documento)
        hojas_.comience_documento();
    datos_.comience();
    for (seccion_ = 0; seccion_ < reporte_.secciones.size() && !abandonado_; ++seccion_) {
        datos_.seccion(seccion_);
        if (seccion_ == 0)
            hoja_nueva(0);
        recorra();
    }
    if (!abandonado_)
        termine_hoja();
    return !abandonado_;
}

void Compositor::recorra() {
    hubo_grupo_ = false;
    encabezadora_.reset();
    dibujante_.olvide_ultimos();
    bool hay = datos_.hay();
    if (hay && seccion_ > 0)
        comience_seccion();
    if (hay)
        abra_grupos(1);
    while (hay && !abandonado_) {
        detalle();
        datos_.acumule();
        hay = datos_.siguiente();
        if (!hay) {
            cierre_grupos(1);
        } else if (const int nivel = datos_.nivel_roto(); nivel < kSinRomper) {
            cierre_grupos(nivel);
            abra_grupos(nivel);
        }
    }
    if (!abandonado_)
        finales();
    dibujante_.resuelva(0);
}

void Compositor::comience_seccion() {
    if (reporte_.secciones[seccion_].pagina_nueva) {
        primera_hoja_ = true;
        hoja_nueva(0);
        return;
    }
    // Sin hoja propia, su título y sus columnas van a continuación y no quedan al pie.
    for (const TipoBanda tipo : {TipoBanda::Titulo, TipoBanda::Columnas})
        con_bandas(tipo, -1, [this](const Banda& b) {
            BloqueHoja bloque = dibujante_.componga(b);
            bloque.junta = true;
            paginador_.coloque(std::move(bloque));
        });
}

void Compositor::coloque(const Banda& banda, int repite) {
    BloqueHoja bloque = dibujante_.componga(banda);
    bloque.repite = repite;
    if (sumas_en_hoja_)
        bloque.sumas = datos_.sumas();
    paginador_.coloque(std::move(bloque));
}

void Compositor::cierre_grupos(int nivel) {
    // De adentro hacia afuera, en el orden inverso de sus niveles. Si alguno pasa de hoja, el grupo
    // que se anuncia otra vez es el que termina, no el que sigue.
    datos_.cambie_filas();
    for (int n = kNiveles; n >= nivel; --n) {
        con_bandas(TipoBanda::Total, n, [&](const Banda& b) { coloque(b, n); });
        dibujante_.resuelva(n);
        datos_.borre_sumas(n);
    }
    datos_.cambie_filas();
}

void Compositor::abra_grupos(int nivel) {
    encabezadora_.reset();
    dibujante_.olvide_ultimos();
    bool otra_hoja = false, numera = false, hay = false;
    con_bandas(TipoBanda::Grupo, -1, [&](const Banda& b) {
        if (b.nivel < nivel)
            return;
        hay = true;
        otra_hoja |= (b.pagina_nueva || b.numera) && hubo_grupo_;
        numera |= b.numera && hubo_grupo_;
    });
    if (!hay)
        return;
    hubo_grupo_ = true;
    if (otra_hoja) {
        termine_hoja();
        if (numera)
            hojas_.comience_documento();
        hoja_nueva(nivel - 1);
    }
    for (int n = nivel; n <= kNiveles; ++n)
        con_bandas(TipoBanda::Grupo, n, [&](const Banda& b) { coloque(b, n - 1); });
}

bool Compositor::encabeza() {
    for (const Banda& b : reporte_.bandas)
        if (!b.encabeza.vacia() && !b.omitida && b.seccion == seccion_ &&
            b.encabeza.cierta(datos_)) {
            encabezadora_ = std::make_shared<Encabezadora>(Encabezadora{&b, datos_.fila()});
            return true;
        }
    return false;
}

void Compositor::detalle() {
    const bool encabezado = encabeza();
    con_bandas(TipoBanda::Detalle, -1, [&](const Banda& b) {
        datos_.en_detalle = true;
        BloqueHoja bloque = dibujante_.componga(b);
        datos_.en_detalle = false;
        bloque.repite = kNiveles;
        if (!encabezado)
            bloque.cuelga = encabezadora_;
        if (sumas_en_hoja_)
            bloque.sumas = datos_.sumas();
        paginador_.coloque(std::move(bloque));
    });
}

void Compositor::finales() {
    for (const Banda& b : reporte_.bandas)
        if (b.tipo == TipoBanda::Final && b.tras == seccion_ && !b.omitida && dibujante_.visible(b))
            coloque(b, 0);
}

// ---------------------------------------------------------------- hojas

void Compositor::pase(const BloqueHoja& primero) {
    if (!sumas_en_hoja_) {
        hoja_nueva(primero.repite, primero.cuelga.get());
        return;
    }
    // La hoja termina con lo acumulado antes de lo que pasa a la otra.
    const QVector<Racional> ahora = datos_.sumas();
    datos_.sumas(primero.sumas.isEmpty() ? ahora : primero.sumas);
    hoja_nueva(primero.repite, primero.cuelga.get());
    datos_.sumas(ahora);
}

void Compositor::fija(const Banda& banda, bool sigue) {
    const BloqueHoja bloque = dibujante_.componga(banda, sigue);
    paginador_.escriba(bloque, bloque.superpuesta ? baja_ : y_);
    if (bloque.superpuesta)
        return;
    baja_ = y_ + bloque.base;
    y_ += bloque.alto;
}

void Compositor::hoja_nueva(int grupos_hasta, const Encabezadora* cuelga) {
    termine_hoja();
    if (avance_ && !avance_(hojas_.paginas() + 1))
        abandonado_ = true; // lo que falte de esta fila se compone en una hoja que nadie verá
    hojas_.comience_pagina(reporte_.papel);
    en_hoja_ = true;
    baja_ = y_ = reporte_.papel.margen_y;
    double fondo = reporte_.papel.alto - reporte_.papel.margen_y;
    for (const Banda& b : reporte_.bandas) {
        if (b.omitida || !es_de_hoja(b))
            continue;
        if (b.tipo == TipoBanda::Encabezado && dibujante_.visible(b))
            fija(b);
        else if (b.tipo == TipoBanda::Pie)
            fondo -= b.alto;
    }
    if (std::exchange(primera_hoja_, false))
        con_bandas(TipoBanda::Titulo, -1, [this](const Banda& b) { fija(b); });
    con_bandas(TipoBanda::Columnas, -1, [this](const Banda& b) { fija(b); });
    {
        const QScopedValueRollback<bool> repetida(datos_.sigue, true);
        for (int n = 1; n <= grupos_hasta; ++n)
            con_bandas(TipoBanda::Grupo, n, [&](const Banda& b) {
                if (b.repite)
                    fija(b, true);
            });
    }
    if (cuelga) {
        datos_.fila_guardada = &cuelga->fila;
        fija(*cuelga->banda, true);
        datos_.fila_guardada = nullptr;
    }
    paginador_.abra(y_, fondo);
}

void Compositor::termine_hoja() {
    if (!en_hoja_)
        return;
    paginador_.vuelque();
    double y = reporte_.papel.alto - reporte_.papel.margen_y;
    for (const Banda& b : reporte_.bandas)
        if (b.tipo == TipoBanda::Pie && !b.omitida)
            y -= b.alto;
    for (const Banda& b : reporte_.bandas)
        if (b.tipo == TipoBanda::Pie && !b.omitida) {
            if (dibujante_.visible(b))
                paginador_.escriba(dibujante_.componga(b), y);
            y += b.alto;
        }
    hojas_.termine_pagina();
    en_hoja_ = false;
}

} // namespace informes
