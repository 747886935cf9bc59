// Columnas, anchos, foco y lo que la rejilla hace cuando su conjunto avisa.
#include "toolkit/rejilla/rejilla.h"

#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/editor_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/indicador_filas.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/pie_rejilla.h"

#include <QScrollBar>
#include <QSettings>

namespace {

constexpr int kFilasMedidas = 100;   ///< filas que deciden el ancho de una columna
constexpr int kEsperaAnchosMs = 400; ///< el arrastre de un título se guarda una vez

/// La cifra de más letras entre esas filas, sin dar formato a cada una: la mayor y la menor.
int ancho_de_cifra(const Rejilla& rejilla, int columna, int desde, int hasta) {
    const ModeloConjunto& modelo = rejilla.modelo();
    int mayor = desde, menor = desde;
    Moneda alta, baja;
    for (int f = desde; f < hasta; ++f) {
        const Moneda v = modelo.valor(f, columna).moneda();
        if (v > alta)
            alta = v, mayor = f;
        if (v < baja)
            baja = v, menor = f;
    }
    int ancho = 0;
    for (const int f : {mayor, menor})
        if (f < hasta)
            ancho =
                qMax(ancho, rejilla.itemDelegate()->sizeHint({}, modelo.index(f, columna)).width());
    return ancho;
}

void haga_caber_cifras(Rejilla& rejilla, int desde, int hasta) {
    for (int c = 0; c < rejilla.cuenta_columnas(); ++c)
        if (rejilla.modelo().numerica(c) && !rejilla.isColumnHidden(c))
            rejilla.setColumnWidth(
                c, qMax(rejilla.columnWidth(c), ancho_de_cifra(rejilla, c, desde, hasta)));
}

} // namespace

QString Rejilla::compania_impresa;

ColumnaRejilla::ColumnaRejilla(const DefinicionColumna& d, const std::function<void()>& aviso)
    : FieldName(d.campo), Titulo(d.titulo, aviso), DisplayFormat(d.DisplayFormat, aviso),
      Visible(!(d.opciones & Oculta), aviso), ReadOnly(d.opciones & SoloLectura, aviso),
      ConSuma(d.opciones & Suma, aviso), PickList({}, aviso), KeyList({}, aviso), ancho(d.ancho),
      casilla(d.opciones & Casilla) {}

Rejilla::Rejilla(QWidget* padre, ConjuntoDatos* conjunto)
    : QTableView(padre), modelo_(new ModeloConjunto(*this)),
      encabezado_(new EncabezadoRejilla(*this)), indicador_(new IndicadorFilas(*this)),
      pie_(new PieRejilla(*this)), reloj_anchos_(new QTimer(this)) {
    setHorizontalHeader(encabezado_);
    setVerticalHeader(indicador_);
    setModel(modelo_);
    setItemDelegate(new DelegadoCelda(*this));
    setEditTriggers(NoEditTriggers); // el editor lo maneja la rejilla, que puede rehusar
    setSelectionMode(ContiguousSelection);
    setSelectionBehavior(SelectItems);
    setCornerButtonEnabled(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    mida_filas();

    editor_ = new EditorCelda(viewport());
    editor_->installEventFilter(this);
    connect(editor_, &QLineEdit::textEdited, this, [this] {
        // Lo digitado pone la fila en edición; si no se puede, no se digitó nada.
        if (!asegure_edicion())
            cierre_editor();
        else if (OnDigitado)
            proteja(OnDigitado);
    });
    connect(editor_, &EditorCelda::escogida, this, [this] {
        if (asegure_edicion())
            termine_edicion();
    });

    // Los títulos ordenan o avisan: no seleccionan la columna.
    disconnect(encabezado_, SIGNAL(sectionPressed(int)), this, nullptr);
    disconnect(encabezado_, SIGNAL(sectionEntered(int)), this, nullptr);
    connect(encabezado_, &QHeaderView::sectionClicked, this, &Rejilla::titulo_oprimido);
    connect(encabezado_, &QHeaderView::sectionResized, this, [this] {
        pie_->update();
        ubique_editor();
        if (!ajustando_anchos_ && ajustes_ && anchos_puestos_)
            reloj_anchos_->start(kEsperaAnchosMs);
    });
    reloj_anchos_->setSingleShot(true);
    connect(reloj_anchos_, &QTimer::timeout, this, &Rejilla::guarde_anchos);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        pie_->update();
        ubique_editor();
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        ubique_editor();
        traiga_cerca_del_final();
    });
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* ahora) { foco_cambiado(ahora); });
    if (conjunto)
        ate(conjunto);
}

Rejilla::~Rejilla() {
    disconnect(qApp, nullptr, this, nullptr);
    if (reloj_anchos_->isActive())
        guarde_anchos();
    modelo_->enlace(nullptr);
}

// ---------------------------------------------------------------- columnas

void Rejilla::ate(ConjuntoDatos* conjunto) {
    cierre_editor();
    modelo_->cambie_conjunto(conjunto);
    conjunto_reiniciado();
}

ConjuntoDatos* Rejilla::conjunto() const {
    return modelo_->conjunto();
}

bool Rejilla::editable() const {
    return !ReadOnly && conjunto() && conjunto()->Active();
}

void Rejilla::columnas(const QVector<DefinicionColumna>& definiciones) {
    columnas_automaticas_ = false;
    rehaga_columnas(definiciones);
}

void Rejilla::columnas_del_conjunto() {
    columnas_automaticas_ = true;
    QVector<DefinicionColumna> definiciones;
    if (conjunto() && conjunto()->Active())
        for (int i = 0; i < conjunto()->FieldCount(); ++i) {
            const Campo& c = conjunto()->Fields(i);
            if (!c.Visible || c.clase == ClaseCampo::Blob || c.clase == ClaseCampo::Conjunto)
                continue;
            const int ancho = c.clase == ClaseCampo::Texto ? qBound(4, c.Size, 40) : 14;
            definiciones << DefinicionColumna{c.FieldName, c.etiqueta(), ancho};
        }
    rehaga_columnas(definiciones);
}

void Rejilla::rehaga_columnas(const QVector<DefinicionColumna>& definiciones) {
    cierre_editor();
    modelo_->rehaga([&] {
        columnas_.clear();
        for (const auto& d : definiciones)
            columnas_.push_back(
                std::make_unique<ColumnaRejilla>(d, [this] { columna_cambiada(); }));
    });
    encabezado_->rehaga_filtros();
    columna_sangrada_ = campo_sangrado_.isEmpty() ? -1 : columna_de(campo_sangrado_);
    campo_orden_.clear();
    encabezado_->setSortIndicatorShown(false);
    columna_cambiada();
    anchos_puestos_ = false;
    aplique_anchos();
    cursor_movido();
}

ColumnaRejilla& Rejilla::columna(int indice) const {
    if (indice < 0 || indice >= int(columnas_.size()))
        throw ErrorDatos(QStringLiteral("List index out of bounds (%1)").arg(indice), {},
                         QStringLiteral("La lista no tiene la columna %1.").arg(indice));
    return *columnas_[size_t(indice)];
}

int Rejilla::columna_de(const QString& campo) const {
    for (int i = 0; i < int(columnas_.size()); ++i)
        if (columnas_[size_t(i)]->FieldName.compare(campo, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

void Rejilla::sangre(const QString& campo, std::function<int(int fila)> nivel) {
    campo_sangrado_ = campo;
    nivel_ = std::move(nivel);
    columna_sangrada_ = columna_de(campo_sangrado_);
    viewport()->update();
}

void Rejilla::lista(int indice, const QStringList& textos, const QStringList& valores) {
    columna(indice).PickList = textos;
    columna(indice).KeyList = valores;
}

void Rejilla::columna_cambiada() {
    for (int i = 0; i < int(columnas_.size()); ++i)
        setColumnHidden(i, !columnas_[size_t(i)]->Visible);
    modelo_->columnas_cambiadas();
    const int actual = SelectedIndex();
    if (actual >= 0 && isColumnHidden(actual) && !moviendo_)
        fije_actual(conjunto() ? conjunto()->RecNo() : -1, columna_visible(0, 1));
    encabezado_->updateGeometry();
    pie_->update();
    viewport()->update();
}

// ---------------------------------------------------------------- anchos

void Rejilla::mida_filas() {
    indicador_->setMinimumSectionSize(1);
    indicador_->setDefaultSectionSize(fontMetrics().height() + escalado(6));
}

void Rejilla::ajuste_anchos() {
    const bool antes = std::exchange(ajustando_anchos_, true);
    const QFontMetrics medidas(font());
    QFont negrilla = font();
    negrilla.setBold(true);
    const QFontMetrics medidas_pie(negrilla);
    const int aire = DelegadoCelda::margen(medidas);
    const int filas = qMin(modelo_->rowCount(), kFilasMedidas);
    const QStyleOptionViewItem opcion;
    QVector<int> anchos, contenidos;
    int libre = viewport()->width();
    for (int c = 0; c < int(columnas_.size()); ++c) {
        const ColumnaRejilla& columna = *columnas_[size_t(c)];
        const int declarado = ancho_caracteres(medidas, columna.ancho);
        int contenido = 0;
        for (int f = 0; f < filas && !columna.casilla; ++f)
            contenido =
                qMax(contenido, itemDelegate()->sizeHint(opcion, modelo_->index(f, c)).width());
        if (modelo_->numerica(c))
            contenido = qMax(contenido, ancho_de_cifra(*this, c, filas, modelo_->rowCount()));
        if (columna.ConSuma)
            contenido = qMax(contenido, medidas_pie.horizontalAdvance(pie_->texto(c)) + 4 * aire);
        // El contenido manda, sin que un nombre largo saque de la vista lo demás ni una columna
        // vacía se quede sin dónde escribir. Un importe siempre cabe.
        int ancho = declarado;
        if (filas > 0 && !columna.casilla)
            ancho = qBound(declarado * 6 / 10, contenido,
                           modelo_->numerica(c) ? qMax(declarado, contenido) : declarado * 3 / 2);
        ancho = qMax(encabezado_->sectionSizeHint(c), ancho);
        anchos << ancho;
        contenidos << contenido;
        if (!isColumnHidden(c))
            libre -= ancho;
    }
    for (int c = 0; c < int(columnas_.size()); ++c) {
        // Lo que sobra a la derecha es de los textos que no caben.
        if (const int falta = contenidos[c] - anchos[c];
            isVisible() && !isColumnHidden(c) && falta > 0 && libre > 0) {
            const int mas = qMin(falta, libre);
            anchos[c] += mas;
            libre -= mas;
        }
        setColumnWidth(c, anchos[c]);
    }
    ajustando_anchos_ = antes;
}

void Rejilla::aplique_anchos() {
    if (columnas_.empty())
        return;
    const bool antes = std::exchange(ajustando_anchos_, true);
    ajuste_anchos();
    bool guardados = false;
    if (ajustes_) {
        const qreal unidad = QFontMetricsF(font()).averageCharWidth();
        for (const QString& par : ajustes_->value(clave_anchos_).toStringList()) {
            const int c = columna_de(par.section('=', 0, 0));
            const double ancho = par.section('=', 1).toDouble();
            if (c >= 0 && ancho > 0) {
                setColumnWidth(c, qRound(ancho * unidad));
                guardados = true;
            }
        }
    }
    // Sin filas todavía, el contenido decidirá cuando llegue.
    anchos_puestos_ = guardados || modelo_->rowCount() > 0;
    ajustando_anchos_ = antes;
}

void Rejilla::guarde_en(QSettings* ajustes, const QString& clave) {
    ajustes_ = ajustes;
    clave_anchos_ = clave + QStringLiteral("/anchos");
    aplique_anchos();
}

void Rejilla::guarde_anchos() {
    if (!ajustes_)
        return;
    // En caracteres, para que valgan con otra letra u otra escala.
    const qreal unidad = QFontMetricsF(font()).averageCharWidth();
    QStringList anchos;
    for (int c = 0; c < int(columnas_.size()); ++c)
        if (!isColumnHidden(c))
            anchos << QStringLiteral("%1=%2")
                          .arg(columnas_[size_t(c)]->FieldName)
                          .arg(columnWidth(c) / unidad, 0, 'f', 2);
    ajustes_->setValue(clave_anchos_, anchos);
}

// ---------------------------------------------------------------- geometría y pintado

void Rejilla::updateGeometries() {
    if (geometria_)
        return;
    geometria_ = true;
    QTableView::updateGeometries();
    if (pie_ && pie_->isVisibleTo(this)) {
        // La base reparte toda la altura: el pie la toma al final y las barras se vuelven a medir.
        const QMargins margenes = viewportMargins();
        const int alto = pie_->sizeHint().height();
        setViewportMargins(margenes.left(), margenes.top(), 0, alto);
        const QRect filas = viewport()->geometry();
        indicador_->setGeometry(indicador_->x(), filas.top(), indicador_->width(), filas.height());
        pie_->setGeometry(indicador_->x(), filas.bottom() + 1, filas.right() + 1 - indicador_->x(),
                          alto);
        const int caben = qMax(1, filas.height() / indicador_->defaultSectionSize());
        verticalScrollBar()->setPageStep(caben);
        verticalScrollBar()->setRange(0, qMax(0, modelo_->rowCount() - caben));
    }
    geometria_ = false;
    ubique_editor();
    // Un primer paquete que no llena la vista no se deja desplazar: el siguiente se pide ya.
    if (isVisible() && modelo_->canFetchMore({}) &&
        verticalScrollBar()->maximum() <= verticalScrollBar()->pageStep())
        QMetaObject::invokeMethod(this, &Rejilla::traiga_cerca_del_final, Qt::QueuedConnection);
}

void Rejilla::pie(bool visible) {
    pie_->setVisible(visible);
    if (!visible)
        setViewportMargins(viewportMargins().left(), viewportMargins().top(), 0, 0);
    updateGeometries();
}

bool Rejilla::pie() const {
    return pie_->isVisibleTo(this);
}

const Rejilla::Aspecto& Rejilla::aspecto_de(int fila) const {
    if (fila != fila_aspecto_) {
        aspecto_ = {font(), {}, {}, 0};
        fila_aspecto_ = fila;
        if (nivel_ && conjunto() && conjunto()->Active() && fila < conjunto()->RecordCount())
            aspecto_.nivel = qMax(0, nivel_(fila));
        if (OnGetCellParams && conjunto() && conjunto()->Active() &&
            fila < conjunto()->RecordCount())
            OnGetCellParams(fila, aspecto_.letra, aspecto_.frente, aspecto_.fondo);
    }
    return aspecto_;
}

void Rejilla::showEvent(QShowEvent* evento) {
    QTableView::showEvent(evento);
    // Antes de mostrarse no se sabía cuánto espacio hay.
    if (!evento->spontaneous() && !std::exchange(mostrada_, true))
        aplique_anchos();
}

void Rejilla::paintEvent(QPaintEvent* evento) {
    fila_aspecto_ = -1;
    QTableView::paintEvent(evento);
    if (modelo_->rowCount() > 0 || texto_vacio.isEmpty() || !conjunto() || !conjunto()->Active())
        return;
    QPainter pintor(viewport());
    pintor.setPen(palette().color(QPalette::PlaceholderText));
    const int aire = paso(1);
    pintor.drawText(
        viewport()->rect().adjusted(aire, aire * 2, -aire, -aire), Qt::AlignHCenter | Qt::AlignTop,
        fontMetrics().elidedText(texto_vacio, Qt::ElideRight, viewport()->width() - 2 * aire));
}

void Rejilla::changeEvent(QEvent* evento) {
    QTableView::changeEvent(evento);
    if (evento->type() == QEvent::FontChange || evento->type() == QEvent::StyleChange) {
        fila_aspecto_ = -1;
        mida_filas();
        aplique_anchos();
    }
}

// ---------------------------------------------------------------- avisos del conjunto

void Rejilla::conjunto_reiniciado() {
    if (columnas_automaticas_ && conjunto() && conjunto()->Active()) {
        QStringList campos, vistas;
        for (int i = 0; i < conjunto()->FieldCount(); ++i) {
            const Campo& c = conjunto()->Fields(i);
            if (c.Visible && c.clase != ClaseCampo::Blob && c.clase != ClaseCampo::Conjunto)
                campos << c.FieldName;
        }
        for (const auto& c : columnas_)
            vistas << c->FieldName;
        if (campos != vistas)
            columnas_del_conjunto();
    }
    if (digitando() && !(conjunto() && conjunto()->editando()) && editor_->modificado())
        cierre_editor();
    fila_aspecto_ = -1;
    extremo_ = QModelIndex();
    todo_ = false;
    if (!marcas_.empty() && !escribiendo_)
        quite_marcas();
    if (!anchos_puestos_ && modelo_->rowCount() > 0 && !ajustando_anchos_)
        aplique_anchos();
    cursor_movido();
    pie_->update();
    indicador_->viewport()->update();
}

void Rejilla::cursor_movido() {
    if (!conjunto() || !conjunto()->Active() || columnas_.empty()) {
        cierre_editor();
        fije_actual(-1, -1);
        return;
    }
    int columna = moviendo_ && columna_destino_ >= 0 ? columna_destino_ : SelectedIndex();
    if (columna < 0 || columna >= cuenta_columnas() || isColumnHidden(columna))
        columna = columna_visible(0, 1);
    if (digitando() && currentIndex().row() != conjunto()->RecNo())
        cierre_editor();
    fije_actual(conjunto()->RecNo(), columna);
    indicador_->viewport()->update();
}

void Rejilla::estado_cambiado() {
    if (!conjunto()->editando() && digitando() && editor_->modificado() && !escribiendo_)
        cierre_editor();
    indicador_->viewport()->update();
}

void Rejilla::campo_cambiado(Campo* campo) {
    pie_->update();
    // Otro escribió en la celda abierta (el resultado de una búsqueda): lo digitado ya no vale.
    if (digitando() && !escribiendo_ && campo && campo == campo_actual())
        cierre_editor();
}

void Rejilla::filas_corridas(int desde, int cuantas) {
    std::set<int> nuevas;
    for (const int m : marcas_) {
        if (m < desde)
            nuevas.insert(m);
        else if (cuantas > 0 || m >= desde - cuantas)
            nuevas.insert(m + cuantas);
    }
    marcas_ = std::move(nuevas);
    fila_aspecto_ = -1;
    if (!anchos_puestos_ && modelo_->rowCount() > 0 && !conjunto()->editando())
        aplique_anchos();
    // Un paquete recién traído puede traer una cifra más larga; el ancho del usuario es suyo.
    else if (cuantas > 1 && !(ajustes_ && ajustes_->contains(clave_anchos_))) {
        const bool antes = std::exchange(ajustando_anchos_, true);
        haga_caber_cifras(*this, desde, desde + cuantas);
        ajustando_anchos_ = antes;
    }
    if (todo_ && cuantas > 0)
        seleccione_todo();
    pie_->update();
}

void Rejilla::traiga_cerca_del_final() {
    const QScrollBar& barra = *verticalScrollBar();
    if (barra.value() + barra.pageStep() >= barra.maximum() && modelo_->canFetchMore({}))
        modelo_->fetchMore({});
}

// ---------------------------------------------------------------- títulos y filtros

void Rejilla::titulo_oprimido(int columna) {
    if (!orden_local) {
        if (OnTitleClick && this->columna(columna).campo)
            proteja([&] { OnTitleClick(*this->columna(columna).campo); });
        return;
    }
    if (deje_celda())
        proteja([&] { ordene_por(columna); });
}

void Rejilla::ordene_por(int columna) {
    const ColumnaRejilla& c = this->columna(columna);
    if (!c.campo)
        return;
    const bool descendente = campo_orden_ == c.FieldName && !orden_descendente_;
    // Las marcas siguen a sus filas por la llave.
    const auto llave = conjunto()->campos_llave();
    std::set<QStringList> marcadas;
    const auto llave_de = [&](int fila) {
        QStringList valores;
        for (const Campo* k : llave)
            valores << conjunto()->valor_en(fila, *k).texto();
        return valores;
    };
    if (!llave.isEmpty())
        for (const int m : marcas_)
            marcadas.insert(llave_de(m));
    conjunto()->IndexFieldNames(c.FieldName, descendente);
    campo_orden_ = c.FieldName;
    orden_descendente_ = descendente;
    encabezado_->setSortIndicator(columna, descendente ? Qt::DescendingOrder : Qt::AscendingOrder);
    encabezado_->setSortIndicatorShown(true);
    if (!marcadas.empty())
        for (int i = 0; i < conjunto()->RecordCount(); ++i)
            if (marcadas.count(llave_de(i)))
                marque(i);
}

Moneda Rejilla::suma(int columna) const {
    return modelo_->suma(columna);
}

void Rejilla::filtro_visible(bool visible) {
    encabezado_->muestre_filtros(visible);
    updateGeometries();
}

bool Rejilla::filtro_visible() const {
    return encabezado_->con_filtros();
}

bool Rejilla::en_fila_de_filtro() const {
    return encabezado_->enfocado();
}

void Rejilla::limpie_filtros() {
    encabezado_->limpie();
}
