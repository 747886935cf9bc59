#include "reports/tfrngcomprodiario.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngcomprodiario{"Tfrngcomprodiario",
                                       "Diario detallado",
                                       {400, 264},
                                       "auxiliares.rav",
                                       "RComprodia",
                                       "CAuxiliar",
                                       "RepCompDiar",
                                       116,
                                       {{"ECtaIni", "ECtaFin", "Cuentas", ClaseRango::Cuenta},
                                        {"TipoDesde", "TipoHasta", "Tipos", ClaseRango::Tipo}}};
}

Tfrngcomprodiario::Tfrngcomprodiario() : FormaRango(kDatosRngcomprodiario) {
    defina_columnas(CAuxiliar, {"CUENTA", "TIPOCOMP", "NOMCOMP", "PREFIJO", "NUMERO", "FECHA",
                                "DEBITOS", "CREDITOS", "NOMCUENTA", "CONCEPTO", "REFER"});

    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    Ckdetalle = casilla("Ckdetalle", "Incluir detalle de comprobantes");
    casilla_niif("Movimiento NIIF");
    arme_casillas(f, {Ckdetalle, ckniif});
    arme_titulo(f);
    arme_botones(f);
}

QString Tfrngcomprodiario::sql() {
    // La bandera es la inversa de la casilla: 'S' pide el consolidado.
    return QStringLiteral("select * from ") +
           (niif() ? "libro_diario_cuenta_n(" : "libro_diario_cuenta(") +
           QuotedStr(QString::number(periodo.ano)) + ", " +
           QuotedStr(QString::number(periodo.numero())) + ", " +
           (marcada(Ckdetalle) ? "'N'," : "'S',") +
           argumentos({"ECtaIni", "ECtaFin", "TipoDesde", "TipoHasta"}) + ")";
}

QString Tfrngcomprodiario::titulo() {
    return tramo("Cuentas:", "ECtaIni", "ECtaFin") + tramo(" - Tipos:", "TipoDesde", "TipoHasta");
}

QString Tfrngcomprodiario::reporte() {
    return marcada(Ckdetalle) ? "Comprodiadetal" : "Comprodiacons";
}

QString Tfrngcomprodiario::titulo_niif() {
    return marcada(Ckdetalle) ? "Comprobantes de Diario Detallado NIIF"
                              : "Comprobantes de Diario Consolidado NIIF";
}
