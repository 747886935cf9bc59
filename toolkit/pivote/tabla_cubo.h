#pragma once
// Lo que se ve de un cubo, para los escritores de archivos: una columna por cada campo de las
// filas y luego las cifras, como números.
#include "toolkit/exportacion/tabla_exportable.h"
#include "toolkit/pivote/modelo_cubo.h"

class TablaDeCubo : public TablaExportable {
public:
    TablaDeCubo(const ModeloCubo& modelo, const QString& titulo)
        : modelo_(modelo), titulo_(titulo), campos_(int(modelo.disposicion().filas.size())) {}

    QString titulo() const override { return titulo_; }
    int columnas() const override { return campos_ + modelo_.columnCount() - 1; }
    ColumnaExportable columna(int indice) const override;
    void inicie() override { fila_ = -1; }
    bool siguiente() override;
    ValorExportable valor(int indice) const override;

private:
    const ModeloCubo& modelo_;
    QString titulo_;
    int campos_, fila_ = -1;
    QStringList camino_;
};
