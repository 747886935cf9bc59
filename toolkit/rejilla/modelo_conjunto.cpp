#include "toolkit/rejilla/modelo_conjunto.h"

#include "toolkit/proteccion.h"
#include "toolkit/rejilla/rejilla.h"

#include <limits>

namespace {
constexpr QLatin1String kFechaContable("aaaa/mm/dd");
} // namespace

ModeloConjunto::ModeloConjunto(Rejilla& rejilla)
    : QAbstractTableModel(&rejilla), rejilla_(rejilla) {}

int ModeloConjunto::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : filas_;
}

int ModeloConjunto::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : rejilla_.cuenta_columnas();
}

Valor ModeloConjunto::valor(int fila, int columna) const {
    const ConjuntoDatos* c = conjunto();
    const Campo* campo = rejilla_.columna(columna).campo;
    if (!c || !c->Active() || !campo)
        return {};
    try {
        return c->valor_en(fila, *campo);
    } catch (const std::exception&) {
        return {}; // un cálculo que falla no puede salir por el pintado
    }
}

QString ModeloConjunto::presente(const Valor& v, int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    if (!c.campo)
        return {};
    if (!c.KeyList().isEmpty()) {
        const qsizetype i = c.KeyList().indexOf(v.texto());
        if (i >= 0 && i < c.PickList().size())
            return c.PickList().at(i);
    }
    const QString texto = c.campo->presente(v, c.DisplayFormat);
    // Las fechas contables se guardan como aaaammdd y se leen como las demás.
    if (c.DisplayFormat() == kFechaContable && texto.size() == 8)
        return texto.left(4) + '/' + texto.mid(4, 2) + '/' + texto.mid(6);
    return texto;
}

QString ModeloConjunto::texto(int fila, int columna) const {
    return presente(valor(fila, columna), columna);
}

QString ModeloConjunto::texto_editable(int fila, int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    return c.KeyList().isEmpty() ? valor(fila, columna).texto() : texto(fila, columna);
}

bool ModeloConjunto::editable(int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    return rejilla_.editable() && c.campo && !c.ReadOnly && !c.campo->ReadOnly &&
           c.campo->tipo == TipoCampo::Datos && c.campo->clase != ClaseCampo::Blob;
}

bool ModeloConjunto::numerica(int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    return c.campo && c.campo->numerico() && c.KeyList().isEmpty();
}

Qt::Alignment ModeloConjunto::alineacion(int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    if (c.casilla)
        return Qt::AlignCenter;
    if (!c.KeyList().isEmpty())
        return Qt::AlignLeft | Qt::AlignVCenter;
    if (!c.campo) // sin consultar todavía: el título ya va donde irán sus cifras
        return (c.cifra || c.ConSuma ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    switch (c.campo->Alignment) {
    case Alineacion::Derecha:
        return Qt::AlignRight | Qt::AlignVCenter;
    case Alineacion::Centro:
        return Qt::AlignCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

QVariant ModeloConjunto::data(const QModelIndex& indice, int papel) const {
    if (!indice.isValid())
        return {};
    const int columna = indice.column();
    switch (papel) {
    case Qt::DisplayRole:
        return texto(indice.row(), columna);
    case Qt::AccessibleTextRole:
        if (rejilla_.columna(columna).casilla)
            return valor(indice.row(), columna).texto() == QLatin1String("S")
                       ? QStringLiteral("marcada")
                       : QStringLiteral("sin marcar");
        return texto(indice.row(), columna);
    case Qt::AccessibleDescriptionRole:
        return rejilla_.columna(columna).Titulo();
    case Qt::EditRole:
        return texto_editable(indice.row(), columna);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(int(alineacion(columna)));
    case Qt::CheckStateRole:
        if (rejilla_.columna(columna).casilla)
            return valor(indice.row(), columna).texto() == QLatin1String("S") ? Qt::Checked
                                                                              : Qt::Unchecked;
        return {};
    default:
        return {};
    }
}

QVariant ModeloConjunto::headerData(int seccion, Qt::Orientation sentido, int papel) const {
    if (sentido == Qt::Vertical)
        return papel == Qt::DisplayRole ? QVariant(QString()) : QVariant();
    if (seccion < 0 || seccion >= rejilla_.cuenta_columnas())
        return {};
    switch (papel) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return rejilla_.columna(seccion).Titulo();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(int(alineacion(seccion)));
    default:
        return {};
    }
}

Qt::ItemFlags ModeloConjunto::flags(const QModelIndex& indice) const {
    if (!indice.isValid())
        return {};
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (editable(indice.column()))
        f |= Qt::ItemIsEditable;
    return f;
}

bool ModeloConjunto::canFetchMore(const QModelIndex& padre) const {
    return !padre.isValid() && conjunto() && conjunto()->Active() && !conjunto()->completo() &&
           !conjunto()->cortada();
}

void ModeloConjunto::fetchMore(const QModelIndex&) {
    proteja([this] { conjunto()->traiga_paquete(); });
}

// ---------------------------------------------------------------- sumas

qint64 ModeloConjunto::unidades_en(int fila, int columna) const {
    const Campo* campo = rejilla_.columna(columna).campo;
    if (!campo || !campo->numerico())
        return 0;
    return conjunto()->valor_en(fila, *campo).moneda().unidades();
}

Moneda ModeloConjunto::suma(int columna) const {
    if (!conjunto() || !conjunto()->Active())
        return {};
    rejilla_.columna(columna); // número válido
    sumas_.resize(size_t(rejilla_.cuenta_columnas()));
    Sumandos& s = sumas_[size_t(columna)];
    if (!s.validos || int(s.unidades.size()) != conjunto()->RecordCount()) {
        const int n = conjunto()->RecordCount();
        s = {};
        s.unidades.reserve(size_t(n));
        for (int i = 0; i < n; ++i) {
            s.unidades.push_back(unidades_en(i, columna));
            s.total += s.unidades.back();
        }
        s.validos = true;
    }
    if (s.total > std::numeric_limits<qint64>::max() ||
        s.total < std::numeric_limits<qint64>::min())
        throw ErrorMoneda("La suma excede la capacidad de los importes.");
    return Moneda::de_unidades(qint64(s.total));
}

void ModeloConjunto::corrija_sumas(int fila) {
    for (size_t c = 0; c < sumas_.size(); ++c) {
        Sumandos& s = sumas_[c];
        if (!s.validos)
            continue;
        if (fila < 0 || fila >= int(s.unidades.size())) {
            s.validos = false;
            continue;
        }
        const qint64 nuevo = unidades_en(fila, int(c));
        s.total += __int128(nuevo) - s.unidades[size_t(fila)];
        s.unidades[size_t(fila)] = nuevo;
    }
}

void ModeloConjunto::olvide_sumas() const {
    sumas_.clear();
}

// ---------------------------------------------------------------- columnas y conjunto

void ModeloConjunto::rehaga(const std::function<void()>& cambio) {
    beginResetModel();
    cambio();
    olvide_sumas();
    resuelva_campos();
    filas_ = conjunto() && conjunto()->Active() ? conjunto()->RecordCount() : 0;
    endResetModel();
}

void ModeloConjunto::cambie_conjunto(ConjuntoDatos* c) {
    rehaga([this, c] { enlace(c); });
}

void ModeloConjunto::columnas_cambiadas() {
    olvide_sumas();
    if (rejilla_.cuenta_columnas() > 0)
        emit headerDataChanged(Qt::Horizontal, 0, rejilla_.cuenta_columnas() - 1);
}

void ModeloConjunto::resuelva_campos() {
    const ConjuntoDatos* c = conjunto();
    const bool abierto = c && c->Active();
    // Cerrado, los campos dinámicos pueden rehacerse sin aviso: no se guarda ninguno.
    for (const auto& columna : rejilla_.columnas_)
        columna->campo = abierto ? c->FindField(columna->FieldName) : nullptr;
}

void ModeloConjunto::avise_fila(int fila) {
    if (fila >= 0 && fila < filas_ && columnCount() > 0)
        emit dataChanged(index(fila, 0), index(fila, columnCount() - 1));
}

// ---------------------------------------------------------------- avisos del conjunto

void ModeloConjunto::estado_cambiado() {
    avise_fila(conjunto()->RecNo());
    rejilla_.estado_cambiado();
}

void ModeloConjunto::fila_actual_cambiada() {
    rejilla_.cursor_movido();
}

void ModeloConjunto::campo_cambiado(Campo* campo) {
    const int fila = conjunto()->RecNo();
    corrija_sumas(fila);
    avise_fila(fila);
    rejilla_.campo_cambiado(campo);
}

void ModeloConjunto::filas_reiniciadas() {
    olvide_sumas();
    resuelva_campos();
    // Ajustar la diferencia al final conserva el desplazamiento, que un reinicio pierde.
    const int ahora = conjunto()->Active() ? conjunto()->RecordCount() : 0;
    if (ahora > filas_) {
        beginInsertRows({}, filas_, ahora - 1);
        filas_ = ahora;
        endInsertRows();
    } else if (ahora < filas_) {
        beginRemoveRows({}, ahora, filas_ - 1);
        filas_ = ahora;
        endRemoveRows();
    }
    if (filas_ > 0 && columnCount() > 0)
        emit dataChanged(index(0, 0), index(filas_ - 1, columnCount() - 1));
    rejilla_.conjunto_reiniciado();
}

void ModeloConjunto::filas_insertadas(int desde, int cuantas) {
    if (desde > filas_ || filas_ + cuantas != conjunto()->RecordCount()) {
        filas_reiniciadas();
        return;
    }
    beginInsertRows({}, desde, desde + cuantas - 1);
    filas_ += cuantas;
    for (size_t c = 0; c < sumas_.size(); ++c) {
        Sumandos& s = sumas_[c];
        if (!s.validos)
            continue;
        std::vector<qint64> nuevas;
        for (int i = desde; i < desde + cuantas; ++i) {
            nuevas.push_back(unidades_en(i, int(c)));
            s.total += nuevas.back();
        }
        s.unidades.insert(s.unidades.begin() + desde, nuevas.begin(), nuevas.end());
    }
    endInsertRows();
    rejilla_.filas_corridas(desde, cuantas);
}

void ModeloConjunto::filas_borradas(int desde, int cuantas) {
    if (desde + cuantas > filas_ || filas_ - cuantas != conjunto()->RecordCount()) {
        filas_reiniciadas();
        return;
    }
    // La vista escoge otra celda actual al quitar filas; quien manda es el cursor del conjunto.
    const bool antes = std::exchange(rejilla_.sincronizando_, true);
    beginRemoveRows({}, desde, desde + cuantas - 1);
    filas_ -= cuantas;
    for (Sumandos& s : sumas_) {
        if (!s.validos)
            continue;
        const auto primera = s.unidades.begin() + desde;
        for (auto i = primera; i != primera + cuantas; ++i)
            s.total -= *i;
        s.unidades.erase(primera, primera + cuantas);
    }
    endRemoveRows();
    rejilla_.sincronizando_ = antes;
    rejilla_.filas_corridas(desde, -cuantas);
}

void ModeloConjunto::fila_modificada(int indice) {
    corrija_sumas(indice);
    avise_fila(indice);
    rejilla_.fila_modificada(indice);
}

void ModeloConjunto::escriba_pendiente() {
    rejilla_.escriba_pendiente();
}
