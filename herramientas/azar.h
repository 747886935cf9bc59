#pragma once
// Sorteo propio y repetible: la misma semilla da la misma compañía en cualquier equipo.
#include <QtGlobal>

class Azar {
public:
    explicit Azar(quint64 semilla) : estado_(semilla) {}

    /// Entero entre los dos límites, ambos posibles.
    qint64 entre(qint64 minimo, qint64 maximo) {
        return minimo + qint64(siguiente() % quint64(maximo - minimo + 1));
    }
    /// Verdadero `veces` de cada cien.
    bool sale(int veces) { return entre(1, 100) <= veces; }
    template <class Lista> const auto& elija(const Lista& lista) {
        return lista[typename Lista::size_type(entre(0, qint64(lista.size()) - 1))];
    }

private:
    // splitmix64 (S. Vigna, dominio público): corto y sin ciclos cercanos.
    quint64 siguiente() {
        quint64 z = (estado_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }

    quint64 estado_;
};
