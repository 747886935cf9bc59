#include "app/tema/tema_sistema.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace {
constexpr int kEsperaMs = 300;
constexpr uint kPrefiereOscuro = 1;
const QString kServicio = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kRuta = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kPreferencias = QStringLiteral("org.freedesktop.portal.Settings");
const QString kEspacio = QStringLiteral("org.freedesktop.appearance");
const QString kLlave = QStringLiteral("color-scheme");

/// Sin un bus ya abierto no se pregunta: buscarlo arrancaría uno.
bool hay_bus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
}

/// El portal envuelve el valor una o dos veces, según su versión.
bool es_oscuro(QVariant valor) {
    while (valor.canConvert<QDBusVariant>())
        valor = valor.value<QDBusVariant>().variant();
    return valor.toUInt() == kPrefiereOscuro;
}
} // namespace

bool escritorio_oscuro() {
    if (!hay_bus())
        return false;
    QDBusMessage pregunta =
        QDBusMessage::createMethodCall(kServicio, kRuta, kPreferencias, QStringLiteral("Read"));
    pregunta << kEspacio << kLlave;
    const QDBusMessage respuesta =
        QDBusConnection::sessionBus().call(pregunta, QDBus::Block, kEsperaMs);
    return respuesta.type() == QDBusMessage::ReplyMessage &&
           es_oscuro(respuesta.arguments().value(0));
}

VigiaTema::VigiaTema(QObject* padre) : QObject(padre) {
    if (hay_bus())
        QDBusConnection::sessionBus().connect(kServicio, kRuta, kPreferencias,
                                              QStringLiteral("SettingChanged"), this,
                                              SLOT(preferencia(QDBusMessage)));
}

void VigiaTema::preferencia(const QDBusMessage& aviso) {
    const QVariantList datos = aviso.arguments(); // espacio, llave, valor
    if (datos.value(0).toString() == kEspacio && datos.value(1).toString() == kLlave)
        emit cambio(es_oscuro(datos.value(2)));
}
