#include "exchange/equivalencias.h"

namespace {

QString llave(const QString& tipo, const QString& prefijo) {
    return tipo + QChar(0x1F) + prefijo;
}

} // namespace

Equivalencias::Equivalencias(Transaccion& t) {
    Cursor p(t.conexion().prepare("select prex_tipo, prex_pref, prex_tipoexp, prex_exporta from "
                                  "prefijos_exportacion",
                                  t),
             t, {});
    while (p.siguiente()) {
        const QString tipo = p.valor(0).texto(), destino = p.valor(2).texto();
        prefijos_[llave(tipo, p.valor(1).texto())] = {destino.isEmpty() ? tipo : destino,
                                                      p.valor(3).texto(), true};
    }
    Cursor c(t.conexion().prepare("select cuen_cod, cuex_cod from cuentas_exportacion where "
                                  "cuex_cod <> ''",
                                  t),
             t, {});
    while (c.siguiente())
        cuentas_[c.valor(0).texto()] = c.valor(1).texto();
}

PrefijoExportado Equivalencias::prefijo(const QString& tipo, const QString& prefijo) const {
    return prefijos_.value(llave(tipo, prefijo), {tipo, prefijo, false});
}

QString Equivalencias::cuenta(const QString& cuenta) const {
    return cuentas_.value(cuenta, cuenta);
}
