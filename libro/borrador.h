#pragma once
// Un comprobante a medio digitar, como texto que se guarda fuera de la base.
#include "libro/comprobante.h"

#include <QByteArray>
#include <QDateTime>

struct Borrador {
    QDateTime momento; ///< de la última tecla que guardó
    QString dia;       ///< el que se digitó en el encabezado
    Comprobante comprobante;
    QString periodo; ///< "aaaamm" del día; vacío en los que no lo guardaban
};

QByteArray escriba_borrador(const Borrador& borrador);
/// Nada si el texto no es el de un borrador entero.
std::optional<Borrador> lea_borrador(const QByteArray& texto);

/// "hace 3 minutos", "hace 2 horas", "hace 5 días"; "hace un momento" si es menos de un minuto.
QString hace_cuanto(const QDateTime& antes, const QDateTime& ahora);
