#pragma once
// Las teclas de una pantalla, como las ve quien la usa. Se piden con F1.
#include <QString>
#include <QVector>

class Pantalla;
class QKeySequence;
class QWidget;

struct TeclaExplicada {
    QString tecla;    ///< "F2", "Ctrl+Av Pág"
    QString que_hace; ///< en palabras, sin nombres de componentes
};

/// Las de su tabla, en su orden, y las de sus rejillas. Un botón apagado u oculto no tiene tecla.
QVector<TeclaExplicada> teclas_explicadas(const Pantalla& pantalla);
/// Como se escribe al usuario: "Mayús+F9".
QString nombre_de_tecla(const QKeySequence& tecla);
/// Lo que el control hace con una tecla que no está en la tabla de su pantalla; F1 lo dice.
void explique_tecla(QWidget& control, const QString& tecla, const QString& que_hace);
/// La ventana de F1.
void muestre_teclas(Pantalla& pantalla);
void muestre_teclas(QWidget* ventana, const QString& titulo, const QVector<TeclaExplicada>& teclas);
