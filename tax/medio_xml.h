#pragma once
// Archivos XML de la información exógena: filas que entran, octetos que salen.
//
// Cada archivo lleva hasta 5.000 registros, en ISO-8859-1 y con renglones CR LF. Un registro se
// escribe al leerlo; el archivo toma su nombre solo cuando está completo, así una falla a mitad
// deja los ya cerrados y nada a medias.
#include <QString>
#include <QStringList>
#include <QTime>
#include <array>
#include <functional>

constexpr int kRegistrosPorArchivo = 5000;

/// Filas que se recorren una vez.
class FilasMedio {
public:
    virtual ~FilasMedio() = default;
    virtual bool siguiente() = 0;
    /// Valor de una columna de MEDIOS_MAGNETICOS_DATOS, como texto plano.
    virtual QString texto(const QString& columna) const = 0;
};

/// De todo el conjunto, en el orden de SumaMedio.
struct TotalesMedio {
    qint64 filas = 0;
    std::array<QString, 4> suma;
};

struct EnvioMedio {
    int formato_version = 0; ///< MEDM_FORMATO
    int codigo = 0;          ///< 1001
    QString version;         ///< "08"
    QString ano, ano_envio;
    int concepto = 1;    ///< 1 archivo nuevo, 2 reemplazo
    int numero = 1;      ///< consecutivo de envío del primer archivo
    QString fecha_envio; ///< "aaaa-mm-dd"
    QTime hora;
    QString inicio, final; ///< "aaaammdd"; el mes 13 es el 31 de diciembre
    QString ruta;          ///< del primer archivo; los demás quedan en su carpeta
};

struct ResultadoMedio {
    QStringList archivos; ///< los que quedaron completos
    QString rechazo;      ///< no vacío: no se escribió nada, y por qué
    bool cancelado = false;
};

/// "Dmuisca_" y los datos del envío.
QString nombre_medio(const EnvioMedio& envio);
/// Entre comillas, con las de adentro y los "&" como entidades; nada más se cambia.
QString cadenahtml(const QString& valor);
/// El comienzo de un archivo hasta "<Cab>" inclusive, con el esquema que nombra.
QString cabeza_xml(const QString& esquema);

/// Escribe el envío. `siga(registros)` corre a menudo y falso lo abandona; `otro_archivo(numero)`,
/// al comenzar cada archivo después del primero. Lanza ErrorExportacion.
ResultadoMedio escriba_medio(const EnvioMedio& envio, const TotalesMedio& totales,
                             FilasMedio& filas, const std::function<bool(qint64)>& siga = {},
                             const std::function<void(int)>& otro_archivo = {});
