#include "datos/firebird/claves.h"

#include "datos/firebird/errores.h"

#include <QRandomGenerator>

namespace {

constexpr int kOctetosFijos = 2; // la semilla al comienzo y la suma de control al final

quint8 revuelva(quint32& estado) {
    estado = estado * 1664525u + 1013904223u;
    return quint8(estado >> 24);
}

quint8 suma_de_control(quint8 semilla, const QByteArray& clave) {
    quint32 estado = semilla ^ 0x5Au;
    for (const char c : clave)
        estado = (estado ^ quint8(c)) * 16777619u;
    return quint8(estado >> 16);
}

QByteArray cruce(quint8 semilla, QByteArray octetos) {
    quint32 estado = 0x51A7u + semilla;
    for (char& c : octetos)
        c = char(quint8(c) ^ revuelva(estado));
    return octetos;
}

} // namespace

QString ofusque_clave(const QString& clave) {
    const QByteArray octetos = clave.toUtf8();
    const quint8 semilla = quint8(QRandomGenerator::global()->generate());
    QByteArray salida(1, char(semilla));
    salida += cruce(semilla, octetos);
    salida += char(suma_de_control(semilla, octetos));
    return QString::fromLatin1(salida.toHex());
}

QString aclare_clave(const QString& ofuscada) {
    const QByteArray octetos = QByteArray::fromHex(ofuscada.toLatin1());
    const bool entera = octetos.size() >= kOctetosFijos && octetos.size() * 2 == ofuscada.size();
    if (entera) {
        const quint8 semilla = quint8(octetos.front());
        const QByteArray clave = cruce(semilla, octetos.mid(1, octetos.size() - kOctetosFijos));
        if (suma_de_control(semilla, clave) == quint8(octetos.back()))
            return QString::fromUtf8(clave);
    }
    throw ErrorDatos(QStringLiteral(
        "La clave recibida en la línea de órdenes no es válida. Ingrese por el módulo principal."));
}
