#pragma once
// Intermediario de red entre el programa y el servidor de pruebas, para cortar la conexión donde y
// cuando la prueba quiera, como lo haría un cable.
//
//     Intermediario red(servidor.puerto());
//     c.conectar(red.por_aqui(servidor.parametros()));
//     red.corte_tras(Intermediario::HaciaCliente, 120); // la respuesta no llega entera
//     ...
//     red.atienda();                                    // el servidor vuelve
#include "datos/firebird/conexion.h"
#include "herramientas/ubicacion.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

class Intermediario {
public:
    enum Sentido { HaciaServidor, HaciaCliente };

    explicit Intermediario(int puerto_del_servidor);
    ~Intermediario();
    Intermediario(const Intermediario&) = delete;
    Intermediario& operator=(const Intermediario&) = delete;

    int puerto() const { return puerto_; }
    /// La misma base, entrando por el intermediario.
    ParametrosConexion por_aqui(ParametrosConexion p) const;
    Ubicacion por_aqui(const Ubicacion& lugar) const;

    /// Corta todas las conexiones ya, y no deja entrar hasta `atienda`.
    void corte();
    /// Deja pasar `octetos` más en ese sentido y corta, hasta `atienda`.
    void corte_tras(Sentido sentido, qint64 octetos);
    /// Deja de pasar datos sin cerrar nada: una red muerta. Lo que llega se queda en espera.
    void calle();
    /// Deja pasar `octetos` más en ese sentido y calla, hasta `atienda`.
    void calle_tras(Sentido sentido, qint64 octetos);
    /// Calla cuando la próxima conexión que entre haya enviado `octetos`.
    void calle_al_entrar_tras(qint64 octetos);
    /// Vuelve a dejar pasar y entrar, sin cortes pendientes.
    void atienda();
    /// Hubo un corte o un silencio desde el último `atienda`.
    bool cortado() const { return cortado_ || callado_; }
    /// Octetos que han pasado en total.
    qint64 pasados(Sentido sentido) const { return pasados_[sentido]; }

private:
    struct Par {
        int cliente, servidor;
    };
    void trabaje();
    void entre();
    bool pase(const Par& par, Sentido sentido);
    void cierre_todo();
    void pida(const std::function<void()>& cambio);

    int puerto_servidor_, puerto_ = 0;
    int oido_ = -1, despertador_[2];
    std::vector<Par> pares_;
    std::atomic<qint64> pasados_[2] = {0, 0};
    std::atomic<bool> cortado_{false};
    std::atomic<bool> callado_{false};
    qint64 tope_[2] = {-1, -1};      ///< octetos en total en que se corta o se calla; -1 si no
    bool calla_al_tope_ = false;     ///< al llegar al tope calla en vez de cortar
    qint64 silencio_al_entrar_ = -1; ///< octetos de la próxima que entre; -1 si no
    bool sale_ = false;
    std::mutex candado_;
    std::condition_variable hecho_;
    quint64 pedidos_ = 0, atendidos_ = 0;
    std::thread hilo_;
};
