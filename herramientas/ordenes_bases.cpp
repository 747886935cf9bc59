// Crear, actualizar, respaldar, restaurar, verificar y compactar bases.
#include "datos/firebird/concuerde.h"
#include "datos/firebird/reloj.h"
#include "datos/firebird/servicios.h"
#include "herramientas/administracion.h"
#include "herramientas/demo_formatos.h"
#include "herramientas/demo_intercambio.h"
#include "herramientas/demo_segunda.h"
#include "herramientas/demostracion.h"
#include "herramientas/ordenes.h"
#include "herramientas/respaldo.h"
#include "herramientas/verificacion.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>
#include <memory>

namespace {

/// La que dejó una creación que murió: es de este sistema y no llegó a tener versión.
bool quedo_a_medias(const ParametrosConexion& base) {
    try {
        Conexion c;
        c.conectar(base);
        const char* tablas = "select count(*) from rdb$relations where rdb$system_flag = 0";
        const char* versiones = "select count(*) from version_esquema";
        return c.consulte(QLatin1String(tablas)).entero() == 0 ||
               (version_de_esquema(c) == 0 && c.consulte(QLatin1String(versiones)).entero() == 0);
    } catch (const ErrorBase& e) {
        if (e.clase() == ClaseFalla::EnUso)
            throw;
        return false;
    }
}

/// Base nueva con su esquema. Si no se llega a `conserve`, se borra con la carpeta que se hizo para
/// ella: una creación que falla a mitad de camino no deja nada. Mientras se llena no se espera al
/// disco: se asegura cuando está completa, y solo entonces se registra. En este equipo toma su
/// nombre al final: la de un programa que murió se llama de otro modo y se vuelve a hacer.
class BaseNueva {
public:
    BaseNueva(const Sesion& s, const ParametrosConexion& parametros, TipoBase tipo)
        : parametros_(parametros),
          ruta_(s.ubicacion().carpetas_alcanzables() ? s.ubicacion().ruta_de(parametros.base)
                                                     : QString()) {
        for (QString c = QFileInfo(ruta_).path(); !ruta_.isEmpty() && !QDir(c).exists();
             c = QFileInfo(c).path())
            hechas_ << c;
        s.ubicacion().prepare_carpeta(parametros.base);
        if (!s.ubicacion().en_servidor())
            tome_turno();
        if (!ruta_.isEmpty() && QFileInfo::exists(ruta_)) {
            if (!quedo_a_medias(parametros_))
                throw ErrorDatos(
                    QStringLiteral("Ya existe la base de datos %1.").arg(parametros.base));
            borre(parametros_);
        }
        if (!s.ubicacion().en_servidor()) {
            definitiva_ = ruta_;
            parametros_.base = ruta_ += QStringLiteral(".nueva");
            if (QFileInfo::exists(ruta_)) {
                (void)quedo_a_medias(parametros_); // otra sesión que la tenga lanza
                QFile::remove(ruta_);
            }
        }
        ParametrosConexion nueva = parametros_;
        nueva.escritura_forzada = false;
        try {
            base.cree_base(nueva);
            creada_ = true;
            Instalador(base).instale(tipo);
        } catch (...) {
            deshaga();
            throw;
        }
    }
    ~BaseNueva() {
        if (!conservada_)
            deshaga();
    }
    /// Ya está completa: desde aquí cada confirmación llega al disco, y toma su nombre.
    void asegure() {
        base.desconectar();
        ponga_escritura_inmediata(parametros_, true);
        if (definitiva_.isEmpty())
            return;
        if (!QFile::rename(ruta_, definitiva_))
            throw ErrorDatos(QStringLiteral("No se pudo cambiar de nombre %1 a %2. Verifique los "
                                            "permisos de la carpeta.")
                                 .arg(ruta_, definitiva_));
        parametros_.base = ruta_ = definitiva_;
    }
    void conserve() { conservada_ = true; }

    Conexion base;

private:
    /// Dos programas que crean la misma se borrarían el archivo el uno al otro. El turno de uno que
    /// murió no vale.
    void tome_turno() {
        turno_ = std::make_unique<QLockFile>(ruta_ + QStringLiteral(".creando"));
        turno_->setStaleLockTime(0);
        // Si no se puede escribir ahí, lo dirá la creación.
        if (!turno_->tryLock(0) && turno_->error() == QLockFile::LockFailedError)
            throw ErrorDatos(QStringLiteral("Otro programa está creando la base de datos %1. "
                                            "Espere a que termine.")
                                 .arg(parametros_.base));
    }
    static void borre(const ParametrosConexion& base) {
        Conexion c;
        c.conectar(base);
        c.borre_base();
    }
    void deshaga() noexcept {
        try {
            if (creada_ && !base.conectada())
                base.conectar(parametros_);
            if (creada_)
                base.borre_base();
        } catch (const std::exception&) {
            base.desconectar();
            if (!ruta_.isEmpty())
                QFile::remove(ruta_);
        }
        turno_.reset();
        for (const QString& carpeta : hechas_)
            QDir().rmdir(carpeta);
    }

    ParametrosConexion parametros_;
    QString ruta_;       ///< vacía si no se alcanza desde aquí
    QString definitiva_; ///< la que toma al final; vacía si es la misma
    QStringList hechas_; ///< carpetas que no existían, de la más honda a la menos
    std::unique_ptr<QLockFile> turno_;
    bool creada_ = false;
    bool conservada_ = false;
};

void cree_general(const Sesion& s) {
    BaseNueva nueva(s, s.general(), TipoBase::General);
    nueva.asegure();
    nueva.conserve();
}

void crear_general(const Sesion& s) {
    cree_general(s);
    diga(QStringLiteral("Base general creada en %1.").arg(s.general().base));
}

/// Registra la que quedó completa porque el programa murió antes de registrarla. Falso: no hay tal.
bool registre_la_completa(const Sesion& s, Conexion& general, const DatosCompania& d) {
    const ParametrosConexion p = s.compania(d.codigo);
    if (!s.ubicacion().carpetas_alcanzables() ||
        !QFileInfo::exists(s.ubicacion().ruta_de(p.base)) || companias(general).contains(d.codigo))
        return false;
    try {
        Conexion c;
        c.conectar(p);
        if (!negativa_de_version(TipoBase::Compania, version_de_esquema(c)).isEmpty())
            return false;
        (void)c.consulte("select first 1 enco_consec from comprobante_encabezado");
    } catch (const ErrorBase& e) {
        if (e.clase() == ClaseFalla::EnUso)
            throw;
        return false; // no es una base, o no lo acabó de ser
    }
    registre_compania(general, d);
    diga(QStringLiteral("La base de la compañía %1 ya estaba completa en %2 y no figuraba: quedó "
                        "registrada.")
             .arg(d.codigo, p.base));
    return true;
}

void crear_compania(const Sesion& s) {
    const Argumentos& a = s.argumentos();
    DatosCompania d;
    d.codigo = codigo_compania(a.exija(QStringLiteral("codigo")));
    d.nombre = a.exija(QStringLiteral("nombre"));
    d.nit = a.valor(QStringLiteral("nit"));
    d.direccion = a.valor(QStringLiteral("direccion"));
    d.telefonos = a.valor(QStringLiteral("telefonos"));
    d.encabezado = a.valor(QStringLiteral("encabezado"));
    d.ciudad = a.valor(QStringLiteral("ciudad"));
    d.ano_inicio = a.entero(QStringLiteral("ano-inicio"), 2017, 1990, 2100);
    d.mes_inicio = a.entero(QStringLiteral("mes-inicio"), 1, 1, 12);
    Conexion general;
    general.conectar(s.general());
    if (registre_la_completa(s, general, d))
        return;
    BaseNueva nueva(s, s.compania(d.codigo), TipoBase::Compania);
    configure_compania(nueva.base, d);
    nueva.asegure();
    registre_compania(general, d);
    nueva.conserve();
    diga(QStringLiteral("Compañía %1 creada en %2.").arg(d.codigo, s.compania(d.codigo).base));
}

/// Junto a la base de la compañía.
QString carpeta_de_muestras(const Sesion& s, const QString& codigo) {
    return QFileInfo(s.ubicacion().ruta_de(s.compania(codigo).base)).path() + "/importar";
}

/// Con la general de la instalación; si aún no existe, la crea.
void crear_demo(const Sesion& s) {
    const Argumentos& a = s.argumentos();
    const DatosCompania d =
        compania_demo(codigo_compania(a.valor(QStringLiteral("codigo"), QStringLiteral("001"))));
    const bool segunda = d.codigo == QLatin1String(kSegundaDemo);
    OpcionesDemostracion opciones;
    opciones.renglones = a.entero(QStringLiteral("lineas"), 0, 0, 5000000);
    opciones.semilla =
        quint64(a.entero(QStringLiteral("semilla"), segunda ? 2019 : 2018, 0, 2000000000));
    Conexion general;
    try {
        general.conectar(s.general());
    } catch (const ErrorBase& e) {
        if (e.clase() != ClaseFalla::NoExiste)
            throw;
        cree_general(s);
        general.conectar(s.general());
    }
    BaseNueva nueva(s, s.compania(d.codigo), TipoBase::Compania);
    configure_compania(nueva.base, d);
    const auto r = genere_demostracion(general, nueva.base, opciones, diga);
    if (segunda)
        siembre_lo_propio_de_la_segunda(nueva.base, opciones.ano);
    compacte_saldos(nueva.base);
    actualice_estadisticas(nueva.base);
    if (s.ubicacion().carpetas_alcanzables())
        escriba_muestras(nueva.base, carpeta_de_muestras(s, d.codigo), opciones.ano);
    nueva.asegure();
    registre_compania(general, d);
    registre_logo(general, d.codigo, logo_demo());
    nueva.conserve();
    if (s.ubicacion().en_servidor())
        for (const char* usuario : {"ADMIN", "AUXILIAR"})
            cree_usuario_servidor(general, QLatin1String(usuario),
                                  a.exija(QStringLiteral("clave-usuario")));
    diga(QStringLiteral("Compañía %1 con %2, %3 y %4 NIIF, y %5.")
             .arg(d.codigo, concuerde(r.comprobantes, "%1 comprobante", "%1 comprobantes"),
                  concuerde(r.renglones, "%1 renglón 2649", "%1 renglones 2649"),
                  QString::number(r.renglones_niif),
                  concuerde(r.documentos, "%1 documento sin contabilizar",
                            "%1 documentos sin contabilizar")));
}

/// Lo que el motor anota de una tabla que se está creando (sus páginas, sus formatos) no es de
/// ninguna transacción: si muere ahí, quedan restos y lo que se cree encima sale mal. De su
/// respaldo sale limpia.
void rehaga(const ParametrosConexion& base, TipoBase tipo) {
    // Junto a la base, que es donde se sabe que cabe.
    QTemporaryDir carpeta(Ubicacion(base.base).en_servidor()
                              ? QDir::temp().filePath(QStringLiteral("quorvex_XXXXXX"))
                              : QFileInfo(base.base).path() + QStringLiteral("/rehaga_XXXXXX"));
    const QString copia = carpeta.filePath(QStringLiteral("a_medias.fbk"));
    respalde_y_pruebe(base, copia);
    restaure_en_lugar(copia, base, tipo);
}

void actualice_una(const ParametrosConexion& base, TipoBase tipo, const QString& nombre) {
    Conexion conexion;
    conexion.conectar(base);
    if (const QStringList otras = sesiones_ajenas(conexion); !otras.isEmpty())
        throw ErrorDatos(QStringLiteral("%1 está en uso por %2. Cierre esas sesiones e intente de "
                                        "nuevo.")
                             .arg(nombre, otras.join(QStringLiteral(", "))));
    if (Instalador(conexion).quedo_a_medias()) {
        diga(nombre + QStringLiteral(": una actualización anterior no terminó; se rehace la base"
                                     " desde su respaldo."));
        conexion.desconectar();
        rehaga(base, tipo);
        conexion.conectar(base);
    }
    QStringList hechas = Instalador(conexion).actualice(tipo);
    if (tipo == TipoBase::Compania)
        actualice_estadisticas(conexion);
    // La que quedó así de una creación que murió perdería lo grabado al irse la luz.
    if (!tiene_escritura_inmediata(conexion)) {
        conexion.desconectar();
        ponga_escritura_inmediata(base, true);
        hechas << QStringLiteral("la escritura inmediata");
    }
    diga(nombre + (hechas.isEmpty() ? QStringLiteral(": al día.")
                                    : QStringLiteral(": aplicadas %1.").arg(hechas.join(", "))));
}

void actualizar(const Sesion& s) {
    actualice_una(s.general(), TipoBase::General, QStringLiteral("Base general"));
    for (const QString& codigo : s.codigos())
        actualice_una(s.compania(codigo), TipoBase::Compania,
                      QStringLiteral("Compañía %1").arg(codigo));
}

ParametrosConexion base_pedida(const Sesion& s) {
    return s.argumentos().tiene(QStringLiteral("general")) ? s.general() : s.compania();
}

void respaldar(const Sesion& s) {
    const QString cual =
        s.argumentos().valor(QStringLiteral("compania"), QStringLiteral("general"));
    const QString archivo = s.argumentos().valor(
        QStringLiteral("archivo"),
        QStringLiteral("%1_%2.fbk")
            .arg(cual, reloj().ahora().toString(QStringLiteral("yyyyMMdd_HHmmss"))));
    const auto r = respalde_y_pruebe(base_pedida(s), archivo);
    diga(QStringLiteral("Respaldo en %1 (%2 KB), probado: %3 cifras comparadas, %4 filas.")
             .arg(archivo, QString::number(r.octetos / 1024), QString::number(r.tablas),
                  QString::number(r.filas)));
}

void restaurar(const Sesion& s) {
    const TipoBase tipo =
        s.argumentos().tiene(QStringLiteral("general")) ? TipoBase::General : TipoBase::Compania;
    const auto r =
        restaure_en_lugar(s.argumentos().exija(QStringLiteral("archivo")), base_pedida(s), tipo);
    diga(concuerde(r.filas, "Base restaurada: %1 fila.", "Base restaurada: %1 filas."));
}

/// Entra a una compañía que esté al día.
void entre(Conexion& conexion, const Sesion& s, const QString& codigo) {
    conexion.conectar(s.compania(codigo));
    if (const QString negativa =
            negativa_de_version(TipoBase::Compania, version_de_esquema(conexion));
        !negativa.isEmpty())
        throw ErrorDatos(QStringLiteral("Compañía %1: %2").arg(codigo, negativa));
}

void verificar(const Sesion& s) {
    int fallas = 0;
    for (const QString& codigo : s.codigos()) {
        Conexion conexion;
        entre(conexion, s, codigo);
        QStringList permitidos;
        const QStringList hallazgos = verifique_compania(conexion, &permitidos);
        for (const QString& h : hallazgos + permitidos)
            diga(QStringLiteral("Compañía %1: %2").arg(codigo, h));
        if (hallazgos.isEmpty())
            diga(QStringLiteral("Compañía %1: los libros están bien y los saldos coinciden con los "
                                "renglones.")
                     .arg(codigo));
        fallas += int(hallazgos.size());
    }
    if (fallas > 0)
        throw ErrorDatos(concuerde(fallas, "Se halló una cosa mal.", "Se hallaron %1 cosas mal."));
}

void recalcular(const Sesion& s) {
    for (const QString& codigo : s.codigos()) {
        Conexion conexion;
        entre(conexion, s, codigo);
        const QStringList corregidos = recalcule_saldos(conexion);
        for (const QString& c : corregidos)
            diga(QStringLiteral("Compañía %1: %2").arg(codigo, c));
        if (corregidos.isEmpty())
            diga(QStringLiteral("Compañía %1: ningún saldo estaba mal.").arg(codigo));
    }
}

void compactar(const Sesion& s) {
    for (const QString& codigo : s.codigos()) {
        Conexion conexion;
        entre(conexion, s, codigo);
        diga("Compañía " + codigo + ": " +
             concuerde(compacte_saldos(conexion), "%1 diferencia de saldo compactada.",
                       "%1 diferencias de saldo compactadas."));
        actualice_estadisticas(conexion);
    }
}

} // namespace

QVector<Orden> ordenes_de_bases() {
    return {
        {"crear-general", "crea la base general de una instalación", "", {}, {}, crear_general},
        {"crear-compania",
         "crea la base de una compañía y la registra",
         "--codigo 001 --nombre NOMBRE [--nit NIT] [--direccion D] [--ciudad C] [--telefonos T]\n"
         "    [--encabezado E] [--ano-inicio 2017] [--mes-inicio 1]",
         {"codigo", "nombre", "nit", "direccion", "telefonos", "encabezado", "ciudad", "ano-inicio",
          "mes-inicio"},
         {},
         crear_compania},
        {"crear-demo",
         "crea una compañía de demostración con un año de movimiento",
         "[--codigo 001] [--lineas N] [--semilla 2018] [--clave-usuario CLAVE]\n"
         "    con --codigo 002, la filial que se consolida con la primera",
         {"codigo", "lineas", "semilla", "clave-usuario"},
         {},
         crear_demo},
        {"actualizar",
         "aplica las actualizaciones del esquema que falten",
         "[--compania 001,002]",
         {"compania"},
         {},
         actualizar},
        {"respaldar",
         "respalda una base y prueba el respaldo restaurándolo aparte",
         "(--compania 001 | --general) [--archivo RUTA.fbk]",
         {"compania", "archivo"},
         {"general"},
         respaldar},
        {"restaurar",
         "pone una base como estaba en un respaldo",
         "(--compania 001 | --general) --archivo RUTA.fbk",
         {"compania", "archivo"},
         {"general"},
         restaurar},
        {"verificar",
         "revisa los dos libros y compara los saldos con los renglones",
         "[--compania 001]",
         {"compania"},
         {},
         verificar},
        {"recalcular",
         "rehace los saldos a partir de los renglones y dice cuáles estaban mal",
         "[--compania 001]",
         {"compania"},
         {},
         recalcular},
        {"compactar",
         "pasa las diferencias de saldo a las tablas compactadas",
         "[--compania 001]",
         {"compania"},
         {},
         compactar},
    };
}
