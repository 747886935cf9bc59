#pragma once
// "Falta débito 237,500.00": la diferencia de un libro mientras se digita, junto a sus sumas.
#include "datos/recordset/conjunto.h"

#include <QLabel>

class LineasCuenta;

class LetreroDiferencia : public QLabel, private EnlaceDatos {
    Q_OBJECT
public:
    /// Cuenta las líneas que hay, con lo que la que se edita lleva escrito: también el importe a
    /// medio teclear, si ya es uno.
    explicit LetreroDiferencia(LineasCuenta& lineas);

    /// Lo vuelve a decir; lo llama la rejilla con cada tecla.
    void diga();

private:
    void estado_cambiado() override { diga(); }
    void campo_cambiado(Campo*) override { diga(); }
    void filas_reiniciadas() override { diga(); }
    void filas_insertadas(int, int) override { diga(); }
    void filas_borradas(int, int) override { diga(); }
    void fila_modificada(int) override { diga(); }

    LineasCuenta& lineas_;
};
