#pragma once
// Lo que comparten el proveedor y la averiguación de lo enviado: con qué condición se busca una
// fila en la base, y qué se le envió.
#include "datos/recordset/conjunto.h"

/// Lo que viajó de una fila en una grabación de la que no se supo.
struct Fila::Envio {
    ClaseCambio clase = ClaseCambio::Modificacion;
    QVector<Valor> valores; ///< los enviados; en un borrado, los que tenía
    QVector<Valor> antes;   ///< los que había en la base, en una modificación
};

namespace cambios {

/// Bandera de proveedor: con un campo así la fila por grabar viaja aunque nada le haya cambiado.
inline constexpr unsigned pfSiempre = 8;

struct Condicion {
    QStringList partes;
    QVector<Valor> valores;
    void agregue(const Campo& c, const Valor& v);
    QString sql() const { return partes.join(QStringLiteral(" and ")); }
};

/// Tabla que se modifica: la que más columnas aporta al resultado.
QString tabla_de(const QVector<Columna>& columnas);
QString nombres_de(const QVector<Campo*>& campos);
/// Los campos que identifican la fila: los de pfInKey, o los de la llave de la tabla. Vacía si el
/// conjunto no los tiene todos.
QVector<Campo*> llave_de(const ConjuntoDatos& conjunto, const QString& tabla);
/// Los valores de esos campos, como condición.
Condicion condicion_de(const QVector<Campo*>& campos, const QVector<Valor>& valores);
/// Iguales para la base: los blancos del final no distinguen dos textos.
bool iguales(const Valor& a, const Valor& b);

/// Campos del conjunto que son columnas de `tabla`.
QVector<Campo*> campos_de(const ConjuntoDatos& conjunto, const QString& tabla);
/// Las filas que el conjunto muestra, con las borradas; nulo si su maestra no tiene fila.
const Detalle* filas_de(const ConjuntoDatos& conjunto);
/// La del cursor, también si se está insertando; nulo sin filas.
const Fila* fila_actual(const ConjuntoDatos& conjunto);
/// Las del anidado en esa fila de su maestra; nulo si no se han leído.
const Detalle* detalle_de(const ConjuntoDatos& anidado, const Fila& maestra);
/// La fila, o alguno de sus detalles, tiene algo que grabar.
bool cambio(const Fila& fila);

/// Busca en la base lo que se envió del conjunto y sus anidados. Si quedó, esas filas se dan por
/// grabadas; si no, vuelven a ser cambios por enviar. Lanza si todavía no hay servidor.
/// Devuelve si quedó.
bool aclare_envio(ConjuntoDatos& conjunto);
/// Hay filas enviadas de las que no se sabe.
bool hay_envio(ConjuntoDatos& conjunto);

} // namespace cambios
