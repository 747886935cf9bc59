// Entrar a una base: los parámetros que se dicen al servidor y el plazo que tiene para contestar.
#include "datos/firebird/interno.h"

#include <QCoreApplication>
#include <condition_variable>
#include <mutex>
#include <thread>

using namespace Firebird;

namespace {

// Más largas no las recibe el cliente, y lo dice en inglés.
constexpr int kLargoUbicacion = 1000;
constexpr int kSegundosSaludo = 5; ///< para que el equipo conteste el primer saludo

IXpbBuilder* parametros_del_enlace(const ParametrosConexion& p, bool crear, int paginas_cache) {
    fbc::Estado estado;
    IXpbBuilder* dpb = fbc::utilidades()->getXpbBuilder(&estado, IXpbBuilder::DPB, nullptr, 0);
    estado.compruebe();
    dpb->insertString(&estado, isc_dpb_user_name, fbc::a_latin1(p.usuario).constData());
    if (!p.clave.isEmpty())
        dpb->insertString(&estado, isc_dpb_password, p.clave.toUtf8().constData());
    dpb->insertString(&estado, isc_dpb_lc_ctype, "ISO8859_1");
    dpb->insertInt(&estado, isc_dpb_sql_dialect, 3);
    dpb->insertInt(&estado, isc_dpb_connect_timeout, kSegundosSaludo);
    // Quién tiene abierta la base: un servidor lo averigua solo, el motor en proceso no.
    const QByteArray programa = QCoreApplication::applicationName().toLocal8Bit();
    dpb->insertString(&estado, isc_dpb_process_name, programa.constData());
    dpb->insertInt(&estado, isc_dpb_process_id, int(QCoreApplication::applicationPid()));
    if (!crear && !p.rol.isEmpty())
        dpb->insertString(&estado, isc_dpb_sql_role_name, fbc::a_latin1(p.rol).constData());
    if (crear) {
        dpb->insertInt(&estado, isc_dpb_page_size, 8192);
        dpb->insertString(&estado, isc_dpb_set_db_charset, "ISO8859_1");
        dpb->insertInt(&estado, isc_dpb_set_page_buffers, paginas_cache);
        dpb->insertInt(&estado, isc_dpb_force_write, p.escritura_forzada ? 1 : 0);
    }
    return dpb;
}

IAttachment* entre(const ParametrosConexion& p, bool crear, int paginas_cache) {
    IXpbBuilder* dpb = parametros_del_enlace(p, crear, paginas_cache);
    fbc::Estado estado;
    IProvider* proveedor = fbc::maestro()->getDispatcher();
    const QByteArray ruta = p.base.toLocal8Bit();
    const unsigned largo = dpb->getBufferLength(&estado);
    const unsigned char* datos = dpb->getBuffer(&estado);
    IAttachment* enlace = crear
                              ? proveedor->createDatabase(&estado, ruta.constData(), largo, datos)
                              : proveedor->attachDatabase(&estado, ruta.constData(), largo, datos);
    dpb->dispose();
    proveedor->release();
    estado.compruebe(true);
    return enlace;
}

/// Lo que se pidió a un hilo aparte. Quien se cansa de esperar lo abandona; si después contesta, el
/// propio hilo lo suelta.
struct Pedido {
    std::mutex candado;
    std::condition_variable aviso;
    IAttachment* enlace = nullptr;
    std::exception_ptr falla;
    bool listo = false, abandonado = false;
};

void atienda(const std::shared_ptr<Pedido>& pedido, const ParametrosConexion& p) {
    IAttachment* enlace = nullptr;
    std::exception_ptr falla;
    try {
        enlace = entre(p, false, 0);
    } catch (...) {
        falla = std::current_exception();
    }
    const std::lock_guard cierre(pedido->candado);
    if (pedido->abandonado && enlace) {
        fbc::despida(enlace);
        return;
    }
    pedido->enlace = enlace;
    pedido->falla = falla;
    pedido->listo = true;
    pedido->aviso.notify_all();
}

} // namespace

namespace fbc {

bool es_remota(const QString& base) {
    return base.indexOf(':') > 1; // "C:\..." es un archivo
}

void despida(IAttachment* enlace) noexcept {
    Estado estado;
    enlace->detach(&estado);
    if (estado.fallo())
        enlace->release();
}

IAttachment* pida_enlace(const ParametrosConexion& parametros, bool crear, int paginas_cache,
                         int espera_ms) {
    if (parametros.base.size() > kLargoUbicacion) {
        const QString texto = QStringLiteral("La ubicación de la base de datos tiene %1 "
                                             "caracteres: revise el archivo de conexión.")
                                  .arg(parametros.base.size());
        throw ErrorBase({ClaseFalla::NoExiste}, QStringLiteral("dbExpress Error: ") + texto, {},
                        texto);
    }
    if (crear || !es_remota(parametros.base))
        return entre(parametros, crear, paginas_cache);
    maestro(); // el cliente se prepara en el hilo principal
    auto pedido = std::make_shared<Pedido>();
    std::thread(atienda, pedido, parametros).detach();
    std::unique_lock cierre(pedido->candado);
    if (!pedido->aviso.wait_for(cierre, std::chrono::milliseconds(espera_ms),
                                [&] { return pedido->listo; })) {
        pedido->abandonado = true;
        const QString equipo = parametros.base.section(':', 0, 0);
        throw ErrorBase({ClaseFalla::ConexionPerdida},
                        QStringLiteral("dbExpress Error: Connection failed: ") + equipo,
                        QStringLiteral("%1 no contestó en %2 ms").arg(equipo).arg(espera_ms),
                        QStringLiteral("No se encontró el servidor Interbase/Firebird. Verifique "
                                       "Servidor en panel de control y puerto TCP 3050."));
    }
    if (pedido->falla)
        std::rethrow_exception(pedido->falla);
    return pedido->enlace;
}

} // namespace fbc
