// Las reglas de la contabilización en la base: qué cuenta gana, qué errores salen y bajo qué
// código, de qué depende el libro NIIF, y cómo una propuesta se vuelve comprobante.
#include "posting/documentos_de_prueba.h"

class PruebaReglasContabilizacion : public PruebaConBase {
    Q_OBJECT
private slots:
    void init() {
        PruebaConBase::init();
        agregue_cuentas(base(), "110515; 130510 T; 413506 C; 280505 T; 530505; 111010; 510518 TC");
        configure(base(), kPorInterfaz, "INTERFAZ");
    }

    void la_cuenta_del_tercero_gana_y_su_nit_contable_reemplaza_el_suyo();
    void en_cada_lado_gana_la_regla_de_la_clase();
    void una_interfaz_detallada_no_junta_importes();
    void cada_error_dice_que_corregir_y_la_propuesta_espera();
    void los_errores_quedan_bajo_los_codigos_que_los_programas_buscan();
    void lo_descuadrado_va_a_la_cuenta_de_descuadres();
    void con_la_fecha_cerrada_no_hay_propuesta_ni_se_pierde_la_anterior();
    void sin_documento_o_sin_interfaz_no_hay_propuesta();
    void el_libro_niif_por_equivalencias_sigue_a_los_renglones_corregidos();
    void sin_gemelo_el_libro_niif_depende_del_ano_de_apertura();
    void volver_a_contabilizar_reemplaza_los_dos_libros_con_el_mismo_numero();
    void lo_que_otro_contabilizo_no_se_repite();
    void una_conversion_que_falla_deja_el_documento_pendiente();
    void anular_o_borrar_un_documento_se_lleva_su_comprobante();

private:
    QString errores(int codigo, int id) {
        return filas(QStringLiteral("select erro_codigo from errores where erro_tipodoc = %1 and"
                                    " erro_iddoc = %2")
                         .arg(codigo)
                         .arg(id));
    }
    /// Registra la interfaz y el documento y los contabiliza: documento y propuesta.
    std::pair<int, int> proponga(const InterfazPrueba& i = interfaz_de_prueba(kReglasVenta),
                                 const DocumentoPrueba& d = venta_de_prueba()) {
        registre(base(), 31, i);
        const int id = registre(base(), d);
        return {id, propuesta(contabil(base(), "contabil_factura", {id, i.id}))};
    }
    int propuesta(const QString& resultado) { return resultado.section('|', 2, 2).toInt(); }
    void convierta(int id, const char* libro = "") {
        base().ejecute(QStringLiteral("execute procedure contabiliza_pendiente%1(%2)")
                           .arg(QLatin1String(libro))
                           .arg(id));
    }
    QString rehusada(int id) {
        try {
            convierta(id);
        } catch (const ErrorBase& e) {
            return e.texto();
        }
        return {};
    }
    /// Lo que hace la revisión al grabar: el comprobante anterior del documento se va.
    void borre_anterior(int tipo, int id) {
        const QString donde = QStringLiteral(" where enco_consec in (select enco_consec from"
                                             " comprobante_encabezado where enco_tiporef = %1 and"
                                             " enco_idref = %2)")
                                  .arg(tipo)
                                  .arg(id);
        for (const char* tabla :
             {"comprobante_detalle", "comprobante_detalle_niif", "comprobante_encabezado"})
            base().ejecute("delete from " + QLatin1String(tabla) + donde);
    }
    QString pendientes(const char* niif = "N", const char* contado = "S") {
        return filas(QStringLiteral("select tido, id from documentos_sin_contabilizar('2017-03-01',"
                                    " '2017-03-31', '%1', '%2')")
                         .arg(QLatin1String(contado), QLatin1String(niif)));
    }
};

void PruebaReglasContabilizacion::la_cuenta_del_tercero_gana_y_su_nit_contable_reemplaza_el_suyo() {
    base().ejecute("update terceros set terc_ctacliente = '130510', terc_ctaventa = '413506',"
                   " terc_nitconta = '800456789' where terc_nit = '900123456'");
    // En NIIF vale el equivalente de la cuenta del tercero; sin equivalente, la de la interfaz.
    base().ejecute("update cuentas set cuen_eqniif = '280505' where cuen_cod = '130510'");
    base().ejecute("update cuentas set cuen_eqniif = null where cuen_cod = '413506'");
    const auto [id, p] = proponga();
    QCOMPARE(contabil(base(), "contabil_factura_niif", {id, 1, p}),
             QStringLiteral("0|N|%1").arg(p));
    convierta(p);
    QCOMPARE(comprobante_de(base(), 31, id, ""),
             esperado("130510 D 119000 t=800456789 o=000001; 413506 C 100000 c=0002-0001;"
                      " 240805 C 19000"));
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"),
             esperado("280505 D 119000 t=800456789 o=000001; 413505 C 100000 c=0002-0001;"
                      " 240805 C 19000"));
    QCOMPARE(filas("select terc_nit, enco_nomterc, enco_tiporef from comprobante_encabezado"),
             "800456789|Distribuidora Andina Ltda.|31");
}

void PruebaReglasContabilizacion::en_cada_lado_gana_la_regla_de_la_clase() {
    agregue_cuentas(base(), "146505");
    const auto [id, p] =
        proponga(interfaz_de_prueba(
                     "MEDIO 110505 D; MEDIO:CH 110515 D; VENTA 413505 C c; VENTA:MAY 413506 C c;"
                     " COSTO 613505 D c; COSTO 143505 C a; COSTO:02 146505 C"),
                 venta_de_prueba("000001", "MEDIO:EF 60; MEDIO:CH 30; MEDIO:TJ 10; VENTA:MAY 25;"
                                           " VENTA:MIN 75; COSTO:01 8 a=MART01; COSTO:02 5"));
    convierta(p);
    QCOMPARE(comprobante_de(base(), 31, id, ""),
             esperado("110505 D 70; 110515 D 30; 413505 C 75 c=0002-0001; 413506 C 25 c=0002-0001;"
                      " 613505 D 13 c=0002-0001; 143505 C 8 a=MART01; 146505 C 5"));
}

void PruebaReglasContabilizacion::una_interfaz_detallada_no_junta_importes() {
    InterfazPrueba i = interfaz_de_prueba("MEDIO 110505 D; VENTA 413505 C c");
    i.detallada = "S";
    const auto [id, p] =
        proponga(i, venta_de_prueba("000001", "MEDIO 100; VENTA 60 d=Martillo_de_uña; VENTA 40"));
    convierta(p);
    QCOMPARE(comprobante_de(base(), 31, id, ""),
             esperado("110505 D 100; 413505 C 60 c=0002-0001; 413505 C 40 c=0002-0001"));
    QCOMPARE(filas("select code_concepto from comprobante_detalle order by code_item"),
             "Prueba\nMartillo de uña\nPrueba");
    // La nómina sin detalle junta a los empleados donde la cuenta no exige tercero.
    InterfazPrueba n = interfaz_de_prueba("SUELDO 530505 D t; NETO 250505 C t");
    n.detallada = "S";
    agregue_cuentas(base(), "250505 T");
    registre(base(), 92, n);
    DocumentoPrueba nomina{92, "SUELDO 5 t=52345678; SUELDO 7 t=860002964; NETO 5 t=52345678;"
                               " NETO 7 t=860002964"};
    nomina.numero = "05";
    const int quincena = registre(base(), nomina);
    convierta(contabil(base(), "contabil_nomina", {quincena}).section('|', 1).toInt());
    QCOMPARE(comprobante_de(base(), 92, quincena, ""),
             esperado("530505 D 5 t=52345678; 530505 D 7 t=860002964; 250505 C 5 t=52345678;"
                      " 250505 C 7 t=860002964"));
}

namespace {

struct CasoDeError {
    QString codigo, texto, reglas, lineas;
    QString nit = QStringLiteral("900123456"), centro = QStringLiteral("0002-0001");
    QString tipo = QStringLiteral("CG");
};

QVector<CasoDeError> casos_de_error() {
    const QString falta = "VENTA 100; CLIENTE 100";
    const QString interfaz =
        " Corrija la cuenta en la interfaz De prueba o en la ficha del tercero.";
    return {
        {"CUENTA_INEXISTENTE",
         "Línea 2, cuenta 413599: La cuenta especificada no existe." + interfaz,
         "CLIENTE 130505 D t; VENTA 413599 C", falta},
        {"CUENTA_SUPERIOR",
         "Línea 2, cuenta 4135: La cuenta es de nivel inferior al mínimo afectable." + interfaz,
         "CLIENTE 130505 D t; VENTA 4135 C", falta},
        {"CUENTA_INACTIVA", "Línea 2, cuenta 110510: La cuenta 110510 está inactiva." + interfaz,
         "CLIENTE 130505 D t; VENTA 110510 C", falta},
        {"FALTA_TERCERO",
         "Línea 1, cuenta 130505: Debe indicar un NIT para el movimiento."
         " Ponga en el documento un tercero activo.",
         "CLIENTE 130505 D t; VENTA 413505 C c", falta, ""},
        {"TERCERO",
         "Línea 1, cuenta 130505: Tercero no encontrado. Ponga en el documento un tercero activo.",
         "CLIENTE 130505 D t; VENTA 413505 C c", falta, "19876543"},
        {"FALTA_CENTRO",
         "Línea 2, cuenta 413505: Debe indicar un Proyecto-Centro para el movimiento."
         " Ponga el proyecto y el centro en el documento.",
         "CLIENTE 130505 D t; VENTA 413505 C c", falta, "900123456", ""},
        {"FALTA_BASE",
         "Línea 1, cuenta 135515: Debe indicar una base para el movimiento."
         " Ponga en el documento la base y el porcentaje de la retención.",
         "RETEFUENTE 135515 D b; VENTA 413505 C c", "RETEFUENTE 100; VENTA 100"},
        {"DESCUADRE", "No puede grabar un comprobante descuadrado: débitos 100.00, créditos 90.00.",
         "CLIENTE 130505 D t; VENTA 413505 C c", "VENTA 90; CLIENTE 100"},
        {"CONCEPTO",
         "El concepto IVA, clase 19 (IVA generado), por 19.00, no tiene cuenta 2649 en la interfaz"
         " De prueba. Agréguela a la interfaz.",
         "CLIENTE 130505 D t; VENTA 413505 C c; IVA:5 240805 C",
         "VENTA 100; IVA:19 19; CLIENTE 100"},
        {"VACIO", "El comprobante no tiene líneas. El documento no tiene importes para este libro.",
         "CLIENTE 130505 D t", ""},
        {"PREFIJO",
         "Debe registrar antes los prefijos."
         " Corrija el tipo y el prefijo de comprobante de la interfaz De prueba.",
         "CLIENTE 130505 D t; VENTA 413505 C c", falta, "900123456", "0002-0001", "NC"},
    };
}

} // namespace

void PruebaReglasContabilizacion::cada_error_dice_que_corregir_y_la_propuesta_espera() {
    int n = 0;
    for (const CasoDeError& caso : casos_de_error()) {
        InterfazPrueba i = interfaz_de_prueba(caso.reglas, ++n);
        i.tipo = caso.tipo;
        registre(base(), 31, i);
        DocumentoPrueba d = venta_de_prueba("000001", caso.lineas);
        d.numero = QString::number(n);
        d.nit = caso.nit;
        d.centro = caso.centro;
        const int id = registre(base(), d);
        const QString r = contabil(base(), "contabil_factura", {id, n});
        QCOMPARE(filas(QStringLiteral("select erro_codigo || ': ' || erro_cadena from errores"
                                      " where erro_tipodoc = 31 and erro_iddoc = %1")
                           .arg(id)),
                 caso.codigo + ": " + caso.texto);
        QVERIFY2(r.startsWith("1|S|") && propuesta(r) > 0, qPrintable(r));
        // Lo que la revisión no corrija tampoco entra después.
        QVERIFY2(!rehusada(propuesta(r)).isEmpty() || caso.codigo == "CONCEPTO",
                 qPrintable(caso.codigo));
    }
    // Corregido el documento, los errores se van.
    base().ejecute("update documento set terc_nit = '900123456' where docu_numero = '4'");
    const int id = filas("select docu_id from documento where docu_numero = '4'").toInt();
    QVERIFY(contabil(base(), "contabil_factura", {id, 4}).startsWith("0|N|"));
    QCOMPARE(errores(31, id), QString());
}

void PruebaReglasContabilizacion::los_errores_quedan_bajo_los_codigos_que_los_programas_buscan() {
    // Tipo, procedimiento, gemelo, códigos 2649 y códigos NIIF; los demás siguen al de su fila.
    // Cada módulo numera los suyos, y los de otro documento del mismo id no se mezclan.
    struct Caso {
        int tipo;
        const char *procedimiento, *gemelo, *codigos, *codigos_niif;
    };
    const Caso casos[] = {
        {22, "contabil_remiprov", "contabil_remiprov_niif", "24", "31 1022"},
        {61, "contabil_recicaja", "contabil_recicaja_niif", "41 61", "31 1061"},
        {11, "contabil_entrada", "contabil_entrada_niif", "11", "11 1011"},
        {12, "contabil_salida", "contabil_salida_niif", "12", "11 1012"},
        {33, "contabil_devolcli", "contabil_devolcli_niif", "33", "33 1033"},
        {41, "contabil_notadbcl", "contabil_notadbcl_niif", "41", "31 1041"},
        {76, "contabil_trascuenta", "contabil_traslacaja_niif", "76", "31 1076"},
        {24, "contabil_devolcomp", "contabil_devolcomp_niif", "24", "31 1024"},
        {31, "contabil_factura", "contabil_factura_niif", "31", "31 1031"},
        {37, "contabil_rutero", "", "37", "37"},
        {91, "contabil_pagonomi", "", "62", "62"},
        {92, "contabil_nomina", "", "62", "62"},
        {95, "contabil_prestamo", "", "95", "95"},
    };
    for (const Caso& caso : casos) {
        InterfazPrueba i = interfaz_de_prueba("X 110505 D; X 110515 C", caso.tipo);
        i.reglas_niif = "Y 110505 D";
        registre(base(), caso.tipo, i);
        base().ejecute("update documento set docu_id = 7000 where docu_id = ?",
                       {registre(base(), {caso.tipo, "SIN 10", "1"})});
        const QVector<int> argumentos =
            caso.tipo > 90 ? QVector<int>{7000} : QVector<int>{7000, caso.tipo};
        const auto quedan = [&](const QString& libro, const char* codigos) {
            const QString donde = "from errores where erro_iddoc = 7000 and erro_libro = '" + libro;
            QCOMPARE(
                filas(QStringLiteral("select distinct erro_tipodoc %1' and erro_tido = %2 order"
                                     " by 1")
                          .arg(donde)
                          .arg(caso.tipo))
                    .replace('\n', ' '),
                QString(codigos));
            for (const QString& codigo : QString(codigos).split(' ', Qt::SkipEmptyParts))
                QCOMPARE(
                    filas("select distinct erro_tido " + donde + "' and erro_tipodoc = " + codigo),
                    QString::number(caso.tipo));
        };
        contabil(base(), caso.procedimiento, argumentos);
        quedan("2649", caso.codigos);
        base().ejecute("update documento_linea set doli_concepto = 'X' where tido_cod = ?",
                       {caso.tipo});
        const QString r = contabil(base(), caso.procedimiento, argumentos);
        if (*caso.gemelo) {
            quedan("2649", "");
            contabil(base(), caso.gemelo, {7000, caso.tipo, propuesta(r)});
        }
        quedan("NIIF", caso.codigos_niif);
    }
}

void PruebaReglasContabilizacion::lo_descuadrado_va_a_la_cuenta_de_descuadres() {
    agregue_cuentas(base(), "289595");
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    const int id =
        registre(base(), venta_de_prueba("000001", "VENTA 100; IVA 19.5; CLIENTE 119; NADA 0"));
    const QString r = contabil(base(), "contabil_factura", {id, 1});
    QVERIFY(r.startsWith("1|S|"));
    QCOMPARE(filas("select erro_cadena from errores"),
             "El documento no cuadra en el libro 2649: débitos menos créditos, -0.50. La"
             " diferencia queda en la cuenta 289595; corrija el documento o revísela antes"
             " de grabar.");
    // La persona la acepta: el comprobante entra cuadrado.
    convierta(propuesta(r));
    QCOMPARE(comprobante_de(base(), 31, id, ""),
             esperado("130505 D 119 t=900123456 o=000001; 413505 C 100 c=0002-0001; 240805 C 19.5;"
                      " 289595 D 0.5"));
}

void PruebaReglasContabilizacion::con_la_fecha_cerrada_no_hay_propuesta_ni_se_pierde_la_anterior() {
    const auto [id, p] = proponga();
    configure(base(), "FECHA DE BLOQUEO", "20170315");
    QCOMPARE(contabil(base(), "contabil_factura", {id, 1}), "1|N|0");
    QCOMPARE(filas("select erro_codigo, erro_cadena from errores"),
             "BLOQUEO|La contabilidad esta bloqueada a: 2017/03/15."
             " Cambie la fecha del documento o el bloqueo.");
    QCOMPARE(filas("select cntb_id from contabilizacion"), QString::number(p));
    QVERIFY(rehusada(p).contains("bloqueada"));
    // El libro NIIF tiene su bloqueo.
    configure(base(), "FECHA DE BLOQUEO", "20170314");
    configure(base(), "FECHA DE BLOQUEO NIIF", "20170315");
    const int q = propuesta(contabil(base(), "contabil_factura", {id, 1}));
    QCOMPARE(contabil(base(), "contabil_factura_niif", {id, 1, q}),
             QStringLiteral("1|S|%1").arg(q));
    QCOMPARE(errores(1031, id), "BLOQUEO");
    convierta(q);
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"), QString());
}

void PruebaReglasContabilizacion::sin_documento_o_sin_interfaz_no_hay_propuesta() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    QCOMPARE(contabil(base(), "contabil_factura", {999, 1}), "1|N|0");
    QCOMPARE(errores(31, 999), "DOCUMENTO");
    const int id = registre(base(), venta_de_prueba());
    QCOMPARE(contabil(base(), "contabil_factura", {id, 7}), "1|N|0");
    QCOMPARE(errores(31, id), "INTERFAZ");
    base().ejecute("update documento set docu_anulado = 'S'");
    QCOMPARE(contabil(base(), "contabil_factura", {id, 1}), "1|N|0");
    QCOMPARE(filas("select erro_cadena from errores where erro_iddoc <> 999"),
             "El documento está anulado. Actualice la lista.");
    QCOMPARE(contabil(base(), "contabil_nomina", {999}), "1|0");
    QCOMPARE(errores(62, 999), "DOCUMENTO");
}

void PruebaReglasContabilizacion::
    el_libro_niif_por_equivalencias_sigue_a_los_renglones_corregidos() {
    configure(base(), kPorInterfaz, "EQUIVALENCIAS");
    base().ejecute("update cuentas set cuen_eqniif = '413506' where cuen_cod = '413505'");
    InterfazPrueba i = interfaz_de_prueba(kReglasVenta);
    i.reglas_niif = "NADA 110505 D";
    const auto [id, p] = proponga(i);
    QCOMPARE(contabil(base(), "contabil_factura_niif", {id, 1, p}),
             QStringLiteral("0|N|%1").arg(p));
    // En la revisión alguien cambia el ingreso por uno propio: la NIIF lo sigue.
    base().ejecute("update contabilizacion_det set cnde_creditos = 95000 where cnde_item = 2");
    base().ejecute("insert into contabilizacion_det (cntb_id, cnde_item, cnde_cuenta,"
                   " cnde_creditos) values (?, 4, '110505', 5000)",
                   {p});
    convierta(p);
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"),
             esperado("130505 D 119000 t=900123456 o=000001; 413506 C 95000 c=0002-0001;"
                      " 240805 C 19000; 110505 C 5000"));
    // Una cuenta sin equivalente se dice, y no entra por ninguna vía.
    base().ejecute("update cuentas set cuen_eqniif = null where cuen_cod = '240805'");
    const int dos = registre(base(), venta_de_prueba("2"));
    const int q = propuesta(contabil(base(), "contabil_factura", {dos, 1}));
    QVERIFY(contabil(base(), "contabil_factura_niif", {dos, 1, q}).startsWith("2|S|"));
    QCOMPARE(errores(1031, dos), "EQUIVALENTE\nDESCUADRE");
    QCOMPARE(rehusada(q), "La cuenta 240805 (línea 3) no tiene una cuenta NIIF equivalente"
                          " que pueda llevar movimiento.");
}

void PruebaReglasContabilizacion::sin_gemelo_el_libro_niif_depende_del_ano_de_apertura() {
    registre(base(), 95, interfaz_de_prueba("PRESTAMO 130505 D t; BANCO 111005 C"));
    const QPair<const char*, int> casos[] = {
        {"2018", 0}, {"2017", 2}, {"2016", 2}, {"", 0}, {"dos mil", 0}};
    int n = 0;
    for (const auto& [ano, renglones] : casos) {
        configure(base(), "AÑO BALANCE DE APERTURA NIIF", ano);
        DocumentoPrueba d{95, "PRESTAMO 10; BANCO 10", QString::number(++n)};
        d.nit = "52345678";
        const int p = propuesta(contabil(base(), "contabil_prestamo", {registre(base(), d)}));
        QCOMPARE(filas(QStringLiteral("select count(*), coalesce(min(cnde_item), 0) from"
                                      " contabilizacion_det where cnde_item > 99999 and cntb_id ="
                                      " %1")
                           .arg(p)),
                 QStringLiteral("%1|%2").arg(renglones).arg(renglones ? 100001 : 0));
    }
}

void PruebaReglasContabilizacion::
    volver_a_contabilizar_reemplaza_los_dos_libros_con_el_mismo_numero() {
    const auto [id, p] = proponga();
    QCOMPARE(pendientes(), QStringLiteral("31|%1").arg(id));
    convierta(p);
    QCOMPARE(pendientes(), QString());
    // Falta el libro NIIF: sigue en esa lista hasta que se agrega sobre la misma propuesta.
    QCOMPARE(pendientes("S"), QStringLiteral("31|%1").arg(id));
    contabil(base(), "contabil_factura_niif", {id, 1, p});
    borre_anterior(31, id);
    convierta(p, "_niif");
    QCOMPARE(pendientes("S"), QString());
    QCOMPARE(filas("select enco_numero, enco_refer, enco_idref from comprobante_encabezado"),
             QStringLiteral("000001|000001|%1").arg(id));
    QVERIFY(!comprobante_de(base(), 31, id, "").isEmpty());
    QVERIFY(!comprobante_de(base(), 31, id, "_niif").isEmpty());

    // El documento cambió y se contabiliza otra vez: los dos libros, otra propuesta, igual número.
    base().ejecute("update documento_linea set doli_valor = doli_valor * 2");
    registre(base(), 31,
             interfaz_de_prueba(QString(kReglasVenta).section(';', 0, 1) + "; IVA 240805 C", 2));
    const int q = propuesta(contabil(base(), "contabil_factura", {id, 2}));
    QVERIFY(q > p);
    QCOMPARE(filas("select cntb_id, cntb_numero from contabilizacion"),
             QStringLiteral("%1|000001").arg(q));
    contabil(base(), "contabil_factura_niif", {id, 2, q});
    borre_anterior(31, id);
    convierta(q);
    QCOMPARE(filas("select enco_numero from comprobante_encabezado"), "000001");
    const QString doble = esperado("130505 D 238000 t=900123456 o=000001;"
                                   " 413505 C 200000 c=0002-0001; 240805 C 38000");
    QCOMPARE(comprobante_de(base(), 31, id, ""), doble);
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"), doble);
    QCOMPARE(saldos_distintos(base()), QString());

    // También si el comprobante ya se borró, aunque el prefijo no dé más números.
    base().ejecute("update prefijos_conta set prco_activo = 'N', pref_numero = '1000000' where "
                   "tico_cod = 'CG' and prco_pref = '0001'");
    borre_anterior(31, id);
    const int otro = registre(base(), venta_de_prueba("2"));
    contabil(base(), "contabil_factura", {otro, 2});
    QCOMPARE(errores(31, otro), "PREFIJO"); // uno que necesita número
    const QString r = contabil(base(), "contabil_factura", {id, 2});
    QVERIFY2(r.startsWith("0|N|"), qPrintable(r));
    QVERIFY(contabil(base(), "contabil_factura_niif", {id, 2, propuesta(r)}).startsWith("0|N|"));
    convierta(propuesta(r));
    QCOMPARE(filas("select enco_numero from comprobante_encabezado"), "000001");
    // El que otro tomó entre tanto no se repite.
    base().ejecute("update prefijos_conta set prco_activo = 'S', pref_numero = '000002' where "
                   "tico_cod = 'CG' and prco_pref = '0001'");
    borre_anterior(31, id);
    base().ejecute("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                   "enco_numero, enco_fecha) values (9000, 'CG', '0001', '000001', '20170101')");
    convierta(propuesta(contabil(base(), "contabil_factura", {id, 2})));
    QCOMPARE(filas("select enco_numero from comprobante_encabezado where enco_consec <> 9000"),
             "000002");
}

void PruebaReglasContabilizacion::lo_que_otro_contabilizo_no_se_repite() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    const int id = registre(base(), venta_de_prueba());
    // Dos listas a la vez: el segundo hizo su propuesta después y la del primero ya no existe.
    const int p = propuesta(contabil(base(), "contabil_factura", {id, 1}));
    const int q = propuesta(contabil(base(), "contabil_factura", {id, 1}));
    QCOMPARE(rehusada(p), "La propuesta ya no existe: otro usuario volvió a contabilizar el"
                          " documento.");
    convierta(q);
    // Y con la misma propuesta, quien llega tarde sabe en qué comprobante quedó.
    QCOMPARE(rehusada(q), "El documento ya fue contabilizado por otro usuario en el"
                          " comprobante CG 0001 000001.");
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "1");
}

void PruebaReglasContabilizacion::una_conversion_que_falla_deja_el_documento_pendiente() {
    const auto [id, p] = proponga();
    base().ejecute("update cuentas set cuen_activa = 'N' where cuen_cod = '240805'");
    QCOMPARE(rehusada(p), "Línea 3, cuenta 240805: La cuenta 240805 está inactiva.");
    QCOMPARE(pendientes(), QStringLiteral("31|%1").arg(id));
    QCOMPARE(filas("select count(*) from contabilizacion_det"), "3");
    QCOMPARE(filas("select pref_numero from prefijos_conta where tico_cod = 'CG'"), "000001");
    base().ejecute("update cuentas set cuen_activa = 'S' where cuen_cod = '240805'");
    convierta(p);
    QCOMPARE(pendientes(), QString());
}

void PruebaReglasContabilizacion::anular_o_borrar_un_documento_se_lleva_su_comprobante() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    int ids[2];
    for (int i = 0; i < 2; ++i) {
        ids[i] = registre(base(), venta_de_prueba(QString::number(i + 1)));
        convierta(propuesta(contabil(base(), "contabil_factura", {ids[i], 1})));
    }
    // Con la fecha cerrada el documento no se anula y todo sigue como estaba.
    configure(base(), "FECHA DE BLOQUEO", "20170331");
    QVERIFY_THROWS_EXCEPTION(
        ErrorBase, base().ejecute("update documento set docu_anulado = 'S' where docu_numero = 1"));
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "2");
    configure(base(), "FECHA DE BLOQUEO", "");
    base().ejecute("update documento set docu_anulado = 'S' where docu_numero = '1'");
    base().ejecute("delete from documento where docu_numero = '2'");
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "0");
    QCOMPARE(filas("select count(*) from contabilizacion"), "0");
    QCOMPARE(filas("select fact_id from facturas"), QString::number(ids[0]));
    QCOMPARE(pendientes(), QString());
    QCOMPARE(saldos_distintos(base()), QString());
}

QTEST_GUILESS_MAIN(PruebaReglasContabilizacion)
#include "prueba_reglas_contabilizacion.moc"
