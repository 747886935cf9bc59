#pragma once
// De una banda y la fila en curso a un bloque de trazos: textos, formatos, aspectos y medidas.
#include "toolkit/informes/datos_reporte.h"
#include "toolkit/informes/letra.h"
#include "toolkit/informes/paginador.h"

#include <unordered_map>

namespace informes {

class Dibujante {
public:
    Dibujante(const Proyecto& proyecto, const Papel& papel, const Variables& variables,
              DatosReporte& datos, Hojas& hojas);

    /// `sigue`: el grupo, o la fila de que cuelgan las que vienen, se anuncia en otra hoja.
    BloqueHoja componga(const Banda& banda, bool sigue = false);
    bool visible(const Banda& banda);
    /// Lo que no se repite vuelve a imprimirse.
    void olvide_ultimos() { ultimos_.clear(); }
    /// Escribe en su lugar las sumas de los anuncios de ese nivel (0: los títulos), ya completas.
    void resuelva(int nivel);

private:
    /// Cómo se ve lo que se está componiendo, según los aspectos.
    struct Vista {
        int estilo = -1;
        double sangria = 0, antes = 0;
        QString relleno;
        bool omite = false;
    };
    /// Suma de un anuncio, que se sabrá al terminar su grupo.
    struct Pendiente {
        int nivel;
        const Item* item;
        QString lugar;
        QVector<Valor> fila;
    };
    Vista vista_de(int aspecto) const;
    /// Lo que da la fórmula, o cero si no hay.
    double medida(const Formula& formula) const;
    void item(BloqueHoja& bloque, const Banda& banda, const Item& i, const Vista& de_banda);
    void escriba(BloqueHoja& bloque, const Banda& banda, const Item& i, QRectF lugar, int estilo);
    QString acorte(const QString& texto, double ancho, int estilo);
    void parta(BloqueHoja& bloque, const Item& i, QRectF lugar, int estilo, const QString& texto);
    void rico(BloqueHoja& bloque, const Item& i, QRectF lugar, int estilo);
    void imagen(BloqueHoja& bloque, const Item& i, QRectF lugar);
    void linea(BloqueHoja& bloque, const Item& i, QRectF lugar);
    void estire_cajas(BloqueHoja& bloque, const Banda& banda, const Vista& vista);

    QString texto_de(const Banda& banda, const Item& item);
    QString pieza(const Pedazo& pedazo, const Item& item) const;
    QString dato(const Item& item) const;
    QString formatee(const Valor& valor, const Item& item) const;
    QString cifra(Racional valor, const Item& item) const;
    QString especial(const QString& nombre) const;
    const Letra& letra(int estilo);

    const Proyecto& proyecto_;
    const Papel& papel_;
    const Variables& variables_;
    DatosReporte& datos_;
    Hojas& hojas_;
    QVector<int> estilos_;                             ///< del proyecto a las hojas
    std::unordered_map<const Item*, QString> ultimos_; ///< de los que no se repiten
    QVector<Pendiente> pendientes_;
};

/// "20170331" como "2017/03/31"; lo que no sea una fecha de ocho cifras queda como está.
QString fecha_legible(const QString& texto);
/// "31 de diciembre de 2017", también de "20171231"; el mes 13 son los ajustes y el 14 el cierre.
QString fecha_larga(const QString& aaaammdd);

} // namespace informes
