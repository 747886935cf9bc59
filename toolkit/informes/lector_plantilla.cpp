// Lectura de un archivo de plantillas: de sus elementos a un Proyecto.
#include "toolkit/informes/definicion.h"
#include "toolkit/informes/nodo_xml.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace informes {

namespace {

/// Grupos y bandas que varios reportes comparten.
struct Bloque {
    QVector<Grupo> grupos;
    QVector<Banda> bandas;
};

/// Columnas que se repiten de izquierda a derecha, con el rótulo de cada una.
struct Lista {
    QStringList columnas, rotulos;
};

/// Lo que se va conociendo a medida que se lee, también de los archivos incluidos.
struct Conocido {
    QHash<QString, int> estilos, aspectos;
    QHash<QString, Bloque> bloques;
    QHash<QString, Lista> listas;
};

class Lector {
public:
    /// `abiertos`: los archivos que llevan a este, sin él.
    Lector(Proyecto& proyecto, Conocido& conocido, const QString& ruta, QStringList abiertos = {})
        : proyecto_(proyecto), c_(conocido), ruta_(ruta), abiertos_(std::move(abiertos)) {
        abiertos_ << real(ruta);
    }

    void lea() {
        const NodoXml raiz = lea_xml(ruta_);
        for (const NodoXml& n : raiz.hijos) {
            nodo_ = &n;
            if (n.nombre == QLatin1String("incluya"))
                incluya();
            else if (n.nombre == QLatin1String("estilo"))
                lea_estilo();
            else if (n.nombre == QLatin1String("aspecto"))
                lea_aspecto();
            else if (n.nombre == QLatin1String("lista"))
                lea_lista();
            else if (n.nombre == QLatin1String("bloque"))
                lea_bloque();
            else if (n.nombre == QLatin1String("reporte"))
                lea_reporte();
            else
                falle_elemento();
        }
    }

private:
    [[noreturn]] void falle(const QString& que) const { falle(que, nodo_->linea); }
    [[noreturn]] void falle(const QString& que, int linea) const {
        falle_en_plantilla(ruta_, linea, que);
    }
    [[noreturn]] void falle_elemento() const {
        falle(QStringLiteral("el elemento \"%1\" no se conoce aquí").arg(nodo_->nombre));
    }

    // --- atributos del elemento en curso
    QString atributo(const char* nombre, const QString& omision = {}) const {
        return nodo_->atributos.value(QLatin1String(nombre), omision);
    }
    bool tiene(const char* nombre) const {
        return nodo_->atributos.contains(QLatin1String(nombre));
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
    Formula formula(const char* nombre) const {
        if (!tiene(nombre))
            return {};
        try {
            return Formula::lea(atributo(nombre));
        } catch (const QString& que) {
            falle(que);
        }
    }
    /// Los atributos del elemento son de los que se conocen: uno mal escrito no pasa callado.
    void admita(std::initializer_list<const char*> nombres) const {
        for (const QString& a : nodo_->atributos.keys())
            if (std::none_of(nombres.begin(), nombres.end(),
                             [&](const char* n) { return a == QLatin1String(n); }))
                falle(QStringLiteral("el atributo \"%1\" no se conoce").arg(a));
    }
    int indice(const QHash<QString, int>& todos, const QString& que, const QString& nombre) const {
        const auto i = todos.constFind(nombre);
        if (i == todos.constEnd())
            falle(QStringLiteral("el %1 \"%2\" no está definido").arg(que, nombre));
        return *i;
    }
    int estilo_de(const QString& nombre) const {
        return indice(c_.estilos, QStringLiteral("estilo"), nombre);
    }
    int aspecto() const {
        return tiene("aspecto")
                   ? indice(c_.aspectos, QStringLiteral("aspecto"), atributo("aspecto"))
                   : -1;
    }

    static QString real(const QString& ruta) {
        const QString canonica = QFileInfo(ruta).canonicalFilePath();
        return canonica.isEmpty() ? ruta : canonica;
    }

    // --- elementos del proyecto
    void incluya() {
        const QString otro = QFileInfo(ruta_).path() + QLatin1Char('/') + exija("archivo");
        // Un proyecto propio de la compañía puede usar la parte común que trae el programa.
        const QString propio = QStringLiteral(":/informes/") + exija("archivo");
        const auto sirve = [this](const QString& r) {
            return QFile::exists(r) && !abiertos_.contains(real(r));
        };
        if (abiertos_.contains(real(otro)) && !sirve(propio))
            falle(QStringLiteral("\"%1\" se incluye a sí mismo").arg(atributo("archivo")));
        Lector(proyecto_, c_, sirve(otro) ? otro : propio, abiertos_).lea();
    }

    void lea_estilo() {
        admita({"nombre", "base", "letra", "cuerpo", "negrita", "cursiva", "subrayada", "color"});
        Estilo e;
        if (tiene("base"))
            e = proyecto_.estilos[estilo_de(atributo("base"))];
        e.letra = atributo("letra", e.letra);
        e.cuerpo = medida("cuerpo", e.cuerpo);
        e.negrita = si("negrita", e.negrita);
        e.cursiva = si("cursiva", e.cursiva);
        e.subrayada = si("subrayada", e.subrayada);
        e.color = atributo("color", e.color);
        c_.estilos.insert(exija("nombre"), int(proyecto_.estilos.size()));
        proyecto_.estilos << e;
    }

    void lea_aspecto() {
        admita({"nombre"});
        const NodoXml& propio = *nodo_;
        const QString nombre = exija("nombre");
        Aspecto reglas;
        for (const NodoXml& n : propio.hijos) {
            nodo_ = &n;
            if (n.nombre != QLatin1String("cuando"))
                falle_elemento();
            admita({"si", "estilo", "sangria", "antes", "relleno", "omite"});
            ReglaAspecto r;
            r.si = formula("si");
            if (tiene("estilo"))
                r.estilo = estilo_de(atributo("estilo"));
            r.sangria = formula("sangria");
            r.antes = medida("antes", 0);
            r.relleno = atributo("relleno");
            r.omite = si("omite");
            reglas << r;
        }
        c_.aspectos.insert(nombre, int(proyecto_.aspectos.size()));
        proyecto_.aspectos << reglas;
    }

    void lea_lista() {
        admita({"nombre", "columnas", "rotulos"});
        Lista l;
        l.columnas = exija("columnas").split(QLatin1Char(','));
        l.rotulos = atributo("rotulos").split(QLatin1Char(','));
        if (tiene("rotulos") && l.rotulos.size() != l.columnas.size())
            falle(QStringLiteral("la lista tiene %1 columnas y %2 rótulos")
                      .arg(l.columnas.size())
                      .arg(l.rotulos.size()));
        c_.listas.insert(exija("nombre"), l);
    }

    void lea_bloque() {
        admita({"nombre"});
        const QString nombre = exija("nombre");
        c_.bloques[nombre] = lea_bandas(*nodo_);
    }

    // --- reporte
    void lea_reporte() {
        admita({"nombre", "conexion", "pagina", "papel", "horizontal", "margen_x", "margen_y"});
        const NodoXml& propio = *nodo_;
        Reporte r;
        r.renglon = propio.linea;
        r.nombre = exija("nombre");
        r.secciones << Seccion{exija("conexion"), false};
        r.pagina = r.nombre + QLatin1Char('.') + atributo("pagina", QStringLiteral("Page1"));
        if (!papel_de(atributo("papel", QStringLiteral("carta")), si("horizontal"), r.papel))
            falle(QStringLiteral("el papel \"%1\" no se conoce").arg(atributo("papel")));
        r.papel.margen_x = medida("margen_x", r.papel.margen_x);
        r.papel.margen_y = medida("margen_y", r.papel.margen_y);
        if (proyecto_.reporte(r.nombre))
            falle(QStringLiteral("el reporte \"%1\" está dos veces").arg(r.nombre));
        for (const NodoXml& n : propio.hijos) {
            nodo_ = &n;
            if (n.nombre == QLatin1String("seccion")) {
                admita({"conexion", "pagina_nueva"});
                r.secciones << Seccion{exija("conexion"), si("pagina_nueva")};
                for (const NodoXml& interno : n.hijos)
                    agregue(r, interno, int(r.secciones.size()) - 1);
            } else {
                agregue(r, n, 0);
            }
        }
        ate_grupos(r);
        acomode(r);
        proyecto_.reportes << r;
    }

    void agregue(Reporte& r, const NodoXml& nodo, int seccion) {
        Bloque leido;
        lea_en(leido, nodo);
        for (Grupo& g : leido.grupos) {
            g.seccion = seccion;
            r.grupos << g;
        }
        for (Banda& b : leido.bandas) {
            b.seccion = seccion;
            b.tras = int(r.secciones.size()) - 1;
            const bool de_hoja = b.tipo == TipoBanda::Encabezado || b.tipo == TipoBanda::Pie;
            if (de_hoja && seccion > 0)
                falle(QStringLiteral("una sección no tiene encabezado ni pie de hoja"), b.renglon);
            r.bandas << b;
        }
    }

    void ate_grupos(Reporte& r) {
        for (Banda& b : r.bandas) {
            if (b.de_grupo.isEmpty())
                continue;
            const Grupo* g = r.grupo(b.de_grupo);
            if (!g)
                falle(QStringLiteral("el grupo \"%1\" no está definido").arg(b.de_grupo),
                      b.renglon);
            b.nivel = g->nivel;
            if (b.tipo != TipoBanda::Detalle)
                b.grupo = int(g - r.grupos.constData());
        }
        // Una banda que dice sus propias columnas tiene un grupo sin nombre, que es solo suyo.
        for (Banda& b : r.bandas)
            if (!b.columnas.isEmpty()) {
                b.grupo = int(r.grupos.size());
                r.grupos << Grupo{{}, b.columnas, b.nivel, b.seccion, {}, b.renglon};
            }
    }

    void acomode(Reporte& r) {
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
    }

    // --- bandas
    Bloque lea_bandas(const NodoXml& padre) {
        Bloque b;
        for (const NodoXml& n : padre.hijos)
            lea_en(b, n);
        return b;
    }

    void lea_en(Bloque& bloque, const NodoXml& nodo) {
        nodo_ = &nodo;
        if (nodo.nombre == QLatin1String("use")) {
            const QString nombre = exija("bloque");
            if (!c_.bloques.contains(nombre))
                falle(QStringLiteral("el bloque \"%1\" no está definido").arg(nombre));
            bloque.grupos += c_.bloques[nombre].grupos;
            bloque.bandas += c_.bloques[nombre].bandas;
        } else if (nodo.nombre == QLatin1String("grupo")) {
            admita({"nombre", "columna", "nivel"});
            Grupo g = lea_grupo();
            g.nombre = exija("nombre");
            g.columnas = atributo("columna").split(QLatin1Char(','), Qt::SkipEmptyParts);
            bloque.grupos << g;
        } else if (nodo.nombre == QLatin1String("banda")) {
            bloque.bandas << lea_banda();
        } else {
            falle_elemento();
        }
    }

    Grupo lea_grupo() {
        Grupo g;
        g.nivel = int(medida("nivel", 1));
        g.renglon = nodo_->linea;
        if (g.nivel < 1 || g.nivel > 9)
            falle(QStringLiteral("el nivel de un grupo va de 1 a 9"));
        return g;
    }

    Banda lea_banda() {
        admita({"tipo", "nombre", "columna", "grupo", "nivel", "alto", "repite", "pagina_nueva",
                "numera", "si", "aspecto", "corta", "junta", "acompanada", "encabeza", "escalon"});
        static const QHash<QString, TipoBanda> tipos{
            {"encabezado", TipoBanda::Encabezado}, {"titulo", TipoBanda::Titulo},
            {"columnas", TipoBanda::Columnas},     {"grupo", TipoBanda::Grupo},
            {"detalle", TipoBanda::Detalle},       {"total", TipoBanda::Total},
            {"final", TipoBanda::Final},           {"pie", TipoBanda::Pie}};
        exija("tipo");
        Banda b;
        b.renglon = nodo_->linea;
        b.tipo = escoja("tipo", tipos, TipoBanda::Detalle);
        b.nombre = atributo("nombre");
        b.alto = medida("alto", 5);
        b.repite = si("repite");
        b.pagina_nueva = si("pagina_nueva");
        b.numera = si("numera");
        b.corta = si("corta");
        b.junta = si("junta", b.tipo == TipoBanda::Grupo);
        b.acompanada = si("acompanada", b.tipo == TipoBanda::Total || b.tipo == TipoBanda::Final);
        b.si = formula("si");
        b.encabeza = formula("encabeza");
        b.escalon = formula("escalon");
        if (!(b.encabeza.vacia() && b.escalon.vacia()) && b.tipo != TipoBanda::Detalle)
            falle(QStringLiteral("solo un detalle encabeza a otros"));
        b.aspecto = aspecto();
        b.de_grupo = atributo("grupo");
        const bool grupo = b.tipo == TipoBanda::Grupo || b.tipo == TipoBanda::Total;
        if (grupo && b.de_grupo.isEmpty()) {
            b.columnas = exija("columna").split(QLatin1Char(','));
            b.nivel = lea_grupo().nivel;
        } else if (b.tipo == TipoBanda::Detalle && tiene("nivel")) {
            b.nivel = int(medida("nivel", 1));
        }
        const NodoXml& propio = *nodo_;
        for (const NodoXml& n : propio.hijos) {
            nodo_ = &n;
            if (n.nombre == QLatin1String("repita"))
                repita(b);
            else
                b.items << lea_item();
        }
        nodo_ = &propio;
        return b;
    }

    /// Los items de adentro, una vez por columna de la lista, cada vez `paso` milímetros más allá.
    void repita(Banda& banda) {
        admita({"lista", "paso"});
        const QString nombre = exija("lista");
        if (!c_.listas.contains(nombre))
            falle(QStringLiteral("la lista \"%1\" no está definida").arg(nombre));
        const Lista& lista = c_.listas[nombre];
        exija("paso");
        const double paso = medida("paso", 0);
        const NodoXml& propio = *nodo_;
        for (qsizetype i = 0; i < lista.columnas.size(); ++i)
            for (const NodoXml& n : propio.hijos) {
                NodoXml copia = n;
                const auto cambie = [&](QString& texto) {
                    texto.replace(QLatin1String("$columna"), lista.columnas[i].trimmed());
                    texto.replace(QLatin1String("$rotulo"), lista.rotulos.value(i).trimmed());
                };
                cambie(copia.texto);
                for (QString& valor : copia.atributos)
                    cambie(valor);
                nodo_ = &copia;
                Item item = lea_item();
                item.x += paso * double(i);
                banda.items << item;
            }
        nodo_ = &propio;
    }

    Item lea_item() {
        static const QHash<QString, Item::Clase> clases{
            {"texto", Item::Texto}, {"dato", Item::Dato}, {"rico", Item::Rico},
            {"linea", Item::Linea}, {"caja", Item::Caja}, {"imagen", Item::Imagen}};
        const auto clase = clases.constFind(nodo_->nombre);
        if (clase == clases.constEnd())
            falle_elemento();
        admita({"nombre",    "x",       "y",        "ancho",  "alto",     "estilo",
                "aspecto",   "sangra",  "si",       "lado",   "de",       "formato",
                "decimales", "cero",    "negativo", "parte",  "repetido", "grosor",
                "doble",     "relleno", "variable", "columna"});
        Item i;
        i.clase = *clase;
        i.renglon = nodo_->linea;
        i.nombre = atributo("nombre");
        i.x = medida("x", 0);
        i.y = medida("y", 0);
        i.ancho = medida("ancho", 0);
        i.hasta_margen = !tiene("ancho");
        i.alto = medida("alto", i.clase == Item::Linea ? 0 : 4);
        i.estilo = estilo_de(atributo("estilo", QStringLiteral("normal")));
        i.estilo_propio = tiene("estilo");
        i.aspecto = aspecto();
        i.sangra = si("sangra");
        i.si = formula("si");
        i.grosor = medida("grosor", 0.1);
        i.doble = si("doble");
        i.relleno = atributo("relleno");
        lea_escritura(i);
        lea_contenido(i);
        return i;
    }

    /// Cómo se escribe lo que el item trae.
    void lea_escritura(Item& i) {
        static const QHash<QString, Lado> lados{
            {"izquierda", Lado::Izquierda}, {"centro", Lado::Centro}, {"derecha", Lado::Derecha}};
        static const QHash<QString, Formato> formatos{
            {"texto", Formato::Texto},          {"importe", Formato::Importe},
            {"entero", Formato::Entero},        {"fecha", Formato::Fecha},
            {"letras", Formato::Letras},        {"fecha_larga", Formato::FechaLarga},
            {"porcentaje", Formato::Porcentaje}};
        static const QHash<QString, bool> negativos{{"signo", false}, {"parentesis", true}};
        i.formato = escoja("formato", formatos, Formato::Texto);
        i.decimales = int(medida("decimales", -1));
        if (tiene("decimales") && (i.decimales < 0 || i.decimales > Moneda::kDecimales))
            falle(QStringLiteral("los decimales van de 0 a 4"));
        i.lado = escoja("lado", lados, i.numero() ? Lado::Derecha : Lado::Izquierda);
        i.oculta_cero = atributo("cero") == QLatin1String("no");
        i.parentesis = escoja("negativo", negativos, false);
        i.parte = si("parte");
        i.repetido = si("repetido", true);
    }

    void lea_contenido(Item& i) {
        if (i.clase == Item::Dato || i.clase == Item::Rico) {
            exija("de");
            i.formula = formula("de");
        } else if (i.clase == Item::Imagen && tiene("columna")) {
            i.formula = formula("columna");
            if (!i.formula.columna_sola())
                falle(QStringLiteral("una imagen sale de una columna o de una variable"));
        } else if (i.clase == Item::Imagen) {
            i.pedazos = {{Pedazo::Variable, exija("variable")}};
        } else if (i.clase == Item::Texto) {
            i.pedazos = lea_pedazos(nodo_->texto);
        }
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
            pedazos << lea_pedazo(texto.mid(abre + 1, cierra - abre - 1));
            i = cierra + 1;
        }
        return pedazos;
    }

    Pedazo lea_pedazo(const QString& nombre) const {
        if (nombre.startsWith(QLatin1Char('@')))
            return {Pedazo::Variable, nombre.mid(1)};
        if (nombre.startsWith(QLatin1Char('#'))) {
            static const QStringList especiales{"pagina",      "paginas", "fecha",
                                                "fecha_larga", "hora",    "sigue"};
            if (!especiales.contains(nombre.mid(1)))
                falle(QStringLiteral("\"{%1}\" no se conoce").arg(nombre));
            return {Pedazo::Especial, nombre.mid(1)};
        }
        Pedazo p{Pedazo::Columna, nombre.section(QLatin1Char('|'), 0, 0),
                 nombre.section(QLatin1Char('|'), 1)};
        if (p.texto.contains(QLatin1Char('.'))) {
            p.conexion = p.texto.section(QLatin1Char('.'), 0, 0);
            p.texto = p.texto.section(QLatin1Char('.'), 1);
        }
        return p;
    }

    Proyecto& proyecto_;
    Conocido& c_;
    const QString ruta_;
    QStringList abiertos_;
    const NodoXml* nodo_ = nullptr;
};

} // namespace

Proyecto lea_proyecto(const QString& ruta) {
    Proyecto proyecto;
    proyecto.ruta = ruta;
    Conocido conocido;
    Lector(proyecto, conocido, ruta).lea();
    return proyecto;
}

} // namespace informes
