// De los códigos del motor a una falla con clase y con palabras de la casa.
#include "datos/firebird/interno.h"
#include "datos/firebird/nombres.h"

#include <QRegularExpression>
#include <cerrno>

namespace {

/// Recorre el vector de estado del motor.
class Vector {
public:
    explicit Vector(const ISC_STATUS* v) : v_(v) {}

    template <class F> void recorra(F f) const {
        for (const ISC_STATUS* p = v_; *p != isc_arg_end; p += paso(p))
            f(p);
    }
    bool tiene(ISC_STATUS codigo) const { return donde(codigo) != nullptr; }
    bool tiene_alguno(std::initializer_list<ISC_STATUS> codigos) const {
        return std::any_of(codigos.begin(), codigos.end(), [this](auto c) { return tiene(c); });
    }
    /// Argumento número `n` del código, como texto; vacío si no lo trae.
    QString argumento(ISC_STATUS codigo, int n = 0) const {
        const ISC_STATUS* p = donde(codigo);
        if (!p)
            return {};
        for (p += paso(p); *p != isc_arg_end && *p != isc_arg_gds; p += paso(p), --n)
            if (n == 0)
                return *p == isc_arg_string   ? QString::fromLatin1(texto(p))
                       : *p == isc_arg_number ? QString::number(qint64(p[1]))
                                              : QString();
        return {};
    }
    /// Error del sistema operativo; 0 si la falla no viene de él.
    int error_del_sistema() const {
        int error = 0;
        recorra([&](const ISC_STATUS* p) {
            if (*p == isc_arg_unix)
                error = int(p[1]);
        });
        return error;
    }
    ISC_STATUS primero() const { return v_[0] == isc_arg_gds ? v_[1] : 0; }
    static const char* texto(const ISC_STATUS* p) { return reinterpret_cast<const char*>(p[1]); }

private:
    static int paso(const ISC_STATUS* p) { return *p == isc_arg_cstring ? 3 : 2; }
    const ISC_STATUS* donde(ISC_STATUS codigo) const {
        const ISC_STATUS* hallado = nullptr;
        recorra([&](const ISC_STATUS* p) {
            if (!hallado && *p == isc_arg_gds && p[1] == codigo)
                hallado = p;
        });
        return hallado;
    }
    const ISC_STATUS* v_;
};

struct Regla {
    ISC_STATUS codigo;
    ClaseFalla clase;
    const char* texto;
};

const char* const kSinPermiso =
    "Su usuario no tiene permiso en la base de datos para hacer esto. Comuníquese con el "
    "administrador del sistema.";
const char* const kSinEspacio =
    "No queda espacio en el disco de la base de datos. Nada se grabó: libere espacio e intente de "
    "nuevo.";
const char* const kDanada =
    "La base de datos está dañada. No siga trabajando en ella y comuníquese con el administrador "
    "del sistema.";
const char* const kOtraVersion =
    "La base de datos no es de la versión de este programa: le falta algo que se necesita. El "
    "administrador del sistema debe actualizarla.";
const char* const kSinMemoria =
    "El equipo de la base de datos se quedó sin memoria. Cierre otros programas e intente de "
    "nuevo.";
const char* const kNumeroGrande =
    "Un número es demasiado grande para la base de datos. Revise los importes.";
const char* const kDivision = "Una operación de la base de datos dividió por cero.";
const char* const kEnUso = "La base de datos está en uso por otra sesión. Cierre los demás "
                           "programas que la tengan abierta "
                           "e intente de nuevo.";
const char* const kSinOrden =
    "No se pudo ordenar la información: falta espacio en la carpeta temporal del equipo de la base "
    "de datos. Libere espacio o pida menos información.";

/// Las que se explican con una frase fija. Vale la primera cuyo código traiga el motor.
const Regla kReglas[] = {
    {isc_no_priv, ClaseFalla::SinPermiso, kSinPermiso},
    {isc_dyn_no_priv, ClaseFalla::SinPermiso, kSinPermiso},
    {isc_grant_nopriv, ClaseFalla::SinPermiso, kSinPermiso},
    {isc_grant_nopriv_on_base, ClaseFalla::SinPermiso, kSinPermiso},
    {isc_dyn_user_not_role_member, ClaseFalla::SinPermiso, kSinPermiso},
    {isc_dyn_no_grant_admin_opt, ClaseFalla::SinPermiso, kSinPermiso},
    {isc_read_only_database, ClaseFalla::SoloLectura,
     "La base de datos es de solo lectura: no se puede grabar en ella."},
    {isc_read_only_trans, ClaseFalla::SoloLectura, "Esta consulta no puede grabar."},
    {isc_sort_err, ClaseFalla::DiscoLleno, kSinOrden},
    {isc_sort_mem_err, ClaseFalla::DiscoLleno, kSinOrden},
    {isc_old_no_space, ClaseFalla::DiscoLleno, kSinEspacio},
    {isc_exception_integer_divide_by_zero, ClaseFalla::NumeroGrande, kDivision},
    {isc_exception_float_divide_by_zero, ClaseFalla::NumeroGrande, kDivision},
    {isc_numeric_out_of_range, ClaseFalla::NumeroGrande, kNumeroGrande},
    {isc_exception_integer_overflow, ClaseFalla::NumeroGrande, kNumeroGrande},
    {isc_exception_float_overflow, ClaseFalla::NumeroGrande, kNumeroGrande},
    {isc_bad_db_format, ClaseFalla::BaseDanada,
     "El archivo de la base de datos está dañado o no es una base de datos."},
    {isc_db_corrupt, ClaseFalla::BaseDanada, kDanada},
    {isc_bad_checksum, ClaseFalla::BaseDanada, kDanada},
    {isc_bug_check, ClaseFalla::BaseDanada, kDanada},
    {isc_wrong_ods, ClaseFalla::OtraVersion,
     "La base de datos es de otra versión del motor. El administrador del sistema debe restaurarla "
     "con la de este equipo."},
    {isc_dsql_relation_err, ClaseFalla::OtraVersion, kOtraVersion},
    {isc_dsql_field_err, ClaseFalla::OtraVersion, kOtraVersion},
    {isc_dsql_procedure_err, ClaseFalla::OtraVersion, kOtraVersion},
    {isc_virmemexh, ClaseFalla::SinRecursos, kSinMemoria},
    {isc_bufexh, ClaseFalla::SinRecursos, kSinMemoria},
    {isc_instance_conflict, ClaseFalla::EnUso,
     "Otro programa tiene abierta la base de datos solo para él. Ciérrelo e intente de nuevo."},
    {isc_gbak_db_in_use, ClaseFalla::EnUso, kEnUso},
    {isc_file_in_use, ClaseFalla::EnUso, kEnUso},
    {isc_db_or_file_exists, ClaseFalla::YaExiste, "Ya existe un archivo con ese nombre."},
    {isc_obj_in_use, ClaseFalla::EnUso,
     "Otro usuario está usando lo que se quiere cambiar. Inténtelo cuando nadie más esté en la "
     "compañía."},
    {isc_lock_dir_access, ClaseFalla::SinPermiso,
     "El motor de la base de datos no pudo usar su carpeta de bloqueos. Revise los permisos de la "
     "carpeta."},
    {isc_cancelled, ClaseFalla::Otra, "La operación se canceló."},
    {isc_arith_except, ClaseFalla::NumeroGrande, kNumeroGrande},
};

/// Lo que dice el sistema operativo al motor; vacío si no es de los que se explican.
const Regla* causa_del_sistema(int error) {
    static const std::pair<int, Regla> causas[] = {
        {ENOSPC, {0, ClaseFalla::DiscoLleno, kSinEspacio}},
        {EDQUOT, {0, ClaseFalla::DiscoLleno, kSinEspacio}},
        {EFBIG, {0, ClaseFalla::DiscoLleno, kSinEspacio}},
        {EEXIST, {0, ClaseFalla::YaExiste, "Ya existe un archivo con ese nombre."}},
        {EROFS, {0, ClaseFalla::SoloLectura, "El disco de la base de datos es de solo lectura."}},
        {EACCES,
         {0, ClaseFalla::SoloLectura,
          "No hay permiso para usar el archivo de la base de datos. Revise los permisos del "
          "archivo y de su carpeta."}},
        {EPERM,
         {0, ClaseFalla::SoloLectura,
          "No hay permiso para usar el archivo de la base de datos. Revise los permisos del "
          "archivo y de su carpeta."}},
        {EMFILE, {0, ClaseFalla::SinRecursos, kSinMemoria}},
        {ENOMEM, {0, ClaseFalla::SinRecursos, kSinMemoria}},
        {EIO,
         {0, ClaseFalla::BaseDanada, "El disco de la base de datos falló al leer o escribir."}},
    };
    for (const auto& [codigo, regla] : causas)
        if (codigo == error)
            return &regla;
    return nullptr;
}

/// Las columnas de una llave como las da el motor, ("TICO_COD" = 'CG', "ITEM" = 1), en palabras.
QString llave_en_palabras(const QString& llave, bool con_valores = true) {
    static const QRegularExpression parte("\"([^\"]+)\" = ('(?:[^']|'')*'|[^,)]+)");
    QStringList partes;
    for (auto i = parte.globalMatch(llave); i.hasNext();) {
        const auto m = i.next();
        const QString nombre = nombre_de_columna(m.captured(1));
        if (!con_valores) {
            if (!nombre.isEmpty())
                partes << nombre;
            continue;
        }
        QString valor = m.captured(2);
        if (valor.startsWith('\''))
            valor = valor.mid(1).chopped(1).replace("''", "'");
        partes << (nombre.isEmpty() ? valor.trimmed() : nombre + ' ' + valor.trimmed());
    }
    return partes.join(QStringLiteral(", "));
}

/// Texto de una excepción propia de la base: la frase en español, sin los renglones del motor.
QString frase_de_excepcion(const Vector& v) {
    // Con argumentos, la frase ya compuesta; sin ellos, tras el nombre de la excepción.
    if (const QString frase = v.argumento(isc_formatted_exception); !frase.isEmpty())
        return frase;
    QStringList sueltos;
    bool siguiente = false;
    v.recorra([&](const ISC_STATUS* p) {
        if (siguiente && *p == isc_arg_string)
            sueltos << QString::fromLatin1(Vector::texto(p));
        siguiente = *p == isc_arg_gds && p[1] == isc_random;
    });
    return sueltos.value(1, sueltos.value(0));
}

/// El código lo dio el programa de respaldos del motor: lo dice en sus bits de procedencia.
bool de_respaldo(qint64 codigo) {
    constexpr int kProcedencia = 16, kRespaldos = 12;
    return ((codigo >> kProcedencia) & 0x1F) == kRespaldos;
}

using Causa = ErrorBase::Causa;

QString con(const char* forma, const QString& valor) {
    return QString::fromUtf8(forma).arg(valor);
}

QString ya_existe(const QString& llave) {
    return llave.isEmpty() ? QStringLiteral("Ya existe un registro igual.")
                           : con("Ya existe un registro con el mismo %1.", llave);
}

QString llave_ajena(const Causa& causa, const QString& llave) {
    const QString tabla = nombre_de_tabla(causa.tabla);
    if (!causa.en_uso)
        return con("No está registrado lo que se indica en %1.",
                   llave.isEmpty() ? QStringLiteral("el registro") : llave);
    return tabla.isEmpty() ? QStringLiteral("No se puede borrar ni cambiar su código: otros "
                                            "registros lo usan.")
                           : con("No se puede borrar ni cambiar su código: se usa en %1.", tabla);
}

/// Las que rehúsa la base por sus reglas, con el dato que las causó.
ErrorBase rechazo(const Vector& v, Causa causa, const QString& motor) {
    causa.llave = v.argumento(isc_idx_key_value);
    const QString llave = llave_en_palabras(causa.llave);
    // Dieciocho caracteres de prefijo, y de lo que dijo el motor el primer renglón: el resto queda
    // en el detalle, y quien mira la barra lee además qué falta. Sin los valores: la misma razón en
    // varias filas se dice una vez.
    const QString columnas = llave_en_palabras(causa.llave, false);
    const auto servidor = [&motor](const QString& usuario) {
        return QStringLiteral("Error de la base: ") + motor.section('\n', 0, 0).trimmed() + ". " +
               usuario;
    };
    switch (causa.clase) {
    case ClaseFalla::LlaveRepetida: {
        causa.restriccion = v.argumento(isc_unique_key_violation, 0);
        causa.tabla = v.argumento(isc_unique_key_violation, 1);
        QString texto = servidor(ya_existe(columnas));
        if (causa.tabla.isEmpty()) { // un índice único suelto: se cuenta igual
            causa.restriccion = v.argumento(isc_no_dup);
            texto = con("Error de la base: violation of PRIMARY or UNIQUE KEY constraint \"%1\". ",
                        causa.restriccion) +
                    ya_existe(columnas);
        }
        return {causa, texto, motor, ya_existe(llave)};
    }
    case ClaseFalla::LlaveForanea: {
        causa.restriccion = v.argumento(isc_foreign_key, 0);
        causa.tabla = v.argumento(isc_foreign_key, 1);
        causa.en_uso = v.tiene(isc_foreign_key_references_present);
        return {causa, servidor(llave_ajena(causa, columnas)), motor, llave_ajena(causa, llave)};
    }
    case ClaseFalla::DatoObligatorio: {
        QString lugar = v.argumento(isc_not_valid, 0);
        if (lugar.isEmpty())
            lugar = v.argumento(isc_not_valid_for_var, 0);
        lugar.remove('"');
        causa.tabla = lugar.section('.', 0, -2);
        causa.columna = lugar.section('.', -1);
        const bool nulo = v.argumento(isc_not_valid, 1).startsWith(QLatin1String("*** null"));
        const QString nombre = nombre_de_columna(causa.columna);
        if (!nulo)
            causa.clase = ClaseFalla::Restriccion;
        const QString texto =
            nombre.isEmpty()
                ? (nulo ? QStringLiteral("Falta un dato obligatorio.")
                        : QStringLiteral("Un dato tiene un valor que no se admite."))
                : con(nulo ? "Falta el dato %1." : "El valor de %1 no se admite.", nombre);
        return {causa, texto, motor};
    }
    default: {
        causa.restriccion = v.argumento(isc_check_constraint, 0);
        causa.tabla = v.argumento(isc_check_constraint, 1);
        const QString tabla = nombre_de_tabla(causa.tabla);
        return {causa,
                tabla.isEmpty() ? QStringLiteral("Un dato tiene un valor que no se admite.")
                                : con("Un dato de %1 tiene un valor que no se admite.", tabla),
                motor};
    }
    }
}

ErrorBase trabajando(const Vector& v, Causa causa, const QString& motor) {
    const auto de_clase = [&](ClaseFalla clase, const QString& texto) {
        causa.clase = clase;
        return ErrorBase(causa, texto, motor);
    };
    if (v.tiene(isc_except)) {
        causa.restriccion = v.argumento(isc_random);
        return de_clase(ClaseFalla::Rechazo, frase_de_excepcion(v));
    }
    if (v.tiene_alguno({isc_network_error, isc_net_connect_err, isc_net_read_err, isc_net_write_err,
                        isc_net_server_shutdown, isc_att_shutdown, isc_shutdown,
                        isc_lost_db_connection}))
        return de_clase(ClaseFalla::ConexionPerdida, fbc::kSinServidor);
    if (v.tiene_alguno({isc_deadlock, isc_update_conflict, isc_lock_conflict, isc_lock_timeout})) {
        causa.transaccion = v.argumento(isc_concurrent_transaction).toLongLong();
        return de_clase(ClaseFalla::Conflicto, fbc::texto_de_conflicto({}));
    }
    const auto rehusada = [&](ClaseFalla clase) {
        causa.clase = clase;
        return rechazo(v, causa, motor);
    };
    if (v.tiene_alguno({isc_unique_key_violation, isc_no_dup}))
        return rehusada(ClaseFalla::LlaveRepetida);
    if (v.tiene(isc_foreign_key))
        return rehusada(ClaseFalla::LlaveForanea);
    if (v.tiene_alguno({isc_not_valid, isc_not_valid_for_var}))
        return rehusada(ClaseFalla::DatoObligatorio);
    if (v.tiene(isc_check_constraint))
        return rehusada(ClaseFalla::Restriccion);
    if (v.tiene(isc_string_truncation)) {
        const QString cabe = v.argumento(isc_trunc_limits, 0),
                      tiene = v.argumento(isc_trunc_limits, 1);
        // Al unir textos el motor mide el que sobra como el que cabe: no hay dos cifras que decir.
        return de_clase(ClaseFalla::TextoLargo,
                        tiene.toInt() <= cabe.toInt()
                            ? QStringLiteral("Un texto es más largo de lo que se admite.")
                            : QStringLiteral("Un texto de %1 caracteres no cabe donde se "
                                             "admiten %2.")
                                  .arg(tiene, cabe));
    }
    if (v.tiene(isc_convert_error))
        return de_clase(ClaseFalla::DatoIlegible, con("'%1' no es un número ni una fecha válida.",
                                                      v.argumento(isc_convert_error)));
    if (de_respaldo(causa.codigo) && !v.tiene(isc_gbak_db_in_use))
        return de_clase(ClaseFalla::RespaldoDanado,
                        QStringLiteral("El archivo de respaldo está incompleto o no es un "
                                       "respaldo."));
    causa.archivo = v.argumento(isc_io_error, 1);
    // El motor llama falta de permiso del usuario a un archivo en que no puede escribir.
    if (v.argumento(isc_no_priv, 0) == QLatin1String("read-write")) {
        causa.archivo = v.argumento(isc_no_priv, 2);
        return de_clase(ClaseFalla::SoloLectura,
                        con("El archivo %1 no admite escritura. Revise los permisos del archivo y "
                            "de su carpeta, y que el disco no sea de solo lectura.",
                            causa.archivo));
    }
    // Un archivo temporal sin espacio también llega como falla del sistema: manda el ordenamiento.
    for (const Regla& r : kReglas)
        if (v.tiene(r.codigo))
            return de_clase(r.clase, QString::fromUtf8(r.texto));
    if (const Regla* r = causa_del_sistema(v.error_del_sistema()))
        return de_clase(r->clase, QString::fromUtf8(r->texto));
    if (v.tiene(isc_io_error))
        return de_clase(
            ClaseFalla::Otra,
            QStringLiteral("No se pudo leer o escribir el archivo de la base de datos."));
    return de_clase(
        ClaseFalla::Otra,
        QStringLiteral("La base de datos rechazó la operación (código %1).").arg(causa.codigo));
}

/// Al conectarse el reporte de fallas reconoce cuatro formas, y las explica en español.
ErrorBase conectando(const Vector& v, Causa causa, const QString& motor) {
    const auto forma = [&](ClaseFalla clase, const QString& texto, const QString& usuario) {
        causa.clase = clase;
        return ErrorBase(causa, QStringLiteral("dbExpress Error: ") + texto, motor, usuario);
    };
    const QString equipo = v.argumento(isc_network_error);
    if (v.tiene(isc_login))
        return forma(ClaseFalla::ClaveErrada,
                     QStringLiteral("Your user name and password are not defined"),
                     QStringLiteral("El nombre de Usuario o la clave son incorrectas."));
    // El rechazo es un saludo que se quedó a medias.
    if (v.tiene_alguno({isc_net_connect_err, isc_connect_reject}) && !v.tiene(isc_net_lookup_err))
        return forma(ClaseFalla::ConexionPerdida, con("Connection failed: %1", equipo),
                     QStringLiteral("No se encontró el servidor Interbase/Firebird. Verifique "
                                    "Servidor en panel de control y puerto TCP 3050."));
    if (v.tiene_alguno({isc_network_error, isc_net_lookup_err, isc_net_connect_err,
                        isc_net_read_err, isc_net_write_err}))
        return forma(ClaseFalla::ConexionPerdida,
                     con("Unable to complete network request to host \"%1\"", equipo),
                     con("No se encontró el equipo servidor con nombre %1", equipo));
    const int sistema = v.error_del_sistema();
    // El archivo está, pero le falta un pedazo: una copia que quedó a medias.
    if (v.tiene(isc_io_error) && sistema == 0 &&
        v.argumento(isc_io_error) == QLatin1String("read")) {
        const QString corta = QStringLiteral(
            "El archivo de la base de datos está incompleto o no es una base de datos.");
        return forma(ClaseFalla::BaseDanada, corta, corta);
    }
    // Otro motor la tiene abierta por otro medio.
    if (v.tiene(isc_io_error) && v.argumento(isc_io_error) == QLatin1String("lock"))
        return forma(ClaseFalla::EnUso, QString::fromUtf8(kEnUso), QString::fromUtf8(kEnUso));
    if (v.tiene(isc_io_error) &&
        (sistema == 0 || sistema == ENOENT || sistema == ENOTDIR || sistema == ENAMETOOLONG)) {
        const QString archivo = v.argumento(isc_io_error, 1);
        causa.archivo = archivo;
        return forma(ClaseFalla::NoExiste, con("I/O error for file \"%1\"", archivo),
                     con("No se encontró el archivo o la ruta %1", archivo));
    }
    if (v.tiene_alguno({isc_shutdown, isc_att_shutdown})) {
        const QString cerrada =
            QStringLiteral("El administrador tiene cerrada la base de datos. Intente más tarde.");
        return forma(ClaseFalla::Apagada, cerrada, cerrada);
    }
    const ErrorBase otra = trabajando(v, causa, motor);
    causa = otra.causa();
    return forma(causa.clase, otra.para_usuario(), otra.para_usuario());
}

} // namespace

namespace fbc {

const QString kSinServidor =
    QStringLiteral("Se perdió la conexión con el servidor de la base de datos. Los datos de la "
                   "pantalla se conservan; intente de nuevo cuando el servidor esté disponible.");

QString texto_de_conflicto(const QStringList& quienes) {
    const QString quien = quienes.isEmpty()
                              ? QStringLiteral("Otro usuario")
                              : QStringLiteral("Otro usuario (%1)").arg(quienes.join(", "));
    return quien + QStringLiteral(" está modificando el mismo registro y no ha terminado. Espere a "
                                  "que grabe o cancele e intente de nuevo.");
}

ErrorBase clasifique(const ISC_STATUS* vector, const QString& motor, bool al_conectar) {
    const Vector v(vector);
    Causa causa;
    causa.codigo = v.primero();
    return al_conectar ? conectando(v, causa, motor) : trabajando(v, causa, motor);
}

} // namespace fbc

ErrorBase ErrorBase::como_dudosa() const {
    ErrorBase copia(causa_, texto(), detalle(),
                    para_usuario() == texto() ? QString() : para_usuario());
    copia.dudosa_ = true;
    return copia;
}
