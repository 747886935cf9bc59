#include "vouchers/tfedtplantilla.h"

#include "catalogues/grabe_y_anuncie.h"
#include "toolkit/sin_grabar.h"
#include "vouchers/pch.h"

Tfedtplantilla::Tfedtplantilla()
    : PantallaPlantilla("Tfedtplantilla", "Editar plantillas", "CMovimiento", "EdPlantillas"),
      CMovimiento(CPlantilla), PMaxitem(this, "PMaxitem", &fdm().QBorrar, poAllowCommandText),
      CMaxitem(this, "CMaxitem", &PMaxitem) {
    CMaxitem.entero("ITEM");
    CMovimiento.AfterEdit = [this] { CMovimiento.FieldByName("PLAN_USUARIO") = fdm().usuario; };
    // La que espera a un comprobante se deja para él.
    acepte<PidePlantilla>([this](const QString&) {
        vuelva_a_abrir();
        return false;
    });
    SBBorrar = findChild<BarraBotones*>("barra")->boton("SBBorrar", "F3:Borrar", "edit-delete",
                                                        Qt::Key_F3, [this] { SBBorrarClick(); });
}

void Tfedtplantilla::FormCreate() {
    abra_catalogos();
    const QString id = peticion<AbrePlantilla>().plantilla_seleccion;
    CMovimiento.Open();
    if (!CMovimiento.Locate("PLAN_ID", {id.toInt()})) {
        muestre_mensaje("No se encontró la plantilla solicitada.");
        pida_cierre_al_crear();
        return;
    }
    ubique_tipo();
    CMovimiento.Edit();
    lineas_2649->contador.empiece(maximo_item(Libro::Decreto2649, id));
    lineas_niif->contador.empiece(maximo_item(Libro::Niif, id));
    muestra_lineas_ = true;
    lineas_2649->muestre_linea();
    lineas_niif->muestre_linea();
}

void Tfedtplantilla::FormActivate() {
    PantallaPlantilla::FormActivate();
    if (borrador_ || !muestra_lineas_)
        return;
    CMovimiento.Cancel(); // el usuario que puso la pantalla no es un cambio de otro
    const QString id = CMovimiento.FieldByName("PLAN_ID").texto();
    siga_borrador(
        "plantilla/" + id,
        [this, id] { return CMovimiento.FieldByName("PLAN_ID").texto() == id && hay_por_perder(); },
        [](const BorradorFilas::Huerfano&) {
            return QStringLiteral("quedaron cambios sin grabar en esta plantilla. Desea "
                                  "retomarlos?");
        });
}

int Tfedtplantilla::maximo_item(Libro libro, const QString& id) {
    CMaxitem.Open(QStringLiteral("select max(plde_item) item from %1 where plan_id = ")
                      .arg(QLatin1String(datos(libro).plantilla_detalle)) +
                  id);
    return int(CMaxitem.FieldByName("ITEM").entero());
}

void Tfedtplantilla::vuelva_a_abrir() {
    CMovimiento.Open("select * from plantilla_encabezado where plan_id = " +
                     QString::number(plantilla_));
    CMovimiento.Edit();
}

void Tfedtplantilla::SBGrabarClick() {
    termine_lineas();
    tipo_anterior = CMovimiento.FieldByName("TICO_COD").texto();
    CMovimiento.Post();
    // Las filas que fallen se quedan pendientes y las demás se graban.
    if (grabe_y_anuncie(CMovimiento,
                        "Grabada plantilla " + CMovimiento.FieldByName("PLAN_ID").texto(), -1) == 0)
        close();
    else
        CMovimiento.Edit();
}

bool Tfedtplantilla::hay_por_perder() const {
    // El usuario de la fila lo pone la pantalla: no es un cambio que se pueda perder.
    return CMovimiento.Active() &&
           (hay_a_medio_escribir(*this) || CMovimiento.ChangeCount() > 0 || CDetalle.cambiada() ||
            CDetallen.cambiada() || CMovimiento.cambiada({"PLAN_USUARIO"}));
}

void Tfedtplantilla::SBBorrarClick() {
    const QString id = QString::number(plantilla_);
    if (pregunte_con_no("Desea borrar definitivamente la plantilla " + id + '?'))
        CBorrar.Execute("delete from plantilla_encabezado where plan_id = " + id);
}
