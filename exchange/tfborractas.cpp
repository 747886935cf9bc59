#include "exchange/tfborractas.h"

#include "datos/firebird/concuerde.h"
#include "exchange/pch.h"
#include "libro/catalogos.h"
#include "toolkit/barraestado.h"

namespace {
constexpr const char* kSinInicial = "No se encontró la cuenta inicial.";
constexpr const char* kSinFinal = "No se encontró la cuenta final.";
constexpr const char* kAlReves = "La cuenta final debe ser mayor que la inicial.";
} // namespace

Tfborractas::Tfborractas() : FormaMantenimiento("Tfborractas", "Borrar plan de cuentas") {
    Edit1 = caja_cuenta(
        "Edit1", [this](const QString& cuenta) { Nombre1->setText(nombre(cuenta, kSinInicial)); });
    Nombre1 = rotulo("Nombre1", Edit1);
    Edit2 = caja_cuenta("Edit2", [this](const QString& cuenta) { Edit2Exit(cuenta); });
    Nombre2 = rotulo("Nombre2", Edit2);
    Formulario f(this);
    f.fila("Desde la cuenta", Formulario::junto({Edit1, Nombre1}));
    f.fila("Hasta la cuenta", Formulario::junto({Edit2, Nombre2}));
    arme_botones(f, "F2:Borrar");
    tamano(560, 220);
}

QString Tfborractas::nombre(const QString& cuenta, const char* mensaje) {
    const QString n = nombre_en_el_plan(fdm().Quorvex, Libro::Decreto2649, cuenta);
    if (n.isEmpty())
        muestre_mensaje(mensaje);
    return n;
}

void Tfborractas::Edit2Exit(const QString& cuenta) {
    Nombre2->setText(nombre(cuenta, kSinFinal));
    if (!Nombre2->text().isEmpty() && cuenta < Edit1->text().trimmed())
        muestre_mensaje(kAlReves);
}

bool Tfborractas::confirme_rango(const QString& desde, const QString& hasta) {
    CuentasBorradas ensayo;
    mire("Mirando qué cuentas se pueden borrar...",
         [&] { ensayo = borre_cuentas(fdm().Quorvex, desde, hasta, Paso::Cifras); });
    const qint64 cuantas =
        dato("select count(*) from cuentas where cuen_cod >= " + QuotedStr(desde) +
             " and cuen_cod <= " + QuotedStr(hasta))
            .toLongLong();
    const QString cuales =
        QStringLiteral("%1 cuentas, de la %2 a la %3").arg(cuantas).arg(desde, hasta);
    if (ensayo.detenida.isEmpty())
        return pregunte_con_no(
            (cuantas == 1 ? "Se borrará la cuenta " + desde : "Se borrarán " + cuales) +
            ". Desea continuar?");
    if (ensayo.borradas == 0) {
        muestre_mensaje(
            (cuantas == 1 ? "No se puede borrar la cuenta "
                          : "No se puede borrar ninguna de las " + cuales + ". La primera es la ") +
            ensayo.detenida + ": " + ensayo.razon);
        return false;
    }
    return pregunte_con_no("De las " + cuales + ", " +
                           concuerde(ensayo.borradas, "se borrará %1", "se borrarán %1") +
                           concuerde(cuantas - ensayo.borradas, " y quedará %1", " y quedarán %1") +
                           ", porque no se puede borrar la " + ensayo.detenida + ": " +
                           ensayo.razon + " Desea continuar?");
}

bool Tfborractas::corra() {
    const QString desde = Edit1->text().trimmed(), hasta = Edit2->text().trimmed();
    Nombre1->setText(nombre(desde, kSinInicial));
    if (Nombre1->text().isEmpty())
        rehuse(Edit1, {});
    Nombre2->setText(nombre(hasta, kSinFinal));
    if (Nombre2->text().isEmpty())
        rehuse(Edit2, {});
    if (hasta < desde)
        rehuse(Edit2, kAlReves);
    if (!confirme_rango(desde, hasta))
        return false;
    const QString aviso = "Borrando cuentas. Espere un momento...";
    CuentasBorradas r;
    trabaje(aviso, [&] {
        r = borre_cuentas(fdm().Quorvex, desde, hasta, Paso::Haga, [](const QString& cuenta) {
            if (AvisosBarra* barra = fdm().barra())
                barra->texto(cuenta);
        });
        return CifrasMantenimiento();
    });
    if (!r.detenida.isEmpty()) {
        const QString texto =
            concuerde(r.borradas, "Se borró %1 cuenta.", "Se borraron %1 cuentas.") +
            " No se pudo borrar la " + r.detenida + ": " + r.razon;
        fdm().registre_en_archivo(windowTitle() + ": " + texto);
        muestre_mensaje(texto);
    } else if (AvisosBarra* barra = fdm().barra())
        barra->texto(windowTitle() + ": " + concuerde(r.borradas, "%1 cuenta", "%1 cuentas"));
    return r.detenida.isEmpty();
}
