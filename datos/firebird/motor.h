#pragma once
// Preparación del motor de base de datos en proceso, antes de la primera llamada al cliente.
//
// Da a cada usuario del equipo su propia carpeta de configuración y de bloqueos, con el motor en
// modo compartido: dos programas del mismo usuario pueden abrir la misma base, y la carpeta de
// bloqueos de otro usuario no estorba. Se llama sola desde Conexion; repetirla no hace nada.
#include <QString>

void prepare_motor_local();
/// Carpeta en que el paquete de Debian deja el motor, sus módulos y sus mensajes.
QString motor_instalado();
