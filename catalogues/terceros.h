#pragma once
// Entradas de otras pantallas al registro de terceros.
#include <QString>

/// Abre un tercero nuevo si el usuario puede crear terceros (opción 10).
void crear_tercero();
/// Abre la lista de terceros en mantenimiento si el usuario puede consultarlos (opción 11).
void buscar_tercero();

/// Módulo cuyos permisos rigen en las pantallas que comparten varios módulos: "CAJA" para cuentas
/// por pagar, y si no el que está abierto.
QString modulo_de_terceros();
