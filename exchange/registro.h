#pragma once
// Pantallas de la importación, la exportación y el mantenimiento, por su nombre.

void registre_pantallas_intercambio();
