#pragma once
// Estados con los terceros o los centros de cada cuenta: balances y resultados comparten columnas,
// consulta y opciones.
#include "reports/forma_estado.h"

class QButtonGroup;
class QGroupBox;

/// De los estados de resultados: el rango que pide la base, '4' a '8', trae también las cuentas de
/// orden deudoras, que no son del resultado.
void deje_solo_resultados(ConjuntoDatos& conjunto);

class FormaConTerceros : public FormaEstado {
    Q_OBJECT
public:
    explicit FormaConTerceros(const DatosRango& datos);

    QCheckBox* cknombre; ///< "Ordenar por nombre"

protected:
    /// Las columnas; las del contacto del tercero y NIVEL solo van en los balances.
    void defina_columnas(bool con_contacto);
    /// `cuentas`: los dos límites de cuenta, ya como literales.
    QString consulta(const QString& cuentas, bool sin_movimiento) const;
};

class FormaConCentros : public FormaEstado {
    Q_OBJECT
public:
    explicit FormaConCentros(const DatosRango& datos);

    QGroupBox* RgOrden; ///< "&Cuenta-Centro" o "C&entro-Cuenta"

    void FormCreate() override;

protected:
    void defina_columnas(bool con_movimiento);
    /// La de los saldos; `solo_movidas` deja las filas con saldo o movimiento.
    QString consulta(const QString& cuentas, bool solo_movidas) const;
    bool por_centro() const;

private:
    QButtonGroup* orden_;
};
