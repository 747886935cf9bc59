#include "tax/taxonomia.h"

#include "toolkit/exportacion/archivo_salida.h"

void defina_resultado(ConjuntoDatos& c) {
    c.texto("TITULO", 100);
    c.entero("ITEM").etiqueta("Ítem");
    c.texto("NOMBRE", 255).etiqueta("Descripción");
    c.decimal("VALOR").etiqueta("Valor").formato("#,##0.00");
    c.entero("NIVEL").etiqueta("Nivel");
    c.texto("NOMBRE2", 60);
    c.texto("NOMBRE3", 60);
    c.decimal("SALDO2").etiqueta("Del año").formato("#,##0.00");
    c.decimal("SALDO3").etiqueta("De años anteriores").formato("#,##0.00");
    c.decimal("VALORA").etiqueta("Año anterior").formato("#,##0.00");
    c.decimal("SALDO2A").etiqueta("Del año, anterior").formato("#,##0.00");
    c.decimal("SALDO3A").etiqueta("De antes, anterior").formato("#,##0.00");
    c.texto("FECHAA", 8);
    const std::pair<const char*, const char*> escritos[] = {
        {"Saldo", "VALOR"}, {"Saldo1", "SALDO2"}, {"SaldoA", "VALORA"}, {"Saldo1A", "SALDO2A"}};
    for (const auto& [campo, importe] : escritos)
        c.calculado(campo, ClaseCampo::Texto, 30).Visible = false;
    c.OnCalcFields = [&c, escritos] {
        // Un renglón en cero los dos años es un título o no tiene nada que decir.
        const bool calla =
            c.FieldByName("VALOR").moneda().es_cero() && c.FieldByName("VALORA").moneda().es_cero();
        for (const auto& [campo, importe] : escritos)
            c.FieldByName(campo) = calla ? QString() : c.FieldByName(importe).moneda().formateada();
    };
}

QString sql_taxonomia(int taxonomia, int seccion, const QString& fecha) {
    return QStringLiteral("SELECT * FROM IMPR_TAXONOMIA(%1,%2,%3)")
        .arg(taxonomia)
        .arg(seccion)
        .arg(QuotedStr(fecha));
}

void exporte_taxonomia(ConjuntoDatos& filas, const QString& ano, const QString& ruta) {
    filas.FetchAll();
    ArchivoSalida archivo(ruta);
    const auto escriba = [&](const QString& texto) { archivo.escriba(texto.toLatin1()); };
    // El que lo recibe lo espera así, con la cabecera abierta y un solo dato por renglón.
    escriba(cabeza_xml(QStringLiteral("1002")) + "<Ano>" + ano + "</Ano>\r\n<CantReg>" +
            QString::number(filas.RecordCount()) + "</CantReg>\r\n");
    for (int i = 0; i < filas.RecordCount(); ++i) {
        const Moneda valor = filas.valor_en(i, filas.FieldByName("VALOR")).moneda(); // título: cero
        escriba(QStringLiteral("  <pagos  ndom=%1 />\r\n").arg(cadenahtml(valor.texto())));
    }
    escriba("</mas>\r\n");
    archivo.confirme();
}
