#pragma once
// Lo que distingue a los procesos de los activos fijos y a su lista.
#include "catalogues/forma_proceso.h"
#include "catalogues/lista_proceso.h"

const DatosProceso& depreciacion();
const DatosProceso& baja();
const DatosProceso& valoracion();
const DatosLista& lista_depreciaciones();
