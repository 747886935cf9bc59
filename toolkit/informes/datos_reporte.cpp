#include "toolkit/informes/datos_reporte.h"

#include "toolkit/informes/nodo_xml.h"

namespace informes {

namespace {

/// Copia una parte de una fórmula, que pasa a ser una fórmula aparte.
int copie(const Formula& de, int nodo, Formula& a) {
    if (nodo < 0)
        return -1;
    Formula::Nodo n = de.nodos[nodo];
    n.a = copie(de, n.a, a);
    n.b = copie(de, n.b, a);
    n.c = copie(de, n.c, a);
    a.nodos << n;
    return int(a.nodos.size()) - 1;
}

QString clave(const Formula& f) {
    QString texto;
    for (const Formula::Nodo& n : f.nodos)
        texto += QStringLiteral("%1,%2,%3,%4,%5,%6,%7,%8;")
                     .arg(int(n.op))
                     .arg(n.a)
                     .arg(n.b)
                     .arg(n.c)
                     .arg(n.fuente)
                     .arg(n.columna)
                     .arg(n.numero.redondeado(Moneda::kDecimales).texto(), n.texto);
    return texto;
}

} // namespace

DatosReporte::DatosReporte(const Proyecto& proyecto, Reporte& reporte, const Variables& variables,
                           const Fuentes& fuentes)
    : proyecto_(proyecto), reporte_(reporte), variables_(variables), todas_(fuentes) {
    for (const Seccion& s : reporte_.secciones)
        de_seccion_ << fuente(s.conexion, reporte_.renglon);
    for (Grupo& g : reporte_.grupos)
        g.indices.clear();
    for (Banda& b : reporte_.bandas)
        if (!b.omitida)
            ate(b);
    roturas_.resize(reporte_.secciones.size());
    for (const Banda& b : reporte_.bandas)
        if (!b.omitida && b.grupo >= 0)
            for (const auto& [f, c] : reporte_.grupos[b.grupo].indices)
                roturas_[b.seccion] << Rotura{f, c, b.nivel};
    for (Fuente& f : fuentes_) {
        f.fila.resize(f.usadas.size());
        f.previa.resize(f.usadas.size());
    }
}

void DatosReporte::falle(int renglon, const QString& que) const {
    falle_en_plantilla(proyecto_.ruta, renglon, que);
}

int DatosReporte::fuente(const QString& conexion, int renglon) {
    for (int i = 0; i < fuentes_.size(); ++i)
        if (fuentes_[i].conexion.compare(conexion, Qt::CaseInsensitive) == 0)
            return i;
    DatosInforme* datos = todas_.value(conexion.toUpper());
    if (!datos)
        falle(renglon, QStringLiteral("el reporte %1 lee la conexión %2, que no está")
                           .arg(reporte_.nombre, conexion));
    fuentes_ << Fuente{conexion, datos, {}, {}, {}, {}, false, false};
    return int(fuentes_.size()) - 1;
}

int DatosReporte::columna_de(int fuente, const QString& nombre, int renglon) {
    Fuente& f = fuentes_[fuente];
    const QString clave = nombre.trimmed().toUpper();
    const auto i = f.por_nombre.constFind(clave);
    if (i != f.por_nombre.constEnd())
        return *i;
    const int en_datos = f.datos->columna(clave);
    if (en_datos < 0)
        falle(renglon,
              QStringLiteral("la conexión %1 no tiene la columna \"%2\"").arg(f.conexion, nombre));
    f.usadas << en_datos;
    f.por_nombre.insert(clave, int(f.usadas.size()) - 1);
    return int(f.usadas.size()) - 1;
}

// ---------------------------------------------------------------- atado

void DatosReporte::ate(Banda& banda) {
    if (banda.grupo >= 0 && reporte_.grupos[banda.grupo].indices.isEmpty()) {
        Grupo& g = reporte_.grupos[banda.grupo];
        const int f = de_seccion_[g.seccion];
        for (const QString& c : g.columnas)
            g.indices << std::pair{f, columna_de(f, c, g.renglon)};
    }
    const bool anuncio = banda.tipo == TipoBanda::Grupo || banda.tipo == TipoBanda::Titulo;
    if (anuncio && banda.si.tiene_sumas())
        falle(banda.renglon,
              QStringLiteral("una suma no decide si se imprime lo que va antes de sus filas"));
    ate(banda.si, banda, banda.renglon);
    ate(banda.encabeza, banda, banda.renglon);
    ate(banda.escalon, banda, banda.renglon);
    banda.aspecto = aspecto_de(banda.aspecto, banda);
    for (Item& i : banda.items)
        ate(i, banda);
}

void DatosReporte::ate(Item& item, const Banda& banda) {
    const auto fuente_de = [&](const QString& conexion) {
        return conexion.isEmpty() ? de_seccion_[banda.seccion] : fuente(conexion, item.renglon);
    };
    for (Pedazo& p : item.pedazos)
        if (p.clase == Pedazo::Columna) {
            p.fuente = fuente_de(p.conexion);
            p.columna = columna_de(p.fuente, p.texto, item.renglon);
        }
    ate(item.formula, banda, item.renglon);
    ate(item.si, banda, item.renglon);
    item.aspecto = aspecto_de(item.aspecto, banda);
}

void DatosReporte::ate(Formula& formula, const Banda& banda, int renglon) {
    for (Formula::Nodo& n : formula.nodos)
        if (n.op == Formula::Columna) {
            n.fuente =
                n.conexion.isEmpty() ? de_seccion_[banda.seccion] : fuente(n.conexion, renglon);
            n.columna = columna_de(n.fuente, n.texto, renglon);
        }
    for (Formula::Nodo& n : formula.nodos)
        if (n.op == Formula::Suma || n.op == Formula::Cuenta)
            n.suma = acumulado_de(formula, n, banda, renglon);
}

int DatosReporte::aspecto_de(int numero, const Banda& banda) {
    if (numero < 0)
        return -1;
    const std::pair<int, int> llave{numero, banda.seccion};
    if (const auto i = aspectos_atados_.constFind(llave); i != aspectos_atados_.constEnd())
        return *i;
    Aspecto copia = proyecto_.aspectos[numero];
    for (ReglaAspecto& r : copia) {
        if (r.si.tiene_sumas() || r.sangria.tiene_sumas())
            falle(banda.renglon, QStringLiteral("un aspecto no depende de una suma"));
        ate(r.si, banda, banda.renglon);
        ate(r.sangria, banda, banda.renglon);
    }
    aspectos_ << copia;
    aspectos_atados_.insert(llave, int(aspectos_.size()) - 1);
    return int(aspectos_.size()) - 1;
}

int DatosReporte::acumulado_de(const Formula& formula, const Formula::Nodo& nodo,
                               const Banda& banda, int renglon) {
    Acumulado a;
    copie(formula, nodo.a, a.suma);
    copie(formula, nodo.b, a.condicion);
    a.fuente = -1;
    for (const Formula* f : {&a.suma, &a.condicion})
        for (const Formula::Nodo& n : f->nodos) {
            if (n.op != Formula::Columna)
                continue;
            if (a.fuente >= 0 && a.fuente != n.fuente)
                falle(renglon, QStringLiteral("la suma \"%1\" mezcla columnas de dos conexiones")
                                   .arg(formula.texto));
            a.fuente = n.fuente;
        }
    if (a.fuente < 0)
        a.fuente = de_seccion_[banda.seccion];
    a.nivel = a.fuente == de_seccion_[banda.seccion] ? banda.nivel : 0;
    a.clave = clave(a.suma) + QLatin1Char('|') + clave(a.condicion);
    for (int i = 0; i < acumulados_.size(); ++i)
        if (acumulados_[i].fuente == a.fuente && acumulados_[i].nivel == a.nivel &&
            acumulados_[i].clave == a.clave)
            return i;
    acumulados_ << a;
    return int(acumulados_.size()) - 1;
}

// ---------------------------------------------------------------- recorrido

bool DatosReporte::lea(Fuente& f, bool primera) {
    if (!(primera ? f.datos->primera() : f.datos->siguiente()))
        return false;
    std::swap(f.fila, f.previa);
    for (int i = 0; i < f.usadas.size(); ++i)
        f.fila[i] = f.datos->valor(f.usadas[i]);
    return true;
}

void DatosReporte::comience() {
    for (Fuente& f : fuentes_)
        f.hay = lea(f, true);
}

void DatosReporte::seccion(int numero) {
    seccion_ = numero;
    actual_ = de_seccion_[numero];
    Fuente& f = fuentes_[actual_];
    if (std::exchange(f.recorrida, true))
        f.hay = lea(f, true); // otra sección ya pasó por estas filas
}

bool DatosReporte::siguiente() {
    Fuente& f = fuentes_[actual_];
    if (lea(f, false))
        return true;
    f.previa = f.fila;
    f.hay = false;
    return false;
}

int DatosReporte::nivel_roto() const {
    int nivel = 99;
    for (const Rotura& r : roturas_[seccion_])
        if (r.nivel < nivel &&
            !(fuentes_[r.fuente].fila[r.columna] == fuentes_[r.fuente].previa[r.columna]))
            nivel = r.nivel;
    return nivel;
}

Racional DatosReporte::aporte(const Acumulado& a) const {
    if (!a.condicion.vacia() && !a.condicion.cierta(*this))
        return {};
    if (a.suma.vacia())
        return Racional::entero(1);
    if (const Formula::Nodo* c = a.suma.columna_sola())
        return Racional(columna(c->fuente, c->columna).moneda());
    return a.suma.evalue(*this).numero;
}

void DatosReporte::acumule() {
    for (Acumulado& a : acumulados_)
        if (a.fuente == actual_)
            a.total = a.total + aporte(a);
}

void DatosReporte::borre_sumas(int nivel) {
    for (Acumulado& a : acumulados_)
        if (a.fuente == actual_ && a.nivel == nivel)
            a.total = Racional();
}

void DatosReporte::cambie_filas() {
    std::swap(fuentes_[actual_].fila, fuentes_[actual_].previa);
}

// ---------------------------------------------------------------- lectura

const Valor& DatosReporte::columna(int fuente, int columna) const {
    return fila_guardada && fuente == actual_ ? (*fila_guardada)[columna]
                                              : fuentes_[fuente].fila[columna];
}

QString DatosReporte::variable(const QString& nombre) const {
    if (nombre == Formula::kSigue)
        return sigue ? nombre : QString();
    return variables_.textos.value(nombre);
}

Racional DatosReporte::acumulado(int numero) const {
    const Acumulado& a = acumulados_[numero];
    // En un detalle su fila todavía no se ha sumado.
    return en_detalle && a.fuente == actual_ ? a.total + aporte(a) : a.total;
}

QVector<Racional> DatosReporte::sumas() const {
    QVector<Racional> todas;
    for (const Acumulado& a : acumulados_)
        todas << a.total;
    return todas;
}

void DatosReporte::sumas(const QVector<Racional>& sumas) {
    for (int i = 0; i < acumulados_.size(); ++i)
        acumulados_[i].total = sumas[i];
}

} // namespace informes
