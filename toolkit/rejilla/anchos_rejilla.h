#pragma once
// Reparto del ancho de una rejilla: las cifras y los códigos tienen lo que piden, y los textos
// largos se quedan con lo demás.
//
// Los anchos que el usuario arrastra son suyos y se respetan; los otros se acomodan cada vez que la
// rejilla cambia de tamaño, llegan filas o una celda muestra algo más largo.
#include "toolkit/rejilla/regla_letra.h"

#include <QMap>
#include <QObject>
#include <QVector>

class Rejilla;

/// Lo que pide una columna, en píxeles.
struct PedidoAncho {
    int contenido = 0;  ///< sin esto se recortaría una cifra o un código
    int titulo = 0;     ///< para que su título se lea entero
    int comodo = 0;     ///< el texto completo, o sitio para digitar
    int entero = 0;     ///< para leer sin puntos suspensivos lo que hay; 0 si basta `contenido`
    int cede = 0;       ///< de lo anterior, lo que un texto da antes de que se corte un título
    int peso = 0;       ///< parte de lo que sobre; 0 en cifras y códigos
    bool vacia = false; ///< no dice nada en ninguna fila: es la primera que cede
    bool fijo = false; ///< ni un píxel más: lo escogió el usuario, está oculta o es una casilla
};

/// Un ancho por pedido. Suman `disponible` si hay con qué; si no cabe ni lo indispensable suman
/// más, y la rejilla se desplaza.
QVector<int> reparta_ancho(const QVector<PedidoAncho>& pedidos, int disponible);

class AnchosRejilla : public QObject {
    Q_OBJECT
public:
    AnchosRejilla(Rejilla& rejilla, QObject* padre);

    /// Mide de nuevo todas las columnas y reparte. Cuesta una mirada a las filas.
    void mida();
    /// Mide lo que no admite recorte en esas filas; y los nombres, si son todas.
    void mida_filas(int desde, int hasta);
    /// Reparte lo ya medido en el ancho que haya.
    void reparta();
    /// La columna no alcanza para lo que se acaba de pintar: se le da en cuanto termine el pintado.
    void pida(int columna, int ancho);
    /// No dice nada en ninguna fila.
    bool vacia(int columna) const { return pedidos_.value(columna).vacia; }
    bool repartiendo() const { return repartiendo_; }
    /// Píxeles que le faltan a la rejilla para mostrar sin desplazarse sus cifras, códigos y
    /// títulos, y enteros los nombres que tiene.
    int lo_que_falta() const;
    /// Ancho de la rejilla con que se ve todo lo que dice, sin que ceda sino lo que no dice nada.
    int sin_ceder() const;

    // --- los del usuario, por campo, en caracteres
    void escoja(int columna, int ancho); ///< el usuario la dejó en esos píxeles
    QMap<QString, double> escogidos() const { return escogidos_; }
    void escogidos(const QMap<QString, double>& anchos) { escogidos_ = anchos; }

signals:
    void crecio(); ///< lo que hay pide más ancho que antes

private:
    int ancho_disponible() const;
    PedidoAncho mida_columna(int columna) const;
    int contenido(int columna, int desde, int hasta) const;
    void vea(int columna, int fila, std::pair<double, int>& mas_ancha) const;
    void vea_cifras(int columna, int desde, int hasta, std::pair<double, int>& mas_ancha) const;
    int ancho_del_pie(int columna) const;
    bool no_dice_nada(int lleno) const; ///< es lo que pide una celda en blanco
    int piso_vacia() const;             ///< lo que le queda a la que no dice nada
    void llene(PedidoAncho& pedido);    ///< ya dice algo: no cede lo suyo
    int ancho_entero(int lleno) const;  ///< el de un nombre, sin lo que pase de un renglón
    bool es_texto_largo(int columna) const;
    int escogido(int columna) const; ///< 0 si el usuario no lo ha tocado

    Rejilla& rejilla_;
    QVector<PedidoAncho> pedidos_;
    QMap<QString, double> escogidos_;
    mutable ReglaLetra regla_;
    int repartido_ = -1;             ///< ancho en que se repartió la última vez
    mutable bool con_barra_ = false; ///< las filas no caben de alto
    bool repartiendo_ = false, pendiente_ = false;
};
