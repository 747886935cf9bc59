#pragma once
// Documentos por cobrar y por pagar que un tercero tiene abiertos en el libro.
#include "datos/firebird/conexion.h"
#include "libro/libro.h"

#include <QVector>

struct DocumentoAbierto {
    qint64 tipo = 0;     ///< TIDO_COD; 0 si nadie lo dijo
    QString nombre_tipo; ///< nombre corto
    QString numero;
    QString cuenta;
    QString fecha; ///< "aaaammdd" de la línea que lo abrió; vacío si viene de los saldos iniciales
    QString vence; ///< "aaaammdd"; vacío si no lo dijo
    Moneda saldo;  ///< pesos; positivo si nos deben, negativo si debemos
};

/// Los del tercero con saldo distinto de cero en las cuentas de clase C de ese libro, del que vence
/// primero al último. Un documento es un tipo, un número y una cuenta: nace en la línea que lo abre
/// o en los saldos iniciales, y baja con las que se le aplican.
QVector<DocumentoAbierto> documentos_abiertos(Conexion& conexion, Libro libro, const QString& nit);
