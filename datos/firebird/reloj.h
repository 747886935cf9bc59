#pragma once
// La fecha y la hora del sistema. Todo el producto las toma de aquí: una prueba, o quien reproduce
// una falla de otro día, lo detiene en un instante.
#include <QDateTime>

class Reloj {
public:
    QDateTime ahora() const;
    QDate hoy() const { return ahora().date(); }
    /// Queda marcando ese instante.
    void detenga(const QDateTime& instante) { detenido_ = instante; }
    /// Vuelve a la hora del equipo.
    void siga() { detenido_ = {}; }

private:
    QDateTime detenido_;
};

/// El del proceso.
Reloj& reloj();
