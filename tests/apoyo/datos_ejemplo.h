#pragma once
// Datos de ejemplo de la plantilla de pruebas: una compañía mínima y conocida.
//
// Libros desde enero de 2017, sin saldos ni comprobantes. Plan de dos libros iguales por
// equivalencia (CUEN_EQNIIF = el mismo código):
//   110505 Caja general            111005 Bancos, moneda nacional
//   130505 Clientes (tercero, tipo C)           135515 Retención en la fuente (tercero, retención)
//   143505 Mercancías (tipo I)     152405 Equipo de oficina (tipo A)   159215 Depreciación
//   220505 Proveedores (tercero, tipo C)        236540 Retención compras (tercero, retención 2,5 %,
//   base 895.000)                  240805 IVA generado  240810 IVA descontable
//   310505 Capital  360505 Utilidad del ejercicio  413505 Ventas (centro)
//   510506 Sueldos (tercero y centro)  519530 Útiles (centro)  613505 Costo de ventas (centro)
//   110510 Caja menor está inactiva.
// Terceros: 900123456 Ferretería El Tornillo S.A.S. (cliente), 800456789 Distribuidora Andina
//   Ltda. (proveedor), 52345678 María Peña Gómez (empleada), 19876543 José Ñáñez (inactivo),
//   860002964 Banco de Bogotá (ambos).
// Proyectos: 0001 Administración (centros 0001 Gerencia, 0002 Contabilidad) y 0002 Ventas (0001
//   Mostrador; 0002 Bodega, de la agencia 2).
// Tipos: CG (prefijo 0001 automático), RC (0001 automático y 0002 a mano), NC sin prefijos activos.
// Usuarios: ADMIN, administrador; AUXILIAR, solo con las opciones de opciones_auxiliar(),
// agencia 2.
#include "datos/firebird/conexion.h"

void agregue_datos_ejemplo(Conexion& general, Conexion& compania);

/// Opciones concedidas a AUXILIAR; las demás se le niegan por no tener fila.
QVector<int> opciones_auxiliar();
