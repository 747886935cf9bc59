#include "app/tema/tema_sistema.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace {
constexpr int kEsperaMs = 300;
constexpr uint kPrefiereOscuro = 1;
} // namespace

bool escritorio_oscuro() {
    // Sin un bus ya abierto no se pregunta: buscarlo arrancaría uno.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return false;
    QDBusMessage pregunta = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    pregunta << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
    const QDBusMessage respuesta =
        QDBusConnection::sessionBus().call(pregunta, QDBus::Block, kEsperaMs);
    // El portal envuelve el valor una o dos veces, según su versión.
    QVariant valor = respuesta.arguments().value(0);
    while (valor.canConvert<QDBusVariant>())
        valor = valor.value<QDBusVariant>().variant();
    return respuesta.type() == QDBusMessage::ReplyMessage && valor.toUInt() == kPrefiereOscuro;
}
