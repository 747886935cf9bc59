#pragma once
// Compositor: recorre las filas una vez y reparte las bandas de un reporte en hojas.
//
// Por fila: si cambió algún grupo, los totales de adentro hacia afuera y los anuncios de afuera
// hacia adentro; luego el detalle. Lo que no cabe pasa a otra hoja, con los encabezados y los
// grupos que se repiten. Los totales leen la última fila de su grupo y los anuncios la primera.
#include "datos/firebird/reloj.h"
#include "toolkit/informes/datos_informe.h"
#include "toolkit/informes/hojas.h"

#include <QDateTime>
#include <QFontMetricsF>
#include <QMap>
#include <array>
#include <functional>
#include <unordered_map>

namespace informes {

struct Variables {
    QMap<QString, QString> textos;
    QMap<QString, QImage> imagenes;
    QDateTime ahora = reloj().ahora();
};

class Compositor {
public:
    /// Se llama al empezar cada hoja con su número; falso abandona el informe.
    using Avance = std::function<bool(int pagina)>;

    /// Lanza ErrorInforme si la plantilla nombra una columna o variable que no existe.
    Compositor(const Proyecto& proyecto, const Reporte& reporte, const Variables& variables,
               DatosInforme& datos, Hojas& hojas);
    /// Falso si se abandonó.
    bool componga(const Avance& avance = {});

private:
    /// Fila de la que un texto toma sus columnas.
    enum class Mira { Actual, Previa };
    struct Acumulado {
        int nivel;
        int columna; ///< -1: cuenta filas
        Moneda suma;
    };

    [[noreturn]] void falle(int renglon, const QString& que) const;
    int columna(const QString& nombre, int renglon);
    int acumulado(int nivel, int columna);
    void ate(Banda& banda);
    void ate(Item& item, int nivel);

    bool lea_fila(bool primera);
    int nivel_roto() const;
    void acumule();
    void cierre_grupos(int nivel);
    void abra_grupos(int nivel);
    void detalle();

    void hoja_nueva(int grupos_hasta);
    void termine_hoja();
    bool cabe(double alto) const { return y_ + alto <= fondo_ + 0.001; }
    void imprima_todas(TipoBanda tipo, Mira mira);
    void imprima(const Banda& banda, Mira mira, bool sigue = false);
    double alto_de(const Banda& banda, Mira mira);
    bool condicion(const Banda& banda, Mira mira) const;
    const Valor& dato(int columna, Mira mira) const;
    QString texto_de(const Item& item, Mira mira, bool sigue);
    QString formatee(const Valor& valor, const Item& item) const;
    Moneda evalue(const QVector<Sumando>& formula, Mira mira) const;
    const QFontMetricsF& medidas(int estilo);
    QString ajuste(const QString& texto, int estilo, double ancho);

    const Proyecto& proyecto_;
    Reporte reporte_;
    const Variables& variables_;
    DatosInforme& datos_;
    Hojas& hojas_;
    Avance avance_;
    bool abandonado_ = false;
    bool hubo_grupo_ = false;
    bool en_detalle_ = false;

    QVector<int> usadas_;           ///< posición en los datos de cada columna que se usa
    QMap<QString, int> por_nombre_; ///< y cuál es, por nombre en mayúsculas
    QVector<Valor> fila_, previa_;
    QVector<Acumulado> acumulados_;
    std::unordered_map<const Item*, QString> ultimo_; ///< de los que no se repiten

    double y_ = 0, fondo_ = 0;
    bool en_hoja_ = false, primera_hoja_ = true;
    QVector<int> estilos_; ///< del proyecto a las hojas
    struct Medida {
        QFontMetricsF letra;
        std::array<float, 256> anchos;
    };
    std::unordered_map<int, Medida> medidas_;
};

} // namespace informes
