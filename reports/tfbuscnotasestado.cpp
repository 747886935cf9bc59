#include "reports/tfbuscnotasestado.h"

#include "reports/forma_nota.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

Tfbuscnotasestado::Tfbuscnotasestado()
    : Pantalla("Tfbuscnotasestado", "Notas a los estados financieros") {
    ConjuntoDatos& c = CNotasestados;
    c.entero("NOEF_ID");
    c.entero("NOEF_ANO");
    c.entero("NOEF_PERIODO");
    c.texto("NOEF_CUENTA", 20);
    c.entero("NOEF_NUMERO");
    c.texto("NOEF_TITULO", 60);
    c.IndexFieldNames("NOEF_ANO;NOEF_PERIODO;NOEF_NUMERO");

    DBGridEh1 = new Rejilla(this, &CNotasestados);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"NOEF_ANO", "Año", 6},
                         {"NOEF_PERIODO", "Período", 8},
                         {"NOEF_NUMERO", "Nota No.", 8},
                         {"NOEF_TITULO", "Título", 50},
                         {"NOEF_CUENTA", "Cuenta", 16}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->orden_local = true;
    DBGridEh1->ubica_al_teclear = true;
    DBGridEh1->texto_vacio = "No hay notas. F5 crea la primera.";
    DBGridEh1->nombre_archivo = "NotasEstados";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { SBModificarClick(); };

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBNuevo", "F5:Nuevo", "document-new", Qt::Key_F5,
                                  [] { pantallas().abrir("Tfnotasestados"); }));
    barra->boton("SBModificar", "F4:Modificar", "accessories-text-editor", Qt::Key_F4,
                 [this] { SBModificarClick(); });
    barra->boton("SBBorrar", "F3:Eliminar", "edit-delete", Qt::Key_F3, [this] { SBBorrarClick(); });
    barra->separe();
    barra->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_Return, "SBModificar", [this] { SBModificarClick(); });
    Formulario(this).ancha(DBGridEh1).botones(barra);
    tamano(760, 460);
}

void Tfbuscnotasestado::FormCreate() {
    fdm().ConfigurarProviders(this);
    CNotasestados.Open();
    DBGridEh1->setFocus();
}

void Tfbuscnotasestado::FormActivate() {
    if (CNotasestados.Active())
        CNotasestados.Refresh();
}

bool Tfbuscnotasestado::FormClose() {
    CNotasestados.Close();
    return true;
}

QString Tfbuscnotasestado::dato(const char* campo) {
    return CNotasestados.FieldByName(QLatin1String(campo)).texto();
}

void Tfbuscnotasestado::SBModificarClick() {
    if (!CNotasestados.IsEmpty())
        pantallas().abrir("Tfmodnotasestados", AbreNota{dato("NOEF_ID")});
}

void Tfbuscnotasestado::SBBorrarClick() {
    if (CNotasestados.IsEmpty() ||
        !pregunte_con_no("Esta seguro de borrar la nota " + dato("NOEF_NUMERO") + " de " +
                         dato("NOEF_PERIODO") + '/' + dato("NOEF_ANO") + '?'))
        return;
    fdm().CBorrar.Execute("delete from notas_estados_financieros where noef_id = " +
                          QString::number(CNotasestados.FieldByName("NOEF_ID").entero()));
    CNotasestados.Refresh();
}
