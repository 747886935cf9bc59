#pragma once
// Órdenes de quorvex-admin: cada una con su uso, sus opciones y lo que hace.
#include "herramientas/argumentos.h"
#include "herramientas/instalador.h"
#include "herramientas/ubicacion.h"

#include <QVector>

/// Lo común a todas las órdenes: dónde están las bases y con qué usuario se entra.
class Sesion {
public:
    explicit Sesion(const Argumentos& argumentos);

    const Argumentos& argumentos() const { return argumentos_; }
    const Ubicacion& ubicacion() const { return ubicacion_; }
    ParametrosConexion general() const;
    /// Parámetros de la compañía de --compania; comprueba que esté registrada.
    ParametrosConexion compania() const;
    ParametrosConexion compania(const QString& codigo) const;
    /// Compañías de --compania (separadas por comas), o todas las registradas.
    QStringList codigos() const;

private:
    ParametrosConexion de(const QString& base) const;

    const Argumentos& argumentos_;
    Ubicacion ubicacion_;
    QString usuario_, clave_;
};

struct Orden {
    QString nombre, resumen, uso;
    QStringList con_valor, banderas;
    void (*ejecute)(const Sesion&);
};

QVector<Orden> ordenes_de_bases();
QVector<Orden> ordenes_de_usuarios();
QVector<Orden> ordenes_de_documentos();

/// Renglón en la salida normal.
void diga(const QString& texto);
