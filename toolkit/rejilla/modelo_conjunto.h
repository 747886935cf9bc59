#pragma once
// Modelo de la rejilla: lee las filas del conjunto sin copiarlas y traduce sus avisos a los de Qt.
#include "datos/recordset/conjunto.h"

#include <QAbstractTableModel>
#include <vector>

class Rejilla;

class ModeloConjunto : public QAbstractTableModel, public EnlaceDatos {
    Q_OBJECT
public:
    explicit ModeloConjunto(Rejilla& rejilla);

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int papel) const override;
    QVariant headerData(int seccion, Qt::Orientation sentido, int papel) const override;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;
    bool canFetchMore(const QModelIndex& padre) const override;
    void fetchMore(const QModelIndex& padre) override;

    Valor valor(int fila, int columna) const;
    QString presente(const Valor& valor, int columna) const; ///< como se ve en la columna
    QString texto(int fila, int columna) const;              ///< como se ve en la celda
    QString texto_editable(int fila, int columna) const;
    bool editable(int columna) const; ///< la columna se deja escribir
    bool numerica(int columna) const;
    Qt::Alignment alineacion(int columna) const;
    Moneda suma(int columna) const;

    /// Cambia las columnas entre los avisos que la vista necesita.
    void rehaga(const std::function<void()>& cambio);
    void cambie_conjunto(ConjuntoDatos* conjunto);
    void columnas_cambiadas(); ///< títulos, formatos o sumas, no su número

    // --- EnlaceDatos
    void estado_cambiado() override;
    void fila_actual_cambiada() override;
    void campo_cambiado(Campo* campo) override;
    void filas_reiniciadas() override;
    void filas_insertadas(int desde, int cuantas) override;
    void filas_borradas(int desde, int cuantas) override;
    void fila_modificada(int indice) override;
    void escriba_pendiente() override;

private:
    /// Lo que cada fila aporta a una suma: un cambio cuesta una resta, y no volver a sumar todo.
    struct Sumandos {
        bool validos = false;
        std::vector<qint64> unidades;
        __int128 total = 0;
    };
    qint64 unidades_en(int fila, int columna) const;
    void corrija_sumas(int fila);
    void olvide_sumas() const;
    void resuelva_campos();
    void avise_fila(int fila);

    Rejilla& rejilla_;
    int filas_ = 0;
    mutable std::vector<Sumandos> sumas_;
};
