#pragma once
// Borrador del comprobante que se digita o se corrige, con lo que su archivo dice de él.
#include "libro/borrador.h"
#include "libro/conjuntos_comprobante.h"
#include "sesion/archivo_borrador.h"

class BorradorVivo : public ArchivoBorrador {
    Q_OBJECT
public:
    /// `dia` da el día digitado; al corregir uno guardado, la huella de como estaba.
    BorradorVivo(const ConjuntosComprobante& conjuntos, const QString& llave,
                 std::function<QString()> dia, QObject* dueno);

    /// Así está en la base: mientras siga igual no hay qué guardar.
    void parta_de(const Comprobante& guardado) { guardado_ = guardado; }
    std::optional<Borrador> tome_huerfano();

    std::function<bool()> hay;        ///< si lo digitado vale la pena; nulo, todo cambio
    std::function<QString()> periodo; ///< "aaaamm" del día digitado; nulo, no hace falta

protected:
    QByteArray contenido() const override;

private:
    Comprobante en_pantalla() const;

    ConjuntosComprobante c_;
    std::function<QString()> dia_;
    std::optional<Comprobante> guardado_;
};

/// Distingue un comprobante guardado de como quede después de cualquier cambio.
QString huella(const Comprobante& comprobante);
