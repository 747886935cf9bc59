#pragma once
// Valor de una columna o de un parámetro: nulo o uno de los tipos que maneja el sistema.
#include "datos/firebird/moneda.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>
#include <variant>

class Valor {
public:
    using Dato =
        std::variant<std::monostate, QString, qint64, Moneda, QDate, QTime, QDateTime, QByteArray>;
    Valor() = default;
    Valor(const QString& v) : dato_(v) {}
    Valor(const char* utf8) : dato_(QString::fromUtf8(utf8)) {}
    Valor(int v) : dato_(qint64(v)) {}
    Valor(qint64 v) : dato_(v) {}
    Valor(Moneda v) : dato_(v) {}
    Valor(QDate v) : dato_(v) {}
    Valor(QTime v) : dato_(v) {}
    Valor(const QDateTime& v) : dato_(v) {}
    Valor(const QByteArray& v) : dato_(v) {}

    bool nulo() const { return std::holds_alternative<std::monostate>(dato_); }
    const Dato& dato() const { return dato_; }
    /// Nulo lee como texto vacío, cero o fecha inválida: el código del sistema cuenta con ello.
    QString texto() const;
    qint64 entero() const;
    Moneda moneda() const;
    QDate fecha() const;
    QTime hora() const;
    QByteArray binario() const;
    bool operator==(const Valor& otro) const = default;
    /// Orden para índices en memoria: nulos primero, luego por tipo natural.
    int compare(const Valor& otro) const;

private:
    Dato dato_;
};

/// El texto vacío, nulo.
inline Valor nulo_si_vacio(const QString& texto) {
    return texto.isEmpty() ? Valor() : Valor(texto);
}

/// Texto entre comillas simples, con las interiores dobladas: todo literal SQL pasa por aquí.
QString QuotedStr(const QString& texto);
/// Primer carácter que ISO 8859-1 no puede guardar, o QChar nulo si todos caben.
QChar caracter_fuera_de_latin1(const QString& texto);
