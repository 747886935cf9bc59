#pragma once
// Cómo se lee en una ficha el último cambio de lo que muestra.
#include <QString>

/// De lo que da `Tfdm::sql_auditoria`: "Modificado: aaaa/mm/dd  hh:mm:ss  USUARIO".
QString modificado(const QString& auditoria);
