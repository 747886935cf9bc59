#pragma once
// Filas, sumas y variables de un reporte mientras se compone: de aquí leen sus fórmulas.
#include "datos/firebird/reloj.h"
#include "toolkit/informes/datos_informe.h"
#include "toolkit/informes/definicion.h"

#include <QDateTime>
#include <QImage>
#include <QMap>

namespace informes {

struct Variables {
    QMap<QString, QString> textos; ///< una sin valor se imprime vacía
    QMap<QString, QImage> imagenes;
    QString moneda, fraccion, final_letras; ///< de los importes en letras
    QDateTime ahora = reloj().ahora();
};

/// Las filas de cada conexión, por su nombre en mayúsculas.
using Fuentes = QMap<QString, DatosInforme*>;

class DatosReporte : public ContextoFormula {
public:
    /// Lanza ErrorInforme si falta una conexión o si la plantilla nombra una columna que no existe.
    DatosReporte(const Proyecto& proyecto, Reporte& reporte, const Variables& variables,
                 const Fuentes& fuentes);

    // --- recorrido
    /// Primera fila de cada conexión.
    void comience();
    /// Las filas que siguen son las de esta sección.
    void seccion(int numero);
    bool hay() const { return fuentes_[actual_].hay; }
    /// Pasa a la fila siguiente de la sección; falso si no hay más, y la previa es la última.
    bool siguiente();
    /// El nivel de afuera entre los grupos que cambiaron; 99 si ninguno.
    int nivel_roto() const;
    /// Suma la fila actual.
    void acumule();
    void borre_sumas(int nivel);
    void cambie_filas(); ///< la actual pasa a ser la previa, y al revés
    const QVector<Valor>& fila() const { return fuentes_[actual_].fila; }

    // --- lectura
    bool en_detalle = false;                       ///< las sumas cuentan también la fila actual
    bool sigue = false;                            ///< se compone un anuncio repetido
    const QVector<Valor>* fila_guardada = nullptr; ///< en lugar de la actual, si se da
    const Valor& columna(int fuente, int columna) const override;
    QString variable(const QString& nombre) const override;
    Racional acumulado(int numero) const override;
    const Aspecto& aspecto(int numero) const { return aspectos_[numero]; }
    QVector<Racional> sumas() const;
    void sumas(const QVector<Racional>& sumas);

private:
    struct Fuente {
        QString conexion;
        DatosInforme* datos;
        QVector<int> usadas; ///< posición en los datos de cada columna que se usa
        QMap<QString, int> por_nombre;
        QVector<Valor> fila, previa;
        bool hay = false, recorrida = false;
    };
    struct Acumulado {
        int fuente, nivel;
        QString clave;
        Formula suma, condicion; ///< sin suma, cuenta filas
        Racional total;
    };
    struct Rotura {
        int fuente, columna, nivel;
    };
    [[noreturn]] void falle(int renglon, const QString& que) const;
    int fuente(const QString& conexion, int renglon);
    int columna_de(int fuente, const QString& nombre, int renglon);
    void ate(Banda& banda);
    void ate(Item& item, const Banda& banda);
    void ate(Formula& formula, const Banda& banda, int renglon);
    int aspecto_de(int numero, const Banda& banda);
    int acumulado_de(const Formula& formula, const Formula::Nodo& nodo, const Banda& banda,
                     int renglon);
    Racional aporte(const Acumulado& a) const;
    bool lea(Fuente& f, bool primera);

    const Proyecto& proyecto_;
    Reporte& reporte_;
    const Variables& variables_;
    const Fuentes& todas_;
    QVector<Fuente> fuentes_;
    QVector<int> de_seccion_; ///< fuente de cada sección
    QVector<QVector<Rotura>> roturas_;
    QVector<Acumulado> acumulados_;
    QVector<Aspecto> aspectos_;
    QMap<std::pair<int, int>, int> aspectos_atados_; ///< por aspecto y sección
    int seccion_ = 0, actual_ = 0;
};

} // namespace informes
