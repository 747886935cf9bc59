#pragma once
// "Recálculo de saldos": rehace los saldos desde una fecha a partir de las líneas, aunque otros
// estén trabajando, y dice qué estaba mal.
#include "exchange/forma_mantenimiento.h"
#include "libro/recalculo.h"

class Tfchequeosaldos : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfchequeosaldos();
    QLineEdit* Fecha; ///< "aaaammdd"

    void FormCreate() override;

protected:
    bool corra() override;

private:
    /// `detenido`: el libro que el usuario no dejó terminar, si alguno.
    void cuente(const QVector<SaldoCorregido>& corregidos, std::optional<Libro> detenido);
};
