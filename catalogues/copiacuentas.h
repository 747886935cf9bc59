#pragma once

/// Copia el plan 2649 al plan NIIF, si este está vacío y el usuario lo confirma (entrada "Copiar
/// cuentas a NIIF" del menú).
void copie_cuentas_a_niif();
