// Entrar a una base: los parámetros que se dicen al servidor y el plazo que tiene para contestar.
#include "datos/firebird/vigia_interno.h"

#include <QCoreApplication>

using namespace Firebird;

namespace {

// Más largas no las recibe el cliente, y lo dice en inglés.
constexpr int kLargoUbicacion = 1000;
constexpr int kSegundosSaludo = 5; ///< para que el equipo conteste el primer saludo

IXpbBuilder* parametros_del_enlace(const ParametrosConexion& p, bool crear, int paginas_cache) {
    fbc::Estado estado;
    IXpbBuilder* dpb = fbc::utilidades()->getXpbBuilder(&estado, IXpbBuilder::DPB, nullptr, 0);
    estado.compruebe();
    dpb->insertString(&estado, isc_dpb_user_name, fbc::a_latin1(p.usuario).constData());
    if (!p.clave.isEmpty())
        dpb->insertString(&estado, isc_dpb_password, p.clave.toUtf8().constData());
    dpb->insertString(&estado, isc_dpb_lc_ctype, "ISO8859_1");
    dpb->insertInt(&estado, isc_dpb_sql_dialect, 3);
    dpb->insertInt(&estado, isc_dpb_connect_timeout, kSegundosSaludo);
    // Quién tiene abierta la base: un servidor lo averigua solo, el motor en proceso no.
    const QByteArray programa = QCoreApplication::applicationName().toLocal8Bit();
    dpb->insertString(&estado, isc_dpb_process_name, programa.constData());
    dpb->insertInt(&estado, isc_dpb_process_id, int(QCoreApplication::applicationPid()));
    if (!crear && !p.rol.isEmpty())
        dpb->insertString(&estado, isc_dpb_sql_role_name, fbc::a_latin1(p.rol).constData());
    if (crear) {
        dpb->insertInt(&estado, isc_dpb_page_size, 8192);
        dpb->insertString(&estado, isc_dpb_set_db_charset, "ISO8859_1");
        dpb->insertInt(&estado, isc_dpb_set_page_buffers, paginas_cache);
        dpb->insertInt(&estado, isc_dpb_force_write, p.escritura_forzada ? 1 : 0);
    }
    return dpb;
}

IAttachment* entre(const ParametrosConexion& p, bool crear, int paginas_cache) {
    IXpbBuilder* dpb = parametros_del_enlace(p, crear, paginas_cache);
    fbc::Estado estado;
    IProvider* proveedor = fbc::maestro()->getDispatcher();
    const QByteArray ruta = p.base.toLocal8Bit();
    const unsigned largo = dpb->getBufferLength(&estado);
    const unsigned char* datos = dpb->getBuffer(&estado);
    IAttachment* enlace = crear
                              ? proveedor->createDatabase(&estado, ruta.constData(), largo, datos)
                              : proveedor->attachDatabase(&estado, ruta.constData(), largo, datos);
    dpb->dispose();
    proveedor->release();
    estado.compruebe(true);
    return enlace;
}

} // namespace

namespace fbc {

bool es_remota(const QString& base) {
    return base.indexOf(':') > 1; // "C:\..." es un archivo
}

IAttachment* pida_enlace(const ParametrosConexion& parametros, bool crear, int paginas_cache,
                         int espera_ms) {
    if (parametros.base.size() > kLargoUbicacion) {
        const QString texto = QStringLiteral("La ubicación de la base de datos tiene %1 "
                                             "caracteres: revise el archivo de conexión.")
                                  .arg(parametros.base.size());
        throw ErrorBase({ClaseFalla::NoExiste}, QStringLiteral("dbExpress Error: ") + texto, {},
                        texto);
    }
    if (!es_remota(parametros.base))
        return entre(parametros, crear, paginas_cache);
    const auto enlace = std::make_shared<IAttachment*>(nullptr);
    const auto entra = [=] { *enlace = entre(parametros, crear, paginas_cache); };
    const auto deseche = [=] {
        if (*enlace)
            despida(*enlace);
    };
    if (crear) {
        corra_vigilado(parametros, entra, deseche);
    } else if (!corra_aparte(entra, deseche, espera_ms)) {
        const QString equipo = equipo_de(parametros);
        throw ErrorBase(
            {ClaseFalla::ConexionPerdida},
            QStringLiteral("dbExpress Error: Connection failed: ") + equipo,
            QStringLiteral("%1 no contestó en %2 ms").arg(equipo, QString::number(espera_ms)),
            QStringLiteral("No se encontró el servidor Interbase/Firebird. Verifique "
                           "Servidor en panel de control y puerto TCP 3050."));
    }
    return *enlace;
}

} // namespace fbc
