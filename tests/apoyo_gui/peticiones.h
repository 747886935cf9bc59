#pragma once
// Pantallas de mentira para probar lo que una pide a otra: la que solo se abre, la lista que
// contesta lo que la prueba diga y la que pide.
#include "toolkit/pantalla.h"

#include <QCoreApplication>
#include <QTest>
#include <memory>

/// Pantalla de un piso más alto que solo se abre: deja ver con qué petición la llamaron.
inline void registre_testigo(const QString& nombre, std::function<void(const Pantalla&)> al_crear) {
    class Testigo : public Pantalla {
    public:
        Testigo(const QString& nombre, std::function<void(const Pantalla&)> f)
            : Pantalla(nombre, nombre), al_crear_(std::move(f)) {}
        void FormCreate() override { al_crear_(*this); }

    private:
        std::function<void(const Pantalla&)> al_crear_;
    };
    pantallas().registre(nombre, [=] { return new Testigo(nombre, al_crear); });
}
inline void registre_testigo(
    const QString& nombre, std::function<void()> al_crear = [] {}) {
    registre_testigo(nombre, [al_crear](const Pantalla&) { al_crear(); });
}

/// Lista de la que se escoge, sin datos: guarda lo que le piden y contesta lo que la prueba diga.
///
///     ListaFalsa<PideTercero> terceros("Tfterceros");
///     oprima(Qt::Key_F6);
///     QCOMPARE(terceros.pedida().texto_busqueda, "");
///     terceros.conteste("900123456"); // y se cierra: quien la abrió vuelve a activarse
template <class P> class ListaFalsa {
public:
    explicit ListaFalsa(const QString& nombre) {
        pantallas().registre(nombre, [=, estado = estado_] {
            auto* v = new Ventana(nombre);
            v->estado = estado;
            return v;
        });
    }
    /// Cuántas veces la han abierto.
    int veces() const { return int(estado_->pedidas.size()); }
    /// La última petición.
    P pedida() const { return estado_->pedidas.isEmpty() ? P{} : estado_->pedidas.last(); }
    /// La última que se abrió.
    Pantalla* abierta() const { return estado_->abierta; }
    void conteste(const typename P::Respuesta& respuesta) {
        QVERIFY(estado_->abierta);
        QVERIFY(estado_->abierta->template responda<P>(respuesta));
        cancele();
    }
    void cancele() {
        QVERIFY(estado_->abierta);
        QVERIFY(estado_->abierta->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    struct Estado {
        QVector<P> pedidas;
        QPointer<Pantalla> abierta;
    };
    class Ventana : public Pantalla {
    public:
        explicit Ventana(const QString& nombre) : Pantalla(nombre, nombre) {}
        void FormCreate() override {
            estado->pedidas << peticion<P>();
            estado->abierta = this;
        }
        std::shared_ptr<Estado> estado;
    };
    std::shared_ptr<Estado> estado_ = std::make_shared<Estado>();
};

/// Pantalla que pide a otra y guarda lo que le contesten.
///
///     Solicitante<PideCuenta> yo;
///     Pantalla* lista = yo.pida("Tfcuentas", {.texto_busqueda = "2365"});
///     oprima(Qt::Key_Return);
///     QCOMPARE(yo.recibidas(), QStringList("2365"));
template <class P> class Solicitante {
public:
    using Respuesta = typename P::Respuesta;
    Solicitante() {
        registre_testigo("TfSolicitante");
        pantalla_ = pantallas().abrir("TfSolicitante");
    }
    ~Solicitante() {
        if (pantalla_)
            pantalla_->close();
    }
    /// La que se abrió, o la propia si aquella se negó.
    Pantalla* pida(const QString& nombre, P peticion = {}) {
        pantalla_->pida(nombre, std::move(peticion),
                        [r = recibidas_](const Respuesta& respuesta) { r->append(respuesta); });
        return escritorio()->activa();
    }
    Pantalla* pantalla() const { return pantalla_; }
    /// Lo recibido desde la última vez que se miró.
    QList<Respuesta> recibidas() { return std::exchange(*recibidas_, {}); }

private:
    QPointer<Pantalla> pantalla_;
    std::shared_ptr<QList<Respuesta>> recibidas_ = std::make_shared<QList<Respuesta>>();
};
