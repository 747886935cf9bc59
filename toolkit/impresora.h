#pragma once
// Impresora de la sesión: la que el usuario escogió en "Configurar Impresora..." sirve a todo lo
// que se imprima hasta cerrar el programa.
#include <QSizeF>
#include <QString>

class QPrinter;
class QWidget;

/// Muestra el diálogo de la impresora y su papel, y recuerda lo escogido.
void configure_impresora(QWidget* ventana);
/// Da a una impresora nueva lo escogido, si algo se escogió.
void prepare_impresora(QPrinter& impresora);
/// Hoja escogida, en milímetros y ya girada; carta vertical mientras no se escoja otra.
QSizeF hoja_de_impresora();
/// Nombre de la escogida, o vacío.
QString impresora_escogida();
/// Escoge sin diálogo: con `archivo`, lo que se imprima queda en ese PDF.
void fije_impresora(const QString& nombre, const QString& archivo = {});
