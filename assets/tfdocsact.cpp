#include "assets/tfdocsact.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"

namespace {

void campos(ConjuntoDatos& c) {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    c.texto("ACFJ_COD", 15).banderas(kLlave);
    c.entero("ACDO_ITEM").banderas(kLlave).etiqueta("Ítem");
    c.texto("ACDO_NOMBRE", 255).etiqueta("Documento");
    c.blob("ACDO_ARCHIVO");
}

} // namespace

const DatosDocumentos& documentos_de_activo() {
    static const DatosDocumentos d{.lista = "Tfdocsact",
                                   .nuevo = "Tfnvodocact",
                                   .titulo = "Documentos del activo",
                                   .titulo_nuevo = "Nuevo documento del activo",
                                   .vacio = "El activo no tiene documentos. F5 agrega el primero.",
                                   .tabla = "activos_documentos",
                                   .llave = "ACFJ_COD",
                                   .item = "ACDO_ITEM",
                                   .nombre = "ACDO_NOMBRE",
                                   .archivo = "ACDO_ARCHIVO",
                                   .sentencia = [](QObject* dueno) -> Sentencia& {
                                       return *new Sentencia(dueno, "TActdocs", fdm().Quorvex);
                                   },
                                   .campos = campos,
                                   .opcion_borrar = 12};
    return d;
}

QString Tfdocsact::maestro() const {
    return peticion<AbreActivo>().activo_seleccionado;
}

bool Tfdocsact::abra_nuevo(const QString& activo) {
    return pantallas().abrir_modal("Tfnvodocact", AbreActivo{activo}) == mrOk;
}

QString Tfdocsact::nombre_archivo() const {
    return maestro_ + CDocs.FieldByName("ACDO_NOMBRE").texto();
}
