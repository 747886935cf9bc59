#include "herramientas/renglones.h"

#include "datos/firebird/conexion.h"
#include "datos/firebird/errores.h"
#include "datos/firebird/valor.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace {

constexpr int kFaltasQueSeDicen = 50;

/// Palabras de un renglón: las comillas protegen los blancos y "" dentro de ellas es una comilla.
QStringList palabras_de(const QString& texto, int numero, Faltas& faltas) {
    QStringList palabras;
    QString palabra;
    bool dentro = false, hay = false;
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto[i];
        if (c == '"') {
            if (dentro && i + 1 < texto.size() && texto[i + 1] == '"')
                palabra += texto[++i];
            else
                dentro = !dentro;
            hay = true;
        } else if (c.isSpace() && !dentro) {
            if (hay)
                palabras << palabra;
            palabra.clear();
            hay = false;
        } else {
            palabra += c;
            hay = true;
        }
    }
    if (dentro)
        faltas.anote(numero, QStringLiteral("hay una comilla sin cerrar"));
    if (hay)
        palabras << palabra;
    return palabras;
}

} // namespace

QByteArray lea_archivo(const QString& archivo) {
    QFile f(archivo);
    if (f.open(QIODevice::ReadOnly))
        return f.readAll();
    const QFileInfo i(archivo);
    throw ErrorDatos(QStringLiteral("No se pudo leer %1: %2.")
                         .arg(archivo, !i.exists()       ? QStringLiteral("no existe")
                                       : i.isDir()       ? QStringLiteral("es una carpeta")
                                       : !i.isReadable() ? QStringLiteral("no tiene permiso")
                                                         : QStringLiteral("no se deja abrir")));
}

void Faltas::anote(int renglon, const QString& texto) {
    if (++cuantas_ <= kFaltasQueSeDicen)
        textos_ << QStringLiteral("%1:%2: %3.").arg(archivo_, QString::number(renglon), texto);
}

void Faltas::lance_si_hay() const {
    if (!hay())
        return;
    QString texto = textos_.join('\n');
    if (cuantas_ > textos_.size())
        texto += QStringLiteral("\n... y %1 más.").arg(cuantas_ - textos_.size());
    throw ErrorDatos(texto + QStringLiteral("\nNo se cargó nada."));
}

QVector<RenglonTexto> lea_renglones(const QString& archivo, Faltas& faltas) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString texto = utf8(lea_archivo(archivo));
    if (utf8.hasError())
        throw ErrorDatos(QStringLiteral("%1 no es un texto UTF-8.").arg(archivo));
    QVector<RenglonTexto> renglones;
    int numero = 0;
    for (const QString& linea : texto.split('\n')) {
        ++numero;
        const QString limpia = linea.trimmed();
        if (limpia.isEmpty() || limpia.startsWith('#'))
            continue;
        if (const QChar c = caracter_fuera_de_latin1(limpia); !c.isNull()) {
            // Puede ocupar dos lugares del texto.
            const char32_t entero = QStringView(limpia).mid(limpia.indexOf(c)).toUcs4().value(0);
            faltas.anote(numero, QStringLiteral("el carácter '%1' (U+%2) no se puede guardar")
                                     .arg(QString::fromUcs4(&entero, 1))
                                     .arg(uint(entero), 4, 16, QLatin1Char('0')));
            continue;
        }
        RenglonTexto r;
        r.numero = numero;
        for (const QString& p : palabras_de(limpia, numero, faltas)) {
            const qsizetype igual = p.indexOf('=');
            if (igual <= 0) {
                r.palabras << p;
                continue;
            }
            if (r.datos.contains(p.left(igual)))
                faltas.anote(numero, QStringLiteral("'%1' está repetido").arg(p.left(igual)));
            r.datos[p.left(igual)] = p.mid(igual + 1);
        }
        renglones.push_back(r);
    }
    return renglones;
}

QString dato_escrito(const char* clave, const QString& valor) {
    if (valor.isEmpty())
        return {};
    QString v = valor;
    if (v.contains(' ') || v.contains('"'))
        v = '"' + v.replace('"', QStringLiteral("\"\"")) + '"';
    return ' ' + QLatin1String(clave) + '=' + v;
}

QSet<QString> textos_de(Conexion& c, const char* sql) {
    QSet<QString> textos;
    const auto filas = c.abra(QString::fromUtf8(sql));
    while (filas->siguiente())
        textos.insert(filas->valor(0).texto());
    return textos;
}
