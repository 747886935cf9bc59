#pragma once
// Lo que el módulo principal de la suite mantiene y este cliente solo lee: compañías, usuarios,
// permisos y configuración. Trabaja sobre conexiones ya abiertas por un administrador.
#include "datos/firebird/conexion.h"

#include <QVector>

struct DatosCompania {
    QString codigo; ///< tres caracteres, también el nombre de su carpeta
    QString nombre, nit, direccion, telefonos, encabezado, ciudad;
    int ano_inicio = 2017, mes_inicio = 1;
};

struct DatosUsuario {
    QString codigo; ///< hasta diez: letras sin tilde, cifras o _, en mayúsculas
    QString nombre;
    bool administrador = false;
    int sucursal = 0; ///< 0 ve todas las agencias
    int ano = 2017;
    int periodo = 0; ///< 0 a 11 los meses, 12 ajustes
};

inline constexpr const char* kModuloContabilidad = "CONTABILIDAD";

/// Todas las opciones asignadas del módulo de contabilidad.
QVector<int> opciones_contabilidad();

/// Lanza ErrorDatos si el código no tiene la forma debida; lo devuelve en mayúsculas.
QString codigo_usuario(const QString& codigo);
QString codigo_compania(const QString& codigo);

/// Fila de COMPANIA en la general; si ya existe, la pone al día.
void registre_compania(Conexion& general, const DatosCompania& datos);
/// Imagen que encabeza los comprobantes de una compañía registrada.
void registre_logo(Conexion& general, const QString& codigo, const QByteArray& imagen);
/// Nombre, NIT, dirección, ciudad e inicio de los libros en la configuración de la compañía.
void configure_compania(Conexion& compania, const DatosCompania& datos);
/// Códigos de las compañías registradas, en orden.
QStringList companias(Conexion& general);

/// El papel con que el programa entra a una base; sin él un usuario no puede nada en ella.
void conceda_papel(Conexion& base, const QString& codigo);
/// Un usuario que ya existe conserva sus derechos de administrador.
void registre_usuario_general(Conexion& general, const DatosUsuario& datos);
void registre_usuario_compania(Conexion& compania, const DatosUsuario& datos);
/// Crea el usuario del servidor, o le cambia la clave.
void cree_usuario_servidor(Conexion& general, const QString& codigo, const QString& clave);

/// Lanza ErrorDatos si el usuario no está registrado en la compañía.
void exija_registrado(Conexion& compania, const QString& usuario);

/// Concede o niega opciones a un usuario registrado en la compañía.
void otorgue(Conexion& compania, const QString& usuario, const QString& modulo,
             const QVector<int>& opciones, bool conceder);

/// Cambia un valor. Lanza ErrorDatos si la propiedad no existe, con las parecidas.
void configure(Conexion& compania, const QString& modulo, const QString& categoria,
               const QString& propiedad, const QString& valor);

/// Otras sesiones abiertas en la base: "USUARIO desde programa (equipo)".
QStringList sesiones_ajenas(Conexion& conexion);

/// La falla en palabras del usuario: clave, ruta, servidor o base en uso.
QString mensaje_claro(const ErrorDatos& falla);
