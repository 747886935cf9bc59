// Marco de ventanas hijas y registro de pantallas por nombre.
#include "toolkit/estilo.h"
#include "toolkit/letras_alt.h"
#include "toolkit/marcos.h"
#include "toolkit/orden_lectura.h"
#include "toolkit/pantalla.h"
#include "toolkit/pivote/rejilla_cubo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSettings>
#include <QStyle>

namespace {
// Callada si no se pide: quien prueba desde fuera sabe con ella qué pantallas hay y cuáles abrió.
Q_LOGGING_CATEGORY(registro_pantallas, "quorvex.pantallas", QtWarningMsg)

Escritorio* escritorio_ = nullptr;
constexpr char kAltoDelArea[] = "alto_del_area"; ///< el suyo no cambia aunque no quepan sus filas

Pantalla* pantalla_en(QMdiSubWindow* ventana) {
    auto* marco = ventana ? dynamic_cast<MarcoPantalla*>(ventana->widget()) : nullptr;
    return marco ? marco->pantalla() : nullptr;
}

/// En ella se está digitando, y nada se mueve. La que abre en edición todavía no.
bool se_digita(const Rejilla& r) {
    return r.digitando() || r.conjunto()->Modified();
}

/// Las filas que no se ven, en píxeles.
int alto_que_falta(const Rejilla& r) {
    if (!r.conjunto() || !r.conjunto()->Active() || se_digita(r))
        return 0;
    return qMax(0, r.verticalHeader()->length() - r.viewport()->height());
}

/// Lo más que a una de sus rejillas le falta, según `falta`.
template <class Falta> int lo_que_falta(const Pantalla& pantalla, const Falta& falta) {
    int total = 0;
    for (const Rejilla* r : pantalla.findChildren<Rejilla*>())
        if (r->isVisible())
            total = qMax(total, falta(*r));
    return total;
}

/// Lo que a un cubo le falta de ancho.
int falta_a_los_cubos(const Pantalla& pantalla) {
    int total = 0;
    for (const RejillaCubo* r : pantalla.findChildren<RejillaCubo*>())
        if (r->isVisible())
            total = qMax(total, r->lo_que_falta());
    return total;
}

/// Lo que a un nombre que no se digita le falta para leerse entero, si su caja crece con la
/// ventana.
int ancho_que_falta(const QLineEdit& caja) {
    constexpr int kLetras = 70; // lo más largo es una nota, y se lee en su letrero
    const bool crece = (caja.sizePolicy().horizontalPolicy() & QSizePolicy::GrowFlag) &&
                       caja.maximumWidth() > caja.width();
    if (!caja.isReadOnly() || !caja.isVisible() || !crece)
        return 0;
    const QFontMetrics medidas = caja.fontMetrics();
    const int aire = 2 * medidas.averageCharWidth();
    return qMax(0, medidas.horizontalAdvance(caja.text().left(kLetras)) + aire -
                       caja.contentsRect().width());
}

void ensanche_por_cajas(QMdiSubWindow& ventana, const Pantalla& pantalla, int mayor) {
    constexpr int kVeces = 4; // la caja se parte lo nuevo con las de su fila
    const auto falta = [&] {
        int total = 0;
        for (const QLineEdit* caja : pantalla.findChildren<QLineEdit*>())
            total = qMax(total, ancho_que_falta(*caja));
        return total;
    };
    int antes = falta();
    for (int i = 0; i < kVeces && antes > 0 && ventana.width() < mayor; ++i) {
        const int ancho = ventana.width();
        ventana.resize(qMin(ancho + antes, mayor), ventana.height());
        const int ahora = falta();
        if (ahora >= antes) { // el ancho no es para ella
            ventana.resize(ancho, ventana.height());
            break;
        }
        antes = ahora;
    }
}

/// Agranda la ventana desde su centro, sin salirse del área, hasta que sus rejillas muestren todas
/// sus cifras, enteros sus nombres y las filas que quepan. Falso si no hizo falta, o si el usuario
/// le dio otro tamaño.
bool ensanche(QMdiSubWindow& ventana, const Pantalla& pantalla, QSize area) {
    constexpr int kVeces = 12; // entre dos rejillas que se parten el sitio, no basta una
    const QSize antes = ventana.size();
    if (ventana.isMaximized() || ventana.isMinimized() ||
        antes != ventana.property("inicial").toSize())
        return false;
    for (int i = 0; i < kVeces && ventana.width() < area.width(); ++i) {
        const int falta = qMax(
            falta_a_los_cubos(pantalla),
            lo_que_falta(pantalla, [](const Rejilla& r) { return anchos_de(r).lo_que_falta(); }));
        if (falta == 0)
            break;
        ventana.resize(qMin(ventana.width() + falta, area.width()), ventana.height());
    }
    ensanche_por_cajas(ventana, pantalla, area.width());
    const int mayor = ventana.property(kAltoDelArea).toBool() ? 0 : area.height();
    for (int i = 0; i < kVeces && ventana.height() < mayor; ++i) {
        const int falta = lo_que_falta(pantalla, alto_que_falta), alto = ventana.height();
        if (falta == 0)
            break;
        // Lo que crezca lo puede compartir con otro: de a un píxel no le tocaría nada.
        ventana.resize(ventana.width(), qMin(alto + qMax(falta, paso()), mayor));
        if (lo_que_falta(pantalla, alto_que_falta) >= falta) { // el alto no es para ellas
            ventana.resize(ventana.width(), alto);
            break;
        }
    }
    const QSize crece = ventana.size() - antes;
    if (crece.isNull())
        return false;
    ventana.setProperty("inicial", ventana.size());
    ventana.move(qBound(0, ventana.x() - crece.width() / 2, area.width() - ventana.width()),
                 qBound(0, ventana.y() - crece.height() / 2, area.height() - ventana.height()));
    return true;
}

/// En alguna de sus rejillas se está digitando: la ventana no se mueve debajo de quien digita.
bool digitando(const Pantalla& pantalla) {
    const auto rejillas = pantalla.findChildren<Rejilla*>();
    return std::any_of(rejillas.begin(), rejillas.end(), [](const Rejilla* r) {
        return r->isVisible() && r->conjunto() && se_digita(*r);
    });
}

/// Lo que se consulta después de abrir la pantalla también se lee entero.
void siga_ensanchando(QMdiSubWindow* ventana, QPointer<Pantalla> pantalla) {
    // De a una, y lo que ella misma mueve no la vuelve a llamar: no acabaría nunca. La barra de una
    // rejilla con pie cambia de rango cada vez que se acomoda: solo llama si esconde más que antes.
    struct Curso {
        bool en_curso = false, obligada = false;
        int alto = 0;
    };
    const auto curso = std::make_shared<Curso>();
    const auto llame = [ventana, pantalla, curso] {
        if (std::exchange(curso->en_curso, true))
            return;
        QMetaObject::invokeMethod(
            ventana,
            [ventana, pantalla, curso] {
                if (pantalla && !digitando(*pantalla)) {
                    const int alto = lo_que_falta(*pantalla, alto_que_falta);
                    if (std::exchange(curso->obligada, false) || alto > curso->alto)
                        ensanche(*ventana, *pantalla, pantalla->area_principal());
                    curso->alto = lo_que_falta(*pantalla, alto_que_falta);
                }
                curso->en_curso = false;
            },
            Qt::QueuedConnection);
    };
    const auto siga = [curso, llame] {
        curso->obligada = true;
        llame();
    };
    for (const Rejilla* r : pantalla->findChildren<Rejilla*>()) {
        QObject::connect(&anchos_de(*r), &AnchosRejilla::crecio, ventana, siga);
        QObject::connect(r->verticalScrollBar(), &QScrollBar::rangeChanged, ventana, llame);
    }
    for (const RejillaCubo* r : pantalla->findChildren<RejillaCubo*>()) {
        QObject::connect(r->horizontalScrollBar(), &QScrollBar::rangeChanged, ventana, siga);
        QObject::connect(r->model(), &QAbstractItemModel::modelReset, ventana, siga);
    }
}

/// Los anchos que el usuario dejó en cada rejilla vuelven con la pantalla.
void recuerde_anchos(const Pantalla& pantalla, QSettings* ajustes) {
    for (Rejilla* r : pantalla.findChildren<Rejilla*>())
        if (!r->objectName().isEmpty())
            r->guarde_en(ajustes, pantalla.objectName() + '/' + r->objectName());
}
} // namespace

void reajuste_ventana(const Pantalla& pantalla) {
    QMdiSubWindow* ventana = nullptr;
    for (QWidget* w = pantalla.parentWidget(); w && !ventana; w = w->parentWidget())
        ventana = qobject_cast<QMdiSubWindow*>(w);
    if (!ventana || ventana->size() != ventana->property("inicial").toSize())
        return;
    const QSize area = pantalla.area_principal();
    ventana->resize(ventana->sizeHint().expandedTo(ventana->size()).boundedTo(area));
    ventana->setProperty("inicial", ventana->size());
    ventana->move(ventana->x(), qBound(0, ventana->y(), area.height() - ventana->height()));
}

Escritorio* escritorio() {
    return escritorio_;
}

Escritorio::Escritorio(QMdiArea* area) : QObject(area), area_(area) {
    escritorio_ = this;
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(area_, &QMdiArea::subWindowActivated, this, &Escritorio::activada);
}

Escritorio::~Escritorio() {
    if (escritorio_ == this)
        escritorio_ = nullptr;
}

void Escritorio::recuerde_en(QSettings* ajustes) {
    ajustes_ = ajustes;
}

Pantalla* Escritorio::muestre(Pantalla* pantalla) {
    if (!pantalla->cree()) {
        delete pantalla;
        return nullptr;
    }
    reparta_letras(*pantalla, letras_de_menus(area_->window()));
    // El marco nuevo haría olvidar el control que FormCreate escogió para empezar.
    const QPointer<QWidget> primero = pantalla->focusWidget();
    auto* ventana = new QMdiSubWindow;
    ventana->setAttribute(Qt::WA_DeleteOnClose);
    ventana->setObjectName(QStringLiteral("ventana_") + pantalla->objectName());
    ventana->setWidget(new MarcoPantalla(pantalla));
    // Ctrl+F4 es una orden del menú del programa: el menú de la ventana no puede disputársela.
    if (QMenu* menu = ventana->systemMenu())
        for (QAction* accion : menu->actions())
            accion->setShortcut({});
    ventana->setWindowTitle(pantalla->windowTitle());
    abiertas_.append(pantalla);
    {
        // Qt activa al agregar; FormActivate corre cuando la ventana ya tiene su tamaño.
        QScopedValueRollback<bool> guarda(en_silencio_, true);
        area_->addSubWindow(ventana);
        const QSize marco = ventana->sizeHint() - ventana->widget()->sizeHint();
        QSize tamano = pantalla->tamano_inicial() + (pantalla->del_area_ ? QSize(0, 0) : marco);
        if (ajustes_) {
            recuerde_anchos(*pantalla, ajustes_);
            tamano = ajustes_->value(clave_tamano(pantalla), tamano).toSize();
        }
        const QSize area = pantalla->area_principal();
        // La barra del lado no le quita ancho a lo que se lee.
        if (tamano.height() > area.height())
            tamano.rwidth() += ventana->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        ventana->resize(tamano.boundedTo(area));
        ventana->setProperty("inicial", ventana->size());
        ventana->setProperty(kAltoDelArea, pantalla->property(kAltoDelArea).toBool());
        ventana->show();
        if (pantalla->del_area_)
            ventana->move(0, 0);
        else if (pantalla->menos_centro_.isValid())
            ventana->move(pantalla->lugar_centrado(ventana->size()));
        else if (!ventana->isMaximized()) // escalonada, pero sin salirse del área
            ventana->move(qBound(0, ventana->x(), qMax(0, area.width() - ventana->width())),
                          qBound(0, ventana->y(), qMax(0, area.height() - ventana->height())));
        area_->setActiveSubWindow(ventana);
        if (primero)
            primero->setFocus();
        if (auto* caja = qobject_cast<QLineEdit*>(pantalla->focusWidget()))
            caja->selectAll(); // lo que ya trae se reemplaza al teclear
        // Si el que Qt escogería está apagado, se empieza por lo primero que se lee.
        const QWidget* foco = pantalla->focusWidget();
        const bool sirve = foco && foco->isEnabled() && foco->isVisible();
        if (const auto orden = orden_de_lectura(pantalla, nullptr); !sirve && !orden.isEmpty())
            orden.first()->setFocus(Qt::TabFocusReason);
    }
    emit cambiaron_las_abiertas();
    QPointer<Pantalla> viva(pantalla);
    notifique(pantalla);
    if (!viva || viva->cerrada_)
        return nullptr;
    if (!(ajustes_ && ajustes_->contains(clave_tamano(pantalla)))) {
        if (ensanche(*ventana, *pantalla, pantalla->area_principal()) &&
            pantalla->menos_centro_.isValid())
            ventana->move(pantalla->lugar_centrado(ventana->size()));
        siga_ensanchando(ventana, pantalla);
    }
    return pantalla;
}

QString Escritorio::clave_tamano(const Pantalla* pantalla) {
    return QStringLiteral("ventanas/") + pantalla->objectName();
}

void Escritorio::active(Pantalla* pantalla) {
    QMdiSubWindow* ventana = pantalla->ventana_hija();
    if (!ventana)
        return;
    if (ventana->isMinimized())
        ventana->showNormal();
    area_->setActiveSubWindow(ventana);
    if (activa_ != pantalla)
        notifique(pantalla); // con el marco oculto Qt no avisa
}

QVector<Pantalla*> Escritorio::abiertas() const {
    return abiertas_;
}

Pantalla* Escritorio::abierta(const QString& nombre) const {
    for (Pantalla* p : abiertas_)
        if (p->objectName() == nombre)
            return p;
    return nullptr;
}

void Escritorio::activada(QMdiSubWindow* ventana) {
    // Nulo: la aplicación perdió la activación o hay un diálogo; la pantalla activa sigue siéndolo.
    Pantalla* pantalla = pantalla_en(ventana);
    if (pantalla && pantalla != activa_ && !en_silencio_)
        notifique(pantalla);
}

void Escritorio::notifique(Pantalla* pantalla) {
    historia_.removeAll(pantalla);
    historia_.append(pantalla);
    activa_ = pantalla;
    const QPointer<Pantalla> viva(pantalla);
    proteja([&] { pantalla->FormActivate(); });
    if (viva)
        viva->reciba_entregas();
}

void Escritorio::olvide(Pantalla* pantalla) {
    const bool era_activa = activa_ == pantalla;
    QMdiSubWindow* ventana = pantalla->ventana_hija();
    if (ajustes_ && ventana && !ventana->isMaximized() && !ventana->isMinimized() &&
        ventana->size() != ventana->property("inicial").toSize())
        ajustes_->setValue(clave_tamano(pantalla), ventana->size());
    quite(pantalla);
    emit cambiaron_las_abiertas();
    if (!era_activa || en_silencio_ || historia_.isEmpty())
        return;
    // La anterior se activa antes de que Qt retire esta y escoja por su cuenta.
    Pantalla* anterior = historia_.last();
    {
        QScopedValueRollback<bool> guarda(en_silencio_, true);
        if (ventana)
            ventana->hide();
        if (QMdiSubWindow* suya = anterior->ventana_hija())
            area_->setActiveSubWindow(suya);
    }
    notifique(anterior);
}

void Escritorio::quite(Pantalla* pantalla) {
    abiertas_.removeAll(pantalla);
    historia_.removeAll(pantalla);
    if (activa_ == pantalla)
        activa_ = nullptr;
}

bool Escritorio::cierre_todas() {
    bool todas = true;
    {
        // Mientras se cierran, ninguna de las que quedan recibe activaciones de paso.
        QScopedValueRollback<bool> guarda(en_silencio_, true);
        const QVector<Pantalla*> orden = historia_;
        for (auto p = orden.rbegin(); todas && p != orden.rend(); ++p)
            if (abiertas_.contains(*p))
                todas = (*p)->close();
    }
    if (!todas && !historia_.isEmpty())
        active(historia_.last());
    return todas;
}

// --- registro

RegistroPantallas& pantallas() {
    static RegistroPantallas registro;
    return registro;
}

void RegistroPantallas::registre(const QString& nombre, Creador creador, Copias copias) {
    creadores_.insert(nombre, {std::move(creador), copias});
    qCDebug(registro_pantallas, "registrada %s", qPrintable(nombre));
}

Pantalla* RegistroPantallas::construya(const QString& nombre) const {
    const auto p = creadores_.find(nombre);
    if (p == creadores_.end())
        throw ErrorDatos(QStringLiteral("No existe la pantalla %1.").arg(nombre));
    qCDebug(registro_pantallas, "abierta %s", qPrintable(nombre));
    return p->creador();
}

Pantalla* RegistroPantallas::abrir(const QString& nombre, Encargo encargo) {
    Escritorio* e = escritorio();
    if (e && creadores_.value(nombre).copias == Unica) {
        if (Pantalla* abierta = e->abierta(nombre)) {
            if (!encargo.vacio())
                abierta->encargo_ = std::move(encargo);
            e->active(abierta);
            return abierta;
        }
    }
    Pantalla* pantalla = construya(nombre);
    pantalla->encargo_ = std::move(encargo);
    if (e)
        return e->muestre(pantalla);
    if (!pantalla->cree()) {
        delete pantalla;
        return nullptr;
    }
    pantalla->setAttribute(Qt::WA_DeleteOnClose);
    pantalla->resize(pantalla->tamano_inicial());
    pantalla->show();
    proteja([&] { pantalla->FormActivate(); });
    return pantalla;
}

int RegistroPantallas::abrir_modal(const QString& nombre, Encargo encargo) {
    const std::unique_ptr<Pantalla> pantalla(construya(nombre));
    pantalla->encargo_ = std::move(encargo);
    return pantalla->mostrar_modal();
}
