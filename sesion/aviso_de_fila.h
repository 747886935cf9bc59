#pragma once
// Avisos de la barra de estado que se van con lo que los causó.
#include <QString>

class AvisosBarra;
class ConjuntoDatos;

/// Advertencia sobre la fila que se digita: se retira cuando se corrige, se graba o se deja.
void advierta_de_fila(ConjuntoDatos& conjunto, const QString& texto);
/// Advertencia sobre lo que la pantalla tiene a la vista: se retira al cerrarla. La que cuenta lo
/// que ya pasó no va por aquí, que la pantalla puede cerrarse enseguida.
void advierta_de_pantalla(const QString& texto);
/// Lo mismo sin alarma: la razón de que algo no se abra.
void noticia_de_pantalla(const QString& texto);
/// Con qué se nombra al último que la barra dijo; 0 si ninguno.
qint64 ultimo_aviso(const AvisosBarra* barra);
/// Lo que la barra dijo después del aviso `antes` es de la pantalla en que se está: al cerrarla se
/// retira. Si no dijo nada, el último es de otro y se queda.
void aviso_de_pantalla(AvisosBarra& barra, qint64 antes);
