#include "exchange/tfcreactamov.h"

#include "datos/firebird/reloj.h"
#include "exchange/pch.h"
#include "libro/catalogos.h"

Tfcreactamov::Tfcreactamov() : FormaMantenimiento("Tfcreactamov", "Abrir auxiliar") {
    ckniif = casilla("ckniif", "Información NIIF");
    CUEN_COD = caja_cuenta("CUEN_COD", [this](const QString& c) { CUEN_CODChange(c); });
    Padre = rotulo("Padre", CUEN_COD);
    CUEN_NOM = caja("CUEN_NOM", 60);
    CUEN_TERCERO = casilla("CUEN_TERCERO", "Tercero");
    CUEN_CENTRO = casilla("CUEN_CENTRO", "Centro de costo");
    CUEN_RETENCION = casilla("CUEN_RETENCION", "Retención");
    CUEN_EQNIIF = caja("CUEN_EQNIIF", 20);
    NomEquivalente = rotulo("NomEquivalente");
    connect(CUEN_EQNIIF, &QLineEdit::textChanged, this, [this](const QString& cuenta) {
        NomEquivalente->setText(nombre_en_el_plan(fdm().Quorvex, Libro::Niif, cuenta));
    });
    connect(ckniif, &QCheckBox::toggled, this,
            [this](bool niif) { CUEN_EQNIIF->setEnabled(!niif); });
    Formulario f(this);
    f.fila("", ckniif);
    f.fila("Cuenta nueva", Formulario::junto({CUEN_COD, Padre}));
    f.fila("Nombre", CUEN_NOM);
    f.fila("Exige", Formulario::junto({CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION}));
    f.fila("Cuenta NIIF", Formulario::junto({CUEN_EQNIIF, NomEquivalente}));
    arme_botones(f, "F2:Abrir");
    tamano(640, 320);
}

void Tfcreactamov::CUEN_CODChange(const QString& cuenta) {
    Padre->clear();
    leida_.reset();
    if (!nombre_en_el_plan(fdm().Quorvex, libro(), cuenta).isEmpty()) {
        muestre_mensaje((es_niif(libro()) ? "La cuenta NIIF " : "La cuenta ") + cuenta +
                        " ya existe.");
        return;
    }
    const QString padre = fdmcnt().padre(cuenta);
    const auto atributos = atributos_de_cuenta(fdm().Quorvex, libro(), padre);
    if (!atributos) {
        muestre_mensaje("No existe la cuenta padre.");
        return;
    }
    CUEN_TERCERO->setChecked(atributos->tercero == "S");
    CUEN_CENTRO->setChecked(atributos->centro == "S");
    CUEN_RETENCION->setChecked(atributos->retencion == "S");
    // La que puso la cuenta mayor anterior no es de esta; la que se escribió se queda.
    if (!es_niif(libro()) && (CUEN_EQNIIF->text().isEmpty() || !CUEN_EQNIIF->isModified()))
        CUEN_EQNIIF->setText(atributos->equivalente);
    leida_ = {libro(), cuenta};
    Padre->setText("de " + padre + ' ' + nombre_en_el_plan(fdm().Quorvex, libro(), padre));
}

bool Tfcreactamov::corra() {
    AuxiliarNuevo n;
    n.cuenta = CUEN_COD->text().trimmed();
    n.nombre = CUEN_NOM->text().trimmed();
    n.equivalente = es_niif(libro()) ? QString() : CUEN_EQNIIF->text().trimmed();
    n.indicadores = {CUEN_TERCERO->isChecked(), CUEN_CENTRO->isChecked(),
                     CUEN_RETENCION->isChecked()};
    if (n.cuenta.isEmpty())
        rehuse(CUEN_COD, "Falta ingresar el código de la cuenta.");
    // F2 no saca de la caja: lo de la cuenta mayor puede ser todavía de otra.
    if (leida_ != std::pair(libro(), n.cuenta)) {
        CUEN_CODChange(n.cuenta);
        if (leida_)
            pida_revision(n.nombre.isEmpty() ? static_cast<QWidget*>(CUEN_NOM) : CUEN_TERCERO,
                          n.cuenta);
        return false;
    }
    if (n.nombre.isEmpty())
        rehuse(CUEN_NOM, "Falta ingresar el nombre de la cuenta.");
    if (!es_niif(libro()) && n.equivalente.isEmpty() &&
        fdm().valor<Llave::AnoInicioNiif>() <= reloj().hoy().year())
        rehuse(CUEN_EQNIIF, "Debe Indicar la cuenta equivalente");
    if (!n.equivalente.isEmpty() && NomEquivalente->text().isEmpty())
        rehuse(CUEN_EQNIIF, "La cuenta NIIF " + n.equivalente + " no existe.");
    const CifrasMantenimiento cifras = ::abra_auxiliar(fdm().Quorvex, libro(), n, Paso::Cifras);
    if (!confirme(cifras, "Se cambiarán " + cifras.cuantos() + " a la cuenta " + n.cuenta +
                              ". Desea continuar?"))
        return false;
    trabaje(
        "Cambiando movimientos. Espere un momento...",
        [&] { return ::abra_auxiliar(fdm().Quorvex, libro(), n, Paso::Haga); }, n.cuenta);
    return true;
}
