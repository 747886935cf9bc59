#pragma once
// Pantallas del presupuesto, por su nombre.

void registre_pantallas_presupuesto();
