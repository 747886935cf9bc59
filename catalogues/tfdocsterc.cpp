#include "catalogues/tfdocsterc.h"

#include "catalogues/terceros.h"
#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdmter.h"

const DatosDocumentos& documentos_de_tercero() {
    static const DatosDocumentos d{
        .lista = "Tfdocsterc",
        .nuevo = "Tfnvodocterc",
        .titulo = "Documentos del tercero",
        .titulo_nuevo = "Nuevo documento del tercero",
        .vacio = "El tercero no tiene documentos. F5 agrega el primero.",
        .tabla = "tercero_documentos",
        .llave = "TERC_NIT",
        .item = "TEDO_ITEM",
        .nombre = "TEDO_NOMBRE",
        .archivo = "TEDO_ARCHIVO",
        .sentencia = [](QObject*) -> Sentencia& { return fdmter().TDocsterc; },
        .campos = campos_documentos_tercero,
        .opcion_borrar = 12};
    return d;
}

QString Tfdocsterc::maestro() const {
    return peticion<AbreTercero>().tercero_seleccion;
}

QString Tfdocsterc::modulo() const {
    return modulo_de_terceros();
}

bool Tfdocsterc::abra_nuevo(const QString& nit) {
    return pantallas().abrir_modal("Tfnvodocterc", AbreTercero{nit}) == mrOk;
}

QString Tfdocsterc::nombre_archivo() const {
    return maestro_ + ' ' + CDocs.FieldByName("TEDO_ITEM").texto();
}
