#include "tax/rejilla_configuracion.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/sin_grabar.h"

RejillaConfiguracion::RejillaConfiguracion(const QString& clase, const QString& titulo,
                                           const QString& sql)
    : Pantalla(clase, titulo) {
    auto* consulta = new Sentencia(this, "QCambiosit", fdm().Quorvex, sql);
    CCambiosit = new ConjuntoDatos(this, "CCambiosit", new Proveedor(this, "PCambiosit", consulta));
    cuide_lo_digitado(*this, {CCambiosit});
}

void RejillaConfiguracion::arme(const QVector<DefinicionColumna>& columnas,
                                const QString& nombre_archivo) {
    DBGridEh1 = new Rejilla(this, CCambiosit);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas(columnas);
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->texto_vacio = "No hay registros. Insert agrega el primero.";
    DBGridEh1->nombre_archivo = nombre_archivo;
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                               Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    auto* navegador = new NavegadorDatos(CCambiosit, nbRecorrido | nbInsert | nbDelete, this);
    navegador->setObjectName("DBNavigator1");
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2, [this] {
        CCambiosit->CheckBrowseMode();
        grabe_y_anuncie(*CCambiosit, "Grabado: " + windowTitle());
    }));
    barra->separe();
    barra->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).ancha(navegador, 0).ancha(DBGridEh1).botones(barra);
}

void RejillaConfiguracion::FormCreate() {
    fdm().ConfigurarProviders(this);
    CCambiosit->Open();
    DBGridEh1->setFocus();
}

bool RejillaConfiguracion::FormClose() {
    CCambiosit->Cancel();
    CCambiosit->Close();
    return true;
}

void RejillaConfiguracion::rehuse(const QString& texto) {
    muestre_mensaje(texto);
    throw EdicionAbortada();
}
