#include "datos/firebird/servicios.h"

#include "datos/firebird/vigia_interno.h"

#include <QFile>
#include <QFileInfo>
#include <array>
#include <cstdio>

using namespace Firebird;
using namespace fbc;

namespace {

constexpr unsigned kBufer = 32000;

/// "equipo/puerto:ruta" partido en servidor y ruta; sin servidor, todo es ruta local.
struct Direccion {
    QByteArray servicio;
    QByteArray ruta;
    bool remota = false;
};

Direccion direccion_de(const QString& base) {
    const qsizetype corte = base.indexOf(':');
    Direccion d;
    d.remota = es_remota(base);
    d.servicio =
        (d.remota ? base.left(corte) + QStringLiteral(":service_mgr") : QString("service_mgr"))
            .toLocal8Bit();
    d.ruta = (d.remota ? base.mid(corte + 1) : base).toLocal8Bit();
    return d;
}

IService* entre_al_servicio(const Direccion& direccion, const ParametrosConexion& parametros) {
    Estado estado;
    IXpbBuilder* spb = utilidades()->getXpbBuilder(&estado, IXpbBuilder::SPB_ATTACH, nullptr, 0);
    estado.compruebe();
    spb->insertString(&estado, isc_spb_user_name, a_latin1(parametros.usuario).constData());
    if (!parametros.clave.isEmpty())
        spb->insertString(&estado, isc_spb_password, parametros.clave.toUtf8().constData());
    IProvider* proveedor = maestro()->getDispatcher();
    IService* servicio =
        proveedor->attachServiceManager(&estado, direccion.servicio.constData(),
                                        spb->getBufferLength(&estado), spb->getBuffer(&estado));
    spb->dispose();
    proveedor->release();
    estado.compruebe(true);
    return servicio;
}

class Servicio {
public:
    /// En `avance` queda el momento en que empezó la última llamada.
    Servicio(const Direccion& direccion, const ParametrosConexion& parametros,
             std::atomic<qint64>& avance)
        : avance_(avance), servicio_(entre_al_servicio(direccion, parametros)) {
        // El hilo de un servicio en proceso puede seguir en el motor cuando el cliente ya lo
        // descarga, y el programa muere: una entrada que no se suelta lo retiene hasta el final.
        if (direccion.remota)
            return;
        [[maybe_unused]] static IService* const retiene = entre_al_servicio(direccion, parametros);
    }
    ~Servicio() {
        Estado estado;
        servicio_->detach(&estado);
        if (estado.fallo())
            servicio_->release();
    }
    Servicio(const Servicio&) = delete;
    Servicio& operator=(const Servicio&) = delete;

    void inicie(IXpbBuilder* orden) {
        Estado estado;
        avance_ = ahora_ms();
        servicio_->start(&estado, orden->getBufferLength(&estado), orden->getBuffer(&estado));
        orden->dispose();
        estado.compruebe();
    }

    struct Respuesta {
        QByteArray datos;
        unsigned pide = 0; ///< octetos que el servicio espera recibir
        bool sigue = false;
    };

    Respuesta consulte(const QByteArray& que, const QByteArray& envio = {}) {
        unsigned char bufer[kBufer + 16];
        Estado estado;
        avance_ = ahora_ms();
        servicio_->query(
            &estado, unsigned(envio.size()),
            reinterpret_cast<const unsigned char*>(envio.constData()), unsigned(que.size()),
            reinterpret_cast<const unsigned char*>(que.constData()), sizeof bufer, bufer);
        estado.compruebe();
        Respuesta r;
        for (const unsigned char* p = bufer; *p != isc_info_end;) {
            switch (*p++) {
            case isc_info_svc_line:
            case isc_info_svc_to_eof: {
                const unsigned largo = p[0] | p[1] << 8;
                r.datos.append(reinterpret_cast<const char*>(p + 2), int(largo));
                p += 2 + largo;
                r.sigue = r.sigue || largo > 0;
                break;
            }
            case isc_info_svc_stdin:
                r.pide = p[0] | p[1] << 8 | p[2] << 16 | unsigned(p[3]) << 24;
                p += 4;
                break;
            case isc_info_truncated:
            case isc_info_data_not_ready:
            case isc_info_svc_timeout:
                r.sigue = true;
                break;
            default:
                return r;
            }
        }
        return r;
    }

    void espere() {
        const QByteArray renglon(1, char(isc_info_svc_line));
        while (consulte(renglon).sigue) {
        }
    }

private:
    std::atomic<qint64>& avance_;
    IService* servicio_ = nullptr;
};

/// Un servicio no se puede cortar: con un servidor, todo su trabajo corre en otro hilo, que se
/// abandona si deja de contestar. Lo que `trabajo` use debe ser suyo.
void con_servicio(const ParametrosConexion& base, const std::function<void(Servicio&)>& trabajo) {
    const auto avance = std::make_shared<std::atomic<qint64>>(ahora_ms());
    const auto haga = [=, direccion = direccion_de(base.base)] {
        Servicio servicio(direccion, base, *avance);
        trabajo(servicio);
    };
    if (es_remota(base.base))
        corra_vigilado(base, haga, {}, avance);
    else {
        const CuentaUnica cuenta = aparte_para_esta_cuenta(base.base);
        haga();
    }
}

IXpbBuilder* orden(unsigned char accion) {
    Estado estado;
    IXpbBuilder* spb = utilidades()->getXpbBuilder(&estado, IXpbBuilder::SPB_START, nullptr, 0);
    estado.compruebe();
    spb->insertTag(&estado, accion);
    return spb;
}

[[noreturn]] void no_se_pudo(const QString& verbo, const QFile& archivo) {
    throw ErrorDatos(
        QStringLiteral("No se pudo %1 el archivo de respaldo %2. Verifique la ruta, los "
                       "permisos y el espacio en disco.")
            .arg(verbo, archivo.fileName()));
}

} // namespace

void respalde_base(const ParametrosConexion& origen, const QString& archivo) {
    const QString provisional = archivo + QStringLiteral(".parcial");
    const auto destino = std::make_shared<QFile>(provisional);
    if (!destino->open(QIODevice::WriteOnly | QIODevice::Truncate))
        no_se_pudo(QStringLiteral("crear"), *destino);
    try {
        con_servicio(origen, [destino, ruta = direccion_de(origen.base).ruta](Servicio& servicio) {
            IXpbBuilder* spb = orden(isc_action_svc_backup);
            Estado estado;
            spb->insertString(&estado, isc_spb_dbname, ruta.constData());
            // Por la conexión también en este equipo: con un archivo por medio, el motor en proceso
            // pregunta por el teclado cuando el archivo le queda corto.
            spb->insertString(&estado, isc_spb_bkp_file, "stdout");
            servicio.inicie(spb);
            const QByteArray todo(1, char(isc_info_svc_to_eof));
            for (auto r = servicio.consulte(todo); r.sigue; r = servicio.consulte(todo))
                if (destino->write(r.datos) != r.datos.size())
                    no_se_pudo(QStringLiteral("escribir"), *destino);
            if (!destino->flush())
                no_se_pudo(QStringLiteral("escribir"), *destino);
            destino->close();
        });
    } catch (...) {
        QFile::remove(provisional);
        throw;
    }
    // El cambio es de una vez: hasta aquí el respaldo anterior sigue entero.
    if (std::rename(QFile::encodeName(provisional).constData(),
                    QFile::encodeName(archivo).constData()) != 0)
        no_se_pudo(QStringLiteral("renombrar"), *destino);
}

namespace {

/// Manda el archivo por la conexión, a medida que el servicio lo pide.
void envie(Servicio& servicio, QFile& origen) {
    const QByteArray que{QByteArray(1, char(isc_info_svc_stdin)) + char(isc_info_svc_line)};
    QByteArray envio;
    for (auto r = servicio.consulte(que); r.sigue || r.pide > 0;
         r = servicio.consulte(que, envio)) {
        envio.clear();
        if (r.pide == 0)
            continue;
        const QByteArray trozo = origen.read(qMin<qint64>(r.pide, kBufer - 8));
        if (trozo.isEmpty() && !origen.atEnd())
            no_se_pudo(QStringLiteral("leer"), origen);
        envio.append(char(isc_info_svc_line));
        envio.append(char(trozo.size() & 0xFF));
        envio.append(char(trozo.size() >> 8));
        envio += trozo;
    }
}

} // namespace

void restaure_base(const QString& archivo, const ParametrosConexion& destino, bool reemplazar,
                   int paginas_cache) {
    const auto origen = std::make_shared<QFile>(archivo);
    if (!origen->open(QIODevice::ReadOnly))
        no_se_pudo(QStringLiteral("abrir"), *origen);
    con_servicio(destino, [=, ruta = direccion_de(destino.base).ruta](Servicio& servicio) {
        IXpbBuilder* spb = orden(isc_action_svc_restore);
        Estado estado;
        spb->insertString(&estado, isc_spb_bkp_file, "stdin");
        spb->insertString(&estado, isc_spb_dbname, ruta.constData());
        spb->insertInt(&estado, isc_spb_res_buffers, paginas_cache);
        spb->insertInt(&estado, isc_spb_options,
                       int(reemplazar ? isc_spb_res_replace : isc_spb_res_create));
        spb->insertTag(&estado, isc_spb_verbose);
        servicio.inicie(spb);
        envie(servicio, *origen);
    });
}

bool tiene_escritura_inmediata(Conexion& conexion) {
    return conexion.consulte("select mon$forced_writes from mon$database").entero() != 0;
}

void ponga_escritura_inmediata(const ParametrosConexion& base, bool inmediata) {
    con_servicio(base, [=, ruta = direccion_de(base.base).ruta](Servicio& servicio) {
        IXpbBuilder* spb = orden(isc_action_svc_properties);
        Estado estado;
        spb->insertString(&estado, isc_spb_dbname, ruta.constData());
        spb->insertBytes(
            &estado, isc_spb_prp_write_mode,
            std::array<unsigned char, 1>{
                static_cast<unsigned char>(inmediata ? isc_spb_prp_wm_sync : isc_spb_prp_wm_async)}
                .data(),
            1);
        servicio.inicie(spb);
        servicio.espere();
    });
}
