#include "sesion/campos_catalogos.h"

#include "datos/recordset/conjunto.h"

namespace {
constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
}

void campos_tipos_comprobante(ConjuntoDatos& c) {
    c.texto("TICO_COD", 3).requerido().etiqueta("Código");
    c.texto("TICO_NOM", 60).requerido().etiqueta("Nombre");
}

void campos_prefijos(ConjuntoDatos& c) {
    c.texto("TICO_COD", 3).requerido().etiqueta("Tipo");
    c.texto("PRCO_PREF", 4).requerido().etiqueta("Prefijo");
    c.bandera("PRCO_AUTO").requerido().defecto("S").etiqueta("Automático");
    c.texto("PREF_NUMERO", 6).requerido().etiqueta("Número");
    c.texto("PRCO_USUARIO", 10).etiqueta("Usuario");
    c.bandera("PRCO_ACTIVO").etiqueta("Activo");
}

QString sql_prefijos_activos(const QString& tipo) {
    return QStringLiteral("SELECT * FROM PREFIJOS_CONTA WHERE TICO_COD = %1 AND PRCO_ACTIVO = 'S'")
        .arg(QuotedStr(tipo));
}

void campos_documentos(ConjuntoDatos& c) {
    c.entero("TIDO_COD");
    c.texto("TIDO_NOMCORTO", 8);
    c.texto("TIDO_NOMLARGO", 30);
    c.bandera("TIDO_CART");
    c.bandera("TIDO_CXP");
}

void campos_proyectos(ConjuntoDatos& c) {
    c.texto("PROY_COD", 4).requerido().etiqueta("Código");
    c.texto("PROY_NOM", 60).requerido().etiqueta("Nombre");
}

void campos_centros(ConjuntoDatos& c) {
    c.texto("PROY_COD", 4).requerido().banderas(kLlave).etiqueta("Proyecto");
    c.texto("CENT_COD", 4).requerido().banderas(kLlave).etiqueta("Código");
    c.texto("CENT_NOM", 60).requerido().etiqueta("Nombre");
    c.entero("SUCU_ID").etiqueta("Agencia").defecto("0");
}

void campos_agencias(ConjuntoDatos& c) {
    c.entero("SUCU_ID").requerido();
    c.texto("SUCU_NOMBRE", 60);
    c.texto("SUCU_DIRECCION", 60);
    c.texto("SUCU_TELEFONOS", 60);
}

void campos_categorias(ConjuntoDatos& c, int largo_codigo) {
    c.texto("CONC_COD", largo_codigo).etiqueta("Código");
    c.texto("CONC_NOMBRE", 60).etiqueta("Nombre");
}

void campos_ciudades(ConjuntoDatos& c) {
    c.texto("CIUD_COD", 5).etiqueta("Código");
    c.texto("CIUD_NOM", 60).etiqueta("Nombre");
    c.bandera("CIUD_ACTIVA").etiqueta("Activa").defecto("S");
}

void campos_paises(ConjuntoDatos& c) {
    c.texto("PAIS_ID", 3).fijo().etiqueta("Código");
    c.texto("PAIS_NOM", 60).etiqueta("Nombre");
}

void campos_documentos_tercero(ConjuntoDatos& c) {
    c.texto("TERC_NIT", 20);
    c.entero("TEDO_ITEM");
    c.texto("TEDO_NOMBRE", 255);
    c.blob("TEDO_ARCHIVO");
}

void campos_articulos(ConjuntoDatos& c) {
    c.texto("ARTI_COD", 15).banderas(kLlave).etiqueta("Código");
    c.texto("ARTI_DES", 60).etiqueta("Descripción");
}
