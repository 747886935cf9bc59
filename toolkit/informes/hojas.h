#pragma once
// Hojas ya compuestas de un informe, guardadas en un archivo provisional.
//
// El compositor (o quien dibuja un formato propio) las escribe una a una; la vista preliminar y las
// salidas las leen en cualquier orden. En memoria solo queda dónde empieza cada una: un informe de
// cien mil renglones ocupa lo mismo que uno de cien. Medidas en milímetros desde la esquina del
// papel.
#include "toolkit/informes/definicion.h"

#include <QImage>
#include <QRectF>
#include <memory>

class QPainter;
class QTemporaryFile;
class QFont;

namespace informes {

/// Lo que se dibuja en una hoja.
struct Trazo {
    enum Clase : quint8 { Texto, Linea, Caja, Imagen } clase = Texto;
    QRectF lugar;        ///< de una línea, su avance: el ancho y el alto pueden ser negativos
    quint16 recurso = 0; ///< estilo o imagen
    Lado lado = Lado::Izquierda;
    bool parte = false; ///< texto en varios renglones dentro del lugar
    float grosor = 0;
    QString texto; ///< de una caja, el color de su relleno
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
    int imagen(const QImage& imagen);
    /// Otro documento dentro del mismo trabajo: sus páginas se numeran desde 1.
    void comience_documento();
    void comience_pagina(const Papel& papel);
    void texto(const QRectF& lugar, const QString& texto, int estilo, Lado lado = Lado::Izquierda,
               bool parte = false);
    void linea(QPointF desde, QPointF hasta, double grosor);
    void caja(const QRectF& lugar, double grosor, const QString& relleno = {});
    void imagen(const QRectF& lugar, int imagen);
    /// Lanza ErrorInforme si el disco está lleno.
    void termine_pagina();
    /// Número de la página en curso dentro de su documento, desde 1.
    int pagina_del_documento() const;

    // --- lectura
    int paginas() const { return int(hojas_.size()); }
    Papel papel(int pagina) const; ///< 0-based
    QVector<Trazo> lea(int pagina) const;
    const Estilo& estilo_de(int numero) const { return estilos_[numero]; }
    const QImage& imagen_de(int numero) const { return imagenes_[numero]; }

private:
    struct Hoja {
        qint64 desde;
        quint32 largo;
        quint16 papel;
        qint32 documento;
    };
    std::unique_ptr<QTemporaryFile> archivo_;
    QVector<Hoja> hojas_;
    QVector<Papel> papeles_;
    QVector<Estilo> estilos_;
    QVector<QImage> imagenes_;
    QVector<QByteArray> huellas_;
    QVector<int> primeras_; ///< primera página de cada documento
    QByteArray pagina_;     ///< la que se escribe
    qint64 final_ = 0;
    bool abierta_ = false;
};

/// Unidades de dibujo por milímetro: las letras se miden con enteros sin perder precisión.
constexpr int kPorMilimetro = 100;
/// Letra de un estilo en unidades de dibujo.
QFont letra_de(const Estilo& estilo);
/// Dibuja una hoja. `escala`: unidades del dispositivo por milímetro.
void pinte_hoja(QPainter& pintor, const Hojas& hojas, int pagina, double escala);

} // namespace informes
