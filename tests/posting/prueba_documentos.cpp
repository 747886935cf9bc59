// Cada tipo de documento que se contabiliza da, en los dos libros, el comprobante que un contador
// haría a mano. Los renglones esperados se hicieron así, no salen del programa.
#include "posting/documentos_de_prueba.h"

namespace {

// Lo que los casos usan y la plantilla no trae. En la NIIF el ingreso y el inventario tienen además
// cuentas que el 2649 no conoce.
const QString kCuentas = QStringLiteral(
    "110515; 112005; 111010; 111015; 130510 T; 133005 T; 135517 TR; 135518 TR; 135595 T; 136595 T; "
    "139905 T; 141005; 143510; 146505; 152410; 220510 T; 233545 T; 236570 TR; 236705 TR; 236805 "
    "TR; 237005 T; 238030 T; 250505 T; 261005 T; 261020 T; 280505 T; 413506 C; 414505 C; 417505 C; "
    "421005; 421040 T; 425050; 511595; 513505 TC; 519910; 523550 TC; 530505; 530515; 530535 T; "
    "529595 C; 520506 TC; 520568 TC; 730505; 720505; 740505");

struct Caso {
    DocumentoPrueba documento;
    InterfazPrueba interfaz;
    const char *libro, *niif = nullptr; ///< renglones esperados; niif nulo si son los mismos
};

const QString kCliente = QStringLiteral("900123456"), kProveedor = QStringLiteral("800456789"),
              kEmpleada = QStringLiteral("52345678"), kBanco = QStringLiteral("860002964"),
              kMostrador = QStringLiteral("0002-0001"), kGerencia = QStringLiteral("0001-0001");

DocumentoPrueba documento(int tipo, const char* lineas, const QString& nit = {},
                          const QString& centro = {}) {
    DocumentoPrueba d{tipo, lineas};
    d.nit = nit;
    d.centro = centro;
    return d;
}

InterfazPrueba interfaz(const char* reglas, const char* niif = "") {
    return {1, reglas, niif};
}

/// Los de nómina se numeran por año y quincena.
DocumentoPrueba quincena_de(int tipo, const char* lineas) {
    DocumentoPrueba d = documento(tipo, lineas);
    d.prefijo = QStringLiteral("2017");
    d.numero = QStringLiteral("05");
    return d;
}

const DocumentoPrueba kQuincena = quincena_de(
    92, "SUELDO:ADM 900000 t=52345678 c=0001-0002; SUELDO:VEN 700000 t=860002964 c=0002-0001; "
        "SALUD 36000 t=52345678; SALUD 28000 t=860002964; PENSION 36000 t=52345678; PENSION 28000 "
        "t=860002964; CUOTA 50000 t=52345678; NETO 778000 t=52345678; NETO 644000 t=860002964; "
        "CESANTIA:ADM 74970 n=75000 t=52345678 c=0001-0002");
const DocumentoPrueba kPago =
    quincena_de(91, "NETO 778000 t=52345678; NETO 644000 t=860002964; BANCO:1 1422000");
const QVector<Caso> kCasos{
    // Cambio de costo: el inventario vale más en el 2649 y menos en la NIIF.
    {documento(10, "ENTRADA 250000 n=-90000 a=MART01; CONTRA 250000 n=-90000"),
     interfaz("ENTRADA 143505 D a; CONTRA 425050 C"), "143505 D 250000 a=MART01; 425050 C 250000",
     "143505 C 90000 a=MART01; 425050 D 90000"},
    // Entrada a dos almacenes con cuenta propia el segundo.
    {documento(11, "ENTRADA:01 400000 a=MART01; ENTRADA:02 100000 a=MART01; CONTRA 500000",
               kProveedor),
     interfaz("ENTRADA 143505 D a; ENTRADA:02 143510 D; CONTRA 220510 C t"),
     "143505 D 400000 a=MART01; 143510 D 100000; 220510 C 500000 t=800456789"},
    // Salida para consumo, al centro de cada línea.
    {documento(12, "SALIDA 30000 a=MART01 c=0001-0002; SALIDA 20000 a=MART01 c=0001-0001"),
     interfaz("SALIDA 519530 D c; SALIDA 143505 C a"),
     "519530 D 30000 c=0001-0002; 519530 D 20000 c=0001-0001; 143505 C 50000 a=MART01"},
    {documento(13, "ENTRADA:02 75000; SALIDA:01 75000 a=MART01"),
     interfaz("SALIDA 143505 C; ENTRADA:02 143510 D"), "143505 C 75000 a=MART01; 143510 D 75000"},
    // Un ajuste con sobrante y faltante: el negativo cambia de lado y se juntan.
    {documento(14, "ENTRADA 12000 a=MART01; ENTRADA -5000 a=MART01; CONTRA 7000"),
     interfaz("ENTRADA 143505 D a; CONTRA 425050 C"), "143505 D 7000 a=MART01; 425050 C 7000"},
    {documento(15, "ENTRADA 90000 a=MART01; SALIDA 80000; MANOOBRA 10000"),
     interfaz("ENTRADA 143505 D a; SALIDA 146505 C; MANOOBRA 720505 C"),
     "143505 D 90000 a=MART01; 146505 C 80000; 720505 C 10000"},
    {documento(16, "SALIDA 90000 a=MART01; ENTRADA 90000"),
     interfaz("ENTRADA 146505 D; SALIDA 143505 C a"), "146505 D 90000; 143505 C 90000 a=MART01"},
    {documento(19, "ENTRADA 300000; SALIDA 210000; MANOOBRA 60000; INDIRECTOS 30000"),
     interfaz("ENTRADA 141005 D; SALIDA 146505 C; MANOOBRA 720505 C; INDIRECTOS 730505 C"),
     "141005 D 300000; 146505 C 210000; 720505 C 60000; 730505 C 30000"},
    {documento(20, "ENTRADA 300000 n=315000 a=MART01; SALIDA 300000 n=315000"),
     interfaz("ENTRADA 143505 D a; SALIDA 141005 C"), "143505 D 300000 a=MART01; 141005 C 300000",
     "143505 D 315000 a=MART01; 141005 C 315000"},
    {documento(28, "SALIDA 210000"), interfaz("SALIDA 141005 D; SALIDA 146505 C"),
     "141005 D 210000; 146505 C 210000"},
    {documento(29, "ENTRADA 15000.5"), interfaz("ENTRADA 146505 D; ENTRADA 141005 C"),
     "146505 D 15000.5; 141005 C 15000.5"},

    // Compra con IVA y las tres retenciones; el saldo abre la factura.
    {documento(
         21,
         "COMPRA:01 1000000 a=MART01; FLETE 50000; IVA:19 190000; RETEFUENTE 25000 b=1000000 "
         "p=2.5; RETEIVA 28500 b=190000 p=15; RETEICA 11040 b=1000000 p=1.104; PROVEEDOR 1175460",
         kProveedor, kGerencia),
     interfaz("COMPRA 143505 D a; FLETE 523550 D tc; IVA 240810 D; RETEFUENTE 236540 C tb; RETEIVA "
              "236705 C tb; RETEICA 236805 C tb; PROVEEDOR 220505 C tn",
              "COMPRA 143505 D a; FLETE 143505 D; IVA 240810 D; RETEFUENTE 236540 C tb; RETEIVA "
              "236705 C tb; RETEICA 236805 C tb; PROVEEDOR 220505 C tn"),
     "143505 D 1000000 a=MART01; 523550 D 50000 t=800456789 c=0001-0001; 240810 D 190000; 236540 C "
     "25000 t=800456789 b=-1000000 p=2.5; 236705 C 28500 t=800456789 b=-190000 p=15; 236805 C "
     "11040 t=800456789 b=-1000000 p=1.1; 220505 C 1175460 t=800456789 o=000001",
     "143505 D 1000000 a=MART01; 143505 D 50000; 240810 D 190000; 236540 C 25000 t=800456789 "
     "b=-1000000 p=2.5; 236705 C 28500 t=800456789 b=-190000 p=15; 236805 C 11040 t=800456789 "
     "b=-1000000 p=1.104; 220505 C 1175460 t=800456789 o=000001"},
    {documento(22, "COMPRA 600000 a=MART01; PORFACTURA 600000", kProveedor),
     interfaz("COMPRA 143505 D a; PORFACTURA 220510 C tn"),
     "143505 D 600000 a=MART01; 220510 C 600000 t=800456789 o=000001"},
    // Devolución: los lados de la compra, al revés, y el saldo aplicado a la factura.
    {documento(24,
               "COMPRA 200000 a=MART01; IVA:19 38000; RETEFUENTE 5000 b=200000 p=2.5; PROVEEDOR "
               "233000 x=21-000041",
               kProveedor),
     interfaz("PROVEEDOR 220505 D tx; RETEFUENTE 236540 D tb; COMPRA 143505 C a; IVA 240810 C"),
     "220505 D 233000 t=800456789 x=21-000041; 236540 D 5000 t=800456789 b=200000 p=2.5; 143505 C "
     "200000 a=MART01; 240810 C 38000"},
    // Venta a crédito con dos líneas de ingreso que se juntan por centro, descuento y costo.
    {documento(
         31,
         "VENTA 700000; VENTA 300000; VENTA 500000 c=0002-0002; DESCUENTO 100000; IVA:19 266000; "
         "RETEFUENTE 35000 b=1400000 p=2.5; CLIENTE 1631000; COSTO:01 900000 n=940000 a=MART01",
         kCliente, kMostrador),
     interfaz("CLIENTE 130505 D tn; RETEFUENTE 135515 D tb; DESCUENTO 529595 D c; VENTA 413505 C "
              "c; IVA 240805 C; COSTO 613505 D c; COSTO 143505 C a",
              "CLIENTE 130505 D tn; RETEFUENTE 135515 D tb; DESCUENTO 413505 D c; VENTA 413506 C "
              "c; IVA 240805 C; COSTO 613505 D c; COSTO 143505 C a"),
     "130505 D 1631000 t=900123456 o=000001; 135515 D 35000 t=900123456 b=1400000 p=2.5; 529595 D "
     "100000 c=0002-0001; 413505 C 1000000 c=0002-0001; 413505 C 500000 c=0002-0002; 240805 C "
     "266000; 613505 D 900000 c=0002-0001; 143505 C 900000 a=MART01",
     "130505 D 1631000 t=900123456 o=000001; 135515 D 35000 t=900123456 b=1400000 p=2.5; 413505 D "
     "100000 c=0002-0001; 413506 C 1000000 c=0002-0001; 413506 C 500000 c=0002-0002; 240805 C "
     "266000; 613505 D 940000 c=0002-0001; 143505 C 940000 a=MART01"},

    {documento(32, "COSTO 80000 a=MART01", kCliente, kMostrador),
     interfaz("COSTO 146505 D; COSTO 143505 C a"), "146505 D 80000; 143505 C 80000 a=MART01"},
    {documento(33, "VENTA 100000; IVA:19 19000; CLIENTE 119000 x=31-000900; COSTO 60000 a=MART01",
               kCliente, kMostrador),
     interfaz(
         "VENTA 417505 D c; IVA 240805 D; CLIENTE 130505 C tx; COSTO 143505 D a; COSTO 613505 C c"),
     "417505 D 100000 c=0002-0001; 240805 D 19000; 130505 C 119000 t=900123456 x=31-000900; 143505 "
     "D 60000 a=MART01; 613505 C 60000 c=0002-0001"},

    // Ruta: lo recaudado por medio y el faltante del conductor contra los clientes.
    {documento(
         37,
         "MEDIO:EF 180000; MEDIO:CH 70000; FALTANTE 3000 t=52345678; CLIENTE 253000 t=900123456"),
     interfaz("MEDIO 110505 D; MEDIO:CH 110515 D; FALTANTE 136595 D t; CLIENTE 130505 C t"),
     "110505 D 180000; 110515 D 70000; 136595 D 3000 t=52345678; 130505 C 253000 t=900123456"},
    {documento(41, "INTERES 40000; IVA:19 7600; CLIENTE 47600 x=31-000010", kCliente),
     interfaz("CLIENTE 130505 D tx; INTERES 421005 C; IVA 240805 C"),
     "130505 D 47600 t=900123456 x=31-000010; 421005 C 40000; 240805 C 7600"},
    {documento(42, "DESCUENTO 25000; CLIENTE 25000 x=31-000010", kCliente),
     interfaz("DESCUENTO 530535 D t; CLIENTE 130505 C tx"),
     "530535 D 25000 t=900123456; 130505 C 25000 t=900123456 x=31-000010"},
    {documento(43, "ANTICIPO 150000; CLIENTE 100000 x=31-000010; CLIENTE 50000 x=31-000011",
               kCliente),
     interfaz("ANTICIPO 280505 D t; CLIENTE 130505 C tx"),
     "280505 D 150000 t=900123456; 130505 C 100000 t=900123456 x=31-000010; 130505 C 50000 "
     "t=900123456 x=31-000011"},
    // El deterioro es distinto en cada libro y no tiene gemelo: sale entero de su
    // procedimiento.
    {documento(47, "DETERIORO 60000 n=95000 t=900123456"),
     interfaz("DETERIORO 519910 D; DETERIORO 139905 C t"),
     "519910 D 60000; 139905 C 60000 t=900123456", "519910 D 95000; 139905 C 95000 t=900123456"},
    {documento(51, "PROVEEDOR 30000 x=21-000005; CONTRA 30000", kProveedor),
     interfaz("PROVEEDOR 220505 D tx; CONTRA 425050 C"),
     "220505 D 30000 t=800456789 x=21-000005; 425050 C 30000"},
    {documento(52, "CONTRA:FLETE 45000; IVA:19 8550; RETEFUENTE 450 b=45000 p=1; PROVEEDOR 53100",
               kProveedor, kMostrador),
     interfaz("CONTRA:FLETE 523550 D tc; CONTRA 530505 D; IVA 240810 D; RETEFUENTE 236540 C tb; "
              "PROVEEDOR 220505 C tn"),
     "523550 D 45000 t=800456789 c=0002-0001; 240810 D 8550; 236540 C 450 t=800456789 b=-45000 "
     "p=1; 220505 C 53100 t=800456789 o=000001"},
    {documento(53, "PROVEEDOR 500000 x=21-000005; ANTICIPO 500000", kProveedor),
     interfaz("PROVEEDOR 220505 D tx; ANTICIPO 133005 C t"),
     "220505 D 500000 t=800456789 x=21-000005; 133005 C 500000 t=800456789"},

    // Recibo: dos medios, descuento y retención que el cliente practicó al pagar.
    {documento(61,
               "MEDIO:EF 400000; MEDIO:CH 500000; DESCUENTO 20000; RETEICA 9660 b=1000000 p=0.966; "
               "CLIENTE 929660 x=31-000070",
               kCliente),
     interfaz("MEDIO:EF 110505 D; MEDIO:CH 110515 D; DESCUENTO 530535 D t; RETEICA 135518 D tb; "
              "CLIENTE 130505 C tx"),
     "110505 D 400000; 110515 D 500000; 530535 D 20000 t=900123456; 135518 D 9660 t=900123456 "
     "b=1000000 p=0.97; 130505 C 929660 t=900123456 x=31-000070",
     "110505 D 400000; 110515 D 500000; 530535 D 20000 t=900123456; 135518 D 9660 t=900123456 "
     "b=1000000 p=0.966; 130505 C 929660 t=900123456 x=31-000070"},
    // Egreso de dos bancos: la clase es la cuenta bancaria.
    {documento(62, "PROVEEDOR 700000 x=21-000005; BANCO:1 450000; BANCO:2 250000", kProveedor),
     interfaz("PROVEEDOR 220505 D tx; BANCO:1 111005 C; BANCO:2 111010 C"),
     "220505 D 700000 t=800456789 x=21-000005; 111005 C 450000; 111010 C 250000"},
    {documento(64,
               "BANCO:1 965000; COMISION 20000; RETEFUENTE 15000 b=1000000 p=1.5; TARJETA 1000000",
               kBanco),
     interfaz("BANCO:1 111005 D; COMISION 530515 D; RETEFUENTE 135515 D tb; TARJETA 110515 C"),
     "111005 D 965000; 530515 D 20000; 135515 D 15000 t=860002964 b=1000000 p=1.5; 110515 C "
     "1000000"},
    {documento(65, "MEDIO:EF 80000; PROVEEDOR 80000", kProveedor),
     interfaz("MEDIO 110505 D; PROVEEDOR 220505 C t"),
     "110505 D 80000; 220505 C 80000 t=800456789"},
    {documento(66, "CAJAENTRA 120000; CAJASALE 120000"),
     interfaz("CAJAENTRA 110515 D; CAJASALE 110505 C"), "110515 D 120000; 110505 C 120000"},
    {documento(71, "BANCO 630000; MEDIO:EF 400000; MEDIO:CH 230000"),
     interfaz("BANCO 111005 D; MEDIO:EF 110505 C; MEDIO:CH 110515 C"),
     "111005 D 630000; 110505 C 400000; 110515 C 230000"},
    {documento(74, "GASTO:COMISION 30000; IVA:19 5700; GRAVAMEN 4000; BANCO 39700", kBanco),
     interfaz("GASTO:COMISION 530515 D; GASTO 530505 D; IVA 240810 D; GRAVAMEN 511595 D; BANCO "
              "111005 C"),
     "530515 D 30000; 240810 D 5700; 511595 D 4000; 111005 C 39700"},
    {documento(75, "BANCO 93000; RETEFUENTE 7000 b=100000 p=7; INTERES 100000", kBanco),
     interfaz("BANCO 112005 D; RETEFUENTE 135515 D tb; INTERES 421040 C t"),
     "112005 D 93000; 135515 D 7000 t=860002964 b=100000 p=7; 421040 C 100000 t=860002964"},
    {documento(76, "DESTINO:2 2000000; BANCO 2000000"),
     interfaz("DESTINO:2 111010 D; DESTINO:3 111015 D; BANCO 111005 C"),
     "111010 D 2000000; 111005 C 2000000"},
    {documento(77, "CLIENTE 500000; SANCION 100000; BANCO 500000; INTERES 100000", kCliente),
     interfaz("CLIENTE 130510 D t; SANCION 130510 D t; BANCO 111005 C; INTERES 425050 C"),
     "130510 D 600000 t=900123456; 111005 C 500000; 425050 C 100000"},

    // Área por clase; las deducciones a un tercero se juntan porque la interfaz no es detallada
    // y el neto se separa porque su cuenta exige tercero.
    {kQuincena,
     interfaz(
         "SUELDO:ADM 510506 D tc; SUELDO:VEN 520506 D tc; CESANTIA:ADM 520568 D tc; SALUD 280510 C "
         "t; PENSION 280515 C t; CUOTA 136595 C t; NETO 250505 C t; CESANTIA 261005 C t"),
     "510506 D 900000 t=52345678 c=0001-0002; 520506 D 700000 t=860002964 c=0002-0001; 520568 D "
     "74970 t=52345678 c=0001-0002; 280510 C 64000; 280515 C 64000; 136595 C 50000 t=52345678; "
     "250505 C 778000 t=52345678; 250505 C 644000 t=860002964; 261005 C 74970 t=52345678",
     "510506 D 900000 t=52345678 c=0001-0002; 520506 D 700000 t=860002964 c=0002-0001; 520568 D "
     "75000 t=52345678 c=0001-0002; 280510 C 64000; 280515 C 64000; 136595 C 50000 t=52345678; "
     "250505 C 778000 t=52345678; 250505 C 644000 t=860002964; 261005 C 75000 t=52345678"},
    {kPago, interfaz("NETO 250505 D t; BANCO:1 111005 C"),
     "250505 D 778000 t=52345678; 250505 D 644000 t=860002964; 111005 C 1422000"},
    {documento(95, "PRESTAMO 600000; BANCO:1 600000", kEmpleada),
     interfaz("PRESTAMO 136595 D tn; BANCO 111005 C"),
     "136595 D 600000 t=52345678 o=000001; 111005 C 600000"},
};

} // namespace

class PruebaDocumentos : public QObject {
    Q_OBJECT
private slots:
    void cada_documento_da_su_comprobante_en_los_dos_libros();
};

void PruebaDocumentos::cada_documento_da_su_comprobante_en_los_dos_libros() {
    BaseDePrueba b;
    Conexion& c = b.base();
    agregue_cuentas(c, kCuentas + "; 280510; 280515");
    configure(c, kPorInterfaz, "INTERFAZ");
    for (const Caso& caso : kCasos) {
        const int tipo = caso.documento.tipo;
        const auto dato = [&](const char* columna) {
            return c
                .consulte(QStringLiteral("select %1 from documento_contable where tido_cod = %2")
                              .arg(QLatin1String(columna))
                              .arg(tipo))
                .texto();
        };
        InterfazPrueba interfaz = caso.interfaz;
        interfaz.id = tipo;
        registre(c, tipo, interfaz);
        const int id = registre(c, caso.documento);
        const bool con_interfaz = dato("doct_interfaz") == "S";
        const QString resultado = contabil(
            c, dato("doct_proc"), con_interfaz ? QVector<int>{id, tipo} : QVector<int>{id});
        const bool corta = tipo == 91 || tipo == 92;
        QVERIFY2(resultado.startsWith(corta ? "0|" : "0|N|"),
                 qPrintable(QStringLiteral("%1: %2 %3")
                                .arg(tipo)
                                .arg(resultado)
                                .arg(filas_de(c, "select erro_codigo, erro_cadena from errores"))));
        const int propuesta = resultado.section('|', corta ? 1 : 2).toInt();
        QVERIFY2(propuesta > 0, qPrintable(resultado));
        if (const QString gemelo = dato("doct_gemelo"); !gemelo.isEmpty())
            QCOMPARE(contabil(c, gemelo, {id, tipo, propuesta}),
                     QStringLiteral("0|N|%1").arg(propuesta));
        c.ejecute(QStringLiteral("execute procedure contabiliza_pendiente(%1)").arg(propuesta));
        QCOMPARE(comprobante_de(c, tipo, id, ""), esperado(caso.libro));
        QCOMPARE(comprobante_de(c, tipo, id, "_niif"),
                 esperado(caso.niif ? caso.niif : caso.libro));
    }
    // Y no falta ningún tipo.
    QCOMPARE(filas_de(c, "select tido_cod from documento_contable where tido_cod not in (select "
                         "enco_tiporef from comprobante_encabezado)"),
             QString());
    QCOMPARE(filas_de(c, "select * from errores"), QString());
    QCOMPARE(saldos_distintos(c), QString());
}

QTEST_GUILESS_MAIN(PruebaDocumentos)
#include "prueba_documentos.moc"
