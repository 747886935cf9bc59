#include "toolkit/informes/nodo_xml.h"

#include "toolkit/informes/definicion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace informes {

void falle_en_plantilla(const QString& ruta, int linea, const QString& que) {
    throw ErrorInforme(QStringLiteral("La plantilla de informes \"%1\", línea %2: %3.")
                           .arg(QFileInfo(ruta).fileName(), QString::number(linea), que));
}

namespace {

constexpr int kHondura = 64; ///< elementos uno dentro de otro

NodoXml lea_nodo(QXmlStreamReader& xml, int hondura = 1) {
    NodoXml nodo;
    nodo.nombre = xml.name().toString();
    nodo.linea = int(xml.lineNumber());
    for (const auto& a : xml.attributes())
        nodo.atributos.insert(a.name().toString(), a.value().toString());
    while (!xml.atEnd()) {
        const auto pieza = xml.readNext();
        if (pieza == QXmlStreamReader::StartElement)
            if (hondura == kHondura)
                xml.raiseError();
            else
                nodo.hijos << lea_nodo(xml, hondura + 1);
        else if (pieza == QXmlStreamReader::Characters)
            nodo.texto += xml.text();
        else if (pieza == QXmlStreamReader::EndElement)
            break;
    }
    return nodo;
}

} // namespace

NodoXml lea_xml(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorInforme(QStringLiteral("No se pudo abrir el proyecto de informes \"%1\": %2.")
                               .arg(QDir::toNativeSeparators(ruta),
                                    archivo.exists()
                                        ? QStringLiteral("no tiene permiso para leerlo")
                                        : QStringLiteral("el archivo no existe")));
    QXmlStreamReader xml(&archivo);
    NodoXml raiz;
    if (xml.readNextStartElement())
        raiz = lea_nodo(xml);
    // Lo que el lector de XML dice viene en inglés: el usuario solo necesita la línea.
    if (xml.hasError())
        falle_en_plantilla(ruta, int(xml.lineNumber()),
                           QStringLiteral("el archivo no es XML bien formado"));
    if (raiz.nombre != QLatin1String("proyecto"))
        falle_en_plantilla(ruta, raiz.linea,
                           QStringLiteral("se esperaba el elemento \"proyecto\""));
    return raiz;
}

} // namespace informes
