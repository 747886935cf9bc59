#include "tax/medio_xml.h"

#include "datos/firebird/letras.h"
#include "tax/medio_formato.h"
#include "toolkit/exportacion/archivo_salida.h"

#include <QFileInfo>

namespace {

constexpr int kCadenciaXml = 200; ///< registros entre dos avisos de avance

/// "aaaammdd" como "aaaa-mm-dd".
QString con_guiones(const QString& fecha) {
    if (fecha.mid(4, 2) == QLatin1String("13")) // los ajustes cierran el año
        return fecha.left(4) + QStringLiteral("-12-31");
    return fecha.left(4) + '-' + fecha.mid(4, 2) + '-' + fecha.mid(6, 2);
}

QString elemento(const char* nombre, const QString& valor) {
    return '<' + QLatin1String(nombre) + '>' + valor + "</" + QLatin1String(nombre) + ">\r\n";
}

class Escritor {
public:
    Escritor(const EnvioMedio& envio, const TotalesMedio& totales, const FormatoMedio& formato)
        : envio_(envio), totales_(totales), formato_(formato) {}

    QString encabezado(int cerrados) const {
        const bool primero = cerrados == 0;
        const qint64 faltan = totales_.filas - qint64(cerrados) * kRegistrosPorArchivo;
        const SumaMedio suma = primero ? suma_del_primero(envio_.codigo, envio_.version)
                                       : suma_de_los_demas(envio_.codigo);
        // El primer archivo nombra siempre el mismo esquema; los demás, el de su formato.
        return cabeza_xml(primero ? QStringLiteral("1002")
                                  : QString::number(envio_.formato_version)) +
               elemento("Ano", primero ? envio_.ano : envio_.ano_envio) +
               elemento("CodCpt", QString::number(envio_.concepto)) +
               elemento("Formato", QString::number(envio_.codigo)) +
               elemento("Version", envio_.version) +
               elemento("NumEnvio", QString::number(envio_.numero + cerrados)) +
               elemento("FecEnvio", envio_.fecha_envio + 'T' +
                                        envio_.hora.toString(QStringLiteral("HH:mm:ss"))) +
               elemento("FecInicial", con_guiones(envio_.inicio)) +
               elemento("FecFinal", con_guiones(envio_.final)) +
               elemento("ValorTotal", totales_.suma[std::size_t(suma)]) +
               elemento("CantReg", QString::number(qMin<qint64>(faltan, kRegistrosPorArchivo))) +
               "</Cab>\r\n";
    }

    QString registro(const FilasMedio& fila) const {
        QString renglon = "  <" + formato_.elemento + ' ';
        for (const AtributoMedio& a : formato_.atributos) {
            const QString valor =
                a.cuando == AtributoMedio::Fijo ? a.columna : fila.texto(a.columna);
            if (!va(a, valor, fila))
                continue;
            // El concepto va pegado al elemento; los demás llevan su blanco.
            if (a.nombre != QLatin1String("cpt"))
                renglon += ' ';
            renglon += QStringLiteral("%1=%2").arg(a.nombre, cadenahtml(valor));
        }
        return renglon + " />\r\n";
    }

private:
    static bool va(const AtributoMedio& a, const QString& valor, const FilasMedio& fila) {
        switch (a.cuando) {
        case AtributoMedio::Digito:
            return valor.size() == 1 && valor[0] >= '0' && valor[0] <= '9';
        case AtributoMedio::Lleno:
            return !valor.isEmpty();
        case AtributoMedio::RazonSocial:
            return !valor.isEmpty() && fila.texto("MEMG_APELLIDO1").isEmpty() &&
                   fila.texto("MEMG_NOMBRE1").isEmpty();
        case AtributoMedio::EnColombia:
            return fila.texto("MEMG_PAIS") == QLatin1String("169");
        default:
            return true;
        }
    }

    const EnvioMedio& envio_;
    const TotalesMedio& totales_;
    const FormatoMedio& formato_;
};

} // namespace

QString cadenahtml(const QString& valor) {
    const QLatin1String comilla("\"");
    return comilla + controles_a_blancos(valor).replace('&', "&amp;").replace(comilla, "&quot;") +
           comilla;
}

QString cabeza_xml(const QString& esquema) {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"
           "<mas xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
           "xsi:noNamespaceSchemaLocation=\"../xsd/" +
           esquema + ".xsd\">\r\n<Cab>\r\n";
}

QString nombre_medio(const EnvioMedio& envio) {
    return "Dmuisca_" + QString(envio.concepto == 1 ? "010" : "020") +
           QString::number(envio.codigo) + envio.version + envio.ano + "00" +
           QString::number(envio.numero).rightJustified(6, '0') + ".xml";
}

ResultadoMedio escriba_medio(const EnvioMedio& envio, const TotalesMedio& totales,
                             FilasMedio& filas, const std::function<bool(qint64)>& siga,
                             const std::function<void(int)>& otro_archivo) {
    const auto formato = formato_medio(envio.codigo, envio.version);
    ResultadoMedio r;
    if (!formato) {
        r.rechazo = QStringLiteral("El formato %1 no tiene archivo XML.").arg(envio.codigo);
        return r;
    }
    const Escritor escritor(envio, totales, *formato);
    EnvioMedio actual = envio;
    auto archivo = std::make_unique<ArchivoSalida>(actual.ruta);
    const auto escriba = [&](const QString& texto) { archivo->escriba(texto.toLatin1()); };
    const auto cierre = [&] {
        escriba("</mas>\r\n");
        archivo->confirme();
        r.archivos << actual.ruta;
    };
    escriba(escritor.encabezado(0));
    int en_este = 0;
    for (qint64 hechos = 0; filas.siguiente(); ++hechos) {
        if (siga && hechos % kCadenciaXml == 0 && !siga(hechos)) {
            r.cancelado = true;
            return r;
        }
        if (++en_este > kRegistrosPorArchivo) {
            en_este = 1;
            cierre();
            ++actual.numero;
            actual.ruta = QFileInfo(envio.ruta).path() + '/' + nombre_medio(actual);
            if (otro_archivo)
                otro_archivo(actual.numero);
            archivo = std::make_unique<ArchivoSalida>(actual.ruta);
            escriba(escritor.encabezado(int(r.archivos.size())));
        }
        escriba(escritor.registro(filas));
    }
    cierre();
    return r;
}
