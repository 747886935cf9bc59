#include "tax/calculo_cancelable.h"

#include "datos/firebird/cancelacion.h"
#include "sesion/tfdm.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTimer>
#include <future>

using namespace std::chrono_literals;

namespace {

constexpr auto kSinAviso = 300ms; ///< lo que dura menos no muestra nada
constexpr auto kPulso = 500ms;    ///< cada cuánto se pregunta por el paso

/// El paso en que va esa sesión, vacío si no se sabe. Se mira desde la conexión del programa: la
/// que calcula está ocupada.
QString paso_de(qint64 sesion) {
    try {
        Transaccion t(fdm().Quorvex, ModoTransaccion::Lectura);
        Cursor c(fdm().Quorvex.prepare("select cast(mon$variable_value as varchar(80)) from "
                                       "mon$context_variables where mon$attachment_id = ? and "
                                       "mon$variable_name = 'AVANCE'",
                                       t),
                 t, {Valor(sesion)});
        return c.siguiente() ? c.valor(0).texto() : QString();
    } catch (const ErrorDatos&) {
        return {}; // el avance es lo de menos: si la base se cayó, lo dirá el cálculo
    }
}

void muestre_paso(QProgressDialog& dialogo, const QString& texto, const QString& paso) {
    static const QRegularExpression forma("^(\\d+)/(\\d+) (.+)$");
    const auto partes = forma.match(paso);
    if (!partes.hasMatch())
        return;
    const int va = partes.captured(1).toInt(), de = partes.captured(2).toInt();
    dialogo.setMaximum(de);
    dialogo.setValue(va - 1);
    dialogo.setLabelText(
        QStringLiteral("%1\nPaso %2 de %3: %4.")
            .arg(texto, partes.captured(1), partes.captured(2), partes.captured(3)));
}

/// Muestra el avance hasta que `espera` termine. Falso si se canceló.
bool acompane(QWidget* padre, const QString& texto, qint64 sesion, QEventLoop& espera) {
    QProgressDialog dialogo(texto, QStringLiteral("Cancelar"), 0, 0, padre);
    dialogo.setObjectName(QStringLiteral("avance_calculo"));
    dialogo.setWindowTitle(QStringLiteral("Un momento"));
    dialogo.setWindowModality(Qt::ApplicationModal);
    dialogo.setAutoClose(false);
    dialogo.setAutoReset(false);
    bool cancelado = false;
    const auto cancele = [&] {
        cancelado = true;
        espera.quit();
    };
    QObject::connect(&dialogo, &QProgressDialog::canceled, &espera, cancele);
    QObject::connect(&dialogo, &QDialog::rejected, &espera, cancele);
    QTimer pulso;
    QObject::connect(&pulso, &QTimer::timeout, &dialogo,
                     [&] { muestre_paso(dialogo, texto, paso_de(sesion)); });
    pulso.start(kPulso);
    dialogo.show();
    espera.exec();
    return !cancelado;
}

} // namespace

bool calcule_cancelable(QWidget* padre, const QString& texto,
                        const std::function<void(Transaccion&)>& trabajo) {
    Conexion propia;
    propia.conectar(fdm().Quorvex.parametros());
    propia.observador = fdm().Quorvex.observador;
    const qint64 sesion = propia.consulte("select current_connection from rdb$database").entero();
    Cancelador cancelador(propia);
    QEventLoop espera;
    auto calculo = std::async(std::launch::async, [&] {
        const auto avise = qScopeGuard(
            [&] { QMetaObject::invokeMethod(&espera, &QEventLoop::quit, Qt::QueuedConnection); });
        propia.en_transaccion(ModoTransaccion::Escritura, trabajo);
    });
    bool cancelado = false;
    if (calculo.wait_for(kSinAviso) != std::future_status::ready)
        cancelado = !acompane(padre, texto, sesion, espera);
    while (cancelado && calculo.wait_for(kSinAviso) != std::future_status::ready)
        cancelador.cancele();
    try {
        calculo.get();
    } catch (const ErrorDatos&) {
        if (!cancelado)
            throw;
        return false;
    }
    return true; // si alcanzó a terminar, ya está hecho
}
