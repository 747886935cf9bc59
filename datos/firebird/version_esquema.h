#pragma once
// Versión del esquema de las bases que este programa conoce. Sube con cada actualización numerada
// de database/actualizaciones; una prueba compara los dos números.
#include "datos/firebird/conexion.h"

enum class TipoBase { Compania, General };

inline constexpr int kVersionCompania = 14;
inline constexpr int kVersionGeneral = 1;

inline int version_conocida(TipoBase tipo) {
    return tipo == TipoBase::Compania ? kVersionCompania : kVersionGeneral;
}

/// Versión que dice la base conectada; 0 si no es de este sistema o no se acabó de crear. La que se
/// quedó a medias de actualizar dice la anterior.
int version_de_esquema(Conexion& conexion);

/// Verdadero si la falla es que el usuario no tiene permiso en la base: nadie le concedió el papel.
bool sin_permiso(const ErrorBase& falla);

/// Por qué no se debe trabajar con una base de esa versión, para mostrarlo; vacío si se puede. Una
/// base más nueva puede guardar lo que este programa no sabe cuidar; a una anterior le falta lo que
/// este programa usa.
QString negativa_de_version(TipoBase tipo, int version);
