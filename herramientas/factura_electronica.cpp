#include "herramientas/factura_electronica.h"

#include "herramientas/renglones.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

constexpr int kVenta = 31, kCompra = 21;
constexpr int kTolerancia = 2; ///< pesos que el anexo admite entre el total y la suma
constexpr int kNiveles = 64;   ///< los de una factura no pasan de veinte

/// Elemento del XML por su nombre sin prefijo.
struct Nodo {
    QString nombre, texto;
    QHash<QString, QString> atributos;
    QVector<Nodo> hijos;

    /// El primero del camino "uno/dos/tres"; uno vacío si no está.
    const Nodo& en(const QString& camino) const {
        static const Nodo nada;
        const Nodo* n = this;
        for (const QString& paso : camino.split('/')) {
            const auto i = std::find_if(n->hijos.begin(), n->hijos.end(),
                                        [&](const Nodo& h) { return h.nombre == paso; });
            if (i == n->hijos.end())
                return nada;
            n = &*i;
        }
        return *n;
    }
    QString texto_en(const QString& camino) const { return en(camino).texto.trimmed(); }
    template <class Accion> void por_cada(const QString& cual, const Accion& accion) const {
        for (const Nodo& h : hijos)
            if (h.nombre == cual)
                accion(h);
    }
    /// El primero de ese nombre a cualquier profundidad; nulo si no hay.
    const Nodo* busque(const QString& cual) const {
        for (const Nodo& h : hijos) {
            if (h.nombre == cual)
                return &h;
            if (const Nodo* n = h.busque(cual))
                return n;
        }
        return nullptr;
    }
};

Nodo lea_nodo(QXmlStreamReader& x, int nivel = 0) {
    if (nivel > kNiveles)
        throw ErrorDatos(QStringLiteral("tiene más niveles que una factura"));
    Nodo n;
    n.nombre = x.name().toString();
    for (const QXmlStreamAttribute& a : x.attributes())
        n.atributos[a.name().toString()] = a.value().toString();
    while (!x.atEnd()) {
        switch (x.readNext()) {
        case QXmlStreamReader::StartElement:
            n.hijos.push_back(lea_nodo(x, nivel + 1));
            break;
        case QXmlStreamReader::Characters:
            n.texto += x.text();
            break;
        case QXmlStreamReader::EndElement:
            return n;
        default:
            break;
        }
    }
    return n;
}

Nodo lea_xml(QXmlStreamReader&& x) {
    Nodo raiz;
    if (x.readNextStartElement())
        raiz = lea_nodo(x);
    if (x.hasError())
        throw ErrorDatos(
            QStringLiteral("no es un XML bien formado (renglón %1)").arg(x.lineNumber()));
    return raiz;
}

Moneda monto(const Nodo& n, const QString& camino) {
    const QString texto = n.texto_en(camino);
    const auto valor = Moneda::intente(texto);
    if (!valor)
        throw ErrorDatos(QStringLiteral("'%1' no es un valor: %2").arg(camino, texto));
    return *valor;
}

QDate fecha(const Nodo& n, const QString& camino) {
    return QDate::fromString(n.texto_en(camino).left(10), Qt::ISODate);
}

/// Un texto descriptivo con lo más parecido a los caracteres que la base no guarda: la factura
/// viene firmada y quien la lee no puede corregirla.
QString legible(const QString& original) {
    static const QHash<QChar, QString> parecidos{
        {u'\u2018', "'"}, {u'\u2019', "'"},   {u'\u201c', "\""}, {u'\u201d', "\""},
        {u'\u2013', "-"}, {u'\u2014', "-"},   {u'\u2022', "*"},  {u'\u2026', "..."},
        {u'\u2122', ""},  {u'\u20ac', "EUR"}, {u'\u200b', ""},   {u'\ufeff', ""}};
    QString texto = original.normalized(QString::NormalizationForm_C);
    for (QChar c; !(c = caracter_fuera_de_latin1(texto)).isNull();)
        texto.replace(c, parecidos.value(c, QStringLiteral("?")));
    return texto.simplified();
}

ParteFactura lea_parte(const Nodo& n, const QString& cual) {
    ParteFactura p;
    const Nodo& parte = n.en(QStringLiteral("Party"));
    const Nodo& fiscal = parte.en(QStringLiteral("PartyTaxScheme"));
    const Nodo& id = fiscal.en(QStringLiteral("CompanyID")).texto.isEmpty()
                         ? parte.en(QStringLiteral("PartyIdentification/ID"))
                         : fiscal.en(QStringLiteral("CompanyID"));
    p.nit = id.texto.trimmed();
    p.digito = id.atributos.value(QStringLiteral("schemeID"));
    p.tipo_id = id.atributos.value(QStringLiteral("schemeName"));
    p.juridica = n.texto_en(QStringLiteral("AdditionalAccountID")) != QLatin1String("2");
    p.nombre = legible(fiscal.texto_en(QStringLiteral("RegistrationName")));
    if (p.nombre.isEmpty())
        p.nombre = legible(parte.texto_en(QStringLiteral("PartyName/Name")));
    p.apellido = legible(parte.texto_en(QStringLiteral("Person/FamilyName")));
    p.primer_nombre = legible(parte.texto_en(QStringLiteral("Person/FirstName")));
    const Nodo& lugar = parte.en(QStringLiteral("PhysicalLocation/Address"));
    p.codigo_ciudad = lugar.texto_en(QStringLiteral("ID"));
    p.ciudad = legible(lugar.texto_en(QStringLiteral("CityName")));
    p.direccion = legible(lugar.texto_en(QStringLiteral("AddressLine/Line")));
    p.telefono = legible(parte.texto_en(QStringLiteral("Contact/Telephone")));
    p.correo = legible(parte.texto_en(QStringLiteral("Contact/ElectronicMail")));
    if (p.nit.isEmpty() || p.nombre.isEmpty())
        throw ErrorDatos(QStringLiteral("falta la identificación o el nombre del %1").arg(cual));
    return p;
}

QVector<ImpuestoFactura> lea_impuestos(const Nodo& factura, const QString& grupo,
                                       const QStringList& conocidos) {
    QVector<ImpuestoFactura> impuestos;
    factura.por_cada(grupo, [&](const Nodo& total) {
        total.por_cada(QStringLiteral("TaxSubtotal"), [&](const Nodo& n) {
            ImpuestoFactura i{n.texto_en(QStringLiteral("TaxCategory/TaxScheme/ID")),
                              monto(n, QStringLiteral("TaxableAmount")),
                              monto(n, QStringLiteral("TaxAmount")),
                              monto(n, QStringLiteral("TaxCategory/Percent"))};
            if (i.valor.es_cero())
                return;
            if (!conocidos.contains(i.esquema))
                throw ErrorDatos(
                    QStringLiteral("trae el impuesto %1 (%2), que no se contabiliza")
                        .arg(i.esquema, n.texto_en(QStringLiteral("TaxCategory/TaxScheme/Name"))));
            impuestos.push_back(i);
        });
    });
    return impuestos;
}

void lea_numero(const Nodo& n, FacturaElectronica& f) {
    const QString id = n.texto_en(QStringLiteral("ID"));
    qsizetype cifras = id.size();
    while (cifras > 0 && id[cifras - 1].isDigit())
        --cifras;
    const Nodo* prefijo = n.busque(QStringLiteral("Prefix"));
    f.prefijo = prefijo ? prefijo->texto.trimmed() : id.left(cifras);
    if (!id.startsWith(f.prefijo))
        f.prefijo = id.left(cifras);
    f.numero = id.mid(f.prefijo.size());
    static const QRegularExpression cifras_solas(QStringLiteral("^[0-9]+$"));
    if (!cifras_solas.match(f.numero).hasMatch())
        throw ErrorDatos(QStringLiteral("su número no es un prefijo y cifras: '%1'").arg(id));
}

void exija_que_sume(const FacturaElectronica& f) {
    Moneda suma = f.cargos - f.descuentos;
    for (const FacturaElectronica::Linea& l : f.lineas)
        suma += l.valor;
    for (const ImpuestoFactura& i : f.impuestos)
        suma += i.valor;
    // Hay quien resta el anticipo de su total y quien no.
    const auto da = [&f](Moneda m) { return (m - f.total).absoluta() <= Moneda(kTolerancia); };
    if (!da(suma) && !da(suma - f.anticipos))
        throw ErrorDatos(
            QStringLiteral("sus líneas, impuestos y descuentos suman %1 y su total es %2")
                .arg(suma.formateada(), f.total.formateada()));
}

FacturaElectronica lea_factura(const Nodo& n) {
    FacturaElectronica f;
    f.cufe = n.texto_en(QStringLiteral("UUID"));
    if (f.cufe.isEmpty())
        throw ErrorDatos(QStringLiteral("no trae CUFE"));
    const QString moneda = n.texto_en(QStringLiteral("DocumentCurrencyCode"));
    if (moneda != QLatin1String("COP"))
        throw ErrorDatos(QStringLiteral("está en %1; solo se leen facturas en pesos").arg(moneda));
    lea_numero(n, f);
    f.fecha = fecha(n, QStringLiteral("IssueDate"));
    if (!f.fecha.isValid())
        throw ErrorDatos(QStringLiteral("no trae fecha"));
    const Nodo& pago = n.en(QStringLiteral("PaymentMeans"));
    f.contado = pago.texto_en(QStringLiteral("ID")) == QLatin1String("1");
    f.vence = fecha(pago, QStringLiteral("PaymentDueDate"));
    if (!f.vence.isValid())
        f.vence = fecha(n, QStringLiteral("DueDate"));
    f.emisor = lea_parte(n.en(QStringLiteral("AccountingSupplierParty")), QStringLiteral("emisor"));
    f.receptor =
        lea_parte(n.en(QStringLiteral("AccountingCustomerParty")), QStringLiteral("adquiriente"));
    n.por_cada(QStringLiteral("InvoiceLine"), [&](const Nodo& l) {
        QString codigo = l.texto_en(QStringLiteral("Item/SellersItemIdentification/ID"));
        if (codigo.isEmpty())
            codigo = l.texto_en(QStringLiteral("Item/StandardItemIdentification/ID"));
        f.lineas.push_back({codigo, legible(l.texto_en(QStringLiteral("Item/Description"))),
                            monto(l, QStringLiteral("LineExtensionAmount"))});
    });
    f.impuestos = lea_impuestos(n, QStringLiteral("TaxTotal"), {"01", "04"});
    f.retenciones = lea_impuestos(n, QStringLiteral("WithholdingTaxTotal"), {"05", "06", "07"});
    n.por_cada(QStringLiteral("AllowanceCharge"), [&](const Nodo& a) {
        const bool cargo = a.texto_en(QStringLiteral("ChargeIndicator")) == QLatin1String("true");
        (cargo ? f.cargos : f.descuentos) += monto(a, QStringLiteral("Amount"));
    });
    const Nodo& totales = n.en(QStringLiteral("LegalMonetaryTotal"));
    f.anticipos = monto(totales, QStringLiteral("PrepaidAmount"));
    f.total = monto(totales, QStringLiteral("PayableAmount"));
    exija_que_sume(f);
    return f;
}

/// Los importes de la factura, por concepto, en un documento que cuadra.
class Armador {
public:
    Armador(Transaccion& t, const FacturaElectronica& f, bool venta, const OpcionesFactura& o)
        : t_(t), f_(f), venta_(venta) {
        d_.tipo = venta ? kVenta : kCompra;
        d_.fecha = f.fecha;
        d_.vence = f.vence;
        d_.nit = venta ? f.receptor.nit : f.emisor.nit;
        d_.cufe = f.cufe;
        d_.total = f.total;
        d_.referencia = (f.prefijo + f.numero).right(20);
        d_.concepto = QStringLiteral("Factura electrónica ") + d_.referencia;
        d_.proyecto = o.proyecto;
        d_.centro = o.centro;
        d_.prefijo = venta ? f.prefijo : o.prefijo;
        d_.numero = venta ? f.numero.rightJustified(6, QLatin1Char('0')) : siguiente(o.prefijo);
        if (d_.prefijo.isEmpty())
            d_.prefijo = QStringLiteral("0000");
        if (d_.prefijo.size() > 4 || d_.numero.size() > 8)
            throw ErrorDatos(QStringLiteral("su número %1 %2 no cabe en el documento")
                                 .arg(d_.prefijo, d_.numero));
        concepto_ = venta ? QStringLiteral("VENTA") : o.concepto;
    }

    DocumentoSuite documento() {
        Moneda saldo;
        for (const FacturaElectronica::Linea& l : f_.lineas) {
            LineaDocumento& linea = agregue(concepto_, l.valor);
            linea.detalle = l.descripcion.left(60);
            if (es_articulo(l.codigo))
                linea.articulo = l.codigo;
            saldo += l.valor;
        }
        agregue_si(QStringLiteral("DESCUENTO"), f_.descuentos);
        agregue_si(QStringLiteral("FLETE"), f_.cargos);
        agregue_si(QStringLiteral("ANTICIPO"), f_.anticipos);
        saldo += f_.cargos - f_.descuentos - f_.anticipos;
        for (const ImpuestoFactura& i : f_.impuestos) {
            const QString concepto = i.esquema == QLatin1String("01")
                                         ? QStringLiteral("IVA:") + i.tarifa.texto()
                                         : QStringLiteral("CONSUMO");
            con_base(agregue(concepto, i.valor), i);
            saldo += i.valor;
        }
        for (const ImpuestoFactura& i : f_.retenciones) {
            static const QHash<QString, QString> nombres{
                {"05", "RETEIVA"}, {"06", "RETEFUENTE"}, {"07", "RETEICA"}};
            con_base(agregue(nombres.value(i.esquema), i.valor), i);
            saldo -= i.valor;
        }
        d_.contado = venta_ && f_.contado ? QStringLiteral("S") : QStringLiteral("N");
        agregue(!venta_      ? QStringLiteral("PROVEEDOR")
                : f_.contado ? QStringLiteral("MEDIO:EF")
                             : QStringLiteral("CLIENTE"),
                saldo);
        return d_;
    }

private:
    LineaDocumento& agregue(const QString& concepto, Moneda valor) {
        LineaDocumento l;
        l.concepto = concepto.section(':', 0, 0);
        l.clase = concepto.section(':', 1);
        l.valor = valor;
        d_.lineas.push_back(l);
        return d_.lineas.back();
    }
    void agregue_si(const QString& concepto, Moneda valor) {
        if (!valor.es_cero())
            agregue(concepto, valor);
    }
    static void con_base(LineaDocumento& l, const ImpuestoFactura& i) {
        l.base = i.base;
        l.porcentaje = i.tarifa;
    }
    bool es_articulo(const QString& codigo) {
        return !uno("select arti_cod from articulo where arti_cod = ?", codigo).nulo();
    }
    /// Número que sigue al mayor de las compras registradas con ese prefijo.
    QString siguiente(const QString& prefijo) {
        const qint64 mayor = uno("select max(cast(docu_numero as bigint)) from documento where"
                                 " tido_cod = 21 and pref_pre = ? and docu_numero similar to"
                                 " '[0-9]+'",
                                 prefijo)
                                 .entero();
        return QString::number(mayor + 1).rightJustified(6, QLatin1Char('0'));
    }

    Valor uno(const char* sql, const QString& valor) {
        Cursor fila(t_.conexion().prepare(QString::fromUtf8(sql), t_), t_, {valor});
        return fila.siguiente() ? fila.valor(0) : Valor();
    }

    Transaccion& t_;
    const FacturaElectronica& f_;
    const bool venta_;
    QString concepto_;
    DocumentoSuite d_;
};

/// El tercero queda registrado y con su papel; verdadero si hubo que crearlo.
bool asegure_tercero(Transaccion& t, const ParteFactura& p, bool cliente) {
    Conexion& c = t.conexion();
    const auto ejecute = [&](const char* sql, const QVector<Valor>& valores) {
        return c.prepare(QString::fromUtf8(sql), t)->ejecute(t, valores);
    };
    const auto uno = [&](const char* sql, const QVector<Valor>& valores) {
        Cursor fila(c.prepare(QString::fromUtf8(sql), t), t, valores);
        return fila.siguiente() ? fila.valor(0).texto() : QString();
    };
    const bool falta = uno("select terc_nit from terceros where terc_nit = ?", {p.nit}).isEmpty();
    if (falta) {
        const QString tipo =
            p.juridica
                ? QStringLiteral("J")
                : uno("select first 1 tiid_cod from tipo_id where tiid_codigo = ?", {p.tipo_id});
        const QString ciudad =
            uno("select ciud_cod from ciudades where ciud_cod = ?", {p.codigo_ciudad});
        ejecute("insert into terceros (terc_nit, terc_dv, terc_tipoid, terc_nom, terc_apellido1,"
                " terc_nombre1, terc_dir, terc_ciu, ciud_cod, terc_tel, terc_email, terc_estado)"
                " values (?,?,?,?,?,?,?,?,?,?,?,'S')",
                {p.nit, p.digito.left(1), tipo.isEmpty() ? Valor("C") : Valor(tipo),
                 p.nombre.left(60), p.juridica ? QString() : p.apellido.left(60),
                 p.juridica ? QString() : p.primer_nombre.left(60), p.direccion.left(60),
                 p.ciudad.left(40), ciudad.isEmpty() ? Valor() : Valor(ciudad), p.telefono.left(40),
                 p.correo.left(100)});
    }
    if (cliente) {
        ejecute("update terceros set terc_clie = 'S' where terc_nit = ? and terc_clie <> 'S'",
                {p.nit});
        ejecute("insert into clientes (terc_nit, clie_cod, clie_estado) select terc_nit, terc_nit,"
                " 'A' from terceros t where terc_nit = ? and not exists (select 1 from clientes c"
                " where c.terc_nit = t.terc_nit)",
                {p.nit});
    } else {
        ejecute("update terceros set terc_prov = 'S' where terc_nit = ? and terc_prov <> 'S'",
                {p.nit});
        ejecute("insert into proveedores (terc_nit, grpr_cod, prov_simplificado) select terc_nit,"
                " configurado('TERCEROS', 'CODIGO DE GRUPO PROVEEDORES'), 'N' from terceros t"
                " where terc_nit = ? and not exists (select 1 from proveedores p where p.terc_nit ="
                " t.terc_nit)",
                {p.nit});
    }
    return falta;
}

QString registre(Transaccion& t, const FacturaElectronica& f, const QString& nit,
                 const OpcionesFactura& opciones) {
    Conexion& c = t.conexion();
    const bool venta = f.emisor.nit == nit;
    if (!venta && f.receptor.nit != nit)
        throw ErrorDatos(QStringLiteral("es de %1 para %2, y la compañía es %3")
                             .arg(f.emisor.nit, f.receptor.nit, nit));
    Cursor anterior(c.prepare("select tido_cod || '/' || pref_pre || '/' || docu_numero from"
                              " documento where docu_cufe = ?",
                              t),
                    t, {f.cufe});
    if (anterior.siguiente())
        throw ErrorDatos(QStringLiteral("ya está registrada como el documento %1")
                             .arg(anterior.valor(0).texto()));
    const ParteFactura& otra = venta ? f.receptor : f.emisor;
    const bool creado = asegure_tercero(t, otra, venta);
    const DocumentoSuite d = Armador(t, f, venta, opciones).documento();
    Cursor otro(c.prepare("select 1 from documento where tido_cod = ? and pref_pre = ? and"
                          " docu_numero = ? and cuba_cod = 0 and docu_anulado = 'N'",
                          t),
                t, {d.tipo, d.prefijo, d.numero});
    if (otro.siguiente())
        throw ErrorDatos(QStringLiteral("ya hay otro documento %1/%2/%3, con otro CUFE")
                             .arg(d.tipo)
                             .arg(d.prefijo, d.numero));
    EscritorDocumentos(t).escriba(d);
    return QStringLiteral("%1 %2 por %3, documento %4/%5/%6%7")
        .arg(venta ? QStringLiteral("venta a") : QStringLiteral("compra a"), otra.nombre,
             d.total.formateada())
        .arg(d.tipo)
        .arg(d.prefijo, d.numero,
             creado ? QStringLiteral("; se creó el tercero ") + otra.nit : QString());
}

} // namespace

FacturaElectronica lea_factura_electronica(const QByteArray& xml) {
    const Nodo raiz = lea_xml(QXmlStreamReader(xml));
    if (raiz.nombre == QLatin1String("Invoice"))
        return lea_factura(raiz);
    if (raiz.nombre != QLatin1String("AttachedDocument"))
        throw ErrorDatos(
            QStringLiteral("no es una factura electrónica: su raíz es '%1'").arg(raiz.nombre));
    // Ya es texto: la codificación que diga la de adentro no vale.
    const Nodo dentro = lea_xml(QXmlStreamReader(
        raiz.texto_en(QStringLiteral("Attachment/ExternalReference/Description"))));
    if (dentro.nombre != QLatin1String("Invoice"))
        throw ErrorDatos(QStringLiteral("el contenedor no trae una factura dentro"));
    return lea_factura(dentro);
}

QStringList cargue_facturas_electronicas(Conexion& conexion, const QStringList& archivos,
                                         const OpcionesFactura& opciones) {
    const QString nit =
        conexion.consulte("select configurado('GENERAL', 'NIT COMPAÑIA') from rdb$database")
            .texto()
            .section('-', 0, 0)
            .remove('.')
            .trimmed();
    if (nit.isEmpty())
        throw ErrorDatos(QStringLiteral("La compañía no tiene configurado su NIT."));
    Transaccion t(conexion, Transaccion::Modo::Escritura);
    QStringList hechos;
    for (const QString& archivo : archivos) {
        const QByteArray xml = lea_archivo(archivo);
        try {
            hechos << QFileInfo(archivo).fileName() + QStringLiteral(": ") +
                          registre(t, lea_factura_electronica(xml), nit, opciones) + '.';
        } catch (const ErrorDatos& e) {
            QString falta = e.para_usuario();
            if (!falta.endsWith('.'))
                falta += '.';
            throw ErrorDatos(QStringLiteral("%1: %2\nNo se cargó nada.").arg(archivo, falta));
        }
    }
    t.confirme();
    return hechos;
}
