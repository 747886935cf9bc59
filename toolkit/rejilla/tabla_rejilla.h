#pragma once
// Lo que una rejilla entrega a un archivo o a la impresora: sus columnas visibles y todas sus
// filas, traídas por paquetes a medida que se recorren, sin mover el cursor.
#include "toolkit/exportacion/tabla_exportable.h"

#include <QVector>
#include <functional>

class Rejilla;

class TablaRejilla : public TablaExportable {
public:
    explicit TablaRejilla(const Rejilla& rejilla);

    /// Se llama cada cierto número de filas; lanzar detiene el recorrido.
    std::function<void(int fila)> avance;

    QString titulo() const override;
    int columnas() const override { return int(columnas_.size()); }
    ColumnaExportable columna(int indice) const override;
    void inicie() override { fila_ = -1; }
    bool siguiente() override;
    ValorExportable valor(int indice) const override;
    QString texto(int indice) const override;
    int sangria(int indice) const override;
    bool tiene_pie() const override;
    ValorExportable pie(int indice) const override;
    QString texto_pie(int indice) const override;

private:
    const Rejilla& rejilla_;
    QVector<int> columnas_; ///< números de las columnas visibles
    int fila_ = -1;
};
