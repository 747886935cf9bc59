#pragma once
// Importación de un archivo de texto a la base de la compañía, sin pantallas.
//
// Cada cuenta, tercero, saldo o comprobante es una transacción: lo que se rehúsa no detiene lo
// demás. Un ensayo hace lo mismo y no deja nada escrito. Los renglones rehusados se devuelven con
// su número, su texto y la razón, y cada razón pasa además por `anote`, que es el registro de
// fallas de la importación.
#include "exchange/datos_importacion.h"
#include "exchange/lector_registros.h"
#include "libro/fechas.h"

#include <QFile>
#include <memory>
#include <optional>

struct ColumnaImportacion {
    QString dato;    ///< clave de datos_importacion.h; las demás no se leen
    int columna = 0; ///< del archivo, desde 1; 0 no se trae
};

struct PeticionImportacion {
    ClaseImportacion clase = ClaseImportacion::Cuentas;
    bool niif = false;
    QString archivo;
    char separador = ',', delimitador = 0;
    QVector<ColumnaImportacion> columnas;
    /// Los que traiga reemplazan los saldos iniciales. Entran todos juntos: si se detiene, o no
    /// entra ninguno, siguen los que había.
    bool borre_saldos = false;
    bool digito_de_verificacion = false; ///< el tercero que entra lleva el de su NIT
    bool ensayo = false;                 ///< no deja nada escrito
};

struct RenglonRechazado {
    qint64 renglon = 0;
    QByteArray texto; ///< como está en el archivo
    QString razon;
};

struct ResultadoImportacion {
    qint64 leidos = 0, grabados = 0;
    qint64 omitidos = 0;  ///< en blanco, o de una cuenta o un tercero que ya existían
    qint64 de_antes = 0;  ///< los que no rehusó la que se cortó; los que sí se repiten aquí
    qint64 agregados = 0; ///< de los grabados, los de comprobantes que ya estaban antes de empezar
    QVector<RenglonRechazado> rechazados;
    QStringList avisos; ///< de lo que entró incompleto, también anotados
    bool cancelada = false;
    std::optional<ErrorDatos> falla;    ///< la que la detuvo, si no fue el usuario
    bool siguen_los_anteriores = false; ///< se iban a reemplazar los saldos y no se tocó ninguno
    /// Débitos y créditos de todos los saldos iniciales del libro, como quedan.
    std::optional<std::pair<Moneda, Moneda>> saldos;
    /// Por cuánto; vacío si cuadran o no son saldos.
    QString descuadre() const;
    QString resumen() const;
};

/// Último comprobante visto, que acompaña cada anotación.
struct LlaveComprobante {
    QString tipo, prefijo, numero;
    bool operator==(const LlaveComprobante&) const = default;
};

class DiarioImportacion;

class Importacion {
public:
    Importacion(Conexion& conexion, const PeticionImportacion& peticion,
                const AjustesLibro& ajustes, const QString& usuario);
    virtual ~Importacion();

    /// Recibe cada razón de rechazo.
    std::function<void(const QString& mensaje, const LlaveComprobante& llave)> anote;
    /// Recibe lo que se está leyendo y el avance, de 0 a 100; falso detiene el trabajo ahí. Lo que
    /// ya se grabó queda.
    std::function<bool(const QString& que, int ciento)> avance;

    /// Donde anota por dónde va, y lo que dejó la que sigue; solo de comprobantes y sin ensayo.
    DiarioImportacion* diario = nullptr;

    /// Lanza ErrorDatos si el archivo no se puede abrir, es de menos de cinco octetos o está en
    /// Unicode, antes de escribir nada. Después, una falla que no es de un renglón la detiene: va
    /// en el resultado, con lo que alcanzó a entrar.
    ResultadoImportacion corra();

protected:
    /// Antes del primer registro, con el archivo ya abierto.
    virtual void prepare() {}
    virtual void procese(const RegistroLeido& registro) = 0;
    virtual void termine() {}

    /// Texto y valor de un dato del registro en curso. `dato` vacío si no viene.
    QString texto(const char* dato) const;
    Valor valor(const char* dato) const;
    /// Lee los datos del registro; devuelve por qué no sirven, o vacío.
    QString lea(const RegistroLeido& registro, const QStringList& salvo = {});
    /// Corre `trabajo` y lo confirma o, en un ensayo o si todo va junto, en la transacción que se
    /// termina al final. Devuelve la falla que lo impidió, o vacío.
    QString escriba(const std::function<void(Transaccion&)>& trabajo);
    void rechace(const RegistroLeido& registro, const QString& razon);
    /// La primera columna de una tabla corta. Se lee una sola vez.
    const QStringList& codigos(const QString& sql);
    void muestre(const QString& que) { que_ = que; }
    /// Desde aquí nada de lo que se escribe queda hasta `confirme_junto`.
    void todo_junto();
    void confirme_junto();

    Libro libro() const { return peticion_.niif ? Libro::Niif : Libro::Decreto2649; }

    Conexion& conexion_;
    const PeticionImportacion peticion_;
    const AjustesLibro ajustes_;
    const QString usuario_;
    ResultadoImportacion resultado_;
    LlaveComprobante llave_;

private:
    void avance_de(qint64 leidos, qint64 total);
    bool resuelto_antes(const RegistroLeido& registro);
    void detengase();
    void avise_lo_que_quedo(const LectorRegistros& lector);

    QHash<QString, Valor> valores_;
    QHash<QString, QStringList> codigos_; ///< por su consulta
    std::unique_ptr<Transaccion> junto_;  ///< de un ensayo, o de lo que entra todo o nada
    QString que_;
    qint64 paso_ = 0, proximo_ = 0;
};

/// La que corresponde a la clase de datos.
std::unique_ptr<Importacion> importacion_de(Conexion& conexion, const PeticionImportacion& peticion,
                                            const AjustesLibro& ajustes, const QString& usuario);

/// Lo que la cuenta exige y la línea no trae, para los datos que la importación conoce.
struct LineaImportada {
    QString cuenta, nit, proyecto, centro, articulo;
    Moneda base, porcentaje;
};

/// Reglas de las líneas que se importan. Cada código se pregunta a la base una sola vez.
class RevisorImportacion {
public:
    RevisorImportacion(Conexion& conexion, Libro libro) : conexion_(conexion), libro_(libro) {}

    bool existe_cuenta(const QString& cuenta);
    bool cuenta_vale(const QString& cuenta);
    /// Falso si le falta el tercero, el centro, el artículo o, con `retencion`, la base y el
    /// porcentaje que su cuenta exige.
    bool completa(const LineaImportada& linea, bool retencion);
    /// El tercero y el centro que nombra existen; lo que no, en `razones`.
    void revise_codigos(const LineaImportada& linea, QStringList& razones);

private:
    struct Cuenta;
    const Cuenta& cuenta(const QString& codigo);
    Conexion& conexion_;
    const Libro libro_;
    QHash<QString, std::shared_ptr<Cuenta>> cuentas_;
    QHash<QString, bool> terceros_, centros_;
};
