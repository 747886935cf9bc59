#pragma once
// Corre un informe como lo hace una persona y devuelve lo impreso.
#include "apoyo/monitor.h"
#include "apoyo_gui/sesion_gui.h"

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

/// Contesta a la exportación con ese archivo y ese tipo; `propuesto` es el nombre que debe ofrecer.
inline void espere_exportar(Interlocutor& i, const QString& ruta, const char* tipo,
                            const QString& propuesto = {}) {
    i.espere_modal("guardar_seleccion", [=](QWidget* w) {
        auto* nombre = w->findChild<QLineEdit*>("fileNameEdit");
        if (!propuesto.isEmpty())
            QCOMPARE(nombre->text(), propuesto);
        static_cast<QFileDialog*>(w)->selectNameFilter(tipo);
        nombre->setText(ruta);
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
    static int copia = 0;
    if (const QString deja = qEnvironmentVariable("QUORVEX_PDF"); !deja.isEmpty())
        QFile::copy(ruta, QString("%1/%2_%3.pdf").arg(deja, nombre).arg(++copia));
    return texto_de_pdf(ruta);
}
