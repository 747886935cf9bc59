#pragma once
// "Falta débito 237,500.00": la diferencia de un libro mientras se digita, junto a sus sumas, que
// van a su mismo paso.
#include "datos/recordset/conjunto.h"

#include <QLabel>
#include <functional>

class EditorNumero;
class LineasCuenta;

/// El ancho de una suma corriente, o el que su cifra necesite.
void ajuste_suma(EditorNumero& suma);

class LetreroDiferencia : public QLabel, private EnlaceDatos {
    Q_OBJECT
public:
    /// Cuenta las líneas que hay, con lo que la que se edita lleva escrito: también el importe a
    /// medio teclear, si ya es uno.
    explicit LetreroDiferencia(LineasCuenta& lineas);

    /// Lo vuelve a decir; lo llama la rejilla con cada tecla.
    void diga();
    /// Lo que dice ahora, con lo que aún no haya alcanzado a mostrar.
    QString dice();
    /// Al cabo de los movimientos, una vez por muchos que sean, si hay líneas.
    std::function<void()> al_reposar;

private:
    /// Muchos avisos seguidos (un pegado) se dicen una sola vez.
    void marque();
    void estado_cambiado() override;
    void fila_actual_cambiada() override { marque(); }
    void campo_cambiado(Campo*) override { marque(); }
    void filas_reiniciadas() override { marque(); }
    void filas_insertadas(int, int) override { marque(); }
    void filas_borradas(int, int) override { marque(); }
    void fila_modificada(int) override { marque(); }

    LineasCuenta& lineas_;
    bool pendiente_ = false;
};
