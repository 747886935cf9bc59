#pragma once
// Escribe comprobantes en los dos libros con sentencias preparadas y transacciones por lotes.
#include "datos/firebird/conexion.h"

#include <QDate>
#include <QHash>
#include <QVector>

namespace cuenta_demo {
/// `base` por una tarifa en milésimas de punto (1104 es 1,104 %), en pesos enteros.
Moneda parte(Moneda base, int milesimas);
constexpr int kIva = 19000, kReteCompras = 2500; ///< en milésimas de punto
} // namespace cuenta_demo

struct RenglonDemo {
    QString cuenta;
    Moneda debito, credito;
    QString nit, proyecto, centro, articulo;
    Moneda base, porcentaje;
    QString documento, aplica; ///< número que el renglón abre o al que se aplica
    int tipo_documento = 0;
    QString vence; ///< aaaammdd
};

struct AsientoDemo {
    QString tipo, prefijo = QStringLiteral("0001"), fecha, concepto, nit, nombre;
    QVector<RenglonDemo> renglones;
    /// Renglones del libro NIIF cuando no son los mismos.
    QVector<RenglonDemo> niif;

    /// Un valor negativo va al otro lado; el cero no se escribe.
    void debite(const QString& cuenta, Moneda valor, const RenglonDemo& datos = {});
    void acredite(const QString& cuenta, Moneda valor, const RenglonDemo& datos = {});
};

class LibroDemo {
public:
    explicit LibroDemo(Conexion& conexion);
    ~LibroDemo();

    /// Graba el asiento con el siguiente número de su prefijo y lo devuelve. Lanza ErrorDatos si un
    /// libro no cuadra o no hay renglones: sería un error del generador.
    QString asiente(const AsientoDemo& asiento);
    /// Número que llevará el siguiente de ese prefijo.
    QString proximo(const QString& tipo, const QString& prefijo) const;
    /// Confirma lo que falte.
    void confirme();

    qint64 renglones() const { return renglones_; }

private:
    struct Sentencias;
    void escriba(Preparada& sentencia, qint64 id, const AsientoDemo& asiento,
                 const QVector<RenglonDemo>& renglones);

    Conexion& conexion_;
    std::unique_ptr<Sentencias> s_;
    QHash<QString, int> numeros_;
    qint64 comprobantes_ = 0, renglones_ = 0;
};
