#pragma once
// Pantallas de los informes, por su nombre.

void registre_pantallas_informes();
