#pragma once
// Pantalla de dos rejillas unidas: a la izquierda los registros maestros y a la derecha los
// detalles del que está señalado. Todo se graba junto, en una sola transacción.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/columna_rejilla.h"

class BarraBotones;
class QLabel;
class Rejilla;
class QWidget;

class MaestroDetalle : public Pantalla {
    Q_OBJECT
public:
    bool FormClose() override;

protected:
    /// `maestro` y `detalle` son los nombres de los conjuntos; el detalle queda anidado.
    MaestroDetalle(const QString& clase, const QString& titulo, const QString& proveedor,
                   Sentencia& sentencia, unsigned opciones, const QString& maestro,
                   const QString& detalle, Sentencia& sentencia_detalle);
    struct Lado {
        QString titulo;
        QVector<DefinicionColumna> columnas;
        int parte;                 ///< proporción del ancho
        QWidget* debajo = nullptr; ///< otro control, al pie de la rejilla
        QWidget* arriba = nullptr; ///< otro, junto al navegador
    };
    /// Arma rejillas, navegadores y barra cuando los campos ya están definidos. La barra queda sin
    /// botones: cada pantalla pone los suyos.
    void arme(const Lado& izquierda, const Lado& derecha);
    /// Botón de escoger y doble clic en cualquiera de las rejillas; F12 pasa de una a la otra.
    void escoja_con(std::function<void()> escoja);
    /// Se abrió para escoger: Enter pasa del maestro a su detalle y en él escoge, teclear ubica en
    /// vez de escribir y un renglón dice las teclas.
    void como_selector();
    void cancele_y_cierre();

    Proveedor* proveedor_;
    ConjuntoDatos *maestro_, *detalle_;
    Rejilla *DBGridEh1 = nullptr, *DBGridEh2 = nullptr;
    BarraBotones* barra_ = nullptr;

private:
    std::function<void()> escoja_;
    QLabel* teclas_selector_ = nullptr;
    Rejilla* rejilla(const QString& nombre, ConjuntoDatos* conjunto, const Lado& lado,
                     QWidget* marco);
};
