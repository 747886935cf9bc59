#pragma once
// Dónde queda un archivo que se va a escribir.
#include <QString>

class QWidget;

/// Pregunta el nombre, comenzando en `actual`; vacío si el usuario desiste. `filtro`: "Archivos
/// XML|*.xml".
QString escoja_archivo(QWidget* padre, const QString& actual, const QString& filtro);
