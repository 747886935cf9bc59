#include "herramientas/demo_documentos.h"

#include "herramientas/administracion.h"
#include "herramientas/azar.h"
#include "herramientas/demo_calendario.h"
#include "herramientas/demo_libro.h"
#include "herramientas/documentos.h"
#include "herramientas/instalador.h"
#include "herramientas/interfaces.h"

#include <QHash>

using namespace cuenta_demo;

namespace {

constexpr int kMeses = 3, kTipoNomina = 92;
constexpr int kBaseRetencion2018 = 895000; // 27 UVT de 2018, compras (artículo 401 del Estatuto)
constexpr int kBancoCorriente = 1, kBancoAhorros = 2;
constexpr int kFondoCaja = 800000, kFondoCorriente = 15000000;

/// Arma los documentos de cada día y los escribe.
class MesesDemo {
public:
    MesesDemo(Transaccion& t, const CatalogosDemo& demo, quint64 semilla, Moneda corriente,
              Moneda ahorros)
        : escritor_(t), demo_(demo), azar_(semilla), corriente_(corriente), ahorros_(ahorros) {}

    void dia(QDate fecha);
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
        l.porcentaje = Moneda::de_escalado(tarifa, 3);
        total -= l.valor;
    }
    QString registre(DocumentoSuite d) {
        d.numero = QString::number(++numeros_[d.prefijo + QString::number(d.tipo)])
                       .rightJustified(d.tipo == kTipoNomina ? 2 : 6, QLatin1Char('0'));
        escritor_.escriba(d);
        ++hechos.documentos;
        return d.numero;
    }
    Deuda tome(QVector<Deuda>& deudas) {
        if (deudas.isEmpty())
            return {};
        return deudas.takeAt(azar_.entre(0, deudas.size() - 1));
    }
    /// Una sin cancelar que aguante una nota; quien la hace le cambia el valor.
    Deuda& escoja(QVector<Deuda>& deudas) {
        const qsizetype desde = azar_.entre(0, deudas.size() - 1);
        for (qsizetype i = 0; i < deudas.size(); ++i)
            if (Deuda& d = deudas[(desde + i) % deudas.size()]; d.valor > Moneda(600000))
                return d;
        return deudas[desde];
    }
    static void aplique(LineaDocumento& l, int tipo, const QString& numero) {
        l.tipo_aplica = tipo;
        l.aplica = numero;
    }

    /// `revisada`: con el prefijo que pide confirmación.
    void venda(bool revisada);
    void compre();
    void recaude();
    void pague();
    void consigne();
    void mueva_inventario();
    void anote_notas();
    void anote_cruces();
    void mueva_mercancia_sin_factura();
    void devuelva_mercancia();
    void devuelva_cheque();
    void mueva_bancos();
    void pague_nomina(int quincena);

    EscritorDocumentos escritor_;
    const CatalogosDemo& demo_;
    Azar azar_;
    QDate fecha_;
    QHash<QString, int> numeros_;
    QVector<Deuda> por_cobrar_, por_pagar_;
    /// Lo que hay si todo se contabiliza: en caja por medios, y en cada banco.
    Moneda efectivo_, cheques_, tarjetas_, corriente_, ahorros_;
    Deuda ultimo_cheque_;
};

void MesesDemo::venda(bool revisada) {
    const TerceroDemo& cliente = azar_.elija(demo_.clientes);
    const CentroDemo centro = azar_.elija(demo_.centros_venta);
    const qint64 suerte = azar_.entre(1, 100);
    DocumentoSuite d = documento(31, QStringLiteral("Venta de ferretería"), cliente.nit, centro);
    d.prefijo = revisada       ? QStringLiteral("0002")
                : suerte <= 20 ? QStringLiteral("POS")
                               : QStringLiteral("0001");
    d.vence = fecha_.addDays(30);
    Moneda base;
    for (int i = 0, n = int(azar_.entre(1, 3)); i < n; ++i) {
        const ArticuloDemo& a = azar_.elija(demo_.articulos);
        const int cantidad = int(azar_.entre(1, 12));
        const Moneda precio = parte(Moneda(a.costo), 135000);
        const Moneda venta = parte(precio, cantidad * 100000), costo(a.costo * cantidad);
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
    if (!contado && cliente.retenedor && base >= Moneda(kBaseRetencion2018))
        retenga(d, "RETEFUENTE", base, kReteCompras, total);
    d.total = total;
    if (!contado) {
        linea(d, "CLIENTE", total);
    } else if (azar_.sale(60)) {
        linea(d, "MEDIO", total, QStringLiteral("EF"));
        efectivo_ += total;
    } else {
        linea(d, "MEDIO", total, QStringLiteral("TJ")).nit = demo_.banco_corriente;
        tarjetas_ += total;
    }
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
    if (base >= Moneda(kBaseRetencion2018))
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
    const bool cheque = azar_.sale(60);
    linea(d, "MEDIO", recibido, cheque ? QStringLiteral("CH") : QStringLiteral("EF"));
    (cheque ? cheques_ : efectivo_) += recibido;
    if (cheque)
        ultimo_cheque_ = {{}, deuda.nit, recibido, {}};
    aplique(linea(d, "CLIENTE", deuda.valor), 31, deuda.numero);
    d.total = recibido;
    registre(d);
}

void MesesDemo::pague() {
    const Deuda deuda = tome(por_pagar_);
    if (deuda.numero.isEmpty())
        return;
    const bool de_ahorros = azar_.sale(20);
    Moneda& banco = de_ahorros ? ahorros_ : corriente_;
    if (banco < deuda.valor + Moneda(kFondoCorriente)) {
        por_pagar_.push_back(deuda); // no alcanza: espera
        return;
    }
    DocumentoSuite d = documento(62, QStringLiteral("Pago a proveedor"), deuda.nit);
    aplique(linea(d, "PROVEEDOR", deuda.valor), 21, deuda.numero);
    linea(d, "BANCO", deuda.valor, QString::number(de_ahorros ? kBancoAhorros : kBancoCorriente));
    banco -= deuda.valor;
    d.total = deuda.valor;
    registre(d);
}

void MesesDemo::consigne() {
    const Moneda efectivo = (efectivo_ - Moneda(kFondoCaja)).redondeada(-3);
    if (efectivo <= Moneda() && cheques_.es_cero())
        return;
    DocumentoSuite d = documento(71, QStringLiteral("Consignación del día"));
    d.banco = kBancoCorriente;
    Moneda total = cheques_;
    if (efectivo > Moneda()) {
        linea(d, "MEDIO", efectivo, QStringLiteral("EF"));
        efectivo_ -= efectivo;
        total += efectivo;
    }
    if (!cheques_.es_cero())
        linea(d, "MEDIO", cheques_, QStringLiteral("CH"));
    cheques_ = {};
    corriente_ += total;
    linea(d, "BANCO", total);
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
                                     m.tipo <= 12 ? demo_.proveedores.front().nit : QString(),
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
    const Moneda interes(int(azar_.entre(10, 90)) * 1000), iva = parte(interes, kIva);
    Deuda& mora = escoja(por_cobrar_);
    DocumentoSuite debito = documento(41, QStringLiteral("Intereses de mora"), mora.nit);
    linea(debito, "INTERES", interes);
    linea(debito, "IVA", iva, QStringLiteral("19"));
    aplique(linea(debito, "CLIENTE", interes + iva), 31, mora.numero);
    mora.valor += interes + iva;
    registre(debito);

    for (const char* motivo : {"Descuento por pronto pago", "Rebaja por mercancía averiada"}) {
        Deuda& deuda = escoja(por_cobrar_);
        DocumentoSuite credito = documento(42, QString::fromUtf8(motivo), deuda.nit, deuda.centro);
        linea(credito, "DESCUENTO", interes);
        aplique(linea(credito, "CLIENTE", interes), 31, deuda.numero);
        deuda.valor -= interes;
        registre(credito);
    }
}

void MesesDemo::anote_cruces() {
    const Moneda valor(int(azar_.entre(10, 90)) * 1000);
    struct Cruce {
        int tipo, de;
        const char *concepto, *uno, *otro;
    };
    const Cruce cruces[] = {{43, 31, "Cruce de anticipo", "ANTICIPO", "CLIENTE"},
                            {51, 21, "Mayor valor cobrado", "CONTRA", "PROVEEDOR"},
                            {53, 21, "Cruce de anticipo al proveedor", "ANTICIPO", "PROVEEDOR"}};
    for (const Cruce& c : cruces) {
        Deuda& deuda = escoja(c.de == 31 ? por_cobrar_ : por_pagar_);
        DocumentoSuite d = documento(c.tipo, QString::fromUtf8(c.concepto), deuda.nit);
        linea(d, c.uno, valor);
        aplique(linea(d, c.otro, valor), c.de, deuda.numero);
        deuda.valor -= valor;
        registre(d);
    }
    DocumentoSuite flete =
        documento(52, QStringLiteral("Flete cobrado aparte"), escoja(por_pagar_).nit,
                  {QStringLiteral("0003"), QStringLiteral("0002")});
    linea(flete, "CONTRA", valor, QStringLiteral("FLETE"));
    linea(flete, "PROVEEDOR", valor);
    registre(flete);
}

void MesesDemo::mueva_mercancia_sin_factura() {
    const ArticuloDemo a = azar_.elija(demo_.articulos);
    DocumentoSuite remision =
        documento(22, QStringLiteral("Mercancía sin factura"), azar_.elija(demo_.proveedores).nit);
    linea(remision, "COMPRA", Moneda(10 * a.costo)).articulo = a.codigo;
    linea(remision, "PORFACTURA", Moneda(10 * a.costo));
    registre(remision);

    DocumentoSuite entrega =
        documento(32, QStringLiteral("Mercancía en consignación"), azar_.elija(demo_.clientes).nit);
    linea(entrega, "COSTO", Moneda(a.costo * 2)).articulo = a.codigo;
    registre(entrega);
}

void MesesDemo::devuelva_mercancia() {
    const ArticuloDemo a = azar_.elija(demo_.articulos);
    const Moneda costo(a.costo), con_iva = costo + parte(costo, kIva);
    Deuda& compra = escoja(por_pagar_);
    DocumentoSuite devuelta = documento(24, QStringLiteral("Devolución al proveedor"), compra.nit);
    linea(devuelta, "COMPRA", costo).articulo = a.codigo;
    linea(devuelta, "IVA", con_iva - costo, QStringLiteral("19"));
    aplique(linea(devuelta, "PROVEEDOR", con_iva), 21, compra.numero);
    compra.valor -= con_iva;
    registre(devuelta);

    const Moneda precio = parte(costo, 135000), total = precio + parte(precio, kIva);
    Deuda& venta = escoja(por_cobrar_);
    DocumentoSuite regreso =
        documento(33, QStringLiteral("Devolución del cliente"), venta.nit, venta.centro);
    linea(regreso, "VENTA", precio);
    linea(regreso, "IVA", total - precio, QStringLiteral("19"));
    aplique(linea(regreso, "CLIENTE", total), 31, venta.numero);
    venta.valor -= total;
    linea(regreso, "COSTO", costo, a.ingreso.right(2)).articulo = a.codigo;
    registre(regreso);
}

void MesesDemo::mueva_bancos() {
    const Moneda cien(100000), millon(1000000), fondo(300000);
    if (!tarjetas_.es_cero()) {
        DocumentoSuite cupones =
            documento(64, QStringLiteral("Cupones de tarjeta"), demo_.banco_corriente);
        const Moneda comision = parte(tarjetas_, 2000);
        linea(cupones, "TARJETA", tarjetas_);
        linea(cupones, "COMISION", comision);
        Moneda neto = tarjetas_ - comision;
        retenga(cupones, "RETEFUENTE", tarjetas_, 1500, neto);
        linea(cupones, "BANCO", neto, QString::number(kBancoCorriente));
        registre(cupones);
        corriente_ += neto;
        tarjetas_ = {};
    }

    if (efectivo_ >= fondo) {
        DocumentoSuite cajas = documento(66, QStringLiteral("Fondo de caja menor"));
        linea(cajas, "CAJAENTRA", fondo);
        linea(cajas, "CAJASALE", fondo);
        registre(cajas);
        efectivo_ -= fondo;
    }

    DocumentoSuite debito =
        documento(74, QStringLiteral("Comisiones del mes"), demo_.banco_corriente);
    debito.banco = kBancoCorriente;
    const Moneda comision(int(azar_.entre(40, 90)) * 1000);
    linea(debito, "GASTO", comision, QStringLiteral("COMISION"));
    linea(debito, "IVA", parte(comision, kIva), QStringLiteral("19"));
    linea(debito, "GRAVAMEN", cien);
    linea(debito, "BANCO", comision + parte(comision, kIva) + cien);
    corriente_ -= comision + parte(comision, kIva) + cien;
    registre(debito);

    DocumentoSuite credito = documento(75, QStringLiteral("Rendimientos"), demo_.banco_ahorros);
    credito.banco = kBancoAhorros;
    Moneda ganado = cien;
    linea(credito, "INTERES", cien);
    retenga(credito, "RETEFUENTE", cien, 7000, ganado);
    ahorros_ += ganado;
    linea(credito, "BANCO", ganado);
    registre(credito);

    DocumentoSuite traslado = documento(76, QStringLiteral("Excedentes de tesorería"));
    traslado.banco = kBancoCorriente;
    linea(traslado, "DESTINO", millon, QString::number(kBancoAhorros));
    linea(traslado, "BANCO", millon);
    corriente_ -= millon;
    ahorros_ += millon;
    registre(traslado);
}

void MesesDemo::devuelva_cheque() {
    if (ultimo_cheque_.nit.isEmpty() || corriente_ < ultimo_cheque_.valor)
        return;
    const Moneda valor = ultimo_cheque_.valor, sancion = parte(valor, 20000);
    DocumentoSuite d = documento(77, QStringLiteral("Cheque sin fondos"), ultimo_cheque_.nit);
    d.banco = kBancoCorriente;
    linea(d, "CLIENTE", valor + sancion);
    linea(d, "BANCO", valor);
    linea(d, "SANCION", sancion);
    corriente_ -= valor;
    ultimo_cheque_ = {};
    registre(d);
}

void MesesDemo::pague_nomina(int quincena) {
    DocumentoSuite d = documento(kTipoNomina, QStringLiteral("Nómina, quincena %1").arg(quincena));
    d.prefijo = QString::number(fecha_.year());
    const auto de = [](LineaDocumento& l, const QString& nit, const EmpleadoDemo* e) {
        l.nit = nit;
        if (e) {
            l.proyecto = e->proyecto;
            l.centro = e->centro;
        }
    };
    DocumentoSuite pago = documento(62, QStringLiteral("Pago de la quincena"));
    for (const EmpleadoDemo& e : demo_.empleados) {
        const QString area = e.ventas ? QStringLiteral("VEN") : QStringLiteral("ADM");
        const Moneda sueldo(e.salario / 2),
            comision = e.ventas ? Moneda(int(azar_.entre(20, 300)) * 1000) : Moneda(),
            salario = sueldo + comision;
        const bool con_auxilio = salario + salario <= Moneda(kTopes2018.tope_auxilio);
        const Moneda auxilio = con_auxilio ? Moneda(kTopes2018.auxilio / 2) : Moneda();
        // La pensión, con el punto de solidaridad de quien gana más.
        const Moneda salud = parte(salario, 4000),
                     pension =
                         parte(salario, e.salario >= kTopes2018.tope_solidaridad ? 5000 : 4000),
                     neto = salario + auxilio - salud - pension;
        de(linea(d, "SUELDO", sueldo, area), e.nit, &e);
        if (e.ventas)
            de(linea(d, "COMISION", comision, area), e.nit, &e);
        if (con_auxilio)
            de(linea(d, "AUXTRANS", auxilio, area), e.nit, &e);
        de(linea(d, "SALUD", salud), demo_.eps, nullptr);
        de(linea(d, "PENSION", pension), demo_.pensiones, nullptr);
        de(linea(d, "NETO", neto), e.nit, nullptr);
        de(linea(d, "CESANTIA", parte(salario + auxilio, 8330), area), e.nit, &e);
        de(linea(pago, "EMPLEADO", neto), e.nit, nullptr);
        pago.total += neto;
    }
    registre(d);
    linea(pago, "BANCO", pago.total, QString::number(kBancoCorriente));
    corriente_ -= pago.total;
    registre(pago);
}

void MesesDemo::dia(QDate fecha) {
    fecha_ = fecha;
    if (fecha.day() == 15)
        pague_nomina(1);
    if (fecha.day() == fecha.daysInMonth())
        pague_nomina(2);
    if (!es_habil(fecha))
        return;
    const auto toca = [fecha](int dia) {
        return desde_habil(QDate(fecha.year(), fecha.month(), dia)) == fecha;
    };
    // Los días impares, la primera es de las que se revisan.
    for (int i = 0, n = int(azar_.entre(3, 4)); i < n; ++i)
        venda(i == 0 && fecha.day() % 2 == 1);
    if (azar_.sale(85))
        compre();
    for (int i = 0, n = int(azar_.entre(1, 2)); i < n; ++i)
        recaude();
    if (toca(10))
        mueva_inventario();
    if (toca(20) && !por_cobrar_.isEmpty() && !por_pagar_.isEmpty()) {
        anote_notas();
        anote_cruces();
        mueva_mercancia_sin_factura();
        devuelva_mercancia();
        mueva_bancos();
        devuelva_cheque();
    }
    if (azar_.sale(50))
        pague();
    if (azar_.sale(60))
        consigne();
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

/// Lo que la cuenta tiene al acabar el año del libro; la mitad se reserva para sus impuestos.
Moneda disponible(Conexion& c, const char* cuenta) {
    const Moneda saldo =
        c.consulte("select sum(sald_debito - sald_credito) from vista_saldos_cuenta where"
                   " cuen_cod = ?",
                   {Valor(cuenta)})
            .moneda();
    return parte(saldo, 50000);
}

} // namespace

DocumentosDemo siembre_documentos(Conexion& compania, const CatalogosDemo& catalogos,
                                  quint64 semilla, int ano) {
    prepare(compania);
    Transaccion t(compania, Transaccion::Modo::Escritura);
    MesesDemo meses(t, catalogos, semilla, disponible(compania, kCorriente),
                    disponible(compania, kAhorros));
    for (QDate dia(ano, 1, 1); dia.month() <= kMeses; dia = dia.addDays(1))
        meses.dia(dia);
    meses.defectuosos(QDate(ano, 1, 30));
    t.confirme();
    return meses.hechos;
}
