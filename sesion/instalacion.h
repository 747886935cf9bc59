#pragma once
// Ajustes de la instalación: la carpeta de la aplicación y la ubicación de las bases.
//
// La carpeta es el ajuste "Directorio" de la instalación (variable QUORVEX_DIRECTORIO; si no, la
// clave Directorio de ~/.config/quorvex2018.conf o de /etc/quorvex2018.conf). Allí viven
// conexion.cfg, ERRORES.TXT, impresoras.cfg y los informes.
#include <QString>

/// Un ajuste de la instalación por su nombre ("Directorio", "Pagina"): el del usuario y, si no lo
/// tiene, el del equipo; vacío si ninguno lo dice.
QString ajuste_instalacion(const QString& nombre);
/// Carpeta de la aplicación; vacía después de avisar si la instalación no la dice.
QString diraplicacion();
/// La misma, sin avisar.
QString diraplicacion_callada();
/// `parametro` si no está vacío; si no, el contenido de conexion.cfg menos sus dos últimos octetos
/// (el fin de línea), leído cada vez; vacía después de avisar si no se puede abrir.
QString ubicaciondb(const QString& parametro);
/// Ruta de la base de una compañía ("001") o, con código vacío, de la general.
QString ruta_base(const QString& ubicacion, const QString& compania);
/// Impresora del formato en impresoras.cfg; vacía si no tiene línea.
QString impresora_de(const QString& formato);
/// Ruta de un proyecto de informes ("auxiliares.rav") en la carpeta de la aplicación. Si allí no
/// está, el motor usa el que trae el programa.
QString ruta_informe(const QString& archivo);
