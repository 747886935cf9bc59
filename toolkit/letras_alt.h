#pragma once
// La letra que Alt subraya en cada control: una sola la usa, y ninguna es de un menú del marco.
#include <QSet>

class QWidget;

/// Las letras de los menús de esa ventana.
QSet<QChar> letras_de_menus(QWidget* ventana);
/// Deja a cada control la letra que tiene subrayada si está libre; si no, le busca otra de su texto
/// o se la quita. Lo que no está a la vista solo respeta las `ocupadas`.
void reparta_letras(QWidget& pantalla, const QSet<QChar>& ocupadas);
/// Subraya una letra propia en cada botón de un diálogo que no la tenga ni nombre su tecla.
void ponga_letras(QWidget& dialogo);
