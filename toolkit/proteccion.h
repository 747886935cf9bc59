#pragma once
// Frontera entre los eventos de la interfaz y las fallas: ninguna excepción cruza el lazo de Qt.
#include "datos/firebird/errores.h"

#include <functional>
#include <utility>

/// Recibe toda falla que nadie atrapó. Lo instala el módulo de datos central; antes de eso la
/// muestra en un diálogo sin traducir.
using ManejadorFallas = std::function<void(const QString& texto)>;
void instale_manejador_fallas(ManejadorFallas manejador);
void reporte_falla(const QString& texto);
/// Texto de la excepción en curso (solo dentro de un catch).
QString texto_de_excepcion();

/// Ejecuta un manejador de evento. Una edición abortada es silenciosa; lo demás se reporta.
/// Devuelve si terminó sin falla.
template <class F> bool proteja(F&& cuerpo) {
    try {
        std::forward<F>(cuerpo)();
        return true;
    } catch (const EdicionAbortada&) {
    } catch (...) {
        reporte_falla(texto_de_excepcion());
    }
    return false;
}
