#include "libro/modos.h"

#include "datos/firebird/errores.h"

namespace {

const ModoGrabacion kGrabacion[] = {
    {.quien = Grabador::Digitar,
     .prueba_2649 = true,
     .prueba_niif = true,
     .niif_solo_con_2649 = true,
     .vuelve_a_edicion = true,
     .nuevo = true,
     .revisa_nacidas = true},
    {.quien = Grabador::DigitarEntraNiif,
     .prueba_2649 = true,
     .vuelve_a_edicion = true,
     .nuevo = true},
    {.quien = Grabador::DigitarSaleNiif,
     .prueba_niif = true,
     .vuelve_a_edicion = true,
     .nuevo = true},
    {.quien = Grabador::Editar,
     .prueba_2649 = true,
     .prueba_niif = true,
     .encabezado_viaja = true,
     .revisa_nacidas = true},
    {.quien = Grabador::EditarEntraNiif, .prueba_2649 = true, .vuelve_a_edicion = true},
    {.quien = Grabador::EditarSaleNiif, .prueba_niif = true, .vuelve_a_edicion = true},
    {.quien = Grabador::Lote,
     .prueba_2649 = true,
     .prueba_niif = true,
     .nuevo = true,
     .revisa_celdas = true,
     .rehusa_vacio = true},
};

using enum OrdenBorrado;
const QVector<OrdenBorrado> kSolo2649{Lineas2649, Encabezado};
const QVector<OrdenBorrado> kLosDosLibros{LineasNiif, Lineas2649, Encabezado};
constexpr const char* kAvisoNiif =
    "Recuerde que al borrar esta eiminando el movimiento NIIF y el movimiento en la contabilidad "
    "según decreto 2694. ";

const ModoBorrado kBorrado[] = {
    {"Tfbuscomproba", true, {Lineas2649, LineasNiif, Firma, Encabezado}},
    {"Tfedtmovimien", true, {Lineas2649, LineasNiif, FirmaCero, Encabezado}},
    {"Tfcomproterc", false, kSolo2649},
    {"Tfconciliacta", true, kSolo2649},
    {"Tfmovimien", false, kSolo2649}, // el provisional que se elimina al entrar
    {"Tfauxiliar", true, kSolo2649},
    {"Tfauxiliarcentro", true, kSolo2649},
    {"Tfauxiliarcentroniif", true, kSolo2649},
    {"Tfauxiliarart", true, kSolo2649},
    {"Tfauxiliarterc", true, kLosDosLibros},
    {"Tfauxiliartercniif", true, kLosDosLibros},
    {"Tfauxiliarniif", true, kLosDosLibros, kAvisoNiif},
};

} // namespace

const ModoGrabacion& modo_de(Grabador quien) {
    return kGrabacion[int(quien)];
}

const ModoBorrado& modo_borrado(const QString& pantalla) {
    for (const ModoBorrado& m : kBorrado)
        if (pantalla == QLatin1String(m.pantalla))
            return m;
    throw ErrorDatos(QStringLiteral("%1 no borra comprobantes.").arg(pantalla));
}
