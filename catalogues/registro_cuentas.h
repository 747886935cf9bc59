#pragma once

/// Inscribe las pantallas de los planes de cuentas y las normas.
void registre_pantallas_cuentas();
