#pragma once

/// Registra por su nombre las pantallas de terceros, centros, tipos de comprobante, categorías y
/// artículos.
void registre_pantallas_terceros();
