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

class EncabezadoRejilla;
class Rejilla;

/// Lo que pide una columna, en píxeles.
struct PedidoAncho {
    int contenido = 0;    ///< sin esto se recortaría una cifra o un código
    int titulo = 0;       ///< para que su título se lea entero, aunque sea en dos renglones
    int breve = 0;        ///< de la que no dice nada y se digita, para leerlo abreviado
    int apretado = 0;     ///< de la que no dice nada, por una cifra que asoma; 0 si dice algo
    int seguido = 0;      ///< para que se lea en uno
    int comodo = 0;       ///< el texto completo, o sitio para digitar
    int entero = 0;       ///< para leer sin puntos suspensivos lo que hay; 0 si basta `contenido`
    int cede = 0;         ///< de `contenido`, lo que da antes de que se abrevie un título
    int peso = 0;         ///< parte de lo que sobre; 0 en cifras y códigos
    bool vacia = false;   ///< no dice nada en ninguna fila, o solo ceros: es la primera que cede
    bool fijo = false;    ///< ni un píxel más: lo escogió el usuario o está oculta
    bool casilla = false; ///< con el título abreviado se lee igual: cede antes que un nombre
    bool cifra = false;   ///< lejos de la anterior se lee mal: no toma lo que sobre sin límite
};

/// Un ancho por pedido. Suman `disponible` si hay con qué; si no cabe ni lo indispensable suman
/// más, y la rejilla se desplaza.
QVector<int> reparta_ancho(const QVector<PedidoAncho>& pedidos, int disponible);

class AnchosRejilla : public QObject {
    Q_OBJECT
public:
    AnchosRejilla(Rejilla& rejilla, QObject* padre);

    /// Propiedad de la rejilla: las letras que sus nombres no ceden. Si no alcanza, se desplaza.
    static constexpr const char* kLetrasDeNombre = "letras_de_nombre";

    /// Mide de nuevo todas las columnas y reparte. Cuesta una mirada a las filas.
    void mida();
    /// Mide lo que no admite recorte en esas filas; y los nombres, si empiezan en la primera.
    void mida_filas(int desde, int hasta);
    /// Mide lo que se acaba de poner en una fila, o solo en una de sus celdas.
    void mida_fila(int fila, int columna = -1);
    /// Llegaron los nombres que acompañan los códigos de esa columna.
    void mida_nombres(int columna);
    /// Reparte lo ya medido en el ancho que haya.
    void reparta();
    /// La columna no alcanza para lo que se acaba de pintar: se le da en cuanto termine el pintado.
    void pida(int columna, int ancho);
    /// No dice nada en ninguna fila.
    bool vacia(int columna) const { return pedidos_.value(columna).vacia; }
    bool repartiendo() const { return repartiendo_; }
    /// Píxeles que le faltan a la rejilla para mostrar sin desplazarse sus cifras, códigos y
    /// títulos, y enteros los nombres que tiene. Sin títulos, solo lo que dice.
    int lo_que_falta(bool con_titulos = true) const;
    /// Ancho de la rejilla con que se ve todo lo que dice, sin que ceda sino lo que no dice nada.
    int sin_ceder() const;
    /// Además, con lo que de sus nombres más largos basta para reconocerlos.
    int legible() const;
    /// Y con el que no hay que desplazarla, cediendo lo que se puede ceder.
    int cediendo() const;

    // --- los del usuario, por campo, en caracteres
    void escoja(int columna, int ancho); ///< el usuario la dejó en esos píxeles
    QMap<QString, double> escogidos() const { return escogidos_; }
    void escogidos(const QMap<QString, double>& anchos) { escogidos_ = anchos; }

signals:
    void crecio(); ///< lo que hay pide más ancho que antes

private:
    int ancho_disponible() const;
    int fuera_de_las_columnas() const; ///< marcos y barras
    PedidoAncho mida_columna(int columna) const;
    /// Lo más ancho que muestra una columna; `calla` si no dice nada o solo ceros.
    struct Contenido {
        int ancho = 0;
        bool calla = true;
    };
    Contenido contenido(int columna, int desde, int hasta) const;
    void vea(int columna, int fila, std::pair<double, int>& mas_ancha) const;
    /// Falso si todas son cero.
    bool vea_cifras(int columna, int desde, int hasta, std::pair<double, int>& mas_ancha) const;
    int ancho_del_pie(int columna) const;
    /// Lo que le queda a la que no dice nada: su título abreviado, y sus ceros con su suma.
    int piso(int columna, int lleno, bool apretado = false) const;
    /// Unos ceros se leen enteros, con su suma; una celda en blanco no pide nada.
    int ceros(int columna, int lleno) const;
    void mida_texto(int columna, PedidoAncho& p) const;
    void mida_corto(int columna, PedidoAncho& p) const;
    /// Lo que pide el código con su nombre tenue al lado.
    int con_su_nombre(int columna, int desde, int hasta) const;
    void crezca_con_su_nombre(int columna, int desde, int hasta);
    void crezca(int columna, int desde, int hasta, bool con_nombres);
    bool reparta_si_crecio();
    bool digitando() const; ///< lo que se digita no se mueve bajo los ojos
    /// No cede por debajo de ese ancho. `dice`: ya no está vacía.
    void asegure(PedidoAncho& pedido, int ancho, bool dice);
    int ancho_entero(int lleno) const; ///< el de un nombre, sin lo que pase de un renglón
    EncabezadoRejilla& titulos() const;
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
