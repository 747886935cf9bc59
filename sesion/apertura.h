#pragma once
// Apertura de pantallas por su nombre cuando esta versión puede no traerlas.
#include "toolkit/peticion.h"

#include <QString>

/// La pantalla está registrada; si no, lo dice en la barra de estado.
bool hay_pantalla(const QString& nombre);
/// La abre como ventana hija con su petición, o avisa.
void abra_o_avise(const QString& pantalla, Encargo encargo = {});
