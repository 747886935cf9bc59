// Columnas, anchos, foco y lo que la rejilla hace cuando su conjunto avisa.
#include "toolkit/rejilla/rejilla.h"

#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/columna_entrada.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/editor_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/indicador_filas.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/pie_rejilla.h"
#include "toolkit/rejilla/tabla_rejilla.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSettings>

namespace {

constexpr int kEsperaAnchosMs = 400; ///< el arrastre de un título se guarda una vez

/// Qué barras hacen falta para lo que hay en `sitio`, que no cuenta con ninguna. La una le quita
/// espacio a la otra: se deciden juntas.
void ajuste_barras(Rejilla& r, QSize sitio) {
    const int grueso = r.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &r);
    const int fila = r.verticalHeader()->defaultSectionSize(), filas = r.model()->rowCount();
    const int ancho = r.horizontalHeader()->length();
    bool al_lado = filas * fila > sitio.height();
    const bool abajo = ancho > sitio.width() - (al_lado ? grueso : 0);
    al_lado = filas * fila > sitio.height() - (abajo ? grueso : 0);
    const QSize queda = sitio - QSize(al_lado ? grueso : 0, abajo ? grueso : 0);
    const int caben = qMax(1, queda.height() / fila);
    r.verticalScrollBar()->setPageStep(caben);
    r.verticalScrollBar()->setRange(0, qMax(0, filas - caben));
    r.horizontalScrollBar()->setPageStep(queda.width());
    r.horizontalScrollBar()->setRange(0, qMax(0, ancho - queda.width()));
}

} // namespace

QString Rejilla::compania_impresa;

ColumnaRejilla::ColumnaRejilla(const DefinicionColumna& d, const std::function<void()>& aviso)
    : FieldName(d.campo), Titulo(d.titulo, aviso), DisplayFormat(d.DisplayFormat, aviso),
      Visible(!(d.opciones & Oculta), aviso), ReadOnly(d.opciones & SoloLectura, aviso),
      ConSuma(d.opciones & Suma, aviso), PickList({}, aviso), KeyList({}, aviso), ancho(d.ancho),
      casilla(d.opciones & Casilla), cifra(d.opciones & Numerica), codigo(d.opciones & Codigo) {}

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
    connect(encabezado_, &QHeaderView::sectionResized, this, [this](int c, int antes, int ancho) {
        pie_->update();
        ubique_editor();
        // Mostrar u ocultar una columna, o repartir el espacio, no es escoger su ancho.
        if (encabezado_->anchos().repartiendo() || !encabezado_->arrastrando() || antes == 0 ||
            ancho == 0)
            return;
        encabezado_->anchos().escoja(c, ancho);
        reloj_anchos_->start(kEsperaAnchosMs);
    });
    reloj_anchos_->setSingleShot(true);
    connect(reloj_anchos_, &QTimer::timeout, this, [this] {
        guarde_anchos();
        encabezado_->anchos().mida(); // los textos se quedan con lo que el arrastre dejó
    });
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        // De la que asoma a medias no basta pintar lo que acaba de entrar.
        for (QWidget* w : {viewport(), encabezado_->viewport(), static_cast<QWidget*>(pie_)})
            w->update();
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
    const bool por_guardar = reloj_anchos_->isActive();
    modelo_->enlace(nullptr);
    if (por_guardar)
        guarde_anchos();
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
    // A la vista y vacía también: un título no se queda con el sitio que tenía entre otras
    // columnas.
    if (anchos_puestos_ || isVisible())
        aplique_anchos();
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
    encabezado_->anchos().mida();
}

void Rejilla::aplique_anchos() {
    if (columnas_.empty() || ajustando_anchos_)
        return;
    const bool antes = std::exchange(ajustando_anchos_, true);
    ajuste_anchos();
    // Sin filas todavía, el contenido decidirá cuando llegue.
    anchos_puestos_ = modelo_->rowCount() > 0;
    ajustando_anchos_ = antes;
}

bool Rejilla::olvide_anchos() {
    // Lo que se empieza a digitar no hereda el sitio de las cifras de lo que ya se grabó. Una
    // consulta sí: al volver a leer se vacía y se llena, y no hay que repartir ni pintar dos veces.
    if (modelo_->rowCount() > 0 || !editable() || encabezado_->filtrando())
        return false;
    aplique_anchos();
    return true;
}

void Rejilla::mida_desde(int fila, int cuantas) {
    if (aplaza_medida())
        por_medir_ = true; // la otra página no le cuesta a la que se ve
    else if (cuantas == 1 && conjunto()->editando())
        encabezado_->anchos().mida_fila(fila);
    else
        encabezado_->anchos().mida_filas(fila, fila + cuantas);
}

void Rejilla::guarde_en(QSettings* ajustes, const QString& clave) {
    ajustes_ = ajustes;
    clave_anchos_ = clave + QStringLiteral("/anchos");
    QMap<QString, double> escogidos;
    for (const QString& par : ajustes_->value(clave_anchos_).toStringList())
        if (const double ancho = par.section('=', 1).toDouble(); ancho > 0)
            escogidos.insert(par.section('=', 0, 0), ancho);
    encabezado_->anchos().escogidos(escogidos);
    aplique_anchos();
}

void Rejilla::guarde_anchos() {
    // Solo los que el usuario arrastró: los demás siguen acomodándose al contenido y a la ventana.
    const QMap<QString, double> escogidos = encabezado_->anchos().escogidos();
    QStringList anchos;
    for (auto a = escogidos.begin(); a != escogidos.end(); ++a)
        anchos << QStringLiteral("%1=%2").arg(a.key()).arg(a.value(), 0, 'f', 2);
    if (ajustes_ && !anchos.isEmpty())
        ajustes_->setValue(clave_anchos_, anchos);
}

// ---------------------------------------------------------------- geometría y pintado

void Rejilla::updateGeometries() {
    if (geometria_)
        return;
    const auto acomode = [this] {
        const QScopedValueRollback<bool> guarda(geometria_, true);
        const int desplazada = verticalScrollBar()->value();
        QTableView::updateGeometries();
        if (!pie_ || !pie_->isVisibleTo(this))
            return;
        // La base reparte toda la altura: el pie toma la suya al final. Primero las barras, para
        // que el margen del pie no las quite y las ponga sin acabar nunca.
        const QMargins margenes = viewportMargins();
        const int alto = pie_->sizeHint().height();
        ajuste_barras(*this, maximumViewportSize() - QSize(0, alto));
        setViewportMargins(margenes.left(), margenes.top(), 0, alto);
        const QRect filas = viewport()->geometry();
        indicador_->setGeometry(indicador_->x(), filas.top(), indicador_->width(), filas.height());
        pie_->setGeometry(indicador_->x(), filas.bottom() + 1, filas.right() + 1 - indicador_->x(),
                          alto);
        verticalScrollBar()->setValue(desplazada);
    };
    acomode();
    encabezado_->anchos().reparta();
    // Con otros anchos puede hacer falta otra barra, sin esperar a que la base vuelva a mirar.
    if (horizontalScrollBar()->maximum() != qMax(0, encabezado_->length() - viewport()->width()))
        acomode();
    if (mostrada_ && encabezado_->cambio_el_alto())
        updateGeometry();
    ubique_editor();
    // Un primer paquete que no llena la vista no se deja desplazar: el siguiente se pide ya.
    if (isVisible() && modelo_->canFetchMore({}) &&
        verticalScrollBar()->maximum() <= verticalScrollBar()->pageStep())
        QMetaObject::invokeMethod(this, &Rejilla::traiga_cerca_del_final, Qt::QueuedConnection);
}

QSize Rejilla::minimumSizeHint() const {
    constexpr int kFilas = 4;
    const int alto = (mostrada_ ? encabezado_->alto_con_barra() : encabezado_->alto_sencillo()) +
                     kFilas * verticalHeader()->defaultSectionSize() +
                     (pie() ? pie_->sizeHint().height() : 0) + 2 * frameWidth();
    return {QTableView::minimumSizeHint().width(), alto};
}

void Rejilla::pie(bool visible) {
    pie_->setVisible(visible);
    updateGeometry();
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

void Rejilla::mida_lo_aplazado() {
    if (isVisible() && std::exchange(por_medir_, false))
        encabezado_->anchos().mida_filas(0, modelo_->rowCount());
}

void Rejilla::showEvent(QShowEvent* evento) {
    QTableView::showEvent(evento);
    if (accessibleName().isEmpty())
        setAccessibleName(QStringLiteral("Lista de ") + TablaRejilla(*this).titulo());
    // Antes de mostrarse no se sabía cuánto espacio hay.
    mida_lo_aplazado();
    if (!evento->spontaneous() && !std::exchange(mostrada_, true)) {
        aplique_anchos();
        // La celda actual pudo correr la vista cuando no había dónde mostrarla.
        horizontalScrollBar()->setValue(0);
        scrollTo(currentIndex());
    }
}

void Rejilla::paintEvent(QPaintEvent* evento) {
    fila_aspecto_ = -1;
    QTableView::paintEvent(evento);
    // Sin consultar todavía no se sabe si está vacía: se dice cómo se consulta.
    const bool abierta = conjunto() && conjunto()->Active();
    const QString texto = abierta && encabezado_->filtrando()
                              ? QStringLiteral("Ninguna fila cumple el filtro.")
                          : abierta ? texto_vacio
                                    : property("sin_consultar").toString();
    if (modelo_->rowCount() > 0 || texto.isEmpty() || !conjunto())
        return;
    QPainter pintor(viewport());
    pintor.setPen(palette().color(QPalette::PlaceholderText));
    const int aire = paso(1);
    // En una rejilla angosta sigue abajo: lo último que dice es la tecla.
    pintor.drawText(viewport()->rect().adjusted(aire, aire * 2, -aire, -aire),
                    Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, texto);
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
    if (!anchos_puestos_ && modelo_->rowCount() > 0)
        aplique_anchos();
    else if (anchos_puestos_ && !olvide_anchos())
        mida_desde(0, modelo_->rowCount());
    cursor_movido();
    pie_->update();
    indicador_->viewport()->update();
}

void Rejilla::cursor_movido() {
    if (pegando_)
        return; // al acabar se va una vez a la última
    if (!conjunto() || !conjunto()->Active() || columnas_.empty()) {
        cierre_editor();
        fije_actual(-1, -1);
        return;
    }
    int columna = moviendo_ && columna_destino_ >= 0 ? columna_destino_ : SelectedIndex();
    if (columna < 0 || columna >= cuenta_columnas() || isColumnHidden(columna))
        columna = columna_de_entrada(*this);
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
    // El ancho lo decide lo que se puso en la celda, y no que se alcance a pintar. Lo que se
    // calcula espera a que la fila esté completa.
    const int columna = campo ? columna_de(campo->FieldName) : -1;
    if (aplaza_medida())
        por_medir_ = true;
    else if (columna >= 0 && campo->tipo == TipoCampo::Datos)
        encabezado_->anchos().mida_fila(conjunto()->RecNo(), columna);
    // Otro escribió en la celda abierta (el resultado de una búsqueda): lo digitado ya no vale.
    if (digitando() && !escribiendo_ && campo && campo == campo_actual())
        cierre_editor();
}

void Rejilla::fila_modificada(int fila) {
    if (aplaza_medida())
        por_medir_ = true;
    else
        encabezado_->anchos().mida_fila(fila);
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
    // Un paquete recién traído puede traer una cifra más larga.
    else if (cuantas > 0)
        mida_desde(desde, cuantas);
    else
        olvide_anchos();
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
