#include "catalogues/rejilla_catalogo.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/sin_grabar.h"

RejillaCatalogo::RejillaCatalogo(const QString& clase, const QString& titulo, Sentencia& sentencia,
                                 const QString& tabla, const QString& llave)
    : Pantalla(clase, titulo), llave_(llave) {
    lea_de(sentencia, tabla);
}

RejillaCatalogo::RejillaCatalogo(const QString& clase, const QString& titulo, const QString& sql,
                                 Conexion& conexion, const QString& tabla, const QString& llave)
    : Pantalla(clase, titulo), llave_(llave) {
    lea_de(*new Sentencia(this, "T" + tabla, conexion, sql), tabla);
}

void RejillaCatalogo::lea_de(Sentencia& sentencia, const QString& tabla) {
    proveedor_ = new Proveedor(this, "P" + tabla, &sentencia);
    conjunto_ = new ConjuntoDatos(this, "C" + tabla, proveedor_);
    cuide_lo_digitado(*this, {conjunto_});
    conjunto_->BeforePost = [this] {
        if (conjunto_->FieldByName(llave_).vacio())
            conjunto_->Cancel();
    };
}

void RejillaCatalogo::arme(const QVector<DefinicionColumna>& columnas,
                           const QString& nombre_archivo) {
    DBGridEh1 = new Rejilla(this, conjunto_);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas(columnas);
    DBGridEh1->orden_local = true;
    DBGridEh1->texto_vacio = "No hay registros. Insert agrega el primero.";
    DBGridEh1->nombre_archivo = nombre_archivo;
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});

    auto* navegador = new NavegadorDatos(conjunto_, nbRecorrido | nbInsert | nbDelete, this);
    navegador->setObjectName("DBNavigator1");

    barra_ = new BarraBotones(this);
    auto* grabar = barra_->boton("SBGrabar", rotulo_grabar_, "document-save",
                                 QKeySequence(Qt::Key_F2), [this] { SBGrabarClick(); });
    barra_->principal(grabar);
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                  [this] { SBCancelarClick(); });

    Formulario(this).ancha(navegador, 0).ancha(DBGridEh1).botones(barra_);
}

void RejillaCatalogo::resalte_inactivos(const QString& columna) {
    DBGridEh1->OnGetCellParams = [this, columna](int fila, QFont&, QColor& frente, QColor&) {
        if (conjunto_->valor_en(fila, conjunto_->FieldByName(columna)).texto() !=
            QLatin1String("S"))
            frente = color_inactivo();
    };
}

void RejillaCatalogo::FormCreate() {
    fdm().ConfigurarProviders(this);
    conjunto_->Open();
    if (trae<AbreCatalogo>())
        conjunto_->Locate(llave_, {peticion<AbreCatalogo>().valor});
    DBGridEh1->setFocus();
}

void RejillaCatalogo::SBGrabarClick() {
    if (grabe_y_anuncie(*conjunto_, "Grabado: " + windowTitle()) == 0)
        close();
}

void RejillaCatalogo::SBCancelarClick() {
    close();
}

bool RejillaCatalogo::FormClose() {
    conjunto_->Cancel();
    conjunto_->Close();
    return true;
}
