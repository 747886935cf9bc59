#pragma once
// Detalle privado de las pantallas: las ventanas que las contienen.
//
// Toda pantalla va dentro de un marco con barras de desplazamiento: con letra grande o en un
// monitor pequeño sigue alcanzándose completa con el teclado.
#include "toolkit/pantalla.h"

#include <QDialog>
#include <QScrollArea>
#include <optional>

class MarcoPantalla : public QScrollArea {
public:
    explicit MarcoPantalla(Pantalla* pantalla);
    Pantalla* pantalla() const { return pantalla_; }
    /// Devuelve la pantalla a quien la creó.
    void suelte();
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* evento) override;
    /// Tab recorre la pantalla como se lee y da la vuelta sin salir de ella.
    bool focusNextPrevChild(bool siguiente) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    bool event(QEvent* evento) override;

private:
    /// Sin la barra del lado cabe entera: la barra no se queda por el ancho que ella misma quita.
    void decida_barra();
    /// Los márgenes de la pantalla ponen lo poco que le falte. Verdadero si cambiaron.
    bool ajuste_margenes(int falta);
    /// Los botones se quedan en el borde de abajo aunque la pantalla sea más alta que su ventana.
    void fije_botones();
    /// Dónde empieza la fila que ese borde corta, el borde si a ninguna; nada si tiene el foco.
    std::optional<int> comienzo_de_la_cortada(int borde) const;
    /// De las filas que sobre ese borde se asoman a medias no se ve nada. Devuelve desde dónde.
    int comienzo_del_velo(int borde) const;
    /// El alto de la ventanilla que los botones no tapan.
    int alto_libre() const;
    /// Corre la ventanilla, lo menos que se pueda, hasta que ese lugar de la pantalla se vea, y no
    /// detrás de los botones. De lo que no quepa se ve el comienzo.
    void muestre(const QRect& lugar);
    /// Con él se ve lo que lo rodea, si cabe: las sumas y los nombres de una rejilla.
    void muestre_con_lo_suyo(QWidget* control);
    /// Lo que tiene el foco, o al menos su comienzo, está a la vista.
    void siga_el_foco();
    void siga_el_foco_luego();

    QPointer<Pantalla> pantalla_;
    QPointer<QWidget> botones_;
    QPointer<QWidget> seguido_; ///< el último al que se llevó la vista
    QPointer<QWidget> telon_;   ///< detrás de los botones, cuando tapan lo que se desplaza
    QPointer<QWidget> velo_;    ///< y sobre él, lo que taparía a medias
    /// De dónde a dónde se corrió para mostrar la barra de una rejilla.
    std::optional<std::pair<int, int>> por_la_barra_;
    std::optional<QMargins> margenes_; ///< los de la pantalla, antes de ajustarlos
    bool fijando_ = false, siguiendo_ = false;
};

/// Da a la ventana de `pantalla` el tamaño con que abriría ahora, si muestra algo que antes no.
void reajuste_ventana(const Pantalla& pantalla);

class DialogoPantalla : public QDialog {
public:
    DialogoPantalla(Pantalla* pantalla, QWidget* padre);
    MarcoPantalla* marco() const { return marco_; }

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    QPointer<Pantalla> pantalla_;
    MarcoPantalla* marco_;
};
