#pragma once
// Base de los balances que llegan hasta un nivel de cuentas y abren las consultas de la escogida.
#include "ledger/consultaperiodo.h"

class BarraBotones;

class BalancePorNiveles : public ConsultaPeriodo {
public:
    BalancePorNiveles(const QString& clase, const QString& titulo);

    void FormCreate() override;

    int nivel() const { return nivel_; }
    void BitBtn2Click(); ///< Menos detalle
    void BitBtn3Click(); ///< Más detalle

protected:
    /// Lee el balance hasta el nivel que quedó.
    virtual void nivel_cambiado() = 0;
    /// Abre la pantalla en la cuenta. Falso, con la razón en la barra, si no lleva movimiento.
    bool consulte(Libro libro, const QString& codigo, const char* pantalla);
    /// Menos y más detalle, con sus teclas; van de últimos, antes del de salir.
    void botones_de_detalle(BarraBotones& barra);

    bool por_recalcular_ = true; ///< el libro o el período cambiaron desde la última lectura

private:
    int nivel_ = 0;
};
