#pragma once
// Servicios del motor: respaldo y restauración de bases, en proceso o contra un servidor.
//
// El archivo de respaldo está siempre en el equipo que hace la llamada, también cuando la base está
// en un servidor: los datos viajan por la conexión. Las fallas salen como ErrorBase; un servidor
// que deja de contestar cuenta como perdido (ver vigia.h).
#include "datos/firebird/conexion.h"

/// Respalda la base de `origen` en `archivo`, que se escribe bajo un nombre temporal y se renombra.
/// Los demás usuarios pueden seguir trabajando: el respaldo es una foto de la base.
void respalde_base(const ParametrosConexion& origen, const QString& archivo);

/// Restaura `archivo` en la base de `destino`. Falla si la base existe y no se pide reemplazarla, o
/// si alguien la tiene abierta. `paginas_cache` queda guardado en la base.
void restaure_base(const QString& archivo, const ParametrosConexion& destino, bool reemplazar,
                   int paginas_cache = 8192);

/// Que cada confirmación llegue al disco antes de contestar (lo normal), o no. Nadie más puede
/// tener abierta la base.
void ponga_escritura_inmediata(const ParametrosConexion& base, bool inmediata);
bool tiene_escritura_inmediata(Conexion& conexion);
