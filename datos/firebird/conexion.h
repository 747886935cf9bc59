#pragma once
// Conexión a una base Firebird, sus transacciones, sentencias preparadas y cursores.
//
// Es la única puerta del sistema al cliente de Firebird. La misma conexión sirve al motor en
// proceso (ubicación sin servidor) y a un servidor ("equipo/puerto:ruta"). Dialecto 3, juego de
// caracteres ISO8859_1, lectura confirmada con versión de registro y espera acotada de bloqueos.
// Todas las fallas salen como ErrorBase, clasificadas por el código del motor (ver errores.h).
//
// Si se cae el servidor, la operación en curso falla (conexion_perdida) y la siguiente vuelve a
// entrar con los mismos parámetros. Lo que quedó abierto de antes, cursores y transacciones, se
// suelta con el enlace y usarlo es una conexión perdida; ninguna otra falla, ni un disco lleno,
// suelta la conexión. Un servidor que no contesta cuenta como caído (ver vigia.h). La primera
// entrada, si falla, también se repite en la operación siguiente.
#include "datos/firebird/errores.h"
#include "datos/firebird/reintento.h"
#include "datos/firebird/valor.h"

#include <QStringList>
#include <QVector>
#include <functional>
#include <memory>

class Preparada;
class Cursor;

enum class ModoTransaccion {
    Escritura,            ///< lectura confirmada, espera bloqueos
    EscrituraSinEspera,   ///< como la anterior, pero una fila tomada es una falla inmediata
    EscrituraInstantanea, ///< escribe sobre una sola foto: lo que otro cambie después es conflicto
    Lectura,              ///< solo lectura, lectura confirmada
    Instantanea,          ///< solo lectura, una sola foto de toda la base: lo que se suma cuadra
};

class Transaccion;

/// Papel con que entra el programa: lo crean los guiones y lo concede la administración.
inline constexpr const char* kRolPrograma = "QUORVEX_PROGRAMA";

struct ParametrosConexion {
    QString base; ///< "equipo/puerto:ruta" o una ruta del equipo local
    QString usuario;
    QString clave;
    int espera_segundos = 10; ///< cuánto se espera por una fila que otro tiene tomada
    /// Solo al crear: cada escritura llega al disco antes de seguir. Una base desechable lo apaga.
    bool escritura_forzada = true;
    /// Papel que se toma al entrar; con uno que no le han concedido, el usuario entra sin ninguno.
    QString rol = QLatin1String(kRolPrograma);
};

enum class TipoColumna { Texto, Entero, Decimal, Fecha, Hora, FechaHora, Memo, Binario, Flotante };

/// Columna de un resultado o parámetro de una sentencia, como la describe el servidor.
struct Columna {
    QString nombre;
    QString tabla;
    TipoColumna tipo = TipoColumna::Texto;
    int longitud = 0;  ///< caracteres, para textos
    int decimales = 0; ///< para decimales
    bool fija = false; ///< CHAR
    bool admite_nulo = true;
    unsigned tipo_sql = 0;
    unsigned desplazamiento = 0;
    unsigned desplazamiento_nulo = 0;
    unsigned octetos = 0;
    int subtipo = 0;
};

class Conexion {
public:
    Conexion();
    ~Conexion();
    Conexion(const Conexion&) = delete;
    Conexion& operator=(const Conexion&) = delete;

    void conectar(const ParametrosConexion& parametros);
    /// Crea la base vacía (página de 8 KB, caché de `paginas_cache`) y queda conectada a ella.
    void cree_base(const ParametrosConexion& parametros, int paginas_cache = 8192);
    void desconectar() noexcept;
    /// Borra la base conectada; la conexión queda cerrada.
    void borre_base();
    bool conectada() const;
    /// Conectada y sin noticia de que se haya perdido el servidor. Lo que el programa hace por su
    /// cuenta lo pregunta antes: no le toca a él esperar a que vuelva.
    bool en_linea() const;
    const ParametrosConexion& parametros() const { return parametros_; }

    /// Corre `trabajo(Transaccion&)` en una transacción propia y la confirma. Si choca con otro
    /// usuario sin haber aplicado nada, lo repite entero (ver reintento.h); con otra falla, o si
    /// el otro no termina, lo deshace y la deja salir, diciendo a quién se espera.
    template <class F> auto en_transaccion(ModoTransaccion modo, F&& trabajo);
    /// Ejecuta una orden en su propia transacción corta; devuelve las filas tocadas.
    qint64 ejecute(const QString& sql, const QVector<Valor>& valores = {},
                   ModoTransaccion modo = ModoTransaccion::Escritura);
    /// Ejecuta un procedimiento y devuelve su única fila de salida.
    QVector<Valor> ejecute_con_salida(const QString& sql, const QVector<Valor>& valores = {},
                                      ModoTransaccion modo = ModoTransaccion::Escritura);
    /// Abre un cursor en la transacción de lectura de la conexión.
    std::unique_ptr<Cursor> abra(const QString& sql, const QVector<Valor>& valores = {});
    /// Primera columna de la primera fila; nulo si no hay filas.
    Valor consulte(const QString& sql, const QVector<Valor>& valores = {});

    /// Transacción de lectura que comparten las pantallas: no retiene versiones viejas.
    Transaccion& lectura();
    /// Sentencia preparada de la memoria de la conexión: los textos repetidos no se preparan dos
    /// veces.
    std::shared_ptr<Preparada> prepare(const QString& sql, Transaccion& transaccion);

    /// Columnas de la llave primaria de una tabla, en su orden; vacía si no tiene.
    QStringList llave_primaria(const QString& tabla);
    /// La misma falla de conflicto, con el nombre de quien debe terminar si se puede saber.
    ErrorBase conflicto_con_nombre(const ErrorBase& conflicto);

    quint64 sentencias_ejecutadas() const { return sentencias_; }
    /// Se llama con cada texto que se ejecuta; nulo para no observar.
    std::function<void(const QString&)> observador;

    struct Interno;
    Interno& interno() { return *interno_; }
    void anote(const QString& sql);
    /// Antes de cada operación: si se perdió el servidor, vuelve a entrar. Lanza si aún no atiende.
    void asegure_enlace();

private:
    void abra_o_cree(const ParametrosConexion& parametros, bool crear, int paginas_cache);
    void suelte() noexcept;
    void suelte_lo_abierto() noexcept;

    std::unique_ptr<Interno> interno_;
    ParametrosConexion parametros_;
    std::unique_ptr<Transaccion> lectura_;
    quint64 sentencias_ = 0;
};

/// Mientras vive, una consulta igual a otra que ya se hizo por `Conexion::abra` no vuelve a la
/// base: pegar mil líneas de la misma cuenta la valida una vez. Lo que esta conexión confirme lo
/// borra; lo que confirmen otros se ve al terminar, así que solo sirve para trabajos de pocos
/// segundos.
class ConsultasRepetidas {
public:
    explicit ConsultasRepetidas(Conexion& conexion);
    ~ConsultasRepetidas();
    ConsultasRepetidas(const ConsultasRepetidas&) = delete;
    ConsultasRepetidas& operator=(const ConsultasRepetidas&) = delete;

private:
    friend class Conexion;
    static std::unique_ptr<Cursor> abra(Conexion& conexion, const QString& sql,
                                        const QVector<Valor>& valores);
    Conexion& conexion_;
};

class Transaccion {
public:
    using Modo = ModoTransaccion;
    Transaccion(Conexion& conexion, Modo modo);
    /// Sin confirmar, se deshace.
    ~Transaccion();
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;
    /// Si se pierde el servidor mientras confirma, la falla es dudosa: pudo quedar o no.
    void confirme();
    void deshaga() noexcept;
    bool activa() const;
    Conexion& conexion() { return conexion_; }

    struct Interno;
    Interno& interno() { return *interno_; }

private:
    Conexion& conexion_;
    std::unique_ptr<Interno> interno_;
};

/// Lo que se insiste si otro estorba, según cómo se escribe.
constexpr Reintento::Paciencia paciencia_de(ModoTransaccion modo) {
    return modo == ModoTransaccion::EscrituraSinEspera     ? Reintento::Paciencia::Ninguna
           : modo == ModoTransaccion::EscrituraInstantanea ? Reintento::Paciencia::Proceso
                                                           : Reintento::Paciencia::Usuario;
}

template <class F> auto Conexion::en_transaccion(ModoTransaccion modo, F&& trabajo) {
    for (Reintento reintento(paciencia_de(modo));;) {
        try {
            Transaccion transaccion(*this, modo);
            if constexpr (std::is_void_v<decltype(trabajo(transaccion))>) {
                trabajo(transaccion);
                transaccion.confirme();
                return;
            } else {
                auto resultado = trabajo(transaccion);
                transaccion.confirme();
                return resultado;
            }
        } catch (const ErrorBase& falla) {
            if (reintento.otra_vez(falla))
                continue;
            if (falla.conflicto())
                throw conflicto_con_nombre(falla);
            throw;
        }
    }
}

class Preparada {
public:
    Preparada(Conexion& conexion, Transaccion& transaccion, const QString& sql);
    ~Preparada();
    Preparada(const Preparada&) = delete;
    Preparada& operator=(const Preparada&) = delete;

    const QVector<Columna>& columnas() const { return columnas_; }
    const QVector<Columna>& parametros() const { return parametros_; }
    bool devuelve_filas() const;
    QString plan() const;
    const QString& sql() const { return sql_; }

    qint64 ejecute(Transaccion& transaccion, const QVector<Valor>& valores);
    QVector<Valor> ejecute_con_salida(Transaccion& transaccion, const QVector<Valor>& valores);

    struct Interno;
    Interno& interno() { return *interno_; }

private:
    friend class Cursor;
    const char* cargue(Transaccion& transaccion, const QVector<Valor>& valores);

    Conexion& conexion_;
    QString sql_;
    std::unique_ptr<Interno> interno_;
    QVector<Columna> columnas_;
    QVector<Columna> parametros_;
    QByteArray entrada_;
};

/// Resultado de una consulta, fila a fila. El mensaje crudo puede copiarse y leerse después con
/// `decodifique`, que es lo que hace el conjunto de datos para no pagar por columnas que nadie
/// mira.
class Cursor {
public:
    Cursor(std::shared_ptr<Preparada> sentencia, Transaccion& transaccion,
           const QVector<Valor>& valores);
    ~Cursor();
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    bool siguiente();
    bool agotado() const { return agotado_; }
    const QVector<Columna>& columnas() const;
    Valor valor(int columna) const;
    const char* mensaje() const { return mensaje_.constData(); }
    unsigned largo_mensaje() const { return unsigned(mensaje_.size()); }
    /// Lee la siguiente fila dentro de `destino` (de largo_mensaje octetos).
    bool siguiente_en(char* destino);
    void cierre() noexcept;

    struct Interno;

private:
    friend class ConsultasRepetidas;
    /// Da las filas de una consulta ya contestada, sin ir a la base.
    Cursor(Conexion& conexion, std::shared_ptr<const struct Contestada> contestada);

    Conexion& conexion_;
    std::shared_ptr<Preparada> sentencia_;
    std::unique_ptr<Interno> interno_;
    std::shared_ptr<const struct Contestada>
        contestada_; ///< filas que van antes que las de la base
    qsizetype dadas_ = 0;
    QByteArray mensaje_;
    bool agotado_ = false;
};

/// Lee una columna de un mensaje crudo. Los blobs se leen con la transacción de lectura, enteros o
/// con una falla: nunca cortados.
Valor decodifique(Conexion& conexion, const Columna& columna, const char* mensaje);
