#pragma once

/// Informes que define el usuario y estados consolidados.
void registre_pantallas_definibles();
