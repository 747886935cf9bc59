#pragma once
// Documentos e interfaces escritos como texto, y el comprobante que sale de ellos también.
//
// Una línea de documento: "CONCEPTO:CLASE VALOR n=niif b=base p=porcentaje t=nit c=proyecto-centro
// a=artículo x=tipo-número d=detalle", separadas por ';'. Una regla: "CONCEPTO:CLASE CUENTA LADO
// letras", con las letras t tercero, c centro, a artículo, b base, n abre, x se aplica. Un renglón
// de comprobante: "CUENTA LADO VALOR t= c= a= b= p= o=número-que-abre x=".

struct DocumentoPrueba {
    int tipo = 0;
    QString lineas;
    QString numero = QStringLiteral("000001"), fecha = QStringLiteral("2017-03-15"), nit = {},
            centro = {}, prefijo = QStringLiteral("0000"), vence = {};
    int banco = 0;
    QString contado = QStringLiteral("N");
};

inline QStringList partes_de(const QString& texto, QChar separador) {
    QStringList partes;
    for (const QString& p : texto.split(separador, Qt::SkipEmptyParts))
        if (!p.trimmed().isEmpty())
            partes << p.simplified();
    return partes;
}

/// Los datos "k=valor" de una línea; un dato de dos palabras lleva '_' por blanco.
inline QHash<QString, QString> datos_de(const QStringList& palabras) {
    QHash<QString, QString> datos;
    for (const QString& p : palabras)
        if (const auto igual = p.indexOf('='); igual > 0)
            datos[p.left(igual)] = p.mid(igual + 1).replace('_', ' ');
    return datos;
}

inline Valor valor_o_nulo(const QString& texto) {
    return texto.isEmpty() ? Valor() : Valor(texto);
}

/// Registra el documento y devuelve su id.
inline int registre(Conexion& c, const DocumentoPrueba& d) {
    Transaccion t(c, Transaccion::Modo::Escritura);
    const QString proyecto = d.centro.section('-', 0, 0), centro = d.centro.section('-', 1);
    const int id = int(
        c.prepare("insert into documento (tido_cod, pref_pre, docu_numero, docu_fecha, docu_vence, "
                  "docu_concepto, terc_nit, proy_cod, cent_cod, cuba_cod, docu_contado) values "
                  "(?,?,?,?,?,'Prueba',?,?,?,?,?) returning docu_id",
                  t)
            ->ejecute_con_salida(
                t, {d.tipo, d.prefijo, d.numero, Valor(QDate::fromString(d.fecha, Qt::ISODate)),
                    d.vence.isEmpty() ? Valor() : Valor(QDate::fromString(d.vence, Qt::ISODate)),
                    valor_o_nulo(d.nit), valor_o_nulo(proyecto), valor_o_nulo(centro), d.banco,
                    d.contado})
            .front()
            .entero());
    const auto linea = c.prepare(
        "insert into documento_linea (tido_cod, docu_id, doli_concepto, doli_clase, doli_valor, "
        "doli_valorniif, doli_base, doli_porc, terc_nit, proy_cod, cent_cod, arti_cod, "
        "doli_detalle, doli_tipoapl, doli_aplica) values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
        t);
    for (const QString& texto : partes_de(d.lineas, ';')) {
        const QStringList palabras = texto.split(' ');
        auto k = datos_de(palabras);
        linea->ejecute(
            t, {d.tipo, id, palabras[0].section(':', 0, 0), palabras[0].section(':', 1),
                Moneda::de_texto(palabras[1]), valor_o_nulo(k["n"]), valor_o_nulo(k["b"]),
                valor_o_nulo(k["p"]), valor_o_nulo(k["t"]), valor_o_nulo(k["c"].section('-', 0, 0)),
                valor_o_nulo(k["c"].section('-', 1)), valor_o_nulo(k["a"]), valor_o_nulo(k["d"]),
                valor_o_nulo(k["x"].section('-', 0, 0)), valor_o_nulo(k["x"].section('-', 1))});
    }
    t.confirme();
    return id;
}

/// Familia de un tipo, como la conoce la base.
inline QString familia_de(Conexion& c, int tipo) {
    return c
        .consulte(QStringLiteral("select doct_familia from documento_contable where tido_cod = %1")
                      .arg(tipo))
        .texto();
}

inline void ponga_reglas(Conexion& c, const QString& tabla, const QString& clave, int id,
                         const QString& reglas) {
    int item = 0;
    for (const QString& texto : partes_de(reglas, ';')) {
        const QStringList p = texto.split(' ');
        const QString letras = p.value(3);
        const auto si = [&](QChar letra) { return letras.contains(letra) ? "S" : "N"; };
        c.ejecute(
            QStringLiteral("insert into %1 (%2, inct_item, inct_concepto, inct_clase, inct_cuenta, "
                           "inct_lado, inct_tercero, inct_centro, inct_articulo, inct_base, "
                           "inct_documento) values (?,?,?,?,?,?,?,?,?,?,?)")
                .arg(tabla, clave),
            {id, ++item, p[0].section(':', 0, 0), p[0].section(':', 1), p[1], p[2], si('t'),
             si('c'), si('a'), si('b'),
             letras.contains('n')   ? "N"
             : letras.contains('x') ? "A"
                                    : "-"});
    }
}

struct InterfazPrueba {
    int id = 1;
    QString reglas, reglas_niif = {};
    QString prefijo = QStringLiteral("0000"), confirmar = QStringLiteral("N"),
            detallada = QStringLiteral("N"), tipo = QStringLiteral("CG"),
            prefijo_comprobante = QStringLiteral("0001");
    int banco = 0;
};

/// Registra la interfaz del tipo de documento con las cuentas de los dos libros; sin reglas NIIF,
/// las mismas.
inline void registre(Conexion& c, int tipo, const InterfazPrueba& i) {
    const QString familia = familia_de(c, tipo);
    const QString niif = i.reglas_niif.isEmpty() ? i.reglas : i.reglas_niif;
    if (familia == QLatin1String("NOMINA")) {
        c.ejecute("insert into interfaz_nomina (inno_id, tido_cod, inno_nombre, tico_cod, "
                  "prco_pre, inno_confirmar, inno_det) values (?,?,'Nómina de prueba',?,?,?,?)",
                  {i.id, tipo, i.tipo, i.prefijo_comprobante, i.confirmar, i.detallada});
        ponga_reglas(c, "nomina_ctas", "tido_cod", tipo, i.reglas);
        ponga_reglas(c, "nomina_niif", "tido_cod", tipo, niif);
        return;
    }
    const QString ini =
        c.consulte(QStringLiteral("select faco_ini from familia_contable where faco_familia = '%1'")
                       .arg(familia))
            .texto();
    c.ejecute(
        QStringLiteral("insert into interfaz_%1 (%2_id, tido_cod, pref_pre, %2_nombre, tico_cod, "
                       "prco_pre, %2_confirmar, %2_det) values (?,?,?,'De prueba',?,?,?,?)")
            .arg(familia, ini),
        {i.id, tipo, i.prefijo, i.tipo, i.prefijo_comprobante, i.confirmar, i.detallada});
    if (i.banco)
        c.ejecute("update interfaz_bancos set cuba_cod = ? where inba_id = ?", {i.banco, i.id});
    ponga_reglas(c, QStringLiteral("interfaz_%1_ctas").arg(familia), ini + "_id", i.id, i.reglas);
    ponga_reglas(c, QStringLiteral("interfaz_%1_niif").arg(familia), ini + "_id", i.id, niif);
}

/// Lo que devuelve un CONTABIL_*, leído por posición: las columnas unidas con '|'.
inline QString contabil(Conexion& c, const QString& procedimiento, const QVector<int>& argumentos) {
    QStringList textos;
    for (const int a : argumentos)
        textos << QString::number(a);
    Transaccion t(c, Transaccion::Modo::Escritura);
    QStringList columnas;
    {
        Cursor fila(c.prepare(QStringLiteral("select * from %1(%2)")
                                  .arg(procedimiento, textos.join(QLatin1Char(','))),
                              t),
                    t, {});
        if (fila.siguiente())
            for (int i = 0; i < fila.columnas().size(); ++i)
                columnas << fila.valor(i).texto();
    }
    t.confirme();
    return columnas.join('|');
}

/// Renglones de un libro del comprobante de un documento, uno por línea de texto.
inline QString comprobante_de(Conexion& c, int tipo, int id, const QString& sufijo) {
    QStringList renglones;
    const auto f =
        c.abra(QStringLiteral(
                   "select d.cuen_cod, d.code_debito, d.code_credito, d.terc_nit, d.proy_cod, "
                   "d.cent_cod, d.arti_cod, d.code_base, d.code_porc, d.cnde_docnumero, "
                   "d.code_tiponue, d.code_tipoapl, d.cnde_docaplica from comprobante_encabezado e "
                   "join comprobante_detalle%1 d on d.enco_consec = e.enco_consec where "
                   "e.enco_tiporef = %2 and e.enco_idref = %3 order by d.code_item")
                   .arg(sufijo)
                   .arg(tipo)
                   .arg(id));
    const auto cifra = [](const Valor& v) { return v.moneda().texto(); };
    while (f->siguiente()) {
        const bool debito = !f->valor(1).moneda().es_cero();
        QString r =
            f->valor(0).texto() + (debito ? " D " : " C ") + cifra(f->valor(debito ? 1 : 2));
        const auto dato = [&](const char* clave, const QString& texto) {
            if (!texto.isEmpty())
                r += ' ' + QLatin1String(clave) + '=' + texto;
        };
        dato("t", f->valor(3).texto());
        if (!f->valor(4).texto().isEmpty())
            dato("c", f->valor(4).texto() + '-' + f->valor(5).texto());
        dato("a", f->valor(6).texto());
        if (!f->valor(7).nulo())
            dato("b", cifra(f->valor(7)));
        if (!f->valor(8).nulo())
            dato("p", cifra(f->valor(8)));
        dato("o", f->valor(9).texto());
        if (!f->valor(12).texto().isEmpty())
            dato("x", f->valor(11).texto() + '-' + f->valor(12).texto());
        renglones << r;
    }
    return renglones.join('\n');
}

/// Los renglones de una tabla de la prueba, separados por ';', en la misma forma.
inline QString esperado(const QString& texto) {
    return partes_de(texto, ';').join('\n');
}

/// Cuentas que la plantilla no tiene, en los dos libros: "código banderas", con las banderas T
/// tercero, C centro, R retención.
inline void agregue_cuentas(Conexion& c, const QString& cuentas) {
    for (const QString& texto : partes_de(cuentas, ';')) {
        const QString codigo = texto.section(' ', 0, 0), banderas = texto.section(' ', 1);
        const auto si = [&](QChar letra) { return banderas.contains(letra) ? "S" : "N"; };
        for (const char* plan : {"cuentas_niif", "cuentas"})
            for (const int largo : {1, 2, 4, 6})
                c.ejecute(
                    QStringLiteral(
                        "update or insert into %1 (cuen_cod, cuen_nom, cuen_tercero, cuen_centro, "
                        "cuen_retencion, cuen_eqniif) values (?, 'De prueba', ?, ?, ?, ?)")
                        .arg(QLatin1String(plan)),
                    {codigo.left(largo), largo == 6 ? si('T') : "N", largo == 6 ? si('C') : "N",
                     largo == 6 ? si('R') : "N", codigo.left(largo)});
    }
}

inline void configure(Conexion& c, const char* propiedad, const QString& valor) {
    c.ejecute("update configuracion set conf_valor = ? where conf_propiedad = ?",
              {valor, QString::fromUtf8(propiedad)});
}

inline const char* const kPorInterfaz = "GENERAR COMPROBANTES DE NIIF POR INTERFAZ O EQUIVALENCIAS";

/// Una venta a crédito que cuadra: 100.000 y su IVA.
inline DocumentoPrueba
venta_de_prueba(const QString& numero = QStringLiteral("000001"),
                const QString& lineas = QStringLiteral("VENTA 100000; IVA 19000; CLIENTE 119000")) {
    DocumentoPrueba d{31, lineas, numero};
    d.nit = QStringLiteral("900123456");
    d.centro = QStringLiteral("0002-0001");
    return d;
}
inline const char* const kReglasVenta = "CLIENTE 130505 D tn; VENTA 413505 C c; IVA 240805 C";

inline InterfazPrueba interfaz_de_prueba(const QString& reglas, int id = 1,
                                         const QString& confirmar = QStringLiteral("N")) {
    InterfazPrueba i{id, reglas};
    i.confirmar = confirmar;
    return i;
}
