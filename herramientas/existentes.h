#pragma once
// Objetos que ya tiene una base: lo que permite repetir un guion sin tocar lo hecho.
#include "datos/firebird/conexion.h"

#include <QSet>

class Existentes {
public:
    explicit Existentes(Conexion& conexion);
    /// Verdadero si la sentencia crea (sin OR ALTER) un objeto que la base ya tiene.
    bool sobra(const QString& sentencia) const;
    /// Anota el objeto que la sentencia acaba de crear.
    void anote(const QString& sentencia);

private:
    static QString objeto_de(const QString& sentencia);

    QSet<QString> nombres_; ///< "CLASE NOMBRE"
};
