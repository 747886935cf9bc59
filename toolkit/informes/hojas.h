#pragma once
// Hojas ya compuestas de un informe, guardadas en un archivo provisional.
//
// El compositor (o quien dibuja un formato propio) las escribe una a una; la vista preliminar y las
// salidas las leen en cualquier orden. En memoria solo queda dónde empieza cada una: un informe de
// cien mil renglones ocupa lo mismo que uno de cien. Medidas en milímetros desde la esquina del
// papel.
#include "toolkit/informes/definicion.h"

#include <QCache>
#include <QImage>
#include <QRectF>
#include <memory>
#include <vector>

class QPainter;
class QTemporaryFile;

namespace informes {

class Letra;

/// Lo que se dibuja en una hoja. Un texto es siempre de un renglón.
struct Trazo {
    enum Clase : quint8 { Texto, Linea, Caja, Imagen } clase = Texto;
    QRectF lugar;        ///< de una línea, su avance: el ancho y el alto pueden ser negativos
    quint16 recurso = 0; ///< estilo o imagen
    Lado lado = Lado::Izquierda;
    float grosor = 0; ///< de un texto que no cabe, a qué parte de su tamaño se pinta
    QString texto;    ///< de una caja, el color de su relleno
};

/// Lugar del total de páginas en un texto, que solo se conoce al terminar.
constexpr QChar kTotalPaginas{0xE000};

class Hojas {
public:
    Hojas();
    ~Hojas();
    Hojas(const Hojas&) = delete;
    Hojas& operator=(const Hojas&) = delete;

    // --- escritura
    int estilo(const Estilo& estilo);
    /// Lo que mide la letra de un estilo de estas hojas. Medirla cuesta: sirve a todos los reportes
    /// de un trabajo.
    const Letra& letra(int estilo) const;
    int imagen(const QImage& imagen);
    /// Una imagen como llegó (PNG, JPEG, BMP); -1 si no se puede leer.
    int imagen(const QByteArray& archivo);
    /// Otro documento dentro del mismo trabajo: sus páginas se numeran desde 1.
    void comience_documento();
    void comience_pagina(const Papel& papel);
    void trazo(const Trazo& trazo);
    void texto(const QRectF& lugar, const QString& texto, int estilo, Lado lado = Lado::Izquierda);
    void linea(QPointF desde, QPointF hasta, double grosor);
    void caja(const QRectF& lugar, double grosor, const QString& relleno = {});
    void imagen(const QRectF& lugar, int imagen);
    /// Lanza ErrorInforme si el disco está lleno.
    void termine_pagina();
    /// Número de la página en curso dentro de su documento, desde 1.
    int pagina_del_documento() const;
    /// Texto que se sabrá después: el que se escribe ahora ocupa su lugar en las hojas.
    QString pendiente();
    void resuelva(const QString& pendiente, const QString& texto);

    // --- lectura
    int paginas() const { return int(hojas_.size()); }
    Papel papel(int pagina) const; ///< 0-based
    QVector<Trazo> lea(int pagina) const;
    const Estilo& estilo_de(int numero) const { return estilos_[numero]; }
    QImage imagen_de(int numero) const;
    QSize tamano_imagen(int numero) const { return imagenes_[numero].tamano; }

private:
    struct Hoja {
        qint64 desde;
        quint32 largo;
        quint16 papel;
        qint32 documento;
    };
    struct Guardada {
        QByteArray huella;
        qint64 desde;
        qint64 largo;
        QSize tamano;
    };
    qint64 escriba(const QByteArray& bytes);
    QByteArray lea_bytes(qint64 desde, qint64 largo) const;
    void reemplace_pendientes(QString& texto) const;

    std::unique_ptr<QTemporaryFile> archivo_;
    QVector<Hoja> hojas_;
    QVector<Papel> papeles_;
    QVector<Estilo> estilos_;
    mutable std::vector<std::unique_ptr<Letra>> letras_; ///< por estilo; las que se han pedido
    QVector<Guardada> imagenes_;
    mutable QCache<int, QImage> a_la_mano_;      ///< las últimas que se dibujaron
    QVector<std::pair<qint64, int>> pendientes_; ///< dónde quedó cada texto y su largo
    QVector<int> primeras_;                      ///< primera página de cada documento
    QByteArray pagina_;                          ///< la que se escribe
    qint64 final_ = 0;
    bool abierta_ = false;
};

/// A qué parte de su tamaño se pinta un texto que mide `ancho` mm: 1 si cabe en su lugar.
double achique_de(const Trazo& texto, double ancho);

/// Unidades de dibujo por milímetro: las letras se miden con enteros sin perder precisión.
constexpr int kPorMilimetro = 100;
/// Dibuja una hoja. `escala`: unidades del dispositivo por milímetro.
void pinte_hoja(QPainter& pintor, const Hojas& hojas, int pagina, double escala);

} // namespace informes
