#include "exchange/tfcambitermov.h"

#include "exchange/pch.h"

Tfcambitermov::Tfcambitermov() : FormaMantenimiento("Tfcambitermov", "Reemplazar tercero") {
    Edit1 = caja_tercero("Edit1", [this](const QString& nit) { Edit1Exit(nit); });
    Nombre1 = rotulo("Nombre1", Edit1);
    Edit2 =
        caja_tercero("Edit2", [this](const QString& nit) { Nombre2->setText(exija_tercero(nit)); });
    Nombre2 = rotulo("Nombre2", Edit2);
    Edit3 = caja_cuenta("Edit3", [this](const QString& cuenta) { Edit3Exit(cuenta); });
    Nombre3 = rotulo("Nombre3", Edit3);
    ckniif = casilla("ckniif", "Información NIIF");
    Formulario f(this);
    f.fila("", ckniif);
    arme_fechas(f);
    f.fila("Tipo", lista_tipos("Todos..."));
    f.fila("Tercero actual", Formulario::junto({Edit1, Nombre1}));
    f.fila("Tercero nuevo", Formulario::junto({Edit2, Nombre2}));
    f.fila("Solo en la cuenta", Formulario::junto({Edit3, Nombre3}));
    arme_botones(f, "F2:Reemplazar");
    tamano(620, 350);
}

void Tfcambitermov::Edit1Exit(const QString& nit) {
    Nombre1->setText(exija_tercero(nit));
    if (!Nombre1->text().isEmpty() && hay_movimientos(nit, {}) == false)
        muestre_mensaje("El tercero " + nit + " no tiene movimientos.");
}

void Tfcambitermov::Edit3Exit(const QString& cuenta) {
    Nombre3->setText(exija_cuenta(cuenta));
    const QString nit = Edit1->text().trimmed();
    if (!Nombre3->text().isEmpty() && !nit.isEmpty() && hay_movimientos(nit, cuenta) == false)
        muestre_mensaje("El tercero " + nit + " no tiene movimientos en la cuenta.");
}

bool Tfcambitermov::corra() {
    const QString origen = tercero_de(Edit1), destino = tercero_de(Edit2);
    const QString cuenta = Edit3->text().trimmed().isEmpty() ? QString() : cuenta_de(Edit3);
    const auto rango = fechas();
    if (!rango)
        return false;
    const QString tipo = LTipo->currentData().toString();
    const auto llame = [&](Paso paso) {
        return reemplace_tercero(fdm().Quorvex, libro(), origen, destino, *rango, tipo, cuenta,
                                 paso);
    };
    const CifrasMantenimiento cifras = llame(Paso::Cifras);
    if (!confirme(cifras, "Se cambiarán " + cifras.cuantos() + ". Desea continuar?"))
        return false;
    trabaje("Cambiando movimientos de " + origen + " a " + destino + ". Espere un momento...",
            [&] { return llame(Paso::Haga); });
    return true;
}
