#include "toolkit/pivote/cubo.h"

#include "datos/firebird/errores.h"
#include "datos/firebird/racional.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace {

/// Más cruces que estos no los lee nadie y sí llenan la memoria.
constexpr size_t kMasCruces = 20000000;

Moneda porcentaje_de(Moneda parte, Moneda todo) {
    return (Racional(parte) * Racional::entero(100) / Racional(todo))
        .redondeado(Moneda::kDecimales);
}

} // namespace

// ---------------------------------------------------------------- resultado

QString NodoCubo::texto() const {
    if (padre < 0)
        return QStringLiteral("Total");
    if (valor.isEmpty() && nombre.isEmpty())
        return QStringLiteral("(sin dato)");
    return (valor + QLatin1Char(' ') + nombre).trimmed();
}

Moneda TablaCubo::suma(int fila, int columna, int valor) const {
    return sumas_[lugar(fila, columna, valor)];
}

int TablaCubo::hechos(int fila, int columna) const {
    return hechos_[size_t(fila) * columnas_.size() + size_t(columna)];
}

std::optional<Moneda> TablaCubo::muestra(int fila, int columna, int valor) const {
    if (hechos(fila, columna) == 0)
        return std::nullopt;
    const Moneda parte = suma(fila, columna, valor);
    const MuestraCubo como = muestras_[size_t(valor)];
    if (como == MuestraCubo::Valor)
        return parte;
    const Moneda todo = suma(como == MuestraCubo::PorFila ? fila : 0,
                             como == MuestraCubo::PorColumna ? columna : 0, valor);
    if (todo.es_cero())
        return std::nullopt;
    try {
        return porcentaje_de(parte, todo);
    } catch (const ErrorMoneda&) {
        return std::nullopt; // miles de millones sobre un total de centavos
    }
}

// ---------------------------------------------------------------- hechos

Cubo::Cubo(QVector<CampoCubo> campos) : campos_(std::move(campos)) {
    for (const CampoCubo& c : campos_) {
        indice_[c.nombre] = int(c.medida ? cifras_.size() : textos_.size());
        if (c.medida)
            cifras_.emplace_back();
        else
            textos_.emplace_back();
    }
}

const CampoCubo* Cubo::campo(const QString& nombre) const {
    for (const CampoCubo& c : campos_)
        if (c.nombre == nombre)
            return &c;
    return nullptr;
}

QStringList Cubo::nombres() const {
    QStringList lista;
    for (const CampoCubo& c : campos_)
        lista << c.nombre;
    return lista;
}

void Cubo::vacie() {
    for (Columna& c : textos_)
        c = {};
    for (auto& c : cifras_)
        c.clear();
    hechos_ = 0;
}

void Cubo::agregue(const QStringList& valores, const QVector<Moneda>& cifras) {
    for (size_t i = 0; i < textos_.size(); ++i) {
        Columna& c = textos_[i];
        const QString& valor = valores[qsizetype(i)];
        const auto [lugar, nuevo] = [&] {
            const auto it = c.numeros.constFind(valor);
            return it != c.numeros.constEnd() ? std::pair{*it, false}
                                              : std::pair{int(c.valores.size()), true};
        }();
        if (nuevo) {
            c.numeros.insert(valor, lugar);
            c.valores << valor;
        }
        c.de.push_back(lugar);
    }
    for (size_t i = 0; i < cifras_.size(); ++i)
        cifras_[i].push_back(cifras[qsizetype(i)]);
    ++hechos_;
}

const Cubo::Columna& Cubo::texto(const QString& campo) const {
    return textos_[size_t(indice_[campo])];
}

QString Cubo::etiqueta(const QString& nombre, int hecho) const {
    const QString de = campo(nombre)->etiqueta;
    if (de.isEmpty())
        return {};
    const Columna& c = texto(de);
    return c.valores[c.de[size_t(hecho)]];
}

QVector<std::pair<QString, QString>> Cubo::valores_de(const QString& nombre) const {
    const Columna& c = texto(nombre);
    QMap<QString, QString> ordenados;
    QSet<QString> ambiguos;
    for (int h = 0; h < hechos_; ++h) {
        const QString& valor = c.valores[c.de[size_t(h)]];
        const QString nombre_valor = etiqueta(nombre, h);
        const auto it = ordenados.constFind(valor);
        if (it == ordenados.constEnd())
            ordenados.insert(valor, nombre_valor);
        else if (*it != nombre_valor)
            ambiguos.insert(valor);
    }
    QVector<std::pair<QString, QString>> lista;
    for (const auto& [valor, nombre_valor] : ordenados.asKeyValueRange())
        lista.append({valor, ambiguos.contains(valor) ? QString() : nombre_valor});
    return lista;
}

// ---------------------------------------------------------------- ejes

/// Los campos de las filas o de las columnas: de los valores de un hecho al nodo en que cae.
class Cubo::Eje {
public:
    Eje(const Cubo& cubo, const QStringList& campos) : nodos_(1) {
        for (const QString& c : campos) {
            const QString& nombre = cubo.campo(c)->etiqueta;
            columnas_.push_back(&cubo.texto(c));
            nombres_.push_back(nombre.isEmpty() ? nullptr : &cubo.texto(nombre));
        }
    }
    /// Nodo del hecho, que se crea si es el primero que cae en él.
    int nodo(int hecho) {
        int actual = 0;
        for (size_t i = 0; i < columnas_.size(); ++i) {
            const int valor = columnas_[i]->de[size_t(hecho)];
            const qint64 llave = (qint64(actual) << 32) | valor;
            const auto it = por_llave_.constFind(llave);
            if (it != por_llave_.constEnd()) {
                actual = *it;
                if (!datos_[size_t(actual)].ambiguo)
                    revise(actual, i, hecho);
                continue;
            }
            const int nuevo = int(nodos_.size());
            por_llave_.insert(llave, nuevo);
            nodos_.push_back({actual, int(i) + 1, columnas_[i]->valores[valor], {}});
            datos_.push_back({valor, numero_nombre(i, hecho), false});
            nodos_[size_t(actual)].hijos.push_back(nuevo);
            actual = nuevo;
        }
        return actual;
    }
    /// Los nodos con sus hijos en orden y su nombre.
    std::vector<NodoCubo> termine() {
        std::vector<std::vector<int>> puestos;
        for (const Columna* c : columnas_)
            puestos.push_back(puestos_de(c->valores));
        for (NodoCubo& n : nodos_) {
            if (n.hijos.size() < 2)
                continue;
            const std::vector<int>& puesto = puestos[size_t(n.profundidad)];
            std::sort(n.hijos.begin(), n.hijos.end(), [&](int a, int b) {
                return puesto[size_t(datos_[size_t(a)].valor)] <
                       puesto[size_t(datos_[size_t(b)].valor)];
            });
        }
        for (size_t i = 1; i < nodos_.size(); ++i)
            if (const Columna* c = nombres_[size_t(nodos_[i].profundidad) - 1];
                c && !datos_[i].ambiguo)
                nodos_[i].nombre = c->valores[datos_[i].nombre];
        return std::move(nodos_);
    }

private:
    /// Valor y nombre de un nodo, por su número; ambiguo si sus hechos traen varios nombres.
    struct Dato {
        int valor = -1, nombre = -1;
        bool ambiguo = false;
    };
    /// Puesto de cada valor al ordenarlos: se comparan una vez y no por cada nodo.
    static std::vector<int> puestos_de(const QStringList& valores) {
        std::vector<int> orden(size_t(valores.size())), puestos(orden.size());
        std::iota(orden.begin(), orden.end(), 0);
        std::sort(orden.begin(), orden.end(),
                  [&](int a, int b) { return valores[a] < valores[b]; });
        for (size_t i = 0; i < orden.size(); ++i)
            puestos[size_t(orden[i])] = int(i);
        return puestos;
    }
    int numero_nombre(size_t campo, int hecho) const {
        return nombres_[campo] ? nombres_[campo]->de[size_t(hecho)] : -1;
    }
    void revise(int nodo, size_t campo, int hecho) {
        Dato& d = datos_[size_t(nodo)];
        d.ambiguo = d.nombre != numero_nombre(campo, hecho);
    }

    std::vector<const Columna*> columnas_, nombres_; ///< nulo si el campo no lo tiene
    std::vector<NodoCubo> nodos_;
    std::vector<Dato> datos_{1}; ///< por nodo
    QHash<qint64, int> por_llave_;
};

/// Qué hechos pasan: por cada campo filtrado, qué números valen.
class Cubo::Filtro {
public:
    Filtro(const Cubo& cubo, const DisposicionCubo& d) {
        for (const auto& [campo, pasan] : d.solo.asKeyValueRange()) {
            const Columna& c = cubo.texto(campo);
            std::vector<bool> vale(size_t(c.valores.size()));
            for (const QString& valor : pasan)
                if (const auto it = c.numeros.constFind(valor); it != c.numeros.constEnd())
                    vale[size_t(*it)] = true;
            condiciones_.push_back({&c, std::move(vale)});
        }
    }
    bool pasa(int hecho) const {
        return std::all_of(condiciones_.begin(), condiciones_.end(), [hecho](const auto& c) {
            return c.second[size_t(c.first->de[size_t(hecho)])];
        });
    }

private:
    std::vector<std::pair<const Columna*, std::vector<bool>>> condiciones_;
};

void Cubo::exija(const QStringList& lista, bool medida) const {
    for (const QString& nombre : lista) {
        const CampoCubo* c = campo(nombre);
        if (!c)
            throw ErrorDatos(QStringLiteral("No hay un campo %1.").arg(nombre));
        if (c->medida != medida)
            throw ErrorDatos(
                medida ? QStringLiteral("%1 no es una cifra.").arg(c->titulo)
                       : QStringLiteral("%1 es una cifra: va en los valores.").arg(c->titulo));
    }
}

void Cubo::revise(const DisposicionCubo& d) const {
    QStringList medidas;
    for (const ValorCubo& v : d.valores)
        medidas << v.campo;
    const QStringList puestos = d.filas + d.columnas + d.filtros;
    exija(puestos + d.solo.keys(), false);
    exija(medidas, true);
    QSet<QString> vistos;
    for (const QString& nombre : puestos + medidas) {
        if (vistos.contains(nombre))
            throw ErrorDatos(QStringLiteral("%1 está dos veces.").arg(campo(nombre)->titulo));
        vistos.insert(nombre);
    }
}

// ---------------------------------------------------------------- cálculo

TablaCubo Cubo::calcule(const DisposicionCubo& d) const {
    revise(d);
    QStringList medidas;
    TablaCubo t;
    for (const ValorCubo& v : d.valores) {
        medidas << v.campo;
        t.muestras_.push_back(v.muestra);
    }
    Eje filas(*this, d.filas), columnas(*this, d.columnas);
    const Filtro filtro(*this, d);
    // Primero en qué cruce cae cada hecho; con los ejes completos se sabe el tamaño de la tabla.
    std::vector<std::array<int, 3>> caidas;
    caidas.reserve(size_t(hechos_));
    for (int h = 0; h < hechos_; ++h)
        if (filtro.pasa(h))
            caidas.push_back({h, filas.nodo(h), columnas.nodo(h)});
    t.filas_ = filas.termine();
    t.columnas_ = columnas.termine();
    const size_t cruces = t.filas_.size() * t.columnas_.size();
    if (cruces * qMax<size_t>(1, t.muestras_.size()) > kMasCruces)
        throw ErrorDatos(QStringLiteral("La tabla tendría %1 filas por %2 columnas: quite un campo "
                                        "o ponga un filtro.")
                             .arg(t.filas_.size())
                             .arg(t.columnas_.size()));
    t.sumas_.resize(cruces * t.muestras_.size());
    t.hechos_.resize(cruces);
    std::vector<const std::vector<Moneda>*> cifras;
    for (const QString& m : medidas)
        cifras.push_back(&cifras_[size_t(indice_[m])]);
    for (const auto& [h, fila, columna] : caidas)
        for (int f = fila; f >= 0; f = t.filas_[size_t(f)].padre)
            for (int c = columna; c >= 0; c = t.columnas_[size_t(c)].padre) {
                ++t.hechos_[size_t(f) * t.columnas_.size() + size_t(c)];
                Moneda* suma = &t.sumas_[t.lugar(f, c, 0)];
                for (size_t m = 0; m < cifras.size(); ++m)
                    suma[m] += (*cifras[m])[size_t(h)];
            }
    return t;
}
