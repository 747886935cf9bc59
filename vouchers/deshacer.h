#pragma once
// Un paso atrás: cómo estaba el comprobante antes de lo último que se pegó o se trajo.
#include "libro/conjuntos_comprobante.h"

class Deshacer {
public:
    explicit Deshacer(const ConjuntosComprobante& conjuntos) : c_(conjuntos) {}

    /// Corre `cambio` y recuerda cómo estaba todo antes. `que` es como se nombra: "lo pegado".
    void con(const QString& que, const std::function<void()>& cambio);
    /// Otro comprobante, o uno ya grabado: no hay a qué volver.
    void olvide() { antes_.reset(); }
    bool hay() const { return antes_.has_value(); }
    const QString& que() const { return que_; }
    /// Después se cambió algo más, que también se perdería.
    bool hubo_mas_cambios() const;
    /// Deja las líneas de los dos libros y el encabezado como estaban. Una sola vez.
    void deshaga();

private:
    ConjuntosComprobante c_;
    std::optional<Comprobante> antes_;
    Comprobante despues_;
    QString que_;
};
