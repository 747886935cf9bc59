#include "catalogues/tfnvacuenta.h"

#include "catalogues/grabe_y_anuncie.h"
#include "catalogues/plancuentas.h"
#include "catalogues/tfpuc.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/dialogos.h"

#include <QLabel>

namespace {

constexpr int kOpcionCrear = 0;

} // namespace

Tfnvacuenta::Tfnvacuenta(Libro libro)
    : FichaCuenta(datos(libro).pantalla_nueva_cuenta, plan(libro).titulo_nueva, libro) {
    PCuentas->Options = poPropogateChanges;
    CCuentas->AfterInsert = [this] { CCuentasAfterInsert(); };
    CCuentas->FieldByName("CUEN_COD").OnChange = [this](Campo&) { CCuentasCUEN_CODChange(); };
    CCuentas->FieldByName("CUEN_RETENCION").OnChange = [this](Campo& campo) {
        habilite_retencion(campo.texto() == "S");
    };
    arme_ficha();
    CkActiva->hide(); // la base la hace nacer activa
    if (LabAudit)
        LabAudit->hide();
}

void Tfnvacuenta::arme_botones() {
    QPushButton* grabar = barra_->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                        [this] { SBGrabarClick(); });
    barra_->principal(grabar);
    if (plan(libro_).con_puc)
        barra_->boton("BitBtn1", "P.U.C.", "accessories-dictionary", Qt::Key_F5,
                      [this] { BitBtn1Click(); });
    barra_->boton("SpeedButton1", "Inventario", "package-x-generic", Qt::Key_F11,
                  [] { pantallas().abrir("Tfarticulos"); });
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape,
                  [this] { SBCancelarClick(); });
}

void Tfnvacuenta::FormCreate() {
    fdm().ConfigurarProviders(this);
    CCuentas->Open();
    CCuentas->Append();
    if (const auto pedida = peticion<AbreCuenta>(); !pedida.cuenta_seleccion.isEmpty())
        CCuentas->FieldByName("CUEN_COD") = pedida.cuenta_seleccion;
    if (!codigo().isEmpty())
        ENombre->setFocus();
    if (!fdm().exija_acceso(kOpcionCrear))
        pida_cierre_al_crear();
}

bool Tfnvacuenta::FormClose() {
    emit fdmcnt().balance_por_recalcular();
    return FichaCuenta::FormClose();
}

void Tfnvacuenta::CCuentasAfterInsert() {
    for (const char* campo : {"CUEN_TIPO", "CUEN_TERCERO", "CUEN_CENTRO", "CUEN_RETENCION"})
        CCuentas->FieldByName(campo) = "N";
    for (const char* campo : {"CUEN_CTAJUSTE", "CUEN_CTACORRECION"})
        CCuentas->FieldByName(campo) = "";
    for (const char* campo : {"CUEN_BASEMIN", "CUEN_PORC"})
        CCuentas->FieldByName(campo) = "0";
}

void Tfnvacuenta::CCuentasCUEN_CODChange() {
    const QString cuenta = codigo();
    if (CCuentas->State() != Estado::Insercion || cuenta.isEmpty())
        return;
    CBorrar->Open("select cuen_nom from " + tabla() + " where cuen_cod = " + QuotedStr(cuenta));
    if (!CBorrar->IsEmpty()) {
        muestre_mensaje("La cuenta " + cuenta + " ya existe.");
        CCuentas->FieldByName("CUEN_COD").limpie();
        return;
    }
    Sentencia& padre = fdm().SPCtaPadre;
    padre.ParamByName("CUENTA") = cuenta;
    padre.ExecProc();
    CBorrar->Open("select cuen_tercero, cuen_centro, cuen_retencion from " + tabla() +
                  " where cuen_cod = " + QuotedStr(padre.ParamByName("PADRE").texto()));
    if (CBorrar->IsEmpty())
        return;
    for (const char* campo : {"CUEN_TERCERO", "CUEN_CENTRO", "CUEN_RETENCION"})
        CCuentas->FieldByName(campo) = CBorrar->FieldByName(campo).valor();
}

void Tfnvacuenta::BitBtn1Click() {
    static const QVector<QPair<const char*, const char*>> kCopiados = {
        {"CUEN_COD", "PUC_COD"},          {"CUEN_NOM", "PUC_NOM"},
        {"CUEN_TERCERO", "PUC_TERC"},     {"CUEN_RETENCION", "PUC_RETEN"},
        {"CUEN_CTAJUSTE", "PUC_CTAAJUS"}, {"CUEN_CTACORRECION", "PUC_CTACORR"},
        {"CUEN_AJUSDB", "PUC_AJDB"}};
    const auto escogida = pantallas().pida_modal("Tfpuc", PidePuc{});
    if (!escogida)
        return;
    CCuentas->Cancel();
    CCuentas->Append();
    for (const auto& [destino, origen] : kCopiados) {
        CCuentas->FieldByName(destino) = escogida->value(origen);
        if (codigo().isEmpty())
            return; // ya existe: lo demás sería de una cuenta sin código
    }
    CCuentas->FieldByName("CUEN_CENTRO") = "N";
    CCuentas->FieldByName("CUEN_TIPO") = "N";
}

void Tfnvacuenta::SBGrabarClick() {
    if (codigo().isEmpty()) {
        muestre_mensaje("Falta ingresar el código de la cuenta.");
        ECodigo->setFocus();
        return;
    }
    if (!hay_nombre() || !hay_equivalente())
        return;
    CCuentas->Post();
    const QString aviso = QString("Grabada la %1 %2").arg(datos(libro_).cuenta_de, codigo());
    if (grabe_y_anuncie(*CCuentas, aviso, -1) > 0)
        CCuentas->CancelUpdates();
    CCuentas->Append();
    ECodigo->setFocus();
}

void Tfnvacuenta::SBCancelarClick() {
    close();
}
