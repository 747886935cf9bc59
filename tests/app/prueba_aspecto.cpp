// Cómo se ve cada pantalla registrada, con datos corrientes y extremos: ninguna cifra ni código se
// recorta mientras haya ancho, los botones quedan a la vista y todo control dice su nombre.
//
// Con QUORVEX_FOTOS deja además una foto de cada una; `herramientas/fotos.sh` la corre a todas las
// escalas.
#include "revisiones_de_aspecto.h"

namespace {

/// Nombres de sesenta letras, cifras de veinte caracteres y un asiento largo cuya mayor cifra queda
/// lejos del comienzo.
QStringList datos_extremos() {
    const auto largo = [](const QString& tabla, const QString& campo) {
        return QString("update %1 set %2 = substring(%2 || ' de administración y ventas de la "
                       "compañía en todo el territorio nacional' from 1 for 60)")
            .arg(tabla, campo);
    };
    return {
        largo("cuentas", "cuen_nom"),
        largo("cuentas_niif", "cuen_nom"),
        largo("terceros", "terc_nom"),
        largo("proyectos", "proy_nom"),
        largo("centros", "cent_nom"),
        largo("articulo", "arti_des"),
        largo("activos_fijos", "acfj_desc"),
        largo("plantilla_encabezado", "plan_concepto"),
        largo("documento", "docu_concepto"),
        largo("depreciacion", "depr_conc"),
        largo("apertura_niif_det", "apnd_concepto"),
        largo("plantilla_detalle", "plde_concepto"),
        largo("comprobante_encabezado", "enco_concepto"),
        largo("comprobante_detalle", "code_concepto"),
        "update presupuesto set pres_debito = 9999999999999.99, pres_credito = 88888888888.88",
        "update activos_fijos set acfj_vrorig = 9999999999999.99 where acfj_cod = 'MUEB1'",
        "update activos_grupos set acgr_nom = 'Muebles, enseres y equipo de las sucursales'",
        "update apertura_niif set apni_saldoant = 9999999999999.99, apni_ajustedb = "
        "9999999999999.99, apni_ajustecr = 9999999999999.99, apni_saldoniif = 9999999999999.99",
        "update apertura_niif_det set apnd_saldoini = iif(apnd_item = 1, 9999999999999.99, 0), "
        "apnd_debito = 9999999999999.99, apnd_saldofin = 9999999999999.99 where apnd_item = 1",
        "update plantilla_detalle_niif set plde_debitos = 9999999999999.99",
        "insert into taxonomia_encabeza (taxo_id, taxe_id, taxe_nombre) values (1, 1, 'Estado de "
        "situación financiera, corriente y no corriente, separado')",
        "insert into taxonomia_detalle (taxo_id, taxe_id, taxd_item, taxd_nombre, taxd_tipo, "
        "taxd_nivel, taxd_norma) values (1, 1, 1, 'Inversiones contabilizadas utilizando el método "
        "de la participación en subsidiarias y asociadas', 1, 1, 'NIC 1.54 e')",
        "update configura_mediosmag set come_descripcion = 'Salarios, prestaciones y demás pagos "
        "laborales del personal', come_minimo = iif(come_item = 1001902, "
        "9999999999999.99, come_minimo) where come_formato in (10018, 10019)",
        "update terceros set terc_dir = 'Carrera 7 con calle 72, torre norte del centro "
        "empresarial'",
        "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit, code_debito, "
        "code_credito) values (500, 401, '510506', '900123456', 9999999999999.99, 0)",
        "update mensajeria set mens_mensaje = 'Falta la factura del arriendo de las bodegas de "
        "todo el territorio nacional'",
        "insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato, dafo_imprime, "
        "dafo_posx, dafo_posy, dafo_ini, dafo_long, dafo_repite, dafo_font, dafo_fsize) values (1, "
        "'CG', 1, 'NOMBRE SUBCEBTRO COSTO', 'S', 1085, 400, 1, 30, 'S', 'DejaVu Sans Mono', 9)",
        "insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato, dafo_imprime, "
        "dafo_posx, dafo_posy, dafo_ini, dafo_long) values (1, 'CG', 2, 'DOCUMENTO APLICACION', "
        "'S', 105, 200, 1, 12)",
        "insert into normas_niif (nnif_id, nnif_nombre) values (1, 'Presentación de los estados "
        "financieros de propósito general')",
        "update conceptos_cuentas set cocu_monto = 9999999999999.99",
        "update saldos_iniciales set sain_debito = 9999999999999.99 where sain_item = 1",
        "update plantilla_detalle set plde_debitos = 9999999999999.99",
        "update contabilizacion_det set cnde_debitos = iif(cnde_item = 1, 9999999999999.99, 0), "
        "cnde_creditos = iif(cnde_item = 2, 9999999999999.99, 0)",
        "update comprobante_detalle set code_debito = 9999999999999.99 where code_item in (1, 3) "
        "and code_debito > 0",
        "update comprobante_detalle set code_credito = 9999999999999.99 where code_item = 2 and "
        "enco_consec = 500",
        "update comprobante_detalle_niif set code_debito = 9999999999999.99 where code_item in (1, "
        "3) and code_debito > 0",
        "update comprobante_detalle_niif set code_credito = 9999999999999.99 where code_item = 2 "
        "and enco_consec = 500",
        "execute block as declare n integer = 10; begin while (n < 400) do begin n = n + 1; insert "
        "into comprobante_detalle (enco_consec, code_item, cuen_cod, code_debito, code_credito) "
        "select 500, :n, '413505', iif(:n = 400, 99999999999.99, 5), 0 from rdb$database; end end",
    };
}

/// Rejillas que ni con los datos extremos tienen filas, y por qué.
const QSet<QString> kSinFilas{
    // Lo nuevo: la que lo modifica, que es la misma rejilla, sí las tiene.
    "Tfmovimien.DBGridEh1",
    "Tfmovimien.DBGridEh2",
    "Tfplantilla.DBGridEh1",
    "Tfplantilla.DBGridEh2",
    "Tfnvaplanillad.DBGridEh1",
    "Tfnvoactivo.DBGridEh2",
    "Tfnvoconcepto.DBGridEh1",
    "Tfnvoregiauto.DBGridEh1",
    "Tfnvoformato.DBGridEh1",
    "Tfnvoformato.DBGridEh2",
    // La segunda página, a la que se llega con la primera aceptada.
    "Tfbalaperturaniif.DBGridEh2",
    "Tfcalculadep.DBGridEh1",
    // El libro que no se contabiliza aparte, que no se ve.
    "Tfcontabiliza.DBGridEh2",
    // Lo que se digita de una vez, y lo que un cálculo no da con estos datos.
    "Tfplanilladatos.DBGridEh1",
    "Tfmediosmagbog.DBGridEh1",
};

/// Como la de quien apenas la crea: sin terceros, centros, artículos ni activos.
QStringList sin_datos() {
    QStringList ordenes;
    for (const char* tabla : {"activos_centros", "activos_fijos", "articulo", "centros",
                              "proyectos", "terceros", "taxonomia"})
        ordenes << QString("delete from %1").arg(QLatin1String(tabla));
    return ordenes;
}

} // namespace

/// Lo que Qt le reprocha a quien arma una ventana mal.
class Reproches {
public:
    Reproches() : antes_(qInstallMessageHandler(anote)) { vistos_.clear(); }
    ~Reproches() { qInstallMessageHandler(antes_); }
    static QStringList saque() { return std::exchange(vistos_, {}); }

private:
    static void anote(QtMsgType, const QMessageLogContext&, const QString& texto) {
        if (texto.startsWith("QWidget::") || texto.startsWith("QLayout") ||
            texto.startsWith("QPainter") || texto.startsWith("QObject::"))
            vistos_ << texto;
    }
    static inline QStringList vistos_;
    QtMessageHandler antes_;
};

/// Lo que Qt busca traducir y se queda como estaba, salvo los nombres propios y lo que en español
/// se escribe igual. Es el primero al que se le pregunta.
class SinTraducir : public QTranslator {
public:
    SinTraducir() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* contexto, const char* texto, const char* caso,
                      int n) const override {
        if (preguntando_)
            return {};
        const QScopedValueRollback<bool> guarda(preguntando_, true);
        static const QRegularExpression palabra("[a-z]{2}");
        static const QStringList nombres{"QPageSize", "QFontDatabase"};
        static const QStringList iguales{"Color",       "&No",        "Alt", "Meta",
                                         "Cicero (CC)", "Didot (DD)", "mm"};
        if (palabra.match(texto).hasMatch() && !nombres.contains(contexto) &&
            !iguales.contains(texto) &&
            QCoreApplication::translate(contexto, texto, caso, n) == QLatin1String(texto))
            vistos << QString("%1: %2").arg(contexto, texto);
        return {};
    }
    mutable QSet<QString> vistos;

private:
    mutable bool preguntando_ = false;
};

class PruebaAspecto : public QObject {
    Q_OBJECT
private slots:
    void init() { s_.emplace(); }
    void cleanup() { s_.reset(); }

    void cada_pantalla_se_lee_entera_data() {
        QTest::addColumn<QStringList>("ordenes");
        QTest::addColumn<QSize>("area");
        QTest::newRow("corrientes") << QStringList{} << monitor();
        QTest::newRow("extremos") << datos_extremos() << monitor();
        QTest::newRow("vacios") << sin_datos() << monitor();
        if (qApp->devicePixelRatio() == 1) // si no, ya es la de una letra grande
            QTest::newRow("a 150 %") << QStringList{} << monitor() / 1.5;
    }
    void cada_pantalla_se_lee_entera() {
        QFETCH(QStringList, ordenes);
        QFETCH(QSize, area);
        QStringList faltas;
        Cobertura con_filas(kSinFilas);
        std::optional<Reproches> reproches(std::in_place);
        con_cada_pantalla(
            *s_, ordenes, area,
            [&](Pantalla* p) {
                QStringList suyas = Reproches::saque();
                p->window()->activateWindow(); // en la foto se ve el foco
                (void)QTest::qWaitForWindowActive(p->window());
                revise_apertura(p, suyas);
                suyas << revise(p, con_filas);
                if (p->objectName() == "Tfmovimien")
                    tome_foto(s_->principal.get(),
                              QString::fromLatin1(QTest::currentDataTag()) + "_principal");
                const QString foto = QString::fromLatin1(QTest::currentDataTag()) + '_' +
                                     nombre_y_manera(*p).replace(' ', '_');
                tome_foto(ventana_de(p), foto);
                suyas << revise_las_otras_hojas(p, foto, con_filas);
                if (p->objectName() == "Tfedtmovimien") { // la ventanilla sigue a quien digita
                    p->findChild<Rejilla*>("DBGridEh1")->setFocus();
                    revise_apertura(p, suyas);
                    tome_foto(ventana_de(p), foto + "_lineas");
                }
                const QMap<QString, int> antes = lados(p);
                if (consulte(p)) {
                    suyas << revise(p, con_filas);
                    const QMap<QString, int> ahora = lados(p);
                    for (auto l = antes.begin(); l != antes.end(); ++l)
                        if (ahora.value(l.key(), *l) != *l)
                            suyas << l.key() + " cambia de lado su título al consultar";
                    tome_foto(ventana_de(p), foto + "_resultado");
                }
                for (const QString& f : suyas)
                    faltas << nombre_y_manera(*p) + ": " + f;
            },
            QTest::currentDataTag() != QByteArray("vacios"));
        reproches.reset();
        if (QTest::currentDataTag() == QByteArray("extremos"))
            faltas << con_filas.faltas();
        diga_faltas(faltas);
        QVERIFY2(s_->errores().isEmpty(), qPrintable(s_->errores().join('|')));
        const QByteArray juego = QTest::currentDataTag();
        if (qEnvironmentVariableIsEmpty("QUORVEX_PANTALLA") && juego == "extremos" &&
            area == QSize(1366, 768))
            for (const char* clase : {"celda", "título"})
                QVERIFY2(Consejos::vistos[clase] > 5, clase);
        Consejos::vistos.clear();
    }

    void los_avisos_de_la_sesion_se_abren_tambien_con_el_teclado() {
        Tfprincipal& p = s_->entre();
        p.barra->texto("Grabado FC 0001 000106");
        QString visto;
        s_->dialogos.espere_modal("historia_avisos", [&](QWidget* w) {
            visto = w->findChild<QPlainTextEdit*>("Avisos")->toPlainText();
            w->close();
        });
        QTest::keyClick(&p, Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(visto.startsWith("2017/05/15 12:00:00  Grabado FC 0001 000106"));
        // El que no cabe toma el sitio de las revisiones.
        const auto* revisiones = p.findChild<QLabel*>("LabRevision");
        QVERIFY(revisiones->isVisible());
        p.barra->texto(QString(300, 'm'));
        QVERIFY(revisiones->isHidden());
        p.barra->texto("Grabado FC 0001 000107");
        QVERIFY(revisiones->isVisible());
    }

    void lo_que_dice_qt_va_en_espanol() {
        SinTraducir espia;
        QPrinter impresora;
        QPrintDialog(&impresora).show();
        QPageSetupDialog(&impresora).show();
        QPrintPreviewDialog(&impresora).show();
        const QTemporaryDir carpeta;
        QDir(carpeta.path()).mkdir("subcarpeta");
        for (const char* nombre : {"sin_clase", "medio.xml", "raro.qvx"})
            QVERIFY(QFile(carpeta.filePath(nombre)).open(QFile::WriteOnly));
        QVERIFY(QFile::link("nada", carpeta.filePath("roto")));
        QFileDialog archivos(nullptr, QString(), carpeta.path());
        archivos.setOption(QFileDialog::DontUseNativeDialog);
        for (const auto modo : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
            archivos.setAcceptMode(modo);
            archivos.show();
            archivos.findChild<QWidget*>("treeView")->grab();
        }
        QMessageBox mensaje;
        mensaje.setStandardButtons(QMessageBox::StandardButtons(0x0FFFFC00));
        mensaje.setDetailedText("Todo");
        QColorDialog().show();
        QFontDialog().show();
        QInputDialog pregunta;
        for (const auto modo : {QInputDialog::TextInput, QInputDialog::IntInput}) {
            pregunta.setInputMode(modo);
            pregunta.show();
        }
        QLineEdit renglon;
        QPlainTextEdit texto;
        delete renglon.createStandardContextMenu();
        delete texto.createStandardContextMenu();
        const QMdiSubWindow ventana;
        QWizard().show();
        QProgressDialog().show();
        agote_eventos();
        QVERIFY2(espia.vistos.isEmpty(), qPrintable(espia.vistos.values().join('\n')));
    }

private:
    std::optional<SesionDePrueba> s_;
};

PRUEBA_DE_LA_APLICACION(PruebaAspecto)
#include "prueba_aspecto.moc"
