#include "reports/tfrngconsecutivos.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatos{"Tfrngconsecutivos",
                        "Consecutivos",
                        {382, 254},
                        "auxiliares.rav",
                        "RConsecutivos",
                        "CAuxiliar",
                        "RepCompConsec",
                        116,
                        {{"EDesde", "EHasta", "Tipos", ClaseRango::Tipo, "", ""},
                         {"EPrefIni", "EPrefFin", "Prefijos"},
                         {"ENumIni", "ENumFin", "Números"}}};
}

Tfrngconsecutivos::Tfrngconsecutivos() : FormaRango(kDatos) {
    defina_listado(CAuxiliar);

    Formulario f(this);
    arme_pares(f);
    Ckdetalle = casilla("Ckdetalle", "Incluir detalle de comprobantes");
    CkDesc = casilla("CkDesc", "Sólo descuadrados");
    casilla_niif("Movimiento NIIF");
    arme_casillas(f, {Ckdetalle, ckniif, CkDesc});
    arme_titulo(f);
    arme_botones(f);
}

QString Tfrngconsecutivos::sql() {
    // La bandera es la inversa de la casilla: 'S' pide el listado consolidado.
    return QStringLiteral("select * from consecutivos_conta(") +
           argumentos({"EDesde", "EHasta", "EPrefIni", "EPrefFin", "ENumIni", "ENumFin"}) +
           (marcada(Ckdetalle) ? ", 'N'" : ", 'S'") + (niif() ? ", 'S')" : ", 'N')") +
           (marcada(CkDesc) ? " where DEBITO <> CREDITO" : "");
}

QString Tfrngconsecutivos::titulo() {
    return tramo("Tipos:", "EDesde", "EHasta") + tramo(" Prefijos:", "EPrefIni", "EPrefFin") +
           tramo(" Números:", "ENumIni", "ENumFin");
}

QString Tfrngconsecutivos::reporte() {
    return marcada(Ckdetalle) ? "Consecdetal" : "Conseccons";
}

QString Tfrngconsecutivos::titulo_niif() {
    return marcada(Ckdetalle) ? "Consecutivo de Comprobantes Detallado NIIF"
                              : "Consecutivo de Comprobantes Consolidado NIIF";
}
