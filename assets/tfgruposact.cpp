#include "assets/tfgruposact.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"
#include "catalogues/grabe_y_anuncie.h"

#include <QApplication>

namespace {
constexpr unsigned kLlaveGrupo = pfInUpdate | pfInWhere | pfInKey;
}

Sentencia& sentencia_de_grupos() {
    static QPointer<Sentencia> s;
    if (!s)
        s = new Sentencia(&fdmcnt(), "TActgrupos", fdm().Quorvex,
                          "SELECT * FROM ACTIVOS_GRUPOS ORDER BY ACGR_ID");
    return *s;
}

Sentencia& sentencia_de_subgrupos() {
    static QPointer<Sentencia> s;
    if (!s) {
        s = new Sentencia(&fdmcnt(), "TActsubgrupo", fdm().Quorvex,
                          "SELECT * FROM ACTIVOS_SUBGRUPO WHERE ACGR_ID = :ACGR_ID ORDER BY "
                          "ACSG_ID");
        s->enlace_maestra(&sentencia_de_grupos(), {"ACGR_ID"});
    }
    return *s;
}

void campos_grupos(ConjuntoDatos& g) {
    g.entero("ACGR_ID").requerido().banderas(kLlaveGrupo).etiqueta("Grupo");
    g.texto("ACGR_NOM", 60).requerido().etiqueta("Nombre");
    g.entero("ACGR_MESDEP").etiqueta("Meses");
    g.bandera("ACGR_DEP").etiqueta("Se deprecia").defecto("S");
    g.entero("ACGR_MESDEPN").etiqueta("Vida NIIF");
    g.entero("ACGR_TIPODEP").etiqueta("Método").defecto("1");
}

void campos_subgrupos(ConjuntoDatos& s) {
    s.entero("ACGR_ID").banderas(kLlaveGrupo).etiqueta("Grupo");
    s.entero("ACSG_ID").requerido().banderas(kLlaveGrupo).etiqueta("Subgrupo");
    s.texto("ACSG_NOMBRE", 60).requerido().etiqueta("Nombre");
}

Tfgruposact::Tfgruposact()
    : MaestroDetalle("Tfgruposact", "Grupos de activos", "PGrupos", sentencia_de_grupos(),
                     poCascadeDeletes | poCascadeUpdates, "CGrupos", "CSubgrupos",
                     sentencia_de_subgrupos()) {
    campos_grupos(*maestro_);
    campos_subgrupos(*detalle_);
    arme({"Grupos",
          {{"ACGR_ID", "Número", 7},
           {"ACGR_NOM", "Nombre", 24},
           {"ACGR_MESDEP", "Meses", 7},
           {"ACGR_MESDEPN", "Vida NIIF", 8},
           {"ACGR_DEP", "Deprecia", 8, Casilla},
           {"ACGR_TIPODEP", "Método", 20}},
          6},
         {"Subgrupos", {{"ACSG_ID", "Número", 7}, {"ACSG_NOMBRE", "Nombre", 28}}, 4});
    DBGridEh1->lista(
        "ACGR_TIPODEP",
        {"Línea recta", "Saldos decrecientes", "Suma de dígitos", "Unidades producidas"},
        {"1", "2", "3", "4"});
    barra_->principal(
        barra_->boton("SBGrabar", "F2:Modificar", "document-save", Qt::Key_F2,
                      [this] { grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle()); }));
    escoja_con([this] { SBSelecClick(); });
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape,
                  [this] { cancele_y_cierre(); });
    tamano(1080, 480);
}

void Tfgruposact::FormCreate() {
    fdm().ConfigurarProviders(this);
    maestro_->Open();
    if (trae<PideGrupoActivo>())
        como_selector();
    const GrupoEscogido actual = peticion<PideGrupoActivo>().localizar;
    const bool ubicado =
        !actual.grupo.isEmpty() && maestro_->Locate("ACGR_ID", {actual.grupo.toInt()}) &&
        !actual.subgrupo.isEmpty() && detalle_->Locate("ACSG_ID", {actual.subgrupo.toInt()});
    (ubicado ? DBGridEh2 : DBGridEh1)->setFocus();
}

void Tfgruposact::SBSelecClick() {
    // El activo se une a un grupo de la base: el que se acaba de digitar se graba primero.
    if (grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle()) > 0)
        return;
    if (maestro_->IsEmpty()) {
        QApplication::beep();
        return;
    }
    responda<PideGrupoActivo>(
        {.grupo = maestro_->FieldByName("ACGR_ID").texto(),
         .subgrupo = detalle_->IsEmpty() ? QString() : detalle_->FieldByName("ACSG_ID").texto()});
    close();
}
