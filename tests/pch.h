#pragma once
// Lo que toda prueba tiene a mano sin pedirlo: Qt y el apoyo que más se usa. Cada una incluye lo
// que prueba y las ayudas de su carpeta.
#include "apoyo/archivos.h"
#include "apoyo/azar_de_prueba.h"
#include "apoyo/herramienta.h"
#include "apoyo/prueba_con_base.h"
#include "apoyo/reloj_de_prueba.h"
#include "datos/recordset/conjunto.h"

#include <QtPrintSupport>
#include <QtTest>
#include <QtWidgets>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
