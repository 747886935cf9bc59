// Menú emergente, archivos e impresión de la rejilla.
#include "toolkit/rejilla/rejilla.h"

#include "toolkit/aviso_salida.h"
#include "toolkit/dialogos.h"
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/exportacion/impresion_tabla.h"
#include "toolkit/impresora.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/anuncio_pegado.h"
#include "toolkit/rejilla/tabla_rejilla.h"
#include "toolkit/rejilla/texto_tabulado.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>

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

/// Avance que aparece si el recorrido tarda; cancelar lo aborta en silencio y no deja archivo.
class Avance {
public:
    Avance(QWidget* padre, const QString& texto) : dialogo_(texto, "Cancelar", 0, 0, padre) {
        dialogo_.setObjectName(QStringLiteral("avance"));
        dialogo_.setWindowModality(Qt::ApplicationModal);
        dialogo_.setMinimumDuration(1000);
    }
    void operator()(int fila) {
        dialogo_.setLabelText(QStringLiteral("%1 filas").arg(fila));
        dialogo_.setValue(fila);
        if (dialogo_.wasCanceled())
            throw EdicionAbortada();
    }

private:
    QProgressDialog dialogo_;
};

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
            return digitando()
                       ? pegue()
                       : pegue_con_anuncio(*this, lea_tabulado(QApplication::clipboard()->text()));
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
    QFileDialog dialogo(
        this, QStringLiteral("Guardar selección"), QDir::homePath(),
        filtro_para_qt(filtro_archivo.isEmpty() ? kFiltroExportacion : filtro_archivo));
    dialogo.setObjectName(QStringLiteral("guardar_seleccion"));
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    // La extensión se agrega después: la pregunta por el archivo existente es sobre el nombre
    // final.
    dialogo.setOption(QFileDialog::DontConfirmOverwrite);
    dialogo.selectFile(nombre_archivo);
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
        return;
    const FormatoExportacion formato = formato_del_filtro(dialogo.selectedNameFilter());
    const QString ruta = componga_nombre(dialogo.selectedFiles().first(), extension_de(formato));
    if (QFileInfo::exists(ruta) &&
        !pregunte_con_no(QStringLiteral("El archivo %1 ya existe. Desea reemplazarlo?").arg(ruta)))
        return;
    TablaRejilla tabla(*this);
    Avance avance(this, QStringLiteral("Guardando %1 ...").arg(ruta));
    tabla.avance = [&avance](int fila) { avance(fila); };
    exporte(tabla, formato, ruta);
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
            opciones.fuente = font();
            paginas = imprima_tabla(tabla, *hoja, opciones);
        });
    });
    vista.resize(size().expandedTo(QSize(800, 600)));
    if (vista.exec() == QDialog::Accepted) // se cierra sola solo cuando imprime
        avise_impreso(impresora, paginas);
}
