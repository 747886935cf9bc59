#pragma once
// Fallas de la capa de datos.
//
// `texto()` es parte del contrato: el reporte de fallas reconoce sus primeras letras ("dbExpress",
// los 18 caracteres de prefijo del servidor, "Fie", "key"...). Lo que lee una persona es
// `para_usuario()`, siempre en español; lo que dijo el motor queda en `detalle()`, para el archivo
// de errores.
#include <QString>
#include <exception>

/// Falla con texto.
class ErrorDatos : public std::exception {
public:
    /// `usuario` vacío: quien la lee recibe el mismo texto.
    explicit ErrorDatos(QString texto, QString detalle = {}, QString usuario = {})
        : texto_(std::move(texto)), detalle_(std::move(detalle)), usuario_(std::move(usuario)),
          utf8_(texto_.toUtf8()) {}
    const QString& texto() const { return texto_; }
    /// Lo que sirve a quien da soporte; vacío si el texto ya lo dice todo.
    const QString& detalle() const { return detalle_; }
    const QString& para_usuario() const { return usuario_.isEmpty() ? texto_ : usuario_; }
    const char* what() const noexcept override { return utf8_.constData(); }

private:
    QString texto_, detalle_, usuario_;
    QByteArray utf8_;
};

/// Qué pasó, según el código del motor y nunca según sus palabras.
enum class ClaseFalla {
    Otra,
    Conflicto,       ///< otro usuario tiene o cambió la fila; nada quedó aplicado
    ConexionPerdida, ///< se perdió el servidor: hay que soltar la conexión
    LlaveRepetida,   ///< llave primaria o única
    LlaveForanea,    ///< falta lo que se nombra, o lo que se borra está en uso
    DatoObligatorio, ///< una columna que no admite vacío
    Restriccion,     ///< una comprobación de la tabla
    TextoLargo,      ///< no cabe en la columna
    NumeroGrande,    ///< no cabe, o no se puede dividir por cero
    DatoIlegible,    ///< un texto que no es el número o la fecha que se esperaba
    Rechazo,         ///< una excepción propia de la base, con su frase
    SinPermiso,      ///< al usuario le falta un derecho en la base
    DiscoLleno,      ///< no hay espacio para la base o para ordenar
    SoloLectura,     ///< el archivo o la base no admite escritura
    SinRecursos,     ///< memoria o archivos temporales
    BaseDanada,      ///< el archivo no es una base sana
    OtraVersion,     ///< la base no tiene lo que este programa pide
    Apagada,         ///< el administrador cerró la base
    ClaveErrada,     ///< usuario o clave
    EnUso,           ///< otra sesión tiene abierto lo que se quiere solo
    YaExiste,        ///< el archivo que se quiere crear
    RespaldoDanado,  ///< el archivo no es un respaldo, o está incompleto
    NoExiste,        ///< el archivo, el equipo o el servicio no se encontró
};

/// Falla que viene del motor.
class ErrorBase : public ErrorDatos {
public:
    struct Causa {
        ClaseFalla clase = ClaseFalla::Otra;
        qint64 codigo = 0; ///< el primero de los del motor
        QString tabla{}, columna{}, restriccion{};
        QString archivo{};      ///< de una falla del disco
        QString llave{};        ///< de una llave repetida o en uso: ("CODIGO" = 'x')
        bool en_uso = false;    ///< de una llave foránea: lo que se borra lo usa `tabla`
        qint64 transaccion = 0; ///< de un conflicto: la que tiene la fila
    };
    ErrorBase(Causa causa, QString texto, QString detalle = {}, QString usuario = {})
        : ErrorDatos(std::move(texto), std::move(detalle), std::move(usuario)),
          causa_(std::move(causa)) {}

    const Causa& causa() const { return causa_; }
    ClaseFalla clase() const { return causa_.clase; }
    qint64 codigo() const { return causa_.codigo; }
    /// Otro usuario tocó la misma fila: nada quedó aplicado y se puede intentar de nuevo.
    bool conflicto() const { return clase() == ClaseFalla::Conflicto; }
    /// Se perdió el servidor: la conexión debe soltarse antes de abrirla otra vez.
    bool conexion_perdida() const { return clase() == ClaseFalla::ConexionPerdida; }
    /// La respuesta de una confirmación no llegó: el cambio pudo quedar o no.
    bool dudosa() const { return dudosa_; }
    ErrorBase como_dudosa() const;

private:
    Causa causa_;
    bool dudosa_ = false;
};

/// Otro usuario cambió o borró la fila después de leída: lo que se iba a grabar ya no le aplica.
class ErrorOtroUsuario : public ErrorDatos {
public:
    using ErrorDatos::ErrorDatos;
};

/// Rechazo silencioso de una edición: el mensaje, si lo hubo, ya se mostró.
class EdicionAbortada : public std::exception {
public:
    const char* what() const noexcept override { return "edición abortada"; }
};
