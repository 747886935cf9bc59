#pragma once
// Equivalencias de la exportación: con qué tipo, prefijo y cuenta salen los de la compañía.
#include "datos/firebird/conexion.h"

#include <QHash>

struct PrefijoExportado {
    QString tipo, prefijo;
    bool hay = false; ///< el destino tiene los suyos
};

/// Las dos tablas en memoria. Lo que no tiene equivalencia sale con el código propio.
class Equivalencias {
public:
    explicit Equivalencias(Transaccion& transaccion);
    PrefijoExportado prefijo(const QString& tipo, const QString& prefijo) const;
    QString cuenta(const QString& cuenta) const;

private:
    QHash<QString, PrefijoExportado> prefijos_;
    QHash<QString, QString> cuentas_;
};
