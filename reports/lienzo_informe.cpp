#include "reports/lienzo_informe.h"

#include "datos/firebird/concuerde.h"
#include "datos/firebird/reloj.h"
#include "libro/catalogos.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/editor_celda.h"
#include "toolkit/rejilla/rejilla.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

const QColor kResaltado(0xc0, 0x18, 0x18); // sobre el papel, que es blanco en cualquier tema
constexpr qreal kHolgura = 3;              // pixeles alrededor del elemento señalado

qint64 entero(const ConjuntoDatos& c, int fila, const char* campo) {
    return c.valor_en(fila, c.FieldByName(QLatin1String(campo))).entero();
}

QString texto(const ConjuntoDatos& c, int fila, const char* campo) {
    return c.valor_en(fila, c.FieldByName(QLatin1String(campo))).texto();
}

} // namespace

/// Compone otra vez con cualquier cambio de uno de los conjuntos.
class LienzoInforme::Enlace : public EnlaceDatos {
public:
    Enlace(LienzoInforme& lienzo, ConjuntoDatos& conjunto) : lienzo_(lienzo) { enlace(&conjunto); }
    ~Enlace() override { enlace(nullptr); }
    void estado_cambiado() override { lienzo_.cambio(); }
    void fila_actual_cambiada() override { lienzo_.update(); }
    void campo_cambiado(Campo*) override { lienzo_.cambio(); }
    void filas_reiniciadas() override { lienzo_.cambio(); }
    void filas_insertadas(int, int) override { lienzo_.cambio(); }
    void filas_borradas(int, int) override { lienzo_.cambio(); }
    void fila_modificada(int) override { lienzo_.cambio(); }

private:
    LienzoInforme& lienzo_;
};

LienzoInforme::LienzoInforme(DefinicionInforme& definicion, std::function<PeriodoFormula()> periodo,
                             std::function<FormulaContable::Lee()> lector)
    : d_(definicion), periodo_(std::move(periodo)), lector_(std::move(lector)) {
    setMinimumSize(escalado(200), escalado(220));
    for (ConjuntoDatos* c : {&d_.CFormato, &d_.CFormadatos, &d_.CFormalineas})
        enlaces_.push_back(std::make_unique<Enlace>(*this, *c));
}

LienzoInforme::~LienzoInforme() = default;

QSize LienzoInforme::sizeHint() const {
    return {escalado(420), escalado(540)};
}

void LienzoInforme::pagina(int numero) {
    pagina_ = numero;
    cambio();
}

void LienzoInforme::resalte(ConjuntoDatos* conjunto) {
    resaltado_ = conjunto;
    update();
}

void LienzoInforme::olvide() {
    leidas_.clear();
    cambio();
}

void LienzoInforme::siga(Rejilla& rejilla) {
    rejillas_ << &rejilla;
    auto* editor = rejilla.findChild<EditorCelda*>();
    connect(editor, &QLineEdit::textChanged, this, [this] { cambio(); });
    editor->installEventFilter(this);
}

bool LienzoInforme::eventFilter(QObject* editor, QEvent* evento) {
    if (evento->type() == QEvent::Hide) // con Esc vuelve lo que había
        cambio();
    return QWidget::eventFilter(editor, evento);
}

InformeDefinible::Digitado LienzoInforme::digitado() const {
    for (const Rejilla* r : rejillas_) {
        const Campo* campo = r->digitando() ? r->campo_actual() : nullptr;
        if (!campo || !r->findChild<EditorCelda*>()->opciones.isEmpty())
            continue;
        const QString texto = r->texto_digitado();
        // Una fórmula a medio escribir no dice nada todavía: sigue la que estaba.
        if (campo->FieldName == QLatin1String("FOCD_CUENTAS") &&
            !InformeDefinible::es_fijo(texto) && revise_formula(texto))
            continue;
        const auto cifra = Moneda::intente(texto);
        if (campo->clase != ClaseCampo::Texto && !cifra)
            continue;
        return {r->conjunto(), r->conjunto()->RecNo(), campo->FieldName,
                campo->clase == ClaseCampo::Texto ? Valor(texto) : Valor(*cifra)};
    }
    return {};
}

void LienzoInforme::cambio() {
    hojas_.reset();
    update();
}

// ---------------------------------------------------------------- composición

void LienzoInforme::componga() {
    auto hojas = std::make_unique<informes::Hojas>();
    FormulaContable::Lee lea;
    FormulaContable formulas(periodo_(), [&](const LecturaDato& lectura) {
        const QString llave = lectura.sql + QString::number(lectura.columna);
        if (const auto leida = leidas_.constFind(llave); leida != leidas_.constEnd())
            return *leida;
        if (!lea)
            lea = lector_();
        return leidas_[llave] = lea(lectura);
    });
    const CabeceraInforme cabecera{d_.CFormato.FieldByName("FOCO_TITULO").texto(),
                                   d_.CFormato.FieldByName("FOCO_SUBTITULO").texto(),
                                   reloj().hoy()};
    InformeDefinible informe(d_, cabecera, formulas);
    informe.digitado = digitado();
    // Aquí nada se avisa con un diálogo: la falla del dato señalado se dice al pie de la hoja.
    fallas_.clear();
    informe.al_fallar = [this](int fila, const QString& falla) { fallas_[fila] = falla; };
    lugares_.clear();
    informe.al_colocar = [this](const ConjuntoDatos& c, int fila, const QRectF& lugar) {
        lugares_[{&c, fila}] = lugar;
    };
    informe.nom_cuenta = [](const QString& cuenta) {
        return nombre_en_el_plan(fdm().Quorvex, Libro::Decreto2649, cuenta);
    };
    informe.imprime_pagina(*hojas, informes::papel_de_impresora(), pagina_);
    hojas_ = std::move(hojas);
}

// ---------------------------------------------------------------- dibujo

QRect LienzoInforme::hoja() const {
    const informes::Papel papel = informes::papel_de_impresora();
    const QSize medida =
        QSizeF(papel.ancho, papel.alto).scaled(size() - QSize(8, 8), Qt::KeepAspectRatio).toSize();
    return {QPoint((width() - medida.width()) / 2, (height() - medida.height()) / 2), medida};
}

QRectF LienzoInforme::en_pantalla(qreal x, qreal y, qreal dx, qreal dy) const {
    const QRectF h = hoja();
    const qreal ex = h.width() / InformeDefinible::kRejilla.width();
    const qreal ey = h.height() / InformeDefinible::kRejilla.height();
    return QRectF(h.left() + x * ex, h.top() + y * ey, dx * ex, dy * ey).normalized();
}

QRectF LienzoInforme::lugar(const ConjuntoDatos& c, int fila) const {
    const auto x = qreal(entero(c, fila, "FOCD_POSX")), y = qreal(entero(c, fila, "FOCD_POSY"));
    if (&c == &d_.CFormalineas && texto(c, fila, "FOCD_TIPO") != QLatin1String("T"))
        return en_pantalla(x, y, qreal(entero(c, fila, "FOCD_X")),
                           qreal(entero(c, fila, "FOCD_Y")));
    const auto puesto = lugares_.constFind({&c, fila});
    if (puesto == lugares_.constEnd())
        return en_pantalla(x, y, 0, 0);
    const qreal escala = hoja().width() / informes::papel_de_impresora().ancho;
    return {hoja().topLeft() + puesto->topLeft() * escala, puesto->size() * escala};
}

void LienzoInforme::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Mid));
    if (!d_.CFormato.Active() || d_.CFormato.IsEmpty())
        return;
    if (!hojas_)
        componga();
    const QRect h = hoja();
    p.fillRect(h, Qt::white);
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setClipRect(h);
    p.translate(h.topLeft());
    informes::pinte_hoja(p, *hojas_, 0, h.width() / hojas_->papel(0).ancho);
    p.restore();
    p.setPen(Qt::black);
    if (const auto paginas = d_.CFormato.FieldByName("FOCO_PAGINAS").entero(); pagina_ > paginas)
        p.drawText(h, Qt::AlignHCenter | Qt::AlignBottom,
                   QStringLiteral("No se imprime: el informe tiene %1.")
                       .arg(concuerde(paginas, "una página", "%1 páginas")));
    const int fila = resaltado_ && resaltado_->Active() ? resaltado_->RecNo() : -1;
    if (fila < 0 || fila >= resaltado_->RecordCount() ||
        entero(*resaltado_, fila, "FOCD_PAGINA") != pagina_)
        return;
    p.setPen(QPen(kResaltado, 1, Qt::DashLine));
    if (const QString dice = resaltado_ == &d_.CFormadatos ? falla(fila) : QString();
        !dice.isEmpty())
        p.drawText(h.adjusted(4, 4, -4, -4), Qt::AlignBottom | Qt::TextWordWrap, dice);
    p.drawRect(
        lugar(*resaltado_, fila).adjusted(-kHolgura, -kHolgura, kHolgura, kHolgura).toRect());
}

void LienzoInforme::mousePressEvent(QMouseEvent* evento) {
    if (!d_.CFormato.Active() || d_.CFormato.IsEmpty())
        return;
    if (!hojas_)
        componga();
    // De los que están bajo el puntero, el más pequeño: un cuadro suele rodear a otros.
    ConjuntoDatos* mejor = nullptr;
    int fila = -1;
    qreal menor = 0;
    for (ConjuntoDatos* c : {&d_.CFormadatos, &d_.CFormalineas})
        for (int i = 0; i < c->RecordCount(); ++i) {
            const QRectF r = lugar(*c, i).adjusted(-kHolgura, -kHolgura, kHolgura, kHolgura);
            const qreal area = r.width() * r.height();
            if (entero(*c, i, "FOCD_PAGINA") == pagina_ && r.contains(evento->position()) &&
                (!mejor || area < menor)) {
                mejor = c;
                fila = i;
                menor = area;
            }
        }
    if (!mejor)
        return;
    mejor->CheckBrowseMode();
    mejor->vaya_a(fila);
    resalte(mejor);
    if (al_senalar)
        al_senalar(*mejor);
}
