#include "tax/articulos_distrito.h"

#include "tax/medio_distrital.h"

#include <algorithm>

namespace {

const QStringList kImportes{"MMDD_BASE", "MMDD_MONTO", "MMDD_DEVOL", "MMDD_SALDO"};

struct Falta {
    const char* texto;
    int filas = 0;
};

} // namespace

int copie_articulos(Conexion& base, const QString& desde, const QString& hasta) {
    return int(base.ejecute_con_salida("execute procedure copie_articulos(?, ?)",
                                       {Valor(desde), Valor(hasta)})
                   .value(0)
                   .entero());
}

QString ano_con_articulos(Conexion& base, const QString& ano) {
    return base
        .consulte("select coalesce(max(iif(MMDI_ANO < ?, MMDI_ANO, null)), min(MMDI_ANO)) from "
                  "MEDIOSMAG_DISTR",
                  {Valor(ano)})
        .texto();
}

QString por_corregir_articulo(int articulo, FilasMedio& filas) {
    const QStringList columnas = columnas_articulo(articulo);
    Falta nit{"sin identificación"}, direccion{"sin dirección"}, municipio{"sin municipio"},
        negativo{"con valor negativo"};
    while (filas.siguiente()) {
        const auto falta = [&](const char* columna) {
            return columnas.contains(QLatin1String(columna)) && filas.texto(columna).isEmpty();
        };
        const QString pais = filas.texto("MMDD_PAIS");
        const bool exterior = !pais.isEmpty() && pais != QLatin1String("169");
        nit.filas += falta("MMDD_NIT");
        direccion.filas += falta("MMDD_DIRECCION");
        municipio.filas += !exterior && falta("MMDD_CODMUNICIPIO");
        negativo.filas +=
            std::any_of(kImportes.begin(), kImportes.end(), [&](const QString& importe) {
                return columnas.contains(importe) && filas.texto(importe).startsWith('-');
            });
    }
    QStringList partes;
    for (const Falta& f : {nit, direccion, municipio, negativo})
        if (f.filas)
            partes << QStringLiteral("%1 %2").arg(f.filas).arg(QString::fromUtf8(f.texto));
    if (partes.isEmpty())
        return {};
    const QString ultima = partes.takeLast();
    return partes.isEmpty() ? ultima : partes.join(", ") + " y " + ultima;
}
