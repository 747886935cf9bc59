#pragma once
// Tabla de un cubo tal como se ve: el eje de las filas en la primera columna, con lo plegado
// plegado, y los cruces a continuación. No conoce pantallas.
//
// Lo que el usuario pliega o despliega se recuerda por los valores de su camino: sobrevive a otro
// cálculo del mismo cubo.
#include "toolkit/pivote/cubo.h"

#include <QAbstractTableModel>

class ModeloCubo : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModeloCubo(QObject* dueno = nullptr) : QAbstractTableModel(dueno) {}

    /// Calcula y muestra. El cubo debe vivir mientras se use el modelo. Si falla queda como estaba.
    void disponga(const Cubo& cubo, const DisposicionCubo& disposicion);
    const DisposicionCubo& disposicion() const { return disposicion_; }
    const TablaCubo& tabla() const { return tabla_; }

    /// Pliega o despliega la fila. Falso si no tiene qué.
    bool alterne(int fila);
    /// Lo mismo con una columna de la tabla.
    bool alterne_columna(int columna);
    /// Despliega las filas, o las columnas, hasta ese nivel; 0, todas. Olvida lo plegado a mano.
    void nivel(int hasta);
    int nivel() const { return disposicion_.nivel_filas; }
    void nivel_columnas(int hasta);
    int nivel_columnas() const { return disposicion_.nivel_columnas; }

    /// Nodo de una fila, y de una columna que no sea la primera.
    int nodo_fila(int fila) const { return filas_[size_t(fila)]; }
    int nodo_columna(int columna) const;
    int valor_de_columna(int columna) const;
    /// Campos del eje de filas, con el valor de cada uno en esa fila (vacío de su nivel para
    /// abajo).
    QStringList camino(int fila) const;
    QStringList titulos_camino() const;
    std::optional<Moneda> cifra(int fila, int columna) const;
    QString titulo_columna(int columna, const QString& separador) const;
    bool es_porcentaje(int columna) const;

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol) const override;
    QVariant headerData(int seccion, Qt::Orientation sentido, int rol) const override;

private:
    using Nodos = std::vector<NodoCubo>;
    static QString llave(const Nodos& nodos, int nodo);
    bool desplegado(const Nodos& nodos, int nodo, int nivel, const QSet<QString>& a_mano) const;
    void recorra_filas(int nodo);
    void recorra_columnas(int nodo);
    void acomode();
    QString rotulo(int fila) const;
    QString dicho(int fila, int columna) const;

    const Cubo* cubo_ = nullptr;
    DisposicionCubo disposicion_;
    TablaCubo tabla_;
    QSet<QString> filas_a_mano_, columnas_a_mano_; ///< al revés de lo que dice el nivel
    std::vector<int> filas_, columnas_;            ///< nodos a la vista
};
