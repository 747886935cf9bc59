// Menú del formulario principal, armado con la tabla de órdenes.
#include "app/tfprincipal.h"

#include "app/botoncomando.h"
#include "toolkit/barraestado.h"
#include "toolkit/estilo.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/impresora.h"
#include "toolkit/lista_teclas.h"
#include "toolkit/rejilla/rejilla.h"

#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QShortcut>

namespace {

/// Subraya la primera letra que no use otro renglón del mismo menú.
QString con_letra(const QString& texto, QString& usadas) {
    for (int i = 0; i < texto.size(); ++i) {
        const QChar c = texto[i].toLower();
        if (c.isLetter() && c.unicode() < 0x80 && !usadas.contains(c)) {
            usadas += c;
            return QString(texto).insert(i, QLatin1Char('&'));
        }
    }
    return texto;
}

QString letras_usadas(const QWidget* menu) {
    QString letras;
    for (const QAction* a : menu->actions())
        if (const auto i = a->text().indexOf(QLatin1Char('&')); i >= 0)
            letras += a->text().at(i + 1).toLower();
    return letras;
}

Rejilla* rejilla_de(QWidget* widget) {
    for (; widget; widget = widget->parentWidget())
        if (auto* r = qobject_cast<Rejilla*>(widget))
            return r;
    return nullptr;
}

/// Los controles de texto de Qt comparten los nombres de sus operaciones; una rejilla hace lo mismo
/// que con su tecla, con lo que anuncie y revise.
void edite(QWidget* foco, Rejilla::Orden orden) {
    if (!foco)
        return;
    const char* operacion = orden == Rejilla::Copiar   ? "copy"
                            : orden == Rejilla::Cortar ? "cut"
                                                       : "paste";
    if (qobject_cast<QLineEdit*>(foco) || foco->inherits("QTextEdit") ||
        qobject_cast<QPlainTextEdit*>(foco)) {
        QMetaObject::invokeMethod(foco, operacion);
    } else if (Rejilla* r = rejilla_de(foco)) {
        r->ejecute_orden(orden);
    }
}

} // namespace

void Tfprincipal::arme_menu() {
    // Los botones ocultos ya tienen sus letras con Alt.
    QString usadas;
    for (const AtajoAlt& a : atajos_alt())
        usadas += QLatin1Char(a.letra);
    for (const QString& titulo :
         {QStringLiteral("Archivo"), QStringLiteral("Edición"), QStringLiteral("Cuentas"),
          QStringLiteral("Terceros"), QStringLiteral("Comprobantes"), QStringLiteral("Automáticos"),
          QStringLiteral("Herramientas"), QStringLiteral("Informes"),
          QStringLiteral("Mantenimiento"), QStringLiteral("Ventana"), QStringLiteral("Ayuda")})
        menus_.insert(titulo, menuBar()->addMenu(con_letra(titulo, usadas)));
    arme_archivo();
    arme_edicion();
    for (const Comando& c : comandos_menu())
        entrada(menu(c.menu()), c);
    arme_ventana();

    for (const Submenu& s : submenus())
        menu(s.ruta)->setObjectName(s.nombre);
    Generales1 = findChild<QMenu*>("Generales1");
    Detallados1 = findChild<QMenu*>("Detallados1");
    Comparativos1 = findChild<QMenu*>("Comparativos1");

    auto* dinamicos = new QAction("dinamicos", this);
    dinamicos->setObjectName("dinamicos1");
    dinamicos->setVisible(false);
    menu("Herramientas")->addAction(dinamicos);

    Action1->setObjectName("Action1");
    Action1->setShortcut(QKeySequence("Ctrl+F1"));
    connect(Action1, &QAction::triggered, this, [this] { proteja([this] { Action1Execute(); }); });
    addAction(Action1);

    arme_atajos();
}

void Tfprincipal::arme_atajos() {
    const auto atajo = [this](const char* tecla, auto accion) {
        auto* a = new QShortcut(QKeySequence(QLatin1String(tecla)), this);
        connect(a, &QShortcut::activated, this, accion);
    };
    atajo("Ctrl+Shift+H", [this] { HistoriaAvisos::de(barra)->muestre(); });
    // Por el teclado se llega al menú con F10, como a cualquier otro.
    atajo("F10", [this] {
        menuBar()->setFocus(Qt::MenuBarFocusReason);
        menuBar()->setActiveAction(menuBar()->actions().first());
    });
    menuBar()->installEventFilter(this);
    connect(menuBar(), &QMenuBar::triggered, this, &Tfprincipal::deje_el_menu,
            Qt::QueuedConnection);
    // Sin una pantalla que la atienda: cada una muestra las suyas.
    atajo("F1", [this] { muestre_teclas(this, windowTitle(), teclas_del_marco()); });
}

void Tfprincipal::deje_el_menu() {
    const QWidget* foco = QApplication::focusWidget(); // Esc deja la barra sin dárselo a nadie
    if ((!foco || foco == menuBar()) && !menuBar()->activeAction() && ultimo_foco_)
        ultimo_foco_->setFocus(Qt::MenuBarFocusReason);
}

QVector<TeclaExplicada> Tfprincipal::teclas_del_marco() const {
    QVector<TeclaExplicada> lista;
    const auto agregue = [&](const QString& tecla, QString que_hace) {
        lista << TeclaExplicada{tecla, que_hace.remove(QLatin1Char('&'))};
    };
    for (const QAction* a : findChildren<QAction*>())
        if (const auto* m = qobject_cast<QMenu*>(a->parent());
            m && a->isEnabled() && !a->shortcut().isEmpty())
            agregue(nombre_de_tecla(a->shortcut()), m->title() + ": " + a->text());
    for (const AtajoAlt& a : atajos_alt())
        if (const auto* b = findChild<QPushButton*>(a.boton); b && b->isEnabled())
            agregue(QStringLiteral("Alt+") + QChar(a.letra).toUpper(), b->text());
    for (qsizetype i = 0; i < botones_balance_.size(); ++i)
        if (botones_balance_[i]->isEnabled())
            agregue(QStringLiteral("Alt+%1").arg(i + 1), botones_balance_[i]->text());
    agregue("F10", "Ir al menú");
    agregue("Ctrl+Tab", "Pasar a otra de las pantallas abiertas");
    agregue("Ctrl+F1", "Leer otra vez la configuración");
    agregue("Ctrl+Mayús+H", "Ver los avisos de esta sesión");
    agregue("Ctrl+Mayús+M", "Ir al mensaje que llegó");
    agregue("F1", "Ver esta lista");
    return lista;
}

QMenu* Tfprincipal::menu(const QString& ruta) {
    if (QMenu* hecho = menus_.value(ruta))
        return hecho;
    QMenu* dueno = menu(ruta.section('/', 0, -2));
    QString usadas = letras_usadas(dueno);
    QMenu* nuevo = dueno->addMenu(con_letra(ruta.section('/', -1), usadas));
    menus_.insert(ruta, nuevo);
    return nuevo;
}

QAction* Tfprincipal::entrada(QMenu* menu, const Comando& comando) {
    QString usadas = letras_usadas(menu);
    QAction* a = menu->addAction(icono(comando.icono), con_letra(comando.texto(), usadas));
    a->setObjectName(comando.nombre);
    if (!comando.tecla.isEmpty())
        a->setShortcut(QKeySequence(comando.tecla));
    connect(a, &QAction::triggered, this, [this, comando] { ejecute(comando); });
    return a;
}

void Tfprincipal::arme_archivo() {
    QMenu* m = menu("Archivo");
    QAction* impresora = m->addAction(icono("printer"), "&Configurar Impresora...");
    impresora->setObjectName("ConfigurarImpresora1");
    connect(impresora, &QAction::triggered, this,
            [this] { proteja([this] { configure_impresora(this); }); });
    m->addSeparator();
    QAction* salir = m->addAction(icono("application-exit"), "&Salir");
    salir->setObjectName("Salir1");
    salir->setShortcut(QKeySequence("Ctrl+S"));
    connect(salir, &QAction::triggered, this, &QWidget::close);
}

void Tfprincipal::arme_edicion() {
    // El menú abierto por el teclado toma el foco: se edita el control que lo tenía antes.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* ahora) {
        if (ahora && isAncestorOf(ahora) && ahora != menuBar())
            ultimo_foco_ = ahora;
    });
    QMenu* m = menu("Edición");
    const auto agregue = [&](const QString& texto, const QString& nombre, const QString& imagen,
                             Rejilla::Orden orden) {
        QAction* a = m->addAction(icono(imagen), texto);
        a->setObjectName(nombre);
        connect(a, &QAction::triggered, this,
                [this, orden] { proteja([&] { edite(ultimo_foco_, orden); }); });
    };
    agregue("&Copiar", "Copiar1", "edit-copy", Rejilla::Copiar);
    agregue("C&ortar", "Cortar1", "edit-cut", Rejilla::Cortar);
    agregue("&Pegar", "Pegar1", "edit-paste", Rejilla::Pegar);
}

void Tfprincipal::arme_ventana() {
    ventanas_ = menu("Ventana");
    ventanas_->addSeparator();
    const auto agregue = [this](const QString& texto, const QString& nombre, auto accion) {
        QAction* a = ventanas_->addAction(texto);
        a->setObjectName(nombre);
        connect(a, &QAction::triggered, this, accion);
    };
    agregue("&Cascada", "Cascada1", [this] { area_->cascadeSubWindows(); });
    agregue("Mosaico &horizontal", "MosaicoHorizontal1", [this] { mosaico(Qt::Vertical); });
    agregue("Mosaico &vertical", "MosaicoVertical1", [this] { mosaico(Qt::Horizontal); });
    agregue("M&inimizar todas", "MinimizarTodas1", [this] {
        for (QMdiSubWindow* v : area_->subWindowList())
            v->showMinimized();
    });
    agregue("&Siguiente", "Siguiente1", [this] { area_->activateNextSubWindow(); });
    agregue("&Anterior", "Anterior1", [this] { area_->activatePreviousSubWindow(); });
    agregue("Ce&rrar todas", "CerrarTodas1", [this] { escritorio_->cierre_todas(); });
    ventanas_->addSeparator();
    connect(ventanas_, &QMenu::aboutToShow, this, &Tfprincipal::liste_ventanas);
}

void Tfprincipal::mosaico(Qt::Orientation sentido) {
    QList<QMdiSubWindow*> ventanas;
    for (QMdiSubWindow* v : area_->subWindowList())
        if (!v->isMinimized())
            ventanas << v;
    const QRect todo = area_->viewport()->rect();
    for (int i = 0; i < ventanas.size(); ++i) {
        const int n = int(ventanas.size());
        ventanas[i]->showNormal();
        if (sentido == Qt::Vertical)
            ventanas[i]->setGeometry(0, todo.height() * i / n, todo.width(), todo.height() / n);
        else
            ventanas[i]->setGeometry(todo.width() * i / n, 0, todo.width() / n, todo.height());
    }
}

void Tfprincipal::liste_ventanas() {
    qDeleteAll(lista_ventanas_);
    lista_ventanas_.clear();
    int numero = 0;
    for (Pantalla* p : escritorio_->abiertas()) {
        ++numero;
        const QString texto = numero < 10
                                  ? QStringLiteral("&%1  %2").arg(numero).arg(p->windowTitle())
                                  : p->windowTitle();
        QAction* a = ventanas_->addAction(texto);
        a->setCheckable(true);
        a->setChecked(p == escritorio_->activa());
        connect(a, &QAction::triggered, this, [this, p = QPointer<Pantalla>(p)] {
            if (p)
                escritorio_->active(p);
        });
        lista_ventanas_ << a;
    }
}
