#pragma once
// Impresora de la sesión: la que el usuario escogió en "Configurar Impresora..." sirve a todo lo
// que se imprima hasta cerrar el programa.
class QPrinter;
class QWidget;

/// Muestra el diálogo de la impresora y su papel, y recuerda lo escogido.
void configure_impresora(QWidget* ventana);
/// Da a una impresora nueva lo escogido, si algo se escogió.
void prepare_impresora(QPrinter& impresora);
