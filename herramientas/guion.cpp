#include "herramientas/guion.h"

#include "datos/firebird/errores.h"

#include <QStringList>
#include <array>
#include <utility>

namespace {

struct Renglon {
    QString texto;
    int numero = 0;
};

using Marcas = std::array<std::pair<const char*, const char*>, 6>;

constexpr Marcas kLibro2649{{{"{CUENTAS}", "CUENTAS"},
                             {"{DETALLE}", "COMPROBANTE_DETALLE"},
                             {"{_NIIF}", ""},
                             {"{_N}", ""},
                             {"{TIDO}", "1"},
                             {"{LIBRO}", "2649"}}};
constexpr Marcas kLibroNiif{{{"{CUENTAS}", "CUENTAS_NIIF"},
                             {"{DETALLE}", "COMPROBANTE_DETALLE_NIIF"},
                             {"{_NIIF}", "_NIIF"},
                             {"{_N}", "_N"},
                             {"{TIDO}", "1001"},
                             {"{LIBRO}", "NIIF"}}};

[[noreturn]] void falle(const QString& archivo, int renglon, const QString& razon) {
    throw ErrorDatos(QStringLiteral("%1:%2: %3").arg(archivo).arg(renglon).arg(razon));
}

void agregue_para(const Marcas& marcas, const QVector<Renglon>& bloque, QVector<Renglon>& salida) {
    for (Renglon r : bloque) {
        for (const auto& [marca, valor] : marcas)
            r.texto.replace(QLatin1String(marca), QLatin1String(valor));
        salida.push_back(r);
    }
}

QVector<Renglon> expanda_libros(const QString& texto, const QString& archivo) {
    QVector<Renglon> salida, bloque;
    int abierto = 0, numero = 0;
    for (const QString& linea : texto.split('\n')) {
        ++numero;
        const QString limpia = linea.trimmed();
        if (limpia == QLatin1String("--<LIBROS>")) {
            if (abierto)
                falle(archivo, numero, QStringLiteral("un bloque de libros dentro de otro"));
            abierto = numero;
            bloque.clear();
        } else if (limpia == QLatin1String("--</LIBROS>")) {
            if (!abierto)
                falle(archivo, numero, QStringLiteral("cierre de libros sin apertura"));
            agregue_para(kLibro2649, bloque, salida);
            agregue_para(kLibroNiif, bloque, salida);
            abierto = 0;
        } else {
            (abierto ? bloque : salida).push_back({linea, numero});
        }
    }
    if (abierto)
        falle(archivo, abierto, QStringLiteral("bloque de libros sin cierre"));
    return salida;
}

/// Recorre los renglones ya expandidos y junta sentencias hasta cada terminador.
class Partidor {
public:
    Partidor(QVector<Renglon> renglones, QString archivo)
        : renglones_(std::move(renglones)), archivo_(std::move(archivo)) {}

    QVector<SentenciaGuion> parta() {
        for (const Renglon& r : renglones_) {
            numero_ = r.numero;
            recorra(r.texto);
            actual_ += '\n';
        }
        if (comentario_ || comilla_ != QChar())
            falle(archivo_, empezo_, QStringLiteral("comentario o literal sin cerrar"));
        if (con_texto_)
            falle(archivo_, comienzo_, QStringLiteral("sentencia sin terminador '%1'").arg(fin_));
        return std::move(sentencias_);
    }

private:
    void recorra(const QString& t) {
        for (qsizetype i = 0; i < t.size(); ++i) {
            const QChar c = t[i];
            if (comentario_) {
                if (t.mid(i, 2) == QLatin1String("*/")) {
                    comentario_ = false;
                    actual_ += ' ';
                    ++i;
                }
                continue;
            }
            if (comilla_ != QChar()) {
                if (c == comilla_)
                    comilla_ = QChar();
            } else if (t.mid(i, 2) == QLatin1String("--")) {
                return;
            } else if (t.mid(i, 2) == QLatin1String("/*")) {
                comentario_ = true;
                empezo_ = numero_;
                ++i;
                continue;
            } else if (c == '\'' || c == '"') {
                comilla_ = c;
                empezo_ = numero_;
            } else if (t.mid(i, fin_.size()) == fin_) {
                i += fin_.size() - 1;
                cierre();
                continue;
            }
            if (!con_texto_ && !c.isSpace()) {
                con_texto_ = true;
                comienzo_ = numero_;
            }
            actual_ += c;
        }
    }

    void cierre() {
        const QString texto = actual_.trimmed();
        actual_.clear();
        if (!con_texto_)
            return;
        con_texto_ = false;
        const QStringList palabras = texto.simplified().split(' ');
        if (palabras.size() == 3 && palabras[0].toUpper() == QLatin1String("SET") &&
            palabras[1].toUpper() == QLatin1String("TERM")) {
            fin_ = palabras[2];
            return;
        }
        sentencias_.push_back({texto, comienzo_});
    }

    QVector<Renglon> renglones_;
    QString archivo_;
    QVector<SentenciaGuion> sentencias_;
    QString actual_, fin_ = QStringLiteral(";");
    QChar comilla_;
    bool comentario_ = false, con_texto_ = false;
    int numero_ = 0, comienzo_ = 0, empezo_ = 0;
};

} // namespace

QVector<SentenciaGuion> lea_guion(const QString& texto, const QString& archivo) {
    return Partidor(expanda_libros(texto, archivo), archivo).parta();
}

ListaGuion lea_lista(const QString& texto, const QString& archivo) {
    ListaGuion lista;
    int numero = 0;
    for (const QString& linea : texto.split('\n')) {
        ++numero;
        if (numero == 1) {
            lista.columnas = linea.split('\t');
            continue;
        }
        if (linea.isEmpty())
            continue;
        QStringList campos = linea.split('\t');
        if (campos.size() != lista.columnas.size())
            falle(archivo, numero,
                  QStringLiteral("%1 campos donde se esperaban %2")
                      .arg(campos.size())
                      .arg(lista.columnas.size()));
        for (QString& campo : campos)
            if (campo == QLatin1String("\\N"))
                campo = QString();
            else if (campo.isNull())
                campo = QLatin1String("");
        lista.filas.push_back(campos);
    }
    return lista;
}
