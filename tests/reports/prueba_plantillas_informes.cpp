// Las plantillas que trae el programa contra lo que el programa les pide y lo que se documenta.
#include "toolkit/informes/definicion.h"

using namespace informes;

namespace {

QString lea(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        qFatal("no se pudo leer %s", qPrintable(ruta));
    return QString::fromUtf8(f.readAll());
}

QString casa() {
    return qEnvironmentVariable("QUORVEX_PROYECTO");
}

/// Nombres de bandas e items de todos los reportes de un proyecto, y los de sus grupos.
struct Nombres {
    QSet<QString> propios, grupos;
};

Nombres nombres_de(const Proyecto& proyecto) {
    Nombres n;
    for (const Reporte& r : proyecto.reportes) {
        for (const Grupo& g : r.grupos)
            n.grupos << g.nombre;
        for (const Banda& b : r.bandas) {
            n.propios << b.nombre;
            for (const Item& i : b.items)
                n.propios << i.nombre;
        }
    }
    n.propios.remove({});
    return n;
}

} // namespace

class PruebaPlantillasInformes : public QObject {
    Q_OBJECT
private slots:
    void los_nombres_que_el_programa_cambia_estan_en_la_plantilla_y_en_la_documentacion();
    void todo_informe_dice_arriba_el_nit_y_el_libro();
};

void PruebaPlantillasInformes::
    los_nombres_que_el_programa_cambia_estan_en_la_plantilla_y_en_la_documentacion() {
    // Lo documentado: | `proyecto.rav` | `nombre`, `nombre` |
    QMap<QString, QSet<QString>> documentados;
    const QRegularExpression fila("^\\| `(\\w+\\.rav)` \\| (.*) \\|$",
                                  QRegularExpression::MultilineOption);
    const QRegularExpression nombre("`(\\w+)`");
    const QString texto = lea(casa() + "/docs/informes.md");
    for (auto f = fila.globalMatch(texto); f.hasNext();) {
        const auto m = f.next();
        for (auto n = nombre.globalMatch(m.captured(2)); n.hasNext();)
            documentados[m.captured(1)] << n.next().captured(1);
    }
    // Lo que el programa dice: los literales de quien imprime.
    QString fuentes;
    for (const char* carpeta : {"reports", "vouchers", "ledger", "tax"})
        for (const QFileInfo& f : QDir(casa() + '/' + carpeta).entryInfoList({"*.cpp", "*.h"}))
            fuentes += lea(f.filePath());
    const QStringList archivos = QDir(casa() + "/plantillas").entryList({"*.rav"});
    QVERIFY(archivos.size() >= 4);
    for (const QString& archivo : archivos) {
        const Nombres n = nombres_de(lea_proyecto(casa() + "/plantillas/" + archivo));
        const QSet<QString>& dichos = documentados[archivo];
        QVERIFY2(!dichos.isEmpty(), qPrintable(archivo));
        for (const QString& d : dichos) {
            QVERIFY2(n.propios.contains(d) || n.grupos.contains(d),
                     qPrintable(archivo + " no tiene " + d));
            QVERIFY2(fuentes.contains('"' + d + '"', Qt::CaseInsensitive),
                     qPrintable("nadie cambia " + d + " de " + archivo));
        }
        // Un nombre está en la plantilla porque alguien lo usa: debe estar documentado.
        for (const QString& p : n.propios)
            QVERIFY2(dichos.contains(p), qPrintable(archivo + ": " + p + " no está documentado"));
        documentados.remove(archivo);
    }
    QVERIFY2(documentados.isEmpty(), qPrintable(QStringList(documentados.keys()).join(", ")));
}

void PruebaPlantillasInformes::todo_informe_dice_arriba_el_nit_y_el_libro() {
    // Un certificado es para el tercero, que no lleva los libros de quien le retuvo.
    static const QSet<QString> sin_libro{"Certificado", "Certificaiva", "Certificaica",
                                         "Certificacree"};
    int vistos = 0;
    QStringList faltas;
    for (const QString& archivo : QDir(casa() + "/plantillas").entryList({"*.rav"}))
        for (const Reporte& r : lea_proyecto(casa() + "/plantillas/" + archivo).reportes) {
            ++vistos;
            QSet<QString> dichas;
            for (const Banda& b : r.bandas) {
                // Donde sale en toda hoja: el encabezado, o el grupo que la empieza.
                if (b.tipo != TipoBanda::Encabezado &&
                    !(b.tipo == TipoBanda::Grupo && b.pagina_nueva))
                    continue;
                for (const Item& i : b.items)
                    for (const Pedazo& p : i.pedazos)
                        if (p.clase == Pedazo::Variable)
                            dichas << p.texto;
            }
            if (!dichas.contains("NitCia"))
                faltas << archivo + ' ' + r.nombre + ": sin NIT";
            if (dichas.contains("Libro") == sin_libro.contains(r.nombre))
                faltas << archivo + ' ' + r.nombre + ": libro";
        }
    QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join('\n')));
    QVERIFY(vistos > 60);
}

QTEST_MAIN(PruebaPlantillasInformes)
#include "prueba_plantillas_informes.moc"
