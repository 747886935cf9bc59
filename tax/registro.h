#pragma once
// Pantallas de lo que piden las autoridades: certificados, medios magnéticos y taxonomías.

/// Deja cada una en el registro, por su nombre.
void registre_pantallas_impuestos();
