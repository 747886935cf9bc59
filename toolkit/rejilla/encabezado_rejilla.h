#pragma once
// Encabezado de una rejilla: los títulos, el sentido del orden y, debajo, la fila de filtros.
#include <QHeaderView>
#include <QLineEdit>
#include <vector>

class AnchosRejilla;
class Rejilla;

class EncabezadoRejilla : public QHeaderView {
    Q_OBJECT
public:
    explicit EncabezadoRejilla(Rejilla& rejilla);

    void muestre_filtros(bool visibles);
    bool con_filtros() const { return con_filtros_; }
    /// Un filtro por columna; al cambiar las columnas se rehacen vacíos.
    void rehaga_filtros();
    QLineEdit* filtro(int columna) const { return filtros_[size_t(columna)]; }
    bool enfocado() const;
    void enfoque(int columna);
    /// Aplica lo escrito al conjunto. Falso si la fila en edición no se dejó grabar.
    bool aplique();
    bool filtrando() const { return aplicado_; } ///< el conjunto está filtrado por lo escrito
    void limpie();

    AnchosRejilla& anchos() const { return *anchos_; }
    /// Los anchos acaban de repartirse: si el nombre de un mes no cabe, todos van abreviados.
    /// Verdadero si así quedan.
    bool acorte_meses();
    /// Y si algún título no cabe en un renglón, todos tienen dos.
    void acomode_titulos();
    /// El título de la columna como se muestra: partido o abreviado si así cabe.
    QString titulo_partido(int columna) const;
    /// El de la que asoma a medias, en lo que se ve de ella.
    QString titulo_a_la_vista(int columna) const;
    /// Asoma a medias y ni su título cabe en lo que se ve: no se pinta nada de ella.
    bool asoma_sin_titulo(int columna) const;
    /// Ancho con que su título se lee entero en dos renglones.
    int ancho_en_renglones(int columna) const;
    /// Con el que se lee abreviado el mes que titula; 0 si no titula un mes.
    int ancho_de_mes(int columna) const;
    /// Ancho con que al menos se lee abreviado.
    int ancho_minimo(int columna, bool apretado = false) const;
    /// El usuario tiene oprimido el borde de un título: el ancho que quede es suyo.
    bool arrastrando() const { return oprimido_; }

    QSize sizeHint() const override;
    /// El alto con los títulos en un renglón: el segundo depende del ancho, que antes de mostrarse
    /// no se sabe.
    int alto_sencillo() const;
    /// Lo que a lo alto le quitan a las filas los títulos y la barra de abajo, si se desplaza.
    int alto_con_barra() const;
    /// Ese alto ya no es el de la vez anterior.
    bool cambio_el_alto() { return std::exchange(alto_, alto_con_barra()) != alto_con_barra(); }

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* opcion, int columna) const override;
    /// El título de la que asoma a medias va en lo que se ve de ella, si cabe.
    void paintSection(QPainter* pintor, const QRect& lugar, int columna) const override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void updateGeometries() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void ubique_filtros();
    bool tecla(int columna, QKeyEvent& evento);
    int margenes() const;

    Rejilla& rejilla_;
    AnchosRejilla* anchos_;
    bool dos_renglones_ = false;
    bool meses_cortos_ = false; ///< si uno no cabe, todos van abreviados
    bool oprimido_ = false;
    int alto_ = 0; ///< el último que se pidió con la barra
    std::vector<QLineEdit*> filtros_;
    bool con_filtros_ = false;
    bool aplicado_ = false;
};

/// Los anchos que lleva el encabezado de una rejilla.
AnchosRejilla& anchos_de(const Rejilla& rejilla);
