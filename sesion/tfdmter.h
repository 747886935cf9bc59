#pragma once
// Módulo de datos de terceros: consultas por NIT que usan todas las pantallas.
#include "datos/recordset/conjunto.h"

class Tfdmter : public QObject {
    Q_OBJECT
public:
    Tfdmter();
    ~Tfdmter() override;

    Sentencia TTercero, QTerceros, Ttipoid, TCiudades, TPaises, TDocsterc, QBorrarter;
    Proveedor PConsulta;
    ConjuntoDatos CConsulta;

    bool existe_nit(const QString& nit);
    QString nom_tercero(const QString& nit); ///< vacío si no existe o está inactivo, sin mensaje
    bool valide_tercero(const QString& nit); ///< "Tercero Inactivo o no encontrado."
    /// Dígito de verificación de la DIAN. Lanza ErrorDatos con un carácter que no es cifra.
    static int dv(const QString& nit);

    /// Tarifas de retención de un tercero, en porcentaje.
    struct Retenciones {
        Moneda fuente, iva, ica, cree;
    };
    // terceros activos con papel de proveedor, cliente, empleado o conductor; callados: sin fila
    // dan vacío, cero o falso
    bool valide_proveedor(const QString& nit);
    QString nombre_proveedor(const QString& nit);
    /// Como valide_proveedor, y deja sus tarifas.
    bool valide_proveedor_ret(const QString& nit, Retenciones& tarifas);
    bool base_rtfte(const QString& nit); ///< se le retiene en la fuente solo desde la base mínima
    bool base_rtica(const QString& nit); ///< lo mismo con el ICA
    bool valide_cliente(const QString& nit);
    QString nombre_cliente(const QString& nit);
    bool valide_retenCartera(const QString& nit, Retenciones& tarifas); ///< las de un cliente
    bool base_rtfte_cli(const QString& nit);  ///< el cliente retiene solo desde la base mínima
    Moneda descuento_max(const QString& nit); ///< porcentaje
    Moneda cupo_credito(const QString& nit);  ///< pesos
    QString cobrador_cliente(const QString& nit);
    QString nombre_empleado(const QString& nit);
    bool valide_conductor(const QString& nit);
    QString nombre_conductor(const QString& nit);
    /// Cliente que no es además proveedor.
    bool valide_solocliente(const QString& nit);
    /// Cliente al que se le puede vender a crédito: activo también en su ficha de cartera.
    bool valide_clientCartera(const QString& nit);
    /// Tarifas del tercero como proveedor y, si no lo es, como cliente.
    bool valide_retenciones(const QString& nit, Retenciones& tarifas);
    QString nombre_vendedor(const QString& codigo); ///< por NIT o por su código de empleado
    /// Pesos: último precio sin descuento, por unidad, de la compra contabilizada a ese proveedor;
    /// cero si nunca se le compró.
    Moneda precio_proveedor(const QString& nit, const QString& articulo);
    /// Pesos: saldo de los documentos del cliente que vencieron antes de `fecha`, "aaaammdd".
    Moneda cartera_vencida_cliente(const QString& nit, const QString& fecha);
};

Tfdmter& fdmter();
