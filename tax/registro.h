#pragma once
// Pantallas de lo que piden las autoridades: certificados, medios magnéticos y taxonomías, por su
// nombre.

void registre_pantallas_impuestos();
