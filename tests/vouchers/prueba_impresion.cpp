// Impresión de comprobantes: plantilla, formato propio e impresión masiva.
#include "reports/informe_de_prueba.h"
#include "toolkit/impresora.h"
#include "toolkit/informes/vista_preliminar.h"
#include "vouchers/datos_formato.h"
#include "vouchers/interprete_formato.h"
#include "vouchers/registro.h"
#include "vouchers/tfimprcomproba.h"
#include "vouchers/tfimprmascomproba.h"

using namespace informes;

namespace {

constexpr int kId = 700;

/// Comprobante de `lineas` débitos de 100 y un crédito que cuadra; en NIIF, de 200.
void agregue(SesionGui& s, int lineas, int id = kId, const QString& numero = "000700",
             const QString& tipo = "CG") {
    ComprobanteEnTablas c{id, numero, "20170315"};
    c.tipo = tipo;
    for (int i = 1; i < lineas; ++i) {
        c.lineas << Linea{i, "519530", Moneda(100), Moneda(), "", "0001", "0002"};
        c.lineas_niif << Linea{i, "519530", Moneda(200), Moneda(), "", "0001", "0002"};
    }
    c.lineas << Linea{lineas, "220505", Moneda(), Moneda(100 * (lineas - 1)), "800456789"};
    c.lineas_niif << Linea{lineas, "220505", Moneda(), Moneda(200 * (lineas - 1)), "800456789"};
    grabe(s.base.base(), c);
    s.base.ejecute(
        {"update comprobante_encabezado set enco_concepto = 'Útiles de marzo', enco_refer = 'R-7', "
         "terc_nit = '800456789', enco_nomterc = null where enco_consec = " +
         QString::number(id)});
}

/// Formato con título, totales, columnas y un cierre, de `items` renglones por hoja.
void defina_formato(SesionGui& s, const QString& llave, int items, const char* paginas) {
    const QString k = QuotedStr(llave);
    QStringList sql{QString("insert into formatos (tido_cod, pref_pre, form_nroitems, "
                            "form_paginas, form_entrelinea, form_font, form_fsize) values (1, %1, "
                            "%2, '%3', 20, 'Liberation Sans', 9)")
                        .arg(k)
                        .arg(items)
                        .arg(paginas)};
    struct Dato {
        const char *dato, *repite, *cierra, *baja;
        int x, y, ini, largo;
        const char* formato;
    };
    int item = 0;
    for (const Dato& d : {Dato{"NUMERO", "N", "N", "N", 100, 50, 3, 4, ""},
                          Dato{"CONCEPTO", "N", "N", "S", 100, 80, 1, 0, ""},
                          Dato{"ENCABEZADO NIT", "N", "N", "N", 600, 50, 1, 0, ""},
                          Dato{"TOTAL DEBITOS", "N", "N", "N", 1500, 1300, 1, 0, "dos"},
                          Dato{"TOTAL CREDITOS", "N", "N", "N", 1800, 1300, 1, 0, "0"},
                          Dato{"NUMERO PAGINA", "N", "N", "N", 1900, 50, 1, 0, ""},
                          Dato{"MONTO LETRAS", "N", "S", "S", 100, 300, 1, 0, ""},
                          Dato{"USUARIO REGISTRO", "N", "S", "N", 900, 1400, 1, 0, ""},
                          Dato{"NOMBRE CUENTA", "S", "N", "N", 300, 200, 1, 6, ""},
                          Dato{"DEBITO ITEM", "S", "N", "N", 1500, 200, 1, 0, "1"}})
        sql << QString("insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato, "
                       "dafo_imprime, dafo_posx, dafo_posy, dafo_ini, dafo_long, dafo_formato, "
                       "dafo_repite, dafo_liquida, dafo_posyvar) values (1, %1, %2, '%3', 'S', %4, "
                       "%5, %6, %7, '%8', '%9', ")
                       .arg(k)
                       .arg(++item)
                       .arg(d.dato)
                       .arg(d.x)
                       .arg(d.y)
                       .arg(d.ini)
                       .arg(d.largo)
                       .arg(d.formato, d.repite) +
                   QString("'%1', '%2')").arg(d.cierra, d.baja);
    const auto linea = [&](const char* valores) {
        sql << "insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo, foli_x, "
               "foli_y, foli_posx, foli_posy, foli_cadena, foli_liquida) values (1, " +
                   k + ", " + valores + ")";
    };
    linea("1, 'T', 0, 0, 100, 20, 'PAPELERÍA PROPIA', 'N'");
    linea("2, 'L', 1800, 0, 100, 260, null, 'S'");
    linea("3, 'C', 500, 100, 1400, 1250, null, 'N'");
    sql << "update tipo_comprobante set tico_formato = 'S' where tico_cod = 'CG'";
    s.base.ejecute(sql);
}

QByteArray imagen(int ancho, int alto) {
    QImage i(ancho, alto, QImage::Format_RGB32);
    i.fill(Qt::blue);
    QByteArray octetos;
    QBuffer salida(&octetos);
    i.save(&salida, "BMP");
    return octetos;
}

/// El comprobante kId dibujado con el único formato que hay; sus medidas, en unidades de rejilla.
struct Dibujo {
    explicit Dibujo(bool masiva = false) {
        Tfimprcomproba f;
        f.cree();
        f.CComproba.Open(QString("select * from impr_comprobante(%1)").arg(kId));
        f.CComproba.FetchAll();
        f.CFormato.Open();
        InterpreteFormato interprete({f.CFormato, f.CFormdatos, f.CFormlineas}, f.CComproba,
                                     QString::number(kId));
        interprete.graficos_a_su_tamano = masiva;
        interprete.imprima(hojas);
    }
    static int x(qreal mm) { return qRound(mm * 2000 / 215.9); }
    static int y(qreal mm) { return qRound(mm * 1500 / 279.4); }
    /// "x,y" de cada vez que sale el texto en la hoja; `x`, la de su borde derecho si se pide.
    QStringList lugares(int hoja, const QString& texto, bool derecha = false) const {
        QStringList l;
        for (const Trazo& t : hojas.lea(hoja))
            if (t.clase == Trazo::Texto && t.texto == texto)
                l << QString("%1,%2")
                         .arg(x(derecha ? t.lugar.right() : t.lugar.left()))
                         .arg(y(t.lugar.top()));
        return l;
    }
    QVector<QRectF> de_clase(Trazo::Clase clase) const {
        QVector<QRectF> l;
        for (const Trazo& t : hojas.lea(0))
            if (t.clase == clase)
                l << t.lugar;
        return l;
    }
    QVector<QRectF> imagenes() const { return de_clase(Trazo::Imagen); }
    Hojas hojas;
};

/// Lo que imprime cada dato de un formato con el comprobante de cada_dato_imprime_lo_suyo.
QMap<QString, QString> dice_cada_dato(SesionGui& s) {
    const auto registro = [&](const char* columna) {
        return s.dato(QString("select %1 from auditoria where tido_cod = 1 and audi_oper = 'I' and "
                              "audi_iddoc = 700")
                          .arg(columna));
    };
    return {
        {"TIPO", "CG"},
        {"NOMBRE TIPO", s.dato("select tico_nom from tipo_comprobante where tico_cod = 'CG'")},
        {"PREFIJO", "0001"},
        {"NUMERO", "000700"},
        {"FECHA", "20170315"},
        {"CONCEPTO", "Útiles de marzo"},
        {"REFERENCIA", "R-7"},
        {"ENCABEZADO NIT", "Distribuidora Andina Ltda."},
        {"ENCABEZADO NOMBRE", "Distribuidora Andina Ltda."},
        {"TOTAL DEBITOS", "$100.00"},
        {"TOTAL CREDITOS", "$100.00"},
        {"MONTO COMPROBANTE", "$100.00"},
        {"MONTO LETRAS", s.dm.numero_a_letras(Moneda(100))},
        {"NOMBRE USUARIO", s.dm.nombre_usuario},
        {"CODIGO USUARIO", s.dm.usuario},
        {"NUMERO PAGINA", "1"},
        {"FECHA REGISTRO", registro("audi_fecha")},
        {"HORA REGISTRO", registro("audi_hora")},
        {"USUARIO REGISTRO", registro("audi_usuario")},
        {"NOMBRE COMPANIA", "Ferretería S.A."},
        {"DIR COMPANIA", "Calle 1"},
        {"TELS COMPANIA", "555"},
        {"NIT COMPANIA", "900.1"},
        {"ENCABEZA COMPANIA", "Régimen común"},
        {"ITEM", "1"},
        {"CUENTA", "519530"},
        {"NOMBRE CUENTA", s.dato("select cuen_nom from cuentas where cuen_cod = '519530'")},
        {"NIT TERCERO", "800456789"},
        {"NOMBRE TERCERO", "Distribuidora Andina Ltda."},
        {"CENTRO COSTO", "0001"},
        {"SUBCENTRO COSTO", "0002"},
        {"NOMBRE CENTRO COSTO", "Administración"},
        {"NOMBRE SUBCEBTRO COSTO", "Contabilidad"},
        {"CONCEPTO ITEM", "Resma"},
        {"REFERENCIA ITEM", "45.00"}, // por la rutina de números
        {"ARTICULO", "MART01"},
        {"DESCRIPCION ARTICULO", "Martillo"},
        {"DEBITO ITEM", "100.00"},
        {"CREDITO ITEM", "0.00"},
        {"NETO ITEM", "100.00"},
        {"BASE ITEM", "1,000.00"},
        {"PORCENTAJE ITEM", "16.00"},
        {"DOCUMENTO ITEM", "000123"},
        {"DOCUMENTO APLICACION", "000124"},
        {"DOCUMENTO VENCE", "20170430"},
    };
}

} // namespace

class PruebaImpresion : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_comprobantes(); }

    void sin_formato_sale_la_plantilla_en_el_papel_configurado() {
        SesionGui s;
        agregue(s, 4);
        s.base.ejecute({"update comprobante_detalle set code_base = 4000, code_porc = 2.5, "
                        "cnde_docnumero = '000123', cnde_docaplica = '000124', doco_vence = "
                        "'20170430' where enco_consec = 700 and code_item = 1",
                        "update cuentas set cuen_nom = 'Proveedores nacionales de mercancías "
                        "para la venta al detal' where cuen_cod = '220505'"});
        const QString carta = imprima(s, Qt::Key_Return);
        // Tarifa, documento, vencimiento y nombres del proyecto y del centro, debajo de su línea.
        const auto nombre = [&](const char* que) {
            return s.dato(QString("select %1 from proyectos p join centros c on c.proy_cod = "
                                  "p.proy_cod where p.proy_cod = '0001' and cent_cod = '0002'")
                              .arg(QLatin1String(que)));
        };
        for (const QString& texto :
             {QString("NIT 900555111-6 Libro 2649"), QString("2.50%"), QString("000123"),
              QString("000124"), QString("Vence 2017/04/30"),
              nombre("proy_nom") + ", " + nombre("cent_nom")})
            QVERIFY2(carta.simplified().contains(texto), qPrintable(texto + '\n' + carta));
        for (const QString& renglon : carta.split('\n')) // nada de un documento entre los importes
            QVERIFY(!renglon.contains("000123") ||
                    !renglon.contains(QRegularExpression("\\.00\\b")));
        QVERIFY2(hoja_.contains("612 x 792 pts"), qPrintable(hoja_));
        QCOMPARE(falta_en(carta, {"Comprobante contable", "No. 0001 000700", "2017/03/15",
                                  "Útiles de marzo", "800456789", "Distribuidora Andina Ltda.",
                                  "519530", "0001 0002", "Página 1 de 1"}),
                 QString());
        QCOMPARE(carta.section("Sumas iguales", 1).section('\n', 0, 0).simplified(),
                 "300.00 300.00");
        QVERIFY(!carta.contains("NIIF"));
        // Un nombre largo sigue en otro renglón.
        QVERIFY2(carta.contains("al detal") && !carta.contains("…"), qPrintable(carta));

        s.configure("TAMAÑO DEL PAPEL PARA IMPRIMIR COMPROBANTES CONTABLES", "MEDIA");
        const QString media = imprima(s, Qt::Key_F2, true);
        QVERIFY2(hoja_.contains("612 x 396 pts"), qPrintable(hoja_));
        QVERIFY(media.contains("Comprobante contable NIIF"));
        QVERIFY2(media.contains("600.00"), qPrintable(media));

        // Esc sale sin imprimir.
        Interlocutor i;
        i.espere_tecla("Tfimprcomproba", Qt::Key_Escape);
        QCOMPARE(pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{QString::number(kId)}),
                 int(mrCancel));
    }

    void cada_hoja_trae_lo_que_suman_las_anteriores() {
        SesionGui s;
        agregue(s, 70);
        s.base.ejecute({"update cuentas set cuen_tipo = 'C' where cuen_cod = '220505'",
                        "update comprobante_detalle set code_base = 3, cnde_docnumero = '000125' "
                        "where enco_consec = 700 and code_item = 70"});
        for (const char* papel : {"CARTA", "MEDIA"})
            for (const bool niif : {false, true}) {
                s.configure("TAMAÑO DEL PAPEL PARA IMPRIMIR COMPROBANTES CONTABLES", papel);
                const QString texto = imprima(s, Qt::Key_F2, niif);
                const QStringList hojas = texto.split('\f', Qt::SkipEmptyParts);
                QVERIFY2(hojas.size() > 1, qPrintable(texto));
                int lineas = 0; // las de las hojas anteriores, cada una de 100 o de 200
                for (const QString& hoja : hojas) {
                    QCOMPARE(hoja.section("Sumas que vienen", 1).section('\n', 0, 0).simplified(),
                             lineas == 0
                                 ? QString()
                                 : Moneda(lineas * (niif ? 200 : 100)).formateada() + " 0.00");
                    lineas += int(hoja.count("519530"));
                }
                QCOMPARE(lineas, 69);
                // El documento en moneda dice su valor y su tasa, solo en el libro que los tiene.
                QCOMPARE(
                    texto.section("Valor en moneda extranjera", 1).section('\n', 0, 0).simplified(),
                    niif ? QString() : QString("3.00 Tasa 2,300.0000"));
            }
    }

    void el_formato_dibuja_lo_que_dicen_sus_tablas() {
        SesionGui s;
        agregue(s, 3);
        defina_formato(s, "CG", 10, "S");
        const Dibujo d;
        QCOMPARE(d.hojas.paginas(), 1);
        const struct {
            QString texto;
            const char* lugar; // 2000 unidades a lo ancho de la carta, 1500 a lo alto
            bool derecha = false;
        } casos[] = {
            {"PAPELERÍA PROPIA", "100,20"},
            {"0700", "100,50"},                       // cuatro letras desde la tercera
            {"Útiles de marzo", "100,80"},            // largo 0: entero; sin líneas aún
            {"Distribuidora Andina Ltda.", "600,50"}, // "ENCABEZADO NIT" es el nombre
            {"$200.00", "1500,1300", true},           // "dos" no es un número: 2 decimales
            {"$200", "1800,1300", true},
            {"100.0", "1500,200 1500,220", true},
            {"Útiles", "300,200 300,220"}, // nombre de la cuenta, seis letras
            // El cierre baja con las tres líneas impresas.
            {s.dm.numero_a_letras(Moneda(200)), "100,360"},
            {s.dato("select audi_usuario from auditoria where tido_cod = 1 and audi_oper = 'I' and "
                    "audi_iddoc = 700"),
             "900,1400"},
        };
        for (const auto& c : casos)
            QCOMPARE(c.texto + ' ' + d.lugares(0, c.texto, c.derecha).join(' '),
                     c.texto + ' ' + c.lugar);
        const QRectF raya = d.de_clase(Trazo::Linea).value(0),
                     cuadro = d.de_clase(Trazo::Caja).value(0);
        QCOMPARE(QPoint(Dibujo::x(raya.width()), Dibujo::y(raya.y())), QPoint(1800, 320));
        QCOMPARE(Dibujo::y(cuadro.y()), 1250);
    }

    void cada_dato_imprime_lo_suyo() {
        SesionGui s;
        agregue(s, 2);
        s.base.ejecute({"update comprobante_detalle set terc_nit = '800456789', code_concepto = "
                        "'Resma', code_refer = '45', arti_cod = 'MART01', code_base = 1000, "
                        "code_porc = 16, cnde_docnumero = '000123', cnde_docaplica = '000124', "
                        "doco_vence = '20170430' where enco_consec = 700 and code_item = 1",
                        "insert into formatos (tido_cod, pref_pre, form_nroitems, form_paginas, "
                        "form_entrelinea) values (1, 'CG', 1, 'N', 0)"});
        QStringList sql;
        const auto renglon = [](const DatoFormato& d) { return 20 * int(&d - kDatosFormato + 1); };
        for (const DatoFormato& d : kDatosFormato)
            sql << QString("insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato, "
                           "dafo_imprime, dafo_posx, dafo_posy, dafo_ini, dafo_long, dafo_repite, "
                           "dafo_liquida, dafo_posyvar) values (1, 'CG', %1, '%2', 'S', 1000, %1, "
                           "1, %3, '%4', 'N', 'N')")
                       .arg(renglon(d))
                       .arg(d.nombre)
                       .arg(d.clase == ClaseDatoFormato::Imagen ? 60 : 0)
                       .arg(d.detalle ? "S" : "N");
        s.base.ejecute(sql);
        s.dm.datos_compania = {"Ferretería S.A.", "Calle 1",    "555",
                               "Régimen común",   imagen(8, 8), "900.1"};
        s.dm.SUCU_NOMBRE = "Norte";
        s.dm.SUCU_DIRECCION = "Carrera 9";
        s.dm.SUCU_TELEFONOS = "777";
        QMap<QString, QString> debe = dice_cada_dato(s);
        for (int agencia : {0, 2}) {
            s.dm.sucursal_usuario = agencia;
            if (agencia) {
                debe["NOMBRE COMPANIA"] = "Norte";
                debe["DIR COMPANIA"] = "Carrera 9";
                debe["TELS COMPANIA"] = "777";
            }
            const Dibujo dibujo;
            QMap<int, QString> impreso;
            for (const Trazo& t : dibujo.hojas.lea(0))
                if (t.clase == Trazo::Texto)
                    impreso[Dibujo::y(t.lugar.top())] += t.texto;
            for (const DatoFormato& d : kDatosFormato)
                QCOMPARE(QLatin1String(d.nombre) + ": " + impreso.value(renglon(d)),
                         QLatin1String(d.nombre) + ": " + debe.value(d.nombre));
            // El logo, un cuadrado de DAFO_LONG unidades.
            QCOMPARE(dibujo.imagenes().size(), 1);
            const QRectF logo = dibujo.imagenes().constFirst();
            QCOMPARE(QPoint(Dibujo::x(logo.width()), Dibujo::y(logo.height())), QPoint(60, 60));
            QCOMPARE(Dibujo::x(logo.left()), 1000);
        }
        // Sin quién lo registró esos tres datos no salen.
        s.base.ejecute({"delete from auditoria"});
        const QString usuario = debe["USUARIO REGISTRO"];
        const int antes = usuario == s.dm.usuario ? 1 : 0;
        QCOMPARE(Dibujo().lugares(0, usuario).size(), antes);
    }

    void los_graficos_se_estiran_y_en_la_masiva_van_a_su_tamano() {
        SesionGui s;
        agregue(s, 2);
        s.base.ejecute(
            {"insert into formatos (tido_cod, pref_pre, form_nroitems) values (1, 'CG', 9)"});
        s.base.base().ejecute("insert into formato_lineas (tido_cod, pref_pre, foli_item, "
                              "foli_tipo, foli_posx, foli_posy, foli_x, foli_y, foli_imagen) "
                              "values (1, 'CG', 1, 'G', 100, 200, 400, 300, ?)",
                              {Valor(imagen(96, 48))});
        const QRectF uno = Dibujo().imagenes().value(0), masiva = Dibujo(true).imagenes().value(0);
        QCOMPARE(QPoint(Dibujo::x(uno.width()), Dibujo::y(uno.height())), QPoint(400, 300));
        for (const QRectF& r : {uno, masiva})
            QCOMPARE(QPoint(Dibujo::x(r.left()), Dibujo::y(r.top())), QPoint(100, 200));
        QVERIFY(qAbs(masiva.width() - 25.4) < 0.05 && qAbs(masiva.height() - 12.7) < 0.05);
    }

    void la_hoja_que_sigue_repite_el_encabezado_en_su_lugar() {
        SesionGui s;
        agregue(s, 6);
        defina_formato(s, "CG", 4, "S");
        const Dibujo d;
        QCOMPARE(d.hojas.paginas(), 2);
        // "PASAN", cien unidades antes de cada total, solo en la hoja que no alcanzó.
        QCOMPARE(d.lugares(0, "PASAN"), QStringList({"1400,1300", "1700,1300"}));
        QVERIFY(d.lugares(1, "PASAN").isEmpty());
        for (int hoja : {0, 1}) {
            QCOMPARE(d.lugares(hoja, "PAPELERÍA PROPIA"), QStringList("100,20"));
            // Con "Y variable", pero aún sin líneas en la hoja.
            QCOMPARE(d.lugares(hoja, "Útiles de marzo"), QStringList("100,80"));
            QCOMPARE(d.lugares(hoja, QString::number(hoja + 1)), QStringList("1900,50"));
        }
        // La línea que no cupo es la primera de la otra, y el cierre sigue a las dos que lleva.
        QCOMPARE(d.lugares(0, "Útiles").size(), 4);
        QCOMPARE(d.lugares(1, "Útiles"), QStringList("300,200"));
        const QString letras = s.dm.numero_a_letras(Moneda(500));
        QVERIFY(d.lugares(0, letras).isEmpty());
        QCOMPARE(d.lugares(1, letras), QStringList("100,340"));
    }

    void lo_que_no_cabe_pasa_a_otra_hoja_o_se_pierde() {
        SesionGui s;
        agregue(s, 6);
        defina_formato(s, "CG", 6, "S");
        // Las que caben exactas van en una hoja.
        QString texto = imprima(s, Qt::Key_F2);
        QVERIFY2(hoja_.contains("Pages:           1"), qPrintable(hoja_));
        QVERIFY(!texto.contains("PASAN"));
        s.base.ejecute({"update formatos set form_nroitems = 5"});
        texto = imprima(s, Qt::Key_F2);
        QVERIFY2(hoja_.contains("Pages:           2"), qPrintable(hoja_));
        QCOMPARE(texto.count("PASAN"), 2);
        QCOMPARE(texto.count("PAPELERÍA PROPIA"), 2);
        QCOMPARE(texto.count("100.0\n"), 5);
        QCOMPARE(texto.count(fdm().numero_a_letras(Moneda(500)).left(12)), 1); // cierra una vez
        s.base.ejecute({"update formatos set form_paginas = 'N', form_nroitems = 2"});
        texto = imprima(s, Qt::Key_F2);
        QVERIFY2(hoja_.contains("Pages:           1"), qPrintable(hoja_));
        QCOMPARE(texto.count("100.0\n"), 2);
        QVERIFY2(texto.contains("$500.00"), qPrintable(texto)); // el total cuenta las perdidas
        // Varias páginas sin decir cuántas líneas caben no terminaría nunca.
        s.base.ejecute({"update formatos set form_paginas = 'S', form_nroitems = null"});
        Interlocutor i;
        i.espere_tecla("Tfimprcomproba", Qt::Key_F2);
        espere_pdf(i, s.base.ruta() + "/no_se_escribe.pdf");
        i.espere_mencion("no dice cuántos ítems caben");
        i.espere_modal("Tfimprcomproba", [](QWidget* w) { w->close(); });
        pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{QString::number(kId)});
        QVERIFY(!QFile::exists(s.base.ruta() + "/no_se_escribe.pdf"));
    }

    void el_formato_se_busca_por_el_tipo_y_f10_usa_el_de_ultimo_recurso() {
        SesionGui s;
        agregue(s, 3);
        defina_formato(s, "0001", 10, "S"); // por el prefijo: no se usa nunca
        s.configure("USAR TIPO DE COMPROBANTE COMO PREFIJO DEL FORMATO A IMPRIMIR", "NO");
        for (int clave : {int(Qt::Key_F2), int(Qt::Key_F10)}) {
            Interlocutor i;
            i.espere_tecla("Tfimprcomproba", clave);
            i.espere("No se encontró el formato de impresión para el comprobante CG");
            pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{QString::number(kId)});
        }
        s.base.ejecute({"update formatos set pref_pre = '0000'"});
        QVERIFY(imprima(s, Qt::Key_F10).contains("PAPELERÍA PROPIA"));
    }

    void una_referencia_con_letras_detiene_el_trabajo() {
        SesionGui s;
        agregue(s, 3);
        defina_formato(s, "CG", 10, "S");
        s.base.ejecute({"update formato_datos set dafo_dato = 'REFERENCIA ITEM' where dafo_dato = "
                        "'DEBITO ITEM'"});
        Interlocutor i;
        i.espere_tecla("Tfimprcomproba", Qt::Key_F2);
        i.espere_modal("OpcionesImpresion", [](QWidget* w) {
            w->findChild<QRadioButton*>("a_vista")->click();
            w->findChild<QPushButton*>("ok")->click();
        });
        i.espere_mencion("'R-7' no es un valor numérico válido");
        i.espere_modal("Tfimprcomproba", [](QWidget* w) { w->close(); }); // sigue viva
        pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{QString::number(kId)});
    }

    void la_masiva_imprime_un_rango_en_un_solo_trabajo() {
        SesionGui s;
        for (int n = 1; n <= 4; ++n)
            agregue(s, 3, kId + n, QString("00070%1").arg(n));
        agregue(s, 3, kId + 9, "000702", "RC");
        auto* f = s.abra<Tfimprmascomproba>("Tfimprmascomproba");
        const auto escoja = [&] {
            digite_en(f->LTipo, "C", Qt::Key_Tab);
            QCOMPARE(f->CProv.FieldByName("TIPO").texto(), "CG");
            QCOMPARE(f->CProv.FieldByName("PREF").texto(), "0001");
            digite_en(f->Desde, "702", Qt::Key_Tab);
            QCOMPARE(f->Desde->text(), "000702");
            digite("703");
        };
        // F10 antes de escoger no deja el formato de último recurso para el F2 que sigue.
        dice(Qt::Key_F10, "Escoja el tipo y el prefijo de los comprobantes.");
        QVERIFY(!f->formato_base);
        escoja();
        const QString texto = informe_como_texto(f, Qt::Key_Return);
        QVERIFY2(texto.contains("No. 0001 000702") && texto.contains("No. 0001 000703") &&
                     !texto.contains("000701") && !texto.contains("000704"),
                 qPrintable(texto));
        QCOMPARE(texto.count("Página 1 de 1"), 2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!s.escritorio.abierta("Tfimprmascomproba"));

        // Sin el formato de un tipo, avisa por cada comprobante y sigue con los demás.
        s.base.ejecute({"update tipo_comprobante set tico_formato = 'S' where tico_cod = 'CG'"});
        f = s.abra<Tfimprmascomproba>("Tfimprmascomproba");
        escoja();
        Interlocutor i;
        const QTemporaryDir carpeta;
        const QString sin_formato = carpeta.filePath("sin_formato.pdf");
        espere_pdf(i, sin_formato);
        for (int n = 0; n < 2; ++n)
            i.espere("No se encontró el formato de impresión para el comprobante CG");
        oprima(Qt::Key_F2);
        QVERIFY(!QFile::exists(sin_formato)); // sin una sola hoja no hay archivo
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // Un rango sin comprobantes se dice, y lo digitado sigue ahí.
        f = s.abra<Tfimprmascomproba>("Tfimprmascomproba");
        escoja();
        f->Desde->setText("900");
        f->Hasta->setText("901");
        dice(Qt::Key_F2, "No hay comprobantes de ese tipo y prefijo entre los números pedidos.");
        QCOMPARE(f->Desde->text(), "000900");
        // F10 sin nada que imprimir no deja puesto el formato de último recurso.
        dice(Qt::Key_F10, "No hay comprobantes de ese tipo y prefijo entre los números pedidos.");
        QVERIFY(!f->formato_base);
    }

    void la_masiva_muestra_antes_las_hojas_solo_si_la_compania_lo_pide() {
        SesionGui s;
        agregue(s, 3);
        agregue(s, 3, kId + 1, "000701");
        for (const char* previsualiza : {"SI", "NO"}) {
            s.configure("PREVISUALIZAR IMPRESION DE DOCUMENTOS", previsualiza);
            auto* f = s.abra<Tfimprmascomproba>("Tfimprmascomproba");
            f->CProv.FieldByName("TIPO") = "CG";
            f->Desde->setText("700");
            f->Hasta->setText("701");
            // Todo el trabajo se lee de una foto, aunque entre uno y otro alguien corrija.
            QStringList fotos, conceptos;
            f->CComproba.BeforeGetRecords = [&] { fotos << fotos_abiertas(s.base.base()); };
            f->CComproba.AfterOpen = [&] {
                conceptos << f->CComproba.FieldByName("CONCEPTO").texto();
                s.base.ejecute({"update comprobante_encabezado set enco_concepto = 'De otro'"});
            };
            Interlocutor i;
            const bool si = *previsualiza == 'S';
            i.espere_modal("OpcionesImpresion", [=](QWidget* w) {
                if (si)
                    w->findChild<QRadioButton*>("a_vista")->click();
                else // la última salida fue la vista, y aun así propone la impresora
                    QVERIFY(w->findChild<QRadioButton*>("a_impresora")->isChecked());
                w->findChild<QPushButton*>(si ? "ok" : "cancelar")->click();
            });
            QString mientras_lee;
            if (si)
                i.espere_modal("VistaPreliminar", [&](QWidget* w) {
                    mientras_lee = fotos_abiertas(s.base.base());
                    w->close();
                });
            oprima(Qt::Key_F2);
            QVERIFY(s.escritorio.abiertas().isEmpty()); // cancelar también la cierra
            if (si) {
                fotos.removeDuplicates();
                QCOMPARE(fotos.size(), 1);
                QCOMPARE(conceptos, QStringList({"Útiles de marzo", "Útiles de marzo"}));
                QCOMPARE(mientras_lee, QString()); // quien mira las hojas no detiene a nadie
            }
        }
    }

    void un_comprobante_descuadrado_no_dice_sumas_iguales() {
        SesionGui s;
        ComprobanteEnTablas c{kId, "000700", "20170315"};
        c.lineas << Linea{1, "519530", Moneda(700), Moneda()}
                 << Linea{2, "110505", Moneda(), Moneda::de_texto("699.99")};
        c.lineas_niif = {Linea{1, "519530", Moneda(50), Moneda()},
                         Linea{2, "110505", Moneda(), Moneda(50)}};
        grabe(s.base.base(), c);
        const QString decreto = imprima(s, Qt::Key_F2);
        QVERIFY(!fotos_.isEmpty()); // sus líneas son de un mismo instante
        QVERIFY2(!decreto.contains("Sumas iguales"), qPrintable(decreto));
        QCOMPARE(decreto.section("Sumas", 1).section('\n', 0, 0).simplified(), "700.00 699.99");
        QCOMPARE(decreto.section("descuadrado en", 1).section('\n', 0, 0).simplified(), "0.01");
        const QString niif = imprima(s, Qt::Key_F2, true);
        QVERIFY2(niif.contains("Sumas iguales") && !niif.contains("descuadrado"), qPrintable(niif));
    }

    void el_papel_escogido_en_las_opciones_es_el_del_formato() {
        SesionGui s;
        agregue(s, 3);
        defina_formato(s, "CG", 10, "S");
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("formato.pdf");
        const auto suelte = qScopeGuard([] { fije_impresora({}); });
        Interlocutor i;
        i.espere_tecla("Tfimprcomproba", Qt::Key_F2);
        i.espere_modal("OpcionesImpresion", [](QWidget* w) {
            w->findChild<QPushButton*>("configurar")->click();
            w->findChild<QRadioButton*>("a_archivo")->click();
            w->findChild<QComboBox*>("formato")->setCurrentIndex(3);
            w->findChild<QPushButton*>("ok")->click();
        });
        i.espere_modal("ConfigurarImpresora", [](QWidget* w) {
            auto* dialogo = static_cast<QPrintDialog*>(w);
            dialogo->printer()->setPageSize(QPageSize(QPageSize::A5));
            dialogo->done(QDialog::Accepted);
        });
        i.espere_archivo("guardar_informe", ruta);
        pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{QString::number(kId)});
        const QString datos = salida_de("pdfinfo", {ruta});
        QVERIFY2(datos.contains(QRegularExpression("Page size:\\s+4(19|20)[.\\d]* x 59[45]")),
                 qPrintable(datos));
    }

private:
    /// Abre la pantalla modal, la deja contestar y devuelve lo impreso.
    QString imprima(SesionGui& s, int clave, bool niif = false) {
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("comprobante.pdf");
        Interlocutor i;
        i.espere_modal("Tfimprcomproba", [&](QWidget* w) {
            w->findChild<QCheckBox*>("ckniif")->setChecked(niif);
            auto* f = w->findChild<Tfimprcomproba*>();
            f->CComproba.BeforeGetRecords = [&] { fotos_ = fotos_abiertas(s.base.base()); };
            QTest::keyClick(f, Qt::Key(clave));
        });
        espere_pdf(i, ruta);
        pantallas().abrir_modal("Tfimprcomproba", AbreComprobante{QString::number(kId)});
        hoja_ = salida_de("pdfinfo", {ruta});
        if (const QString deja = qEnvironmentVariable("QUORVEX_PDF"); !deja.isEmpty())
            QFile::copy(
                ruta,
                QString("%1/%2_%3.pdf").arg(deja, QTest::currentTestFunction()).arg(++copia_));
        return texto_de_pdf(ruta);
    }
    QString hoja_;  ///< lo que pdfinfo dice del último
    QString fotos_; ///< las que había mientras se leía
    int copia_ = 0;
};

QTEST_MAIN(PruebaImpresion)
#include "prueba_impresion.moc"
