#pragma once
// Lo que debe cumplirse después de cualquier falla.

/// Comprobantes sin renglones en algún libro o descuadrados, y renglones sin encabezado, como
/// texto. Vacío si todos están enteros.
inline QString a_medias(Conexion& c) {
    QString malos;
    for (const char* libro : {"comprobante_detalle", "comprobante_detalle_niif"}) {
        malos += filas_de(
            c, QStringLiteral("select e.enco_consec, count(d.code_item), sum(d.code_debito), "
                              "sum(d.code_credito) from comprobante_encabezado e left join %1 d on "
                              "d.enco_consec = e.enco_consec group by 1 having count(d.code_item) "
                              "<> 2 or sum(d.code_debito) <> sum(d.code_credito)")
                   .arg(QLatin1String(libro)));
        malos += filas_de(
            c, QStringLiteral("select d.enco_consec from %1 d left join comprobante_encabezado e "
                              "on e.enco_consec = d.enco_consec where e.enco_consec is null")
                   .arg(QLatin1String(libro)));
    }
    return malos;
}
