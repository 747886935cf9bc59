#include "toolkit/informes/paginador.h"

namespace informes {

namespace {

constexpr double kHolguraPagina = 0.001; // mm
constexpr double kMinimo = 2;            // mm: no se corta para dejar menos que esto
constexpr double kComienzo = 15;         // mm de un bloque que se corta, para decidir con quién va

bool alto_de_verdad(const Trazo& t) {
    return t.clase == Trazo::Texto || t.clase == Trazo::Imagen;
}

} // namespace

// ---------------------------------------------------------------- corte

double BloqueHoja::corte(double tope, double hoja) const {
    double y = tope;
    for (bool movido = true; movido && y > 0;) {
        movido = false;
        const auto evite = [&](double arriba, double abajo) {
            if (arriba < y - kHolguraPagina && abajo > y + kHolguraPagina) {
                y = arriba;
                movido = true;
            }
        };
        for (const Trazo& t : trazos)
            if (alto_de_verdad(t))
                evite(t.lugar.top(), t.lugar.bottom());
        for (const auto& [arriba, abajo] : indivisibles)
            if (abajo - arriba <= hoja)
                evite(arriba, abajo);
    }
    return y < kMinimo ? 0 : y;
}

BloqueHoja BloqueHoja::divida(double corte) {
    BloqueHoja resto = *this;
    resto.trazos.clear();
    resto.callados.clear();
    resto.indivisibles.clear();
    resto.antes = 0;
    QVector<Trazo> arriba;
    for (Trazo& t : trazos) {
        const double y1 = t.lugar.top(), y2 = t.lugar.top() + t.lugar.height();
        const bool cruza =
            !alto_de_verdad(t) && y1 < corte - kHolguraPagina && y2 > corte + kHolguraPagina;
        if (cruza) { // una caja o una raya vertical sigue en la otra hoja
            Trazo abajo = t;
            abajo.lugar = QRectF(t.lugar.x(), 0, t.lugar.width(), y2 - corte);
            resto.trazos << abajo;
            t.lugar.setHeight(corte - y1);
            arriba << t;
        } else if (y1 < corte - kHolguraPagina) {
            arriba << t;
        } else {
            t.lugar.translate(0, -corte);
            resto.trazos << t;
        }
    }
    for (const auto& [desde, hasta] : indivisibles)
        if (desde >= corte - kHolguraPagina)
            resto.indivisibles << std::pair{desde - corte, hasta - corte};
    trazos = arriba;
    resto.acompanada = false;
    junta = false;
    resto.alto = alto - corte;
    resto.base = qMax(0.0, base - corte);
    alto = base = corte;
    return resto;
}

// ---------------------------------------------------------------- hoja

void Paginador::abra(double arriba, double fondo) {
    inicio_ = y_ = arriba;
    fondo_ = fondo;
}

double Paginador::libre(const BloqueHoja& bloque) const {
    return fondo_ - y_ - (vacia() ? 0 : bloque.antes);
}

void Paginador::ponga(BloqueHoja&& bloque) {
    if (vacia())
        bloque.trazos += std::exchange(bloque.callados, {});
    else
        y_ += bloque.antes;
    const double y = y_;
    y_ += bloque.alto;
    cuerpo_ << Puesto{y, std::move(bloque)};
}

void Paginador::superponga(BloqueHoja&& bloque) {
    if (vacia()) {
        ponga(std::move(bloque));
        return;
    }
    BloqueHoja& debajo = cuerpo_.last().bloque;
    const double baja = debajo.base;
    for (auto [de, a] :
         {std::pair{&bloque.trazos, &debajo.trazos}, {&bloque.callados, &debajo.callados}})
        for (Trazo& t : *de) {
            t.lugar.translate(0, baja);
            *a << t;
        }
    for (const auto& [desde, hasta] : bloque.indivisibles)
        debajo.indivisibles << std::pair{desde + baja, hasta + baja};
    debajo.corta |= bloque.corta;
    if (cuerpo_.size() == 1)
        debajo.trazos += std::exchange(debajo.callados, {});
    if (baja + bloque.alto <= debajo.alto)
        return;
    // Creció por encima del de abajo: los dos se acomodan otra vez.
    Puesto ultimo = cuerpo_.takeLast();
    ultimo.bloque.alto = baja + bloque.alto;
    y_ = vacia() ? inicio_ : ultimo.y - ultimo.bloque.antes;
    coloque(std::move(ultimo.bloque));
}

bool Paginador::pegados(const BloqueHoja& ultimo, const BloqueHoja& siguiente) {
    return siguiente.acompanada || ultimo.junta ||
           (ultimo.escalon > 0 && siguiente.escalon > ultimo.escalon);
}

QVector<BloqueHoja> Paginador::arrastre(const BloqueHoja& bloque) {
    qsizetype desde = cuerpo_.size();
    const double capacidad = fondo_ - inicio_;
    double alto = bloque.corta ? qMin(bloque.alto, kComienzo) : bloque.alto;
    const BloqueHoja* siguiente = &bloque;
    while (desde > 0 && pegados(cuerpo_[desde - 1].bloque, *siguiente)) {
        --desde;
        alto += cuerpo_[desde].bloque.alto + siguiente->antes;
        siguiente = &cuerpo_[desde].bloque;
    }
    QVector<BloqueHoja> movidos;
    // Si todo lo de la hoja tuviera que pasar, o no cupiera junto, no se gana nada.
    if (desde == 0 || alto > capacidad)
        return movidos;
    for (qsizetype i = desde; i < cuerpo_.size(); ++i)
        movidos << std::move(cuerpo_[i].bloque);
    cuerpo_.resize(desde);
    return movidos;
}

void Paginador::coloque(BloqueHoja bloque) {
    if (bloque.superpuesta) {
        superponga(std::move(bloque));
        return;
    }
    while (bloque.alto > libre(bloque) + kHolguraPagina) {
        const double campo = libre(bloque);
        const bool divisible = bloque.corta || bloque.alto > fondo_ - inicio_;
        double corte = divisible ? bloque.corte(campo, fondo_ - inicio_) : 0;
        if (corte <= 0 && vacia()) {
            if (campo < kMinimo)
                break; // los encabezados no dejan campo: sobresale
            corte = campo;
        }
        if (corte > 0) {
            BloqueHoja resto = bloque.divida(corte);
            ponga(std::move(bloque));
            pase_(resto);
            bloque = std::move(resto);
            continue;
        }
        QVector<BloqueHoja> movidos = arrastre(bloque);
        pase_(movidos.isEmpty() ? bloque : movidos.first());
        for (BloqueHoja& m : movidos)
            ponga(std::move(m));
    }
    ponga(std::move(bloque));
}

void Paginador::vuelque() {
    for (const Puesto& p : cuerpo_)
        escriba(p.bloque, p.y);
    cuerpo_.clear();
}

void Paginador::escriba(const BloqueHoja& bloque, double y) {
    for (Trazo t : bloque.trazos) {
        t.lugar.translate(margen_x_, y);
        hojas_.trazo(t);
    }
}

} // namespace informes
