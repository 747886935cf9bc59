#include "apoyo/intermediario.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

sockaddr_in local(int puerto) {
    sockaddr_in d{};
    d.sin_family = AF_INET;
    d.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    d.sin_port = htons(uint16_t(puerto));
    return d;
}

void sin_demora(int s) {
    const int si = 1;
    ::setsockopt(s, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
}

} // namespace

Intermediario::Intermediario(int puerto_del_servidor) : puerto_servidor_(puerto_del_servidor) {
    oido_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in d = local(0);
    socklen_t largo = sizeof d;
    if (::bind(oido_, reinterpret_cast<sockaddr*>(&d), largo) != 0 || ::listen(oido_, 32) != 0 ||
        ::getsockname(oido_, reinterpret_cast<sockaddr*>(&d), &largo) != 0 ||
        ::pipe(despertador_) != 0)
        throw ErrorDatos(QStringLiteral("El intermediario no pudo abrir su puerto."));
    puerto_ = ntohs(d.sin_port);
    hilo_ = std::thread([this] { trabaje(); });
}

Intermediario::~Intermediario() {
    pida([this] { sale_ = true; });
    hilo_.join();
    for (const int s : {oido_, despertador_[0], despertador_[1]})
        ::close(s);
}

ParametrosConexion Intermediario::por_aqui(ParametrosConexion p) const {
    p.base = QStringLiteral("127.0.0.1/%1:").arg(puerto_) + p.base.section(':', 1);
    return p;
}

Ubicacion Intermediario::por_aqui(const Ubicacion& lugar) const {
    return Ubicacion(QStringLiteral("127.0.0.1/%1:").arg(puerto_) + lugar.texto().section(':', 1));
}

void Intermediario::corte() {
    pida([this] {
        cierre_todo();
        cortado_ = true;
    });
}

void Intermediario::corte_tras(Sentido sentido, qint64 octetos) {
    pida([=, this] { tope_[sentido] = pasados_[sentido] + octetos; });
}

void Intermediario::calle_tras(Sentido sentido, qint64 octetos) {
    pida([=, this] {
        tope_[sentido] = pasados_[sentido] + octetos;
        calla_al_tope_ = true;
    });
}

void Intermediario::calle() {
    pida([this] { callado_ = true; });
}

void Intermediario::calle_al_entrar_tras(qint64 octetos) {
    pida([=, this] { silencio_al_entrar_ = octetos; });
}

void Intermediario::atienda() {
    pida([this] {
        silencio_al_entrar_ = tope_[0] = tope_[1] = -1;
        callado_ = cortado_ = calla_al_tope_ = false;
    });
}

/// El cambio lo hace quien pide, con el hilo quieto; vuelve cuando el hilo ya lo vio.
void Intermediario::pida(const std::function<void()>& cambio) {
    std::unique_lock cierre(candado_);
    cambio();
    const quint64 mio = ++pedidos_;
    (void)!::write(despertador_[1], "x", 1);
    hecho_.wait(cierre, [&] { return atendidos_ >= mio; });
}

void Intermediario::cierre_todo() {
    // Lo que ya pasó alcanza a llegar: se corta en un octeto y no antes.
    for (const Par& p : pares_)
        for (const int s : {p.cliente, p.servidor})
            ::close(s);
    pares_.clear();
}

void Intermediario::entre() {
    const int cliente = ::accept4(oido_, nullptr, nullptr, SOCK_CLOEXEC);
    if (cliente < 0)
        return;
    const int servidor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in d = local(puerto_servidor_);
    if (cortado_ || ::connect(servidor, reinterpret_cast<const sockaddr*>(&d), sizeof d) != 0) {
        ::close(servidor);
        ::close(cliente);
        return;
    }
    sin_demora(cliente);
    sin_demora(servidor);
    pares_.push_back({cliente, servidor});
    if (silencio_al_entrar_ >= 0) {
        tope_[HaciaServidor] = pasados_[HaciaServidor] + std::exchange(silencio_al_entrar_, -1);
        calla_al_tope_ = true;
    }
}

/// Pasa lo que haya en un sentido; falso si ese lado cerró o llegó la hora de cortar.
bool Intermediario::pase(const Par& par, Sentido sentido) {
    const int de = sentido == HaciaServidor ? par.cliente : par.servidor;
    const int a = sentido == HaciaServidor ? par.servidor : par.cliente;
    char bufer[16384];
    const ssize_t n = ::recv(de, bufer, sizeof bufer, 0);
    if (n <= 0)
        return false;
    const qint64 tope = tope_[sentido];
    const qint64 cabe =
        tope < 0 ? n : qBound<qint64>(0, tope - pasados_[sentido].load(), qint64(n));
    for (qint64 van = 0; van < cabe;) {
        const ssize_t m = ::send(a, bufer + van, size_t(cabe - van), MSG_NOSIGNAL);
        if (m <= 0)
            return false;
        van += m;
    }
    pasados_[sentido] += cabe;
    if (tope >= 0 && pasados_[sentido] >= tope)
        (calla_al_tope_ ? callado_ : cortado_) = true;
    return !cortado_;
}

void Intermediario::trabaje() {
    for (;;) {
        std::vector<pollfd> espera{{despertador_[0], POLLIN, 0}, {oido_, POLLIN, 0}};
        {
            const std::lock_guard cierre(candado_);
            atendidos_ = pedidos_;
            hecho_.notify_all();
            if (sale_) {
                cierre_todo();
                return;
            }
            if (!callado_)
                for (const Par& p : pares_)
                    espera.insert(espera.end(), {{p.cliente, POLLIN, 0}, {p.servidor, POLLIN, 0}});
        }
        ::poll(espera.data(), nfds_t(espera.size()), -1);
        const std::lock_guard cierre(candado_);
        if (espera[0].revents) {
            char c;
            (void)!::read(despertador_[0], &c, 1);
            continue; // la lista de conexiones pudo cambiar
        }
        if (callado_)
            continue;
        for (size_t i = 2; i < espera.size() && !cortado_ && !callado_; ++i) {
            if (!espera[i].revents)
                continue;
            const Par par = pares_[(i - 2) / 2];
            if (!pase(par, i % 2 == 0 ? HaciaServidor : HaciaCliente) && !cortado_) {
                ::close(par.cliente);
                ::close(par.servidor);
                pares_.erase(pares_.begin() + long((i - 2) / 2));
                break;
            }
        }
        if (cortado_)
            cierre_todo();
        if (espera[1].revents && !callado_)
            entre();
    }
}
