#pragma once
// Pantallas de los cierres, ajustes y registros automáticos, por su nombre.

void registre_pantallas_cierres();
