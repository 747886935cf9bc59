#include "ledger/familia.h"

#include "datos/firebird/valor.h"

namespace {

constexpr const char* kDeCuentas = "select cuen_nom from cuentas where cuen_cod = ";
constexpr const char* kDeCuentasNiif = "select cuen_nom from cuentas_niif where cuen_cod = ";
constexpr const char* kCuentaYTipo = "select cuen_nom, cuen_tipo from cuentas where cuen_cod = ";
constexpr const char* kFinalCuenta = "select * from saldo_cuenta_mes({cuenta},{ano},{mes},'N')";
constexpr const char* kFinalCuentaNiif =
    "select * from saldo_cuenta_mes_niif({cuenta},{ano},{mes},'N')";
constexpr const char* kFinalTercero =
    "select * from saldo_tercero_mes({cuenta},{nit},{ano},{mes},'N')";
constexpr const char* kFinalTerceroNiif =
    "select * from saldo_tercero_mes_niif({cuenta},{nit},{ano},{mes},'N')";
constexpr const char* kFinalCentro =
    "select * from saldo_centro_mes({cuenta},{proyecto},{centro},{ano},{mes},'N')";
constexpr const char* kFinalArticulo =
    "select final from balance_articulo_mes({cuenta},{ano},{mes}) where codigo = {articulo}";

} // namespace

const QVector<DatosAuxiliar>& auxiliares() {
    constexpr QSize kDeCuenta(680, 350), kDeCentro(638, 297);
    static const QVector<DatosAuxiliar> tabla = {
        {{"Tfauxiliar", "Auxiliar",
          "select * FROM AUXILIAR_CUENTA_MES({cuenta!},{ano!},{mes}) order by {orden}", kDeCuentas,
          Clave::Ninguna, "Auxiliar", Flechas::Invertidas, kDeCuenta},
         "saldo_cuenta",
         kFinalCuenta,
         ConNit | ConCiudad | ConCentros,
         "Referencia"},
        {{"Tfauxiliarniif", "Auxiliar NIIF",
          "select * FROM AUXILIAR_CUENTA_MES_NIIF({cuenta!},{ano!},{mes}) order by {orden}", "",
          Clave::Ninguna, "AuxiliarNIIF", Flechas::Invertidas, kDeCuenta},
         "saldo_cuenta_niif",
         kFinalCuentaNiif,
         ConNit | ConCiudad | ConCentros,
         "Referencia"},
        {{"Tfauxiliarterc", "Auxiliar por tercero",
          "select * from auxiliar_tercero_mes({cuenta},{nit},{ano},{mes}) order by {orden}",
          kDeCuentas, Clave::Tercero, "AuxTerc", Flechas::Invertidas, kDeCuenta},
         "",
         kFinalTercero,
         ConCentros,
         "Ref."},
        // El nombre de la cuenta es el del libro 2649 también en su gemela NIIF.
        {{"Tfauxiliartercniif", "Auxiliar por tercero NIIF",
          "select * from auxiliar_tercero_mes_n({cuenta},{nit},{ano},{mes}) order by {orden}",
          kDeCuentas, Clave::Tercero, "AuxTerc", Flechas::Invertidas, kDeCuenta},
         "",
         kFinalTerceroNiif,
         ConCentros,
         "Ref."},
        {{"Tfauxiliarcentro", "Auxiliar por centro de costo",
          "select * from auxiliar_centro_mes({cuenta},{proyecto},{centro},{ano},{mes}) order by "
          "{orden}",
          kDeCuentas, Clave::Centro, "AuxCentroCosto", Flechas::Ninguna, kDeCentro},
         "",
         kFinalCentro,
         ConNit | ConCiudad,
         "Referencia"},
        // Sin procedimiento propio: lee los movimientos del libro 2649.
        {{"Tfauxiliarcentroniif", "Auxiliar por centro de costo NIIF",
          "select * from auxiliar_centro_mes({cuenta},{proyecto},{centro},{ano},{mes}) order by "
          "{orden}",
          kDeCuentas, Clave::Centro, "AuxCentroCosto", Flechas::Ninguna, kDeCentro},
         "",
         kFinalCentro,
         ConNit | ConCiudad,
         "Referencia"},
        {{"Tfauxiliarart", "Auxiliar por artículo",
          "select * FROM AUXILIAR_ARTICULO_MES({cuenta},{articulo},{ano},{mes}) ORDER BY {orden}",
          kDeCuentas, Clave::Articulo, "AuxArtic", Flechas::Ninguna, kDeCuenta},
         "",
         kFinalArticulo,
         ConNit | ConCentros,
         "Referencia"},
    };
    return tabla;
}

const QVector<DatosSaldo>& saldos_por_clave() {
    constexpr QSize kDeTercero(616, 350), kDeCentro(616, 236), kDeArticulo(676, 273);
    static const QVector<DatosSaldo> tabla = {
        {{"Tfsaldoterc", "Saldos por tercero",
          "select * from balance_tercero_mes({cuenta}, {ano}, {mes})", kDeCuentas, Clave::Ninguna,
          "SaldoTerc", Flechas::Derechas, kDeTercero},
         Clave::Tercero,
         "Créditos",
         "Tfauxiliarterc"},
        {{"Tfsaldotercniif", "Saldos por tercero NIIF",
          "select * from balance_tercero_mes_niif({cuenta}, {ano}, {mes})", kDeCuentas,
          Clave::Ninguna, "SaldoTercNIIF", Flechas::Derechas, kDeTercero},
         Clave::Tercero,
         "Créditos",
         "Tfauxiliartercniif"},
        // Al auxiliar solo pasa el tercero: muestra sus movimientos de todos los centros.
        {{"Tfsaldotercent", "Saldos centro por tercero",
          "select * from balance_centro_tercero_mes({cuenta}, {proyecto},{centro},{ano}, {mes})",
          kDeCuentas, Clave::Centro, "SaldoTerc", Flechas::Derechas, kDeTercero},
         Clave::Tercero,
         "Créditos",
         "Tfauxiliarterc"},
        {{"Tfsaldotercentniif", "Saldos centro por tercero NIIF",
          "select * from balance_centro_tercero_mes_n({cuenta}, {proyecto},{centro},{ano}, {mes})",
          kDeCuentasNiif, Clave::Centro, "SaldoTercNiif", Flechas::Derechas, kDeTercero},
         Clave::Tercero,
         "Créditos",
         "Tfauxiliartercniif"},
        {{"Tfsaldocentro", "Saldos por centro",
          "select * from balance_centro_mes({cuenta}, {ano}, {mes})", kDeCuentas, Clave::Ninguna,
          "SaldoCentro", Flechas::Ninguna, kDeCentro},
         Clave::Centro,
         "Créditos",
         "Tfauxiliarcentro",
         "Tfsaldotercent"},
        {{"Tfsaldocentroniif", "Saldos por centro NIIF",
          "select * from balance_centro_mes_n({cuenta}, {ano}, {mes})", kDeCuentasNiif,
          Clave::Ninguna, "SaldoCentroNiif", Flechas::Ninguna, kDeCentro},
         Clave::Centro,
         "Créditos",
         "Tfauxiliarcentroniif",
         "Tfsaldotercentniif"},
        {{"Tfsaldoartc", "Saldos por artículo",
          "select * from balance_articulo_mes({cuenta}, {ano}, {mes})", kCuentaYTipo,
          Clave::Ninguna, "SaldoArti", Flechas::Ninguna, kDeArticulo},
         Clave::Articulo,
         "Céditos",
         "Tfauxiliarart"},
    };
    return tabla;
}

QString componga_consulta(const char* consulta, const DatosConsulta& d) {
    const QPair<const char*, QString> valores[] = {
        {"{cuenta}", QuotedStr(d.cuenta)}, {"{cuenta!}", d.cuenta},
        {"{nit}", QuotedStr(d.nit)},       {"{proyecto}", QuotedStr(d.proyecto)},
        {"{centro}", QuotedStr(d.centro)}, {"{articulo}", QuotedStr(d.articulo)},
        {"{ano}", QuotedStr(d.ano)},       {"{ano!}", d.ano},
        {"{mes}", QString::number(d.mes)}, {"{orden}", d.orden},
    };
    // De una sola pasada: lo que trae un valor no se vuelve a mirar.
    const QString texto = QString::fromUtf8(consulta);
    QString sql;
    for (qsizetype i = 0; i < texto.size();) {
        const auto* marca = std::find_if(std::begin(valores), std::end(valores), [&](auto& v) {
            return QStringView(texto).mid(i).startsWith(QLatin1String(v.first));
        });
        if (marca == std::end(valores)) {
            sql += texto[i++];
        } else {
            sql += marca->second;
            i += qsizetype(qstrlen(marca->first));
        }
    }
    return sql;
}
