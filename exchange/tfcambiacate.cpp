#include "exchange/tfcambiacate.h"

#include "datos/firebird/concuerde.h"
#include "exchange/pch.h"

Tfcambiacate::Tfcambiacate() : FormaMantenimiento("Tfcambiacate", "Cambiar detalle cuenta") {
    ckniif = casilla("ckniif", "Información NIIF");
    Edit1 = caja_cuenta("Edit1", [this](const QString& cuenta) { Edit1Exit(cuenta); });
    Nombre1 = rotulo("Nombre1", Edit1);
    ckter = casilla("ckter", "Tercero");
    ckcen = casilla("ckcen", "Centro de costo");
    ckret = casilla("ckret", "Retención");
    Formulario f(this);
    f.fila("", ckniif);
    f.fila("Cuenta", Formulario::junto({Edit1, Nombre1}));
    f.fila("Exige", Formulario::junto({ckter, ckcen, ckret}));
    arme_botones(f, "F2:Cambiar");
    tamano(560, 240);
}

void Tfcambiacate::Edit1Exit(const QString& cuenta) {
    Nombre1->clear();
    leida_.reset();
    const auto a = atributos_de_cuenta(fdm().Quorvex, libro(), cuenta);
    if (!a) {
        muestre_mensaje("Cuenta no encontrada.");
        return;
    }
    Nombre1->setText(exija_cuenta(cuenta));
    ckter->setChecked(a->tercero == "S");
    ckcen->setChecked(a->centro == "S");
    ckret->setChecked(a->retencion == "S");
    leida_ = {libro(), cuenta};
}

bool Tfcambiacate::corra() {
    const QString cuenta = Edit1->text().trimmed();
    // F2 no saca de la caja: las casillas pueden ser todavía las de otra.
    if (leida_ != std::pair(libro(), cuenta)) {
        Edit1Exit(cuenta);
        if (leida_)
            pida_revision(ckter, cuenta);
        return false;
    }
    const IndicadoresCuenta i{ckter->isChecked(), ckcen->isChecked(), ckret->isChecked()};
    const CifrasMantenimiento cifras =
        cambie_detalle(fdm().Quorvex, libro(), cuenta, i, Paso::Cifras);
    QString pregunta =
        "Se cambiará el detalle de la cuenta " + cuenta + ", que tiene " + cifras.cuantos() + '.';
    QStringList exige;
    for (const QCheckBox* c : {ckter, ckcen, ckret})
        exige << c->text() + (c->isChecked() ? ": sí" : ": no");
    pregunta += " Exigirá " + exige.join(", ") + '.';
    if (cifras.incompletos > 0)
        pregunta += concuerde(
            cifras.incompletos,
            " %1 quedará sin el dato que la cuenta va a exigir, y la verificación lo señalará.",
            " %1 quedarán sin el dato que la cuenta va a exigir, y la verificación los señalará.");
    if (!confirme(cifras, pregunta + " Desea continuar?"))
        return false;
    trabaje(
        "Cambiando el detalle de la cuenta. Espere un momento...",
        [&] { return cambie_detalle(fdm().Quorvex, libro(), cuenta, i, Paso::Haga); }, cuenta);
    return true;
}
