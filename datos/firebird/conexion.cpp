#include "datos/firebird/conexion.h"

#include "datos/firebird/interno.h"
#include "datos/firebird/motor.h"

#include <QCoreApplication>
#include <QThread>
#include <csignal>
#include <cstring>
#include <random>

using namespace Firebird;

namespace {

constexpr int kSentenciasOciosas = 48;
constexpr int kReintentos = 4;
const QString kSinServidor =
    QStringLiteral("Se perdió la conexión con el servidor de la base de datos. Los datos de la "
                   "pantalla se conservan; intente de nuevo cuando el servidor esté disponible.\n");

bool contiene(const ISC_STATUS* vector, ISC_STATUS codigo) {
    while (*vector != isc_arg_end) {
        if (*vector == isc_arg_gds && vector[1] == codigo)
            return true;
        vector += *vector == isc_arg_cstring ? 3 : 2;
    }
    return false;
}

/// Texto de una excepción propia de la base: la frase en español, sin los renglones del servidor.
QString frase_de_excepcion(const ISC_STATUS* vector) {
    if (!contiene(vector, isc_except))
        return {};
    // Tras el número de la excepción vienen, como isc_random, el nombre y la frase.
    QStringList sueltos;
    for (const ISC_STATUS* p = vector; *p != isc_arg_end; p += *p == isc_arg_cstring ? 3 : 2)
        if (*p == isc_arg_gds && p[1] == isc_random && p[2] == isc_arg_string)
            sueltos << QString::fromLatin1(reinterpret_cast<const char*>(p[3]));
    return sueltos.value(1, sueltos.value(0));
}

QString primer_argumento(const ISC_STATUS* vector, ISC_STATUS codigo) {
    while (*vector != isc_arg_end) {
        if (*vector == isc_arg_gds && vector[1] == codigo && vector[2] == isc_arg_string)
            return QString::fromLatin1(reinterpret_cast<const char*>(vector[3]));
        vector += *vector == isc_arg_cstring ? 3 : 2;
    }
    return {};
}

} // namespace

namespace fbc {

std::atomic<quint64> redes_caidas = 0;

IMaster* maestro() {
    static IMaster* m = [] {
        prepare_motor_local();
        return fb_get_master_interface();
    }();
    return m;
}

IUtil* utilidades() {
    static IUtil* u = maestro()->getUtilInterface();
    return u;
}

Estado::Estado() : estado_(maestro()->getStatus()), envoltura_(estado_) {}
Estado::~Estado() {
    estado_->dispose();
}

bool Estado::fallo() const {
    return estado_->getState() & IStatus::STATE_ERRORS;
}

void Estado::compruebe(bool conectando) {
    if (!fallo())
        return;
    const ISC_STATUS* vector = estado_->getErrors();
    char bufer[4096];
    utilidades()->formatStatus(bufer, sizeof bufer, &envoltura_);
    QString texto = QString::fromLatin1(bufer);
    const qint64 codigo = vector[1];
    const bool red = contiene(vector, isc_network_error) || contiene(vector, isc_net_connect_err) ||
                     contiene(vector, isc_net_read_err) || contiene(vector, isc_net_write_err);
    const bool perdida = red || contiene(vector, isc_att_shutdown) ||
                         contiene(vector, isc_shutdown) || contiene(vector, isc_lost_db_connection);
    const bool conflicto =
        contiene(vector, isc_deadlock) || contiene(vector, isc_update_conflict) ||
        contiene(vector, isc_lock_conflict) || contiene(vector, isc_lock_timeout);
    if (perdida && !conectando)
        ++redes_caidas;
    if (conectando) {
        // El reporte de fallas reconoce estas cuatro formas; el servidor las redacta de otro modo.
        const QString archivo = [&] {
            for (const ISC_STATUS* p = vector; *p != isc_arg_end;
                 p += *p == isc_arg_cstring ? 3 : 2)
                if (*p == isc_arg_gds && p[1] == isc_io_error && p[2] == isc_arg_string &&
                    p[4] == isc_arg_string)
                    return QString::fromLocal8Bit(reinterpret_cast<const char*>(p[5]));
            return QString();
        }();
        QString forma;
        if (!archivo.isEmpty())
            forma = QStringLiteral("I/O error for file \"%1\"\n%2").arg(archivo, texto);
        else if (contiene(vector, isc_net_connect_err) && !contiene(vector, isc_net_lookup_err))
            // El primer renglón del servidor es el de un equipo desconocido, y este sí responde.
            forma = QStringLiteral("Connection failed: %1\n%2")
                        .arg(primer_argumento(vector, isc_network_error), texto.section('\n', 1));
        else if (red)
            forma = QStringLiteral("Unable to complete network request to host \"%1\"\n%2")
                        .arg(primer_argumento(vector, isc_network_error), texto);
        else
            forma = texto;
        throw ErrorBase(QStringLiteral("dbExpress Error: ") + forma, codigo, false, perdida);
    }
    if (const QString frase = frase_de_excepcion(vector); !frase.isEmpty())
        throw ErrorBase(frase, codigo, false, false);
    if (perdida)
        throw ErrorBase(kSinServidor + texto, codigo, false, true);
    if (conflicto)
        throw ErrorBase(
            QStringLiteral("Otro usuario está modificando el mismo registro y no ha terminado. "
                           "Espere a que grabe o cancele e intente de nuevo.\n") +
                texto,
            codigo, true, false);
    throw ErrorBase(QStringLiteral("SQL Server Error: ") + texto, codigo, false, false);
}

QByteArray a_latin1(const QString& texto) {
    const QChar fuera = caracter_fuera_de_latin1(texto);
    if (!fuera.isNull())
        throw ErrorDatos(QStringLiteral("El carácter '%1' (U+%2) no se puede guardar en la base de "
                                        "datos. Reemplácelo por uno equivalente.")
                             .arg(fuera)
                             .arg(fuera.unicode(), 4, 16, QLatin1Char('0')));
    return texto.toLatin1();
}

} // namespace fbc

using namespace fbc;

Conexion::Conexion() : interno_(std::make_unique<Interno>()) {}
Conexion::~Conexion() {
    desconectar();
    *interno_->viva = false;
}

void Conexion::conectar(const ParametrosConexion& parametros) {
    abra_o_cree(parametros, false, 0);
}

void Conexion::cree_base(const ParametrosConexion& parametros, int paginas_cache) {
    abra_o_cree(parametros, true, paginas_cache);
}

namespace {

/// El cliente toma SIGTERM y SIGINT para apagar el motor y deja vivo el proceso, ya sin base. Aquí
/// terminan el programa, como los deja el sistema: una transacción sin confirmar se deshace sola.
class SenalesPropias {
public:
    SenalesPropias() {
        sigaction(SIGTERM, nullptr, &terminar_);
        sigaction(SIGINT, nullptr, &interrumpir_);
    }
    ~SenalesPropias() {
        sigaction(SIGTERM, &terminar_, nullptr);
        sigaction(SIGINT, &interrumpir_, nullptr);
    }

private:
    struct sigaction terminar_, interrumpir_;
};

} // namespace

void Conexion::abra_o_cree(const ParametrosConexion& parametros, bool crear, int paginas_cache) {
    desconectar();
    parametros_ = parametros;
    Estado estado;
    IXpbBuilder* dpb = utilidades()->getXpbBuilder(&estado, IXpbBuilder::DPB, nullptr, 0);
    estado.compruebe();
    dpb->insertString(&estado, isc_dpb_user_name, a_latin1(parametros.usuario).constData());
    if (!parametros.clave.isEmpty())
        dpb->insertString(&estado, isc_dpb_password, parametros.clave.toUtf8().constData());
    dpb->insertString(&estado, isc_dpb_lc_ctype, "ISO8859_1");
    dpb->insertInt(&estado, isc_dpb_sql_dialect, 3);
    // Quién tiene abierta la base: un servidor lo averigua solo, el motor en proceso no.
    const QByteArray programa = QCoreApplication::applicationName().toLocal8Bit();
    dpb->insertString(&estado, isc_dpb_process_name, programa.constData());
    dpb->insertInt(&estado, isc_dpb_process_id, int(QCoreApplication::applicationPid()));
    if (!crear && !parametros.rol.isEmpty())
        dpb->insertString(&estado, isc_dpb_sql_role_name, a_latin1(parametros.rol).constData());
    if (crear) {
        dpb->insertInt(&estado, isc_dpb_page_size, 8192);
        dpb->insertString(&estado, isc_dpb_set_db_charset, "ISO8859_1");
        dpb->insertInt(&estado, isc_dpb_set_page_buffers, paginas_cache);
        dpb->insertInt(&estado, isc_dpb_force_write, parametros.escritura_forzada ? 1 : 0);
    }
    const SenalesPropias senales;
    IProvider* proveedor = maestro()->getDispatcher();
    const QByteArray ruta = parametros.base.toLocal8Bit();
    IAttachment* enlace =
        crear ? proveedor->createDatabase(&estado, ruta.constData(), dpb->getBufferLength(&estado),
                                          dpb->getBuffer(&estado))
              : proveedor->attachDatabase(&estado, ruta.constData(), dpb->getBufferLength(&estado),
                                          dpb->getBuffer(&estado));
    dpb->dispose();
    proveedor->release();
    estado.compruebe(true);
    static std::atomic<quint64> enlaces = 0;
    interno_->enlace = enlace;
    interno_->numero = ++enlaces;
    interno_->redes_vistas = redes_caidas;
    interno_->perdida = false;
}

void Conexion::asegure_enlace() {
    Interno& i = *interno_;
    if (i.enlace && i.redes_vistas != redes_caidas) {
        i.redes_vistas = redes_caidas;
        Estado estado;
        i.enlace->ping(&estado);
        i.perdida = estado.fallo();
    }
    if (!i.perdida)
        return;
    try {
        conectar(ParametrosConexion(parametros_));
    } catch (const ErrorBase& e) {
        i.perdida = true; // la próxima operación prueba otra vez
        if (e.conexion_perdida())
            throw ErrorBase(kSinServidor + e.texto(), e.codigo(), false, true);
        throw;
    }
}

void Conexion::desconectar() noexcept {
    interno_->perdida = false;
    if (!interno_->enlace)
        return;
    interno_->ociosas.clear();
    lectura_.reset();
    try {
        Estado estado;
        interno_->enlace->detach(&estado);
        if (estado.fallo())
            interno_->enlace->release();
    } catch (...) {
    }
    interno_->enlace = nullptr;
}

void Conexion::borre_base() {
    interno_->ociosas.clear();
    lectura_.reset();
    Estado estado;
    interno_->enlace->dropDatabase(&estado);
    estado.compruebe();
    interno_->enlace = nullptr;
}

bool Conexion::conectada() const {
    return interno_->enlace != nullptr;
}

void Conexion::anote(const QString& sql) {
    ++sentencias_;
    if (observador)
        observador(sql);
}

Transaccion& Conexion::lectura() {
    asegure_enlace();
    if (!lectura_ || !lectura_->activa())
        lectura_ = std::make_unique<Transaccion>(*this, Transaccion::Modo::Lectura);
    return *lectura_;
}

std::shared_ptr<Preparada> Conexion::prepare(const QString& sql, Transaccion& transaccion) {
    auto& ociosas = interno_->ociosas;
    std::unique_ptr<Preparada> sentencia;
    for (auto i = ociosas.begin(); i != ociosas.end(); ++i)
        if ((*i)->sql() == sql) {
            sentencia = std::move(*i);
            ociosas.erase(i);
            break;
        }
    if (!sentencia)
        sentencia = std::make_unique<Preparada>(*this, transaccion, sql);
    // Al soltarla vuelve a la reserva, si la conexión sigue abierta.
    Interno* interno = interno_.get();
    std::weak_ptr<bool> viva = interno->viva;
    const quint64 numero = interno->numero;
    return {sentencia.release(), [interno, viva, numero](Preparada* p) {
                std::unique_ptr<Preparada> propia(p);
                if (viva.expired() || !interno->enlace || interno->numero != numero)
                    return;
                interno->ociosas.push_front(std::move(propia));
                if (interno->ociosas.size() > kSentenciasOciosas)
                    interno->ociosas.pop_back();
            }};
}

qint64 Conexion::ejecute(const QString& sql, const QVector<Valor>& valores) {
    for (int intento = 0;; ++intento) {
        try {
            Transaccion transaccion(*this, Transaccion::Modo::Escritura);
            const qint64 filas = prepare(sql, transaccion)->ejecute(transaccion, valores);
            transaccion.confirme();
            return filas;
        } catch (const ErrorBase& e) {
            if (!e.conflicto() || intento >= kReintentos)
                throw;
            QThread::msleep(10 + std::random_device{}() % 40);
        }
    }
}

QVector<Valor> Conexion::ejecute_con_salida(const QString& sql, const QVector<Valor>& valores) {
    for (int intento = 0;; ++intento) {
        try {
            Transaccion transaccion(*this, Transaccion::Modo::Escritura);
            auto salida = prepare(sql, transaccion)->ejecute_con_salida(transaccion, valores);
            transaccion.confirme();
            return salida;
        } catch (const ErrorBase& e) {
            if (!e.conflicto() || intento >= kReintentos)
                throw;
            QThread::msleep(10 + std::random_device{}() % 40);
        }
    }
}

std::unique_ptr<Cursor> Conexion::abra(const QString& sql, const QVector<Valor>& valores) {
    Transaccion& t = lectura();
    return std::make_unique<Cursor>(prepare(sql, t), t, valores);
}

Valor Conexion::consulte(const QString& sql, const QVector<Valor>& valores) {
    const auto cursor = abra(sql, valores);
    return cursor->siguiente() ? cursor->valor(0) : Valor();
}

Transaccion::Transaccion(Conexion& conexion, Modo modo)
    : conexion_(conexion), interno_(std::make_unique<Interno>()) {
    conexion.asegure_enlace();
    if (!conexion.conectada())
        throw ErrorBase(QStringLiteral("No hay conexión con la base de datos."), 0, false, true);
    Estado estado;
    IXpbBuilder* tpb = utilidades()->getXpbBuilder(&estado, IXpbBuilder::TPB, nullptr, 0);
    if (modo == Modo::EscrituraInstantanea) {
        tpb->insertTag(&estado, isc_tpb_concurrency);
        tpb->insertTag(&estado, isc_tpb_write);
        tpb->insertTag(&estado, isc_tpb_wait);
        tpb->insertInt(&estado, isc_tpb_lock_timeout, conexion.parametros().espera_segundos);
    } else if (modo == Modo::Instantanea) {
        tpb->insertTag(&estado, isc_tpb_concurrency);
        tpb->insertTag(&estado, isc_tpb_read);
        tpb->insertTag(&estado, isc_tpb_nowait);
    } else {
        tpb->insertTag(&estado, isc_tpb_read_committed);
        tpb->insertTag(&estado, isc_tpb_rec_version);
        if (modo == Modo::Lectura) {
            tpb->insertTag(&estado, isc_tpb_read);
        } else {
            tpb->insertTag(&estado, isc_tpb_write);
            tpb->insertTag(&estado, isc_tpb_wait);
            tpb->insertInt(&estado, isc_tpb_lock_timeout, conexion.parametros().espera_segundos);
        }
    }
    interno_->transaccion = conexion.interno().enlace->startTransaction(
        &estado, tpb->getBufferLength(&estado), tpb->getBuffer(&estado));
    tpb->dispose();
    estado.compruebe();
}

Transaccion::~Transaccion() {
    deshaga();
}

void Transaccion::confirme() {
    Estado estado;
    interno_->transaccion->commit(&estado);
    estado.compruebe();
    interno_->transaccion = nullptr;
}

void Transaccion::deshaga() noexcept {
    if (!interno_->transaccion)
        return;
    try {
        Estado estado;
        interno_->transaccion->rollback(&estado);
        if (estado.fallo())
            interno_->transaccion->release();
    } catch (...) {
    }
    interno_->transaccion = nullptr;
}

bool Transaccion::activa() const {
    return interno_->transaccion != nullptr;
}
