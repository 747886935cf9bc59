#include "reports/tfrngconsecutivos.h"

#include "catalogues/columnas_auxiliar.h"
#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {

constexpr int kExportarAuxiliares = 116;

} // namespace

const QVector<DatosListado>& Tfrngconsecutivos::listados() {
    static const QVector<DatosListado> tabla = {
        {
            .rango = {.clase = "Tfrngconsecutivos",
                      .titulo = "Consecutivos",
                      .tamano = {382, 254},
                      .proyecto = "auxiliares.rav",
                      .conexion = "RConsecutivos",
                      .archivo = "RepCompConsec",
                      .opcion_exportar = kExportarAuxiliares,
                      .pares = {{"EDesde", "EHasta", "Tipos", ClaseRango::Tipo, "", ""},
                                {"EPrefIni", "EPrefFin", "Prefijos"},
                                {"ENumIni", "ENumFin", "Números"}}},
            .procedimiento = "consecutivos_conta",
            .tramos = {"Tipos:", " Prefijos:", " Números:"},
            .con_fechas = false,
            .detallado = "Consecdetal",
            .consolidado = "Conseccons",
            .titulo_niif = "Consecutivo de Comprobantes",
        },
        {
            .rango = {.clase = "Tfrngcronologicos",
                      .titulo = "Cronológico",
                      .tamano = {382, 251},
                      .proyecto = "auxiliares.rav",
                      .conexion = "RCronologicos",
                      .archivo = "RepCompCrono",
                      .opcion_exportar = kExportarAuxiliares,
                      .pares = {{"EDesde", "EHasta", "Tipos", ClaseRango::Tipo},
                                {"EFecIni", "EFecFin", "Fechas", ClaseRango::Fecha, "",
                                 "99991231"}}},
            .procedimiento = "cronologico_conta",
            .tramos = {"Tipos:", " Fechas:"},
            .con_fechas = true,
            .detallado = "Cronodetal",
            .consolidado = "Cronocons",
            .titulo_niif = "Cronológico de Comprobantes",
        },
    };
    return tabla;
}

Tfrngconsecutivos::Tfrngconsecutivos(const DatosListado& listado)
    : FormaRango(listado.rango), listado_(listado) {
    defina_columnas(CAuxiliar, {"ID", "TIPOCOMP", "PREFIJO", "NUMERO", "FECHA", "CUENTA", "NIT",
                                "PROYECTO", "CENTRO", "CONCEPTO", "REF", "BASE", "PORC", "DEBITO",
                                "CREDITO", "TIPOREF", "IDREF", "NOMTIPO"});

    Formulario f(this);
    arme_pares(f);
    Ckdetalle = casilla("Ckdetalle", "Incluir detalle de comprobantes");
    CkDesc = casilla("CkDesc", "Sólo descuadrados");
    casilla_niif("Movimiento NIIF");
    arme_casillas(f, {Ckdetalle, ckniif, CkDesc});
    arme_titulo(f);
    arme_botones(f);
    if (listado_.con_fechas)
        ponga_fechas();
}

QString Tfrngconsecutivos::sql() {
    QStringList limites;
    for (const ParRango& par : datos_.pares)
        limites << entre_comillas(par.desde) << entre_comillas(par.hasta);
    // La bandera es la inversa de la casilla: 'S' pide el listado consolidado.
    const bool detalle = marcada(Ckdetalle), descuadrados = marcada(CkDesc);
    const QString libro = bandera(niif());
    const QString listado = listado_.procedimiento + '(' + limites.join(", ") + ", " +
                            bandera(!detalle || descuadrados) + ", " + libro + ')';
    if (!descuadrados)
        return "select * from " + listado;
    if (!detalle)
        return "select * from " + listado + " where DEBITO <> CREDITO";
    // El que descuadra es el comprobante: cada línea por su lado es de un solo lado.
    return "select C.ID, L.* from " + listado + " C left join liste_comprobante(C.ID, 'N', " +
           libro + ") L on 1 = 1 where C.DEBITO <> C.CREDITO";
}

QString Tfrngconsecutivos::titulo() {
    QString texto;
    for (int i = 0; i < datos_.pares.size(); ++i)
        texto += tramo(listado_.tramos[i], datos_.pares[i].desde, datos_.pares[i].hasta);
    return texto;
}

QString Tfrngconsecutivos::rango_legible() {
    const QString rango = FormaRango::rango_legible();
    return marcada(CkDesc) ? rango + " · sólo descuadrados" : rango;
}

QString Tfrngconsecutivos::reporte() {
    return marcada(Ckdetalle) ? listado_.detallado : listado_.consolidado;
}

QString Tfrngconsecutivos::titulo_niif() {
    return listado_.titulo_niif + (marcada(Ckdetalle) ? " Detallado NIIF" : " Consolidado NIIF");
}
