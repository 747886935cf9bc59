#pragma once
// Borrado de un comprobante: los pasos que comparten las pantallas que lo permiten.
//
// Cada pantalla dice si exige el derecho, qué avisa y qué órdenes ejecuta; las diferencias entre
// ellas (cuáles dejan las líneas NIIF en su sitio) se conservan.
#include <QString>
#include <QStringList>

struct BorradoComprobante {
    QString tipo, prefijo, numero;
    qint64 tipo_origen = 0;    ///< ENCO_TIPOREF: distinto de 0, lo borra la opción de su módulo
    bool exige_derecho = true; ///< opción 32
    QString aviso;             ///< antes de la pregunta
    QStringList ordenes;       ///< completas y en orden; cada una se confirma por aparte
};

enum class ResultadoBorrado { Negado, Ajeno, Conservado, Borrado };

/// Derecho, origen, pregunta y órdenes. Muestra sus mensajes; las fallas de la base salen.
ResultadoBorrado borre_comprobante(const BorradoComprobante& comprobante);
