#pragma once
// Pantallas de el presupuesto, por su nombre.

void registre_pantallas_presupuesto();
