#pragma once
// Detalle privado del piso: el cliente de Firebird no se ve desde ningún otro lugar.
#include "datos/firebird/conexion.h"
#include "datos/firebird/cuenta_unica.h"

#include <atomic>
#include <firebird/Interface.h>
#include <list>

namespace fbc {

Firebird::IMaster* maestro();
Firebird::IUtil* utilidades();

/// Estado de una llamada: comprueba y lanza ErrorBase. Con la conexión, la llamada queda a la vista
/// del vigía de la red mientras dura.
class Estado {
public:
    explicit Estado(Conexion::Interno* interno = nullptr);
    ~Estado();
    Estado(const Estado&) = delete;
    Estado& operator=(const Estado&) = delete;
    Firebird::CheckStatusWrapper* operator&() { return &envoltura_; }
    void compruebe(bool conectando = false);
    bool fallo() const;
    /// La falla de la llamada fue de la red.
    bool perdida() const;

private:
    ErrorBase falla(bool conectando);
    Conexion::Interno* interno_;
    Firebird::IStatus* estado_;
    Firebird::CheckStatusWrapper envoltura_;
};

/// Cuántas veces ha fallado la red en este programa. La falla no dice de qué conexión es: cada una
/// se revisa a sí misma cuando ve que la cuenta cambió.
extern std::atomic<quint64> redes_caidas;

extern const QString kSinServidor;
QString texto_de_conflicto(const QStringList& quienes);
/// Traduce el vector de estado del motor; `motor` son sus palabras.
ErrorBase clasifique(const ISC_STATUS* vector, const QString& motor, bool al_conectar);

/// Texto que guarda la base: rechaza lo que ISO 8859-1 no puede representar.
QByteArray a_latin1(const QString& texto);

/// La ubicación nombra un servidor ("equipo:ruta"); si no, es un archivo de este equipo.
bool es_remota(const QString& base);
/// Pide el enlace al servidor. Un servidor que no contesta en el tiempo convenido es uno que no
/// está. Con `crear`, arma la base.
Firebird::IAttachment* pida_enlace(const ParametrosConexion& parametros, bool crear,
                                   int paginas_cache, int espera_ms);
/// Suelta un enlace o un servicio que nadie usa. Puede esperar sin límite si la red calla.
template <class T> void despida(T* enlace) noexcept {
    Estado estado;
    enlace->detach(&estado);
    if (estado.fallo())
        enlace->release();
}

} // namespace fbc

/// Lo que se abrió sobre un enlace. Se suelta con él a más tardar: al irse el enlace el cliente
/// libera lo suyo, y soltarlo después cae en memoria que ya es de otro.
class Abierto {
public:
    Abierto() = default;
    virtual ~Abierto() { olvide(); }
    Abierto(const Abierto&) = delete;
    Abierto& operator=(const Abierto&) = delete;
    virtual void suelte() noexcept = 0;

protected:
    void anote(Conexion::Interno& enlace);
    void olvide() noexcept;
    Conexion::Interno* enlace_ = nullptr; ///< nulo cuando ya no hay nada que soltar

private:
    std::list<Abierto*>::iterator lugar_;
};

/// Resultado de una consulta, entero o su comienzo.
struct Contestada {
    QVector<Columna> columnas;
    QVector<QByteArray> filas;
    int largo = 0; ///< octetos de cada fila
};

struct Conexion::Interno {
    Firebird::IAttachment* enlace = nullptr;
    fbc::CuentaUnica cuenta;  ///< mientras dura el enlace
    quint64 numero = 0;       ///< del enlace; cambia cada vez que se entra
    quint64 redes_vistas = 0; ///< redes_caidas en la última revisión
    bool perdida = false;
    bool remota = false;
    /// Momento en que empezó la llamada en curso, en milisegundos; 0 si no hay ninguna.
    std::atomic<qint64> llamada{0};
    int llamadas = 0; ///< una dentro de otra
    /// Sentencias preparadas sin uso, la más reciente al frente.
    std::list<std::unique_ptr<Preparada>> ociosas;
    QHash<QString, QStringList> llaves; ///< llave primaria de las tablas ya consultadas
    /// Lo ya contestado, mientras haya quien lo pida (ConsultasRepetidas).
    QHash<QString, std::shared_ptr<const Contestada>> contestadas;
    int recordando = 0;
    std::shared_ptr<bool> viva = std::make_shared<bool>(true);
    std::list<Abierto*> abiertos; ///< en el orden en que se abrieron
};

inline void Abierto::anote(Conexion::Interno& enlace) {
    enlace_ = &enlace;
    lugar_ = enlace.abiertos.insert(enlace.abiertos.end(), this);
}

inline void Abierto::olvide() noexcept {
    if (enlace_)
        enlace_->abiertos.erase(lugar_);
    enlace_ = nullptr;
}

namespace fbc {

inline void despida_de(Firebird::ITransaction* t, Estado& estado) {
    t->rollback(&estado);
}
inline void despida_de(Firebird::IStatement* s, Estado& estado) {
    s->free(&estado);
}
inline void despida_de(Firebird::IResultSet* r, Estado& estado) {
    r->close(&estado);
}
inline void despida_de(Firebird::IBlob* b, Estado& estado) {
    b->cancel(&estado);
}

} // namespace fbc

/// Un objeto del cliente, dueño único.
template <class T> class Manija final : public Abierto {
public:
    ~Manija() override { suelte(); }
    void tome(T* cosa, Conexion::Interno& enlace) {
        cosa_ = cosa;
        anote(enlace);
    }
    explicit operator bool() const { return cosa_ != nullptr; }
    /// Lanza la pérdida de la conexión si el enlace ya se fue.
    T* vigente() const {
        if (!cosa_)
            throw ErrorBase({ClaseFalla::ConexionPerdida},
                            QStringLiteral("La conexión con el servidor se restableció y esta "
                                           "consulta quedó a medias. Ábrala de nuevo."));
        return cosa_;
    }
    T* operator->() const { return vigente(); }
    /// El motor ya terminó con él.
    void consumado() noexcept {
        olvide();
        cosa_ = nullptr;
    }
    void suelte() noexcept override {
        if (!cosa_)
            return;
        try {
            fbc::Estado estado(enlace_);
            fbc::despida_de(cosa_, estado);
            if (estado.fallo())
                cosa_->release();
        } catch (...) {
        }
        consumado();
    }

private:
    T* cosa_ = nullptr;
};

struct Transaccion::Interno {
    Manija<Firebird::ITransaction> transaccion;
};

struct Preparada::Interno {
    Manija<Firebird::IStatement> sentencia;
    Firebird::IMessageMetadata* entrada = nullptr;
    Firebird::IMessageMetadata* salida = nullptr;
    unsigned tipo = 0;
    unsigned banderas = 0;
};

struct Cursor::Interno {
    Manija<Firebird::IResultSet> filas;
};
