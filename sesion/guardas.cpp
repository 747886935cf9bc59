#include "sesion/guardas.h"

#include <QRegularExpression>

int encienda_guardas(Conexion& conexion) {
    QStringList apagadas;
    {
        const auto c =
            conexion.abra("select trim(rdb$trigger_name) from rdb$triggers where "
                          "rdb$trigger_inactive = 1 and coalesce(rdb$system_flag, 0) = 0");
        while (c->siguiente())
            apagadas << c->valor(0).texto();
    }
    int quedan = 0;
    // El nombre viene de la base y va dentro de una orden: solo uno corriente.
    static const QRegularExpression corriente("^[A-Z0-9_$]+$");
    for (const QString& nombre : apagadas) {
        try {
            if (!corriente.match(nombre).hasMatch())
                ++quedan;
            else
                conexion.ejecute(QStringLiteral("alter trigger %1 active").arg(nombre));
        } catch (const ErrorBase& falla) {
            if (falla.conexion_perdida())
                throw;
            ++quedan;
        }
    }
    return quedan;
}
