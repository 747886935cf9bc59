#include "tax/medio_distrital.h"

#include "toolkit/exportacion/archivo_salida.h"

#include <QRegularExpression>

namespace {

constexpr int kCadencia = 200; ///< renglones entre dos avisos de avance
constexpr int kTotales = 51;   ///< el artículo que no lleva terceros

const QStringList kTerceroMedio_distrital{"MMDD_TIPODOC",     "MMDD_NIT", "MMDD_NOMBRE",
                                          "MMDD_DIRECCION",   "MMDD_TEL", "MMDD_EMAIL",
                                          "MMDD_CODMUNICIPIO"};
const QStringList kLugar{"MMDD_NOMMUNICIPIO", "MMDD_NOMDEPTO"};
const QStringList kRetencion{"MMDD_BASE", "MMDD_TARIFA", "MMDD_MONTO"};

QStringList propias(int articulo) {
    switch (articulo) {
    case 2:
        return kLugar + QStringList{"MMDD_MONTO", "MMDD_SALDO"};
    case 3:
        return kLugar + QStringList{"MMDD_FECHA", "MMDD_MONTO"};
    case 4:
        return kLugar + kRetencion + QStringList{"MMDD_DEVOL"};
    case 6:
        return kLugar + kRetencion;
    case 22:
    case 23:
        return {"CodDpto", "MMDD_MONTO"};
    case 24:
    case 26:
    case 34:
    case 36:
    case 44:
    case 46:
    case 54:
    case 56:
        return QStringList{"CodDpto"} + kRetencion;
    case 32:
    case 33:
    case 42:
    case 43:
    case 52:
    case 53:
        return {"CodDpto", "MMDD_CONCSH", "MMDD_MONTO", "MMDD_DEVOL"};
    case 310:
    case 410:
    case 510:
        return {"CodDpto", "MMDD_PAIS", "NombrePais", "MMDD_CONCSH", "MMDD_MONTO"};
    default:
        return {};
    }
}

/// Escribe los renglones que dé `renglon` hasta que devuelva nulo.
ResultadoMedio escriba_renglones(const QString& ruta,
                                 const std::function<std::optional<QString>()>& renglon,
                                 const std::function<bool(qint64)>& siga) {
    ResultadoMedio r;
    ArchivoSalida archivo(ruta);
    qint64 hechos = 0;
    while (const auto texto = renglon()) {
        if (siga && hechos % kCadencia == 0 && !siga(hechos)) {
            r.cancelado = true;
            return r;
        }
        ++hechos;
        archivo.escriba(texto->toLatin1() + "\r\n");
    }
    archivo.confirme();
    r.archivos << ruta;
    return r;
}

} // namespace

QStringList columnas_articulo(int articulo) {
    if (articulo == kTotales)
        return {"MMDD_ITEM", "MMDD_MONTO"};
    return kTerceroMedio_distrital + propias(articulo);
}

QString renglon_articulo(int articulo, const QString& ano, const FilasMedio& fila) {
    static const QRegularExpression saltos("[\\r\\n\\t]+");
    QStringList campos{ano};
    for (const QString& columna : columnas_articulo(articulo))
        campos << fila.texto(columna).replace(';', ',').replace(saltos, " ");
    return campos.join(';');
}

ResultadoMedio escriba_articulo(int articulo, const QString& ano, const QString& ruta,
                                FilasMedio& filas, const std::function<bool(qint64)>& siga) {
    return escriba_renglones(
        ruta,
        [&]() -> std::optional<QString> {
            if (!filas.siguiente())
                return std::nullopt;
            return renglon_articulo(articulo, ano, filas);
        },
        siga);
}

ResultadoMedio archivo_csv(ConjuntoDatos& conjunto, const QString& ruta,
                           const std::function<bool(qint64)>& siga) {
    conjunto.FetchAll();
    int fila = 0;
    return escriba_renglones(
        ruta,
        [&]() -> std::optional<QString> {
            if (fila >= conjunto.RecordCount())
                return std::nullopt;
            QStringList campos;
            for (int i = 0; i < conjunto.FieldCount(); ++i) {
                const Campo& campo = conjunto.Fields(i);
                const QString valor = conjunto.valor_en(fila, campo).texto();
                campos << (campo.numerico() ? valor : cadenahtml(valor));
            }
            ++fila;
            return campos.join(',');
        },
        siga);
}
