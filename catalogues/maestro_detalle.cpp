#include "catalogues/maestro_detalle.h"

#include "toolkit/barrabotones.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/division_fluida.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/sin_grabar.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

MaestroDetalle::MaestroDetalle(const QString& clase, const QString& titulo,
                               const QString& proveedor, Sentencia& sentencia, unsigned opciones,
                               const QString& maestro, const QString& detalle,
                               Sentencia& sentencia_detalle)
    : Pantalla(clase, titulo) {
    proveedor_ = new Proveedor(this, proveedor, &sentencia, opciones);
    maestro_ = new ConjuntoDatos(this, maestro, proveedor_);
    detalle_ = new ConjuntoDatos(this, detalle);
    detalle_->anide_en(maestro_, &sentencia_detalle);
    cuide_lo_digitado(*this, {maestro_, detalle_});
    // El detalle nace con la llave de su maestro: ese registro ya debe estar completo.
    detalle_->BeforeInsert = [this] {
        const int antes = maestro_->State() == Estado::Insercion ? maestro_->RecordCount() : 0;
        maestro_->CheckBrowseMode();
        if (maestro_->RecordCount() < antes) // vacío, se canceló: el detalle sería de otro
            throw EdicionAbortada();
    };
}

Rejilla* MaestroDetalle::rejilla(const QString& nombre, ConjuntoDatos* conjunto, const Lado& lado,
                                 QWidget* marco) {
    auto* r = new Rejilla(marco, conjunto);
    r->setObjectName(nombre);
    r->setAccessibleName(lado.titulo);
    r->columnas(lado.columnas);
    r->enter_como_tab = true;
    r->texto_vacio = "No hay registros. Insert agrega el primero.";
    auto* navegador = new NavegadorDatos(conjunto, nbRecorrido | nbInsert | nbDelete, marco);
    navegador->setObjectName(QString(nombre).replace("DBGridEh", "DBNavigator"));
    auto* columna = new QVBoxLayout(marco);
    auto* arriba = new QHBoxLayout;
    arriba->addWidget(navegador);
    arriba->addStretch(1);
    if (lado.arriba)
        arriba->addWidget(lado.arriba);
    columna->addLayout(arriba);
    columna->addWidget(r, 1);
    if (lado.debajo) {
        columna->addWidget(lado.debajo);
        setTabOrder(r, lado.debajo);
    }
    return r;
}

void MaestroDetalle::arme(const Lado& izquierda, const Lado& derecha) {
    auto* division = new DivisionFluida(this);
    auto* marco1 = new QGroupBox(izquierda.titulo, division);
    auto* marco2 = new QGroupBox(derecha.titulo, division);
    DBGridEh1 = rejilla("DBGridEh1", maestro_, izquierda, marco1);
    DBGridEh2 = rejilla("DBGridEh2", detalle_, derecha, marco2);
    division->setStretchFactor(0, izquierda.parte);
    division->setStretchFactor(1, derecha.parte);
    teclas_selector_ = new QLabel("Enter: escoge    Letras y cifras: ubican    F12: cambia de "
                                  "rejilla    Esc: sale sin escoger",
                                  this);
    teclas_selector_->setObjectName("teclas_selector");
    teclas_selector_->hide();
    barra_ = new BarraBotones(this);
    // Tab va celda por celda: desde una fila de en medio no llegaría a su detalle.
    tecla(Qt::Key_F12, "Cambiar de rejilla",
          [this] { (DBGridEh1->enfocada() ? DBGridEh2 : DBGridEh1)->setFocus(); });
    Formulario(this).ancha(division).ancha(teclas_selector_, 0).botones(barra_);
}

void MaestroDetalle::escoja_con(std::function<void()> escoja) {
    escoja_ = escoja;
    DBGridEh1->OnDblClick = DBGridEh2->OnDblClick = [escoja](int) { escoja(); };
    barra_->boton("SBSelec", "Selecciona", "emblem-default", QKeySequence(), std::move(escoja));
}

void MaestroDetalle::como_selector() {
    teclas_selector_->show();
    for (Rejilla* r : {DBGridEh1, DBGridEh2}) {
        r->ubica_al_teclear = true;
        r->OnReturn = [this, r] {
            if (r->conjunto()->editando())
                r->conjunto()->Post();
            else if (r == DBGridEh1 && !detalle_->IsEmpty())
                DBGridEh2->setFocus();
            else
                escoja_();
        };
    }
}

void MaestroDetalle::cancele_y_cierre() {
    close(); // FormClose descarta, y antes se pregunta
}

bool MaestroDetalle::FormClose() {
    detalle_->Cancel();
    maestro_->Cancel();
    maestro_->Close();
    return true;
}
