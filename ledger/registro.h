#pragma once
// Pantallas de la consulta del libro, por su nombre.

void registre_pantallas_consulta();
