#include "datos/firebird/conexion.h"

#include "datos/firebird/motor.h"
#include "datos/firebird/nombres.h"
#include "datos/firebird/vigia.h"
#include "datos/firebird/vigia_interno.h"

#include <csignal>

using namespace Firebird;

namespace {

constexpr int kSentenciasOciosas = 48;
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

Estado::Estado(Conexion::Interno* interno)
    : interno_(interno && interno->remota ? interno : nullptr), estado_(maestro()->getStatus()),
      envoltura_(estado_) {
    if (interno_ && interno_->llamadas++ == 0)
        interno_->llamada = ahora_ms();
}

Estado::~Estado() {
    if (interno_ && --interno_->llamadas == 0)
        interno_->llamada = 0;
    estado_->dispose();
}

bool Estado::fallo() const {
    return estado_->getState() & IStatus::STATE_ERRORS;
}

ErrorBase Estado::falla(bool conectando) {
    char bufer[4096];
    utilidades()->formatStatus(bufer, sizeof bufer, &envoltura_);
    return clasifique(estado_->getErrors(), QString::fromLatin1(bufer), conectando);
}

bool Estado::perdida() const {
    return fallo() && clasifique(estado_->getErrors(), {}, false).conexion_perdida();
}

void Estado::compruebe(bool conectando) {
    if (!fallo())
        return;
    ErrorBase error = falla(conectando);
    if (error.conexion_perdida() && !conectando)
        ++redes_caidas;
    throw error;
}

QByteArray a_latin1(const QString& texto) {
    const QChar fuera = caracter_fuera_de_latin1(texto);
    if (!fuera.isNull()) {
        // Un carácter puede ocupar dos lugares del texto.
        const char32_t entero = QStringView(texto).mid(texto.indexOf(fuera)).toUcs4().value(0);
        throw ErrorDatos(QStringLiteral("El carácter '%1' (U+%2) no se puede guardar en la base de "
                                        "datos. Reemplácelo por uno equivalente.")
                             .arg(QString::fromUcs4(&entero, 1))
                             .arg(uint(entero), 4, 16, QLatin1Char('0')));
    }
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
    Interno& i = *interno_;
    try {
        const SenalesPropias senales;
        if (!crear)
            i.cuenta = aparte_para_esta_cuenta(parametros.base);
        i.enlace = pida_enlace(parametros, crear, paginas_cache, limites_de_red().conexion);
        if (crear)
            i.cuenta = aparte_para_esta_cuenta(parametros.base);
    } catch (const ErrorDatos&) {
        i.cuenta.reset();
        i.perdida = true; // la próxima operación prueba otra vez
        throw;
    }
    static std::atomic<quint64> enlaces = 0;
    i.numero = ++enlaces;
    i.redes_vistas = redes_caidas;
    i.perdida = false;
    vigile(i, parametros);
}

void Conexion::asegure_enlace() {
    Interno& i = *interno_;
    if (i.enlace && i.redes_vistas != redes_caidas) {
        i.redes_vistas = redes_caidas;
        Estado estado(&i);
        i.enlace->ping(&estado);
        i.perdida = estado.fallo();
    }
    if (!i.perdida)
        return;
    const bool primera = i.numero == 0;
    try {
        conectar(ParametrosConexion(parametros_));
    } catch (const ErrorBase& e) {
        if (!primera && e.conexion_perdida())
            throw ErrorBase(e.causa(), kSinServidor, e.detalle());
        throw;
    }
}

void Conexion::desconectar() noexcept {
    interno_->perdida = false;
    interno_->llaves.clear();
    suelte();
}

// Lo último que se abrió puede depender de lo primero.
void Conexion::suelte_lo_abierto() noexcept {
    while (!interno_->abiertos.empty())
        interno_->abiertos.back()->suelte();
    interno_->ociosas.clear();
    lectura_.reset();
}

void Conexion::suelte() noexcept {
    if (!interno_->enlace)
        return;
    suelte_lo_abierto();
    try {
        Estado estado(interno_.get());
        interno_->enlace->detach(&estado);
        if (estado.fallo())
            interno_->enlace->release();
    } catch (...) {
    }
    deje_de_vigilar(*interno_);
    interno_->enlace = nullptr;
    interno_->cuenta.reset();
}

void Conexion::borre_base() {
    suelte_lo_abierto();
    Estado estado(interno_.get());
    interno_->enlace->dropDatabase(&estado);
    estado.compruebe();
    deje_de_vigilar(*interno_);
    interno_->enlace = nullptr;
    interno_->cuenta.reset();
}

bool Conexion::conectada() const {
    return interno_->enlace != nullptr;
}

bool Conexion::en_linea() const {
    return conectada() && !interno_->perdida && interno_->redes_vistas == redes_caidas;
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

qint64 Conexion::ejecute(const QString& sql, const QVector<Valor>& valores, ModoTransaccion modo) {
    return en_transaccion(modo,
                          [&](Transaccion& t) { return prepare(sql, t)->ejecute(t, valores); });
}

QVector<Valor> Conexion::ejecute_con_salida(const QString& sql, const QVector<Valor>& valores,
                                            ModoTransaccion modo) {
    return en_transaccion(
        modo, [&](Transaccion& t) { return prepare(sql, t)->ejecute_con_salida(t, valores); });
}

std::unique_ptr<Cursor> Conexion::abra(const QString& sql, const QVector<Valor>& valores) {
    if (interno_->recordando > 0)
        return ConsultasRepetidas::abra(*this, sql, valores);
    Transaccion& t = lectura();
    return std::make_unique<Cursor>(prepare(sql, t), t, valores);
}

Valor Conexion::consulte(const QString& sql, const QVector<Valor>& valores) {
    const auto cursor = abra(sql, valores);
    return cursor->siguiente() ? cursor->valor(0) : Valor();
}

QStringList Conexion::llave_primaria(const QString& tabla) {
    if (const auto sabida = interno_->llaves.constFind(tabla);
        sabida != interno_->llaves.constEnd())
        return *sabida;
    QStringList columnas;
    for (auto c = abra("select s.rdb$field_name from rdb$relation_constraints r join "
                       "rdb$index_segments s on s.rdb$index_name = r.rdb$index_name where "
                       "r.rdb$relation_name = ? and r.rdb$constraint_type = 'PRIMARY KEY' order by "
                       "s.rdb$field_position",
                       {tabla});
         c->siguiente();)
        columnas << c->valor(0).texto();
    interno_->llaves.insert(tabla, columnas);
    return columnas;
}

ErrorBase Conexion::conflicto_con_nombre(const ErrorBase& conflicto) {
    QStringList quienes;
    if (conflicto.causa().transaccion != 0) {
        try {
            // El motor solo deja ver las sesiones ajenas a quien administra la base.
            Transaccion t(*this, Transaccion::Modo::Lectura);
            Cursor c(prepare("select a.mon$user from mon$transactions t join mon$attachments a on "
                             "a.mon$attachment_id = t.mon$attachment_id where "
                             "t.mon$transaction_id = ?",
                             t),
                     t, {conflicto.causa().transaccion});
            if (c.siguiente())
                quienes << c.valor(0).texto();
        } catch (const ErrorDatos&) {
        }
    }
    if (quienes.isEmpty())
        quienes = otros_usuarios_con_sesion();
    return {conflicto.causa(), texto_de_conflicto(quienes), conflicto.detalle()};
}

namespace {

struct Marcas {
    std::vector<unsigned char> etiquetas;
    bool espera = false;
};

Marcas marcas_de(ModoTransaccion modo) {
    switch (modo) {
    case ModoTransaccion::Instantanea:
        return {{isc_tpb_concurrency, isc_tpb_read, isc_tpb_nowait}, false};
    case ModoTransaccion::Lectura:
        return {{isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_read}, false};
    case ModoTransaccion::EscrituraSinEspera:
        return {{isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_write, isc_tpb_nowait},
                false};
    case ModoTransaccion::EscrituraInstantanea:
        return {{isc_tpb_concurrency, isc_tpb_write, isc_tpb_wait}, true};
    case ModoTransaccion::Escritura:
        break;
    }
    return {{isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_write, isc_tpb_wait}, true};
}

} // namespace

Transaccion::Transaccion(Conexion& conexion, Modo modo)
    : conexion_(conexion), interno_(std::make_unique<Interno>()) {
    conexion.asegure_enlace();
    if (!conexion.conectada())
        throw ErrorBase({ClaseFalla::ConexionPerdida},
                        QStringLiteral("No hay conexión con la base de datos."));
    Estado estado(&conexion.interno());
    IXpbBuilder* tpb = utilidades()->getXpbBuilder(&estado, IXpbBuilder::TPB, nullptr, 0);
    const Marcas marcas = marcas_de(modo);
    for (const unsigned char etiqueta : marcas.etiquetas)
        tpb->insertTag(&estado, etiqueta);
    if (marcas.espera)
        tpb->insertInt(&estado, isc_tpb_lock_timeout, conexion.parametros().espera_segundos);
    ITransaction* nueva = conexion.interno().enlace->startTransaction(
        &estado, tpb->getBufferLength(&estado), tpb->getBuffer(&estado));
    tpb->dispose();
    estado.compruebe();
    interno_->transaccion.tome(nueva, conexion.interno());
}

Transaccion::~Transaccion() = default;

void Transaccion::confirme() {
    ITransaction* transaccion = interno_->transaccion.vigente();
    Estado estado(&conexion_.interno());
    transaccion->commit(&estado);
    try {
        estado.compruebe();
    } catch (const ErrorBase& falla) {
        // Nada más puede hacerse con ella: si alcanzó a quedar, solo lo sabe la base.
        if (falla.conexion_perdida())
            throw falla.como_dudosa();
        throw;
    }
    interno_->transaccion.consumado();
    conexion_.interno().contestadas.clear(); // lo que se confirmó pudo cambiarlas
}

void Transaccion::deshaga() noexcept {
    interno_->transaccion.suelte();
}

bool Transaccion::activa() const {
    return bool(interno_->transaccion);
}
