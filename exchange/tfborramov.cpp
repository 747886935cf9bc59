#include "exchange/tfborramov.h"

#include "datos/firebird/concuerde.h"
#include "exchange/pch.h"
#include "toolkit/controles/lista_tecleo.h"

Tfborramov::Tfborramov() : FormaMantenimiento("Tfborramov", "Borrar movimientos") {
    LPref = new ListaTecleo;
    LPref->setObjectName("LPref");
    NumIni = caja("NumIni", 8);
    NumFin = caja("NumFin", 8);
    NitIni = caja_tercero("NitIni", {});
    NitFin = caja_tercero("NitFin", {});
    Formulario f(this);
    f.fila({{"Tipo", lista_tipos({})}, {"Prefijo", LPref}});
    arme_fechas(f);
    f.fila({{"Número desde", NumIni}, {"hasta", NumFin}});
    f.fila({{"NIT desde", NitIni}, {"hasta", NitFin}});
    arme_botones(f, "F2:Borrar");
    connect(LTipo, &QComboBox::currentIndexChanged, this,
            [this] { proteja([this] { LTipoChange(); }); });
    tamano(600, 300);
}

void Tfborramov::FormCreate() {
    FormaMantenimiento::FormCreate();
    LTipo->setFocus(); // lo que se borra se escoge, y no es el primero de la lista
    LTipoChange();
}

void Tfborramov::LTipoChange() {
    LPref->clear();
    LPref->addItem("...");
    const auto c = fdm().Quorvex.abra(
        "select prco_pref from prefijos_conta where tico_cod = ? order by prco_pref",
        {LTipo->currentData().toString()});
    while (c->siguiente())
        LPref->addItem(c->valor(0).texto());
}

bool Tfborramov::corra() {
    RangoBorrado r;
    r.tipo = LTipo->currentData().toString();
    r.prefijo = LPref->currentIndex() > 0 ? LPref->currentText() : QString();
    if (FecIni->text().trimmed().isEmpty() || FecFin->text().trimmed().isEmpty())
        rehuse(FecIni, "Debe indicar el rango de fechas a borrar.");
    const auto rango = fechas();
    if (!rango)
        return false;
    r.fechas = *rango;
    const auto numero = [](QLineEdit* caja) {
        const QString n = caja->text().trimmed();
        return n.isEmpty() ? n : Tfdm::complete_numero(n);
    };
    r.numero_desde = numero(NumIni);
    r.numero_hasta = numero(NumFin);
    r.nit_desde = NitIni->text().trimmed();
    r.nit_hasta = NitFin->text().trimmed();
    if (r.nit_desde.isEmpty())
        r.nit_desde = r.nit_hasta;
    if (r.nit_hasta.isEmpty())
        r.nit_hasta = r.nit_desde;
    const auto llame = [&](Paso paso) {
        return borre_movimientos(fdm().Quorvex, r, fdm().usuario, paso);
    };
    const CifrasMantenimiento c = llame(Paso::Cifras);
    QString pregunta = "Se borrarán " + c.cuantos() +
                       concuerde(c.borrados, "; %1 se va entero.", "; %1 se van enteros.");
    if (c.ajenos > 0)
        pregunta += concuerde(
            c.ajenos, " %1 lo generó otro módulo, y su documento quedará sin contabilizar.",
            " %1 los generaron otros módulos, y sus documentos quedarán sin contabilizar.");
    if (c.descuadrados > 0)
        pregunta +=
            concuerde(c.descuadrados, " %1 quedará descuadrado.", " %1 quedarán descuadrados.");
    if (!confirme(c, pregunta + " Desea continuar?"))
        return false;
    trabaje("Borrando movimientos ...", [&] { return llame(Paso::Haga); });
    return true;
}
