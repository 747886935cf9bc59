#pragma once
// Pintor de páginas sobre una rejilla de unidades: los formatos que la compañía dibuja elemento por
// elemento miden en ella, cualquiera que sea el papel. Lo usan los comprobantes en papelería propia
// y los informes que define el usuario.
//
//     PintorRejilla pintor(hojas, papel_de_impresora(), {2000, 1500});
//     pintor.comience_hoja();
//     pintor.letra("Arial", 9);
//     pintor.cadena("TOTAL", 100, 1300);
//     pintor.numero(valor, 2, false, 1900, 1300);
//     pintor.termine_hoja();
#include "toolkit/informes/hojas.h"

namespace informes {

/// Hoja escogida en la impresora, sin márgenes.
Papel papel_de_impresora();

class PintorRejilla {
public:
    /// Unidades de la rejilla a lo ancho y a lo alto.
    PintorRejilla(Hojas& hojas, const Papel& papel, QSize rejilla);

    void comience_hoja();
    void termine_hoja();

    /// Letra de lo que sigue; sin familia o sin cuerpo, la de la casa.
    void letra(const QString& familia, qint64 cuerpo);
    /// Desde el punto, con ese avance.
    void linea(qreal x, qreal y, qreal dx, qreal dy);
    void cuadro(qreal x, qreal y, qreal dx, qreal dy);
    /// La imagen estirada sobre ese cuadro; lo que no es una imagen no se dibuja.
    void imagen(const QByteArray& archivo, qreal x, qreal y, qreal dx, qreal dy);
    void imagen_a_su_tamano(const QByteArray& archivo, qreal x, qreal y);
    /// El texto desde el punto; con `largo`, esos caracteres desde `desde` (1 el primero). Da el
    /// lugar que ocupó en la hoja, en milímetros; también `numero`.
    QRectF cadena(const QString& texto, qreal x, qreal y, qint64 desde = 1, qint64 largo = 0);
    /// La cifra con miles y esos decimales, terminada en el punto; `pesos`, con su signo.
    QRectF numero(Moneda valor, int decimales, bool pesos, qreal x, qreal y);

private:
    QPointF punto(qreal x, qreal y) const; ///< de la rejilla a milímetros
    QRectF lugar(qreal x, qreal y, qreal dx, qreal dy) const;
    QRectF escriba(const QString& texto, qreal x, qreal y, bool a_la_derecha);

    Hojas& hojas_;
    Papel papel_;
    Estilo letra_;
    qreal escala_x_, escala_y_; ///< centésimas de milímetro por unidad
};

} // namespace informes
