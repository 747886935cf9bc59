#pragma once
// Pantallas de la apertura y la conciliación NIIF, por su nombre.

void registre_pantallas_niif();
