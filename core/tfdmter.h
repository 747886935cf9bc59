#pragma once
// Módulo de datos de terceros: consultas por NIT que usan todas las pantallas.
#include "core/recordset/conjunto.h"

class Tfdmter : public QObject {
    Q_OBJECT
public:
    Tfdmter();
    ~Tfdmter() override;

    QString tercero_seleccion; ///< NIT que una pantalla entrega a otra
    QString nombre_seleccion;  ///< su nombre, para la lista de comprobantes
    bool seleccion_mandante = false; ///< el NIT que venga es el del mandante

    Sentencia TTercero, QTerceros, Ttipoid, TCiudades, TPaises, TDocsterc, QBorrarter;
    Proveedor PConsulta;
    ConjuntoDatos CConsulta;

    bool existe_nit(const QString& nit);
    QString nom_tercero(const QString& nit); ///< vacío si no existe o está inactivo, sin mensaje
    bool valide_tercero(const QString& nit); ///< "Tercero Inactivo o no encontrado."
    /// Dígito de verificación de la DIAN. Lanza ErrorDatos con un carácter que no es cifra.
    static int dv(const QString& nit);

    // terceros con papel de proveedor o cliente
    bool valide_proveedor(const QString& nit);
    QString nombre_proveedor(const QString& nit);
    bool valide_cliente(const QString& nit);
    QString nombre_cliente(const QString& nit);
    QString nombre_empleado(const QString& nit);
};

Tfdmter& fdmter();
