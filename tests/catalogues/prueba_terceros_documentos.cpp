// Documentos digitalizados de un tercero.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_terceros.h"

/// Hace de visor de PDF del sistema.
class VisorTestigo : public QObject {
    Q_OBJECT
public:
    VisorTestigo() { QDesktopServices::setUrlHandler("file", this, "abra"); }
    ~VisorTestigo() override { QDesktopServices::unsetUrlHandler("file"); }
    QList<QByteArray> vistos;
public slots:
    void abra(const QUrl& url) {
        QFile f(url.toLocalFile());
        vistos << (f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("no está"));
    }
};

class PruebaTercerosDocumentos : public QObject {
    Q_OBJECT

    QTemporaryDir carpeta_;

    QString archivo(const QString& nombre, const QByteArray& contenido) {
        QFile f(carpeta_.filePath(nombre));
        if (!f.open(QIODevice::WriteOnly))
            qFatal("sin archivo de prueba");
        f.write(contenido);
        return f.fileName();
    }
    static QStringList en_pdf(SesionGui& s) {
        return QDir(s.base.ruta() + "/pdf").entryList(QDir::Files);
    }
    void agregue(SesionGui& s, const QString& item, const QString& nombre,
                 const QByteArray& contenido) {
        s.base.base().ejecute("insert into tercero_documentos (terc_nit, tedo_item, tedo_nombre, "
                              "tedo_archivo) values ('900123456', ?, ?, ?)",
                              {item, nombre, contenido});
    }
    static Pantalla* documentos(SesionGui&) {
        return pantallas().abrir("Tfdocsterc", AbreTercero{"900123456"});
    }

private slots:
    void initTestCase() { registre_pantallas_terceros(); }

    void el_documento_senalado_se_extrae_y_se_ve_y_al_dejarlo_se_borra() {
        SesionGui s;
        VisorTestigo visor;
        agregue(s, "1", "RUT", "%PDF uno");
        agregue(s, "2", "Cámara de comercio", "%PDF dos");
        agregue(s, "3", "Cédula", "%PDF tres");
        Pantalla* p = documentos(s);
        QVERIFY(p);
        QCOMPARE(en_pdf(s), QStringList({"900123456 1.pdf"}));
        QTRY_COMPARE(visor.vistos, QList<QByteArray>({"%PDF uno"}));
        // Pasar de largo por el segundo no lo abre.
        oprima(Qt::Key_Down);
        QCOMPARE(en_pdf(s), QStringList({"900123456 2.pdf"}));
        oprima(Qt::Key_Down);
        QCOMPARE(en_pdf(s), QStringList({"900123456 3.pdf"}));
        QTRY_COMPARE(visor.vistos.size(), 2);
        QCOMPARE(visor.vistos.last(), QByteArray("%PDF tres"));
        oprima(Qt::Key_Escape);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QVERIFY(en_pdf(s).isEmpty());
    }

    void se_agrega_un_pdf_y_se_rehusa_lo_que_no_lo_es() {
        SesionGui s;
        VisorTestigo visor;
        Interlocutor i;
        agregue(s, "4", "RUT", "%PDF viejo");
        const QString bueno = archivo("Certificado.pdf", "%PDF-1.4 contenido\0 binario");
        const QString malo = archivo("carta.txt", "Señores");
        Pantalla* p = documentos(s);
        i.espere_modal("Tfnvodocterc", [&](QWidget* modal) {
            auto* forma = modal->findChild<Pantalla*>("Tfnvodocterc");
            auto& ruta = componente<QLineEdit>(forma, "EArchivo");
            QCOMPARE(modal->focusWidget(), &ruta);
            for (const QString& falsa : {QString(), carpeta_.filePath("no_existe.pdf"), malo}) {
                ruta.setText(falsa);
                i.espere(falsa == malo
                             ? "El archivo no es un documento PDF."
                             : "No se pudo abrir el archivo del documento. Revise su ruta.");
                QTest::keyClick(&ruta, Qt::Key_F2);
            }
            i.espere_modal("QFileDialog", [&](QWidget* w) {
                w->findChild<QLineEdit*>("fileNameEdit")->setText(bueno);
                QMetaObject::invokeMethod(w, "accept");
            });
            componente<QPushButton>(forma, "SBExaminar").click();
            QCOMPARE(ruta.text(), bueno);
            QTest::keyClick(&ruta, Qt::Key_F2);
        });
        oprima(Qt::Key_F5);
        QCOMPARE(
            s.dato("select tedo_item || ' ' || tedo_nombre || ' ' || octet_length(tedo_archivo) "
                   "from tercero_documentos where terc_nit = '900123456' and tedo_item > 4"),
            QString("5 Certificado %1").arg(QFileInfo(bueno).size()));
        QCOMPARE(componente<ConjuntoDatos>(p, "CDocs").RecordCount(), 2);
    }

    void eliminar_pide_la_opcion_12_del_modulo_y_pregunta() {
        SesionGui s("AUXILIAR");
        VisorTestigo visor;
        agregue(s, "1", "RUT", "%PDF uno");
        Pantalla* p = documentos(s);
        dice(Qt::Key_F3, "Acceso no permitido. comuníquese con el administrador del sistema.");
        s.dm.modulo = "C. X PAGAR";
        s.base.ejecute({"insert into acceso_usuario (user_cod, acus_modulo, acus_opcion, acus_si) "
                        "values ('AUXILIAR', 'CAJA', 12, 'S')"});
        dice(Qt::Key_F3, "Desea borrar definitivamente el documento RUT?", "No");
        dice(Qt::Key_F3, "Desea borrar definitivamente el documento RUT?", "Sí");
        QVERIFY(componente<ConjuntoDatos>(p, "CDocs").IsEmpty());
        QVERIFY(en_pdf(s).isEmpty());
        oprima(Qt::Key_F3); // sin documentos no pregunta nada
    }
};

QTEST_MAIN(PruebaTercerosDocumentos)
#include "prueba_terceros_documentos.moc"
