#include "toolkit/pivote/tabla_cubo.h"

ColumnaExportable TablaDeCubo::columna(int indice) const {
    if (indice < campos_)
        return {.titulo = modelo_.titulos_camino()[indice], .alineacion = {}};
    const int columna = indice - campos_ + 1;
    return {.titulo = modelo_.titulo_columna(columna, QStringLiteral(" / ")),
            .tipo = TipoExportable::Moneda,
            .alineacion = {}};
}

bool TablaDeCubo::siguiente() {
    if (++fila_ >= modelo_.rowCount())
        return false;
    camino_ = modelo_.camino(fila_);
    return true;
}

ValorExportable TablaDeCubo::valor(int indice) const {
    if (indice < campos_)
        return camino_[indice].isEmpty() ? ValorExportable() : ValorExportable(camino_[indice]);
    const auto m = modelo_.cifra(fila_, indice - campos_ + 1);
    return m ? ValorExportable(*m) : ValorExportable();
}
