#pragma once
// Duplicar y reversar el comprobante que una pantalla tiene a la vista.
#include <QVector>
#include <functional>

class Pantalla;
class QMenu;

/// Da a la pantalla Ctrl+D, que lo duplica, y Ctrl+I, que lo reversa, con sus entradas al final de
/// cada menú. El nuevo lleva la fecha de hoy, exige el derecho de crear, se confirma antes y se
/// abre para corregirlo. `cual` responde el id, o 0 si no hay ninguno o no conviene, y entonces ya
/// lo dijo.
void ofrezca_copias(Pantalla& pantalla, const QVector<QMenu*>& menus, std::function<qint64()> cual);
