#include "herramientas/verificacion.h"

namespace {

constexpr int kMuestra = 20; // hallazgos que se nombran de cada clase; los demás se cuentan

const char* const kLibros[][2] = {{"2649", ""}, {"NIIF", "_NIIF"}};

/// Agrega cada fila como "titulo: COLUMNA valor, ...".
void liste(Conexion& c, const QString& titulo, const QString& sql, QStringList& hallazgos) {
    const auto filas = c.abra(sql);
    qint64 total = 0;
    while (filas->siguiente()) {
        if (++total > kMuestra)
            continue;
        QStringList partes;
        for (int i = 0; i < filas->columnas().size(); ++i)
            if (!filas->valor(i).texto().isEmpty())
                partes << filas->columnas()[i].nombre + ' ' + filas->valor(i).texto();
        hallazgos << titulo + QStringLiteral(": ") + partes.join(QStringLiteral(", "));
    }
    if (total > kMuestra)
        hallazgos << QStringLiteral("%1: y %2 más").arg(titulo).arg(total - kMuestra);
}

qint64 diferencias(Conexion& c) {
    qint64 total = 0;
    for (const auto& libro : kLibros)
        total += c.consulte(QStringLiteral("select count(*) from saldos_diferencia%1")
                                .arg(QLatin1String(libro[1])))
                     .entero();
    return total;
}

} // namespace

QStringList verifique_compania(Conexion& compania) {
    QStringList hallazgos;
    const bool cuadrados =
        compania
            .consulte(QStringLiteral("select conf_valor from configuracion where conf_modulo ="
                                     " 'CONTABILIDAD' and conf_categoria = 'GENERAL' and"
                                     " conf_propiedad = 'PERMITIR COMPROBANTES DESCUADRADOS'"))
            .texto() != QLatin1String("SI");
    for (const auto& [libro, sufijo] : kLibros) {
        const QString nombre = QLatin1String(libro);
        liste(compania, QStringLiteral("saldo distinto de los renglones en el libro ") + nombre,
              "select * from verifique_saldos(" + QuotedStr(nombre) + ')', hallazgos);
        if (cuadrados)
            liste(compania, QStringLiteral("comprobante descuadrado en el libro ") + nombre,
                  QStringLiteral("select e.tico_cod, e.prco_pref, e.enco_numero, sum(d.code_debito)"
                                 " debitos, sum(d.code_credito) creditos"
                                 " from comprobante_encabezado e join comprobante_detalle%1 d"
                                 " on d.enco_consec = e.enco_consec"
                                 " group by e.tico_cod, e.prco_pref, e.enco_numero"
                                 " having sum(d.code_debito) <> sum(d.code_credito)"
                                 " order by 1, 2, 3")
                      .arg(QLatin1String(sufijo)),
                  hallazgos);
    }
    liste(compania, QStringLiteral("comprobante sin identificación definitiva"),
          QStringLiteral("select tico_cod, prco_pref, enco_numero, enco_fecha"
                         " from comprobante_encabezado where enco_consec = 0"),
          hallazgos);
    return hallazgos;
}

qint64 compacte_saldos(Conexion& compania) {
    // Cada llamada hace un trozo acotado; se repite mientras avance.
    const qint64 inicio = diferencias(compania);
    for (qint64 antes = inicio; antes > 0;) {
        compania.ejecute(QStringLiteral("execute procedure compacte_saldos"));
        const qint64 quedan = diferencias(compania);
        if (quedan >= antes)
            return inicio - quedan;
        antes = quedan;
    }
    return inicio;
}
