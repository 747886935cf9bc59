#include "app/tfprincipal.h"

#include "app/botoncomando.h"
#include "app/compactador.h"
#include "app/letrerorespaldo.h"
#include "app/marca.h"
#include "app/paneldegradado.h"
#include "app/revision.h"
#include "app/vigiamensajes.h"
#include "catalogues/copiacuentas.h"
#include "catalogues/terceros.h"
#include "sesion/campos_catalogos.h"
#include "sesion/instalacion.h"
#include "sesion/peticiones.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barraestado.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"

#include <QDesktopServices>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QStyle>
#include <QUrl>

namespace {

/// Superficie lisa sobre el degradado: lo que se lee nunca va sobre él.
QFrame* tarjeta() {
    auto* t = new QFrame;
    t->setAutoFillBackground(true);
    t->setFrameShape(QFrame::StyledPanel);
    return t;
}

QLineEdit* campo_fijo(const QString& nombre) {
    auto* e = new QLineEdit;
    e->setObjectName(nombre);
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    return e;
}

/// Mientras el aviso no quepa, las revisiones le dan su sitio. Su letrero llega con el texto.
void deje_sitio(const AvisosBarra& aviso, QLabel& revisiones) {
    const int cedido = revisiones.isHidden() ? revisiones.sizeHint().width() + paso(2) : 0;
    const int pide = aviso.fontMetrics().horizontalAdvance(aviso.text()) + 2 * aviso.margin();
    revisiones.setVisible(!aviso.isVisible() || pide <= aviso.width() - cedido);
}

QString pagina_fabricante() {
    const QString pagina = ajuste_instalacion(QStringLiteral("Pagina"));
    return pagina.isEmpty() ? QStringLiteral("https://quorvex.example/") : pagina;
}

} // namespace

Tfprincipal::Tfprincipal(const QStringList& argumentos)
    : AdvPanel1(new PanelDegradado("AdvPanel1")), AdvPanel2(new PanelDegradado("AdvPanel2")),
      ECompania(campo_fijo("ECompania")), EUsuario(campo_fijo("EUsuario")),
      LabRevision(new QLabel(rotulo_revision())), Label3(new QLabel), Image2(new QLabel),
      barra(new AvisosBarra), mensajes(nullptr), compactador(new Compactador(this)),
      Action1(new QAction(this)), argumentos_(argumentos), area_(new QMdiArea),
      escritorio_(new Escritorio(area_)),
      Pusuario(this, "Pusuario", &fdm().TUsracceso, poAllowCommandText),
      PCompania(this, "PCompania", &fdm().TCompania),
      PAgencia(this, "PAgencia", &fdm().TSubEmpresa), CUsuario(this, "CUsuario", &Pusuario),
      CCompania(this, "CCompania", &PCompania), CAgencia(this, "CAgencia", &PAgencia) {
    setObjectName("Tfprincipal");
    setWindowTitle("Contabilidad NIIF - Quorvex 2018");

    CUsuario.texto("USER_COD", 10).requerido();
    CUsuario.texto("USER_ANOCNT", 4);
    CUsuario.entero("USER_PERCNT");
    CUsuario.entero("SUCU_ID");
    CCompania.texto("COMP_COD", 3).requerido().fijo();
    CCompania.texto("COM_NOMBRE", 80);
    CCompania.texto("COMP_NIT", 20);
    CCompania.blob("COMP_LOGO");
    CCompania.texto("COMP_DIR", 140);
    CCompania.texto("COMP_TELS", 140);
    CCompania.texto("COMP_ENCABEZADO", 140);
    campos_agencias(CAgencia);

    arme_panel_superior();
    arme_panel_inferior();
    auto* centro = new QWidget;
    auto* columna = new QVBoxLayout(centro);
    columna->setContentsMargins({});
    columna->setSpacing(0);
    columna->addWidget(AdvPanel1);
    auto* medio = new QHBoxLayout;
    medio->setSpacing(0);
    medio->addWidget(columna_de_botones());
    medio->addWidget(area_, 1);
    columna->addLayout(medio, 1);
    columna->addWidget(AdvPanel2);
    setCentralWidget(centro);
    area_->setBackground(palette().color(QPalette::Window).darker(112));
    arme_menu();
    mensajes = new VigiaMensajes(this);

    resize(QSize(escalado(1280), escalado(720))
               .boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    proteja([this] { FormCreate(); });
}

Tfprincipal::~Tfprincipal() {
    // Las pantallas guardan sentencias de los módulos de datos y se despiden de su escritorio.
    delete area_;
}

void Tfprincipal::FormCreate() {
    fdm().ConfigurarProviders(this);
    fdm().barra(barra);
    fdm().modulo = "CONTABILIDAD";
    primera_activacion = true;
}

// ---------------------------------------------------------------- paneles

void Tfprincipal::arme_panel_superior() {
    Image2->setObjectName("Image2");
    Image2->setCursor(Qt::PointingHandCursor);
    Image2->setToolTip("Página del fabricante");
    Image2->installEventFilter(this);

    QFrame* datos = tarjeta();
    campos_ = new QGridLayout(datos);
    for (auto [campo, rotulo] : {std::pair{ECompania, "Compañía:"}, {EUsuario, "Usuario:"}}) {
        auto* etiqueta = new QLabel(rotulo);
        etiqueta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        etiqueta->setBuddy(campo);
        rotulos_ << etiqueta;
        connect(campo, &QLineEdit::textChanged, this, [this] {
            estrecho_ = -1;
            acomode_panel_superior();
        });
    }

    auto* botones = new QWidget;
    auto* fila_botones = new DisposicionFlujo(botones, paso());
    for (const Comando& c : comandos_balance()) {
        BotonComando* b = boton(c);
        b->setIconSize({escalado(24), escalado(24)});
        fila_botones->addWidget(b);
        botones_balance_ << b;
        b->setToolTip(QStringLiteral("%1 (Alt+%2)").arg(b->toolTip()).arg(botones_balance_.size()));
    }
    auto* fila = new QHBoxLayout(AdvPanel1);
    fila->setContentsMargins(paso(), paso(), paso(), paso());
    fila->setSpacing(paso(2));
    fila->addWidget(Image2);
    fila->addWidget(datos);
    fila->addWidget(botones, 1, Qt::AlignVCenter);
    acomode_panel_superior();
}

void Tfprincipal::acomode_panel_superior() {
    // En un monitor corriente los datos van en un renglón: lo que se ahorra es de las ventanas.
    const bool estrecho = width() < escalado(1000) || height() < escalado(560);
    const bool bajo = estrecho || (width() >= escalado(1250) && height() < escalado(900));
    const int modo = int(estrecho) + int(bajo);
    if (estrecho_ == modo)
        return;
    estrecho_ = modo;
    QLineEdit* const campos[] = {ECompania, EUsuario};
    for (int i = 0; i < 2; ++i) {
        campos_->removeWidget(rotulos_[i]);
        campos_->removeWidget(campos[i]);
        rotulos_[i]->setVisible(!estrecho); // se entiende cuál es cuál
        campos_->addWidget(rotulos_[i], bajo ? 0 : i, bajo ? 2 * i : 0);
        campos_->addWidget(campos[i], bajo ? 0 : i, bajo ? 2 * i + 1 : 1);
        const int minimo = escalado(estrecho ? 100 : bajo ? 150 : 240);
        const int entero = ancho_caracteres(campos[i]->fontMetrics(), 3) +
                           campos[i]->fontMetrics().horizontalAdvance(campos[i]->text());
        // Enteros, hasta donde los botones sigan en un renglón.
        const int tope = estrecho ? (i == 0 ? 190 : 150) : i == 0 ? 290 : 150;
        campos[i]->setMinimumWidth(qBound(minimo, entero, qMax(minimo, escalado(tope))));
    }
    for (BotonComando* b : botones_balance_) {
        b->solo_icono(estrecho);
        b->setMinimumHeight(escalado(bajo ? 32 : 44));
    }
    Image2->setPixmap(marca(escalado(bajo ? 32 : 56), devicePixelRatioF()));
}

void Tfprincipal::resizeEvent(QResizeEvent* evento) {
    QMainWindow::resizeEvent(evento);
    acomode_panel_superior();
    acomode_columna();
}

void Tfprincipal::arme_panel_inferior() {
    LabRevision->setObjectName("LabRevision");
    LabRevision->setTextFormat(Qt::PlainText);
    Label3->setObjectName("Label3");
    Label3->setText(QStringLiteral("<a href=\"pagina\">Quorvex</a>"));
    Label3->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    Label3->setToolTip("Página del fabricante");
    connect(Label3, &QLabel::linkActivated, this, [this] { abra_pagina(); });

    QFrame* pie = tarjeta();
    auto* fila_pie = new QHBoxLayout(pie);
    fila_pie->setContentsMargins(paso(), paso(0.25), paso(), paso(0.25));
    fila_pie->setSpacing(paso(2));
    fila_pie->addWidget(new LetreroRespaldo(pie));
    fila_pie->addWidget(LabRevision);
    fila_pie->addWidget(Label3);
    auto* fila = new QHBoxLayout(AdvPanel2);
    fila->setContentsMargins(paso(), paso(0.5), paso(), paso(0.5));
    fila->addWidget(barra, 1);
    fila->addWidget(pie);
    barra->installEventFilter(this);
}

QWidget* Tfprincipal::columna_de_botones() {
    auto* contenido = new QWidget;
    auto* columna = new QVBoxLayout(contenido);
    columna->setContentsMargins(paso(), paso(), paso(), paso());
    columna->setSpacing(paso(0.5));
    for (const Comando& c : comandos_columna()) {
        QPushButton* b = boton(c);
        b->setMinimumHeight(escalado(34));
        columna->addWidget(b);
    }
    columna->addStretch();
    // Sin texto ni tamaño: solo prestan su tecla Alt (keyPressEvent) al botón que reenvían.
    for (const AtajoAlt& a : atajos_alt()) {
        auto* oculto = new QPushButton(contenido);
        oculto->setObjectName(QStringLiteral("alt_") + QLatin1Char(a.letra));
        oculto->setFocusPolicy(Qt::NoFocus);
        oculto->setFixedSize(0, 0);
        auto* destino = contenido->findChild<QPushButton*>(a.boton);
        connect(oculto, &QPushButton::clicked, destino, &QPushButton::click);
        destino->setToolTip(destino->toolTip() + " (Alt+" + QChar(a.letra).toUpper() + ")");
    }
    columna_ = new QScrollArea;
    columna_->setWidget(contenido);
    columna_->setWidgetResizable(true);
    columna_->setFrameShape(QFrame::NoFrame);
    columna_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    columna_->setFocusPolicy(Qt::NoFocus);
    acomode_columna();
    return columna_;
}

void Tfprincipal::acomode_columna() {
    QWidget* contenido = columna_->widget();
    for (BotonComando* b : contenido->findChildren<BotonComando*>())
        b->solo_icono(width() < escalado(1000)); // el sitio es de las cifras
    contenido->layout()->invalidate();
    columna_->setFixedWidth(contenido->sizeHint().width() +
                            columna_->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

BotonComando* Tfprincipal::boton(const Comando& comando) {
    auto* b = new BotonComando(icono(comando.icono), comando.texto());
    b->setObjectName(comando.nombre);
    b->setToolTip(comando.texto());
    b->setAccessibleName(comando.texto());
    connect(b, &QPushButton::clicked, this, [this, comando] { ejecute(comando); });
    return b;
}

void Tfprincipal::keyPressEvent(QKeyEvent* evento) {
    // Aquí llega lo que la ventana hija no quiso: sus propios atajos van primero.
    if (evento->modifiers() == Qt::AltModifier)
        for (const AtajoAlt& a : atajos_alt())
            if (evento->key() == Qt::Key_A + (a.letra - 'a')) {
                findChild<QPushButton*>(QStringLiteral("alt_") + QLatin1Char(a.letra))->click();
                return;
            }
    // Los del panel de arriba, por su orden.
    const int puesto = evento->key() - Qt::Key_1;
    if (evento->modifiers() == Qt::AltModifier && botones_balance_.value(puesto))
        return botones_balance_[puesto]->click();
    // Aquí ningún botón es el de la ventana: Enter oprime el que tiene el foco.
    if (auto* b = qobject_cast<BotonComando*>(focusWidget());
        b && (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter))
        return b->click();
    QMainWindow::keyPressEvent(evento);
}

void Tfprincipal::abra_pagina() {
    QDesktopServices::openUrl(QUrl(pagina_fabricante()));
}

bool Tfprincipal::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == Image2 && evento->type() == QEvent::MouseButtonRelease)
        abra_pagina();
    // Con el menú abierto, Esc lo cierra; en la barra, la deja.
    if (objeto == menuBar() && evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape)
        QMetaObject::invokeMethod(this, &Tfprincipal::deje_el_menu, Qt::QueuedConnection);
    if (objeto == barra && evento->type() == QEvent::ToolTipChange)
        deje_sitio(*barra, *LabRevision);
    return QMainWindow::eventFilter(objeto, evento);
}

QString Tfprincipal::rotulo_revision() {
    return QStringLiteral("Rev: %1 BD: ").arg(kRevision);
}

// ---------------------------------------------------------------- órdenes

void Tfprincipal::ejecute(const Comando& comando) {
    proteja([&] {
        if (!entre_si_falta())
            return;
        const bool exige =
            comando.apertura != Apertura::Propia && comando.derecho.permiso == Permiso::Entrada;
        if (!exige || fdm().exija_acceso(comando.derecho.opcion))
            abra(comando);
    });
}

void Tfprincipal::abra(const Comando& comando) {
    if (comando.nombre == "Nuevotercero1")
        crear_tercero();
    else if (comando.nombre == "Regitrodeterceros1")
        buscar_tercero();
    else if (comando.nombre == "CopiarcuentasaNIIF1")
        copie_cuentas_a_niif();
    else if (comando.apertura == Apertura::Modal)
        pantallas().abrir_modal(comando.abre, peticion(comando));
    else
        pantallas().abrir(comando.abre, peticion(comando));
}

Encargo Tfprincipal::peticion(const Comando& comando) {
    if (comando.modo == kModoMantenimiento)
        return AbreLista{.modo_mantenimiento = true};
    if (comando.modo == kModoDescuadres)
        return AbreAuxiliar{.cuenta_auxiliar = fdm().valor<Llave::CuentaDescuadres>()};
    if (!comando.modo.isEmpty())
        return AbreInforme{comando.modo};
    return {};
}

void Tfprincipal::crear_tercero() {
    ::crear_tercero();
}

void Tfprincipal::buscar_tercero() {
    ::buscar_tercero();
}

void Tfprincipal::Action1Execute() {
    if (entre_si_falta())
        fdm().cargue_configuracion();
}
