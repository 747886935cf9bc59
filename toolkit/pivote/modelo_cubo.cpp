#include "toolkit/pivote/modelo_cubo.h"

#include "toolkit/estilo.h"

#include <QColor>
#include <QFont>

namespace {
constexpr QChar kSeparador(0x1f);
const QColor kFondoTotal(0x80, 0x80, 0x80, 36); // se nota sobre claro y sobre oscuro
} // namespace

void ModeloCubo::disponga(const Cubo& cubo, const DisposicionCubo& disposicion) {
    TablaCubo nueva = cubo.calcule(disposicion);
    beginResetModel();
    if (disposicion.filas != disposicion_.filas ||
        disposicion.nivel_filas != disposicion_.nivel_filas)
        filas_a_mano_.clear();
    if (disposicion.columnas != disposicion_.columnas ||
        disposicion.nivel_columnas != disposicion_.nivel_columnas)
        columnas_a_mano_.clear();
    cubo_ = &cubo;
    disposicion_ = disposicion;
    tabla_ = std::move(nueva);
    acomode();
    endResetModel();
}

// ---------------------------------------------------------------- lo que está a la vista

QString ModeloCubo::llave(const Nodos& nodos, int nodo) {
    QString camino;
    for (int n = nodo; n > 0; n = nodos[size_t(n)].padre)
        camino += nodos[size_t(n)].valor + kSeparador;
    return camino;
}

bool ModeloCubo::desplegado(const Nodos& nodos, int nodo, int nivel,
                            const QSet<QString>& a_mano) const {
    const NodoCubo& n = nodos[size_t(nodo)];
    if (n.hijos.empty())
        return false;
    const bool por_nivel = nivel == 0 || n.profundidad < nivel;
    return por_nivel != a_mano.contains(llave(nodos, nodo));
}

void ModeloCubo::recorra_filas(int nodo) {
    for (int hijo : tabla_.filas()[size_t(nodo)].hijos) {
        filas_.push_back(hijo);
        if (desplegado(tabla_.filas(), hijo, disposicion_.nivel_filas, filas_a_mano_))
            recorra_filas(hijo);
    }
}

void ModeloCubo::recorra_columnas(int nodo) {
    for (int hijo : tabla_.columnas()[size_t(nodo)].hijos) {
        if (desplegado(tabla_.columnas(), hijo, disposicion_.nivel_columnas, columnas_a_mano_))
            recorra_columnas(hijo);
        columnas_.push_back(hijo); // el subtotal, después de los suyos
    }
}

void ModeloCubo::acomode() {
    filas_.clear();
    columnas_.clear();
    recorra_filas(0);
    recorra_columnas(0);
    if (filas_.empty() || disposicion_.total_filas)
        filas_.push_back(0);
    if (columnas_.empty() || disposicion_.total_columnas)
        columnas_.push_back(0);
}

bool ModeloCubo::alterne(int fila) {
    const int nodo = filas_[size_t(fila)];
    if (nodo == 0 || tabla_.filas()[size_t(nodo)].hijos.empty())
        return false;
    const QString cual = llave(tabla_.filas(), nodo);
    beginResetModel();
    if (!filas_a_mano_.remove(cual))
        filas_a_mano_.insert(cual);
    acomode();
    endResetModel();
    return true;
}

bool ModeloCubo::alterne_columna(int columna) {
    const int nodo = nodo_columna(columna);
    if (nodo == 0 || tabla_.columnas()[size_t(nodo)].hijos.empty())
        return false;
    const QString cual = llave(tabla_.columnas(), nodo);
    beginResetModel();
    if (!columnas_a_mano_.remove(cual))
        columnas_a_mano_.insert(cual);
    acomode();
    endResetModel();
    return true;
}

void ModeloCubo::nivel(int hasta) {
    beginResetModel();
    disposicion_.nivel_filas = hasta;
    filas_a_mano_.clear();
    acomode();
    endResetModel();
}

void ModeloCubo::nivel_columnas(int hasta) {
    beginResetModel();
    disposicion_.nivel_columnas = hasta;
    columnas_a_mano_.clear();
    acomode();
    endResetModel();
}

// ---------------------------------------------------------------- lectura

int ModeloCubo::nodo_columna(int columna) const {
    return columnas_[size_t((columna - 1) / tabla_.valores())];
}

int ModeloCubo::valor_de_columna(int columna) const {
    return (columna - 1) % tabla_.valores();
}

std::optional<Moneda> ModeloCubo::cifra(int fila, int columna) const {
    return tabla_.muestra(filas_[size_t(fila)], nodo_columna(columna), valor_de_columna(columna));
}

bool ModeloCubo::es_porcentaje(int columna) const {
    return tabla_.porcentaje(valor_de_columna(columna));
}

QStringList ModeloCubo::camino(int fila) const {
    QStringList valores(disposicion_.filas.size());
    const Nodos& nodos = tabla_.filas();
    const int nodo = filas_[size_t(fila)];
    for (int n = nodo; n > 0; n = nodos[size_t(n)].padre)
        valores[nodos[size_t(n)].profundidad - 1] = nodos[size_t(n)].texto();
    if (nodo == 0 && !valores.isEmpty())
        valores[0] = nodos[0].texto();
    return valores;
}

QStringList ModeloCubo::titulos_camino() const {
    QStringList titulos;
    for (const QString& campo : disposicion_.filas)
        titulos << cubo_->campo(campo)->titulo;
    return titulos;
}

QString ModeloCubo::titulo_columna(int columna, const QString& separador) const {
    QStringList partes;
    const Nodos& nodos = tabla_.columnas();
    const int nodo = nodo_columna(columna);
    for (int n = nodo; n > 0; n = nodos[size_t(n)].padre)
        partes.prepend(nodos[size_t(n)].texto());
    if (nodo == 0)
        partes << nodos[0].texto();
    else if (!nodos[size_t(nodo)].hijos.empty())
        partes.last().prepend(QStringLiteral("Total "));
    const ValorCubo& v = disposicion_.valores[valor_de_columna(columna)];
    if (disposicion_.valores.size() > 1 || v.muestra != MuestraCubo::Valor)
        partes << cubo_->campo(v.campo)->titulo +
                      (v.muestra == MuestraCubo::Valor ? QString() : ' ' + texto_de(v.muestra));
    return partes.join(separador);
}

QString ModeloCubo::rotulo(int fila) const {
    const Nodos& nodos = tabla_.filas();
    const int nodo = filas_[size_t(fila)];
    const NodoCubo& n = nodos[size_t(nodo)];
    const QString sangria(qMax(0, n.profundidad - 1) * 4, QLatin1Char(' '));
    if (nodo == 0)
        return n.texto();
    if (n.hijos.empty())
        return sangria + (disposicion_.filas.size() > 1 ? QStringLiteral("   ") : QString()) +
               n.texto();
    const bool abierto = desplegado(nodos, nodo, disposicion_.nivel_filas, filas_a_mano_);
    return sangria + (abierto ? QStringLiteral("▾ ") : QStringLiteral("▸ ")) + n.texto();
}

/// Lo que de una celda dice quien la lee en voz alta: el nombre, si se despliega, o la cifra.
QString ModeloCubo::dicho(int fila, int columna) const {
    if (columna > 0)
        return index(fila, columna).data().toString();
    const Nodos& nodos = tabla_.filas();
    const int nodo = filas_[size_t(fila)];
    const NodoCubo& n = nodos[size_t(nodo)];
    if (nodo == 0 || n.hijos.empty())
        return n.texto();
    return n.texto() + (desplegado(nodos, nodo, disposicion_.nivel_filas, filas_a_mano_)
                            ? QStringLiteral(", desplegada")
                            : QStringLiteral(", plegada"));
}

int ModeloCubo::rowCount(const QModelIndex& padre) const {
    return padre.isValid() || !cubo_ ? 0 : int(filas_.size());
}

int ModeloCubo::columnCount(const QModelIndex& padre) const {
    return padre.isValid() || !cubo_ ? 0 : 1 + int(columnas_.size()) * tabla_.valores();
}

QVariant ModeloCubo::data(const QModelIndex& indice, int rol) const {
    const int fila = indice.row(), columna = indice.column();
    const int nodo = filas_[size_t(fila)];
    const bool suma =
        nodo == 0 || !tabla_.filas()[size_t(nodo)].hijos.empty() ||
        (columna > 0 && !tabla_.columnas()[size_t(nodo_columna(columna))].hijos.empty());
    switch (rol) {
    case Qt::DisplayRole:
        if (columna == 0)
            return rotulo(fila);
        if (const auto m = cifra(fila, columna))
            return es_porcentaje(columna) ? m->formateada() + QStringLiteral(" %")
                                          : m->formateada();
        return {};
    case Qt::AccessibleTextRole:
        return dicho(fila, columna);
    case Qt::AccessibleDescriptionRole: {
        const QString suya = tabla_.filas()[size_t(nodo)].texto();
        return columna == 0
                   ? titulos_camino().join(QStringLiteral(" / "))
                   : suya + QStringLiteral(": ") + titulo_columna(columna, QStringLiteral(" / "));
    }
    case Qt::TextAlignmentRole:
        return int((columna == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    case Qt::FontRole:
        if (suma) {
            QFont negrita;
            negrita.setBold(true);
            return negrita;
        }
        return {};
    case Qt::ForegroundRole:
        if (columna > 0)
            if (const auto m = cifra(fila, columna); m && m->negativa())
                return color_negativo();
        return {};
    case Qt::BackgroundRole:
        return suma ? QVariant(kFondoTotal) : QVariant();
    default:
        return {};
    }
}

QVariant ModeloCubo::headerData(int seccion, Qt::Orientation sentido, int rol) const {
    if (!cubo_ || (rol != Qt::DisplayRole && rol != Qt::ToolTipRole))
        return QAbstractTableModel::headerData(seccion, sentido, rol);
    if (sentido == Qt::Vertical)
        return seccion + 1;
    return seccion == 0 ? titulos_camino().join(QStringLiteral(" / "))
                        : titulo_columna(seccion, QStringLiteral("\n"));
}
