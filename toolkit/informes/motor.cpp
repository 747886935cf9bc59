#include "toolkit/informes/motor.h"

#include "toolkit/impresora.h"
#include "toolkit/informes/vista_preliminar.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProgressDialog>
#include <QScopeGuard>

using namespace informes;

/// "Generando página %p" mientras se compone, con la salida que abandona el informe. Un informe
/// corto no llega a mostrarlo.
class MotorInformes::Avance {
public:
    explicit Avance(QWidget* ventana)
        : dialogo_(QStringLiteral("Generando página 1"), QStringLiteral("Cancelar"), 0, 0,
                   ventana) {
        dialogo_.setObjectName(QStringLiteral("avance_informe"));
        dialogo_.setWindowTitle(QStringLiteral("Informe"));
        dialogo_.setWindowModality(Qt::ApplicationModal);
        dialogo_.setMinimumDuration(0);
        dialogo_.reset();
        reloj_.start();
    }
    bool operator()(int pagina) {
        constexpr qint64 kDemora = 600, kCadencia = 100; // milisegundos
        if (reloj_.elapsed() < (mostrado_ ? proximo_ : kDemora))
            return true;
        proximo_ = reloj_.elapsed() + kCadencia;
        if (!mostrado_)
            dialogo_.show();
        mostrado_ = true;
        dialogo_.setLabelText(QStringLiteral("Generando página %1").arg(pagina));
        QApplication::processEvents();
        return !dialogo_.wasCanceled();
    }
    /// Un aviso que se cierra apenas aparece puede dejar el teclado sin ventana.
    ~Avance() {
        if (!mostrado_)
            return;
        dialogo_.hide();
        if (QWidget* queda = QApplication::activeModalWidget())
            queda->activateWindow();
        else if (dialogo_.parentWidget())
            dialogo_.parentWidget()->window()->activateWindow();
    }

private:
    QProgressDialog dialogo_;
    QElapsedTimer reloj_;
    qint64 proximo_ = 0;
    bool mostrado_ = false;
};

MotorInformes::MotorInformes(QWidget* ventana) : ventana_(ventana) {}
MotorInformes::~MotorInformes() = default;

void MotorInformes::abrir_proyecto(const QString& ruta) {
    cerrar();
    const QString propio = QStringLiteral(":/informes/") + QFileInfo(ruta).fileName().toLower();
    const QString cual = QFile::exists(ruta) || !QFile::exists(propio) ? ruta : propio;
    if (!en_lote_ || !leido_ || leido_->ruta != cual)
        leido_ = std::make_unique<Proyecto>(lea_proyecto(cual));
    proyecto_ = std::make_unique<Proyecto>(*leido_);
}

void MotorInformes::fijar_parametro(const QString& nombre, const QString& valor) {
    variables_.textos[nombre] = valor;
}

void MotorInformes::fijar_imagen(const QString& nombre, const QImage& imagen) {
    variables_.imagenes[nombre] = imagen;
}

void MotorInformes::fijar_letras(const QString& moneda, const QString& fraccion,
                                 const QString& final) {
    variables_.moneda = moneda;
    variables_.fraccion = fraccion;
    variables_.final_letras = final;
}

void MotorInformes::conecte(const QString& conexion, ConjuntoDatos& conjunto) {
    conexiones_[conexion.toUpper()] = &conjunto;
}

void MotorInformes::seleccionar_reporte(const QString& nombre) {
    seleccionado_ = nombre;
}

Reporte& MotorInformes::reporte_de(const QString& pagina) {
    Reporte* reporte = proyecto_ ? proyecto_->reporte_de_pagina(pagina) : nullptr;
    if (!reporte)
        throw ErrorInforme(QStringLiteral("El proyecto de informes \"%1\" no tiene la página %2.")
                               .arg(QFileInfo(ProjectFile).fileName(), pagina));
    return *reporte;
}

void MotorInformes::fijar_texto(const QString& pagina, const QString& item, const QString& texto) {
    Item* encontrado = reporte_de(pagina).item(item);
    if (!encontrado)
        throw ErrorInforme(
            QStringLiteral("La página %1 no tiene el texto \"%2\".").arg(pagina, item));
    // También en lugar de un dato: desde ahora es un texto.
    encontrado->clase = Item::Texto;
    encontrado->formula = {};
    encontrado->pedazos = {{Pedazo::Literal, texto}};
}

void MotorInformes::fijar_grupo(const QString& pagina, const QString& banda,
                                const QString& columna) {
    Reporte& reporte = reporte_de(pagina);
    const QStringList columnas = columna.split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (Banda* b = reporte.banda(banda)) {
        b->omitida = columna.isEmpty();
        if (!columna.isEmpty() && b->grupo >= 0)
            reporte.grupos[b->grupo].columnas = columnas;
        return;
    }
    Grupo* grupo = reporte.grupo(banda);
    if (!grupo)
        throw ErrorInforme(
            QStringLiteral("La página %1 no tiene la banda \"%2\".").arg(pagina, banda));
    grupo->columnas = columnas;
    for (Banda& b : reporte.bandas)
        if (b.grupo >= 0 && &reporte.grupos[b.grupo] == grupo)
            b.omitida = columna.isEmpty();
}

QString MotorInformes::titulo() const {
    return variables_.textos.value(QStringLiteral("Titulo"), nombre_archivo);
}

// ---------------------------------------------------------------- composición

bool MotorInformes::componga(Hojas& hojas, const Compositor::Avance& avance) {
    if (!proyecto_)
        throw ErrorInforme(QStringLiteral("No hay un proyecto de informes abierto."));
    const Reporte* reporte = proyecto_->reporte(seleccionado_);
    if (!reporte)
        throw ErrorInforme(QStringLiteral("El proyecto de informes \"%1\" no tiene el reporte %2.")
                               .arg(QFileInfo(proyecto_->ruta).fileName(), seleccionado_));
    std::vector<std::unique_ptr<DatosConjunto>> filas;
    Fuentes fuentes;
    for (auto i = conexiones_.constBegin(); i != conexiones_.constEnd(); ++i) {
        filas.push_back(std::make_unique<DatosConjunto>(**i));
        fuentes.insert(i.key(), filas.back().get());
    }
    Compositor compositor(*proyecto_, *reporte, variables_, fuentes, hojas);
    compositor.sigue_documento = !en_lote_ && hojas.paginas() > 0;
    return compositor.componga(avance);
}

bool MotorInformes::agregue() {
    if (en_lote_ && lote_cancelado_)
        return false;
    if (!documento_)
        documento_ = std::make_unique<Hojas>();
    bool completo = false;
    const auto descarte = qScopeGuard([&] {
        if (!completo && !en_lote_)
            documento_.reset();
    });
    if (en_lote_) {
        completo = componga(*documento_, std::ref(*avance_lote_));
        lote_cancelado_ = !completo;
    } else {
        Avance avance(ventana_);
        completo = componga(*documento_, std::ref(avance));
    }
    return completo;
}

bool MotorInformes::ejecutar() {
    return agregue() && (en_lote_ || saque_documento());
}

bool MotorInformes::saque_documento() {
    if (!documento_)
        return false;
    const std::unique_ptr<Hojas> hojas = std::move(documento_);
    if (al_componer)
        al_componer();
    if (!pida_opciones())
        return false;
    saque(*hojas);
    return true;
}

void MotorInformes::ejecutar_en(const QString& ruta, FormatoArchivo formato) {
    std::unique_ptr<Hojas> hojas = std::move(documento_);
    if (!hojas)
        hojas = std::make_unique<Hojas>();
    componga(*hojas, {});
    grabe(*hojas, formato, ruta, todas(*hojas), titulo());
}

bool MotorInformes::ejecutar_trabajo(const Trabajo& trabajo) {
    if (en_lote_) {
        documento_->comience_documento();
        trabajo(*documento_);
        lote_cancelado_ = !(*avance_lote_)(documento_->paginas());
        return !lote_cancelado_;
    }
    if (!pida_opciones())
        return false;
    Hojas hojas;
    hojas.comience_documento();
    trabajo(hojas);
    if (al_componer)
        al_componer();
    saque(hojas);
    return true;
}

bool MotorInformes::comience_lote() {
    if (!pida_opciones())
        return false;
    documento_ = std::make_unique<Hojas>();
    avance_lote_ = std::make_unique<Avance>(ventana_);
    en_lote_ = true;
    lote_cancelado_ = false;
    return true;
}

bool MotorInformes::termine_lote() {
    en_lote_ = false;
    avance_lote_.reset();
    const std::unique_ptr<Hojas> hojas = std::move(documento_);
    if (!hojas || lote_cancelado_ || hojas->paginas() == 0)
        return false;
    if (al_componer)
        al_componer();
    saque(*hojas);
    return true;
}

// ---------------------------------------------------------------- salida

bool MotorInformes::pida_opciones() {
    static OpcionesReporte::Destino ultimo = OpcionesReporte::Vista;
    opciones_ = {};
    opciones_.destino = vista_previa ? ultimo : OpcionesReporte::Impresora;
    opciones_.impresora = impresora;
    DialogoOpciones dialogo(opciones_, nombre_archivo, false, ventana_);
    if (dialogo.exec() != QDialog::Accepted)
        return false;
    opciones_ = dialogo.opciones();
    // Lo que se imprime sin verlo antes no cambia lo que se propone a los demás informes.
    if (vista_previa)
        ultimo = opciones_.destino;
    return true;
}

void MotorInformes::saque(const Hojas& hojas) {
    switch (opciones_.destino) {
    case OpcionesReporte::Vista: {
        VistaPreliminar vista(hojas, nombre_archivo, opciones_, ventana_);
        vista.titulo = nombre_trabajo.isEmpty() ? titulo() : nombre_trabajo;
        vista.exec();
        break;
    }
    case OpcionesReporte::Impresora:
        imprima_hojas(hojas, opciones_, 0, nombre_trabajo.isEmpty() ? titulo() : nombre_trabajo);
        break;
    case OpcionesReporte::Archivo:
        grabe_y_diga(hojas, opciones_.formato, opciones_.ruta, opciones_.rango(hojas.paginas(), 0),
                     titulo());
        break;
    }
}

void MotorInformes::cerrar() {
    proyecto_.reset();
    seleccionado_.clear();
}
