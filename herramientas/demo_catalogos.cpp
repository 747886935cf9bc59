#include "herramientas/demo_catalogos.h"

#include "herramientas/demo_plantillas.h"

#include <algorithm>
#include <array>

namespace {

struct AuxiliarDemo {
    const char *codigo, *nombre;
    const char* banderas = ""; ///< T tercero, C centro, R retención
    const char* tipo = "N";
    const char* porcentaje = "0";
    int base = 0;
};

// Lo que el plan oficial deja a cada comerciante: auxiliares y cuentas sin subcuenta propia.
const AuxiliarDemo kAuxiliares[] = {
    {"11100501", "Banco La Cordillera, cuenta corriente"},
    {"11200501", "Banco El Manantial, cuenta de ahorros"},
    {"143505", "Mercancías en bodega", "", "I"},
    {"220505", "Proveedores nacionales", "T", "C"},
    {"236705", "IVA retenido a régimen común", "TR", "N", "15"},
    {"236805", "ICA retenido en compras", "TR", "N", "1.104", 860000},
    {"240805", "IVA generado 19 %"},
    {"240810", "IVA descontable 19 %"},
    {"250505", "Salarios por pagar", "T"},
    {"28059505", "Consignaciones por identificar"},
    {"289595", "Descuadres de interfaz"},
    {"370505", "Utilidades acumuladas"},
    {"417505", "Devoluciones en ventas", "C"},
    {"9415", "Bienes y valores recibidos de terceros"},
    {"941520", "Mercancía recibida en consignación por contra"},
};

// Marcas que el plan oficial no trae y la compañía sí quiere en cuentas ya creadas.
const AuxiliarDemo kMarcasDemo[] = {
    {"130505", "", "T", "C"},
    {"135515", "", "TR", "N", "2.5", 860000},
    {"135517", "", "TR", "N", "15", 860000},
    {"135518", "", "TR", "N", "1.104", 860000},
    {"236515", "", "TR", "N", "11"},
    {"236525", "", "TR", "N", "4", 127000},
    {"236530", "", "TR", "N", "3.5", 860000},
    {"236540", "", "TR", "N", "2.5", 860000},
    {"152405", "", "", "A"},
    {"152805", "", "", "A"},
    {"154008", "", "", "A"},
};

struct Nombre {
    const char* nombre;
    const char* ciudad;
    const char* nombre_ciudad;
};

constexpr const char* kBogota = "11001";

const Nombre kClientes[] = {
    {"Ferretería La Escuadra S.A.S.", kBogota, "Bogotá, D.C."},
    {"Construcciones Río Claro S.A.", "05001", "Medellín"},
    {"Depósito El Constructor Ltda.", kBogota, "Bogotá, D.C."},
    {"Almacén El Hogar Feliz S.A.S.", "76001", "Cali"},
    {"Obras y Acabados del Norte S.A.S.", kBogota, "Bogotá, D.C."},
    {"Hotel Balcones de la Sabana S.A.", kBogota, "Bogotá, D.C."},
    {"Conjunto Residencial Los Cerezos", kBogota, "Bogotá, D.C."},
    {"Inversiones Peña y Muñoz Ltda.", "05001", "Medellín"},
    {"Ferreeléctricos del Valle S.A.S.", "76001", "Cali"},
    {"Constructora Altos del Ñame S.A.", kBogota, "Bogotá, D.C."},
    {"Colegio Campestre El Nogal", "25175", "Chía"},
    {"Clínica Los Urapanes S.A.", kBogota, "Bogotá, D.C."},
    {"Taller Industrial Güiza Ltda.", "25754", "Soacha"},
    {"Cooperativa Multiactiva El Trigal", "15001", "Tunja"},
    {"Distribuciones El Candado S.A.S.", "68001", "Bucaramanga"},
    {"Muebles y Diseños Ibáñez S.A.S.", kBogota, "Bogotá, D.C."},
    {"Servicios Generales Aurora S.A.S.", kBogota, "Bogotá, D.C."},
    {"Rodríguez Cárdenas Luz Marina", kBogota, "Bogotá, D.C."},
    {"Ordóñez Pabón Jairo", "05001", "Medellín"},
    {"Castaño Giraldo Beatriz", "76001", "Cali"},
    {"Núñez Acuña Hernando", kBogota, "Bogotá, D.C."},
    {"Quiñones Lozano Patricia", kBogota, "Bogotá, D.C."},
};
constexpr int kClientesJuridicos = 17, kGrandesContribuyentes = 3;

const Nombre kProveedores[] = {
    {"Herramientas Industriales de Colombia S.A.", kBogota, "Bogotá, D.C."},
    {"Pinturas Arcoíris S.A.", "05001", "Medellín"},
    {"Cementos del Altiplano S.A.", "15001", "Tunja"},
    {"Electrodomésticos Andinos S.A.S.", kBogota, "Bogotá, D.C."},
    {"Grifería y Tubería Nacional S.A.", "76001", "Cali"},
    {"Importadora Tornillos y Tuercas Ltda.", kBogota, "Bogotá, D.C."},
    {"Comercial de Aceros Boyacá S.A.S.", "15759", "Sogamoso"},
    {"Maderas El Cedro Ltda.", "50001", "Villavicencio"},
    {"Cerámicas La Candelaria S.A.", kBogota, "Bogotá, D.C."},
    {"Iluminación Lúmina S.A.S.", "05001", "Medellín"},
    {"Químicos y Solventes del Caribe S.A.", "08001", "Barranquilla"},
    {"Vidrios y Espejos Santafé Ltda.", kBogota, "Bogotá, D.C."},
};

struct Servicio {
    const char* nombre;
    const char *cuenta, *por_pagar, *retencion, *concepto;
    int tarifa, iva, minimo, maximo;
};
const Servicio kServicios[] = {
    {"Inmobiliaria Portal del Sol S.A.S.", "512010", "233540", "236530", "Arriendo de local", 3500,
     19, 4800000, 4800000},
    {"Energía y Redes de la Sabana S.A. E.S.P.", "513530", "233550", "", "Energía eléctrica", 0, 0,
     380000, 920000},
    {"Comunicaciones del Centro S.A. E.S.P.", "513535", "233550", "", "Telefonía e internet", 0, 19,
     290000, 290000},
    {"Soporte y Redes Nodo Azul Ltda.", "513515", "233595", "236525", "Soporte de sistemas", 4000,
     19, 1900000, 2300000},
    {"Revisores y Auditores Asociados S.A.S.", "511010", "233525", "236515", "Revisoría fiscal",
     11000, 19, 1800000, 1800000},
    {"Publicidad Punto Aparte S.A.S.", "523560", "233595", "236525", "Publicidad y pauta", 4000, 19,
     350000, 2600000},
    {"Transportes La Carreta Ltda.", "523550", "233545", "236525", "Fletes y acarreos", 1000, 0,
     180000, 1500000},
    {"Papelería El Cuaderno S.A.S.", "519530", "233595", "236540", "Papelería y útiles", 2500, 19,
     90000, 640000},
};

struct Empleado {
    const char* nombre;
    int salario;
    const char *proyecto, *centro;
    bool ventas;
};
const Empleado kEmpleados[] = {
    {"Vélez Aristizábal Mónica", 4800000, "0001", "0001", false},
    {"Gómez Rincón Andrés Felipe", 2600000, "0001", "0002", false},
    {"Suárez Peña Carolina", 1500000, "0001", "0002", false},
    {"Muñoz Ospina Diego", 1800000, "0001", "0003", false},
    {"Páez Sandoval Yolanda", 1200000, "0002", "0001", true},
    {"Arbeláez Ruiz Óscar", 1200000, "0002", "0002", true},
    {"Bolaños Mina Sebastián", 1100000, "0002", "0003", true},
    {"Cifuentes Daza Marcela", 980000, "0002", "0001", true},
    {"Patiño Güette Wilson", 900000, "0003", "0001", true},
    {"Zárate Niño Ramón", 1050000, "0003", "0002", true},
};

const Nombre kOtros[] = {
    {"Banco La Cordillera S.A.", kBogota, "Bogotá, D.C."},
    {"Banco El Manantial S.A.", kBogota, "Bogotá, D.C."},
    {"Dirección de Impuestos y Aduanas Nacionales", kBogota, "Bogotá, D.C."},
    {"Secretaría Distrital de Hacienda", kBogota, "Bogotá, D.C."},
    {"EPS Salud El Arrayán S.A.", kBogota, "Bogotá, D.C."},
    {"Fondo de Pensiones La Alameda S.A.", kBogota, "Bogotá, D.C."},
    {"Riesgos Laborales del Llano S.A.", kBogota, "Bogotá, D.C."},
    {"Caja de Compensación Familiar del Altiplano", kBogota, "Bogotá, D.C."},
    {"Vélez Aristizábal Inversiones S.A.S.", kBogota, "Bogotá, D.C."},
    {"Seguros La Muralla S.A.", kBogota, "Bogotá, D.C."},
    {"Cloud Bookkeeping Services Inc.", "", "Miami"},
};

struct Articulo {
    const char *codigo, *nombre;
    int costo;
    const char* linea;
};
const Articulo kArticulos[] = {
    {"HER-001", "Martillo de uña 16 oz", 18500, "48"},
    {"HER-002", "Taladro percutor 650 W", 148000, "48"},
    {"HER-003", "Juego de llaves mixtas x 12", 86000, "48"},
    {"HER-004", "Escalera de tijera 6 pasos", 132000, "48"},
    {"CON-001", "Cemento gris 50 kg", 21500, "42"},
    {"CON-002", "Varilla corrugada 1/2\"", 16800, "42"},
    {"CON-003", "Tubo PVC presión 1\"", 9700, "42"},
    {"CON-004", "Sanitario línea económica", 154000, "42"},
    {"PIN-001", "Vinilo tipo 1, galón", 34200, "44"},
    {"PIN-002", "Esmalte sintético, galón", 41500, "44"},
    {"ELE-001", "Estufa de cuatro puestos", 268000, "36"},
    {"ELE-002", "Ventilador de pedestal", 92000, "36"},
};

void cree_plan(Conexion& c) {
    Transaccion t(c, Transaccion::Modo::Escritura);
    Preparada oficial(
        c, t,
        QStringLiteral("insert into cuentas (cuen_cod, cuen_nom, cuen_tercero, cuen_centro,"
                       " cuen_retencion, cuen_ctajuste, cuen_ctacorrecion, cuen_ajusdb, cuen_tipo,"
                       " cuen_activa) select puc_cod, puc_nom, puc_terc, 'N', puc_reten,"
                       " puc_ctaajus, puc_ctacorr, puc_ajdb, 'N', 'S' from puc where tipu_cod = 1"
                       " order by puc_cod"));
    oficial.ejecute(t, {});
    Preparada propia(
        c, t,
        QStringLiteral("update or insert into cuentas (cuen_cod, cuen_nom, cuen_tercero,"
                       " cuen_centro, cuen_retencion, cuen_tipo, cuen_porc, cuen_basemin,"
                       " cuen_activa) values (?,?,?,?,?,?,?,?,'S') matching (cuen_cod)"));
    Preparada marca(c, t,
                    QStringLiteral("update cuentas set cuen_tercero = ?, cuen_centro = ?,"
                                   " cuen_retencion = ?, cuen_tipo = ?, cuen_porc = ?,"
                                   " cuen_basemin = ? where cuen_cod = ?"));
    const auto bandera = [](const AuxiliarDemo& a, char letra) {
        return Valor(QLatin1String(a.banderas).contains(QLatin1Char(letra)) ? "S" : "N");
    };
    for (const AuxiliarDemo& a : kAuxiliares)
        propia.ejecute(t, {Valor(a.codigo), Valor(a.nombre), bandera(a, 'T'), bandera(a, 'C'),
                           bandera(a, 'R'), Valor(a.tipo), Valor(a.porcentaje), Valor(a.base)});
    for (const AuxiliarDemo& a : kMarcasDemo)
        marca.ejecute(t, {bandera(a, 'T'), bandera(a, 'C'), bandera(a, 'R'), Valor(a.tipo),
                          Valor(a.porcentaje), Valor(a.base), Valor(a.codigo)});
    // Ventas, costos y gastos se siguen por centro; los gastos, además, por tercero, que es lo que
    // piden los medios magnéticos. Las depreciaciones no son de nadie.
    for (const char* orden :
         {"update cuentas set cuen_centro = 'S' where cuen_cod starting '41' or cuen_cod starting"
          " '61' or cuen_cod starting '51' or cuen_cod starting '52'",
          "update cuentas set cuen_tercero = 'S' where (cuen_cod starting '51' or cuen_cod"
          " starting '52') and cuen_cod not starting '5160' and cuen_cod not starting '5260' and"
          " cuen_cod not starting '5199' and cuen_cod not starting '5299'"})
        Preparada(c, t, QString::fromUtf8(orden)).ejecute(t, {});
    t.confirme();
    c.ejecute(QStringLiteral("execute procedure copia_cuentas_niif"));
}

class Registro {
public:
    explicit Registro(Conexion& c)
        : transaccion_(c, Transaccion::Modo::Escritura),
          tercero_(c, transaccion_,
                   QStringLiteral("insert into terceros (terc_nit, terc_dv, terc_tipoid, terc_nom,"
                                  " terc_dir, terc_ciu, ciud_cod, pais_id, terc_tel, terc_email,"
                                  " terc_clie, terc_prov, terc_empl, terc_estado, terc_apellido1,"
                                  " terc_apellido2, terc_nombre1, terc_nombre2)"
                                  " values (?,?,?,?,?,?,?,'169',?,?,?,?,?,'S',?,?,?,?)")) {}

    /// `propio`: el NIT, si es de una entidad pública conocida.
    QString agregue(const Nombre& n, bool juridica, const char* papel, const char* propio = "") {
        ++cuantos_;
        // Saltan de forma fija por lo que ya se había asignado en el año del libro.
        const QString nit = *propio    ? QLatin1String(propio)
                            : juridica ? QString::number(801000000 + cuantos_ * 1563149)
                                       : QString::number(1020700000 + cuantos_ * 20101);
        const QString nombre = QString::fromUtf8(n.nombre);
        // Apellidos y nombres vienen en ese orden, separados por un blanco.
        QStringList partes = juridica ? QStringList() : nombre.split(' ');
        partes.resize(4);
        const auto es = [&](char letra) { return Valor(*papel == letra ? "S" : "N"); };
        tercero_.ejecute(transaccion_,
                         {Valor(nit), juridica ? Valor(QString::number(digito_de(nit))) : Valor(),
                          Valor(juridica ? "J" : "C"), Valor(nombre),
                          Valor(QStringLiteral("Calle %1 # %2-%3")
                                    .arg(cuantos_ * 7 % 120 + 1)
                                    .arg(cuantos_ * 3 % 60 + 1)
                                    .arg(cuantos_ * 11 % 90 + 10)),
                          Valor(n.nombre_ciudad), Valor(n.ciudad),
                          Valor(QString::number(3100000 + cuantos_ * 4789)),
                          Valor(QStringLiteral("contacto%1@ejemplo.com.co").arg(cuantos_)), es('C'),
                          es('P'), es('E'), Valor(partes[0]), Valor(partes[1]), Valor(partes[2]),
                          Valor(partes[3])});
        return nit;
    }

    void confirme(Conexion& c) {
        transaccion_.confirme();
        for (const char* orden :
             {"insert into clientes (terc_nit, clie_cod, clie_estado)"
              " select terc_nit, terc_nit, 'A' from terceros where terc_clie = 'S'",
              "insert into proveedores (terc_nit, grpr_cod, prov_simplificado)"
              " select terc_nit, '01', 'N' from terceros where terc_prov = 'S'",
              "insert into empleados (terc_nit, empl_cod, empl_estado)"
              " select terc_nit, terc_nit, 'A' from terceros where terc_empl = 'S'"})
            c.ejecute(QString::fromUtf8(orden));
    }

private:
    Transaccion transaccion_;
    Preparada tercero_;
    int cuantos_ = 0;
};

void cree_terceros(Conexion& c, CatalogosDemo& demo) {
    Registro registro(c);
    int i = 0;
    for (const Nombre& n : kClientes) {
        const bool juridica = i < kClientesJuridicos;
        demo.clientes.push_back({registro.agregue(n, juridica, "C"), QString::fromUtf8(n.nombre),
                                 juridica, juridica && i % 2 == 0, i < kGrandesContribuyentes});
        ++i;
    }
    for (const Nombre& n : kProveedores)
        demo.proveedores.push_back({registro.agregue(n, true, "P"), QString::fromUtf8(n.nombre)});
    for (const Servicio& s : kServicios) {
        const QString nit = registro.agregue({s.nombre, kBogota, "Bogotá, D.C."}, true, "P");
        const auto* marca = std::ranges::find_if(kMarcasDemo, [&s](const AuxiliarDemo& a) {
            return QLatin1String(a.codigo) == QLatin1String(s.retencion);
        });
        demo.gastos.push_back({QLatin1String(s.cuenta), QLatin1String(s.por_pagar),
                               QLatin1String(s.retencion), QString::fromUtf8(s.concepto), s.tarifa,
                               s.iva, s.minimo, s.maximo,
                               marca == std::end(kMarcasDemo) ? 0 : marca->base, nit});
    }
    for (const Empleado& e : kEmpleados)
        demo.empleados.push_back({registro.agregue({e.nombre, kBogota, "Bogotá, D.C."}, false, "E"),
                                  QString::fromUtf8(e.nombre), e.salario, QLatin1String(e.proyecto),
                                  QLatin1String(e.centro), e.ventas});
    QString* const otros[] = {&demo.banco_corriente,
                              &demo.banco_ahorros,
                              &demo.dian,
                              &demo.hacienda,
                              &demo.eps,
                              &demo.pensiones,
                              &demo.riesgos,
                              &demo.caja_compensacion,
                              &demo.socio,
                              &demo.aseguradora,
                              &demo.del_exterior};
    i = 0;
    for (const Nombre& n : kOtros) {
        QString* const otro = otros[i++];
        *otro = registro.agregue(n, true, "O",
                                 otro == &demo.dian       ? "800197268"
                                 : otro == &demo.hacienda ? "899999061"
                                                          : "");
    }
    registro.confirme(c);
    c.ejecute("update terceros set terc_tipoid = 'D', terc_dv = null, ciud_cod = null, pais_id ="
              " '249', terc_dir = '1200 Harbor Ave, Miami' where terc_nit = ?",
              {Valor(demo.del_exterior)});
}

void cree_centros(Conexion& c, CatalogosDemo& demo) {
    const std::array<std::array<const char*, 2>, 4> proyectos{{{"0001", "Administración"},
                                                               {"0002", "Ventas"},
                                                               {"0003", "Logística"},
                                                               {"0004", "Instalaciones"}}};
    for (const auto& [codigo, nombre] : proyectos)
        c.ejecute(QStringLiteral("insert into proyectos (proy_cod, proy_nom) values (?,?)"),
                  {Valor(codigo), Valor(nombre)});
    struct Centro {
        const char *proyecto, *codigo, *nombre;
        int agencia;
    };
    c.ejecute(QStringLiteral("insert into sucursales (sucu_id, sucu_nombre, sucu_direccion)"
                             " values (2, 'Medellín', 'Carrera 52 # 44-10')"));
    c.ejecute(QStringLiteral("insert into sucursales (sucu_id, sucu_nombre, sucu_direccion)"
                             " values (3, 'Cali', 'Avenida 3 Norte # 8-24')"));
    for (const Centro& x : {Centro{"0001", "0001", "Gerencia", 0},
                            {"0001", "0002", "Contabilidad", 0},
                            {"0001", "0003", "Sistemas", 0},
                            {"0002", "0001", "Bogotá", 1},
                            {"0002", "0002", "Medellín", 2},
                            {"0002", "0003", "Cali", 3},
                            {"0003", "0001", "Bodega", 0},
                            {"0003", "0002", "Transporte", 0},
                            {"0004", "0001", "Obra civil", 0},
                            {"0004", "0002", "Servicio técnico", 0}}) {
        c.ejecute(QStringLiteral("insert into centros (proy_cod, cent_cod, cent_nom, sucu_id)"
                                 " values (?,?,?,?)"),
                  {Valor(x.proyecto), Valor(x.codigo), Valor(x.nombre), Valor(x.agencia)});
        const QString proyecto = QLatin1String(x.proyecto);
        if (proyecto == QLatin1String("0002") || proyecto == QLatin1String("0004"))
            demo.centros_venta.push_back({proyecto, QLatin1String(x.codigo)});
        demo.centros_gasto.push_back({proyecto, QLatin1String(x.codigo)});
    }
}

void cree_tipos(Conexion& c) {
    struct Tipo {
        const char *codigo, *nombre;
        QStringList prefijos;
    };
    for (const Tipo& x : {Tipo{"FV", "Factura de venta", {"0001", "0002"}},
                          {"DV", "Devolución en ventas", {"0001"}},
                          {"FC", "Factura de compra", {"0001"}},
                          {"GA", "Causación de gastos", {"0001"}},
                          {"RC", "Recibo de caja", {"0001"}},
                          {"CE", "Comprobante de egreso", {"0001", "0002"}},
                          {"CB", "Consignación bancaria", {"0001"}},
                          {"NB", "Nota bancaria", {"0001"}},
                          {"NO", "Nómina", {"0001"}},
                          {"DP", "Depreciación", {"0001"}},
                          {"CG", "Comprobante general", {"0001"}},
                          {"CC", "Comprobante de cierre", {"0001"}}}) {
        c.ejecute(QStringLiteral("insert into tipo_comprobante (tico_cod, tico_nom, tico_formato)"
                                 " values (?,?,'N')"),
                  {Valor(x.codigo), Valor(x.nombre)});
        for (const QString& prefijo : x.prefijos)
            c.ejecute(QStringLiteral("insert into prefijos_conta (tico_cod, prco_pref, pref_numero,"
                                     " prco_auto, prco_activo, prco_usuario)"
                                     " values (?,?,'000001',?,'S','ADMIN')"),
                      {Valor(x.codigo), Valor(prefijo),
                       Valor(QLatin1String(x.codigo) == QLatin1String("CG") ? "N" : "S")});
    }
}

void cree_articulos_y_grupos(Conexion& c, CatalogosDemo& demo) {
    for (const Articulo& a : kArticulos) {
        c.ejecute(QStringLiteral("insert into articulo (arti_cod, arti_des, arti_unidad, arti_tipo,"
                                 " arti_exist, arti_precio) values (?,?,'UNIDAD','A','B',?)"),
                  {Valor(a.codigo), Valor(a.nombre), Valor(Moneda(a.costo))});
        demo.articulos.push_back({QLatin1String(a.codigo), QString::fromUtf8(a.nombre), a.costo,
                                  QStringLiteral("4135") + QLatin1String(a.linea),
                                  QStringLiteral("6135") + QLatin1String(a.linea)});
    }
    for (const char* orden :
         {"insert into concepto_contable (conc_cod, conc_nombre) values ('01', 'Operación')",
          "insert into concepto_contable (conc_cod, conc_nombre) values ('02', 'Inversión')",
          "insert into concepto_contable (conc_cod, conc_nombre) values ('03', 'Financiación')",
          "insert into activos_grupos (acgr_id, acgr_nom, acgr_mesdep, acgr_dep, acgr_mesdepn)"
          " values (1, 'Muebles', 120, 'S', 144)",
          "insert into activos_grupos (acgr_id, acgr_nom, acgr_mesdep, acgr_dep, acgr_mesdepn)"
          " values (2, 'Cómputo', 60, 'S', 48)",
          "insert into activos_grupos (acgr_id, acgr_nom, acgr_mesdep, acgr_dep, acgr_mesdepn)"
          " values (3, 'Vehículos', 60, 'S', 96)"})
        c.ejecute(QString::fromUtf8(orden));
}

} // namespace

int digito_de(const QString& nit) {
    constexpr int pesos[] = {3, 7, 13, 17, 19, 23, 29, 37, 41, 43, 47, 53, 59, 67, 71};
    int suma = 0;
    for (qsizetype i = 0; i < nit.size(); ++i)
        suma += nit[nit.size() - 1 - i].digitValue() * pesos[i];
    const int resto = suma % 11;
    return resto < 2 ? resto : 11 - resto;
}

CatalogosDemo siembre_catalogos(Conexion& compania) {
    CatalogosDemo demo;
    cree_plan(compania);
    cree_terceros(compania, demo);
    cree_centros(compania, demo);
    cree_tipos(compania);
    cree_articulos_y_grupos(compania, demo);
    siembre_plantillas(compania, demo);
    return demo;
}
