// Editor de los formatos con que se imprimen los comprobantes, y su copia, movimiento y borrado.
#include "herramientas/demo_formatos.h"
#include "reports/informe_de_prueba.h"
#include "toolkit/controles/imagendato.h"
#include "vouchers/datos_formato.h"
#include "vouchers/digitador.h"
#include "vouchers/lienzo_formato.h"
#include "vouchers/tfedtformato.h"
#include "vouchers/tfimprcomproba.h"
#include "vouchers/tfmoverforma.h"

namespace {

const char* const kFormato =
    "select pref_pre || '|' || form_nroitems || '|' || form_paginas || '|' || form_entrelinea || "
    "'|' || form_font || '|' || form_fsize || '|' || form_papelan || '|' || form_papelal from "
    "formatos where tido_cod = 1";
const char* const kDatos =
    "select list(dafo_item || ':' || dafo_dato || ':' || trim(coalesce(dafo_imprime, '')) || ':' "
    "|| dafo_ini || ':' || dafo_repite || dafo_liquida || dafo_posyvar || ':' || "
    "coalesce(dafo_posx, 0) || ',' || coalesce(dafo_posy, 0) || ':' || coalesce(dafo_font, '') || "
    "coalesce(dafo_fsize, '')) from (select * from formato_datos order by dafo_item)";
const char* const kLineas =
    "select list(foli_item || ':' || foli_tipo || ':' || coalesce(foli_cadena, '') || ':' || "
    "coalesce(foli_posx, 0) || ',' || coalesce(foli_posy, 0) || ':' || coalesce(foli_x, 0) || ',' "
    "|| coalesce(foli_y, 0) || ':' || foli_liquida) from (select * from formato_lineas order by "
    "foli_item)";

QByteArray imagen() {
    QImage i(4, 4, QImage::Format_RGB32);
    i.fill(Qt::red);
    QByteArray octetos;
    QBuffer salida(&octetos);
    i.save(&salida, "BMP");
    return octetos;
}

/// Un formato puesto por SQL: dos datos y dos líneas.
void ponga_formato(SesionGui& s, const QString& llave) {
    const QString k = "1, " + QuotedStr(llave);
    s.base.ejecute(
        {"insert into formatos (tido_cod, pref_pre, form_nroitems, form_paginas, form_entrelinea, "
         "form_font, form_fsize, form_papelan, form_papelal) values (" +
             k + ", 10, 'N', 40, 'Monospace', 9, 8.5, 5.5)",
         "insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato, dafo_imprime, "
         "dafo_ini, dafo_repite, dafo_liquida, dafo_posyvar, dafo_posx, dafo_posy) values (" +
             k + ", 4, 'NUMERO', 'S', 1, 'N', 'N', 'N', 1500, 100)",
         "insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato, dafo_imprime, "
         "dafo_ini, dafo_repite, dafo_liquida, dafo_posyvar, dafo_posx, dafo_posy) values (" +
             k + ", 2, 'CUENTA', 'S', 1, 'S', 'N', 'N', 100, 400)",
         "insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo, foli_posx, "
         "foli_posy, foli_x, foli_y, foli_liquida) values (" +
             k + ", 1, 'C', 50, 60, 1900, 300, 'N')",
         "insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo, foli_cadena, "
         "foli_posx, foli_posy, foli_liquida) values (" +
             k + ", 3, 'T', 'RECIBO', 900, 80, 'S')"});
}

struct Editor : Digitador {
    explicit Editor(SesionGui& s) : Digitador(s) {}
    Tfedtformato* abra(const QString& llave) {
        e = s.abra<Tfedtformato>("Tfedtformato", AbreFormato{llave});
        return e;
    }
    void enfoque(Rejilla* r, int columna) {
        con_foco();
        r->setFocus();
        if (!e->CFormadatos.IsEmpty() || r == e->DBGridEh1)
            r->SelectedIndex(columna);
    }
    void pulse(const char* boton) {
        auto& b = componente<QPushButton>(e, boton);
        con_foco();
        b.setFocus();
        oprima(Qt::Key_Space);
    }
    void escriba_en(const char* campo, const QString& texto) {
        auto& x = componente<EditorDato>(e, campo);
        x.setFocus();
        x.selectAll();
        digite(texto, Qt::Key_Return);
    }
    QString dato(const char* campo) { return e->CFormadatos.FieldByName(campo).texto(); }
    Tfedtformato* e = nullptr;
};

} // namespace

class PruebaFormatos : public QObject {
    Q_OBJECT
private slots:
    void un_formato_nuevo_se_arma_con_el_teclado() {
        SesionGui s;
        Editor d(s);
        d.abra(" RC ");
        QCOMPARE(d.e->windowTitle(), "Definición de formatos documentos");
        QVERIFY(d.e->CFormato.State() == Estado::Insercion);
        d.escriba_en("FORM_NROITEMS", "12");
        d.escriba_en("FORM_ENTRELINEA", "35");
        d.e->LFont->setFocus();
        d.e->LFont->setCurrentIndex(0);
        d.e->CFormato.FieldByName("FORM_FONT") = "Monospace";
        d.escriba_en("FORM_FSIZE", "9");
        d.escriba_en("FORM_PAPELAN", "8.5");
        d.escriba_en("FORM_PAPELAL", "5.5");

        d.enfoque(d.e->DBGridEh2, 0);
        d.linea({"numero"}); // las llaves van en mayúsculas
        oprima(Qt::Key_Space);
        d.e->DBGridEh2->SelectedIndex(2);
        d.linea({"1500", "80"});
        oprima(Qt::Key_Down);
        d.e->DBGridEh2->SelectedIndex(0);
        d.linea({"DEBITO ITEM"});
        QCOMPARE(d.dato("DAFO_REPITE"), "S"); // es del detalle
        oprima(Qt::Key_Down);
        // sin nombre, la fila desaparece al dejarla
        d.e->DBGridEh2->SelectedIndex(2);
        digite("5", Qt::Key_Up);
        QCOMPARE(d.e->CFormadatos.RecordCount(), 2);

        d.enfoque(d.e->DBGridEh1, 0);
        oprima(Qt::Key_Insert);
        QCOMPARE(d.e->CFormalineas.FieldByName("FOLI_TIPO").texto(), "T");
        d.linea({"", "RECIBO DE CAJA", "900", "40"});
        oprima(Qt::Key_Down);
        d.e->DBGridEh1->SelectedIndex(0);
        d.linea({"Cuadro", "", "20", "30", "1960", "1400"});
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato(kFormato), "RC|12|S|35|Monospace|9|8.50|5.50");
        QCOMPARE(s.dato(kDatos),
                 "1:NUMERO:S:1:NNN:1500,80:Monospace9,2:DEBITO ITEM::1:SNN:0,0:Monospace9");
        QCOMPARE(s.dato(kLineas), "1:T:RECIBO DE CAJA:900,40:0,0:N,2:C::20,30:1960,1400:N");
    }

    void uno_que_existe_sigue_sus_contadores_y_ordena_los_datos() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        s.base.ejecute({"insert into formatos (tido_cod, pref_pre) values (31, 'RC')"});
        d.abra("RC");
        QVERIFY(d.e->CFormato.State() == Estado::Edicion);
        QCOMPARE(d.e->CFormato.FieldByName("FORM_PAGINAS").texto(), "N");
        QCOMPARE(d.dato("DAFO_DATO"), "CUENTA");
        d.enfoque(d.e->DBGridEh2, 0);
        oprima(Qt::Key_Insert);
        digite("TIPO", Qt::Key_Return);
        QCOMPARE(d.dato("DAFO_ITEM") + d.dato("DAFO_INI") + d.dato("DAFO_FONT") +
                     d.dato("DAFO_FSIZE") + d.dato("DAFO_LIQUIDA") + d.dato("DAFO_POSYVAR") +
                     d.dato("DAFO_REPITE"),
                 "51Monospace9NNN");
        d.enfoque(d.e->DBGridEh1, 1);
        oprima_seguidas({Qt::Key_Insert, Qt::Key_Tab});
        digite("Firma");
        // Otro agrega entre tanto los suyos con los mismos números: quedan todos.
        s.base.ejecute({"insert into formato_datos (tido_cod, pref_pre, dafo_item) values (1, "
                        "'RC', 5)",
                        "insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo) "
                        "values (1, 'RC', 4, 'L')"});
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select list(foli_item || foli_tipo || coalesce(foli_font, '')) from "
                        "formato_lineas"),
                 "1C,3T,4L,5TMonospace");
        QCOMPARE(s.dato("select count(*) || max(dafo_item) from formato_datos"), "46");
        QCOMPARE(s.dato("select count(*) from formatos"), "2");
    }

    void la_lista_de_datos_y_las_letras_se_ofrecen_en_la_celda() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        d.abra("RC");
        QCOMPARE(d.e->DBGridEh2->columna(0).PickList().size(), qsizetype(std::size(kDatosFormato)));
        QCOMPARE(d.e->DBGridEh2->columna(0).PickList().first(), "TIPO");
        const QStringList letras = QFontDatabase::families();
        QVERIFY(!letras.isEmpty());
        QCOMPARE(d.e->DBGridEh2->columna(8).PickList(), letras);
        QCOMPARE(d.e->DBGridEh1->columna(6).PickList(), letras);
        for (auto [casilla, rejilla] :
             {std::pair{d.e->ckfildat, d.e->DBGridEh2}, {d.e->ckfiltex, d.e->DBGridEh1}}) {
            oprima_en(casilla, Qt::Key_Space);
            QVERIFY(rejilla->filtro_visible());
            oprima(Qt::Key_Space);
            QVERIFY(!rejilla->filtro_visible());
        }
    }

    void solo_f2_y_esc_son_teclas() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        ponga_comprobante(s, 5, "000001", "20170101", {});
        d.abra("RC");
        d.e->DBGridEh2->setFocus();
        for (int tecla : {Qt::Key_F3, Qt::Key_F5, Qt::Key_F8, Qt::Key_F9})
            oprima(tecla);
        QCOMPARE(s.dato("select count(*) from formatos"), "1");
        QVERIFY(!d.e->Panel2->isVisible());
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        // Tab no sale de una rejilla: F12 lleva a la otra, a los botones y de vuelta.
        oprima(Qt::Key_F12);
        QVERIFY(d.e->DBGridEh1->enfocada());
        oprima(Qt::Key_F12);
        QVERIFY(componente<QPushButton>(d.e, "SBGrabar").hasFocus());
        oprima(Qt::Key_F12);
        QVERIFY(d.e->DBGridEh2->enfocada());
        d.e->DBGridEh2->SelectedIndex(2);
        digite("777", Qt::Key_Return);
        for (int i = 0; i < 3 && !s.escritorio.abiertas().isEmpty(); ++i)
            oprima(Qt::Key_Escape); // la fila, y luego la pantalla
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select count(*) from formato_datos where dafo_posx = 777"), "0");
    }

    void la_copia_lleva_los_elementos_y_sus_imagenes_a_otra_llave() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        s.base.base().ejecute(
            "update formato_lineas set foli_tipo = 'G', foli_imagen = ? where foli_item = 1",
            {Valor(imagen())});
        d.abra("RC");
        d.pulse("AdvGlowButton1");
        QVERIFY(d.e->Panel2->isVisible() && d.e->Pref->hasFocus());
        QVERIFY(d.e->Pref->findText("CG") >= 0 && d.e->Pref->findText("RC") < 0);
        oprima(Qt::Key_Escape); // cancela la copia, no la pantalla
        QVERIFY(!d.e->Panel2->isVisible());
        d.pulse("AdvGlowButton1");
        d.pulse("SpeedButton4"); // sin llave no hace más que ocultar el panel
        QVERIFY(!d.e->Panel2->isVisible());
        QCOMPARE(s.dato("select count(*) from formatos"), "1");
        d.pulse("AdvGlowButton1");
        digite("CG");
        d.pulse("SpeedButton4");
        QVERIFY(!d.e->Panel2->isVisible());
        const std::pair<const char*, const char*> tablas[] = {
            {"formatos", "form_nroitems, form_paginas, form_entrelinea, form_font, form_papelal"},
            {"formato_datos", "dafo_item, dafo_dato, dafo_posx, dafo_repite, dafo_ini"},
            {"formato_lineas", "foli_item, foli_tipo, foli_posx, octet_length(foli_imagen)"}};
        for (const auto& [tabla, columnas] : tablas) {
            const auto de = [&](const char* llave) {
                return filas_de(s.base.base(),
                                QString("select %1 from %2 where pref_pre = '%3' order by 1")
                                    .arg(columnas, tabla, llave));
            };
            QVERIFY(!de("RC").isEmpty());
            QCOMPARE(de("CG"), de("RC"));
        }
        // Sobre una llave que existe la primera orden falla y no corre ninguna más.
        s.base.ejecute({"delete from formato_datos where pref_pre = 'CG'"});
        d.pulse("AdvGlowButton1");
        digite("CG");
        dice([&] { d.pulse("SpeedButton4"); },
             "Se presento el siguiente error: Ya existe un registro con el mismo Tipo de documento "
             "1, Prefijo CG.");
        QCOMPARE(s.dato("select count(*) from formato_datos where pref_pre = 'CG'"), "0");
    }

    void borrar_no_pregunta_y_se_lleva_los_elementos() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        ponga_formato(s, "CG");
        d.abra("RC");
        d.pulse("AdvGlowButton2");
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select list(pref_pre) from formatos"), "CG");
        QCOMPARE(s.dato("select count(*) from formato_datos"), "2");
        QCOMPARE(s.dato("select count(*) from formato_lineas"), "2");
    }

    void la_vista_previa_imprime_el_ultimo_comprobante_de_la_llave() {
        SesionGui s;
        Editor d(s);
        ponga_comprobante(s, 5, "000001", "20170101", {});
        ponga_comprobante(s, 9, "000002", "20170101", {});
        QString impreso;
        registre_testigo("Tfimprcomproba", [&impreso](const Pantalla& p) {
            impreso = p.peticion<AbreComprobante>().comprobante_encontrado;
        });
        const struct {
            const char *por_tipo, *llave, *ultimo;
        } casos[] = {{"SI", "CG", "9"}, {"NO", "0001", "9"}, {"SI", "0001", ""}, {"NO", "CG", ""}};
        for (const auto& c : casos) {
            d.configure("COMPROBANTES",
                        "USAR TIPO DE COMPROBANTE COMO PREFIJO DEL FORMATO A IMPRIMIR", c.por_tipo);
            impreso.clear();
            d.abra(c.llave);
            Interlocutor i;
            if (*c.ultimo)
                i.espere_modal("Tfimprcomproba", [](QWidget* w) { w->close(); });
            d.pulse("SpeedButton3");
            QCOMPARE(impreso, c.ultimo);
            // lo editado ya quedó grabado
            QCOMPARE(s.dato("select count(*) from formatos where pref_pre = " + QuotedStr(c.llave)),
                     "1");
            d.e->close();
        }
    }

    void mover_graba_antes_y_deja_ver_lo_movido() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        d.abra("RC");
        d.escriba_en("FORM_NROITEMS", "15");
        Interlocutor i;
        i.espere_modal("TFmoverforma", [](QWidget* w) {
            auto& m = componente<TFmoverforma>(w, "TFmoverforma");
            w->activateWindow(); // hasta entonces las teclas son de la pantalla de abajo
            QTRY_COMPARE(QApplication::activeWindow(), w);
            QCOMPARE(m.windowTitle(), "Mover Formato");
            QCOMPARE(m.acciones->checkedId(), int('R'));
            QVERIFY(m.Pos->isEnabled());
            digite_en(m.Pos, "30", Qt::Key_Return);
            digite("800", Qt::Key_F2);
        });
        d.pulse("SpeedButton2");
        // Desde 800 hasta 2000: el número y el texto, no la cuenta ni el cuadro.
        QCOMPARE(s.dato("select list(dafo_posx) from formato_datos"), "1530,100");
        QCOMPARE(s.dato("select list(foli_posx) from formato_lineas"), "50,930");
        QCOMPARE(s.dato("select form_nroitems from formatos"), "15");
        QCOMPARE(d.dato("DAFO_DATO") + d.dato("DAFO_POSX"), "CUENTA100");
        d.e->CFormadatos.Last();
        QCOMPARE(d.dato("DAFO_DATO") + d.dato("DAFO_POSX"), "NUMERO1530");
    }

    void las_ocho_acciones_del_movimiento() {
        SesionGui s;
        Digitador d(s);
        const struct {
            char letra;
            const char *pos, *desde, *hasta;
            const char* queda; ///< entrelínea; x,y del número; x,y,ancho,alto del cuadro
        } casos[] = {
            {'R', "10", "", "", "40 1510,100 60,60,1900,300"},
            {'L', "10", "", "", "40 1490,100 40,60,1900,300"},
            {'L', "120", "50", "50", "40 1500,100 -70,60,1900,300"}, // los dos extremos entran
            {'U', "10", "", "", "40 1500,90 50,50,1900,300"},
            {'D', "10", "", "80", "40 1500,100 50,70,1900,300"},
            {'D', "", "", "", "40 1500,100 50,60,1900,300"},
            {'M', "", "", "", "20 1500,50 50,30,1900,150"},
            {'Y', "", "", "", "40 750,100 25,60,950,300"},
            {'C', "", "", "", "80 1500,200 50,120,1900,600"},
            {'X', "", "", "", "40 3000,100 100,60,3800,300"},
        };
        const auto donde = [&](const char* formato) {
            return s.dato(
                QString("select list(form_entrelinea || ' ' || dafo_posx || ',' || dafo_posy || "
                        "' ' || foli_posx || ',' || foli_posy || ',' || foli_x || ',' || foli_y) "
                        "from formatos f join formato_datos d on d.tido_cod = f.tido_cod and "
                        "d.pref_pre = f.pref_pre join formato_lineas l on l.tido_cod = f.tido_cod "
                        "and l.pref_pre = f.pref_pre where dafo_item = 4 and foli_item = 1 and %1")
                    .arg(formato));
        };
        for (const auto& c : casos) {
            s.base.ejecute({"delete from formatos"});
            ponga_formato(s, "RC");
            s.base.ejecute({"update formatos set tido_cod = 31"}); // los ajenos no se mueven
            for (const char* llave : {"RC", "CG"})
                ponga_formato(s, llave);
            auto* m = s.abra<TFmoverforma>("TFmoverforma", MueveFormato{1, "RC"});
            m->Pos->setText("7"); // las de tamaño la vacían
            oprima_en(m->acciones->button(c.letra), Qt::Key_Space);
            const bool corre = QString("RLUD").contains(c.letra);
            for (QLineEdit* e : {m->Pos, m->Desde, m->Hasta})
                QCOMPARE(e->isEnabled(), corre);
            if (corre)
                m->Pos->setText(c.pos);
            QCOMPARE(m->Pos->text(), c.pos);
            m->Desde->setText(c.desde);
            m->Hasta->setText(c.hasta);
            oprima(Qt::Key_F2);
            QVERIFY(s.escritorio.abiertas().isEmpty());
            QCOMPARE(donde("f.tido_cod = 1 and f.pref_pre = 'RC'"), c.queda);
            QCOMPARE(donde("(f.tido_cod = 31 or f.pref_pre = 'CG')"),
                     "40 1500,100 50,60,1900,300,40 1500,100 50,60,1900,300");
        }
        for (const char* accion : {"L", "R"}) // lo que salió de la página vuelve
            s.base.ejecute({QString("execute procedure mover_formato(1, 'RC', 120, 0, 2000, '%1')")
                                .arg(accion)});
        QCOMPARE(donde("f.tido_cod = 1 and f.pref_pre = 'RC'"), "40 3000,100 100,60,3800,300");
        const auto otra = [&] {
            s.base.base().ejecute("execute procedure mover_formato(1, 'RC', 10, 0, 2000, 'Z')");
        };
        QCOMPARE(falta_en(falla_de(otra), {"No existe esa forma de mover un formato."}), QString());
    }

    void un_grafico_toma_su_imagen_de_un_archivo() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        QTemporaryDir carpeta;
        const QString archivo = ponga_archivo(carpeta.filePath("logo.bmp"), imagen());
        d.abra("RC");
        // un cuadro no abre el panel, pero queda en edición
        d.e->DBGridEh1->OnDblClick(0);
        QVERIFY(!d.e->GroupBox3->isVisible() && d.e->CFormalineas.State() == Estado::Edicion);
        d.enfoque(d.e->DBGridEh1, 0);
        digite("Gráfico", Qt::Key_Return);
        QCOMPARE(d.e->CFormalineas.FieldByName("FOLI_TIPO").texto(), "G");
        d.pulse("SBGrafico");
        QVERIFY(d.e->GroupBox3->isVisible() && d.e->DBImage1->hasFocus());
        Interlocutor i;
        i.espere_archivo("abrir_imagen", archivo);
        oprima(Qt::Key_Space);
        d.pulse("SpeedButton1");
        QVERIFY(!d.e->GroupBox3->isVisible() && d.e->DBGridEh1->enfocada());
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.base.base()
                     .consulte("select foli_imagen from formato_lineas where foli_tipo = 'G'")
                     .binario(),
                 imagen());
    }

    void la_pagina_a_escala_sigue_lo_que_se_edita() {
        SesionGui s;
        Editor d(s);
        ponga_formato(s, "RC");
        d.abra("RC");
        const QRect hoja = d.e->lienzo->hoja();
        QVERIFY(qAbs(hoja.width() * 55 - hoja.height() * 85) < 100); // 8.5 por 5.5 pulgadas
        const auto en = [&](int x, int y) {
            return QPoint(hoja.left() + x * hoja.width() / LienzoFormato::kAncho,
                          hoja.top() + y * hoja.height() / LienzoFormato::kAlto);
        };
        const auto oscuro = [&](QPoint p) {
            return qGray(d.e->lienzo->grab().toImage().pixel(p)) < 128;
        };
        QVERIFY(oscuro(en(50, 200)));    // el borde izquierdo del cuadro
        QVERIFY(!oscuro(en(200, 1000))); // el blanco
        QVERIFY(d.e->CFormalineas.Locate("FOLI_ITEM", {1}));
        d.e->CFormalineas.Edit();
        d.e->CFormalineas.FieldByName("FOLI_POSX") = 200;
        d.e->CFormalineas.FieldByName("FOLI_POSY") = 900;
        QVERIFY(!oscuro(en(50, 200)));
        QVERIFY(oscuro(en(200, 1000)));
    }

    void el_formato_de_la_demostracion_imprime_dos_hojas_y_sus_firmas() {
        SesionGui s;
        Digitador d(s, true);
        const QImage logo = QImage::fromData(logo_demo());
        QCOMPARE(logo.size(), QSize(116, 200));
        QVERIFY(logo.pixelColor(2, 2) != logo.pixelColor(40, 50)); // la letra sobre su fondo
        s.base.ejecute({"insert into tipo_comprobante (tico_cod, tico_nom, tico_formato) values "
                        "('CE', 'Comprobante de egreso', 'N')",
                        "insert into prefijos_conta (tico_cod, prco_pref, pref_numero, prco_auto, "
                        "prco_activo) values ('CE', '0001', '000001', 'S', 'S')"});
        siembre_formatos(s.base.base());
        s.dm.datos_compania.nombre = "Comercializadora de Prueba";
        s.dm.datos_compania.logo = logo_demo();
        QStringList lineas;
        for (int k = 0; k < kRenglonesEgreso; ++k)
            lineas << "519530:1000:0";
        lineas << QString("111005:0:%1").arg(kRenglonesEgreso * 1000);
        ponga_comprobante(s, 7, "000020", "20170315", lineas);
        s.base.ejecute({"update comprobante_encabezado set tico_cod = 'CE', enco_monto = 12000",
                        "update comprobante_detalle set proy_cod = '0001', cent_cod = '0002', "
                        "code_porc = 2.5, cnde_docnumero = 'F 991', doco_vence = '20170430', "
                        "terc_nit = '52345678' where code_item = 13"});
        const auto imprima = [&] {
            return informe_como_texto(
                s.abra<Tfimprcomproba>("Tfimprcomproba", AbreComprobante{"7"}), Qt::Key_F2);
        };
        const QStringList hojas = imprima().split('\f', Qt::SkipEmptyParts);
        QCOMPARE(hojas.size(), 2);
        QCOMPARE(hojas[0].count("519530"), kRenglonesEgreso);
        QCOMPARE(hojas[0].count("PASAN"), 2);
        QVERIFY(hojas[0].contains("Recibí conforme") && !hojas[1].contains("PASAN"));
        for (const char* lleva :
             {"Comercializadora de Prueba", "Comprobante de egreso", "000020", "111005",
              "$12,000.00", "DOCE MIL", "Recibí conforme: C.C. o NIT", "ADMIN", "2.50", "F 991",
              "20170430", "Administración", "Contabilidad", "Peña Gómez"})
            QVERIFY2(hojas[1].contains(QString::fromUtf8(lleva), Qt::CaseInsensitive), lleva);
    }

    void sin_llave_no_hay_que_editar() {
        SesionGui s;
        Editor d(s);
        Interlocutor i;
        i.espere("Escoja antes un prefijo: su formato se guarda con él.");
        QVERIFY(!d.abra("  "));
    }
};

QTEST_MAIN(PruebaFormatos)
#include "prueba_formatos.moc"
