#pragma once
// Comprobaciones de los libros de una compañía.
#include "datos/firebird/conexion.h"

#include <QStringList>

/// Lo que está mal en los dos libros, cada cosa con su comprobante, libro y causa: saldos que no
/// son los de los renglones, comprobantes descuadrados, encabezados y libros que perdieron sus
/// renglones, renglones sin lo que su cuenta exige... Se lee en una sola foto, así que no importa
/// que otros graben. Vacía si todo está bien. Los descuadrados de una compañía que los permite no
/// van en ella, sino en `permitidos`.
QStringList verifique_compania(Conexion& compania, QStringList* permitidos = nullptr);

/// Rehace los saldos de los dos libros a partir de los renglones, también con otros grabando, y
/// dice cuáles estaban mal. Vacía si ninguno.
QStringList recalcule_saldos(Conexion& compania);

/// Compacta los saldos hasta no dejar diferencias; devuelve cuántas había.
qint64 compacte_saldos(Conexion& compania);

/// Pone al día las estadísticas de los índices: con las de una base vacía los planes salen malos.
void actualice_estadisticas(Conexion& compania);
