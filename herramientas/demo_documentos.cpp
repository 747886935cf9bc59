#include "herramientas/demo_documentos.h"

#include "herramientas/administracion.h"
#include "herramientas/azar.h"
#include "herramientas/documentos.h"
#include "herramientas/instalador.h"
#include "herramientas/interfaces.h"

#include <QHash>

namespace {

constexpr int kMeses = 3, kNomina = 92;
constexpr int kIva = 1900, kReteCompras = 250, kReteica = 97; // diezmilésimas
constexpr int kBaseRetencion = 895000; // 27 UVT de 2018, compras (artículo 401 del Estatuto)
constexpr int kCorriente = 1, kAhorros = 2;

Moneda parte(Moneda base, int diezmilesimas) {
    return Moneda::porcentaje(base, Moneda::de_escalado(diezmilesimas, 2)).redondeada(0);
}

/// Arma los documentos de cada día y los escribe.
class MesesDemo {
public:
    MesesDemo(Transaccion& t, const CatalogosDemo& demo, quint64 semilla)
        : escritor_(t), demo_(demo), azar_(semilla) {}

    void dia(QDate fecha);
    void de_cada_mes(QDate primero);
    void defectuosos(QDate fecha);
    DocumentosDemo hechos;

private:
    struct Deuda {
        QString numero, nit;
        Moneda valor;
        CentroDemo centro;
    };

    DocumentoSuite documento(int tipo, const QString& concepto, const QString& nit = {},
                             const CentroDemo& centro = {}) {
        DocumentoSuite d;
        d.tipo = tipo;
        d.prefijo = QStringLiteral("0001");
        d.fecha = fecha_;
        d.concepto = concepto;
        d.nit = nit;
        d.proyecto = centro.proyecto;
        d.centro = centro.centro;
        return d;
    }
    static LineaDocumento& linea(DocumentoSuite& d, const char* concepto, Moneda valor,
                                 const QString& clase = {}) {
        LineaDocumento l;
        l.concepto = QLatin1String(concepto);
        l.clase = clase;
        l.valor = valor;
        d.lineas.push_back(l);
        return d.lineas.back();
    }
    static void retenga(DocumentoSuite& d, const char* concepto, Moneda base, int tarifa,
                        Moneda& total, const QString& clase = {}) {
        LineaDocumento& l = linea(d, concepto, parte(base, tarifa), clase);
        l.base = base;
        l.porcentaje = Moneda::de_escalado(tarifa, 2);
        total -= l.valor;
    }
    QString registre(DocumentoSuite d) {
        d.numero = QString::number(++numeros_[d.prefijo + QString::number(d.tipo)])
                       .rightJustified(d.tipo == kNomina ? 2 : 6, QLatin1Char('0'));
        escritor_.escriba(d);
        ++hechos.documentos;
        return d.numero;
    }
    Deuda tome(QVector<Deuda>& deudas) {
        if (deudas.isEmpty())
            return {};
        return deudas.takeAt(azar_.entre(0, deudas.size() - 1));
    }
    static void aplique(LineaDocumento& l, int tipo, const QString& numero) {
        l.tipo_aplica = tipo;
        l.aplica = numero;
    }

    void venda();
    void compre();
    void recaude();
    void pague();
    void consigne();
    void mueva_inventario();
    void anote_notas();
    void mueva_bancos();
    void pague_nomina(int quincena);

    EscritorDocumentos escritor_;
    const CatalogosDemo& demo_;
    Azar azar_;
    QDate fecha_;
    QHash<QString, int> numeros_;
    QVector<Deuda> por_cobrar_, por_pagar_;
};

void MesesDemo::venda() {
    const TerceroDemo& cliente = azar_.elija(demo_.clientes);
    const CentroDemo centro = azar_.elija(demo_.centros_venta);
    const qint64 suerte = azar_.entre(1, 100);
    DocumentoSuite d = documento(31, QStringLiteral("Venta de ferretería"), cliente.nit, centro);
    d.prefijo = suerte <= 12   ? QStringLiteral("0002")
                : suerte <= 28 ? QStringLiteral("POS")
                               : QStringLiteral("0001");
    d.vence = fecha_.addDays(30);
    Moneda base;
    for (int i = 0, n = int(azar_.entre(1, 3)); i < n; ++i) {
        const ArticuloDemo& a = azar_.elija(demo_.articulos);
        const int cantidad = int(azar_.entre(1, 12));
        const Moneda precio = parte(Moneda(a.costo), 13500);
        const Moneda venta = parte(precio, cantidad * 10000), costo(a.costo * cantidad);
        const QString grupo = a.ingreso.right(2);
        linea(d, "VENTA", venta, grupo).detalle = a.nombre;
        LineaDocumento& l = linea(d, "COSTO", costo, grupo);
        l.articulo = a.codigo;
        base += venta;
    }
    const Moneda iva = parte(base, kIva);
    linea(d, "IVA", iva, QStringLiteral("19"));
    Moneda total = base + iva;
    const bool contado = d.prefijo == QLatin1String("POS");
    if (!contado && cliente.retenedor && base >= Moneda(kBaseRetencion))
        retenga(d, "RETEFUENTE", base, kReteCompras, total);
    d.total = total;
    linea(d, contado ? "MEDIO" : "CLIENTE", total,
          !contado         ? QString()
          : azar_.sale(60) ? QStringLiteral("EF")
                           : QStringLiteral("TJ"));
    const QString numero = registre(d);
    if (!contado)
        por_cobrar_.push_back({numero, cliente.nit, total, centro});
}

void MesesDemo::compre() {
    const TerceroDemo& proveedor = azar_.elija(demo_.proveedores);
    DocumentoSuite d = documento(21, QStringLiteral("Compra de mercancía"), proveedor.nit);
    d.referencia = QStringLiteral("F-%1").arg(azar_.entre(1000, 9999));
    d.vence = fecha_.addDays(45);
    Moneda base;
    for (int i = 0, n = int(azar_.entre(1, 4)); i < n; ++i) {
        const ArticuloDemo& a = azar_.elija(demo_.articulos);
        const Moneda valor(a.costo * int(azar_.entre(5, 40)));
        LineaDocumento& l = linea(d, "COMPRA", valor);
        l.articulo = a.codigo;
        l.detalle = a.nombre;
        base += valor;
    }
    const Moneda iva = parte(base, kIva);
    linea(d, "IVA", iva, QStringLiteral("19"));
    Moneda total = base + iva;
    if (base >= Moneda(kBaseRetencion))
        retenga(d, "RETEFUENTE", base, kReteCompras, total);
    d.total = total;
    linea(d, "PROVEEDOR", total);
    por_pagar_.push_back({registre(d), proveedor.nit, total, {}});
}

void MesesDemo::recaude() {
    const Deuda deuda = tome(por_cobrar_);
    if (deuda.numero.isEmpty())
        return;
    DocumentoSuite d = documento(61, QStringLiteral("Recaudo de cartera"), deuda.nit);
    Moneda recibido = deuda.valor;
    if (azar_.sale(25)) {
        const Moneda descuento = parte(deuda.valor, 200);
        linea(d, "DESCUENTO", descuento);
        recibido -= descuento;
    }
    linea(d, "MEDIO", recibido, azar_.sale(50) ? QStringLiteral("EF") : QStringLiteral("CH"));
    aplique(linea(d, "CLIENTE", deuda.valor), 31, deuda.numero);
    d.total = recibido;
    registre(d);
}

void MesesDemo::pague() {
    const Deuda deuda = tome(por_pagar_);
    if (deuda.numero.isEmpty())
        return;
    DocumentoSuite d = documento(62, QStringLiteral("Pago a proveedor"), deuda.nit);
    aplique(linea(d, "PROVEEDOR", deuda.valor), 21, deuda.numero);
    linea(d, "BANCO", deuda.valor, QString::number(azar_.sale(80) ? kCorriente : kAhorros));
    d.total = deuda.valor;
    registre(d);
}

void MesesDemo::consigne() {
    DocumentoSuite d = documento(71, QStringLiteral("Consignación del día"));
    d.banco = kCorriente;
    const Moneda efectivo(int(azar_.entre(4, 60)) * 50000),
        cheques(int(azar_.entre(0, 30)) * 70000);
    linea(d, "MEDIO", efectivo, QStringLiteral("EF"));
    if (!cheques.es_cero())
        linea(d, "MEDIO", cheques, QStringLiteral("CH"));
    linea(d, "BANCO", efectivo + cheques);
    registre(d);
}

void MesesDemo::mueva_inventario() {
    const auto articulo = [this] { return azar_.elija(demo_.articulos); };
    const auto con = [](LineaDocumento& l, const ArticuloDemo& a) { l.articulo = a.codigo; };
    struct Movimiento {
        int tipo;
        const char *concepto, *entra, *sale, *contra;
    };
    const Movimiento movimientos[] = {
        {11, "Mercancía en consignación", "ENTRADA", nullptr, "CONTRA"},
        {12, "Consumo de papelería y herramienta", nullptr, "SALIDA", nullptr},
        {13, "Traslado a la bodega de Cali", "ENTRADA", "SALIDA", nullptr},
        {14, "Conteo físico", "ENTRADA", nullptr, "CONTRA"},
        {15, "Armado de juegos de herramienta", "ENTRADA", "SALIDA", nullptr},
        {16, "Juegos desarmados", "ENTRADA", "SALIDA", nullptr},
    };
    for (const Movimiento& m : movimientos) {
        const ArticuloDemo a = articulo(), otro = articulo();
        const Moneda valor(a.costo * int(azar_.entre(1, 6)));
        DocumentoSuite d = documento(m.tipo, QString::fromUtf8(m.concepto),
                                     m.tipo == 12 ? demo_.proveedores.front().nit : QString(),
                                     azar_.elija(demo_.centros_gasto));
        if (m.entra)
            con(linea(d, m.entra, valor), a);
        if (m.sale)
            con(linea(d, m.sale, valor), m.entra && m.tipo != 13 ? otro : a);
        if (m.contra)
            linea(d, m.contra, valor);
        registre(d);
    }
    // Un faltante: el ajuste negativo va al otro lado.
    const ArticuloDemo a = articulo();
    DocumentoSuite d = documento(14, QStringLiteral("Faltante del conteo"));
    con(linea(d, "ENTRADA", -Moneda(a.costo)), a);
    linea(d, "CONTRA", -Moneda(a.costo));
    registre(d);
}

void MesesDemo::anote_notas() {
    const Moneda interes(int(azar_.entre(10, 90)) * 1000);
    const auto cliente = [this] { return azar_.elija(demo_.clientes).nit; };
    const auto proveedor = [this] { return azar_.elija(demo_.proveedores).nit; };
    const CentroDemo centro = azar_.elija(demo_.centros_venta);
    const QString factura = QStringLiteral("000001");

    DocumentoSuite debito = documento(41, QStringLiteral("Intereses de mora"), cliente());
    linea(debito, "INTERES", interes);
    linea(debito, "IVA", parte(interes, kIva), QStringLiteral("19"));
    aplique(linea(debito, "CLIENTE", interes + parte(interes, kIva)), 31, factura);
    registre(debito);

    for (const char* motivo : {"Descuento por pronto pago", "Rebaja por mercancía averiada"}) {
        DocumentoSuite credito = documento(42, QString::fromUtf8(motivo), cliente(), centro);
        linea(credito, "DESCUENTO", interes);
        aplique(linea(credito, "CLIENTE", interes), 31, factura);
        registre(credito);
    }
    struct Cruce {
        int tipo, de;
        const char *concepto, *uno, *otro;
    };
    const Cruce cruces[] = {{43, 31, "Cruce de anticipo", "ANTICIPO", "CLIENTE"},
                            {51, 21, "Mayor valor cobrado", "CONTRA", "PROVEEDOR"},
                            {53, 21, "Cruce de anticipo al proveedor", "ANTICIPO", "PROVEEDOR"}};
    for (const Cruce& c : cruces) {
        DocumentoSuite d =
            documento(c.tipo, QString::fromUtf8(c.concepto), c.de == 31 ? cliente() : proveedor());
        linea(d, c.uno, interes);
        aplique(linea(d, c.otro, interes), c.de, factura);
        registre(d);
    }
    DocumentoSuite flete = documento(52, QStringLiteral("Flete cobrado aparte"), proveedor(),
                                     {QStringLiteral("0003"), QStringLiteral("0002")});
    linea(flete, "CONTRA", interes, QStringLiteral("FLETE"));
    linea(flete, "PROVEEDOR", interes);
    registre(flete);

    const ArticuloDemo a = azar_.elija(demo_.articulos);
    DocumentoSuite remision = documento(22, QStringLiteral("Mercancía sin factura"), proveedor());
    linea(remision, "COMPRA", Moneda(10 * a.costo)).articulo = a.codigo;
    linea(remision, "PORFACTURA", Moneda(10 * a.costo));
    registre(remision);

    DocumentoSuite devuelta = documento(24, QStringLiteral("Devolución al proveedor"), proveedor());
    linea(devuelta, "COMPRA", Moneda(a.costo)).articulo = a.codigo;
    linea(devuelta, "IVA", parte(Moneda(a.costo), kIva), QStringLiteral("19"));
    aplique(linea(devuelta, "PROVEEDOR", Moneda(a.costo) + parte(Moneda(a.costo), kIva)), 21,
            factura);
    registre(devuelta);

    DocumentoSuite entrega = documento(32, QStringLiteral("Mercancía en consignación"), cliente());
    linea(entrega, "COSTO", Moneda(a.costo * 2)).articulo = a.codigo;
    registre(entrega);

    const Moneda precio = parte(Moneda(a.costo), 13500);
    DocumentoSuite regreso =
        documento(33, QStringLiteral("Devolución del cliente"), cliente(), centro);
    linea(regreso, "VENTA", precio);
    linea(regreso, "IVA", parte(precio, kIva), QStringLiteral("19"));
    aplique(linea(regreso, "CLIENTE", precio + parte(precio, kIva)), 31, factura);
    linea(regreso, "COSTO", Moneda(a.costo), a.ingreso.right(2)).articulo = a.codigo;
    registre(regreso);
}

void MesesDemo::mueva_bancos() {
    const Moneda cien(100000), millon(1000000);
    DocumentoSuite tarjetas =
        documento(64, QStringLiteral("Cupones de tarjeta"), demo_.banco_corriente);
    linea(tarjetas, "TARJETA", millon);
    linea(tarjetas, "COMISION", parte(millon, 200));
    Moneda neto = millon - parte(millon, 200);
    retenga(tarjetas, "RETEFUENTE", millon, 150, neto);
    linea(tarjetas, "BANCO", neto, QString::number(kCorriente));
    registre(tarjetas);

    DocumentoSuite cajas = documento(66, QStringLiteral("Fondo de caja menor"));
    linea(cajas, "CAJAENTRA", Moneda(300000));
    linea(cajas, "CAJASALE", Moneda(300000));
    registre(cajas);

    DocumentoSuite debito =
        documento(74, QStringLiteral("Comisiones del mes"), demo_.banco_corriente);
    debito.banco = kCorriente;
    const Moneda comision(int(azar_.entre(40, 90)) * 1000);
    linea(debito, "GASTO", comision, QStringLiteral("COMISION"));
    linea(debito, "IVA", parte(comision, kIva), QStringLiteral("19"));
    linea(debito, "GRAVAMEN", cien);
    linea(debito, "BANCO", comision + parte(comision, kIva) + cien);
    registre(debito);

    DocumentoSuite credito = documento(75, QStringLiteral("Rendimientos"), demo_.banco_ahorros);
    credito.banco = kAhorros;
    Moneda ganado = cien;
    linea(credito, "INTERES", cien);
    retenga(credito, "RETEFUENTE", cien, 700, ganado);
    linea(credito, "BANCO", ganado);
    registre(credito);

    DocumentoSuite traslado = documento(76, QStringLiteral("Excedentes de tesorería"));
    traslado.banco = kCorriente;
    linea(traslado, "DESTINO", millon, QString::number(kAhorros));
    linea(traslado, "BANCO", millon);
    registre(traslado);

    DocumentoSuite cheque =
        documento(77, QStringLiteral("Cheque sin fondos"), azar_.elija(demo_.clientes).nit);
    cheque.banco = kCorriente;
    linea(cheque, "CLIENTE", parte(millon, 12000));
    linea(cheque, "BANCO", millon);
    linea(cheque, "SANCION", parte(millon, 2000));
    registre(cheque);
}

void MesesDemo::pague_nomina(int quincena) {
    DocumentoSuite d = documento(kNomina, QStringLiteral("Nómina, quincena %1").arg(quincena));
    d.prefijo = QString::number(fecha_.year());
    const auto de = [](LineaDocumento& l, const QString& nit, const EmpleadoDemo* e) {
        l.nit = nit;
        if (e) {
            l.proyecto = e->proyecto;
            l.centro = e->centro;
        }
    };
    for (const EmpleadoDemo& e : demo_.empleados) {
        const QString area = e.ventas ? QStringLiteral("VEN") : QStringLiteral("ADM");
        const Moneda sueldo(e.salario / 2), aporte = parte(sueldo, 400),
                                            cesantia = parte(sueldo, 833);
        de(linea(d, "SUELDO", sueldo, area), e.nit, &e);
        de(linea(d, "SALUD", aporte), demo_.eps, nullptr);
        de(linea(d, "PENSION", aporte), demo_.pensiones, nullptr);
        de(linea(d, "NETO", sueldo - aporte - aporte), e.nit, nullptr);
        de(linea(d, "CESANTIA", cesantia, area), e.nit, &e);
    }
    registre(d);
}

void MesesDemo::dia(QDate fecha) {
    fecha_ = fecha;
    if (fecha.day() == 15)
        pague_nomina(1);
    if (fecha.day() == fecha.daysInMonth())
        pague_nomina(2);
    if (fecha.dayOfWeek() == Qt::Sunday)
        return;
    for (int i = 0, n = int(azar_.entre(3, 4)); i < n; ++i)
        venda();
    if (azar_.sale(85))
        compre();
    if (azar_.sale(95))
        recaude();
    if (azar_.sale(50))
        pague();
    if (azar_.sale(60))
        consigne();
}

void MesesDemo::de_cada_mes(QDate primero) {
    fecha_ = primero.addDays(9);
    mueva_inventario();
    fecha_ = primero.addDays(19);
    anote_notas();
    mueva_bancos();
}

void MesesDemo::defectuosos(QDate fecha) {
    fecha_ = fecha;
    const QString cliente = demo_.clientes.front().nit, proveedor = demo_.proveedores.front().nit;
    const CentroDemo centro = demo_.centros_venta.front();
    const Moneda cien(100000);
    const auto venta = [&](const char* concepto, const QString& nit, const CentroDemo& donde,
                           Moneda por_cobrar) {
        DocumentoSuite d = documento(31, QString::fromUtf8(concepto), nit, donde);
        linea(d, "VENTA", cien, QStringLiteral("48"));
        linea(d, "CLIENTE", por_cobrar);
        return d;
    };
    DocumentoSuite flete =
        venta("Cobra un flete que la interfaz no conoce", cliente, centro, cien + cien);
    linea(flete, "FLETE", cien);
    DocumentoSuite sin_base = documento(21, QStringLiteral("Retención sin base"), proveedor);
    linea(sin_base, "COMPRA", cien).articulo = demo_.articulos.front().codigo;
    linea(sin_base, "RETEFUENTE", Moneda(2500));
    linea(sin_base, "PROVEEDOR", cien - Moneda(2500));
    DocumentoSuite sin_interfaz = venta("Prefijo sin interfaz", cliente, centro, cien);
    sin_interfaz.prefijo = QStringLiteral("0009");
    for (const DocumentoSuite& d : {venta("Venta sin centro", cliente, {}, cien),
                                    venta("Venta sin tercero", {}, centro, cien),
                                    venta("Venta descuadrada", cliente, centro, cien + Moneda(1)),
                                    flete, sin_base, sin_interfaz}) {
        registre(d);
        ++hechos.defectuosos;
    }
}

void prepare(Conexion& c) {
    const std::pair<const char*, const char*> tipos[] = {{"MI", "Movimiento de inventario"},
                                                         {"NC", "Nota de cartera"},
                                                         {"NP", "Nota de proveedores"}};
    for (const auto& [codigo, nombre] : tipos) {
        c.ejecute(QStringLiteral("update or insert into tipo_comprobante (tico_cod, tico_nom,"
                                 " tico_formato) values (?,?,'N')"),
                  {Valor(codigo), Valor(nombre)});
        c.ejecute(QStringLiteral("update or insert into prefijos_conta (tico_cod, prco_pref,"
                                 " pref_numero, prco_auto, prco_activo, prco_usuario)"
                                 " values (?,'0001','000001','S','S','ADMIN')"),
                  {Valor(codigo)});
    }
    c.ejecute(QStringLiteral("insert into autorizaciones (pref_pre, auto_resolucion, auto_contado)"
                             " values ('POS', '18762004455', 'S')"));
    c.ejecute(QStringLiteral("insert into autorizaciones (pref_pre, auto_resolucion, auto_contado)"
                             " values ('0001', '18762004456', 'N')"));
    // La propuesta se revisa en los dos libros, que salen cada uno de sus cuentas.
    configure(c, "CONTABILIDAD", "GENERAL",
              "GENERAR COMPROBANTES DE NIIF POR INTERFAZ O EQUIVALENCIAS", "INTERFAZ");
    cargue_interfaces(c, carpeta_guiones() + QStringLiteral("/posting/interfaces_demo.txt"));
}

} // namespace

DocumentosDemo siembre_documentos(Conexion& compania, const CatalogosDemo& catalogos,
                                  quint64 semilla, int ano) {
    prepare(compania);
    Transaccion t(compania, Transaccion::Modo::Escritura);
    MesesDemo meses(t, catalogos, semilla);
    for (int mes = 1; mes <= kMeses; ++mes) {
        const QDate primero(ano, mes, 1);
        meses.de_cada_mes(primero);
        for (int dia = 0; dia < primero.daysInMonth(); ++dia)
            meses.dia(primero.addDays(dia));
    }
    meses.defectuosos(QDate(ano, 1, 30));
    t.confirme();
    return meses.hechos;
}
