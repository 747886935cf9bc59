#include "datos/firebird/vigia.h"

#include "datos/firebird/vigia_interno.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

using namespace Firebird;

namespace {

struct Vigilada {
    Conexion::Interno* interno;
    IAttachment* enlace; ///< con una referencia propia: vive aunque la conexión se suelte
    quint64 numero;
    ParametrosConexion parametros;
    qint64 probada = 0; ///< última vez que el servidor contestó la prueba
};

/// No se destruye: el hilo puede seguir cuando el programa ya está saliendo.
struct Puesto {
    std::mutex candado;
    std::condition_variable aviso;
    std::vector<Vigilada> vigiladas;
    LimitesDeRed limites;
    bool ronda = false;
};
Puesto& puesto() {
    static Puesto* const unico = new Puesto;
    return *unico;
}

void corte(const QString& equipo) {
    for (const Vigilada& v : puesto().vigiladas)
        if (fbc::equipo_de(v.parametros) == equipo) {
            fbc::Estado estado;
            v.enlace->cancelOperation(&estado, fb_cancel_abort);
        }
}

/// La conexión que lleva demasiado esperando; nulo si ninguna.
Vigilada* la_que_espera() {
    const qint64 ahora = fbc::ahora_ms();
    for (Vigilada& v : puesto().vigiladas) {
        const qint64 desde = v.interno->llamada;
        if (desde != 0 && ahora - std::max(desde, v.probada) > puesto().limites.sin_respuesta)
            return &v;
    }
    return nullptr;
}

void ronde() {
    std::unique_lock cierre(puesto().candado);
    while (!puesto().vigiladas.empty()) {
        puesto().aviso.wait_for(cierre, std::chrono::milliseconds(std::clamp(
                                            puesto().limites.sin_respuesta / 8, 20, 1000)));
        Vigilada* espera = la_que_espera();
        if (!espera)
            continue;
        const quint64 numero = espera->numero;
        const qint64 llamada = espera->interno->llamada;
        const ParametrosConexion parametros = espera->parametros;
        const int plazo = puesto().limites.prueba;
        cierre.unlock();
        const bool viva = fbc::atiende(parametros, plazo);
        cierre.lock();
        const auto v = std::find_if(puesto().vigiladas.begin(), puesto().vigiladas.end(),
                                    [&](const Vigilada& x) { return x.numero == numero; });
        if (v == puesto().vigiladas.end() || v->interno->llamada != llamada)
            continue; // contestó mientras tanto
        if (viva)
            v->probada = fbc::ahora_ms();
        else
            corte(fbc::equipo_de(parametros));
    }
    puesto().ronda = false;
}

} // namespace

LimitesDeRed limites_de_red() {
    const std::lock_guard cierre(puesto().candado);
    return puesto().limites;
}

void limites_de_red(const LimitesDeRed& limites) {
    const std::lock_guard cierre(puesto().candado);
    puesto().limites = limites;
    puesto().aviso.notify_all();
}

namespace fbc {

qint64 ahora_ms() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

QString equipo_de(const ParametrosConexion& parametros) {
    return parametros.base.section(':', 0, 0);
}

// Todo lo que puede no volver, también la despedida, corre en otro hilo: un vigía que espera no
// vigila.
bool atiende(const ParametrosConexion& parametros, int plazo_ms) {
    try {
        IAttachment* enlace = pida_enlace(parametros, false, 0, plazo_ms);
        std::thread([enlace] { despida(enlace); }).detach();
        return true;
    } catch (const ErrorBase& e) {
        return !e.conexion_perdida();
    } catch (const std::exception&) {
        return true; // no se pudo preguntar: no hay por qué cortar
    }
}

void vigile(Conexion::Interno& interno, const ParametrosConexion& parametros) {
    interno.remota = es_remota(parametros.base);
    if (!interno.remota)
        return;
    const std::lock_guard cierre(puesto().candado);
    interno.enlace->addRef();
    puesto().vigiladas.push_back({&interno, interno.enlace, interno.numero, parametros});
    if (!std::exchange(puesto().ronda, true))
        std::thread(ronde).detach();
}

void deje_de_vigilar(Conexion::Interno& interno) noexcept {
    const std::lock_guard cierre(puesto().candado);
    std::erase_if(puesto().vigiladas, [&](const Vigilada& v) {
        if (v.interno != &interno)
            return false;
        v.enlace->release();
        return true;
    });
    interno.remota = false;
    puesto().aviso.notify_all();
}

} // namespace fbc
