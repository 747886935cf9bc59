#pragma once
// Consultas de los documentos de los módulos hermanos. Dónde está cada uno y cómo se llaman sus
// columnas es una sola tabla; los nombres son los del esquema de la suite, también los mal
// escritos.
#include <QString>

/// Consulta del id de un documento por prefijo y número; vacía si el tipo no está en la tabla.
QString sql_existe_numero(int tipo, const QString& prefijo, const QString& numero);
/// Consulta del prefijo y el número de un documento por su id; vacía si el tipo no está.
QString sql_numero_documento(int tipo, qint64 id);
/// La variante de los módulos que comparten la rutina, con sus cuatro nombres propios.
QString sql_num_documento(int tipo, qint64 id);
