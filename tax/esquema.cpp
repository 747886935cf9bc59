#include "tax/esquema.h"

#include "datos/firebird/errores.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <memory>

namespace {

const QString kCarpeta = QStringLiteral(":/esquemas");

/// Los esquemas viven dentro del programa: libxml2 los pide por su nombre.
xmlParserInputPtr del_programa(const char* direccion, const char*, xmlParserCtxtPtr contexto) {
    const QString nombre = QString::fromUtf8(direccion).section('/', -1);
    QFile archivo(kCarpeta + '/' + nombre);
    if (!archivo.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray octetos = archivo.readAll();
    xmlParserInputBufferPtr buffer = xmlParserInputBufferCreateMem(
        octetos.constData(), int(octetos.size()), XML_CHAR_ENCODING_NONE);
    return buffer ? xmlNewIOInputStream(contexto, buffer, XML_CHAR_ENCODING_NONE) : nullptr;
}

/// Mientras vive, lo que libxml2 pida de afuera sale de los esquemas del programa.
class SoloDelPrograma {
public:
    SoloDelPrograma() : antes_(xmlGetExternalEntityLoader()) {
        xmlSetExternalEntityLoader(del_programa);
    }
    ~SoloDelPrograma() { xmlSetExternalEntityLoader(antes_); }
    SoloDelPrograma(const SoloDelPrograma&) = delete;

private:
    xmlExternalEntityLoader antes_;
};

template <auto Libere> struct Suelta {
    template <class T> void operator()(T* p) const { Libere(p); }
};
using Esquema = std::unique_ptr<xmlSchema, Suelta<xmlSchemaFree>>;
using Lector = std::unique_ptr<xmlSchemaParserCtxt, Suelta<xmlSchemaFreeParserCtxt>>;
using Validador = std::unique_ptr<xmlSchemaValidCtxt, Suelta<xmlSchemaFreeValidCtxt>>;

/// El archivo del esquema: el de la versión o el último del mismo formato; vacío si no hay.
QString archivo_de(int formato_version) {
    const QString propio = QString::number(formato_version) + ".xsd";
    if (QFile::exists(kCarpeta + '/' + propio))
        return propio;
    const QStringList parecidos =
        QDir(kCarpeta).entryList({propio.left(4) + "*.xsd"}, QDir::Files, QDir::Name);
    return parecidos.isEmpty() ? QString() : parecidos.last();
}

Esquema lea_esquema(int formato_version) {
    const QString nombre = archivo_de(formato_version);
    if (nombre.isEmpty())
        throw ErrorDatos(
            QStringLiteral("No hay esquema para revisar el formato %1.").arg(formato_version));
    const SoloDelPrograma puerta;
    const Lector lector(xmlSchemaNewParserCtxt(nombre.toUtf8().constData()));
    Esquema esquema(lector ? xmlSchemaParse(lector.get()) : nullptr);
    if (!esquema)
        throw ErrorDatos(QStringLiteral("El esquema %1 no se pudo leer.").arg(nombre));
    return esquema;
}

/// Lo que se va viendo del archivo: en cuál registro se va y qué faltas trae.
struct Revision {
    QVector<FallaEsquema> fallas;
    QSet<QString> vistas;
    int tope = 0, nivel = 0, registro = 0;
};

QString capturado(const QString& texto, const char* patron) {
    return QRegularExpression(QLatin1String(patron)).match(texto).captured(1);
}

/// De lo que dice la biblioteca, con sus palabras, a lo que se le dice al usuario.
FallaEsquema traduzca(const xmlError& error, int registro) {
    const QString dice = QString::fromUtf8(error.message);
    FallaEsquema f;
    f.registro = registro;
    f.atributo = capturado(dice, "[Aa]ttribute \\x27([^\\x27]+)\\x27");
    const bool de_atributo = !f.atributo.isEmpty();
    if (!de_atributo)
        f.atributo = capturado(dice, "Element \\x27([^\\x27]+)\\x27");
    const QString lugar =
        registro ? QStringLiteral("Registro %1: ").arg(registro) : QStringLiteral("Encabezado: ");
    const QString cual = de_atributo ? QStringLiteral("el atributo \"%1\"").arg(f.atributo)
                                     : QStringLiteral("el dato \"%1\"").arg(f.atributo);
    if (error.domain == XML_FROM_PARSER) {
        f.atributo.clear();
        f.texto = QStringLiteral("Renglón %1 del archivo: no está bien formado; busque un signo "
                                 "\"<\" en un nombre o en una dirección.")
                      .arg(error.line);
        return f;
    }
    switch (error.code) {
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_4:
        f.texto = lugar + "falta " + cual + '.';
        break;
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1:
        f.texto = lugar + cual + " no es de este formato.";
        break;
    case XML_SCHEMAV_ELEMENT_CONTENT:
        f.texto = registro ? lugar + cual + " no va ahí."
                           : QStringLiteral("El archivo no tiene los datos que pide el formato, "
                                            "en el orden que los pide.");
        break;
    default: {
        const QString valor = capturado(dice, "(?:value |: )\\x27([^\\x27]*)\\x27");
        f.texto = lugar + cual +
                  (valor.isEmpty() ? QStringLiteral(" está vacío.")
                                   : QStringLiteral(" no admite \"%1\".").arg(valor));
    }
    }
    return f;
}

void anote(void* quien, xmlErrorPtr error) {
    auto& r = *static_cast<Revision*>(quien);
    if (r.fallas.size() >= r.tope)
        return;
    const FallaEsquema f = traduzca(*error, r.registro);
    // Un valor malo se anuncia dos veces: por lo que incumple y por su tipo.
    const QString clave = QStringLiteral("%1 %2").arg(f.registro).arg(f.atributo);
    if (r.vistas.contains(clave))
        return;
    r.vistas.insert(clave);
    r.fallas << f;
}

void comienza(void* quien, const xmlChar* nombre, const xmlChar*, const xmlChar*, int,
              const xmlChar**, int, int, const xmlChar**) {
    auto& r = *static_cast<Revision*>(quien);
    if (++r.nivel == 2 && qstrcmp(reinterpret_cast<const char*>(nombre), "Cab") != 0)
        ++r.registro;
}
void termina(void* quien, const xmlChar*, const xmlChar*, const xmlChar*) {
    --static_cast<Revision*>(quien)->nivel;
}

} // namespace

QVector<FallaEsquema> revise_xml(const QString& ruta, int formato_version, int tope) {
    const Esquema esquema = lea_esquema(formato_version);
    const Validador validador(xmlSchemaNewValidCtxt(esquema.get()));
    xmlParserInputBufferPtr entrada = xmlParserInputBufferCreateFilename(
        QFile::encodeName(ruta).constData(), XML_CHAR_ENCODING_NONE);
    if (!validador || !entrada)
        throw ErrorDatos(QStringLiteral("No se pudo leer el archivo \"%1\".").arg(ruta));
    Revision r;
    r.tope = tope;
    xmlSAXHandler oidos{};
    oidos.initialized = XML_SAX2_MAGIC;
    oidos.startElementNs = comienza;
    oidos.endElementNs = termina;
    xmlSchemaSetValidStructuredErrors(validador.get(), anote, &r);
    xmlSetStructuredErrorFunc(&r, anote);
    const int resultado =
        xmlSchemaValidateStream(validador.get(), entrada, XML_CHAR_ENCODING_NONE, &oidos, &r);
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    if (resultado != 0 && r.fallas.isEmpty())
        r.fallas << FallaEsquema{0, {}, QStringLiteral("El archivo no cumple su formato.")};
    return r.fallas;
}
