#pragma once
// Códigos con su nombre, en memoria, para completar lo que se va tecleando.
#include <QString>
#include <QVector>

/// Lo que se ofrece bajo la celda.
struct Sugerencia {
    QString codigo, nombre;
};

class IndiceCodigos {
public:
    void vacie() { filas_.clear(); }
    void agregue(const QString& codigo, const QString& nombre);
    /// Después de agregar: deja las filas en el orden de su código.
    void ordene();
    int cuantos() const { return int(filas_.size()); }
    /// Los que empiezan por lo tecleado y, después, aquellos en que cada palabra tecleada comienza
    /// una de su nombre, sin mirar tildes ni mayúsculas. Nada si lo tecleado es una orden de celda
    /// ("?", la comilla) o ya es el único código posible.
    QVector<Sugerencia> busque(const QString& tecleado, int tope = 12) const;

private:
    struct Fila {
        Sugerencia s;
        QString llano; ///< " banco de bogota": cada palabra tras un blanco
    };
    QVector<Fila> filas_;
};
