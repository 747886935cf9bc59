#pragma once
// Planilla de digitación: qué columnas tiene su hoja y qué comprobante sale de una fila.
#include "libro/comprobante.h"

inline constexpr int kDigitarPlanilla = 30; ///< opción de acceso

/// Una cuenta de la planilla: una columna de importes de la hoja.
struct CuentaPlanilla {
    QString cuenta, titulo;
    bool con_base = false; ///< la línea lleva la base de la fila y el porcentaje de la cuenta
    bool debito = true;
    bool cuadra = false; ///< vacía, toma lo que falte para cuadrar las columnas anteriores
    Moneda porcentaje;   ///< de la cuenta, con sus cuatro decimales
};

struct Planilla {
    qint64 id = 0;
    QString nombre, tipo, prefijo, concepto, nit, proyecto, centro;
    bool pide_fecha = true, pide_tercero = true, pide_centro = true, pide_concepto = false;
    QVector<CuentaPlanilla> cuentas;

    bool con_base() const;
};

namespace columnas_planilla {
inline constexpr const char *kDia = "DIA", *kFecha = "FECHA", *kNumero = "NUMERO",
                            *kTercero = "TERCERO", *kCentro = "CENTRO", *kSubcentro = "SUBCENTRO",
                            *kConcepto = "CONCEPTO", *kBase = " Base > ";
/// "aaaamm" del día de la fila. No se ve; más largo que un título, ninguno puede llamarse así.
inline constexpr const char* kPeriodo = "PERIODO EN EL QUE SE DIGITA LA FILA";
} // namespace columnas_planilla

/// Lo que trae una fila de la hoja.
struct FilaPlanilla {
    QString fecha; ///< "aaaammdd"
    QString numero, nit, proyecto, centro, concepto;
    Moneda base;
    QVector<Moneda> importes; ///< uno por cuenta, en su orden
};

/// El comprobante de una fila, sin id. Una columna en cero que no cuadra no deja línea. Sin
/// tercero, proyecto o centro por fila, los fijos de la planilla.
Comprobante comprobante_de_fila(const Planilla& planilla, const FilaPlanilla& fila);

/// Lee la planilla con sus cuentas; nada si no existe.
std::optional<Planilla> lea_planilla(Conexion& conexion, qint64 id);

/// Por qué un título no sirve para su columna: repetido o igual al de una columna propia de la
/// hoja; vacío si sirve. `otros` son los de las demás cuentas.
QString negativa_de_titulo(const QString& titulo, const QStringList& otros);
