// Lo que puede no volver corre en otro hilo, y quien espera puede abandonarlo.
#include "datos/firebird/vigia.h"
#include "datos/firebird/vigia_interno.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

struct Pedido {
    std::mutex candado;
    std::condition_variable aviso;
    std::function<void()> trabajo, deseche;
    std::exception_ptr falla;
    bool listo = false, abandonado = false;
};

void atienda(const std::shared_ptr<Pedido>& pedido) {
    std::exception_ptr falla;
    try {
        pedido->trabajo();
    } catch (...) {
        falla = std::current_exception();
    }
    std::unique_lock cierre(pedido->candado);
    if (pedido->abandonado) {
        cierre.unlock();
        if (pedido->deseche)
            pedido->deseche();
        return;
    }
    pedido->falla = falla;
    pedido->listo = true;
    pedido->aviso.notify_all();
}

} // namespace

namespace fbc {

bool corra_aparte(std::function<void()> trabajo, std::function<void()> deseche, int cada_ms,
                  const std::function<bool()>& insiste) {
    maestro(); // el cliente se prepara en el hilo principal
    const auto pedido = std::make_shared<Pedido>();
    pedido->trabajo = std::move(trabajo);
    pedido->deseche = std::move(deseche);
    std::thread(atienda, pedido).detach();
    std::unique_lock cierre(pedido->candado);
    while (!pedido->aviso.wait_for(cierre, std::chrono::milliseconds(cada_ms),
                                   [&] { return pedido->listo; })) {
        cierre.unlock();
        const bool sigue = insiste && insiste();
        cierre.lock();
        if (!sigue && !pedido->listo) {
            pedido->abandonado = true;
            return false;
        }
    }
    if (pedido->falla)
        std::rethrow_exception(pedido->falla);
    return true;
}

void corra_vigilado(const ParametrosConexion& parametros, std::function<void()> trabajo,
                    std::function<void()> deseche,
                    const std::shared_ptr<std::atomic<qint64>>& avance) {
    const LimitesDeRed limites = limites_de_red();
    const auto insiste = [&] {
        return (avance && ahora_ms() - *avance < limites.sin_respuesta) ||
               atiende(parametros, limites.prueba);
    };
    if (corra_aparte(std::move(trabajo), std::move(deseche), limites.sin_respuesta, insiste))
        return;
    corte(equipo_de(parametros)); // y con él termina el trabajo abandonado
    ++redes_caidas;
    throw ErrorBase({ClaseFalla::ConexionPerdida}, kSinServidor,
                    QStringLiteral("%1 dejó de contestar").arg(equipo_de(parametros)));
}

} // namespace fbc
