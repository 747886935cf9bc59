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

using Marcas = std::array<std::pair<const char*, const char*>, 7>;

constexpr Marcas kLibro2649{{{"{CUENTAS}", "CUENTAS"},
                             {"{DETALLE}", "COMPROBANTE_DETALLE"},
                             {"{_NIIF}", ""},
                             {"{_CTAS}", "_CTAS"},
                             {"{_N}", ""},
                             {"{TIDO}", "1"},
                             {"{LIBRO}", "2649"}}};
constexpr Marcas kLibroNiif{{{"{CUENTAS}", "CUENTAS_NIIF"},
                             {"{DETALLE}", "COMPROBANTE_DETALLE_NIIF"},
                             {"{_NIIF}", "_NIIF"},
                             {"{_CTAS}", "_NIIF"},
                             {"{_N}", "_N"},
                             {"{TIDO}", "1001"},
                             {"{LIBRO}", "NIIF"}}};

[[noreturn]] void falle(const QString& archivo, int renglon, const QString& razon) {
    throw ErrorDatos(QStringLiteral("%1:%2: %3").arg(archivo, QString::number(renglon), razon));
}

using Texto = QVector<Renglon>;

Texto renglones_de(const QString& texto) {
    Texto lista;
    for (const QString& linea : texto.split('\n'))
        lista.push_back({linea, int(lista.size()) + 1});
    return lista;
}

void agregue_para(const QStringList& marcas, const QStringList& valores, const Texto& bloque,
                  Texto& salida) {
    for (Renglon r : bloque) {
        for (int i = 0; i < marcas.size(); ++i)
            r.texto.replace(marcas[i], valores[i]);
        salida.push_back(r);
    }
}

/// Cambia cada bloque entre --<ETIQUETA> y --</ETIQUETA> por lo que `repita` haga con él. Le da
/// también las palabras que la apertura lleve tras la etiqueta.
template <class Repita>
Texto expanda(const Texto& entrada, const QString& etiqueta, const QString& archivo,
              Repita repita) {
    const QString abre = "--<" + etiqueta, cierra = "--</" + etiqueta + '>';
    Texto salida, bloque;
    Renglon abierto;
    for (const Renglon& r : entrada) {
        const QString limpia = r.texto.trimmed();
        if (limpia.startsWith(abre)) {
            if (abierto.numero)
                falle(archivo, r.numero,
                      QStringLiteral("un bloque %1 dentro de otro").arg(etiqueta));
            abierto = r;
            bloque.clear();
        } else if (limpia == cierra) {
            if (!abierto.numero)
                falle(archivo, r.numero, QStringLiteral("cierre de %1 sin apertura").arg(etiqueta));
            repita(bloque, salida, abierto);
            abierto = {};
        } else {
            (abierto.numero ? bloque : salida).push_back(r);
        }
    }
    if (abierto.numero)
        falle(archivo, abierto.numero, QStringLiteral("bloque %1 sin cierre").arg(etiqueta));
    return salida;
}

QStringList campos_de(const QString& fila) {
    QStringList campos = fila.split('|');
    for (QString& campo : campos)
        campo = campo.trimmed();
    return campos;
}

/// El bloque trae sus propias filas de marcas: se repite por cada una.
void repita_por_clave(const Texto& bloque, Texto& salida, const QString& archivo) {
    QVector<Renglon> filas;
    Texto cuerpo;
    for (const Renglon& r : bloque) {
        const QString limpia = r.texto.trimmed();
        if (limpia.startsWith(QLatin1String("--|")))
            filas.push_back({limpia.mid(3), r.numero});
        else if (limpia.startsWith(QLatin1String("--&")) && !filas.isEmpty())
            filas.last().texto += limpia.mid(3);
        else
            cuerpo.push_back(r);
    }
    if (filas.size() < 2)
        falle(archivo, bloque.isEmpty() ? 0 : bloque.first().numero,
              QStringLiteral("un bloque CLAVES sin filas"));
    QStringList marcas = campos_de(filas.first().texto);
    for (QString& marca : marcas)
        marca = '{' + marca + '}';
    for (const Renglon& fila : filas.mid(1)) {
        const QStringList valores = campos_de(fila.texto);
        if (valores.size() != marcas.size())
            falle(archivo, fila.numero,
                  QStringLiteral("%1 valores donde se esperaban %2")
                      .arg(valores.size())
                      .arg(marcas.size()));
        agregue_para(marcas, valores, cuerpo, salida);
    }
}

/// Se repite por cada fila de la lista que la apertura nombra.
void repita_por_fila(const Texto& bloque, Texto& salida, const Renglon& apertura,
                     const QString& archivo, const LectorListas& listas) {
    const QStringList palabras = apertura.texto.trimmed().chopped(1).simplified().split(' ');
    const bool con = palabras.size() == 4 && palabras[2] == QLatin1String("CON");
    if (!listas || (palabras.size() != 2 && !con))
        falle(archivo, apertura.numero, QStringLiteral("un bloque FILAS mal escrito"));
    const ListaGuion lista = lea_lista(listas(palabras[1]), palabras[1]);
    const qsizetype exigida = con ? lista.columnas.indexOf(palabras[3]) : 0;
    if (exigida < 0)
        falle(archivo, apertura.numero,
              QStringLiteral("%1 no tiene la columna %2").arg(palabras[1], palabras[3]));
    QStringList marcas;
    for (const QString& columna : lista.columnas)
        marcas << '{' + columna + '}';
    for (const QStringList& fila : lista.filas)
        if (!con || !fila[exigida].isEmpty())
            agregue_para(marcas, fila, bloque, salida);
}

void repita_por_libro(const Texto& bloque, Texto& salida) {
    for (const Marcas& libro : {kLibro2649, kLibroNiif}) {
        QStringList marcas, valores;
        for (const auto& [marca, valor] : libro) {
            marcas << QLatin1String(marca);
            valores << QLatin1String(valor);
        }
        agregue_para(marcas, valores, bloque, salida);
    }
}

/// Las filas y las claves primero: sus valores pueden llevar marcas de libro.
Texto expanda_bloques(const QString& texto, const QString& archivo, const LectorListas& listas) {
    const auto por_fila = [&](const Texto& b, Texto& salida, const Renglon& apertura) {
        repita_por_fila(b, salida, apertura, archivo, listas);
    };
    const auto por_clave = [&](const Texto& b, Texto& salida, const Renglon&) {
        repita_por_clave(b, salida, archivo);
    };
    const auto por_libro = [](const Texto& b, Texto& salida, const Renglon&) {
        repita_por_libro(b, salida);
    };
    Texto t = expanda(renglones_de(texto), QStringLiteral("FILAS"), archivo, por_fila);
    t = expanda(t, QStringLiteral("CLAVES"), archivo, por_clave);
    return expanda(t, QStringLiteral("LIBROS"), archivo, por_libro);
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

QVector<SentenciaGuion> lea_guion(const QString& texto, const QString& archivo,
                                  const LectorListas& listas) {
    return Partidor(expanda_bloques(texto, archivo, listas), archivo).parta();
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
