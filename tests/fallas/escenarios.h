#pragma once
// Fallas de verdad, cuantas se pidan: programas que mueren, la red que se corta en cada punto,
// varios que graban a la vez. Cada escenario devuelve lo que salió mal, como texto; vacío si nada.
// La prueba de todos los días los corre reducidos y el programa `fallas`, enteros.

struct Corrida {
    quint32 semilla = 2018;
    std::function<void(const QString&)> diga = [](const QString&) {}; ///< cómo va
};

/// Mata con kill -9, en un instante al azar, un programa que graba, corrige, cambia de página y
/// borra, con el motor en proceso; y revisa todo lo que había dado por hecho.
QStringList muertes(int cuantas, const Corrida& corrida);
/// Mata la restauración de un respaldo en un instante al azar: después de cada una hay una base
/// buena y la restauración se puede repetir.
QStringList restauraciones_muertas(int cuantas, const Corrida& corrida);
/// Corta la red en `puntos` repartidos por los octetos de una grabación, una corrección, un cambio
/// de página y un borrado, en los dos sentidos: la pantalla dice la verdad, conserva lo digitado y
/// termina cuando la red vuelve. Necesita una QApplication.
QStringList cortes(int puntos, const Corrida& corrida);
/// La red calla sin cerrarse tras cada octeto de las mismas operaciones: nada queda congelado.
QStringList silencios(int puntos, const Corrida& corrida);
/// Varios programas graban a la vez en un mismo prefijo contra el servidor.
QStringList varios_a_la_vez(int programas, int cada_uno, const Corrida& corrida);
