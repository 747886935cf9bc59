#pragma once
// El nombre de la cuenta en cada línea, tenue tras su código, donde el ancho lo permite.
#include "libro/libro.h"

#include <QHash>
#include <QObject>
#include <QSet>

class Rejilla;

class NombresEnLinea : public QObject {
    Q_OBJECT
public:
    NombresEnLinea(Rejilla* rejilla, Libro libro, int columna);

private:
    QString nombre(const QString& cuenta);
    void consulte();

    Rejilla* rejilla_;
    Libro libro_;
    int columna_;
    QHash<QString, QString> nombres_;
    QSet<QString> por_consultar_;
};
