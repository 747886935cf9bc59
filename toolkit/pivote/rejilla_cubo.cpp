#include "toolkit/pivote/rejilla_cubo.h"

#include "toolkit/estilo.h"
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/pida_archivo.h"
#include "toolkit/pivote/columna_fija.h"
#include "toolkit/pivote/delegado_con_consejo.h"
#include "toolkit/pivote/tabla_cubo.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/titulo_columna.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <numeric>

namespace {

/// Nivel vecino de uno entre los de `campos` campos; el último se escribe 0, todos.
int otro_nivel(int nivel, qsizetype campos, int paso) {
    const int ahora = nivel == 0 ? int(campos) : nivel;
    const int nuevo = qBound(1, ahora + paso, qMax(1, int(campos)));
    return nuevo == ahora ? nivel : nuevo == campos ? 0 : nuevo;
}

constexpr int kColumnasMedidas = 60;

/// Lo que de una columna no tapan el borde ni la que no se desplaza.
QRect a_la_vista(QRect lugar, const RejillaCubo& rejilla, int columna) {
    lugar &= QRect(0, lugar.y(), rejilla.viewport()->width(), lugar.height());
    lugar.setLeft(qMax(lugar.left(), columna > 0 ? rejilla.ancho_fijo() : 0));
    return lugar;
}

/// Un título que no cabe usa los dos renglones, y se lee por su comienzo, renglón por renglón, en
/// lo que se ve de él.
class EncabezadoCubo : public QHeaderView {
public:
    explicit EncabezadoCubo(RejillaCubo* rejilla)
        : QHeaderView(Qt::Horizontal, rejilla), rejilla_(*rejilla) {
        setSectionsClickable(true);
    }

    /// Los anchos acaban de repartirse: si un título de un renglón no cabe, todos tienen dos.
    void acomode() {
        int renglones = 1;
        bool corto = false;
        for (int c = 0; c < qMin(count(), kColumnasMedidas); ++c) {
            const QString t = titulo(c);
            renglones = qMax(renglones, int(t.count(QLatin1Char('\n'))) + 1);
            corto = corto || fontMetrics().size(0, t).width() > sectionSize(c) - margenes();
        }
        const bool otro = corto && renglones == 1;
        if (std::exchange(otro_renglon_, otro) != otro)
            emit geometriesChanged();
    }
    QSize sizeHint() const override {
        return QHeaderView::sizeHint() + QSize(0, otro_renglon_ ? fontMetrics().lineSpacing() : 0);
    }

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* opcion, int columna) const override {
        QHeaderView::initStyleOptionForIndex(opcion, columna);
        const QRect lugar(sectionViewportPosition(columna), 0, sectionSize(columna), height());
        const int sitio = a_la_vista(lugar, rejilla_, columna).width() - margenes();
        QStringList renglones = titulo(columna).split(QLatin1Char('\n'));
        const bool cabe_otro = height() >= 2 * fontMetrics().lineSpacing();
        if (renglones.size() == 1 && cabe_otro)
            renglones = en_dos(renglones.first(), opcion->fontMetrics, sitio);
        for (QString& r : renglones)
            r = opcion->fontMetrics.elidedText(r, Qt::ElideRight, sitio);
        opcion->text = renglones.join(QLatin1Char('\n'));
    }
    void paintSection(QPainter* pintor, const QRect& lugar, int columna) const override {
        if (const QRect visible = a_la_vista(lugar, rejilla_, columna); !visible.isEmpty())
            QHeaderView::paintSection(pintor, visible, columna);
    }

private:
    QString titulo(int columna) const {
        return model()->headerData(columna, Qt::Horizontal).toString();
    }
    int margenes() const {
        return 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    }
    /// En el primero, las palabras que quepan; lo demás, en el otro.
    static QStringList en_dos(const QString& titulo, const QFontMetrics& medidas, int sitio) {
        qsizetype parte = -1;
        if (medidas.horizontalAdvance(titulo) > sitio)
            for (qsizetype i = titulo.indexOf(' ');
                 i > 0 && medidas.horizontalAdvance(titulo.left(i)) <= sitio;
                 i = titulo.indexOf(' ', i + 1))
                parte = i;
        return parte < 0 ? QStringList{titulo}
                         : QStringList{titulo.left(parte), titulo.mid(parte + 1)};
    }

    const RejillaCubo& rejilla_;
    bool otro_renglon_ = false;
};

/// La celda que asoma a medias va en lo que se ve de ella: su nombre por el comienzo, su cifra
/// entera o en puntos.
class DelegadoCubo : public DelegadoConConsejo {
public:
    explicit DelegadoCubo(RejillaCubo* rejilla) : DelegadoConConsejo(rejilla), rejilla_(*rejilla) {}
    void paint(QPainter* pintor, const QStyleOptionViewItem& opcion,
               const QModelIndex& indice) const override {
        QStyleOptionViewItem o = opcion;
        o.rect = a_la_vista(opcion.rect, indice.column());
        if (!o.rect.isEmpty())
            QStyledItemDelegate::paint(pintor, o, indice);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* opcion, const QModelIndex& indice) const override {
        QStyledItemDelegate::initStyleOption(opcion, indice);
        if (indice.column() > 0)
            opcion->text = DelegadoCelda::cifra_entera(opcion->text, opcion->fontMetrics,
                                                       opcion->rect.width() - 2 * margen(rejilla_));
    }
    QRect a_la_vista(const QRect& celda, int columna) const override {
        return ::a_la_vista(celda, rejilla_, columna);
    }

private:
    const RejillaCubo& rejilla_;
};

} // namespace

RejillaCubo::RejillaCubo(QWidget* padre) : QTableView(padre) {
    setHorizontalHeader(new EncabezadoCubo(this));
    setItemDelegate(new DelegadoCubo(this));
    setModel(&modelo_);
    setObjectName(QStringLiteral("RejillaCubo"));
    setAccessibleName(QStringLiteral("Tabla de resultados"));
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1); // con el de Qt serían más altas que las demás
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + escalado(6));
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    horizontalHeader()->setHighlightSections(false);
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this](int columna) {
        if (columna > 0)
            alterne_columna(columna);
    });
    fija_ = new ColumnaFija(this);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        viewport()->update(); // de la que asoma a medias no basta pintar lo que acaba de entrar
        horizontalHeader()->viewport()->update();
    });
    connect(fija_, &ColumnaFija::fila_pulsada, this,
            [this](int fila) { setCurrentIndex(modelo_.index(fila, currentIndex().column())); });
    connect(fija_, &ColumnaFija::fila_doble_pulsada, this, [this](int) { alterne_actual(); });
}

void RejillaCubo::scrollTo(const QModelIndex& celda, ScrollHint como) {
    QTableView::scrollTo(celda, como);
    if (const int tapado = fija_->tapado(celda); tapado > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - tapado);
}

int RejillaCubo::ancho_fijo() const {
    return fija_ && fija_->isVisible() ? fija_->width() : 0;
}

int RejillaCubo::lo_que_falta() const {
    const int total = std::accumulate(pedidos_.begin(), pedidos_.end(), 0);
    return qMax(horizontalScrollBar()->maximum(), total - viewport()->width());
}

void RejillaCubo::sin_moverse(const std::function<void()>& cambio) {
    const QModelIndex antes = currentIndex();
    const int fila = antes.isValid() ? antes.row() : 0,
              columna = antes.isValid() ? antes.column() : 0;
    cambio();
    if (modelo_.rowCount() > 0)
        setCurrentIndex(modelo_.index(qMin(fila, modelo_.rowCount() - 1),
                                      qMin(columna, modelo_.columnCount() - 1)));
}

void RejillaCubo::disponga(const Cubo& cubo, const DisposicionCubo& disposicion) {
    sin_moverse([&] { modelo_.disponga(cubo, disposicion); });
    cubo_ = &cubo;
    ajuste_anchos();
}

void RejillaCubo::ajuste_anchos() {
    constexpr int kFilasMedidas = 200;
    const QFontMetrics letra(QFont(font().family(), font().pointSize(), QFont::Bold));
    const auto mida = [&](const QModelIndex& celda) {
        const bool de_total = celda.data(Qt::FontRole).isValid();
        return (de_total ? letra : fontMetrics()).horizontalAdvance(celda.data().toString());
    };
    pedidos_.clear();
    minimos_.clear();
    titulos_.clear();
    puestos_.clear();
    for (int c = 0; c < qMin(modelo_.columnCount(), kColumnasMedidas); ++c) {
        int ancho = 0;
        const QString titulo = modelo_.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
        const QFontMetrics medidas = horizontalHeader()->fontMetrics();
        for (const QString& renglon : titulo.split('\n'))
            ancho = qMax(ancho, medidas.horizontalAdvance(renglon));
        int celdas = 0;
        for (int f = 0; f < qMin(modelo_.rowCount(), kFilasMedidas); ++f)
            celdas = qMax(celdas, mida(modelo_.index(f, c)));
        pedidos_ << qMax(ancho, celdas) + paso(2);
        // Un título se corta; una cifra, no.
        minimos_ << qMin(pedidos_.last(),
                         c == 0 ? paso(24) : celdas + 2 * DelegadoConConsejo::margen(*this) + 2);
        titulos_ << paso(2) +
                        (titulo.contains('\n') ? ancho : ancho_en_dos_renglones(titulo, medidas));
        puestos_ << columnWidth(c);
    }
    reparta();
}

void RejillaCubo::reparta() {
    // Un nombre largo se corta solo si todas no caben a la vez.
    const int total = std::accumulate(pedidos_.begin(), pedidos_.end(), 0);
    const bool todas = pedidos_.size() == modelo_.columnCount();
    const bool caben = todas && total <= viewport()->width();
    // La primera no se desplaza: deja a la vista al menos la mitad, y entera cualquier cifra.
    const int cifra =
        minimos_.size() > 1 ? *std::max_element(minimos_.begin() + 1, minimos_.end()) : 0;
    const int mitad = qMax(paso(12), qMin(viewport()->width() / 2, viewport()->width() - cifra));
    const int sobra = viewport()->width() - std::accumulate(minimos_.begin(), minimos_.end(), 0);
    int libre = todas ? qMax(0, sobra) : 0;
    QVector<int> anchos, topes = pedidos_;
    if (!topes.isEmpty())
        topes[0] = qMin(topes[0], mitad);
    // Apretadas dan su aire y lo que deja leer el título, antes que desplazarse.
    const bool apretadas = todas && sobra >= 0;
    const auto comoda = [&](int c) {
        return qMin(topes[c], c == 0 ? minimos_[c] : qMax(minimos_[c] + paso(1), paso(20)));
    };
    for (int c = 0; c < topes.size(); ++c)
        anchos << qMin(topes[c], caben ? pedidos_[c] : apretadas ? minimos_[c] : comoda(c));
    const auto de_hasta = [&](const auto& hasta) {
        for (int c = 0; c < topes.size(); ++c) {
            const int mas = qBound(0, hasta(c) - anchos[c], libre);
            anchos[c] += mas;
            libre -= mas;
        }
    };
    if (!caben) {
        de_hasta(comoda);
        // Un título entero, en sus dos renglones, antes que el final de un nombre.
        de_hasta([&](int c) { return c == 0 ? anchos[0] : qMin(topes[c], titulos_[c]); });
        de_hasta([&](int c) { return topes[c]; });
    }
    // Y el nombre cede por lo que le falte a la cifra que asoma.
    int asoma = anchos.value(0) - viewport()->width();
    for (int c = 1; c < anchos.size() && asoma <= 0; ++c)
        if ((asoma += anchos[c]) > 0 && asoma <= anchos[0] - paso(12))
            anchos[0] -= asoma;
    for (int c = 0; c < anchos.size(); ++c)
        if (columnWidth(c) == puestos_[c]) // las que el usuario cambió son suyas
            setColumnWidth(c, puestos_[c] = anchos[c]);
    static_cast<EncabezadoCubo*>(horizontalHeader())->acomode();
}

void RejillaCubo::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    reparta();
}

void RejillaCubo::alterne_actual() {
    if (currentIndex().isValid())
        sin_moverse([this] { modelo_.alterne(currentIndex().row()); });
}

void RejillaCubo::alterne_columna(int columna) {
    const int fila = qMax(0, currentIndex().row());
    const int nodo = modelo_.nodo_columna(columna), valor = modelo_.valor_de_columna(columna);
    if (!modelo_.alterne_columna(columna))
        return;
    ajuste_anchos();
    // El cursor sigue en la que se plegó, que cambió de lugar: la misma tecla la despliega.
    int c = 1;
    while (modelo_.nodo_columna(c) != nodo || modelo_.valor_de_columna(c) != valor)
        ++c;
    setCurrentIndex(modelo_.index(fila, c));
}

void RejillaCubo::mueva_nivel(int paso) {
    const int nuevo = otro_nivel(modelo_.nivel(), modelo_.disposicion().filas.size(), paso);
    if (nuevo == modelo_.nivel())
        return;
    sin_moverse([&] { modelo_.nivel(nuevo); });
    emit nivel_cambiado(nuevo);
}

void RejillaCubo::mueva_nivel_columnas(int paso) {
    const int nuevo =
        otro_nivel(modelo_.nivel_columnas(), modelo_.disposicion().columnas.size(), paso);
    if (nuevo == modelo_.nivel_columnas())
        return;
    sin_moverse([&] { modelo_.nivel_columnas(nuevo); });
    ajuste_anchos();
    emit nivel_columnas_cambiado(nuevo);
}

void RejillaCubo::copie() const {
    const QItemSelection seleccion = selectionModel()->selection();
    if (seleccion.isEmpty())
        return;
    QStringList filas;
    const QItemSelectionRange& r = seleccion.first();
    for (int f = r.top(); f <= r.bottom(); ++f) {
        QStringList celdas;
        for (int c = r.left(); c <= r.right(); ++c)
            celdas << modelo_.index(f, c).data().toString().trimmed();
        filas << celdas.join('\t');
    }
    QApplication::clipboard()->setText(filas.join('\n'));
}

void RejillaCubo::guarde() {
    if (!cubo_ || cubo_->hechos() == 0) {
        QApplication::beep();
        return;
    }
    const auto escogido = pida_archivo(this, {.nombre = "guardar_cubo",
                                              .titulo = QStringLiteral("Guardar cubo"),
                                              .sugerido = nombre_archivo,
                                              .filtro = filtro_para_qt(kFiltroExportacion),
                                              .extension = extension_del_filtro,
                                              .ultimo_filtro = true}); // el libro
    if (!escogido)
        return;
    TablaDeCubo tabla(modelo_, titulo_impreso.isEmpty() ? nombre_archivo : titulo_impreso);
    exporte(tabla, formato_del_filtro(escogido->filtro), escogido->ruta);
}

void RejillaCubo::keyPressEvent(QKeyEvent* evento) {
    const int tecla = evento->key(), columna = currentIndex().column();
    const Qt::KeyboardModifiers con = evento->modifiers();
    const bool pliega = tecla == Qt::Key_Space || tecla == Qt::Key_Return || tecla == Qt::Key_Enter;
    const int paso = int(tecla == Qt::Key_Plus) - int(tecla == Qt::Key_Minus);
    if (evento->matches(QKeySequence::Copy))
        copie();
    else if (pliega && !(con & Qt::ShiftModifier))
        alterne_actual();
    else if (tecla == Qt::Key_Space && columna > 0)
        alterne_columna(columna);
    else if (paso != 0 && con & Qt::KeypadModifier)
        con& Qt::ControlModifier ? mueva_nivel_columnas(paso) : mueva_nivel(paso);
    else
        QTableView::keyPressEvent(evento);
}

void RejillaCubo::mouseDoubleClickEvent(QMouseEvent*) {
    alterne_actual();
}

void RejillaCubo::paintEvent(QPaintEvent* evento) {
    QTableView::paintEvent(evento);
    if ((cubo_ && cubo_->hechos() > 0) || texto_vacio.isEmpty())
        return;
    QPainter p(viewport());
    p.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    p.drawText(viewport()->rect(), Qt::AlignCenter, texto_vacio);
}
