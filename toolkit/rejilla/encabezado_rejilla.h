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
    void limpie();

    AnchosRejilla& anchos() const { return *anchos_; }
    /// Los anchos acaban de repartirse: si algún título no cabe en un renglón, todos tienen dos.
    void acomode_titulos();
    /// El usuario tiene oprimido el borde de un título: el ancho que quede es suyo.
    bool arrastrando() const { return oprimido_; }

    QSize sizeHint() const override;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* opcion, int columna) const override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void updateGeometries() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void ubique_filtros();
    bool tecla(int columna, QKeyEvent& evento);

    Rejilla& rejilla_;
    QString titulo_partido(int columna) const;

    AnchosRejilla* anchos_;
    bool dos_renglones_ = false;
    bool oprimido_ = false;
    std::vector<QLineEdit*> filtros_;
    bool con_filtros_ = false;
    bool aplicado_ = false;
};
