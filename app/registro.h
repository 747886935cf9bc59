#pragma once

/// Inscribe las pantallas de todos los pisos, las que el menú y los botones abren por su nombre.
void registre_pantallas();
