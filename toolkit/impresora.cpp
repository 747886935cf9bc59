#include "toolkit/impresora.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>

namespace {
struct Escogida {
    bool hay = false;
    QString nombre, archivo;
    QPageLayout hoja;
    QPrinter::ColorMode color = QPrinter::Color;
};
Escogida escogida_;
} // namespace

void configure_impresora(QWidget* ventana) {
    QPrinter impresora;
    prepare_impresora(impresora);
    QPrintDialog dialogo(&impresora, ventana);
    dialogo.setObjectName(QStringLiteral("ConfigurarImpresora"));
    dialogo.setWindowTitle(QStringLiteral("Configurar impresora"));
    // Aquí no se imprime nada: sobran el rango y la selección.
    dialogo.setOptions(QAbstractPrintDialog::PrintToFile);
    if (dialogo.exec() == QDialog::Accepted)
        escogida_ = {true, impresora.printerName(), impresora.outputFileName(),
                     impresora.pageLayout(), impresora.colorMode()};
}

void prepare_impresora(QPrinter& impresora) {
    if (!escogida_.nombre.isEmpty())
        impresora.setPrinterName(escogida_.nombre);
    // La hoja de Qt depende del idioma del equipo; la del país es la carta.
    if (!escogida_.hoja.isValid())
        impresora.setPageSize(QPageSize(QPageSize::Letter));
    if (!escogida_.hay)
        return;
    if (!escogida_.archivo.isEmpty())
        impresora.setOutputFileName(escogida_.archivo);
    if (escogida_.hoja.isValid())
        impresora.setPageLayout(escogida_.hoja);
    impresora.setColorMode(escogida_.color);
}

QSizeF hoja_de_impresora() {
    const QPageLayout hoja =
        escogida_.hoja.isValid()
            ? escogida_.hoja
            : QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF());
    return hoja.fullRect(QPageLayout::Millimeter).size();
}

QString impresora_escogida() {
    return escogida_.nombre;
}

void fije_impresora(const QString& nombre, const QString& archivo) {
    escogida_ = {!nombre.isEmpty() || !archivo.isEmpty(), nombre, archivo, {}, QPrinter::Color};
}
