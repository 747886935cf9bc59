#include "catalogues/tfmodcuenta.h"

#include "catalogues/grabe_y_anuncie.h"
#include "catalogues/plancuentas.h"
#include "datos/firebird/concuerde.h"
#include "sesion/auditoria.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/dialogos.h"

#include <QApplication>
#include <QLabel>

namespace {

constexpr int kAuditoriaCuentas = 100;

} // namespace

Tfmodcuenta::Tfmodcuenta(Libro libro)
    : FichaCuenta(datos(libro).pantalla_modificar_cuenta, plan(libro).titulo_modificar, libro) {
    PAudit = new Proveedor(this, "PAudit", &fdm().QAudit, poAllowCommandText);
    CAudit = new ConjuntoDatos(this, "CAudit", PAudit);
    CCuentas->AfterEdit = [this] { CCuentasAfterEdit(); };
    CCuentas->AfterScroll = [this] { CCuentasAfterScroll(); };
    arme_ficha();
    ECodigo->ReadOnly(true);
}

void Tfmodcuenta::arme_botones() {
    QPushButton* grabar = barra_->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                        [this] { SBGrabarClick(); });
    barra_->principal(grabar);
    barra_->boton("SpeedButton2", "F4:Anterior", "go-previous", Qt::Key_F4,
                  [this] { muevase(false); });
    barra_->boton("SpeedButton1", "F5:Siguiente", "go-next", Qt::Key_F5, [this] { muevase(true); });
    barra_->boton("SpeedButton3", "Inventario", "package-x-generic", Qt::Key_F11,
                  [] { pantallas().abrir("Tfarticulos"); });
    barra_->separe();
    barra_->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape,
                  [this] { SBSalirClick(); });
}

void Tfmodcuenta::FormCreate() {
    fdm().ConfigurarProviders(this);
    const QString cuenta = peticion<AbreCuenta>().cuenta_seleccion;
    CCuentas->Open();
    if (!CCuentas->Locate("CUEN_COD", {cuenta})) {
        muestre_mensaje("La " + QString(datos(libro_).cuenta_de) + ' ' + cuenta + " no existe.");
        pida_cierre_al_crear();
        return;
    }
    CCuentas->Edit();
    muestre_cuenta();
}

void Tfmodcuenta::FormActivate() {
    if (ECodigo->hasFocus())
        ENombre->setFocus(); // el código no se cambia
}

void Tfmodcuenta::muestre_cuenta() {
    if (NomCtaniif)
        CCuentasCUEN_EQNIIFChange();
    // Lo que una cuenta exige a sus líneas no cambia cuando ya las tiene.
    const bool sin_lineas =
        CBorrar
            ->valor_unico(QStringLiteral("select first 1 cuen_cod from %1 where cuen_cod = ")
                              .arg(datos(libro_).detalle) +
                          QuotedStr(codigo()))
            .nulo();
    CBorrar->Close();
    for (CasillaDato* casilla : {CkTerceros, CkRetenciones, CkCentros})
        casilla->setEnabled(sin_lineas);
    if (LabAudit)
        LabAudit->setText(modificado(
            CAudit->valor_unico(Tfdm::sql_auditoria(kAuditoriaCuentas, "audi_cod", codigo()))
                .texto()));
}

QStringList Tfmodcuenta::indicadores() const {
    QStringList valores;
    for (const char* campo : {"CUEN_TERCERO", "CUEN_CENTRO", "CUEN_RETENCION"})
        valores << CCuentas->FieldByName(campo).texto();
    return valores;
}

void Tfmodcuenta::CCuentasAfterEdit() {
    indicadores_antes_ = indicadores();
    equivalente_antes_ = CCuentas->FieldByName("CUEN_EQNIIF").texto();
}

void Tfmodcuenta::CCuentasAfterScroll() {
    habilite_retencion(CCuentas->FieldByName("CUEN_RETENCION").texto() == "S");
}

int Tfmodcuenta::grabe() {
    return grabe_y_anuncie(
        *CCuentas, QString("Grabada la %1 %2")
                       .arg(datos(libro_).cuenta_de, CCuentas->FieldByName("CUEN_COD").texto()));
}

void Tfmodcuenta::SBGrabarClick() {
    if (!hay_nombre() || !hay_equivalente())
        return;
    CCuentas->Post();
    const int errores = grabe();
    if (errores == 0 && indicadores() != indicadores_antes_ &&
        pregunte("Desea aplicar el cambio a las subcuentas?"))
        aplique_a_subcuentas();
    CCuentas->Edit();
    if (errores == 0)
        muestre_cuenta();
}

void Tfmodcuenta::aplique_a_subcuentas() {
    const QString cuenta = codigo();
    const QStringList valores = indicadores();
    Sentencia aplique(this, "SAplique", fdm().Quorvex);
    aplique.procedimiento = QString("APLIQUE_INDICADORES") + datos(libro_).sufijo;
    aplique.ParamByName("CUENTA") = cuenta;
    aplique.ParamByName("TERCERO") = valores[0];
    aplique.ParamByName("CENTRO") = valores[1];
    aplique.ParamByName("RETENCION") = valores[2];
    aplique.ExecProc();
    CCuentas->Refresh();
    // Entre tanto otro usuario pudo crear o borrar cuentas: la posición no dice cuál es.
    CCuentas->Locate("CUEN_COD", {cuenta});
    if (const QString sin_cambio = aplique.ParamByName("SIN_CAMBIO").texto(); !sin_cambio.isEmpty())
        muestre_mensaje(concuerde(aplique.ParamByName("APLICADAS").entero(),
                                  "El cambio se aplicó a %1 subcuenta. ",
                                  "El cambio se aplicó a %1 subcuentas. ") +
                        concuerde(sin_cambio.count('\n') + 1,
                                  "Esta no cambió, porque ya tiene movimiento:\n",
                                  "Estas no cambiaron, porque ya tienen movimiento:\n") +
                        sin_cambio);
}

void Tfmodcuenta::muevase(bool adelante) {
    if (CCuentas->editando()) {
        if (!hay_equivalente())
            return;
        CCuentas->Post();
        if (grabe() > 0) {
            CCuentas->Edit();
            return;
        }
    }
    adelante ? CCuentas->Next() : CCuentas->Prior();
    if (adelante ? CCuentas->Eof() : CCuentas->Bof())
        QApplication::beep();
    CCuentas->Edit();
    muestre_cuenta();
}

void Tfmodcuenta::SBSalirClick() {
    close();
}
