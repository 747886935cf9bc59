// El programa sigue el tema del escritorio: se le pregunta a un portal de mentira en un bus propio.
#include "app/aplicacion.h"
#include "app/tema/tema_sistema.h"
#include "toolkit/barraestado.h"
#include "toolkit/estilo.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <cmath>

namespace {

/// Contesta envuelto como lo hace el verdadero, y después anuncia otro valor si se le pide.
class Portal : public QDBusVirtualObject {
public:
    Portal(uint valor, int otro) : valor_(valor), otro_(otro) {}
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& mensaje, const QDBusConnection& conexion) override {
        const QDBusVariant valor{QVariant(valor_)};
        const QVariant doble = QVariant::fromValue(QDBusVariant(QVariant::fromValue(valor)));
        const bool enviada = conexion.send(mensaje.createReply(doble));
        if (otro_ < 0)
            return enviada;
        QDBusMessage aviso = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
        aviso << QString("org.freedesktop.appearance") << QString("color-scheme")
              << QVariant::fromValue(QDBusVariant(uint(otro_)));
        return conexion.send(aviso);
    }

private:
    uint valor_;
    int otro_;
};

int sirva_portal(uint valor, int otro, int& cuantos, char** argumentos) {
    QCoreApplication aplicacion(cuantos, argumentos);
    Portal portal(valor, otro);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerVirtualObject("/org/freedesktop/portal/desktop", &portal) ||
        !bus.registerService("org.freedesktop.portal.Desktop"))
        return 1;
    puts("listo");
    fflush(stdout);
    return QCoreApplication::exec();
}

constexpr double kContraste = 4.5; ///< el menor de un texto corriente, WCAG 2.1 (1.4.3)

double contraste(const QColor& uno, const QColor& otro) {
    const auto luz = [](const QColor& c) {
        const auto lineal = [](double x) {
            return x <= 0.03928 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * lineal(c.redF()) + 0.7152 * lineal(c.greenF()) + 0.0722 * lineal(c.blueF());
    };
    const double a = luz(uno), b = luz(otro);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

/// Dice "oscuro" o "claro" según lo que el programa resuelve al arrancar o, si espera, cuando el
/// escritorio lo cambia.
int diga_tema(bool espere, int& cuantos, char** argumentos) {
    Aplicacion aplicacion(cuantos, argumentos);
    AvisosBarra barra;
    barra.Timer2Timer(); // en reposo toma el color de los botones
    barra.show();
    QLabel negativo("-1.00");
    QPalette rojo;
    rojo.setColor(QPalette::WindowText, color_negativo());
    negativo.setPalette(rojo);
    if (espere) {
        QObject::connect(aplicacion.findChild<VigiaTema*>(), &VigiaTema::cambio, &aplicacion,
                         &QCoreApplication::quit);
        QApplication::exec();
        QApplication::processEvents(); // la paleta nueva llega a cada control después
    }
    if (negativo.palette().color(QPalette::WindowText) != color_negativo())
        return 2;
    const QPalette p = QApplication::palette();
    const auto claridad = [&p](QPalette::ColorRole rol) { return p.color(rol).lightness(); };
    // Cada tinta se distingue de su fondo.
    for (const auto& [tinta, fondo] : {std::pair{QPalette::WindowText, QPalette::Window},
                                       {QPalette::Text, QPalette::Base},
                                       {QPalette::Text, QPalette::AlternateBase},
                                       {QPalette::ButtonText, QPalette::Button},
                                       {QPalette::HighlightedText, QPalette::Highlight},
                                       {QPalette::Link, QPalette::Base},
                                       {QPalette::ToolTipText, QPalette::ToolTipBase}})
        if (qAbs(claridad(tinta) - claridad(fondo)) < 80)
            return 2;
    const QPalette b = barra.palette();
    if (b.color(barra.backgroundRole()) != p.color(QPalette::Button) ||
        b.color(barra.foregroundRole()) != p.color(QPalette::ButtonText))
        return 2;
    // Lo apagado no parece encendido, pero se lee: contra lo que de verdad se pinta detrás.
    QComboBox apagada;
    apagada.addItem("Enero");
    apagada.setEnabled(false);
    const QImage pintada = apagada.grab().toImage();
    if (contraste(p.color(QPalette::Disabled, QPalette::ButtonText),
                  pintada.pixelColor(4, pintada.height() / 2)) < kContraste)
        return 2;
    // Y una caja apagada no se toma por una en la que se escribe.
    QLineEdit libre, cerrada("Pérez");
    cerrada.setEnabled(false);
    const auto fondo = [](QLineEdit& caja) {
        const QImage vista = caja.grab().toImage();
        return vista.pixelColor(vista.width() - 6, vista.height() / 2);
    };
    // Sobre papel oscuro el mismo paso apenas se ve.
    const double distintas = claridad(QPalette::Base) < 128 ? 1.4 : 1.08;
    if (contraste(fondo(libre), fondo(cerrada)) < distintas ||
        contraste(p.color(QPalette::Disabled, QPalette::Text), fondo(cerrada)) < kContraste)
        return 2;
    if (qAbs(color_negativo().lightness() - claridad(QPalette::Base)) < 80)
        return 2;
    // Los dos colores de la empresa no llegan a nada de lo que se lee.
    const QColor rojos[] = {color_negativo(), color_inactivo()};
    aplique_estilo(aplicacion, {Qt::magenta, Qt::yellow});
    if (colores_empresa().principal != Qt::magenta || QApplication::palette() != p ||
        color_negativo() != rojos[0] || color_inactivo() != rojos[1])
        return 2;
    puts(claridad(QPalette::Base) < 128 ? "oscuro" : "claro");
    return 0;
}

} // namespace

class PruebaTema : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        bus_.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        QVERIFY(bus_.waitForReadyRead(-1));
        direccion_ = QString::fromLatin1(bus_.readLine()).trimmed();
        QVERIFY(!direccion_.isEmpty());
    }
    void cleanupTestCase() {
        bus_.terminate();
        bus_.waitForFinished();
    }

    void el_tema_es_el_del_escritorio_salvo_que_se_pida_otro() {
        const struct {
            int portal; // -1: no hay
            QString pedido, tema;
            int otro = -1; // lo que anuncia después; -1: nada
        } casos[] = {{-1, "", "claro"},    {0, "", "claro"},      {1, "", "oscuro"},
                     {2, "", "claro"},     {1, "claro", "claro"}, {2, "oscuro", "oscuro"},
                     {2, "", "oscuro", 1}, {1, "", "claro", 2},   {2, "claro", "claro", 1}};
        for (const auto& c : casos)
            compruebe(c.portal, c.pedido, c.tema, c.otro);
    }

private:
    void compruebe(int portal, const QString& pedido, const QString& tema, int otro) {
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert("DBUS_SESSION_BUS_ADDRESS", direccion_);
        entorno.insert("QUORVEX_TEMA", pedido);
        QProcess servidor, programa;
        servidor.setProcessEnvironment(entorno);
        programa.setProcessEnvironment(entorno);
        if (portal >= 0) {
            servidor.start(QCoreApplication::applicationFilePath(),
                           {"--portal", QString::number(portal), QString::number(otro)});
            QVERIFY(servidor.waitForReadyRead(-1));
        }
        programa.start(QCoreApplication::applicationFilePath(),
                       {otro < 0 ? "--tema" : "--tema-nuevo"});
        QVERIFY(programa.waitForFinished(-1));
        servidor.kill();
        servidor.waitForFinished();
        QCOMPARE(programa.exitCode(), 0);
        QCOMPARE(QString::fromLatin1(programa.readAllStandardOutput()).trimmed(), tema);
    }

    QProcess bus_;
    QString direccion_;
};

int main(int cuantos, char** argumentos) {
    if (cuantos == 4 && qstrcmp(argumentos[1], "--portal") == 0)
        return sirva_portal(uint(atoi(argumentos[2])), atoi(argumentos[3]), cuantos, argumentos);
    if (cuantos == 2 && qstrncmp(argumentos[1], "--tema", 6) == 0)
        return diga_tema(qstrcmp(argumentos[1], "--tema") != 0, cuantos, argumentos);
    QCoreApplication aplicacion(cuantos, argumentos);
    PruebaTema prueba;
    return QTest::qExec(&prueba, cuantos, argumentos);
}

#include "prueba_tema.moc"
