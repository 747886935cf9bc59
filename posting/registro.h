#pragma once
// Pantallas de la contabilización de los módulos hermanos, por su nombre.

void registre_pantallas_contabilizacion();
