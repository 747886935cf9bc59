// Importación de archivos: cómo se leen, qué se rehúsa y por qué, y qué queda en la base. Lo
// esperado sale de tablas hechas a mano o de sumas del propio archivo.
#include "exchange/diario_importacion.h"
#include "exchange/tfrechazosimp.h"

namespace {

struct Corrida {
    ResultadoImportacion resultado;
    QStringList anotado;
};

QVector<ColumnaImportacion> columnas(ClaseImportacion clase) {
    QVector<ColumnaImportacion> lista;
    for (const DatoImportacion& d : datos_de(clase))
        lista.append({QLatin1String(d.clave), int(lista.size()) + 1});
    return lista;
}

QString rechazos(const ResultadoImportacion& r) {
    QStringList lista;
    for (const RenglonRechazado& x : r.rechazados)
        lista
            << QStringLiteral("%1|%2|%3").arg(x.renglon).arg(QString::fromLatin1(x.texto), x.razon);
    return lista.join('\n');
}

/// tipo, prefijo, número, fecha, concepto, referencia, cuenta, nit, proyecto, centro, artículo,
/// base, porcentaje, débito, crédito.
QString renglon(const QString& numero, const QString& cuenta, const QString& debito,
                const QString& credito, const QString& resto = QStringLiteral(",,,,,")) {
    return "CG,0001," + numero + ",20170315,Traído,R1," + cuenta + ',' + resto + ',' + debito +
           ',' + credito + '\n';
}

} // namespace

class PruebaImportacion : public PruebaConBase {
    Q_OBJECT
private slots:
    void init() {
        PruebaConBase::init();
        ajustes_ = {};
        ensaya_ = true;
    }
    void cleanup() { base_.reset(); }

    void la_maquina_lee_como_se_dijo();
    void un_archivo_de_menos_de_cinco_octetos_o_que_no_abre_se_dice();
    void un_archivo_en_unicode_no_se_lee_a_medias();
    void la_ciudad_se_reconoce_como_se_escribe_y_el_nit_lleva_su_digito();
    void cada_dato_se_lee_o_se_rehusa_por_su_nombre();
    void las_cuentas_y_los_terceros_que_existen_no_cambian();
    void las_cuentas_niif_unen_su_equivalente();
    void las_reglas_de_las_lineas();
    void los_comprobantes_se_juntan_por_su_llave();
    void al_libro_niif_entra_solo_en_el();
    void si_se_permite_entra_descuadrado();
    void los_saldos_iniciales_se_agregan_o_se_reemplazan();
    void los_saldos_que_reemplazan_entran_todos_o_ninguno();
    void el_ensayo_no_escribe_y_da_la_misma_lista();
    void los_rechazados_corregidos_entran_al_leerlos_otra_vez();
    void una_importacion_cortada_sigue_donde_iba();
    void cien_mil_renglones_dejan_los_saldos_que_suma_el_archivo();
    void diez_mil_archivos_mutados_no_tumban_nada();

private:
    /// Importa el archivo. Antes lo ensaya: no debe escribir nada y debe dar la misma lista.
    Corrida importe(ClaseImportacion clase, const QByteArray& archivo,
                    const std::function<void(PeticionImportacion&)>& ajuste = {}) {
        PeticionImportacion p;
        p.clase = clase;
        p.archivo = base_->ruta() + "/entrada.txt";
        p.columnas = columnas(clase);
        p.columnas.append({"DATO_QUE_NO_HAY", 1}); // no estorba
        if (ajuste)
            ajuste(p);
        QFile f(p.archivo);
        if (f.open(QIODevice::WriteOnly))
            f.write(archivo);
        f.close();
        if (!ensaya_)
            return corra(p);
        const QString antes = foto();
        p.ensayo = true;
        const Corrida ensayo = corra(p);
        [&] { QCOMPARE(foto(), antes); }();
        p.ensayo = false;
        const Corrida real = corra(p);
        [&] {
            QCOMPARE(rechazos(ensayo.resultado), rechazos(real.resultado));
            QCOMPARE(ensayo.anotado, real.anotado);
            QCOMPARE(ensayo.resultado.resumen(), real.resultado.resumen());
        }();
        return real;
    }
    /// Con `corte`, se detiene después de ese renglón.
    Corrida corra(const PeticionImportacion& p, DiarioImportacion* diario = nullptr,
                  int corte = 0) {
        Corrida c;
        const auto importacion = importacion_de(base_->base(), p, ajustes_, "ADMIN");
        importacion->diario = diario;
        importacion->avance = [&](const QString&, int) { return --corte != 0; };
        importacion->anote = [&](const QString& mensaje, const LlaveComprobante& l) {
            c.anotado << mensaje + "Tipo:" + l.tipo + "Pref:" + l.prefijo + "Num:" + l.numero;
        };
        c.resultado = importacion->corra();
        return c;
    }
    QString foto() {
        return filas("select (select count(*) from cuentas), (select count(*) from terceros), "
                     "(select count(*) from comprobante_encabezado), (select count(*) from "
                     "comprobante_detalle), (select count(*) from saldos_iniciales), (select "
                     "count(*) from auditoria), (select count(*) from prefijos_conta), (select "
                     "list(pref_numero) from prefijos_conta) from rdb$database");
    }
    Corrida comprobantes(const QString& archivo) {
        return importe(ClaseImportacion::Comprobantes, archivo.toLatin1());
    }
    QString filas(const QString& sql) { return filas_de(base_->base(), sql); }
    void configure(const char* propiedad, const QString& valor) {
        base_->base().ejecute("update configuracion set conf_valor = ? where conf_propiedad = ?",
                              {valor, QString::fromUtf8(propiedad)});
    }

    AjustesLibro ajustes_;
    bool ensaya_ = true;
};

// ---------------------------------------------------------------- lectura

void PruebaImportacion::la_maquina_lee_como_se_dijo() {
    const QByteArray larga(300, 'x'), x255(255, 'x');
    const struct {
        QByteArray archivo;
        char separador, delimitador;
        QString leido;
    } casos[] = {
        {"a,b\r\nc,d\r\n", ',', '\0', "a|b\nc|d"},
        {"a;b\nc;d\n", ';', '\0', "a|b\nc|d"}, // salto solo
        {"a\rbc\n", ',', '\0', "a\nc"},        // el retorno se come el que sigue
        {"a\tb,c\n", '\t', '\0', "a|b,c"},
        {"\"a,b\",c\"d\n", ',', '"', "a,b|cd"},
        {"\"a\",b\n", ',', '\0', "\"a\"|b"}, // sin delimitador las comillas son texto
        {"'a,b',c\n", ',', '\'', "a,b|c"},
        {"\"a,\nb\",c\n", ',', '"', "a,\nb,c"}, // el fin corta el texto
        {"a,b\nc,d", ',', '\0', "a|b"},         // sin fin se pierde
        {"\n\na\n", ',', '\0', "\n\na"},
        {larga + ",y\n", ',', '\0', QString(x255 + "|y")},
        {QByteArray(60, ',') + "z\n", ',', '\0', QString(50, '|')}}; // cincuenta y una columnas
    for (const auto& [archivo, separador, delimitador, leido] : casos)
        // De una vez y octeto por octeto: lo mismo.
        for (const qsizetype bloque : {archivo.size(), qsizetype(1)}) {
            QStringList lineas;
            LectorRegistros lector(separador, delimitador, [&](const RegistroLeido& r) {
                QCOMPARE(r.renglon, lineas.size() + 1);
                lineas << QString::fromLatin1(r.columnas.join('|'));
            });
            for (qsizetype i = 0; i < archivo.size(); i += bloque)
                lector.alimente(archivo.mid(i, bloque));
            QCOMPARE(lineas.join('\n'), leido);
        }
}

void PruebaImportacion::un_archivo_de_menos_de_cinco_octetos_o_que_no_abre_se_dice() {
    ensaya_ = false; // la de verdad también se detiene antes de borrar
    const auto falla = [this](const QByteArray& texto, const QString& ruta) {
        try {
            importe(ClaseImportacion::Saldos, texto, [&](PeticionImportacion& p) {
                p.borre_saldos = true;
                if (!ruta.isEmpty())
                    p.archivo = ruta;
            });
        } catch (const ErrorDatos& e) {
            return e.texto();
        }
        return QString();
    };
    base_->base().ejecute("insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values "
                          "(1, '110505', 5)");
    QVERIFY(falla("1,2\n", {}).startsWith("División por cero"));
    QCOMPARE(
        falla("110505,,,,,1\n", base_->ruta()), // una carpeta
        QString("Error al abrir el archivo, asegúrece que el nombre sea correcto y que no esté "
                "abierto en otra aplicación en este momento."));
    QCOMPARE(filas("select count(*) from saldos_iniciales"), "1");
}

void PruebaImportacion::un_archivo_en_unicode_no_se_lee_a_medias() {
    const QByteArray muchas = QByteArray("71,") + QByteArray(64 * 1024 - 4, 'x');
    const struct {
        QByteArray archivo;
        bool entra;
    } casos[] = {
        {"\xEF\xBB\xBF"
         "71,Uno\n",
         false},                              // con marca, aunque no tenga tildes
        {"71,P\xC3\xA9rez\n72,Dos\n", false}, // UTF-8 sin marca
        {muchas + "\xC3\xA9\n", false},       // la letra, partida entre dos bloques
        {QByteArray("\xFF\xFE"
                    "7\0"
                    "1\0",
                    6),
         false},
        {"71,P\xE9rez\n72,\xD1\xBA 5\n", true}, // de un octeto por letra
        {"71,Perez\n", true},
    };
    for (const auto& [archivo, entra] : casos) {
        base_->base().ejecute("delete from terceros where terc_nit in ('71', '72')");
        const QString falla = falla_de([&] { importe(ClaseImportacion::Terceros, archivo); });
        QCOMPARE(falla.startsWith("El archivo está en Unicode"), !entra);
        QCOMPARE(filas("select count(*) from terceros where terc_nit = '71'"), entra ? "1" : "0");
    }
}

void PruebaImportacion::cada_dato_se_lee_o_se_rehusa_por_su_nombre() {
    const struct {
        const char* dato;
        QByteArray texto;
        QString valor, rechazo = {};
    } casos[] = {
        {"CODE_DEBITO", "1234.50", "1234.5"},
        {"CODE_DEBITO", "1234,50", "1234.5"},
        {"CODE_DEBITO", "1.234.567,89", "1234567.89"},
        {"CODE_DEBITO", " 1,234.5 ", "1234.5"},
        {"CODE_DEBITO", "-7", "-7"},
        {"CODE_DEBITO", "", ""},
        {"CODE_DEBITO",
         "1.250",
         {},
         "'1.250' se puede leer de dos maneras en el débito: escriba 1250 o 1.25."},
        {"CODE_DEBITO", "mil", {}, "'mil' no es un número para el débito."},
        {"CODE_DEBITO", "0.005", {}, "'0.005' tiene más de 2 decimales en el débito."},
        {"CODE_DEBITO",
         "99999999999999",
         {},
         "'99999999999999' no cabe en el débito: admite 13 cifras enteras."},
        {"CODE_DEBITO",
         "12345678901234567890",
         {},
         "'12345678901234567890' no cabe en el débito: admite 13 cifras enteras."},
        {"CODE_DEBITO", "0.1234567", {}, "'0.1234567' tiene más de 2 decimales en el débito."},
        {"CODE_PORC",
         "123456789012",
         {},
         "'123456789012' no cabe en el porcentaje: admite 11 cifras enteras."},
        {"ENCO_CONCEPTO",
         QByteArray(255, 'x'),
         {},
         '\'' + QString(30, 'x') + "...' no cabe en el concepto: son 255 caracteres y caben 60."},
        {"CODE_PORC", "2.5", "2.5"},
        {"ENCO_FECHA", "20171301", "20171301"},
        {"ENCO_FECHA", "2017/01/31", {}, "La fecha \"2017/01/31\" debe tener la forma aaaammdd."},
        {"ENCO_FECHA", "20170230", {}, "La fecha 2017/02/30 no existe."},
        {"ENCO_CONCEPTO", "A\xF1o", "Año"},
        {"ENCO_CONCEPTO", "10 \x80\tpesos", QString("10 ") + QChar(0x80) + " pesos"},
        {"TERC_NIT", "9\t1", {}, "Hay un octeto que no es un carácter (9) en el tercero."},
        {"TICO_COD", "L%1GO", {}, "'L%1GO' no cabe en el tipo: son 5 caracteres y caben 3."}};
    for (const auto& caso : casos) {
        const DatoLeido leido =
            lea_dato(*dato_de(ClaseImportacion::Comprobantes, caso.dato), caso.texto);
        QCOMPARE(leido.valor.texto() + leido.rechazo, caso.valor + caso.rechazo);
    }
}

// ---------------------------------------------------------------- catálogos

void PruebaImportacion::las_cuentas_y_los_terceros_que_existen_no_cambian() {
    const auto cuentas =
        importe(ClaseImportacion::Cuentas, "110505,Otro nombre\n"
                                           ",Sin código\n"
                                           "11,Disponible\n"
                                           "112005,Ahorros,S,N,N,,,,,X\n"
                                           "112005,Hu\xE9rfana\n"
                                           "1120,Cuentas de ahorro,,,,,,,,\n"
                                           "112010,Mal equivalente,N,N,N,,,,999999,N\n"
                                           "112005,Bancos ahorro,S,N,N,777777,112015,N,110505,N\n"
                                           "112015,Otra de ahorro,S\n"
                                           "112005,Repetida\n");
    QCOMPARE(rechazos(cuentas.resultado),
             "4|112005,Ahorros,S,N,N,,,,,X|'X' no vale en \"la clase de cuenta\": debe ser "
             "una de N, I, C, A.\n"
             "5|112005,Huérfana|No existe la cuenta 1120, de nivel superior a la 112005.\n"
             "7|112010,Mal equivalente,N,N,N,,,,999999,N|La cuenta NIIF 999999 no existe.");
    QCOMPARE(cuentas.resultado.grabados, 3);
    QCOMPARE(cuentas.resultado.omitidos, 4);
    QCOMPARE(cuentas.resultado.avisos,
             QStringList("La cuenta 777777 no existe: es la de ajuste de la 112005."));
    QCOMPARE(filas("select cuen_nom, cuen_tercero, cuen_tipo, cuen_afectable, cuen_activa from "
                   "cuentas where cuen_cod in ('110505', '1120', '112005') order by cuen_cod"),
             "Caja general|N|N|S|S\nCuentas de ahorro|N|N|N|S\nBancos ahorro|S|N|S|S");

    const auto terceros = importe(ClaseImportacion::Terceros,
                                  "900123456,Otro nombre\n"
                                  "71,,Calle 1,,Medell\xEDn,,,,,,n,P\xE9rez,G\xF3mez,Ana,,S\n"
                                  "72,Sin ciudad,,,Macondo\n"
                                  "73,,,,,,,,,,,Solo\n"
                                  ",Sin NIT\n"
                                  "74,,,,,,,,,,, ,,,\n"
                                  "76,Raro,,,,,,,,,Z\n"
                                  "75,Sin fin");
    QCOMPARE(terceros.resultado.omitidos, 2);
    QCOMPARE(rechazos(terceros.resultado),
             "6|74,,,,,,,,,,, ,,,|El tercero 74 no trae nombre ni apellidos.\n"
             "7|76,Raro,,,,,,,,,Z|El tipo de identificación Z no existe: valen " +
                 filas("select list(trim(tiid_cod), ', ') from (select tiid_cod from tipo_id order "
                       "by tiid_nom)") +
                 ", como en la ficha del tercero.");
    QCOMPARE(terceros.resultado.avisos,
             QStringList({"Ciudad no encontrada 'Macondo': el tercero 72 entró sin ella.",
                          "El último renglón no termina en fin de línea y no entró: 75,Sin fin"}));
    QCOMPARE(terceros.anotado.first(), terceros.resultado.avisos[0] + "Tipo:Pref:Num:");
    QCOMPARE(terceros.anotado.size(), 4);
    QCOMPARE(filas("select terc_tipoid from terceros where terc_nit = '71'"), "N");
    QCOMPARE(filas("select coalesce(ciud_cod, '-') from terceros where terc_nit = '72'"), "-");
    QCOMPARE(filas("select terc_nom, terc_clie, terc_prov, ciud_cod, terc_estado from terceros "
                   "where terc_nit in ('900123456', '71') order by terc_nit desc"),
             filas("select terc_nom, terc_clie, terc_prov, ciud_cod, terc_estado from terceros "
                   "where terc_nit = '900123456'") +
                 "\nPérez Gómez Ana|S|N|05001|S");
    QCOMPARE(filas("select '[' || terc_nom || ']' from terceros where terc_nit = '73'"), "[Solo ]");
}

void PruebaImportacion::la_ciudad_se_reconoce_como_se_escribe_y_el_nit_lleva_su_digito() {
    for (const char* ciudad : {"'11001', 'Bogotá, D.C.'", "'13001', 'Cartagena de Indias'",
                               "'18150', 'Cartagena del Chairá'", "'54001', 'San José de Cúcuta'",
                               "'76111', 'Guadalajara de Buga'", "'76113', 'Bugalagrande'",
                               "'63001', 'Armenia'", "'05059', 'Armenia (Antioquia)'",
                               "'05079', 'Barbosa (Antioquia)'", "'68077', 'Barbosa (Santander)'"})
        base_->base().ejecute(
            QStringLiteral("update or insert into ciudades (ciud_cod, ciud_nom) values (%1)")
                .arg(QString::fromUtf8(ciudad)));
    const std::pair<const char*, const char*> casos[] = {{"Bogotá", "11001"},
                                                         {"BOGOTA DC", "11001"},
                                                         {"bogotá d.c.", "11001"},
                                                         {"Cartagena", "13001"},
                                                         {"Cartagena del Chaira", "18150"},
                                                         {"Cúcuta", "54001"},
                                                         {"Buga", "76111"},
                                                         {"Armenia", "63001"},
                                                         {"Armenia Antioquia", "05059"},
                                                         {"Barbosa", "-"},
                                                         {"Bog", "-"},
                                                         {".", "-"}};
    QString archivo;
    int nit = 700;
    for (const auto& [nombre, codigo] : casos)
        archivo += QStringLiteral("%1,Uno,,,%2\n").arg(++nit).arg(QString::fromUtf8(nombre));
    const auto c = importe(ClaseImportacion::Terceros, archivo.toLatin1());
    QCOMPARE(c.resultado.avisos.size(), 3);
    nit = 700;
    for (const auto& [nombre, codigo] : casos)
        QCOMPARE(filas(QStringLiteral("select coalesce(ciud_cod, '-') from terceros where terc_nit "
                                      "= '%1'")
                           .arg(++nit)),
                 codigo);
    // El dígito, como en la pantalla: si los NIT son de solo cifras.
    const auto con = [](bool digito) {
        return [digito](PeticionImportacion& p) { p.digito_de_verificacion = digito; };
    };
    importe(ClaseImportacion::Terceros, "800197268,DIAN\nX7,Letras\n1234567890123456,Largo\n",
            con(true));
    importe(ClaseImportacion::Terceros, "800197269,Otro\n", con(false));
    QCOMPARE(filas("select list(coalesce(terc_dv, '-')) from (select terc_dv from terceros where "
                   "terc_nit in ('800197268', '800197269', 'X7', '1234567890123456') order by "
                   "terc_nit)"),
             "-,4,-,-");
}

void PruebaImportacion::las_cuentas_niif_unen_su_equivalente() {
    base_->base().ejecute("update cuentas set cuen_eqniif = null where cuen_cod = '519530'");
    const auto c = importe(ClaseImportacion::Cuentas, "519595,Gastos varios,N,N,N,,,,519530,N\n",
                           [](PeticionImportacion& p) { p.niif = true; });
    QVERIFY2(c.resultado.rechazados.isEmpty(), qPrintable(rechazos(c.resultado)));
    QCOMPARE(filas("select cuen_eqniif from cuentas where cuen_cod = '519530'"), "519595");
    QCOMPARE(filas("select count(*) from cuentas where cuen_cod = '519595'"), "0");
}

// ---------------------------------------------------------------- comprobantes

void PruebaImportacion::las_reglas_de_las_lineas() {
    const QString faltan = "Faltan detalles (tercero/proy/centro) para la cuenta ", sin = ",,,,,";
    // La línea de la regla, que otra en caja cuadra: cuenta, lo que trae y lo que se anota.
    const QString casos[][3] = {
        {"999999", sin, "Cuenta incorrecta."}, // no existe
        {"1105", sin, "Cuenta incorrecta."},   // es mayor
        {"110510", sin, "Cuenta incorrecta."}, // está inactiva
        {"130505", sin, faltan + "130505"},    // tercero
        {"413505", sin, faltan + "413505"},    // proyecto y centro
        {"413505", ",,0001,,,", faltan + "413505"},
        {"236540", ",,,,1000000,2.5", faltan + "236540"}, // tercero, base y porcentaje
        {"236540", "800456789,,,,,2.5", faltan + "236540"},
        {"236540", "800456789,,,,0,2.5", faltan + "236540"},
        {"236540", "800456789,,,,1000000,", faltan + "236540"},
        {"143505", sin, faltan + "143505"}, // artículo
        {"110505", "1,,,,,", "NIT no encontrado 1"},
        {"110505", "19876543,,,,,", "NIT no encontrado 19876543"}, // inactivo
        {"413505", ",0001,0009,,,", "Proyecto-centro no encontrado 0001-0009"}};
    for (const auto& [cuenta, resto, anotado] : casos) {
        // La línea no entra, y sin ella el comprobante no cuadra: no entra nada.
        const auto c = comprobantes(renglon("000001", cuenta, "100", "", resto) +
                                    renglon("000001", "110505", "", "100"));
        QCOMPARE(c.anotado.value(0), anotado + "Tipo:CGPref:0001Num:000001");
        QCOMPARE(c.resultado.rechazados.size(), 2);
        QCOMPARE(c.resultado.rechazados[0].razon, anotado);
        QVERIFY(c.resultado.rechazados[1].razon.contains("descuadrado"));
        QCOMPARE(filas("select count(*) from comprobante_encabezado"), "0");
    }
    const auto buena = comprobantes(renglon("000001", "111005", "100", "") +
                                    renglon("000001", "110505", "", "100"));
    QCOMPARE(buena.anotado, QStringList());
    QCOMPARE(buena.resultado.grabados, 2);
    QCOMPARE(filas("select cuen_cod, code_debito, code_credito, code_item from comprobante_detalle "
                   "order by code_item"),
             "111005|100|0|1\n110505|0|100|2");
    QCOMPARE(filas("select enco_concepto, enco_refer, enco_tiporef, enco_usuario, enco_fecha from "
                   "comprobante_encabezado"),
             "Traído|R1|0|ADMIN|20170315");
    QCOMPARE(saldos_distintos(base_->base()), QString());
}

void PruebaImportacion::los_comprobantes_se_juntan_por_su_llave() {
    const QString uno = renglon("1", "110505", "10", "") + renglon("000001", "111005", "", "10");
    const auto c =
        comprobantes(uno + renglon("2", "110505", "5", "4") + "\n" +
                     renglon("3", "110505", "7", "") + renglon("3", "", "", "7") +
                     renglon("00000001", "110505", "1.50", "") + renglon("1", "111005", "", "1.5") +
                     "XX,0001,000001,20170101,,,110505,,,,,,,0,0\n"
                     "RC,0009,44,20170101,,,110505,,,,,,,9,9\n");
    QCOMPARE(
        rechazos(c.resultado),
        QString("3|%1|Comprobante descuadrado.\n"
                "5|%2|No puede grabar un comprobante descuadrado: débitos 7.00, créditos 0.00\n"
                "6|%3|La línea no trae cuenta.\n"
                "9|XX,0001,000001,20170101,,,110505,,,,,,,0,0|El tipo de comprobante XX no "
                "existe.")
            .arg(renglon("2", "110505", "5", "4").trimmed(),
                 renglon("3", "110505", "7", "").trimmed(), renglon("3", "", "", "7").trimmed()));
    QCOMPARE(c.resultado.leidos, 10);
    QCOMPARE(c.resultado.grabados, 5);
    QCOMPARE(c.resultado.omitidos, 1);
    QCOMPARE(filas("select e.tico_cod, e.prco_pref, e.enco_numero, d.code_item, d.code_debito from "
                   "comprobante_encabezado e join comprobante_detalle d on d.enco_consec = "
                   "e.enco_consec order by 1, 3, 4"),
             "CG|0001|000001|1|10\nCG|0001|000001|2|0\nCG|0001|000001|3|1.5\n"
             "CG|0001|000001|4|0\nRC|0009|000044|1|9");
    QCOMPARE(filas("select prco_auto, prco_activo from prefijos_conta where tico_cod = 'RC' and "
                   "prco_pref = '0009'"),
             "N|S");
    // Una línea mala en el segundo tramo no toca lo que ya estaba.
    const auto otra = comprobantes(renglon("1", "110505", "3", ""));
    QCOMPARE(otra.resultado.rechazados.size(), 1);
    QCOMPARE(filas("select count(*) from comprobante_detalle"), "5");
    // Un renglón vacío es de una llave en blanco: separa dos comprobantes.
    QCOMPARE(comprobantes(renglon("7", "110505", "8", "") + '\n' + renglon("7", "111005", "", "8"))
                 .resultado.resumen(),
             "Leídos 3, grabados 0, rechazados 2, omitidos 1");
    // Noventa y tres veces el mayor importe no caben en una suma: los otros comprobantes siguen.
    const auto grande =
        comprobantes(renglon("11", "110505", "9999999999999.99", "").repeated(93) +
                     renglon("12", "110505", "6", "") + renglon("12", "111005", "", "6"));
    QCOMPARE(grande.resultado.grabados, 2);
    QCOMPARE(grande.resultado.rechazados.size(), 93);
    QCOMPARE(grande.resultado.rechazados[92].razon, "El comprobante suma más de lo que cabe.");
    // En fecha bloqueada no entra, ni nuevo ni agregado.
    base_->base().ejecute("update configuracion set conf_valor = '2017/12/31' where conf_propiedad "
                          "= 'FECHA DE BLOQUEO'");
    const auto cerrado = comprobantes(uno + renglon("9", "110505", "0", "0"));
    QCOMPARE(cerrado.resultado.grabados, 0);
    QVERIFY(cerrado.resultado.rechazados[0].razon.startsWith("La contabilidad esta bloqueada a:"));
    QCOMPARE(saldos_distintos(base_->base()), QString());
}

void PruebaImportacion::al_libro_niif_entra_solo_en_el() {
    const QByteArray archivo =
        (renglon("1", "110505", "10", "") + renglon("1", "111005", "", "10")).toLatin1();
    const auto en_niif = [](PeticionImportacion& p) { p.niif = true; };
    const QString cuantas = "select (select count(*) from comprobante_detalle), (select count(*) "
                            "from comprobante_detalle_niif), (select count(*) from "
                            "comprobante_encabezado) from rdb$database";
    QCOMPARE(importe(ClaseImportacion::Comprobantes, archivo, en_niif).resultado.grabados, 2);
    QCOMPARE(filas(cuantas), "0|2|1");
    // El mismo comprobante recibe después sus líneas 2649, numeradas desde uno.
    QCOMPARE(importe(ClaseImportacion::Comprobantes, archivo).resultado.grabados, 2);
    QCOMPARE(filas(cuantas), "2|2|1");
    QCOMPARE(filas("select list(code_item) from comprobante_detalle"), "1,2");
    QCOMPARE(saldos_distintos(base_->base()), QString());
}

void PruebaImportacion::si_se_permite_entra_descuadrado() {
    base_->base().ejecute("update or insert into configuracion (conf_modulo, conf_categoria, "
                          "conf_propiedad, conf_valor) values ('CONTABILIDAD', 'GENERAL', "
                          "'PERMITIR COMPROBANTES DESCUADRADOS', 'SI') matching (conf_modulo, "
                          "conf_categoria, conf_propiedad)");
    ajustes_.permite_descuadre = true;
    const QString archivo = renglon("1", "110505", "10", "") + renglon("1", "999999", "", "10") +
                            renglon("2", "110505", "5", "4");
    const auto c = comprobantes(archivo);
    QCOMPARE(c.resultado.grabados, 2);
    QCOMPARE(c.resultado.rechazados.size(), 1);
    QCOMPARE(filas("select enco_consec, sum(code_debito), sum(code_credito) from "
                   "comprobante_detalle group by 1 order by 1"),
             QString("%1|10|0\n%2|5|4")
                 .arg(filas("select min(enco_consec) from comprobante_encabezado"),
                      filas("select max(enco_consec) from comprobante_encabezado")));
}

// ---------------------------------------------------------------- saldos

void PruebaImportacion::los_saldos_iniciales_se_agregan_o_se_reemplazan() {
    const QByteArray archivo = "110505,,,,,100,\n"
                               "999999,,,,,1,\n"
                               "1105,,,,,1,\n"
                               "130505,,,,,1,\n"
                               "130505,5,,,,1,\n"
                               "413505,,0001,,,1,\n"
                               "143505,,,,,1,\n"
                               "413505,,0001,0009,,1,\n"
                               "236540,800456789,,,,,40\n"
                               "310505,,,,,,60,FV1,20170231\n"
                               "310505,,,,,,60,FV1,20170228,31\n"
                               "310505,,,,,,60,FV1,20170228,999\n"
                               "310505,,,,,10,10\n";
    const auto c = importe(ClaseImportacion::Saldos, archivo);
    QCOMPARE(c.anotado.join('\n').remove("Tipo:Pref:Num:"),
             "Cuenta no existente 999999\nCuenta no afectable.\n"
             "Faltan detalles para el saldo inicial de la cuenta 130505\n"
             "NIT no encontrado 5\n"
             "Faltan detalles para el saldo inicial de la cuenta 413505\n"
             "Faltan detalles para el saldo inicial de la cuenta 143505\n"
             "Proyecto-centro no encontrado 0001-0009\nLa fecha 2017/02/31 no existe.\n"
             "El tipo de documento 999 no existe: los de cartera y cuentas por pagar son " +
                 filas("select list(tido_cod, ', ') from (select tido_cod from tipo_documento "
                       "where 'S' in (tido_cart, tido_cxp) order by tido_cod)") +
                 ".\nEl saldo es débito o crédito, y no los dos.");
    QCOMPARE(filas("select cuen_cod, sain_debito, sain_credito, doco_vence, sain_tipodoc from "
                   "saldos_iniciales order by sain_item"),
             "110505|100|0||\n236540|0|40||\n310505|0|60|20170228|31");
    importe(ClaseImportacion::Saldos, archivo);
    QCOMPARE(filas("select count(*), sum(sain_debito) from saldos_iniciales"), "6|200");
    importe(ClaseImportacion::Saldos, archivo,
            [](PeticionImportacion& p) { p.borre_saldos = true; });
    QCOMPARE(filas("select count(*), sum(sain_debito) from saldos_iniciales"), "3|100");
    for (const bool borre : {false, false, true}) {
        importe(ClaseImportacion::Saldos, archivo, [borre](PeticionImportacion& p) {
            p.niif = true;
            p.borre_saldos = borre;
        });
        if (!borre)
            continue;
        QCOMPARE(filas("select (select count(*) from saldos_iniciales_niif), (select count(*) from "
                       "saldos_iniciales) from rdb$database"),
                 "3|3");
    }
    QCOMPARE(saldos_distintos(base_->base()), QString());
    // Otro digita saldos mientras tanto: no se toman su número. Otra importación no comienza.
    PeticionImportacion p;
    p.clase = ClaseImportacion::Saldos;
    p.archivo = base_->ruta() + "/entrada.txt";
    p.columnas = columnas(p.clase);
    p.borre_saldos = true;
    Conexion otra;
    otra.conectar(base_->parametros());
    const auto una = importacion_de(base_->base(), p, {}, "ADMIN");
    QString rehusada;
    una->avance = [&](const QString&, int) {
        if (rehusada.isEmpty()) {
            otra.ejecute("insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, "
                         "sain_credito) values (99, '111005', 1, 1)");
            rehusada = falla_de([&] { (void)importacion_de(otra, p, {}, "AUXILIAR")->corra(); });
        }
        return true;
    };
    QCOMPARE(una->corra().grabados, qint64(3));
    QVERIFY2(rehusada.startsWith("Otro usuario está importando saldos"), qPrintable(rehusada));
    QCOMPARE(filas("select count(*), sum(sain_debito), sum(sain_credito) from saldos_iniciales"),
             "4|101|101");
}

void PruebaImportacion::los_saldos_que_reemplazan_entran_todos_o_ninguno() {
    ensaya_ = false;
    const QByteArray bueno = "110505,,,,,70,\n310505,,,,,,50\n999999,,,,,1,\n";
    const auto borre = [](PeticionImportacion& p) { p.borre_saldos = true; };
    const auto quedan = [&] { return filas("select list(sain_debito) from saldos_iniciales"); };
    base_->base().ejecute("insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values "
                          "(9, '111005', 5)");
    // Esc a la mitad, o un archivo en el que nada sirve: siguen los de antes.
    PeticionImportacion p;
    p.clase = ClaseImportacion::Saldos;
    p.archivo = base_->ruta() + "/entrada.txt";
    p.columnas = columnas(p.clase);
    p.borre_saldos = true;
    QFile f(p.archivo);
    QVERIFY(f.open(QIODevice::WriteOnly) && f.write(bueno) > 0);
    f.close();
    auto una = importacion_de(base_->base(), p, {}, "ADMIN");
    int vistos = 0;
    for (const bool se_cae : {false, true}) {
        vistos = 0;
        una->avance = [&](const QString&, int) {
            if (++vistos == 2 && se_cae)
                throw ErrorBase({ClaseFalla::ConexionPerdida}, "Se cayó");
            return vistos < 2;
        };
        const ResultadoImportacion detenida = una->corra();
        QVERIFY(detenida.cancelada && detenida.siguen_los_anteriores);
        QCOMPARE(detenida.falla ? detenida.falla->texto() : QString(), se_cae ? "Se cayó" : "");
        QCOMPARE(detenida.grabados, 0);
        una = importacion_de(base_->base(), p, {}, "ADMIN");
    }
    una.reset(); // suelta el turno
    QCOMPARE(quedan(), "5.00");
    const auto nada = importe(ClaseImportacion::Saldos, "999999,,,,,1,\n1105,,,,,2,\n", borre);
    QCOMPARE(nada.resultado.resumen(), "Leídos 2, grabados 0, rechazados 2, omitidos 0; los saldos "
                                       "anteriores siguen como estaban");
    QCOMPARE(quedan(), "5.00");
    const auto si = importe(ClaseImportacion::Saldos, bueno, borre);
    QCOMPARE(si.resultado.resumen(),
             "Leídos 3, grabados 2, rechazados 1, omitidos 0; saldos iniciales: débitos 70.00, "
             "créditos 50.00, descuadrados por 20.00");
    QCOMPARE(quedan(), "70.00,0.00");
    // Con el mes de inicio cerrado no se lee nada.
    configure("FECHA DE BLOQUEO NIIF", "20171231");
    for (const bool niif : {false, true}) {
        const QString falla = falla_de([&] {
            importe(ClaseImportacion::Saldos, bueno, [&](PeticionImportacion& q) {
                q.niif = niif;
                q.borre_saldos = true;
            });
        });
        QCOMPARE(falla, niif ? "La contabilidad esta bloqueada a: 2017/12/31 (libro NIIF). Los "
                               "saldos iniciales no se pueden cambiar."
                             : "(entró)");
    }
    QCOMPARE(saldos_distintos(base_->base()), QString());
}

// ---------------------------------------------------------------- ensayo y rechazados

void PruebaImportacion::el_ensayo_no_escribe_y_da_la_misma_lista() {
    // Lo que el ensayo debe suponer: lo anterior del mismo archivo ya entró, o no.
    const std::pair<ClaseImportacion, QByteArray> casos[] = {
        {ClaseImportacion::Cuentas, "112005,Sin mayor\n1120,Mayor\n112005,Buena\n110505,Ya\n"
                                    "1120A5,Letras\n11200501,Auxiliar\n"},
        {ClaseImportacion::Terceros,
         "1,Uno\n1,Otra vez\n2,,,,Macondo\n3\n4,Cuatro,,,,,,,,,,,,,,X\n"},
        {ClaseImportacion::Comprobantes,
         (renglon("1", "110505", "10", "") + renglon("1", "111005", "", "10") +
          renglon("2", "110505", "5", "4") + renglon("1", "110505", "3", "") +
          renglon("1", "111005", "", "3") + renglon("1234567", "110505", "1", "1") +
          "RC,0009,7,20170101,,,110505,,,,,,,9,9\n" + "RC,0009,8,20170101,,,110505,,,,,,,9,8\n" +
          "RC,0002,8,20171501,,,110505,,,,,,,9,9\n" + "NC,0001,8,20170101,,,110505,,,,,,,9,9\n")
             .toLatin1()},
        {ClaseImportacion::Saldos, "110505,,,,,100,\n1105,,,,,1,\n110505,,,,,,x\n"}};
    for (const auto& [clase, archivo] : casos) {
        const Corrida real = importe(clase, archivo);
        QVERIFY(!real.resultado.rechazados.isEmpty() && real.resultado.grabados > 0);
    }
}

void PruebaImportacion::los_rechazados_corregidos_entran_al_leerlos_otra_vez() {
    const auto c =
        comprobantes(renglon("1", "110505", "10", "") + renglon("1", "111006", "", "10") +
                     renglon("2", "110505", "5", "5"));
    QCOMPARE(c.resultado.grabados, 1);
    const QString ruta = base_->ruta() + "/rechazados.txt";
    Tfrechazosimp::grabe(c.resultado.rechazados, ruta);
    QFile f(ruta);
    QVERIFY(f.open(QIODevice::ReadOnly));
    const auto otra =
        importe(ClaseImportacion::Comprobantes, f.readAll().replace("111006", "111005"));
    QCOMPARE(rechazos(otra.resultado), QString());
    QCOMPARE(otra.resultado.grabados, 2);
    // Leer dos veces lo mismo lo dobla, y se dice.
    QCOMPARE(comprobantes(renglon("2", "110505", "5", "5")).resultado.resumen(),
             "Leídos 1, grabados 1, rechazados 0, omitidos 0; agregados a comprobantes que ya "
             "estaban: 1");
}

void PruebaImportacion::una_importacion_cortada_sigue_donde_iba() {
    ensaya_ = false;
    const auto pareja = [](const char* numero) {
        return renglon(numero, "110505", "10", "") + renglon(numero, "111005", "", "10");
    };
    const QString ruta = base_->ruta(),
                  archivo = pareja("1") + renglon("2", "110505", "5", "4") +
                            renglon("3", "110505", "7", "") + renglon("3", "", "", "7") +
                            pareja("4") + renglon("5", "110505", "1", "1") + pareja("1") +
                            renglon("6", "110505", "1", "1"),
                  sql = "select e.enco_numero, d.code_item, d.code_debito from "
                        "comprobante_encabezado e join comprobante_detalle d on d.enco_consec = "
                        "e.enco_consec order by 1, 2";
    const QString rechazados = rechazos(comprobantes(archivo).resultado), completo = filas(sql);
    PeticionImportacion p;
    p.clase = ClaseImportacion::Comprobantes;
    p.archivo = ruta + "/entrada.txt";
    p.columnas = columnas(p.clase);
    enum { Anotado, SinAnotar, SinGrabar }; // lo que pasó con el último antes de morir
    for (const int corte : {1, 3, 6, 8, 9, 11})
        for (const int ultimo : {Anotado, SinAnotar, SinGrabar}) {
            for (const char* tabla : {"comprobante_detalle", "comprobante_encabezado"})
                base().ejecute(QStringLiteral("delete from ") + tabla);
            DiarioImportacion primero(ruta, "base", Libro::Decreto2649, p.archivo);
            const auto cuadra = [](const ResultadoImportacion& r) {
                return r.leidos == r.grabados + r.rechazados.size() + r.omitidos + r.de_antes;
            };
            const ResultadoImportacion cortada = corra(p, &primero, corte).resultado;
            QVERIFY(cortada.cancelada && cuadra(cortada));
            QFile f(primero.ruta());
            QVERIFY(f.open(QIODevice::ReadWrite));
            const QByteArray anotado = f.readAll();
            const qsizetype grabado = anotado.lastIndexOf("\nE\t");
            if (ultimo != Anotado && grabado > 0 && !anotado.mid(grabado).contains("\nR")) {
                f.resize(grabado + 3); // quedó a medias
                const QList<QByteArray> v =
                    anotado.mid(anotado.lastIndexOf("\nV\t", grabado) + 1).split('\t');
                if (ultimo == SinGrabar)
                    base().ejecute("delete from comprobante_detalle d where code_item > ? and "
                                   "enco_consec = (select enco_consec from comprobante_encabezado "
                                   "where enco_numero = ?)",
                                   {v[2].toInt(), QString(v[5].left(6))});
                base().ejecute("delete from comprobante_encabezado e where not exists (select 1 "
                               "from comprobante_detalle where enco_consec = e.enco_consec)");
            }
            f.close();
            DiarioImportacion segundo(ruta, "base", Libro::Decreto2649, p.archivo);
            if (const auto anterior = segundo.anterior(base()))
                segundo.siga(*anterior);
            const Corrida c = corra(p, &segundo);
            QCOMPARE(filas(sql), completo);
            QCOMPARE(rechazos(c.resultado), rechazados);
            QVERIFY(cuadra(c.resultado));
            QVERIFY(c.resultado.agregados == 0 && !f.exists());
        }
}

// ---------------------------------------------------------------- volumen y basura

void PruebaImportacion::cien_mil_renglones_dejan_los_saldos_que_suma_el_archivo() {
    QRandomGenerator azar = azar_de_prueba(1213);
    const QStringList cuentas{"110505", "111005", "220505", "310505", "240805", "152405"};
    QMap<QString, QPair<qint64, qint64>> sumas; // cuenta y mes: centavos
    QByteArray archivo;
    for (int numero = 1; numero <= 10000; ++numero) {
        const int mes = 1 + int(azar.bounded(12));
        qint64 neto = 0;
        for (int linea = 0; linea < 10; ++linea) {
            const QString cuenta = cuentas[int(azar.bounded(6))];
            const qint64 valor = linea == 9 ? qAbs(neto) : 1 + qint64(azar.bounded(9999999));
            const bool debito = linea == 9 ? neto < 0 : azar.bounded(2) == 0;
            neto += debito ? valor : -valor;
            auto& s = sumas[QStringLiteral("%1|%2").arg(cuenta).arg(mes)];
            (debito ? s.first : s.second) += valor;
            const QString importe =
                QStringLiteral("%1.%2").arg(valor / 100).arg(valor % 100, 2, 10, QChar('0'));
            archivo += QStringLiteral("CG,0001,%1,2017%2%3,,,%4,%5,,,,,,%6,%7\r\n")
                           .arg(numero)
                           .arg(mes, 2, 10, QChar('0'))
                           .arg(1 + numero % 28, 2, 10, QChar('0'))
                           .arg(cuenta, cuenta == "220505" ? "800456789" : "",
                                debito ? importe : "", debito ? "" : importe)
                           .toLatin1();
        }
    }
    ensaya_ = false;
    const Corrida c = importe(ClaseImportacion::Comprobantes, archivo);
    QVERIFY2(c.resultado.rechazados.isEmpty(), qPrintable(rechazos(c.resultado).left(500)));
    QCOMPARE(c.resultado.grabados, 100000);
    QStringList esperado;
    for (auto i = sumas.cbegin(); i != sumas.cend(); ++i)
        esperado << QStringLiteral("%1|%2|%3")
                        .arg(i.key(), Moneda::de_escalado(i->first, 2).texto(),
                             Moneda::de_escalado(i->second, 2).texto());
    QStringList hallado;
    const auto cursor =
        base_->base().abra("select cuen_cod, sald_mes, sum(sald_debito), "
                           "sum(sald_credito) from vista_saldos_cuenta group by 1, 2");
    while (cursor->siguiente())
        hallado << QStringLiteral("%1|%2|%3|%4")
                       .arg(cursor->valor(0).texto(), cursor->valor(1).texto(),
                            cursor->valor(2).moneda().texto(), cursor->valor(3).moneda().texto());
    esperado.sort();
    hallado.sort();
    QCOMPARE(hallado, esperado);
}

void PruebaImportacion::diez_mil_archivos_mutados_no_tumban_nada() {
    QRandomGenerator azar = azar_de_prueba(1213);
    const QByteArray bueno =
        (renglon("1", "110505", "10", "") + renglon("1", "\"111005\"", "", "10") +
         renglon("2", "130505", "5", "", "900123456,,,,,") + renglon("2", "413505", "", "5"))
            .toLatin1();
    const QString ajenas =
        "select (select count(*) from cuentas), (select count(*) from terceros), "
        "(select count(*) from saldos_iniciales), (select count(*) from "
        "comprobante_detalle_niif) from rdb$database";
    const QString antes = filas(ajenas);
    int con_base = 0;
    for (int vuelta = 0; vuelta < 10000; ++vuelta) {
        QByteArray archivo = bueno;
        for (int golpes = 1 + int(azar.bounded(6)); golpes > 0; --golpes) {
            const int donde = int(azar.bounded(int(archivo.size())));
            switch (azar.bounded(4)) {
            case 0:
                archivo[donde] = char(azar.bounded(256));
                break;
            case 1:
                archivo.insert(donde, QByteArray(int(azar.bounded(400)), char(azar.bounded(256))));
                break;
            case 2:
                archivo.remove(donde, 1 + int(azar.bounded(40)));
                break;
            default:
                archivo.insert(donde, "\r\n,;\"'\t"[azar.bounded(7)]);
            }
            if (archivo.size() < 5)
                archivo = bueno;
        }
        // Todos por la máquina; uno de cada diez, hasta la base.
        qint64 registros = 0;
        LectorRegistros lector(',', '"', [&](const RegistroLeido& r) {
            ++registros;
            QVERIFY(r.columnas.size() <= LectorRegistros::kColumnas);
            for (const QByteArray& c : r.columnas)
                QVERIFY(c.size() <= LectorRegistros::kOctetosColumna);
        });
        lector.alimente(archivo);
        QCOMPARE(registros, lector.renglones());
        if (vuelta % 10 != 0)
            continue;
        ++con_base;
        ensaya_ = vuelta % 100 == 0;
        const Corrida c = importe(ClaseImportacion::Comprobantes, archivo,
                                  [](PeticionImportacion& p) { p.delimitador = '"'; });
        QCOMPARE(c.resultado.leidos, registros);
        QCOMPARE(c.resultado.grabados + c.resultado.omitidos + c.resultado.rechazados.size(),
                 c.resultado.leidos);
    }
    QCOMPARE(con_base, 1000);
    QCOMPARE(filas(ajenas), antes);
    QCOMPARE(filas("select enco_consec from comprobante_detalle group by 1 having "
                   "sum(code_debito) <> sum(code_credito)"),
             QString());
    QCOMPARE(saldos_distintos(base_->base()), QString());
}

QTEST_GUILESS_MAIN(PruebaImportacion)
#include "prueba_importacion.moc"
