#pragma once
// Un cálculo largo de la base con su avance a la vista y la salida de cancelarlo.
#include "datos/firebird/conexion.h"

class QWidget;

/// Corre `trabajo` en una transacción de escritura de una conexión propia y en otro hilo; si tarda,
/// muestra sobre `padre` qué hace y ofrece cancelar. El paso lo dice el procedimiento en la
/// variable AVANCE de su sesión, como "2/6 suma el movimiento"; si no la pone, la barra solo se
/// mueve. `trabajo` no toca pantallas ni otra conexión. Falso si se canceló: nada quedó. Lanza lo
/// que lance el trabajo.
bool calcule_cancelable(QWidget* padre, const QString& texto,
                        const std::function<void(Transaccion&)>& trabajo);
