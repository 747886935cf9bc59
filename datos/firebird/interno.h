#pragma once
// Detalle privado del piso: el cliente de Firebird no se ve desde ningún otro lugar.
#include "datos/firebird/conexion.h"

#include <atomic>
#include <firebird/Interface.h>
#include <list>

namespace fbc {

Firebird::IMaster* maestro();
Firebird::IUtil* utilidades();

/// Estado de una llamada: comprueba y lanza ErrorBase con el texto del servidor.
class Estado {
public:
    Estado();
    ~Estado();
    Firebird::CheckStatusWrapper* operator&() { return &envoltura_; }
    void compruebe(bool conectando = false);
    bool fallo() const;

private:
    Firebird::IStatus* estado_;
    Firebird::CheckStatusWrapper envoltura_;
};

/// Cuántas veces ha fallado la red en este programa. La falla no dice de qué conexión es: cada una
/// se revisa a sí misma cuando ve que la cuenta cambió.
extern std::atomic<quint64> redes_caidas;

/// Texto que guarda la base: rechaza lo que ISO 8859-1 no puede representar.
QByteArray a_latin1(const QString& texto);

} // namespace fbc

struct Conexion::Interno {
    Firebird::IAttachment* enlace = nullptr;
    quint64 numero = 0;       ///< del enlace; cambia cada vez que se entra
    quint64 redes_vistas = 0; ///< redes_caidas en la última revisión
    bool perdida = false;
    /// Sentencias preparadas sin uso, la más reciente al frente.
    std::list<std::unique_ptr<Preparada>> ociosas;
    std::shared_ptr<bool> viva = std::make_shared<bool>(true);
};

struct Transaccion::Interno {
    Firebird::ITransaction* transaccion = nullptr;
};

struct Preparada::Interno {
    Firebird::IStatement* sentencia = nullptr;
    Firebird::IMessageMetadata* entrada = nullptr;
    Firebird::IMessageMetadata* salida = nullptr;
    unsigned tipo = 0;
    unsigned banderas = 0;
};

struct Cursor::Interno {
    Firebird::IResultSet* filas = nullptr;
};
