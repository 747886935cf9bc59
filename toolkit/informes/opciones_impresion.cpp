#include "toolkit/informes/opciones_impresion.h"

#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/impresora.h"
#include "toolkit/letras_alt.h"
#include "toolkit/pida_archivo.h"
#include "toolkit/proteccion.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace informes {

namespace {

const char* const kFormatos[] = {"Texto (*.txt)", "RTF (*.rtf)", "HTML (*.htm)", "PDF (*.pdf)"};
QString ultima_carpeta_;

template <class T> T* con_nombre(T* control, const char* nombre) {
    control->setObjectName(QLatin1String(nombre));
    return control;
}

QLabel* rotulo(const QString& texto, QWidget* de) {
    auto* r = new QLabel(texto);
    r->setBuddy(de);
    return r;
}

} // namespace

Rango OpcionesReporte::rango(int total, int actual) const {
    if (alcance == Seleccion)
        return {actual, actual};
    if (alcance == Todo)
        return {0, total - 1};
    if (desde > total || hasta < desde)
        throw ErrorInforme(QStringLiteral("Las páginas %1 a %2 no están en el informe, que tiene "
                                          "%3.")
                               .arg(desde)
                               .arg(hasta)
                               .arg(total));
    return {desde - 1, qMin(hasta, total) - 1};
}

QString pida_archivo(QWidget* ventana, const QString& sugerido, FormatoArchivo formato) {
    const QString carpeta = ultima_carpeta_.isEmpty() ? QDir::homePath() : ultima_carpeta_;
    const auto extension = [formato](const QString&) { return extension_de(formato); };
    const auto escogido = ::pida_archivo(
        ventana, {.nombre = "guardar_informe",
                  .titulo = QStringLiteral("Guardar informe"),
                  .sugerido = carpeta + '/' + componga_nombre(sugerido, extension_de(formato)),
                  .filtro = QLatin1String(kFormatos[int(formato)]),
                  .extension = extension});
    if (!escogido)
        return {};
    ultima_carpeta_ = QFileInfo(escogido->ruta).path();
    return escogido->ruta;
}

DialogoOpciones::DialogoOpciones(const OpcionesReporte& inicial, const QString& archivo,
                                 bool hay_seleccion, QWidget* padre)
    : QDialog(padre), archivo_(archivo) {
    setObjectName(QStringLiteral("OpcionesImpresion"));
    setWindowTitle(QStringLiteral("Opciones de impresión"));

    auto* cuerpo = new QVBoxLayout(this);
    cuerpo->addWidget(caja_impresora(inicial));
    cuerpo->addWidget(caja_destino(inicial));
    cuerpo->addWidget(caja_paginas(inicial, hay_seleccion));
    auto* ok = con_nombre(new QPushButton(icono("dialog-ok"), QStringLiteral("OK")), "ok");
    auto* cancelar =
        con_nombre(new QPushButton(icono("dialog-cancel"), QStringLiteral("Cancelar")), "cancelar");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] { accept(); });
    connect(cancelar, &QPushButton::clicked, this, [this] { reject(); });
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(ok);
    botones->addWidget(cancelar);
    cuerpo->addLayout(botones);
    ponga_letras(*this);

    for (QRadioButton* r : {a_impresora_, a_vista_, a_archivo_, todo_, paginas_, seleccion_})
        connect(r, &QRadioButton::toggled, this, [this] { ajuste(); });
    (inicial.destino == OpcionesReporte::Impresora ? a_impresora_
     : inicial.destino == OpcionesReporte::Vista   ? a_vista_
                                                   : a_archivo_)
        ->setChecked(true);
    (inicial.alcance == OpcionesReporte::Seleccion && hay_seleccion ? seleccion_
     : inicial.alcance == OpcionesReporte::Paginas                  ? paginas_
                                                                    : todo_)
        ->setChecked(true);
    liste_impresoras(inicial.impresora.isEmpty() ? impresora_escogida() : inicial.impresora);
    ajuste();
    ok->setFocus();
}

QWidget* DialogoOpciones::caja_impresora(const OpcionesReporte& inicial) {
    impresora_ = con_nombre(new ListaTecleo, "impresora");
    impresora_->setAccessibleName(QStringLiteral("Impresora"));
    auto* configurar = con_nombre(new QPushButton(QStringLiteral("Confi&gurar")), "configurar");
    connect(configurar, &QPushButton::clicked, this, [this] { configure(); });
    copias_ = con_nombre(new QSpinBox, "copias");
    copias_->setRange(1, 99);
    copias_->setValue(inicial.copias);
    intercalar_ = con_nombre(new QCheckBox(QStringLiteral("in&tercalar")), "intercalar");
    intercalar_->setChecked(inicial.intercalar);
    duplex_ = con_nombre(new QCheckBox(QStringLiteral("&Duplex")), "duplex");
    duplex_->setChecked(inicial.duplex);

    auto* caja = new QGroupBox(QStringLiteral("Impresora"));
    auto* arriba = new QHBoxLayout;
    arriba->addWidget(impresora_, 1);
    arriba->addWidget(configurar);
    auto* abajo = new QHBoxLayout;
    for (QWidget* w : std::initializer_list<QWidget*>{rotulo(QStringLiteral("&Copias"), copias_),
                                                      copias_, intercalar_, duplex_})
        abajo->addWidget(w);
    abajo->addStretch();
    auto* pila = new QVBoxLayout(caja);
    pila->addLayout(arriba);
    pila->addLayout(abajo);
    return caja;
}

QWidget* DialogoOpciones::caja_destino(const OpcionesReporte& inicial) {
    a_impresora_ = con_nombre(new QRadioButton(QStringLiteral("&Impresora")), "a_impresora");
    a_vista_ = con_nombre(new QRadioButton(QStringLiteral("&Vista preliminar")), "a_vista");
    a_archivo_ = con_nombre(new QRadioButton(QStringLiteral("&Archivo")), "a_archivo");
    formato_ = con_nombre(new ListaTecleo, "formato");
    for (const char* f : kFormatos)
        formato_->addItem(QLatin1String(f));
    formato_->setCurrentIndex(int(inicial.formato));

    auto* caja = new QGroupBox(QStringLiteral("Destino del reporte "));
    auto* destinos = new QVBoxLayout(caja);
    destinos->addWidget(a_impresora_);
    destinos->addWidget(a_vista_);
    auto* fila_archivo = new QHBoxLayout;
    fila_archivo->addWidget(a_archivo_);
    fila_archivo->addStretch();
    fila_archivo->addWidget(rotulo(QStringLiteral("&Formato:"), formato_));
    fila_archivo->addWidget(formato_);
    destinos->addLayout(fila_archivo);
    return caja;
}

QWidget* DialogoOpciones::caja_paginas(const OpcionesReporte& inicial, bool hay_seleccion) {
    todo_ = con_nombre(new QRadioButton(QStringLiteral("A&ll")), "todo");
    paginas_ = con_nombre(new QRadioButton(QStringLiteral("&Pages")), "paginas");
    seleccion_ = con_nombre(new QRadioButton(QStringLiteral("&Selection")), "seleccion");
    seleccion_->setEnabled(hay_seleccion);
    desde_ = con_nombre(new QSpinBox, "desde");
    hasta_ = con_nombre(new QSpinBox, "hasta");
    for (QSpinBox* s : {desde_, hasta_})
        s->setRange(1, 999999);
    desde_->setValue(inicial.desde);
    hasta_->setValue(inicial.hasta);

    auto* caja = new QGroupBox(QStringLiteral("Páginas del informe"));
    auto* rangos = new QVBoxLayout(caja);
    rangos->addWidget(todo_);
    auto* fila_paginas = new QHBoxLayout;
    for (QWidget* w :
         std::initializer_list<QWidget*>{paginas_, rotulo(QStringLiteral("F&rom"), desde_), desde_,
                                         rotulo(QStringLiteral("t&o"), hasta_), hasta_})
        fila_paginas->addWidget(w);
    fila_paginas->addStretch();
    rangos->addLayout(fila_paginas);
    rangos->addWidget(seleccion_);
    return caja;
}

void DialogoOpciones::liste_impresoras(QString escogida) {
    impresora_->clear();
    impresora_->addItems(QPrinterInfo::availablePrinterNames());
    if (!escogida.isEmpty() && impresora_->findText(escogida) < 0)
        impresora_->addItem(escogida);
    if (escogida.isEmpty())
        escogida = QPrinterInfo::defaultPrinterName();
    impresora_->setCurrentText(escogida);
    const bool hay = impresora_->count() > 0;
    if (!hay)
        impresora_->addItem(QStringLiteral("(no hay impresoras instaladas)"));
    impresora_->setEnabled(hay);
}

void DialogoOpciones::configure() {
    proteja([this] {
        const QString antes = impresora_escogida(), propuesta = opciones().impresora;
        configure_impresora(this);
        const QString ahora = impresora_escogida();
        liste_impresoras(ahora == antes ? propuesta : ahora);
    });
}

void DialogoOpciones::ajuste() {
    formato_->setEnabled(a_archivo_->isChecked());
    for (QWidget* w : std::initializer_list<QWidget*>{copias_, intercalar_, duplex_})
        w->setEnabled(!a_archivo_->isChecked());
    for (QWidget* w : std::initializer_list<QWidget*>{desde_, hasta_})
        w->setEnabled(paginas_->isChecked());
}

void DialogoOpciones::accept() {
    proteja([this] {
        if (paginas_->isChecked() && hasta_->value() < desde_->value()) {
            muestre_mensaje(QStringLiteral("La página final no puede ser menor que la inicial."));
            hasta_->setFocus();
            return;
        }
        if (a_impresora_->isChecked() && !impresora_->isEnabled()) {
            muestre_mensaje(QStringLiteral(
                "No hay impresoras instaladas en este equipo. Escoja la vista preliminar o un "
                "archivo, o instale una impresora."));
            return;
        }
        if (a_archivo_->isChecked()) {
            ruta_ = pida_archivo(this, archivo_, FormatoArchivo(formato_->currentIndex()));
            if (ruta_.isEmpty())
                return;
        }
        QDialog::accept();
    });
}

OpcionesReporte DialogoOpciones::opciones() const {
    OpcionesReporte o;
    o.destino = a_impresora_->isChecked() ? OpcionesReporte::Impresora
                : a_vista_->isChecked()   ? OpcionesReporte::Vista
                                          : OpcionesReporte::Archivo;
    o.alcance = paginas_->isChecked()     ? OpcionesReporte::Paginas
                : seleccion_->isChecked() ? OpcionesReporte::Seleccion
                                          : OpcionesReporte::Todo;
    o.impresora = impresora_->isEnabled() ? impresora_->currentText() : QString();
    o.copias = copias_->value();
    o.intercalar = intercalar_->isChecked();
    o.duplex = duplex_->isChecked();
    o.formato = FormatoArchivo(formato_->currentIndex());
    o.ruta = ruta_;
    o.desde = desde_->value();
    o.hasta = hasta_->value();
    return o;
}

} // namespace informes
