#include "catalogues/tfcentros.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/rejilla/rejilla.h"

Tfcentros::Tfcentros()
    : MaestroDetalle("Tfcentros", "Registro de centros de costo", "PProyecto", fdm().TProyectos,
                     poCascadeDeletes | poCascadeUpdates, "CProyectos", "CCentros",
                     fdm().TCentros) {
    PSubemp = new Proveedor(this, "PSubemp", &fdm().TSubEmpresa);
    CSubemp = new ConjuntoDatos(this, "CSubemp", PSubemp);
    campos_agencias(*CSubemp);
    campos_proyectos(*maestro_);
    campos_centros(*detalle_);
    detalle_->busqueda("NomAgen", 60, "SUCU_ID", CSubemp, "SUCU_ID", "SUCU_NOMBRE")
        .etiqueta("Agencia");

    arme({"Proyectos", {{"PROY_COD", "Código", 7}, {"PROY_NOM", "Nombre", 28}}, 4},
         {"Centros de costo",
          {{"CENT_COD", "Código", 7}, {"CENT_NOM", "Nombre", 28}, {"SUCU_ID", "Agencia", 16}},
          5});
    // El letrero dice "Modificar" y la orden graba: es el nombre con que se la conoce.
    barra_->principal(barra_->boton("SBGrabar", "F2:Modificar", "document-save",
                                    QKeySequence(Qt::Key_F2), [this] { SBGrabarClick(); }));
    escoja_con([this] { SBSelecClick(); });
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                  [this] { cancele_y_cierre(); });
    tamano(980, 520);
}

void Tfcentros::FormCreate() {
    fdm().ConfigurarProviders(this);
    CSubemp->Open();
    liste_agencias();
    const bool por_agencia = fdm().valor<Llave::CentrosPorAgencia>();
    maestro_->Open();
    if (por_agencia && fdm().sucursal_usuario != 0) {
        detalle_->Filter("(SUCU_ID = 0) OR (SUCU_ID = " + QString::number(fdm().sucursal_usuario) +
                         ")");
        detalle_->Filtered(true);
        maestro_->BeforeDelete = [this] { revise_centros_ocultos(); };
    }
    if (trae<PideCentro>())
        como_selector();
    const CentroEscogido actual = peticion<PideCentro>().localizar;
    if (!actual.proyecto_seleccion.isEmpty() &&
        maestro_->Locate("PROY_COD", {actual.proyecto_seleccion})) {
        detalle_->Locate("CENT_COD", {actual.centro_seleccion});
        DBGridEh2->setFocus();
        return;
    }
    DBGridEh1->setFocus();
}

void Tfcentros::liste_agencias() {
    QStringList nombres, codigos;
    for (int i = 0; i < CSubemp->RecordCount(); ++i) {
        codigos << CSubemp->valor_en(i, CSubemp->FieldByName("SUCU_ID")).texto();
        nombres << CSubemp->valor_en(i, CSubemp->FieldByName("SUCU_NOMBRE")).texto();
    }
    if (!codigos.contains("0")) {
        codigos.prepend("0");
        nombres.prepend("Todas");
    }
    DBGridEh2->lista("SUCU_ID", nombres, codigos);
}

void Tfcentros::revise_centros_ocultos() {
    const auto centros = [this] {
        QStringList lista;
        for (int i = 0; i < detalle_->RecordCount(); ++i)
            lista << detalle_->valor_en(i, detalle_->FieldByName("CENT_COD")).texto() + ' ' +
                         detalle_->valor_en(i, detalle_->FieldByName("CENT_NOM")).texto();
        return lista;
    };
    const QStringList a_la_vista = centros();
    detalle_->Filtered(false);
    QStringList ocultos = centros();
    detalle_->Filtered(true);
    for (const QString& centro : a_la_vista)
        ocultos.removeOne(centro);
    if (ocultos.isEmpty())
        return;
    muestre_mensaje("El proyecto " + maestro_->FieldByName("PROY_COD").texto() +
                    " tiene centros de otras agencias, que aquí no se ven: " + ocultos.join(", ") +
                    ". No se puede borrar.");
    throw EdicionAbortada();
}

void Tfcentros::SBGrabarClick() {
    if (fdm().valide_acceso("CONTABILIDAD", 20))
        grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle());
    else
        muestre_mensaje("Acceso no permitido. NO se grabarán los cambios.");
    // Cierra también si la grabación falló: lo digitado se pierde, y así se quiere.
    maestro_->CancelUpdates();
    close();
}

void Tfcentros::SBSelecClick() {
    responda<PideCentro>({.proyecto_seleccion = maestro_->FieldByName("PROY_COD").texto(),
                          .centro_seleccion = detalle_->FieldByName("CENT_COD").texto()});
    if (peticion<PideCentro>().modo_selector)
        resultado_modal(mrOk);
    else
        close();
}

bool Tfcentros::FormClose() {
    CSubemp->Close();
    return MaestroDetalle::FormClose();
}
