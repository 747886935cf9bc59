// Menú emergente, archivos e impresión de la rejilla.
#include "toolkit/rejilla/rejilla.h"

#include "datos/firebird/concuerde.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/aviso_salida.h"
#include "toolkit/dialogos.h"
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/exportacion/impresion_tabla.h"
#include "toolkit/impresora.h"
#include "toolkit/pida_archivo.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/anuncio_pegado.h"
#include "toolkit/rejilla/tabla_rejilla.h"
#include "toolkit/rejilla/texto_tabulado.h"

#include <QClipboard>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {

const char* rotulo(Rejilla::Orden orden) {
    switch (orden) {
    case Rejilla::Cortar:
        return "Cor&tar";
    case Rejilla::Copiar:
        return "&Copiar";
    case Rejilla::Pegar:
        return "&Pegar";
    case Rejilla::Borrar:
        return "&Borrar";
    case Rejilla::SeleccionarTodo:
        return "Se&lecccionar todo";
    case Rejilla::Imprimir:
        return "&Imprimir";
    case Rejilla::VistaPreliminar:
        return "&Vista preliminar";
    default:
        return "&Guardar selección";
    }
}

} // namespace

// ---------------------------------------------------------------- menú

QMenu* Rejilla::menu_emergente(const QVector<Orden>& ordenes) {
    delete menu_;
    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("menu_rejilla"));
    QVector<QPair<Orden, QAction*>> opciones;
    for (const Orden orden : ordenes) {
        if (orden == SeleccionarTodo || orden == Imprimir || orden == VistaPreliminar)
            menu_->addSeparator();
        QAction* opcion = menu_->addAction(QString::fromUtf8(rotulo(orden)));
        connect(opcion, &QAction::triggered, this, [this, orden] { ejecute_orden(orden); });
        opciones << qMakePair(orden, opcion);
    }
    connect(menu_, &QMenu::aboutToShow, this, [this, opciones] {
        for (const auto& [orden, opcion] : opciones)
            opcion->setEnabled(permite_orden(orden));
    });
    return menu_;
}

bool Rejilla::permite_orden(Orden orden) const {
    switch (orden) {
    case Cortar:
    case Borrar:
        return puede_borrar();
    case Pegar:
        return puede_pegar();
    default:
        return puede_copiar();
    }
}

void Rejilla::al_ordenar(Orden orden, std::function<void()> accion) {
    ordenes_propias_[orden] = std::move(accion);
}

void Rejilla::ejecute_orden(Orden orden) {
    if (orden == Pegar && conjunto() && conjunto()->Active() && !editable() &&
        son_varias_celdas(lea_tabulado(QApplication::clipboard()->text())))
        muestre_mensaje(QStringLiteral("Esta lista no se digita: no se puede pegar en ella."));
    if (!permite_orden(orden))
        return;
    proteja([&] {
        // Dentro de una celda abierta, cortar y pegar son del texto que se digita.
        if (const auto propia = ordenes_propias_.value(orden); propia && !digitando()) {
            propia();
            return;
        }
        switch (orden) {
        case Cortar:
            return corte();
        case Copiar:
            return copie();
        case Pegar:
            return digitando() ? pegue() : pegue_con_anuncio(*this, tabla_pegada());
        case Borrar:
            return borre_seleccion();
        case SeleccionarTodo:
            return seleccione_todo();
        case Imprimir:
        case VistaPreliminar:
            return imprima();
        case Guardar:
            return guarde_seleccion();
        }
    });
}

void Rejilla::contextMenuEvent(QContextMenuEvent* evento) {
    if (!menu_) {
        evento->ignore();
        return;
    }
    evento->accept();
    QPoint donde = evento->globalPos();
    if (evento->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        donde = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
    menu_->popup(donde);
}

// ---------------------------------------------------------------- archivo e impresión

void Rejilla::guarde_seleccion() {
    if (!termine_edicion() || !puede_copiar())
        return;
    const auto escogido = pida_archivo(
        this,
        {.nombre = "guardar_seleccion",
         .titulo = QStringLiteral("Guardar selección"),
         .sugerido = nombre_archivo,
         .filtro = filtro_para_qt(filtro_archivo.isEmpty() ? kFiltroExportacion : filtro_archivo),
         .extension = extension_del_filtro});
    if (!escogido)
        return;
    TablaRejilla tabla(*this);
    AvanceTrabajo avance(this, QStringLiteral("Guardando %1 ...").arg(escogido->ruta));
    tabla.avance = [&avance](int fila) {
        if (!avance.siga(fila, concuerde(fila, "%1 fila", "%1 filas")))
            throw EdicionAbortada();
    };
    exporte(tabla, formato_del_filtro(escogido->filtro), escogido->ruta);
}

void Rejilla::imprima() {
    if (!termine_edicion() || !puede_copiar())
        return;
    QPrinter impresora;
    prepare_impresora(impresora);
    QPrintPreviewDialog vista(&impresora, this);
    vista.setObjectName(QStringLiteral("vista_preliminar"));
    vista.setWindowTitle(QStringLiteral("Vista preliminar"));
    int paginas = 0;
    connect(&vista, &QPrintPreviewDialog::paintRequested, this, [this, &paginas](QPrinter* hoja) {
        proteja([&] {
            TablaRejilla tabla(*this);
            OpcionesImpresion opciones;
            opciones.compania = compania_impresa;
            opciones.encabezado = titulo_impreso;
            opciones.cifras = property("cifras_impresas").toString();
            opciones.fuente = font();
            paginas = imprima_tabla(tabla, *hoja, opciones);
        });
    });
    vista.resize(size().expandedTo(QSize(800, 600)));
    if (vista.exec() == QDialog::Accepted) // se cierra sola solo cuando imprime
        avise_impreso(impresora, paginas);
}
