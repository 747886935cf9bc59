#include "reports/tfrngcronologicos.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatos{"Tfrngcronologicos",
                        "Cronológico",
                        {382, 251},
                        "auxiliares.rav",
                        "RCronologicos",
                        "CAuxiliar",
                        "RepCompCrono",
                        116,
                        {{"EDesde", "EHasta", "Tipos", ClaseRango::Tipo},
                         {"EFecIni", "EFecFin", "Fechas", ClaseRango::Fecha, "", "99991231"}}};
}

Tfrngcronologicos::Tfrngcronologicos() : FormaRango(kDatos) {
    defina_listado(CAuxiliar);

    Formulario f(this);
    arme_pares(f);
    Ckdetalle = casilla("Ckdetalle", "Incluir detalle de comprobantes");
    CkDesc = casilla("CkDesc", "Sólo descuadrados");
    casilla_niif("Movimiento NIIF");
    arme_casillas(f, {Ckdetalle, ckniif, CkDesc});
    arme_titulo(f);
    arme_botones(f);
    ponga_fechas();
}

QString Tfrngcronologicos::sql() {
    // La bandera es la inversa de la casilla: 'S' pide el listado consolidado.
    return QStringLiteral("select * from cronologico_conta(") +
           argumentos({"EDesde", "EHasta", "EFecIni", "EFecFin"}) +
           (marcada(Ckdetalle) ? ", 'N'" : ", 'S'") + (niif() ? ", 'S')" : ", 'N')") +
           (marcada(CkDesc) ? " where DEBITO <> CREDITO" : "");
}

QString Tfrngcronologicos::titulo() {
    return tramo("Tipos:", "EDesde", "EHasta") + tramo(" Fechas:", "EFecIni", "EFecFin");
}

QString Tfrngcronologicos::reporte() {
    return marcada(Ckdetalle) ? "Cronodetal" : "Cronocons";
}

QString Tfrngcronologicos::titulo_niif() {
    return marcada(Ckdetalle) ? "Cronológico de Comprobantes Detallado NIIF"
                              : "Cronológico de Comprobantes Consolidado NIIF";
}
