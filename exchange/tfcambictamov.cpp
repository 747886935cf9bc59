#include "exchange/tfcambictamov.h"

#include "exchange/pch.h"

Tfcambictamov::Tfcambictamov() : FormaMantenimiento("Tfcambictamov", "Reemplazar cuenta") {
    Edit1 = caja_cuenta("Edit1", [this](const QString& cuenta) { Edit1Exit(cuenta); });
    Nombre1 = rotulo("Nombre1", Edit1);
    Edit2 = caja_cuenta("Edit2",
                        [this](const QString& cuenta) { Nombre2->setText(exija_cuenta(cuenta)); });
    Nombre2 = rotulo("Nombre2", Edit2);
    ckniif = casilla("ckniif", "Información NIIF");
    Formulario f(this);
    f.fila("", ckniif);
    arme_fechas(f);
    f.fila("Tipo", lista_tipos("Todos..."));
    f.fila("Cuenta actual", Formulario::junto({Edit1, Nombre1}));
    f.fila("Cuenta nueva", Formulario::junto({Edit2, Nombre2}));
    arme_botones(f, "F2:Reemplazar");
    tamano(620, 320);
}

void Tfcambictamov::Edit1Exit(const QString& cuenta) {
    Nombre1->setText(exija_cuenta(cuenta));
    if (!Nombre1->text().isEmpty() && hay_movimientos({}, cuenta) == false)
        muestre_mensaje("La cuenta " + cuenta + " no tiene movimientos.");
}

bool Tfcambictamov::corra() {
    const QString origen = cuenta_de(Edit1), destino = cuenta_de(Edit2);
    const auto rango = fechas();
    if (!rango)
        return false;
    const QString tipo = LTipo->currentData().toString();
    const auto llame = [&](Paso paso) {
        return reemplace_cuenta(fdm().Quorvex, libro(), origen, destino, *rango, tipo, paso);
    };
    const CifrasMantenimiento cifras = llame(Paso::Cifras);
    if (!confirme(cifras, "Se cambiarán " + cifras.cuantos() + ". Desea continuar?"))
        return false;
    trabaje("Cambiando movimientos de " + origen + " a " + destino + ". Espere un momento...",
            [&] { return llame(Paso::Haga); });
    return true;
}
