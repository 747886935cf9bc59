#pragma once
// Fallas de la capa de datos. El texto es parte del contrato: el módulo de reportes de fallas lo
// clasifica por sus primeras letras ("dbExpress", 18 caracteres de prefijo del servidor, "Fie"...).
#include <QString>
#include <exception>

/// Falla con texto. Quien la atrapa muestra `texto()`.
class ErrorDatos : public std::exception {
public:
    explicit ErrorDatos(QString texto) : texto_(std::move(texto)), utf8_(texto_.toUtf8()) {}
    const QString& texto() const { return texto_; }
    const char* what() const noexcept override { return utf8_.constData(); }

private:
    QString texto_;
    QByteArray utf8_;
};

/// Falla que viene del motor: lleva el código de la base y qué clase de falla es.
class ErrorBase : public ErrorDatos {
public:
    ErrorBase(QString texto, qint64 codigo, bool conflicto, bool perdida)
        : ErrorDatos(std::move(texto)), codigo_(codigo), conflicto_(conflicto), perdida_(perdida) {}
    qint64 codigo() const { return codigo_; }
    /// Otro usuario tocó la misma fila: nada quedó aplicado y se puede intentar de nuevo.
    bool conflicto() const { return conflicto_; }
    /// Se perdió el servidor: la conexión debe soltarse antes de abrirla otra vez.
    bool conexion_perdida() const { return perdida_; }

private:
    qint64 codigo_;
    bool conflicto_;
    bool perdida_;
};

/// Rechazo silencioso de una edición: el mensaje, si lo hubo, ya se mostró.
class EdicionAbortada : public std::exception {
public:
    const char* what() const noexcept override { return "edición abortada"; }
};
