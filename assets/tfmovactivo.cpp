#include "assets/tfmovactivo.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"
#include "catalogues/grabe_y_anuncie.h"

namespace {

const DatosLista kDatos{.clase = "Tfmovactivo",
                        .titulo = "Movimiento por activo",
                        .conjunto = "CMovimiento",
                        .consulta = "",
                        .filtros = {},
                        .orden = "order by fecha",
                        .columnas = {{"FECHA", "Fecha", 10, 0, "aaaa/mm/dd"},
                                     {"TIPO", "Tipo", 5},
                                     {"PREFIJO", "Prefijo", 7},
                                     {"NUMERO", "Número", 8},
                                     {"CONCEPTO", "Concepto", 36},
                                     {"REF", "Referencia", 10},
                                     {"DEBITO", "Débito", 16, Suma, "#,###.00"},
                                     {"CREDITO", "Crédito", 16, Suma, "#,###.00"}},
                        .archivo = "Movactivo",
                        .pregunta = "",
                        .nombra = {},
                        .borrado = "",
                        .llave = "ID"};

} // namespace

Tfmovactivo::Tfmovactivo() : ListaProceso(kDatos) {
    DBGridEh1->pie(true);
    DBGridEh1->texto_vacio = "El activo no tiene movimientos.";
}

QString Tfmovactivo::activo() const {
    return peticion<AbreActivo>().activo_seleccionado;
}

QString Tfmovactivo::consulta() const {
    return "select * from comprobantes_activo(" + QuotedStr(activo()) + ") ";
}

void Tfmovactivo::FormCreate() {
    const QString nombre =
        CBorrar
            .valor_unico("select acfj_desc from activos_fijos where acfj_cod = " +
                         QuotedStr(activo()))
            .texto();
    setWindowTitle(windowTitle() + ": " + activo() + "  " + nombre);
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    ListaProceso::FormCreate();
}

void Tfmovactivo::arme_botones() {
    barra_->principal(barra_->boton("SBConsultar", "F4:Consultar", "edit-find", Qt::Key_F4,
                                    [this] { SBModificarClick(); }));
    barra_->boton("SBBorrar", "F3:Eliminar", "edit-delete", Qt::Key_F3,
                  [this] { SBBorrarClick(); });
}

void Tfmovactivo::SBModificarClick() {
    if (hay_fila())
        abra_comprobante(dato("ID"));
}

void Tfmovactivo::SBBorrarClick() {
    if (!hay_fila())
        return;
    // Un nuevo valor no tiene lista propia: se deshace desde aquí.
    const QString id = dato("ID");
    if (CBorrar
            .valor_unico("select count(*) from activos_fijos_valor where acfj_cod = " +
                         QuotedStr(activo()) + " and acfv_idcomp = " + QuotedStr(id))
            .entero() == 0) {
        muestre_mensaje("Aquí se elimina solo un nuevo valor del activo. Una depreciación o una "
                        "baja se elimina en la lista de depreciaciones, y los demás comprobantes, "
                        "con F4.");
        return;
    }
    const QString cual =
        "el nuevo valor " + dato("TIPO") + ' ' + dato("PREFIJO") + ' ' + dato("NUMERO");
    if (!pregunte_con_no("Desea borrar definitivamente " + cual + '?'))
        return;
    const QString aviso = "Se borró " + cual;
    borre_y_anuncie(CBorrar,
                    "delete from activos_fijos_valor where acfj_cod = " + QuotedStr(activo()) +
                        " and acfv_idcomp = " + QuotedStr(id),
                    aviso);
    CLista.Refresh();
    emit fdmcnt().balance_por_recalcular();
}
