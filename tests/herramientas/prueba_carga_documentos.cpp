// Documentos, interfaces y facturas electrónicas que entran por quorvex-admin.

namespace {

const char* const kInterfaz = "# una interfaz de ventas\n"
                              "INTERFAZ familia=VENTAS id=7 documento=31 prefijo=FE "
                              "comprobante=CG/0001 confirmar=S nombre=\"Ventas \"\"A\"\"\"\n"
                              "2649 CLIENTE 130505 D tercero abre\n"
                              "2649 VENTA:48 413505 C centro categoria=01\n"
                              "2649 RETEFUENTE 135515 D tercero base porcentaje=2.5\n"
                              "NIIF igual\n";

/// Una factura como la describe el anexo: el vendedor, el comprador y lo demás en su sitio.
struct Factura {
    QString cufe = "a1b2c3", numero = "FE123", prefijo = "FE", moneda = "COP",
            vendedor = "900555111", comprador = "901777888", pago = "2", total = "1190000.00",
            extra = {};

    QString parte(const QString& cual, const QString& nit) const {
        return QString("<cac:Accounting%1Party><cbc:AdditionalAccountID>1</cbc:AdditionalAccountID>"
                       "<cac:Party><cac:PartyName><cbc:Name>Comercial</cbc:Name></cac:PartyName>"
                       "<cac:PhysicalLocation><cac:Address><cbc:ID>05001</cbc:ID>"
                       "<cbc:CityName>Medellín</cbc:CityName><cac:AddressLine>"
                       "<cbc:Line>Calle 1 # 2-3</cbc:Line></cac:AddressLine></cac:Address>"
                       "</cac:PhysicalLocation><cac:PartyTaxScheme>"
                       "<cbc:RegistrationName>Aceros Peña S.A.S.</cbc:RegistrationName>"
                       "<cbc:CompanyID schemeID=\"4\" schemeName=\"31\">%2</cbc:CompanyID>"
                       "</cac:PartyTaxScheme><cac:Contact><cbc:Telephone>6044445566</cbc:Telephone>"
                       "<cbc:ElectronicMail>pagos@ejemplo.com.co</cbc:ElectronicMail></cac:Contact>"
                       "</cac:Party></cac:Accounting%1Party>")
            .arg(cual, nit);
    }
    QString xml() const {
        return QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                       "<Invoice xmlns=\"urn:oasis:names:specification:ubl:schema:xsd:Invoice-2\""
                       " xmlns:cac=\"urn:oasis:names:specification:ubl:schema:xsd:"
                       "CommonAggregateComponents-2\" "
                       "xmlns:cbc=\"urn:oasis:names:specification:ubl:schema:xsd:"
                       "CommonBasicComponents-2\" "
                       "xmlns:ext=\"urn:oasis:names:specification:ubl:schema:xsd:"
                       "CommonExtensionComponents-2\" "
                       "xmlns:sts=\"dian:gov:co:facturaelectronica:Structures-2-1\"><ext:"
                       "UBLExtensions><ext:UBLExtension><ext:ExtensionContent>"
                       "<sts:DianExtensions><sts:InvoiceControl><sts:AuthorizedInvoices>"
                       "<sts:Prefix>%1</sts:Prefix></sts:AuthorizedInvoices></sts:InvoiceControl>"
                       "</sts:DianExtensions></ext:ExtensionContent></ext:UBLExtension>"
                       "</ext:UBLExtensions><cbc:UBLVersionID>UBL 2.1</cbc:UBLVersionID>"
                       "<cbc:ID>%2</cbc:ID><cbc:UUID schemeName=\"CUFE-SHA384\">%3</cbc:UUID>"
                       "<cbc:IssueDate>2018-02-10</cbc:IssueDate>"
                       "<cbc:DocumentCurrencyCode>%4</cbc:DocumentCurrencyCode>")
                   .arg(prefijo, numero, cufe, moneda) +
               parte("Supplier", vendedor) + parte("Customer", comprador) +
               QString(
                   "<cac:PaymentMeans><cbc:ID>%1</cbc:ID><cbc:PaymentMeansCode>10"
                   "</cbc:PaymentMeansCode><cbc:PaymentDueDate>2018-03-12</cbc:PaymentDueDate>"
                   "</cac:PaymentMeans>%2<cac:TaxTotal><cbc:TaxAmount currencyID=\"COP\">190000.00"
                   "</cbc:TaxAmount><cac:TaxSubtotal><cbc:TaxableAmount currencyID=\"COP\">"
                   "1000000.00</cbc:TaxableAmount><cbc:TaxAmount currencyID=\"COP\">190000.00"
                   "</cbc:TaxAmount><cac:TaxCategory><cbc:Percent>19.00</cbc:Percent>"
                   "<cac:TaxScheme><cbc:ID>01</cbc:ID><cbc:Name>IVA</cbc:Name></cac:TaxScheme>"
                   "</cac:TaxCategory></cac:TaxSubtotal></cac:TaxTotal>"
                   "<cac:LegalMonetaryTotal><cbc:LineExtensionAmount currencyID=\"COP\">1000000.00"
                   "</cbc:LineExtensionAmount><cbc:PayableAmount currencyID=\"COP\">%3"
                   "</cbc:PayableAmount></cac:LegalMonetaryTotal>"
                   "<cac:InvoiceLine><cbc:ID>1</cbc:ID><cbc:LineExtensionAmount currencyID=\"COP\">"
                   "600000.00</cbc:LineExtensionAmount><cac:Item><cbc:Description>Martillos"
                   "</cbc:Description><cac:SellersItemIdentification><cbc:ID>MART01</cbc:ID>"
                   "</cac:SellersItemIdentification></cac:Item></cac:InvoiceLine>"
                   "<cac:InvoiceLine><cbc:ID>2</cbc:ID><cbc:LineExtensionAmount currencyID=\"COP\">"
                   "400000.00</cbc:LineExtensionAmount><cac:Item><cbc:Description>Varilla"
                   "</cbc:Description></cac:Item></cac:InvoiceLine></Invoice>")
                   .arg(pago, extra, total);
    }
    /// El contenedor con que la factura llega por correo.
    QString adjunta() const {
        return QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?><AttachedDocument"
                       " xmlns=\"urn:oasis:names:specification:ubl:schema:xsd:"
                       "AttachedDocument-2\" "
                       "xmlns:cac=\"urn:oasis:names:specification:ubl:schema:xsd:"
                       "CommonAggregateComponents-2\" "
                       "xmlns:cbc=\"urn:oasis:names:specification:ubl:schema:xsd:"
                       "CommonBasicComponents-2\">"
                       "<cbc:ID>1</cbc:ID><cac:Attachment><cac:ExternalReference>"
                       "<cbc:MimeCode>text/xml</cbc:MimeCode><cbc:Description><![CDATA[") +
               xml() +
               "]]></cbc:Description></cac:ExternalReference></cac:Attachment>"
               "</AttachedDocument>";
    }
};

const QString kRetencion =
    "<cac:WithholdingTaxTotal><cbc:TaxAmount currencyID=\"COP\">25000.00</cbc:TaxAmount>"
    "<cac:TaxSubtotal><cbc:TaxableAmount currencyID=\"COP\">1000000.00</cbc:TaxableAmount>"
    "<cbc:TaxAmount currencyID=\"COP\">25000.00</cbc:TaxAmount><cac:TaxCategory><cbc:Percent>2.50"
    "</cbc:Percent><cac:TaxScheme><cbc:ID>06</cbc:ID><cbc:Name>ReteRenta</cbc:Name></cac:TaxScheme>"
    "</cac:TaxCategory></cac:TaxSubtotal></cac:WithholdingTaxTotal>";

} // namespace

class PruebaCargaDocumentos : public PruebaConBase {
    Q_OBJECT
private slots:
    void una_interfaz_entra_se_reemplaza_y_se_lista_igual();
    void lo_mal_escrito_se_dice_todo_con_su_renglon_y_no_entra_nada();
    void los_documentos_entran_y_se_listan_igual();
    void la_factura_electronica_es_venta_o_compra_segun_quien_la_expidio();
    void lo_que_no_se_puede_leer_se_rehusa();
    void la_orden_lee_facturas_y_las_dice();
    void el_leeme_nombra_los_mismos_conceptos_que_la_base();

private:
    QString archivo(const QString& nombre, const QString& texto) {
        return ponga_archivo(base_->ruta() + '/' + nombre, texto.toUtf8());
    }
    ResultadoHerramienta ordene(const QStringList& argumentos) {
        base().desconectar();
        base_->general().desconectar();
        return administre(argumentos +
                          QStringList{"--ubicacion", base_->ruta(), "--compania", "001"});
    }
    ResultadoHerramienta cargue(const QString& orden, const QString& texto) {
        return ordene({orden, "--cargar", archivo(orden + ".txt", texto)});
    }
};

void PruebaCargaDocumentos::una_interfaz_entra_se_reemplaza_y_se_lista_igual() {
    const auto primera = cargue("interfaz", QString::fromUtf8(kInterfaz));
    QCOMPARE(primera.errores, QString());
    QCOMPARE(primera.salida, "1 interfaz cargada.\n");
    QCOMPARE(filas("select inve_id, tido_cod, pref_pre, inve_nombre, tico_cod, prco_pre, "
                   "inve_confirmar, inve_det from interfaz_ventas"),
             "7|31|FE|Ventas \"A\"|CG|0001|S|N");
    const QString cuentas = "1|CLIENTE||130505|D|S|N|N|N||N|\n"
                            "2|VENTA|48|413505|C|N|S|N|N||-|01\n"
                            "3|RETEFUENTE||135515|D|S|N|N|S|2.5|-|";
    for (const char* libro : {"ctas", "niif"})
        QCOMPARE(
            filas(QString("select inct_item, inct_concepto, inct_clase, inct_cuenta, inct_lado, "
                          "inct_tercero, inct_centro, inct_articulo, inct_base, inct_porc, "
                          "inct_documento, conc_cod from interfaz_ventas_%1 order by inct_item")
                      .arg(QLatin1String(libro))),
            cuentas);
    const QString lista = ordene({"interfaz", "--familia", "ventas"}).salida;
    QVERIFY2(lista.contains("2649 VENTA:48 413505 C centro categoria=01\n"), qPrintable(lista));
    QVERIFY(lista.contains("NIIF igual\n"));
    // Lo listado es lo mismo que se carga; con una cuenta menos, la de sobra se va.
    QCOMPARE(cargue("interfaz", lista).codigo, 0);
    QCOMPARE(ordene({"interfaz"}).salida, lista);
    QCOMPARE(
        cargue("interfaz", QString(lista).remove("2649 VENTA:48 413505 C centro categoria=01\n"))
            .codigo,
        0);
    QCOMPARE(filas("select count(*) from interfaz_ventas_ctas"), "2");
}

void PruebaCargaDocumentos::lo_mal_escrito_se_dice_todo_con_su_renglon_y_no_entra_nada() {
    const auto i = cargue(
        "interfaz",
        "2649 CLIENTE 130505 D\n"
        "INTERFAZ familia=VENTAS id=1 documento=21 comprobante=ZZ/0001 color=rojo\n"
        "2649 NADA 130505 X brilla\n"
        "2649 VENTA 413599 C porcentaje=120\n"
        "INTERFAZ familia=VENTAS id=1 documento=31 comprobante=CG/0001 nombre=\"sin cerrar\n");
    QCOMPARE(i.codigo, 1);
    QCOMPARE(falta_en(i.errores,
                      {":1: se esperaba INTERFAZ.",
                       ":2: la familia 'VENTAS' no contabiliza documentos de tipo 21.",
                       ":2: no existe el tipo y prefijo de comprobante 'ZZ/0001'.",
                       ":2: no se conoce el dato 'color'.",
                       ":3: la familia VENTAS no tiene el concepto 'NADA'.",
                       ":3: el lado es D o C: X.", ":3: no se conoce la marca 'brilla'.",
                       ":4: la cuenta 413599 no existe o no lleva movimiento en el libro 2649.",
                       ":4: el porcentaje va de 0 a 100.", ":5: hay una comilla sin cerrar.",
                       ":5: la interfaz 1 de VENTAS está dos veces.",
                       ":5: la interfaz no tiene cuentas 2649.", "No se cargó nada."}),
             QString());
    const auto d = cargue("documentos",
                          "DOCUMENTO tipo=31 numero=1 fecha=2018/02/30 tercero=1 centro=0009-0001\n"
                          "VENTA 10.001\n"
                          "SALIDA 10 articulo=NADA aplica=31\n"
                          "CLIENTE 10 niif=diez precio=3 porcentaje=101 aplica=31/12345678901\n"
                          "DOCUMENTO tipo=99 fecha=2018/01/01\n"
                          "DOCUMENTO tipo=31 numero=2 fecha=2018/01/01\n"
                          "VENTA 10\n"
                          "DOCUMENTO tipo=31 numero=2 fecha=2018/01/01 concepto=\"€ uno\"\n"
                          "VENTA 10\n");
    QCOMPARE(d.codigo, 1);
    QCOMPARE(falta_en(d.errores,
                      {":1: 'fecha' no es una fecha aaaa/mm/dd: 2018/02/30.",
                       ":1: no existe el tercero 1.", ":1: no existe el proyecto-centro 0009-0001.",
                       ":2: 'valor' no es un valor con 2 decimales: 10.001.",
                       ":3: la familia VENTAS no tiene el concepto 'SALIDA'.",
                       ":3: no existe el artículo NADA.", ":3: 'aplica' es tipo/número: 31.",
                       ":4: 'niif' no es un valor con 2 decimales: diez.",
                       ":4: no se conoce el dato 'precio'.", ":4: el porcentaje va de 0 a 100.",
                       ":4: 'aplica' es tipo/número: 31/12345678901.",
                       ":5: el tipo de documento 99 no se contabiliza.", ":5: falta el número.",
                       ":5: el documento no tiene líneas.",
                       ":8: el carácter '€' (U+20ac) no se puede guardar."}),
             QString());
    QCOMPARE(filas("select count(*) from documento"), "0");
    QCOMPARE(filas("select count(*) from interfaz_ventas"), "0");
}

void PruebaCargaDocumentos::los_documentos_entran_y_se_listan_igual() {
    const QString uno = "DOCUMENTO tipo=31 prefijo=FE numero=000007 fecha=2018/01/15 "
                        "vence=2018/02/14 tercero=900123456 centro=0002-0001 total=1165000.5 "
                        "contado=N referencia=P-9 concepto=\"Venta \"\"especial\"\"\"\n"
                        "VENTA:48 1000000.5 detalle=\"Martillo de uña\"\n"
                        "COSTO:48 700000 niif=715000 articulo=MART01\n"
                        "RETEFUENTE 25000 base=1000000 porcentaje=2.5\n"
                        "CLIENTE 975000.5 tercero=860002964 centro=0001-0002 aplica=31/000001\n\n";
    const QString dos = "DOCUMENTO tipo=71 prefijo=0000 numero=1 fecha=2018/01/16 banco=3 "
                        "contado=N\nBANCO -5\nMEDIO:EF -5\n\n";
    const auto r = cargue("documentos", uno + dos);
    QCOMPARE(r.errores, QString());
    QCOMPARE(r.salida, "2 documentos cargados.\n");
    QCOMPARE(ordene({"documentos"}).salida.trimmed(), (uno + dos).trimmed());
    QCOMPARE(ordene({"documentos", "--desde", "2018/01/16", "--pendientes"}).salida.trimmed(),
             dos.trimmed());
    QCOMPARE(filas("select pref_pre, fact_numero from facturas"), "FE|000007");
    QCOMPARE(filas("select prba_pref, cons_numero from consigna"), "0000|1");
    // Lo que la base rehúsa se dice con su renglón y en español.
    const QString cufe = "DOCUMENTO tipo=31 numero=%1 fecha=2018/01/15 cufe=zz\nVENTA 1\n";
    QVERIFY(cargue("documentos", cufe.arg(1) + cufe.arg(2)).errores.contains("documentos.txt:3: "));
    QVERIFY(!cargue("documentos", cufe.arg(1) + cufe.arg(2)).errores.contains("SQL"));
    // El mismo archivo no entra dos veces.
    QVERIFY(
        cargue("documentos", uno)
            .errores.contains(QString::fromUtf8("el documento 31/FE/000007 ya está registrado")));
    QCOMPARE(ordene({"documentos", "--anular", "31/FE/000007"}).codigo, 0);
    QCOMPARE(ordene({"documentos", "--anular", "31/FE/000007"}).codigo, 1);
    QCOMPARE(ordene({"documentos", "--tipo", "31"}).salida.trimmed(), QString());
}

void PruebaCargaDocumentos::la_factura_electronica_es_venta_o_compra_segun_quien_la_expidio() {
    const Factura venta{.extra = kRetencion};
    Factura compra{.cufe = "d4e5", .numero = "SETP990000001", .prefijo = "SETP"};
    std::swap(compra.vendedor, compra.comprador);
    const auto r = ordene({"documentos", "--electronica", archivo("v.xml", venta.xml()),
                           archivo("c.xml", compra.adjunta()), "--concepto", "GASTO:FERRE",
                           "--prefijo", "FC"});
    QCOMPARE(r.errores, QString());
    QCOMPARE(r.salida,
             QString::fromUtf8(
                 "v.xml: venta a Aceros Peña S.A.S. por 1,190,000.00, documento 31/FE/000123; se "
                 "creó el tercero 901777888.\n"
                 "c.xml: compra a Aceros Peña S.A.S. por 1,190,000.00, documento 21/FC/000001.\n"));
    QCOMPARE(filas("select tido_cod, pref_pre, docu_numero, docu_fecha, docu_vence, docu_refer, "
                   "terc_nit, docu_total, docu_contado, docu_cufe from documento order by 1"),
             "21|FC|000001|2018/02/10|2018/03/"
             "12|SETP990000001|901777888|1190000|N|d4e5\n31|FE|000123|2018/02/10|2018/03/"
             "12|FE123|901777888|1190000|N|a1b2c3");
    const QString lineas = "select doli_concepto, doli_clase, doli_valor, doli_base, doli_porc, "
                           "arti_cod from documento_linea where tido_cod = %1 order by doli_item";
    QCOMPARE(filas(lineas.arg(31)),
             "VENTA||600000|||MART01\nVENTA||400000|||\nIVA|19|190000|1000000|19|\nRETEFUENTE||"
             "25000|1000000|2.5|\nCLIENTE||1165000|||");
    QCOMPARE(filas(lineas.arg(21)), "GASTO|FERRE|600000|||MART01\nGASTO|FERRE|400000|||\nIVA|19|"
                                    "190000|1000000|19|\nPROVEEDOR||1190000|||");
    // El tercero quedó con lo que la factura dice, y con los dos papeles.
    QCOMPARE(filas("select t.terc_dv, t.terc_tipoid, t.terc_nom, t.terc_dir, t.ciud_cod, "
                   "t.terc_tel, t.terc_email, t.terc_clie, t.terc_prov, c.clie_cod, p.grpr_cod "
                   "from terceros t join clientes c on c.terc_nit = t.terc_nit join proveedores p "
                   "on p.terc_nit = t.terc_nit where t.terc_nit = '901777888'"),
             QString::fromUtf8("4|J|Aceros Peña S.A.S.|Calle 1 # "
                               "2-3|05001|6044445566|pagos@ejemplo.com.co|S|S|901777888|01"));
    // Lo que la base no puede guardar de una descripción queda con lo más parecido. El contenedor
    // manda sobre la codificación que diga la factura de adentro.
    const Factura rara{.cufe = "e5", .numero = "FE300"};
    QString rareza = rara.adjunta().replace("Varilla", QString::fromUtf8("Año – 3 “gruesa” 😀…"));
    rareza.replace(rareza.lastIndexOf("UTF-8"), 5, "ISO-8859-1");
    QCOMPARE(ordene({"documentos", "--electronica", archivo("r.xml", rareza)}).errores, QString());
    QCOMPARE(filas("select doli_detalle from documento_linea where doli_detalle starting 'A'"),
             QString::fromUtf8("Año - 3 \"gruesa\" ??..."));
    // De contado, lo cobrado es un medio de pago.
    const Factura contado{.cufe = "f6", .numero = "FE124", .pago = "1"};
    QCOMPARE(ordene({"documentos", "--electronica", archivo("e.xml", contado.xml())}).codigo, 0);
    QCOMPARE(filas("select l.doli_concepto, l.doli_clase, d.docu_contado from documento_linea l "
                   "join documento d on d.docu_id = l.docu_id where d.docu_numero = '000124' and "
                   "l.doli_item = 4"),
             "MEDIO|EF|S");
}

void PruebaCargaDocumentos::lo_que_no_se_puede_leer_se_rehusa() {
    const Factura buena;
    QCOMPARE(ordene({"documentos", "--electronica", archivo("b.xml", buena.xml())}).codigo, 0);
    const Factura otra{.cufe = "x2", .numero = "FE200"};
    Factura bolsas;
    bolsas.extra = QString(kRetencion).replace(">06<", ">22<").replace("ReteRenta", "INC Bolsas");
    const std::pair<QString, const char*> casos[] = {
        {buena.adjunta(), "ya está registrada como el documento 31/FE/000123"},
        {Factura{.vendedor = "1"}.xml(), "es de 1 para 901777888, y la compañía es 900555111"},
        {Factura{.moneda = "USD"}.xml(), "está en USD; solo se leen facturas en pesos"},
        {Factura{.cufe = ""}.xml(), "no trae CUFE"},
        {Factura{.cufe = "x1", .total = "1190003.00"}.xml(),
         "sus líneas, impuestos y descuentos suman 1,190,000.00 y su total es 1,190,003.00"},
        {bolsas.xml(), "trae el impuesto 22 (INC Bolsas), que no se contabiliza"},
        {QString(buena.xml()).replace("Invoice", "CreditNote"),
         "no es una factura electrónica: su raíz es 'CreditNote'"},
        {buena.xml().left(900), "no es un XML bien formado"},
        {"hola", "no es un XML bien formado"},
        {"<Invoice>" + QString("<a>").repeated(100000), "tiene más niveles que una factura"},
        {Factura{.cufe = "x3"}.xml(), "ya hay otro documento 31/FE/000123, con otro CUFE.\n"},
        {Factura{.cufe = "x4", .numero = "FE-201"}.xml(),
         "su número no es un prefijo y cifras: 'FE-201'.\n"},
        {Factura{.cufe = "x5", .numero = "FE202", .comprador = QString(21, '9')}.xml(),
         "El texto '999999999999999999999' no cabe en 20 caracteres.\n"},
    };
    for (const auto& [xml, texto] : casos) {
        // La buena que va con ella tampoco entra.
        const auto r = ordene(
            {"documentos", "--electronica", archivo("o.xml", otra.xml()), archivo("m.xml", xml)});
        QCOMPARE(r.codigo, 1);
        QVERIFY2(r.errores.contains("m.xml: " + QString::fromUtf8(texto)), qPrintable(r.errores));
        QCOMPARE(filas("select count(*) from documento"), "1");
    }
    // Anulada, la misma factura se puede volver a leer, con su número.
    QCOMPARE(ordene({"documentos", "--anular", "31/FE/000123"}).codigo, 0);
    QCOMPARE(ordene({"documentos", "--electronica", archivo("b.xml", buena.xml())}).errores,
             QString());
    QCOMPARE(filas("select docu_numero, docu_anulado, docu_cufe from documento"),
             "000123|N|a1b2c3");
}

void PruebaCargaDocumentos::la_orden_lee_facturas_y_las_dice() {
    QCOMPARE(ordene({"documentos", "--cargar", "no_existe.txt"}).errores.trimmed(),
             "No se pudo leer no_existe.txt: no existe.");
    QCOMPARE(ordene({"documentos", "--electronica", base_->ruta()}).errores.trimmed(),
             QString("No se pudo leer %1: es una carpeta.").arg(base_->ruta()));
    QCOMPARE(ordene({"documentos", "--cargar", "a", "--anular", "1/2/3"}).codigo, 2);
    QCOMPARE(ordene({"documentos", "--desde", "ayer"}).codigo, 2);
    const QString uso = administre({"documentos", "--help"}).salida;
    for (const char* opcion : {"--cargar", "--electronica", "--anular", "--pendientes"})
        QVERIFY(uso.contains(QLatin1String(opcion)));
}

void PruebaCargaDocumentos::el_leeme_nombra_los_mismos_conceptos_que_la_base() {
    const QString leeme = QString::fromUtf8(
        contenido_de(qEnvironmentVariable("QUORVEX_PROYECTO") + "/database/posting/LEEME.md"));
    QStringList escritos;
    for (const QString& linea : leeme.split('\n')) {
        const QStringList celdas = linea.split('|');
        if (celdas.size() == 7 && !linea.startsWith("|---") && !linea.startsWith("| Familia"))
            escritos << QStringList{celdas[1].trimmed(), celdas[2].trimmed(), celdas[3].trimmed(),
                                    celdas[4].trimmed().remove("TERC_CTA")}
                            .join('|');
    }
    escritos.sort();
    QStringList base =
        filas(
            "select coin_familia, coin_concepto, coin_nombre, coin_ctaterc from concepto_interfaz")
            .split('\n');
    base.sort();
    QCOMPARE(escritos, base);
}

QTEST_GUILESS_MAIN(PruebaCargaDocumentos)
#include "prueba_carga_documentos.moc"
