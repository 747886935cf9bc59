#include "toolkit/informes/motor.h"

#include "toolkit/impresora.h"
#include "toolkit/informes/vista_preliminar.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProgressDialog>

using namespace informes;

namespace {

/// "Generando página %p" mientras se compone, con la salida que abandona el informe. Un informe
/// corto no llega a mostrarlo.
class AvanceHojas {
public:
    explicit AvanceHojas(QWidget* ventana)
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

private:
    QProgressDialog dialogo_;
    QElapsedTimer reloj_;
    qint64 proximo_ = 0;
    bool mostrado_ = false;
};

} // namespace

MotorInformes::MotorInformes(QWidget* ventana) : ventana_(ventana) {}
MotorInformes::~MotorInformes() = default;

void MotorInformes::abrir_proyecto(const QString& ruta) {
    cerrar();
    const QString propio = QStringLiteral(":/informes/") + QFileInfo(ruta).fileName().toLower();
    proyecto_ = std::make_unique<Proyecto>(
        lea_proyecto(QFile::exists(ruta) || !QFile::exists(propio) ? ruta : propio));
}

void MotorInformes::fijar_parametro(const QString& nombre, const QString& valor) {
    variables_.textos[nombre] = valor;
}

void MotorInformes::fijar_imagen(const QString& nombre, const QImage& imagen) {
    variables_.imagenes[nombre] = imagen;
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
    encontrado->pedazos = {{Pedazo::Literal, texto}};
}

void MotorInformes::fijar_grupo(const QString& pagina, const QString& banda,
                                const QString& columna) {
    Banda* encontrada = reporte_de(pagina).banda(banda);
    if (!encontrada)
        throw ErrorInforme(
            QStringLiteral("La página %1 no tiene la banda \"%2\".").arg(pagina, banda));
    encontrada->omitida = columna.isEmpty();
    encontrada->columnas = columna.split(QLatin1Char(','));
}

QString MotorInformes::titulo() const {
    return variables_.textos.value(QStringLiteral("Titulo"), nombre_archivo);
}

bool MotorInformes::ejecutar() {
    if (!proyecto_)
        throw ErrorInforme(QStringLiteral("No hay un proyecto de informes abierto."));
    const Reporte* reporte = proyecto_->reporte(seleccionado_);
    if (!reporte)
        throw ErrorInforme(QStringLiteral("El proyecto de informes \"%1\" no tiene el reporte %2.")
                               .arg(QFileInfo(proyecto_->ruta).fileName(), seleccionado_));
    ConjuntoDatos* conjunto = conexiones_.value(reporte->conexion.toUpper());
    if (!conjunto)
        throw ErrorInforme(QStringLiteral("El reporte %1 lee la conexión %2, que no está.")
                               .arg(reporte->nombre, reporte->conexion));
    return corra([&](Hojas& hojas, const Compositor::Avance& avance) {
        DatosConjunto datos(*conjunto);
        return Compositor(*proyecto_, *reporte, variables_, datos, hojas).componga(avance);
    });
}

bool MotorInformes::ejecutar_trabajo(const Trabajo& trabajo) {
    return corra([&](Hojas& hojas, const Compositor::Avance& avance) {
        hojas.comience_documento();
        trabajo(hojas);
        return !avance || avance(hojas.paginas());
    });
}

bool MotorInformes::pida_opciones() {
    static OpcionesReporte::Destino ultimo = OpcionesReporte::Vista;
    if (!vista_previa && ultimo == OpcionesReporte::Vista)
        ultimo = OpcionesReporte::Impresora;
    opciones_ = {};
    opciones_.destino =
        vista_previa || ultimo != OpcionesReporte::Vista ? ultimo : OpcionesReporte::Impresora;
    DialogoOpciones dialogo(opciones_, nombre_archivo, false, ventana_);
    if (dialogo.exec() != QDialog::Accepted)
        return false;
    opciones_ = dialogo.opciones();
    ultimo = opciones_.destino;
    return true;
}

bool MotorInformes::corra(const std::function<bool(Hojas&, const Compositor::Avance&)>& componga) {
    if (lote_) {
        if (!lote_pedido_) {
            lote_pedido_ = true;
            lote_cancelado_ = !pida_opciones();
            avance_lote_ = [avance = std::make_shared<AvanceHojas>(ventana_)](int pagina) {
                return (*avance)(pagina);
            };
        }
        if (!lote_cancelado_)
            lote_cancelado_ = !componga(*lote_, avance_lote_);
        return !lote_cancelado_;
    }
    if (!pida_opciones())
        return false;
    Hojas hojas;
    {
        AvanceHojas avance(ventana_);
        if (!componga(hojas, std::ref(avance)))
            return false;
    }
    saque(hojas);
    return true;
}

void MotorInformes::comience_lote() {
    lote_ = std::make_unique<Hojas>();
    lote_pedido_ = lote_cancelado_ = false;
}

bool MotorInformes::termine_lote() {
    avance_lote_ = {};
    const std::unique_ptr<Hojas> hojas = std::move(lote_);
    const bool hay = hojas && lote_pedido_ && !lote_cancelado_ && hojas->paginas() > 0;
    if (hay)
        saque(*hojas);
    return hay;
}

void MotorInformes::saque(const Hojas& hojas) {
    switch (opciones_.destino) {
    case OpcionesReporte::Vista: {
        VistaPreliminar vista(hojas, nombre_archivo, opciones_, ventana_);
        vista.exec();
        break;
    }
    case OpcionesReporte::Impresora:
        imprima_hojas(hojas, opciones_, 0);
        break;
    case OpcionesReporte::Archivo:
        grabe(hojas, opciones_.formato, opciones_.ruta, opciones_.rango(hojas.paginas(), 0),
              titulo());
        break;
    }
}

void MotorInformes::cerrar() {
    proyecto_.reset();
    seleccionado_.clear();
}
