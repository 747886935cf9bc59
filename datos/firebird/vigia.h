#pragma once
// Vigía de la red: una llamada a un servidor que no contesta no puede dejar congelado el programa.
//
// Un cable suelto o un equipo apagado no cierran la conexión: la llamada esperaría minutos. Pasado
// un tiempo sin respuesta, el vigía prueba desde otro hilo si el servidor atiende. Si atiende, la
// llamada es larga y se deja seguir; si no, corta la conexión y la llamada falla como cualquier
// otra pérdida del servidor. El motor en proceso no se vigila.

/// Tiempos, en milisegundos.
struct LimitesDeRed {
    int sin_respuesta = 8000; ///< lo que se espera antes de probar al servidor
    int prueba = 5000;        ///< lo que tiene el servidor para contestar la prueba
    int conexion = 12000;     ///< lo que se espera al entrar
};

/// Los tiempos en uso; una prueba los acorta.
LimitesDeRed limites_de_red();
void limites_de_red(const LimitesDeRed& limites);
