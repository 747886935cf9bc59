#include "toolkit/controles/navegadordatos.h"

#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"

#include <QHBoxLayout>

namespace {
struct Definicion {
    BotonNavegador cual;
    const char* nombre;
    const char* icono;
    const char* sin_icono; ///< texto si no hay tema de iconos
    const char* ayuda;
};
const Definicion kBotones[] = {
    {nbFirst, "nbFirst", "go-first", "|<", "Primero"},
    {nbPrior, "nbPrior", "go-previous", "<", "Anterior"},
    {nbNext, "nbNext", "go-next", ">", "Siguiente"},
    {nbLast, "nbLast", "go-last", ">|", "Último"},
    {nbInsert, "nbInsert", "list-add", "+", "Insertar"},
    {nbDelete, "nbDelete", "list-remove", "-", "Borrar"},
    {nbEdit, "nbEdit", "document-properties", "e", "Modificar"},
    {nbPost, "nbPost", "document-save", "ok", "Grabar"},
    {nbCancel, "nbCancel", "edit-undo", "x", "Cancelar"},
    {nbRefresh, "nbRefresh", "view-refresh", "r", "Actualizar"},
};
} // namespace

NavegadorDatos::NavegadorDatos(ConjuntoDatos* conjunto, unsigned visibles, QWidget* padre)
    : QWidget(padre) {
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(0);
    for (const Definicion& d : kBotones) {
        auto* b = new QToolButton(this);
        b->setObjectName(QLatin1String(d.nombre));
        b->setIcon(icono(QLatin1String(d.icono)));
        b->setText(QLatin1String(d.sin_icono));
        b->setToolTip(QString::fromUtf8(d.ayuda));
        b->setAccessibleName(QString::fromUtf8(d.ayuda));
        b->setAutoRaise(true);
        b->setFocusPolicy(Qt::TabFocus);
        b->setAutoRepeat(d.cual == nbPrior || d.cual == nbNext);
        connect(b, &QToolButton::clicked, this,
                [this, cual = d.cual] { proteja([&] { pulse(cual); }); });
        fila->addWidget(b);
        botones_ << b;
    }
    botones(visibles);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ate(conjunto);
}

void NavegadorDatos::ate(ConjuntoDatos* conjunto) {
    enlace(conjunto);
    actualice();
}

void NavegadorDatos::botones(unsigned visibles) {
    for (int i = 0; i < botones_.size(); ++i)
        botones_[i]->setVisible(visibles & kBotones[i].cual);
}

QToolButton* NavegadorDatos::boton(BotonNavegador cual) const {
    for (int i = 0; i < botones_.size(); ++i)
        if (kBotones[i].cual == cual)
            return botones_[i];
    return nullptr;
}

void NavegadorDatos::pulse(BotonNavegador cual) {
    ConjuntoDatos* c = conjunto();
    if (!c)
        return;
    switch (cual) {
    case nbFirst:
        c->First();
        break;
    case nbPrior:
        c->Prior();
        break;
    case nbNext:
        c->Next();
        break;
    case nbLast:
        c->Last();
        break;
    case nbInsert:
        c->Insert();
        break;
    case nbDelete:
        if (!ConfirmDelete || pregunte_con_no(QStringLiteral("Desea borrar el registro?")))
            c->Delete();
        break;
    case nbEdit:
        c->Edit();
        break;
    case nbPost:
        c->Post();
        break;
    case nbCancel:
        c->Cancel();
        break;
    case nbRefresh:
        c->Refresh();
        break;
    default:
        break;
    }
}

void NavegadorDatos::actualice() {
    const ConjuntoDatos* c = conjunto();
    const bool abierto = c && c->Active();
    const bool filas = abierto && !c->IsEmpty();
    const bool editando = abierto && c->editando();
    const bool atras = filas && (c->RecNo() > 0 || editando);
    const bool adelante =
        filas && (c->RecNo() < c->RecordCount() - 1 || !c->completo() || editando);
    const bool habilitados[] = {atras,
                                atras,
                                adelante,
                                adelante,
                                abierto,
                                filas,
                                filas && !editando,
                                editando,
                                editando,
                                abierto && !editando};
    for (int i = 0; i < botones_.size(); ++i)
        botones_[i]->setEnabled(habilitados[i]);
}

void NavegadorDatos::estado_cambiado() {
    actualice();
}
void NavegadorDatos::fila_actual_cambiada() {
    actualice();
}
void NavegadorDatos::filas_reiniciadas() {
    actualice();
}
void NavegadorDatos::filas_insertadas(int, int) {
    actualice();
}
void NavegadorDatos::filas_borradas(int, int) {
    actualice();
}
