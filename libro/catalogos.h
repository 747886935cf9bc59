#pragma once
// Lo que el libro pregunta de un código: si existe, si sirve y qué exige. Responde con datos.
#include "datos/firebird/conexion.h"
#include "libro/rechazo.h"

/// Lo que una cuenta exige a sus líneas.
struct AtributosCuenta {
    QString tercero, centro, retencion; ///< "S" lo exige, "N" no lo lleva
    QString clase; ///< "N" normal, "I" inventario, "C" cartera, "A" activo fijo
    Moneda base_minima;
    Moneda porcentaje;   ///< con sus cuatro decimales
    QString equivalente; ///< cuenta NIIF; solo en el plan 2649
    bool activa = true;

    bool exige_tercero() const { return tercero == "S" || retencion == "S"; }
    bool exige_centro() const { return centro == "S"; }
    bool es_retencion() const { return retencion == "S"; }
};

/// Atributos de la cuenta en el plan del libro; nada si no está.
std::optional<AtributosCuenta> atributos_de_cuenta(Conexion& conexion, Libro libro,
                                                   const QString& cuenta);

/// La cuenta puede llevar movimiento, según VALIDE_CUENTA{_NIIF}_C. Una que no existe se ofrece
/// crear. Una inactiva no se rehúsa aquí.
std::optional<Rechazo> revise_cuenta(Conexion& conexion, Libro libro, const QString& cuenta);
/// Nombre de la cuenta; vacío si no existe. Inactiva: vacío, y en `rechazo` la razón.
QString nombre_de_cuenta(Conexion& conexion, Libro libro, const QString& cuenta,
                         std::optional<Rechazo>& rechazo);
/// El nombre con que está en el plan, activa o no; vacío si no está.
QString nombre_en_el_plan(Conexion& conexion, Libro libro, const QString& cuenta);

/// Por qué los saldos iniciales del libro no se pueden cambiar; vacío si se pueden.
QString negativa_de_saldos_iniciales(Conexion& conexion, Libro libro);

/// El tercero existe y está activo.
bool tercero_activo(Conexion& conexion, const QString& nit);
std::optional<Rechazo> revise_tercero(Conexion& conexion, const QString& nit);
/// Nombre del tercero activo, o vacío.
QString nombre_de_tercero(Conexion& conexion, const QString& nit);
/// El rechazo del tercero que no está, con la oferta de crearlo.
Rechazo tercero_no_encontrado(const QString& nit);

/// Nombre del proyecto y del centro dentro de él, o vacío.
QString nombre_de_proyecto(Conexion& conexion, const QString& proyecto);
QString nombre_de_centro(Conexion& conexion, const QString& proyecto, const QString& centro);
/// El centro existe en el proyecto, de cualquier agencia.
std::optional<Rechazo> revise_centro(Conexion& conexion, const QString& proyecto,
                                     const QString& centro);
std::optional<Rechazo> revise_categoria(Conexion& conexion, Libro libro, const QString& codigo);
/// Según la clase de la cuenta: con "A" es un activo fijo, con cualquier otra un artículo.
std::optional<Rechazo> revise_articulo(Conexion& conexion, const QString& clase,
                                       const QString& codigo);
