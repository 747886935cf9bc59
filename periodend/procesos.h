#pragma once
// Lo que distingue a cada proceso de fin de período y a su lista.
#include "catalogues/forma_proceso.h"
#include "catalogues/lista_proceso.h"

const DatosProceso& cierre_anual();
const DatosProceso& cierre_terceros();
const DatosProceso& ajuste_inflacion();

/// Las listas de los tres procesos, por el nombre de su clase.
const QVector<DatosLista>& listas_de_procesos();
