#pragma once
// Módulo de datos central: conexiones, configuración, derechos, fallas, numeración y avisos.
//
// Vive lo que el proceso y guarda las sentencias compartidas. La sesión (usuario, compañía,
// agencia, derechos) se llena una vez, en la primera activación del formulario principal.
#include "datos/recordset/conjunto.h"
#include "libro/libro.h"
#include "sesion/llaves.h"
#include "toolkit/barraestado.h"

#include <QPointer>
#include <optional>

/// Encabezado de la compañía para los comprobantes impresos.
struct EncabezadoCompania {
    QString nombre, direccion, telefonos, encabezado;
    QByteArray logo;
    QString nit;
};

/// Lo que dice la revisión de un número digitado.
struct NumeroValidado {
    bool vale = true;        ///< falso: el usuario no quiso consultarlo y el número debe vaciarse
    QString encontrado = {}; ///< id del documento que debe abrirse; vacío: ninguno
};

class Tfdm : public QObject {
    Q_OBJECT
public:
    Tfdm();
    ~Tfdm() override;
    void DataModuleCreate();

    // --- conexiones
    Conexion Quorvex;    ///< base de la compañía
    Conexion ConGeneral; ///< base general

    // --- sesión
    QString modulo, usuario, nombre_usuario, codigo_compania;
    int sucursal_usuario = 0;
    bool administrador = false;
    EncabezadoCompania datos_compania;
    QString SUCU_NOMBRE, SUCU_DIRECCION, SUCU_TELEFONOS; ///< de la agencia de la sesión
    int registros_paquete = 1000;
    int duracion_busquedas = 0; ///< milisegundos
    QString color_ventana, color_final;
    bool hubo_error = false, sin_mensaje = false;
    /// La última propuesta contabilizada pide que una persona la confirme.
    bool confirmar_contabilizacion = false;
    static const QStringList& nombres_periodo(); ///< catorce: Enero a Diciembre, Ajustes, Cierre

    // --- sentencias compartidas
    Sentencia QConfiguracion, QBorrar, QBorrarGen, QAccesous, TNomcampos, QAudit;
    Sentencia TTipocomp, TPrefconta, QPrefijos, TTipodoc, TPrefijo;
    Sentencia TProyectos, TCentros, TSubEmpresa, TCuentas, TCuentasniif, QPuc;
    Sentencia QNumerodoc, QNomtipo, TUsracceso, TCompania, QUserFec, QCuentausr, QRevision;
    Sentencia SPCtaPadre, SCreectapuc, SAfectable;
    Sentencia Tformatos, Tformadatos, Tformalineas, Smueveformato;
    Proveedor PConfiguracion, PBorrar, PBorrarGen, PAccesous, PNomcampos;
    ConjuntoDatos CConfiguracion, CBorrar, CBorrarGen, CAccesous, CNomcampos;

    // --- configuración
    void cargue_configuracion();
    /// Valor de la llave, o vacío después de avisar si no existe. En memoria: no toca la base.
    QString configuracion(const QString& modulo, const QString& categoria,
                          const QString& propiedad);
    /// Valor de una llave de la tabla, ya convertido a su tipo (ver llaves.h). Lanza ErrorDatos,
    /// nombrando la llave, si su texto no lo permite.
    template <Llave L> auto valor() {
        constexpr TipoLlave tipo = datos_de(L).tipo;
        const QString texto = texto_de(L);
        if constexpr (tipo == TipoLlave::Si)
            return texto == QLatin1String("SI");
        else if constexpr (tipo == TipoLlave::SalvoNo)
            return texto != QLatin1String("NO");
        else if constexpr (tipo == TipoLlave::Entero)
            return entero_de(L, texto);
        else if constexpr (tipo == TipoLlave::Fecha)
            return fecha_de(L, texto);
        else
            return texto;
    }
    QString texto_de(Llave llave);
    /// Conversión estricta; lanza ErrorDatos si el texto no es un entero.
    static int entero(const QString& texto);

    // --- proveedores y fallas
    /// Recorre lo que `componente` posee: une las fallas, los avisos de espera y el tamaño de
    /// paquete. Toda pantalla y módulo de datos la llama al crearse.
    void ConfigurarProviders(QObject* componente);
    void ManejarError(Proveedor* remitente, ConjuntoDatos* conjunto, const ErrorDatos& error);
    void ManejarClientError(ConjuntoDatos& conjunto, const ErrorDatos& error);
    void ENoManejada(const ErrorDatos& falla);
    void ENoManejada(const QString& texto) { ENoManejada(ErrorDatos(texto)); }
    QString nombre_campo(const QString& nombre);
    AvisosBarra* barra() const { return barra_; }
    void barra(AvisosBarra* barra);
    void mostrar_advertencia(const QString& texto);
    void mostrar_alerta(const QString& texto);
    void mostrar_mensaje();
    void quitar_mensaje();
    void mensaje_error(const QString& texto);

    // --- derechos y auditoría
    bool valide_acceso(const QString& modulo, int opcion);
    /// La opción del módulo CONTABILIDAD; si se niega, muestra la negativa.
    bool exija_acceso(int opcion);
    bool acceso_editacomproba(const QString& usuario, const QString& modulo, int opcion);
    QString valide_usuario(const QString& usuario);
    QString razon_anulacion(int tipo, int id);
    /// Último cambio de un maestro o comprobante: "aaaa-mm-dd  hh:mm:ss  USUARIO", o vacío.
    /// `columna` es "audi_cod" o "audi_iddoc"; `valor`, el código o el id, sin comillas.
    static QString sql_auditoria(int tipo, const QString& columna, const QString& valor);

    // --- numeración de documentos
    static QString complete_numero(const QString& numero) { return complete_numero_n(numero, 6); }
    static QString complete_numero_n(const QString& numero, int n);
    void registre_prefijo(int tipo);
    /// Id del documento, nulo si no existe. Sin número se da por existente, con id vacío.
    std::optional<QString> existe_numero(int tipo, const QString& prefijo, const QString& numero);
    /// Con el número de otro documento pregunta si se consulta; el sugerido pasa a uno libre.
    NumeroValidado valide_numero(int tipo, const QString& prefijo, const QString& numero_sugerido,
                                 Campo& campo);
    void numero_documento(int tipo, qint64 id, Campo& campo_prefijo, Campo& campo_numero);
    void num_documento(int tipo, qint64 id, QString& prefijo, QString& numero);
    QString nombre_tipo(int tipo);

    // --- fechas y letras
    void valide_fecha(Campo& campo);
    QString numero_a_letras(Moneda valor);
    QString nombre_impresora(const QString& clave);

    /// Anota una falla en ERRORES.TXT sin decir nada a nadie.
    void registre_en_archivo(const QString& texto);

private:
    static int entero_de(Llave llave, const QString& texto);
    static QDate fecha_de(Llave llave, const QString& texto);
    QString mensaje_en_memoria(ConjuntoDatos& conjunto, const ErrorDatos& error);
    static QString mensaje_al_grabar(const Proveedor& remitente, const ErrorDatos& error);
    static QString mensaje_no_manejada(const ErrorDatos& error);
    void instale_nombres();

    QPointer<AvisosBarra> barra_;
};

Tfdm& fdm();
constexpr const char* kAccesoNegado =
    "Acceso no permitido. comuníquese con el administrador del sistema.";
