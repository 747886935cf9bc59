#pragma once
// Frontera entre los eventos de la interfaz y las fallas: ninguna excepción cruza el lazo de Qt.
#include "datos/firebird/errores.h"

#include <functional>
#include <utility>

/// Recibe toda falla que nadie atrapó. Lo instala el módulo de datos central; antes de eso la
/// muestra en un diálogo, con sus palabras para el usuario.
using ManejadorFallas = std::function<void(const ErrorDatos& falla)>;
void instale_manejador_fallas(ManejadorFallas manejador);
/// El que solo quiere el texto.
void instale_manejador_fallas(std::function<void(const QString& texto)> manejador);
void retire_manejador_fallas();
void reporte_falla(const ErrorDatos& falla);
void reporte_falla(const QString& texto);
/// Reporta la excepción en curso, y la da como falla o como texto (solo dentro de un catch).
void reporte_excepcion();
ErrorDatos falla_de_excepcion();
QString texto_de_excepcion();

/// Ejecuta un manejador de evento. Una edición abortada es silenciosa; lo demás se reporta.
/// Devuelve si terminó sin falla.
template <class F> bool proteja(F&& cuerpo) {
    try {
        std::forward<F>(cuerpo)();
        return true;
    } catch (const EdicionAbortada&) {
    } catch (...) {
        reporte_excepcion();
    }
    return false;
}
