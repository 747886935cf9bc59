#pragma once
// Corre un informe como lo hace una persona y devuelve lo impreso.
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/sesion_gui.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>

/// Texto de un PDF, con las columnas en su sitio.
inline QString texto_de_pdf(const QString& ruta) {
    QProcess p;
    p.start("pdftotext", {"-layout", ruta, "-"});
    p.waitForFinished();
    return QString::fromUtf8(p.readAllStandardOutput());
}

/// Contesta "Opciones de impresión" pidiendo un PDF en `ruta`.
inline void espere_pdf(Interlocutor& i, const QString& ruta) {
    i.espere_modal("OpcionesImpresion", [](QWidget* w) {
        w->findChild<QRadioButton*>("a_archivo")->click();
        w->findChild<QComboBox*>("formato")->setCurrentIndex(3);
        w->findChild<QPushButton*>("ok")->click();
    });
    i.espere_modal("guardar_informe", [=](QWidget* w) {
        w->findChild<QLineEdit*>("fileNameEdit")->setText(ruta);
        QMetaObject::invokeMethod(w, "accept");
    });
}

/// Oprime la tecla en la pantalla, graba el informe como PDF y devuelve su texto. Con la variable
/// QUORVEX_PDF deja una copia en esa carpeta, para mirarla.
inline QString informe_como_texto(Pantalla* pantalla, int clave) {
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("informe.pdf");
    const QString nombre = pantalla->objectName();
    Interlocutor i;
    espere_pdf(i, ruta);
    escritorio()->active(pantalla);
    oprima(clave);
    if (!i.conforme())
        QTest::qFail(qPrintable(i.queja()), __FILE__, __LINE__);
    static int copia = 0;
    if (const QString deja = qEnvironmentVariable("QUORVEX_PDF"); !deja.isEmpty())
        QFile::copy(ruta, QString("%1/%2_%3.pdf").arg(deja, nombre).arg(++copia));
    return texto_de_pdf(ruta);
}
