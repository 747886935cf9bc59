#include "catalogues/lista_catalogo.h"

#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>
#include <QLineEdit>

ListaCatalogo::ListaCatalogo(const QString& clase, const QString& titulo, Sentencia& sentencia,
                             const QString& tabla)
    : Pantalla(clase, titulo) {
    proveedor_ = new Proveedor(this, "P" + tabla, &sentencia, poAllowCommandText);
    conjunto_ = new ConjuntoDatos(this, "C" + tabla, proveedor_);
    PBorrar = new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText);
    CBorrar = new ConjuntoDatos(this, "CBorrar", PBorrar);
}

void ListaCatalogo::arme(const QVector<FilaBusqueda::Eleccion>& busquedas,
                         const QString& rotulo_inactivos,
                         const QVector<DefinicionColumna>& columnas,
                         const QString& nombre_archivo) {
    busqueda_ = new FilaBusqueda(busquedas, rotulo_inactivos, this);
    busqueda_->demora = fdm().duracion_busquedas;
    busqueda_->sbBuscarClick = [this] { sbBuscarClick(); };
    busqueda_->ckfiltroClick = [this](bool visible) { DBGridEh1->filtro_visible(visible); };

    DBGridEh1 = new Rejilla(this, conjunto_);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas(columnas);
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = "No hay registros. F5 crea el primero.";
    DBGridEh1->nombre_archivo = nombre_archivo;
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnTeclear = [this](const QString& texto) { busqueda_->busque_texto(texto); };
    busqueda_->al_bajar = [this] { DBGridEh1->setFocus(); };
    busqueda_->siga(DBGridEh1);
    if (busqueda_->demora >
        0) // Enter escoge de lo que se acaba de teclear, aunque aún no se busque
        DBGridEh1->OnReturn = [this] { enter(); };
    DBGridEh1->OnDblClick = [this](int) {
        modo_mantenimiento_ ? SBModificarClick() : SBSelecClick();
    };

    barra_ = new BarraBotones(this);
    barra_->boton("SBSelec", "Enter:Selecciona", "emblem-default", QKeySequence(),
                  [this] { SBSelecClick(); });
    barra_->boton(nombre_nuevo_, rotulo_nuevo_, "document-new", QKeySequence(Qt::Key_F5),
                  [this] { SBNuevoClick(); });
    barra_->boton("SBModificar", "F4:Modificar", "accessories-text-editor",
                  QKeySequence(Qt::Key_F4), [this] { SBModificarClick(); });
    barra_->boton("SBBorrar", "F3:Eliminar", "edit-delete", QKeySequence(Qt::Key_F3),
                  [this] { SBBorrarClick(); });
    tecla(Qt::Key_Return, "Enter", [this] { enter(); });
    tecla(Qt::Key_F12, Qt::ShiftModifier, "EBuscar",
          [this] { busqueda_->EBuscar->setFocus(Qt::ShortcutFocusReason); });
    Formulario(this).ancha(busqueda_, 0).ancha(DBGridEh1).botones(barra_);
}

void ListaCatalogo::aplique_modo() {
    aplique_modo(peticion<AbreLista>().modo_mantenimiento);
}

void ListaCatalogo::aplique_modo(bool mantenimiento) {
    modo_mantenimiento_ = mantenimiento;
    auto* seleccionar = findChild<QPushButton*>("SBSelec");
    seleccionar->setVisible(!modo_mantenimiento_);
    barra_->principal(modo_mantenimiento_ ? findChild<QPushButton*>("SBModificar") : seleccionar);
}

void ListaCatalogo::boton_salir() {
    barra_->separe();
    barra_->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
}

void ListaCatalogo::enter() {
    if (DBGridEh1->filtro_visible() && !enter_con_filtros_)
        return; // la fila de filtros ya tomó su Enter; sobre las filas no hace más
    if (modo_mantenimiento_)
        SBModificarClick();
    else
        SBSelecClick();
}

bool ListaCatalogo::busque_lo_pedido(const QString& texto) {
    if (texto.isEmpty())
        return false;
    busqueda_->busque_texto(texto);
    busqueda_->pongase_al_dia(); // ya está entero: no hay tecla que esperar
    return true;
}

bool ListaCatalogo::ubique(const QString& codigo) {
    return !codigo.isEmpty() && conjunto_->Locate(conjunto_->Fields(0).FieldName, {codigo});
}

void ListaCatalogo::ubique_o_busque(const QString& texto) {
    if (!ubique(texto))
        busque_lo_pedido(texto);
}

QString ListaCatalogo::codigo() const {
    busqueda_->pongase_al_dia();
    return conjunto_->Active() ? conjunto_->Fields(0).texto() : QString();
}

void ListaCatalogo::consulte(const QString& sql) {
    conjunto_->Open(sql);
}

void ListaCatalogo::FormActivate() {
    if (!std::exchange(recien_abierta_, false))
        conjunto_->Refresh();
    DBGridEh1->setFocus();
}

bool ListaCatalogo::FormClose() {
    conjunto_->Close();
    return true;
}
