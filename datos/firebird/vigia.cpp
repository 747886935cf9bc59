#include "datos/firebird/vigia.h"

#include "datos/firebird/vigia_interno.h"

#include <QDir>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <thread>

using namespace Firebird;

namespace {

constexpr int kPuertoDeFirebird = 3050;
constexpr int kSegundosSinNada = 10, kSegundosEntreLlamados = 5;
constexpr int kMilisegundosSinAcuse = 30'000;

struct Vigilada {
    Conexion::Interno* interno;
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

/// Puerto de "equipo/puerto"; el puerto también puede ser el nombre de un servicio.
int puerto_de(const QString& equipo) {
    const QString puerto = equipo.section('/', 1, 1);
    if (const int numero = puerto.toInt())
        return numero;
    const servent* s = ::getservbyname(qPrintable(puerto), "tcp");
    return s ? ntohs(s->s_port) : kPuertoDeFirebird;
}

/// El puerto del otro extremo de una línea abierta; 0 si no es una.
int puerto_del_otro(int s) {
    sockaddr_storage otro{};
    socklen_t largo = sizeof otro;
    if (::getpeername(s, reinterpret_cast<sockaddr*>(&otro), &largo) != 0)
        return 0;
    if (otro.ss_family == AF_INET)
        return ntohs(reinterpret_cast<const sockaddr_in&>(otro).sin_port);
    return otro.ss_family == AF_INET6 ? ntohs(reinterpret_cast<const sockaddr_in6&>(otro).sin6_port)
                                      : 0;
}

/// Las líneas abiertas de este programa con ese servidor.
std::vector<int> lineas_con(const QString& equipo) {
    const int puerto = puerto_de(equipo);
    std::vector<int> lineas;
    for (const QString& s : QDir("/proc/self/fd").entryList(QDir::System | QDir::Files))
        if (puerto_del_otro(s.toInt()) == puerto)
            lineas.push_back(s.toInt());
    return lineas;
}

/// Que el sistema note en medio minuto, y no en un cuarto de hora, que el otro equipo ya no recibe
/// por esa línea: un cortafuegos la olvida mientras el servidor sigue atendiendo a los demás.
void que_note_el_silencio(int linea) {
    const auto fije = [linea](int nivel, int opcion, int valor) {
        ::setsockopt(linea, nivel, opcion, &valor, sizeof valor);
    };
    fije(SOL_SOCKET, SO_KEEPALIVE, 1);
    fije(IPPROTO_TCP, TCP_KEEPIDLE, kSegundosSinNada);
    fije(IPPROTO_TCP, TCP_KEEPINTVL, kSegundosEntreLlamados);
    fije(IPPROTO_TCP, TCP_USER_TIMEOUT, kMilisegundosSinAcuse);
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
            fbc::corte(fbc::equipo_de(parametros));
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

// Termina las líneas de este programa con el servidor. Quien espere en una despierta con una
// falla; los sockets los suelta después quien los abrió. El aborto del cliente los suelta debajo
// de quien espera: el sistema da ese número al siguiente que abra uno, la prueba del propio vigía,
// y la llamada quedaba esperando para siempre en el ajeno.
void corte(const QString& equipo) {
    for (const int linea : lineas_con(equipo))
        ::shutdown(linea, SHUT_RDWR);
}

void vigile(Conexion::Interno& interno, const ParametrosConexion& parametros) {
    interno.remota = es_remota(parametros.base);
    if (!interno.remota)
        return;
    for (const int linea : lineas_con(equipo_de(parametros)))
        que_note_el_silencio(linea);
    const std::lock_guard cierre(puesto().candado);
    puesto().vigiladas.push_back({&interno, interno.numero, parametros});
    if (!std::exchange(puesto().ronda, true))
        std::thread(ronde).detach();
}

void deje_de_vigilar(Conexion::Interno& interno) noexcept {
    const std::lock_guard cierre(puesto().candado);
    std::erase_if(puesto().vigiladas, [&](const Vigilada& v) { return v.interno == &interno; });
    interno.remota = false;
    puesto().aviso.notify_all();
}

} // namespace fbc
