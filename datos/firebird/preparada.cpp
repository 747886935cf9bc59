#include "datos/firebird/interno.h"

#include <cstring>

using namespace Firebird;
using namespace fbc;

namespace {

constexpr int kOrigenFechas = 2400001; // día juliano de la fecha 0 del servidor

TipoColumna tipo_de(unsigned sql, int subtipo, int escala) {
    switch (sql) {
    case SQL_TEXT:
    case SQL_VARYING:
        return TipoColumna::Texto;
    case SQL_SHORT:
    case SQL_LONG:
    case SQL_INT64:
        return escala < 0 || (subtipo == 1 || subtipo == 2) ? TipoColumna::Decimal
                                                            : TipoColumna::Entero;
    case SQL_TYPE_DATE:
        return TipoColumna::Fecha;
    case SQL_TYPE_TIME:
        return TipoColumna::Hora;
    case SQL_TIMESTAMP:
        return TipoColumna::FechaHora;
    case SQL_BLOB:
        return subtipo == 1 ? TipoColumna::Memo : TipoColumna::Binario;
    default:
        return TipoColumna::Flotante;
    }
}

QVector<Columna> describa(IMessageMetadata* meta) {
    Estado estado;
    const unsigned n = meta->getCount(&estado);
    QVector<Columna> columnas;
    columnas.reserve(int(n));
    for (unsigned i = 0; i < n; ++i) {
        Columna c;
        c.nombre = QString::fromLatin1(meta->getAlias(&estado, i));
        if (c.nombre.isEmpty())
            c.nombre = QString::fromLatin1(meta->getField(&estado, i));
        c.tabla = QString::fromLatin1(meta->getRelation(&estado, i));
        c.tipo_sql = meta->getType(&estado, i);
        c.subtipo = meta->getSubType(&estado, i);
        const int escala = meta->getScale(&estado, i);
        c.decimales = -escala;
        c.tipo = tipo_de(c.tipo_sql, c.subtipo, escala);
        c.octetos = meta->getLength(&estado, i);
        c.longitud = int(c.octetos);
        c.fija = c.tipo_sql == SQL_TEXT;
        c.admite_nulo = meta->isNullable(&estado, i);
        c.desplazamiento = meta->getOffset(&estado, i);
        c.desplazamiento_nulo = meta->getNullOffset(&estado, i);
        columnas.push_back(c);
    }
    estado.compruebe();
    return columnas;
}

template <class T> T lea(const char* p) {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

template <class T> void ponga(char* p, T v) {
    std::memcpy(p, &v, sizeof v);
}

/// Blob abierto para leer; se suelta aunque la lectura falle.
class BlobAbierto {
public:
    BlobAbierto(Conexion& conexion, ISC_QUAD id) : conexion_(conexion) {
        Transaccion& t = conexion.lectura();
        Estado estado(&conexion.interno());
        IBlob* blob = conexion.interno().enlace->openBlob(
            &estado, t.interno().transaccion.vigente(), &id, 0, nullptr);
        estado.compruebe();
        blob_.tome(blob, conexion.interno());
    }

    /// Agrega el trozo siguiente; falso al final. Un trozo que no llega es una falla, no un final.
    bool siguiente(QByteArray& datos) {
        char trozo[16384];
        unsigned leidos = 0;
        Estado estado(&conexion_.interno());
        const int r = blob_->getSegment(&estado, sizeof trozo, trozo, &leidos);
        estado.compruebe();
        if (r != IStatus::RESULT_OK && r != IStatus::RESULT_SEGMENT)
            return false;
        datos.append(trozo, int(leidos));
        return true;
    }

private:
    Conexion& conexion_;
    Manija<IBlob> blob_;
};

QByteArray lea_blob(Conexion& conexion, const char* p) {
    BlobAbierto blob(conexion, lea<ISC_QUAD>(p));
    QByteArray datos;
    while (blob.siguiente(datos)) {
    }
    return datos;
}

ISC_QUAD escriba_blob(Conexion& conexion, Transaccion& transaccion, const QByteArray& datos) {
    ISC_QUAD id{};
    Estado estado(&conexion.interno());
    Manija<IBlob> blob;
    IBlob* nuevo = conexion.interno().enlace->createBlob(
        &estado, transaccion.interno().transaccion.vigente(), &id, 0, nullptr);
    estado.compruebe();
    blob.tome(nuevo, conexion.interno());
    for (int i = 0; i < datos.size(); i += 32000) {
        blob->putSegment(&estado, unsigned(qMin<qsizetype>(32000, datos.size() - i)),
                         datos.constData() + i);
        estado.compruebe();
    }
    blob->close(&estado);
    estado.compruebe();
    blob.consumado();
    return id;
}

[[noreturn]] void texto_largo(const Columna& c, const QByteArray& t) {
    throw ErrorDatos(QStringLiteral("El texto '%1' no cabe en %2 caracteres.")
                         .arg(QString::fromLatin1(t), QString::number(c.longitud)));
}

void ponga_texto(const Columna& c, char* p, const QString& texto) {
    const QByteArray t = a_latin1(texto);
    if (c.tipo_sql == SQL_VARYING) {
        if (t.size() > c.longitud)
            texto_largo(c, t);
        ponga<short>(p, short(t.size()));
        std::memcpy(p + sizeof(short), t.constData(), size_t(t.size()));
        return;
    }
    if (t.size() > c.longitud)
        texto_largo(c, t);
    std::memset(p, ' ', c.octetos);
    std::memcpy(p, t.constData(), size_t(t.size()));
}

} // namespace

Preparada::Preparada(Conexion& conexion, Transaccion& transaccion, const QString& sql)
    : conexion_(conexion), sql_(sql), interno_(std::make_unique<Interno>()) {
    const QByteArray texto = a_latin1(sql);
    Estado estado(&conexion.interno());
    IStatement* sentencia = conexion.interno().enlace->prepare(
        &estado, transaccion.interno().transaccion.vigente(), unsigned(texto.size()),
        texto.constData(), 3, IStatement::PREPARE_PREFETCH_METADATA);
    estado.compruebe();
    interno_->sentencia.tome(sentencia, conexion.interno());
    interno_->tipo = interno_->sentencia->getType(&estado);
    interno_->banderas = interno_->sentencia->getFlags(&estado);
    interno_->entrada = interno_->sentencia->getInputMetadata(&estado);
    interno_->salida = interno_->sentencia->getOutputMetadata(&estado);
    estado.compruebe();
    columnas_ = describa(interno_->salida);
    parametros_ = describa(interno_->entrada);
    entrada_.resize(int(interno_->entrada->getMessageLength(&estado)));
}

Preparada::~Preparada() {
    if (interno_->entrada)
        interno_->entrada->release();
    if (interno_->salida)
        interno_->salida->release();
}

bool Preparada::devuelve_filas() const {
    return interno_->banderas & IStatement::FLAG_HAS_CURSOR;
}

QString Preparada::plan() const {
    Estado estado;
    return QString::fromLatin1(interno_->sentencia->getPlan(&estado, false));
}

const char* Preparada::cargue(Transaccion& transaccion, const QVector<Valor>& valores) {
    if (valores.size() != parametros_.size())
        throw ErrorDatos(QStringLiteral("La sentencia espera %1 parámetros y recibió %2: %3")
                             .arg(parametros_.size())
                             .arg(valores.size())
                             .arg(sql_));
    char* base = entrada_.data();
    for (int i = 0; i < valores.size(); ++i) {
        const Columna& c = parametros_[i];
        const Valor& v = valores[i];
        char* p = base + c.desplazamiento;
        ponga<short>(base + c.desplazamiento_nulo, v.nulo() ? -1 : 0);
        if (v.nulo())
            continue;
        switch (c.tipo_sql) {
        case SQL_TEXT:
        case SQL_VARYING:
            ponga_texto(c, p, v.texto());
            break;
        case SQL_SHORT:
        case SQL_LONG:
        case SQL_INT64: {
            const qint64 n = v.moneda().escalado(c.decimales);
            if (c.tipo_sql == SQL_INT64)
                ponga<qint64>(p, n);
            else if (c.tipo_sql == SQL_LONG && n == qint64(int(n)))
                ponga<int>(p, int(n));
            else if (c.tipo_sql == SQL_SHORT && n == qint64(short(n)))
                ponga<short>(p, short(n));
            else
                throw ErrorDatos(
                    QStringLiteral("El número %1 es demasiado grande.").arg(v.texto()));
            break;
        }
        case SQL_FLOAT:
            ponga<float>(p, v.texto().toFloat());
            break;
        case SQL_DOUBLE:
            ponga<double>(p, v.texto().toDouble());
            break;
        case SQL_TYPE_DATE:
            ponga<int>(p, int(v.fecha().toJulianDay() - kOrigenFechas));
            break;
        case SQL_TYPE_TIME:
            ponga<unsigned>(p, unsigned(v.hora().msecsSinceStartOfDay()) * 10);
            break;
        case SQL_TIMESTAMP:
            ponga<int>(p, int(v.fecha().toJulianDay() - kOrigenFechas));
            ponga<unsigned>(p + 4, unsigned(v.hora().msecsSinceStartOfDay()) * 10);
            break;
        case SQL_BLOB:
            ponga<ISC_QUAD>(p, escriba_blob(conexion_, transaccion,
                                            c.subtipo == 1 ? a_latin1(v.texto()) : v.binario()));
            break;
        default:
            throw ErrorDatos(QStringLiteral("Tipo de parámetro no previsto en: %1").arg(sql_));
        }
    }
    return base;
}

qint64 Preparada::ejecute(Transaccion& transaccion, const QVector<Valor>& valores) {
    ejecute_con_salida(transaccion, valores);
    Estado estado(&conexion_.interno());
    const qint64 filas = qint64(interno_->sentencia->getAffectedRecords(&estado));
    return estado.fallo() ? 0 : filas;
}

QVector<Valor> Preparada::ejecute_con_salida(Transaccion& transaccion,
                                             const QVector<Valor>& valores) {
    conexion_.anote(sql_);
    const char* entrada = cargue(transaccion, valores);
    QByteArray salida;
    Estado estado(&conexion_.interno());
    const bool con_salida = !columnas_.isEmpty() && !devuelve_filas();
    if (con_salida)
        salida.resize(int(interno_->salida->getMessageLength(&estado)));
    interno_->sentencia->execute(&estado, transaccion.interno().transaccion.vigente(),
                                 interno_->entrada, const_cast<char*>(entrada),
                                 con_salida ? interno_->salida : nullptr,
                                 con_salida ? salida.data() : nullptr);
    estado.compruebe();
    QVector<Valor> resultado;
    if (con_salida)
        for (const Columna& c : columnas_)
            resultado.push_back(decodifique(conexion_, c, salida.constData()));
    return resultado;
}

Cursor::Cursor(Conexion& conexion, std::shared_ptr<const Contestada> contestada)
    : conexion_(conexion), interno_(std::make_unique<Interno>()),
      contestada_(std::move(contestada)), mensaje_(contestada_->largo, Qt::Uninitialized) {}

Cursor::Cursor(std::shared_ptr<Preparada> sentencia, Transaccion& transaccion,
               const QVector<Valor>& valores)
    : conexion_(sentencia->conexion_), sentencia_(std::move(sentencia)),
      interno_(std::make_unique<Interno>()) {
    sentencia_->conexion_.anote(sentencia_->sql_);
    const char* entrada = sentencia_->cargue(transaccion, valores);
    auto& s = *sentencia_->interno_;
    Estado estado(&sentencia_->conexion_.interno());
    if (!sentencia_->devuelve_filas()) {
        // Un texto que no es consulta: se ejecuta y el resultado queda vacío.
        s.sentencia->execute(&estado, transaccion.interno().transaccion.vigente(), s.entrada,
                             const_cast<char*>(entrada), nullptr, nullptr);
        estado.compruebe();
        agotado_ = true;
        return;
    }
    IResultSet* filas =
        s.sentencia->openCursor(&estado, transaccion.interno().transaccion.vigente(), s.entrada,
                                const_cast<char*>(entrada), s.salida, 0);
    estado.compruebe();
    interno_->filas.tome(filas, sentencia_->conexion_.interno());
    mensaje_.resize(int(s.salida->getMessageLength(&estado)));
}

Cursor::~Cursor() = default;

void Cursor::cierre() noexcept {
    if (!interno_->filas)
        return;
    interno_->filas.suelte();
    agotado_ = true;
}

bool Cursor::siguiente() {
    return siguiente_en(mensaje_.data());
}

bool Cursor::siguiente_en(char* destino) {
    if (contestada_ && dadas_ < contestada_->filas.size()) {
        std::memcpy(destino, contestada_->filas[dadas_++].constData(), size_t(mensaje_.size()));
        return true;
    }
    if (agotado_ || !sentencia_) {
        agotado_ = true;
        return false;
    }
    IResultSet* filas = interno_->filas.vigente();
    Estado estado(&sentencia_->conexion_.interno());
    const int r = filas->fetchNext(&estado, destino);
    estado.compruebe();
    if (r == IStatus::RESULT_OK)
        return true;
    cierre();
    return false;
}

const QVector<Columna>& Cursor::columnas() const {
    return sentencia_ ? sentencia_->columnas() : contestada_->columnas;
}

Valor Cursor::valor(int columna) const {
    return decodifique(conexion_, columnas()[columna], mensaje_.constData());
}

Valor decodifique(Conexion& conexion, const Columna& c, const char* mensaje) {
    if (lea<short>(mensaje + c.desplazamiento_nulo) != 0)
        return {};
    const char* p = mensaje + c.desplazamiento;
    switch (c.tipo_sql) {
    case SQL_TEXT:
    case SQL_VARYING: {
        int n = int(c.octetos);
        if (c.tipo_sql == SQL_VARYING) {
            n = lea<short>(p);
            p += sizeof(short);
        }
        while (n > 0 && p[n - 1] == ' ')
            --n;
        return QString::fromLatin1(p, n);
    }
    case SQL_SHORT:
    case SQL_LONG:
    case SQL_INT64: {
        const qint64 n = c.tipo_sql == SQL_INT64  ? lea<qint64>(p)
                         : c.tipo_sql == SQL_LONG ? lea<int>(p)
                                                  : lea<short>(p);
        return c.tipo == TipoColumna::Entero ? Valor(n)
                                             : Valor(Moneda::de_escalado(n, c.decimales));
    }
    case SQL_FLOAT:
        return QString::number(double(lea<float>(p)), 'g', 9);
    case SQL_DOUBLE:
        return QString::number(lea<double>(p), 'g', 15);
    case SQL_TYPE_DATE:
        return QDate::fromJulianDay(lea<int>(p) + kOrigenFechas);
    case SQL_TYPE_TIME:
        return QTime::fromMSecsSinceStartOfDay(int(lea<unsigned>(p) / 10));
    case SQL_TIMESTAMP:
        return QDateTime(QDate::fromJulianDay(lea<int>(p) + kOrigenFechas),
                         QTime::fromMSecsSinceStartOfDay(int(lea<unsigned>(p + 4) / 10)));
    case SQL_BLOB: {
        const QByteArray datos = lea_blob(conexion, p);
        return c.subtipo == 1 ? Valor(QString::fromLatin1(datos)) : Valor(datos);
    }
    default:
        return {};
    }
}
