#pragma once
// Disposiciones que, en una ventana más angosta que ellas, siguen hacia abajo en vez de
// ensancharla.
#include <QBoxLayout>
#include <QGridLayout>
#include <QVector>

/// El ancho con que nada de `raiz` tendría que seguir en otro renglón.
int ancho_en_columnas(QWidget& raiz);

/// Cuadrícula de rótulos, en las columnas pares, y controles, cada uno en su casilla, en las
/// impares. Si no cabe deja de alinear sus columnas: lo que sobra de una fila va en otro renglón.
class DisposicionPares : public QGridLayout {
public:
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int ancho) const override;
    int minimumHeightForWidth(int ancho) const override;
    void setGeometry(const QRect& marco) override;
    int ancho_en_columnas() const;
    /// El mayor de los rótulos que empiezan fila.
    int ancho_de_rotulos() const;
    /// Lo que sus controles van más a la derecha por quedar con los de otro recuadro.
    int corrido() const { return qMax(0, columnMinimumWidth(0) - ancho_de_rotulos()); }
    /// Con los rótulos en ese ancho ninguna fila se parte ni se sale.
    bool admite(int rotulos, int ancho) const;

private:
    struct Par {
        QLayoutItem *rotulo = nullptr, *casilla = nullptr;
        int fila = 0, columna = 0; ///< de la casilla
    };
    struct Renglon {
        int desde = 0, hasta = 0; ///< sus pares
        QVector<int> anchos;      ///< de sus controles
        int alto = 0, minimo = 0;
        bool elastico = false; ///< toma el alto que sobre y da el que falte
    };
    /// Los que están a la vista, como se leen.
    QVector<Par> pares() const;
    bool cabe(int ancho) const { return ancho >= ancho_en_columnas(); }
    /// Sitio del rótulo. `guia`: el de los que empiezan renglón, que van alineados; 0 en los demás.
    int ancho_rotulo(const Par& par, int guia) const;
    int primera_columna() const;
    /// Desde la primera columna, hasta la que también alinea los que empiezan otro renglón.
    int guia(const QVector<Par>& todos, int ancho, int primera) const;
    int sitio(const Par& par, int guia) const;
    QVector<Renglon> renglones(const QVector<Par>& todos, int ancho, int guia) const;
    Renglon renglon(const QVector<Par>& todos, int desde, int ancho, int guia) const;
    /// Lo que suman los renglones, con el alto que les gusta o con el menor que admiten.
    int alto_de(const QVector<Renglon>& lista, bool minimo) const;
    int alto_sin_columnas(int ancho, bool minimo) const;
};

/// Recuadros lado a lado, de partes iguales si se puede; si no caben, uno debajo del otro.
class DisposicionBanda : public QHBoxLayout {
public:
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int ancho) const override;
    int minimumHeightForWidth(int ancho) const override;
    void setGeometry(const QRect& marco) override;

private:
    QVector<QLayoutItem*> a_la_vista() const;
    /// El de cada uno; vacío si no caben lado a lado.
    QVector<int> anchos(const QVector<QLayoutItem*>& items, int ancho) const;
    /// `de`: el alto de uno con ese ancho. En pila, cada uno tiene el menor que admite.
    int alto(int ancho, int (*de)(const QLayoutItem*, int)) const;
    bool en_pila(int ancho) const;
    /// Los de un formulario que van uno debajo del otro empiezan sus controles en la misma columna,
    /// si a ninguno le cuesta sitio ni lo corre mucho.
    void alinee_pilas(int ancho) const;
};
