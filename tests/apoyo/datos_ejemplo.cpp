#include "apoyo/datos_ejemplo.h"

#include "herramientas/administracion.h"

namespace {

struct Cuenta {
    const char* codigo;
    const char* nombre;
    const char* banderas = ""; ///< T tercero, C centro, R retención, X inactiva
    const char* tipo = "N";
    Moneda base = {}, porcentaje = {};
};

const Cuenta kPlan[] = {
    {"1", "Activo"},
    {"11", "Disponible"},
    {"1105", "Caja"},
    {"110505", "Caja general"},
    {"110510", "Cajas menores", "X"},
    {"1110", "Bancos"},
    {"111005", "Moneda nacional"},
    {"13", "Deudores"},
    {"1305", "Clientes"},
    {"130505", "Nacionales", "T", "C"},
    {"1355", "Anticipo de impuestos"},
    {"135515", "Retención en la fuente", "TR", "N", 0, Moneda::de_texto("2.5")},
    {"14", "Inventarios"},
    {"1435", "Mercancías no fabricadas por la empresa"},
    {"143505", "Mercancías", "", "I"},
    {"15", "Propiedades, planta y equipo"},
    {"1524", "Equipo de oficina"},
    {"152405", "Muebles y enseres", "", "A"},
    {"1592", "Depreciación acumulada"},
    {"159215", "Equipo de oficina"},
    {"2", "Pasivo"},
    {"22", "Proveedores"},
    {"2205", "Nacionales"},
    {"220505", "Proveedores nacionales", "T", "C"},
    {"23", "Cuentas por pagar"},
    {"2365", "Retención en la fuente"},
    {"236540", "Compras", "TR", "N", 895000, Moneda::de_texto("2.5")},
    {"24", "Impuestos, gravámenes y tasas"},
    {"2408", "Impuesto sobre las ventas por pagar"},
    {"240805", "IVA generado"},
    {"240810", "IVA descontable"},
    {"3", "Patrimonio"},
    {"31", "Capital social"},
    {"3105", "Capital suscrito y pagado"},
    {"310505", "Capital autorizado"},
    {"36", "Resultados del ejercicio"},
    {"3605", "Utilidad del ejercicio"},
    {"360505", "Utilidad del ejercicio"},
    {"4", "Ingresos"},
    {"41", "Operacionales"},
    {"4135", "Comercio al por mayor y al por menor"},
    {"413505", "Ventas", "C"},
    {"5", "Gastos"},
    {"51", "Operacionales de administración"},
    {"5105", "Gastos de personal"},
    {"510506", "Sueldos", "TC"},
    {"5195", "Diversos"},
    {"519530", "Útiles, papelería y fotocopias", "C"},
    {"6", "Costos de ventas"},
    {"61", "Costo de ventas y de prestación de servicios"},
    {"6135", "Comercio al por mayor y al por menor"},
    {"613505", "Costo de ventas", "C"},
};

void agregue_plan(Conexion& c) {
    Transaccion t(c, Transaccion::Modo::Escritura);
    for (const QString libro : {"CUENTAS_NIIF", "CUENTAS"}) {
        Preparada inserte(c, t,
                          QString("insert into %1 (cuen_cod, cuen_nom, cuen_tercero, cuen_centro, "
                                  "cuen_retencion, cuen_tipo, cuen_activa, cuen_basemin, "
                                  "cuen_porc, cuen_eqniif) values (?,?,?,?,?,?,?,?,?,?)")
                              .arg(libro));
        for (const Cuenta& x : kPlan) {
            const QString b = QLatin1String(x.banderas);
            const auto si = [&](QChar letra) { return Valor(b.contains(letra) ? "S" : "N"); };
            const Valor igual = libro == QLatin1String("CUENTAS") ? Valor(x.codigo) : Valor();
            inserte.ejecute(t, {Valor(x.codigo), Valor(x.nombre), si('T'), si('C'), si('R'),
                                Valor(x.tipo), Valor(b.contains('X') ? "N" : "S"), Valor(x.base),
                                Valor(x.porcentaje), igual});
        }
    }
    t.confirme();
}

void agregue_terceros(Conexion& c) {
    struct Tercero {
        const char *nit, *dv, *tipo, *nombre, *roles; // C cliente, P proveedor, E empleado
        const char* estado = "S";
    };
    const Tercero terceros[] = {
        {"900123456", "8", "J", "Ferretería El Tornillo S.A.S.", "C"},
        {"800456789", "1", "J", "Distribuidora Andina Ltda.", "P"},
        {"52345678", "", "C", "Peña Gómez María", "E"},
        {"19876543", "", "C", "Ñáñez José", "C", "N"},
        {"860002964", "4", "J", "Banco de Bogotá", "CP"},
    };
    Transaccion t(c, Transaccion::Modo::Escritura);
    Preparada inserte(c, t,
                      "insert into terceros (terc_nit, terc_dv, terc_tipoid, terc_nom, terc_clie, "
                      "terc_prov, terc_empl, terc_estado, ciud_cod, terc_ciu, pais_id) values "
                      "(?,?,?,?,?,?,?,?,'11001','Bogotá, D.C.','169')");
    for (const Tercero& x : terceros) {
        const QString r = QLatin1String(x.roles);
        const auto si = [&](QChar letra) { return Valor(r.contains(letra) ? "S" : "N"); };
        inserte.ejecute(t, {Valor(x.nit), Valor(x.dv), Valor(x.tipo), Valor(x.nombre), si('C'),
                            si('P'), si('E'), Valor(x.estado)});
    }
    t.confirme();
    c.ejecute("insert into clientes (terc_nit, clie_cod, clie_estado) select terc_nit, terc_nit, "
              "'A' from terceros where terc_clie = 'S'");
    c.ejecute("insert into proveedores (terc_nit, grpr_cod, prov_simplificado) select terc_nit, "
              "'01', 'N' from terceros where terc_prov = 'S'");
}

} // namespace

QVector<int> opciones_auxiliar() {
    return {1, 11, 30, 31, 41, 110, 111, 150};
}

void agregue_datos_ejemplo(Conexion& general, Conexion& compania) {
    registre_compania(general, {"001", "Compañía de Pruebas S.A.S.", "900555111-6",
                                "Calle 10 # 20-30", "601 3334455", QString(), QString()});
    DatosCompania datos;
    datos.nombre = "Compañía de Pruebas S.A.S.";
    datos.nit = "900555111-6";
    datos.direccion = "Calle 10 # 20-30";
    datos.ciudad = "Bogotá, D.C.";
    configure_compania(compania, datos);
    const auto inserte = [&](const QString& tabla, std::initializer_list<const char*> filas) {
        for (const char* fila : filas)
            compania.ejecute("insert into " + tabla + " values (" + QString::fromUtf8(fila) + ')');
    };
    inserte("sucursales (sucu_id, sucu_nombre)", {"2, 'Norte'"});
    inserte("proyectos (proy_cod, proy_nom)", {"'0001', 'Administración'", "'0002', 'Ventas'"});
    inserte("centros (proy_cod, cent_cod, cent_nom, sucu_id)",
            {"'0001', '0001', 'Gerencia', 0", "'0001', '0002', 'Contabilidad', 0",
             "'0002', '0001', 'Mostrador', 1", "'0002', '0002', 'Bodega', 2"});
    inserte("tipo_comprobante (tico_cod, tico_nom, tico_formato)",
            {"'CG', 'Comprobante general', 'N'", "'RC', 'Recibo de caja', 'S'",
             "'NC', 'Nota de contabilidad', 'N'"});
    inserte("prefijos_conta (tico_cod, prco_pref, pref_numero, prco_auto, prco_activo)",
            {"'CG', '0001', '000001', 'S', 'S'", "'RC', '0001', '000001', 'S', 'S'",
             "'RC', '0002', '000001', 'N', 'S'", "'NC', '0001', '000001', 'S', 'N'"});
    inserte("concepto_contable (conc_cod, conc_nombre)",
            {"'01', 'Operación'", "'02', 'Inversión'"});
    inserte("articulo (arti_cod, arti_des, arti_unidad)", {"'MART01', 'Martillo', 'UNIDAD'"});
    inserte("activos_fijos (acfj_cod, acfj_desc, acfj_activo, acfj_dep)",
            {"'ESC01', 'Escritorio', 'S', 'S'"});
    agregue_plan(compania);
    agregue_terceros(compania);
    DatosUsuario admin{"ADMIN", "Administrador General", true};
    DatosUsuario auxiliar{"AUXILIAR", "Auxiliar Contable", false, 2};
    for (const DatosUsuario& u : {admin, auxiliar}) {
        registre_usuario_general(general, u);
        registre_usuario_compania(compania, u);
    }
    otorgue(compania, auxiliar.codigo, kModuloContabilidad, opciones_auxiliar(), true);
}
