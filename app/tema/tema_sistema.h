#pragma once
// Lo que el escritorio del usuario dice de sus colores.

/// Pide fondo oscuro, según el portal de preferencias de freedesktop. Falso si no lo dice o no hay
/// a quién preguntar; espera a lo sumo tres décimas de segundo.
bool escritorio_oscuro();
