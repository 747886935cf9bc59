#pragma once
// Palabras con que los mensajes nombran las columnas y las tablas de la base.
//
// Este piso no las conoce: las pone quien tenga el diccionario de la compañía. Mientras nadie lo
// haga, si el diccionario falla o en un hilo distinto del que las puso, los mensajes callan el
// nombre en vez de mostrar el de la base.
#include <QString>
#include <functional>

struct NombresDeDatos {
    /// Descripción de una columna o una tabla; vacía si no la tiene.
    std::function<QString(const QString&nombre)> columna, tabla;
    /// Usuarios con sesión abierta además de este: entre ellos está quien tiene una fila tomada.
    std::function<QStringList()> otros_usuarios;
};

void instale_nombres_de_datos(NombresDeDatos nombres);
/// Vacío si no se sabe. Nunca lanza.
QString nombre_de_columna(const QString& columna);
QString nombre_de_tabla(const QString& tabla);
QStringList otros_usuarios_con_sesion();
