#include "toolkit/informes/definicion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QXmlStreamReader>

namespace informes {

bool papel_de(const QString& nombre, bool horizontal, Papel& papel) {
    static const QHash<QString, QSizeF> hojas{{"carta", {215.9, 279.4}},
                                              {"media", {215.9, 139.7}},
                                              {"oficio", {215.9, 330.2}},
                                              {"a4", {210.0, 297.0}}};
    const auto hoja = hojas.constFind(nombre);
    if (hoja == hojas.constEnd())
        return false;
    papel.nombre = nombre;
    papel.horizontal = horizontal;
    papel.ancho = horizontal ? hoja->height() : hoja->width();
    papel.alto = horizontal ? hoja->width() : hoja->height();
    return true;
}

namespace {

/// Bandas e items con nombre que varios reportes comparten.
using Bloques = QHash<QString, QVector<Banda>>;

class Lector {
public:
    Lector(Proyecto& proyecto, Bloques& bloques, QHash<QString, int>& estilos, const QString& ruta)
        : proyecto_(proyecto), bloques_(bloques), estilos_(estilos), ruta_(ruta), archivo_(ruta) {}

    void lea() {
        if (!archivo_.open(QIODevice::ReadOnly))
            throw ErrorInforme(QStringLiteral("No se pudo abrir el proyecto de informes \"%1\": %2")
                                   .arg(QDir::toNativeSeparators(ruta_), archivo_.errorString()));
        xml_.setDevice(&archivo_);
        if (!xml_.readNextStartElement() || xml_.name() != QLatin1String("proyecto"))
            falle(QStringLiteral("se esperaba el elemento \"proyecto\""));
        while (xml_.readNextStartElement()) {
            if (xml_.name() == QLatin1String("incluya"))
                incluya();
            else if (xml_.name() == QLatin1String("estilo"))
                lea_estilo();
            else if (xml_.name() == QLatin1String("bloque"))
                lea_bloque();
            else if (xml_.name() == QLatin1String("reporte"))
                lea_reporte();
            else
                falle_elemento();
        }
        if (xml_.hasError())
            falle(xml_.errorString());
    }

private:
    [[noreturn]] void falle(const QString& que) const { falle(que, int(xml_.lineNumber())); }
    [[noreturn]] void falle(const QString& que, int linea) const {
        throw ErrorInforme(QStringLiteral("La plantilla de informes \"%1\", línea %2: %3.")
                               .arg(QFileInfo(ruta_).fileName())
                               .arg(linea)
                               .arg(que));
    }
    [[noreturn]] void falle_elemento() const {
        falle(QStringLiteral("el elemento \"%1\" no se conoce aquí").arg(xml_.name()));
    }

    // --- atributos
    QString atributo(const char* nombre, const QString& omision = {}) const {
        const auto valor = xml_.attributes().value(QLatin1String(nombre));
        return valor.isNull() ? omision : valor.toString();
    }
    bool tiene(const char* nombre) const {
        return xml_.attributes().hasAttribute(QLatin1String(nombre));
    }
    QString exija(const char* nombre) const {
        const QString valor = atributo(nombre);
        if (valor.isEmpty())
            falle(QStringLiteral("falta el atributo \"%1\"").arg(QLatin1String(nombre)));
        return valor;
    }
    double medida(const char* nombre, double omision) const {
        if (!tiene(nombre))
            return omision;
        bool bien = false;
        const double valor = atributo(nombre).toDouble(&bien);
        if (!bien)
            falle(QStringLiteral("\"%1\" no es una medida: %2")
                      .arg(QLatin1String(nombre), atributo(nombre)));
        return valor;
    }
    bool si(const char* nombre, bool omision = false) const {
        if (!tiene(nombre))
            return omision;
        const QString valor = atributo(nombre);
        if (valor != QLatin1String("si") && valor != QLatin1String("no"))
            falle(QStringLiteral("\"%1\" debe ser \"si\" o \"no\"").arg(QLatin1String(nombre)));
        return valor == QLatin1String("si");
    }
    template <class T> T escoja(const char* nombre, const QHash<QString, T>& valores, T omision) {
        if (!tiene(nombre))
            return omision;
        const auto i = valores.constFind(atributo(nombre));
        if (i == valores.constEnd())
            falle(QStringLiteral("\"%1\" no admite \"%2\"")
                      .arg(QLatin1String(nombre), atributo(nombre)));
        return *i;
    }
    /// Los atributos del elemento son de los que se conocen: uno mal escrito no pasa callado.
    void admita(std::initializer_list<const char*> nombres) const {
        for (const auto& a : xml_.attributes())
            if (std::none_of(nombres.begin(), nombres.end(),
                             [&](const char* n) { return a.name() == QLatin1String(n); }))
                falle(QStringLiteral("el atributo \"%1\" no se conoce").arg(a.name()));
    }

    // --- elementos
    void incluya() {
        const QString otro = QFileInfo(ruta_).path() + QLatin1Char('/') + exija("archivo");
        // Un proyecto propio de la compañía puede usar la parte común que trae el programa.
        const QString propio = QStringLiteral(":/informes/") + exija("archivo");
        Lector(proyecto_, bloques_, estilos_, QFile::exists(otro) ? otro : propio).lea();
        xml_.skipCurrentElement();
    }

    void lea_estilo() {
        admita({"nombre", "base", "letra", "cuerpo", "negrita", "cursiva", "color"});
        Estilo e;
        if (tiene("base"))
            e = proyecto_.estilos[estilo_de(atributo("base"))];
        e.letra = atributo("letra", e.letra);
        e.cuerpo = medida("cuerpo", e.cuerpo);
        e.negrita = si("negrita", e.negrita);
        e.cursiva = si("cursiva", e.cursiva);
        e.color = atributo("color", e.color);
        estilos_.insert(exija("nombre"), int(proyecto_.estilos.size()));
        proyecto_.estilos << e;
        xml_.skipCurrentElement();
    }
    int estilo_de(const QString& nombre) const {
        const auto i = estilos_.constFind(nombre);
        if (i == estilos_.constEnd())
            falle(QStringLiteral("el estilo \"%1\" no está definido").arg(nombre));
        return *i;
    }

    void lea_bloque() {
        admita({"nombre"});
        const QString nombre = exija("nombre");
        bloques_[nombre] = lea_bandas();
    }

    void lea_reporte() {
        admita({"nombre", "conexion", "pagina", "papel", "horizontal", "margen_x", "margen_y"});
        Reporte r;
        r.renglon = int(xml_.lineNumber());
        r.nombre = exija("nombre");
        r.conexion = exija("conexion");
        r.pagina = r.nombre + QLatin1Char('.') + atributo("pagina", QStringLiteral("Page1"));
        if (!papel_de(atributo("papel", QStringLiteral("carta")), si("horizontal"), r.papel))
            falle(QStringLiteral("el papel \"%1\" no se conoce").arg(atributo("papel")));
        r.papel.margen_x = medida("margen_x", r.papel.margen_x);
        r.papel.margen_y = medida("margen_y", r.papel.margen_y);
        if (proyecto_.reporte(r.nombre))
            falle(QStringLiteral("el reporte \"%1\" está dos veces").arg(r.nombre));
        r.bandas = lea_bandas();
        const double util = r.papel.ancho - 2 * r.papel.margen_x;
        for (Banda& b : r.bandas)
            for (Item& i : b.items) {
                if (i.x < 0)
                    i.x += util;
                if (i.hasta_margen)
                    i.ancho = util - i.x;
                if (i.x < -0.01 || i.x + i.ancho > util + 0.01)
                    falle(QStringLiteral("el item se sale de la hoja"), i.renglon);
            }
        proyecto_.reportes << r;
    }

    QVector<Banda> lea_bandas() {
        QVector<Banda> bandas;
        while (xml_.readNextStartElement()) {
            if (xml_.name() == QLatin1String("use")) {
                const QString nombre = exija("bloque");
                if (!bloques_.contains(nombre))
                    falle(QStringLiteral("el bloque \"%1\" no está definido").arg(nombre));
                bandas += bloques_.value(nombre);
                xml_.skipCurrentElement();
            } else if (xml_.name() == QLatin1String("banda")) {
                bandas << lea_banda();
            } else {
                falle_elemento();
            }
        }
        return bandas;
    }

    Banda lea_banda() {
        admita({"tipo", "nombre", "columna", "nivel", "alto", "repite", "pagina_nueva", "si"});
        static const QHash<QString, TipoBanda> tipos{
            {"encabezado", TipoBanda::Encabezado}, {"titulo", TipoBanda::Titulo},
            {"columnas", TipoBanda::Columnas},     {"grupo", TipoBanda::Grupo},
            {"detalle", TipoBanda::Detalle},       {"total", TipoBanda::Total},
            {"final", TipoBanda::Final},           {"pie", TipoBanda::Pie}};
        exija("tipo");
        Banda b;
        b.renglon = int(xml_.lineNumber());
        b.tipo = escoja("tipo", tipos, TipoBanda::Detalle);
        b.nombre = atributo("nombre");
        b.alto = medida("alto", 5);
        b.repite = si("repite");
        b.pagina_nueva = si("pagina_nueva");
        b.si = atributo("si");
        const bool grupo = b.tipo == TipoBanda::Grupo || b.tipo == TipoBanda::Total;
        if (grupo)
            b.columnas = exija("columna").split(QLatin1Char(','));
        if (grupo || (b.tipo == TipoBanda::Detalle && tiene("nivel"))) {
            b.nivel = int(medida("nivel", 1));
            if (b.nivel < 1 || b.nivel > 9)
                falle(QStringLiteral("el nivel de un grupo va de 1 a 9"));
        }
        while (xml_.readNextStartElement())
            b.items << lea_item();
        return b;
    }

    Item lea_item() {
        static const QHash<QString, Item::Clase> clases{{"texto", Item::Texto},
                                                        {"dato", Item::Dato},
                                                        {"linea", Item::Linea},
                                                        {"caja", Item::Caja},
                                                        {"imagen", Item::Imagen}};
        const auto clase = clases.constFind(xml_.name().toString());
        if (clase == clases.constEnd())
            falle_elemento();
        admita({"nombre", "x", "y", "ancho", "alto", "estilo", "lado", "de", "formato", "cero",
                "parte", "repetido", "grosor", "relleno", "variable"});
        Item i;
        i.clase = *clase;
        i.renglon = int(xml_.lineNumber());
        i.nombre = atributo("nombre");
        i.x = medida("x", 0);
        i.y = medida("y", 0);
        i.ancho = medida("ancho", 0);
        i.hasta_margen = !tiene("ancho");
        i.alto = medida("alto", i.clase == Item::Linea ? 0 : 4);
        i.estilo = estilo_de(atributo("estilo", QStringLiteral("normal")));
        static const QHash<QString, Lado> lados{
            {"izquierda", Lado::Izquierda}, {"centro", Lado::Centro}, {"derecha", Lado::Derecha}};
        static const QHash<QString, Formato> formatos{{"texto", Formato::Texto},
                                                      {"importe", Formato::Importe},
                                                      {"entero", Formato::Entero},
                                                      {"fecha", Formato::Fecha},
                                                      {"porcentaje", Formato::Porcentaje}};
        i.formato = escoja("formato", formatos, Formato::Texto);
        const bool numero = i.formato == Formato::Importe || i.formato == Formato::Entero ||
                            i.formato == Formato::Porcentaje;
        i.lado = escoja("lado", lados, numero ? Lado::Derecha : Lado::Izquierda);
        i.oculta_cero = atributo("cero") == QLatin1String("no");
        i.parte = si("parte");
        i.repetido = si("repetido", true);
        i.grosor = medida("grosor", 0.1);
        i.relleno = atributo("relleno");
        if (i.clase == Item::Dato)
            i.formula = lea_formula(exija("de"));
        if (i.clase == Item::Imagen)
            i.pedazos = {{Pedazo::Variable, exija("variable")}};
        if (i.clase == Item::Texto)
            i.pedazos = lea_pedazos(xml_.readElementText());
        else
            xml_.skipCurrentElement();
        return i;
    }

    QVector<Sumando> lea_formula(const QString& texto) const {
        QVector<Sumando> suma;
        QString limpio = texto;
        limpio.remove(QLatin1Char(' '));
        qsizetype i = 0;
        while (i < limpio.size()) {
            Sumando s;
            if (limpio[i] == QLatin1Char('+') || limpio[i] == QLatin1Char('-'))
                s.resta = limpio[i++] == QLatin1Char('-');
            else if (!suma.isEmpty())
                falle(QStringLiteral("la fórmula \"%1\" no se entiende").arg(texto));
            const qsizetype desde = i;
            while (i < limpio.size() && limpio[i] != QLatin1Char('+') &&
                   limpio[i] != QLatin1Char('-'))
                ++i;
            s.texto = limpio.mid(desde, i - desde);
            if (s.texto == QLatin1String("cuenta()")) {
                s.clase = Sumando::Cuenta;
            } else if (s.texto.startsWith(QLatin1String("suma(")) &&
                       s.texto.endsWith(QLatin1Char(')'))) {
                s.clase = Sumando::Suma;
                s.texto = s.texto.mid(5).chopped(1);
            }
            if (s.texto.isEmpty() ||
                (s.clase != Sumando::Cuenta && s.texto.contains(QLatin1Char('('))))
                falle(QStringLiteral("la fórmula \"%1\" no se entiende").arg(texto));
            suma << s;
        }
        return suma;
    }

    QVector<Pedazo> lea_pedazos(const QString& texto) const {
        QVector<Pedazo> pedazos;
        qsizetype i = 0;
        while (i < texto.size()) {
            const qsizetype abre = texto.indexOf(QLatin1Char('{'), i);
            if (abre != i)
                pedazos << Pedazo{Pedazo::Literal, texto.mid(i, abre < 0 ? -1 : abre - i)};
            if (abre < 0)
                break;
            const qsizetype cierra = texto.indexOf(QLatin1Char('}'), abre);
            if (cierra < 0)
                falle(QStringLiteral("una llave no se cierra en \"%1\"").arg(texto));
            const QString nombre = texto.mid(abre + 1, cierra - abre - 1);
            if (nombre.startsWith(QLatin1Char('@'))) {
                pedazos << Pedazo{Pedazo::Variable, nombre.mid(1)};
            } else if (nombre.startsWith(QLatin1Char('#'))) {
                static const QStringList especiales{"pagina", "paginas", "fecha", "hora", "sigue"};
                if (!especiales.contains(nombre.mid(1)))
                    falle(QStringLiteral("\"{%1}\" no se conoce").arg(nombre));
                pedazos << Pedazo{Pedazo::Especial, nombre.mid(1)};
            } else {
                pedazos << Pedazo{Pedazo::Columna, nombre.section(QLatin1Char('|'), 0, 0),
                                  nombre.section(QLatin1Char('|'), 1)};
            }
            i = cierra + 1;
        }
        return pedazos;
    }

    Proyecto& proyecto_;
    Bloques& bloques_;
    QHash<QString, int>& estilos_;
    QString ruta_;
    QFile archivo_;
    QXmlStreamReader xml_;
};

template <class T> T* busque(QVector<T>& todos, const QString& nombre) {
    for (T& t : todos)
        if (t.nombre.compare(nombre, Qt::CaseInsensitive) == 0)
            return &t;
    return nullptr;
}

} // namespace

Banda* Reporte::banda(const QString& nombre) {
    return busque(bandas, nombre);
}

Item* Reporte::item(const QString& nombre) {
    for (Banda& b : bandas)
        if (Item* i = busque(b.items, nombre))
            return i;
    return nullptr;
}

Reporte* Proyecto::reporte(const QString& nombre) {
    return busque(reportes, nombre);
}

Reporte* Proyecto::reporte_de_pagina(const QString& pagina) {
    for (Reporte& r : reportes)
        if (r.pagina.compare(pagina, Qt::CaseInsensitive) == 0)
            return &r;
    return nullptr;
}

Proyecto lea_proyecto(const QString& ruta) {
    Proyecto proyecto;
    proyecto.ruta = ruta;
    Bloques bloques;
    QHash<QString, int> estilos;
    Lector(proyecto, bloques, estilos, ruta).lea();
    return proyecto;
}

} // namespace informes
