#include "bench/copia.h"

#include "bench/medidas.h"
#include "datos/firebird/servicios.h"

#include <QFile>

Copia::Copia() : lugar(carpeta.path()) {
    const Ubicacion origen(demostracion(100000));
    lugar.prepare_carpeta(lugar.base_compania("001"));
    QFile::copy(origen.base_general(), lugar.base_general());
    QFile::copy(origen.base_compania("001"), lugar.base_compania("001"));
    // Sin esperar al disco: la espera es igual para todos y taparía la diferencia.
    ponga_escritura_inmediata({lugar.base_compania("001"), "SYSDBA", {}}, false);
}

QString cuenta_afectable(Conexion& c, bool con_tercero) {
    return c
        .consulte(QStringLiteral("select first 1 d.cuen_cod from comprobante_detalle d join "
                                 "cuentas c on c.cuen_cod = d.cuen_cod where c.cuen_tipo = 'N' and "
                                 "d.cent_cod is null and d.terc_nit is %1 null group by 1 order by "
                                 "count(*) desc")
                      .arg(con_tercero ? "not" : ""))
        .texto();
}
