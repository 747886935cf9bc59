#pragma once
// Gráfica pequeña de líneas o de barras: unas pocas series sobre las mismas categorías.
//
// Las series se distinguen también en gris: las líneas por su trazo y su marca, las barras por su
// relleno. El eje vertical va en números redondos. Lee lo que dibuja quien no la ve: su descripción
// accesible trae el primer y el último valor de cada serie.
#include "datos/firebird/moneda.h"

#include <QVector>
#include <QWidget>

struct SerieGrafica {
    QString nombre;
    QVector<Moneda> valores; ///< uno por categoría
};

class Grafica : public QWidget {
    Q_OBJECT
public:
    enum Forma { Lineas, Barras };
    explicit Grafica(Forma forma, QWidget* padre = nullptr);

    /// Reemplaza lo dibujado. `categorias` rotula el eje horizontal.
    void muestre(const QStringList& categorias, const QVector<SerieGrafica>& series);
    /// Categoría que se señala con una franja tenue, con su rótulo; -1 ninguna.
    void senale(int categoria);
    const QVector<SerieGrafica>& series() const { return series_; }
    const QStringList& categorias() const { return categorias_; }

    /// Paso redondo (1, 2 o 5 por una potencia de diez) con que `tramo` queda en unas `cuantas`
    /// divisiones.
    static double paso_redondo(double tramo, int cuantas);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    struct Escala {
        double minimo = 0, maximo = 1, paso = 1, unidad = 1;
    };
    Escala escala() const;
    QRectF lienzo(const Escala& e) const;
    double x_de(const QRectF& l, double categoria) const;
    static double y_de(const QRectF& l, const Escala& e, double valor);
    void pinte_ejes(QPainter& p, const QRectF& l, const Escala& e) const;
    /// Las categorías que se rotulan si a cada rótulo le tocan `ancho` de los `libre`.
    QVector<qsizetype> rotuladas(double ancho, double libre) const;
    void pinte_categorias(QPainter& p, const QRectF& l) const;
    void pinte_lineas(QPainter& p, const QRectF& l, const Escala& e) const;
    void pinte_barras(QPainter& p, const QRectF& l, const Escala& e) const;
    void pinte_leyenda(QPainter& p, const QRectF& l, const Escala& e) const;
    static QString rotulo(double valor);
    static double altura(Moneda valor); ///< solo para el dibujo

    const Forma forma_;
    QStringList categorias_;
    QVector<SerieGrafica> series_;
    int senalada_ = -1;
};
