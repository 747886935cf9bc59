#pragma once
// Las manos de las pruebas: teclas donde esté el foco, y las jugadas que todas repiten.
#include "apoyo_gui/interlocutor.h"
#include "datos/recordset/conjunto.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

/// El control con foco. El monitor de las pruebas no devuelve la activación al cerrarse un diálogo.
inline QWidget* con_foco() {
    // Debajo de un modal ninguna otra ventana atiende.
    if (QWidget* modal = QApplication::activeModalWidget();
        modal && !QApplication::activeWindow()) {
        modal->activateWindow();
        (void)QTest::qWaitForWindowActive(modal);
    }
    for (QWidget* w : QApplication::topLevelWidgets())
        if (!QApplication::activeWindow() && w->isVisible()) {
            w->activateWindow();
            (void)QTest::qWaitForWindowActive(w);
        }
    QWidget* foco = QApplication::focusWidget();
    return foco ? foco : QApplication::activeWindow();
}
/// Oprime una tecla donde esté el foco.
inline void oprima(int clave, Qt::KeyboardModifiers modificadores = Qt::NoModifier) {
    QTest::keyClick(con_foco(), Qt::Key(clave), modificadores);
}
/// Varias, una tras otra.
inline void oprima_seguidas(std::initializer_list<Qt::Key> claves) {
    for (Qt::Key clave : claves)
        oprima(clave);
}
/// Pone el foco en un control y las oprime.
template <class... Claves> void oprima_en(QWidget* control, Claves... claves) {
    control->setFocus();
    (oprima(claves), ...);
}
/// Oprime una tecla que debe mostrar ese mensaje, y le responde.
inline void dice(Qt::Key clave, const QString& texto,
                 const QString& respuesta = QStringLiteral("Aceptar"),
                 const std::source_location& donde = std::source_location::current()) {
    dice([=] { oprima(clave); }, texto, respuesta, donde);
}
/// Digita un texto donde esté el foco, y oprime las teclas que le siguen.
template <class... Claves> void digite(const QString& texto, Claves... claves) {
    for (QChar c : texto)
        QTest::sendKeyEvent(QTest::Click, con_foco(), Qt::Key(c.toUpper().unicode()), c,
                            Qt::NoModifier);
    (oprima(claves), ...);
}
/// Lo mismo, en otro control.
template <class... Claves>
void digite_en(QWidget* control, const QString& texto, Claves... claves) {
    control->setFocus();
    digite(texto, claves...);
}
/// Recorre las celdas desde la actual con Enter; "" deja la celda como esté.
inline void digite_celdas(const QStringList& celdas) {
    for (const QString& celda : celdas) {
        if (!celda.isEmpty())
            digite(celda);
        oprima(Qt::Key_Return);
    }
}
/// Componente de una pantalla por su nombre.
template <class T> T& componente(QWidget* pantalla, const char* nombre) {
    T* c = pantalla->findChild<T*>(QLatin1String(nombre));
    if (!c)
        qFatal("%s no tiene %s", qPrintable(pantalla->objectName()), nombre);
    return *c;
}
/// Pone el foco en un control por su nombre.
inline QWidget& enfoque(QWidget* pantalla, const char* control) {
    con_foco();
    auto& w = componente<QWidget>(pantalla, control);
    w.setFocus();
    return w;
}
inline void enfoque(QWidget* pantalla, const char* rejilla, int columna) {
    static_cast<Rejilla&>(enfoque(pantalla, rejilla)).SelectedIndex(columna);
}
/// Reemplaza lo que dice una caja.
inline void llene(QWidget* pantalla, const char* caja, const QString& texto) {
    static_cast<QLineEdit&>(enfoque(pantalla, caja)).selectAll();
    oprima(Qt::Key_Delete);
    digite(texto);
}
/// Lo mismo, y pasa al control siguiente.
inline void escriba(QWidget* pantalla, const char* caja, const QString& texto) {
    llene(pantalla, caja, texto);
    oprima(Qt::Key_Return);
}
/// Oprime un botón o cambia una casilla.
inline void pulse(QWidget* pantalla, const char* boton) {
    enfoque(pantalla, boton);
    oprima(Qt::Key_Space);
}
/// Doble clic en la celda actual.
inline void doble_clic(Rejilla& rejilla) {
    QTest::mouseDClick(rejilla.viewport(), Qt::LeftButton, {},
                       rejilla.visualRect(rejilla.currentIndex()).center());
}
inline QStringList titulos_de(const Rejilla& rejilla) {
    QStringList titulos;
    for (int i = 0; i < rejilla.cuenta_columnas(); ++i)
        titulos << rejilla.columna(i).Titulo();
    return titulos;
}
/// Los valores de un campo en todas las filas, como texto.
inline QStringList valores_de(const ConjuntoDatos& c, const QString& campo) {
    QStringList todos;
    for (int i = 0; c.Active() && i < c.RecordCount(); ++i)
        todos << c.valor_en(i, c.FieldByName(campo)).texto();
    return todos;
}
