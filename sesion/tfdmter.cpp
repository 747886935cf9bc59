#include "sesion/tfdmter.h"

#include "libro/catalogos.h"
#include "libro/documentos_abiertos.h"
#include "sesion/tfdm.h"

namespace {
Tfdmter* unico_ter_ = nullptr;
}

Tfdmter& fdmter() {
    Q_ASSERT(unico_ter_);
    return *unico_ter_;
}

Tfdmter::Tfdmter()
    : TTercero(this, "TTercero", fdm().Quorvex, "SELECT * FROM TERCEROS WHERE TERC_NIT = :NIT"),
      QTerceros(this, "QTerceros", fdm().Quorvex),
      Ttipoid(this, "Ttipoid", fdm().Quorvex, "SELECT * FROM TIPO_ID  "),
      TCiudades(this, "TCiudades", fdm().Quorvex, "SELECT * FROM CIUDADES ORDER BY CIUD_NOM"),
      TPaises(this, "TPaises", fdm().Quorvex, "SELECT * FROM PAISES ORDER BY PAIS_NOM"),
      TDocsterc(this, "TDocsterc", fdm().Quorvex), QBorrarter(this, "QBorrarter", fdm().Quorvex),
      PConsulta(this, "PConsulta", &QBorrarter, poAllowCommandText),
      CConsulta(this, "CConsulta", &PConsulta) {
    setObjectName("Tfdmter");
    unico_ter_ = this;
    fdm().ConfigurarProviders(this);
}

Tfdmter::~Tfdmter() {
    unico_ter_ = nullptr;
}

bool Tfdmter::existe_nit(const QString& nit) {
    CConsulta.Open(
        "select terc_nit, terc_nom, terc_clie, terc_prov from terceros where terc_nit = " +
        QuotedStr(nit));
    return !CConsulta.IsEmpty();
}

QString Tfdmter::nom_tercero(const QString& nit) {
    return nombre_de_tercero(fdm().Quorvex, nit);
}

bool Tfdmter::valide_tercero(const QString& nit) {
    if (tercero_activo(fdm().Quorvex, nit))
        return true;
    muestre_mensaje("Tercero Inactivo o no encontrado.");
    return false;
}

int Tfdmter::dv(const QString& nit) {
    static const int pesos[] = {3, 7, 13, 17, 19, 23, 29, 37, 41, 43, 47, 53, 59, 67, 71};
    int suma = 0;
    for (qsizetype i = 0; i < nit.size(); ++i) {
        const QChar c = nit[nit.size() - 1 - i];
        if (c < '0' || c > '9' || i >= qsizetype(std::size(pesos)))
            throw ErrorDatos(QStringLiteral("'%1' no es un NIT numérico válido.").arg(nit));
        suma += (c.unicode() - '0') * pesos[i];
    }
    const int resto = suma % 11;
    return resto <= 1 ? resto : 11 - resto;
}

namespace {

/// Columnas del tercero activo que además tiene fila en otra tabla (proveedores, clientes...).
QString sql_con_papel(const char* tabla, const char* columnas, const QString& nit) {
    return QStringLiteral("select %1 from terceros t, %2 p where t.terc_nit = p.terc_nit and "
                          "t.terc_estado = 'S' and t.terc_nit = ")
               .arg(QLatin1String(columnas), QLatin1String(tabla)) +
           QuotedStr(nit);
}

bool lea_retenciones(ConjuntoDatos& consulta, const QString& sql, Tfdmter::Retenciones& tarifas) {
    consulta.Open(sql);
    const auto tarifa = [&](int columna) {
        return consulta.IsEmpty() ? Moneda() : consulta.Fields(columna).moneda();
    };
    tarifas = {tarifa(0), tarifa(1), tarifa(2), tarifa(3)};
    return !consulta.IsEmpty();
}

} // namespace

bool Tfdmter::valide_proveedor(const QString& nit) {
    return !nombre_proveedor(nit).isEmpty();
}
QString Tfdmter::nombre_proveedor(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("proveedores", "t.terc_nom", nit)).texto();
}
bool Tfdmter::valide_proveedor_ret(const QString& nit, Retenciones& tarifas) {
    return lea_retenciones(
        CConsulta,
        sql_con_papel("proveedores", "prov_retefte, prov_rteiva, prov_rteica, prov_rtcree", nit),
        tarifas);
}
bool Tfdmter::base_rtfte(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("proveedores", "prov_rtftebase", nit)).texto() ==
           "S";
}
bool Tfdmter::base_rtica(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("proveedores", "prov_rticabase", nit)).texto() ==
           "S";
}
bool Tfdmter::valide_cliente(const QString& nit) {
    return !nombre_cliente(nit).isEmpty();
}
QString Tfdmter::nombre_cliente(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("clientes", "t.terc_nom", nit)).texto();
}
bool Tfdmter::valide_retenCartera(const QString& nit, Retenciones& tarifas) {
    return lea_retenciones(
        CConsulta,
        sql_con_papel("clientes", "clie_rtefte, clie_rteiva, clie_rteica, clie_rtcree", nit),
        tarifas);
}
bool Tfdmter::base_rtfte_cli(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("clientes", "clie_rtftebase", nit)).texto() == "S";
}
Moneda Tfdmter::descuento_max(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("clientes", "clie_dtomax", nit)).moneda();
}
Moneda Tfdmter::cupo_credito(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("clientes", "clie_cupo", nit)).moneda();
}
QString Tfdmter::cobrador_cliente(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("clientes", "cobr_cod", nit)).texto();
}
QString Tfdmter::nombre_empleado(const QString& nit) {
    return CConsulta.valor_unico(sql_con_papel("empleados", "t.terc_nom", nit)).texto();
}
bool Tfdmter::valide_conductor(const QString& nit) {
    return !nombre_conductor(nit).isEmpty();
}
QString Tfdmter::nombre_conductor(const QString& nit) {
    return CConsulta
        .valor_unico(
            "select terc_nom from terceros where terc_estado = 'S' and terc_conductor = 'S' and "
            "terc_nit = " +
            QuotedStr(nit))
        .texto();
}

bool Tfdmter::valide_solocliente(const QString& nit) {
    return valide_cliente(nit) && !valide_proveedor(nit);
}
bool Tfdmter::valide_clientCartera(const QString& nit) {
    // Activo: así lo deja la ficha del tercero al darle el papel de cliente.
    return CConsulta.valor_unico(sql_con_papel("clientes", "clie_estado", nit)).texto() == "A";
}
bool Tfdmter::valide_retenciones(const QString& nit, Retenciones& tarifas) {
    return valide_proveedor_ret(nit, tarifas) || valide_retenCartera(nit, tarifas);
}
QString Tfdmter::nombre_vendedor(const QString& codigo) {
    return CConsulta
        .valor_unico("select t.terc_nom from terceros t, empleados p where t.terc_nit = "
                     "p.terc_nit and t.terc_estado = 'S' and (t.terc_nit = " +
                     QuotedStr(codigo) + " or p.empl_cod = " + QuotedStr(codigo) + ")")
        .texto();
}
Moneda Tfdmter::precio_proveedor(const QString& nit, const QString& articulo) {
    return CConsulta
        .valor_unico("select first 1 m.moar_costo from movimiento_articulo m join "
                     "comprobante_encabezado e on e.enco_tiporef = m.tido_cod and e.enco_idref = "
                     "m.moar_iddoc where m.moar_cantidad > 0 and m.arti_cod = " +
                     QuotedStr(articulo) + " and e.terc_nit = " + QuotedStr(nit) +
                     " order by m.moar_fecha desc, m.moar_id desc")
        .moneda();
}
Moneda Tfdmter::cartera_vencida_cliente(const QString& nit, const QString& fecha) {
    Moneda vencida;
    for (const DocumentoAbierto& d : documentos_abiertos(fdm().Quorvex, Libro::Decreto2649, nit))
        if (d.saldo > Moneda() && !d.vence.isEmpty() && d.vence < fecha)
            vencida += d.saldo;
    return vencida;
}
