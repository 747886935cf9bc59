#pragma once
// Pantallas de los activos fijos y su depreciación, por su nombre.

void registre_pantallas_activos();
