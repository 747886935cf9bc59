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

void agrande_plan(Conexion& c, int cuantas) {
    // Las superiores, y bajo ellas las demás: diez mil en cada rama.
    const QString cuenta = " insert into cuentas (cuen_cod, cuen_nom, cuen_tercero, cuen_centro, "
                           "cuen_retencion, cuen_tipo, cuen_activa) select %1, 'Cuenta', 'N', 'N', "
                           "'N', 'N', 'S' from rdb$database where not exists (select 1 from "
                           "cuentas where cuen_cod = %1);";
    QString superiores;
    for (const char* codigo : {"'9'", "'99'"})
        superiores += cuenta.arg(codigo);
    const QString rama = "'99' || lpad(:i / 10000, 2, '0')", resto = " || lpad(mod(:i, 10000)";
    c.ejecute(QString("execute block as declare i integer = 0; begin %1 while (i < %2) do begin "
                      "if (mod(i, 10000) = 0) then %3 if (mod(i, 100) = 0) then %4 %5 i = i + 1; "
                      "end end")
                  .arg(superiores)
                  .arg(cuantas)
                  .arg(cuenta.arg(rama), cuenta.arg(rama + resto + " / 100, 2, '0')"),
                       cuenta.arg(rama + resto + ", 4, '0')")));
}
