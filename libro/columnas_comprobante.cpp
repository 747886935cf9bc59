#include "libro/columnas_comprobante.h"

const QVector<ColumnaDe<Comprobante>>& columnas_encabezado() {
    using C = Comprobante;
    static const QVector<ColumnaDe<C>> columnas{
        {"ENCO_CONSEC", &C::id, "Id", 0, ColRequerida},
        {"TICO_COD", &C::tipo, "Tipo", 3, ColFija | ColRequerida},
        {"PRCO_PREF", &C::prefijo, "Prefijo", 4, ColRequerida},
        {"ENCO_NUMERO", &C::numero, "Número", 6, ColRequerida},
        {"ENCO_FECHA", &C::fecha, "Fecha", 8, ColFija | ColRequerida},
        {"ENCO_CONCEPTO", &C::concepto, "Concepto", 60},
        {"ENCO_REFER", &C::referencia, "Referencia", 8},
        {"ENCO_TIPOREF", &C::tipo_origen, "Tipo de origen", 0},
        {"ENCO_IDREF", &C::id_origen, "Documento de origen", 0},
        {"ENCO_USUARIO", &C::usuario, "Usuario", 10},
        {"TERC_NIT", &C::nit, "Tercero", 20},
        {"ENCO_NOMTERC", &C::nombre_tercero, "Nombre del tercero", 60},
        {"ENCO_MONTO", &C::monto, "Monto", 2, ColCeroNulo},
        {"ENCO_DESCONTABLE", &C::descontable, "Descontable", 1, ColFija},
        {"ENCO_MANDANTE", &C::mandante, "Mandante", 20},
        {"ENCO_REPNIIF", &C::replica, "Generar comprobante NIIF", 1, ColFija},
        {"ENCO_OBS", &C::observaciones, "Observaciones", 0, ColMemo},
    };
    return columnas;
}

namespace {

QVector<ColumnaDe<LineaComprobante>> arme_columnas(Libro libro) {
    using L = LineaComprobante;
    const bool niif = es_niif(libro);
    QVector<ColumnaDe<L>> columnas{
        {"CODE_ITEM", &L::item, "Línea", 0, ColRequerida},
        {"CUEN_COD", &L::cuenta, "Cuenta", 20, ColRequerida},
        {"CODE_CONCEPTO", &L::concepto, "Concepto", 60},
        {"CODE_REFER", &L::referencia, "Referencia", 8},
        {"CODE_DEBITO", &L::debito, niif ? "Debito" : "Débito", 2},
        {"CODE_CREDITO", &L::credito, "Crédito", 2},
        {"CODE_BASE", &L::base, "Base", 2, ColCeroNulo},
        {"CODE_PORC", &L::porcentaje, "Porc.", niif ? 4 : 2, ColCeroNulo | ColTasa, "#,##0.####"},
        {"TERC_NIT", &L::nit, "Tercero", 20},
        {"PROY_COD", &L::proyecto, "Proy", 4},
        {"CENT_COD", &L::centro, "Centro", 4},
        {"DOCO_VENCE", &L::vence, "Vence", 8},
        {"ARTI_COD", &L::articulo, "Artículo", 15},
        {"CODE_TIPOAPL", &L::tipo_aplica, "Tipo a que aplica", 0, ColCeroNulo},
        {"CODE_TIPONUE", &L::tipo_abre, "Tipo de documento", 0, ColCeroNulo},
        {"CONC_COD", &L::categoria, niif ? "Categoria" : "Categoría", 4},
        {"CNDE_DOCNUMERO", &L::documento, "Documento", 10},
        {"CNDE_DOCAPLICA", &L::documento_aplica, "Aplica a", 10},
        {"CODE_DESCONTABLE", &L::descontable, "Desc.", 1, ColFija},
    };
    if (niif)
        columnas.append({"CODE_ITEMREP", &L::item_replica, "Réplica de", 0, ColAusente});
    return columnas;
}

} // namespace

const QVector<ColumnaDe<LineaComprobante>>& columnas_linea(Libro libro) {
    static const QVector<ColumnaDe<LineaComprobante>> de_2649 = arme_columnas(Libro::Decreto2649),
                                                      de_niif = arme_columnas(Libro::Niif);
    return es_niif(libro) ? de_niif : de_2649;
}
