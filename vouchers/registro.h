#pragma once
// Pantallas de comprobantes, por su nombre.
void registre_pantallas_comprobantes();
