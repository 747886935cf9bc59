#include "tax/tercero_corregido.h"

namespace {

const QString kPrefijo = QStringLiteral("MEMG_");

} // namespace

IdentificacionMedio identificacion_medio(Conexion& base, const QString& nit) {
    IdentificacionMedio datos;
    const auto c = base.abra("select * from VISTA_TERCERO_MEDIO where TERC_NIT = ?", {Valor(nit)});
    if (!c->siguiente())
        return datos;
    for (int i = 0; i < c->columnas().size(); ++i)
        datos[c->columnas()[i].nombre] = c->valor(i);
    return datos;
}

FilasCorregidas corrija_filas_del_tercero(Conexion& base, int formato, const QString& ano,
                                          const QString& nit, const IdentificacionMedio& antes) {
    FilasCorregidas r;
    const IdentificacionMedio hoy = identificacion_medio(base, nit);
    QStringList cambios;
    QVector<Valor> valores;
    for (const auto& [columna, valor] : hoy.asKeyValueRange()) {
        if (valor.texto() == antes.value(columna).texto())
            continue;
        // Del país y del régimen depende la columna de la retención de IVA, que solo lleva el 1001.
        r.recalcular = r.recalcular || (QString::number(formato).startsWith("1001") &&
                                        (columna == QLatin1String("TERC_SIMPLIFICA") ||
                                         columna == QLatin1String("MEMG_PAIS")));
        if (!columna.startsWith(kPrefijo))
            continue;
        r.columnas << columna;
        cambios << columna + " = ?";
        valores << valor;
    }
    if (cambios.isEmpty())
        return r;
    const QString sql = "update MEDIOS_MAGNETICOS_DATOS set " + cambios.join(", ") +
                        " where MEMG_FORMATO = ? and MEMG_ANO = ? and MEMG_NIT = ?";
    valores << Valor(formato) << Valor(ano) << Valor(nit);
    r.filas = base.ejecute(sql, valores);
    return r;
}

QString columna_en_palabras(const QString& columna) {
    static const QMap<QString, QString> nombres{{"MEMG_TIPODOC", "tipo de documento"},
                                                {"MEMG_DV", "dígito de verificación"},
                                                {"MEMG_APELLIDO1", "primer apellido"},
                                                {"MEMG_APELLIDO2", "segundo apellido"},
                                                {"MEMG_NOMBRE1", "primer nombre"},
                                                {"MEMG_NOMBRE2", "segundo nombre"},
                                                {"MEMG_RAZONSOCIAL", "razón social"},
                                                {"MEMG_DIRECCION", "dirección"},
                                                {"MEMG_DEPARTAMENTO", "departamento"},
                                                {"MEMG_MUNICIPIO", "municipio"},
                                                {"MEMG_PAIS", "país"}};
    return nombres.value(columna, columna);
}
